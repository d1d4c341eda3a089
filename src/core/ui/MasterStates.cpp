#include "core/ui/MasterStates.h"

#include <QAbstractButton>

#include <array>

namespace tally {

namespace {

struct Switches
{
    bool Frame1, cmdNew, cmdEdit, cmdDelete, cmdSave;
};

constexpr std::array<Switches, 5> SwitchesOf{{
    // Frame1, New,   Edit,  Delete, Save
    {false, true, false, false, false},  // Idle
    {true, false, false, false, true},   // New
    {false, false, true, true, false},   // RowSelected
    {true, false, false, false, true},   // Editing
    {false, false, false, false, false}, // Viewing
}};

void Switch(QWidget* control, bool on)
{
    if (control)
        control->setEnabled(on);
}

} // namespace

void ShowMasterState(const MasterControls& controls, MasterState state)
{
    const Switches& switches = SwitchesOf.at(static_cast<std::size_t>(state));
    Switch(controls.Frame1, switches.Frame1);
    Switch(controls.cmdNew, switches.cmdNew);
    Switch(controls.cmdEdit, switches.cmdEdit);
    Switch(controls.cmdDelete, switches.cmdDelete);
    Switch(controls.cmdSave, switches.cmdSave);
}

} // namespace tally
