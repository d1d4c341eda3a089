// Prints the most memory that the program ever held, with a rank list of 10,000 students on its screen. The
// school is made by one process and shown by another, so that only the showing counts.
// Exit code 1: more than 150 MB.

#include "bench/BenchProgram.h"
#include "bench/BenchSchool.h"
#include "bench/PeakMemory.h"
#include "bench/RankScreen.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"

#include <QApplication>

#include <cstdio>

namespace {

using namespace tally;
using namespace tally::bench;

constexpr int Students = 10000;
constexpr double LimitMegabytes = 150;

[[noreturn]] void Show(int argc, char** argv)
{
    const auto application = StartApplication(argc, argv);
    OpenSession(QString::fromLocal8Bit(argv[1]));
    ShowMainWindow();
    const double before = PeakMemory();
    const QString form = QStringLiteral("frmRankCalculation");
    ShowForm(form);
    QApplication::processEvents();
    QWidget* screen = ScreenRegistry::OpenInstance(form);
    ChooseAll(screen);
    Proceed(screen);
    std::printf("%.1f %.1f\n", before, PeakMemory());
    EndChild();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2)
        Show(argc, argv);

    const BenchSchool school(Students);
    const QList<QByteArray> figures = OutputOfChild(argv[0], school.Folder()).split(' ');
    if (figures.size() != 2)
        qFatal("The list could not be shown");
    const double peak = figures[1].toDouble();
    std::printf("main window shown: %s MB, rank list of %d shown: %.1f MB, at most %g MB%s\n",
                figures[0].constData(), Students, peak, LimitMegabytes,
                peak <= LimitMegabytes ? "" : "   MISSED");
    return peak <= LimitMegabytes ? 0 : 1;
}
