#pragma once

#include <QString>

namespace tally {

/// The hidden folder "Temp" beside the program, made anew at each start, for the pictures and movies that lie
/// in the executable. Clients of one shared folder share it too: files in it are read right after they were
/// written and never counted on later.

/// Empties and makes the folder and sets gstrTempPath. False when the folder could not be made; pictures and
/// movies are then missing, and nothing else.
bool CreateTempFolder();
void DeleteTempFolder();
/// Writes embedded resource `id` as "{folder}/{id}.{extension}" and gives that path; empty when it could not
/// be written.
QString ExtractResource(int id, const QString& folder, const QString& extension);

} // namespace tally
