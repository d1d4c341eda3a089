// Measures how soon each screen of the masters, the students and the calendar is painted, and each search its
// grid, in a school with long lists; the searches also against the bare statement. Exit code 1: a limit is
// not kept.

#include "bench/BareStore.h"
#include "bench/BenchProgram.h"
#include "bench/BenchSchool.h"
#include "bench/FindControl.h"
#include "bench/MasterScreensSchool.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"
#include "masters/SimpleMasterDefinitions.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace {

using namespace tally;
using namespace tally::bench;
using Clock = std::chrono::steady_clock;

constexpr int Runs = 15;
constexpr double OpenLimit = 100;
/// What a search may take: milliseconds, or, for a list that is long by nature, times the bare statement.
struct Limit
{
    double milliseconds;
    double ratio;
};
constexpr Limit SearchLimit{50, 1e9};
constexpr Limit AllStudentsLimit{1e9, 4};
constexpr std::array OtherScreens{"frmMasSchoolSetup",
                                  "frmMasClassSectionEntry",
                                  "frmTeacherMaster",
                                  "frmTeacherSearch",
                                  "frmMasStudentMaster",
                                  "frmMasStudentMasterSearch",
                                  "frmMasAcademicYearSetup",
                                  "frmMasAcademicYearChange",
                                  "frmUtilApplicationDateSetup",
                                  "frmUtilApplicationDateChange"};
constexpr const char* TeacherSearch =
    "SELECT a.TeacherName, a.TeacherShortName, CASE WHEN d.StateCode = 0 THEN '' ELSE d.StateName END,"
    " CASE WHEN b.CityCode = 0 THEN '' ELSE b.CityName END, a.Telephone, a.TeacherCode FROM TeacherMaster a"
    " LEFT JOIN CityMaster b ON a.CityCode = b.CityCode LEFT JOIN StateMaster d ON b.StateCode = d.StateCode"
    " WHERE a.TeacherCode > 0 AND upper(a.TeacherName) LIKE :Name ORDER BY a.TeacherName";
constexpr const char* StudentSearch =
    "SELECT a.StudentCode, a.OptionalAdmissionNo, a.AdmissionDate, a.StudentName, a.Telephone, c.StateName,"
    " b.CityName, a.CityCode FROM StudentMaster a, CityMaster b, StateMaster c WHERE a.CityCode = b.CityCode"
    " AND c.StateCode = b.StateCode AND a.StudentCode > 0 AND upper(a.StudentName) LIKE :Name"
    " ORDER BY a.StudentName";

/// Milliseconds of several runs.
struct Times
{
    double median;
    double slowest;
};

Times Summary(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times.back()};
}

double Milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

/// Sees whether a widget has been painted since.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }

    /// Lets the events run until the widget is painted. Ends the process when that does not come.
    void Wait()
    {
        const auto start = Clock::now();
        do
            QApplication::processEvents();
        while (!painted_ && Clock::now() - start < std::chrono::seconds(5));
        if (!painted_)
            qFatal("Nothing was painted");
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

private:
    bool painted_ = false;
};

double Open(const QString& form)
{
    const auto start = Clock::now();
    ShowForm(form);
    Screen* screen = ScreenRegistry::OpenInstance(form);
    if (screen == nullptr)
        qFatal("%s did not open", qUtf8Printable(form));
    PaintWatch(screen).Wait();
    return Milliseconds(Clock::now() - start);
}

void Close(const QString& form)
{
    ScreenRegistry::OpenInstance(form)->Unload();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

/// One that many names hold, of the long lists nearly all. No salutation has an "a".
QString CommonLetter(const QString& form)
{
    return form == QStringLiteral("frmSalutationMaster") ? QStringLiteral("r") : QStringLiteral("a");
}

void TypeLetter(QLineEdit* box, const QString& letter)
{
    const int key = letter.at(0).toUpper().unicode();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, letter);
        QApplication::sendEvent(box, &event);
    }
    if (box->text() != letter)
        qFatal("%s did not take the letter", qUtf8Printable(box->objectName()));
}

double Painted(DataGrid* grid, const std::function<void()>& action)
{
    QApplication::processEvents();
    const auto start = Clock::now();
    PaintWatch watch(grid->viewport());
    action();
    watch.Wait();
    return Milliseconds(Clock::now() - start);
}

bool ReportOpening(const QString& form)
{
    std::vector<double> times;
    for (int run = 0; run < Runs; ++run) {
        times.push_back(Open(form));
        Close(form);
    }
    const Times summary = Summary(times);
    const bool kept = summary.median <= OpenLimit;
    std::printf("%-30s %8.1f %8.1f%s\n", qUtf8Printable(form), summary.median, summary.slowest,
                kept ? "" : "   MISSED");
    return kept;
}

/// `search` leads from the empty box to the grid, once on each call; `statement` is the select behind it.
bool ReportSearch(BareStore& store, const QString& form, const char* boxName,
                  const std::function<double(QLineEdit*, DataGrid*)>& search, const char* statement,
                  const QString& bound, const Limit& limit = SearchLimit)
{
    Open(form);
    auto* box = Find<QLineEdit>(ScreenRegistry::OpenInstance(form), boxName);
    auto* grid = Find<DataGrid>(ScreenRegistry::OpenInstance(form), "dgdDetails");
    std::vector<double> screenTimes;
    std::vector<double> bareTimes;
    int rows = 0;
    for (int run = 0; run < Runs; ++run) {
        box->clear();
        box->setFocus();
        screenTimes.push_back(search(box, grid));
        const auto start = Clock::now();
        rows = store.ReadAll(QLatin1String(statement), bound);
        bareTimes.push_back(Milliseconds(Clock::now() - start));
    }
    if (rows == 0 || rows != grid->RowCount())
        qFatal("%s shows %d rows, the statement gives %d", qUtf8Printable(form), grid->RowCount(), rows);
    Close(form);
    const Times screen = Summary(screenTimes);
    const Times bare = Summary(bareTimes);
    const bool kept = screen.median <= limit.milliseconds && screen.median <= limit.ratio * bare.median;
    std::printf("%-30s %6d %8.2f %8.2f %9.3f %7.1f%s\n", qUtf8Printable(form), rows, screen.median,
                screen.slowest, bare.median, screen.median / bare.median, kept ? "" : "   MISSED");
    return kept;
}

bool ReportSearches(BareStore& store)
{
    bool kept = true;
    for (const SimpleMasterDefinition& master : SimpleMasterDefinitions()) {
        const QString form = QLatin1String(master.formName);
        const QString letter = CommonLetter(form);
        const auto search = [&](QLineEdit* box, DataGrid* grid) {
            return Painted(grid, [&] { TypeLetter(box, letter); });
        };
        kept &= ReportSearch(store, form, master.searchControl, search, master.grid, letter);
    }

    const QString teachers = QStringLiteral("frmTeacherSearch");
    kept &= ReportSearch(
        store, teachers, "txtTeacherName",
        [&](QLineEdit* box, DataGrid* grid) {
            TypeLetter(box, CommonLetter(teachers));
            return Painted(grid, [&] {
                Find<QPushButton>(ScreenRegistry::OpenInstance(teachers), "cmdSearch")->click();
            });
        },
        TeacherSearch, QStringLiteral("%A%"));

    const QString students = QStringLiteral("frmMasStudentMasterSearch");
    Prompts::AnswerWith([](Prompts::Kind, const QString&) { return true; });
    for (const auto& [name, limit] :
         {std::pair{QString(), AllStudentsLimit}, std::pair{QStringLiteral("KAMALA CAB"), SearchLimit}})
        kept &= ReportSearch(
            store, students, "txtstudentName",
            [&](QLineEdit* box, DataGrid* grid) {
                box->setText(name);
                return Painted(grid, [&] {
                    Find<QPushButton>(ScreenRegistry::OpenInstance(students), "cmdSearch")->click();
                });
            },
            StudentSearch, QLatin1Char('%') + name + QLatin1Char('%'), limit);
    return kept;
}

} // namespace

int main(int argc, char** argv)
{
    const auto application = StartApplication(argc, argv);
    const MasterScreensSchool school;
    OpenSession(school.Folder());
    const std::unique_ptr<mdiTallyboard> window(ShowMainWindow());

    bool kept = true;
    std::printf("Opened to painted, ms, at most %g\n%-30s %8s %8s\n", OpenLimit, "", "median", "slowest");
    for (const SimpleMasterDefinition& master : SimpleMasterDefinitions())
        kept &= ReportOpening(QLatin1String(master.formName));
    for (const char* form : OtherScreens)
        kept &= ReportOpening(QLatin1String(form));

    BareStore store(school.Folder());
    std::printf("\nSearched to painted, ms, at most %g\n%-30s %6s %8s %8s %9s %7s\n",
                SearchLimit.milliseconds, "", "rows", "median", "slowest", "statement", "ratio");
    kept &= ReportSearches(store);
    return kept ? 0 : 1;
}
