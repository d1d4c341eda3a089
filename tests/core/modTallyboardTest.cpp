#include "core/modTallyboard.h"

#include "core/OptionFlags.h"
#include "core/SessionContext.h"
#include "core/SessionRepository.h"
#include "store/Tables.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally {
namespace {

class modTallyboardTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Session() = SessionContext();
        Session().gcnnMain = std::make_unique<store::Connection>(test::DeliveredMainStore());
    }
    void TearDown() override { Session() = SessionContext(); }

    template <typename... Values>
    void Given(const char* sql, const Values&... values)
    {
        Session().gcnnMain->Execute(QString::fromLatin1(sql), values...);
    }
    static int NextCode(const QString& column, const QString& table, int year)
    {
        store::Transaction saving(*Session().gcnnMain);
        return GetNextCode(saving, column, table, year);
    }
    void GivenYear(int code, const char* status)
    {
        Given("INSERT INTO AcademicYearSetup VALUES (?, 2024, 2025, '2024-06-01', '2025-05-31', ?, 'N', 1)",
              code, status);
    }
    void GivenLogin()
    {
        Given("INSERT INTO UserMaster VALUES (3, 'Clerk', 0)");
        Given("INSERT INTO UserPrivilegeMaster VALUES (3, 'clerk', 'pw', 'N', 0, 0)");
        Session().gintPrivilegeUserCode = 3;
    }
    void GivenSchool(bool withSecondAddress)
    {
        Given("INSERT INTO StateMaster VALUES (1, 'Kerala', 1)");
        Given("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1)");
        Given(withSecondAddress ? "INSERT INTO SchoolMaster VALUES ('Hill School', 'Hill Road', 'North', 1, "
                                  "'682001', 'JUN', 1)"
                                : "INSERT INTO SchoolMaster VALUES ('Hill School', 'Hill Road', NULL, 1, "
                                  "'682001', 'JUN', 1)");
    }
};

TEST_F(modTallyboardTest, TheFirstCodeIsOneInAnEmptyTableAndBesideTheRowZero)
{
    EXPECT_EQ(NextCode(QStringLiteral("ExamCode"), QStringLiteral("ExamMaster"), 0), 1);
    EXPECT_EQ(NextCode(QStringLiteral("StateCode"), QStringLiteral("StateMaster"), 0), 1);
}

TEST_F(modTallyboardTest, TheNextCodeFollowsTheHighestWhateverGapsThereAre)
{
    Given("INSERT INTO StateMaster VALUES (2, 'Kerala', 1), (7, 'Goa', 1)");
    EXPECT_EQ(NextCode(QStringLiteral("StateCode"), QStringLiteral("StateMaster"), 0), 8);
}

TEST_F(modTallyboardTest, TheNextCodeCountsOnlyTheYearThatIsAskedFor)
{
    GivenYear(1, "N");
    GivenYear(2, "Y");
    const QString column = QStringLiteral("YearFrom");
    EXPECT_EQ(NextCode(QStringLiteral("AcademicYearCode"), QStringLiteral("AcademicYearSetup where "), 1), 2);
    EXPECT_EQ(NextCode(column, QStringLiteral("AcademicYearSetup where "), 2), 2025);
    EXPECT_EQ(NextCode(column, QStringLiteral("AcademicYearSetup where "), 9), 1);
}

TEST_F(modTallyboardTest, ADanglingWhereIsCutWhenNoYearIsAskedFor)
{
    GivenYear(4, "Y");
    EXPECT_EQ(NextCode(QStringLiteral("AcademicYearCode"), QStringLiteral("AcademicYearSetup where "), 0), 5);
}

TEST_F(modTallyboardTest, TheNextCodeIsThatOfTheFileInWhichItIsSaved)
{
    Given("INSERT INTO StateMaster VALUES (9, 'Kerala', 1)");
    store::Connection other = test::DeliveredMainStore();
    store::Transaction saving(other);
    const auto next = [&saving] {
        return GetNextCode(saving, QStringLiteral("StateCode"), QStringLiteral("StateMaster"), 0);
    };
    EXPECT_EQ(next(), 1);
    saving.Execute(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Goa', 1)"));
    EXPECT_EQ(next(), 2) << "a row of the same save counts";
}

TEST_F(modTallyboardTest, TheNextCodeNeedsNoOpenMainFile)
{
    Session().gcnnMain.reset();
    store::Connection log = store::Connection::InMemory();
    store::Transaction saving(log);
    store::CreateBackupTables(saving);
    EXPECT_EQ(GetNextCode(saving, QStringLiteral("BackupCode"), QStringLiteral("BackupDatabase"), 0), 1);
    saving.Execute(QStringLiteral("INSERT INTO BackupDatabase VALUES (1, '/backups/June.mdb', '')"));
    EXPECT_EQ(GetNextCode(saving, QStringLiteral("BackupCode"), QStringLiteral("BackupDatabase"), 0), 2);
}

TEST_F(modTallyboardTest, BeforeTheFirstLoginExistsEverythingIsAllowed)
{
    EXPECT_TRUE(CheckPrivilege(QStringLiteral("frmMasStateMaster"), Right::Delete));
}

TEST_F(modTallyboardTest, ARightCountsForItsFormItsCodeAndItsUserOnly)
{
    GivenLogin();
    Given("INSERT INTO UserPrivilegeDetails VALUES ('frmMasStateMaster', 'N', 3)");
    EXPECT_TRUE(CheckPrivilege(QStringLiteral("frmMasStateMaster"), Right::New));
    EXPECT_FALSE(CheckPrivilege(QStringLiteral("frmMasStateMaster"), Right::Edit));
    EXPECT_FALSE(CheckPrivilege(QStringLiteral("frmMasCityMaster"), Right::New));
    Session().gintPrivilegeUserCode = 4;
    EXPECT_FALSE(CheckPrivilege(QStringLiteral("frmMasStateMaster"), Right::New));
}

TEST_F(modTallyboardTest, EachRefusalHasItsText)
{
    GivenLogin();
    const std::pair<Right, const char*> refusals[] = {
        {Right::New, "You Have No Privilege To Create New Entry"},
        {Right::Edit, "You Have No Privilege To Modify This Entry"},
        {Right::Delete, "You Have No Privilege To Delete"},
        {Right::Print, "You Have No Privilege To Export This Report"},
        {Right::Save, "You Have No Privilege To Change The Academic Year"},
        {Right::Backup, "You Have No Privilege To Take Database Backup"},
        {Right::Restore, "You Have No Privilege To Restore Database"},
        {Right::Modify, "You Have No Privilege To Modify Application Date"},
        {Right::Add, "You Have No Privilege To Modify Application Date"},
        {Right::Change, "You Have No Privilege To Change"},
    };
    for (const auto& [right, text] : refusals) {
        Session().gstrPrivilegeMessage.clear();
        EXPECT_FALSE(CheckPrivilege(QStringLiteral("frmAny"), right));
        EXPECT_EQ(Session().gstrPrivilegeMessage.toStdString(), text);
    }
}

TEST_F(modTallyboardTest, TheRightToOpenHasNoTextAndLeavesThatOfTheRefusalBefore)
{
    GivenLogin();
    EXPECT_FALSE(CheckPrivilege(QStringLiteral("frmAny"), Right::Delete));
    EXPECT_FALSE(CheckPrivilege(QStringLiteral("frmAny"), Right::Open));
    EXPECT_EQ(Session().gstrPrivilegeMessage.toStdString(), "You Have No Privilege To Delete");
}

TEST_F(modTallyboardTest, WithoutAnActiveYearOnlyTheFlagChanges)
{
    GivenYear(1, "N");
    Session().gintYearFrom = 1999;
    Session().gblnActiveYearExists = true;
    GetActiveAcademicYear();
    EXPECT_FALSE(Session().gblnActiveYearExists);
    EXPECT_EQ(Session().gintYearFrom, 1999);
}

TEST_F(modTallyboardTest, TheActiveYearFillsItsValuesAndSaysThatAWorkingDateExists)
{
    GivenYear(5, "Y");
    LoadActiveAcademicYear();
    EXPECT_TRUE(Session().gblnActiveYearExists);
    EXPECT_TRUE(Session().gblnApplicationDateExists);
    EXPECT_EQ(Session().gintAcademicYearCode, 5);
    EXPECT_EQ(Session().gintYearFrom, 2024);
    EXPECT_EQ(Session().gintYearTo, 2025);
    EXPECT_EQ(Session().gdtmFromDate, QDate(2024, 6, 1));
    EXPECT_EQ(Session().gdtmToDate, QDate(2025, 5, 31));
}

TEST_F(modTallyboardTest, TheWorkingDateIsTheLastOneWithinTheYear)
{
    GivenYear(5, "Y");
    Given("INSERT INTO ApplicationDate VALUES ('2024-06-03', 1), ('2024-07-01', 1), ('2026-01-01', 1)");
    LoadApplicationDate(5);
    EXPECT_TRUE(Session().gblnApplicationDateExists);
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2024, 7, 1));
}

TEST_F(modTallyboardTest, AYearWithoutAWorkingDateLeavesTheDateInHand)
{
    GivenYear(5, "Y");
    Given("INSERT INTO ApplicationDate VALUES ('2026-01-01', 1)");
    Session().gdtmApplicationDate = QDate(2026, 1, 1);
    Session().gblnApplicationDateExists = true;
    LoadApplicationDate(5);
    EXPECT_FALSE(Session().gblnApplicationDateExists);
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2026, 1, 1));
}

TEST_F(modTallyboardTest, TheSchoolsTextsAreJoined)
{
    GivenSchool(true);
    LoadSchoolDetails();
    EXPECT_TRUE(Session().gblnSchoolExists);
    EXPECT_EQ(Session().gstrSchoolName.toStdString(), "Hill School");
    EXPECT_EQ(Session().gstrSchoolAddress.toStdString(), "Hill Road,North");
    EXPECT_EQ(Session().gstrSchoolCity.toStdString(), "Kochi,Kerala - 682001");
}

TEST_F(modTallyboardTest, ANullSecondAddressTakesItsCommaAway)
{
    GivenSchool(false);
    LoadSchoolDetails();
    EXPECT_EQ(Session().gstrSchoolAddress.toStdString(), "Hill Road");
}

TEST_F(modTallyboardTest, WithoutASchoolTheFlagSaysSo)
{
    Session().gblnSchoolExists = true;
    LoadSchoolDetails();
    EXPECT_FALSE(Session().gblnSchoolExists);
}

TEST_F(modTallyboardTest, TheHeadOfReportsComesFromItsOwnTable)
{
    GivenSchool(true);
    LoadReportSchoolDetails();
    EXPECT_EQ(Session().gstrReportSchoolName.toStdString(), "");
    Given("INSERT INTO SchoolSetUp VALUES ('Hill', 'Road', 'North', 1, '682001')");
    LoadReportSchoolDetails();
    EXPECT_EQ(Session().gstrReportSchoolName.toStdString(), "Hill");
    EXPECT_EQ(Session().gstrReportSchoolAddress.toStdString(), "Road,North");
    EXPECT_EQ(Session().gstrReportSchoolCity.toStdString(), "Kochi-682001");
}

TEST_F(modTallyboardTest, WithoutOptionsThereAreNoDefaults)
{
    Session().gstrDefaultGender = QStringLiteral("M");
    Session().gvarDefaultDOB = QStringLiteral("01/Jan/2020");
    LoadOptions();
    EXPECT_EQ(Session().gstrDefaultGender.toStdString(), "");
    EXPECT_EQ(Session().gvarDefaultDOB.toStdString(), "");
}

TEST_F(modTallyboardTest, OptionsWithoutADateGiveNoDate)
{
    Session().gvarDefaultDOB = QStringLiteral("01/Jan/2020");
    Given("INSERT INTO Options VALUES ('Y', 'Y', NULL, 'M', 'N', 'N')");
    LoadOptions();
    EXPECT_EQ(Session().gvarDefaultDOB.toStdString(), "");
    EXPECT_EQ(Session().gstrDefaultGender.toStdString(), "M");
}

TEST_F(modTallyboardTest, AnEmptyStoredGenderKeepsTheOneInHand)
{
    Session().gstrDefaultGender = QStringLiteral("F");
    Given("INSERT INTO Options VALUES ('Y', 'Y', '2019-05-31', '', 'N', 'N')");
    LoadOptions();
    EXPECT_EQ(Session().gstrDefaultGender.toStdString(), "F");
    EXPECT_EQ(Session().gvarDefaultDOB.toStdString(), "31/May/2019");
}

TEST_F(modTallyboardTest, BlankPromptsCountAsWantedAndBlankMarkSettingsAsOff)
{
    TakeOptionFlags(StoredOptions());
    EXPECT_TRUE(Session().gblnPromptOnExit);
    EXPECT_TRUE(Session().gblnAutoGenerate);
    EXPECT_FALSE(Session().gblnFractionMarks);
    EXPECT_FALSE(Session().gblnRoundedMarks);
}

TEST_F(modTallyboardTest, StoredFlagsAreTaken)
{
    const QString yes = QStringLiteral("Y");
    const QString no = QStringLiteral("N");
    TakeOptionFlags({no, no, std::nullopt, QString(), yes, yes});
    EXPECT_FALSE(Session().gblnPromptOnExit);
    EXPECT_FALSE(Session().gblnAutoGenerate);
    EXPECT_TRUE(Session().gblnFractionMarks);
    EXPECT_TRUE(Session().gblnRoundedMarks);
    TakeOptionFlags({yes, yes, std::nullopt, QString(), no, no});
    EXPECT_TRUE(Session().gblnPromptOnExit);
    EXPECT_FALSE(Session().gblnFractionMarks);
}

TEST_F(modTallyboardTest, DatesAreShownWithEnglishMonthsAndReadBackFromThere)
{
    EXPECT_EQ(ShownDate(QDate(2024, 6, 5)).toStdString(), "05/Jun/2024");
    EXPECT_EQ(ShownDate(QDate()).toStdString(), "");
    for (const QDate& date : {QDate(2024, 6, 5), QDate(2024, 2, 29), QDate(1899, 12, 31)})
        EXPECT_EQ(DateShown(ShownDate(date)), date);
    for (const char* text : {"", "2024-06-05", "31/Feb/2024", "Null"})
        EXPECT_FALSE(DateShown(QString::fromLatin1(text)).isValid()) << text;
}

} // namespace
} // namespace tally
