// Prints how long 10,000 rank cards take from the screen: listing the students, showing the cards, writing
// the workbook; the statements that each of these runs; and the most memory that the program ever held. The
// school is made by one process and shown by another, so that only the cards count. Exit code 1: the export
// takes more than 10 s, the memory is beyond 300 MB, or more statements are run for 10,000 students than
// for 40.

#include "bench/BenchProgram.h"
#include "bench/BenchSchool.h"
#include "bench/FindControl.h"
#include "bench/PeakMemory.h"
#include "core/SessionContext.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/OpenDocument.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"
#include "tools/DeliveredDatabases.h"
#include "tools/SampleSchool.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileInfo>
#include <QPushButton>
#include <QTemporaryDir>

#include <array>
#include <chrono>
#include <cstdio>
#include <functional>

namespace {

using namespace tally;
using namespace tally::bench;

constexpr int Students = 10000;
constexpr int FewStudents = 40;
constexpr int Exams = 2;
constexpr int Administrator = 1;
constexpr double LimitSeconds = 10;
constexpr double LimitMegabytes = 300;

/// What a step took.
struct Step
{
    double seconds = 0;
    quint64 statements = 0;
};

struct Figures
{
    double memoryBefore = 0; ///< in megabytes, with the main window shown
    double memory = 0;
    Step list;
    Step view;
    Step exportCards;
    double megabytes = 0; ///< of the workbook
};

Step Take(const std::function<void()>& work)
{
    const auto statements = Session().gcnnMain->StatementsRun();
    const auto start = std::chrono::steady_clock::now();
    work();
    QApplication::processEvents();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    return {time.count(), Session().gcnnMain->StatementsRun() - statements};
}

/// One division with two exams whose marks are complete and whose rank lists are saved.
void MakeSchool(const QString& folder, int students)
{
    SampleOptions options;
    options.classes = 1;
    options.divisions = 1;
    options.students = students;
    options.subjects = 12;
    options.exams = Exams + 1; // the last one is not finished
    options.years = 1;
    MakeDeliveredDatabases(folder, BenchSchool::Password(), [&](store::Transaction& transaction) {
        FillSampleSchool(transaction, options);
        transaction.Execute(
            QStringLiteral(
                "Insert into TempRankTotal Select StudentCode,AcademicYearCode,ExamCode,ClassCode,"
                "DivisionCode,Sum(Mark),Round(Avg(Mark),2),StudentCode,'A' from MarkMaster where "
                "ExamCode<? group by StudentCode,AcademicYearCode,ExamCode,ClassCode,DivisionCode"),
            options.exams);
    });
}

Figures Measure(QWidget* screen)
{
    Figures figures;
    auto* exams = Find<CheckList>(screen, "Lstexamnames");
    for (int index = 0; index < Exams; ++index)
        exams->SetTicked(index, true);
    for (const char* name : {"cboClass", "cboDivision"}) {
        auto* combo = Find<DataCombo>(screen, name);
        combo->setCurrentIndex(1);
        figures.list = Take([&] { Q_EMIT combo->activated(1); });
    }
    figures.view = Take([&] {
        Find<QCheckBox>(screen, "chkSelectStudents")->click();
        Find<QPushButton>(screen, "cmdView")->click();
    });
    figures.exportCards = Take([&] { Find<QPushButton>(screen, "cmdExport")->click(); });
    return figures;
}

[[noreturn]] void Show(int argc, char** argv)
{
    const auto application = StartApplication(argc, argv);
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QString workbook;
    SetExportFolder(folder + QStringLiteral("/exports"));
    UseSpreadsheetProgram({true, [&](const QString& path) {
                               workbook = path;
                               return true;
                           }});
    OpenSession(folder);
    Session().gintPrivilegeUserCode = Administrator;
    ShowMainWindow();
    const double before = PeakMemory();
    const QString form = QStringLiteral("frmRankCardPrinting");
    ShowForm(form);
    QApplication::processEvents();
    QWidget* screen = ScreenRegistry::OpenInstance(form);
    const Figures figures = Measure(screen);
    const int cards = Find<CheckList>(screen, "LstStudents")->count();
    if (Find<FlexGrid>(screen, "msgDetails")->Rows() != 2 + cards * (Exams + 1))
        qFatal("The cards did not come up");
    std::printf("%.1f %.1f %.3f %llu %.3f %llu %.3f %llu %.1f\n", before, PeakMemory(), figures.list.seconds,
                figures.list.statements, figures.view.seconds, figures.view.statements,
                figures.exportCards.seconds, figures.exportCards.statements,
                static_cast<double>(QFileInfo(workbook).size()) / 1e6);
    EndChild();
}

Figures FiguresOf(const char* program, int students)
{
    const QTemporaryDir folder;
    MakeSchool(folder.path(), students);
    const QByteArray output = OutputOfChild(program, folder.path());
    Figures figures;
    if (std::sscanf(output.constData(), "%lf %lf %lf %llu %lf %llu %lf %llu %lf", &figures.memoryBefore,
                    &figures.memory, &figures.list.seconds, &figures.list.statements, &figures.view.seconds,
                    &figures.view.statements, &figures.exportCards.seconds, &figures.exportCards.statements,
                    &figures.megabytes) != 9)
        qFatal("The cards could not be shown");
    return figures;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2)
        Show(argc, argv);

    const Figures few = FiguresOf(argv[0], FewStudents);
    const Figures many = FiguresOf(argv[0], Students);
    struct Line
    {
        const char* name;
        Step few;
        Step many;
    };
    bool kept = true;
    for (const Line& line : std::array{Line{"list", few.list, many.list}, Line{"view", few.view, many.view},
                                       Line{"export", few.exportCards, many.exportCards}}) {
        const bool constant = line.few.statements == line.many.statements;
        std::printf("%-6s %6.3f s for %d students, %7.3f s for %d, statements %llu and %llu%s\n", line.name,
                    line.few.seconds, FewStudents, line.many.seconds, Students, line.few.statements,
                    line.many.statements, constant ? "" : "   MISSED");
        kept = kept && constant;
    }
    const bool soon = many.exportCards.seconds <= LimitSeconds;
    const bool small = many.memory <= LimitMegabytes;
    std::printf("export of %d cards, %.1f MB: at most %g s%s\n", Students, many.megabytes, LimitSeconds,
                soon ? "" : "   MISSED");
    std::printf("main window shown: %.1f MB, cards exported: %.1f MB, at most %g MB%s\n", many.memoryBefore,
                many.memory, LimitMegabytes, small ? "" : "   MISSED");
    return kept && soon && small ? 0 : 1;
}
