#pragma once

#include "core/ui/MasterStates.h"
#include "core/ui/Screen.h"
#include "masters/SimpleMasterRepository.h"

#include <QString>

#include <vector>

class QLineEdit;
class QPushButton;

namespace tally {

class DataCombo;
class DataGrid;

/// One of the simple masters, as its definition says.
class frmSimpleMaster : public Screen
{
    Q_OBJECT

public:
    /// `definition` must outlive the screen.
    explicit frmSimpleMaster(const SimpleMasterDefinition& definition);

    QSize sizeHint() const override;

protected:
    void Form_Activate(bool first) override;
    /// Only `cmdExit` leaves, so that no half-entered row is lost with a slip of the mouse.
    bool CloseBoxExits() const override { return false; }

private:
    void BuildControls();
    QWidget* BuildSearch();
    QWidget* BuildEntry();
    QWidget* BuildButtons();

    void LoadGrid();
    void LoadParents();
    void SelectRow(int row);
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void cmdCancel_Click();
    void cmdAdd_Click();

    /// Says what is missing and gives it the focus; true when nothing is.
    bool IsComplete();
    /// Says which duplicate there is and gives it the focus; false when there is none.
    bool IsDuplicate(const SimpleMasterEntry& entry);
    SimpleMasterEntry Entry() const;
    SimpleMasterRepository Repository() const;

    const SimpleMasterDefinition& definition_;
    QLineEdit* txtSearch_ = nullptr;
    DataGrid* dgdDetails_ = nullptr;
    DataCombo* dbcParent_ = nullptr; ///< null where the master has no parent
    std::vector<QLineEdit*> boxes_;  ///< one per field of the definition
    MasterControls controls_;
    QPushButton* cmdNew_ = nullptr;
    QPushButton* cmdEdit_ = nullptr;
    QPushButton* cmdSave_ = nullptr;

    bool editing_ = false; ///< a stored row is being changed
    int code_ = 0;         ///< of the row in hand; 0 for none
    QString heldName_;     ///< its name when it was selected
    bool parentsMayHaveChanged_ = false;
};

} // namespace tally
