#include "core/ui/SelectAllBox.h"

#include "core/ui/controls/CheckList.h"
#include "core/ui/Prompts.h"

#include <QCheckBox>

namespace tally {

SelectAllBox::SelectAllBox(QCheckBox* box, CheckList* list) : QObject(list), box_(box), list_(list)
{
    connect(box, &QCheckBox::clicked, this, &SelectAllBox::TickAll);
    connect(list, &CheckList::Ticked, this, &SelectAllBox::Tick);
}

void SelectAllBox::SetItems(const std::vector<ListItem>& items)
{
    list_->clear();
    for (const ListItem& item : items)
        list_->AddItem(item);
    box_->setChecked(false);
}

void SelectAllBox::TickAll(bool ticked)
{
    list_->SetAllTicked(ticked);
    for (int index = 0; index < list_->count(); ++index) {
        if (!passedOver_.isNull() && list_->item(index)->text().startsWith(passedOver_))
            list_->SetTicked(index, false);
    }
    if (list_->TickedIndexes().isEmpty())
        box_->setChecked(false);
    Q_EMIT Changed();
}

void SelectAllBox::Tick(int index, bool ticked)
{
    const QString refusal = ticked ? list_->Refusal(index) : QString();
    if (!refusal.isEmpty()) {
        Prompts::Information(refusal);
        list_->SetTicked(index, false);
        return;
    }
    if (!ticked)
        box_->setChecked(false);
    Q_EMIT Changed();
}

} // namespace tally
