#include "core/shell/mdiTallyboard.h"

#include "core/modTallyboard.h"
#include "core/OptionFlags.h"
#include "core/ProcessEnd.h"
#include "core/SessionContext.h"
#include "core/SessionRepository.h"
#include "core/shell/MenuCommands.h"
#include "core/shell/MenuTree.h"
#include "core/StartPatience.h"
#include "core/TempFolder.h"
#include "core/Twips.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/PresencePause.h"
#include "core/ui/Prompts.h"
#include "core/ui/ScreenRegistry.h"
#include "store/StoreError.h"
#include "ui_mdiTallyboard.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include <utility>

namespace tally {

namespace {

/// The blanks keep the title clear of the buttons in the title bar.
const QString WindowCaption = ApplicationTitle + QString(20, QLatin1Char(' '));

QString AcademicYearText()
{
    const SessionContext& session = Session();
    const QString label = QStringLiteral("Academic Year : ");
    return session.gintYearFrom < 1
               ? label
               : label + QStringLiteral("%1-%2").arg(session.gintYearFrom).arg(session.gintYearTo);
}

void ReadOptions()
{
    const auto options = SessionRepository(MainStore()).Options();
    if (!options)
        return;
    if (const auto& limit = options->dateOfBirthSetting)
        Session().gvarDefaultDOB = limit->isValid() ? ShownDate(*limit) : QStringLiteral("Null");
    TakeOptionFlags(*options);
}

/// What waits for an open box would go on beside a screen or command that starts meanwhile.
void Choose(const MenuDefinition& entry)
{
    if (Prompts::AreOpen())
        return;
    const QString opens = QString::fromLatin1(entry.opens);
    if (entry.kind == MenuKind::Command)
        MenuCommands::Run(opens);
    else
        ShowForm(opens);
}

/// While it lives, a statement on `connection` waits so long when another client holds the file.
class Waiting
{
public:
    Waiting(store::Connection& connection, std::chrono::milliseconds patience) : connection_(connection)
    {
        connection_.SetPatience(patience);
    }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
    ~Waiting() { connection_.SetPatience(store::Connection::DefaultPatience); }

private:
    store::Connection& connection_;
};

} // namespace

mdiTallyboard* mdiTallyboard::Instance()
{
    return static_cast<mdiTallyboard*>(ScreenHost::Instance());
}

mdiTallyboard* mdiTallyboard::Load()
{
    if (!Instance()) {
        auto* window = new mdiTallyboard;
        if (!window->Form_Load())
            delete window;
    }
    return Instance();
}

mdiTallyboard::mdiTallyboard() : ui_(std::make_unique<Ui::mdiTallyboard>()), tmrTimer_(new QTimer(this))
{
    ui_->setupUi(this);
    setCentralWidget(ui_->Area);
    setWindowTitle(WindowCaption);
    setMinimumSize(640, 440);
    resize(screen()->availableSize());
    setWindowState(Qt::WindowMaximized);

    menuItems_ = BuildMenus(ui_->MenuBar, &Choose);
    // On a new system the school, once entered and closed, makes way for its first year. Queued, since the
    // screen that closes is still on its way out.
    connect(
        ui_->Area, &QMdiArea::subWindowActivated, this,
        [this](QMdiSubWindow*) {
            if (!AnyChildFormOpen())
                ForceFirstRun();
        },
        Qt::QueuedConnection);
    connect(ui_->Area, &QMdiArea::subWindowActivated, this, &mdiTallyboard::ShowBoxesOfFront);

    for (QLabel*& panel : panels_) {
        panel = new QLabel(ui_->StatusBar1);
        panel->setTextFormat(Qt::PlainText);
        panel->setContentsMargins(LookUnit, 0, LookUnit, 0);
        ui_->StatusBar1->addWidget(panel);
    }
    panels_[2]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    tmrTimer_->setObjectName(QStringLiteral("tmrTimer"));
    tmrTimer_->setInterval(1000);
    connect(tmrTimer_, &QTimer::timeout, this, &mdiTallyboard::tmrTimer_Timer);
}

mdiTallyboard::~mdiTallyboard()
{
    // The area outlives what follows, and tells of each screen that goes with it.
    ui_->Area->disconnect(this);
}

QMdiArea* mdiTallyboard::Area() const
{
    return ui_->Area;
}

QAction* mdiTallyboard::MenuItem(const QString& name) const
{
    return menuItems_.value(name);
}

void mdiTallyboard::EnableMenuItem(const QString& name, bool enabled)
{
    QAction* item = MenuItem(name);
    if (!item)
        return;
    const bool on = enabled && LeadsSomewhere(name);
    if (const auto taken = takenMenus_.find(item); taken != takenMenus_.end())
        *taken = on;
    else
        item->setEnabled(on);
}

void mdiTallyboard::EnableFirstRunMenus()
{
    for (const char* name : {"mnuToolsMenu", "mnufrmUtilUserMaster", "mnufrmUtilUserPrivileges"})
        EnableMenuItem(QString::fromLatin1(name), true);
}

void mdiTallyboard::TakeWorkMenus()
{
    if (!takenMenus_.isEmpty())
        return;
    for (const char* name : {"mnuMasters", "mnuTransactions", "mnuReports", "mnuToolsMenu"}) {
        QAction* menu = MenuItem(QString::fromLatin1(name));
        takenMenus_.insert(menu, menu->isEnabled());
        menu->setEnabled(false);
    }
}

void mdiTallyboard::GiveWorkMenusBack()
{
    const auto taken = std::exchange(takenMenus_, {});
    for (auto menu = taken.begin(); menu != taken.end(); ++menu)
        menu.key()->setEnabled(menu.value());
}

void mdiTallyboard::ShowPicture(int resourceId)
{
    if (resourceId == shownPicture_)
        return;
    shownPicture_ = resourceId;
    QPixmap picture;
    picture.loadFromData(ReadResource(resourceId, QStringLiteral("jpg")));
    ui_->Area->SetPicture(picture);
}

void mdiTallyboard::SetPanel(int number, const QString& text)
{
    panels_.at(static_cast<std::size_t>(number - 1))->setText(text);
    SizePanels();
}

void mdiTallyboard::ShowYearAndDate()
{
    SetPanel(1, AcademicYearText());
    SetPanel(3, QStringLiteral("Application Date : ") + ShownDate(Session().gdtmApplicationDate));
}

bool mdiTallyboard::Form_Load()
{
    try {
        const HourGlass busy;
        const Waiting forARestore(MainStore(), StartPatience);
        GetActiveAcademicYear();
        ShowPicture(MainPicture(DisplaySize()));
        ReadOptions();
        LoadSchoolDetails();
        LoadActiveAcademicYear();
        LoadApplicationDate(Session().gintAcademicYearCode);
        LoadOptions();

        dayCopy_.NoteFile(MainStore());
        store::Transaction transaction(MainStore());
        SessionRepository(MainStore()).WriteStartRows(transaction, QDate::currentDate());
        transaction.Commit();
        dayCopy_.NoteStart(MainStore());
    } catch (const store::StoreError& error) {
        Prompts::Critical(error.Description());
        EndProcess();
        return false;
    }
    tmrTimer_->start();
    return true;
}

void mdiTallyboard::Form_Activate()
{
    const SessionContext& session = Session();
    // The title itself also tells the screen that fills the window.
    Session().gstrMainCaption = WindowCaption;
    ShowYearAndDate();
    SetPanel(2, QStringLiteral("User Name : ") + session.gstrUserName + QStringLiteral("  "));
    ForceFirstRun();
}

void mdiTallyboard::ForceFirstRun()
{
    const SessionContext& session = Session();
    if (!session.gcnnMain)
        return;
    if (!session.gblnSchoolExists)
        Force(QStringLiteral("frmMasSchoolSetup"));
    else if (!session.gblnActiveYearExists)
        Force(QStringLiteral("frmMasAcademicYearSetup"));
}

void mdiTallyboard::ShowBoxesOfFront()
{
    // The boxes in the menu bar belong to the screen that fills the window. Behind a form that has boxes of
    // its own they would close what nobody means.
    const QMdiSubWindow* front = ui_->Area->currentSubWindow();
    for (const Qt::Corner corner : {Qt::TopLeftCorner, Qt::TopRightCorner})
        if (QWidget* boxes = ui_->MenuBar->cornerWidget(corner))
            boxes->setVisible(front && front->isMaximized());
}

void mdiTallyboard::Force(const QString& formName)
{
    // A message box of the forced screen gives the activation back as well; the open screen keeps its focus
    // then.
    if (!ScreenRegistry::OpenInstance(formName))
        ShowForm(formName);
}

void mdiTallyboard::tmrTimer_Timer()
{
    if (PresencePause::Lasts() || !Session().gcnnMain)
        return;
    store::Connection& connection = MainStore();
    try {
        const Waiting notAtAll(connection, std::chrono::milliseconds(0));
        store::Transaction transaction(connection);
        SessionRepository(connection).RefreshPresence(transaction);
        transaction.Commit();
    } catch (const store::StoreError& error) {
        // Another client is saving just now; the next second will do. And one box at a time is enough to
        // read and to answer.
        if (!error.IsLocked() && !Prompts::AreOpen())
            Prompts::Critical(error.Description());
    }
}

void mdiTallyboard::mnuClose_Click()
{
    if (!Prompts::Ask(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?")))
        return;
    // The row of presence that goes is no work.
    const bool copyIsDue = Session().gcnnMain && dayCopy_.IsDue(MainStore());
    if (!RemovePresence())
        return;
    tmrTimer_->stop();
    CloseMain(copyIsDue);
    DeleteTempFolder();
    EndProcess();
}

void mdiTallyboard::CloseMain(bool copyIsDue)
{
    if (copyIsDue) {
        const HourGlass busy;
        DayCopy::Keep(MainStore());
    } else if (Session().gcnnMain) {
        dayCopy_.NoteNoWork(MainStore());
    }
    Session().gcnnMain.reset();
}

bool mdiTallyboard::RemovePresence()
{
    try {
        store::Transaction transaction(MainStore());
        SessionRepository(MainStore()).RemovePresence(transaction);
        transaction.Commit();
    } catch (const store::StoreError& error) {
        Prompts::Critical(
            error.IsLocked()
                ? error.Description()
                : QStringLiteral("All Your Work Is Saved. Only Your Leaving Could Not Be Noted.\n") +
                      error.Description());
        // The next start replaces a row that stays behind, so nobody is kept at work by a full disk, nor
        // twice by another client's save.
        return !error.IsLocked() || std::exchange(closeMetLock_, true);
    }
    return true;
}

void mdiTallyboard::SizePanels()
{
    // Stays free for the size grip and for texts that are longer than their share.
    constexpr int Free = 2750 / TwipsPerPixel;
    for (QLabel* panel : panels_)
        panel->setFixedWidth(std::max((width() - Free) / 3, panel->sizeHint().width()));
}

void mdiTallyboard::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow())
        return;
    Form_Activate();
    // Coming back from a message box or another program, the clerk types on where the work was.
    QTimer::singleShot(0, this, &FocusActiveScreen);
}

void mdiTallyboard::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Prompts::Information(QStringLiteral("If You Want To Close 'KITE-Tally Board', Click On The Close Menu"));
}

void mdiTallyboard::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    SizePanels();
}

} // namespace tally
