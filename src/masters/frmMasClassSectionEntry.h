#pragma once

#include "core/ui/Screen.h"
#include "masters/ClassSectionGrid.h"
#include "masters/ClassSectionRepository.h"

#include <memory>

class QLineEdit;

namespace Ui {
class frmMasClassSectionEntry;
}

namespace tally {

class FlexGrid;
class FloatingEditor;

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
    bool eventFilter(QObject* receiver, QEvent* event) override;

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
    void cmdDeleteRow_Click();
    void msgClassDetails_Click(int row, int col);
    void msgDivisionDetails_Click(int row);
    void txtClassName_Change(const QString& text);
    void txtClassName_Enter();
    bool txtClassName_Validate();
    void txtNoOfDivisions_Change(const QString& text);
    void txtNoOfDivisions_Enter();
    bool txtNoOfDivisions_Validate();
    void txtClassOrder_Change(const QString& text);
    void txtClassOrder_Enter();
    bool txtClassOrder_Validate();
    void txtDivisionName_Change(const QString& text);
    void txtDivisionName_Enter();
    bool txtDivisionName_Validate();
    void txtDeleteSlNo_Change();

    void MoveControls(FloatingEditor* box, int row, int col);
    void HideControls();
    /// Everything gets what it held before the box was opened.
    void TakeBack();
    /// LoadData; where it fails the user is told, and only Cancel is left, which tries again.
    void ReadClasses();
    void LoadData();
    void LoadOldDetails();
    void ReArrangeClassOrder();

    void OpenClass(ClassField field, int row);
    void ShowClasses();
    /// Whether a class is being entered: New or Edit was pressed.
    bool IsEntering() const;
    void SetEntering(bool entering);
    /// True while a box keeps the focus because its text was refused: no button may act then.
    bool IsRefused() const;

    std::unique_ptr<Ui::frmMasClassSectionEntry> ui_;
    FloatingEditor* txtClassName_ = nullptr;
    FloatingEditor* txtNoOfDivisions_ = nullptr;
    FloatingEditor* txtClassOrder_ = nullptr;
    FloatingEditor* txtDivisionName_ = nullptr;

    ClassSectionGrid classes_;
    ClassSectionGrid opened_; ///< all classes as they were when a box was opened over one
    bool editing_ = false;
};

} // namespace tally
