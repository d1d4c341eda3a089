#include "masters/frmTeacherSearch.h"

#include "core/SessionContext.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "masters/frmTeacherMaster.h"
#include "masters/TeacherRepository.h"
#include "ui_frmTeacherSearch.h"

namespace tally {

namespace {

/// That of the form to which the row is handed.
constexpr int HelpScreenNo = 9;

const QString CodeHead = QStringLiteral("TeacherCode");

} // namespace

frmTeacherSearch::frmTeacherSearch()
    : SearchScreen(QStringLiteral("frmTeacherSearch"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmTeacherSearch>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetSearchControls(ui_->cmdSearch, ui_->cmdExit, ui_->dgdDetails, ui_->txtTeacherName);
    TakeOnly(ui_->txtTeacherName, &KeyAlphaNumeric, 100);
    TakeOnly(ui_->txtCity, &KeyAlphaNumeric, 30);
    connect(ui_->cmdSearch, &QPushButton::clicked, this, &frmTeacherSearch::cmdSearch_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmTeacherSearch::cmdCancel_Click);
    connect(ui_->dgdDetails, &DataGrid::RowDoubleClicked, this, &frmTeacherSearch::dgdDetails_DblClick);
}

frmTeacherSearch::~frmTeacherSearch() = default;

void frmTeacherSearch::cmdSearch_Click()
{
    const QString name = ui_->txtTeacherName->text().trimmed();
    const QString city = ui_->txtCity->text().trimmed();
    if (WantsSearch(!name.isEmpty() || !city.isEmpty(),
                    QStringLiteral("Do You Want To View All Teacher Details ?")))
        ShowFound([&] { return TeacherRepository(MainStore()).Search(name, city); }, {CodeHead});
}

void frmTeacherSearch::dgdDetails_DblClick(int row)
{
    const int code = ui_->dgdDetails->Code(row, CodeHead);
    if (code > 0 && Prompts::Ask(QStringLiteral("Do You Want To Edit/Delete ?")))
        HandOver<frmTeacherMaster>(QStringLiteral("frmTeacherMaster"),
                                   [code](frmTeacherMaster& master) { return master.LoadData(code); });
}

} // namespace tally
