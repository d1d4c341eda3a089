#pragma once

#include <QIODevice>
#include <QString>
#include <QStringList>

#include <array>
#include <filesystem>
#include <system_error>

class QFile;
class QFileDevice;

namespace tally::store {

class StoreError;

/// How the program treats its own files in folders where other people write too: it removes and replaces
/// nothing that it did not make, and never follows a link that somebody has put there.

/// Whether `path` is a file, and no link to one.
bool IsPlainFile(const QString& path);
/// Whether `path` is a folder, and no link to one.
bool IsPlainFolder(const QString& path);
/// Whether nothing has the name `path`, not even a link that leads nowhere.
bool IsFreeName(const QString& path);
/// Removes the files of these names from the folder, and the folder when nothing else lies in it.
void RemoveOwnFolder(const QString& folder, const QStringList& files);
/// Waits until all that was written to the open `file` lies on the disk, where no power cut takes it. False
/// when it could not be written there.
[[nodiscard]] bool BringToDisk(QFileDevice& file);
/// Makes `content` the file `path`, of which nobody ever sees a part, and waits until it lies on the disk.
/// False when that fails: the file that was there before, or none, is there then. `mode` may add Text.
[[nodiscard]] bool ReplaceFile(const QString& path, const QByteArray& content,
                               QIODevice::OpenMode mode = QIODevice::WriteOnly);
/// Gives `file` the name `path` within its own file system. False, and `file` keeps its name, when that name
/// is taken, or the moment another program takes it: no file is ever replaced. The new name is brought to the
/// disk too, where the file system does so.
[[nodiscard]] bool MoveToFreeName(const QString& file, const QString& path);
/// The same under the first free one of the names "base.suffix", "base (2).suffix" and so on in
/// `folder`. Gives the path taken; empty where none could be had.
[[nodiscard]] QString MoveToNumberedName(const QString& file, const QString& folder, const QString& base,
                                         const QString& suffix);
/// Gives `file` the name `path` within its own file system, in place of the file that has it. Whoever looks
/// finds the one or the other under the name, at every moment. The name is brought to the disk too.
[[nodiscard]] bool MoveInPlace(const QString& file, const QString& path);
/// Whether both paths lead to one and the same file, by whatever spelling or link.
bool AreOneFile(const QString& path, const QString& other);
/// Whether two files or folders that exist lie on one and the same disk; in doubt they do.
bool AreOnOneDisk(const QString& path, const QString& other);
/// Whether a copy of `size` bytes leaves enough on a disk with `available` ones: the next save needs room
/// too.
bool LeavesRoom(qint64 available, qint64 size);
/// The same for the disk of `folder`; in doubt it does.
bool HasRoomFor(qint64 size, const QString& folder);
/// Writes all of the bytes. Throws StoreError, and calls a full disk by its name.
void WriteAll(QIODevice& file, const QByteArray& bytes);
/// What is told of the step of a copy that the system has refused just now.
StoreError CopyFailure();
/// Lets nobody read or write the open `copy` who may not do so with `original`, and everybody else as far as
/// the system lets this program say so.
void TakeRightsOf(QFile& copy, const QString& original);
/// The ways in which MoveToFreeName does so, the safest first. Not every file system knows every one.
using MoveWay = std::error_code (*)(const std::filesystem::path& from, const std::filesystem::path& to);
const std::array<MoveWay, 3>& MoveWays();

} // namespace tally::store
