// tally-tour SCHOOL PICTURES goes through the program as a clerk would, by keys alone: first it sets up a new
// school in a folder of its own, then it works in the folder SCHOOL that tally-sample made. Pictures of each
// step and the exported rank list go to the folder PICTURES.
//
// Exit codes: 0 every step went well, 1 a step failed, 2 wrong arguments.

#include "Tour.h"

#include "app/Screens.h"
#include "core/controls/FlexGrid.h"
#include "core/look/Look.h"
#include "core/OpenDocument.h"
#include "core/Screen.h"
#include "NewSchool.h"
#include "ProgramSteps.h"
#include "store/StoreError.h"
#include "tools/SampleSchool.h"

#include <QApplication>
#include <QRadioButton>

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

/// Pulls the screen to the size of the main window, so that a picture shows all of a list's columns.
void FillWindow(Screen* screen)
{
    constexpr int Margin = 8;
    QWidget* frame = screen->parentWidget();
    frame->setGeometry(frame->parentWidget()->rect().adjusted(Margin, Margin, -Margin, -Margin));
}

/// Chooses the first entry behind the blank one, or the last one.
void ChooseExamAndClass(Tour& tour, bool lastExam)
{
    tour.TabTo(QStringLiteral("Cboexamname"));
    tour.Press(lastExam ? Qt::Key_End : Qt::Key_Home);
    if (!lastExam)
        tour.Press(Qt::Key_Down);
    tour.TabTo(QStringLiteral("cboClass"));
    tour.Press(Qt::Key_Down);
}

void ShowOrder(Tour& tour, QWidget* window, const char* option, Qt::Key key, const char* words)
{
    if (key != Qt::Key_unknown)
        tour.Press(key);
    const QString name = QString::fromLatin1(option);
    tour.Await(QStringLiteral("the order ") + name, [&] {
        const auto* button = window->findChild<QRadioButton*>(name);
        return button && button->isChecked();
    });
    const QString order = QString::fromLatin1(words);
    tour.Picture(QStringLiteral("rank list in %1 order").arg(order),
                 order.section(QLatin1Char(' '), 0, 0) + QStringLiteral("-order.png"), window);
}

void PrepareRankList(Tour& tour, QWidget* window)
{
    Screen* screen = OpenScreen(tour, Qt::Key_R, "frmRankCalculation");
    FillWindow(screen);
    ChooseExamAndClass(tour, true);
    tour.Picture(QStringLiteral("divisions that are not ready carry a mark"), QStringLiteral("divisions.png"),
                 window);
    tour.TabTo(QStringLiteral("cmdUpdate"));
    tour.Expect(QStringLiteral("Select Division(s)"));
    tour.Press(Qt::Key_Space);
    tour.Done(QStringLiteral("nothing ticked: the screen asks for a division"));

    ChooseExamAndClass(tour, false);
    tour.TabTo(QStringLiteral("chkSelectAll"));
    tour.Press(Qt::Key_Space);
    tour.TabTo(QStringLiteral("cmdUpdate"));
    tour.Press(Qt::Key_Space);
    const auto* list = screen->findChild<FlexGrid*>(QStringLiteral("msgDisplayDetails"));
    tour.Await(QStringLiteral("the rank list"), [&] { return list->Rows() > 4; });
}

void ShowRankLists(Tour& tour, QWidget* window)
{
    tour.TabTo(QStringLiteral("optRankOrder"));
    ShowOrder(tour, window, "optRankOrder", Qt::Key_unknown, "rank");
    ShowOrder(tour, window, "optGradeOrder", Qt::Key_Right, "grade");
    ShowOrder(tour, window, "optAdmissionNoOrder", Qt::Key_Right, "admission number");
    ShowOrder(tour, window, "optAlphabeticalOrder", Qt::Key_Right, "alphabetical");
    for (int back = 0; back < 3; ++back)
        tour.Press(Qt::Key_Left);
}

void SummariseSaveAndExport(Tour& tour, QWidget* window, const QDir& pictures)
{
    tour.TabTo(QStringLiteral("cmdTotalDetails"));
    tour.Press(Qt::Key_Space);
    tour.Picture(QStringLiteral("summary by grade"), QStringLiteral("summary.png"), window);
    tour.Press(Qt::Key_Space);

    tour.TabTo(QStringLiteral("cmdSave"));
    tour.Expect(QStringLiteral("Record Saved"));
    tour.Press(Qt::Key_Space);
    tour.Done(QStringLiteral("rank list saved for the rank cards"));

    tour.TabTo(QStringLiteral("cmdExport"));
    tour.Press(Qt::Key_Space);
    const QStringList workbooks = pictures.entryList({QStringLiteral("*.xlsx")});
    if (workbooks.size() != 1)
        throw TourError(QStringLiteral("the export left no workbook"));
    tour.Done(QStringLiteral("rank list exported"), workbooks.constFirst());
    LeaveScreen(tour, "frmRankCalculation", QStringLiteral("Rank Calculation"));
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

void GoThroughSampleSchool(Tour& tour, const QDir& school, const QDir& pictures)
{
    const SampleAccount account = SampleAccounts().constFirst();
    const ProgramRun run(tour, school);
    run.LogIn({QString::fromLatin1(account.loginId), QString::fromLatin1(account.password),
               QStringLiteral("login of the sample's administrator"), QStringLiteral("login.png")});
    QWidget* window = ShowMainWindow(tour);
    tour.Picture(QStringLiteral("the main window"), QStringLiteral("main-window.png"), window);
    ShowMenus(tour, window);
    PrepareRankList(tour, window);
    ShowRankLists(tour, window);
    SummariseSaveAndExport(tour, window, pictures);
    ShowOptions(tour, window);
    LockAndUnlock(tour, window);
    CloseProgram(tour);
}

void GoThroughProgram(const QDir& school, const QDir& pictures)
{
    Tour tour(pictures.path());
    SetUpNewSchool(tour);
    GoThroughSampleSchool(tour, school, pictures);
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
    SetExportFolder(pictures.path());
    UseSpreadsheetProgram({true, [](const QString& path) { return QFile::exists(path); }});

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
