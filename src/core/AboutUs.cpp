#include "core/AboutUs.h"

#include "core/SessionContext.h"
#include "core/TempFolder.h"
#include "ui_AboutUs.h"

#include <QTimer>

namespace tally {

AboutUs::AboutUs() : Screen(QStringLiteral("AboutUs"), 0), ui_(std::make_unique<Ui::AboutUs>())
{
    ui_->setupUi(this);
    QPalette background = palette();
    background.setColor(QPalette::Window, QColor(255, 204, 153));
    setPalette(background);

    ui_->swfAboutUs->AddButton(QStringLiteral("cmdClose"), QStringLiteral("&Close"), QStringLiteral("quit"),
                               QStringLiteral("true"));
    connect(ui_->swfAboutUs, &MovieView::FSCommand, this, &AboutUs::swfAboutUs_FSCommand);
    ui_->swfAboutUs->SetMovie(ExtractResource(1005, Session().gstrTempPath, QStringLiteral("swf")));
}

AboutUs::~AboutUs() = default;

void AboutUs::cmdExit_Click()
{
    Unload();
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
