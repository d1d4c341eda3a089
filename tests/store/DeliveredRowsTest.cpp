#include "store/DeliveredRows.h"

#include "store/HelpTexts.h"
#include "store/Tables.h"
#include "StoreFiles.h"
#include "support/TestStore.h"

namespace tally::test {

using store::Connection;

namespace {

qint64 Rows(Connection& store, const char* tableAndCondition)
{
    return store.Number(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(tableAndCondition));
}

} // namespace

TEST(DeliveredRows, EachMasterWithANotChosenRowHasExactlyThat)
{
    Connection store = DeliveredMainStore();
    const std::pair<const char*, const char*> masters[] = {{"StateMaster", "StateCode"},
                                                           {"CityMaster", "CityCode"},
                                                           {"BloodGroupMaster", "BloodGroupCode"},
                                                           {"TeacherMaster", "TeacherCode"},
                                                           {"SubjectMaster", "SubjectCode"},
                                                           {"UserMaster", "UserCode"},
                                                           {"ClassDivisionMaster", "ClassCode"},
                                                           {"StudentMaster", "StudentCode"},
                                                           {"AcademicYearSetup", "AcademicYearCode"}};
    for (const auto& [table, key] : masters) {
        EXPECT_EQ(Rows(store, table), 1) << table;
        EXPECT_EQ(store.Number(QStringLiteral("SELECT count(*) FROM %1 WHERE %2 = 0")
                                   .arg(QLatin1String(table), QLatin1String(key))),
                  1)
            << table;
    }
}

TEST(DeliveredRows, SalutationsAndExamsHaveNoNotChosenRow)
{
    Connection store = DeliveredMainStore();
    EXPECT_EQ(Rows(store, "SalutationMaster"), 0);
    EXPECT_EQ(Rows(store, "ExamMaster"), 0);
}

TEST(DeliveredRows, NotChosenRowsHaveBlankTexts)
{
    Connection store = DeliveredMainStore();
    EXPECT_EQ(Rows(store, "StateMaster WHERE StateName = ''"), 1);
    EXPECT_EQ(Rows(store, "TeacherMaster WHERE TeacherName = '' AND TeacherShortName = ''"), 1);
    EXPECT_EQ(Rows(store, "StudentMaster WHERE StudentName = '' AND TCNo = '' AND AdmissionNo = 0"), 1);
}

TEST(DeliveredRows, TheYearThatIsNotChosenIsNeitherActiveNorTheLowest)
{
    Connection store = DeliveredMainStore();
    EXPECT_EQ(Rows(store, "AcademicYearSetup WHERE Status = 'Y'"), 0);
    EXPECT_EQ(Rows(store, "AcademicYearSetup WHERE Status = 'N'"), 1);
    auto range = store.Query(QStringLiteral("SELECT min(YearFrom), max(YearFrom) FROM AcademicYearSetup"));
    ASSERT_TRUE(range.Next());
    EXPECT_TRUE(range.IsNull(0));
    EXPECT_TRUE(range.IsNull(1));
}

TEST(DeliveredRows, TheFirstCodesOfANewSystemAreOne)
{
    Connection store = DeliveredMainStore();
    EXPECT_EQ(store.Number(QStringLiteral("SELECT max(StudentCode) + 1 FROM StudentMaster")), 1);
    EXPECT_EQ(store.Number(QStringLiteral("SELECT max(AdmissionNo) + 1 FROM StudentMaster")), 1);
    EXPECT_EQ(store.Number(QStringLiteral("SELECT max(AcademicYearCode) + 1 FROM AcademicYearSetup")), 1);
}

TEST(DeliveredRows, TheListOfStatesOfAnEmptySystemIsOneBlankLine)
{
    Connection store = DeliveredMainStore();
    auto list = store.Query(QStringLiteral("SELECT 0 AS StateCode, ' ' AS StateName FROM StateMaster UNION"
                                           " SELECT StateCode, StateName FROM StateMaster WHERE StateCode > 0"
                                           " ORDER BY StateName"));
    ASSERT_TRUE(list.Next());
    EXPECT_EQ(list.Long(0), 0);
    EXPECT_EQ(list.Text(1), QLatin1String(" "));
    EXPECT_FALSE(list.Next());
}

TEST(DeliveredRows, TheTwelveMonthsStandInOrder)
{
    Connection store = DeliveredMainStore();
    QString months;
    auto rows = store.Query(QStringLiteral("SELECT MonthSlNo, MonthShortName, MonthCode FROM MonthMaster"
                                           " ORDER BY MonthSlNo"));
    int number = 0;
    while (rows.Next()) {
        EXPECT_EQ(rows.Int(0), ++number);
        EXPECT_EQ(rows.Int(2), number);
        months += rows.Text(1);
    }
    EXPECT_EQ(months, QLatin1String("JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC"));
}

TEST(DeliveredRows, ANewSystemHasNoLoginNoSchoolAndNoRunningScreen)
{
    Connection store = DeliveredMainStore();
    for (const char* table :
         {"UserPrivilegeMaster", "UserPrivilegeDetails", "SchoolMaster", "SchoolSetUp", "Options",
          "TransactionMaster", "FeesSetup", "ScreenStatus", "ExamBoardMaster", "ApplicationDate"})
        EXPECT_EQ(Rows(store, table), 0) << table;
    EXPECT_EQ(Rows(store, "MRCODE"), 1);
}

TEST(HelpTexts, EveryScreenWithAHelpNumberHasOneText)
{
    Connection store = Connection::InMemory();
    store::Transaction transaction(store);
    store::CreateHelpTables(transaction);
    store::InsertDeliveredHelpRows(transaction);
    transaction.Commit();

    constexpr int LastNumber = 37;
    constexpr int NoSuchScreen = 36;
    for (int number = 1; number <= LastNumber; ++number) {
        const qint64 texts = store.Number(
            QStringLiteral("SELECT count(*) FROM Tallyboarddetails WHERE Scrno = ? AND length(Details) > 80"),
            number);
        EXPECT_EQ(texts, number == NoSuchScreen ? 0 : 1) << number;
    }
    EXPECT_EQ(Rows(store, "Tallyboarddetails"), static_cast<qint64>(store::HelpTexts().size()));
    EXPECT_EQ(Rows(store, "Tallyboarddetails WHERE Scrno = 4 AND ScreenName = 'Class&Section Details'"), 1);
}

TEST(HelpTexts, NoTwoScreensShareAName)
{
    QStringList names;
    for (const store::HelpText& text : store::HelpTexts())
        names << QString::fromUtf8(text.screenName).toUpper();
    const qsizetype all = names.size();
    EXPECT_GT(all, 0);
    names.removeDuplicates();
    EXPECT_EQ(names.size(), all);
}

} // namespace tally::test
