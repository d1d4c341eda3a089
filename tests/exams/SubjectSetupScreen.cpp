#include "exams/SubjectSetupScreen.h"

#include <QClipboard>
#include <QLabel>

namespace tally::test {

void SubjectSetupScreen::SetUp()
{
    ScreenFixture::SetUp();
    StopPresence();
    school = std::make_unique<TestSchool>(*Session().gcnnMain, *Session().gcnnTemp);
    Session().gintAcademicYearCode = 1;
    Session().gintUserCode = 5;
    school->AddDivision(1, "A");
    school->AddDivision(2, "B");
    school->AddSubject(1, 1, "Eng", 2, "No", 100, 50);
    school->AddSubject(1, 2, "Mat", 1);
    Given("UPDATE SubjectMaster SET SubjectName = 'English' WHERE SubjectCode = 1");
    Given("UPDATE SubjectMaster SET SubjectName = 'Maths' WHERE SubjectCode = 2");
    Given("INSERT INTO SubjectMaster VALUES (3, 'Art', 'Art', 0)");
    Given("INSERT INTO SubjectMaster VALUES (4, 'Tamil', 'Tam', 0)");
    for (const auto& [code, name] : {std::pair{7, "Mary"}, std::pair{8, "Noor"}, std::pair{9, "Omar"}})
        Given("INSERT INTO TeacherMaster (TeacherCode, TeacherName, TeacherShortName) VALUES (?, ?, ?)", code,
              name, QString::number(code));
    Given("UPDATE ClassSubjectTeacher SET TeacherCode = SubjectCode + 6");
    school->AddStudent(1, QStringLiteral("Asha"));
}

void SubjectSetupScreen::TearDown()
{
    school.reset();
    ScreenFixture::TearDown();
}

void SubjectSetupScreen::OpenForm()
{
    // A set belongs to all exams of a year, so that a neighbour's exam is no other set.
    if (!form)
        SurroundSchool({Side::Year, Side::Class, Side::Division});
    FormDriver::OpenForm("frmClassSubjectTeacher");
    classes = List("cboClass");
    divisions = List("cboDivision");
    grid = Find<FlexGrid>(form, "msgDetails");
    subject = Find<FloatingCombo>(form, "dbcSubject");
    teacher = Find<FloatingCombo>(form, "dbcTeacher");
    maximum = Find<FloatingEditor>(form, "txtmaximummark");
    allowed = Find<FloatingEditor>(form, "TxtMaximumAllowed");
    rank = Find<FloatingCombo>(form, "cboRankYesNo");
    order = Find<FloatingEditor>(form, "txtOrder");
}

void SubjectSetupScreen::OpenNew()
{
    OpenForm();
    Press(Button("cmdNew"));
}

void SubjectSetupScreen::ChooseClass() const
{
    Choose(classes, QStringLiteral("X"));
    QTest::keyClick(classes, Qt::Key_Return);
}

void SubjectSetupScreen::ChooseDivision(const char* division)
{
    ChooseClass();
    Choose(divisions, QString::fromLatin1(division));
    QTest::keyClick(divisions, Qt::Key_Return);
}

void SubjectSetupScreen::StartNew()
{
    OpenNew();
    ChooseDivision("B");
    ASSERT_EQ(Focus(), "dbcSubject");
}

void SubjectSetupScreen::StartEdit()
{
    OpenForm();
    ChooseDivision("A");
    Press(Button("cmdEdit"));
    ASSERT_EQ(EnabledControls(), Typing);
}

std::string SubjectSetupScreen::Focus() const
{
    const QWidget* focused = QApplication::focusWidget();
    return focused ? focused->objectName().toStdString() : std::string();
}

std::string SubjectSetupScreen::EnabledControls()
{
    QStringList names;
    for (const char* name :
         {"Frame1", "fraMain", "cmdNew", "cmdEdit", "cmdDelete", "cmdSave", "cmdCancel", "cmdExit"})
        if (IsEnabled(name))
            names.append(QString::fromLatin1(name));
    return names.join(QLatin1Char(' ')).toStdString();
}

void SubjectSetupScreen::DeleteRow(int row, bool answer)
{
    Retype("txtDeleteSlNo", QByteArray::number(row).constData());
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete S.No. %1 ?").arg(row), answer);
    Press(Button("cmdDeleteRow"));
}

void SubjectSetupScreen::EnterCells(std::initializer_list<const char*> cells)
{
    for (const char* keys : cells)
        Enter(keys);
}

void SubjectSetupScreen::Paste(QWidget* box, const QString& text)
{
    QApplication::clipboard()->setText(text);
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
}

std::string SubjectSetupScreen::RowText(int row) const
{
    QStringList texts;
    for (int col = 0; col <= 6; ++col)
        texts.append(grid->TextMatrix(row, col));
    return texts.join(QLatin1Char('|')).toStdString();
}

std::string SubjectSetupScreen::Rows() const
{
    std::string rows;
    for (int row = 1; row < grid->Rows(); ++row)
        rows += RowText(row) + (row + 1 < grid->Rows() ? " " : "");
    return rows;
}

std::string SubjectSetupScreen::Total() const
{
    return Find<QLabel>(form, "lblMaximumMark")->text().toStdString();
}

std::string SubjectSetupScreen::Stored(int division)
{
    QStringList rows;
    store::Statement statement = Session().gcnnMain->Query(
        QStringLiteral(
            "SELECT SlNo, SubjectCode, TeacherCode, MaximumAllowed, MaximumMark, TakenForRank FROM "
            "ClassSubjectTeacher WHERE ClassCode = 1 AND DivisionCode = ? AND AcademicYearCode = 1 "
            "ORDER BY SlNo"),
        division);
    while (statement.Next())
        rows.append(QStringLiteral("%1 %2 %3 %4/%5 %6")
                        .arg(statement.Text(0), statement.Text(1), statement.Text(2),
                             QString::number(statement.Double(3)), QString::number(statement.Double(4)),
                             statement.Text(5)));
    return rows.join(QStringLiteral("; ")).toStdString();
}

void SubjectSetupScreen::GivenMark(int code, double mark)
{
    school->EnterMark(1, code, mark);
}

} // namespace tally::test
