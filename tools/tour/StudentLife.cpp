#include "StudentLife.h"

#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/Screen.h"
#include "ProgramSteps.h"
#include "Tour.h"

namespace tally {

namespace {

void Save(Tour& tour, const char* result)
{
    tour.Expect(QString::fromLatin1(result));
    PressButton(tour, "cmdSave");
}

void SetOptions(Tour& tour, QWidget* window)
{
    const Screen* screen = OpenScreen(tour, Qt::Key_U, "frmUtilOptions");
    const QString caption = screen->windowTitle();
    PressButton(tour, "chkAutoGen");
    tour.TabTo(QStringLiteral("DTPDateOfBirthSetting"));
    tour.Fill(QStringLiteral("01Jun2020"));
    tour.TabTo(QStringLiteral("cboGender"));
    tour.Press(Qt::Key_Home);
    tour.Picture(QStringLiteral("the options for new students"), QStringLiteral("student-options.png"),
                 window);
    Save(tour, "Settings Saved");
    LeaveScreen(tour, "frmUtilOptions", caption);
}

void AdmitStudents(Tour& tour, QWidget* window)
{
    const Screen* screen = OpenScreen(tour, Qt::Key_M, "frmMasStudentMaster");
    const QString caption = screen->windowTitle();
    struct NewStudent
    {
        const char* name;
        const char* father;
        const char* birth;
    };
    for (const NewStudent& student : {NewStudent{"Anu Thomas", "Thomas Mathew", "14Aug2010"},
                                      NewStudent{"Binu Nair", "Ravi Nair", "02Jan2011"},
                                      NewStudent{"Cyril George", "George Paul", "29Feb2008"}}) {
        tour.Press(Qt::Key_N, Qt::AltModifier);
        tour.TabTo(QStringLiteral("txtstudentName"));
        tour.Fill(QString::fromLatin1(student.name));
        tour.Fill(QString::fromLatin1(student.father));
        tour.Press(Qt::Key_Home);
        tour.TabTo(QStringLiteral("dtpDOB"));
        tour.Fill(QString::fromLatin1(student.birth));
        if (student.name == QLatin1String("Anu Thomas"))
            tour.Picture(QStringLiteral("a student, to be numbered by the system"),
                         QStringLiteral("student-entered.png"), window);
        Save(tour, "Record Saved");
    }
    tour.Done(QStringLiteral("three students are numbered and saved"));
    LeaveScreen(tour, "frmMasStudentMaster", caption);
}

/// Each stands first in the list of those without a class when it is his turn.
void PlaceStudents(Tour& tour, QWidget* window)
{
    const Screen* screen = OpenScreen(tour, Qt::Key_M, "frmMasStudentAdmissionEntry");
    const QString caption = screen->windowTitle();
    for (int student = 1; student <= 3; ++student) {
        tour.Press(Qt::Key_N, Qt::AltModifier);
        tour.TabTo(QStringLiteral("dbcAdmissionNo"));
        tour.ChooseNext();
        tour.TabTo(QStringLiteral("dbcClass"));
        tour.Press(Qt::Key_End);
        tour.TabTo(QStringLiteral("dbcDivision"));
        tour.ChooseNext();
        if (student == 1)
            tour.Picture(QStringLiteral("a student is placed in a class"),
                         QStringLiteral("student-placed.png"), window);
        Save(tour, "Record Saved");
    }
    tour.Done(QStringLiteral("three students sit in a class"));
    LeaveScreen(tour, "frmMasStudentAdmissionEntry", caption);
}

/// Searches with the filters as they are and goes to the first row that was found.
void Search(Tour& tour, const Screen* screen)
{
    PressButton(tour, "cmdSearch");
    const auto* found = screen->findChild<DataGrid*>(QStringLiteral("dgdDetails"));
    tour.Await(QStringLiteral("what the search finds"), [&] { return found->model()->rowCount() > 0; });
    tour.TabTo(QStringLiteral("dgdDetails"));
    tour.Press(Qt::Key_Down);
}

void FindStudent(Tour& tour, QWidget* window)
{
    const QString caption = OpenScreen(tour, Qt::Key_M, "frmMasStudentMaster")->windowTitle();
    PressButton(tour, "cmdSearch");
    const Screen* search = AwaitScreen(tour, QStringLiteral("frmMasStudentMasterSearch"));
    tour.TabTo(QStringLiteral("txtstudentName"));
    tour.Type(QStringLiteral("Binu"));
    Search(tour, search);
    tour.Picture(QStringLiteral("a student is looked for by name"), QStringLiteral("student-search.png"),
                 window);
    tour.Expect(QStringLiteral("Do You Want To Edit/Delete ? "));
    tour.Press(Qt::Key_Return);
    AwaitScreen(tour, QStringLiteral("frmMasStudentMaster"));
    tour.Picture(QStringLiteral("found again, with the number that he was given"),
                 QStringLiteral("student-found.png"), window);
    LeaveScreen(tour, "frmMasStudentMaster", caption);
}

void RelieveStudent(Tour& tour, QWidget* window)
{
    tour.Press(Qt::Key_N, Qt::AltModifier);
    tour.TabTo(QStringLiteral("txtOptionalAdmissionNo"));
    tour.Fill(QStringLiteral("3"));
    tour.TabTo(QStringLiteral("txtRelievingReason"));
    tour.Fill(QStringLiteral("Parents Moved To Another City"));
    tour.Fill(QStringLiteral("TC/1"));
    tour.Picture(QStringLiteral("a student leaves"), QStringLiteral("relieving-entered.png"), window);
    Save(tour, "Record Saved");
    tour.Done(QStringLiteral("he is relieved"));
}

void PutBackOnRoll(Tour& tour, QWidget* window)
{
    PressButton(tour, "cmdSearch");
    const Screen* search = AwaitScreen(tour, QStringLiteral("frmMasStudentRelievingSearch"));
    tour.Expect(QStringLiteral("Do You Want To View All Relieved Student Details ?"));
    Search(tour, search);
    tour.Picture(QStringLiteral("all who left"), QStringLiteral("relieving-search.png"), window);
    tour.Expect(QStringLiteral("Do You Want To Edit/Delete ?"));
    tour.Press(Qt::Key_Return);
    AwaitScreen(tour, QStringLiteral("frmMasStudentRelievingMaster"));
    tour.Expect(QStringLiteral("Do You Want To Delete This Entry ?"));
    tour.Expect(QStringLiteral("Record Deleted"));
    PressButton(tour, "cmdDelete");
    tour.Done(QStringLiteral("he is back on roll"));
}

void LeaveAndReturn(Tour& tour, QWidget* window)
{
    const QString caption = OpenScreen(tour, Qt::Key_M, "frmMasStudentRelievingMaster")->windowTitle();
    RelieveStudent(tour, window);
    PutBackOnRoll(tour, window);
    LeaveScreen(tour, "frmMasStudentRelievingMaster", caption);
}

void AddNextYear(Tour& tour)
{
    const QString caption = OpenScreen(tour, Qt::Key_M, "frmMasAcademicYearSetup")->windowTitle();
    tour.Press(Qt::Key_N, Qt::AltModifier);
    tour.Fill(QStringLiteral("2026"));
    tour.ChooseNext(2);
    Save(tour, "Academic Year Saved");
    tour.Done(QStringLiteral("the next academic year is entered"));
    LeaveScreen(tour, "frmMasAcademicYearSetup", caption);
}

/// Chooses the lower class on the left, and the first division on both sides.
void ChooseGroups(Tour& tour)
{
    tour.TabTo(QStringLiteral("cbofromClass"));
    tour.Press(Qt::Key_End);
    tour.TabTo(QStringLiteral("cbofromDivision"));
    tour.Press(Qt::Key_Down);
    tour.TabTo(QStringLiteral("Cbotodivision"));
    tour.Press(Qt::Key_Down);
}

void TickFrom(Tour& tour, int row)
{
    tour.TabTo(QStringLiteral("lstfromlist"));
    tour.Press(Qt::Key_Home);
    for (int step = 0; step < row; ++step)
        tour.Press(Qt::Key_Down);
    tour.Press(Qt::Key_Space);
}

void PromoteTwo(Tour& tour, QWidget* window)
{
    tour.Press(Qt::Key_N, Qt::AltModifier);
    ChooseGroups(tour);
    TickFrom(tour, 0);
    TickFrom(tour, 1);
    PressButton(tour, "cmdMoveFromToTo");
    tour.Picture(QStringLiteral("two students go to the next class"), QStringLiteral("promotion.png"),
                 window);
    Save(tour, "Record Saved");
    tour.Done(QStringLiteral("two students are promoted"));
}

void DetainOne(Tour& tour, QWidget* window)
{
    tour.Press(Qt::Key_N, Qt::AltModifier);
    tour.Press(Qt::Key_Down);
    ChooseGroups(tour);
    TickFrom(tour, 2);
    PressButton(tour, "cmdMoveFromToTo");
    tour.Picture(QStringLiteral("one stays in the class"), QStringLiteral("detained.png"), window);
    Save(tour, "Record Saved");
    tour.Done(QStringLiteral("one student is detained"));
}

void TakeOneBack(Tour& tour, QWidget* window)
{
    tour.Press(Qt::Key_N, Qt::AltModifier);
    ChooseGroups(tour);
    tour.TabTo(QStringLiteral("lsttolist"));
    tour.Press(Qt::Key_End);
    tour.Press(Qt::Key_Space);
    PressButton(tour, "cmdMoveToToFrom");
    tour.Picture(QStringLiteral("one promoted student is taken back"), QStringLiteral("taken-back.png"),
                 window);
    Save(tour, "Record Saved");
    tour.Done(QStringLiteral("he stays where he was until the office decides anew"));
}

void Promote(Tour& tour, QWidget* window)
{
    tour.ChooseFromMenu(Qt::Key_T, QStringLiteral("mnufrmpromotionentry"));
    const QString caption = AwaitScreen(tour, QStringLiteral("frmPromotionEntry"))->windowTitle();
    PromoteTwo(tour, window);
    DetainOne(tour, window);
    TakeOneBack(tour, window);
    LeaveScreen(tour, "frmPromotionEntry", caption);
}

void ChangeYear(Tour& tour, QWidget* window)
{
    const QString caption = OpenScreen(tour, Qt::Key_M, "frmMasAcademicYearChange")->windowTitle();
    tour.TabTo(QStringLiteral("txtAcademicYearFrom"));
    tour.Type(QStringLiteral("2026"));
    Save(tour, "Academic Year Changed");
    tour.Picture(QStringLiteral("the next year is worked in"), QStringLiteral("year-changed.png"), window);
    LeaveScreen(tour, "frmMasAcademicYearChange", caption);
}

void ShowNextYear(Tour& tour, QWidget* window)
{
    const QString caption = OpenScreen(tour, Qt::Key_M, "frmMasStudentAdmissionEntry")->windowTitle();
    PressButton(tour, "cmdSearch");
    Screen* search = AwaitScreen(tour, QStringLiteral("frmMasStudentAdmissionSearch"));
    const QString searchCaption = search->windowTitle();
    tour.Expect(QStringLiteral("Do You Want To View All The Admissions ? "));
    Search(tour, search);
    const auto* found = search->findChild<DataGrid*>(QStringLiteral("dgdDetails"));
    tour.Await(QStringLiteral("the promoted and the detained student"),
               [&] { return found->model()->rowCount() == 2; });
    tour.Picture(QStringLiteral("the promoted student and the detained one in their new year"),
                 QStringLiteral("next-year.png"), window);
    LeaveScreen(tour, "frmMasStudentAdmissionSearch", searchCaption);
    LeaveScreen(tour, "frmMasStudentAdmissionEntry", caption);
}

} // namespace

void AdmitFirstStudents(Tour& tour, QWidget* window)
{
    SetOptions(tour, window);
    AdmitStudents(tour, window);
    PlaceStudents(tour, window);
    FindStudent(tour, window);
    LeaveAndReturn(tour, window);
}

void GoOnToNextYear(Tour& tour, QWidget* window)
{
    AddNextYear(tour);
    Promote(tour, window);
    ChangeYear(tour, window);
    ShowNextYear(tour, window);
}

} // namespace tally
