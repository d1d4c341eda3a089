#pragma once

#include "core/ui/Screen.h"
#include "store/Connection.h"
#include "utilities/BackupLogRepository.h"

#include <QElapsedTimer>

#include <functional>
#include <memory>

class QTimer;

namespace Ui {
class frmUtilBackupRestore;
}

namespace tally::store {
class Restore;
}

namespace tally {

struct PathRefusal;

/// Copies the school's data to a file of the user's choice, and back.
class frmUtilBackupRestore : public Screen
{
    Q_OBJECT

public:
    frmUtilBackupRestore();
    ~frmUtilBackupRestore() override;

private:
    CopyMode Mode() const;
    void ShowMode();
    void cmdSourcePath_Click();
    void cmdDestPath_Click();
    void cmdBackup_Click();
    void cmdCancel_Click();
    void cmdDetails_Click();
    void Timer1_Timer();

    void RefusePath(const PathRefusal& refusal);
    /// The two directions behind the test of the paths.
    void BackUp();
    void Restore();
    /// What the user lets become of a file at the destination.
    enum class Consent
    {
        NoneThere,
        Replace,
        Keep, ///< he has shrunk from it at the last question
        Stop,
    };
    Consent AskForPlace();
    /// Runs `work` with the main database closed, enters the copy in the log and tells the result. Without
    /// work the two come all the same, as the log knows of what was asked for.
    void CopyClosed(const std::function<void()>& work, const QString& logged);
    /// Runs long work: its progress is shown, and only Cancel can be pressed. False when it failed or was
    /// ended, and the user has been told.
    bool RunLong(const std::function<void()>& work);
    bool ShowProgress(qint64 done, qint64 total);
    void SetBusy(bool busy);

    /// The log's own connection. Throws StoreError where there is none and none can be had.
    store::Connection& Log();
    void LoadLog();

    std::unique_ptr<Ui::frmUtilBackupRestore> ui_;
    std::unique_ptr<store::Connection> log_;
    QTimer* Timer1_;
    QElapsedTimer sincePainted_;
    int counter_ = 0;
    bool busy_ = false;
    bool stopped_ = false; ///< Cancel was pressed while the work ran
};

} // namespace tally
