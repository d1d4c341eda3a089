#include "calendar/frmMasAcademicYearChange.h"

#include "calendar/AcademicYearRepository.h"
#include "core/modTallyboard.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "ui_frmMasAcademicYearChange.h"

namespace tally {

namespace {

constexpr int HelpScreenNo = 14;

AcademicYearRepository Years()
{
    return AcademicYearRepository(MainStore());
}

} // namespace

frmMasAcademicYearChange::frmMasAcademicYearChange()
    : Screen(QStringLiteral("frmMasAcademicYearChange"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasAcademicYearChange>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    TakeOnly(ui_->txtAcademicYearFrom, &KeyNumeric, 4);
    ui_->cmdSave->setEnabled(false);

    connect(ui_->txtAcademicYearFrom, &QLineEdit::textChanged, this,
            &frmMasAcademicYearChange::txtAcademicYearFrom_Change);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmMasAcademicYearChange::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmMasAcademicYearChange::cmdCancel_Click);
}

frmMasAcademicYearChange::~frmMasAcademicYearChange() = default;

void frmMasAcademicYearChange::Form_Activate(bool first)
{
    if (first)
        TakeMenus();
}

void frmMasAcademicYearChange::txtAcademicYearFrom_Change(const QString& text)
{
    ui_->cmdSave->setEnabled(true);
    const auto startMonth = Fetch([] { return Years().StartMonth(); }).value_or(std::nullopt);
    if (const auto dates = startMonth ? DatesOfYear(text, *startMonth) : std::nullopt)
        ui_->lblAcadamicYearTo->setText(QString::number(dates->yearTo));
}

void frmMasAcademicYearChange::cmdSave_Click()
{
    if (!MayUse(Right::Save))
        return;
    if (ui_->txtAcademicYearFrom->text().toInt() == 0) {
        Refuse(QStringLiteral("Enter Academic Year 'From'"), ui_->txtAcademicYearFrom);
        return;
    }
    const std::optional<StoredYear> found = FindYear();
    if (!found)
        return;
    if (found->processed) {
        Refuse(QStringLiteral("Already Processed For The Entered Academic Year.\n"
                              "You Cannot Work In This Academic Year\n"
                              "Contact Administrator"),
               ui_->txtAcademicYearFrom);
        return;
    }
    if (!Read([&] { WorkIn(*found); }))
        return;
    Prompts::Information(QStringLiteral("Academic Year Changed"));
    ui_->cmdSave->setEnabled(false);
}

void frmMasAcademicYearChange::cmdCancel_Click()
{
    ClearFields();
    ui_->cmdSave->setEnabled(false);
}

std::optional<StoredYear> frmMasAcademicYearChange::FindYear()
{
    const int yearFrom = ui_->txtAcademicYearFrom->text().toInt();
    const int yearTo = ui_->lblAcadamicYearTo->text().toInt();
    const auto stored =
        Fetch([&] { return std::pair(Years().StartMonth(), Years().Find(yearFrom, yearTo)); });
    if (!stored)
        return std::nullopt;
    const auto& [startMonth, found] = *stored;
    // The end shown belongs to the last complete year typed; the text may have been changed since.
    if (!startMonth || yearTo != YearToOf(yearFrom, *startMonth))
        return Refused(QStringLiteral("Enter Correct Academic Year"));
    return found ? found : Refused(QStringLiteral("No Academic Year Exists For The Value Entered"));
}

std::optional<StoredYear> frmMasAcademicYearChange::Refused(const QString& text)
{
    Prompts::Information(text);
    ClearFields();
    ui_->txtAcademicYearFrom->setFocus();
    return std::nullopt;
}

void frmMasAcademicYearChange::WorkIn(const StoredYear& found)
{
    SessionContext& session = Session();
    const AcademicYear& year = found.year;
    LoadApplicationDate(year.code);
    session.gintAcademicYearCode = year.code;
    session.gintYearFrom = year.yearFrom;
    session.gintYearTo = year.yearTo;
    session.gdtmFromDate = year.fromDate;
    session.gdtmToDate = year.toDate;
    mdiTallyboard* const window = mdiTallyboard::Instance();
    window->SetPanel(1, QStringLiteral("Academic Year : %1 - %2").arg(year.yearFrom).arg(year.yearTo));
    window->SetPanel(3, QStringLiteral("Application Date : ") + ShownDate(session.gdtmApplicationDate));
}

void frmMasAcademicYearChange::ClearFields()
{
    ui_->txtAcademicYearFrom->clear();
    ui_->lblAcadamicYearTo->clear();
}

} // namespace tally
