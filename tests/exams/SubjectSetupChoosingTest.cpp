#include "core/ui/ScreenRegistry.h"
#include "exams/SubjectSetupScreen.h"

namespace tally::test {
namespace {

/// What the choice of a division brings, in each state of the screen, and what the buttons make of it.
class SubjectSetupChoosing : public SubjectSetupScreen
{
protected:
    static std::string Entries(const QComboBox* list)
    {
        QStringList texts;
        for (int index = 0; index < list->count(); ++index)
            texts.append(list->itemText(index));
        return texts.join(QLatin1Char('|')).toStdString();
    }
    const std::string setOfA = "1|Maths|Noor|100|100|Yes|1 2|English|Mary|100|50|No|2 3||||||";
};

TEST_F(SubjectSetupChoosing, TheListsBeginWithABlankAndTheDivisionsAreThoseOfTheClass)
{
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 2, 0)");
    Given("INSERT INTO ClassDivisionDetails VALUES (2, 'Z', 1)");
    OpenForm();
    EXPECT_EQ(Entries(classes), " |X|IX") << "in the order of the classes";
    EXPECT_EQ(Entries(divisions), " ");
    Choose(classes, QStringLiteral("X"));
    EXPECT_EQ(Entries(divisions), " |A|B");
    Choose(classes, QStringLiteral("IX"));
    EXPECT_EQ(Entries(divisions), " |Z");
    EXPECT_EQ(Entries(subject), " |Art|English|Maths|Tamil");
    EXPECT_EQ(Entries(teacher), " |Mary|Noor|Omar");
    EXPECT_EQ(Entries(rank), " |Yes|No");
}

TEST_F(SubjectSetupChoosing, AStoredSetIsShownBeforeNewToo)
{
    OpenForm();
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(Rows(), "1||||||");
    ChooseDivision("A");
    EXPECT_EQ(Rows(), setOfA);
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(Focus(), "cmdEdit");
    EXPECT_EQ(Total(), "100");
}

TEST_F(SubjectSetupChoosing, ADivisionWithoutASetOpensItsFirstRowInNewOnly)
{
    OpenForm();
    ChooseDivision("B");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(Focus(), "cmdNew") << "Enter leads on";
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(EnabledControls(), Entering);
    EXPECT_EQ(Focus(), "dbcSubject");
    EXPECT_EQ(subject->Row(), 1);
}

TEST_F(SubjectSetupChoosing, NewLeadsToWhatIsNotChosenYet)
{
    OpenNew();
    EXPECT_EQ(EnabledControls(), Entering);
    EXPECT_EQ(Focus(), "cboClass");
    EXPECT_EQ(Rows(), "1||||||");
    Press(Button("cmdCancel"));
    Choose(classes, QStringLiteral("X"));
    Press(Button("cmdNew"));
    EXPECT_EQ(Focus(), "cboDivision");
}

TEST_F(SubjectSetupChoosing, NewOnADivisionWithASetShowsItAndInsertsNothing)
{
    OpenNew();
    ChooseDivision("A");
    EXPECT_EQ(Rows(), setOfA);
    EXPECT_EQ(EnabledControls(), Found) << "nothing can be saved but an edit";
    EXPECT_EQ(Focus(), "cmdEdit");
    ChooseDivision("B");
    EXPECT_EQ(EnabledControls(), Entering) << "New still holds for a division without a set";
    EXPECT_EQ(Focus(), "dbcSubject");
}

TEST_F(SubjectSetupChoosing, NewLooksAgainWhetherAnotherClientHasStoredASet)
{
    OpenForm();
    ChooseDivision("B");
    Other("INSERT INTO ClassSubjectTeacher VALUES (1, 1, 2, 3, 9, 50, 40, 'Yes', 1)");
    Press(Button("cmdNew"));
    EXPECT_EQ(Rows(), "1|Art|Omar|50|40|Yes|1 2||||||");
    EXPECT_EQ(EnabledControls(), Found);
}

TEST_F(SubjectSetupChoosing, AClassOrADivisionTakenBackEmptiesTheGrid)
{
    OpenForm();
    ChooseDivision("A");
    Choose(divisions, QStringLiteral(" "));
    EXPECT_EQ(Rows(), "1||||||");
    EXPECT_EQ(EnabledControls(), Idle);
    QTest::keyClick(divisions, Qt::Key_Return);
    EXPECT_EQ(Rows(), "1||||||");
    ChooseDivision("A");
    Choose(classes, QStringLiteral(" "));
    EXPECT_EQ(Rows(), "1||||||");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_TRUE(divisions->IsBlank());
}

TEST_F(SubjectSetupChoosing, ChoosingAnotherDivisionEndsAnEdit)
{
    StartEdit();
    ChooseDivision("B");
    EXPECT_EQ(EnabledControls(), Idle) << "a first set asks for New and its right";
    ChooseDivision("A");
    EXPECT_EQ(EnabledControls(), Found);
}

TEST_F(SubjectSetupChoosing, EditReadsTheSetAnewAndStandsOnItsFirstCell)
{
    OpenForm();
    ChooseDivision("A");
    Other("UPDATE ClassSubjectTeacher SET MaximumAllowed = 90 WHERE SubjectCode = 2 AND ClassCode = 1 AND "
          "DivisionCode = 1 AND AcademicYearCode = 1");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(EnabledControls(), Entering);
    EXPECT_EQ(RowText(1), "1|Maths|Noor|100|90|Yes|1");
    EXPECT_EQ(Focus(), "msgDetails");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "dbcSubject");
    EXPECT_EQ(subject->Row(), 1);
}

TEST_F(SubjectSetupChoosing, EditOfASetThatHasGoneMeanwhileShowsThatThereIsNone)
{
    OpenForm();
    ChooseDivision("A");
    Other(
        "DELETE FROM ClassSubjectTeacher WHERE ClassCode = 1 AND DivisionCode = 1 AND AcademicYearCode = 1");
    Press(Button("cmdEdit"));
    EXPECT_EQ(Rows(), "1||||||");
    EXPECT_EQ(EnabledControls(), Idle);
}

TEST_F(SubjectSetupChoosing, CancelEmptiesEverything)
{
    StartEdit();
    Retype("txtDeleteSlNo", "1");
    Click(1, 3);
    QTest::keyClicks(maximum, QStringLiteral("7"));
    Press(Button("cmdCancel"));
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_TRUE(divisions->IsBlank());
    EXPECT_EQ(Rows(), "1||||||");
    EXPECT_EQ(TextOf("txtDeleteSlNo"), "");
    EXPECT_EQ(Focus(), "cmdNew");
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 50/100 No");
}

TEST_F(SubjectSetupChoosing, NewEditAndDeleteAskForTheirRights)
{
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 9;
    OpenForm();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    prompts.Verify();
    EXPECT_EQ(EnabledControls(), Idle);
    ChooseDivision("A");
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    prompts.Verify();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Delete"));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(EnabledControls(), Found);
}

TEST_F(SubjectSetupChoosing, ASetThatCannotBeReadIsNotTakenForNone)
{
    OpenNew();
    Choose(classes, QStringLiteral("X"));
    Given("ALTER TABLE TeacherMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("TeacherMaster"));
    QTest::keyClick(divisions, Qt::Key_Down);
    prompts.Verify();
    Given("ALTER TABLE Away RENAME TO TeacherMaster");
    EXPECT_TRUE(divisions->IsBlank());
    EXPECT_EQ(Rows(), "1||||||");
    Click(1, 1);
    EXPECT_FALSE(subject->isVisible()) << "without a division nothing is entered";
    Choose(divisions, QStringLiteral("A"));
    EXPECT_EQ(Rows(), setOfA);
}

TEST_F(SubjectSetupChoosing, ASubjectAndATeacherAddedOnTopCanBeChosenOnReturn)
{
    StartNew();
    PressKey(form, Qt::Key_S, Qt::AltModifier | Qt::ShiftModifier);
    Screen* master = ScreenRegistry::OpenInstance(QStringLiteral("frmSubjectMaster"));
    ASSERT_NE(master, nullptr);
    Given("INSERT INTO SubjectMaster VALUES (5, 'Botany', 'Bot', 0)");
    master->Unload();
    Settle();
    EXPECT_EQ(Entries(subject), " |Art|Botany|English|Maths|Tamil");
    EXPECT_EQ(Focus(), "msgDetails") << "on the cell from which the master was opened";
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "dbcSubject");
    Enter("Botany");
    PressKey(form, Qt::Key_T, Qt::AltModifier | Qt::ShiftModifier);
    master = ScreenRegistry::OpenInstance(QStringLiteral("frmTeacherMaster"));
    ASSERT_NE(master, nullptr);
    Given("INSERT INTO TeacherMaster (TeacherCode, TeacherName, TeacherShortName) VALUES (12, 'Paul', 'P')");
    master->Unload();
    Settle();
    EXPECT_EQ(Entries(teacher), " |Mary|Noor|Omar|Paul");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "dbcTeacher");
    Enter("Paul");
    EXPECT_EQ(RowText(1), "1|Botany|Paul||||");
}

TEST_F(SubjectSetupChoosing, AClassAddedOnTopCanBeChosenOnReturn)
{
    OpenForm();
    ChooseDivision("A");
    Press(Button("cmdAddClass"));
    Screen* master = ScreenRegistry::OpenInstance(QStringLiteral("frmMasClassSectionEntry"));
    ASSERT_NE(master, nullptr);
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 2, 0)");
    Given("INSERT INTO ClassDivisionDetails VALUES (1, 'C', 3)");
    master->Unload();
    Settle();
    EXPECT_EQ(Entries(classes), " |X|IX");
    EXPECT_EQ(Entries(divisions), " |A|B|C");
    EXPECT_EQ(divisions->currentText().toStdString(), "A");
    EXPECT_EQ(Rows(), setOfA);
}

TEST_F(SubjectSetupChoosing, ADivisionDeletedOnTopTakesWhatWasTypedForItAlong)
{
    StartNew();
    Enter("Art");
    PressKey(form, Qt::Key_C, Qt::AltModifier | Qt::ShiftModifier);
    Screen* master = ScreenRegistry::OpenInstance(QStringLiteral("frmMasClassSectionEntry"));
    ASSERT_NE(master, nullptr);
    LeaveOthersUnguarded();
    Given("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 2");
    master->Unload();
    Settle();
    EXPECT_EQ(Entries(divisions), " |A");
    EXPECT_EQ(Rows(), "1||||||");
    EXPECT_EQ(EnabledControls(), Entering);
}

TEST_F(SubjectSetupChoosing, TheYearIsTheOneOfTheSession)
{
    Given("INSERT INTO AcademicYearSetup VALUES (2, 2025, 2026, '2025-06-01', '2026-05-31', 'N', 'N', 0)");
    Session().gintAcademicYearCode = 2;
    OpenForm();
    ChooseDivision("A");
    EXPECT_EQ(Rows(), "1||||||");
    EXPECT_EQ(EnabledControls(), Idle);
}

TEST_F(SubjectSetupChoosing, ALargeSetIsReadWithAsManyStatementsAsASmallOne)
{
    OpenForm();
    Choose(classes, QStringLiteral("X"));
    const auto before = Session().gcnnMain->StatementsRun();
    Choose(divisions, QStringLiteral("A"));
    const auto statements = Session().gcnnMain->StatementsRun() - before;
    for (int code = 5; code < 20; ++code)
        school->AddSubject(2, code, QByteArray::number(code).constData(), code);
    const auto again = Session().gcnnMain->StatementsRun();
    Choose(divisions, QStringLiteral("B"));
    EXPECT_EQ(grid->Rows(), 17);
    EXPECT_LE(Session().gcnnMain->StatementsRun() - again, 2 * statements)
        << "the way to B leads over A once more";
}

} // namespace
} // namespace tally::test
