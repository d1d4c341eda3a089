#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/controls/DateLabel.h"
#include "core/ui/ScreenRegistry.h"
#include "students/frmMasStudentMasterSearch.h"
#include "students/StudentFixture.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace tally::test {
namespace {

const QString ViewAll = QStringLiteral("Do You Want View All Students' Details ?");
const QString EditOrDelete = QStringLiteral("Do You Want To Edit/Delete ? ");

class StudentSearchTest : public StudentFixture
{
protected:
    void SetUp() override
    {
        StudentFixture::SetUp();
        GivenOne(1, "Chandra", 1, 3);
        GivenOne(2, "Asha", 2, 4);
        GivenOne(3, "Binu", 0, 5);
        OpenSearch();
    }

    /// A student of that place, admitted on that day of June.
    static void GivenOne(int code, const char* name, int cityCode, int day)
    {
        Student student = StudentNamed(code, name);
        student.cityCode = cityCode;
        student.admissionDate = QDate(2024, 6, day);
        GivenStudent(student);
    }

    /// As a clerk comes here: from the master.
    void OpenSearch()
    {
        OpenMaster();
        Press(Button("cmdSearch"));
        Settle();
        search = qobject_cast<frmMasStudentMasterSearch*>(
            ScreenRegistry::OpenInstance(QStringLiteral("frmMasStudentMasterSearch")));
        ASSERT_NE(search, nullptr);
        grid = Find<DataGrid>(search, "dgdDetails");
    }

    template <typename Control>
    Control* In(const char* name)
    {
        return Find<Control>(search, name);
    }
    void PressSearch() { Press(In<QPushButton>("cmdSearch")); }
    void ShowAll()
    {
        prompts.ExpectQuestion(ViewAll, true);
        PressSearch();
        prompts.Verify();
    }
    /// Types the day of June into a date and goes on.
    void TypeDay(const char* name, const char* day)
    {
        auto* date = In<DatePicker>(name);
        date->setFocus();
        date->setSelectedSection(QDateTimeEdit::DaySection);
        QTest::keyClicks(date, QString::fromLatin1(day));
        QTest::keyClick(date, Qt::Key_Tab);
    }
    std::string Shown() const
    {
        QStringList names;
        for (int row = 0; row < grid->RowCount(); ++row)
            names.append(grid->Text(row, QStringLiteral("Student Name")));
        return names.join(QLatin1Char(' ')).toStdString();
    }
    void DoubleClick(int row)
    {
        const QPoint middle = grid->visualRect(grid->model()->index(row, 1)).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        Settle();
    }
    /// The dates stand at the working date and take no part.
    void ExpectNoDates()
    {
        for (const char* date : {"dtpAdmissionFrom", "dtpAdmissionTo"})
            EXPECT_EQ(In<DatePicker>(date)->date(), WorkingDate) << date;
        for (const char* label : {"lblAdmissionFrom", "lblAdmissionTo"})
            EXPECT_EQ(In<DateLabel>(label)->text().toStdString(), "") << label;
    }
    static bool SearchIsOpen()
    {
        return ScreenRegistry::OpenInstance(QStringLiteral("frmMasStudentMasterSearch")) != nullptr;
    }

    frmMasStudentMasterSearch* search = nullptr;
    DataGrid* grid = nullptr;
};

TEST_F(StudentSearchTest, OpensWithDatesAtTheWorkingDateThatTakeNoPart)
{
    EXPECT_EQ(search->windowTitle().toStdString(), "Student Search");
    ExpectNoDates();
    EXPECT_TRUE(In<QLineEdit>("txtAdmissionNo")->hasFocus());
}

TEST_F(StudentSearchTest, WithoutAFilterItAsksWhetherToViewAll)
{
    Type(In<QLineEdit>("txtstudentName"), QStringLiteral("  "));
    prompts.ExpectQuestion(ViewAll, false);
    PressSearch();
    EXPECT_EQ(grid->RowCount(), 0);
    EXPECT_TRUE(In<QLineEdit>("txtAdmissionNo")->hasFocus());
    ShowAll();
    EXPECT_EQ(Shown(), "Asha Binu Chandra");
    const QStringList hidden{QStringLiteral("StudentCode"), QStringLiteral("Telephone"),
                             QStringLiteral("CityCode")};
    for (int column = 0; column < grid->model()->columnCount(); ++column) {
        const QString head = grid->model()->headerData(column, Qt::Horizontal).toString();
        EXPECT_EQ(grid->isColumnHidden(column), hidden.contains(head, Qt::CaseInsensitive))
            << head.toStdString();
    }
    EXPECT_EQ(grid->Text(0, QStringLiteral("Admission Date")).toStdString(), "04/Jun/2024");
    EXPECT_EQ(grid->Text(1, QStringLiteral("City Name")).toStdString(), "") << "a student without a city";
}

TEST_F(StudentSearchTest, EachFieldNarrowsTheSearch)
{
    Type(In<QLineEdit>("txtstudentName"), QStringLiteral("ha"));
    PressSearch();
    EXPECT_EQ(Shown(), "Asha Chandra");
    Choose(In<DataCombo>("dbcStateName"), QStringLiteral("Goa"));
    PressSearch();
    EXPECT_EQ(Shown(), "Asha");
    Press(In<QPushButton>("cmdCancel"));
    Type(In<QLineEdit>("txtAdmissionNo"), QStringLiteral("103"));
    PressSearch();
    EXPECT_EQ(Shown(), "Binu");
    Press(In<QPushButton>("cmdCancel"));
    Choose(In<DataCombo>("dbcStateName"), QStringLiteral("Kerala"));
    Choose(In<DataCombo>("dbcCityName"), QStringLiteral("Kochi"));
    PressSearch();
    EXPECT_EQ(Shown(), "Chandra");
    Press(In<QPushButton>("cmdCancel"));
    TypeDay("dtpAdmissionFrom", "04");
    TypeDay("dtpAdmissionTo", "05");
    PressSearch();
    EXPECT_EQ(Shown(), "Asha Binu");
}

TEST_F(StudentSearchTest, TheDatesMustMakeARange)
{
    TypeDay("dtpAdmissionFrom", "04");
    prompts.ExpectInformation(QStringLiteral("Select 'To Date'"));
    PressSearch();
    prompts.Verify();
    TypeDay("dtpAdmissionTo", "03");
    prompts.ExpectInformation(QStringLiteral("'To Date' Should Be Greater Than 'From Date'"));
    PressSearch();
    prompts.Verify();
    EXPECT_EQ(In<DateLabel>("lblAdmissionTo")->text().toStdString(), "");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Clear This Date ?"), true);
    QTest::mouseClick(In<DateLabel>("lblAdmissionFrom"), Qt::LeftButton);
    TypeDay("dtpAdmissionTo", "03");
    prompts.ExpectInformation(QStringLiteral("Select 'From Date'"));
    PressSearch();
    prompts.Verify();
    EXPECT_EQ(grid->RowCount(), 0);
    TypeDay("dtpAdmissionFrom", "03");
    PressSearch();
    EXPECT_EQ(Shown(), "Chandra") << "one day is a range";
}

TEST_F(StudentSearchTest, AnEmptyResultSaysSoAndEmptiesTheGrid)
{
    ShowAll();
    Type(In<QLineEdit>("txtstudentName"), QStringLiteral("Zed"));
    prompts.ExpectInformation(QStringLiteral("No Record Exists"));
    PressSearch();
    EXPECT_EQ(grid->RowCount(), 0);
}

TEST_F(StudentSearchTest, CancelEmptiesFiltersDatesAndGrid)
{
    Type(In<QLineEdit>("txtstudentName"), QStringLiteral("a"));
    Choose(In<DataCombo>("dbcStateName"), QStringLiteral("Goa"));
    TypeDay("dtpAdmissionFrom", "01");
    TypeDay("dtpAdmissionTo", "30");
    PressSearch();
    ASSERT_EQ(Shown(), "Asha");
    Press(In<QPushButton>("cmdCancel"));
    EXPECT_EQ(grid->RowCount(), 0);
    EXPECT_EQ(In<QLineEdit>("txtstudentName")->text().toStdString(), "");
    EXPECT_TRUE(In<DataCombo>("dbcStateName")->IsBlank());
    EXPECT_EQ(In<DataCombo>("dbcCityName")->count(), 0);
    ExpectNoDates();
    EXPECT_TRUE(In<QLineEdit>("txtAdmissionNo")->hasFocus());
    AnotherClient()->Execute(QStringLiteral("INSERT INTO StateMaster VALUES (9, 'Assam', 1)"));
    Press(In<QPushButton>("cmdCancel"));
    Choose(In<DataCombo>("dbcStateName"), QStringLiteral("Assam"));
}

TEST_F(StudentSearchTest, ADoubleClickLoadsTheStudentAndClosesTheSearch)
{
    ShowAll();
    prompts.ExpectQuestion(EditOrDelete, false);
    DoubleClick(1);
    prompts.Verify();
    EXPECT_TRUE(SearchIsOpen());
    prompts.ExpectQuestion(EditOrDelete, true);
    DoubleClick(1);
    EXPECT_FALSE(SearchIsOpen());
    EXPECT_EQ(window->Area()->activeSubWindow()->widget(), form);
    EXPECT_EQ(TextOf("txtstudentName"), "Binu");
    EXPECT_TRUE(HasFocus("cmdEdit"));
    EXPECT_FALSE(IsEnabled("cmdSave"));
}

TEST_F(StudentSearchTest, ARelievedStudentIsHandedOverToBeLookedAt)
{
    Relieve(*Session().gcnnMain, 3);
    ShowAll();
    const QString question = QStringLiteral("Do You Want To View Relieved Student Details ?");
    prompts.ExpectQuestion(question, false);
    DoubleClick(1);
    EXPECT_TRUE(SearchIsOpen());
    prompts.ExpectQuestion(question, true);
    DoubleClick(1);
    EXPECT_FALSE(SearchIsOpen());
    EXPECT_EQ(TextOf("txtstudentName"), "Binu");
    EXPECT_TRUE(HasFocus("cmdCancel"));
    for (const char* off : {"cmdNew", "cmdEdit", "cmdDelete", "cmdSave", "fraMain"})
        EXPECT_FALSE(IsEnabled(off)) << off;
}

TEST_F(StudentSearchTest, AStudentIsFoundAndEditedWithKeysAlone)
{
    PressKey(search, Qt::Key_N, Qt::AltModifier);
    Enter("a");
    PressKey(search, Qt::Key_S, Qt::AltModifier);
    ASSERT_EQ(grid->RowCount(), 2);
    PressKey(search, Qt::Key_Tab);
    PressKey(search, Qt::Key_Tab);
    ASSERT_TRUE(grid->hasFocus());
    PressKey(search, Qt::Key_Down);
    PressKey(search, Qt::Key_Down);
    prompts.ExpectQuestion(EditOrDelete, true);
    PressKey(search, Qt::Key_Return);
    Settle();
    EXPECT_EQ(TextOf("txtstudentName"), "Chandra");
    PressKey(form, Qt::Key_Return);
    Retype("txtTelephone", "7");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Found(1)->telephone.toStdString(), "7");
}

TEST_F(StudentSearchTest, AStudentWhomAnotherClientDeletedIsNotLoadedAndTheSearchStays)
{
    ShowAll();
    AnotherClient()->Execute(QStringLiteral("DELETE FROM StudentMaster WHERE StudentCode = 3"));
    prompts.ExpectQuestion(EditOrDelete, true);
    prompts.ExpectInformation(QStringLiteral("No Record Exists"));
    DoubleClick(1);
    ASSERT_TRUE(SearchIsOpen());
    EXPECT_EQ(window->Area()->activeSubWindow()->widget(), search);
    EXPECT_FALSE(IsEnabled("cmdEdit"));
}

TEST_F(StudentSearchTest, ASearchThatFailsIsToldAndLeavesTheList)
{
    ShowAll();
    Given("ALTER TABLE StudentMaster RENAME TO Gone");
    prompts.ExpectQuestion(ViewAll, true);
    prompts.ExpectCritical(NoSuchTable("StudentMaster"));
    PressSearch();
    EXPECT_EQ(grid->RowCount(), 3);
}

TEST_F(StudentSearchTest, AStudentWhoCannotBeReadIsNotAskedAbout)
{
    ShowAll();
    Given("ALTER TABLE StudentMaster RENAME TO Gone");
    prompts.ExpectCritical(NoSuchTable("StudentMaster"));
    DoubleClick(1);
    EXPECT_TRUE(SearchIsOpen());
}

TEST_F(StudentSearchTest, ManyStudentsAreFoundWithOneStatement)
{
    Given("WITH RECURSIVE n(i) AS (VALUES(200) UNION ALL SELECT i + 1 FROM n WHERE i < 699)"
          " INSERT INTO StudentMaster SELECT i, i, 'A' || i, '2024-06-03', 2, 'Student ' || i, '', 'F', '', "
          "'', 1, '', '', '', '2015-01-02', 0, 'N', NULL, '', '', NULL, 1 FROM n");
    const auto before = Session().gcnnMain->StatementsRun();
    ShowAll();
    EXPECT_EQ(grid->RowCount(), 503);
    EXPECT_EQ(Session().gcnnMain->StatementsRun() - before, 1U);
}

TEST_F(StudentSearchTest, FitsTheSmallestScreenWithNothingCutOff)
{
    search->Unload();
    Settle();
    ExpectToFit(QStringLiteral("frmMasStudentMasterSearch"));
}

TEST_F(StudentSearchTest, EachUnderlinedLetterLeadsToOneControl)
{
    ExpectOneControlALetter(search);
}

} // namespace
} // namespace tally::test
