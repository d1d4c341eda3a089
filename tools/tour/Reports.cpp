#include "Reports.h"

#include "core/SessionContext.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"
#include "ProgramSteps.h"
#include "Tour.h"

#include <QAbstractButton>

namespace tally {

namespace {

/// Goes down in a list by so many entries.
void Choose(Tour& tour, const char* list, int entries = 1)
{
    tour.TabTo(QString::fromLatin1(list));
    for (int entry = 0; entry < entries; ++entry)
        tour.Press(Qt::Key_Down);
}

/// Ticks all items of the list below the box.
void TickAll(Tour& tour, const char* box)
{
    tour.TabTo(QString::fromLatin1(box));
    tour.Press(Qt::Key_Space);
}

/// A report on its way from the menu to the workbook.
class Report
{
public:
    /// `name` gives the files their names.
    Report(Tour& tour, QWidget* window, const char* formName, const char* name)
        : tour_(tour), window_(window), formName_(formName), name_(QString::fromLatin1(name)),
          screen_(OpenScreen(tour, Qt::Key_R, formName))
    {
        FillWindow(screen_);
    }

    void View() const
    {
        PressButton(tour_, "cmdView");
        const auto* exports = screen_->findChild<QAbstractButton*>(QStringLiteral("cmdExport"));
        tour_.Await(QStringLiteral("the list of ") + name_, [&] { return exports->isEnabled(); });
        tour_.Picture(name_, File(".png"), window_);
    }
    void Export() const
    {
        PressButton(tour_, "cmdExport");
        tour_.AwaitWorkbook(name_ + QStringLiteral(": exported"));
    }
    void ShowChart(bool asLines) const
    {
        if (asLines) {
            tour_.TabTo(QStringLiteral("optBarGrph"));
            tour_.Press(Qt::Key_Right);
        }
        PressButton(tour_, "cmdChart");
        const QString chart = QStringLiteral("frmStudentExamAvgChart");
        FillWindow(AwaitScreen(tour_, chart));
        tour_.Picture(name_ + QStringLiteral(": the chart"), File("-chart.png"), window_);
        if (Session().gblnPromptOnExit)
            tour_.Expect(QStringLiteral("Do You Want To Exit Chart ?"));
        PressButton(tour_, "cmdClose");
        tour_.Await(QStringLiteral("the chart to close"),
                    [&] { return ScreenRegistry::OpenInstance(chart) == nullptr; });
        AwaitScreen(tour_, QString::fromLatin1(formName_));
    }
    void PrintText(const char* fileName) const
    {
        PressButton(tour_, "cmdPrint");
        tour_.AwaitFile(name_ + QStringLiteral(": as a text"), QString::fromLatin1(fileName));
    }
    void PrintPages(const char* title) const
    {
        tour_.Press(Qt::Key_P, Qt::ControlModifier);
        tour_.AwaitFile(name_ + QStringLiteral(": its pages"),
                        QString::fromLatin1(title) + QStringLiteral(".pdf"));
    }
    /// `caption` is the name in the question.
    void Leave(const QString& caption) const { LeaveScreen(tour_, formName_, caption); }
    void Leave() const { Leave(screen_->windowTitle()); }

private:
    QString File(const char* ending) const
    {
        return QString(name_).replace(u' ', u'-') + QLatin1String(ending);
    }

    Tour& tour_;
    QWidget* window_;
    const char* formName_;
    QString name_;
    Screen* screen_;
};

void ShowDivisionAverages(Tour& tour, QWidget* window)
{
    const Report report(tour, window, "frmclassdivisionsubjectavg", "averages of divisions");
    Choose(tour, "Cboexamname");
    Choose(tour, "cboClass");
    TickAll(tour, "ChkSelectDivision");
    TickAll(tour, "chkSelectSubjects");
    report.View();
    report.Export();
    report.ShowChart(false);
    report.PrintPages("Subject Average Based On Class-Division");
    report.Leave();
}

void ShowExamAverages(Tour& tour, QWidget* window)
{
    const Report report(tour, window, "frmdivisionsubjectexamavg", "averages of exams");
    TickAll(tour, "chkSelectExamName");
    Choose(tour, "cboClass");
    Choose(tour, "cboDivision");
    TickAll(tour, "chkSelectSubjects");
    report.View();
    report.Export();
    report.ShowChart(true);
    report.Leave();
}

void ShowStudentsExams(Tour& tour, QWidget* window)
{
    const Report report(tour, window, "frmstudentexamavg", "exams of a student");
    TickAll(tour, "chkSelectExamName");
    Choose(tour, "cboClass");
    Choose(tour, "cboDivision");
    Choose(tour, "cbostudent");
    TickAll(tour, "chkSelectSubjects");
    report.View();
    report.Export();
    report.ShowChart(true);
    report.PrintText("StudentExamAvg.txt");
    report.Leave();
}

void ShowStudentsYears(Tour& tour, QWidget* window)
{
    const Report report(tour, window, "frmstudentyearlyexamavg", "years of a student");
    Choose(tour, "cboClass");
    Choose(tour, "cboDivision");
    Choose(tour, "cbostudent");
    TickAll(tour, "chkSelectYear");
    Choose(tour, "Cboexamname");
    TickAll(tour, "chkSelectSubjects");
    report.View();
    report.Export();
    report.ShowChart(false);
    report.Leave();
}

void ChooseClassAverage(Tour& tour)
{
    Choose(tour, "Cboexamname");
    Choose(tour, "cboClass");
    TickAll(tour, "chkSelectAllDivision");
    TickAll(tour, "chkSelectAll");
}

void ShowStudentsBelowAndAbove(Tour& tour, QWidget* window)
{
    const Report below(tour, window, "frmstudentslistbelow", "students below the average");
    ChooseClassAverage(tour);
    Choose(tour, "cboReportType");
    below.View();
    below.Export();
    below.Leave();

    const Report above(tour, window, "frmstudentslistabove", "students above the average");
    ChooseClassAverage(tour);
    Choose(tour, "cboReportType");
    above.View();
    above.Export();
    above.PrintText("Details.txt");
    Choose(tour, "cboReportType");
    above.View();
    above.PrintText("Summary.txt");
    above.Leave(QStringLiteral("Students Above Class Avg. / Given Value Report"));
}

void ShowLists(Tour& tour, QWidget* window)
{
    const Report students(tour, window, "frmrptClassList", "class list");
    Choose(tour, "cboClass");
    TickAll(tour, "chkSelectAll");
    students.View();
    students.Export();
    students.PrintPages("CLASS LIST");
    students.Leave();

    const Report setup(tour, window, "frmrptClasssubjectteacher", "subjects and teachers");
    setup.View();
    setup.Export();
    setup.Leave();
}

} // namespace

void ShowReports(Tour& tour, QWidget* window)
{
    ShowDivisionAverages(tour, window);
    ShowExamAverages(tour, window);
    ShowStudentsExams(tour, window);
    ShowStudentsYears(tour, window);
    ShowStudentsBelowAndAbove(tour, window);
    ShowLists(tour, window);
}

} // namespace tally
