#pragma once

namespace tally {

/// Makes every screen of the program known by its form name, every command of its menus by its name, and the
/// embedded pictures and icons readable. Once in a process.
void RegisterScreens();

/// The commands of the menus alone.
void RegisterCommands();

} // namespace tally
