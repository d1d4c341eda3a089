// Starts as the program does, in the folder given, and says when the splash is painted, when its movie plays,
// when Enter was pressed and when the login form is painted; then it ends.

#include "app/Screens.h"
#include "bench/Milestone.h"
#include "core/ProgramFolder.h"
#include "core/shell/frmSplash.h"
#include "core/ui/controls/MovieView.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>

namespace {

using tally::bench::PrintMilestone;

/// Watches the paintings of all windows.
class Watch : public QObject
{
public:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        const auto* view = qobject_cast<tally::MovieView*>(receiver);
        // What has been painted is on the screen once the event loop turns again.
        if (view != nullptr && !splashSeen_) {
            splashSeen_ = true;
            QTimer::singleShot(0, [] { PrintMilestone("visible"); });
        } else if (view != nullptr && view->IsPlaying() && !movieSeen_) {
            movieSeen_ = true;
            QTimer::singleShot(0, [view] {
                PrintMilestone("movie");
                auto* enter = view->findChild<QPushButton*>(QStringLiteral("cmdEnter"));
                PrintMilestone("enter");
                for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
                    QKeyEvent key(type, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
                    QCoreApplication::sendEvent(enter, &key);
                }
            });
        } else if (receiver->objectName() == u"frmStartLogin" && !loginSeen_) {
            loginSeen_ = true;
            // An orderly end, so that the next start does not find the lock of a copy that died.
            QTimer::singleShot(0, [] {
                PrintMilestone("login");
                QCoreApplication::quit();
            });
        }
        return false;
    }

private:
    bool splashSeen_ = false;
    bool movieSeen_ = false;
    bool loginSeen_ = false;
};

} // namespace

int main(int argc, char** argv)
{
    using namespace tally;

    QApplication application(argc, argv);
    QApplication::setApplicationName(ApplicationTitle);
    QApplication::setQuitOnLastWindowClosed(false);
    Watch watch;
    application.installEventFilter(&watch);
    ApplyLook(application);
    RegisterScreens();
    SetProgramFolder(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."));
    Prompts::AnswerWith(
        [](Prompts::Kind, const QString& text) -> bool { qFatal("%s", qUtf8Printable(text)); });
    frmSplash splash(QApplication::applicationFilePath());
    if (!splash.Form_Load())
        return 1;
    splash.show();
    return QApplication::exec();
}
