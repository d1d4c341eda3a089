#pragma once

#include <chrono>

class QWidget;

namespace tally::bench {

/// Chooses the school's class and exam and all divisions on an open frmRankCalculation.
void ChooseAll(QWidget* screen);
/// Presses Proceed and Total Details and waits until list and summary are painted. Gives the time it took.
std::chrono::duration<double> Proceed(QWidget* screen);
/// Brings the screen back to its start.
void Cancel(QWidget* screen);

} // namespace tally::bench
