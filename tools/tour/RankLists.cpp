#include "RankLists.h"

#include "core/ui/controls/FlexGrid.h"
#include "core/ui/Screen.h"
#include "ProgramSteps.h"
#include "Tour.h"

#include <QRadioButton>

namespace tally {

namespace {

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

void Proceed(Tour& tour, const Screen* screen)
{
    tour.TabTo(QStringLiteral("cmdUpdate"));
    tour.Press(Qt::Key_Space);
    const auto* list = screen->findChild<FlexGrid*>(QStringLiteral("msgDisplayDetails"));
    tour.Await(QStringLiteral("the rank list"), [&] { return list->Rows() > 4; });
}

void Save(Tour& tour)
{
    tour.TabTo(QStringLiteral("cmdSave"));
    tour.Expect(QStringLiteral("Record Saved"));
    tour.Press(Qt::Key_Space);
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

void ShowOrders(Tour& tour, QWidget* window)
{
    tour.TabTo(QStringLiteral("optRankOrder"));
    ShowOrder(tour, window, "optRankOrder", Qt::Key_unknown, "rank");
    ShowOrder(tour, window, "optGradeOrder", Qt::Key_Right, "grade");
    ShowOrder(tour, window, "optAdmissionNoOrder", Qt::Key_Right, "admission number");
    ShowOrder(tour, window, "optAlphabeticalOrder", Qt::Key_Right, "alphabetical");
    for (int back = 0; back < 3; ++back)
        tour.Press(Qt::Key_Left);
}

void ShowSummary(Tour& tour, QWidget* window)
{
    tour.TabTo(QStringLiteral("cmdTotalDetails"));
    tour.Press(Qt::Key_Space);
    tour.Picture(QStringLiteral("summary by grade"), QStringLiteral("summary.png"), window);
    tour.Press(Qt::Key_Space);
}

/// The exam in progress: the third division is not ready and cannot be ranked with the others.
void RankReadyDivisions(Tour& tour, QWidget* window, const Screen* screen)
{
    ChooseExamAndClass(tour, true);
    tour.Picture(QStringLiteral("divisions that are not ready carry a mark"), QStringLiteral("divisions.png"),
                 window);
    tour.TabTo(QStringLiteral("cmdUpdate"));
    tour.Expect(QStringLiteral("Select Division(s)"));
    tour.Press(Qt::Key_Space);
    tour.Done(QStringLiteral("nothing ticked: the screen asks for a division"));

    tour.TabTo(QStringLiteral("Lstdivision"));
    tour.Press(Qt::Key_Home);
    tour.Press(Qt::Key_Space);
    tour.Press(Qt::Key_Down);
    tour.Press(Qt::Key_Space);
    Proceed(tour, screen);
    Save(tour);
    tour.Done(QStringLiteral("rank list of the typed marks saved"));
    tour.TabTo(QStringLiteral("cmdCancel"));
    tour.Press(Qt::Key_Space);
}

} // namespace

void PrepareRankLists(Tour& tour, QWidget* window)
{
    Screen* screen = OpenScreen(tour, Qt::Key_R, "frmRankCalculation");
    FillWindow(screen);
    RankReadyDivisions(tour, window, screen);

    ChooseExamAndClass(tour, false);
    tour.TabTo(QStringLiteral("chkSelectAll"));
    tour.Press(Qt::Key_Space);
    Proceed(tour, screen);
    ShowOrders(tour, window);
    ShowSummary(tour, window);
    Save(tour);
    tour.Done(QStringLiteral("rank list saved for the rank cards"));
    tour.TabTo(QStringLiteral("cmdExport"));
    tour.Press(Qt::Key_Space);
    tour.AwaitWorkbook(QStringLiteral("rank list exported"));
    LeaveScreen(tour, "frmRankCalculation", QStringLiteral("Rank Calculation"));
}

} // namespace tally
