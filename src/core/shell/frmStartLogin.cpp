#include "core/shell/frmStartLogin.h"

#include "core/modTallyboard.h"
#include "core/ProcessEnd.h"
#include "core/SessionContext.h"
#include "core/SessionRepository.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "store/StoreError.h"
#include "ui_frmStartLogin.h"

#include <QCloseEvent>
#include <QPainter>
#include <QScreen>

namespace tally {

namespace {

constexpr int EntryLength = 15;

QPixmap ButtonPicture(const QWidget* form, const QString& caption, bool lit)
{
    const QPalette& palette = form->palette();
    const qreal ratio = form->devicePixelRatioF();
    const QFontMetrics metrics(form->font());
    const QRectF area(QPointF(), QSizeF(metrics.horizontalAdvance(QStringLiteral("Cancel")) + 6 * LookUnit,
                                        metrics.height() + 2 * LookUnit));
    QPixmap picture((area.size() * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(form->font());
    painter.setPen(QPen(palette.color(lit ? QPalette::Highlight : QPalette::Mid), 1));
    painter.setBrush(palette.color(lit ? QPalette::Highlight : QPalette::Button));
    painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    painter.setPen(palette.color(lit ? QPalette::HighlightedText : QPalette::ButtonText));
    painter.drawText(area, Qt::AlignCenter, caption);
    return picture;
}

/// A quiet sheet with a band in the accent colour at its left and a kite in its upper right corner.
QPixmap BackgroundPicture(const QPalette& palette, QSize size)
{
    QPixmap picture(size);
    picture.fill(palette.color(QPalette::Window));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor accent = palette.color(QPalette::Highlight);
    painter.fillRect(0, 0, LookUnit, size.height(), accent);
    painter.translate(size.width() - 52, 34);
    painter.rotate(24);
    painter.setPen(QPen(accent, 1.5));
    accent.setAlpha(40);
    painter.setBrush(accent);
    painter.drawPolygon(QPolygonF{{0, -20}, {14, -4}, {0, 24}, {-14, -4}});
    painter.drawLine(QPointF(0, -20), QPointF(0, 24));
    painter.drawLine(QPointF(-14, -4), QPointF(14, -4));
    return picture;
}

} // namespace

void frmStartLogin::Open()
{
    auto* form = new frmStartLogin;
    form->show();
    form->activateWindow();
}

frmStartLogin::frmStartLogin() : ui_(std::make_unique<Ui::frmStartLogin>())
{
    ui_->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    ui_->ImgOK->setAccessibleName(QStringLiteral("OK"));
    ui_->ImgCancel->setAccessibleName(QStringLiteral("Cancel"));
    ui_->cmdExit->setIcon(LookIcon(QStringLiteral("exit")));
    DrawButtons();
    adjustSize();
    setFixedSize(size());
    ui_->Image1->resize(size());
    ui_->Image1->lower();
    DrawBackground();
    move(screen()->availableGeometry().center() - rect().center());
    TakeOnly(ui_->txtLoginID, KeyAlphaNumeric, EntryLength);
    TakeOnly(ui_->txtPassword, KeyAlphaNumeric, EntryLength);
    for (QWidget* widget : {static_cast<QWidget*>(ui_->ImgOK), static_cast<QWidget*>(ui_->ImgCancel),
                            static_cast<QWidget*>(ui_->Image1)})
        widget->installEventFilter(this);

    connect(ui_->txtLoginID, &QLineEdit::returnPressed, this, [this] { focusNextChild(); });
    connect(ui_->txtPassword, &QLineEdit::returnPressed, this, &frmStartLogin::ImgOK_Click);
    connect(ui_->ImgOK, &QAbstractButton::clicked, this, &frmStartLogin::ImgOK_Click);
    connect(ui_->ImgCancel, &QAbstractButton::clicked, this, &EndProcess);
    connect(ui_->cmdExit, &QAbstractButton::clicked, this, &EndProcess);
    ui_->txtLoginID->setFocus();
}

frmStartLogin::~frmStartLogin() = default;

void frmStartLogin::DrawButtons()
{
    const QString ok = ui_->ImgOK->accessibleName();
    const QString cancel = ui_->ImgCancel->accessibleName();
    ui_->ImgOK1->setPixmap(ButtonPicture(this, ok, false));
    ui_->ImgOK2->setPixmap(ButtonPicture(this, ok, true));
    ui_->ImgCancel1->setPixmap(ButtonPicture(this, cancel, false));
    ui_->ImgCancel2->setPixmap(ButtonPicture(this, cancel, true));
    Light(false, false);
}

void frmStartLogin::DrawBackground()
{
    ui_->Image1->setPixmap(BackgroundPicture(palette(), size()));
}

void frmStartLogin::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        DrawButtons();
        DrawBackground();
    }
}

void frmStartLogin::Light(bool ok, bool cancel)
{
    ui_->ImgOK->SetPicture((ok ? ui_->ImgOK2 : ui_->ImgOK1)->pixmap(Qt::ReturnByValue));
    ui_->ImgCancel->SetPicture((cancel ? ui_->ImgCancel2 : ui_->ImgCancel1)->pixmap(Qt::ReturnByValue));
}

bool frmStartLogin::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::MouseMove || event->type() == QEvent::Enter)
        Light(receiver == ui_->ImgOK, receiver == ui_->ImgCancel);
    return QWidget::eventFilter(receiver, event);
}

void frmStartLogin::closeEvent(QCloseEvent* event)
{
    event->setAccepted(done_);
    if (!done_)
        EndProcess();
}

void frmStartLogin::ImgOK_Click()
{
    try {
        Login();
    } catch (const store::StoreError& error) {
        Prompts::Critical(error.Description());
    }
}

void frmStartLogin::Login()
{
    SessionContext& session = Session();
    SessionRepository repository(MainStore());
    session.gdtmApplicationDate = repository.LastApplicationDate();
    if (!RequireText(QStringLiteral("Enter Login ID"), ui_->txtLoginID) ||
        !RequireText(QStringLiteral("Enter Password"), ui_->txtPassword))
        return;

    session.gstrLoginId = ui_->txtLoginID->text().trimmed();
    session.gstrPassword = ui_->txtPassword->text().trimmed();
    if (NewInstallation(repository))
        return;

    const auto user = repository.FindLogin(session.gstrLoginId, session.gstrPassword);
    if (!user) {
        Prompts::Information(QStringLiteral("Enter Correct Login ID And Password"));
        ui_->txtLoginID->clear();
        ui_->txtPassword->clear();
        ui_->txtLoginID->setFocus();
        return;
    }
    if (!repository.IsUnblocked(session.gstrLoginId, session.gstrPassword)) {
        Prompts::Information(QStringLiteral("Your ID Has Been Blocked. Contact Administrator"));
        session.gcnnMain.reset();
        EndProcess();
        return;
    }
    session.gstrUserName = user->name;
    session.gintUserCode = user->code;
    session.gintPrivilegeUserCode = user->code;
    LoadSchoolDetails();
    LoadApplication(repository);
}

bool frmStartLogin::NewInstallation(SessionRepository& repository)
{
    if (!repository.IsNewInstallation())
        return false;
    if (auto* mainWindow = mdiTallyboard::Load()) {
        mainWindow->EnableFirstRunMenus();
        GiveWayToMainWindow();
    }
    return true;
}

void frmStartLogin::LoadApplication(SessionRepository& repository)
{
    const QStringList forms = repository.OpenableForms(Session().gintUserCode);
    auto* mainWindow = mdiTallyboard::Load();
    if (!mainWindow)
        return;
    for (const QString& form : forms)
        mainWindow->EnableMenuItem(QStringLiteral("mnu") + form, true);
    GiveWayToMainWindow();
}

void frmStartLogin::GiveWayToMainWindow()
{
    mdiTallyboard::Instance()->show();
    mdiTallyboard::Instance()->activateWindow();
    done_ = true;
    close();
}

} // namespace tally
