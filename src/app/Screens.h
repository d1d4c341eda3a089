#pragma once

namespace tally {

/// Makes every screen of the program known by its form name, every command of its menus by its name, and the
/// embedded pictures and icons readable.
void RegisterScreens();

} // namespace tally
