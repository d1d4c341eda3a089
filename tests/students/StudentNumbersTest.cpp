#include "core/ui/controls/FieldHint.h"
#include "students/StudentFixture.h"
#include "support/Neighbours.h"

namespace tally::test {
namespace {

const QString Exists = QStringLiteral("Admission No. Already Exists. Do You Want To View The Details ?");
const QString ViewRelieved = QStringLiteral("Do You Want To View Relieved Student Details ?");

/// The numbers of students, typed or generated.
class StudentNumbersTest : public StudentFixture
{
protected:
    /// Generates numbers from now on, or no longer.
    static void Generate(bool generate) { Session().gblnAutoGenerate = generate; }
    /// A new student whose number is generated, ready to be saved.
    void StartGenerated(const char* name)
    {
        Generate(true);
        StartNew();
        Type(Box("txtstudentName"), QString::fromLatin1(name));
        Date("dtpDOB")->setDate(QDate(2015, 1, 2));
    }
    void CloseMaster()
    {
        form->Unload();
        Settle();
    }
};

TEST_F(StudentNumbersTest, NumbersAreTypedWhereTheyAreNotGenerated)
{
    StartNew();
    EXPECT_TRUE(IsEnabled("txtAdmissionNumber"));
    EXPECT_TRUE(IsEnabled("txtOptionalAdmissionNo"));
    EXPECT_EQ(LabelOf("lblAutoGenDisplay"), "Enter Admission No. Manually");
    EXPECT_TRUE(IsShown("lblAutoGenDisplay"));
    EXPECT_TRUE(IsShown("lblMandatory"));
    EXPECT_TRUE(HasFocus("txtAdmissionNumber"));
}

TEST_F(StudentNumbersTest, NumbersAreClosedWhereTheyAreGenerated)
{
    Generate(true);
    StartNew();
    EXPECT_FALSE(IsEnabled("txtAdmissionNumber"));
    EXPECT_FALSE(IsEnabled("txtOptionalAdmissionNo"));
    EXPECT_EQ(LabelOf("lblAutoGenDisplay"), "Admission No. Will Be Generated Automatically");
    EXPECT_TRUE(IsShown("lblAutoGenDisplay"));
    EXPECT_FALSE(IsShown("lblMandatory"));
    EXPECT_TRUE(HasFocus("dtpAdmissiondate"));
}

TEST_F(StudentNumbersTest, AGeneratedNumberFollowsTheHighestAndIsShownWithTheWordForTheResult)
{
    Student typed = StudentNamed(4, "Anu");
    typed.admissionNo = 700;
    GivenStudent(typed);
    StartGenerated("Binu");
    std::string shown;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        shown =
            text.toStdString() + ' ' + TextOf("txtAdmissionNumber") + ' ' + TextOf("txtOptionalAdmissionNo");
        return true;
    });
    Press(Button("cmdSave"));
    EXPECT_EQ(shown, "Record Saved 701 701");
    EXPECT_EQ(Stored(5), "5|701|701|2024-06-10|2|Binu||F|||0||||2015-01-02|0|Y|NULL|||NULL|3");
    ExpectIdle();
}

TEST_F(StudentNumbersTest, WithNineDigitsUsedUpTheNextSaveSaysSoAndWritesNothing)
{
    Student highest = StudentNamed(4, "Anu");
    highest.admissionNo = 999999998;
    GivenStudent(highest);
    StartGenerated("Binu");
    Save();
    EXPECT_EQ(Found(5)->admissionNo, 999999999);
    CloseMaster();
    StartGenerated("Chandra");
    const AllRows before(*Session().gcnnMain);
    prompts.ExpectInformation(QStringLiteral(
        "Auto Generation Of Admission No. Is Not Possible, Because It Has Reached The Limit(999999999).\n"
        "You Can Create Students With Manual Admission No. Entry Option.\n"
        "Admission No. Should Be Less Than The Above Mentioned Limit."));
    Press(Button("cmdSave"));
    before.ExpectTouchedOnly(*Session().gcnnMain, "", {});
    EXPECT_EQ(TextOf("txtstudentName"), "Chandra") << "nothing that was typed is lost";
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
}

TEST_F(StudentNumbersTest, WithNineDigitsUsedUpNoNumberIsShownWhileThatIsSaid)
{
    Student highest = StudentNamed(4, "Anu");
    highest.admissionNo = 999999999;
    GivenStudent(highest);
    StartGenerated("Binu");
    std::string shown = "none told";
    Prompts::AnswerWith([&](Prompts::Kind, const QString&) {
        shown = TextOf("txtAdmissionNumber") + TextOf("txtOptionalAdmissionNo");
        return true;
    });
    Press(Button("cmdSave"));
    EXPECT_EQ(shown, "");
}

TEST_F(StudentNumbersTest, AStudentKeepsHowHisNumberCameAboutWhateverOptionsSaysLater)
{
    StartNew();
    FillMandatory();
    Save();
    CloseMaster();
    StartGenerated("Binu");
    Save();
    ASSERT_TRUE(form->LoadData(1));
    Press(Button("cmdEdit"));
    EXPECT_TRUE(IsEnabled("txtAdmissionNumber")) << "a number typed by hand stays open";
    Retype("txtTelephone", "1");
    Save(QStringLiteral("Record Updated"));
    EXPECT_FALSE(Found(1)->numberGenerated);
    Generate(false);
    ASSERT_TRUE(form->LoadData(2));
    Press(Button("cmdEdit"));
    EXPECT_FALSE(IsEnabled("txtAdmissionNumber")) << "a generated one stays closed";
    EXPECT_TRUE(IsEnabled("txtOptionalAdmissionNo"));
    Retype("txtOptionalAdmissionNo", "B2");
    Save(QStringLiteral("Record Updated"));
    EXPECT_TRUE(Found(2)->numberGenerated);
    EXPECT_EQ(Found(2)->optionalAdmissionNo.toStdString(), "B2");
}

TEST_F(StudentNumbersTest, TheHolderOfATypedNumberIsOfferedAndShown)
{
    GivenStudent(StudentNamed(4, "Anu"));
    StartNew();
    prompts.ExpectQuestion(Exists, true);
    Enter("104");
    prompts.Verify();
    EXPECT_EQ(TextOf("txtstudentName"), "Anu");
    EXPECT_TRUE(HasFocus("cmdEdit"));
    EXPECT_FALSE(IsEnabled("fraMain"));
    EXPECT_FALSE(IsEnabled("cmdSave"));
}

TEST_F(StudentNumbersTest, WhoDeclinesToSeeTheHolderTypesAnotherNumber)
{
    GivenStudent(StudentNamed(4, "Anu"));
    StartNew();
    prompts.ExpectQuestion(Exists, false);
    Enter("104");
    prompts.Verify();
    EXPECT_EQ(TextOf("txtAdmissionNumber"), "");
    EXPECT_TRUE(HasFocus("txtAdmissionNumber"));
    Enter("105");
    EXPECT_TRUE(HasFocus("txtOptionalAdmissionNo"));
    EXPECT_EQ(FieldHintAt(Box("txtAdmissionNumber")).toStdString(), "") << "the number of a new student";
}

TEST_F(StudentNumbersTest, ANumberWhoseHolderCannotBeReadIsToldOnceAndCanBeLeft)
{
    StartNew();
    Given("ALTER TABLE StudentMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("StudentMaster"));
    Enter("101");
    prompts.Verify();
    EXPECT_TRUE(HasFocus("txtOptionalAdmissionNo"));
    Given("ALTER TABLE Away RENAME TO StudentMaster");
}

TEST_F(StudentNumbersTest, ARelievedHolderIsOfferedToBeLookedAt)
{
    GivenStudent(StudentNamed(4, "Anu"));
    Relieve(*Session().gcnnMain, 4);
    StartNew();
    prompts.ExpectQuestion(ViewRelieved, false);
    Enter("104");
    EXPECT_TRUE(HasFocus("txtAdmissionNumber"));
    prompts.ExpectQuestion(ViewRelieved, true);
    Enter("104");
    EXPECT_EQ(TextOf("txtstudentName"), "Anu");
    EXPECT_TRUE(HasFocus("cmdCancel"));
    for (const char* off : {"fraMain", "cmdEdit", "cmdSave"})
        EXPECT_FALSE(IsEnabled(off)) << off;
}

TEST_F(StudentNumbersTest, GivingUpOrSearchingAsksNothing)
{
    GivenStudent(StudentNamed(4, "Anu"));
    StartNew();
    QTest::keyClicks(Box("txtAdmissionNumber"), QStringLiteral("104"));
    Press(Button("cmdCancel"));
    ExpectIdle();
    EXPECT_EQ(TextOf("txtAdmissionNumber"), "");
}

TEST_F(StudentNumbersTest, ANumberOfTheRowForNoStudentOrOfTheStudentHimselfShowsNobody)
{
    GivenStudent(StudentNamed(4, "Anu"));
    StartNew();
    Enter("0");
    EXPECT_TRUE(HasFocus("txtOptionalAdmissionNo"));
    FillMandatory("");
    ExpectRefusal(QStringLiteral("Admission No. Already Exists"), "txtAdmissionNumber");
    CloseMaster();
    StartEdit(4);
    Box("txtAdmissionNumber")->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(HasFocus("txtOptionalAdmissionNo"));
    EXPECT_EQ(FieldHintAt(Box("txtAdmissionNumber")).toStdString(), "");
}

TEST_F(StudentNumbersTest, TheNumberOfAStoredStudentStaysAndTheClerkIsTold)
{
    GivenStudent(StudentNamed(4, "Anu"));
    StartEdit(4);
    Retype("txtAdmissionNumber", "999");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(FieldHintAt(Box("txtAdmissionNumber")).toStdString(),
              "The Admission No. Of A Stored Student Stays As It Is");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Found(4)->admissionNo, 104);
}

TEST_F(StudentNumbersTest, WhenGenerationIsSwitchedOnWhileANumberIsTypedTheNumberGoes)
{
    StartNew();
    Type(Box("txtAdmissionNumber"), QStringLiteral("101"));
    Generate(true);
    prompts.ExpectInformation(
        QStringLiteral("Auto Generation Of Admission No. Is Enabled In Options Screen"));
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(TextOf("txtAdmissionNumber"), "");
    EXPECT_FALSE(IsEnabled("txtAdmissionNumber"));
    EXPECT_FALSE(IsEnabled("txtOptionalAdmissionNo"));
    EXPECT_EQ(LabelOf("lblAutoGenDisplay"), "Admission No. Will Be Generated Automatically");
    EXPECT_FALSE(IsShown("lblMandatory"));
    EXPECT_TRUE(HasFocus("dtpAdmissiondate"));
}

TEST_F(StudentNumbersTest, ATypedNumberIsNotReplacedByAGeneratedOneUnseen)
{
    StartNew();
    FillMandatory();
    Generate(true);
    prompts.ExpectInformation(
        QStringLiteral("Auto Generation Of Admission No. Is Enabled In Options Screen"));
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_FALSE(Found(1));
    EXPECT_EQ(TextOf("txtAdmissionNumber") + TextOf("txtOptionalAdmissionNo"), "");
    EXPECT_EQ(TextOf("txtstudentName"), "Anu");
    Save();
    EXPECT_TRUE(Found(1)->numberGenerated);
}

TEST_F(StudentNumbersTest, ATypedNumberStaysOnTheReturnFromOptionsUntilTheClerkIsTold)
{
    StartNew();
    FillMandatory();
    OpenScreen(QStringLiteral("frmUtilOptions"));
    Generate(true);
    OpenScreen(QStringLiteral("frmMasStudentMaster"));
    EXPECT_TRUE(IsEnabled("txtAdmissionNumber"));
    EXPECT_EQ(TextOf("txtAdmissionNumber") + TextOf("txtOptionalAdmissionNo"), "101A1");
    prompts.ExpectInformation(
        QStringLiteral("Auto Generation Of Admission No. Is Enabled In Options Screen"));
    Press(Button("cmdSave"));
}

TEST_F(StudentNumbersTest, AGeneratedNumberStaysClosedOnTheReturnToAnEdit)
{
    Student generated = StudentNamed(4, "Anu");
    generated.numberGenerated = true;
    GivenStudent(generated);
    StartEdit(4);
    OpenScreen(QStringLiteral("frmUtilOptions"));
    OpenScreen(QStringLiteral("frmMasStudentMaster"));
    EXPECT_FALSE(IsEnabled("txtAdmissionNumber"));
    EXPECT_FALSE(IsShown("lblMandatory"));
}

TEST_F(StudentNumbersTest, WhenGenerationIsSwitchedOffInOptionsTheBoxesOpenOnReturn)
{
    StartGenerated("Anu");
    Screen* options = OpenScreen(QStringLiteral("frmUtilOptions"));
    ASSERT_NE(options, nullptr);
    Generate(false);
    options->Unload();
    Settle();
    EXPECT_TRUE(IsEnabled("txtAdmissionNumber"));
    EXPECT_TRUE(IsEnabled("txtOptionalAdmissionNo"));
    EXPECT_EQ(LabelOf("lblAutoGenDisplay"), "Enter Admission No. Manually");
    ExpectRefusal(QStringLiteral("Enter Student Admission No."), "txtAdmissionNumber");
    EXPECT_EQ(TextOf("txtstudentName"), "Anu");
}

TEST_F(StudentNumbersTest, TheStoredNumberStandsInTheBoxWhileTheWordForAnEditStands)
{
    GivenStudent(StudentNamed(4, "Anu"));
    StartEdit(4);
    Retype("txtAdmissionNumber", "999");
    std::string shown;
    Prompts::AnswerWith([&](Prompts::Kind, const QString&) {
        shown = TextOf("txtAdmissionNumber");
        return true;
    });
    Press(Button("cmdSave"));
    EXPECT_EQ(shown, "104");
}

TEST_F(StudentNumbersTest, AGeneratedNumberThatAnotherStudentHasAsHisOptionalOneIsShownAndTold)
{
    Student other = StudentNamed(4, "Anu");
    other.optionalAdmissionNo = QStringLiteral("105");
    GivenStudent(other);
    StartGenerated("Binu");
    std::string shown;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        shown = TextOf("txtOptionalAdmissionNo") + ": " + text.toStdString();
        return true;
    });
    Press(Button("cmdSave"));
    EXPECT_EQ(shown, "105: Optional Admission No. Already Exists");
    EXPECT_EQ(TextOf("txtAdmissionNumber") + TextOf("txtOptionalAdmissionNo"), "");
    EXPECT_EQ(TextOf("txtstudentName"), "Binu");
    EXPECT_TRUE(HasFocus("cmdSave"));
}

TEST_F(StudentNumbersTest, AnOptionalNumberThatWasChangedMeanwhileIsNotUndoneByAnEditOfSomethingElse)
{
    GivenStudent(StudentNamed(4, "Anu"));
    GivenStudent(StudentNamed(5, "Binu"));
    StartEdit(4);
    Retype("txtstudentName", "Anu K.");
    const auto division = AnotherClient();
    division->Execute(
        QStringLiteral("UPDATE StudentMaster SET OptionalAdmissionNo = 'N1' WHERE StudentCode = 4"));
    division->Execute(
        QStringLiteral("UPDATE StudentMaster SET OptionalAdmissionNo = 'A104' WHERE StudentCode = 5"));
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Found(4)->optionalAdmissionNo.toStdString(), "N1");
    EXPECT_EQ(Found(4)->name.toStdString(), "Anu K.");
}

TEST_F(StudentNumbersTest, AnOptionalNumberThatTheClerkTypesIsStoredWhateverItWasMeanwhile)
{
    GivenStudent(StudentNamed(4, "Anu"));
    StartEdit(4);
    Retype("txtOptionalAdmissionNo", "B7");
    AnotherClient()->Execute(
        QStringLiteral("UPDATE StudentMaster SET OptionalAdmissionNo = 'N1' WHERE StudentCode = 4"));
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Found(4)->optionalAdmissionNo.toStdString(), "B7");
}

TEST_F(StudentNumbersTest, ThatTheNumbersAreNeededIsSaidOnlyWhereTheClerkEntersThem)
{
    Student typed = StudentNamed(4, "Anu");
    Student generated = StudentNamed(5, "Binu");
    generated.numberGenerated = true;
    GivenStudent(typed);
    GivenStudent(generated);
    OpenMaster();
    EXPECT_FALSE(IsShown("lblMandatory"));
    for (const auto& [code, shown] : {std::pair(4, true), std::pair(5, false)}) {
        ASSERT_TRUE(form->LoadData(code));
        EXPECT_FALSE(IsShown("lblMandatory")) << code;
        Press(Button("cmdEdit"));
        EXPECT_EQ(IsShown("lblMandatory"), shown) << code;
    }
}

} // namespace
} // namespace tally::test
