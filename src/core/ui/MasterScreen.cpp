#include "core/ui/MasterScreen.h"

#include "core/ui/Prompts.h"

namespace tally {

void MasterScreen::SetMasterControls(const MasterControls& controls)
{
    controls_ = controls;
    ShowState(MasterState::Idle);
}

void MasterScreen::ShowState(MasterState state)
{
    state_ = state;
    ShowMasterState(controls_, state);
}

bool MasterScreen::WriteRow(Conflict conflict, const Work& work, OnRefusal next)
{
    const auto error = TryWrite(work);
    if (!error)
        return true;
    Prompts::Critical(TextOf(*error, conflict));
    // A file that another client holds is free again in a moment, and what has been typed can then be saved.
    if (next == OnRefusal::StartAnew && error->IsConflict())
        cmdCancel_Click();
    else if (next == OnRefusal::Refill && error->IsConflict())
        RefillLists();
    return false;
}

void MasterScreen::TellSaved(const std::function<void()>& then)
{
    AfterCommit([&] {
        Prompts::Information(IsEditing() ? QStringLiteral("Record Updated") : QStringLiteral("Record Saved"));
        cmdCancel_Click();
        if (then)
            then();
    });
}

void MasterScreen::TellDeleted()
{
    AfterCommit([this] {
        Prompts::Information(QStringLiteral("Record Deleted"));
        cmdCancel_Click();
    });
}

void MasterScreen::CancelAndTellDeleted()
{
    AfterCommit([this] {
        cmdCancel_Click();
        Prompts::Information(QStringLiteral("Record Deleted"));
    });
}

void MasterScreen::SaveRow(const Work& work, OnRefusal next, const std::function<void()>& then)
{
    if (WriteRow(Conflict::MasterIsGone, work, next))
        TellSaved(then);
}

void MasterScreen::DeleteRow(const Work& work, OnRefusal next)
{
    if (WriteRow(Conflict::DataIsInUse, work, next))
        CancelAndTellDeleted();
}

} // namespace tally
