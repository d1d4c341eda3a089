#pragma once

#include <QHash>
#include <QString>

#include <functional>
#include <span>

class QAction;
class QMenuBar;

namespace tally {

enum class MenuKind
{
    Group,
    Screen,  ///< an entry that opens a screen
    Command, ///< an entry that runs something which is no screen
    Separator,
};

/// One line of the main window's menus.
struct MenuDefinition
{
    const char* name;    ///< "mnu" and the form's, command's or group's name: so privileges find it
    const char* caption; ///< with its blanks, which space the menu bar
    MenuKind kind;
    const char* parent; ///< the group it stands in; empty on the menu bar itself
    bool startsOn;      ///< on from the start, whatever the user's rights
    const char* opens;  ///< the screen or the command; empty for groups and separators
};

/// All lines, in their order on the screen.
std::span<const MenuDefinition> MenuDefinitions();

/// Fills the menu bar. In an open group the first letter of an entry chooses it. `choose` gets the line of a
/// chosen entry. Gives every line's action by its name, for a group the action that opens it; entries whose
/// screen or command the program does not have are off.
QHash<QString, QAction*> BuildMenus(QMenuBar* bar,
                                    const std::function<void(const MenuDefinition& entry)>& choose);

/// Whether the entry of that name leads anywhere in this program. Groups do.
bool LeadsSomewhere(const QString& name);

} // namespace tally
