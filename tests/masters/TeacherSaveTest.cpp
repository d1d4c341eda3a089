#include "masters/TeacherFixture.h"

namespace tally::test {
namespace {

class TeacherSaveTest : public TeacherFixture
{};

const QString MasterIsGone = QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");
const QString JoiningTooEarly = QStringLiteral("'Joining Date' Should Be Greater Than 'Date Of Birth'");
const QString WeddingTooEarly = QStringLiteral("'Wedding Date' Should Be Greater Than 'Date Of Birth'");
const QString BirthIsMissing = QStringLiteral("Select 'Date Of Birth'");
const QDate Birth(1980, 5, 6);

TEST_F(TeacherSaveTest, EachMandatoryFieldIsAskedForInOrder)
{
    StartNew();
    EXPECT_FALSE(Button("cmdNew")->isEnabled());
    ExpectRefusal(QStringLiteral("Select Salutation"), "cboPrefix");
    Choose("cboPrefix", QStringLiteral("Mr"));
    Type(Box("txtTeacherName"), QStringLiteral("   "));
    ExpectRefusal(QStringLiteral("Enter Teacher Name"), "txtTeacherName");
    Type(Box("txtTeacherName"), QStringLiteral("Asha"));
    ExpectRefusal(QStringLiteral("Enter Teacher Short Name"), "txtTeacherShortName");
    Type(Box("txtTeacherShortName"), QStringLiteral("ASH"));
    Save();
    EXPECT_EQ(Stored("TeacherName", 1).toStdString(), "Asha");
    EXPECT_EQ(Stored("SalutationCode", 1).toStdString(), "2");
    ExpectIdle();
    EXPECT_TRUE(HasFocus("cmdNew"));
}

TEST_F(TeacherSaveTest, TickedDatesAreTestedJoiningBeforeWedding)
{
    StartNew();
    FillMandatory();
    prompts.ExpectInformation(BirthIsMissing);
    Tick("dtpJoining");
    EXPECT_TRUE(HasFocus("dtpDOB"));
    Press(Option("optMarried"));
    prompts.ExpectInformation(BirthIsMissing);
    Tick("dtpWedding");
    EXPECT_TRUE(HasFocus("dtpDOB"));

    ExpectRefusal(BirthIsMissing, "dtpDOB");
    Pick("dtpDOB", QDate::currentDate());
    ExpectRefusal(JoiningTooEarly, "dtpJoining");
    Date("dtpJoining")->SetTicked(false);
    ExpectRefusal(WeddingTooEarly, "dtpWedding");
    Date("dtpWedding")->findChild<DatePicker*>()->setDate(QDate::currentDate().addDays(1));
    Save();
    EXPECT_EQ(Stored("WeddingDate", 1), QDate::currentDate().addDays(1).toString(Qt::ISODate));
    EXPECT_EQ(Stored("JoiningDate", 1).toStdString(), "NULL");
    EXPECT_EQ(Stored("MaritalStatus", 1).toStdString(), "M");
}

TEST_F(TeacherSaveTest, AWeddingWithoutADateOfBirthIsRefusedAtTheSave)
{
    StartNew();
    FillMandatory();
    Press(Option("optMarried"));
    prompts.ExpectInformation(BirthIsMissing);
    Tick("dtpWedding");
    ExpectRefusal(BirthIsMissing, "dtpDOB");
}

TEST_F(TeacherSaveTest, ADateOnTheDayOfBirthPassesWhileChoosingAndOnlyAnEarlierOneIsRefused)
{
    StartNew();
    FillMandatory();
    Pick("dtpDOB", Birth);
    Pick("dtpJoining", Birth);
    prompts.ExpectInformation(JoiningTooEarly);
    Date("dtpJoining")->findChild<DatePicker*>()->setDate(Birth.addDays(-1));
    prompts.Verify();
    EXPECT_TRUE(HasFocus("dtpJoining"));
    Date("dtpJoining")->findChild<DatePicker*>()->setDate(Birth);
    Press(Option("optMarried"));
    Pick("dtpWedding", Birth);
    prompts.ExpectInformation(WeddingTooEarly);
    Date("dtpWedding")->findChild<DatePicker*>()->setDate(Birth.addYears(-1));
    prompts.Verify();
    EXPECT_TRUE(HasFocus("dtpWedding"));
    ExpectRefusal(JoiningTooEarly, "dtpJoining");
}

TEST_F(TeacherSaveTest, ATypedDateIsTestedWhenItIsCompleteAndNotAtEachDigit)
{
    StartNew();
    FillMandatory();
    Pick("dtpDOB", Birth);
    Tick("dtpJoining");
    PressKey(form, Qt::Key_Return);
    QTest::keyClicks(form->focusWidget(), QStringLiteral("07Jun2010"));
    PressKey(form, Qt::Key_Return);
    Save();
    EXPECT_EQ(Stored("JoiningDate", 1).toStdString(), "2010-06-07");
}

TEST_F(TeacherSaveTest, TheSameNameInAnotherCaseIsAcceptedTheSameShortNameIsNot)
{
    GivenTeacher(1, QStringLiteral("Asha"), QStringLiteral("ASH"));
    StartNew();
    FillMandatory(QStringLiteral("Asha"), QStringLiteral("ash"));
    ExpectRefusal(QStringLiteral("Teacher Name Already Exists"), "txtTeacherName");
    Box("txtTeacherName")->clear();
    Type(Box("txtTeacherName"), QStringLiteral("ASHA"));
    ExpectRefusal(QStringLiteral("Teacher Short Name Already Exists"), "txtTeacherShortName");
    Box("txtTeacherShortName")->clear();
    Type(Box("txtTeacherShortName"), QStringLiteral("AS2"));
    Save();
    EXPECT_EQ(Stored("TeacherName", 2).toStdString(), "ASHA");
}

TEST_F(TeacherSaveTest, AllThatIsEnteredIsStoredTrimmed)
{
    StartNew();
    FillMandatory(QStringLiteral(" Asha K. "), QStringLiteral("A1"));
    Type(Box("txtFHName"), QStringLiteral("Babu "));
    Pick("dtpDOB", Birth);
    Pick("dtpJoining", QDate(2010, 6, 7));
    Type(Box("txtAddress1"), QStringLiteral("12/3, Hill+Road"));
    Type(Box("txtAddress2"), QStringLiteral("North"));
    Choose("dbcStateName", QStringLiteral("Kerala"));
    Choose("dbcCityName", QStringLiteral("Kochi"));
    Type(Box("txtPincode"), QStringLiteral("682001"));
    Type(Box("txtTelephone"), QStringLiteral("0484-222"));
    Type(Box("txtQualification"), QStringLiteral("B.Ed"));
    Choose("dbcBloodGroup", QStringLiteral("O+"));
    Save();
    auto row = Session().gcnnMain->Query(QStringLiteral("SELECT * FROM TeacherMaster WHERE TeacherCode = 1"));
    ASSERT_TRUE(row.Next());
    QStringList values;
    for (int column = 0; column < row.ColumnCount(); ++column)
        values.append(row.IsNull(column) ? QStringLiteral("NULL") : row.Text(column));
    EXPECT_EQ(values.join(QLatin1Char('|')).toStdString(),
              "1|1|Asha K.|A1|1980-05-06|S|NULL|2010-06-07|Babu|12/3, Hill+Road|North|1|682001|0484-222|1|"
              "B.Ed|3");
    EXPECT_EQ(Box("txtTeacherName")->text().toStdString(), "");
    EXPECT_TRUE(List("dbcBloodGroup")->IsBlank());
}

TEST_F(TeacherSaveTest, ATeacherWithoutDatesCityAndBloodGroupHasThreeNullsAndCodesZeroAndLoadsSo)
{
    StartNew();
    FillMandatory();
    Save();
    for (const char* column : {"DOB", "WeddingDate", "JoiningDate"})
        EXPECT_EQ(Stored(column, 1).toStdString(), "NULL") << column;
    EXPECT_EQ(Stored("CityCode", 1).toStdString(), "0");
    EXPECT_EQ(Stored("BloodGroupCode", 1).toStdString(), "0");
    ASSERT_TRUE(form->LoadData(1));
    for (const char* name : {"dtpDOB", "dtpWedding", "dtpJoining"})
        EXPECT_FALSE(Date(name)->IsTicked()) << name;
    for (const char* name : {"dbcStateName", "dbcCityName", "dbcBloodGroup"})
        EXPECT_TRUE(List(name)->IsBlank()) << name;
}

TEST_F(TeacherSaveTest, AnEditChangesTheTeacherAndHisOwnNamesAreNoDuplicates)
{
    GivenTeacher(5, QStringLiteral("Asha"), QStringLiteral("ASH"), 3);
    GivenTeacher(6, QStringLiteral("Binu"), QStringLiteral("BIN"), 3);
    StartEdit(5);
    EXPECT_FALSE(Button("cmdEdit")->isEnabled());
    EXPECT_FALSE(Button("cmdDelete")->isEnabled());
    Box("txtTelephone")->clear();
    Type(Box("txtTelephone"), QStringLiteral("99"));
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored("Telephone", 5).toStdString(), "99");
    EXPECT_EQ(Stored("UserCode", 5).toStdString(), "3");
    EXPECT_EQ(Stored("WeddingDate", 5).toStdString(), "2005-03-04");
    EXPECT_EQ(Stored("CityCode", 5).toStdString(), "3");
    EXPECT_EQ(Stored("Telephone", 6).toStdString(), "0484-1");
    ExpectIdle();
}

TEST_F(TeacherSaveTest, AMarriedTeacherWhoIsMadeSingleLosesTheWeddingDate)
{
    GivenTeacher(5, QStringLiteral("Asha"), QStringLiteral("ASH"));
    StartEdit(5);
    EXPECT_TRUE(Date("dtpWedding")->isEnabled());
    Press(Option("optSingle"));
    EXPECT_FALSE(Date("dtpWedding")->isEnabled());
    EXPECT_FALSE(Date("dtpWedding")->IsTicked());
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored("WeddingDate", 5).toStdString(), "NULL");
    EXPECT_EQ(Stored("MaritalStatus", 5).toStdString(), "S");
}

TEST_F(TeacherSaveTest, ACityThatAnotherClientDeletedMeanwhileIsRefusedAndTheScreenStartsOver)
{
    StartNew();
    FillMandatory();
    Choose("dbcStateName", QStringLiteral("Kerala"));
    Choose("dbcCityName", QStringLiteral("Kochi"));
    AnotherClient()->Execute(QStringLiteral("DELETE FROM CityMaster WHERE CityCode = 1"));
    prompts.ExpectCritical(MasterIsGone);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(Count("SELECT count(*) FROM TeacherMaster WHERE TeacherCode > 0"), 0);
    ExpectIdle();
    Press(Button("cmdNew"));
    Choose("dbcStateName", QStringLiteral("Kerala"));
    EXPECT_EQ(List("dbcCityName")->count(), 1);
}

TEST_F(TeacherSaveTest, AnEditOfATeacherWhomAnotherClientDeletedIsNotCalledSaved)
{
    GivenTeacher(5, QStringLiteral("Asha"), QStringLiteral("ASH"));
    StartEdit(5);
    AnotherClient()->Execute(QStringLiteral("DELETE FROM TeacherMaster WHERE TeacherCode = 5"));
    prompts.ExpectCritical(MasterIsGone);
    Press(Button("cmdSave"));
    EXPECT_EQ(Count("SELECT count(*) FROM TeacherMaster WHERE TeacherCode > 0"), 0);
    ExpectIdle();
}

TEST_F(TeacherSaveTest, ATeacherWhoCannotBeComparedWithTheOthersIsNotSavedAndThatIsToldOnce)
{
    StartNew();
    FillMandatory();
    Given("ALTER TABLE TeacherMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("TeacherMaster"));
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_TRUE(IsEnabled("cmdSave"));
    Given("ALTER TABLE Away RENAME TO TeacherMaster");
    Save();
}

TEST_F(TeacherSaveTest, AFaultInReadingBackWhatIsSavedSaysThatItIsSavedInOneBox)
{
    StartNew();
    FillMandatory();
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_EQ(kind, Prompts::Kind::Information);
        if (told.isEmpty()) {
            Given("ALTER TABLE StateMaster RENAME TO Away");
            Given("ALTER TABLE BloodGroupMaster RENAME TO FarAway");
        }
        told.append(text);
        return true;
    });
    Press(Button("cmdSave"));
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told.at(0), QStringLiteral("Record Saved"));
    EXPECT_TRUE(told.at(1).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    ExpectIdle();
}

TEST_F(TeacherSaveTest, WhileTheDatabaseIsLockedNothingThatWasTypedIsLost)
{
    StartNew();
    FillMandatory();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(20));
    const auto other = AnotherClient();
    other->Begin();
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(Box("txtTeacherName")->text().toStdString(), "Asha");
    other->Rollback();
    Save();
    EXPECT_EQ(Stored("TeacherName", 1).toStdString(), "Asha");
}

} // namespace
} // namespace tally::test
