#include "utilities/frmUtilBackupRestore.h"

#include "core/DatabasePassword.h"
#include "core/modTallyboard.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/OpenBox.h"
#include "core/ui/PresencePause.h"
#include "core/ui/Prompts.h"
#include "store/Backup.h"
#include "store/Restore.h"
#include "store/StoreError.h"
#include "store/Transaction.h"
#include "ui_frmUtilBackupRestore.h"
#include "utilities/BackupPaths.h"
#include "utilities/ClosedMain.h"
#include "utilities/InputOnlyTo.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <utility>

namespace tally {

namespace {

constexpr int HelpScreenNo = 35;
/// Of Timer1, in milliseconds: how often it counts, by how much, and where it stops.
constexpr int TimerStep = 100;
constexpr int TimerEnd = 5000;
/// Painting more often than this would only take time from the work, in milliseconds.
constexpr qint64 BetweenPaints = 40;
/// Parts in which the bar tells how far the work has come.
constexpr qint64 BarParts = 1000;

const QString Filter = QStringLiteral("Database Files (*.mdb)");

QString Shown(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

QString Typed(const QLineEdit* box)
{
    return QDir::fromNativeSeparators(box->text().trimmed());
}

/// Where the search for a file begins; empty for the user's own documents.
QString FolderOf(const QLineEdit* box)
{
    const QFileInfo file(Typed(box));
    return file.isAbsolute() ? file.path() : QString();
}

} // namespace

frmUtilBackupRestore::frmUtilBackupRestore()
    : Screen(QStringLiteral("frmUtilBackupRestore"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmUtilBackupRestore>()), Timer1_(new QTimer(this))
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    DressGrid(ui_->msgDetails);
    ui_->msgDetails->hide();
    ui_->prgProgress->setMaximum(static_cast<int>(BarParts));
    // The fields need their room whether the bar is there or not.
    QSizePolicy room = ui_->prgProgress->sizePolicy();
    room.setRetainSizeWhenHidden(true);
    ui_->prgProgress->setSizePolicy(room);
    ui_->prgProgress->hide();
    Timer1_->setObjectName(QStringLiteral("Timer1"));
    Timer1_->setInterval(TimerStep);

    connect(ui_->optBackUp, &QRadioButton::toggled, this, &frmUtilBackupRestore::ShowMode);
    connect(ui_->cmdSourcePath, &QPushButton::clicked, this, &frmUtilBackupRestore::cmdSourcePath_Click);
    connect(ui_->cmdDestPath, &QPushButton::clicked, this, &frmUtilBackupRestore::cmdDestPath_Click);
    connect(ui_->cmdBackup, &QPushButton::clicked, this, &frmUtilBackupRestore::cmdBackup_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmUtilBackupRestore::cmdCancel_Click);
    connect(ui_->cmdDetails, &QPushButton::clicked, this, &frmUtilBackupRestore::cmdDetails_Click);
    connect(Timer1_, &QTimer::timeout, this, &frmUtilBackupRestore::Timer1_Timer);

    ShowMode();
}

frmUtilBackupRestore::~frmUtilBackupRestore() = default;

CopyMode frmUtilBackupRestore::Mode() const
{
    return ui_->optBackUp->isChecked() ? CopyMode::Backup : CopyMode::Restore;
}

void frmUtilBackupRestore::ShowMode()
{
    const bool backup = Mode() == CopyMode::Backup;
    const QString own = Shown(MainFile());
    ui_->lblPrompt->setText(backup ? QStringLiteral("Destination Path") : QStringLiteral("Source Path"));
    ui_->cmdBackup->setText(backup ? QStringLiteral(" Back      &up") : QStringLiteral("  Re S&tore"));
    ui_->txtSourcePath->setText(backup ? own : QString());
    ui_->txtDestinationPath->setText(backup ? QString() : own);
    SetBusy(false);
    Read([this] { LoadLog(); });
}

void frmUtilBackupRestore::SetBusy(bool busy)
{
    const bool backup = Mode() == CopyMode::Backup;
    busy_ = busy;
    ui_->optBackUp->setEnabled(!busy);
    ui_->optRecovery->setEnabled(!busy);
    ui_->txtSourcePath->setEnabled(!busy && !backup);
    ui_->cmdSourcePath->setEnabled(!busy && !backup);
    ui_->txtDestinationPath->setEnabled(!busy && backup);
    ui_->cmdDestPath->setEnabled(!busy && backup);
    ui_->cmdBackup->setEnabled(!busy);
    ui_->cmdDetails->setEnabled(!busy);
    ui_->cmdExit->setEnabled(!busy);
}

void frmUtilBackupRestore::cmdSourcePath_Click()
{
    const QString path =
        Prompts::ChooseFile(QStringLiteral("Source Path"), FolderOf(ui_->txtSourcePath), Filter);
    if (!path.isEmpty())
        ui_->txtSourcePath->setText(Shown(path));
}

void frmUtilBackupRestore::cmdDestPath_Click()
{
    const QString path = Prompts::ChooseFileToSave(QStringLiteral("Destination Path"),
                                                   FolderOf(ui_->txtDestinationPath), Filter);
    if (!path.isEmpty())
        ui_->txtDestinationPath->setText(Shown(path));
}

void frmUtilBackupRestore::RefusePath(const PathRefusal& refusal)
{
    // The field that is fixed cannot take the keyboard.
    Refuse(refusal.text, refusal.field == PathRefusal::Field::Source && ui_->txtSourcePath->isEnabled()
                             ? ui_->txtSourcePath
                             : ui_->txtDestinationPath);
}

void frmUtilBackupRestore::cmdBackup_Click()
{
    const CopyMode mode = Mode();
    if (!MayUse(mode == CopyMode::Backup ? Right::Backup : Right::Restore, Right::Open))
        return;
    if (const auto refusal = RefusePaths(mode, Typed(ui_->txtSourcePath), Typed(ui_->txtDestinationPath))) {
        RefusePath(*refusal);
        return;
    }
    if (mode == CopyMode::Backup)
        BackUp();
    else
        Restore();
}

frmUtilBackupRestore::Consent frmUtilBackupRestore::AskForPlace()
{
    if (!QFileInfo(Typed(ui_->txtDestinationPath)).isFile())
        return Consent::NoneThere;
    switch (Prompts::AskOrCancel(
        QStringLiteral("File With The Given Name Already Exists\n"
                       "Do You Want To Replace The Existing File ?\n"
                       "For Replacing, Click 'YES' Else Click 'NO' To Give Different Name"))) {
    case Prompts::Reply::Cancel: return Consent::Stop;
    case Prompts::Reply::No: ui_->txtDestinationPath->setFocus(); return Consent::Stop;
    case Prompts::Reply::Yes: break;
    }
    return Prompts::Confirm(QStringLiteral("Old Database Will Be Lost")) ? Consent::Replace : Consent::Keep;
}

void frmUtilBackupRestore::BackUp()
{
    const QString destination = Typed(ui_->txtDestinationPath);
    const Consent consent = AskForPlace();
    if (consent == Consent::Stop)
        return;
    if (consent == Consent::Keep) {
        CopyClosed({}, destination);
        return;
    }
    CopyClosed(
        [&] {
            const QString password = DatabasePassword(Session());
            store::Connection main(MainFile(), password);
            store::BackUp(
                main, password, destination,
                [this](qint64 done, qint64 total) { return ShowProgress(done, total); },
                consent == Consent::Replace ? store::Occupied::Replace : store::Occupied::Refuse);
        },
        destination);
}

void frmUtilBackupRestore::Restore()
{
    // They would save codes of the school that was there before.
    if (OtherFormsOpen(this)) {
        Prompts::Information(QStringLiteral("Close All Other Screens Before The Restore"));
        return;
    }
    const QString source = Typed(ui_->txtSourcePath);
    const QString password = DatabasePassword(Session());
    const auto progress = [this](qint64 done, qint64 total) { return ShowProgress(done, total); };
    std::unique_ptr<store::Restore> restore;
    if (!RunLong([&] { restore = std::make_unique<store::Restore>(source, password, progress); }))
        return;
    // Nothing is restored yet.
    ui_->prgProgress->hide();
    if (!Prompts::Ask(QStringLiteral("This Operation Will Delete Your Current Database And Restore The "
                                     "Selected One\nThis Operation Cannot Be RolledBack\n"
                                     "For Restoring Click 'YES' Else Click 'NO' To Cancel This Operation")))
        return;
    if (!Prompts::Confirm(QStringLiteral("Old Database Will Be Lost"))) {
        CopyClosed({}, source);
        return;
    }
    CopyClosed(
        [&] {
            store::Connection main(MainFile(), password);
            restore->PourInto(main, QDateTime::currentDateTime(), progress);
        },
        source);
}

void frmUtilBackupRestore::CopyClosed(const std::function<void()>& work, const QString& logged)
{
    const CopyMode mode = Mode();
    bool copied = false;
    {
        const ClosedMain closed;
        copied = !work || RunLong(work);
        Read([] { OpenMainAgain(); });
    }
    if (!copied)
        return;
    QString notLogged;
    try {
        store::Transaction entry(Log());
        BackupLogRepository::Add(entry, mode, Shown(logged), QDateTime::currentDateTime());
        entry.Commit();
    } catch (const store::StoreError& error) {
        notLogged = error.Description();
    }
    Prompts::Information(mode == CopyMode::Backup ? QStringLiteral("Database Backup Completed")
                                                  : QStringLiteral("Database Restore Completed"));
    if (!notLogged.isEmpty())
        Prompts::Critical(notLogged);
    else
        Read([this] { LoadLog(); });
}

bool frmUtilBackupRestore::RunLong(const std::function<void()>& work)
{
    QString failure;
    auto* tell = &Prompts::Critical;
    stopped_ = false;
    Timer1_->stop();
    ui_->prgProgress->setRange(0, 0);
    ui_->prgProgress->show();
    {
        const Prompts::OpenBox nothingStarts;
        const PresencePause clockIsStill;
        // The field that has the keyboard gets it back, so it is asked for before it is disabled.
        const InputOnlyTo cancel(ui_->cmdCancel);
        SetBusy(true);
        sincePainted_.invalidate();
        try {
            work();
        } catch (const store::Cancelled& end) {
            failure = end.Description();
            tell = &Prompts::Information;
        } catch (const store::StoreError& error) {
            failure = error.Description();
        }
        SetBusy(false);
    }
    if (!failure.isEmpty()) {
        ui_->prgProgress->hide();
        tell(failure);
        return false;
    }
    // That all is done stays in sight for a while.
    ui_->prgProgress->setRange(0, static_cast<int>(BarParts));
    ui_->prgProgress->setValue(static_cast<int>(BarParts));
    counter_ = 0;
    Timer1_->start();
    return true;
}

bool frmUtilBackupRestore::ShowProgress(qint64 done, qint64 total)
{
    if (total > 0) {
        ui_->prgProgress->setRange(0, static_cast<int>(BarParts));
        ui_->prgProgress->setValue(static_cast<int>(done * BarParts / total));
    } else {
        ui_->prgProgress->setRange(0, 0);
    }
    if (!sincePainted_.isValid() || sincePainted_.hasExpired(BetweenPaints)) {
        QCoreApplication::processEvents();
        sincePainted_.start();
    }
    return !stopped_;
}

void frmUtilBackupRestore::Timer1_Timer()
{
    counter_ += TimerStep;
    if (counter_ < TimerEnd)
        return;
    Timer1_->stop();
    ui_->prgProgress->hide();
}

void frmUtilBackupRestore::cmdCancel_Click()
{
    if (busy_) {
        stopped_ = true;
        return;
    }
    ShowMode();
    (Mode() == CopyMode::Backup ? ui_->txtDestinationPath : ui_->txtSourcePath)->setFocus();
}

void frmUtilBackupRestore::cmdDetails_Click()
{
    const bool show = ui_->msgDetails->isHidden();
    ui_->msgDetails->setVisible(show);
    ui_->cmdDetails->setText(show ? QStringLiteral("Cance&l") : QStringLiteral("Detai&ls  >>"));
    QWidget* frame = parentWidget();
    if (frame && !frame->isMaximized()) {
        frame->adjustSize();
        CenterForm(frame);
    }
}

store::Connection& frmUtilBackupRestore::Log()
{
    if (!log_)
        log_ = std::make_unique<store::Connection>(ProgramFile(QStringLiteral("BackupRestoreDetails.mdb")),
                                                   DatabasePassword(Session()));
    return *log_;
}

void frmUtilBackupRestore::LoadLog()
{
    const bool backup = Mode() == CopyMode::Backup;
    GridTable table(
        {{backup ? QStringLiteral("Backup Code") : QStringLiteral("Restore Code"), NumberAlignment},
         {backup ? QStringLiteral("Backup Path") : QStringLiteral("Restore Path"), TextAlignment, false,
          true},
         {backup ? QStringLiteral("Backup Date") : QStringLiteral("Restore Date")}});
    // Where the log cannot be read, no entries of the other mode stay in sight.
    ui_->msgDetails->Show(table);
    for (const LoggedCopy& copy : BackupLogRepository::All(Log(), Mode()))
        table.AddRow({{QString::number(copy.code)}, {copy.path}, {ShownLogDate(copy.date)}});
    ui_->msgDetails->Show(std::move(table));
}

} // namespace tally
