#include "endtoend/Desktop.h"

#include <QElapsedTimer>
#include <QThread>

#include <stdexcept>

namespace tally::test {

namespace {

constexpr int PatienceInMs = 30000;
constexpr unsigned long PauseInMs = 50;

} // namespace

Desktop::Desktop()
{
    // The server chooses a free display and tells its number, so that tests run side by side. It must not
    // start anew when its last window goes, as it does by itself: a program started in that moment finds no
    // display.
    server_.setStandardErrorFile(QProcess::nullDevice());
    server_.start(QStringLiteral("Xvfb"),
                  {QStringLiteral("-noreset"), QStringLiteral("-displayfd"), QStringLiteral("1"),
                   QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("1100x800x24"),
                   QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    QByteArray number;
    while (!number.endsWith('\n')) {
        if (!server_.waitForReadyRead(PatienceInMs))
            throw std::runtime_error("no display: is Xvfb installed?");
        number += server_.readAllStandardOutput();
    }
    name_ = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
}

Desktop::~Desktop()
{
    server_.terminate();
    server_.waitForFinished(PatienceInMs);
}

QVector<Desktop::Window> Desktop::WindowsOf(qint64 processId) const
{
    QVector<Window> windows;
    const QStringList ids = Run({QStringLiteral("search"), QStringLiteral("--all"),
                                 QStringLiteral("--onlyvisible"), QStringLiteral("--pid"),
                                 QString::number(processId), QStringLiteral("--name"), QStringLiteral(".")},
                                true)
                                .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& id : ids) {
        // A window may go between two questions; it has no place in the answer then.
        const QString title = Run({QStringLiteral("getwindowname"), id}, true);
        const QStringList geometry =
            Run({QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), id}, true)
                .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        Window window{id, title.chopped(title.endsWith(QLatin1Char('\n')) ? 1 : 0)};
        for (const QString& line : geometry) {
            const int value = line.section(QLatin1Char('='), 1).toInt();
            if (line.startsWith(QLatin1String("WIDTH=")))
                window.width = value;
            else if (line.startsWith(QLatin1String("HEIGHT=")))
                window.height = value;
        }
        if (window.width > 1)
            windows.push_back(window);
    }
    return windows;
}

void Desktop::Press(const Window& window, const QStringList& keys) const
{
    Run({QStringLiteral("windowfocus"), QStringLiteral("--sync"), window.id});
    for (const QString& key : keys)
        Run({QStringLiteral("key"), QStringLiteral("--clearmodifiers"), key});
}

void Desktop::Type(const Window& window, const QString& text) const
{
    Run({QStringLiteral("windowfocus"), QStringLiteral("--sync"), window.id});
    Run({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("20"), text});
}

QString Desktop::Run(const QStringList& arguments, bool mayFail) const
{
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), name_);
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral("xdotool"), arguments);
    if (!tool.waitForFinished(PatienceInMs))
        throw std::runtime_error("xdotool does not answer: is it installed?");
    if (tool.exitCode() != 0 && !mayFail)
        throw std::runtime_error(tool.readAllStandardError().toStdString());
    return QString::fromUtf8(tool.readAllStandardOutput());
}

bool Eventually(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.hasExpired(PatienceInMs))
            return false;
        QThread::msleep(PauseInMs);
    }
    return true;
}

} // namespace tally::test
