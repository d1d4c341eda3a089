#include "ExamSetup.h"

#include "core/ui/controls/FlexGrid.h"
#include "core/ui/Screen.h"
#include "ProgramSteps.h"
#include "Tour.h"

#include <array>

namespace tally {

namespace {

const QString CopyAgain = QStringLiteral("Do You Want To Copy This Setup To Any Other Class ?");
const QString GradesCopied = QStringLiteral("Rank Criteria Copied");
const QString SameDivision =
    QStringLiteral("Do You Want To Enter Marks For The Same 'Exam-Class-Division' ?");

void SaveAs(Tour& tour, const char* result)
{
    tour.Expect(QString::fromLatin1(result));
    tour.Press(Qt::Key_S, Qt::AltModifier);
}

/// The entry behind the blank one.
void ChooseFirst(Tour& tour, const char* list)
{
    tour.TabTo(QString::fromLatin1(list));
    tour.Press(Qt::Key_Home);
    tour.Press(Qt::Key_Down);
}

void ChooseLast(Tour& tour, const char* list)
{
    tour.TabTo(QString::fromLatin1(list));
    tour.Press(Qt::Key_End);
}

/// Types from the open box on, each text ended with Enter.
void FillAll(Tour& tour, const std::initializer_list<const char*>& texts)
{
    for (const char* text : texts)
        tour.Fill(QString::fromLatin1(text));
}

struct TwoFields
{
    const char* name;
    const char* other;
};

/// Adds entries of a small master screen of two fields, and leaves it.
void AddEntries(Tour& tour, QWidget* window, const char* formName, std::initializer_list<TwoFields> entries,
                const char* what, const char* picture)
{
    const QString caption = OpenScreen(tour, Qt::Key_M, formName)->windowTitle();
    for (const TwoFields& entry : entries) {
        tour.Press(Qt::Key_N, Qt::AltModifier);
        FillAll(tour, {entry.name, entry.other});
        SaveAs(tour, "Record Saved");
    }
    tour.Picture(QString::fromLatin1(what), QString::fromLatin1(picture), window);
    LeaveScreen(tour, formName, caption);
}

void AddTeacher(Tour& tour)
{
    const QString caption = OpenScreen(tour, Qt::Key_M, "frmTeacherMaster")->windowTitle();
    tour.Press(Qt::Key_N, Qt::AltModifier);
    tour.ChooseNext();
    FillAll(tour, {"Latha Varma", "LAT"});
    SaveAs(tour, "Record Saved");
    tour.Done(QStringLiteral("a second teacher"));
    LeaveScreen(tour, "frmTeacherMaster", caption);
}

void SetUpSubjects(Tour& tour, QWidget* window)
{
    Screen* screen = OpenScreen(tour, Qt::Key_T, "frmClassSubjectTeacher");
    const QString caption = screen->windowTitle();
    FillWindow(screen);
    tour.Press(Qt::Key_N, Qt::AltModifier);
    ChooseLast(tour, "cboClass");
    ChooseFirst(tour, "cboDivision");
    tour.Press(Qt::Key_Return);
    FillAll(tour, {"English", "Asha Menon", "100", "", "Yes", "1"});
    FillAll(tour, {"Mathematics", "Latha Varma", "100", "", "Yes", "2"});
    FillAll(tour, {"Science", "Latha Varma", "100", "95", "Yes", "3"});
    tour.Picture(QStringLiteral("the subjects of a division, their teachers and their marks"),
                 QStringLiteral("subject-setup.png"), window);
    SaveAs(tour, "Record Saved");
    tour.Done(QStringLiteral("the subjects of the division are saved"));
    LeaveScreen(tour, "frmClassSubjectTeacher", caption);
}

void SetUpGrades(Tour& tour, QWidget* window)
{
    const QString caption = OpenScreen(tour, Qt::Key_T, "frmClassRankSetup")->windowTitle();
    tour.Press(Qt::Key_N, Qt::AltModifier);
    ChooseFirst(tour, "dbcExam");
    ChooseLast(tour, "cboClass");
    ChooseFirst(tour, "cboDivision");
    tour.Press(Qt::Key_Return);
    FillAll(tour, {"75", "60", "A", "50", "40", "B", "35", "20", "C", "0", "0", "D"});
    tour.Picture(QStringLiteral("the grades of the first exam, from the highest average down to 0"),
                 QStringLiteral("grade-setup.png"), window);
    SaveAs(tour, "Record Saved");
    tour.Done(QStringLiteral("the grades are saved"));
    LeaveScreen(tour, "frmClassRankSetup", caption);
}

void CopySubjects(Tour& tour, QWidget* window)
{
    Screen* screen = OpenScreen(tour, Qt::Key_T, "frmClassSubjectTeacherTransfer");
    const QString caption = screen->windowTitle();
    FillWindow(screen);
    tour.Press(Qt::Key_N, Qt::AltModifier);
    ChooseFirst(tour, "cboFromAcademicyear");
    ChooseLast(tour, "cboClassFrom");
    ChooseFirst(tour, "cboDivision");
    ChooseFirst(tour, "cboAcademicYearTo");
    ChooseLast(tour, "cboClassTo");
    ChooseLast(tour, "cboDivisionTo");
    PressButton(tour, "cmdTransfer");
    tour.Picture(QStringLiteral("the subjects go to the other division too"),
                 QStringLiteral("subject-copy.png"), window);
    tour.Expect(QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Copied"));
    tour.Expect(CopyAgain, false);
    tour.Press(Qt::Key_S, Qt::AltModifier);
    tour.Done(QStringLiteral("the copy of the subjects is saved"));
    LeaveScreen(tour, "frmClassSubjectTeacherTransfer", caption);
}

/// Copies what is chosen on the left to all divisions of the class that have no grades for the exam yet.
void CopyGradesTo(Tour& tour, bool secondExam)
{
    ChooseFirst(tour, "cboToAcademicYear");
    if (secondExam)
        ChooseLast(tour, "dbcExamTo");
    else
        ChooseFirst(tour, "dbcExamTo");
    ChooseLast(tour, "cboToClass");
    PressButton(tour, "chkSelectAll");
    PressButton(tour, "cmdTransfer");
}

void CopyGrades(Tour& tour, QWidget* window)
{
    Screen* screen = OpenScreen(tour, Qt::Key_T, "frmClassRankTransferSetup");
    const QString caption = screen->windowTitle();
    FillWindow(screen);
    tour.Press(Qt::Key_N, Qt::AltModifier);
    ChooseFirst(tour, "cboFromAcademicyear");
    ChooseFirst(tour, "dbcExamFrom");
    ChooseLast(tour, "cboFromClass");
    ChooseFirst(tour, "cboFromDivision");
    CopyGradesTo(tour, true);
    tour.Expect(GradesCopied);
    tour.Expect(CopyAgain, true);
    tour.Press(Qt::Key_S, Qt::AltModifier);
    tour.Done(QStringLiteral("the grades are copied to the second exam, for both divisions"));
    CopyGradesTo(tour, false);
    tour.Picture(QStringLiteral("a division that has its grades is marked and stays as it is"),
                 QStringLiteral("grade-copy.png"), window);
    tour.Expect(GradesCopied);
    tour.Expect(CopyAgain, false);
    tour.Press(Qt::Key_S, Qt::AltModifier);
    tour.Done(QStringLiteral("and to the other division in the first exam"));
    LeaveScreen(tour, "frmClassRankTransferSetup", caption);
}

/// Goes down to the subject of that number, by name, and types its marks in the order of the names.
void EnterSubject(Tour& tour, QWidget* window, int number, const std::array<const char*, 3>& marks)
{
    tour.TabTo(QStringLiteral("dbcSubject"));
    for (int step = 0; step < number; ++step)
        tour.Press(Qt::Key_Down);
    tour.Press(Qt::Key_Return);
    for (const char* mark : marks)
        tour.Fill(QString::fromLatin1(mark));
    if (number == 1)
        tour.Picture(QStringLiteral("the first marks of the school"), QStringLiteral("first-marks.png"),
                     window);
}

void EnterMarks(Tour& tour, QWidget* window)
{
    OpenScreen(tour, Qt::Key_T, "frmexammarkentry");
    tour.Press(Qt::Key_N, Qt::AltModifier);
    ChooseFirst(tour, "dbcExam");
    ChooseLast(tour, "cboClass");
    ChooseFirst(tour, "cboDivision");
    const std::array<std::array<const char*, 3>, 3> subjects{
        {{"81", "58", "43"}, {"77", "64", "39"}, {"84", "60", "48"}}};
    int number = 0;
    for (const auto& marks : subjects) {
        EnterSubject(tour, window, ++number, marks);
        tour.Expect(QStringLiteral("Record Saved"));
        tour.Expect(SameDivision, number < 3);
        tour.Press(Qt::Key_S, Qt::AltModifier);
    }
    tour.Done(QStringLiteral("the marks of the first exam are saved"));
    LeaveScreen(tour, "frmexammarkentry", QStringLiteral("Marks Entry"));
}

void PrepareRankList(Tour& tour, QWidget* window)
{
    Screen* screen = OpenScreen(tour, Qt::Key_R, "frmRankCalculation");
    FillWindow(screen);
    ChooseFirst(tour, "Cboexamname");
    ChooseLast(tour, "cboClass");
    tour.TabTo(QStringLiteral("Lstdivision"));
    tour.Press(Qt::Key_Home);
    tour.Press(Qt::Key_Space);
    PressButton(tour, "cmdUpdate");
    const auto* list = screen->findChild<FlexGrid*>(QStringLiteral("msgDisplayDetails"));
    tour.Await(QStringLiteral("the first rank list"), [&] { return list->Rows() > 3; });
    tour.Picture(QStringLiteral("the first rank list of the school"), QStringLiteral("first-rank-list.png"),
                 window);
    tour.Expect(QStringLiteral("Record Saved"));
    PressButton(tour, "cmdSave");
    tour.Done(QStringLiteral("the rank list is saved"));
    LeaveScreen(tour, "frmRankCalculation", QStringLiteral("Rank Calculation"));
}

void ShowRankCards(Tour& tour, QWidget* window)
{
    Screen* screen = OpenScreen(tour, Qt::Key_R, "frmRankCardPrinting");
    FillWindow(screen);
    tour.TabTo(QStringLiteral("Lstexamnames"));
    tour.Press(Qt::Key_Home);
    tour.Press(Qt::Key_Space);
    ChooseLast(tour, "cboClass");
    ChooseFirst(tour, "cboDivision");
    PressButton(tour, "chkSelectStudents");
    PressButton(tour, "cmdView");
    const auto* cards = screen->findChild<FlexGrid*>(QStringLiteral("msgDetails"));
    tour.Await(QStringLiteral("the first rank cards"), [&] { return cards->Rows() > 3; });
    tour.Picture(QStringLiteral("the first rank cards of the school"), QStringLiteral("first-rank-cards.png"),
                 window);
    LeaveScreen(tour, "frmRankCardPrinting", QStringLiteral("Rank Card"));
}

} // namespace

void SetUpExams(Tour& tour, QWidget* window)
{
    AddEntries(tour, window, "frmSubjectMaster",
               {{"English", "ENG"}, {"Mathematics", "MAT"}, {"Science", "SCI"}}, "three subjects",
               "subjects.png");
    AddTeacher(tour);
    AddEntries(tour, window, "frmexamnamemaster", {{"First Term", "1"}, {"Second Term", "2"}},
               "two exams, in the order of the year", "exams.png");
    SetUpSubjects(tour, window);
    SetUpGrades(tour, window);
    CopySubjects(tour, window);
    CopyGrades(tour, window);
}

void RankFirstExam(Tour& tour, QWidget* window)
{
    EnterMarks(tour, window);
    PrepareRankList(tour, window);
    ShowRankCards(tour, window);
}

} // namespace tally
