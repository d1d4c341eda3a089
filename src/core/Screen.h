#pragma once

#include "store/Transaction.h"

#include <QWidget>

#include <functional>

class QAbstractButton;

namespace tally {

/// What every screen inside the main window shares: its keys, its one way to close, the privilege test in
/// front of guarded buttons and the texts for a refused save or delete.
class Screen : public QWidget
{
    Q_OBJECT

public:
    /// `formName` becomes the object name, by which privileges and menus know the form. `helpScreenNo` 0: no
    /// help.
    Screen(const QString& formName, int helpScreenNo);

    /// True once the screen has been closed and only waits for its deletion.
    bool IsUnloaded() const { return unloaded_; }
    /// Closes without a question, frees the shared instance and gives the main window its picture back.
    void Unload();

protected:
    /// Asks whether to leave, where the office wants to be asked, and unloads. `cmdExit` and the close box
    /// come here.
    virtual void cmdExit_Click();
    /// The name in the exit question; the caption unless a screen says otherwise.
    virtual QString ExitCaption() const { return windowTitle(); }
    /// Last words before the screen goes: release what it holds in the store.
    virtual void Form_Unload() {}

    /// Says which button is `cmdExit`: it closes the screen, and the close box is refused while it is
    /// disabled.
    void SetExitButton(QAbstractButton* button);

    /// CheckPrivilege for this form; shows the refusal. True when the action may go on.
    bool MayUse(QChar code);

    /// Which fixed text a conflict with other data gets. Any other failure shows its own description.
    enum class Conflict
    {
        Describe,     ///< no fixed text
        DataIsInUse,  ///< a delete: other screens' rows refer to the row
        MasterIsGone, ///< a save: a row it refers to was deleted meanwhile
    };
    /// Runs `work` in one transaction on the main database and commits it. False when it failed: the user has
    /// been told and nothing was stored.
    bool Write(Conflict conflict, const std::function<void(store::Transaction&)>& work);
    /// Runs work that only reads. False when it failed and the user has been told.
    bool Read(const std::function<void()>& work);

    void closeEvent(QCloseEvent* event) override;

private:
    QAbstractButton* exitButton_ = nullptr;
    bool unloaded_ = false;
};

} // namespace tally
