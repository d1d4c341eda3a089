#pragma once

#include <QFile>
#include <QString>

#include <optional>

namespace tally::store {

/// A file that is being written in the folder where it is to lie, under a name of its own, for as long as it
/// is not whole. What has its place already stays as it is until the very moment in which the whole file
/// takes it; a file that is given up leaves nothing behind. Throws StoreError.
class UnfinishedFile
{
public:
    /// Begins a file in `folder` that at most those may read who may read `original`.
    UnfinishedFile(const QString& folder, const QString& original);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    /// Removes the file unless it has got its place.
    ~UnfinishedFile();

    /// To be written to. Do not close it.
    QFile& File() { return file_; }
    QString Path() const { return file_.fileName(); }
    /// All that was written lies on the disk from here on, and nothing more is written through File().
    void Finish();
    /// After Finish(): its place, whatever file lies there.
    void TakePlace(const QString& path);
    /// After Finish(): its place, as long as nothing lies there.
    void TakeFreePlace(const QString& path);
    /// After Finish(): the first free name that MoveToNumberedName finds. Gives its path.
    QString TakeNumberedName(const QString& base, const QString& suffix);

private:
    QFile file_;
    bool placed_ = false;
};

/// Removes what programs that were killed have left unfinished in `folder`, as far as nobody can be writing
/// to it any more.
void RemoveDeadUnfinishedFiles(const QString& folder);

} // namespace tally::store
