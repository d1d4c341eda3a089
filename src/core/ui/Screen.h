#pragma once

#include "core/Right.h"
#include "core/SessionContext.h"
#include "store/StoreError.h"
#include "store/Transaction.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <type_traits>

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

    /// The screen has come to the front. ShowForm and the main window say so.
    void Activate();
    /// True once the screen has been closed and only waits for its deletion.
    bool IsUnloaded() const { return unloaded_; }
    /// True while this screen has the four work menus to itself.
    bool HasTakenMenus() const { return menusTaken_; }
    /// Closes without a question unless Form_QueryUnload objects or another client's save keeps the screen
    /// from being released; frees the shared instance and gives the main window its picture back. The screen
    /// is out of sight at once and deleted when no handler and no box of it is at work any more.
    void Unload();

    /// Runs work that only reads. False when it failed and the user has been told.
    bool Read(const std::function<void()>& work);
    /// What `work` reads from the main database, all of one moment; nothing when it failed and the user has
    /// been told. No box may stand inside it: other clients would wait for its answer.
    template <typename Work>
    [[nodiscard]] auto Fetch(const Work& work) -> std::optional<std::invoke_result_t<const Work&>>
    {
        std::optional<std::invoke_result_t<const Work&>> found;
        Read([&] {
            const store::ReadTransaction moment(MainStore());
            found = work();
        });
        return found;
    }

Q_SIGNALS:
    /// The screen has come to the front once more, after another screen was there.
    void CameBack();

protected:
    /// Asks whether to leave, where the office wants to be asked, and unloads. `cmdExit` and the close box
    /// come here, though never while a box waits for its answer.
    virtual void cmdExit_Click();
    /// The name in the exit question; the caption unless a screen says otherwise.
    virtual QString ExitCaption() const { return windowTitle(); }
    /// Each time the screen comes to the front; `first` on the first time since it was opened.
    virtual void Form_Activate(bool first) { static_cast<void>(first); }
    /// False keeps the screen open.
    virtual bool Form_QueryUnload() { return true; }
    /// The screen goes: last chance to put back what it changed.
    virtual void Form_Unload() {}
    /// False where the window's close box does nothing at all and only `cmdExit` closes the screen.
    virtual bool CloseBoxExits() const { return true; }

    /// Says which button is `cmdExit`: it closes the screen, and the close box is refused while it is
    /// disabled.
    void SetExitButton(QAbstractButton* button);

    /// CheckPrivilege for this form, either of two rights where `instead` is given; nothing when the user has
    /// been told that it could not be read.
    [[nodiscard]] std::optional<bool> HasRight(Right right, std::optional<Right> instead = {});
    /// CheckPrivilege for this form; shows the refusal. True when the action may go on. Where `instead` is
    /// given, that right is as good as `right`, whose text tells the refusal.
    [[nodiscard]] bool MayUse(Right right, std::optional<Right> instead = {});

    /// For a screen that must have this client to itself: switches the four work menus off until it and all
    /// others that took them have closed. When another screen is open (not looked at with `amongOthers`),
    /// says that this one can't be opened, closes it and gives false.
    bool TakeMenus(bool amongOthers = false);
    /// For a screen that no two clients may have open: enters `screenName` among the screens in use until it
    /// closes. When another client has it open, says so, closes this one and gives false.
    void TakeScreen(const QString& screenName);

    /// Which fixed text a conflict with other data gets. Any other failure shows its own description.
    enum class Conflict
    {
        Describe,     ///< no fixed text
        DataIsInUse,  ///< a delete: other screens' rows refer to the row
        MasterIsGone, ///< a save: a row it refers to was deleted meanwhile
    };
    /// Runs `work` in one transaction on the main database and commits it. False when it failed: the user has
    /// been told and nothing was stored.
    [[nodiscard]] bool Write(Conflict conflict, const std::function<void(store::Transaction&)>& work);
    /// The same for a screen that answers a failure in its own way: the failure, of which nobody has been
    /// told, or nothing when the work is stored.
    [[nodiscard]] static std::optional<store::StoreError> TryWrite(
        const std::function<void(store::Transaction&)>& work);
    /// What the user is told of a failed write: the fixed text of a conflict with other data, else the
    /// failure's own description.
    static QString TextOf(const store::StoreError& error, Conflict conflict);
    /// Runs steps that read one thing after the other, as Cancel's do. Where Reads of them fail, the user is
    /// told once, at the end.
    void TellOnce(const std::function<void()>& work);
    /// Runs what follows a commit: the word for its result, Cancel's steps. Where a Read of it fails, the
    /// user is told once, at the end, that the change is stored and that only the screen could not be read
    /// anew; a bare failure would make him enter everything again.
    void AfterCommit(const std::function<void()>& work);

    void closeEvent(QCloseEvent* event) override;

private:
    void Exit();
    void LeaveArea();
    /// Why the first Read of `work` failed, of which nobody has been told; empty for none, and where the work
    /// around it tells.
    QString FirstFailureOf(const std::function<void()>& work);
    /// Gives other clients the screen that TakeScreen took. False when another client's save stood in the way
    /// for now; the user has been told.
    bool ReleaseScreen();

    QAbstractButton* exitButton_ = nullptr;
    QString takenScreen_;    ///< empty while this client holds no row of ScreenStatus
    bool gathering_ = false; ///< failures are told at the end of what runs
    QString firstFailure_;   ///< of what runs; empty for none
    bool menusTaken_ = false;
    bool activated_ = false;
    bool unloaded_ = false;
};

} // namespace tally
