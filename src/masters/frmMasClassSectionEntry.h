#pragma once

#include "core/ui/Screen.h"
#include "masters/ClassSectionGrid.h"
#include "masters/ClassSectionRepository.h"

#include <memory>

namespace Ui {
class frmMasClassSectionEntry;
}

namespace tally {

class CellEditors;
class RowDelete;

/// "Class Section Entry": all classes of the school with their divisions, edited in two grids and saved
/// together.
class frmMasClassSectionEntry : public Screen
{
    Q_OBJECT

public:
    frmMasClassSectionEntry();
    ~frmMasClassSectionEntry() override;

    QSize sizeHint() const override;

protected:
    void cmdExit_Click() override;
    /// A grid full of unsaved classes is not lost to a slip on the close box.
    bool CloseBoxExits() const override { return false; }
    void resizeEvent(QResizeEvent* event) override;

private:
    void Form_Load();
    void BuildGrids();
    void BuildEditors();
    void ConnectHandlers();

    void cmdClose_Click();
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdSave_Click();
    void cmdCancel_Click();
    void DeleteRow(int row);
    void msgClassDetails_Click(int row, int col);
    void msgDivisionDetails_Click(int row);
    /// A class gets its name before its numbers: asks for it where it has none.
    bool IsNamed(int row);
    void txtClassName_Change(int row, const QString& text);
    void txtClassName_Enter(int row, const QString& text);
    QString txtClassName_Validate(int row, const QString& text);
    void txtNoOfDivisions_Change(int row, const QString& text);
    void txtNoOfDivisions_Enter(int row, const QString& text);
    QString txtNoOfDivisions_Validate(int row, const QString& text);
    void txtClassOrder_Change(int row, const QString& text);
    void txtClassOrder_Enter(int row, const QString& text);
    QString txtClassOrder_Validate(int row, const QString& text);
    void txtDivisionName_Change(int row, const QString& text);
    QString txtDivisionName_Validate(int row, const QString& text);

    /// LoadData; where it fails the user is told, and only Cancel is left, which tries again.
    void ReadClasses();
    void LoadData();
    void LoadOldDetails();
    void ReArrangeClassOrder();

    void ShowClasses();
    void SetEntering(bool entering);
    std::unique_ptr<Ui::frmMasClassSectionEntry> ui_;
    CellEditors* boxes_ = nullptr;
    RowDelete* deleteRow_ = nullptr;
    ClassSectionGrid classes_;
    ClassSections loaded_; ///< what the grid was filled with
    bool editing_ = false;
};

} // namespace tally
