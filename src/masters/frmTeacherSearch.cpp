#include "masters/frmTeacherSearch.h"

#include "core/SessionContext.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/ScreenRegistry.h"
#include "core/ui/TakeOnly.h"
#include "masters/frmTeacherMaster.h"
#include "masters/TeacherRepository.h"
#include "ui_frmTeacherSearch.h"

namespace tally {

namespace {

constexpr int NoHelp = 0;
const QString CodeHead = QStringLiteral("TeacherCode");
const QString MasterName = QStringLiteral("frmTeacherMaster");

} // namespace

frmTeacherSearch::frmTeacherSearch()
    : Screen(QStringLiteral("frmTeacherSearch"), NoHelp), ui_(std::make_unique<Ui::frmTeacherSearch>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    TakeOnly(ui_->txtTeacherName, &KeyAlphaNumeric, 100);
    TakeOnly(ui_->txtCity, &KeyAlphaNumeric, 30);
    connect(ui_->cmdSearch, &QPushButton::clicked, this, &frmTeacherSearch::cmdSearch_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmTeacherSearch::cmdCancel_Click);
    connect(ui_->dgdDetails, &DataGrid::RowDoubleClicked, this, &frmTeacherSearch::dgdDetails_DblClick);
    ui_->txtTeacherName->setFocus();
}

frmTeacherSearch::~frmTeacherSearch() = default;

void frmTeacherSearch::cmdSearch_Click()
{
    const QString name = ui_->txtTeacherName->text().trimmed();
    const QString city = ui_->txtCity->text().trimmed();
    if (name.isEmpty() && city.isEmpty() &&
        !Prompts::Ask(QStringLiteral("Do You Want To View All Teacher Details ?")))
        return;
    FormQuery(name, city);
}

void frmTeacherSearch::FormQuery(const QString& name, const QString& city)
{
    GridResult found;
    if (!Read([&] { found = TeacherRepository(MainStore()).Search(name, city); }))
        return;
    if (found.rows.empty()) {
        Prompts::Information(QStringLiteral("No Record Exists"));
        EmptyGrid();
        return;
    }
    ui_->dgdDetails->Bind(std::move(found), {CodeHead});
}

void frmTeacherSearch::dgdDetails_DblClick(int row)
{
    const int code = ui_->dgdDetails->Code(row, CodeHead);
    if (code <= 0 || !Prompts::Ask(QStringLiteral("Do You Want To Edit/Delete ?")))
        return;
    // In front first: the focus that the master takes would not hold in a window at the back.
    ShowForm(MasterName);
    auto* master = qobject_cast<frmTeacherMaster*>(ScreenRegistry::OpenInstance(MasterName));
    if (master && master->LoadData(code))
        Unload();
    else
        ShowForm(objectName());
}

void frmTeacherSearch::cmdCancel_Click()
{
    ClearControls(this);
    EmptyGrid();
    ui_->txtTeacherName->setFocus();
}

void frmTeacherSearch::EmptyGrid()
{
    ui_->dgdDetails->Bind({}, {});
}

QSize frmTeacherSearch::sizeHint() const
{
    // As much of a long list as most displays can show; a smaller one bounds it.
    return {980, 760};
}

bool frmTeacherSearch::Form_QueryUnload()
{
    return ui_->cmdSearch->isEnabled() && ui_->cmdExit->isEnabled();
}

} // namespace tally
