#include "core/ui/SearchScreen.h"

#include "core/ui/controls/DataGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/ScreenRegistry.h"

#include <QAbstractButton>

namespace tally {

SearchScreen::SearchScreen(const QString& formName, int helpScreenNo) : Screen(formName, helpScreenNo) {}

void SearchScreen::SetSearchControls(QAbstractButton* search, QAbstractButton* exit, DataGrid* found,
                                     QWidget* firstFilter)
{
    search_ = search;
    exit_ = exit;
    found_ = found;
    firstFilter_ = firstFilter;
    SetExitButton(exit);
}

bool SearchScreen::WantsSearch(bool filtered, const QString& viewAll)
{
    return filtered || Prompts::Ask(viewAll);
}

void SearchScreen::ShowFound(const std::function<GridResult()>& search, const QStringList& hidden)
{
    GridResult result;
    if (!Read([&] { result = search(); }))
        return;
    if (result.rows.empty()) {
        Prompts::Information(QStringLiteral("No Record Exists"));
        found_->Bind({}, {});
        return;
    }
    found_->Bind(std::move(result), hidden);
}

void SearchScreen::cmdCancel_Click()
{
    ClearControls(this);
    found_->Bind({}, {});
    firstFilter_->setFocus();
}

void SearchScreen::HandOverTo(const QString& formName, const std::function<bool(Screen*)>& load)
{
    // In front first: the focus that the form takes would not hold in a window at the back.
    ShowForm(formName);
    if (load(ScreenRegistry::OpenInstance(formName)))
        Unload();
    else
        ShowForm(objectName());
}

QSize SearchScreen::sizeHint() const
{
    // As much of a long list as most displays can show; a smaller one bounds it.
    return {980, 760};
}

bool SearchScreen::Form_QueryUnload()
{
    return search_->isEnabled() && exit_->isEnabled();
}

} // namespace tally
