#ifdef QT_DBUS_LIB
#include "app/DesktopColors.h"
#endif
#include "app/Screens.h"
#include "core/SessionContext.h"
#include "core/shell/Application.h"
#include "core/shell/frmSplash.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "reports/output/ExportWorkbook.h"
#include "reports/output/TextFile.h"

#include <QTimer>

int main(int argc, char** argv)
{
    using namespace tally;

    Application application(argc, argv);
    QApplication::setApplicationName(ApplicationTitle);
    // Only Close, Quit and a refused start end the program, never a window that happens to be the last.
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyLook(application);
    RegisterScreens();
    QApplication::setWindowIcon(LookIcon(QStringLiteral("app")));

    int result = 0;
    {
        frmSplash splash(QApplication::applicationFilePath());
        if (splash.Form_Load()) {
            splash.show();
            // The window comes up before the disk is touched.
            QTimer::singleShot(0, &application, &ClearDeadExports);
        }
#ifdef QT_DBUS_LIB
        const DesktopColors colors(QDBusConnection::sessionBus());
#endif
        result = QApplication::exec();
    }
    delete mdiTallyboard::Instance();
    GiveTextFilesBack();
    Session().gcnnTemp.reset();
    Session().gcnnMain.reset();
    return result;
}
