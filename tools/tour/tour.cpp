// tally-tour SCHOOL PICTURES goes through the program as a clerk would, by keys alone: first it sets up a new
// school in a folder of its own, then it works in the folder SCHOOL that tally-sample made. Pictures of each
// step, and the workbooks, texts and pages that it made, go to the folder PICTURES.
//
// Exit codes: 0 every step went well, 1 a step failed, 2 wrong arguments.

#include "Tour.h"

#include "app/Screens.h"
#include "core/ui/look/Look.h"
#include "core/ui/OpenDocument.h"
#include "core/ui/Screen.h"
#include "MarksToCards.h"
#include "NewSchool.h"
#include "ProgramSteps.h"
#include "RankLists.h"
#include "Reports.h"
#include "reports/output/PrintPreview.h"
#include "store/StoreError.h"
#include "tools/SampleSchool.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPdfWriter>

#include <cstdio>

namespace tally {

namespace {

void ShowMenus(Tour& tour, QWidget* window)
{
    struct Menu
    {
        Qt::Key letter;
        const char* name;
    };
    for (const Menu& menu : {Menu{Qt::Key_M, "masters"}, Menu{Qt::Key_T, "transactions"},
                             Menu{Qt::Key_R, "reports"}, Menu{Qt::Key_U, "utilities"}}) {
        tour.Press(menu.letter, Qt::AltModifier);
        const QString name = QString::fromLatin1(menu.name);
        tour.Await(QStringLiteral("the menu ") + name,
                   [] { return QApplication::activePopupWidget() != nullptr; });
        tour.Picture(QStringLiteral("the menu of the ") + name, QStringLiteral("menu-%1.png").arg(name),
                     window);
        tour.Press(Qt::Key_Escape);
        tour.Press(Qt::Key_Escape);
    }
}

void ShowOptions(Tour& tour, QWidget* window)
{
    const Screen* screen = OpenScreen(tour, Qt::Key_U, "frmUtilOptions");
    const QString caption = screen->windowTitle();
    tour.Picture(QStringLiteral("the options"), QStringLiteral("options.png"), window);
    LeaveScreen(tour, "frmUtilOptions", caption);
}

void LockAndUnlock(Tour& tour, QWidget* window)
{
    const SampleAccount account = SampleAccounts().constFirst();
    tour.Press(Qt::Key_K, Qt::AltModifier);
    QWidget* lock = tour.AwaitWindow(QStringLiteral("frmStartLock"));
    tour.Picture(QStringLiteral("locked"), QStringLiteral("lock.png"), lock);
    tour.Press(Qt::Key_F10);
    QWidget* unlock = tour.AwaitWindow(QStringLiteral("frmStartUnlock"));
    tour.Type(QString::fromLatin1(account.loginId));
    tour.Press(Qt::Key_Return);
    tour.Type(QString::fromLatin1(account.password));
    tour.Picture(QStringLiteral("unlocked by the same login"), QStringLiteral("unlock.png"), unlock);
    tour.Press(Qt::Key_Return);
    tour.Press(Qt::Key_Space);
    tour.Await(QStringLiteral("the lock to open"),
               [&] { return window->findChild<QWidget*>(QStringLiteral("frmStartLock")) == nullptr; });
    // On a desktop the window manager hands the activation back; here nobody else would.
    window->activateWindow();
    tour.AwaitWindow(QStringLiteral("mdiTallyboard"));
}

void GoThroughSampleSchool(Tour& tour, const QDir& school)
{
    const SampleAccount account = SampleAccounts().constFirst();
    const ProgramRun run(tour, school);
    run.LogIn({QString::fromLatin1(account.loginId), QString::fromLatin1(account.password),
               QStringLiteral("login of the sample's administrator"), QStringLiteral("login.png")});
    QWidget* window = ShowMainWindow(tour);
    tour.Picture(QStringLiteral("the main window"), QStringLiteral("main-window.png"), window);
    ShowMenus(tour, window);
    EnterMissingMarks(tour, window);
    PrepareRankLists(tour, window);
    ExportRankCards(tour, window);
    ShowReports(tour, window);
    ShowOptions(tour, window);
    LockAndUnlock(tour, window);
    CloseProgram(tour);
}

void GoThroughProgram(const QDir& school, const QDir& pictures)
{
    Tour tour(pictures.path());
    SetUpNewSchool(tour);
    GoThroughSampleSchool(tour, school);
}

/// Texts and pages go where the pictures are.
void KeepOutput(const QDir& pictures)
{
    SetExportFolder(pictures.path());
    UseSpreadsheetProgram({true, [](const QString& path) { return QFile::exists(path); }});
    UseTextProgram([pictures](const QString& path) {
        const QString copy = pictures.filePath(QFileInfo(path).fileName());
        QFile::remove(copy);
        return QFile::copy(path, copy);
    });
    UsePrintPreview([pictures](const PrintJob& job) {
        QPdfWriter paper(pictures.filePath(QString(job.title).replace(u'/', u'-') + QStringLiteral(".pdf")));
        paper.setPageSize(QPageSize(QPageSize::A4));
        paper.setPageOrientation(job.orientation);
        paper.setTitle(job.title);
        job.paint(paper);
    });
}

/// What a platform without a screen cannot do is no news here.
void PrintMessage(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

} // namespace
} // namespace tally

int main(int argc, char** argv)
{
    using namespace tally;

    qInstallMessageHandler(PrintMessage);
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("Usage: tally-tour SCHOOL PICTURES\n", stderr);
        return 2;
    }
    const QDir school(arguments[1]);
    const QDir pictures(arguments[2]);
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyLook(application, false);
    RegisterScreens();
    KeepOutput(pictures);

    int result = 0;
    try {
        GoThroughProgram(school, pictures);
    } catch (const TourError& error) {
        std::fprintf(stderr, "The tour stops: %s\n", error.what());
        result = 1;
    } catch (const store::StoreError& error) {
        std::fprintf(stderr, "The tour stops: %s\n", error.Description().toUtf8().constData());
        result = 1;
    }
    return result;
}
