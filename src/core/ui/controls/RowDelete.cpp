#include "core/ui/controls/RowDelete.h"

#include "core/ui/controls/CellEditors.h"
#include "core/ui/FormKeys.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"

#include <QLineEdit>
#include <QPushButton>

namespace tally {

namespace {

constexpr int LongestSerialNo = 5;

} // namespace

RowDelete::RowDelete(QLineEdit* serialNo, QPushButton* button, CellEditors* boxes, Rules rules)
    : QObject(serialNo), serialNo_(serialNo), button_(button), boxes_(boxes), rules_(std::move(rules))
{
    TakeOnly(serialNo, &KeyNumeric, LongestSerialNo);
    connect(serialNo, &QLineEdit::textChanged, this, &RowDelete::Refresh);
    connect(button, &QPushButton::clicked, this, &RowDelete::Click);
    Refresh();
}

void RowDelete::Refresh()
{
    const int row = serialNo_->text().toInt();
    const bool mayDelete = row >= 1 && row <= rules_.lastRow();
    button_->setEnabled(mayDelete);
    // Enter leads to the button, and nowhere while there is nothing to delete.
    serialNo_->setProperty(TakesEnter, !mayDelete);
}

void RowDelete::Click()
{
    const int row = serialNo_->text().toInt();
    if (boxes_->KeepsFocus() || !Prompts::Ask(QStringLiteral("Do You Want To Delete S.No. %1 ?").arg(row)))
        return;
    boxes_->Close();
    rules_.takeOut(row);
    serialNo_->clear();
    serialNo_->setFocus();
}

} // namespace tally
