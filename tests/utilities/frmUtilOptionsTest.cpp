#include "utilities/frmUtilOptions.h"

#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/ScreenRegistry.h"
#include "support/FormDriver.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace tally::test {
namespace {

class frmUtilOptionsTest : public FormDriver<frmUtilOptions>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        Session().gintUserCode = 4;
        Session().gdtmApplicationDate = QDate(2024, 6, 10);
    }

    void OpenOptions() { OpenForm("frmUtilOptions"); }
    void GivenOptions()
    {
        Given("INSERT INTO Options VALUES ('N', 'Y', '2019-05-31', 'F', 'Y', 'Y')");
        Session().gcnnTemp->Execute(QStringLiteral("INSERT INTO Options VALUES ('Y', 4)"));
    }
    QCheckBox* Box(const char* name) { return Find<QCheckBox>(form, name); }
    QLabel* Limit() { return Find<QLabel>(form, "lblDateOfBirthSetting"); }
    QComboBox* Gender() { return Find<QComboBox>(form, "cboGender"); }
    DatePicker* Picker() { return Find<DatePicker>(form, "DTPDateOfBirthSetting"); }
    void Pick(const QDate& date) { Picker()->setDate(date); }
    /// Types two digits over the day.
    void TypeDay(const char* day)
    {
        Picker()->setFocus();
        Picker()->setSelectedSection(QDateTimeEdit::DaySection);
        QTest::keyClicks(Picker(), QString::fromLatin1(day));
    }
    /// Ticks or clears as the user does, with the blank key.
    void Toggle(const char* name)
    {
        Box(name)->setFocus();
        QTest::keyClick(Box(name), Qt::Key_Space);
    }
    void Save() { FormDriver::Save(QStringLiteral("Settings Saved")); }
};

TEST_F(frmUtilOptionsTest, WithoutARowEverythingIsEmptyAndSaveIsOff)
{
    // As the login has left them.
    Session().gblnAutoGenerate = true;
    Session().gblnFractionMarks = true;
    Session().gblnRoundedMarks = true;
    Session().gvarDefaultDOB = QStringLiteral("31/May/2018");
    OpenOptions();
    for (const char* name : {"chkPrompt", "chkAutoGen", "chkFractionMarks", "chkRoundedMarks"})
        EXPECT_FALSE(Box(name)->isChecked()) << name;
    EXPECT_EQ(Limit()->text().toStdString(), "");
    EXPECT_EQ(Gender()->currentIndex(), -1);
    EXPECT_FALSE(Button("cmdSave")->isEnabled());
    EXPECT_EQ(Session().gstrDefaultGender.toStdString(), "");
    EXPECT_EQ(Picker()->date(), QDate(2024, 6, 10));
}

TEST_F(frmUtilOptionsTest, TheStoredRowFillsControlsAndSession)
{
    GivenOptions();
    OpenOptions();
    EXPECT_TRUE(Box("chkAutoGen")->isChecked());
    EXPECT_TRUE(Box("chkFractionMarks")->isChecked());
    EXPECT_TRUE(Box("chkRoundedMarks")->isChecked());
    EXPECT_TRUE(Box("chkRoundedMarks")->isEnabled());
    EXPECT_EQ(Limit()->text().toStdString(), "31/May/2019");
    EXPECT_EQ(Gender()->currentText().toStdString(), "Female");
    EXPECT_FALSE(Button("cmdSave")->isEnabled());
    EXPECT_TRUE(Session().gblnFractionMarks);
    EXPECT_EQ(Session().gstrDefaultGender.toStdString(), "F");
    EXPECT_EQ(Session().gvarDefaultDOB.toStdString(), "31/May/2019");
}

TEST_F(frmUtilOptionsTest, EachBoxShowsItsOwnOptionOfTheStoredRow)
{
    Given("INSERT INTO Options VALUES ('', 'N', '2019-05-31', 'F', 'Y', 'N')");
    OpenOptions();
    EXPECT_FALSE(Box("chkAutoGen")->isChecked());
    EXPECT_TRUE(Box("chkFractionMarks")->isChecked());
    EXPECT_FALSE(Box("chkRoundedMarks")->isChecked());
    Given("UPDATE Options SET AdmissionNoAutoGen = 'Y', MarksInFraction = 'N'");
    Press(Button("cmdCancel"));
    EXPECT_TRUE(Box("chkAutoGen")->isChecked());
    EXPECT_FALSE(Box("chkFractionMarks")->isChecked());
}

TEST_F(frmUtilOptionsTest, TheExitPromptShownIsTheUsersOwnFromTheTemporaryFile)
{
    GivenOptions();
    OpenOptions();
    EXPECT_TRUE(Box("chkPrompt")->isChecked());
    EXPECT_FALSE(Session().gblnPromptOnExit);
}

TEST_F(frmUtilOptionsTest, AnotherUsersExitPromptIsNotShown)
{
    GivenOptions();
    Session().gintUserCode = 5;
    OpenOptions();
    EXPECT_FALSE(Box("chkPrompt")->isChecked());
}

TEST_F(frmUtilOptionsTest, AnyChangeTurnsSaveOn)
{
    OpenOptions();
    for (const char* name : {"chkPrompt", "chkAutoGen", "chkFractionMarks", "chkRoundedMarks"}) {
        Press(Button("cmdCancel"));
        ASSERT_FALSE(Button("cmdSave")->isEnabled());
        Box("chkFractionMarks")->setChecked(true);
        Button("cmdSave")->setEnabled(false);
        Toggle(name);
        EXPECT_TRUE(Button("cmdSave")->isEnabled()) << name;
    }
    Press(Button("cmdCancel"));
    Gender()->setFocus();
    QTest::keyClick(Gender(), Qt::Key_Down);
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
    Press(Button("cmdCancel"));
    Pick(QDate(2019, 1, 1));
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
}

TEST_F(frmUtilOptionsTest, OpensAtItsFirstBoxAndTabGoesRoundThroughControlsOnly)
{
    OpenOptions();
    EXPECT_EQ(QApplication::focusWidget(), Box("chkPrompt"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), "cmdExit");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), Box("chkPrompt"));
}

TEST_F(frmUtilOptionsTest, ATypedDateTurnsSaveOnAndTheLetterOfSaveTakesAndStoresIt)
{
    OpenOptions();
    TypeDay("09");
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
    prompts.ExpectInformation(QStringLiteral("Settings Saved"));
    QTest::keyClick(Picker(), 's', Qt::AltModifier);
    EXPECT_EQ(Limit()->text().toStdString(), "09/Jun/2024");
    EXPECT_EQ(Count("SELECT count(*) FROM Options WHERE DateOfBirthSetting = '2024-06-09'"), 1);
}

TEST_F(frmUtilOptionsTest, ATypedDateThatIsRefusedStoresNothingAndStaysToBeCorrected)
{
    OpenOptions();
    TypeDay("11");
    prompts.ExpectInformation(QStringLiteral("Date Of Birth Should be Less than Application Date"));
    QTest::keyClick(Picker(), 's', Qt::AltModifier);
    prompts.Verify();
    EXPECT_TRUE(Picker()->hasFocus());
    EXPECT_EQ(Count("SELECT count(*) FROM Options"), 0);
}

TEST_F(frmUtilOptionsTest, AScreenThatGoesTellsNothingOfADateTypedByHalf)
{
    OpenOptions();
    TypeDay("11");
    form->parentWidget()->close();
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmUtilOptions")), nullptr);
}

TEST_F(frmUtilOptionsTest, ADateTypedByHalfIsJudgedWhenItsFieldIsLeftAndNotBeneathABox)
{
    OpenOptions();
    Session().gblnPromptOnExit = true;
    TypeDay("11");
    QStringList boxes;
    Prompts::AnswerWith([&boxes](Prompts::Kind, const QString& text) {
        boxes.append(text);
        // The box has the keyboard.
        QApplication::setActiveWindow(nullptr);
        return false;
    });
    form->parentWidget()->close();
    EXPECT_EQ(boxes, QStringList(QStringLiteral("Do You Want To Exit Options ?")));
    QApplication::setActiveWindow(window);
    Settle();
    ASSERT_TRUE(Picker()->hasFocus());
    QTest::keyClick(Picker(), 's', Qt::AltModifier);
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_EQ(boxes.at(1).toStdString(), "Date Of Birth Should be Less than Application Date");
}

TEST_F(frmUtilOptionsTest, ADateThatWasClearedOrCancelledCanBeTypedAgain)
{
    OpenOptions();
    TypeDay("09");
    Press(Button("cmdCancel"));
    EXPECT_EQ(Limit()->text().toStdString(), "");
    TypeDay("09");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Limit()->text().toStdString(), "09/Jun/2024");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Clear This Date ?"), true);
    Limit()->setFocus();
    QTest::keyClick(Limit(), Qt::Key_Space);
    EXPECT_EQ(Limit()->text().toStdString(), "");
    TypeDay("09");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Limit()->text().toStdString(), "09/Jun/2024");
}

TEST_F(frmUtilOptionsTest, WithoutAWorkingDateNoDateIsBeforeIt)
{
    Session().gdtmApplicationDate = {};
    OpenOptions();
    prompts.ExpectInformation(QStringLiteral("Date Of Birth Should be Less than Application Date"));
    Pick(QDate(1990, 1, 1));
    EXPECT_EQ(Limit()->text().toStdString(), "");
}

TEST_F(frmUtilOptionsTest, RoundingGoesOnlyTogetherWithFractions)
{
    OpenOptions();
    EXPECT_FALSE(Box("chkRoundedMarks")->isEnabled());
    Toggle("chkFractionMarks");
    EXPECT_TRUE(Box("chkRoundedMarks")->isEnabled());
    Toggle("chkRoundedMarks");
    EXPECT_TRUE(Box("chkRoundedMarks")->isChecked());
    Toggle("chkFractionMarks");
    EXPECT_FALSE(Box("chkRoundedMarks")->isChecked());
    EXPECT_FALSE(Box("chkRoundedMarks")->isEnabled());
}

TEST_F(frmUtilOptionsTest, OnlyADateBeforeTheWorkingDateIsTaken)
{
    OpenOptions();
    Pick(QDate(2024, 6, 9));
    EXPECT_EQ(Limit()->text().toStdString(), "09/Jun/2024");
    prompts.ExpectInformation(QStringLiteral("Date Of Birth Should be Less than Application Date"));
    Pick(QDate(2024, 6, 10));
    EXPECT_EQ(Limit()->text().toStdString(), "09/Jun/2024");
    prompts.ExpectInformation(QStringLiteral("Date Of Birth Should be Less than Application Date"));
    Pick(QDate(2024, 7, 1));
    EXPECT_EQ(Limit()->text().toStdString(), "09/Jun/2024");
}

TEST_F(frmUtilOptionsTest, AClickOnTheDateOffersToClearIt)
{
    GivenOptions();
    OpenOptions();
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Clear This Date ?"), false);
    QTest::mouseClick(Limit(), Qt::LeftButton);
    EXPECT_EQ(Limit()->text().toStdString(), "31/May/2019");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Clear This Date ?"), true);
    QTest::mouseClick(Limit(), Qt::LeftButton);
    EXPECT_EQ(Limit()->text().toStdString(), "");
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
    QTest::mouseClick(Limit(), Qt::LeftButton);
}

TEST_F(frmUtilOptionsTest, SaveStoresTheSettingsAndPutsThemInForce)
{
    OpenOptions();
    Toggle("chkPrompt");
    Toggle("chkAutoGen");
    Toggle("chkFractionMarks");
    Toggle("chkRoundedMarks");
    Gender()->setCurrentIndex(1);
    Pick(QDate(2020, 1, 2));
    Save();
    EXPECT_FALSE(Button("cmdSave")->isEnabled());
    EXPECT_EQ(Count("SELECT count(*) FROM Options WHERE ExitPrompt = 'Y' AND AdmissionNoAutoGen = 'Y'"
                    " AND DateOfBirthSetting = '2020-01-02' AND GenderOption = 'M' AND MarksInFraction = 'Y'"
                    " AND MarksRounded = 'Y'"),
              1);
    EXPECT_TRUE(Session().gblnPromptOnExit);
    EXPECT_TRUE(Session().gblnAutoGenerate);
    EXPECT_TRUE(Session().gblnFractionMarks);
    EXPECT_TRUE(Session().gblnRoundedMarks);
    EXPECT_EQ(Session().gstrDefaultGender.toStdString(), "M");
    EXPECT_EQ(Session().gvarDefaultDOB.toStdString(), "02/Jan/2020");
}

TEST_F(frmUtilOptionsTest, WithoutADateNullIsStored)
{
    OpenOptions();
    Gender()->setCurrentIndex(0);
    Save();
    EXPECT_EQ(Count("SELECT count(*) FROM Options WHERE DateOfBirthSetting IS NULL AND GenderOption = 'A'"),
              1);
    EXPECT_EQ(Session().gvarDefaultDOB.toStdString(), "");
}

TEST_F(frmUtilOptionsTest, SavingTwiceLeavesOneRowForTheSchoolAndOnePerUser)
{
    for (const int user : {4, 5, 4}) {
        Session().gintUserCode = user;
        OpenOptions();
        Toggle("chkAutoGen");
        Save();
        form->Unload();
        Settle();
    }
    EXPECT_EQ(Count("SELECT count(*) FROM Options"), 1);
    EXPECT_EQ(Session().gcnnTemp->Number(QStringLiteral("SELECT count(*) FROM Options WHERE UserCode > 0")),
              2);
}

TEST_F(frmUtilOptionsTest, AFailedSaveChangesNeitherFileNorTheSession)
{
    GivenOptions();
    OpenOptions();
    Session().gcnnTemp->Execute(QStringLiteral("DROP TABLE Options"));
    Toggle("chkAutoGen");
    prompts.ExpectCritical(NoSuchTable("Options"));
    Press(Button("cmdSave"));
    EXPECT_EQ(Count("SELECT count(*) FROM Options WHERE AdmissionNoAutoGen = 'Y'"), 1);
    EXPECT_TRUE(Session().gblnAutoGenerate);
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    EXPECT_EQ(Session().gcnnTemp->TransactionDepth(), 0);
}

TEST_F(frmUtilOptionsTest, CancelShowsTheStoredSettingsAgain)
{
    GivenOptions();
    OpenOptions();
    Toggle("chkFractionMarks");
    Press(Button("cmdCancel"));
    EXPECT_TRUE(Box("chkFractionMarks")->isChecked());
    EXPECT_TRUE(Box("chkRoundedMarks")->isChecked());
    EXPECT_FALSE(Button("cmdSave")->isEnabled());
}

TEST_F(frmUtilOptionsTest, ExitAsksWhereItIsWanted)
{
    OpenOptions();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Options ?"), false);
    Press(Button("cmdExit"));
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmUtilOptions")), nullptr);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Options ?"), true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmUtilOptions")), nullptr);
}

} // namespace
} // namespace tally::test
