#pragma once

#include "core/shell/frmSplash.h"

#include <QDir>

namespace tally {

class Screen;
class Tour;

/// What is typed at the login, and how the step is told.
struct Login
{
    QString loginId;
    QString password;
    QString what;
    QString fileName;
};

/// One start of the program in one folder. Its end leaves nothing of the session to the next start.
class ProgramRun
{
public:
    /// Shows the movie. Throws TourError when another copy runs in the folder.
    ProgramRun(Tour& tour, const QDir& folder);
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;
    ~ProgramRun();

    /// Leaves the movie and logs in, with a picture of the login.
    void LogIn(const Login& login) const;

private:
    Tour& tour_;
    frmSplash splash_;
};

/// Waits for the main window and gives it a size that suits a picture.
QWidget* ShowMainWindow(Tour& tour);
/// Waits until the screen is open and has the focus.
Screen* AwaitScreen(Tour& tour, const QString& formName);
/// Chooses the screen from the menu of that letter.
Screen* OpenScreen(Tour& tour, Qt::Key menu, const char* formName);
/// Pulls the screen to the size of the main window, so that a picture shows all of a list's columns.
void FillWindow(Screen* screen);
/// Goes to the button with Tab and presses it.
void PressButton(Tour& tour, const char* button);
/// Leaves the screen by its own button; `caption` is the name by which it asks, where the office wants that.
void LeaveScreen(Tour& tour, const char* formName, const QString& caption);
/// Closes the program from its menu.
void CloseProgram(Tour& tour);

} // namespace tally
