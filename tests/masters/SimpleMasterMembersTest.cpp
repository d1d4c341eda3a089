#include "core/ui/ScreenRegistry.h"
#include "masters/SimpleMasterFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>

namespace tally::test {
namespace {

/// What is peculiar to single members.
class SimpleMasterMembersTest : public SimpleMasterFixture
{
protected:
    void GivenStates()
    {
        Given("INSERT INTO StateMaster VALUES (1, 'Kerala', 1)");
        Given("INSERT INTO StateMaster VALUES (2, 'Punjab', 1)");
    }
    void OpenCities()
    {
        OpenMaster("frmMasCityMaster");
        states = Find<DataCombo>(form, "dbcStateName");
    }
    /// Chooses the line of the list with the arrow keys, from the blank one on.
    void ChooseState(int line)
    {
        states->setFocus();
        QTest::keyClick(states, Qt::Key_Home);
        for (int step = 0; step < line; ++step)
            QTest::keyClick(states, Qt::Key_Down);
    }
    void EnterCity(int stateLine, const char* name)
    {
        Press(Button("cmdNew"));
        ChooseState(stateLine);
        Retype("txtCityName", name);
    }
    void EnterExam(const char* name, const char* order)
    {
        Press(Button("cmdNew"));
        Retype("txtExamName", name);
        Retype("txtExamOrder", order);
    }
    void EnterSubject(const char* name, const char* shortName)
    {
        Press(Button("cmdNew"));
        Retype("txtSubjectName", name);
        Retype("txtSubjectShort", shortName);
    }
    void RefuseDelete(const char* formName, const char* question)
    {
        OpenMaster(formName);
        SelectRow(0, "Do You Want To Edit/Delete ?");
        prompts.ExpectQuestion(QString::fromLatin1(question), true);
        prompts.ExpectCritical(RowInUse);
        Press(Button("cmdDelete"));
        prompts.Verify();
        EXPECT_EQ(State(), "RowSelected");
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    }

    DataCombo* states = nullptr;
};

TEST_F(SimpleMasterMembersTest, AStateStoredWithBlanksBehindIsADuplicateAndACityIsNot)
{
    GivenStates();
    Given("INSERT INTO StateMaster VALUES (3, 'Goa  ', 1)");
    Given("INSERT INTO CityMaster VALUES (1, 1, 'Kochi  ', 1)");
    OpenMaster("frmMasStateMaster");
    Press(Button("cmdNew"));
    Retype("txtStateName", "goa");
    prompts.ExpectInformation(QStringLiteral("State Name Already Exists"));
    Press(Button("cmdSave"));

    OpenCities();
    EnterCity(1, "Kochi");
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Count("SELECT count(*) FROM CityMaster WHERE CityName LIKE 'Kochi%'"), 2);
}

TEST_F(SimpleMasterMembersTest, NamesAreStoredWithoutBlanksAround)
{
    OpenMaster("frmMasStateMaster");
    Press(Button("cmdNew"));
    Retype("txtStateName", "  West  Bengal ");
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateName = 'West  Bengal'"), 1);
}

TEST_F(SimpleMasterMembersTest, TheRowWithCodeZeroIsNeverShown)
{
    for (const SimpleMasterMember& member : SimpleMasterMembers) {
        OpenMaster(member.formName);
        EXPECT_EQ(grid->RowCount(), 0) << member.formName;
    }
}

TEST_F(SimpleMasterMembersTest, ARowWithCodeZeroThatIsShownCanNotBeSelected)
{
    Given("INSERT INTO SalutationMaster VALUES (0, 'Dr.', 1)");
    Given("INSERT INTO ExamMaster VALUES (0, 'Annual', 1, 1)");
    for (const char* formName : {"frmSalutationMaster", "frmexamnamemaster"}) {
        OpenMaster(formName);
        ASSERT_EQ(grid->RowCount(), 1) << formName;
        grid->setFocus();
        QTest::keyClick(grid, Qt::Key_Down);
        EXPECT_EQ(State(), "Idle") << formName;
    }
}

TEST_F(SimpleMasterMembersTest, TwoCitiesOfOneNameInTwoStatesAreAllowedAndInOneAreNot)
{
    GivenStates();
    OpenCities();
    EnterCity(1, "Salem");
    Save(QStringLiteral("Record Saved"));
    EnterCity(2, "Salem");
    Save(QStringLiteral("Record Saved"));
    EnterCity(2, "SALEM");
    prompts.ExpectInformation(QStringLiteral("City Name Already Exists For The Selected State Name"));
    Press(Button("cmdSave"));
    EXPECT_EQ(Count("SELECT count(*) FROM CityMaster WHERE CityName = 'Salem'"), 2);
}

TEST_F(SimpleMasterMembersTest, ACityMayMoveToAnotherState)
{
    GivenStates();
    Given("INSERT INTO CityMaster VALUES (1, 1, 'Salem', 1)");
    OpenCities();
    SelectRow(0, "Do You Want To Edit/Delete ?");
    EXPECT_EQ(states->BoundCode(), 1);
    Press(Button("cmdEdit"));
    ChooseState(2);
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Count("SELECT StateCode FROM CityMaster WHERE CityCode = 1"), 2);
    EXPECT_TRUE(states->IsBlank());
}

TEST_F(SimpleMasterMembersTest, TheCitiesShownAreThoseOfTheStateChosen)
{
    GivenStates();
    Given("INSERT INTO CityMaster VALUES (1, 2, 'Patiala', 1)");
    Given("INSERT INTO CityMaster VALUES (2, 1, 'Kochi', 1)");
    Given("INSERT INTO CityMaster VALUES (3, 2, 'Amritsar', 1)");
    OpenCities();
    EXPECT_EQ(Shown("City Name"), "Kochi|Amritsar|Patiala");
    EXPECT_EQ(Shown("State Name"), "Kerala|Punjab|Punjab");
    EXPECT_TRUE(grid->isColumnHidden(2));
    EXPECT_TRUE(grid->isColumnHidden(3));
    Press(Button("cmdNew"));
    ChooseState(2);
    EXPECT_EQ(Shown("City Name"), "Amritsar|Patiala");
    ChooseState(0);
    EXPECT_EQ(Shown("City Name"), "Kochi|Amritsar|Patiala");
    SelectRow(0, "Do You Want To Edit/Delete ?");
    EXPECT_EQ(TextOf("txtCityName"), "Kochi");
    EXPECT_EQ(Shown("City Name"), "Kochi");
    Press(Button("cmdCancel"));
    EXPECT_EQ(Shown("City Name"), "Kochi|Amritsar|Patiala");
}

TEST_F(SimpleMasterMembersTest, OnANewSystemTheListOfStatesIsOneBlankLine)
{
    OpenCities();
    EXPECT_EQ(states->count(), 1);
    EXPECT_EQ(states->currentText().toStdString(), " ");
}

TEST_F(SimpleMasterMembersTest, AStateAddedBesideTheCityIsInTheListOnReturn)
{
    GivenStates();
    OpenCities();
    EnterCity(2, "Agra");
    PressKey(form, Qt::Key_A, Qt::AltModifier);
    Settle();
    Screen* const cities = form;
    OpenMaster("frmMasStateMaster");
    Press(Button("cmdNew"));
    Retype("txtStateName", "Assam");
    Save(QStringLiteral("Record Saved"));
    Press(Button("cmdExit"));
    Settle();
    form = qobject_cast<frmSimpleMaster*>(cities);
    EXPECT_EQ(states->count(), 4);
    EXPECT_EQ(states->itemText(1).toStdString(), "Assam");
    EXPECT_EQ(states->currentText().toStdString(), " ");
    EXPECT_EQ(TextOf("txtCityName"), "Agra");
    EXPECT_EQ(State(), "Entry");
}

TEST_F(SimpleMasterMembersTest, ComingBackFromAnyOtherScreenLeavesTheStateChosen)
{
    GivenStates();
    OpenCities();
    EnterCity(2, "Agra");
    OpenScreen(QStringLiteral("frmSubjectMaster"));
    OpenScreen(QStringLiteral("frmMasCityMaster"));
    EXPECT_EQ(states->BoundCode(), 2);
}

TEST_F(SimpleMasterMembersTest, ACityOfAStateThatAnotherClientDeletedIsNotSaved)
{
    GivenStates();
    OpenCities();
    EnterCity(2, "Agra");
    AnotherClient()->Execute(QStringLiteral("DELETE FROM StateMaster WHERE StateCode = 2"));
    prompts.ExpectCritical(RowIsGone);
    Press(Button("cmdSave"));
    EXPECT_EQ(TextOf("txtCityName"), "Agra");
    EXPECT_EQ(State(), "Entry");
    EXPECT_EQ(Count("SELECT count(*) FROM CityMaster WHERE CityCode > 0"), 0);
}

TEST_F(SimpleMasterMembersTest, AStateThatAnotherClientDeletedIsNotOfferedAgain)
{
    GivenStates();
    OpenCities();
    EnterCity(2, "Agra");
    AnotherClient()->Execute(QStringLiteral("DELETE FROM StateMaster WHERE StateCode = 2"));
    prompts.ExpectCritical(RowIsGone);
    Press(Button("cmdSave"));
    EXPECT_EQ(states->findData(2), -1);
    EXPECT_EQ(states->BoundCode(), 0);
    states->SetBoundCode(1);
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Count("SELECT StateCode FROM CityMaster WHERE CityName = 'Agra'"), 1);
}

TEST_F(SimpleMasterMembersTest, ARefusedSaveLeavesTheStateChosen)
{
    GivenStates();
    Given("INSERT INTO CityMaster VALUES (1, 2, 'Agra', 1)");
    OpenCities();
    SelectRow(0, "Do You Want To Edit/Delete ?");
    Press(Button("cmdEdit"));
    AnotherClient()->Execute(QStringLiteral("DELETE FROM CityMaster WHERE CityCode = 1"));
    prompts.ExpectCritical(RowIsGone);
    Press(Button("cmdSave"));
    EXPECT_EQ(states->BoundCode(), 2);
}

TEST_F(SimpleMasterMembersTest, CancelOffersTheStatesThatThereAreByThen)
{
    GivenStates();
    OpenCities();
    const auto other = AnotherClient();
    other->Execute(QStringLiteral("INSERT INTO StateMaster VALUES (3, 'Assam', 1)"));
    other->Execute(QStringLiteral("DELETE FROM StateMaster WHERE StateCode = 2"));
    Press(Button("cmdCancel"));
    EXPECT_GT(states->findData(3), 0);
    EXPECT_EQ(states->findData(2), -1);
    EXPECT_EQ(states->currentText().toStdString(), " ");
}

TEST_F(SimpleMasterMembersTest, ACityOfAStateThatAnotherClientAddedIsSelectedWithItsState)
{
    GivenStates();
    OpenCities();
    const auto other = AnotherClient();
    other->Execute(QStringLiteral("INSERT INTO StateMaster VALUES (3, 'Assam', 1)"));
    other->Execute(QStringLiteral("INSERT INTO CityMaster VALUES (1, 3, 'Tezpur', 1)"));
    Retype("txtSearchCityName", "tez");
    SelectRow(0, "Do You Want To Edit/Delete ?");
    EXPECT_EQ(states->currentText().toStdString(), "Assam");
    Press(Button("cmdEdit"));
    Retype("txtCityName", "Tezpur Town");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Count("SELECT StateCode FROM CityMaster WHERE CityName = 'Tezpur Town'"), 3);
}

TEST_F(SimpleMasterMembersTest, ACityKeepsItsStateWhereTheListsCannotBeReadAnew)
{
    GivenStates();
    Given("INSERT INTO CityMaster VALUES (1, 2, 'Agra', 1)");
    OpenCities();
    Given("ALTER TABLE StateMaster RENAME TO Away");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Edit/Delete ?"), true);
    prompts.ExpectCritical(NoSuchTable("StateMaster"));
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_Down);
    prompts.Verify();
    EXPECT_EQ(states->BoundCode(), 2) << "the next save would store a blank one";
    Given("ALTER TABLE Away RENAME TO StateMaster");
}

TEST_F(SimpleMasterMembersTest, AStateWithACityStays)
{
    GivenStates();
    Given("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1)");
    OpenMaster("frmMasStateMaster");
    SelectRow(0, "Do You Want To Edit/Delete ? ");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This State Name ?"), true);
    prompts.ExpectCritical(RowInUse);
    Press(Button("cmdDelete"));
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateCode = 1"), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM CityMaster WHERE CityCode = 1"), 1);
    EXPECT_EQ(State(), "RowSelected");
}

TEST_F(SimpleMasterMembersTest, AFaultInReadingBackAfterADeleteSaysThatItIsDone)
{
    Given("INSERT INTO StateMaster VALUES (1, 'Kerala', 1)");
    Given("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1)");
    OpenMaster("frmMasCityMaster");
    SelectRow(0, "Do You Want To Edit/Delete ?");
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        if (told.isEmpty())
            Given("ALTER TABLE StateMaster RENAME TO Away");
        told.append(text);
        return true;
    });
    Press(Button("cmdDelete"));
    EXPECT_EQ(told.value(0), QStringLiteral("Do You Want To Delete This City Name ?"));
    EXPECT_EQ(told.value(1), QStringLiteral("Record Deleted"));
    EXPECT_TRUE(
        told.value(2).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    EXPECT_EQ(told.size(), 3);
    EXPECT_EQ(Count("SELECT count(*) FROM CityMaster WHERE CityCode = 1"), 0);
}

TEST_F(SimpleMasterMembersTest, RowsThatOtherScreensUseStay)
{
    Given("INSERT INTO StateMaster VALUES (1, 'Kerala', 1)");
    Given("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1)");
    Given("INSERT INTO BloodGroupMaster VALUES (1, 'A+', 1)");
    Given("INSERT INTO SalutationMaster VALUES (1, 'Mr.', 1)");
    Given("INSERT INTO TeacherMaster VALUES (1, 1, 'Anand', 'ANA', NULL, 'S', NULL, NULL, '', '', '', 1, '', "
          "'', 1,"
          " '', 1)");
    Given("INSERT INTO ExamMaster VALUES (1, 'Annual', 1, 1)");
    Given("INSERT INTO SubjectMaster VALUES (1, 'English', 'Eng', 1)");
    Given("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 1, 1, 1)");
    Given("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1)");
    Given("INSERT INTO ClassSubjectTeacher VALUES (0, 1, 1, 1, 1, 100, 100, 'Yes', 1)");
    Given("INSERT INTO RankMaster VALUES (0, 1, 1, 1, 0, 0, 'D', 1, 1)");
    RefuseDelete("frmMasCityMaster", "Do You Want To Delete This City Name ?");
    RefuseDelete("frmMasBloodGroupMaster", "Do You Want To Delete This Blood Group ?");
    RefuseDelete("frmSalutationMaster", "Do You Want To Delete This Salutation Name ?");
    RefuseDelete("frmexamnamemaster", "Do You Want To Delete This Exam Name ?");
    RefuseDelete("frmSubjectMaster", "Do You Want To Delete This Subject Name ?");
    Given("INSERT INTO UserMaster VALUES (1, 'Mary', 1)");
    Given("INSERT INTO UserPrivilegeMaster VALUES (1, 'mary', 'mary', 'N', 1, 0)");
    Given("INSERT INTO UserPrivilegeDetails VALUES ('frmUtilUserMaster', 'X', 1)");
    Session().gintPrivilegeUserCode = 1;
    RefuseDelete("frmUtilUserMaster", "Do You Want To Delete This User Name ?");
}

TEST_F(SimpleMasterMembersTest, ASalutationMayChangeItsOwnLettersOnly)
{
    Given("INSERT INTO SalutationMaster VALUES (1, 'Mr.', 1)");
    OpenMaster("frmSalutationMaster");
    SelectRow(0, "Do You Want To Edit/Delete ?");
    Press(Button("cmdEdit"));
    Retype("txtSalutationName", "MR.");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Count("SELECT count(*) FROM SalutationMaster WHERE SalutationName = 'MR.' COLLATE BINARY"), 1);
}

TEST_F(SimpleMasterMembersTest, ASalutationGoesByTheHeldNameAndNotByItsCode)
{
    Given("INSERT INTO SalutationMaster VALUES (1, 'Mr.', 1)");
    Given("INSERT INTO SalutationMaster VALUES (2, 'Mr.', 1)");
    Given("INSERT INTO SalutationMaster VALUES (3, 'Dr.', 1)");
    Given("INSERT INTO SalutationMaster VALUES (4, 'DR.', 1)");
    OpenMaster("frmSalutationMaster");
    SelectRow(2, "Do You Want To Edit/Delete ?");
    Press(Button("cmdEdit"));
    Save(QStringLiteral("Record Updated"));

    SelectRow(0, "Do You Want To Edit/Delete ?");
    Press(Button("cmdEdit"));
    prompts.ExpectInformation(QStringLiteral("Salutation Name Already Exists"));
    Press(Button("cmdSave"));
}

TEST_F(SimpleMasterMembersTest, ExamsAreCheckedByNameAndThenByOrder)
{
    OpenMaster("frmexamnamemaster");
    EnterExam("Annual", "20");
    Save(QStringLiteral("Record Saved"));
    EnterExam("ANNUAL", "20");
    prompts.ExpectInformation(QStringLiteral("Exam Name Already Exists"));
    Press(Button("cmdSave"));
    EXPECT_EQ(FocusName(), "txtExamName");
    Retype("txtExamName", "Model");
    prompts.ExpectInformation(QStringLiteral("Exam Order Already Exists"));
    Press(Button("cmdSave"));
    EXPECT_EQ(FocusName(), "txtExamOrder");
    Retype("txtExamOrder", "00020");
    prompts.ExpectInformation(QStringLiteral("Exam Order Already Exists"));
    Press(Button("cmdSave"));
    Retype("txtExamOrder", "5");
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Shown("Exam Name"), "Model|Annual");
    EXPECT_EQ(Shown("Exam Order"), "5|20");
}

TEST_F(SimpleMasterMembersTest, AnExamWithoutAnOrderIsNotYetComparedWithOthers)
{
    Given("INSERT INTO ExamMaster VALUES (1, 'Annual', 1, 1)");
    OpenMaster("frmexamnamemaster");
    EnterExam("Annual", "");
    prompts.ExpectInformation(QStringLiteral("Enter Exam Order"));
    Press(Button("cmdSave"));
    EXPECT_EQ(FocusName(), "txtExamOrder");
}

TEST_F(SimpleMasterMembersTest, TheExamMasterSaysWhatTheOrderIsFor)
{
    OpenMaster("frmexamnamemaster");
    EXPECT_EQ(Find<QLabel>(form, "lblNote")->text().toStdString(),
              "Note : Depending Upon The Numeric Value Given In 'Exam Order', Exams Will Be Displayed In All "
              "Screens.");
    EXPECT_TRUE(Find<QLabel>(form, "lblNote")->wordWrap());
    EXPECT_TRUE(grid->isColumnHidden(2));
}

TEST_F(SimpleMasterMembersTest, AnExamOrderTakesDigitsOnly)
{
    OpenMaster("frmexamnamemaster");
    Press(Button("cmdNew"));
    Retype("txtExamOrder", "-1a2.3 456789");
    EXPECT_EQ(TextOf("txtExamOrder"), "12345");
}

TEST_F(SimpleMasterMembersTest, ASubjectsShortNameHasLettersOnlyHoweverItCameIn)
{
    OpenMaster("frmSubjectMaster");
    EnterSubject("English", "E. n1g");
    EXPECT_EQ(TextOf("txtSubjectShort"), "Eng");
    QApplication::clipboard()->setText(QStringLiteral("A B.C"));
    Box("txtSubjectShort")->clear();
    Box("txtSubjectShort")->setFocus();
    PressKey(form, Qt::Key_V, Qt::ControlModifier);
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Count("SELECT count(*) FROM SubjectMaster WHERE SubjectShortName = 'ABC'"), 1);
}

TEST_F(SimpleMasterMembersTest, AStoredShortNameWithBlanksLosesThemAtTheNextSave)
{
    Given("INSERT INTO SubjectMaster VALUES (1, 'English', 'E n g', 1), (2, 'French', 'Fre', 1)");
    OpenMaster("frmSubjectMaster");
    SelectRow(0, "Do You Want To Edit/Delete ?");
    EXPECT_EQ(TextOf("txtSubjectShort"), "E n g");
    Press(Button("cmdEdit"));
    Retype("txtSubjectName", "French");
    ExpectRefusal(QStringLiteral("Subject Name/Short Name Already Exists"), "txtSubjectName");
    EXPECT_EQ(TextOf("txtSubjectShort"), "Eng") << "what would have been stored";
    Retype("txtSubjectName", "English");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Count("SELECT count(*) FROM SubjectMaster WHERE SubjectShortName = 'Eng'"), 1);
}

TEST_F(SimpleMasterMembersTest, SubjectsAreComparedNameWithNameAndShortWithShort)
{
    OpenMaster("frmSubjectMaster");
    EnterSubject("English", "Eng");
    Save(QStringLiteral("Record Saved"));
    EnterSubject("History", "ENG");
    prompts.ExpectInformation(QStringLiteral("Subject Name/Short Name Already Exists"));
    Press(Button("cmdSave"));
    Press(Button("cmdCancel"));
    EnterSubject("Eng", "His");
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Shown("Short Name"), "His|Eng");
}

TEST_F(SimpleMasterMembersTest, UsersComeInTheOrderOfEntry)
{
    Given("INSERT INTO UserMaster VALUES (1, 'Zara', 1)");
    Given("INSERT INTO UserMaster VALUES (2, 'Anne', 1)");
    OpenMaster("frmUtilUserMaster");
    EXPECT_EQ(Shown("User Name"), "Zara|Anne");
}

TEST_F(SimpleMasterMembersTest, AUserWithoutANameCanNotBeSelected)
{
    Given("INSERT INTO UserMaster VALUES (1, ' ', 1)");
    OpenMaster("frmUtilUserMaster");
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_Down);
    EXPECT_EQ(State(), "Idle");
}

TEST_F(SimpleMasterMembersTest, TwoThousandCitiesCostOneStatementAKey)
{
    {
        store::Transaction transaction(*Session().gcnnMain);
        auto state = transaction.Prepare(QStringLiteral("INSERT INTO StateMaster VALUES (?, ?, 1)"));
        auto city = transaction.Prepare(QStringLiteral("INSERT INTO CityMaster VALUES (?, ?, ?, 1)"));
        for (int i = 1; i <= 30; ++i)
            state.Run(i, QString(QStringLiteral("State %1").arg(i)));
        for (int i = 1; i <= 2000; ++i)
            city.Run(i, i % 30 + 1, QString(QStringLiteral("City Number %1").arg(i)));
        transaction.Commit();
    }
    OpenCities();
    EXPECT_EQ(grid->RowCount(), 2000);
    Box("txtSearchCityName")->setFocus();
    for (const char letter : {'n', 'u', 'm'}) {
        const auto before = Session().gcnnMain->StatementsRun();
        QTest::keyClick(form->focusWidget(), letter);
        Settle();
        EXPECT_EQ(Session().gcnnMain->StatementsRun() - before, 1U);
    }
    EXPECT_EQ(grid->RowCount(), 2000);
}

} // namespace
} // namespace tally::test
