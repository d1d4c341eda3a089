#include "calendar/frmUtilApplicationDateSetup.h"

#include "calendar/ApplicationDatePanel.h"
#include "calendar/ApplicationDateRepository.h"
#include "calendar/WorkingDateRules.h"
#include "core/modTallyboard.h"
#include "core/SessionContext.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "ui_frmUtilApplicationDateSetup.h"

namespace tally {

namespace {

constexpr int HelpScreenNo = 31;

ApplicationDateRepository Days()
{
    return ApplicationDateRepository(MainStore());
}

} // namespace

frmUtilApplicationDateSetup::frmUtilApplicationDateSetup()
    : Screen(QStringLiteral("frmUtilApplicationDateSetup"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmUtilApplicationDateSetup>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->cmdAddOneDay->setIcon(LookIcon(QStringLiteral("new")));
    ui_->cmdDeleteLastDay->setIcon(LookIcon(QStringLiteral("delete")));
    SetExitButton(ui_->cmdExit);
    Read([this] { LoadLastDate(); });

    connect(ui_->cmdAddOneDay, &QPushButton::clicked, this, &frmUtilApplicationDateSetup::cmdAddOneDay_Click);
    connect(ui_->cmdDeleteLastDay, &QPushButton::clicked, this,
            &frmUtilApplicationDateSetup::cmdDeleteLastDay_Click);
}

frmUtilApplicationDateSetup::~frmUtilApplicationDateSetup() = default;

void frmUtilApplicationDateSetup::Form_Activate(bool first)
{
    if (first && TakeMenus())
        TakeScreen(QStringLiteral("ApplicationDateSetup"));
}

void frmUtilApplicationDateSetup::LoadLastDate()
{
    const SessionContext& session = Session();
    lastDate_ = Days().Last(session.gdtmFromDate, session.gdtmToDate);
    if (!lastDate_.isValid())
        lastDate_ = session.gdtmApplicationDate;
    // With no day in any calendar, the next one is to be the year's first.
    if (!lastDate_.isValid())
        lastDate_ = session.gdtmFromDate.addDays(-1);
    ShowDate(lastDate_);
}

bool frmUtilApplicationDateSetup::KnowsLastDate()
{
    return lastDate_.isValid() || Read([this] { LoadLastDate(); });
}

void frmUtilApplicationDateSetup::ShowDate(const QDate& date)
{
    ui_->dtpNextWorkingDay->setDate(date);
}

void frmUtilApplicationDateSetup::cmdAddOneDay_Click()
{
    if (!MayUse(Right::Add))
        return;
    if (!KnowsLastDate())
        return;
    SessionContext& session = Session();
    ui_->cmdDeleteLastDay->setEnabled(true);
    const QDate next = lastDate_.addDays(1);
    switch (CheckNextDay(next, session.gdtmApplicationDate, session.gdtmToDate)) {
    case NextDay::Allowed: break;
    case NextDay::TooFarAhead:
        Prompts::Information(QStringLiteral("Entry Date Exceeds More Than 31 Days Of Application Date"));
        return;
    case NextDay::BeyondYear:
        Prompts::Information(QStringLiteral("Application Date Should Not Exceed Academic Year Last Date"));
        return;
    }
    ShowDate(next);
    if (!Prompts::Ask(QStringLiteral("Do You Want To Add Application Date : %1 ?").arg(ShownDate(next)))) {
        ShowDate(lastDate_);
        return;
    }
    const auto error = TryWrite([&](store::Transaction& transaction) {
        ApplicationDateRepository::Insert(transaction, next, session.gintUserCode);
    });
    if (error) {
        Prompts::Critical(TextOf(*error, Conflict::MasterIsGone));
        ShowDate(lastDate_);
        // Another client has added the day.
        if (error->IsConflict())
            Read([this] { LoadLastDate(); });
        return;
    }
    lastDate_ = next;
    AfterCommit([&] {
        if (Read([&] { LoadApplicationDate(session.gintAcademicYearCode); }))
            ShowMovedApplicationDate();
        Prompts::Information(QStringLiteral("Application Date Added"));
    });
    if (session.gdtmApplicationDate == session.gdtmToDate) {
        Prompts::Information(QStringLiteral("Reached Last Date Of This Academic Year"));
        ui_->cmdAddOneDay->setEnabled(false);
    }
}

void frmUtilApplicationDateSetup::cmdDeleteLastDay_Click()
{
    if (!MayUse(Right::Modify))
        return;
    if (!KnowsLastDate())
        return;
    SessionContext& session = Session();
    ui_->cmdAddOneDay->setEnabled(true);
    if (!MayStepBack(lastDate_, session.gdtmFromDate)) {
        Prompts::Information(
            QStringLiteral("Application Date Should Not Be Lesser Than Application Start Date"));
        return;
    }
    const QString shown = ShownDate(lastDate_);
    if (!Prompts::AskPlainly(QStringLiteral("Do You Want To Delete Application Date : %1 ?").arg(shown)))
        return;
    const auto days = Fetch([&] { return Days().Count(session.gdtmFromDate, session.gdtmToDate); });
    if (!days)
        return;
    if (*days <= 1) {
        Prompts::Information(shown + QStringLiteral(" Is The First Date Of This Academic Year.\n"
                                                    "So You Cannot Delete Application Date"));
        return;
    }
    const bool deleted = Write(Conflict::DataIsInUse, [this](store::Transaction& transaction) {
        ApplicationDateRepository::Delete(transaction, lastDate_);
    });
    if (!deleted)
        return;
    lastDate_ = QDate();
    AfterCommit([&] {
        if (KnowsLastDate()) {
            session.gdtmApplicationDate = lastDate_;
            ShowMovedApplicationDate();
        }
        Prompts::Information(QStringLiteral("Application Date Deleted"));
    });
    if (session.gdtmApplicationDate == session.gdtmFromDate) {
        Prompts::Information(QStringLiteral("Reached Academic Year Start Date"));
        ui_->cmdDeleteLastDay->setEnabled(false);
    }
}

} // namespace tally
