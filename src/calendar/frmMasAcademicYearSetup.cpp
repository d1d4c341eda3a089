#include "calendar/frmMasAcademicYearSetup.h"

#include "calendar/AcademicYearRepository.h"
#include "calendar/ApplicationDateRepository.h"
#include "core/modTallyboard.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "ui_frmMasAcademicYearSetup.h"

#include <tuple>

namespace tally {

namespace {

constexpr int HelpScreenNo = 13;
const QString CodeHead = QStringLiteral("AcademicYearCode");

AcademicYearRepository Years()
{
    return AcademicYearRepository(MainStore());
}

ApplicationDateRepository Days()
{
    return ApplicationDateRepository(MainStore());
}

} // namespace

frmMasAcademicYearSetup::frmMasAcademicYearSetup()
    : MasterScreen(QStringLiteral("frmMasAcademicYearSetup"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasAcademicYearSetup>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    TakeOnly(ui_->txtAcademicYearFrom, &KeyNumeric, 4);

    ui_->cbostatus->setCurrentIndex(-1);
    SetMasterControls({nullptr, ui_->cmdNew, ui_->cmdEdit, ui_->cmdDelete, ui_->cmdSave});
    frmMasAcademicYearSetup::RefillLists();

    connect(ui_->cmdNew, &QPushButton::clicked, this, &frmMasAcademicYearSetup::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &frmMasAcademicYearSetup::cmdEdit_Click);
    connect(ui_->cmdDelete, &QPushButton::clicked, this, &frmMasAcademicYearSetup::cmdDelete_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmMasAcademicYearSetup::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmMasAcademicYearSetup::cmdCancel_Click);
    connect(ui_->cmdOpenSchoolSetup, &QPushButton::clicked, this,
            &frmMasAcademicYearSetup::cmdOpenSchoolSetup_Click);
    connect(ui_->txtAcademicYearFrom, &QLineEdit::textChanged, this,
            &frmMasAcademicYearSetup::txtAcademicYearFrom_Change);
    connect(ui_->dgdDetails, &DataGrid::RowDoubleClicked, this,
            &frmMasAcademicYearSetup::dgdDetails_DblClick);
}

frmMasAcademicYearSetup::~frmMasAcademicYearSetup() = default;

void frmMasAcademicYearSetup::Form_Activate(bool first)
{
    Read([this] { ShowSchoolSetupOffer(); });
    // School Setup may have moved the beginning of the year that is being entered.
    if (ui_->Frame1->isEnabled())
        txtAcademicYearFrom_Change(ui_->txtAcademicYearFrom->text());
    // The other screens must not meet a year that is being changed, whether or not some are open already.
    if (first && TakeMenus(true))
        TakeScreen(QStringLiteral("AcademicYearSetup"));
}

bool frmMasAcademicYearSetup::Form_QueryUnload()
{
    return AYearIsActive();
}

void frmMasAcademicYearSetup::cmdExit_Click()
{
    if (!AYearIsActive() || !ConfirmExit(ExitCaption()))
        return;
    Unload();
    if (IsUnloaded() && !Session().gblnApplicationDateExists)
        ShowForm(QStringLiteral("frmUtilApplicationDateSetup"));
}

void frmMasAcademicYearSetup::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    ShowState(MasterState::New);
    ui_->txtAcademicYearFrom->setFocus();
}

void frmMasAcademicYearSetup::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    ShowState(MasterState::Editing);
    ui_->cbostatus->setFocus();
}

void frmMasAcademicYearSetup::cmdDelete_Click()
{
    // Who may change a year may also take it back: there is no right of its own for that.
    if (!MayUse(Right::Edit) || !Prompts::Ask(QStringLiteral("Do You Want To Delete This Entry ?")))
        return;
    const auto hasLater = Fetch([this] { return Years().HasLaterThan(code_); });
    if (!hasLater)
        return;
    if (*hasLater) {
        Prompts::Information(
            QStringLiteral("You Cannot Delete This Academic Year. You Can Delete Last Academic Year"));
        return;
    }
    const bool deleted = WriteRow(
        Conflict::DataIsInUse,
        [this](store::Transaction& transaction) {
            ApplicationDateRepository::DeleteBetween(transaction, ui_->dtpFromDate->date(),
                                                     ui_->dtpToDate->date());
            AcademicYearRepository::Delete(transaction, code_);
        },
        OnRefusal::Stay);
    if (!deleted)
        return;
    if (code_ == Session().gintAcademicYearCode)
        ForgetYearInUse();
    AfterCommit([this] {
        Prompts::Information(QStringLiteral("Record Deleted"));
        cmdCancel_Click();
    });
}

void frmMasAcademicYearSetup::cmdSave_Click()
{
    if (!IsComplete() || !FitsAmongYears())
        return;
    SessionContext& session = Session();
    const QDate dateBefore = session.gdtmApplicationDate;
    AcademicYear year = Entered();
    const bool stored = WriteRow(
        Conflict::MasterIsGone,
        [&](store::Transaction& transaction) {
            if (IsEditing()) {
                AcademicYearRepository::UpdateStatus(transaction, year.code, EnteredActive());
            } else {
                year.code = GetNextCode(transaction, QStringLiteral("ACADEMICYEARCODE"),
                                        QStringLiteral("ACADEMICYEARSETUP"), 0);
                StoreNew(transaction, year);
            }
        },
        OnRefusal::Refill);
    if (!stored) {
        session.gdtmApplicationDate = dateBefore;
        return;
    }
    AfterCommit([&] {
        Read([&] {
            if (Years().Count() == 1)
                TakeFirstYear(year);
        });
        Prompts::Information(IsEditing() ? QStringLiteral("Academic Year Updated")
                                         : QStringLiteral("Academic Year Saved"));
        cmdCancel_Click();
    });
}

void frmMasAcademicYearSetup::cmdCancel_Click()
{
    TellOnce([this] {
        ClearControls(this);
        ShowState(MasterState::Idle);
        code_ = 0;
        ui_->lblAcademicYearTo->clear();
        Read([this] {
            LoadGrid();
            ShowSchoolSetupOffer();
        });
    });
    ui_->cmdNew->setFocus();
}

void frmMasAcademicYearSetup::cmdOpenSchoolSetup_Click()
{
    ShowForm(QStringLiteral("frmMasSchoolSetup"));
}

void frmMasAcademicYearSetup::txtAcademicYearFrom_Change(const QString& text)
{
    const auto startMonth = Fetch([] { return Years().StartMonth(); }).value_or(std::nullopt);
    const auto dates = startMonth ? DatesOfYear(text, *startMonth) : std::nullopt;
    if (!dates)
        return;
    ui_->lblAcademicYearTo->setText(QString::number(dates->yearTo));
    ui_->dtpFromDate->setDate(dates->fromDate);
    ui_->dtpToDate->setDate(dates->toDate);
}

void frmMasAcademicYearSetup::RefillLists()
{
    Read([this] { LoadGrid(); });
}

void frmMasAcademicYearSetup::dgdDetails_DblClick(int row)
{
    const DataGrid* grid = ui_->dgdDetails;
    const int code = grid->Code(row, CodeHead);
    if (code <= 0 || !Prompts::Ask(QStringLiteral("Do You Want To Edit/Delete ?")))
        return;
    code_ = code;
    // The year's own dates stand, whatever the school's start month is today.
    ui_->txtAcademicYearFrom->setText(grid->Text(row, QStringLiteral("Academic Year From")));
    ui_->lblAcademicYearTo->setText(grid->Text(row, QStringLiteral("Academic Year To")));
    ui_->dtpFromDate->setDate(DateShown(grid->Text(row, QStringLiteral("From Date"))));
    ui_->dtpToDate->setDate(DateShown(grid->Text(row, QStringLiteral("To Date"))));
    ui_->cbostatus->setCurrentText(grid->Text(row, QStringLiteral("Status")));
    ShowState(MasterState::RowSelected);
}

void frmMasAcademicYearSetup::LoadGrid()
{
    ui_->dgdDetails->Bind(Years().List(), {CodeHead});
}

void frmMasAcademicYearSetup::ShowState(MasterState state)
{
    MasterScreen::ShowState(state);
    // A stored year keeps its dates; only its status can be edited.
    ui_->Frame1->setEnabled(state == MasterState::New);
    ui_->Frame3->setEnabled(state == MasterState::New || state == MasterState::Editing);
}

void frmMasAcademicYearSetup::ShowSchoolSetupOffer()
{
    ui_->fraSchoolSetupOpen->setVisible(Years().Count() == 0);
}

bool frmMasAcademicYearSetup::IsComplete()
{
    const AcademicYear year = Entered();
    if (!RequireText(QStringLiteral("Enter 'Academic Year From' "), ui_->txtAcademicYearFrom))
        return false;
    if (ui_->cbostatus->currentText().trimmed().isEmpty())
        return Refuse(QStringLiteral("Select Status"), ui_->cbostatus);
    if (!IsWithinRecords(year.yearFrom, year.yearTo)) {
        Prompts::Information(QStringLiteral("Academic Year Should Be Within 1980 To 2099"));
        ui_->txtAcademicYearFrom->clear();
        ui_->lblAcademicYearTo->clear();
        ui_->txtAcademicYearFrom->setFocus();
        return false;
    }
    return true;
}

bool frmMasAcademicYearSetup::FitsAmongYears()
{
    const AcademicYear year = Entered();
    const auto others = Fetch([&] {
        return std::tuple(Years().YearFromExists(year.yearFrom, code_), Years().Series(),
                          EnteredActive() && Years().OtherIsActive(code_));
    });
    if (!others)
        return false;
    const auto& [exists, series, otherIsActive] = *others;
    if (exists)
        return Refuse(QStringLiteral("'Academic Year From' Already Exists"), ui_->txtAcademicYearFrom);
    if (!IsEditing()) {
        switch (PlaceOf(year.yearFrom, series)) {
        case PlaceInSeries::Allowed: break;
        case PlaceInSeries::BeforeFirst:
            return Refuse(QStringLiteral("You Cannot Enter Academic Year Lesser Than Existing Academic Year"),
                          ui_->txtAcademicYearFrom);
        case PlaceInSeries::LeavesAGap:
            return Refuse(QStringLiteral("You Can Enter Only Next Academic Year %1 - %2")
                              .arg(series->last + 1)
                              .arg(series->last + 1 + year.yearTo - year.yearFrom),
                          ui_->txtAcademicYearFrom);
        }
    }
    if (otherIsActive)
        return Refuse(QStringLiteral("Already One Academic Year Has An Active Status"), ui_->cbostatus);
    return true;
}

void frmMasAcademicYearSetup::StoreNew(store::Transaction& transaction, const AcademicYear& year)
{
    AcademicYearRepository::Insert(transaction, year, EnteredActive(), Session().gintUserCode);
    if (Days().Count(year.fromDate, year.toDate) == 0)
        ApplicationDateRepository::Insert(transaction, year.fromDate, Session().gintUserCode);
    const QDate lastDay = Days().Last(year.fromDate, year.toDate);
    if (EnteredActive() && lastDay.isValid())
        Session().gdtmApplicationDate = lastDay;
}

void frmMasAcademicYearSetup::TakeFirstYear(const AcademicYear& year)
{
    SessionContext& session = Session();
    LoadActiveAcademicYear();
    LoadApplicationDate(session.gintAcademicYearCode);
    session.gintYearFrom = year.yearFrom;
    session.gintYearTo = year.yearTo;
    session.gintAcademicYearCode = year.code;
    session.gdtmToDate = year.toDate;
    mdiTallyboard::Instance()->ShowYearAndDate();
    // A new year has its first day by now; the only one left may have lost its days.
    if (!IsEditing())
        session.gblnApplicationDateExists = true;
}

void frmMasAcademicYearSetup::ForgetYearInUse()
{
    SessionContext& session = Session();
    session.gintAcademicYearCode = 0;
    session.gintYearFrom = 0;
    session.gintYearTo = 0;
    session.gdtmFromDate = QDate();
    session.gdtmToDate = QDate();
    session.gdtmApplicationDate = QDate();
    session.gblnActiveYearExists = false;
    session.gblnApplicationDateExists = false;
    mdiTallyboard::Instance()->ShowYearAndDate();
}

bool frmMasAcademicYearSetup::AYearIsActive()
{
    bool active = false;
    const bool read = Read([&] {
        active = Years().HasActive();
        // The year may have become active only after it was saved; the session works in it from now on.
        if (active && !Session().gblnActiveYearExists) {
            LoadActiveAcademicYear();
            LoadApplicationDate(Session().gintAcademicYearCode);
            mdiTallyboard::Instance()->ShowYearAndDate();
        }
    });
    if (!read)
        return false;
    if (!active)
        Prompts::Information(QStringLiteral("Atleast One Academic Year Should Have Active Status"));
    return active;
}

AcademicYear frmMasAcademicYearSetup::Entered() const
{
    return {code_, ui_->txtAcademicYearFrom->text().toInt(), ui_->lblAcademicYearTo->text().toInt(),
            ui_->dtpFromDate->date(), ui_->dtpToDate->date()};
}

bool frmMasAcademicYearSetup::EnteredActive() const
{
    return ui_->cbostatus->currentText() == QLatin1String("YES");
}

} // namespace tally
