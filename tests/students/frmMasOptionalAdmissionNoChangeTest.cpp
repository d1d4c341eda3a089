#include "students/frmMasOptionalAdmissionNoChange.h"

#include "core/ui/controls/FloatingEditor.h"
#include "students/PromotionSchool.h"
#include "support/FileSizeLimit.h"
#include "support/FormDriver.h"
#include "support/StoreWords.h"

#include <QClipboard>
#include <QHeaderView>

#include <chrono>
#include <memory>

namespace tally::test {
namespace {

const QString EnterNumber = QStringLiteral("Enter Optional Admission No.");
const QString NumberExists = QStringLiteral("Optional Admission No. Already Exists");

/// Asha (A1), Binu (A2) and Cara (A3) sit in IX-A, Dev (A4) in IX-B.
class NumberChange : public FormDriver<frmMasOptionalAdmissionNoChange>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        school = std::make_unique<PromotionSchool>(*Session().gcnnMain);
        for (const char* name : {"Asha", "Binu", "Cara"})
            school->Add(QString::fromLatin1(name), NineA);
        school->Add(QStringLiteral("Dev"), NineB);
        Session().gintAcademicYearCode = ThisYear;
    }

    void OpenForm()
    {
        FormDriver::OpenForm("frmMasOptionalAdmissionNoChange");
        grid = Find<FlexGrid>(form, "msgDetails");
        box = Find<FloatingEditor>(form, "txtOptionalAdmissionNo");
    }
    void StartEdit()
    {
        OpenForm();
        Press(Button("cmdEdit"));
    }
    /// Edit, and IX-A is listed.
    void ListNineA()
    {
        StartEdit();
        Choose("dbcClass", QStringLiteral("IX"));
        Choose("dbcDivision", QStringLiteral("A"));
    }
    /// The same, and the box is open over the first number.
    void OpenFirstBox()
    {
        ListNineA();
        Click(grid, 1, 3);
        ASSERT_TRUE(box->hasFocus());
    }

    std::string Rows() const
    {
        QStringList rows;
        for (int row = 1; row < grid->Rows(); ++row) {
            QStringList texts;
            for (int col = 0; col <= 3; ++col)
                texts.append(grid->TextMatrix(row, col));
            rows.append(texts.join(QLatin1Char('|')));
        }
        return rows.join(QStringLiteral("; ")).toStdString();
    }
    std::string Numbers()
    {
        QStringList numbers;
        auto rows = Session().gcnnMain->Query(QStringLiteral(
            "SELECT OptionalAdmissionNo FROM StudentMaster WHERE StudentCode > 0 ORDER BY StudentCode"));
        while (rows.Next())
            numbers.append(rows.Text(0));
        return numbers.join(QLatin1Char(' ')).toStdString();
    }
    template <typename... Values>
    void Other(const char* sql, const Values&... values)
    {
        AnotherClient()->Execute(QString::fromLatin1(sql), values...);
    }
    void ExpectIdle()
    {
        for (const char* off : {"fraSelection", "fraDetails", "cmdSave"})
            EXPECT_FALSE(IsEnabled(off)) << off;
        EXPECT_TRUE(IsEnabled("cmdEdit"));
        EXPECT_EQ(FocusName(), "cmdEdit");
        EXPECT_EQ(Rows(), "");
        EXPECT_TRUE(List("dbcClass")->IsBlank());
        EXPECT_FALSE(box->isVisible());
    }
    void SaveUpdates() { Save(QStringLiteral("Record Updated")); }
    /// Types into the box and presses Enter, is told `text` and stays in the row.
    void EnterIsRefused(const char* keys, const QString& text, int row)
    {
        prompts.ExpectInformation(text);
        Enter(keys);
        prompts.Verify();
        EXPECT_TRUE(box->hasFocus());
        EXPECT_EQ(box->Row(), row);
    }

    std::unique_ptr<PromotionSchool> school;
    FlexGrid* grid = nullptr;
    FloatingEditor* box = nullptr;
};

TEST_F(NumberChange, TheScreenOpensClosedAndEditOpensItWithoutAnyRight)
{
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 9;
    OpenForm();
    EXPECT_EQ(form->windowTitle().toStdString(), "Optional Admission No Change");
    ExpectIdle();
    EXPECT_TRUE(grid->isColumnHidden(4));
    EXPECT_EQ(grid->horizontalHeader()->length(), grid->viewport()->width()) << "names have all the room";
    Press(Button("cmdEdit"));
    EXPECT_TRUE(HasFocus("dbcClass"));
    EXPECT_TRUE(IsEnabled("cmdSave"));
    EXPECT_FALSE(IsEnabled("cmdEdit"));
}

TEST_F(NumberChange, ItFitsASmallDisplayAndItsLettersLeadToOneControlEach)
{
    ExpectToFit(QStringLiteral("frmMasOptionalAdmissionNoChange"));
    ExpectOneControlALetter(OpenScreen(QStringLiteral("frmMasOptionalAdmissionNoChange")));
}

TEST_F(NumberChange, ClassAndDivisionListTheStudentsOnRollByName)
{
    school->Relieve(2);
    ListNineA();
    EXPECT_EQ(Rows(), "1|Asha|101|A1; 2|Cara|103|A3");
    Choose("dbcDivision", QStringLiteral("B"));
    EXPECT_EQ(Rows(), "1|Dev|104|A4");
}

TEST_F(NumberChange, ADivisionWithoutStudentsIsToldAndKeepsTheFocus)
{
    StartEdit();
    Choose("dbcClass", QStringLiteral("X"));
    prompts.ExpectInformation(QStringLiteral("'Student Admission Entry' Is Not Made For This Division"));
    List("dbcDivision")->setFocus();
    QTest::keyClick(List("dbcDivision"), Qt::Key_Down);
    EXPECT_TRUE(HasFocus("dbcDivision"));
    EXPECT_EQ(Rows(), "");
}

TEST_F(NumberChange, AnotherClassAndABlankDivisionEmptyTheGrid)
{
    ListNineA();
    Choose("dbcClass", QStringLiteral("VIII"));
    EXPECT_EQ(Rows(), "");
    EXPECT_TRUE(List("dbcDivision")->IsBlank());
    Choose("dbcClass", QStringLiteral("IX"));
    Choose("dbcDivision", QStringLiteral("B"));
    Choose("dbcDivision", QStringLiteral(" "));
    EXPECT_EQ(Rows(), "");
}

TEST_F(NumberChange, OnlyTheLastColumnIsEdited)
{
    ListNineA();
    for (const int col : {0, 1, 2}) {
        Click(grid, 1, col);
        EXPECT_FALSE(box->isVisible()) << col;
    }
    Click(grid, 2, 3);
    EXPECT_TRUE(box->isVisible());
    EXPECT_EQ(box->text().toStdString(), "A2");
    EXPECT_EQ(box->selectedText().toStdString(), "A2");
}

TEST_F(NumberChange, AWholeDivisionIsRenumberedByKeyboardAlone)
{
    OpenForm();
    PressKey(form, Qt::Key_E, Qt::AltModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("IX"));
    PressKey(form, Qt::Key_Return);
    ASSERT_TRUE(HasFocus("dbcDivision"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("A"));
    PressKey(form, Qt::Key_Return);
    ASSERT_TRUE(grid->hasFocus());
    PressKey(form, Qt::Key_Return);
    ASSERT_TRUE(box->hasFocus());
    Enter("N1");
    Enter("N2");
    EXPECT_EQ(box->Row(), 3);
    EXPECT_EQ(Rows(), "1|Asha|101|N1; 2|Binu|102|N2; 3|Cara|103|A3");
    Enter("N3");
    EXPECT_FALSE(box->isVisible());
    EXPECT_EQ(FocusName(), "cmdSave");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(Numbers(), "N1 N2 N3 A4");
    ExpectIdle();
}

TEST_F(NumberChange, WhatIsTypedGoesToTheCellAtOnceAndEscTakesItBack)
{
    OpenFirstBox();
    QTest::keyClicks(box, QStringLiteral("Q7"));
    EXPECT_EQ(grid->TextMatrix(1, 3).toStdString(), "Q7");
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_EQ(grid->TextMatrix(1, 3).toStdString(), "A1");
    SaveUpdates();
    EXPECT_EQ(Numbers(), "A1 A2 A3 A4");
}

TEST_F(NumberChange, AnEmptyNumberIsAskedFor)
{
    OpenFirstBox();
    QTest::keyClick(box, Qt::Key_Delete);
    EnterIsRefused("", EnterNumber, 1);
    EnterIsRefused("  ", EnterNumber, 1);
}

TEST_F(NumberChange, ANumberOfAnotherStudentIsRefusedItsCellEmptiedAndItsTextSelected)
{
    school->Relieve(4);
    OpenFirstBox();
    for (const char* taken : {"A2", "A4", "a3"}) {
        EnterIsRefused(taken, NumberExists, 1);
        EXPECT_EQ(grid->TextMatrix(1, 3).toStdString(), "");
        EXPECT_EQ(box->selectedText().toStdString(), taken);
    }
    Enter("A1");
    EXPECT_EQ(box->Row(), 2) << "the own number is taken unchanged";
}

TEST_F(NumberChange, ANumberJustGivenToAnotherRowIsRefused)
{
    OpenFirstBox();
    Enter("N9");
    EnterIsRefused("n9", NumberExists, 2);
}

TEST_F(NumberChange, SignsThatNoNumberHasAreDroppedAndAPasteIsCutToTheLength)
{
    OpenFirstBox();
    QTest::keyClicks(box, QStringLiteral("N'1*"));
    EXPECT_EQ(box->text().toStdString(), "N1");
    QApplication::clipboard()->setText(QStringLiteral("12345678901234567890"));
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid->TextMatrix(1, 3).toStdString(), "123456789012345");
    SaveUpdates();
    EXPECT_EQ(Numbers(), "123456789012345 A2 A3 A4");
}

TEST_F(NumberChange, TypingAndEnterNeedNoStatement)
{
    StopPresence();
    OpenFirstBox();
    const auto before = Session().gcnnMain->StatementsRun();
    Enter("N1");
    EnterIsRefused("A4", NumberExists, 2);
    Enter("N2");
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
}

TEST_F(NumberChange, WhatIsMissingIsToldInItsOrder)
{
    StartEdit();
    ExpectRefusal(QStringLiteral("Select Class"), "dbcClass");
    Choose("dbcClass", QStringLiteral("IX"));
    ExpectRefusal(QStringLiteral("Select Division"), "dbcDivision");
    Choose("dbcDivision", QStringLiteral("A"));
    Click(grid, 2, 3);
    QTest::keyClick(box, Qt::Key_Delete);
    ExpectRefusal(EnterNumber, "txtOptionalAdmissionNo");
    EXPECT_EQ(box->Row(), 2);
    QTest::keyClicks(box, QStringLiteral("A4"));
    ExpectRefusal(NumberExists, "txtOptionalAdmissionNo");
    EXPECT_EQ(box->Row(), 2);
    EXPECT_EQ(Numbers(), "A1 A2 A3 A4");
}

TEST_F(NumberChange, TwoStudentsCannotSwapTheirNumbersInOneSave)
{
    OpenFirstBox();
    QTest::keyClicks(box, QStringLiteral("A2"));
    Click(grid, 2, 3);
    QTest::keyClicks(box, QStringLiteral("A1"));
    ExpectRefusal(NumberExists, "txtOptionalAdmissionNo");
    EXPECT_EQ(box->Row(), 1);
    EXPECT_EQ(Numbers(), "A1 A2 A3 A4");
}

TEST_F(NumberChange, ANumberTakenByAnotherClientMeanwhileIsFoundInTheSave)
{
    OpenFirstBox();
    Enter("N1");
    Other("UPDATE StudentMaster SET OptionalAdmissionNo = 'N1' WHERE StudentCode = 4");
    ExpectRefusal(NumberExists, "txtOptionalAdmissionNo");
    EXPECT_EQ(box->Row(), 1);
    EXPECT_EQ(Numbers(), "A1 A2 A3 N1");
    QTest::keyClicks(box, QStringLiteral("N7"));
    SaveUpdates();
    EXPECT_EQ(Numbers(), "N7 A2 A3 N1");
}

TEST_F(NumberChange, AStudentDeletedMeanwhileIsToldAndTheScreenStartsAnew)
{
    OpenFirstBox();
    Enter("N1");
    Enter("N2");
    Other("DELETE FROM StudentClassDivision WHERE StudentCode = 2");
    Other("DELETE FROM StudentMaster WHERE StudentCode = 2");
    prompts.ExpectCritical(QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data."));
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(Numbers(), "A1 A3 A4");
    ExpectIdle();
}

TEST_F(NumberChange, AStoreLockedByAnotherClientIsToldAndTheSaveCanBeRepeated)
{
    OpenFirstBox();
    Enter("N1");
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    {
        const auto other = AnotherClient();
        const store::Transaction holding(*other);
        prompts.ExpectCritical(HeldByAnotherClient);
        Press(Button("cmdSave"));
        prompts.Verify();
        EXPECT_EQ(grid->TextMatrix(1, 3).toStdString(), "N1");
    }
    SaveUpdates();
    EXPECT_EQ(Numbers(), "N1 A2 A3 A4");
}

TEST_F(NumberChange, OnAFullDiskNothingIsChangedAndTheSaveCanBeRepeated)
{
    StopPresence();
    OpenFirstBox();
    Enter("N1");
    {
        const FileSizeLimit full(0);
        prompts.ExpectCritical(DiskTakesNothing);
        Press(Button("cmdSave"));
        prompts.Verify();
    }
    EXPECT_EQ(Numbers(), "A1 A2 A3 A4");
    EXPECT_EQ(grid->TextMatrix(1, 3).toStdString(), "N1");
    SaveUpdates();
    EXPECT_EQ(Numbers(), "N1 A2 A3 A4");
}

TEST_F(NumberChange, CancelForgetsWhatWasTypedAndReadsTheNumbersOfTheSchoolAnew)
{
    OpenFirstBox();
    Enter("N1");
    Other("UPDATE StudentMaster SET OptionalAdmissionNo = 'Z4' WHERE StudentCode = 4");
    Press(Button("cmdCancel"));
    ExpectIdle();
    EXPECT_EQ(Numbers(), "A1 A2 A3 Z4");
    Press(Button("cmdEdit"));
    Choose("dbcClass", QStringLiteral("IX"));
    Choose("dbcDivision", QStringLiteral("A"));
    Click(grid, 1, 3);
    EnterIsRefused("Z4", NumberExists, 1);
    Enter("A4");
    EXPECT_EQ(box->Row(), 2);
}

TEST_F(NumberChange, WithoutTheNumbersOfTheSchoolNothingCanBeEditedUntilTheyAreRead)
{
    OpenForm();
    Given("ALTER TABLE StudentMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("StudentMaster"));
    Press(Button("cmdCancel"));
    prompts.Verify();
    EXPECT_FALSE(IsEnabled("cmdEdit"));
    EXPECT_EQ(FocusName(), "cmdCancel");
    Given("ALTER TABLE Away RENAME TO StudentMaster");
    Press(Button("cmdCancel"));
    ExpectIdle();
}

TEST_F(NumberChange, WithoutTheClassesNothingCanBeEditedUntilTheyAreRead)
{
    Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionMaster"));
    OpenForm();
    prompts.Verify();
    EXPECT_FALSE(IsEnabled("cmdEdit"));
    Given("ALTER TABLE Away RENAME TO ClassDivisionMaster");
    Press(Button("cmdCancel"));
    ExpectIdle();
    EXPECT_EQ(List("dbcClass")->count(), 4) << "three classes behind a blank line";
}

TEST_F(NumberChange, AStoreThatCannotBeReadIsToldOnce)
{
    ListNineA();
    Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
    Given("ALTER TABLE StudentMaster RENAME TO Gone");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionMaster"));
    Press(Button("cmdCancel"));
    prompts.Verify();
    EXPECT_FALSE(IsEnabled("cmdEdit"));
    EXPECT_TRUE(List("dbcClass")->IsBlank());
}

TEST_F(NumberChange, AListThatCannotBeReadIsToldAndItsDivisionIsNotChosen)
{
    StartEdit();
    Choose("dbcClass", QStringLiteral("IX"));
    Given("ALTER TABLE StudentClassDivision RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("StudentClassDivision"));
    List("dbcDivision")->setFocus();
    QTest::keyClick(List("dbcDivision"), Qt::Key_Down);
    EXPECT_TRUE(List("dbcDivision")->IsBlank());
    EXPECT_EQ(Rows(), "");
}

} // namespace
} // namespace tally::test
