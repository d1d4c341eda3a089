#include "calendar/frmUtilApplicationDateChange.h"

#include "calendar/ApplicationDatePanel.h"
#include "calendar/ApplicationDateRepository.h"
#include "calendar/WorkingDateRules.h"
#include "core/modTallyboard.h"
#include "core/SessionContext.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "ui_frmUtilApplicationDateChange.h"

#include <QSignalBlocker>

namespace tally {

namespace {

constexpr int HelpScreenNo = 32;

ApplicationDateRepository Days()
{
    return ApplicationDateRepository(MainStore());
}

} // namespace

frmUtilApplicationDateChange::frmUtilApplicationDateChange()
    : Screen(QStringLiteral("frmUtilApplicationDateChange"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmUtilApplicationDateChange>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    ui_->dtpApplicationDate->TakeArrowsOnly();
    Read([this] { ShowRange(); });
    ShowWorkingDate();
    ui_->cmdSave->setEnabled(false);

    connect(ui_->dtpApplicationDate, &QDateEdit::dateChanged, this,
            &frmUtilApplicationDateChange::dtpApplicationDate_Change);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmUtilApplicationDateChange::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmUtilApplicationDateChange::cmdCancel_Click);
}

frmUtilApplicationDateChange::~frmUtilApplicationDateChange() = default;

void frmUtilApplicationDateChange::Form_Activate(bool first)
{
    if (first)
        TakeMenus();
}

void frmUtilApplicationDateChange::ShowRange()
{
    const SessionContext& session = Session();
    const int days = Days().DaysOf(session.gintPrivilegeUserCode);
    lastDay_ = Days().Last(session.gdtmFromDate, session.gdtmToDate);
    const WorkableRange range = RangeFor(lastDay_, days, session.gdtmFromDate);
    ui_->lblFrom->setText(ShownDate(range.from));
    ui_->lblTo->setText(ShownDate(range.to));
}

void frmUtilApplicationDateChange::ShowWorkingDate()
{
    const QSignalBlocker blocker(ui_->dtpApplicationDate);
    ui_->dtpApplicationDate->setDate(Session().gdtmApplicationDate);
}

void frmUtilApplicationDateChange::dtpApplicationDate_Change(const QDate& date)
{
    const auto accepted = Fetch([&] {
        if (!lastDay_.isValid())
            ShowRange();
        return IsWithinLimit(date, lastDay_, Days().DaysOf(Session().gintUserCode)) &&
               Days().IsWorkingDay(date);
    });
    if (accepted == true) {
        ui_->cmdSave->setEnabled(true);
        return;
    }
    if (accepted)
        Prompts::Information(QStringLiteral("You Have No Privilege To Work In This Date"));
    ShowWorkingDate();
    ui_->dtpApplicationDate->setFocus();
}

void frmUtilApplicationDateChange::cmdSave_Click()
{
    // The tree of rights offers this screen a Save only; M comes with older rows.
    if (!MayUse(Right::Modify, Right::Save))
        return;
    Session().gdtmApplicationDate = ui_->dtpApplicationDate->date();
    ShowMovedApplicationDate();
    Prompts::Information(QStringLiteral("Application Date Changed"));
    ui_->cmdSave->setEnabled(false);
}

void frmUtilApplicationDateChange::cmdCancel_Click()
{
    ShowWorkingDate();
    ui_->dtpApplicationDate->setFocus();
}

} // namespace tally
