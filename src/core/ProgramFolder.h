#pragma once

#include <QString>

namespace tally {

/// The folder of the executable: databases and working files lie directly in it. In an office with several
/// clients the program runs from the shared folder, so this folder is also where all clients meet.
QString ProgramFolder();
/// Makes the program work in another folder. For tests and the guided tour.
void SetProgramFolder(const QString& folder);
/// The full path of a file in the program's folder.
QString ProgramFile(const QString& name);

} // namespace tally
