#include "utilities/frmHelp.h"

#include "core/DatabasePassword.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "ui_frmHelp.h"
#include "utilities/HelpRepository.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

namespace tally {

frmHelp::frmHelp() : Screen(QStringLiteral("frmHelp"), 0), ui_(std::make_unique<Ui::frmHelp>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    ui_->tvwDisplay->setProperty(TakesEnter, true);
    ui_->tvwDisplay->installEventFilter(this);
    ui_->tvwDisplay->setHeaderLabel(QStringLiteral("SCREEN NAME"));
    // No name is cut: two of them may differ in their last word only.
    ui_->tvwDisplay->header()->setStretchLastSection(false);
    ui_->tvwDisplay->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    // The text is for reading: who clicks into it is taken on.
    ui_->txtDetail->setFocusProxy(ui_->cmdExit);
    connect(ui_->tvwDisplay, &QTreeWidget::itemClicked, this, &frmHelp::tvwDisplay_Click);
    connect(ui_->tvwDisplay, &QTreeWidget::itemActivated, this, &frmHelp::tvwDisplay_Click);
    Form_Load();
}

frmHelp::~frmHelp() = default;

void frmHelp::Form_Load()
{
    Read([this] {
        help_ = std::make_unique<store::Connection>(ProgramFile(QStringLiteral("Tallyboardhelp.mdb")),
                                                    DatabasePassword(Session()));
        LoadScreen();
        for (const QString& name : HelpRepository(*help_).ScreenNames())
            new QTreeWidgetItem(ui_->tvwDisplay, {name});
    });
}

void frmHelp::LoadScreen()
{
    Show(HelpRepository(*help_).Find(Session().glngScreenNo).value_or(HelpPage()));
}

bool frmHelp::event(QEvent* event)
{
    if (event->type() != QEvent::HelpRequest)
        return Screen::event(event);
    if (help_)
        Read([this] { LoadScreen(); });
    return true;
}

bool frmHelp::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui_->tvwDisplay && event->type() == QEvent::KeyPress &&
        TurnText(static_cast<QKeyEvent*>(event)->key()))
        return true;
    return Screen::eventFilter(watched, event);
}

void frmHelp::tvwDisplay_Click()
{
    const QTreeWidgetItem* node = ui_->tvwDisplay->currentItem();
    if (!node)
        return;
    Read([&] {
        if (const auto page = HelpRepository(*help_).Find(node->text(0)))
            Show(*page);
    });
}

void frmHelp::Show(const HelpPage& page)
{
    ui_->lblName->setText(QString(page.screenName).replace(QLatin1String("&"), QLatin1String("&&")));
    ui_->txtDetail->setPlainText(page.details);
}

void frmHelp::keyPressEvent(QKeyEvent* event)
{
    if (!TurnText(event->key()))
        Screen::keyPressEvent(event);
}

bool frmHelp::TurnText(int key)
{
    if (key != Qt::Key_PageDown && key != Qt::Key_PageUp)
        return false;
    ui_->txtDetail->verticalScrollBar()->triggerAction(
        key == Qt::Key_PageDown ? QAbstractSlider::SliderPageStepAdd : QAbstractSlider::SliderPageStepSub);
    return true;
}

QSize frmHelp::sizeHint() const
{
    return {900, 560};
}

} // namespace tally
