#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

class QDir;

namespace tally {

/// A hidden folder of its own for one export, in the folder of the exports. It goes, with all that the export
/// has put into it, at the end of its life. A lock in it tells it from one whose program was ended before.
class WorkFolder
{
public:
    /// What an export makes in it, beside the working files of the library.
    static constexpr const char* Draft = "draft.xlsx";
    static constexpr const char* Finished = "workbook.xlsx";

    explicit WorkFolder(const QDir& exports);
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder();

    /// False when nothing can be written there.
    bool IsValid() const { return lock_ != nullptr; }
    QString Path() const { return path_; }

    /// Clears away the work folders in `exports` that nobody works in any more. A folder that holds anything
    /// else stays as it is.
    static void ClearDead(const QDir& exports);

private:
    QString path_;
    std::unique_ptr<QLockFile> lock_;
};

} // namespace tally
