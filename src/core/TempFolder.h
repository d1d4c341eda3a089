#pragma once

#include <QByteArray>
#include <QString>

namespace tally {

/// The hidden folder "Temp" beside the program for the pictures and movies that lie in the executable.
/// Clients of one shared folder share it too, and each start and each Close of one of them clears it. So its
/// files are read right after they were written and never counted on later, and what cannot be written or
/// read there is taken from the executable.
///
/// Only these pictures and movies are ever removed or replaced in it. A link or a file in the folder's place
/// belongs to somebody else: it is left alone, and nothing is written through it.

/// Sets gstrTempPath, empties the folder and makes it.
void CreateTempFolder();
/// Removes the program's files from the folder, and the folder when nothing else lies in it.
void DeleteTempFolder();
/// Writes embedded resource `id` as "{folder}/{id}.{extension}" and gives that path; empty when it could not
/// be written, and then no half of it is left. A missing folder is made.
QString ExtractResource(int id, const QString& folder, const QString& extension);
/// The content of embedded resource `id`, extracted into gstrTempPath and read there when that can be done.
/// Empty when there is no such resource.
QByteArray ReadResource(int id, const QString& extension);

} // namespace tally
