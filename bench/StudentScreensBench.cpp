// Measures the screens of students in a school of 50,000 who sit in the divisions of four years: how soon
// each is painted and a search shows what it found, what a save costs against the bare statements, whether
// a key waits, and the memory with all students on the screen. Exit code 1: a limit is not kept.

#include "bench/BareStore.h"
#include "bench/BenchProgram.h"
#include "bench/BenchSchool.h"
#include "bench/FindControl.h"
#include "bench/MasterScreensSchool.h"
#include "bench/PeakMemory.h"
#include "bench/ScreenTimes.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

using namespace tally;
using namespace tally::bench;
using School = MasterScreensSchool;

constexpr SearchLimit AllLimit{.ratio = 4};
constexpr double SaveLimit = 3;
constexpr double KeyLimit = 16;
/// What a promotion writes for each student: where he sits in the one year, and where in the next.
constexpr int RowsOfStudent = 2;
constexpr double MemoryLimit = 150;

const QString Master = QStringLiteral("frmMasStudentMaster");
const QString Search = QStringLiteral("frmMasStudentMasterSearch");
const QString Promotion = QStringLiteral("frmPromotionEntry");
const QString NumberChange = QStringLiteral("frmMasOptionalAdmissionNoChange");

/// The select of the search, with a condition for what is looked for.
QByteArray FoundStudents(const QByteArray& condition)
{
    return "SELECT a.StudentCode, a.OptionalAdmissionNo, a.AdmissionDate, a.StudentName, a.Telephone,"
           " c.StateName, b.CityName, a.CityCode FROM StudentMaster a, CityMaster b, StateMaster c"
           " WHERE a.CityCode = b.CityCode AND c.StateCode = b.StateCode AND a.StudentCode > 0 " +
           condition + " ORDER BY a.StudentName";
}

store::Connection& Main()
{
    return *Session().gcnnMain;
}

/// Logged in as the administrator, on a working date of the active year, with the main window.
std::unique_ptr<mdiTallyboard> Begin(const QString& folder)
{
    constexpr int Administrator = 1;
    OpenSession(folder);
    Session().gintPrivilegeUserCode = Administrator;
    Session().gintUserCode = Administrator;
    Session().gdtmApplicationDate = QDate(2026, 3, 16);
    Session().gblnAutoGenerate = true;
    // What is saved is told, and whether all students are wanted is asked.
    Prompts::AnswerWith([](Prompts::Kind, const QString& text) {
        constexpr std::array Expected{"Record Saved", "Do You Want View All Students' Details ?"};
        if (std::find(Expected.begin(), Expected.end(), text) == Expected.end())
            qFatal("Unexpected message: %s", qUtf8Printable(text));
        return true;
    });
    std::unique_ptr<mdiTallyboard> window(ShowMainWindow());
    window->resize(1024, 768);
    QApplication::setActiveWindow(window.get());
    QApplication::processEvents();
    return window;
}

template <typename Control>
Control* On(const QString& form, const char* name)
{
    return Find<Control>(ScreenRegistry::OpenInstance(form), name);
}

void Click(const QString& form, const char* name)
{
    On<QAbstractButton>(form, name)->click();
}

void Choose(const QString& form, const char* name, int code)
{
    auto* list = On<QComboBox>(form, name);
    const int index = list->findData(code);
    if (index < 0)
        qFatal("%s does not offer %d", name, code);
    list->setCurrentIndex(index);
    Q_EMIT list->activated(index);
}

double Timed(const std::function<void()>& work)
{
    const auto start = Clock::now();
    work();
    return Milliseconds(Clock::now() - start);
}

bool Report(const char* what, double figure, const char* unit, double limit)
{
    const bool kept = figure <= limit;
    std::printf("%-52s %8.2f %-6s at most %g%s\n", what, figure, unit, limit, kept ? "" : "   MISSED");
    return kept;
}

/// Types the text into the box of the search; `condition` is the one that it adds to the select.
bool ReportSearchFor(BareStore& store, const char* box, const QString& text, const QByteArray& condition,
                     const SearchLimit& limit)
{
    const auto search = [&text](QLineEdit* typed, DataGrid* grid) {
        typed->setText(text);
        return SearchByButton(Search, grid);
    };
    return ReportSearch(store, Search, box, search, FoundStudents(condition).constData(),
                        QLatin1Char('%') + text.toUpper() + QLatin1Char('%'), limit);
}

bool ReportSearches(BareStore& store)
{
    PrintSearchHeads();
    bool kept = ReportSearchFor(store, "txtstudentName", {}, {}, AllLimit);
    kept &= ReportSearchFor(store, "txtstudentName", QStringLiteral("kamala cab"),
                            "AND upper(a.StudentName) LIKE ?", AtMost50);
    kept &= ReportSearchFor(store, "txtAdmissionNo", QStringLiteral("142857"),
                            "AND upper(a.OptionalAdmissionNo) LIKE ?", AtMost50);
    return kept;
}

/// From the button until the screen has gone back to its start.
double SaveNewStudent()
{
    Click(Master, "cmdNew");
    for (const char* box : {"txtstudentName", "txtFGName", "txtAddress1"})
        On<QLineEdit>(Master, box)->setText(QStringLiteral("Kamala Raghavan"));
    return Timed([] { Click(Master, "cmdSave"); });
}

/// The bare statements of the same save. Before, they run once untimed, so that the engine has read anew what
/// the screen's connection wrote; `undo` takes them back.
double TimedBare(BareStore& store, const std::vector<BareChange>& changes, int rows,
                 const std::vector<BareChange>& undo)
{
    const auto write = [&] {
        if (store.Write(changes) != rows)
            qFatal("The bare statements do not change %d rows", rows);
    };
    write();
    store.Write(undo);
    const double time = Timed(write);
    store.Write(undo);
    return time;
}

bool ReportStudentSave(BareStore& store)
{
    const std::vector<BareChange> insert{
        {"INSERT INTO StudentMaster VALUES (?, ?, ?, '2026-03-16', 1, 'Kamala Raghavan', 'Kamala Raghavan', "
         "'M', 'Kamala Raghavan', '', 0, '', '', '', '2020-05-31', 0, 'Y', NULL, '', '', NULL, 1)",
         {{"50001", "150001", "150001"}}}};
    const std::vector<BareChange> forget{{"DELETE FROM StudentMaster WHERE StudentCode = ?", {{"50001"}}}};
    Open(Master);
    std::vector<double> screen;
    std::vector<double> bare;
    for (int run = 0; run < Runs; ++run) {
        screen.push_back(SaveNewStudent());
        if (store.Write(forget) != 1)
            qFatal("The student was not saved");
        bare.push_back(TimedBare(store, insert, 1, forget));
    }
    Close(Master);
    const double saved = Summary(screen).median;
    std::printf("\nNew student saved in %.2f ms, bare insert in %.2f ms\n", saved, Summary(bare).median);
    return Report("New student / bare insert", saved / Summary(bare).median, "", SaveLimit);
}

/// What carrying a whole division into the next year cost.
struct Carrying
{
    double saved; ///< milliseconds
    std::uint64_t statementsOfLists;
    std::uint64_t statementsOfSave;
};

/// Promotes everybody of the division on the screen.
Carrying CarryOnScreen(int division, int students)
{
    const std::uint64_t before = Main().StatementsRun();
    Click(Promotion, "cmdNew");
    Choose(Promotion, "cbofromClass", School::PromotedClass);
    Choose(Promotion, "cbofromDivision", division);
    Choose(Promotion, "Cbotodivision", School::FullDivision);
    const std::uint64_t listed = Main().StatementsRun();
    Click(Promotion, "chkSelectAllFrom");
    Click(Promotion, "cmdMoveFromToTo");
    if (On<QListWidget>(Promotion, "lsttolist")->count() != students)
        qFatal("Not all students were moved");
    QApplication::processEvents();
    const std::uint64_t moved = Main().StatementsRun();
    const double saved = Timed([] { Click(Promotion, "cmdSave"); });
    return {saved, listed - before, Main().StatementsRun() - moved};
}

QByteArray Number(int value)
{
    return QByteArray::number(value);
}

/// Everybody where he sat before.
std::vector<BareChange> CarryingBack()
{
    return {{"DELETE FROM StudentClassDivision WHERE AcademicYearCode = ?", {{Number(School::NextYear)}}},
            {"UPDATE StudentClassDivision SET Status = 'Y' WHERE AcademicYearCode = ? AND Status = 'N'",
             {{Number(School::ActiveYear)}}}};
}

/// The statements of the save of a full division and nothing else.
std::vector<BareChange> BareCarrying()
{
    BareChange empty{"DELETE FROM StudentClassDivision WHERE AcademicYearCode = ? AND ClassCode = ? AND "
                     "DivisionCode = ? AND EXISTS (SELECT 1 FROM StudentMaster a WHERE a.StudentCode = "
                     "StudentClassDivision.StudentCode AND a.TCNo = '')",
                     {}};
    BareChange close{"UPDATE StudentClassDivision SET Status = 'N' WHERE StudentCode = ? AND "
                     "AcademicYearCode = ?",
                     {}};
    BareChange place{"INSERT INTO StudentClassDivision VALUES (?, ?, ?, ?, 'Y', 1)", {}};
    const QList<QByteArray> target{Number(School::NextYear), Number(School::HighestClass),
                                   Number(School::FullDivision)};
    empty.runs.push_back(target);
    auto students =
        Main().Query(QStringLiteral("SELECT StudentCode FROM StudentClassDivision WHERE "
                                    "AcademicYearCode = ? AND ClassCode = ? AND DivisionCode = ?"),
                     School::ActiveYear, School::PromotedClass, School::FullDivision);
    while (students.Next()) {
        const QByteArray student = Number(students.Int(0));
        close.runs.push_back({student, Number(School::ActiveYear)});
        place.runs.push_back(QList<QByteArray>{student} + target);
    }
    return {empty, close, place};
}

bool ReportPromotion(BareStore& store)
{
    Open(Promotion);
    std::vector<double> screen;
    std::vector<double> bare;
    Carrying few{};
    Carrying many{};
    const std::vector<BareChange> carry = BareCarrying();
    const std::vector<BareChange> back = CarryingBack();
    const auto carryOnScreen = [&](int division, int students) {
        const Carrying carrying = CarryOnScreen(division, students);
        if (store.Write(back) != RowsOfStudent * students)
            qFatal("Not all students were carried");
        return carrying;
    };
    for (int run = 0; run < Runs; ++run) {
        many = carryOnScreen(School::FullDivision, School::StudentsOfFullDivision);
        screen.push_back(many.saved);
        bare.push_back(TimedBare(store, carry, RowsOfStudent * School::StudentsOfFullDivision, back));
        few = carryOnScreen(School::SmallDivision, School::StudentsOfSmallDivision);
    }
    Close(Promotion);

    const double saved = Summary(screen).median;
    std::printf("\nPromotion of %d saved in %.2f ms, bare statements in %.2f ms\n",
                School::StudentsOfFullDivision, saved, Summary(bare).median);
    bool kept = Report("Promotion of 60 / bare statements", saved / Summary(bare).median, "", SaveLimit);
    const auto besideRows = [&](const Carrying& carrying, int students) {
        return carrying.statementsOfSave - static_cast<std::uint64_t>(RowsOfStudent * students);
    };
    const auto fewReads = besideRows(few, School::StudentsOfSmallDivision);
    const auto manyReads = besideRows(many, School::StudentsOfFullDivision);
    const bool same = few.statementsOfLists == many.statementsOfLists && fewReads == manyReads;
    std::printf("Statements for %d and for %d students: lists %llu and %llu, save beside its rows %llu and "
                "%llu%s\n",
                School::StudentsOfSmallDivision, School::StudentsOfFullDivision,
                static_cast<unsigned long long>(few.statementsOfLists),
                static_cast<unsigned long long>(many.statementsOfLists),
                static_cast<unsigned long long>(fewReads), static_cast<unsigned long long>(manyReads),
                same ? "" : "   MISSED");
    kept &= same;
    return kept;
}

/// A new number of five letters and digits for each student of a division; each key lasts until all that it
/// changed is painted.
bool ReportKeys()
{
    Open(NumberChange);
    std::vector<double> keys;
    const auto timed = [&keys](int key, const QString& text) {
        keys.push_back(Timed([&] {
            PressKey(QApplication::focusWidget(), key, text);
            QApplication::processEvents();
        }));
    };
    std::uint64_t statements = 0;
    for (int round = 0; round < Runs; ++round) {
        Click(NumberChange, "cmdEdit");
        Choose(NumberChange, "dbcClass", School::PromotedClass);
        Choose(NumberChange, "dbcDivision", School::FullDivision);
        auto* grid = On<FlexGrid>(NumberChange, "msgDetails");
        grid->setFocus();
        PressKey(grid, Qt::Key_Return, QStringLiteral("\r"));
        QApplication::processEvents();
        const std::uint64_t before = Main().StatementsRun();
        for (int student = 1; student <= School::StudentsOfFullDivision; ++student) {
            for (const QChar letter : QStringLiteral("N%1").arg(1000 + student))
                timed(letter.unicode(), letter);
            timed(Qt::Key_Return, QStringLiteral("\r"));
        }
        statements += Main().StatementsRun() - before;
        if (grid->TextMatrix(School::StudentsOfFullDivision, 3) != QStringLiteral("N1060") ||
            QApplication::focusWidget() != On<QPushButton>(NumberChange, "cmdSave"))
            qFatal("The numbers were not taken");
        Click(NumberChange, "cmdCancel");
    }
    Close(NumberChange);
    std::sort(keys.begin(), keys.end());
    std::printf("\n");
    bool kept =
        Report("Key of a changed number, 95th percentile", keys[keys.size() * 95 / 100], "ms", KeyLimit);
    std::printf("Slowest of %zu keys: %.2f ms\n", keys.size(), keys.back());
    kept &= Report("Statements while numbers are typed", static_cast<double>(statements), "", 0);
    return kept;
}

/// In a process of its own: prints its memory before and after all students are shown.
[[noreturn]] void ShowAll(int argc, char** argv)
{
    const auto application = StartApplication(argc, argv);
    const auto window = Begin(QString::fromLocal8Bit(argv[1]));
    const double before = PeakMemory();
    Open(Search);
    auto* grid = On<DataGrid>(Search, "dgdDetails");
    SearchByButton(Search, grid);
    if (grid->RowCount() != School::Students)
        qFatal("%d students are shown", grid->RowCount());
    std::printf("%.1f %.1f\n", before, PeakMemory());
    EndChild();
}

bool ReportMemory(const char* program, const QString& folder)
{
    const QList<QByteArray> figures = OutputOfChild(program, folder).split(' ');
    if (figures.size() != 2)
        qFatal("The students could not be shown");
    std::printf("\nMemory with the main window shown: %s MB\n", figures[0].constData());
    return Report("Memory with 50,000 students shown", figures[1].toDouble(), "MB", MemoryLimit);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2)
        ShowAll(argc, argv);

    const auto application = StartApplication(argc, argv);
    const School school(School::History::FourYears);
    bool kept = true;
    {
        const auto window = Begin(school.Folder());
        kept &= ReportOpenings({Master, Search, QStringLiteral("frmMasStudentAdmissionEntry"),
                                QStringLiteral("frmMasStudentAdmissionSearch"),
                                QStringLiteral("frmMasStudentRelievingMaster"),
                                QStringLiteral("frmMasStudentRelievingSearch"), Promotion, NumberChange});
        BareStore store(school.Folder());
        kept &= ReportSearches(store);
        kept &= ReportStudentSave(store);
        kept &= ReportPromotion(store);
        kept &= ReportKeys();
    }
    kept &= ReportMemory(argv[0], school.Folder());
    return kept ? 0 : 1;
}
