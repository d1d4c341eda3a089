#include "masters/frmMasSchoolSetup.h"

#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/ScreenRegistry.h"
#include "support/FormDriver.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSet>

namespace tally::test {
namespace {

TEST(MonthCodeTest, TheAcademicYearStartsWithItsFirstMonthAndWrapsInJanuary)
{
    for (int start = 1; start <= 12; ++start) {
        QSet<int> codes;
        for (int month = 1; month <= 12; ++month)
            codes.insert(MonthCodeOf(month, start));
        EXPECT_EQ(codes.size(), 12) << start;
        EXPECT_EQ(MonthCodeOf(start, start), 1);
        EXPECT_EQ(MonthCodeOf(start == 1 ? 12 : start - 1, start), 12);
    }
    EXPECT_EQ(MonthCodeOf(12, 4), 9);
    EXPECT_EQ(MonthCodeOf(1, 4), 10);
}

class frmMasSchoolSetupTest : public FormDriver<frmMasSchoolSetup>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        Session().gintUserCode = 4;
        Given("INSERT INTO StateMaster VALUES (1, 'Kerala', 1)");
        Given("INSERT INTO StateMaster VALUES (2, 'Punjab', 1)");
        Given("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1)");
        Given("INSERT INTO CityMaster VALUES (2, 2, 'Patiala', 1)");
        Given("INSERT INTO CityMaster VALUES (3, 2, 'Amritsar', 1)");
    }

    void GivenSchool()
    {
        Given("INSERT INTO SchoolMaster VALUES ('Hill School', 'Main Road', 'Hill', 3, '143001', 'APR', 1)");
    }
    void GivenYear(int code, const char* from)
    {
        Given("INSERT INTO AcademicYearSetup VALUES (?, 2024, 2025, ?, '2025-03-31', 'Y', 'N', 1)", code,
              from);
    }
    void OpenSetup() { OpenForm("frmMasSchoolSetup"); }
    /// Chooses the line with the arrow keys.
    void Choose(const char* name, int line)
    {
        List(name)->setFocus();
        QTest::keyClick(List(name), Qt::Key_Home);
        for (int step = List(name)->currentIndex(); step < line; ++step)
            QTest::keyClick(List(name), Qt::Key_Down);
    }
    void TypeOn(const char* text) { QTest::keyClicks(form->focusWidget(), QString::fromLatin1(text)); }
    /// Fills everything from New to Save without the mouse; the start month is the list's line.
    void EnterByKeys(int startMonth)
    {
        PressKey(form, Qt::Key_N, Qt::AltModifier);
        for (const char* text : {" St. Mary & Co. ", "12, Main Road", ""}) {
            TypeOn(text);
            PressKey(form, Qt::Key_Return);
        }
        ASSERT_EQ(FocusName(), "dbcStateName");
        PressKey(form, Qt::Key_Down);
        PressKey(form, Qt::Key_Down);
        PressKey(form, Qt::Key_Return);
        ASSERT_EQ(FocusName(), "dbcCity");
        PressKey(form, Qt::Key_Down);
        PressKey(form, Qt::Key_Return);
        TypeOn("143001");
        PressKey(form, Qt::Key_Return);
        for (int step = 0; step < startMonth; ++step)
            PressKey(form, Qt::Key_Down);
        PressKey(form, Qt::Key_Return);
        ASSERT_EQ(FocusName(), "cmdSave");
    }
    qint64 MonthCode(const char* month)
    {
        return Count("SELECT MonthCode FROM MonthMaster WHERE MonthShortName = ?", month);
    }
};

TEST_F(frmMasSchoolSetupTest, WithoutASchoolOnlyNewIsOffered)
{
    OpenSetup();
    EXPECT_EQ(form->windowTitle().toStdString(), "School Setup");
    EXPECT_FALSE(Find<QGroupBox>(form, "fraMain")->isEnabled());
    EXPECT_TRUE(Button("cmdNew")->isEnabled());
    EXPECT_FALSE(Button("cmdEdit")->isEnabled());
    EXPECT_FALSE(Button("cmdSave")->isEnabled());
    EXPECT_TRUE(List("dbcStateName")->IsBlank());
    EXPECT_TRUE(List("dbcCity")->IsBlank());
    EXPECT_EQ(List("cboAcademicYearCodeStartMonth")->count(), 13);
    EXPECT_EQ(List("cboAcademicYearCodeStartMonth")->itemText(0).toStdString(), " ");
    EXPECT_EQ(List("cboAcademicYearCodeStartMonth")->itemText(12).toStdString(), "DEC");
    EXPECT_EQ(List("cboAcademicYearCodeStartMonth")->itemData(12).toInt(), 12);
}

TEST_F(frmMasSchoolSetupTest, TheStoredSchoolIsShownAndOnlyEditIsOffered)
{
    GivenSchool();
    OpenSetup();
    EXPECT_EQ(Box("txtSchoolName")->text().toStdString(), "Hill School");
    EXPECT_EQ(Box("txtAddress1")->text().toStdString(), "Main Road");
    EXPECT_EQ(Box("txtAddress2")->text().toStdString(), "Hill");
    EXPECT_EQ(List("dbcStateName")->currentText().toStdString(), "Punjab");
    EXPECT_EQ(List("dbcCity")->currentText().toStdString(), "Amritsar");
    EXPECT_EQ(Box("txtPincode")->text().toStdString(), "143001");
    EXPECT_EQ(List("cboAcademicYearCodeStartMonth")->currentText().toStdString(), "APR");
    EXPECT_FALSE(Button("cmdNew")->isEnabled());
    EXPECT_TRUE(Button("cmdEdit")->isEnabled());
}

TEST_F(frmMasSchoolSetupTest, ASchoolIsEnteredWithKeysAlone)
{
    OpenSetup();
    EnterByKeys(6);
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Count("SELECT count(*) FROM SchoolMaster WHERE SchoolName = 'St. Mary & Co.' AND SAddress1 ="
                    " '12, Main Road' AND SAddress2 = '' AND CCityCode = 3 AND CPinCode = '143001'"
                    " AND MonthShortName = 'JUN' AND UserCode = 4"),
              1);
    EXPECT_EQ(MonthCode("JUN"), 1);
    EXPECT_EQ(MonthCode("DEC"), 7);
    EXPECT_EQ(MonthCode("JAN"), 8);
    EXPECT_EQ(MonthCode("MAY"), 12);
    EXPECT_EQ(FocusName(), "cmdEdit");
    EXPECT_FALSE(Button("cmdSave")->isEnabled());
}

TEST_F(frmMasSchoolSetupTest, ASchoolThatStartsInAprilHasAprilAsItsFirstMonthAndMarchAsItsLast)
{
    OpenSetup();
    EnterByKeys(4);
    Save(QStringLiteral("Record Saved"));
    int code = 0;
    for (const char* month :
         {"APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC", "JAN", "FEB", "MAR"})
        EXPECT_EQ(MonthCode(month), ++code) << month;
}

TEST_F(frmMasSchoolSetupTest, AMissingEntryIsToldInItsTurn)
{
    OpenSetup();
    Press(Button("cmdNew"));
    Retype("txtSchoolName", "  ");
    ExpectRefusal(QStringLiteral("Enter School Name"), "txtSchoolName");
    Retype("txtSchoolName", "Hill School");
    ExpectRefusal(QStringLiteral("Enter Address"), "txtAddress1");
    Retype("txtAddress1", "Main Road");
    ExpectRefusal(QStringLiteral("Select State"), "dbcStateName");
    Choose("dbcStateName", 2);
    ExpectRefusal(QStringLiteral("Select City"), "dbcCity");
    Choose("dbcCity", 1);
    ExpectRefusal(QStringLiteral("Enter Pincode"), "txtPincode");
    Retype("txtPincode", "1");
    ExpectRefusal(QStringLiteral("Select Academic Year Start Month"), "cboAcademicYearCodeStartMonth");
    EXPECT_EQ(Count("SELECT count(*) FROM SchoolMaster"), 0);
    Choose("cboAcademicYearCodeStartMonth", 4);
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Count("SELECT CCityCode FROM SchoolMaster"), 2);
}

TEST_F(frmMasSchoolSetupTest, TwoSavesLeaveOneRow)
{
    GivenSchool();
    OpenSetup();
    for (const char* name : {"Hill School One", "Hill School Two"}) {
        Press(Button("cmdEdit"));
        Retype("txtSchoolName", name);
        Save(QStringLiteral("Record Updated"));
    }
    EXPECT_EQ(Count("SELECT count(*) FROM SchoolMaster"), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM SchoolMaster WHERE SchoolName = 'Hill School Two'"), 1);
}

TEST_F(frmMasSchoolSetupTest, TheStartMonthMayChangeWhileThereIsNoAcademicYear)
{
    GivenSchool();
    OpenSetup();
    Press(Button("cmdEdit"));
    Choose("cboAcademicYearCodeStartMonth", 1);
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(MonthCode("JAN"), 1);
    EXPECT_EQ(MonthCode("DEC"), 12);
}

TEST_F(frmMasSchoolSetupTest, AfterTheFirstAcademicYearOnlyItsOwnMonthIsTaken)
{
    GivenSchool();
    GivenYear(1, "2024-06-01");
    GivenYear(2, "2025-04-01");
    OpenSetup();
    Press(Button("cmdEdit"));
    ExpectRefusal(
        QStringLiteral("Academic Year Setup Already Created. So You Cannot Change Academic Year Start Month"),
        "cboAcademicYearCodeStartMonth");
    Choose("cboAcademicYearCodeStartMonth", 6);
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(MonthCode("JUN"), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM SchoolMaster WHERE MonthShortName = 'JUN'"), 1);
}

TEST_F(frmMasSchoolSetupTest, AnotherStateOffersItsOwnCities)
{
    GivenSchool();
    OpenSetup();
    Press(Button("cmdEdit"));
    Choose("dbcStateName", 1);
    EXPECT_TRUE(List("dbcCity")->IsBlank());
    ASSERT_EQ(List("dbcCity")->count(), 1);
    EXPECT_EQ(List("dbcCity")->itemText(0).toStdString(), "Kochi");
    Choose("dbcStateName", 0);
    EXPECT_EQ(List("dbcCity")->count(), 0);
}

TEST_F(frmMasSchoolSetupTest, CancelShowsTheStoredSchoolAgain)
{
    GivenSchool();
    OpenSetup();
    Press(Button("cmdEdit"));
    EXPECT_EQ(FocusName(), "txtSchoolName");
    Retype("txtSchoolName", "x");
    Choose("dbcStateName", 0);
    Press(Button("cmdCancel"));
    EXPECT_EQ(Box("txtSchoolName")->text().toStdString(), "Hill School");
    EXPECT_EQ(List("dbcCity")->currentText().toStdString(), "Amritsar");
    EXPECT_FALSE(Find<QGroupBox>(form, "fraMain")->isEnabled());
    EXPECT_EQ(FocusName(), "cmdEdit");
}

TEST_F(frmMasSchoolSetupTest, NewAndEditNeedTheirRights)
{
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("clerk"));
    Session().gintPrivilegeUserCode = 9;
    OpenSetup();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    EXPECT_FALSE(Find<QGroupBox>(form, "fraMain")->isEnabled());
    GivenSchool();
    Press(Button("cmdCancel"));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    EXPECT_FALSE(Find<QGroupBox>(form, "fraMain")->isEnabled());
}

TEST_F(frmMasSchoolSetupTest, WithoutASchoolTheOnlyWayOnIsToQuit)
{
    OpenSetup();
    for (const bool quit : {false, true}) {
        prompts.ExpectInformation(
            QStringLiteral("Without Entering School Setup, You Cannot Proceed Further"));
        prompts.ExpectQuestion(QStringLiteral("Do You Want To Quit Tally Board ?"), quit);
        if (quit)
            Press(Button("cmdExit"));
        else
            qobject_cast<QMdiSubWindow*>(form->parentWidget())->close();
        Settle();
        EXPECT_EQ(processEnds, quit ? 1 : 0);
        EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmMasSchoolSetup")), nullptr);
    }
}

TEST_F(frmMasSchoolSetupTest, WithASchoolExitAsksAsEverywhere)
{
    GivenSchool();
    OpenSetup();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit School Setup ?"), true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmMasSchoolSetup")), nullptr);
    EXPECT_EQ(processEnds, 0);
}

TEST_F(frmMasSchoolSetupTest, TheWorkMenusAreOffWhileItIsOpenEvenAmongOtherScreens)
{
    GivenSchool();
    const QString masters = QStringLiteral("mnuMasters");
    window->EnableMenuItem(masters, true);
    OpenScreen(QStringLiteral("frmSubjectMaster"));
    OpenSetup();
    EXPECT_FALSE(window->MenuItem(masters)->isEnabled());
    EXPECT_TRUE(Session().gblnMenusLocked);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_TRUE(window->MenuItem(masters)->isEnabled());
    EXPECT_FALSE(Session().gblnMenusLocked);
}

TEST_F(frmMasSchoolSetupTest, WhatWasAddedBesideItIsInTheListsOnReturn)
{
    GivenSchool();
    OpenSetup();
    Press(Button("cmdEdit"));
    Retype("txtSchoolName", "Valley School");
    Press(Button("cmdAddStateName"));
    Settle();
    Screen* states = ScreenRegistry::OpenInstance(QStringLiteral("frmMasStateMaster"));
    ASSERT_NE(states, nullptr);
    Given("INSERT INTO StateMaster VALUES (3, 'Assam', 1)");
    Press(Find<QPushButton>(states, "cmdExit"));
    Settle();
    EXPECT_EQ(List("dbcStateName")->count(), 4);
    Press(Button("cmdAddCity"));
    Settle();
    Screen* cities = ScreenRegistry::OpenInstance(QStringLiteral("frmMasCityMaster"));
    ASSERT_NE(cities, nullptr);
    Given("INSERT INTO CityMaster VALUES (4, 2, 'Ludhiana', 1)");
    Press(Find<QPushButton>(cities, "cmdExit"));
    Settle();
    EXPECT_EQ(List("dbcCity")->count(), 3);
    EXPECT_EQ(List("dbcStateName")->currentText().toStdString(), "Punjab");
    EXPECT_EQ(List("dbcCity")->currentText().toStdString(), "Amritsar");
    EXPECT_EQ(Box("txtSchoolName")->text().toStdString(), "Valley School");
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
}

TEST_F(frmMasSchoolSetupTest, ANewSystemGoesFromItsSchoolToItsFirstYear)
{
    Session().gblnSchoolExists = false;
    Session().gblnActiveYearExists = false;
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    QApplication::setActiveWindow(window);
    Settle();
    form =
        qobject_cast<frmMasSchoolSetup*>(ScreenRegistry::OpenInstance(QStringLiteral("frmMasSchoolSetup")));
    ASSERT_NE(form, nullptr);
    EnterByKeys(4);
    Save(QStringLiteral("Record Saved"));
    EXPECT_TRUE(Session().gblnSchoolExists);
    EXPECT_EQ(Session().gstrSchoolName.toStdString(), "St. Mary & Co.");
    EXPECT_EQ(Session().gstrSchoolCity.toStdString(), "Amritsar,Punjab - 143001");
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmMasSchoolSetup")), nullptr);
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmMasAcademicYearSetup")), nullptr);
}

TEST_F(frmMasSchoolSetupTest, ASchoolThatAnotherClientEnteredLeadsOutOfTheScreenToo)
{
    Session().gblnSchoolExists = false;
    Session().gblnActiveYearExists = false;
    OpenSetup();
    AnotherClient()->Execute(QStringLiteral(
        "INSERT INTO SchoolMaster VALUES ('Hill School', 'Main Road', 'Hill', 3, '143001', 'APR', 1)"));
    Press(Button("cmdExit"));
    Settle();
    EXPECT_TRUE(Session().gblnSchoolExists);
    EXPECT_EQ(Session().gstrSchoolName.toStdString(), "Hill School");
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmMasSchoolSetup")), nullptr);
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmMasAcademicYearSetup")), nullptr);
}

TEST_F(frmMasSchoolSetupTest, CancelShowsASchoolThatAnotherClientMovedToANewState)
{
    GivenSchool();
    OpenSetup();
    const auto other = AnotherClient();
    other->Execute(QStringLiteral("INSERT INTO StateMaster VALUES (3, 'Assam', 1)"));
    other->Execute(QStringLiteral("INSERT INTO CityMaster VALUES (4, 3, 'Tezpur', 1)"));
    other->Execute(QStringLiteral("UPDATE SchoolMaster SET CCityCode = 4"));
    Press(Button("cmdCancel"));
    EXPECT_EQ(List("dbcStateName")->currentText().toStdString(), "Assam");
    EXPECT_EQ(List("dbcCity")->currentText().toStdString(), "Tezpur");
}

TEST_F(frmMasSchoolSetupTest, MonthsThatCouldNotBeReadComeWithTheNextCancel)
{
    GivenSchool();
    Given("ALTER TABLE MonthMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("MonthMaster"));
    OpenSetup();
    prompts.Verify();
    for (const char* button : {"cmdNew", "cmdEdit", "cmdSave"})
        EXPECT_FALSE(Button(button)->isEnabled()) << button;
    Given("ALTER TABLE Away RENAME TO MonthMaster");
    Press(Button("cmdCancel"));
    EXPECT_EQ(List("cboAcademicYearCodeStartMonth")->count(), 13);
    EXPECT_EQ(List("cboAcademicYearCodeStartMonth")->currentText().toStdString(), "APR");
    EXPECT_TRUE(Button("cmdEdit")->isEnabled());
}

TEST_F(frmMasSchoolSetupTest, WhereTheCitiesCannotBeReadNoneOfAnotherStateStaysChosen)
{
    GivenSchool();
    OpenSetup();
    Press(Button("cmdEdit"));
    List("dbcStateName")->setFocus();
    Given("ALTER TABLE CityMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("CityMaster"));
    QTest::keyClick(List("dbcStateName"), Qt::Key_Up);
    prompts.Verify();
    ASSERT_EQ(List("dbcStateName")->currentText().toStdString(), "Kerala");
    EXPECT_TRUE(List("dbcCity")->IsBlank());
    EXPECT_EQ(List("dbcCity")->count(), 0);
}

TEST_F(frmMasSchoolSetupTest, ACityThatAnotherClientDeletedIsNotSavedAndNothingIsLost)
{
    GivenSchool();
    OpenSetup();
    Press(Button("cmdEdit"));
    Choose("dbcCity", 1);
    AnotherClient()->Execute(QStringLiteral("DELETE FROM CityMaster WHERE CityCode = 2"));
    prompts.ExpectCritical(QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data."));
    Press(Button("cmdSave"));
    EXPECT_EQ(Count("SELECT CCityCode FROM SchoolMaster"), 3);
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
    EXPECT_EQ(Box("txtSchoolName")->text().toStdString(), "Hill School");
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
}

TEST_F(frmMasSchoolSetupTest, ARefusedSaveOffersOnlyTheStatesAndCitiesThatAreStillThere)
{
    GivenSchool();
    OpenSetup();
    Press(Button("cmdEdit"));
    Choose("dbcStateName", 1);
    Choose("dbcCity", 0);
    const auto other = AnotherClient();
    other->Execute(QStringLiteral("DELETE FROM CityMaster WHERE CityCode = 1"));
    other->Execute(QStringLiteral("DELETE FROM StateMaster WHERE StateCode = 1"));
    prompts.ExpectCritical(QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data."));
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_TRUE(List("dbcStateName")->IsBlank());
    EXPECT_EQ(List("dbcStateName")->findText(QStringLiteral("Kerala")), -1);
    EXPECT_EQ(List("dbcCity")->count(), 0);
    ExpectRefusal(QStringLiteral("Select State"), "dbcStateName");
    Choose("dbcStateName", 1);
    Choose("dbcCity", 1);
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Count("SELECT CCityCode FROM SchoolMaster"), 2);
}

TEST_F(frmMasSchoolSetupTest, AFaultInReadingBackWhatIsSavedSaysThatItIsSavedAndOffersNoNewEntry)
{
    GivenSchool();
    OpenSetup();
    Press(Button("cmdEdit"));
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_EQ(kind, Prompts::Kind::Information);
        if (told.isEmpty())
            Given("ALTER TABLE SchoolMaster RENAME TO Away");
        told.append(text);
        return true;
    });
    Press(Button("cmdSave"));
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told.at(0), QStringLiteral("Record Updated"));
    EXPECT_TRUE(told.at(1).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    for (const char* button : {"cmdNew", "cmdEdit", "cmdSave"})
        EXPECT_FALSE(Button(button)->isEnabled()) << button;
    EXPECT_EQ(FocusName(), "cmdCancel");
    EXPECT_EQ(TextOf("txtSchoolName") + TextOf("txtAddress1") + TextOf("txtPincode"), "");
    Given("ALTER TABLE Away RENAME TO SchoolMaster");
    Press(Button("cmdCancel"));
    EXPECT_TRUE(Button("cmdEdit")->isEnabled());
    EXPECT_EQ(Box("txtSchoolName")->text().toStdString(), "Hill School");
}

TEST_F(frmMasSchoolSetupTest, WhatCannotBeReadBeforeASaveOrTheExitIsToldOnceAndNothingIsDone)
{
    GivenSchool();
    OpenSetup();
    Press(Button("cmdEdit"));
    Retype("txtSchoolName", "Valley School");
    const std::pair<const char*, const char*> reads[] = {{"AcademicYearSetup", "cmdSave"},
                                                         {"SchoolMaster", "cmdExit"}};
    for (const auto& [table, button] : reads) {
        Given(("ALTER TABLE " + QByteArray(table) + " RENAME TO Away").constData());
        prompts.ExpectCritical(NoSuchTable(table));
        Press(Button(button));
        prompts.Verify();
        Given(("ALTER TABLE Away RENAME TO " + QByteArray(table)).constData());
        EXPECT_EQ(TextOf("txtSchoolName"), "Valley School") << button;
        EXPECT_EQ(Count("SELECT count(*) FROM SchoolMaster WHERE SchoolName = 'Hill School'"), 1) << button;
    }
    EXPECT_EQ(processEnds, 0);
}

TEST_F(frmMasSchoolSetupTest, AFileHeldByAnotherClientLosesNeitherSchoolNorMonths)
{
    GivenSchool();
    OpenSetup();
    Press(Button("cmdEdit"));
    Choose("cboAcademicYearCodeStartMonth", 6);
    const auto other = AnotherClient();
    other->Begin();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(1));
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdSave"));
    other->Rollback();
    EXPECT_EQ(Count("SELECT count(*) FROM SchoolMaster WHERE MonthShortName = 'APR'"), 1);
    EXPECT_EQ(MonthCode("JAN"), 1);
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(MonthCode("JUN"), 1);
}

TEST_F(frmMasSchoolSetupTest, LettersOfAnyScriptAreTakenAndOnlyQuotesAndLineBreaksDropped)
{
    OpenSetup();
    Press(Button("cmdNew"));
    Box("txtSchoolName")->setFocus();
    const QString name = QStringLiteral("\u0935\u093f\u0926\u094d\u092f\u093e & Söhne");
    QApplication::clipboard()->setText(QStringLiteral("'") + name + QStringLiteral("\r\n"));
    PressKey(form, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Box("txtSchoolName")->text().toStdString(), name.toStdString());
    for (const char* box : {"txtSchoolName", "txtAddress1", "txtAddress2", "txtPincode"})
        Retype(box, QByteArray(300, 'W').constData());
    Choose("dbcStateName", 1);
    Choose("dbcCity", 0);
    Choose("cboAcademicYearCodeStartMonth", 1);
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Count("SELECT length(SchoolName) + length(CPinCode) FROM SchoolMaster"), 110);
}

TEST_F(frmMasSchoolSetupTest, F1KnowsTheHelpOfThisScreen)
{
    OpenSetup();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 3);
}

TEST_F(frmMasSchoolSetupTest, MandatoryFieldsAreMarkedAndNoLetterStandsForTwoControls)
{
    OpenSetup();
    EXPECT_EQ(ExpectOneControlALetter(form), QStringList());
    int stars = 0;
    for (const auto* label : form->findChildren<QLabel*>())
        stars += label->text() == QLatin1String("*") ? 1 : 0;
    EXPECT_EQ(stars, 6);
    EXPECT_EQ(Find<QLabel>(form, "lblMandatory")->text().toStdString(), "* - Mandatory");
}

TEST_F(frmMasSchoolSetupTest, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmMasSchoolSetup"));
}

} // namespace
} // namespace tally::test
