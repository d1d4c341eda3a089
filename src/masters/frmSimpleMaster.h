#pragma once

#include "core/ui/MasterScreen.h"
#include "masters/SimpleMasterRepository.h"

#include <QString>

#include <vector>

class QGroupBox;
class QLineEdit;
class QPushButton;

namespace tally {

class DataCombo;
class DataGrid;

/// One of the simple masters, as its definition says.
class frmSimpleMaster : public MasterScreen
{
    Q_OBJECT

public:
    /// `definition` must outlive the screen.
    explicit frmSimpleMaster(const SimpleMasterDefinition& definition);

    QSize sizeHint() const override;

protected:
    void cmdCancel_Click() override;
    void RefillLists() override;
    /// Only `cmdExit` leaves, so that no half-entered row is lost with a slip of the mouse.
    bool CloseBoxExits() const override { return false; }

private:
    void BuildControls();
    QWidget* BuildSearch();
    QWidget* BuildEntry();
    QWidget* BuildButtons();

    /// Reads parents and rows anew and chooses the parent; 0 for none.
    void LoadLists(int parentCode);
    void LoadGrid();
    void ShowRows();
    /// 0 where none is chosen, or the master has no parent.
    int ParentCode() const;
    void SelectRow(int row);
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();

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
    QGroupBox* Frame1_ = nullptr;
    QPushButton* cmdNew_ = nullptr;
    QPushButton* cmdEdit_ = nullptr;
    QPushButton* cmdSave_ = nullptr;

    int code_ = 0;     ///< of the row in hand; 0 for none
    QString heldName_; ///< its name when it was selected
};

} // namespace tally
