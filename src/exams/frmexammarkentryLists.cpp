// What the marks are entered for: exam, class-division, and the subject or the student.

#include "core/SessionContext.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/ScreenRegistry.h"
#include "exams/frmexammarkentry.h"
#include "exams/MarkEntryColumns.h"
#include "exams/MarkEntryTexts.h"
#include "ui_frmexammarkentry.h"

namespace tally {

namespace {

const QString ExamMaster = QStringLiteral("frmexamnamemaster");

} // namespace

void frmexammarkentry::LoadExam()
{
    const int chosen = ui_->dbcExam->BoundCode();
    Read([this] { ui_->dbcExam->SetList(Lists().ExamsBehindBlank()); });
    ui_->dbcExam->SetBoundCode(chosen);
}

void frmexammarkentry::LoadClass()
{
    Read([this] { ui_->cboClass->SetListBehindBlank(Lists().Classes()); });
}

void frmexammarkentry::LoadDivision()
{
    ui_->cboDivision->SetListBehindBlank({});
    const int classCode = Scope().classCode;
    if (classCode != 0)
        Read([&] { ui_->cboDivision->SetListBehindBlank(Lists().DivisionsByName(classCode)); });
}

void frmexammarkentry::LoadSubject()
{
    const auto subjects = Marks().Subjects(Scope());
    ui_->dbcSubject->SetList(subjects);
    if (subjects.empty())
        Prompts::Information(NoSubjects);
}

void frmexammarkentry::LoadStudent()
{
    const auto students = Marks().Students(Scope());
    ui_->dbcStudent->SetList(students);
    if (students.empty())
        Prompts::Information(NoStudents);
}

void frmexammarkentry::cmdAddExam_Click()
{
    ShowForm(ExamMaster);
    NoteOpenExamMaster();
}

void frmexammarkentry::NoteOpenExamMaster()
{
    examsOpened_ = ScreenRegistry::OpenInstance(ExamMaster) != nullptr;
}

void frmexammarkentry::Form_Activate(bool)
{
    if (!examsOpened_)
        return;
    LoadExam();
    ui_->dbcExam->setFocus();
    // Until it is closed, the exam master may be gone back to for one more exam.
    NoteOpenExamMaster();
}

void frmexammarkentry::dbcExam_Change()
{
    // What is on the screen belongs to the exam before.
    ResetGrid();
    if (sheet_.Mode() == MarkMode::Subject)
        Optsubject_Click();
    else
        Optstudent_Click();
}

void frmexammarkentry::cboClass_Click()
{
    EmptyLists();
    ResetGrid();
    LoadDivision();
}

void frmexammarkentry::cboDivision_Click()
{
    ResetGrid();
    if (Scope().divisionCode == 0)
        EmptyLists();
    Optsubject_Click();
}

void frmexammarkentry::EmptyLists()
{
    for (DataCombo* list : {ui_->dbcSubject, ui_->dbcStudent})
        list->SetList({});
}

void frmexammarkentry::UseMode(MarkMode mode)
{
    const bool bySubject = mode == MarkMode::Subject;
    if (mode != sheet_.Mode())
        ResetGrid();
    sheet_.UseMode(mode);
    (bySubject ? ui_->Optsubject : ui_->Optstudent)->setChecked(true);
    for (DataCombo* list : {ui_->dbcSubject, ui_->dbcStudent}) {
        list->SetBoundCode(0);
        list->setEnabled(list == List());
        list->setVisible(list == List());
    }
    EmptyMarks();
    ui_->Label4->setText(bySubject ? QStringLiteral("Subject Name :") : QStringLiteral("Student Name :"));
    ui_->Label4->setBuddy(List());
    ui_->Label2->setText(bySubject ? QStringLiteral("Class Average For The Selected Subject :")
                                   : QStringLiteral("Average :"));
    for (QWidget* limit : std::initializer_list<QWidget*>{ui_->lblMaximumAllowed, ui_->txtmaximumallowed})
        limit->setVisible(bySubject);
    ui_->msgDetails->SetTextMatrix(
        0, NameCol, bySubject ? QStringLiteral("Student Name") : QStringLiteral("Subject Name"));
}

void frmexammarkentry::Optsubject_Click()
{
    UseMode(MarkMode::Subject);
    if (!Scope().IsComplete())
        return;
    ReadList([this] {
        LoadSubject();
        ListStudents();
    });
}

void frmexammarkentry::ListStudents()
{
    const auto students = Marks().StudentsToMark(Scope(), true);
    sheet_.ListStudents(students);
    ShowRows();
    if (students.empty() && !Marks().HasStudents(Scope()))
        Prompts::Information(NoStudents);
}

void frmexammarkentry::Optstudent_Click()
{
    UseMode(MarkMode::Student);
    if (!Scope().IsComplete())
        return;
    ReadList([this] {
        LoadStudent();
        ResetGrid();
        const auto subjects = Marks().SubjectsToMark(Scope());
        sheet_.ListSubjects(subjects);
        ShowRows();
        if (subjects.empty())
            Prompts::Information(NoSubjects);
    });
}

void frmexammarkentry::ReadList(const std::function<void()>& work)
{
    if (Read(work))
        return;
    // Whoever could be chosen without his rows would lose his marks with the next save.
    EmptyLists();
    ResetGrid();
}

void frmexammarkentry::List_Change()
{
    HideEntryControls();
    const int chosen = List()->BoundCode();
    if (!Scope().IsComplete() || chosen == 0) {
        EmptyMarks();
        return;
    }
    const bool known = Read([&] {
        const store::ReadTransaction reading(MainStore());
        std::optional<MarkSubject> subject;
        if (sheet_.Mode() == MarkMode::Subject) {
            subject = Marks().FindSubject(Scope(), chosen);
            if (!subject) {
                // The class has given the subject up meanwhile: the rows stay to be looked at, but their
                // marks are not those of this subject, and an edit must not replace its marks by them.
                MarksExist_ = false;
                return;
            }
        }
        TakeStored(subject, Marks().StoredMarks(Scope(), sheet_.Mode(), chosen));
    });
    if (known)
        return;
    // The rows are those of the choice before.
    EmptyList();
    MarksExist_ = false;
}

void frmexammarkentry::TakeStored(const std::optional<MarkSubject>& subject,
                                  const std::vector<StoredMark>& stored)
{
    if (subject)
        sheet_.StartSubject(*subject);
    else
        sheet_.StartStudent();
    sheet_.TakeMarks(stored);
    MarksExist_ = !stored.empty();
    ShowRows();
}

bool frmexammarkentry::ListStudentsForEdit()
{
    return Read([this] {
        const int chosen = List()->BoundCode();
        {
            const store::ReadTransaction reading(MainStore());
            // Who was relieved has no place in a list that is edited, and his marks go with the next save.
            const auto students = Marks().StudentsToMark(Scope(), false);
            const auto subject = Marks().FindSubject(Scope(), chosen);
            const auto stored = Marks().StoredMarks(Scope(), sheet_.Mode(), chosen);
            sheet_.ListStudentsAgain(students);
            TakeStored(subject, stored);
        }
        if (sheet_.RowCount() == 0)
            Prompts::Information(NoStudents);
    });
}

bool frmexammarkentry::IsChosen()
{
    const QString request = sheet_.Mode() == MarkMode::Subject ? QStringLiteral("Select Subject Name")
                                                               : QStringLiteral("Select Student Name");
    return !List()->IsBlank() || Refuse(request, List());
}

void frmexammarkentry::EmptyList()
{
    List()->SetBoundCode(0);
    EmptyMarks();
}

void frmexammarkentry::EmptyMarks()
{
    sheet_.EmptyMarks();
    ShowRows();
}

bool frmexammarkentry::List_Validate()
{
    if (!ui_->fraMain->isEnabled() || !Scope().IsComplete() || List()->IsBlank())
        return true;
    if (!MarksExist_) {
        ShowEntryControl(MarkField::Mark, 1);
        return true;
    }
    const QString whose =
        sheet_.Mode() == MarkMode::Subject ? QStringLiteral("Subject") : QStringLiteral("Student");
    if (!Prompts::Ask(QStringLiteral("Marks Are Already Entered For This %1. Do You Want To "
                                     "View/Edit/Delete The Details ?")
                          .arg(whose))) {
        EmptyList();
        MarksExist_ = false;
        return false;
    }
    HideEntryControls();
    ui_->fraMain->setEnabled(false);
    ui_->cmdEdit->setEnabled(true);
    ui_->cmdDelete->setEnabled(true);
    ui_->cmdSave->setEnabled(false);
    ui_->cmdEdit->setFocus();
    return true;
}

bool frmexammarkentry::cboDivision_KeyPress(int key)
{
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    if (Scope().divisionCode != 0) {
        Optsubject_Click();
        focusNextChild();
    }
    return true;
}

} // namespace tally
