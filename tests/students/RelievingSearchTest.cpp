#include "core/ui/controls/DateLabel.h"
#include "students/StudentOffice.h"

namespace tally::test {
namespace {

const QString ViewAll = QStringLiteral("Do You Want To View All Relieved Student Details ?");
const QString ViewPromoted = QStringLiteral("Already Selected Student Promoted To Next Year.\n"
                                            "You Cannot Edit/Delete.\nDo You Want To View The Details ?");
constexpr const char* EntryForm = "frmMasStudentRelievingMaster";
constexpr const char* SearchForm = "frmMasStudentRelievingSearch";

class RelievingSearch : public StudentOffice
{
protected:
    void SetUp() override
    {
        StudentOffice::SetUp();
        GivenStudent(1, "Cara");
        GivenStudent(2, "Anu");
        GivenStudent(3, "Binu");
        GivenPlacement(1);
        GivenPlacement(2);
        Relieve(Main(), 1, "TC 1");
        Relieve(Main(), 2, "TC 2");
        OpenForm(EntryForm);
        Press(Button("cmdSearch"));
        Settle();
        TurnTo(SearchForm);
    }

    void ShowAll()
    {
        prompts.ExpectQuestion(ViewAll, true);
        Press(Button("cmdSearch"));
        prompts.Verify();
    }
    void TypeDate(const char* picker, const char* date)
    {
        Date(picker)->setFocus();
        Date(picker)->setSelectedSection(QDateTimeEdit::DaySection);
        QTest::keyClicks(Date(picker), QString::fromLatin1(date));
        PressKey(form, Qt::Key_Return);
    }
    void ExpectSearchTold(const QString& text)
    {
        prompts.ExpectInformation(text);
        Press(Button("cmdSearch"));
        prompts.Verify();
    }
    void ExpectLoaded(bool viewOnly)
    {
        prompts.Verify();
        EXPECT_FALSE(IsOpen(SearchForm));
        TurnTo(EntryForm);
        EXPECT_EQ(TextOf("txtOptionalAdmissionNo"), "A102");
        EXPECT_EQ(TextOf("txtTCNo"), "TC 2");
        EXPECT_EQ(EnabledOf({"fraMain", "Frame1", "Frame2", "cmdNew", "cmdEdit", "cmdDelete", "cmdSave"}),
                  viewOnly ? "" : "cmdEdit cmdDelete");
    }
};

TEST_F(RelievingSearch, WithoutAFilterItAsksWhetherToViewAllRelievedStudents)
{
    EXPECT_EQ(form->windowTitle().toStdString(), "Relieving Search Entry");
    prompts.ExpectQuestion(ViewAll, false);
    Press(Button("cmdSearch"));
    EXPECT_EQ(Grid()->RowCount(), 0);
    ShowAll();
    EXPECT_EQ(Listed("Student Name"), "Anu|Cara");
    EXPECT_EQ(Listed("Relieving Date"), "01/Sep/2024|01/Sep/2024");
    EXPECT_EQ(ShownHeads(), "Admission No|Admission Date|Student Name|Relieving Date|TC Date|TC No");
}

TEST_F(RelievingSearch, FindsByNumberNameAndDates)
{
    Type(Box("txtstudentName"), QStringLiteral("AR"));
    Press(Button("cmdSearch"));
    EXPECT_EQ(Listed("Student Name"), "Cara");
    Type(Box("txtAdmissionNo"), QStringLiteral("02"));
    ExpectSearchTold(NoRecord);
    EXPECT_EQ(Grid()->RowCount(), 0);
    Press(Button("cmdCancel"));
    EXPECT_EQ(TextOf("txtAdmissionNo") + TextOf("txtstudentName"), "");
    Type(Box("txtAdmissionNo"), QStringLiteral("99"));
    ExpectSearchTold(NoRecord);
    Press(Button("cmdCancel"));
    TypeDate("dtpRelievingDateFrom", "01Sep2024");
    TypeDate("dtpRelievingDateTo", "30Sep2024");
    Given("UPDATE StudentMaster SET RelievingDate = '2024-10-01' WHERE StudentCode = 1");
    Press(Button("cmdSearch"));
    EXPECT_EQ(Listed("Student Name"), "Anu");
    Press(Button("cmdCancel"));
    TypeDate("dtpAdmissionFrom", "04Jun2024");
    TypeDate("dtpAdmissionTo", "05Jun2024");
    Given("UPDATE StudentMaster SET AdmissionDate = '2024-06-05' WHERE StudentCode = 1");
    Press(Button("cmdSearch"));
    EXPECT_EQ(Listed("Student Name"), "Cara");
}

TEST_F(RelievingSearch, DatesStartAtTheWorkingDateAndCountOnlyOnceTheyAreShownBeside)
{
    for (const char* picker :
         {"dtpAdmissionFrom", "dtpAdmissionTo", "dtpRelievingDateFrom", "dtpRelievingDateTo"})
        EXPECT_EQ(Date(picker)->date(), QDate(2024, 6, 10)) << picker;
    for (const char* label :
         {"lblAdmissionFrom", "lblAdmissionTo", "lblRelievingDateFrom", "lblRelievingDateTo"})
        EXPECT_EQ(LabelOf(label), "") << label;
    TypeDate("dtpAdmissionFrom", "04Jun2024");
    EXPECT_EQ(LabelOf("lblAdmissionFrom"), "04/Jun/2024");
    Press(Button("cmdCancel"));
    EXPECT_EQ(LabelOf("lblAdmissionFrom"), "");
    EXPECT_EQ(Date("dtpAdmissionFrom")->date(), QDate(2024, 6, 10));
}

TEST_F(RelievingSearch, APairOfDatesIsWholeAndInOrder)
{
    struct Pair
    {
        const char *from, *to, *fromLabel, *toLabel;
        QString kind;
    };
    const Pair pairs[] = {
        {"dtpAdmissionFrom", "dtpAdmissionTo", "lblAdmissionFrom", "lblAdmissionTo",
         QStringLiteral("Admission")},
        {"dtpRelievingDateFrom", "dtpRelievingDateTo", "lblRelievingDateFrom", "lblRelievingDateTo",
         QStringLiteral("Relieving")},
    };
    for (const Pair& pair : pairs) {
        Press(Button("cmdCancel"));
        TypeDate(pair.from, "04Jun2024");
        ExpectSearchTold(QStringLiteral("Select %1 'To Date'").arg(pair.kind));
        prompts.ExpectInformation(
            QStringLiteral("%1 'To Date' Should Be Greater Than %1 'From Date'").arg(pair.kind));
        TypeDate(pair.to, "03Jun2024");
        prompts.Verify();
        EXPECT_EQ(LabelOf(pair.toLabel), "");
        TypeDate(pair.to, "04Jun2024");
        EXPECT_EQ(LabelOf(pair.toLabel), "04/Jun/2024");
        prompts.ExpectQuestion(QStringLiteral("Do You Want To Clear This Date ?"), true);
        QTest::mouseClick(Find<QLabel>(form, pair.fromLabel), Qt::LeftButton);
        ExpectSearchTold(QStringLiteral("Select %1 'From Date'").arg(pair.kind));
        TypeDate(pair.from, "05Jun2024");
        ExpectSearchTold(QStringLiteral("%1 'To Date' Should Be Greater Than %1 'From Date'").arg(pair.kind));
        EXPECT_EQ(LabelOf(pair.toLabel), "");
        EXPECT_EQ(LabelOf(pair.fromLabel), "05/Jun/2024");
    }
}

TEST_F(RelievingSearch, AStudentIsFoundAndHisEntryChangedWithKeysAlone)
{
    Type(Box("txtstudentName"), QStringLiteral("anu"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    ASSERT_EQ(Grid()->RowCount(), 1);
    PressKey(form, Qt::Key_Tab);
    PressKey(form, Qt::Key_Tab);
    ASSERT_TRUE(Grid()->hasFocus());
    PressKey(form, Qt::Key_Down);
    prompts.ExpectQuestion(EditOrDelete, true);
    PressKey(form, Qt::Key_Return);
    Settle();
    ExpectLoaded(false);
    EXPECT_EQ(FocusName(), "cmdEdit");
}

TEST_F(RelievingSearch, AStudentPromotedSinceCanBeViewedButNotChanged)
{
    Given("UPDATE StudentClassDivision SET Status = 'N' WHERE StudentCode = 2");
    ShowAll();
    for (const bool view : {false, true}) {
        prompts.ExpectQuestion(ViewPromoted, view);
        DoubleClick(0);
        EXPECT_EQ(IsOpen(SearchForm), !view);
    }
    ExpectLoaded(true);
    EXPECT_EQ(FocusName(), "cmdCancel");
}

TEST_F(RelievingSearch, AStudentWhomAnotherClientPutBackOnRollIsNotLoadedAndTheSearchStays)
{
    ShowAll();
    Other("UPDATE StudentMaster SET TCNo = '' WHERE StudentCode = 2");
    prompts.ExpectQuestion(EditOrDelete, true);
    prompts.ExpectInformation(NoRecord);
    DoubleClick(0);
    prompts.Verify();
    TurnTo(SearchForm);
}

TEST_F(RelievingSearch, ASearchThatFailsIsToldAndLeavesTheList)
{
    ShowAll();
    Given("ALTER TABLE StudentMaster RENAME TO Gone");
    prompts.ExpectQuestion(ViewAll, true);
    prompts.ExpectCritical(NoSuchTable("StudentMaster"));
    Press(Button("cmdSearch"));
    EXPECT_EQ(Grid()->RowCount(), 2);
}

TEST_F(RelievingSearch, AStudentWhoCannotBeReadIsNotAskedAbout)
{
    ShowAll();
    Given("ALTER TABLE StudentClassDivision RENAME TO Gone");
    prompts.ExpectCritical(NoSuchTable("StudentClassDivision"));
    DoubleClick(0);
    EXPECT_TRUE(IsOpen(SearchForm));
}

TEST_F(RelievingSearch, ManyStudentsAreFoundWithOneStatement)
{
    Given(
        "WITH RECURSIVE n(i) AS (VALUES(100) UNION ALL SELECT i + 1 FROM n WHERE i < 599)"
        " INSERT INTO StudentMaster SELECT i, i + 1000, 'B' || i, '2024-06-03', 2, 'Student ' || i, '', 'M',"
        " '', '', 0, '', '', '', '2015-01-02', 0, 'N', '2024-06-04', '', 'X' || i, NULL, 1 FROM n");
    const auto before = Main().StatementsRun();
    ShowAll();
    EXPECT_EQ(Grid()->RowCount(), 502);
    EXPECT_EQ(Main().StatementsRun() - before, 1U);
}

TEST_F(RelievingSearch, FitsTheSmallestScreenWithNothingCutOff)
{
    form->Unload();
    Settle();
    ExpectToFit(QString::fromLatin1(SearchForm));
}

TEST_F(RelievingSearch, EachUnderlinedLetterLeadsToOneControl)
{
    ExpectOneControlALetter(form);
}

} // namespace
} // namespace tally::test
