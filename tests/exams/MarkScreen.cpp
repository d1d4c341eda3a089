#include "exams/MarkScreen.h"

#include "store/Transaction.h"

#include <QClipboard>

namespace tally::test {

void MarkScreen::SetUp()
{
    ScreenFixture::SetUp();
    StopPresence();
    school = std::make_unique<TestSchool>(*Session().gcnnMain, *Session().gcnnTemp);
    Session().gintAcademicYearCode = 1;
    Session().gintUserCode = 5;
    school->AddDivision(1, "A");
    school->AddSubject(1, 1, "Eng", 2, "Yes", 100, 50);
    school->AddSubject(1, 2, "Mat", 1);
    Given("UPDATE SubjectMaster SET SubjectName = 'English' WHERE SubjectCode = 1");
    Given("UPDATE SubjectMaster SET SubjectName = 'Maths' WHERE SubjectCode = 2");
    for (const int teacher : {7, 8}) {
        Given("INSERT INTO TeacherMaster (TeacherCode, TeacherName, TeacherShortName) VALUES (?, 'T', ?)",
              teacher, QString::number(teacher));
        Given("UPDATE ClassSubjectTeacher SET TeacherCode = ? WHERE SubjectCode = ?", teacher, teacher - 6);
    }
}

void MarkScreen::TearDown()
{
    school.reset();
    ScreenFixture::TearDown();
}

void MarkScreen::AddStudents(int count)
{
    store::Transaction transaction(*Session().gcnnMain);
    for (int student = 0; student < count; ++student)
        school->AddStudent(1, QStringLiteral("Student %1").arg(student));
    transaction.Commit();
}

void MarkScreen::GivenRelieved(int studentCode)
{
    Given("UPDATE StudentMaster SET TCNo = 'TC1' WHERE StudentCode = ?", studentCode);
}

qint64 MarkScreen::Marks()
{
    return Count("SELECT count(*) FROM MarkMaster WHERE ExamCode = 1 AND ClassCode = 1 AND DivisionCode = 1 "
                 "AND AcademicYearCode = 1");
}

void MarkScreen::OpenForm()
{
    if (!form)
        SurroundSchool();
    FormDriver::OpenForm("frmexammarkentry");
    exam = Find<DataCombo>(form, "dbcExam");
    classes = Find<QComboBox>(form, "cboClass");
    divisions = Find<QComboBox>(form, "cboDivision");
    bySubject = Find<QRadioButton>(form, "Optsubject");
    byStudent = Find<QRadioButton>(form, "Optstudent");
    subjects = Find<DataCombo>(form, "dbcSubject");
    students = Find<DataCombo>(form, "dbcStudent");
    grid = Find<FlexGrid>(form, "msgDetails");
    mark = Find<FloatingEditor>(form, "txtmarkobtained");
    presence = Find<FloatingCombo>(form, "cboPresentAbsent");
    average = Find<QLabel>(form, "txtaverageMark");
}

void MarkScreen::OpenNew()
{
    OpenForm();
    Press(Button("cmdNew"));
}

std::string MarkScreen::Focus() const
{
    const QWidget* focused = QApplication::focusWidget();
    return focused ? focused->objectName().toStdString() : std::string();
}

std::string MarkScreen::EnabledControls()
{
    QStringList names;
    for (const char* name : {"Frame1", "dbcSubject", "dbcStudent", "fraMain", "cmdNew", "cmdEdit",
                             "cmdDelete", "cmdSave", "cmdCancel", "cmdExit"})
        if (IsEnabled(name))
            names.append(QString::fromLatin1(name));
    return names.join(QLatin1Char(' ')).toStdString();
}

std::string MarkScreen::Entries(const QComboBox* list)
{
    QStringList texts;
    for (int index = 0; index < list->count(); ++index)
        texts.append(list->itemText(index));
    return texts.join(QLatin1Char('|')).toStdString();
}

void MarkScreen::ChooseClassDivision()
{
    Choose(exam, QStringLiteral("Term One"));
    Choose(classes, QStringLiteral("X"));
    Choose(divisions, QStringLiteral("A"));
}

void MarkScreen::StartSubject(const QString& subject)
{
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, subject);
    QTest::keyClick(subjects, Qt::Key_Return);
    ASSERT_TRUE(mark->hasFocus());
}

void MarkScreen::StartStudent(const QString& student)
{
    OpenNew();
    ChooseClassDivision();
    Press(byStudent);
    Choose(students, student);
    QTest::keyClick(students, Qt::Key_Return);
    ASSERT_TRUE(mark->hasFocus());
}

void MarkScreen::ShowStoredSubject(const QString& subject)
{
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, subject);
    prompts.ExpectQuestion(AlreadyEntered, true);
    QTest::keyClick(subjects, Qt::Key_Return);
    prompts.Verify();
}

void MarkScreen::ShowStoredStudent(const QString& student)
{
    OpenNew();
    ChooseClassDivision();
    Press(byStudent);
    Choose(students, student);
    prompts.ExpectQuestion(AlreadyEnteredForStudent, true);
    QTest::keyClick(students, Qt::Key_Return);
    prompts.Verify();
}

void MarkScreen::Paste(const QString& text)
{
    QApplication::clipboard()->setText(text);
    QTest::keyClick(mark, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(mark, Qt::Key_V, Qt::ControlModifier);
}

std::string MarkScreen::RowText(int row) const
{
    QStringList texts;
    for (int col = 0; col <= 3; ++col)
        texts.append(grid->TextMatrix(row, col));
    return texts.join(QLatin1Char('|')).toStdString();
}

std::string MarkScreen::Rows() const
{
    std::string rows;
    for (int row = 1; row < grid->Rows(); ++row)
        rows += RowText(row) + (row + 1 < grid->Rows() ? " " : "");
    return rows;
}

std::string MarkScreen::Stored()
{
    QStringList rows;
    store::Statement statement = Session().gcnnMain->Query(
        QStringLiteral("SELECT StudentCode, SubjectCode, Mark, LeaveOrPresent, TeacherCode, UserCode FROM "
                       "MarkMaster WHERE ExamCode = 1 AND ClassCode = 1 AND DivisionCode = 1 AND "
                       "AcademicYearCode = 1 ORDER BY StudentCode, SubjectCode"));
    while (statement.Next()) {
        QStringList row;
        for (int column = 0; column < statement.ColumnCount(); ++column)
            row.append(column == 2 ? QString::number(statement.Double(column)) : statement.Text(column));
        rows.append(row.join(QLatin1Char(' ')));
    }
    return rows.join(QStringLiteral("; ")).toStdString();
}

void MarkScreenOfThree::SetUp()
{
    MarkScreen::SetUp();
    for (const char* name : {"Asha", "Binu", "Cara"})
        school->AddStudent(1, QString::fromLatin1(name));
}

} // namespace tally::test
