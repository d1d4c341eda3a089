#pragma once

#include "core/ui/MasterStates.h"
#include "core/ui/Screen.h"

namespace tally {

/// A screen that keeps rows of one kind: a row is new, or one that was stored is selected, edited and
/// deleted.
class MasterScreen : public Screen
{
    Q_OBJECT

protected:
    using Screen::Screen;

    using Work = std::function<void(store::Transaction&)>;

    /// How the screen goes on when a row could not be written and the user has been told.
    enum class OnRefusal
    {
        Stay,      ///< what was typed stays, for a second try
        StartAnew, ///< Cancel's steps where other rows stand against it for good; else what was typed stays
        Refill,    ///< what was typed stays; where other rows stand against it, the lists are read anew
    };

    /// Cancel's steps: the screen as it was when it opened, with its lists read anew.
    virtual void cmdCancel_Click() = 0;
    /// Reads the lists anew and keeps what is chosen in them. For OnRefusal::Refill.
    virtual void RefillLists() {}

    /// Says which controls follow the state, which is Idle then.
    void SetMasterControls(const MasterControls& controls);
    virtual void ShowState(MasterState state);
    /// True while a row is being entered that is not stored yet.
    bool IsNew() const { return state_ == MasterState::New; }
    /// True while a stored row is being changed.
    bool IsEditing() const { return state_ == MasterState::Editing; }

    /// Runs `work` in one transaction. False when it failed: the user has been told, nothing was stored, and
    /// the screen has gone on as `next` says.
    [[nodiscard]] bool WriteRow(Conflict conflict, const Work& work, OnRefusal next);
    /// Tells that the row in hand is stored and goes on with Cancel's steps, and with `then` behind them.
    void TellSaved(const std::function<void()>& then = {});
    /// Tells that the row in hand is gone and goes on with Cancel's steps.
    void TellDeleted();
    /// The same the other way round, where the screen is to be empty by the time that the box comes.
    void CancelAndTellDeleted();
    /// Stores the row in hand and tells so.
    void SaveRow(const Work& work, OnRefusal next, const std::function<void()>& then = {});
    /// Deletes the row in hand, goes on with Cancel's steps and tells that it is gone.
    void DeleteRow(const Work& work, OnRefusal next = OnRefusal::Stay);

private:
    MasterControls controls_;
    MasterState state_ = MasterState::Idle;
};

} // namespace tally
