#pragma once

#include <QStringList>

#include <functional>

namespace tally {

class Screen;

/// Which screens the program has, by form name. Areas do not know each other's screens: they open them by
/// name. Each screen has one shared instance while it is open; closing it releases the instance, so that the
/// next opening starts clean.
namespace ScreenRegistry {

using Factory = std::function<Screen*()>;

/// Enters a screen. False for a name that is entered already; then the first entry stays.
bool Register(const QString& formName, Factory factory);
/// Takes a screen out and gives how it was made; null for a name that is not registered.
Factory Forget(const QString& formName);
bool Knows(const QString& formName);
/// All screens that are entered, in the order of the alphabet.
QStringList Names();
/// The open instance, or a new one; null for a name that is not registered.
Screen* Instance(const QString& formName);
/// The open instance; null when the screen is not open.
Screen* OpenInstance(const QString& formName);

} // namespace ScreenRegistry
} // namespace tally
