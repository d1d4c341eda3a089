#include "core/ui/ScreenRegistry.h"
#include "exams/SubjectSetupScreen.h"

#include <QAbstractItemView>

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
    /// The master screen over this one, as its side button opens it.
    Screen* OpenMaster(const char* button, const char* formName)
    {
        Press(Button(button));
        Screen* master = ScreenRegistry::OpenInstance(QString::fromLatin1(formName));
        EXPECT_NE(master, nullptr);
        return master;
    }
    static void Leave(Screen* master)
    {
        master->Unload();
        Settle();
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
    ChooseClass();
    EXPECT_EQ(Entries(divisions), " |A|B");
    Choose(classes, QStringLiteral("IX"));
    EXPECT_EQ(Entries(divisions), " ") << "those of X are not offered for another class";
    PressKey(form, Qt::Key_Tab);
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

TEST_F(SubjectSetupChoosing, TheArrowsReadNothingAndTheRowsOfAnotherChoiceDoNotStay)
{
    OpenForm();
    const auto reads = [] { return Session().gcnnMain->StatementsRun(); };
    auto before = reads();
    Choose(classes, QStringLiteral("X"));
    EXPECT_EQ(reads(), before);
    PressKey(form, Qt::Key_Tab);
    EXPECT_EQ(Focus(), "cboDivision");
    EXPECT_EQ(Entries(divisions), " |A|B");
    before = reads();
    Choose(divisions, QStringLiteral("B"));
    Choose(divisions, QStringLiteral("A"));
    EXPECT_EQ(Rows(), "1||||||");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(reads(), before);
    PressKey(form, Qt::Key_Tab);
    EXPECT_EQ(Rows(), setOfA);
    divisions->setFocus();
    before = reads();
    PressKey(form, Qt::Key_Down);
    EXPECT_EQ(Rows(), "1||||||") << "they are not those of B";
    EXPECT_EQ(EnabledControls(), Idle);
    PressKey(form, Qt::Key_Up);
    EXPECT_EQ(reads(), before);
    PressKey(form, Qt::Key_Tab);
    EXPECT_EQ(Rows(), setOfA);
}

TEST_F(SubjectSetupChoosing, TabLeadsOnAsEnterDoesAndWhoGoesBackIsNotHeld)
{
    OpenForm();
    ChooseClass();
    Choose(divisions, QStringLiteral("A"));
    QTest::keyClick(divisions, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Rows(), setOfA);
    EXPECT_EQ(Focus(), "cboClass");
    divisions->setFocus();
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Up);
    PressKey(form, Qt::Key_Tab);
    EXPECT_EQ(Focus(), "cmdEdit");
    Choose(divisions, QStringLiteral("B"));
    Press(Button("cmdNew"));
    EXPECT_EQ(Focus(), "dbcSubject");
}

TEST_F(SubjectSetupChoosing, AnEntryPickedFromTheOpenListIsRead)
{
    OpenForm();
    ChooseClass();
    divisions->showPopup();
    divisions->view()->setCurrentIndex(divisions->model()->index(1, 0));
    QTest::keyClick(divisions->view(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(Rows(), setOfA);
    EXPECT_EQ(FocusName(), "cmdEdit");
}

TEST_F(SubjectSetupChoosing, AChoiceLeftToGiveUpIsReadBeforeAnythingIsTypedForIt)
{
    OpenNew();
    ChooseClass();
    Choose(divisions, QStringLiteral("A"));
    Button("cmdExit")->setFocus();
    EXPECT_EQ(Rows(), "1||||||") << "who gives up waits for nothing";
    Click(1, 1);
    EXPECT_EQ(Rows(), setOfA);
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_FALSE(subject->isVisible());
    Choose(divisions, QStringLiteral("B"));
    Button("cmdExit")->setFocus();
    Click(1, 1);
    Enter("Art");
    Click(1, 2);
    EXPECT_EQ(RowText(1), "1|Art|||||") << "it is not read once more";
}

TEST_F(SubjectSetupChoosing, ASaveShowsTheSetOfAChoiceThatWasLeftToGiveUpAndStoresNothing)
{
    OpenNew();
    ChooseClass();
    Choose(divisions, QStringLiteral("A"));
    Button("cmdExit")->setFocus();
    const auto changes = [] { return Session().gcnnMain->Number(QStringLiteral("SELECT total_changes()")); };
    const auto before = changes();
    Press(Button("cmdSave"));
    EXPECT_EQ(Rows(), setOfA);
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(changes(), before);
}

TEST_F(SubjectSetupChoosing, AChoiceThatWasLeftToGiveUpIsReadOnTheWayBackFromTheClasses)
{
    OpenForm();
    ChooseClass();
    Choose(divisions, QStringLiteral("A"));
    Button("cmdExit")->setFocus();
    Screen* master = OpenMaster("cmdAddClass", "frmMasClassSectionEntry");
    EXPECT_EQ(Rows(), "1||||||");
    Leave(master);
    EXPECT_EQ(Rows(), setOfA);
    EXPECT_EQ(EnabledControls(), Found);
}

TEST_F(SubjectSetupChoosing, WhatIsTypedForAChoiceThatWasLeftToGiveUpStays)
{
    OpenForm();
    ChooseClass();
    Choose(divisions, QStringLiteral("B"));
    Button("cmdExit")->setFocus();
    Press(Button("cmdNew"));
    ASSERT_EQ(Focus(), "dbcSubject");
    Enter("Art");
    Click(1, 2);
    EXPECT_EQ(RowText(1), "1|Art|||||");
}

TEST_F(SubjectSetupChoosing, WhatIsTypedKeepsItsClassDivisionUntilCancel)
{
    StartNew();
    EXPECT_EQ(EnabledControls(), Entering);
    Enter("Art");
    EXPECT_EQ(EnabledControls(), Typing);
    PressKey(form, Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(Focus(), "dbcTeacher") << "the class cannot be reached";
    QTest::keyClick(classes, Qt::Key_Home);
    EXPECT_EQ(RowText(1), "1|Art|||||");
    Click(1, 1);
    QTest::keyClick(subject, Qt::Key_Delete);
    EXPECT_EQ(EnabledControls(), Entering) << "nothing is typed any more";
    QTest::keyClicks(subject, QStringLiteral("T"));
    EXPECT_EQ(EnabledControls(), Typing);
    Press(Button("cmdCancel"));
    EXPECT_EQ(EnabledControls(), Idle);
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

TEST_F(SubjectSetupChoosing, WhileASetIsEditedNoOtherOneCanBeChosen)
{
    StartEdit();
    QTest::keyClick(divisions, Qt::Key_Down);
    EXPECT_EQ(divisions->currentText().toStdString(), "A");
    EXPECT_EQ(Rows(), setOfA);
    Press(Button("cmdCancel"));
    ChooseDivision("B");
    EXPECT_EQ(EnabledControls(), Idle) << "a first set asks for New and its right";
}

TEST_F(SubjectSetupChoosing, EditReadsTheSetAnewAndStandsOnItsFirstCell)
{
    OpenForm();
    ChooseDivision("A");
    Other("UPDATE ClassSubjectTeacher SET MaximumAllowed = 90 WHERE SubjectCode = 2 AND ClassCode = 1 AND "
          "DivisionCode = 1 AND AcademicYearCode = 1");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(EnabledControls(), Typing);
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
    EXPECT_EQ(Focus(), "cboDivision");
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
    ChooseClass();
    Given("ALTER TABLE TeacherMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("TeacherMaster"));
    QTest::keyClick(divisions, Qt::Key_Down);
    QTest::keyClick(divisions, Qt::Key_Return);
    prompts.Verify();
    Given("ALTER TABLE Away RENAME TO TeacherMaster");
    EXPECT_TRUE(divisions->IsBlank());
    EXPECT_EQ(Rows(), "1||||||");
    Click(1, 1);
    EXPECT_FALSE(subject->isVisible()) << "without a division nothing is entered";
    ChooseDivision("A");
    EXPECT_EQ(Rows(), setOfA);
}

TEST_F(SubjectSetupChoosing, WithoutTheListsNothingCanBeBegunUntilTheyAreRead)
{
    for (const char* table : {"ClassDivisionMaster", "SubjectMaster", "TeacherMaster"}) {
        Given(QStringLiteral("ALTER TABLE %1 RENAME TO Away").arg(QLatin1String(table)).toLatin1());
        prompts.ExpectCritical(NoSuchTable(table));
        if (form)
            Press(Button("cmdCancel"));
        else
            FormDriver::OpenForm("frmClassSubjectTeacher");
        prompts.Verify();
        EXPECT_EQ(IsEnabled("cmdNew"), false) << table;
        EXPECT_EQ(FocusName(), "cmdCancel");
        EXPECT_EQ(Entries(List("cboDivision")), " ")
            << "the class that they belong to is not chosen any more";
        Given(QStringLiteral("ALTER TABLE Away RENAME TO %1").arg(QLatin1String(table)).toLatin1());
        Press(Button("cmdCancel"));
        classes = List("cboClass");
        ChooseClass();
    }
    Press(Button("cmdCancel"));
    OpenForm();
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(Focus(), "cmdNew");
    EXPECT_EQ(Entries(subject), " |Art|English|Maths|Tamil");
}

TEST_F(SubjectSetupChoosing, AStoreThatCannotBeReadIsToldOnceForAllLists)
{
    for (const char* sql :
         {"ALTER TABLE ClassDivisionMaster RENAME TO Classes", "ALTER TABLE SubjectMaster RENAME TO Subjects",
          "ALTER TABLE TeacherMaster RENAME TO Teachers"})
        Given(sql);
    int told = 0;
    Prompts::AnswerWith([&told](Prompts::Kind kind, const QString&) {
        told += kind == Prompts::Kind::Critical ? 1 : 0;
        return true;
    });
    FormDriver::OpenForm("frmClassSubjectTeacher");
    EXPECT_EQ(told, 1);
    for (const char* sql :
         {"ALTER TABLE Classes RENAME TO ClassDivisionMaster", "ALTER TABLE Subjects RENAME TO SubjectMaster",
          "ALTER TABLE Teachers RENAME TO TeacherMaster"})
        Given(sql);
}

TEST_F(SubjectSetupChoosing, ASubjectAndATeacherRenamedOnTopKeepTheirRows)
{
    StartEdit();
    Screen* master = OpenMaster("cmdAddSubject", "frmSubjectMaster");
    Given("UPDATE SubjectMaster SET SubjectName = 'Mathematics' WHERE SubjectCode = 2");
    Leave(master);
    master = OpenMaster("cmdAddTeacher", "frmTeacherMaster");
    Given("UPDATE TeacherMaster SET TeacherName = 'Noor Jahan' WHERE TeacherCode = 8");
    Leave(master);
    EXPECT_EQ(RowText(1), "1|Mathematics|Noor Jahan|100|100|Yes|1");
    Click(1, 1);
    EXPECT_EQ(subject->currentText().toStdString(), "Mathematics");
    EnterCells({"", "", "90"});
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "1 2 8 90/90 Yes; 2 1 7 50/100 No");
}

TEST_F(SubjectSetupChoosing, ASubjectRenamedOnTopKeepsTheRowThatIsBeingTyped)
{
    StartNew();
    Enter("Art");
    Screen* master = OpenMaster("cmdAddSubject", "frmSubjectMaster");
    Given("UPDATE SubjectMaster SET SubjectName = 'Drawing' WHERE SubjectCode = 3");
    Leave(master);
    EXPECT_EQ(Rows(), "1|Drawing|||||");
}

TEST_F(SubjectSetupChoosing, ASubjectAndATeacherRenamedByAnotherClientKeepTheirCodesUntouched)
{
    OpenForm();
    Other("UPDATE SubjectMaster SET SubjectName = 'Mathematics' WHERE SubjectCode = 2");
    Other("UPDATE TeacherMaster SET TeacherName = 'Noor Jahan' WHERE TeacherCode = 8");
    ChooseDivision("A");
    Press(Button("cmdEdit"));
    EXPECT_EQ(RowText(1), "1|Mathematics|Noor Jahan|100|100|Yes|1");
    for (int col = 1; col <= 2; ++col) {
        Click(1, col);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        Settle();
    }
    Click(1, 1);
    EnterCells({"", "", "90"});
    EXPECT_EQ(Focus(), "TxtMaximumAllowed");
    EXPECT_EQ(RowText(1), "1|Mathematics|Noor Jahan|90|90|Yes|1");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "1 2 8 90/90 Yes; 2 1 7 50/100 No");
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
    EXPECT_FALSE(subject->isVisible());
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
    EXPECT_FALSE(teacher->isVisible());
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

TEST_F(SubjectSetupChoosing, ADivisionDeletedOnTopIsNoLongerChosen)
{
    StartNew();
    PressKey(form, Qt::Key_C, Qt::AltModifier | Qt::ShiftModifier);
    Screen* master = ScreenRegistry::OpenInstance(QStringLiteral("frmMasClassSectionEntry"));
    ASSERT_NE(master, nullptr);
    LeaveOthersUnguarded();
    Given("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 2");
    master->Unload();
    Settle();
    EXPECT_EQ(Entries(divisions), " |A");
    EXPECT_EQ(Rows(), "1||||||");
    EXPECT_FALSE(subject->isVisible());
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

TEST_F(SubjectSetupChoosing, ALongSetThatIsOnlyShownIsLookedThroughWithTheKeys)
{
    constexpr int Last = 60;
    for (int code = 5; code <= Last; ++code)
        school->AddSubject(2, code, QByteArray::number(code).constData(), code);
    OpenForm();
    ChooseDivision("B");
    ASSERT_FALSE(grid->isEnabled());
    const auto isLastSeen = [this] {
        return grid->viewport()->rect().intersects(grid->CellRect(grid->Rows() - 2, 1));
    };
    ASSERT_FALSE(isLastSeen());
    for (int page = 0; page < 10; ++page)
        PressKey(form, Qt::Key_PageDown);
    EXPECT_TRUE(isLastSeen());
}

TEST_F(SubjectSetupChoosing, ALargeSetIsReadWithAsManyStatementsAsASmallOne)
{
    OpenForm();
    ChooseClass();
    const auto statementsFor = [this](const char* division) {
        Choose(divisions, QString::fromLatin1(division));
        const auto before = Session().gcnnMain->StatementsRun();
        PressKey(form, Qt::Key_Return);
        return Session().gcnnMain->StatementsRun() - before;
    };
    const auto statements = statementsFor("A");
    for (int code = 5; code < 20; ++code)
        school->AddSubject(2, code, QByteArray::number(code).constData(), code);
    EXPECT_EQ(statementsFor("B"), statements);
    EXPECT_EQ(grid->Rows(), 17);
}

} // namespace
} // namespace tally::test
