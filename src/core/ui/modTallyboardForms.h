#pragma once

#include <QString>

class QLineEdit;
class QSize;
class QWidget;

namespace tally {

class FlexGrid;

/// The shared routines that touch windows: opening and closing of screens, and what forms do with their
/// controls.

/// Opens a screen inside the main window, or brings the open one to the front, with the plain picture behind
/// it. A screen with a grid can be maximised. A name without a screen does nothing.
void ShowForm(const QString& formName);
/// Gives the keyboard to the screen in front, to the field that had it there last, unless it has it already.
void FocusActiveScreen();
/// After a screen closed: the main picture when no other one is open, else the plain picture.
void ShowBackground();
/// Asks "Do You Want To Exit {caption} ?" where the office wants to be asked; else true at once.
[[nodiscard]] bool ConfirmExit(const QString& caption);
/// Puts a form into the middle of `parent`'s inner area; of the main window's when `parent` is null.
void CenterForm(QWidget* form, QWidget* parent = nullptr);

/// True if any screen is open; the splash and the main window do not count.
bool AnyChildFormOpen();
/// True if any screen other than `form` and AboutUs is open.
bool OtherFormsOpen(const QWidget* form);

/// True if some open screen has the four work menus to itself.
bool AnyScreenHasTakenMenus();
/// The four work menus off while a screen must be alone on this client, and back to what the user's rights
/// make of each of them unless one still is.
void DisableMainMenus();
void EnableMainMenus();

/// Empties every control of `form`: texts, combos that are visible, grids down to one empty row, check boxes,
/// lists; date pickers go to the machine's date, not the working date.
void ClearControls(QWidget* form);
/// One empty row under the head; one column too, unless the grid is "msgSummary".
void ClearMSGrid(FlexGrid* grid);
void SelectAllText(QLineEdit* control);
/// Says what is wrong and takes the user to the field. Always false: there is nothing to go on with.
bool Refuse(const QString& text, QWidget* field);
/// True when something stands in the field; else refuses it with `text`. Blanks are nothing.
[[nodiscard]] bool RequireText(const QString& text, QLineEdit* field);
/// Cuts the last character when there are more than `decimals` behind the point; tells the user and gives
/// true when the number is above `limit`.
bool CheckMarkLimit(QLineEdit* control, int decimals, double limit, const QString& label);

/// True for a display of 800 by 600 or close to it.
bool IsSmallScreen(QSize pixels);
/// The size of the display the program stands on, in pixels; empty without a display.
QSize DisplaySize();
/// The numbers of the pictures behind the screens: the one without an open screen, and the plain one behind
/// open screens. A small display has pictures of its own.
int MainPicture(QSize display);
int PlainPicture(QSize display);

} // namespace tally
