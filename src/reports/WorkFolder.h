#pragma once

#include <QLockFile>
#include <QTemporaryDir>

#include <memory>

class QDir;

namespace tally {

/// A hidden folder of its own for one export, in the folder of the exports. It goes, with all that lies in
/// it, at the end of its life. A lock in it tells it from one whose program was ended before.
class WorkFolder
{
public:
    explicit WorkFolder(const QDir& exports);

    /// False when nothing can be written there.
    bool IsValid() const { return lock_ != nullptr; }
    QString Path() const { return folder_->path(); }

    /// Clears away the work folders in `exports` that nobody works in any more.
    static void ClearDead(const QDir& exports);

private:
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<QLockFile> lock_; ///< given back before the folder goes
};

} // namespace tally
