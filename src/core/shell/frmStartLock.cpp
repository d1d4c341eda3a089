#include "core/shell/frmStartLock.h"

#include "core/ProcessEnd.h"
#include "core/shell/frmStartUnlock.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "ui_frmStartLock.h"

#include <QApplication>
#include <QBitmap>
#include <QKeyEvent>
#include <QPainter>

namespace tally {

namespace {

constexpr int CornerRadius = 10;
constexpr int OutlineWidth = 2;

/// A padlock in the colour of the text.
QPixmap Padlock(const QPalette& palette, qreal ratio)
{
    constexpr int Side = 40;
    QPixmap picture(QSize(Side, Side) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette.color(QPalette::WindowText), 4));
    painter.drawArc(QRectF(11, 4, 18, 26), 0, 180 * 16);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.highlight());
    painter.drawRoundedRect(QRectF(5, 17, 30, 21), 4, 4);
    painter.setBrush(palette.highlightedText());
    painter.drawEllipse(QPointF(20, 25), 3, 3);
    painter.drawRect(QRectF(18.5, 26, 3, 7));
    return picture;
}

/// Hides all that stands in a window, whatever size the window takes.
class WindowCover : public QWidget
{
public:
    explicit WindowCover(QWidget* window) : QWidget(window)
    {
        setAutoFillBackground(true);
        resize(window->size());
        window->installEventFilter(this);
        show();
    }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (receiver == parent() && event->type() == QEvent::Resize)
            resize(static_cast<QResizeEvent*>(event)->size());
        return QWidget::eventFilter(receiver, event);
    }
};

/// A list or a tip; it goes by itself as the lock takes the keys.
bool IsPassing(const QWidget* window)
{
    return window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip;
}

} // namespace

void frmStartLock::Lock(QWidget* mainWindow)
{
    if (!mainWindow->findChild<frmStartLock*>())
        (new frmStartLock(mainWindow))->show();
}

frmStartLock::frmStartLock(QWidget* mainWindow)
    : QDialog(mainWindow, Qt::Dialog | Qt::FramelessWindowHint), ui_(std::make_unique<Ui::frmStartLock>())
{
    ui_->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    ui_->Image1->setPixmap(Padlock(palette(), devicePixelRatioF()));
    adjustSize();
    move(mainWindow->geometry().center() - rect().center());
    CoverWindows();
    qApp->installEventFilter(this);
}

frmStartLock::~frmStartLock() = default;

void frmStartLock::CoverWindows()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (window->isVisible() && !IsPassing(window))
            Cover(window);
}

void frmStartLock::Cover(QWidget* shown)
{
    auto* cover = new WindowCover(shown);
    connect(this, &QObject::destroyed, cover, [cover] { delete cover; });
}

bool frmStartLock::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        // A box that waits for its answer, as the lock's own do, can be read and answered.
        auto* late = qobject_cast<QWidget*>(receiver);
        if (late && late->isWindow() && !late->isModal() && !IsPassing(late))
            Cover(late);
    }
    return QDialog::eventFilter(receiver, event);
}

void frmStartLock::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ui_->Image1->setPixmap(Padlock(palette(), devicePixelRatioF()));
}

void frmStartLock::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (event->key() == Qt::Key_F10)
        AskForUnlocking();
    else if (event->key() == Qt::Key_Escape &&
             Prompts::Ask(QStringLiteral("Do You Want To Close 'KITE - Tally Board' ?")))
        EndProcess();
}

void frmStartLock::closeEvent(QCloseEvent* event)
{
    event->setAccepted(unlocked_);
}

void frmStartLock::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    QBitmap shape(size());
    shape.fill(Qt::color0);
    QPainter painter(&shape);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), CornerRadius, CornerRadius);
    painter.end();
    setMask(shape);
}

void frmStartLock::paintEvent(QPaintEvent* event)
{
    QDialog::paintEvent(event);
    // Without a line around it the lock looks like a part of the form it lies over.
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), OutlineWidth));
    const double inside = OutlineWidth / 2.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inside, inside, -inside, -inside), CornerRadius,
                            CornerRadius);
}

void frmStartLock::AskForUnlocking()
{
    auto* unlock = new frmStartUnlock(this);
    connect(unlock, &frmStartUnlock::Unlocked, this, &frmStartLock::Unload);
    unlock->show();
}

void frmStartLock::Unload()
{
    unlocked_ = true;
    close();
    // Not every window manager gives the keyboard back by itself when two windows go at once.
    parentWidget()->activateWindow();
}

} // namespace tally
