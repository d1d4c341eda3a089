#pragma once

class QAbstractButton;
class QWidget;

namespace tally {

/// What a screen that keeps a list of rows is doing.
enum class MasterState
{
    Idle,        ///< after opening, Cancel, Save and Delete
    New,         ///< a row is being entered
    RowSelected, ///< a stored row is shown and may be edited or deleted
    Editing,     ///< a stored row is being changed
    Viewing,     ///< a stored row is shown that may not be changed
};

/// The controls that follow the state. A screen without one of the buttons leaves it null.
struct MasterControls
{
    QWidget* Frame1 = nullptr; ///< the entry fields
    QAbstractButton* cmdNew = nullptr;
    QAbstractButton* cmdEdit = nullptr;
    QAbstractButton* cmdDelete = nullptr;
    QAbstractButton* cmdSave = nullptr;
};

/// Switches the controls on and off as the state asks for.
void ShowMasterState(const MasterControls& controls, MasterState state);

} // namespace tally
