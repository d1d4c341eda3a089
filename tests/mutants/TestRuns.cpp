#include "mutants/TestRuns.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>
#include <QVariant>

#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <sys/resource.h>
#include <unistd.h>

namespace tally::mutants {

namespace {

constexpr int Forever = -1;
/// What a mutant may take at most, so that one that never stops asking does not take the machine along.
constexpr rlim_t MostMemory = rlim_t{8} << 30;
constexpr rlim_t LargestFile = rlim_t{1} << 30;

/// The tests as the program lists them: a line for each suite, and by two blanks further in one for each
/// test.
QStringList NamesIn(const QString& program)
{
    QStringList names;
    QString suite;
    const QStringList lines =
        OutputOf(program, {QStringLiteral("--gtest_list_tests")}).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QString name = line.section(QLatin1Char('#'), 0, 0).trimmed();
        if (!line.startsWith(QLatin1String("  ")))
            suite = name;
        else if (!name.startsWith(QLatin1String("DISABLED_")))
            names.append(suite + name);
    }
    return names;
}

QJsonValue PropertyOf(const QJsonValue& test, const char* name)
{
    const QJsonArray properties = test[QLatin1String("properties")].toArray();
    for (const QJsonValue property : properties)
        if (property[QLatin1String("name")].toString() == QLatin1String(name))
            return property[QLatin1String("value")];
    return {};
}

} // namespace

QString OutputOf(const QString& program, const QStringList& arguments, const QByteArray& input)
{
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(Forever) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        throw std::runtime_error(program.toStdString() +
                                 " failed: " + process.readAllStandardError().toStdString());
    return QString::fromUtf8(process.readAllStandardOutput());
}

std::vector<Test> TestsOf(const QString& buildFolder)
{
    const QString told =
        OutputOf(QStringLiteral("ctest"),
                 {QStringLiteral("--test-dir"), buildFolder, QStringLiteral("--show-only=json-v1"),
                  QStringLiteral("-LE"), QStringLiteral("long|e2e")});
    const QJsonArray entries =
        QJsonDocument::fromJson(told.toUtf8()).object()[QLatin1String("tests")].toArray();
    std::vector<Test> tests;
    QSet<QString> programs;
    for (const QJsonValue entry : entries) {
        const QString program = entry[QLatin1String("command")][0].toString();
        if (program.isEmpty())
            throw std::runtime_error("not built: " + entry[QLatin1String("name")].toString().toStdString());
        // A program that is run in parts stands there once for each.
        if (programs.contains(program))
            continue;
        programs.insert(program);
        const bool ofRules = PropertyOf(entry, "LABELS").toArray().contains(QStringLiteral("rules"));
        const QString folder =
            PropertyOf(entry, "WORKING_DIRECTORY").toString().section(QStringLiteral("/tests/"), -1);
        for (const QString& name : NamesIn(program))
            tests.push_back({program, name, ofRules, folder});
    }
    return tests;
}

Outcome RunTests(const QString& program, const QStringList& names, const QProcessEnvironment& environment,
                 int longest)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    // A mutant may have lost the folder of a name that it writes.
    process.setWorkingDirectory(environment.value(QStringLiteral("TMPDIR"), QDir::tempPath()));
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setChildProcessModifier([] {
        setpgid(0, 0);
        const rlimit memory{MostMemory, MostMemory};
        setrlimit(RLIMIT_AS, &memory);
        const rlimit file{LargestFile, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &file);
        const rlimit core{0, 0};
        setrlimit(RLIMIT_CORE, &core);
    });
    process.start(program, {QStringLiteral("--gtest_fail_fast"),
                            QStringLiteral("--gtest_filter=") + names.join(QLatin1Char(':'))});
    if (!process.waitForStarted())
        throw std::runtime_error(program.toStdString() + " does not start");
    const auto group = static_cast<pid_t>(process.processId());
    const bool ended = process.waitForFinished(longest);
    if (group > 0)
        kill(-group, SIGKILL);
    process.waitForFinished(Forever);

    static const QByteArray begins = "[ RUN      ] ";
    const QByteArray told = process.readAllStandardOutput();
    const qsizetype last = told.lastIndexOf(begins);
    const qsizetype name = last + begins.size();
    return {ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
            last < 0 ? QString() : QString::fromUtf8(told.mid(name, told.indexOf('\n', name) - name))};
}

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void Say(const QString& line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

} // namespace tally::mutants
