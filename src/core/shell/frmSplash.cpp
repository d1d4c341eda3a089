#include "core/shell/frmSplash.h"

#include "core/modTallyboard.h"
#include "core/ProcessEnd.h"
#include "core/shell/frmStartLogin.h"
#include "core/TempFolder.h"
#include "core/Twips.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/Prompts.h"
#include "store/StoreError.h"
#include "ui_frmSplash.h"

#include <QCloseEvent>
#include <QScreen>
#include <QTimer>

namespace tally {

namespace {

constexpr QSize MovieSize(12000 / TwipsPerPixel, 9000 / TwipsPerPixel);

} // namespace

frmSplash::frmSplash(const QString& executable)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), ui_(std::make_unique<Ui::frmSplash>()),
      singleCopy_(executable)
{
    ui_->setupUi(this);
    ui_->swfSplash->AddButton(QStringLiteral("cmdEnter"), QStringLiteral("&Enter"), QStringLiteral("quit"),
                              QStringLiteral("enter"));
    ui_->swfSplash->AddButton(QStringLiteral("cmdQuit"), QStringLiteral("&Quit"), QStringLiteral("quit"),
                              QStringLiteral("true"));
    connect(ui_->swfSplash, &MovieView::FSCommand, this, &frmSplash::swfSplash_FSCommand);
    const QRect room = screen()->availableGeometry();
    resize(MovieSize.boundedTo(room.size()));
    move(room.center() - rect().center());
}

frmSplash::~frmSplash() = default;

bool frmSplash::Form_Load()
{
    if (!singleCopy_.AnotherIsRunning())
        return true;
    Prompts::Information(QStringLiteral("Tally Board Is Already Opened"));
    EndProcess();
    return false;
}

void frmSplash::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    ui_->swfSplash->resize(MovieSize);
    ui_->swfSplash->move((width() - MovieSize.width()) / 2, (height() - MovieSize.height()) / 2);
    // The window comes up before the disk is touched.
    QTimer::singleShot(0, this, &frmSplash::Form_Activate);
}

void frmSplash::closeEvent(QCloseEvent* event)
{
    event->ignore();
    EndProcess();
}

void frmSplash::Form_Activate()
{
    CreateTempFolder();
    ui_->swfSplash->SetMovie(ReadResource(1006, QStringLiteral("swf")));
}

void frmSplash::swfSplash_FSCommand(const QString& command, const QString& argument)
{
    if (command != QLatin1String("quit"))
        return;
    if (argument == QLatin1String("true"))
        EndProcess();
    else if (argument == QLatin1String("enter"))
        OpenConnections();
}

void frmSplash::OpenConnections()
{
    try {
        const HourGlass busy;
        tally::OpenConnections();
    } catch (const store::StoreError& error) {
        Prompts::Critical(error.Description());
        return;
    }
    frmStartLogin::Open();
    hide();
}

} // namespace tally
