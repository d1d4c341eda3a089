#include "store/Tables.h"

#include "StoreFiles.h"
#include "support/TestStore.h"

#include <QRegularExpression>

#include <ostream>

namespace tally::test {

using store::Connection;
using store::ErrorKind;
using store::Transaction;

namespace {

Connection InMemoryWith(void (*create)(Transaction&))
{
    Connection connection = Connection::InMemory();
    Transaction transaction(connection);
    create(transaction);
    transaction.Commit();
    return connection;
}

/// The columns in their order, a text's width behind a stroke: "StateCode StateName/30 UserCode". A date has
/// ten letters.
QString ColumnsOf(Connection& connection, const char* table)
{
    static const QRegularExpression Width(QStringLiteral("\\((\\d+)\\)"));
    QStringList columns;
    auto rows = connection.Query(QStringLiteral("PRAGMA table_info(%1)").arg(QLatin1String(table)));
    while (rows.Next()) {
        const auto width = Width.match(rows.Text(2));
        columns << rows.Text(1) + (width.hasMatch() ? u'/' + width.captured(1) : QString());
    }
    return columns.join(u' ');
}

QStringList TablesOf(Connection& connection)
{
    QStringList tables;
    auto rows =
        connection.Query(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"));
    while (rows.Next())
        tables << rows.Text(0);
    return tables;
}

struct Table
{
    const char* name;
    const char* columns;

    friend void PrintTo(const Table& table, std::ostream* out) { *out << table.name; }
};

const Table MainTables[] = {
    {"StateMaster", "StateCode StateName/30 UserCode"},
    {"CityMaster", "CityCode StateCode CityName/30 UserCode"},
    {"BloodGroupMaster", "BloodGroupCode BloodGroupName/5 UserCode"},
    {"SalutationMaster", "SalutationCode SalutationName/5 UserCode"},
    {"ExamMaster", "ExamCode ExamName/50 ExamOrder UserCode"},
    {"SubjectMaster", "SubjectCode SubjectName/25 SubjectShortName/6 UserCode"},
    {"TeacherMaster", "TeacherCode SalutationCode TeacherName/100 TeacherShortName/3 DOB/10 MaritalStatus/1 "
                      "WeddingDate/10 JoiningDate/10 FHName/100 Address1/100 Address2/100 CityCode "
                      "PinCode/15 Telephone/20 BloodGroupCode Qualification/50 UserCode"},
    {"ClassDivisionMaster", "ClassCode ClassName/4 NoOfDivisions ClassOrder UserCode"},
    {"ClassDivisionDetails", "ClassCode DivisionName/3 DivisionCode"},
    {"MonthMaster", "MonthSlNo MonthShortName/3 MonthCode"},
    {"SchoolMaster",
     "SchoolName/100 SAddress1/100 SAddress2/100 CCityCode CPinCode/10 MonthShortName/3 UserCode"},
    {"SchoolSetUp", "SchoolName/100 Address1/100 Address2/100 CityCode PinCode/10"},
    {"AcademicYearSetup",
     "AcademicYearCode YearFrom YearTo FromDate/10 ToDate/10 Status/1 Processed/1 UserCode"},
    {"ApplicationDate", "ApplicationDate/10 UserCode"},
    {"Options", "ExitPrompt/1 AdmissionNoAutoGen/1 DateOfBirthSetting/10 GenderOption/1 MarksInFraction/1 "
                "MarksRounded/1"},
    {"ScreenStatus", "Screen/50"},
    {"AccessedDate", "AccessedDate/10"},
    {"ExamBoardMaster", "BoardCode BoardNo Status/1"},
    {"ControlFileMaster", "ID/50 NextNo"},
    {"MRCODE", "MRCODE/20"},
    {"UserMaster", "UserCode UserName/50 EnteredBy"},
    {"UserPrivilegeMaster", "UserCode LoginId/15 Password/15 Block/1 EnteredBy Days"},
    {"UserPrivilegeDetails", "FormName/50 ButtonName/1 UserCode"},
    {"StudentMaster",
     "StudentCode AdmissionNo OptionalAdmissionNo/15 AdmissionDate/10 AcademicYearCode StudentName/100 "
     "FgName/100 Sex/1 Address1/100 Address2/100 CityCode Pincode/15 Telephone/20 Email/50 DOB/10 "
     "BloodGroupCode ManGenAutoGen/1 RelievingDate/10 RelievingReason/100 TCNo/15 TCDate/10 UserCode"},
    {"StudentClassDivision", "StudentCode AcademicYearCode ClassCode DivisionCode Status/1 UserCode"},
    {"ClassSubjectTeacher", "AcademicYearCode ClassCode DivisionCode SubjectCode TeacherCode MaximumMark "
                            "MaximumAllowed TakenForRank/3 SlNo"},
    {"RankMaster",
     "AcademicYearCode ExamCode ClassCode DivisionCode TotalAverage SubjectAverage Grade/2 Status UserCode"},
    {"MarkMaster", "AcademicYearCode StudentCode ExamCode ClassCode DivisionCode SubjectCode Mark "
                   "LeaveOrPresent/1 TeacherCode UserCode"},
    {"TempRankTotal",
     "StudentCode AcademicYearCode ExamCode ClassCode DivisionCode Total Average Rank Grade/2"},
    {"TransactionMaster",
     "TransactionCode TransactionDate/10 StudentCode AcademicYearCode Amount DeleteStatus/1 UserCode"},
    {"FeesSetup", "FeesCode ClassCode FeesName/50 Amount UserCode"},
};

} // namespace

class MainTable : public testing::TestWithParam<Table>
{};

TEST_P(MainTable, HasItsColumnsInTheirOrderAndWidths)
{
    Connection store = InMemoryWith(store::CreateMainTables);
    EXPECT_EQ(ColumnsOf(store, GetParam().name), QLatin1String(GetParam().columns));
}

INSTANTIATE_TEST_SUITE_P(Tables, MainTable, testing::ValuesIn(MainTables),
                         [](const auto& table) { return std::string(table.param.name); });

TEST(Tables, MainFileHoldsTheListedTablesAndNoWorkingTable)
{
    Connection store = InMemoryWith(store::CreateMainTables);
    QStringList expected;
    for (const Table& table : MainTables)
        expected << QLatin1String(table.name);
    expected.sort();
    EXPECT_EQ(TablesOf(store), expected);
}

TEST(Tables, TemporaryFileHoldsTheUsersExitPromptsOnly)
{
    Connection store = InMemoryWith(store::CreateTempTables);
    EXPECT_EQ(TablesOf(store), QStringList{QStringLiteral("Options")});
    EXPECT_EQ(ColumnsOf(store, "Options"), QLatin1String("Options/1 UserCode"));
}

TEST(Tables, BackupFileHoldsBothLogs)
{
    Connection store = InMemoryWith(store::CreateBackupTables);
    EXPECT_EQ(ColumnsOf(store, "BackupDatabase"), QLatin1String("BackupCode BackupPath/300 BackupDate/30"));
    EXPECT_EQ(ColumnsOf(store, "RestoreDatabase"),
              QLatin1String("RestoreCode RestorePath/300 RestoreDate/30"));
}

TEST(Tables, HelpFileHoldsTheHelpTexts)
{
    Connection store = InMemoryWith(store::CreateHelpTables);
    EXPECT_EQ(ColumnsOf(store, "Tallyboarddetails"), QLatin1String("Scrno ScreenName/100 Details"));
}

TEST(Tables, EveryFileCarriesTheVersionOfItsTables)
{
    EXPECT_EQ(InMemoryWith(store::CreateMainTables).SchemaVersion(), store::MainVersion);
    for (const auto create : {store::CreateTempTables, store::CreateBackupTables, store::CreateHelpTables})
        EXPECT_EQ(InMemoryWith(create).SchemaVersion(), store::OtherFilesVersion);
}

TEST(Tables, EveryTextColumnComparesWithoutCase)
{
    Connection store = InMemoryWith(store::CreateMainTables);
    for (const Table& table : MainTables) {
        auto columns = store.Query(QStringLiteral("PRAGMA table_info(%1)").arg(QLatin1String(table.name)));
        auto definition =
            store.Query(QStringLiteral("SELECT sql FROM sqlite_master WHERE name = ?"), table.name);
        ASSERT_TRUE(definition.Next());
        const QStringList lines = definition.Text(0).split(u'\n');
        while (columns.Next()) {
            const QString kind = columns.Text(2);
            const bool isDate =
                kind == QLatin1String("VARCHAR(10)") && columns.Text(1).contains(QLatin1String("Date"));
            if (!kind.startsWith(QLatin1String("VARCHAR")) || isDate ||
                columns.Text(1) == QLatin1String("DOB"))
                continue;
            const auto line = std::find_if(lines.begin(), lines.end(), [&](const QString& text) {
                return text.trimmed().startsWith(columns.Text(1) + u' ');
            });
            ASSERT_NE(line, lines.end()) << table.name;
            EXPECT_TRUE(line->contains(QLatin1String("COLLATE NOCASE")))
                << table.name << ": " << qPrintable(*line);
        }
    }
}

/// What a column takes and what it refuses, tried on a delivered system.
class Limits : public testing::Test
{
protected:
    Limits()
    {
        store_.Execute(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'X', 2, 1, 1)"));
        store_.Execute(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1), (1, 'B', 2)"));
        store_.Execute(QStringLiteral("INSERT INTO AcademicYearSetup VALUES"
                                      " (1, 2025, 2026, '2025-06-01', '2026-05-31', 'Y', 'N', 1)"));
        store_.Execute(QStringLiteral("INSERT INTO SubjectMaster VALUES (1, 'English', 'Eng', 1)"));
        store_.Execute(QStringLiteral("INSERT INTO ExamMaster VALUES (1, 'Annual', 1, 1)"));
    }

    bool Takes(const char* sql)
    {
        const auto error = ErrorOf([&] { store_.Execute(QString::fromUtf8(sql)); });
        EXPECT_TRUE(!error || error->Description().contains(QLatin1String("constraint failed")))
            << error->what();
        return !error;
    }

    Connection store_ = DeliveredMainStore();
};

TEST_F(Limits, AWidthCountsLettersAndNotBytes)
{
    EXPECT_TRUE(Takes("INSERT INTO SalutationMaster VALUES (1, 'Łłéñü', 1)"));
    EXPECT_FALSE(Takes("INSERT INTO SalutationMaster VALUES (2, 'Doctor', 1)"));
    EXPECT_TRUE(Takes("UPDATE ClassDivisionMaster SET ClassName = 'VIII'"));
    EXPECT_FALSE(Takes("UPDATE ClassDivisionMaster SET ClassName = 'XVIII'"));
    EXPECT_FALSE(Takes("UPDATE ClassDivisionDetails SET DivisionName = 'ABCD'"));
    EXPECT_FALSE(Takes("UPDATE SubjectMaster SET SubjectShortName = 'English'"));
}

TEST_F(Limits, ADateIsIsoTextAndARealDay)
{
    EXPECT_TRUE(Takes("INSERT INTO ApplicationDate VALUES ('2025-06-01', 1)"));
    EXPECT_FALSE(Takes("INSERT INTO ApplicationDate VALUES ('01/Jun/2025', 1)"));
    EXPECT_FALSE(Takes("INSERT INTO ApplicationDate VALUES ('2025-02-30', 1)"));
    EXPECT_TRUE(Takes("UPDATE StudentMaster SET DOB = NULL"));
}

TEST_F(Limits, AWorkingDayStandsOnce)
{
    EXPECT_TRUE(Takes("INSERT INTO ApplicationDate VALUES ('2025-06-01', 1)"));
    EXPECT_FALSE(Takes("INSERT INTO ApplicationDate VALUES ('2025-06-01', 2)"));
}

TEST_F(Limits, AScreenIsOpenOnce)
{
    EXPECT_TRUE(Takes("INSERT INTO ScreenStatus VALUES ('PromotionEntry')"));
    EXPECT_TRUE(Takes("INSERT INTO ScreenStatus VALUES ('AcademicYearSetup')"));
    EXPECT_FALSE(Takes("INSERT INTO ScreenStatus VALUES ('PromotionEntry')"));
    EXPECT_FALSE(Takes("INSERT INTO ScreenStatus VALUES ('promotionentry')"));
}

TEST_F(Limits, FlagsTakeTheirLettersOnly)
{
    EXPECT_FALSE(Takes("UPDATE AcademicYearSetup SET Status = 'X'"));
    EXPECT_FALSE(Takes("UPDATE AcademicYearSetup SET Processed = ''"));
    EXPECT_FALSE(Takes("INSERT INTO StudentClassDivision VALUES (0, 1, 1, 1, 'P', 1)"));
    EXPECT_FALSE(Takes("INSERT INTO ClassSubjectTeacher VALUES (1, 1, 1, 1, 0, 100, 100, 'Y', 1)"));
    EXPECT_TRUE(Takes("INSERT INTO ClassSubjectTeacher VALUES (1, 1, 1, 1, 0, 100, 100, 'Yes', 1)"));
    EXPECT_FALSE(Takes("INSERT INTO MarkMaster VALUES (1, 0, 1, 1, 1, 1, 50, 'L', 0, 1)"));
    EXPECT_FALSE(Takes("UPDATE StudentMaster SET Sex = 'X'"));
}

TEST_F(Limits, OptionsMayStayUnset)
{
    EXPECT_TRUE(Takes("INSERT INTO Options VALUES ('Y', 'N', NULL, '', 'N', 'N')"));
    EXPECT_TRUE(Takes("INSERT INTO Options VALUES ('', '', '2020-05-31', 'A', NULL, '')"));
    EXPECT_FALSE(Takes("INSERT INTO Options VALUES ('Y', 'N', NULL, 'X', 'N', 'N')"));
}

TEST_F(Limits, NumbersStayWithinTheirDigits)
{
    const struct
    {
        const char* table;
        const char* column;
        int low;
        int high;
    } numbers[] = {
        {"ExamMaster", "ExamOrder", 0, 99999},
        {"ClassDivisionMaster", "NoOfDivisions", 0, 99},
        {"MonthMaster", "MonthSlNo", 1, 12},
        {"AcademicYearSetup", "YearFrom", 1980, 2099},
        {"AcademicYearSetup", "YearTo", 1980, 2099},
        {"UserPrivilegeMaster", "Days", 0, 365},
        {"StudentMaster", "AdmissionNo", 0, 999999999}, // after the last one no number is generated
        {"ClassSubjectTeacher", "SlNo", 0, 99999},
    };
    EXPECT_TRUE(Takes("INSERT INTO UserPrivilegeMaster VALUES (0, 'asha', 'secret', 'N', 0, 1)"));
    EXPECT_TRUE(Takes("INSERT INTO ClassSubjectTeacher VALUES (1, 1, 1, 1, 0, 100, 100, 'Yes', 1)"));
    EXPECT_TRUE(Takes("DELETE FROM MonthMaster WHERE MonthSlNo > 1"));
    for (const auto& number : numbers) {
        const auto takes = [&](int value) {
            return Takes(qPrintable(QStringLiteral("UPDATE %1 SET %2 = %3")
                                        .arg(QLatin1String(number.table), QLatin1String(number.column))
                                        .arg(value)));
        };
        EXPECT_TRUE(takes(number.low) && takes(number.high)) << number.column;
        EXPECT_FALSE(takes(number.low - 1) || takes(number.high + 1)) << number.column;
    }
}

TEST_F(Limits, AFailureSaysWhetherARowIsThereTwiceOrContradictsOthersOrIsWrongInItself)
{
    const auto errorOf = [this](const char* sql) {
        const auto error = ErrorOf([&] { store_.Execute(QString::fromUtf8(sql)); });
        EXPECT_TRUE(error) << sql;
        return error.value_or(store::StoreError(QString()));
    };
    for (const char* twice : {"INSERT INTO ExamMaster VALUES (1, 'Half Yearly', 2, 1)",
                              "INSERT INTO ExamMaster VALUES (2, 'Half Yearly', 1, 1)"}) {
        EXPECT_TRUE(errorOf(twice).IsDuplicate()) << twice;
        EXPECT_TRUE(errorOf(twice).IsConflict()) << twice;
    }
    const auto orphan = errorOf("INSERT INTO CityMaster VALUES (7, 99, 'Nowhere', 1)");
    EXPECT_FALSE(orphan.IsDuplicate());
    EXPECT_TRUE(orphan.IsConflict());
    const auto tooLong = errorOf("INSERT INTO BloodGroupMaster VALUES (7, 'AB+ and more', 1)");
    const auto missing = errorOf("INSERT INTO ClassDivisionDetails VALUES (NULL, 'C', 3)");
    for (const store::StoreError& wrong : {tooLong, missing}) {
        EXPECT_FALSE(wrong.IsConflict()) << "no other client has to do with it";
        EXPECT_EQ(wrong.Kind(), ErrorKind::Other);
        EXPECT_TRUE(wrong.Description().startsWith(
            QLatin1String("A Value Is Too Long, Out Of Its Range Or Missing. Nothing Was Saved (")))
            << wrong.what();
    }
    EXPECT_EQ(orphan.Description().toStdString(), "The Data Contradicts Other Data That Is Already Stored "
                                                  "(FOREIGN KEY constraint failed)");
}

TEST_F(Limits, NamesThatMustBeUniqueAreSoWithoutCase)
{
    EXPECT_FALSE(Takes("INSERT INTO ExamMaster VALUES (2, 'Half Yearly', 1, 1)"));
    const char* const teacher = "INSERT INTO TeacherMaster (TeacherCode, TeacherShortName) VALUES ";
    EXPECT_TRUE(Takes(qPrintable(QLatin1String(teacher) + QStringLiteral("(1, 'ABC')"))));
    EXPECT_FALSE(Takes(qPrintable(QLatin1String(teacher) + QStringLiteral("(2, 'abc')"))));
    const char* const student =
        "INSERT INTO StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo) VALUES ";
    EXPECT_TRUE(Takes(qPrintable(QLatin1String(student) + QStringLiteral("(1, 1, 'KT-1')"))));
    EXPECT_FALSE(Takes(qPrintable(QLatin1String(student) + QStringLiteral("(2, 1, 'KT-2')"))));
    EXPECT_FALSE(Takes(qPrintable(QLatin1String(student) + QStringLiteral("(2, 2, 'kt-1')"))));
    EXPECT_TRUE(Takes("INSERT INTO UserMaster VALUES (1, 'Asha', 1), (2, 'Balu', 1)"));
    EXPECT_TRUE(Takes("INSERT INTO UserPrivilegeMaster VALUES (1, 'asha', 'a', 'N', 1, 0)"));
    EXPECT_FALSE(Takes("INSERT INTO UserPrivilegeMaster VALUES (2, 'ASHA', 'b', 'N', 1, 0)"));
}

TEST_F(Limits, AMarkStandsOnceForYearStudentExamClassDivisionAndSubject)
{
    EXPECT_TRUE(Takes("INSERT INTO SubjectMaster VALUES (2, 'Tamil', 'Tam', 1)"));
    EXPECT_TRUE(Takes("INSERT INTO MarkMaster VALUES (1, 0, 1, 1, 1, 1, 50, 'P', 0, 1)"));
    EXPECT_FALSE(Takes("INSERT INTO MarkMaster VALUES (1, 0, 1, 1, 1, 1, 60, 'A', 0, 2)"));
    EXPECT_TRUE(Takes("INSERT INTO MarkMaster VALUES (1, 0, 1, 1, 1, 2, 50, 'P', 0, 1)"));
    EXPECT_TRUE(Takes("INSERT INTO MarkMaster VALUES (1, 0, 1, 1, 2, 1, 50, 'P', 0, 1)"));
    EXPECT_TRUE(Takes("INSERT INTO MarkMaster VALUES (0, 0, 1, 1, 1, 1, 50, 'P', 0, 1)"));
}

TEST_F(Limits, AStudentHasOneClassAYear)
{
    EXPECT_TRUE(Takes("INSERT INTO StudentClassDivision VALUES (0, 1, 1, 1, 'Y', 1)"));
    EXPECT_FALSE(Takes("INSERT INTO StudentClassDivision VALUES (0, 1, 1, 2, 'Y', 1)"));
}

TEST_F(Limits, TwoClassesMayStandAtOneOrderUntilTheyAreRenumbered)
{
    EXPECT_TRUE(Takes("INSERT INTO ClassDivisionMaster VALUES (2, 'x', 1, 1, 1)"));
}

TEST_F(Limits, TheListOfAClassDivisionReadsARangeOfTheKey)
{
    auto plan =
        store_.Query(QStringLiteral("EXPLAIN QUERY PLAN SELECT StudentCode, SubjectCode, Mark FROM MarkMaster"
                                    " WHERE AcademicYearCode = 1 AND ExamCode = 1 AND ClassCode = 1"
                                    " AND DivisionCode IN (1, 2)"));
    ASSERT_TRUE(plan.Next());
    const QString step = plan.Text(plan.ColumnCount() - 1);
    EXPECT_TRUE(step.contains(QLatin1String("PRIMARY KEY"))) << qPrintable(step);
    EXPECT_TRUE(step.contains(QLatin1String("ExamCode=?"))) << qPrintable(step);
}

} // namespace tally::test
