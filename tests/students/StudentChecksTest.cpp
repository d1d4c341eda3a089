#include "students/StudentFixture.h"
#include "support/Neighbours.h"

namespace tally::test {
namespace {

/// What Save asks for, and what stands in its way.
class StudentChecksTest : public StudentFixture
{};

TEST_F(StudentChecksTest, WhatIsMissingOrWrongIsToldInTheOfficesOrder)
{
    GivenStudent(StudentNamed(4, "Anu"));
    Given("UPDATE Options SET DateOfBirthSetting = NULL, GenderOption = ''");
    OpenMaster();
    Given("UPDATE Options SET DateOfBirthSetting = '2018-05-31', GenderOption = 'A'");
    Press(Button("cmdNew"));
    Given("UPDATE Options SET DateOfBirthSetting = NULL, GenderOption = ''");
    Date("dtpAdmissiondate")->setDate(WorkingDate.addDays(1));
    ExpectRefusal(QStringLiteral("Enter Student Admission No."), "txtAdmissionNumber");
    prompts.ExpectQuestion(QStringLiteral("Admission No. Already Exists. Do You Want To View The Details ?"),
                           false);
    Type(Box("txtAdmissionNumber"), QStringLiteral("104"));
    Box("txtFGName")->setFocus();
    Settle();
    Type(Box("txtAdmissionNumber"), QStringLiteral("7"));
    Type(Box("txtOptionalAdmissionNo"), QStringLiteral("  "));
    ExpectRefusal(QStringLiteral("Enter Optional Admission No."), "txtOptionalAdmissionNo");
    Retype("txtOptionalAdmissionNo", "a104");
    ExpectRefusal(QStringLiteral("Admission Cannot Be Made On Future Date"), "dtpAdmissiondate");
    Date("dtpAdmissiondate")->setDate(WorkingDate);
    const QString noBirth =
        QStringLiteral("Without Setting 'Date Of Birth In Options Screen', Student Details Cannot Be Saved");
    ExpectRefusal(noBirth, "cmdSave");
    Given("UPDATE Options SET DateOfBirthSetting = '2024-06-30'");
    Date("dtpDOB")->setDate(QDate(2024, 7, 1));
    ExpectRefusal(QStringLiteral("Date Of Birth Is Greater Than 'Date Of Birth In Options Screen'"),
                  "dtpDOB");
    Date("dtpDOB")->setDate(WorkingDate);
    ExpectRefusal(QStringLiteral("Date Of Birth Should Be Less Than Admission Date"), "dtpDOB");
    Date("dtpDOB")->setDate(WorkingDate.addDays(-1));
    ExpectRefusal(QStringLiteral("Optional Admission No. Already Exists"), "txtOptionalAdmissionNo");
    Retype("txtOptionalAdmissionNo", "A7");
    ExpectRefusal(
        QStringLiteral("Without Setting 'Gender In Options Screen' Student Details Cannot Be Saved"),
        "cmdSave");
    Given("UPDATE Options SET GenderOption = 'A'");
    Type(Box("txtstudentName"), QStringLiteral("   "));
    ExpectRefusal(QStringLiteral("Enter Student Name"), "txtstudentName");
    EXPECT_FALSE(Found(5));
    Retype("txtstudentName", " Binu ");
    Save();
    EXPECT_EQ(Stored(5), "5|7|A7|2024-06-10|2|Binu||F|||0||||2024-06-09|0|N|NULL|||NULL|3");
}

TEST_F(StudentChecksTest, DatesSayOnEnterWhatIsWrongWithThem)
{
    StartNew();
    TypeDate("dtpAdmissiondate", "11Jun2024");
    prompts.ExpectInformation(QStringLiteral("Admission Cannot Be Made On Future Date"));
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(HasFocus("dtpAdmissiondate"));
    TypeDate("dtpAdmissiondate", "10Jun2017");
    PressKey(form, Qt::Key_Enter);
    EXPECT_TRUE(HasFocus("txtstudentName"));
    TypeDate("dtpDOB", "01Jun2018");
    prompts.ExpectInformation(
        QStringLiteral("Date Of Birth Is Greater Than 'Date Of Birth In Options Screen'"));
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(HasFocus("dtpDOB"));
    TypeDate("dtpDOB", "10Jun2017");
    prompts.ExpectInformation(QStringLiteral("Date Of Birth Should Be Less Than Admission Date"));
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(HasFocus("dtpDOB"));
    TypeDate("dtpDOB", "09Jun2017");
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(HasFocus("dbcBloodGroup"));
    TypeDate("dtpDOB", "01Jun2018");
    PressKey(form, Qt::Key_Tab);
    EXPECT_TRUE(HasFocus("dbcBloodGroup")) << "Tab goes on and leaves it to Save";
}

TEST_F(StudentChecksTest, TheGenderIsMaleOnlyWhereMaleIsChosen)
{
    int number = 0;
    for (const char* gender : {"Male", "Female", ""}) {
        StartNew();
        ++number;
        const QByteArray text = QByteArray::number(number);
        FillMandatory(text.constData(), text.constData());
        if (*gender)
            Choose(Find<QComboBox>(form, "cboSex"), QString::fromLatin1(gender));
        Save();
        EXPECT_EQ(Found(number)->male, qstrcmp(gender, "Male") == 0) << gender;
        form->Unload();
        Settle();
    }
}

TEST_F(StudentChecksTest, AnEditChangesThisStudentAloneAndHisOwnNumbersAreNoDuplicates)
{
    GivenStudent(StudentNamed(4, "Anu"));
    GivenStudent(StudentNamed(5, "Binu"));
    StartEdit(4);
    const AllRows before(*Session().gcnnMain);
    EXPECT_TRUE(HasFocus("txtstudentName"));
    Retype("txtstudentName", "Anu K.");
    Choose("dbcStateName", QStringLiteral("Goa"));
    Choose("dbcCity", QStringLiteral("Panaji"));
    Save(QStringLiteral("Record Updated"));
    before.ExpectTouchedOnly(*Session().gcnnMain, "StudentMaster",
                             {{QStringLiteral("StudentCode"), QStringLiteral("4")}});
    EXPECT_EQ(Stored(4), "4|104|A104|2024-06-03|2|Anu K.||F|||2||||2015-01-02|0|N|NULL|||NULL|3");
    ExpectIdle();
}

TEST_F(StudentChecksTest, ANameOfAHundredLettersIsStoredWhole)
{
    StartNew();
    FillMandatory("1", "1", "");
    const QString name(100, QLatin1Char('n'));
    Type(Box("txtstudentName"), name + QStringLiteral("more"));
    Save();
    EXPECT_EQ(Found(1)->name, name);
}

TEST_F(StudentChecksTest, ANumberThatAnotherClientTookMeanwhileIsSaidToExist)
{
    StartNew();
    FillMandatory();
    Student other = StudentNamed(4, "Binu");
    other.admissionNo = 101;
    StoreStudent(*AnotherClient(), other);
    ExpectRefusal(QStringLiteral("Admission No. Already Exists"), "txtAdmissionNumber");
    EXPECT_EQ(TextOf("txtstudentName"), "Anu");
    Retype("txtAdmissionNumber", "102");
    Retype("txtOptionalAdmissionNo", "a104");
    ExpectRefusal(QStringLiteral("Optional Admission No. Already Exists"), "txtOptionalAdmissionNo");
}

TEST_F(StudentChecksTest, WhoWasRelievedWhileHisFormWasOpenIsNotChanged)
{
    GivenStudent(StudentNamed(4, "Anu"));
    StartEdit(4);
    Relieve(*AnotherClient(), 4);
    const std::string before = Stored(4);
    ExpectRefusal(QStringLiteral("Student Is Already Relieved"), "cmdSave");
    EXPECT_EQ(Stored(4), before);
}

TEST_F(StudentChecksTest, WhoWasDeletedWhileHisFormWasOpenIsNotCalledSaved)
{
    GivenStudent(StudentNamed(4, "Anu"));
    StartEdit(4);
    Retype("txtstudentName", "Anu K.");
    AnotherClient()->Execute(QStringLiteral("DELETE FROM StudentMaster WHERE StudentCode = 4"));
    prompts.ExpectCritical(MasterIsGone);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_FALSE(Found(4));
    EXPECT_EQ(TextOf("txtstudentName"), "Anu K.") << "nothing that was typed is lost";
}

TEST_F(StudentChecksTest, ACityThatHasGoneIsToldAndTheListsAreReadAnew)
{
    StartNew();
    FillMandatory();
    Choose("dbcStateName", QStringLiteral("Kerala"));
    Choose("dbcCity", QStringLiteral("Kochi"));
    Choose("dbcBloodGroup", QStringLiteral("O+"));
    AnotherClient()->Execute(QStringLiteral("DELETE FROM CityMaster WHERE CityCode = 1"));
    prompts.ExpectCritical(MasterIsGone);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_FALSE(Found(1));
    EXPECT_EQ(TextOf("txtstudentName"), "Anu");
    EXPECT_EQ(List("dbcStateName")->currentText().toStdString(), "Kerala");
    EXPECT_EQ(List("dbcCity")->count(), 1);
    EXPECT_EQ(List("dbcBloodGroup")->currentText().toStdString(), "O+");
    Choose("dbcCity", QStringLiteral("Aluva"));
    Save();
    EXPECT_EQ(Found(1)->cityCode, 3);
}

TEST_F(StudentChecksTest, WhileTheDatabaseIsLockedNothingThatWasTypedIsLost)
{
    StartNew();
    FillMandatory();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(20));
    const auto other = AnotherClient();
    other->Begin();
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(TextOf("txtstudentName"), "Anu");
    other->Rollback();
    Save();
    EXPECT_EQ(Found(1)->name.toStdString(), "Anu");
}

TEST_F(StudentChecksTest, OnAFullDiskNothingIsSavedAndNothingThatWasTypedIsLost)
{
    const QString longText(100, QLatin1Char('a'));
    Student student = StudentNamed(100, "");
    student.name = student.fatherOrGuardian = student.address1 = student.address2 = longText;
    // As many as the file has room for.
    const auto pages = Count("PRAGMA page_count");
    for (bool fits = true; fits; ++student.code, ++student.admissionNo) {
        student.optionalAdmissionNo = QString::number(student.admissionNo);
        store::Transaction transaction(*Session().gcnnMain);
        StudentRepository::Insert(transaction, student, 1);
        fits = Count("PRAGMA page_count") == pages;
        if (fits)
            transaction.Commit();
    }
    StartNew();
    FillMandatory();
    for (const char* box : {"txtstudentName", "txtFGName", "txtAddress1", "txtAddress2"})
        Type(Box(box), longText);
    const auto students = Count("SELECT count(*) FROM StudentMaster");
    Count("PRAGMA max_page_count = 1");
    prompts.ExpectCritical(DiskIsFull);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(Count("SELECT count(*) FROM StudentMaster"), students);
    EXPECT_EQ(TextOf("txtFGName"), longText.toStdString());
    Count("PRAGMA max_page_count = 1000000");
    Save();
    EXPECT_EQ(Count("SELECT count(*) FROM StudentMaster"), students + 1);
}

TEST_F(StudentChecksTest, WhatCannotBeReadBeforeAnEntryOrItsSaveIsToldOnceAndNothingIsDone)
{
    OpenMaster();
    Given("ALTER TABLE Options RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("Options"));
    Press(Button("cmdNew"));
    prompts.Verify();
    ExpectIdle();
    Given("ALTER TABLE Away RENAME TO Options");
    Press(Button("cmdNew"));
    FillMandatory();
    Given("ALTER TABLE Options RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("Options"));
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_TRUE(IsEnabled("cmdSave"));
    Given("ALTER TABLE Away RENAME TO Options");
    Save();
}

TEST_F(StudentChecksTest, AFaultInReadingBackWhatIsSavedSaysThatItIsSaved)
{
    StartNew();
    FillMandatory();
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        if (told.isEmpty())
            Given("ALTER TABLE StateMaster RENAME TO Away");
        told.append(text);
        return true;
    });
    Press(Button("cmdSave"));
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told.at(0), QStringLiteral("Record Saved"));
    EXPECT_TRUE(told.at(1).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    EXPECT_TRUE(Count("SELECT count(*) FROM StudentMaster WHERE StudentCode = 1"));
    ExpectIdle();
}

TEST_F(StudentChecksTest, ASaveThatOnlyALockRefusedReadsNothingAnew)
{
    StartNew();
    FillMandatory();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(20));
    const auto other = AnotherClient();
    other->Begin();
    std::uint64_t statements = 0;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        EXPECT_EQ(text, HeldByAnotherClient);
        statements = Session().gcnnMain->StatementsRun();
        return true;
    });
    Press(Button("cmdSave"));
    EXPECT_GT(statements, 0U);
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), statements) << "what cannot be read would be told again";
}

TEST_F(StudentChecksTest, WhoWasRelievedWhileHeStoodOnTheScreenIsNotDeleted)
{
    GivenStudent(StudentNamed(4, "Anu"));
    OpenMaster();
    ASSERT_TRUE(form->LoadData(4));
    Relieve(*AnotherClient(), 4);
    const std::string before = Stored(4);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Student ?"), true);
    prompts.ExpectInformation(QStringLiteral("Student Is Already Relieved"));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Stored(4), before);
    ExpectIdle();
}

TEST_F(StudentChecksTest, AStudentWhoseListsCannotBeReadIsNotShownAsBlank)
{
    GivenStudent(StudentNamed(4, "Anu"));
    for (const char* table : {"BloodGroupMaster", "CityMaster", "StateMaster"}) {
        OpenMaster();
        store::Connection& main = *Session().gcnnMain;
        main.Execute(QStringLiteral("ALTER TABLE %1 RENAME TO Away").arg(QLatin1String(table)));
        prompts.ExpectCritical(NoSuchTable(table));
        EXPECT_FALSE(form->LoadData(4)) << table;
        ExpectIdle();
        EXPECT_EQ(TextOf("txtstudentName"), "");
        main.Execute(QStringLiteral("ALTER TABLE Away RENAME TO %1").arg(QLatin1String(table)));
        form->Unload();
        Settle();
    }
}

TEST_F(StudentChecksTest, AStudentWithoutDatesDoesNotGetThoseOfTheOneBefore)
{
    Student anu = StudentNamed(4, "Anu");
    anu.dateOfBirth = QDate(2012, 3, 4);
    GivenStudent(anu);
    GivenStudent(StudentNamed(5, "Binu"));
    Given("UPDATE StudentMaster SET DOB = NULL, AdmissionDate = NULL WHERE StudentCode = 5");
    OpenMaster();
    ASSERT_TRUE(form->LoadData(4));
    EXPECT_EQ(Date("dtpDOB")->date(), QDate(2012, 3, 4));
    ASSERT_TRUE(form->LoadData(5));
    EXPECT_EQ(Date("dtpDOB")->date(), WorkingDate);
    EXPECT_EQ(Date("dtpAdmissiondate")->date(), WorkingDate);
}

} // namespace
} // namespace tally::test
