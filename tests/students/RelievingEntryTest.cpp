#include "students/frmMasStudentRelievingMaster.h"
#include "students/PromotionRepository.h"
#include "students/StudentOffice.h"
#include "support/FileSizeLimit.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>

namespace tally::test {
namespace {

const QString DeleteThis = QStringLiteral("Do You Want To Delete This Entry ?");
const QString Unknown = QStringLiteral("Admission No. Does Not Exist");
const QString AlreadyRelieved = QStringLiteral("Student Is Already Relieved");
const QString Promoted = QStringLiteral("Already Student Promoted Or Detained.\n"
                                        "So You Cannot Relieve This Student In This Academic Year");
const QString NotPlaced = QStringLiteral("'Student Admission Entry' Not Exists For This Student");
const QString BeforeAdmission = QStringLiteral("Relieving Date Should Be Greater Than Admission Date");
const QString InFuture = QStringLiteral("Future Date Cannot Be Given For 'Relieving Date'");
const QString TCBeforeAdmission = QStringLiteral("TC Date Should Be Greater Than Admission Date");
const QString TCInFuture = QStringLiteral("Future Date Cannot Be Given For 'TC Date'");
const QString TCMissing = QStringLiteral("Enter TC No.");
const QString TCTaken = QStringLiteral("TC No. Already Exists");

constexpr const char* Idle = "cmdNew cmdCancel cmdSearch cmdExit";
constexpr const char* Entering = "fraMain Frame1 Frame2 cmdSave cmdCancel cmdSearch cmdExit";
constexpr const char* Selected = "cmdEdit cmdDelete cmdCancel cmdSearch cmdExit";
constexpr const char* Viewing = "cmdCancel cmdSearch cmdExit";

constexpr const char* NoDetails = "||||||||||||||";
constexpr const char* OnRoll = "|||";
const QString RowIsGone =
    QStringLiteral("The Data Contradicts Other Data That Is Already Stored (the row is no longer there)");

const QDate Admission(2024, 6, 3);
const QDate WorkingDate(2024, 6, 10);
const QDate LastDay(2024, 6, 12);

class RelievingEntry : public StudentOffice
{
protected:
    void SetUp() override
    {
        StudentOffice::SetUp();
        Student anu = StudentNamed(1, "Anu");
        anu.fatherOrGuardian = QStringLiteral("Babu");
        anu.male = true;
        anu.address1 = QStringLiteral("House");
        anu.address2 = QStringLiteral("Street");
        anu.cityCode = 3;
        anu.pinCode = QStringLiteral("682001");
        anu.telephone = QStringLiteral("0484");
        anu.email = QStringLiteral("anu@school.org");
        anu.bloodGroupCode = 2;
        GivenStudent(anu);
        GivenStudent(2, "Binu");
        GivenStudent(3, "Cara");
        GivenPlacement(1, 1, {2, 2}, "N");
        GivenPlacement(1, 2, {1, 1});
        GivenPlacement(2, 2, {1, 2});
    }

    void OpenEntry() { OpenForm("frmMasStudentRelievingMaster"); }
    frmMasStudentRelievingMaster* Entry() const { return qobject_cast<frmMasStudentRelievingMaster*>(form); }
    void StartNew()
    {
        OpenEntry();
        Press(Button("cmdNew"));
        ASSERT_EQ(Enabled(), Entering);
    }
    /// A new entry with Anu's number, the keyboard on the relieving date.
    void StartWithAnu()
    {
        StartNew();
        Enter("A101");
        ASSERT_EQ(FocusName(), "dtpRelievingDate");
        ASSERT_EQ(LabelOf("lblStudentName"), "Anu");
    }
    /// Whole but for being saved.
    void FillAnu()
    {
        StartWithAnu();
        Type(Box("txtTCNo"), QStringLiteral("TC 1"));
    }
    void StartEdit(int code = 1)
    {
        OpenEntry();
        ASSERT_TRUE(Entry()->LoadEntry(code, false));
        Press(Button("cmdEdit"));
    }
    std::string Enabled() const
    {
        return EnabledOf({"fraMain", "Frame1", "Frame2", "cmdNew", "cmdEdit", "cmdDelete", "cmdSave",
                          "cmdCancel", "cmdSearch", "cmdExit"});
    }
    std::string Details() const
    {
        QStringList texts;
        for (const char* name :
             {"lblStudentName", "lblFGName", "lblAddress1", "lblAddress2", "lblCityName", "lblStateName",
              "lblPincode", "lblTelephone", "lblEmailId", "lblBloodGroupName", "lblSex", "lblDob",
              "lblAdmissionDate", "lblClassName", "lblDivisionName"})
            texts.append(QString::fromStdString(LabelOf(name)));
        return texts.join(QLatin1Char('|')).toStdString();
    }
    /// The relieving columns as they are stored.
    std::string Stored(int code) const
    {
        const auto student = StudentRepository(Main()).Find(code);
        return student ? QStringLiteral("%1|%2|%3|%4")
                             .arg(student->relievingDate.toString(Qt::ISODate), student->relievingReason,
                                  student->tcNo, student->tcDate.toString(Qt::ISODate))
                             .toStdString()
                       : std::string("gone");
    }
    void SetDates(const QDate& relieving, const QDate& tc) const
    {
        Date("dtpRelievingDate")->setDate(relieving);
        Date("dtpTCDate")->setDate(tc);
    }
    /// Leaves the control by Enter and is told so; the keyboard stays.
    void ExpectKept(const QString& text)
    {
        const std::string field = FocusName();
        prompts.ExpectInformation(text);
        PressKey(form, Qt::Key_Return);
        Settle();
        prompts.Verify();
        EXPECT_EQ(FocusName(), field);
    }
    /// Types another number, opens the search and closes it again without a choice, and saves.
    void SaveBehindSearch(const char* number, const QString& text)
    {
        Retype("txtOptionalAdmissionNo", number);
        PressKey(form, Qt::Key_A, Qt::AltModifier | Qt::ShiftModifier);
        Settle();
        TurnTo("frmMasStudentAdmissionSearch");
        form->Unload();
        Settle();
        TurnTo("frmMasStudentRelievingMaster");
        EXPECT_EQ(TextOf("txtOptionalAdmissionNo"), number);
        EXPECT_EQ(Details(), NoDetails);
        prompts.ExpectInformation(text);
        PressKey(form, Qt::Key_S, Qt::AltModifier);
        prompts.Verify();
    }
    void ExpectSaveTold(const QString& text, const char* control)
    {
        ExpectRefusal(text, control);
        EXPECT_EQ(Enabled(), Entering);
    }
};

TEST_F(RelievingEntry, OpensClosedWithBothDatesAtTheWorkingDate)
{
    OpenEntry();
    EXPECT_EQ(form->windowTitle().toStdString(), "Student Relieving Entry");
    EXPECT_EQ(Enabled(), Idle);
    EXPECT_EQ(Date("dtpRelievingDate")->date(), WorkingDate);
    EXPECT_EQ(Date("dtpTCDate")->date(), WorkingDate);
    EXPECT_EQ(Details(), NoDetails);
}

TEST_F(RelievingEntry, ANumberShowsTheStudentWithHisLastClass)
{
    StartNew();
    EXPECT_EQ(FocusName(), "txtOptionalAdmissionNo");
    Enter("a101");
    EXPECT_EQ(Details(), "Anu|Babu|House|Street|Aluva|Kerala|682001|0484|anu@school.org|A-|Male|02/Jan/2015|"
                         "03/Jun/2024|V|A");
    Retype("txtOptionalAdmissionNo", "A102");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Details(), "Binu||||||||||Female|02/Jan/2015|03/Jun/2024|V|B");
    Retype("txtOptionalAdmissionNo", "");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Details(), NoDetails);
}

TEST_F(RelievingEntry, ANumberThatFitsNoStudentOnRollIsToldInItsOrderAndStays)
{
    Relieve(Main(), 2);
    StartNew();
    const std::pair<const char*, QString> numbers[] = {
        {"1234567890", Unknown}, {"NONE", Unknown}, {"A 101", Unknown}, {"A102", AlreadyRelieved}};
    for (const auto& [number, text] : numbers) {
        QTest::keyClicks(form->focusWidget(), QString::fromLatin1(number));
        ExpectKept(text);
        EXPECT_EQ(TextOf("txtOptionalAdmissionNo"), "") << number;
        EXPECT_EQ(Details(), NoDetails);
    }
    Given("UPDATE StudentClassDivision SET Status = 'N' WHERE AcademicYearCode = 2");
    QTest::keyClicks(form->focusWidget(), QStringLiteral("A101"));
    ExpectKept(Promoted);
    QTest::keyClicks(form->focusWidget(), QStringLiteral("A102"));
    ExpectKept(AlreadyRelieved);
}

TEST_F(RelievingEntry, AClickElsewhereDoesNothingWhileANumberIsRefused)
{
    StartNew();
    Type(Box("txtOptionalAdmissionNo"), QStringLiteral("NONE"));
    prompts.ExpectInformation(Unknown);
    Press(Button("cmdSave"));
    Settle();
    prompts.Verify();
    EXPECT_EQ(FocusName(), "txtOptionalAdmissionNo");
}

TEST_F(RelievingEntry, WhoGivesUpOrLooksSomethingUpIsNotKeptInAFieldThatIsNotFilled)
{
    StartNew();
    Type(Box("txtOptionalAdmissionNo"), QStringLiteral("NONE"));
    Press(Button("cmdSearchAdmissionNo"));
    Settle();
    TurnTo("frmMasStudentAdmissionSearch");
    EXPECT_TRUE(Session().gblnCalledFromSearch);
    form->Unload();
    Settle();
    TurnTo("frmMasStudentRelievingMaster");
    Box("txtTCNo")->setFocus();
    EXPECT_EQ(FocusName(), "txtTCNo");
    Press(Button("cmdCancel"));
    EXPECT_EQ(Enabled(), Idle);
    Press(Button("cmdNew"));
    Box("txtTCNo")->setFocus();
    Press(Button("cmdExit"));
    Settle();
    EXPECT_FALSE(IsOpen("frmMasStudentRelievingMaster"));
}

TEST_F(RelievingEntry, ACertificatesNumberIsNeededAndUnique)
{
    Relieve(Main(), 2, "TC 2");
    StartWithAnu();
    Box("txtTCNo")->setFocus();
    ExpectKept(TCMissing);
    for (const char* taken : {"TC 2", "tc 2"}) {
        Retype("txtTCNo", taken);
        ExpectKept(TCTaken);
        EXPECT_EQ(TextOf("txtTCNo"), taken);
    }
    Retype("txtTCNo", "TC 3");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(FocusName(), "dtpTCDate");
}

TEST_F(RelievingEntry, ANumberStoredInSmallLettersIsNotFoundAgain)
{
    Relieve(Main(), 2, "tc 2");
    FillAnu();
    Retype("txtTCNo", "TC 2");
    Save();
    EXPECT_EQ(Stored(1), "2024-06-10||TC 2|2024-06-10");
}

TEST_F(RelievingEntry, ARelievingDateIsTestedWhenItIsLeft)
{
    StartWithAnu();
    Date("dtpRelievingDate")->setDate(Admission.addDays(-1));
    ExpectKept(BeforeAdmission);
    EXPECT_EQ(Date("dtpRelievingDate")->date(), Admission.addDays(-1));
    Date("dtpRelievingDate")->setDate(LastDay.addDays(1));
    ExpectKept(InFuture);
    EXPECT_EQ(Date("dtpRelievingDate")->date(), WorkingDate);
    for (const QDate& passes : {Admission, LastDay}) {
        Date("dtpRelievingDate")->setFocus();
        Date("dtpRelievingDate")->setDate(passes);
        PressKey(form, Qt::Key_Return);
        EXPECT_EQ(FocusName(), "txtRelievingReason");
    }
}

TEST_F(RelievingEntry, ACertificatesDateIsTestedWhenItIsLeft)
{
    FillAnu();
    PressKey(form, Qt::Key_Return);
    ASSERT_EQ(FocusName(), "dtpTCDate");
    Date("dtpTCDate")->setDate(Admission.addDays(-1));
    ExpectKept(TCBeforeAdmission);
    Date("dtpTCDate")->setDate(WorkingDate.addDays(-1));
    ExpectKept(QStringLiteral("TC Date Should Not Be Lesser Than Relieving Date"));
    Date("dtpTCDate")->setDate(LastDay.addDays(1));
    ExpectKept(TCInFuture);
    EXPECT_EQ(Date("dtpTCDate")->date(), WorkingDate);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cmdSave");
}

TEST_F(RelievingEntry, WithoutAStudentNoDateIsTested)
{
    const auto expectUntested = [this] {
        for (const auto& [date, next] :
             {std::pair("dtpRelievingDate", "txtRelievingReason"), std::pair("dtpTCDate", "cmdSave")}) {
            Date(date)->setFocus();
            Date(date)->setDate(QDate(2100, 1, 1));
            PressKey(form, Qt::Key_Return);
            EXPECT_EQ(FocusName(), next);
        }
    };
    StartNew();
    expectUntested();
    Press(Button("cmdCancel"));
    StartWithAnu();
    Retype("txtOptionalAdmissionNo", "");
    expectUntested();
}

TEST_F(RelievingEntry, TheFieldThatIsReachedDoesNotAskWhileTheOneBeforeKeepsTheKeyboard)
{
    StartWithAnu();
    SetDates(WorkingDate, LastDay.addDays(9));
    Box("txtTCNo")->setFocus();
    ExpectKept(TCMissing);
    EXPECT_EQ(FocusName(), "txtTCNo");
}

TEST_F(RelievingEntry, AStudentIsRelievedWithKeysAlone)
{
    OpenEntry();
    PressKey(form, Qt::Key_N, Qt::AltModifier);
    Enter("A101");
    QTest::keyClicks(form->focusWidget(), QStringLiteral("11Jun2024"));
    PressKey(form, Qt::Key_Return);
    Enter("Moved away");
    Enter("TC 1");
    QTest::keyClicks(form->focusWidget(), QStringLiteral("12Jun2024"));
    PressKey(form, Qt::Key_Return);
    ASSERT_EQ(FocusName(), "cmdSave");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(Stored(1), "2024-06-11|Moved away|TC 1|2024-06-12");
    EXPECT_EQ(Stored(2), OnRoll);
    EXPECT_EQ(Enabled(), Idle);
    EXPECT_EQ(FocusName(), "cmdNew");
    EXPECT_EQ(Details(), NoDetails);
    EXPECT_EQ(Date("dtpRelievingDate")->date(), WorkingDate);
    EXPECT_EQ(Date("dtpTCDate")->date(), WorkingDate);
}

TEST_F(RelievingEntry, ARelievedStudentKeepsHisMarksAndPlacements)
{
    EnterMark(Main(), 1, 2);
    FillAnu();
    Save();
    EXPECT_EQ(Placements(Main()), "1/1 IV-B N 1; 1/2 V-A Y 1; 2/2 V-B Y 1");
    EXPECT_EQ(Count("SELECT count(*) FROM MarkMaster WHERE StudentCode = 1"), 1);
}

TEST_F(RelievingEntry, ANewEntryLeavesTheRowForNoStudentAlone)
{
    Given("UPDATE StudentMaster SET RelievingReason = 'None' WHERE StudentCode = 0");
    GuardOthers();
    FillAnu();
    Save();
}

TEST_F(RelievingEntry, TheSaveTestsAllAnewInItsOrder)
{
    StartNew();
    ExpectSaveTold(QStringLiteral("Enter Admission No."), "txtOptionalAdmissionNo");
    Enter("A101");
    ExpectSaveTold(TCMissing, "txtTCNo");
    QTest::keyClicks(form->focusWidget(), QStringLiteral("TC 1"));
    // What is set while the keyboard is elsewhere meets the save untested.
    SetDates(Admission.addDays(-1), Admission.addDays(-1));
    ExpectSaveTold(BeforeAdmission, "dtpRelievingDate");
    SetDates(WorkingDate, WorkingDate);
    Save();
    EXPECT_EQ(Stored(1), "2024-06-10||TC 1|2024-06-10");
}

TEST_F(RelievingEntry, EachDateThatTheSaveRefusesIsLedTo)
{
    struct Row
    {
        QDate relieving, tc;
        QString text;
        const char* control;
        QDate relievingThen, tcThen;
    };
    const Row rows[] = {
        {Admission.addDays(-1), Admission, BeforeAdmission, "dtpRelievingDate", Admission.addDays(-1),
         Admission},
        {LastDay.addDays(1), Admission, InFuture, "dtpRelievingDate", WorkingDate, Admission},
        {Admission, Admission.addDays(-1), TCBeforeAdmission, "dtpTCDate", Admission, Admission.addDays(-1)},
        {Admission, LastDay.addDays(1), TCInFuture, "dtpTCDate", Admission, WorkingDate},
        {LastDay, Admission, QStringLiteral("TC Date Should Not Be Less Than Relieving Date"), "dtpTCDate",
         LastDay, Admission},
    };
    FillAnu();
    for (const Row& row : rows) {
        Button("cmdSave")->setFocus();
        SetDates(row.relieving, row.tc);
        prompts.ExpectInformation(row.text);
        PressKey(form, Qt::Key_Return);
        prompts.Verify();
        EXPECT_EQ(FocusName(), row.control);
        EXPECT_EQ(Date("dtpRelievingDate")->date(), row.relievingThen);
        EXPECT_EQ(Date("dtpTCDate")->date(), row.tcThen);
        SetDates(WorkingDate, WorkingDate);
    }
    EXPECT_EQ(Stored(1), OnRoll);
    SetDates(Admission, Admission);
    Save();
    EXPECT_EQ(Stored(1), "2024-06-03||TC 1|2024-06-03") << "the day of the admission itself passes";
}

TEST_F(RelievingEntry, WhoIsShownIsForgottenAsSoonAsAnotherNumberIsTyped)
{
    StartWithAnu();
    Box("txtOptionalAdmissionNo")->setFocus();
    QTest::keyClick(Box("txtOptionalAdmissionNo"), Qt::Key_Backspace);
    EXPECT_EQ(Details(), NoDetails);
}

TEST_F(RelievingEntry, TheStudentWhoseNumberStandsInTheBoxIsRelievedAlsoWhereItWasNeverLeft)
{
    FillAnu();
    SaveBehindSearch("A102", QStringLiteral("Record Saved"));
    EXPECT_EQ(Stored(1), OnRoll);
    EXPECT_EQ(Stored(2), "2024-06-10||TC 1|2024-06-10");
}

TEST_F(RelievingEntry, AnEntryMovesToTheNumberThatStandsInTheBoxAlsoWhereItWasNeverLeft)
{
    Relieve(Main(), 1);
    StartEdit();
    SetDates(WorkingDate, LastDay);
    SaveBehindSearch("A102", QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), OnRoll);
    EXPECT_EQ(Stored(2), "2024-06-10|Moved|TC 1|2024-06-12");
}

TEST_F(RelievingEntry, ANumberThatWasNeverLeftIsJudgedInTheSaveAsAnyOther)
{
    Relieve(Main(), 3, "TC 3");
    Given("UPDATE StudentClassDivision SET Status = 'N' WHERE StudentCode = 2");
    FillAnu();
    const std::pair<const char*, QString> numbers[] = {
        {"NONE", Unknown}, {"A103", AlreadyRelieved}, {"A102", Promoted}};
    for (const auto& [number, text] : numbers) {
        SaveBehindSearch(number, text);
        EXPECT_EQ(TextOf("txtOptionalAdmissionNo"), "") << number;
        EXPECT_EQ(FocusName(), "txtOptionalAdmissionNo") << number;
        EXPECT_EQ(Enabled(), Entering);
    }
    EXPECT_EQ(Count("SELECT count(*) FROM StudentMaster WHERE TCNo <> ''"), 1);
}

TEST_F(RelievingEntry, AStudentWithoutAPlaceInTheYearIsNotRelieved)
{
    StartNew();
    Enter("A103");
    EXPECT_EQ(Details(), NoDetails);
    Type(Box("txtTCNo"), QStringLiteral("TC 1"));
    ExpectSaveTold(NotPlaced, "txtOptionalAdmissionNo");
    EXPECT_EQ(TextOf("txtOptionalAdmissionNo"), "A103");
    GivenPlacement(3, 1, {2, 1});
    Retype("txtOptionalAdmissionNo", "A103");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(LabelOf("lblClassName"), "IV");
    ExpectSaveTold(NotPlaced, "txtOptionalAdmissionNo");
}

TEST_F(RelievingEntry, WhatAnotherClientDidMeanwhileIsToldAndNothingIsWrittenOver)
{
    const std::pair<const char*, QString> changes[] = {
        {"UPDATE StudentMaster SET TCNo = 'TC 9' WHERE StudentCode = 1", AlreadyRelieved},
        {"UPDATE StudentClassDivision SET Status = 'N' WHERE StudentCode = 1", Promoted},
        {"DELETE FROM StudentClassDivision WHERE StudentCode = 1", NotPlaced},
        {"UPDATE StudentMaster SET TCNo = 'TC 1' WHERE StudentCode = 2", TCTaken},
    };
    for (const auto& [change, text] : changes) {
        FillAnu();
        Button("cmdSave")->setFocus();
        Other(change);
        prompts.ExpectInformation(text);
        PressKey(form, Qt::Key_Return);
        prompts.Verify();
        const bool emptied = text == AlreadyRelieved || text == Promoted;
        EXPECT_EQ(TextOf("txtOptionalAdmissionNo").empty(), emptied) << qPrintable(text);
        EXPECT_EQ(Details() == NoDetails, emptied) << qPrintable(text);
        EXPECT_TRUE(HasFocus(text == TCTaken ? "txtTCNo" : "txtOptionalAdmissionNo")) << FocusName();
        EXPECT_EQ(Count("SELECT count(*) FROM StudentMaster WHERE TCDate IS NOT NULL"), 0);
        form->Unload();
        Settle();
        Given("UPDATE StudentMaster SET TCNo = ''");
        Given("DELETE FROM StudentClassDivision WHERE StudentCode = 1");
        GivenPlacement(1);
    }
}

TEST_F(RelievingEntry, AStudentWhomAnotherClientDeletedIsNotRelieved)
{
    FillAnu();
    Button("cmdSave")->setFocus();
    Other("DELETE FROM StudentClassDivision WHERE StudentCode = 1");
    Other("DELETE FROM StudentMaster WHERE StudentCode = 1");
    prompts.ExpectInformation(NotPlaced);
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(Stored(1), "gone");
}

TEST_F(RelievingEntry, AFileHeldByAnotherClientOrADiskThatTakesNothingMoreLosesNothingThatWasTyped)
{
    FillAnu();
    Button("cmdSave")->setFocus();
    Main().SetPatience(std::chrono::milliseconds(50));
    {
        const auto other = AnotherClient();
        const store::Transaction held(*other);
        prompts.ExpectCritical(HeldByAnotherClient);
        PressKey(form, Qt::Key_Return);
        prompts.Verify();
    }
    {
        const FileSizeLimit full(0);
        prompts.ExpectCritical(DiskTakesNothing);
        PressKey(form, Qt::Key_Return);
        prompts.Verify();
    }
    EXPECT_EQ(TextOf("txtOptionalAdmissionNo") + TextOf("txtTCNo"), "A101TC 1");
    EXPECT_EQ(Enabled(), Entering);
    Save();
    EXPECT_EQ(Stored(1), "2024-06-10||TC 1|2024-06-10");
}

TEST_F(RelievingEntry, AStoredEntryIsShownReadyToEditOrDelete)
{
    Relieve(Main(), 1);
    OpenEntry();
    ASSERT_TRUE(Entry()->LoadEntry(1, false));
    EXPECT_EQ(Enabled(), Selected);
    EXPECT_TRUE(HasFocus("cmdEdit"));
    EXPECT_EQ(TextOf("txtOptionalAdmissionNo"), "A101");
    EXPECT_EQ(LabelOf("lblStudentName"), "Anu");
    EXPECT_EQ(TextOf("txtRelievingReason"), "Moved");
    EXPECT_EQ(TextOf("txtTCNo"), "TC 1");
    EXPECT_EQ(Date("dtpRelievingDate")->date(), QDate(2024, 9, 1));
    EXPECT_EQ(Date("dtpTCDate")->date(), QDate(2024, 9, 2));
    Given("UPDATE StudentMaster SET TCDate = NULL WHERE StudentCode = 1");
    ASSERT_TRUE(Entry()->LoadEntry(1, false));
    EXPECT_EQ(Date("dtpTCDate")->date(), WorkingDate) << "and not that of the entry before";
    Relieve(Main(), 3, "TC 3");
    ASSERT_TRUE(Entry()->LoadEntry(3, false));
    EXPECT_EQ(Details(), NoDetails) << "without a class nobody is shown";
}

TEST_F(RelievingEntry, AnEntryThatCannotBeReadIsToldOnceAndNotShown)
{
    Relieve(Main(), 1);
    OpenEntry();
    Given("ALTER TABLE StudentClassDivision RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("StudentClassDivision"));
    EXPECT_FALSE(Entry()->LoadEntry(1, false));
    EXPECT_EQ(Enabled(), Idle);
    Given("ALTER TABLE Away RENAME TO StudentClassDivision");
}

TEST_F(RelievingEntry, ANumberThatCannotBeReadIsNobodysAndIsNotLeft)
{
    StartWithAnu();
    Box("txtOptionalAdmissionNo")->setFocus();
    Given("ALTER TABLE StudentClassDivision RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("StudentClassDivision"));
    PressKey(form, Qt::Key_Return);
    Settle();
    prompts.Verify();
    EXPECT_EQ(FocusName(), "txtOptionalAdmissionNo");
    EXPECT_EQ(Details(), NoDetails);
    Given("ALTER TABLE Away RENAME TO StudentClassDivision");
}

TEST_F(RelievingEntry, AFieldThatCannotBeTestedIsNotLeft)
{
    for (const char* field : {"dtpRelievingDate", "txtTCNo", "dtpTCDate"}) {
        FillAnu();
        Find<QWidget>(form, field)->setFocus();
        Given("ALTER TABLE ApplicationDate RENAME TO Away");
        prompts.ExpectCritical(NoSuchTable("ApplicationDate"));
        PressKey(form, Qt::Key_Return);
        Settle();
        prompts.Verify();
        EXPECT_TRUE(HasFocus(field)) << field;
        Given("ALTER TABLE Away RENAME TO ApplicationDate");
        Press(Button("cmdCancel"));
    }
}

TEST_F(RelievingEntry, AnEntryThatIsOnlyViewedCannotBeTouched)
{
    Relieve(Main(), 1);
    OpenEntry();
    ASSERT_TRUE(Entry()->LoadEntry(1, true));
    EXPECT_EQ(Enabled(), Viewing);
    EXPECT_TRUE(HasFocus("cmdCancel"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Enabled(), Idle);
    EXPECT_EQ(TextOf("txtTCNo") + TextOf("txtRelievingReason"), "");
}

TEST_F(RelievingEntry, AnEntryIsChangedUnderItsOwnNumber)
{
    Relieve(Main(), 1);
    StartEdit();
    EXPECT_EQ(Enabled(), Entering);
    SetDates(WorkingDate, LastDay);
    Retype("txtRelievingReason", "Transfer");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "2024-06-10|Transfer|TC 1|2024-06-12");
}

TEST_F(RelievingEntry, AnEntryMovedToAnotherStudentKeepsItsNumberAndPutsTheFirstBackOnRoll)
{
    Relieve(Main(), 1);
    StartEdit();
    Retype("txtOptionalAdmissionNo", "A102");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(LabelOf("lblStudentName"), "Binu");
    SetDates(WorkingDate, LastDay);
    Box("txtTCNo")->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(FocusName(), "dtpTCDate");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), OnRoll);
    EXPECT_EQ(Stored(2), "2024-06-10|Moved|TC 1|2024-06-12");
}

TEST_F(RelievingEntry, AnEntryIsNotMovedOverThatOfAnotherStudent)
{
    Relieve(Main(), 1, "TC 1");
    Relieve(Main(), 2, "TC 2");
    StartEdit();
    Retype("txtOptionalAdmissionNo", "A102");
    ExpectKept(AlreadyRelieved);
    EXPECT_EQ(Stored(2), "2024-09-01|Moved|TC 2|2024-09-02");
}

TEST_F(RelievingEntry, WhatAnotherClientDidToTheEntryInHandMeanwhileIsNotWrittenOver)
{
    const std::pair<const char*, std::string> changes[] = {
        {"UPDATE StudentMaster SET TCNo = 'TC 9' WHERE StudentCode = 1", "2024-09-01|Moved|TC 9|2024-09-02"},
        {"UPDATE StudentMaster SET TCNo = '', TCDate = NULL, RelievingDate = NULL, RelievingReason = ''"
         " WHERE StudentCode = 1",
         OnRoll},
    };
    for (const char* number : {"A101", "A102"})
        for (const auto& [change, stored] : changes) {
            Relieve(Main(), 1);
            StartEdit();
            Retype("txtOptionalAdmissionNo", number);
            SetDates(WorkingDate, LastDay);
            Other(change);
            prompts.ExpectCritical(RowIsGone);
            Press(Button("cmdSave"));
            prompts.Verify();
            EXPECT_EQ(Stored(1), stored) << number;
            EXPECT_EQ(Stored(2), OnRoll);
            EXPECT_EQ(Enabled(), Entering) << "what was typed stays";
            form->Unload();
            Settle();
        }
}

TEST_F(RelievingEntry, AnEntryThatAnotherClientChangedMeanwhileIsNotDeleted)
{
    Relieve(Main(), 1);
    OpenEntry();
    ASSERT_TRUE(Entry()->LoadEntry(1, false));
    Other("UPDATE StudentMaster SET TCNo = 'TC 9' WHERE StudentCode = 1");
    prompts.ExpectQuestion(DeleteThis, true);
    prompts.ExpectCritical(QStringLiteral("This Data Is Already Used By Other Screen(s).\n"
                                          "You Cannot Delete This Data."));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Stored(1), "2024-09-01|Moved|TC 9|2024-09-02");
}

TEST_F(RelievingEntry, ADeleteAsksAndPutsTheStudentBackOnRollAlone)
{
    Relieve(Main(), 1, "TC 1");
    Relieve(Main(), 2, "TC 2");
    OpenEntry();
    ASSERT_TRUE(Entry()->LoadEntry(1, false));
    prompts.ExpectQuestion(DeleteThis, false);
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(1), "2024-09-01|Moved|TC 1|2024-09-02");
    prompts.ExpectQuestion(DeleteThis, true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(1), OnRoll);
    EXPECT_EQ(Stored(2), "2024-09-01|Moved|TC 2|2024-09-02");
    EXPECT_EQ(Placements(Main()), "1/1 IV-B N 1; 1/2 V-A Y 1; 2/2 V-B Y 1");
    EXPECT_EQ(Enabled(), Idle);
}

TEST_F(RelievingEntry, ARelievingAfterACancelledEditIsANewOne)
{
    Relieve(Main(), 1);
    StartEdit();
    Press(Button("cmdCancel"));
    EXPECT_EQ(Enabled(), Idle);
    Press(Button("cmdNew"));
    Enter("A102");
    Type(Box("txtTCNo"), QStringLiteral("TC 5"));
    Save();
    EXPECT_EQ(Stored(1), "2024-09-01|Moved|TC 1|2024-09-02");
    EXPECT_EQ(Stored(2), "2024-06-10||TC 5|2024-06-10");
}

TEST_F(RelievingEntry, ANumberFromASearchThatIsStillOpenBeginsANewEntryOverAStoredOne)
{
    Relieve(Main(), 1);
    OpenEntry();
    ASSERT_TRUE(Entry()->LoadEntry(1, false));
    ASSERT_TRUE(Entry()->LoadNumber(QStringLiteral("A102")));
    EXPECT_EQ(Enabled(), Entering);
    EXPECT_EQ(TextOf("txtRelievingReason") + TextOf("txtTCNo"), "");
    EXPECT_EQ(Date("dtpRelievingDate")->date(), WorkingDate);
    Type(Box("txtTCNo"), QStringLiteral("TC 5"));
    Save();
    EXPECT_EQ(Stored(1), "2024-09-01|Moved|TC 1|2024-09-02");
    EXPECT_EQ(Stored(2), "2024-06-10||TC 5|2024-06-10");
}

TEST_F(RelievingEntry, ARelievedStudentIsNoLongerOfferedToBeRelievedOrPromoted)
{
    const auto promotable = [] {
        PromotionRepository promotion(Main());
        return promotion.FromStudents(promotion.Years(2), {1, 1}).size();
    };
    ASSERT_EQ(promotable(), 1U);
    FillAnu();
    Save();
    EXPECT_EQ(promotable(), 0U);
    Press(Button("cmdNew"));
    Press(Button("cmdSearchAdmissionNo"));
    Settle();
    TurnTo("frmMasStudentAdmissionSearch");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To View All The Admissions ? "), true);
    Press(Button("cmdSearch"));
    prompts.Verify();
    EXPECT_EQ(Listed("Student Name"), "Binu");
}

TEST_F(RelievingEntry, NewEditAndDeleteNeedTheirRightsAndSearchNeedsNone)
{
    GivenUser(3, QStringLiteral("clerk"), QStringLiteral("word"));
    Session().gintPrivilegeUserCode = 3;
    Relieve(Main(), 1);
    OpenEntry();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    EXPECT_EQ(Enabled(), Idle);
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    EXPECT_FALSE(Entry()->LoadNumber(QStringLiteral("A102")));
    EXPECT_EQ(Details(), NoDetails);
    ASSERT_TRUE(Entry()->LoadEntry(1, false));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Delete"));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Enabled(), Selected);
    Press(Button("cmdSearch"));
    EXPECT_TRUE(IsOpen("frmMasStudentRelievingSearch"));
}

TEST_F(RelievingEntry, FieldsTakeOnlyWhatTheyMayHoldTypedOrPasted)
{
    StartNew();
    const std::pair<const char*, int> widths[] = {
        {"txtOptionalAdmissionNo", 15}, {"txtRelievingReason", 100}, {"txtTCNo", 15}};
    for (const auto& [name, width] : widths) {
        QApplication::clipboard()->setText(QStringLiteral("'%\u00e9") + QString(150, QLatin1Char('x')));
        Box(name)->paste();
        EXPECT_EQ(QString(Box(name)->text()).remove(QLatin1Char('x')).toStdString(), "") << name;
        EXPECT_LE(Box(name)->text().size(), width) << name;
        Box(name)->clear();
        QTest::keyClicks(Box(name), QStringLiteral("a'_1-/"));
        EXPECT_EQ(TextOf(name), "a1-/") << name;
    }
}

TEST_F(RelievingEntry, HelpOpensAtTheNumberOfTheScreen)
{
    OpenEntry();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 12);
}

TEST_F(RelievingEntry, ManyStudentsTakeAsManyStatementsAsFew)
{
    const auto statements = [this](const char* number, const char* tcNo) {
        const auto before = Main().StatementsRun();
        StartNew();
        Enter(number);
        Type(Box("txtTCNo"), QString::fromLatin1(tcNo));
        Save();
        form->Unload();
        Settle();
        return Main().StatementsRun() - before;
    };
    const auto few = statements("A101", "TC 1");
    Given(
        "WITH RECURSIVE n(i) AS (VALUES(100) UNION ALL SELECT i + 1 FROM n WHERE i < 599)"
        " INSERT INTO StudentMaster SELECT i, i + 1000, 'B' || i, '2024-06-03', 2, 'Student ' || i, '', 'M',"
        " '', '', 0, '', '', '', '2015-01-02', 0, 'N', '2024-06-04', '', 'X' || i, NULL, 1 FROM n");
    EXPECT_EQ(statements("A102", "TC 2"), few);
}

TEST_F(RelievingEntry, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmMasStudentRelievingMaster"));
}

TEST_F(RelievingEntry, EachUnderlinedLetterLeadsToOneControl)
{
    OpenEntry();
    ExpectOneControlALetter(form);
}

} // namespace
} // namespace tally::test
