#pragma once

#include <QStringList>

#include <functional>

namespace tally {

/// What the menus run that is no screen, by the names in the menus' definitions. Areas bring their own.
namespace MenuCommands {

using Command = std::function<void()>;

/// Enters a command. A second one under the same name takes the place of the first.
void Register(const QString& name, const Command& command);
/// Takes a command out again, for tests that entered one of their own.
void Forget(const QString& name);
bool Knows(const QString& name);
/// All commands that are entered, in the order of the alphabet.
QStringList Names();
/// Runs the command; a name that is not registered does nothing.
void Run(const QString& name);

} // namespace MenuCommands
} // namespace tally
