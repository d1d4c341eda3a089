#include "store/WorkingTable.h"

#include "StoreFiles.h"

namespace tally::test {

using store::Connection;
using store::ErrorKind;
using store::Transaction;

namespace {

class WorkingTable : public testing::Test
{
protected:
    /// Makes the table and fills one row with 0.5, 1.5 and so on.
    void CreateAndFill(const store::WorkingTable& table)
    {
        Transaction transaction(store_);
        table.Create(transaction);
        store::Statement insert = table.Insert(transaction);
        for (int column = 0; column < table.Columns().size(); ++column)
            insert.BindAt(column + 1, column + 0.5);
        EXPECT_EQ(insert.RunBound(), 1);
        transaction.Commit();
    }
    QStringList StoredColumns()
    {
        const store::Statement rows = store_.Query(QStringLiteral("SELECT * FROM TempChartReport"));
        QStringList names;
        for (int column = 0; column < rows.ColumnCount(); ++column)
            names << rows.ColumnName(column);
        return names;
    }

    Connection store_ = Connection::InMemory();
};

TEST_F(WorkingTable, HasItsColumnsInTheOrderInWhichTheyWereNamed)
{
    store::WorkingTable table("TempChartReport");
    table.Text("ExamName", 50).DecimalOfData(QStringLiteral("English")).Whole("StudentCode").Decimal("Total");
    CreateAndFill(table);
    const QStringList expected{QStringLiteral("ExamName"), QStringLiteral("English"),
                               QStringLiteral("StudentCode"), QStringLiteral("Total")};
    EXPECT_EQ(StoredColumns(), expected);
    EXPECT_EQ(table.Columns(), expected);
}

TEST_F(WorkingTable, TakesTheRowsOfAQuery)
{
    store::WorkingTable table("TempChartReport");
    table.Text("ExamName", 50).DecimalOfData(QStringLiteral("1 \"x\""));
    Transaction transaction(store_);
    table.Create(transaction);
    store::Statement insert = table.InsertRowsOf(
        transaction, QStringLiteral("SELECT 'First', ? UNION ALL SELECT 'Second', ? ORDER BY 1"));
    EXPECT_EQ(insert.Run(1.5, 2.5), 2);
    transaction.Commit();
    auto rows = store_.Query(QStringLiteral("SELECT * FROM TempChartReport"));
    ASSERT_TRUE(rows.Next());
    EXPECT_EQ(rows.Text(0).toStdString(), "First");
    EXPECT_EQ(rows.Double(1), 1.5);
    ASSERT_TRUE(rows.Next());
    EXPECT_EQ(rows.Double(1), 2.5);
    EXPECT_FALSE(rows.Next());
}

TEST_F(WorkingTable, TakesAnyTextForTheNameOfAColumn)
{
    const QStringList names{QStringLiteral("Eng"),
                            QStringLiteral("a \"quoted\" name"),
                            QStringLiteral("x\"); DROP TABLE TempChartReport; --"),
                            QStringLiteral("it's"),
                            QStringLiteral("select"),
                            QStringLiteral("?"),
                            QStringLiteral(":Name"),
                            QStringLiteral("100 %1"),
                            QStringLiteral("X - A"),
                            QString::fromUtf8("தமிழ்")};
    store::WorkingTable table("TempChartReport");
    for (const QString& name : names)
        table.DecimalOfData(name);
    CreateAndFill(table);
    EXPECT_EQ(StoredColumns(), names);
    auto row = store_.Query(QStringLiteral("SELECT * FROM TempChartReport"));
    ASSERT_TRUE(row.Next());
    for (int column = 0; column < names.size(); ++column)
        EXPECT_EQ(row.Double(column), column + 0.5);
}

TEST_F(WorkingTable, TellsColumnsOfTheSameNameApart)
{
    store::WorkingTable table("TempChartReport");
    table.Text("ExamName", 50);
    for (const char* name : {"Eng", "ENG", "eng_", "examname", "Total", "", ""})
        table.DecimalOfData(QString::fromLatin1(name));
    table.Decimal("Total");
    CreateAndFill(table);
    EXPECT_EQ(StoredColumns().join(u' ').toStdString(),
              "ExamName Eng ENG_ eng__ examname_ Total_ _ __ Total");
}

TEST_F(WorkingTable, ATextComparesWithoutCaseAndIsNeverTooLong)
{
    store::WorkingTable table("TempChartReport");
    table.Text("Grade", 2).TextOfData(QStringLiteral("Eng"), 2);
    Transaction transaction(store_);
    table.Create(transaction);
    table.Insert(transaction).Run("Distinction", "Absent");
    EXPECT_EQ(store_.Number(QStringLiteral("SELECT count(*) FROM TempChartReport WHERE Grade = 'distinction'"
                                           " AND Eng = 'ABSENT'")),
              1);
}

TEST_F(WorkingTable, ReplacesTheOneThatAnEarlierRunLeft)
{
    store_.Execute(QStringLiteral("CREATE TABLE TempChartReport (Leftover TEXT)"));
    store::WorkingTable table("TempChartReport");
    table.Text("ExamName", 50);
    CreateAndFill(table);
    CreateAndFill(table);
    EXPECT_EQ(store_.Number(QStringLiteral("SELECT count(ExamName) FROM TempChartReport")), 1);
}

TEST_F(WorkingTable, IsNotChangedByAFillThatBreaksOff)
{
    store::WorkingTable old("TempChartReport");
    old.Decimal("Old");
    CreateAndFill(old);
    {
        Transaction transaction(store_);
        store::WorkingTable table("TempChartReport");
        table.Decimal("New").Create(transaction);
    }
    EXPECT_EQ(StoredColumns(), QStringList{QStringLiteral("Old")});
}

TEST_F(WorkingTable, IsGoneAfterItsDropWhichMayBeRepeated)
{
    store::WorkingTable table("TempChartReport");
    CreateAndFill(table.Decimal("Total"));
    for (int time = 0; time < 2; ++time) {
        Transaction transaction(store_);
        store::WorkingTable::Drop(transaction, "TempChartReport");
        transaction.Commit();
        const auto error = ErrorOf([this] { StoredColumns(); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Kind(), ErrorKind::NoSuchTable);
    }
}

} // namespace

} // namespace tally::test
