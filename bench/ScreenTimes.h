#pragma once

#include "bench/BareStore.h"

#include <QString>

#include <chrono>
#include <functional>
#include <limits>
#include <vector>

class QLineEdit;
class QWidget;

namespace tally {
class DataGrid;
}

namespace tally::bench {

using Clock = std::chrono::steady_clock;

/// Of each measurement whose median has a limit.
inline constexpr int Runs = 15;
inline constexpr double OpenLimit = 100;

double Milliseconds(Clock::duration time);

/// Milliseconds of several runs.
struct Times
{
    double median;
    double slowest;
};
Times Summary(std::vector<double> times);

/// What the user waits for: milliseconds until a screen that opens is painted, and until a widget is painted
/// anew because of `action`. Ends the process when nothing is painted.
double Open(const QString& form);
double Painted(QWidget* widget, const std::function<void()>& action);
void Close(const QString& form);
/// One key, pressed and let go.
void PressKey(QWidget* widget, int key, const QString& text = {});

/// Opens and closes each screen several times and prints how soon it was painted. False when a median is
/// beyond its limit.
bool ReportOpenings(const std::vector<QString>& forms);

/// What a search may take.
struct SearchLimit
{
    double milliseconds = std::numeric_limits<double>::infinity();
    double ratio = std::numeric_limits<double>::infinity(); ///< to the bare statement
};
inline constexpr SearchLimit AtMost50{.milliseconds = 50};

void PrintSearchHeads();
/// Prints how soon the grid "dgdDetails" of a search is painted. `search` leads from the empty box to the
/// grid and gives its time; `statement` is the select behind it. False when the median is beyond its limit.
bool ReportSearch(BareStore& store, const QString& form, const char* boxName,
                  const std::function<double(QLineEdit*, DataGrid*)>& search, const char* statement,
                  const QString& bound, const SearchLimit& limit = AtMost50);
/// A `search` that has the text in the box and presses "cmdSearch", from that on.
double SearchByButton(const QString& form, DataGrid* grid);

} // namespace tally::bench
