#include "endtoend/Office.h"

#include "core/DatabasePassword.h"
#include "store/Connection.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <stdexcept>

namespace tally::test {

namespace {

constexpr int PatienceInMs = 30000;

} // namespace

Office::Office(Databases databases)
{
    QDir().mkpath(Folder());
    QDir().mkpath(Home());
    QFile::setPermissions(Home(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcess maker;
    if (databases == Databases::Delivered)
        maker.start(QStringLiteral(TALLY_SETUP_PROGRAM), {Folder()});
    else
        maker.start(QStringLiteral(TALLY_SAMPLE_PROGRAM),
                    {QStringLiteral("--classes"), QStringLiteral("2"), QStringLiteral("--students"),
                     QStringLiteral("5"), Folder()});
    if (!maker.waitForFinished(PatienceInMs) || maker.exitCode() != 0)
        throw std::runtime_error("no databases: " + maker.readAllStandardError().toStdString());
}

QString Office::Program(const QString& name) const
{
    QString path = QDir(Folder()).filePath(name);
    if (!QFile::exists(path) && !QFile::copy(QStringLiteral(TALLYBOARD_PROGRAM), path))
        throw std::runtime_error("the program cannot be copied");
    return path;
}

int Office::PresenceRows() const
{
    return Number("SELECT count(*) FROM ExamBoardMaster");
}

int Office::Starts() const
{
    return Number("SELECT count(*) FROM AccessedDate");
}

int Office::Number(const char* query) const
{
    SessionContext session;
    BuildDatabasePassword(session);
    store::Connection connection(QDir(Folder()).filePath(QStringLiteral("Tallyboard.mdb")),
                                 DatabasePassword(session));
    return static_cast<int>(connection.Number(QString::fromLatin1(query)));
}

Client::Client(const Desktop& desktop, const Office& office, const QString& programName) : desktop_(desktop)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), desktop.Name());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    for (const char* place : {"HOME", "TMPDIR", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME"})
        environment.insert(QString::fromLatin1(place), office.Home());
    program_.setProcessEnvironment(environment);
    program_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program_.start(office.Program(programName), QStringList());
    if (!program_.waitForStarted(PatienceInMs))
        throw std::runtime_error("the program does not start");
}

Client::~Client()
{
    Kill();
}

Desktop::Window Client::Appeared()
{
    Desktop::Window found;
    const bool there = Eventually([&] {
        for (const Desktop::Window& window : desktop_.WindowsOf(program_.processId())) {
            if (!seen_.contains(window.id)) {
                found = window;
                return true;
            }
        }
        return false;
    });
    if (!there)
        throw std::runtime_error("no new window appears");
    seen_.push_back(found.id);
    return found;
}

void Client::WaitUntilGone(const Desktop::Window& window) const
{
    const bool gone = Eventually([&] {
        const QVector<Desktop::Window> windows = desktop_.WindowsOf(program_.processId());
        return std::none_of(windows.begin(), windows.end(),
                            [&](const Desktop::Window& other) { return other.id == window.id; });
    });
    if (!gone)
        throw std::runtime_error("a window stays");
}

Desktop::Window Client::LogIn(const QString& loginId, const QString& password)
{
    desktop_.Press(Appeared(), {QStringLiteral("Return")});
    const Desktop::Window login = Appeared();
    desktop_.Type(login, loginId);
    desktop_.Press(login, {QStringLiteral("Return")});
    desktop_.Type(login, password);
    desktop_.Press(login, {QStringLiteral("Return")});
    Desktop::Window mainWindow = Appeared();
    WaitUntilGone(login);
    return mainWindow;
}

void Client::ChooseClose(const Desktop::Window& mainWindow, const QString& answer)
{
    desktop_.Press(mainWindow, {QStringLiteral("alt+o")});
    desktop_.Press(Appeared(), {QStringLiteral("alt+") + answer});
}

bool Client::IsAlone(const Desktop::Window& window) const
{
    return Eventually([&] {
        const auto windows = desktop_.WindowsOf(program_.processId());
        return windows.size() == 1 && windows.constFirst().id == window.id;
    });
}

int Client::ExitCode()
{
    if (IsRunning() && !program_.waitForFinished(PatienceInMs))
        return -1;
    return program_.exitStatus() == QProcess::NormalExit ? program_.exitCode() : -1;
}

void Client::Kill()
{
    if (!IsRunning())
        return;
    program_.kill();
    program_.waitForFinished(PatienceInMs);
}

} // namespace tally::test
