#include "core/shell/AboutUs.h"

#include "core/TempFolder.h"
#include "ui_AboutUs.h"

#include <QKeyEvent>
#include <QTimer>

namespace tally {

AboutUs::AboutUs() : Screen(QStringLiteral("AboutUs"), 0), ui_(std::make_unique<Ui::AboutUs>())
{
    ui_->setupUi(this);
    QPalette background = palette();
    background.setColor(QPalette::Window, QColor(255, 204, 153));
    background.setColor(QPalette::WindowText, Qt::black);
    // The text keeps these colours by itself when the system goes from light to dark.
    for (QWidget* part : {static_cast<QWidget*>(this), static_cast<QWidget*>(ui_->lblAbout)})
        part->setPalette(background);
    ui_->lblAbout->setText(
        QStringLiteral("KITE - Tally Board, version " TALLYBOARD_VERSION ", by the Tally Board developers\n"
                       "Free software under the GNU General Public License, version 3\n"
                       "For help, turn to whoever looks after the computers of your school"));

    ui_->swfAboutUs->AddButton(QStringLiteral("cmdClose"), QStringLiteral("&Close"), QStringLiteral("quit"),
                               QStringLiteral("true"));
    connect(ui_->swfAboutUs, &MovieView::FSCommand, this, &AboutUs::swfAboutUs_FSCommand);
    ui_->swfAboutUs->SetMovie(ReadResource(1005, QStringLiteral("swf")));
}

AboutUs::~AboutUs() = default;

void AboutUs::cmdExit_Click()
{
    Unload();
}

void AboutUs::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        cmdExit_Click();
    else
        Screen::keyPressEvent(event);
}

void AboutUs::swfAboutUs_FSCommand(const QString& command)
{
    if (command != QLatin1String("quit"))
        return;
    parentWidget()->hide();
    (new frmtest(this))->show();
}

frmtest::frmtest(AboutUs* aboutUs) : QWidget(aboutUs, Qt::Window), aboutUs_(aboutUs)
{
    setObjectName(QStringLiteral("frmtest"));
    setAttribute(Qt::WA_DontShowOnScreen);
    setAttribute(Qt::WA_DeleteOnClose);
}

void frmtest::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    QTimer::singleShot(0, this, &QWidget::close);
}

void frmtest::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    aboutUs_->Unload();
}

} // namespace tally
