// The boxes that float over the two grids: where each of them leads and what it accepts.

#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "masters/ClassSectionColumns.h"
#include "masters/frmMasClassSectionEntry.h"
#include "ui_frmMasClassSectionEntry.h"

#include <QKeyEvent>

#include <algorithm>

namespace tally {

void frmMasClassSectionEntry::msgClassDetails_Click(int row, int col)
{
    HideControls();
    LoadOldDetails();
    switch (col) {
    case ClassNameCol: return OpenClass(ClassField::ClassName, row);
    case NoOfDivisionsCol: return OpenClass(ClassField::NoOfDivisions, row);
    case ClassOrderCol: return OpenClass(ClassField::ClassOrder, row);
    default: return;
    }
}

void frmMasClassSectionEntry::msgDivisionDetails_Click(int row)
{
    if (row > 0)
        MoveControls(txtDivisionName_, row, DivisionNameCol);
}

void frmMasClassSectionEntry::txtClassName_Change(const QString& text)
{
    if (text.trimmed().isEmpty())
        return;
    classes_.Row(txtClassName_->Row()).className = text.trimmed();
    ShowClasses();
}

void frmMasClassSectionEntry::txtClassName_Enter()
{
    if (!txtClassName_->text().isEmpty() && txtClassName_Validate())
        OpenClass(ClassField::NoOfDivisions, txtClassName_->Row());
}

bool frmMasClassSectionEntry::txtClassName_Validate()
{
    const int row = txtClassName_->Row();
    const QString name = txtClassName_->text().trimmed();
    if (!classes_.ClassNameTaken(row, name))
        return true;
    Prompts::Information(QStringLiteral("Class Name Already Exists"));
    classes_.Row(row).className = name;
    ShowClasses();
    SelectAllText(txtClassName_);
    return false;
}

void frmMasClassSectionEntry::txtNoOfDivisions_Change(const QString& text)
{
    classes_.SetNoOfDivisions(txtNoOfDivisions_->Row(), text);
    ShowClasses();
    LoadOldDetails();
}

void frmMasClassSectionEntry::txtNoOfDivisions_Enter()
{
    const int row = txtNoOfDivisions_->Row();
    ClassRow& entry = classes_.Row(row);
    if (entry.Divisions() == 0)
        return;
    txtNoOfDivisions_Validate();
    if (entry.Order() == 0)
        entry.classOrder = QString::number(classes_.NextClassOrder());
    ShowClasses();
    OpenClass(ClassField::ClassOrder, row);
}

bool frmMasClassSectionEntry::txtNoOfDivisions_Validate()
{
    ClassRow& entry = classes_.Row(txtNoOfDivisions_->Row());
    entry.oldNoOfDivisions = entry.Divisions();
    ShowClasses();
    return true;
}

void frmMasClassSectionEntry::txtClassOrder_Change(const QString& text)
{
    classes_.Row(txtClassOrder_->Row()).classOrder = text;
    ShowClasses();
}

void frmMasClassSectionEntry::txtClassOrder_Enter()
{
    txtClassOrder_Validate();
    const int row = txtClassOrder_->Row();
    if (row == classes_.RowCount()) {
        if (classes_.IsFull()) {
            Prompts::Information(QStringLiteral("You Cannot Create More Than 99 Classes"));
            return;
        }
        classes_.AddRow();
        ShowClasses();
        txtDeleteSlNo_Change();
    }
    OpenClass(ClassField::ClassName, row + 1);
}

bool frmMasClassSectionEntry::txtClassOrder_Validate()
{
    classes_.ShiftClassOrders(txtClassOrder_->Row());
    ShowClasses();
    return true;
}

void frmMasClassSectionEntry::txtDivisionName_Change(const QString& text)
{
    const int row = txtDivisionName_->Row();
    const int classCode = ui_->msgDivisionDetails->TextMatrix(row, DivisionClassCol).toInt();
    const QString name = text.trimmed();
    if (classes_.DivisionNameTaken(classCode, row, name, false)) {
        Prompts::Information(QStringLiteral("Division Name Already Exists"));
        SelectAllText(txtDivisionName_);
        txtDivisionName_->setFocus();
    }
    ui_->msgDivisionDetails->SetTextMatrix(row, DivisionNameCol, name);
    classes_.NameDivision(classCode, row, name);
}

void frmMasClassSectionEntry::txtDivisionName_Enter()
{
    const int last = ui_->msgDivisionDetails->Rows() - 1;
    MoveControls(txtDivisionName_, std::min(txtDivisionName_->Row() + 1, last), DivisionNameCol);
}

bool frmMasClassSectionEntry::txtDivisionName_Validate()
{
    const int row = txtDivisionName_->Row();
    const int classCode = ui_->msgDivisionDetails->TextMatrix(row, DivisionClassCol).toInt();
    if (!classes_.DivisionNameTaken(classCode, row, txtDivisionName_->text().trimmed(), true))
        return true;
    Prompts::Information(QStringLiteral("Division Name Already Exists"));
    SelectAllText(txtDivisionName_);
    return false;
}

void frmMasClassSectionEntry::MoveControls(FloatingEditor* box, int row, int col)
{
    HideControls();
    opened_ = classes_;
    box->OpenAt(row, col);
}

void frmMasClassSectionEntry::TakeBack()
{
    classes_ = opened_;
    ShowClasses();
    LoadOldDetails();
}

void frmMasClassSectionEntry::HideControls()
{
    for (FloatingEditor* box : {txtClassName_, txtNoOfDivisions_, txtDivisionName_, txtClassOrder_})
        box->Close();
}

void frmMasClassSectionEntry::OpenClass(ClassField field, int row)
{
    if (row < 1 || row > classes_.RowCount())
        return;
    switch (field) {
    case ClassField::ClassName: return MoveControls(txtClassName_, row, ClassNameCol);
    case ClassField::NoOfDivisions: return MoveControls(txtNoOfDivisions_, row, NoOfDivisionsCol);
    case ClassField::ClassOrder: return MoveControls(txtClassOrder_, row, ClassOrderCol);
    }
}

bool frmMasClassSectionEntry::IsRefused() const
{
    return txtClassName_->KeepsFocus() || txtDivisionName_->KeepsFocus();
}

bool frmMasClassSectionEntry::eventFilter(QObject* receiver, QEvent* event)
{
    // A class gets its name before its numbers.
    auto* box = qobject_cast<FloatingEditor*>(receiver);
    if (!box || event->type() != QEvent::KeyPress || classes_.Row(box->Row()).IsNamed())
        return Screen::eventFilter(receiver, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->text().isEmpty() || key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab ||
        key->key() == Qt::Key_Escape)
        return false;
    Prompts::Information(QStringLiteral("Enter Class Name"));
    OpenClass(ClassField::ClassName, box->Row());
    return true;
}

} // namespace tally
