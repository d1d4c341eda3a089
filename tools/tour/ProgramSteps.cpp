#include "ProgramSteps.h"

#include "core/ProcessEnd.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/MovieView.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"
#include "Tour.h"

#include <QApplication>

namespace tally {

ProgramRun::ProgramRun(Tour& tour, const QDir& folder)
    : tour_(tour), splash_(folder.filePath(QStringLiteral("tallyboard")))
{
    SetProgramFolder(folder.absolutePath());
    if (!splash_.Form_Load())
        throw TourError(QStringLiteral("another copy of the program is running"));
    splash_.show();
    tour.AwaitWindow(QStringLiteral("frmSplash"));
    const auto* movie = splash_.findChild<MovieView*>();
    tour.Await(QStringLiteral("the movie"), [&] { return movie->IsPlaying(); });
    tour.Picture(QStringLiteral("the program starts"), QStringLiteral("splash.png"), &splash_);
}

ProgramRun::~ProgramRun()
{
    EndProcessWith({});
    delete mdiTallyboard::Instance();
    Session() = SessionContext();
}

void ProgramRun::LogIn(const Login& login) const
{
    tour_.Press(Qt::Key_Return);
    QWidget* window = tour_.AwaitWindow(QStringLiteral("frmStartLogin"));
    tour_.Fill(login.loginId);
    tour_.Type(login.password);
    tour_.Picture(login.what, login.fileName, window);
    tour_.Press(Qt::Key_Return);
}

QWidget* ShowMainWindow(Tour& tour)
{
    QWidget* window = tour.AwaitWindow(QStringLiteral("mdiTallyboard"));
    window->showNormal();
    window->resize(1100, 740);
    return window;
}

Screen* AwaitScreen(Tour& tour, const QString& formName)
{
    tour.Await(QStringLiteral("the screen ") + formName, [&] {
        const Screen* screen = ScreenRegistry::OpenInstance(formName);
        return screen && screen->isVisible() && screen->isAncestorOf(QApplication::focusWidget());
    });
    return ScreenRegistry::OpenInstance(formName);
}

Screen* OpenScreen(Tour& tour, Qt::Key menu, const char* formName)
{
    const QString name = QString::fromLatin1(formName);
    tour.ChooseFromMenu(menu, QStringLiteral("mnu") + name);
    return AwaitScreen(tour, name);
}

void FillWindow(Screen* screen)
{
    constexpr int Margin = 8;
    QWidget* frame = screen->parentWidget();
    frame->setGeometry(frame->parentWidget()->rect().adjusted(Margin, Margin, -Margin, -Margin));
}

void PressButton(Tour& tour, const char* button)
{
    tour.TabTo(QString::fromLatin1(button));
    tour.Press(Qt::Key_Space);
}

void LeaveScreen(Tour& tour, const char* formName, const QString& caption)
{
    if (Session().gblnPromptOnExit)
        tour.Expect(QStringLiteral("Do You Want To Exit %1 ?").arg(caption));
    PressButton(tour, "cmdExit");
    tour.Await(QStringLiteral("the screen to close"),
               [&] { return ScreenRegistry::OpenInstance(QString::fromLatin1(formName)) == nullptr; });
}

void CloseProgram(Tour& tour)
{
    bool ended = false;
    EndProcessWith([&] { ended = true; });
    tour.Expect(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?"));
    tour.Press(Qt::Key_O, Qt::AltModifier);
    tour.Await(QStringLiteral("the end of the program"), [&] { return ended; });
    EndProcessWith({});
    tour.Done(QStringLiteral("closed"));
}

} // namespace tally
