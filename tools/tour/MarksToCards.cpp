#include "MarksToCards.h"

#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/Screen.h"
#include "ProgramSteps.h"
#include "Tour.h"

#include <QLineEdit>

namespace tally {

namespace {

constexpr int MarkCol = 2;
constexpr int RowsInPicture = 12;
/// The row whose student was ill, and the one whose mark is mistyped at first.
constexpr int AbsentRow = 5;
constexpr int MistypedRow = 9;

const QString SameDivision =
    QStringLiteral("Do You Want To Enter Marks For The Same 'Exam-Class-Division' ?");

/// The clerk's side of frmexammarkentry.
class MarkEntry
{
public:
    MarkEntry(Tour& tour, QWidget* window)
        : tour_(tour), window_(window), screen_(OpenScreen(tour, Qt::Key_T, "frmexammarkentry")),
          grid_(screen_->findChild<FlexGrid*>(QStringLiteral("msgDetails"))),
          subjects_(screen_->findChild<DataCombo*>(QStringLiteral("dbcSubject")))
    {}

    /// The last exam, the first class, its second division.
    void ChooseDivision()
    {
        tour_.TabTo(QStringLiteral("cmdNew"));
        tour_.Press(Qt::Key_Space);
        tour_.TabTo(QStringLiteral("dbcExam"));
        tour_.Press(Qt::Key_End);
        tour_.Press(Qt::Key_Return);
        tour_.ChooseNext();
        tour_.ChooseNext(2);
        tour_.TabTo(QStringLiteral("dbcSubject"));
    }

    /// Goes on in the list to the next subject without marks. Without one, leaves the last subject alone and
    /// gives false.
    bool ChooseNextMissing()
    {
        do {
            const int before = subjects_->currentIndex();
            tour_.Press(Qt::Key_Down);
            if (subjects_->currentIndex() == before) {
                LeaveMarkedSubject();
                return false;
            }
        } while (!grid_->TextMatrix(1, MarkCol).isEmpty());
        tour_.Press(Qt::Key_Return);
        return true;
    }

    void TypeMarks(bool withPictures)
    {
        const int students = grid_->Rows() - 2;
        for (int row = 1; row <= students; ++row) {
            if (withPictures && row == MistypedRow)
                MistypeMark();
            if (withPictures && row == AbsentRow) {
                tour_.Fill(QStringLiteral("0"));
                tour_.Fill(QStringLiteral("A"));
            } else {
                tour_.Fill(QString::number(30 + row * 37 % 19));
            }
            if (withPictures && row == RowsInPicture)
                tour_.Picture(QStringLiteral("marks are typed with digits and Enter"),
                              QStringLiteral("mark-entry.png"), window_);
        }
    }

    void Save(bool goOn)
    {
        tour_.Expect(QStringLiteral("Record Saved"));
        tour_.Expect(SameDivision, goOn);
        tour_.Press(Qt::Key_Space);
    }

    /// The marks of the first student, as they are stored.
    void ShowStudent()
    {
        tour_.TabTo(QStringLiteral("Optsubject"));
        tour_.Press(Qt::Key_Right);
        tour_.TabTo(QStringLiteral("dbcStudent"));
        tour_.Press(Qt::Key_Down);
        tour_.Expect(QStringLiteral(
            "Marks Are Already Entered For This Student. Do You Want To View/Edit/Delete The Details ?"));
        tour_.Press(Qt::Key_Return);
        tour_.Picture(QStringLiteral("the same marks, student by student"),
                      QStringLiteral("marks-of-a-student.png"), window_);
    }

private:
    void LeaveMarkedSubject()
    {
        tour_.Expect(
            QStringLiteral(
                "Marks Are Already Entered For This Subject. Do You Want To View/Edit/Delete The Details ?"),
            false);
        tour_.Press(Qt::Key_Return);
        tour_.Done(QStringLiteral("a subject that has its marks is not entered again by mistake"));
    }

    void MistypeMark()
    {
        tour_.Expect(QStringLiteral("Entered Mark Should Not Exceed Maximum Allowed Mark : ") +
                     screen_->findChild<QLineEdit*>(QStringLiteral("txtmaximumallowed"))->text());
        tour_.Type(QStringLiteral("930"));
        tour_.Done(QStringLiteral("a mark above the highest one is refused while it is typed"));
    }

    Tour& tour_;
    QWidget* window_;
    Screen* screen_;
    FlexGrid* grid_;
    DataCombo* subjects_;
};

} // namespace

void EnterMissingMarks(Tour& tour, QWidget* window)
{
    MarkEntry entry(tour, window);
    entry.ChooseDivision();
    int subjects = 0;
    while (entry.ChooseNextMissing()) {
        entry.TypeMarks(subjects == 0);
        entry.Save(true);
        ++subjects;
    }
    if (subjects == 0)
        throw TourError(QStringLiteral("no subject lacks its marks"));
    tour.Done(QStringLiteral("the marks of %1 subjects typed and saved").arg(subjects));
    entry.ShowStudent();
    tour.TabTo(QStringLiteral("cmdCancel"));
    tour.Press(Qt::Key_Space);
    LeaveScreen(tour, "frmexammarkentry", QStringLiteral("Marks Entry"));
}

void ExportRankCards(Tour& tour, QWidget* window)
{
    Screen* screen = OpenScreen(tour, Qt::Key_R, "frmRankCardPrinting");
    FillWindow(screen);
    tour.TabTo(QStringLiteral("Lstexamnames"));
    for (const Qt::Key exam : {Qt::Key_Home, Qt::Key_End}) {
        tour.Press(exam);
        tour.Press(Qt::Key_Space);
    }
    tour.TabTo(QStringLiteral("cboClass"));
    tour.ChooseNext();
    tour.ChooseNext(2);
    tour.TabTo(QStringLiteral("chkSelectStudents"));
    tour.Press(Qt::Key_Space);
    tour.TabTo(QStringLiteral("cmdView"));
    tour.Press(Qt::Key_Space);
    const auto* cards = screen->findChild<FlexGrid*>(QStringLiteral("msgDetails"));
    tour.Await(QStringLiteral("the rank cards"), [&] { return cards->Rows() > 3; });
    tour.Picture(QStringLiteral("rank cards of a division"), QStringLiteral("rank-cards.png"), window);
    tour.TabTo(QStringLiteral("cmdExport"));
    tour.Press(Qt::Key_Space);
    tour.AwaitWorkbook(QStringLiteral("rank cards exported, one on a page"));
    LeaveScreen(tour, "frmRankCardPrinting", QStringLiteral("Rank Card"));
}

} // namespace tally
