// Measures the entry of marks with real key events: how soon each key of a division's marks is painted, what
// a save costs against the bare inserts, and how soon the screen is there. Exit code 1: a limit is not kept.

#include "bench/BareStore.h"
#include "bench/BenchProgram.h"
#include "bench/BenchSchool.h"
#include "bench/FindControl.h"
#include "bench/RatioReport.h"
#include "bench/ScreenTimes.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace {

using namespace tally;
using namespace tally::bench;

const QString Form = QStringLiteral("frmexammarkentry");
constexpr std::array DivisionSizes{40, 60};
constexpr int SavedDivision = 60;
constexpr int Repetitions = 5;
/// The exam that is being written has no mark in this division.
constexpr int ExamCode = 2;
constexpr int DivisionCode = 3;
constexpr int SubjectCode = 1;
constexpr double KeyLimit = 16;
constexpr double SaveLimit = 3;

void Press(int key, const QString& text = {})
{
    PressKey(QApplication::focusWidget(), key, text);
}

void PressEnter()
{
    Press(Qt::Key_Return, QStringLiteral("\r"));
}

/// The screen in a school with divisions of one size, with the main window around it.
class MarkScreen
{
public:
    explicit MarkScreen(int students) : school_(SchoolOf(students * 4))
    {
        OpenSession(school_.Folder());
        constexpr int Administrator = 1;
        Session().gintPrivilegeUserCode = Administrator;
        Session().gintUserCode = Administrator;
        window_ = ShowMainWindow();
        window_->resize(1024, 768);
        QApplication::setActiveWindow(window_);
        QApplication::processEvents();
    }
    MarkScreen(const MarkScreen&) = delete;
    MarkScreen& operator=(const MarkScreen&) = delete;
    ~MarkScreen()
    {
        delete window_;
        Session() = SessionContext();
    }

    const BenchSchool& School() const { return school_; }

    void Open()
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

    /// New, and everything chosen. Gives the number of marks to enter.
    int Start()
    {
        Find<QPushButton>("cmdNew")->click();
        Choose("dbcExam", ExamCode);
        Choose("cboClass", 1);
        Choose("cboDivision", DivisionCode);
        Choose("dbcSubject", SubjectCode);
        Find<QComboBox>("dbcSubject")->setFocus();
        PressEnter();
        QApplication::processEvents();
        if (QApplication::focusWidget()->objectName() != QStringLiteral("txtmarkobtained"))
            qFatal("The entry did not start");
        return Find<FlexGrid>("msgDetails")->Rows() - 2;
    }

    template <typename Control>
    Control* Find(const char* name) const
    {
        return bench::Find<Control>(ScreenRegistry::OpenInstance(Form), name);
    }

    /// Gives the number of marks that there were.
    static int ForgetMarks()
    {
        return Session().gcnnMain->Execute(
            QStringLiteral("DELETE FROM MarkMaster WHERE ExamCode = ? AND DivisionCode = ?"), ExamCode,
            DivisionCode);
    }

private:
    void Choose(const char* name, int code)
    {
        auto* list = Find<QComboBox>(name);
        const int index = list->findData(code);
        if (index < 0)
            qFatal("%s does not offer %d", name, code);
        list->setCurrentIndex(index);
        Q_EMIT list->activated(index);
    }

    const BenchSchool& school_;
    mdiTallyboard* window_ = nullptr;
};

/// Two digits and Enter for each mark; each key lasts until all that it changed is painted.
void KeyPress(benchmark::State& state)
{
    MarkScreen screen(static_cast<int>(state.range(0)));
    screen.Open();
    std::vector<double> keys;
    std::uint64_t statements = 0;
    for (auto _ : state) {
        const int marks = screen.Start();
        const std::uint64_t before = Session().gcnnMain->StatementsRun();
        const auto begun = Clock::now();
        const auto timed = [&keys](int key, const QString& text) {
            const auto start = Clock::now();
            Press(key, text);
            QApplication::processEvents();
            keys.push_back(Milliseconds(Clock::now() - start));
        };
        for (int mark = 0; mark < marks; ++mark) {
            timed(Qt::Key_5, QStringLiteral("5"));
            timed(Qt::Key_7, QStringLiteral("7"));
            timed(Qt::Key_Return, QStringLiteral("\r"));
        }
        // The time of an iteration is that of one mark.
        state.SetIterationTime(Milliseconds(Clock::now() - begun) / 1000 / marks);
        statements += Session().gcnnMain->StatementsRun() - before;
        if (QApplication::focusWidget() != screen.Find<QPushButton>("cmdSave"))
            qFatal("The entry did not end at the button");
        screen.Find<QPushButton>("cmdCancel")->click();
    }
    std::sort(keys.begin(), keys.end());
    state.counters["p95"] = keys[keys.size() * 95 / 100];
    state.counters["slowest"] = keys.back();
    state.counters["statements"] = static_cast<double>(statements);
}

void SaveOnScreen(benchmark::State& state)
{
    MarkScreen screen(static_cast<int>(state.range(0)));
    screen.Open();
    for (auto _ : state) {
        const int marks = screen.Start();
        for (int mark = 0; mark < marks; ++mark) {
            Press(Qt::Key_5, QStringLiteral("5"));
            Press(Qt::Key_5, QStringLiteral("5"));
            PressEnter();
        }
        const auto start = Clock::now();
        PressEnter();
        state.SetIterationTime(Milliseconds(Clock::now() - start) / 1000);
        if (MarkScreen::ForgetMarks() != marks)
            qFatal("The marks were not saved");
        QApplication::processEvents();
    }
}

void BareInserts(benchmark::State& state)
{
    const MarkScreen screen(static_cast<int>(state.range(0)));
    BareStore store(screen.School());
    for (auto _ : state) {
        const auto start = Clock::now();
        if (store.InsertMarks(ExamCode, DivisionCode, SubjectCode) != state.range(0))
            qFatal("The division has another size");
        state.SetIterationTime(Milliseconds(Clock::now() - start) / 1000);
        MarkScreen::ForgetMarks();
    }
}

void OpenScreen(benchmark::State& state)
{
    MarkScreen screen(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const auto start = Clock::now();
        screen.Open();
        state.SetIterationTime(Milliseconds(Clock::now() - start) / 1000);
        MarkScreen::Close();
    }
}

bool Report(const char* what, double value, double limit)
{
    const bool kept = value <= limit;
    std::printf("%-44s %8.2f   at most %g%s\n", what, value, limit, Verdict(value, kept));
    return kept;
}

template <typename Sizes>
void Register(const char* name, void (*function)(benchmark::State&), const Sizes& sizes)
{
    auto* entry = benchmark::RegisterBenchmark(name, function);
    for (const int students : sizes)
        entry->Arg(students);
    entry->Unit(benchmark::kMillisecond)
        ->Repetitions(Repetitions)
        ->ReportAggregatesOnly()
        ->Iterations(5)
        ->UseManualTime();
}

} // namespace

int main(int argc, char** argv)
{
    const auto application = StartApplication(argc, argv);
    // A save tells its result and asks for more marks.
    Prompts::AnswerWith([](Prompts::Kind kind, const QString& text) -> bool {
        if (kind == Prompts::Kind::Critical)
            qFatal("%s", qUtf8Printable(text));
        return false;
    });
    benchmark::Initialize(&argc, argv);

    Register("KeyPress", &KeyPress, DivisionSizes);
    Register("SaveOnScreen", &SaveOnScreen, std::array{SavedDivision});
    Register("BareInserts", &BareInserts, std::array{SavedDivision});
    Register("OpenScreen", &OpenScreen, std::array{SavedDivision});
    RatioReport report;
    benchmark::RunSpecifiedBenchmarks(&report);

    const std::string saved = '/' + std::to_string(SavedDivision);
    std::printf("\n");
    bool kept = true;
    for (const int students : DivisionSizes) {
        const std::string run = "KeyPress/" + std::to_string(students);
        kept &= Report((run + ", 95th percentile, ms").c_str(), report.Counter(run, "p95"), KeyLimit);
        kept &= Report((run + ", statements").c_str(), report.Counter(run, "statements"), 0);
    }
    kept &= Report("SaveOnScreen / BareInserts",
                   report.Milliseconds("SaveOnScreen" + saved) / report.Milliseconds("BareInserts" + saved),
                   SaveLimit);
    kept &= Report("OpenScreen, ms", report.Milliseconds("OpenScreen" + saved), OpenLimit);
    return kept ? 0 : 1;
}
