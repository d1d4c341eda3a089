#include "reports/DivisionTicks.h"

#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/Screen.h"
#include "core/ui/SelectAllBox.h"

namespace tally {

DivisionTicks::DivisionTicks(Screen* screen, Controls controls, std::function<void()> changed)
    : QObject(screen), screen_(screen), controls_(controls),
      ticks_(new SelectAllBox(controls.chkSelectAll, controls.Lstdivision)), changed_(std::move(changed))
{
    connect(controls_.cboClass, &DataCombo::Chosen, this, [this] {
        LoadDivisions();
        changed_();
    });
    connect(ticks_, &SelectAllBox::Changed, this, [this] { changed_(); });
}

void DivisionTicks::Load()
{
    controls_.cboClass->SetListBehindBlank({});
    ticks_->Clear();
    screen_->Read(
        [this] { controls_.cboClass->SetListBehindBlank(SchoolListRepository(MainStore()).Classes()); });
}

void DivisionTicks::LoadDivisions()
{
    ticks_->Clear();
    const bool isRead = screen_->Read([this] {
        std::vector<ListItem> items;
        for (const auto& [code, name] :
             SchoolListRepository(MainStore()).DivisionsByName(controls_.cboClass->BoundCode()))
            items.push_back({code, name, {}});
        ticks_->SetItems(items);
    });
    // A class over no divisions could not be chosen again.
    if (!isRead)
        controls_.cboClass->SetBoundCode(0);
}

QString DivisionTicks::Names() const
{
    QStringList names;
    for (const int index : controls_.Lstdivision->TickedIndexes())
        names.append(controls_.Lstdivision->item(index)->text());
    return names.join(QLatin1Char(','));
}

} // namespace tally
