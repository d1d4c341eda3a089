#include "students/StudentOffice.h"

#include <QApplication>
#include <QClipboard>

namespace tally::test {
namespace {

const QString ViewAll = QStringLiteral("Do You Want To View All The Admissions ? ");
const QString ViewOnly = QStringLiteral(" For Admission No. : A101\nYou Cannot Edit/Delete This Record.\n"
                                        "Do You Want To View The Details ?");
const QString ViewRelieved = QStringLiteral("Do You Want To View Relieved Student Details ?");
const QString LoadForRelieving = QStringLiteral("Do You Want To Load The Relieving Student Details ?");
constexpr const char* EntryForm = "frmMasStudentAdmissionEntry";
constexpr const char* SearchForm = "frmMasStudentAdmissionSearch";
constexpr const char* RelievingForm = "frmMasStudentRelievingMaster";

class AdmissionSearch : public StudentOffice
{
protected:
    void SetUp() override
    {
        StudentOffice::SetUp();
        GivenStudent(1, "Anu");
        GivenStudent(2, "Binu");
        GivenStudent(3, "Cara");
        GivenPlacement(1, 2, {1, 1});
        GivenPlacement(2, 2, {1, 2});
        GivenPlacement(3, 2, {2, 1});
    }

    /// As a clerk comes here: from the admission.
    void OpenSearch()
    {
        OpenForm(EntryForm);
        Press(Button("cmdSearch"));
        Settle();
        TurnTo(SearchForm);
    }
    /// From the relieving, with a new entry begun.
    void OpenFromRelieving()
    {
        OpenForm(RelievingForm);
        Press(Button("cmdNew"));
        Press(Button("cmdSearchAdmissionNo"));
        Settle();
        TurnTo(SearchForm);
    }
    void ShowAll()
    {
        prompts.ExpectQuestion(ViewAll, true);
        Press(Button("cmdSearch"));
        prompts.Verify();
    }
    /// The row is loaded into the admission screen, either to be edited or to be looked at.
    void ExpectLoaded(bool viewOnly)
    {
        prompts.Verify();
        EXPECT_FALSE(IsOpen(SearchForm));
        TurnTo(EntryForm);
        EXPECT_EQ(LabelOf("lblAdmissionNo"), "A101");
        EXPECT_EQ(EnabledOf({"Frame1", "cmdNew", "cmdEdit", "cmdDelete", "cmdSave"}),
                  viewOnly ? "" : "cmdEdit cmdDelete");
        EXPECT_TRUE(HasFocus(viewOnly ? "cmdCancel" : "cmdEdit"));
    }
};

TEST_F(AdmissionSearch, WithoutAFilterItAsksWhetherToViewAll)
{
    OpenSearch();
    Button("cmdSearch")->setFocus();
    prompts.ExpectQuestion(ViewAll, false);
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(Grid()->RowCount(), 0);
    EXPECT_TRUE(HasFocus("txtAdmissionNo"));
    ShowAll();
    EXPECT_EQ(Listed("Student Name"), "Anu|Binu|Cara");
    EXPECT_EQ(ShownHeads(), "Student Name|Admission No|Class Name|Division Name");
}

TEST_F(AdmissionSearch, TheFiltersNarrowTheListTogether)
{
    OpenSearch();
    Type(Box("txtSearchStudentName"), QStringLiteral("NU"));
    Press(Button("cmdSearch"));
    EXPECT_EQ(Listed("Student Name"), "Anu|Binu");
    Choose("dbcClass", QStringLiteral("V"));
    Choose("dbcDivision", QStringLiteral("B"));
    Press(Button("cmdSearch"));
    EXPECT_EQ(Listed("Student Name"), "Binu");
    Type(Box("txtAdmissionNo"), QStringLiteral("a101"));
    prompts.ExpectInformation(NoRecord);
    Press(Button("cmdSearch"));
    EXPECT_EQ(Grid()->RowCount(), 0);
    Press(Button("cmdCancel"));
    EXPECT_EQ(TextOf("txtAdmissionNo") + TextOf("txtSearchStudentName"), "");
    EXPECT_TRUE(List("dbcClass")->IsBlank());
    EXPECT_EQ(ListedIn(List("dbcDivision")), " ");
    EXPECT_TRUE(HasFocus("txtAdmissionNo"));
    Choose("dbcClass", QStringLiteral("IV"));
    Press(Button("cmdSearch"));
    EXPECT_EQ(Listed("Student Name"), "Cara");
    Other("INSERT INTO ClassDivisionMaster VALUES (3, 'III', 1, 3, 1)");
    Press(Button("cmdCancel"));
    EXPECT_EQ(ListedIn(List("dbcClass")), " |V|IV|III");
}

TEST_F(AdmissionSearch, OtherYearsAreNotLookedAt)
{
    GivenStudent(4, "Dev");
    GivenPlacement(4, 1);
    OpenSearch();
    ShowAll();
    EXPECT_EQ(Listed("Student Name"), "Anu|Binu|Cara");
}

TEST_F(AdmissionSearch, AStudentIsFoundAndCorrectedWithKeysAlone)
{
    OpenSearch();
    Type(Box("txtAdmissionNo"), QStringLiteral("a101"));
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
    PressKey(form, Qt::Key_Return);
    PressKey(form, Qt::Key_V, Qt::AltModifier);
    PressKey(form, Qt::Key_Down);
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Placements(Main()), "1/2 V-B Y 3; 2/2 V-B Y 1; 3/2 IV-A Y 1");
}

TEST_F(AdmissionSearch, WhoAnswersNoStaysInTheSearch)
{
    OpenSearch();
    ShowAll();
    prompts.ExpectQuestion(EditOrDelete, false);
    DoubleClick(0);
    EXPECT_TRUE(IsOpen(SearchForm));
}

TEST_F(AdmissionSearch, APromotedStudentCanBeViewedButNotChanged)
{
    GivenPlacement(1, 3);
    OpenSearch();
    ShowAll();
    for (const bool view : {false, true}) {
        prompts.ExpectQuestion(EditOrDelete, true);
        prompts.ExpectQuestion(QStringLiteral("Already Promotion Made") + ViewOnly, view);
        DoubleClick(0);
        EXPECT_EQ(IsOpen(SearchForm), !view);
    }
    ExpectLoaded(true);
}

TEST_F(AdmissionSearch, AStudentWithMarksInTheYearCanBeViewedButNotChanged)
{
    EnterMark(Main(), 2, 2);
    EnterMark(Main(), 1, 1);
    OpenSearch();
    ShowAll();
    prompts.ExpectQuestion(EditOrDelete, true);
    DoubleClick(0);
    ExpectLoaded(false);
    EnterMark(Main(), 1, 2);
    OpenSearch();
    ShowAll();
    prompts.ExpectQuestion(EditOrDelete, true);
    prompts.ExpectQuestion(QStringLiteral("Already Mark Entered") + ViewOnly, true);
    DoubleClick(0);
    ExpectLoaded(true);
}

TEST_F(AdmissionSearch, ARelievedStudentCanBeViewedButNotChanged)
{
    Relieve(Main(), 1);
    OpenSearch();
    ShowAll();
    for (const bool view : {false, true}) {
        prompts.ExpectQuestion(EditOrDelete, true);
        prompts.ExpectQuestion(ViewRelieved, view);
        DoubleClick(0);
        EXPECT_EQ(IsOpen(SearchForm), !view);
    }
    ExpectLoaded(true);
}

TEST_F(AdmissionSearch, ARelievedStudentWithMarksIsAskedAboutTwice)
{
    Relieve(Main(), 1);
    EnterMark(Main(), 1, 2);
    OpenSearch();
    ShowAll();
    prompts.ExpectQuestion(EditOrDelete, true);
    prompts.ExpectQuestion(QStringLiteral("Already Mark Entered") + ViewOnly, true);
    prompts.ExpectQuestion(ViewRelieved, true);
    DoubleClick(0);
    ExpectLoaded(true);
}

TEST_F(AdmissionSearch, APlacementThatAnotherClientDeletedIsNotLoadedAndTheSearchStays)
{
    OpenSearch();
    ShowAll();
    Other("DELETE FROM StudentClassDivision WHERE StudentCode = 1");
    prompts.ExpectQuestion(EditOrDelete, true);
    prompts.ExpectInformation(NoRecord);
    DoubleClick(0);
    prompts.Verify();
    TurnTo(SearchForm);
}

TEST_F(AdmissionSearch, OpenedFromTheRelievingItListsOnlyWhoIsOnRollAndHandsTheNumberOver)
{
    Relieve(Main(), 2);
    Given("UPDATE StudentClassDivision SET Status = 'N' WHERE StudentCode = 3");
    OpenFromRelieving();
    ShowAll();
    EXPECT_EQ(Listed("Student Name"), "Anu");
    prompts.ExpectQuestion(LoadForRelieving, false);
    DoubleClick(0);
    EXPECT_TRUE(IsOpen(SearchForm));
    prompts.ExpectQuestion(LoadForRelieving, true);
    DoubleClick(0);
    EXPECT_FALSE(IsOpen(SearchForm));
    TurnTo(RelievingForm);
    EXPECT_EQ(TextOf("txtOptionalAdmissionNo"), "A101");
    EXPECT_EQ(LabelOf("lblStudentName"), "Anu");
    EXPECT_TRUE(HasFocus("dtpRelievingDate"));
}

TEST_F(AdmissionSearch, ARelievingScreenThatWasClosedMeanwhileOpensWithANewEntry)
{
    OpenFromRelieving();
    ShowAll();
    ScreenRegistry::OpenInstance(QString::fromLatin1(RelievingForm))->Unload();
    Settle();
    prompts.ExpectQuestion(LoadForRelieving, true);
    DoubleClick(1);
    TurnTo(RelievingForm);
    EXPECT_EQ(TextOf("txtOptionalAdmissionNo"), "A102");
    EXPECT_TRUE(IsEnabled("cmdSave"));
}

TEST_F(AdmissionSearch, AStudentWhomAnotherClientRelievedMeanwhileIsToldAndTheSearchStays)
{
    OpenFromRelieving();
    ShowAll();
    Other("UPDATE StudentMaster SET TCNo = 'TC 1' WHERE StudentCode = 1");
    prompts.ExpectQuestion(LoadForRelieving, true);
    prompts.ExpectInformation(QStringLiteral("Student Is Already Relieved"));
    DoubleClick(0);
    prompts.Verify();
    TurnTo(SearchForm);
}

TEST_F(AdmissionSearch, BoxesTakeOnlyWhatNamesAndNumbersMayHold)
{
    OpenSearch();
    QApplication::clipboard()->setText(QStringLiteral("%_'N\u00fb"));
    Box("txtSearchStudentName")->setFocus();
    Box("txtSearchStudentName")->paste();
    EXPECT_EQ(TextOf("txtSearchStudentName"), "N");
    Type(Box("txtAdmissionNo"), QStringLiteral("a'1%2"));
    EXPECT_EQ(TextOf("txtAdmissionNo"), "a12");
}

TEST_F(AdmissionSearch, ASearchThatFailsIsToldAndLeavesTheList)
{
    OpenSearch();
    ShowAll();
    Given("ALTER TABLE StudentClassDivision RENAME TO Gone");
    prompts.ExpectQuestion(ViewAll, true);
    prompts.ExpectCritical(NoSuchTable("StudentClassDivision"));
    Press(Button("cmdSearch"));
    EXPECT_EQ(Grid()->RowCount(), 3);
}

TEST_F(AdmissionSearch, AStudentWhoCannotBeReadIsNotLoaded)
{
    OpenSearch();
    ShowAll();
    Given("ALTER TABLE MarkMaster RENAME TO Gone");
    prompts.ExpectQuestion(EditOrDelete, true);
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    DoubleClick(0);
    EXPECT_TRUE(IsOpen(SearchForm));
}

TEST_F(AdmissionSearch, ManyPlacementsAreFoundWithOneStatement)
{
    Given(
        "WITH RECURSIVE n(i) AS (VALUES(100) UNION ALL SELECT i + 1 FROM n WHERE i < 599)"
        " INSERT INTO StudentMaster SELECT i, i + 1000, 'B' || i, '2024-06-03', 2, 'Student ' || i, '', 'M',"
        " '', '', 0, '', '', '', '2015-01-02', 0, 'N', NULL, '', '', NULL, 1 FROM n");
    Given("INSERT INTO StudentClassDivision SELECT StudentCode, 2, 1, 1, 'Y', 1 FROM StudentMaster"
          " WHERE StudentCode >= 100");
    OpenSearch();
    const auto before = Main().StatementsRun();
    ShowAll();
    EXPECT_EQ(Grid()->RowCount(), 503);
    EXPECT_EQ(Main().StatementsRun() - before, 1U);
}

TEST_F(AdmissionSearch, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QString::fromLatin1(SearchForm));
}

TEST_F(AdmissionSearch, EachUnderlinedLetterLeadsToOneControl)
{
    OpenSearch();
    ExpectOneControlALetter(form);
}

} // namespace
} // namespace tally::test
