#pragma once

#include <QIcon>

class QApplication;
class QGridLayout;
class QPushButton;
class QTableView;
class QWidget;

namespace tally {

/// The one place that decides how the program looks: style, palette in light and dark, spacing, icons.

/// The rhythm of all distances, in pixels.
inline constexpr int LookUnit = 8;

/// Gives the application its style and the palette that goes with the system's choice of light or dark. Call
/// it once, before the first window.
void ApplyLook(QApplication& application);
/// The same with a given choice.
void ApplyLook(QApplication& application, bool dark);

/// An icon of the program's own set, by name: "new", "save", "exit". A null icon for an unknown name.
QIcon LookIcon(const QString& name);
/// Gives the usual buttons of `form` the icons that belong to their names, `cmdSave` the one for saving.
void DressButtons(QWidget* form);
/// What all grids have in common: alternating rows of one height without lines, a calm head, texts painted
/// quickly, one selection, nothing to type into, and Tab that leads on to the next control.
void DressGrid(QTableView* grid);

} // namespace tally
