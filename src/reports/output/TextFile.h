#pragma once

#include <QString>

namespace tally {

/// Writes a text report as `fileName` into the program's folder and opens it in the machine's program for
/// texts. Where the file is another client's, who may still be reading it, the report gets a name of its own
/// beside it. An editor that stays open longer than the program shows what it has read: the file's name is
/// free by then, and another client's report may lie under it. The user is told when the report could not be
/// written, of which no half is left then, or not opened.
void ShowTextFile(const QString& fileName, const QString& text);

/// Lets other clients have the files that this one has written; the end of the program does so too.
void GiveTextFilesBack();

} // namespace tally
