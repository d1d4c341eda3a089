#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "students/StudentFixture.h"
#include "support/Neighbours.h"

#include <QApplication>
#include <QClipboard>

namespace tally::test {
namespace {

class StudentMasterTest : public StudentFixture
{
protected:
    /// Something in every field.
    static Student Anu()
    {
        Student student = StudentNamed(5, "Anu");
        student.fatherOrGuardian = QStringLiteral("Babu");
        student.male = true;
        student.address1 = QStringLiteral("House");
        student.address2 = QStringLiteral("Street");
        student.cityCode = 3;
        student.pinCode = QStringLiteral("682001");
        student.telephone = QStringLiteral("0484");
        student.email = QStringLiteral("anu@school.org");
        student.bloodGroupCode = 1;
        return student;
    }
};

TEST_F(StudentMasterTest, OpensClosedWithNothingChosen)
{
    OpenMaster();
    EXPECT_EQ(form->windowTitle().toStdString(), "Student Master");
    ExpectIdle();
    EXPECT_EQ(Gender(), "");
    for (const char* list : {"dbcStateName", "dbcCity", "dbcBloodGroup"})
        EXPECT_TRUE(List(list)->IsBlank()) << list;
    EXPECT_FALSE(IsShown("lblAutoGenDisplay"));
    EXPECT_TRUE(Box("txtAcademicyear")->isReadOnly());
}

TEST_F(StudentMasterTest, AStoredStudentIsShownReadyToEditOrDelete)
{
    GivenStudent(Anu());
    OpenMaster();
    ASSERT_TRUE(form->LoadData(5));
    EXPECT_EQ(TextOf("txtAdmissionNumber"), "105");
    EXPECT_EQ(TextOf("txtOptionalAdmissionNo"), "A105");
    EXPECT_EQ(Date("dtpAdmissiondate")->date(), QDate(2024, 6, 3));
    EXPECT_EQ(TextOf("txtAcademicyear"), "2024 - 2025");
    EXPECT_EQ(TextOf("txtstudentName"), "Anu");
    EXPECT_EQ(TextOf("txtFGName"), "Babu");
    EXPECT_EQ(Gender(), "Male");
    EXPECT_EQ(Date("dtpDOB")->date(), QDate(2015, 1, 2));
    EXPECT_EQ(TextOf("txtAddress1"), "House");
    EXPECT_EQ(TextOf("txtAddress2"), "Street");
    EXPECT_EQ(List("dbcStateName")->currentText().toStdString(), "Kerala");
    EXPECT_EQ(List("dbcCity")->currentText().toStdString(), "Aluva");
    EXPECT_EQ(TextOf("txtPincode"), "682001");
    EXPECT_EQ(TextOf("txtTelephone"), "0484");
    EXPECT_EQ(TextOf("txtEmail"), "anu@school.org");
    EXPECT_EQ(List("dbcBloodGroup")->currentText().toStdString(), "O+");
    for (const char* off : {"cmdNew", "cmdSave", "fraMain"})
        EXPECT_FALSE(IsEnabled(off)) << off;
    for (const char* on : {"cmdEdit", "cmdDelete"})
        EXPECT_TRUE(IsEnabled(on)) << on;
    EXPECT_TRUE(HasFocus("cmdEdit"));
}

TEST_F(StudentMasterTest, ARelievedStudentCanOnlyBeLookedAt)
{
    GivenStudent(Anu());
    Relieve(*Session().gcnnMain, 5);
    OpenMaster();
    ASSERT_TRUE(form->LoadData(5));
    EXPECT_EQ(TextOf("txtstudentName"), "Anu");
    for (const char* off : {"fraMain", "cmdNew", "cmdEdit", "cmdDelete", "cmdSave"})
        EXPECT_FALSE(IsEnabled(off)) << off;
    EXPECT_TRUE(HasFocus("cmdCancel"));
    Press(Button("cmdCancel"));
    ExpectIdle();
}

TEST_F(StudentMasterTest, AStudentWhoHasGoneIsNotLoaded)
{
    OpenMaster();
    prompts.ExpectInformation(QStringLiteral("No Record Exists"));
    EXPECT_FALSE(form->LoadData(5));
    ExpectIdle();
}

TEST_F(StudentMasterTest, CancelForgetsTheStudentInHand)
{
    GivenStudent(Anu());
    StartEdit(5);
    Press(Button("cmdCancel"));
    ExpectIdle();
    EXPECT_TRUE(HasFocus("cmdNew"));
    for (const char* box : {"txtAdmissionNumber", "txtOptionalAdmissionNo", "txtAcademicyear",
                            "txtstudentName", "txtFGName", "txtAddress1", "txtEmail"})
        EXPECT_EQ(TextOf(box), "") << box;
    EXPECT_EQ(Gender(), "");
    EXPECT_EQ(List("dbcCity")->count(), 0);
    EXPECT_TRUE(List("dbcBloodGroup")->IsBlank());
    Press(Button("cmdNew"));
    FillMandatory("201", "B1", "Binu");
    Save();
    EXPECT_EQ(Found(5)->name.toStdString(), "Anu");
    EXPECT_EQ(Found(6)->name.toStdString(), "Binu");
}

TEST_F(StudentMasterTest, ANewStudentStartsOnTheWorkingDateInTheYearWithTheSettingsOfOptions)
{
    const std::pair<const char*, const char*> genders[] = {{"A", ""}, {"M", "Male"}, {"F", "Female"}};
    for (const auto& [setting, shown] : genders) {
        Given("UPDATE Options SET GenderOption = ?", setting);
        StartNew();
        EXPECT_EQ(Gender(), shown);
        EXPECT_EQ(Find<QComboBox>(form, "cboSex")->count(), 2) << "both can be chosen";
        EXPECT_EQ(Date("dtpDOB")->date(), QDate(2018, 5, 31));
        EXPECT_EQ(Date("dtpAdmissiondate")->date(), WorkingDate);
        EXPECT_EQ(TextOf("txtAcademicyear"), "2024 - 2025");
        form->Unload();
        Settle();
    }
}

TEST_F(StudentMasterTest, WithoutTheSettingsOfOptionsNoStudentIsBegun)
{
    Given("UPDATE Options SET DateOfBirthSetting = NULL, GenderOption = ''");
    OpenMaster();
    prompts.ExpectInformation(
        QStringLiteral("Without Setting 'Date Of Birth In Options Screen' Students Cannot Be Created"));
    Press(Button("cmdNew"));
    ExpectIdle();
    Given("UPDATE Options SET DateOfBirthSetting = '2018-05-31'");
    prompts.ExpectInformation(
        QStringLiteral("Without Setting 'Gender In Options Screen' Students Cannot Be Created"));
    Press(Button("cmdNew"));
    ExpectIdle();
    Given("DELETE FROM Options");
    prompts.ExpectInformation(
        QStringLiteral("Without Setting 'Date Of Birth In Options Screen' Students Cannot Be Created"));
    Press(Button("cmdNew"));
    ExpectIdle();
}

TEST_F(StudentMasterTest, DeleteAsksAndDeletesThisStudentAlone)
{
    GivenStudent(Anu());
    GivenStudent(StudentNamed(6, "Binu"));
    OpenMaster();
    ASSERT_TRUE(form->LoadData(5));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Student ?"), false);
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_TRUE(Found(5));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Student ?"), true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_FALSE(Found(5));
    EXPECT_TRUE(Found(6));
    ExpectIdle();
}

TEST_F(StudentMasterTest, AStudentWithAPlacementStays)
{
    GivenStudent(Anu());
    Given("INSERT INTO ClassDivisionMaster VALUES (1, 'X', 1, 1, 1)");
    Given("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1)");
    Given("INSERT INTO StudentClassDivision VALUES (5, 2, 1, 1, 'Y', 1)");
    OpenMaster();
    ASSERT_TRUE(form->LoadData(5));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Student ?"), true);
    prompts.ExpectCritical(
        QStringLiteral("This Data Is Already Used By Other Screen(s).\nYou Cannot Delete This Data."));
    Press(Button("cmdDelete"));
    EXPECT_TRUE(Found(5));
    EXPECT_TRUE(IsEnabled("cmdDelete")) << "the screen stays as it was";
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
}

TEST_F(StudentMasterTest, NewEditAndDeleteNeedTheirRightsAndSearchNeedsNone)
{
    GivenStudent(Anu());
    GivenUser(3, QStringLiteral("clerk"), QStringLiteral("word"));
    Session().gintPrivilegeUserCode = 3;
    OpenMaster();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    ExpectIdle();
    ASSERT_TRUE(form->LoadData(5));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    EXPECT_FALSE(IsEnabled("fraMain"));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Delete"));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_TRUE(Found(5));
    Press(Button("cmdSearch"));
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmMasStudentMasterSearch")), nullptr);
}

TEST_F(StudentMasterTest, FieldsTakeOnlyWhatTheyMayHoldTypedOrPasted)
{
    StartNew();
    const std::pair<const char*, int> widths[] = {
        {"txtOptionalAdmissionNo", 15}, {"txtstudentName", 100}, {"txtFGName", 100},   {"txtAddress1", 100},
        {"txtAddress2", 100},           {"txtPincode", 15},      {"txtTelephone", 20},
    };
    for (const auto& [name, width] : widths) {
        QLineEdit* field = Box(name);
        QApplication::clipboard()->setText(QStringLiteral("'%\u00f6") + QString(150, QLatin1Char('x')));
        field->setFocus();
        QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(field->text(), QString(width, QLatin1Char('x'))) << name;
        field->clear();
        QTest::keyClicks(field, QStringLiteral("a'_1"));
        EXPECT_EQ(field->text().toStdString(), "a1") << name;
    }
    Retype("txtEmail", "o'neil_1@school.org");
    EXPECT_EQ(TextOf("txtEmail"), "oneil_1@school.org");
    EXPECT_EQ(Box("txtEmail")->maxLength(), 50);
    Retype("txtAdmissionNumber", "12 a3456789012");
    EXPECT_EQ(TextOf("txtAdmissionNumber"), "123456789") << "at most nine digits";
}

TEST_F(StudentMasterTest, AStudentIsEnteredAndSavedWithKeysAlone)
{
    OpenMaster();
    PressKey(form, Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(HasFocus("txtAdmissionNumber"));
    Enter("4711");
    Enter("B-12");
    EXPECT_TRUE(HasFocus("dtpAdmissiondate"));
    Enter("07Jun2024");
    EXPECT_TRUE(HasFocus("txtstudentName"));
    Enter("Anu K.");
    Enter("Babu");
    EXPECT_TRUE(HasFocus("cboSex"));
    PressKey(form, Qt::Key_Down);
    Enter("");
    EXPECT_TRUE(HasFocus("dtpDOB"));
    Enter("29Feb2016");
    EXPECT_TRUE(HasFocus("dbcBloodGroup"));
    PressKey(form, Qt::Key_Down);
    Enter("");
    Enter("0484-1");
    Enter("anu@school.org");
    Enter("House");
    Enter("Street");
    EXPECT_TRUE(HasFocus("dbcStateName"));
    PressKey(form, Qt::Key_Down);
    Enter("");
    EXPECT_TRUE(HasFocus("dbcCity"));
    PressKey(form, Qt::Key_Down);
    Enter("");
    Enter("403001");
    EXPECT_TRUE(HasFocus("cmdSave"));
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(Stored(1), "1|4711|B-12|2024-06-07|2|Anu K.|Babu|M|House|Street|2|403001|0484-1|"
                         "anu@school.org|2016-02-29|2|N|NULL|||NULL|3");
    ExpectIdle();
    EXPECT_TRUE(HasFocus("cmdNew"));
}

TEST_F(StudentMasterTest, WhatIsAddedInAMasterCanBeChosenOnReturnAndWhatWasChosenStays)
{
    StartNew();
    Choose("dbcStateName", QStringLiteral("Kerala"));
    Choose("dbcCity", QStringLiteral("Kochi"));
    Choose("dbcBloodGroup", QStringLiteral("O+"));
    PressKey(form, Qt::Key_C, Qt::AltModifier | Qt::ShiftModifier);
    Screen* cities = ScreenRegistry::OpenInstance(QStringLiteral("frmMasCityMaster"));
    ASSERT_NE(cities, nullptr);
    Given("INSERT INTO CityMaster VALUES (9, 1, 'Kannur', 1)");
    cities->Unload();
    Settle();
    EXPECT_EQ(List("dbcCity")->currentText().toStdString(), "Kochi");
    Choose("dbcCity", QStringLiteral("Kannur"));
    PressKey(form, Qt::Key_B, Qt::AltModifier | Qt::ShiftModifier);
    Screen* groups = ScreenRegistry::OpenInstance(QStringLiteral("frmMasBloodGroupMaster"));
    ASSERT_NE(groups, nullptr);
    Given("INSERT INTO BloodGroupMaster VALUES (9, 'AB', 1)");
    groups->Unload();
    Settle();
    EXPECT_EQ(List("dbcBloodGroup")->currentText().toStdString(), "O+");
    Choose("dbcBloodGroup", QStringLiteral("AB"));
    PressKey(form, Qt::Key_S, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmMasStateMaster")), nullptr);
}

TEST_F(StudentMasterTest, ControlAltShiftAndOLeadToTheChangeOfAllNumbers)
{
    constexpr auto AllThree = Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier;
    const QString change = QStringLiteral("frmMasOptionalAdmissionNoChange");
    const QString question = QStringLiteral("Do You Want To Change 'Optional Admission Nos' ?");
    OpenMaster();
    prompts.ExpectQuestion(question, false);
    PressKey(form, Qt::Key_O, AllThree);
    prompts.Verify();
    EXPECT_EQ(ScreenRegistry::OpenInstance(change), nullptr);
    Press(Button("cmdNew"));
    Box("txtstudentName")->setFocus();
    prompts.ExpectQuestion(question, true);
    PressKey(form, Qt::Key_O, AllThree);
    prompts.Verify();
    EXPECT_EQ(TextOf("txtstudentName"), "");
    EXPECT_NE(ScreenRegistry::OpenInstance(change), nullptr);
}

TEST_F(StudentMasterTest, ControlAltShiftAndOAskNothingInFrontOfAnotherScreen)
{
    OpenMaster();
    Screen* other = OpenScreen(QStringLiteral("frmMasStateMaster"));
    ASSERT_NE(other, nullptr);
    PressKey(other, Qt::Key_O, Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier);
}

TEST_F(StudentMasterTest, HelpOpensAtTheNumberOfTheScreen)
{
    OpenMaster();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 10);
}

TEST_F(StudentMasterTest, ExitAsksWithTheCaption)
{
    OpenMaster();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Student Master ?"), false);
    Press(Button("cmdExit"));
    EXPECT_FALSE(form->IsUnloaded());
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Student Master ?"), true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmMasStudentMaster")), nullptr);
}

TEST_F(StudentMasterTest, ManyStudentsTakeAsManyStatementsAsFew)
{
    const auto statements = [this](const char* number, const char* name) {
        const auto before = Session().gcnnMain->StatementsRun();
        StartNew();
        FillMandatory(number, number, name);
        Save();
        form->Unload();
        Settle();
        return Session().gcnnMain->StatementsRun() - before;
    };
    const auto few = statements("1", "Anu");
    Given("WITH RECURSIVE n(i) AS (VALUES(100) UNION ALL SELECT i + 1 FROM n WHERE i < 599)"
          " INSERT INTO StudentMaster SELECT i, i, 'A' || i, '2024-06-03', 2, 'Student ' || i, '', 'F', '', "
          "'', 1, '', '', '', '2015-01-02', 0, 'N', NULL, '', '', NULL, 1 FROM n");
    EXPECT_EQ(statements("2", "Binu"), few);
    EXPECT_EQ(Found(600)->name.toStdString(), "Binu");
}

TEST_F(StudentMasterTest, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmMasStudentMaster"));
}

TEST_F(StudentMasterTest, EachUnderlinedLetterLeadsToOneControl)
{
    OpenMaster();
    ExpectOneControlALetter(form);
}

TEST_F(StudentMasterTest, LongTextsAreReadFromTheirBeginningAndTypedOnAtTheirEnd)
{
    Student anu = Anu();
    anu.name = anu.address1 = QString(100, QLatin1Char('m'));
    GivenStudent(anu);
    OpenMaster();
    ASSERT_TRUE(form->LoadData(anu.code));
    EXPECT_EQ(Box("txtstudentName")->cursorPosition(), 0);
    EXPECT_EQ(Box("txtAddress1")->cursorPosition(), 0);
    EXPECT_EQ(Box("txtAddress1")->selectedText().toStdString(), "");
    Press(Button("cmdEdit"));
    EXPECT_EQ(Box("txtstudentName")->cursorPosition(), 100);
    EXPECT_EQ(Box("txtstudentName")->selectedText().toStdString(), "");
}

} // namespace
} // namespace tally::test
