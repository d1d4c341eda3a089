#pragma once

#include <QApplication>
#include <QByteArray>

#include <memory>

namespace tally {
class mdiTallyboard;
}

namespace tally::bench {

/// The application of a program that measures real screens: with the program's look and all its screens, and
/// without a display unless QT_QPA_PLATFORM names one. A message box ends the process, as a screen that asks
/// or refuses is not the screen that is to be measured; Prompts::AnswerWith replaces that.
std::unique_ptr<QApplication> StartApplication(int& argc, char** argv);

/// The main window over the open session, shown. It belongs to the caller and writes no presence, which would
/// count among the statements of whatever is measured in that second.
mdiTallyboard* ShowMainWindow();

/// Starts this program, argv[0], once more with `folder` as its argument and gives what it prints; what it
/// says of errors is passed on. Ends the process when that one fails.
QByteArray OutputOfChild(const char* program, const QString& folder);
/// The end of such a child once its figures are printed. What the windows would save on closing does not
/// matter.
[[noreturn]] void EndChild();

} // namespace tally::bench
