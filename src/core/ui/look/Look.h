#pragma once

#include <QIcon>

#include <optional>

class QApplication;
class QPalette;
class QTableView;
class QWidget;

namespace tally {

/// The one place that decides how the program looks: style, palette in light and dark, spacing, icons.

/// The rhythm of all distances, in pixels.
inline constexpr int LookUnit = 8;

/// Gives the application its style and the palette that goes with `dark`. Without it the system's own colours
/// decide between light and dark, and decide again whenever they change. Call it once, before the first
/// window.
void ApplyLook(QApplication& application, std::optional<bool> dark = {});
/// Another choice while the program runs. All windows change at once and lose nothing of what they show.
void UseDarkLook(std::optional<bool> dark);
/// Whether texts are lighter than what they stand on.
bool IsDark(const QPalette& palette);

/// An icon of the program's own set, by name: "new", "save", "exit". A null icon for an unknown name. It is
/// drawn in the palette's colours of the moment, so it changes with them.
QIcon LookIcon(const QString& name);
/// Gives the usual buttons of `form` the icons that belong to their names, `cmdSave` the one for saving.
void DressButtons(QWidget* form);
/// What all grids have in common, once they have their model: alternating rows of one height without lines, a
/// calm head, texts painted quickly, the current row shown along its whole length, one selection, nothing to
/// type into, and Tab that leads on to the next control.
void DressGrid(QTableView* grid);

/// A text of the office's as a tool tip: wrapped where it is long, and nothing in it taken for markup.
QString WrappedToolTip(const QString& text);

} // namespace tally
