// Measures the reports on one class of 10,000 students in four divisions, twelve subjects and eight exams,
// and on a real class of 120: how soon a report is painted against one bare statement that reads the same
// rows, the lists from which divisions and subjects are chosen, the export of the longest list, and the
// memory with it on the screen. Exit code 1: a limit is not kept.

#include "bench/BareStore.h"
#include "bench/BenchProgram.h"
#include "bench/BenchSchool.h"
#include "bench/FindControl.h"
#include "bench/PeakMemory.h"
#include "bench/ScreenTimes.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/OpenDocument.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QListWidget>

#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace tally;
using namespace tally::bench;

constexpr int LargeClass = 10000;
constexpr int RealClass = 120;
constexpr int Exams = 8;

constexpr double ViewRatio = 5;
constexpr double RealViewLimit = 50;
constexpr double ListLimit = 100;
constexpr double ExportLimit = 2000;
constexpr double MemoryLimit = 150;

constexpr int FirstExam = 1;
constexpr int TheClass = 1;
constexpr int FirstDivision = 1;

template <typename Control>
Control* On(const QString& form, const char* name)
{
    return Find<Control>(ScreenRegistry::OpenInstance(form), name);
}

void Click(const QString& form, const char* name)
{
    On<QAbstractButton>(form, name)->click();
    QApplication::processEvents();
}

void Choose(const QString& form, const char* name, int index)
{
    auto* list = On<QComboBox>(form, name);
    if (list->count() <= index)
        qFatal("%s of %s offers %d lines", name, qUtf8Printable(form), list->count());
    list->setCurrentIndex(index);
    Q_EMIT list->activated(index);
    QApplication::processEvents();
}

/// The exams whose marks are complete.
void TickExams(const QString& form)
{
    auto* list = On<QListWidget>(form, "Lstexamnames");
    for (int exam = 0; exam < Exams - 1; ++exam) {
        list->setCurrentRow(exam);
        PressKey(list, Qt::Key_Space, QStringLiteral(" "));
    }
}

/// A report, how all of a class is chosen on it, and a statement that reads the same rows; empty for a report
/// of one student, whose few rows cost less than any painting.
struct Report
{
    QString form;
    void (*choose)(const QString& form);
    const char* rows;
};

const std::vector<Report>& Reports()
{
    static const std::vector<Report> reports{
        {QStringLiteral("frmclassdivisionsubjectavg"),
         [](const QString& form) {
             Choose(form, "Cboexamname", FirstExam);
             Choose(form, "cboClass", TheClass);
             Click(form, "ChkSelectDivision");
             Click(form, "chkSelectSubjects");
         },
         "SELECT DivisionCode, SubjectCode, Mark FROM MarkMaster WHERE AcademicYearCode = 1 AND ExamCode = 1 "
         "AND ClassCode = 1 AND LeaveOrPresent = 'P'"},
        {QStringLiteral("frmdivisionsubjectexamavg"),
         [](const QString& form) {
             TickExams(form);
             Choose(form, "cboClass", TheClass);
             Choose(form, "cboDivision", FirstDivision);
             Click(form, "chkSelectSubjects");
         },
         "SELECT ExamCode, SubjectCode, Mark FROM MarkMaster WHERE AcademicYearCode = 1 AND ClassCode = 1 "
         "AND "
         "DivisionCode = 1 AND ExamCode IN (1, 2, 3, 4, 5, 6, 7) AND LeaveOrPresent = 'P'"},
        {QStringLiteral("frmstudentexamavg"),
         [](const QString& form) {
             TickExams(form);
             Choose(form, "cboClass", TheClass);
             Choose(form, "cboDivision", FirstDivision);
             Choose(form, "cbostudent", 1);
             Click(form, "chkSelectSubjects");
         },
         ""},
        {QStringLiteral("frmstudentyearlyexamavg"),
         [](const QString& form) {
             Choose(form, "cboClass", TheClass);
             Choose(form, "cboDivision", FirstDivision);
             Choose(form, "cbostudent", 1);
             Click(form, "chkSelectYear");
             Choose(form, "Cboexamname", FirstExam);
             Click(form, "chkSelectSubjects");
         },
         ""},
        {QStringLiteral("frmstudentslistbelow"),
         [](const QString& form) {
             Choose(form, "Cboexamname", FirstExam);
             Choose(form, "cboClass", TheClass);
             Click(form, "chkSelectAllDivision");
             Click(form, "chkSelectAll");
             Choose(form, "cboReportType", On<QComboBox>(form, "cboReportType")->findData(1));
         },
         "SELECT a.StudentCode, s.StudentName, s.OptionalAdmissionNo, a.SubjectCode, a.Mark FROM MarkMaster "
         "a, "
         "StudentMaster s WHERE s.StudentCode = a.StudentCode AND a.AcademicYearCode = 1 AND a.ExamCode = 1 "
         "AND a.ClassCode = 1"},
        {QStringLiteral("frmrptClassList"),
         [](const QString& form) {
             Choose(form, "cboClass", TheClass);
             Click(form, "chkSelectAll");
         },
         "SELECT s.OptionalAdmissionNo, s.StudentName FROM StudentClassDivision a, StudentMaster s WHERE "
         "s.StudentCode = a.StudentCode AND a.AcademicYearCode = 1 AND a.ClassCode = 1 ORDER BY "
         "s.StudentName"},
        {QStringLiteral("frmrptClasssubjectteacher"), [](const QString&) {}, ""},
    };
    return reports;
}

/// Milliseconds from View until the list is painted.
double View(const QString& form)
{
    auto* grid = On<FlexGrid>(form, "msgDetails");
    auto* view = On<QAbstractButton>(form, "cmdView");
    const double time = Painted(grid->viewport(), [view] { view->click(); });
    if (!On<QAbstractButton>(form, "cmdExport")->isEnabled() || grid->Rows() < 2)
        qFatal("%s shows nothing", qUtf8Printable(form));
    return time;
}

struct Viewed
{
    Times screen{};
    double bare = std::numeric_limits<double>::quiet_NaN();
    std::uint64_t statements = 0;
};

Viewed Measure(const Report& report, BareStore& store)
{
    Open(report.form);
    report.choose(report.form);
    std::vector<double> screen;
    std::vector<double> bare;
    Viewed viewed;
    for (int run = 0; run < Runs; ++run) {
        const std::uint64_t before = MainStore().StatementsRun();
        screen.push_back(View(report.form));
        viewed.statements = MainStore().StatementsRun() - before;
        if (*report.rows == '\0')
            continue;
        const auto start = Clock::now();
        store.ReadAll(QLatin1String(report.rows), {});
        bare.push_back(Milliseconds(Clock::now() - start));
    }
    Close(report.form);
    viewed.screen = Summary(screen);
    if (!bare.empty())
        viewed.bare = Summary(bare).median;
    return viewed;
}

std::unique_ptr<mdiTallyboard> Begin(const QString& folder)
{
    OpenSession(folder);
    Session().gintPrivilegeUserCode = 1;
    UseSpreadsheetProgram({true, [](const QString& path) { return QFile::remove(path); }});
    SetExportFolder(folder);
    return std::unique_ptr<mdiTallyboard>(ShowMainWindow());
}

/// All reports on one school.
std::vector<Viewed> MeasureSchool(int students, int exams)
{
    const BenchSchool school(students, exams);
    const auto window = Begin(school.Folder());
    BareStore store(school);
    std::vector<Viewed> viewed;
    for (const Report& report : Reports())
        viewed.push_back(Measure(report, store));
    return viewed;
}

bool ReportFigure(const char* what, double figure, const char* unit, double limit)
{
    const bool kept = figure <= limit;
    std::printf("%-52s %8.2f %-6s at most %g%s\n", what, figure, unit, limit, kept ? "" : "   MISSED");
    return kept;
}

/// A report without a statement to compare has no such figure.
std::string Figure(double figure)
{
    return std::isnan(figure) ? "-" : QByteArray::number(figure, 'f', 2).toStdString();
}

bool ReportViews(const std::vector<Viewed>& large, const std::vector<Viewed>& real)
{
    std::printf(
        "View to painted, ms; in a class of %d at most %g, of %d at most %g times the bare statement\n",
        RealClass, RealViewLimit, LargeClass, ViewRatio);
    std::printf("%-28s %8s %10s %9s %7s %11s\n", "", std::to_string(RealClass).c_str(),
                std::to_string(LargeClass).c_str(), "statement", "ratio", "statements");
    bool allKept = true;
    for (std::size_t number = 0; number < large.size(); ++number) {
        const double ratio = large[number].screen.median / large[number].bare;
        // A report without a statement to compare has no ratio, and its limit is that of the real class.
        const bool kept = real[number].screen.median <= RealViewLimit && !(ratio > ViewRatio) &&
                          large[number].statements == real[number].statements;
        std::printf("%-28s %8.2f %10.2f %9s %7s %5llu %5llu%s\n", qUtf8Printable(Reports()[number].form),
                    real[number].screen.median, large[number].screen.median,
                    Figure(large[number].bare).c_str(), Figure(ratio).c_str(),
                    static_cast<unsigned long long>(real[number].statements),
                    static_cast<unsigned long long>(large[number].statements), kept ? "" : "   MISSED");
        allKept &= kept;
    }
    return allKept;
}

/// How long the subjects of a division take to be listed for all exams, where nobody has a mark of one of
/// them.
bool ReportExamSubjects()
{
    const QString form = QStringLiteral("frmdivisionsubjectexamavg");
    for (const char* added : {"INSERT INTO SubjectMaster VALUES (99, 'Not Examined', 'Not', 0)",
                              "INSERT INTO ClassSubjectTeacher SELECT AcademicYearCode, ClassCode, "
                              "DivisionCode, 99, TeacherCode, "
                              "MaximumMark, MaximumAllowed, 'Yes', 99 FROM ClassSubjectTeacher WHERE "
                              "ClassCode = 1 AND DivisionCode = "
                              "1 LIMIT 1"})
        MainStore().Execute(QString::fromLatin1(added));
    std::vector<double> subjects;
    Open(form);
    for (int run = 0; run < Runs; ++run) {
        Click(form, "chkSelectExamName");
        Choose(form, "cboClass", TheClass);
        const auto start = Clock::now();
        Choose(form, "cboDivision", FirstDivision);
        subjects.push_back(Milliseconds(Clock::now() - start));
        if (On<QListWidget>(form, "Lstsubjects")->count() == 0)
            qFatal("The list is not filled");
        Click(form, "cmdCancel");
    }
    Close(form);
    return ReportFigure("List of subjects of all exams", Summary(subjects).median, "ms", ListLimit);
}

/// How long the lists take from which divisions and subjects are chosen.
bool ReportLists()
{
    const QString form = QStringLiteral("frmclassdivisionsubjectavg");
    std::vector<double> divisions;
    std::vector<double> subjects;
    Open(form);
    for (int run = 0; run < Runs; ++run) {
        Choose(form, "Cboexamname", FirstExam);
        auto start = Clock::now();
        Choose(form, "cboClass", TheClass);
        divisions.push_back(Milliseconds(Clock::now() - start));
        start = Clock::now();
        Click(form, "ChkSelectDivision");
        subjects.push_back(Milliseconds(Clock::now() - start));
        if (On<QListWidget>(form, "Lstdivision")->count() != 4 ||
            On<QListWidget>(form, "Lstsubjects")->count() == 0)
            qFatal("The lists are not filled");
        Click(form, "cmdCancel");
    }
    Close(form);
    const bool kept =
        ReportFigure("List of divisions with their marks", Summary(divisions).median, "ms", ListLimit);
    return ReportFigure("List of subjects of all divisions", Summary(subjects).median, "ms", ListLimit) &&
           kept;
}

/// The list of all students who lie below in some subject.
bool ReportExport()
{
    const Report& report = Reports()[4];
    Open(report.form);
    report.choose(report.form);
    View(report.form);
    std::vector<double> times;
    constexpr int Exports = 3;
    for (int run = 0; run < Exports; ++run) {
        const auto start = Clock::now();
        Click(report.form, "cmdExport");
        times.push_back(Milliseconds(Clock::now() - start));
    }
    std::printf("Rows exported: %d\n", On<FlexGrid>(report.form, "msgDetails")->Rows());
    Close(report.form);
    return ReportFigure("Export of the longest list", Summary(times).median, "ms", ExportLimit);
}

/// In a process of its own: prints its memory before and after the longest list is shown.
[[noreturn]] void ShowLongest(int argc, char** argv)
{
    const auto application = StartApplication(argc, argv);
    const auto window = Begin(QString::fromLocal8Bit(argv[1]));
    const double before = PeakMemory();
    const Report& report = Reports()[4];
    Open(report.form);
    report.choose(report.form);
    View(report.form);
    std::printf("%.1f %.1f\n", before, PeakMemory());
    EndChild();
}

bool ReportMemory(const char* program, const QString& folder)
{
    const QList<QByteArray> figures = OutputOfChild(program, folder).split(' ');
    if (figures.size() != 2)
        qFatal("The list could not be shown");
    std::printf("Memory with the main window shown: %s MB\n", figures[0].constData());
    return ReportFigure("Memory with the longest list shown", figures[1].toDouble(), "MB", MemoryLimit);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2)
        ShowLongest(argc, argv);

    const auto application = StartApplication(argc, argv);
    bool kept = ReportViews(MeasureSchool(LargeClass, Exams), MeasureSchool(RealClass, Exams));
    std::printf("\n");
    const BenchSchool school(LargeClass, Exams);
    {
        const auto window = Begin(school.Folder());
        kept &= ReportLists();
        kept &= ReportExport();
    }
    kept &= ReportMemory(argv[0], school.Folder());
    const auto window = Begin(school.Folder());
    kept &= ReportExamSubjects();
    return kept ? 0 : 1;
}
