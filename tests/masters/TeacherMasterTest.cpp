#include "core/ui/ScreenRegistry.h"
#include "masters/TeacherFixture.h"

#include <QApplication>
#include <QClipboard>

namespace tally::test {
namespace {

class TeacherMasterTest : public TeacherFixture
{};

TEST_F(TeacherMasterTest, OpensClosedWithTodaysDatesUntickedAndSingle)
{
    OpenMaster();
    EXPECT_EQ(form->windowTitle().toStdString(), "Teacher Master");
    ExpectIdle();
    for (const char* name : {"dtpDOB", "dtpWedding", "dtpJoining"}) {
        EXPECT_FALSE(Date(name)->IsTicked()) << name;
        EXPECT_EQ(Date(name)->ShownDate(), QDate::currentDate()) << name;
    }
    EXPECT_TRUE(Option("optSingle")->isChecked());
    Press(Button("cmdNew"));
    EXPECT_FALSE(Date("dtpWedding")->isEnabled());
}

TEST_F(TeacherMasterTest, AStoredTeacherIsShownReadyToEditOrDelete)
{
    GivenTeacher(5, QStringLiteral("Asha"), QStringLiteral("ASH"), 3);
    OpenMaster();
    ASSERT_TRUE(form->LoadData(5));
    EXPECT_EQ(List("cboPrefix")->currentText().toStdString(), "Mrs");
    EXPECT_EQ(Box("txtTeacherName")->text().toStdString(), "Asha");
    EXPECT_EQ(Box("txtTeacherShortName")->text().toStdString(), "ASH");
    EXPECT_EQ(Box("txtFHName")->text().toStdString(), "Father");
    EXPECT_EQ(Date("dtpDOB")->Date(), QDate(1980, 1, 2));
    EXPECT_EQ(Date("dtpWedding")->Date(), QDate(2005, 3, 4));
    EXPECT_EQ(Date("dtpJoining")->Date(), QDate(2010, 6, 7));
    EXPECT_TRUE(Option("optMarried")->isChecked());
    EXPECT_EQ(Box("txtAddress1")->text().toStdString(), "House");
    EXPECT_EQ(Box("txtAddress2")->text().toStdString(), "Street");
    EXPECT_EQ(List("dbcStateName")->currentText().toStdString(), "Kerala");
    EXPECT_EQ(List("dbcCityName")->currentText().toStdString(), "Aluva");
    EXPECT_EQ(Box("txtPincode")->text().toStdString(), "682001");
    EXPECT_EQ(Box("txtTelephone")->text().toStdString(), "0484-1");
    EXPECT_EQ(List("dbcBloodGroup")->currentText().toStdString(), "O+");
    EXPECT_EQ(Box("txtQualification")->text().toStdString(), "B.Ed");
    EXPECT_FALSE(Button("cmdNew")->isEnabled());
    EXPECT_TRUE(Button("cmdEdit")->isEnabled());
    EXPECT_TRUE(Button("cmdDelete")->isEnabled());
    EXPECT_FALSE(Button("cmdSave")->isEnabled());
    EXPECT_FALSE(Find<QWidget>(form, "fraMain")->isEnabled());
    EXPECT_TRUE(HasFocus("cmdEdit"));
}

TEST_F(TeacherMasterTest, ATeacherWhoseListsCannotBeReadIsNotShownAndTheFormStaysAsItWas)
{
    GivenTeacher(5, QStringLiteral("Asha"), QStringLiteral("ASH"), 3);
    for (const char* list : {"SalutationMaster", "StateMaster", "BloodGroupMaster"}) {
        StartNew();
        FillMandatory(QStringLiteral("Binu"), QStringLiteral("BIN"));
        Choose("dbcStateName", QStringLiteral("Goa"));
        Choose("dbcCityName", QStringLiteral("Panaji"));
        Choose("dbcBloodGroup", QStringLiteral("A-"));
        const QString rename = QStringLiteral("ALTER TABLE %1 RENAME TO %2");
        const QString name = QString::fromLatin1(list);
        Session().gcnnMain->Execute(rename.arg(name, QStringLiteral("Away")));
        prompts.ExpectCritical(NoSuchTable(list));
        EXPECT_FALSE(form->LoadData(5)) << list;
        prompts.Verify();
        Session().gcnnMain->Execute(rename.arg(QStringLiteral("Away"), name));
        EXPECT_EQ(TextOf("txtTeacherName"), "Binu") << list;
        EXPECT_EQ(List("cboPrefix")->currentText().toStdString(), "Mrs") << list;
        EXPECT_EQ(List("dbcStateName")->currentText().toStdString(), "Goa") << list;
        EXPECT_EQ(List("dbcCityName")->currentText().toStdString(), "Panaji") << list;
        EXPECT_EQ(List("dbcBloodGroup")->currentText().toStdString(), "A-") << list;
        EXPECT_TRUE(IsEnabled("cmdSave")) << list;
        Press(Button("cmdCancel"));
    }
}

TEST_F(TeacherMasterTest, CancelForgetsTheTeacherInHand)
{
    GivenTeacher(1, QStringLiteral("Asha"), QStringLiteral("ASH"), 3);
    StartEdit(1);
    EXPECT_TRUE(HasFocus("cboPrefix"));
    Press(Button("cmdCancel"));
    ExpectIdle();
    EXPECT_TRUE(HasFocus("cmdNew"));
    EXPECT_EQ(Box("txtTeacherName")->text().toStdString(), "");
    EXPECT_TRUE(List("cboPrefix")->IsBlank());
    EXPECT_TRUE(List("dbcStateName")->IsBlank());
    EXPECT_EQ(List("dbcCityName")->count(), 0);
    EXPECT_TRUE(Option("optSingle")->isChecked());
    for (const char* name : {"dtpDOB", "dtpWedding", "dtpJoining"}) {
        EXPECT_FALSE(Date(name)->IsTicked()) << name;
        EXPECT_EQ(Date(name)->ShownDate(), QDate::currentDate()) << name;
    }
    Press(Button("cmdNew"));
    EXPECT_FALSE(Date("dtpWedding")->isEnabled());
    FillMandatory(QStringLiteral("Asha"), QStringLiteral("ASH"));
    ExpectRefusal(QStringLiteral("Teacher Name Already Exists"), "txtTeacherName");
    Retype("txtTeacherName", "Binu");
    Retype("txtTeacherShortName", "BIN");
    Save();
    EXPECT_EQ(Stored("TeacherName", 1).toStdString(), "Asha");
    EXPECT_EQ(Stored("TeacherName", 2).toStdString(), "Binu");
}

TEST_F(TeacherMasterTest, TheCitiesAreThoseOfTheState)
{
    StartNew();
    EXPECT_EQ(List("dbcCityName")->count(), 0);
    Choose("dbcStateName", QStringLiteral("Kerala"));
    EXPECT_EQ(List("dbcCityName")->count(), 2);
    Choose("dbcCityName", QStringLiteral("Kochi"));
    Choose("dbcStateName", QStringLiteral("Goa"));
    EXPECT_EQ(List("dbcCityName")->count(), 1);
    EXPECT_TRUE(List("dbcCityName")->IsBlank());
    Choose("dbcStateName", QStringLiteral(" "));
    EXPECT_EQ(List("dbcCityName")->count(), 0);
}

TEST_F(TeacherMasterTest, DeleteAsksAndDeletes)
{
    GivenTeacher(5, QStringLiteral("Asha"), QStringLiteral("ASH"));
    OpenMaster();
    ASSERT_TRUE(form->LoadData(5));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Teacher ?"), false);
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Stored("TeacherName", 5).toStdString(), "Asha");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Teacher ?"), true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Count("SELECT count(*) FROM TeacherMaster WHERE TeacherCode > 0"), 0);
    ExpectIdle();
}

TEST_F(TeacherMasterTest, ATeacherInUseStaysAndTheScreenStartsOver)
{
    GivenTeacher(5, QStringLiteral("Asha"), QStringLiteral("ASH"));
    Given("INSERT INTO ClassDivisionDetails VALUES (0, 'A', 1)");
    Given("INSERT INTO ClassSubjectTeacher VALUES (0, 0, 1, 0, 5, 100, 100, 'Yes', 1)");
    OpenMaster();
    ASSERT_TRUE(form->LoadData(5));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Teacher ?"), true);
    prompts.ExpectCritical(
        QStringLiteral("This Data Is Already Used By Other Screen(s).\nYou Cannot Delete This Data."));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Stored("TeacherName", 5).toStdString(), "Asha");
    EXPECT_EQ(Count("SELECT count(*) FROM ClassSubjectTeacher WHERE TeacherCode = 5"), 1);
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    ExpectIdle();
    EXPECT_EQ(Box("txtTeacherName")->text().toStdString(), "");
}

TEST_F(TeacherMasterTest, NewEditAndDeleteNeedTheirRightsAndSearchNeedsNone)
{
    GivenTeacher(5, QStringLiteral("Asha"), QStringLiteral("ASH"));
    GivenUser(3, QStringLiteral("clerk"), QStringLiteral("word"));
    Session().gintPrivilegeUserCode = 3;
    OpenMaster();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    ExpectIdle();
    ASSERT_TRUE(form->LoadData(5));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    EXPECT_FALSE(Find<QWidget>(form, "fraMain")->isEnabled());
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Delete"));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Stored("TeacherName", 5).toStdString(), "Asha");
    Press(Button("cmdSearch"));
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmTeacherSearch")), nullptr);
}

TEST_F(TeacherMasterTest, FieldsTakeOnlyWhatTheyMayHoldTypedOrPasted)
{
    StartNew();
    const std::pair<const char*, int> widths[] = {
        {"txtTeacherName", 100}, {"txtTeacherShortName", 3}, {"txtFHName", 100},   {"txtAddress1", 100},
        {"txtAddress2", 100},    {"txtPincode", 15},         {"txtTelephone", 20}, {"txtQualification", 50},
    };
    for (const auto& [name, width] : widths) {
        QLineEdit* field = Box(name);
        QApplication::clipboard()->setText(QStringLiteral("'%") + QString(150, QLatin1Char('x')));
        field->setFocus();
        field->paste();
        EXPECT_EQ(QString(field->text()).remove(QLatin1Char('x')).toStdString(), "") << name;
        EXPECT_LE(field->text().size(), width) << name;
        EXPECT_GE(field->text().size(), width - 2) << name;
        field->clear();
        QTest::keyClicks(field, QStringLiteral("a'_1"));
        EXPECT_EQ(field->text().toStdString(), "a1") << name;
        field->clear();
    }
    QApplication::clipboard()->setText(QStringLiteral("J\u00f6rg (2nd) O'Neil+,-./"));
    Box("txtTeacherName")->setFocus();
    Box("txtTeacherName")->paste();
    EXPECT_EQ(Box("txtTeacherName")->text().toStdString(), "Jrg 2nd ONeil+,-./");
}

TEST_F(TeacherMasterTest, ATeacherIsEnteredAndSavedWithKeysAlone)
{
    OpenMaster();
    const auto enter = [this](int times = 1) {
        for (int time = 0; time < times; ++time)
            PressKey(form, Qt::Key_Return);
    };
    const auto type = [this](const char* text) {
        QTest::keyClicks(form->focusWidget(), QString::fromLatin1(text));
    };
    PressKey(form, Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(HasFocus("cboPrefix"));
    PressKey(form, Qt::Key_Down);
    enter();
    type("Asha");
    enter();
    type("ASH");
    enter();
    type("Babu");
    enter();
    EXPECT_TRUE(HasFocus("dtpDOB"));
    PressKey(form, Qt::Key_Space);
    enter();
    type("06May1980");
    enter();
    EXPECT_TRUE(HasFocus("optMarried"));
    PressKey(form, Qt::Key_Space);
    EXPECT_TRUE(Option("optMarried")->isChecked());
    enter();
    EXPECT_TRUE(HasFocus("dtpWedding"));
    enter();
    EXPECT_TRUE(HasFocus("dtpJoining"));
    enter();
    type("B.Ed");
    enter();
    EXPECT_TRUE(HasFocus("dbcBloodGroup"));
    PressKey(form, Qt::Key_Down);
    enter();
    type("House");
    enter();
    type("Street");
    enter();
    EXPECT_TRUE(HasFocus("dbcStateName"));
    PressKey(form, Qt::Key_Down);
    enter();
    EXPECT_TRUE(HasFocus("dbcCityName"));
    PressKey(form, Qt::Key_Down);
    enter();
    type("403001");
    enter();
    type("0832");
    enter();
    EXPECT_TRUE(HasFocus("cmdSave"));
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    enter();
    prompts.Verify();
    EXPECT_EQ(Stored("DOB", 1).toStdString(), "1980-05-06");
    EXPECT_EQ(Stored("MaritalStatus", 1).toStdString(), "M");
    EXPECT_EQ(Stored("CityCode", 1).toStdString(), "2");
    EXPECT_EQ(Stored("BloodGroupCode", 1).toStdString(), "2");
    EXPECT_EQ(Stored("Telephone", 1).toStdString(), "0832");
    EXPECT_EQ(Stored("Qualification", 1).toStdString(), "B.Ed");
}

TEST_F(TeacherMasterTest, HelpOpensAtTheNumberOfTheScreen)
{
    OpenMaster();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 9);
}

TEST_F(TeacherMasterTest, ExitAsksWithTheCaption)
{
    OpenMaster();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Teacher Master ?"), false);
    Press(Button("cmdExit"));
    EXPECT_FALSE(form->IsUnloaded());
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Teacher Master ?"), true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmTeacherMaster")), nullptr);
}

TEST_F(TeacherMasterTest, ManyTeachersTakeAsManyStatementsAsFew)
{
    const auto statements = [this](const QString& name, const QString& shortName) {
        const auto before = Session().gcnnMain->StatementsRun();
        StartNew();
        FillMandatory(name, shortName);
        Save();
        form->Unload();
        Settle();
        return Session().gcnnMain->StatementsRun() - before;
    };
    const auto few = statements(QStringLiteral("Asha"), QStringLiteral("ASH"));
    Given("WITH RECURSIVE n(i) AS (VALUES(100) UNION ALL SELECT i + 1 FROM n WHERE i < 599)"
          " INSERT INTO TeacherMaster SELECT i, 1, 'Teacher ' || i, i, NULL, 'S', NULL, NULL, '', '', '', 1, "
          "'',"
          " '', 0, '', 1 FROM n");
    EXPECT_EQ(statements(QStringLiteral("Binu"), QStringLiteral("BIN")), few);
    EXPECT_EQ(Stored("TeacherName", 600).toStdString(), "Binu");
}

TEST_F(TeacherMasterTest, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmTeacherMaster"));
}

TEST_F(TeacherMasterTest, EachUnderlinedLetterLeadsToOneControl)
{
    OpenMaster();
    ExpectOneControlALetter(form);
}

} // namespace
} // namespace tally::test
