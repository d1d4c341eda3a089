// Prints the most memory that the program ever held, with a rank list of 10,000 students on its screen. The
// school is made by one process and shown by another, so that only the showing counts.
// Exit code 1: more than 150 MB.

#include "app/Screens.h"
#include "bench/BenchSchool.h"
#include "bench/PeakMemory.h"
#include "bench/RankScreen.h"
#include "core/look/Look.h"
#include "core/mdiTallyboard.h"
#include "core/modTallyboardForms.h"
#include "core/Screen.h"
#include "core/ScreenRegistry.h"
#include "core/SessionContext.h"

#include <QApplication>
#include <QProcess>

#include <cstdio>

namespace {

using namespace tally;
using namespace tally::bench;

constexpr int Students = 10000;
constexpr double LimitMegabytes = 150;

int Show(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyLook(application, false);
    RegisterScreens();
    OpenSession(QString::fromLocal8Bit(argv[1]));
    mdiTallyboard* window = mdiTallyboard::Load();
    if (window == nullptr)
        qFatal("The main window did not load");
    window->show();
    QApplication::processEvents();
    const double before = PeakMemory();
    const QString form = QStringLiteral("frmRankCalculation");
    ShowForm(form);
    QApplication::processEvents();
    QWidget* screen = ScreenRegistry::OpenInstance(form);
    ChooseAll(screen);
    Proceed(screen);
    std::printf("%.1f %.1f\n", before, PeakMemory());
    std::fflush(stdout);
    // The measuring is over; what the windows would save on closing does not matter.
    std::_Exit(0);
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 2)
        return Show(argc, argv);

    const BenchSchool school(Students);
    QProcess process;
    process.start(QString::fromLocal8Bit(argv[0]), {school.Folder()});
    process.waitForFinished(-1);
    std::fputs(process.readAllStandardError().constData(), stderr);
    const QList<QByteArray> figures = process.readAllStandardOutput().trimmed().split(' ');
    if (process.exitCode() != 0 || figures.size() != 2)
        qFatal("The list could not be shown");
    const double peak = figures[1].toDouble();
    std::printf("main window shown: %s MB, rank list of %d shown: %.1f MB, at most %g MB%s\n",
                figures[0].constData(), Students, peak, LimitMegabytes,
                peak <= LimitMegabytes ? "" : "   MISSED");
    return peak <= LimitMegabytes ? 0 : 1;
}
