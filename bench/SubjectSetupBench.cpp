// Measures the set-up of what a class is examined in, with real key events: how soon each key of a set of
// twelve subjects is painted, what a save costs against the bare statements, and how soon the screen is
// there. Exit code 1: a limit is not kept.

#include "bench/BareStore.h"
#include "bench/BenchProgram.h"
#include "bench/BenchSchool.h"
#include "bench/FindControl.h"
#include "bench/RatioReport.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"
#include "store/Transaction.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace tally;
using namespace tally::bench;
using Clock = std::chrono::steady_clock;

const QString Form = QStringLiteral("frmClassSubjectTeacher");
constexpr int Students = 160;
constexpr int Teachers = 500;
constexpr int Subjects = 12;
constexpr int Repetitions = 5;
/// Its set and its marks are taken out, so that it is set up anew.
constexpr int DivisionCode = 3;
constexpr double KeyLimit = 16;
constexpr double SaveLimit = 3;
constexpr double OpenLimit = 100;

double Milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

void Press(int key, const QString& text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }
}

/// A key for each letter, and Enter behind them.
void TypeAndEnter(const QString& text, const std::function<void(int key, const QString& text)>& press)
{
    for (const QChar letter : text)
        press(letter.toUpper().unicode(), letter);
    press(Qt::Key_Return, QStringLiteral("\r"));
}

/// The cells of twelve rows, in the order in which Enter leads through them.
QStringList CellsOfSet(store::Connection& main)
{
    QStringList subjects;
    auto rows = main.Query(
        QStringLiteral("SELECT SubjectName FROM SubjectMaster WHERE SubjectCode > 0 ORDER BY SubjectCode"));
    while (rows.Next() && subjects.size() < Subjects)
        subjects.append(rows.Text(0));
    if (subjects.size() != Subjects)
        qFatal("The school has too few subjects");
    QStringList cells;
    for (const QString& subject : subjects) {
        const auto number = cells.size() / 6 + 1;
        cells << subject << QStringLiteral("Bench Teacher %1").arg(100 + number) << QStringLiteral("100")
              << QStringLiteral("80") << (number % 4 == 0 ? QStringLiteral("No") : QStringLiteral("Yes"))
              << QString::number(number);
    }
    return cells;
}

/// The screen in a school of many teachers, with the main window around it.
class SetupScreen
{
public:
    SetupScreen() : school_(SchoolOf(Students))
    {
        OpenSession(school_.Folder());
        constexpr int Administrator = 1;
        Session().gintPrivilegeUserCode = Administrator;
        Session().gintUserCode = Administrator;
        MakeRoom();
        cells_ = CellsOfSet(*Session().gcnnMain);
        window_.reset(ShowMainWindow());
        window_->resize(1024, 768);
        QApplication::setActiveWindow(window_.get());
        QApplication::processEvents();
    }
    SetupScreen(const SetupScreen&) = delete;
    SetupScreen& operator=(const SetupScreen&) = delete;
    ~SetupScreen()
    {
        window_.reset();
        Session() = SessionContext();
    }

    const BenchSchool& School() const { return school_; }
    const QStringList& Cells() const { return cells_; }

    static void Open()
    {
        ShowForm(Form);
        if (ScreenRegistry::OpenInstance(Form) == nullptr)
            qFatal("The screen did not open");
        QApplication::processEvents();
    }

    static void Close()
    {
        ScreenRegistry::OpenInstance(Form)->Unload();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }

    /// New, with the class-division chosen and the keyboard in the first subject.
    static void Start()
    {
        Find<QPushButton>("cmdNew")->click();
        Choose("cboClass", 1);
        Choose("cboDivision", DivisionCode);
        Press(Qt::Key_Return, QStringLiteral("\r"));
        QApplication::processEvents();
        ExpectFocus("dbcSubject");
    }

    /// Behind the last Enter the keyboard stands in the blank row that has come.
    static void ExpectEntered()
    {
        ExpectFocus("dbcSubject");
        if (Find<FlexGrid>("msgDetails")->Rows() != Subjects + 2)
            qFatal("The rows were not entered");
    }

    template <typename Control>
    static Control* Find(const char* name)
    {
        return bench::Find<Control>(ScreenRegistry::OpenInstance(Form), name);
    }

    /// Gives the number of subjects that there were.
    static int ForgetSet()
    {
        return Session().gcnnMain->Execute(
            QStringLiteral("DELETE FROM ClassSubjectTeacher WHERE ClassCode = 1 AND DivisionCode = ?"),
            DivisionCode);
    }

private:
    static void ExpectFocus(const char* name)
    {
        if (QApplication::focusWidget()->objectName() != QLatin1String(name))
            qFatal("The keyboard is in %s, not in %s",
                   qUtf8Printable(QApplication::focusWidget()->objectName()), name);
    }

    static void Choose(const char* name, int code)
    {
        auto* list = Find<QComboBox>(name);
        // What is chosen in the list before is read once that is left.
        list->setFocus();
        const int index = list->findData(code);
        if (index < 0)
            qFatal("%s does not offer %d", name, code);
        list->setCurrentIndex(index);
        Q_EMIT list->activated(index);
    }

    static void MakeRoom()
    {
        store::Transaction transaction(*Session().gcnnMain);
        transaction.Execute(QStringLiteral("DELETE FROM MarkMaster WHERE ClassCode = 1 AND DivisionCode = ?"),
                            DivisionCode);
        ForgetSet();
        for (int teacher = 1; teacher <= Teachers; ++teacher)
            transaction.Execute(QStringLiteral("INSERT OR IGNORE INTO TeacherMaster (TeacherCode, "
                                               "TeacherName, TeacherShortName) VALUES (?, ?, ?)"),
                                10000 + teacher, QStringLiteral("Bench Teacher %1").arg(teacher),
                                QString::number(teacher, 36) + QLatin1Char('#'));
        transaction.Commit();
    }

    const BenchSchool& school_;
    QStringList cells_;
    std::unique_ptr<mdiTallyboard> window_;
};

/// Twelve subjects; each key lasts until all that it changed is painted.
void KeyPress(benchmark::State& state)
{
    const SetupScreen screen;
    SetupScreen::Open();
    std::vector<double> keys;
    std::uint64_t statements = 0;
    for (auto _ : state) {
        SetupScreen::Start();
        const std::uint64_t before = Session().gcnnMain->StatementsRun();
        const auto begun = Clock::now();
        for (const QString& cell : screen.Cells()) {
            TypeAndEnter(cell, [&keys](int key, const QString& text) {
                const auto start = Clock::now();
                Press(key, text);
                QApplication::processEvents();
                keys.push_back(Milliseconds(Clock::now() - start));
            });
        }
        // The time of an iteration is that of one subject.
        state.SetIterationTime(Milliseconds(Clock::now() - begun) / 1000 / Subjects);
        statements += Session().gcnnMain->StatementsRun() - before;
        SetupScreen::ExpectEntered();
        SetupScreen::Find<QPushButton>("cmdCancel")->click();
    }
    std::sort(keys.begin(), keys.end());
    state.counters["p95"] = keys[keys.size() * 95 / 100];
    state.counters["slowest"] = keys.back();
    state.counters["statements"] = static_cast<double>(statements);
}

void SaveOnScreen(benchmark::State& state)
{
    const SetupScreen screen;
    SetupScreen::Open();
    for (auto _ : state) {
        SetupScreen::Start();
        for (const QString& cell : screen.Cells())
            TypeAndEnter(cell, &Press);
        SetupScreen::ExpectEntered();
        auto* save = SetupScreen::Find<QPushButton>("cmdSave");
        save->setFocus();
        QApplication::processEvents();
        const auto start = Clock::now();
        Press(Qt::Key_Return, QStringLiteral("\r"));
        state.SetIterationTime(Milliseconds(Clock::now() - start) / 1000);
        if (SetupScreen::ForgetSet() != Subjects)
            qFatal("The set was not saved");
        QApplication::processEvents();
    }
}

void BareInserts(benchmark::State& state)
{
    const SetupScreen screen;
    BareStore store(screen.School());
    auto codes = Session().gcnnMain->Query(
        QStringLiteral("SELECT SubjectCode FROM SubjectMaster WHERE SubjectCode > 0 ORDER BY SubjectCode"));
    const auto year = QByteArray::number(Session().gintAcademicYearCode);
    const auto division = QByteArray::number(DivisionCode);
    BareChange inserts{"INSERT INTO ClassSubjectTeacher VALUES (?, 1, ?, ?, ?, 100, 80, 'Yes', ?)", {}};
    while (codes.Next() && inserts.runs.size() < Subjects) {
        const auto number = inserts.runs.size() + 1;
        inserts.runs.push_back({year, division, QByteArray::number(codes.Int(0)),
                                QByteArray::number(10100 + static_cast<int>(number)),
                                QByteArray::number(static_cast<int>(number))});
    }
    for (auto _ : state) {
        const auto start = Clock::now();
        if (store.Write({inserts}) != Subjects)
            qFatal("The set was not stored");
        state.SetIterationTime(Milliseconds(Clock::now() - start) / 1000);
        SetupScreen::ForgetSet();
    }
}

void OpenScreen(benchmark::State& state)
{
    const SetupScreen screen;
    for (auto _ : state) {
        const auto start = Clock::now();
        SetupScreen::Open();
        state.SetIterationTime(Milliseconds(Clock::now() - start) / 1000);
        SetupScreen::Close();
    }
}

bool Report(const char* what, double value, double limit)
{
    const bool kept = value <= limit;
    std::printf("%-44s %8.2f   at most %g%s\n", what, value, limit, Verdict(value, kept));
    return kept;
}

void Register(const char* name, void (*function)(benchmark::State&))
{
    benchmark::RegisterBenchmark(name, function)
        ->Arg(Subjects)
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(Repetitions)
        ->ReportAggregatesOnly()
        ->Iterations(5)
        ->UseManualTime();
}

} // namespace

int main(int argc, char** argv)
{
    const auto application = StartApplication(argc, argv);
    // A save tells its result.
    Prompts::AnswerWith([](Prompts::Kind, const QString& text) -> bool {
        if (text != QStringLiteral("Record Saved"))
            qFatal("%s", qUtf8Printable(text));
        return true;
    });
    benchmark::Initialize(&argc, argv);

    Register("KeyPress", &KeyPress);
    Register("SaveOnScreen", &SaveOnScreen);
    Register("BareInserts", &BareInserts);
    Register("OpenScreen", &OpenScreen);
    RatioReport report;
    benchmark::RunSpecifiedBenchmarks(&report);

    const std::string twelve = '/' + std::to_string(Subjects);
    const std::string keys = "KeyPress" + twelve;
    std::printf("\n");
    bool kept = Report("KeyPress, 95th percentile, ms", report.Counter(keys, "p95"), KeyLimit);
    kept &= Report("KeyPress, statements", report.Counter(keys, "statements"), 0);
    kept &= Report("SaveOnScreen / BareInserts",
                   report.Milliseconds("SaveOnScreen" + twelve) / report.Milliseconds("BareInserts" + twelve),
                   SaveLimit);
    kept &= Report("OpenScreen, ms", report.Milliseconds("OpenScreen" + twelve), OpenLimit);
    return kept ? 0 : 1;
}
