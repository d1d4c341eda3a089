#include "utilities/frmHelp.h"

#include "core/DatabasePassword.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "ui_frmHelp.h"
#include "utilities/HelpRepository.h"

#include <QKeyEvent>
#include <QScrollBar>

namespace tally {

frmHelp::frmHelp() : Screen(QStringLiteral("frmHelp"), 0), ui_(std::make_unique<Ui::frmHelp>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    ui_->tvwDisplay->setProperty(TakesEnter, true);
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
    screenNo_ = Session().glngScreenNo;
    ui_->lblName->clear();
    ui_->txtDetail->clear();
    if (const auto page = HelpRepository(*help_).Find(screenNo_))
        Show(*page);
}

void frmHelp::Form_Activate(bool /*first*/)
{
    // F1 on another screen, while the help stands open behind it, asks for that screen's text.
    if (help_ && screenNo_ != Session().glngScreenNo)
        Read([this] { LoadScreen(); });
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
    const int key = event->key();
    if (key != Qt::Key_PageDown && key != Qt::Key_PageUp) {
        Screen::keyPressEvent(event);
        return;
    }
    // The text never has the keyboard, and is to be turned all the same.
    ui_->txtDetail->verticalScrollBar()->triggerAction(
        key == Qt::Key_PageDown ? QAbstractSlider::SliderPageStepAdd : QAbstractSlider::SliderPageStepSub);
}

QSize frmHelp::sizeHint() const
{
    return {760, 520};
}

} // namespace tally
