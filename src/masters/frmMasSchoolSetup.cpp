#include "masters/frmMasSchoolSetup.h"

#include "core/modTallyboard.h"
#include "core/ProcessEnd.h"
#include "core/SessionContext.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/PlaceChoice.h"
#include "core/ui/Prompts.h"
#include "core/ui/SideButton.h"
#include "core/ui/TakeOnly.h"
#include "ui_frmMasSchoolSetup.h"

#include <QLocale>

namespace tally {

namespace {

constexpr int HelpScreenNo = 3;
constexpr int NameWidth = 100;
constexpr int AddressWidth = 100;
constexpr int PinCodeWidth = 10;

} // namespace

frmMasSchoolSetup::frmMasSchoolSetup()
    : MasterScreen(QStringLiteral("frmMasSchoolSetup"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasSchoolSetup>())
{
    ui_->setupUi(this);
    DressButtons(this);
    TakeOnly(ui_->txtSchoolName, KeyAllButQuote, NameWidth);
    TakeOnly(ui_->txtAddress1, KeyAllButQuote, AddressWidth);
    TakeOnly(ui_->txtAddress2, KeyAllButQuote, AddressWidth);
    TakeOnly(ui_->txtPincode, KeyAllButQuote, PinCodeWidth);
    SetExitButton(ui_->cmdExit);
    SetMasterControls({ui_->fraMain, ui_->cmdNew, ui_->cmdEdit, nullptr, ui_->cmdSave});
    places_ = new PlaceChoice(this, ui_->dbcStateName, ui_->dbcCity);
    const auto refill = [this] { RefillLists(); };
    new SideButton(this, ui_->cmdAddStateName, ui_->dbcStateName, QStringLiteral("frmMasStateMaster"),
                   refill);
    new SideButton(this, ui_->cmdAddCity, ui_->dbcCity, QStringLiteral("frmMasCityMaster"), refill);

    connect(ui_->cmdNew, &QPushButton::clicked, this, &frmMasSchoolSetup::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &frmMasSchoolSetup::cmdEdit_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmMasSchoolSetup::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmMasSchoolSetup::cmdCancel_Click);

    Read([this] { LoadData(); });
}

frmMasSchoolSetup::~frmMasSchoolSetup() = default;

void frmMasSchoolSetup::Form_Activate(bool first)
{
    if (first)
        TakeMenus(true);
}

void frmMasSchoolSetup::LoadData()
{
    // There is one school: either it is new, or it can be edited. Until it is read neither is offered.
    ShowState(MasterState::Idle);
    ui_->cmdNew->setEnabled(false);
    const store::ReadTransaction moment(MainStore());
    LoadAcademicYearStartMonth();
    const auto school = Repository().Load();
    const School shown = school.value_or(School());
    places_->Choose(shown.stateCode, shown.cityCode);
    ui_->cmdNew->setEnabled(!school);
    ui_->cmdEdit->setEnabled(school.has_value());
    ui_->txtSchoolName->setText(shown.name);
    ui_->txtAddress1->setText(shown.address1);
    ui_->txtAddress2->setText(shown.address2);
    ui_->txtPincode->setText(shown.pinCode);
    ui_->cboAcademicYearCodeStartMonth->SetText(shown.startMonth);
}

void frmMasSchoolSetup::LoadAcademicYearStartMonth()
{
    ui_->cboAcademicYearCodeStartMonth->SetListBehindBlank(Repository().Months());
}

void frmMasSchoolSetup::RefillLists()
{
    Read([this] { places_->Refill(); });
}

void frmMasSchoolSetup::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    ShowState(MasterState::New);
    ui_->txtSchoolName->setFocus();
}

void frmMasSchoolSetup::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    ShowState(MasterState::Editing);
    ui_->txtSchoolName->setFocus();
}

void frmMasSchoolSetup::cmdSave_Click()
{
    if (!IsComplete() || !StartMonthFits())
        return;
    SaveRow(
        [this](store::Transaction& transaction) {
            Repository().Replace(transaction, Entered(), Session().gintUserCode);
            Repository().GenerateMonthCode(transaction, ui_->cboAcademicYearCodeStartMonth->BoundCode());
        },
        OnRefusal::Refill,
        // Only then, so that the first academic year is asked for when the school is done with.
        [this] { Read([] { LoadSchoolDetails(); }); });
}

void frmMasSchoolSetup::cmdCancel_Click()
{
    ClearControls(this);
    if (!Read([this] { LoadData(); }))
        ui_->cmdCancel->setFocus();
    else
        (ui_->cmdNew->isEnabled() ? ui_->cmdNew : ui_->cmdEdit)->setFocus();
}

void frmMasSchoolSetup::cmdExit_Click()
{
    const auto exists = Fetch([this] {
        const bool stored = Repository().Exists();
        // Another client may have entered it, and the way on is open here too.
        if (stored && !Session().gblnSchoolExists)
            LoadSchoolDetails();
        return stored;
    });
    if (!exists)
        return;
    if (*exists) {
        Screen::cmdExit_Click();
        return;
    }
    Prompts::Information(QStringLiteral("Without Entering School Setup, You Cannot Proceed Further"));
    if (Prompts::Ask(QStringLiteral("Do You Want To Quit Tally Board ?")))
        EndProcess();
}

bool frmMasSchoolSetup::IsComplete()
{
    if (!RequireText(QStringLiteral("Enter School Name"), ui_->txtSchoolName) ||
        !RequireText(QStringLiteral("Enter Address"), ui_->txtAddress1))
        return false;
    if (ui_->dbcStateName->IsBlank())
        return Refuse(QStringLiteral("Select State"), ui_->dbcStateName);
    if (ui_->dbcCity->IsBlank())
        return Refuse(QStringLiteral("Select City"), ui_->dbcCity);
    if (!RequireText(QStringLiteral("Enter Pincode"), ui_->txtPincode))
        return false;
    if (ui_->cboAcademicYearCodeStartMonth->IsBlank())
        return Refuse(QStringLiteral("Select Academic Year Start Month"), ui_->cboAcademicYearCodeStartMonth);
    return true;
}

bool frmMasSchoolSetup::StartMonthFits()
{
    const auto from = Fetch([this]() -> std::optional<QDate> {
        if (!Repository().CheckAcademicYear())
            return {};
        return Repository().FirstAcademicYearFrom();
    });
    if (!from)
        return false;
    if (!*from)
        return true;
    const QString month = QLocale::c().toString(**from, QStringLiteral("MMM"));
    if (month.compare(ui_->cboAcademicYearCodeStartMonth->currentText(), Qt::CaseInsensitive) == 0)
        return true;
    return Refuse(QStringLiteral("Academic Year Setup Already Created. So You Cannot Change Academic Year "
                                 "Start Month"),
                  ui_->cboAcademicYearCodeStartMonth);
}

School frmMasSchoolSetup::Entered() const
{
    return {
        .name = ui_->txtSchoolName->text().trimmed(),
        .address1 = ui_->txtAddress1->text().trimmed(),
        .address2 = ui_->txtAddress2->text().trimmed(),
        .stateCode = ui_->dbcStateName->BoundCode(),
        .cityCode = ui_->dbcCity->BoundCode(),
        .pinCode = ui_->txtPincode->text().trimmed(),
        .startMonth = ui_->cboAcademicYearCodeStartMonth->currentText(),
    };
}

SchoolRepository frmMasSchoolSetup::Repository() const
{
    return SchoolRepository(MainStore());
}

} // namespace tally
