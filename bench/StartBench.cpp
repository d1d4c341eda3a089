// Measures from the start of the process to the splash against a window with one label, taking turns, and
// from Enter on the splash to the login form. Exit code 1: a limit is not kept.

#include "core/DatabasePassword.h"
#include "core/SessionContext.h"
#include "tools/DeliveredDatabases.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <vector>

namespace {

constexpr int Rounds = 21;
constexpr double SplashLimit = 1.5;
constexpr double LoginLimit = 100;

using Milestones = std::map<QByteArray, double>;

/// Milliseconds from the start of the process to each of its milestones.
Milestones Run(const QString& program, const QStringList& arguments)
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const double start =
        static_cast<double>(std::chrono::duration_cast<std::chrono::microseconds>(now).count());
    QProcess process;
    process.start(QDir(QCoreApplication::applicationDirPath()).filePath(program), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s failed: %s", qUtf8Printable(program), process.readAllStandardError().constData());
    Milestones milestones;
    for (const QByteArray& line : process.readAllStandardOutput().trimmed().split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        milestones[words.first()] = (words.last().toDouble() - start) / 1000;
    }
    return milestones;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QCoreApplication application(argc, argv);

    tally::SessionContext session;
    tally::BuildDatabasePassword(session);
    const QTemporaryDir folder;
    tally::MakeDeliveredDatabases(folder.path(), tally::DatabasePassword(session));

    std::vector<double> bare;
    std::vector<double> splash;
    std::vector<double> movie;
    std::vector<double> login;
    for (int round = 0; round < Rounds; ++round) {
        bare.push_back(Run(QStringLiteral("bare_window"), {}).at("visible"));
        const Milestones milestones = Run(QStringLiteral("splash_probe"), {folder.path()});
        splash.push_back(milestones.at("visible"));
        movie.push_back(milestones.at("movie"));
        login.push_back(milestones.at("login") - milestones.at("enter"));
    }

    const double ratio = Median(splash) / Median(bare);
    std::printf("bare window visible  %7.1f ms\n", Median(bare));
    std::printf("splash visible       %7.1f ms   %.2f times the bare window, at most %g%s\n", Median(splash),
                ratio, SplashLimit, ratio <= SplashLimit ? "" : "   MISSED");
    std::printf("its movie plays      %7.1f ms\n", Median(movie));
    std::printf("Enter to the login   %7.1f ms   at most %g ms%s\n", Median(login), LoginLimit,
                Median(login) <= LoginLimit ? "" : "   MISSED");
    return ratio <= SplashLimit && Median(login) <= LoginLimit ? 0 : 1;
}
