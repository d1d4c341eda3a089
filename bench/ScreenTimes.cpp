#include "bench/ScreenTimes.h"

#include "bench/FindControl.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tally::bench {

namespace {

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

} // namespace

double Milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

Times Summary(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times.back()};
}

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

double Painted(QWidget* widget, const std::function<void()>& action)
{
    QApplication::processEvents();
    const auto start = Clock::now();
    PaintWatch watch(widget);
    action();
    watch.Wait();
    return Milliseconds(Clock::now() - start);
}

void Close(const QString& form)
{
    ScreenRegistry::OpenInstance(form)->Unload();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

void PressKey(QWidget* widget, int key, const QString& text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(widget, &event);
    }
}

bool ReportOpenings(const std::vector<QString>& forms)
{
    std::printf("Opened to painted, ms, at most %g\n%-32s %8s %8s\n", OpenLimit, "", "median", "slowest");
    bool allKept = true;
    for (const QString& form : forms) {
        std::vector<double> times;
        for (int run = 0; run < Runs; ++run) {
            times.push_back(Open(form));
            Close(form);
        }
        const Times summary = Summary(times);
        const bool kept = summary.median <= OpenLimit;
        std::printf("%-32s %8.1f %8.1f%s\n", qUtf8Printable(form), summary.median, summary.slowest,
                    kept ? "" : "   MISSED");
        allKept &= kept;
    }
    return allKept;
}

void PrintSearchHeads()
{
    std::printf("\nSearched to painted, ms\n%-32s %6s %8s %8s %9s %7s\n", "", "rows", "median", "slowest",
                "statement", "ratio");
}

bool ReportSearch(BareStore& store, const QString& form, const char* boxName,
                  const std::function<double(QLineEdit*, DataGrid*)>& search, const char* statement,
                  const QString& bound, const SearchLimit& limit)
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
    const double ratio = screen.median / bare.median;
    const bool kept = screen.median <= limit.milliseconds && ratio <= limit.ratio;
    std::printf("%-32s %6d %8.2f %8.2f %9.3f %7.1f", qUtf8Printable(form), rows, screen.median,
                screen.slowest, bare.median, ratio);
    if (std::isfinite(limit.milliseconds))
        std::printf("   at most %g ms", limit.milliseconds);
    if (std::isfinite(limit.ratio))
        std::printf("   at most %g times", limit.ratio);
    std::printf("%s\n", kept ? "" : "   MISSED");
    return kept;
}

double SearchByButton(const QString& form, DataGrid* grid)
{
    auto* button = Find<QPushButton>(ScreenRegistry::OpenInstance(form), "cmdSearch");
    return Painted(grid->viewport(), [button] { button->click(); });
}

} // namespace tally::bench
