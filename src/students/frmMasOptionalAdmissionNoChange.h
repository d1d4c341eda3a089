#pragma once

#include "core/ui/Screen.h"
#include "students/OptionalNumbers.h"

#include <memory>

namespace Ui {
class frmMasOptionalAdmissionNoChange;
}

namespace tally {

class CellEditors;
class DivisionChoice;

/// "Optional Admission No Change": the optional admission numbers of a whole class-division, changed in a
/// grid. The student master leads here.
class frmMasOptionalAdmissionNoChange : public Screen
{
    Q_OBJECT

public:
    frmMasOptionalAdmissionNoChange();
    ~frmMasOptionalAdmissionNoChange() override;

    QSize sizeHint() const override;

private:
    void ConnectHandlers();

    void cmdEdit_Click();
    void cmdSave_Click();
    void cmdCancel_Click();
    void dbcDivision_Change();
    void msgDetails_Click(int row, int col);
    void txtOptionalAdmissionNo_Change(int row, const QString& text);
    void txtOptionalAdmissionNo_Enter(int row, const QString& text);

    /// Nobody in the grid.
    void EmptyGrid();
    void ShowRows();
    /// Tells what the step has to tell and goes where it leads.
    void Take(const NumberStep& step);
    /// Lists and snapshot anew. Without them nothing can be edited, only tried again.
    void LoadLists();

    std::unique_ptr<Ui::frmMasOptionalAdmissionNoChange> ui_;
    DivisionChoice* choice_ = nullptr;
    CellEditors* boxes_ = nullptr;
    OptionalNumbers numbers_;
};

} // namespace tally
