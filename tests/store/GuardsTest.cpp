#include "OldMainFile.h"
#include "support/TestStore.h"

#include <QRegularExpression>

#include <set>

namespace tally::test {

using store::Connection;

namespace {

/// The tables that the engine reads from end to end when it deletes one row of `table` by its key.
std::set<QString> TablesReadWhole(Connection& main, const QString& table)
{
    static const QRegularExpression scan(QStringLiteral("^SCAN (?:TABLE )?(\\w+)"));
    QStringList key;
    auto columns = main.Query(QStringLiteral("PRAGMA table_info(%1)").arg(table));
    while (columns.Next())
        if (columns.Int(5) > 0)
            key << columns.Text(1) + QLatin1String(" = 1");
    EXPECT_FALSE(key.isEmpty()) << qPrintable(table);
    std::set<QString> read;
    auto plan = main.Query(QStringLiteral("EXPLAIN QUERY PLAN DELETE FROM %1 WHERE %2")
                               .arg(table, key.join(QLatin1String(" AND "))));
    while (plan.Next()) {
        const auto found = scan.match(plan.Text(plan.ColumnCount() - 1));
        if (found.hasMatch())
            read.insert(found.captured(1));
    }
    return read;
}

/// The tables that rows of others point at.
std::set<QString> Parents(Connection& main)
{
    std::set<QString> parents;
    auto tables = main.Query(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table'"));
    while (tables.Next()) {
        auto keys = main.Query(QStringLiteral("PRAGMA foreign_key_list(%1)").arg(tables.Text(0)));
        while (keys.Next())
            parents.insert(keys.Text(2));
    }
    return parents;
}

} // namespace

TEST(Guards, ADeleteReadsNoTableThatGrowsWithTheSchoolFromEndToEnd)
{
    const std::set<QString> ofOneRow{QStringLiteral("SchoolMaster"), QStringLiteral("SchoolSetUp")};
    Connection main = DeliveredMainStore();
    const std::set<QString> parents = Parents(main);
    EXPECT_EQ(parents.size(), 12U);
    for (const QString& parent : parents)
        for (const QString& read : TablesReadWhole(main, parent))
            EXPECT_TRUE(ofOneRow.contains(read))
                << "a delete in " << qPrintable(parent) << " reads all of " << qPrintable(read);
}

TEST(Guards, WithoutItsIndexesADeleteWouldReadAllMarks)
{
    Connection main = Connection::InMemory();
    {
        store::Transaction transaction(main);
        LayOldMainFile(transaction);
        transaction.Commit();
    }
    EXPECT_TRUE(TablesReadWhole(main, QStringLiteral("ExamMaster")).contains(QStringLiteral("MarkMaster")));
}

TEST(Guards, AListOfAClassDivisionKeepsToTheKeyOfItsTable)
{
    const char* const lists[] = {
        "SELECT StudentCode, Mark FROM MarkMaster WHERE ClassCode = 1 AND DivisionCode = 1 AND "
        "AcademicYearCode = 1 AND ExamCode = 1 AND SubjectCode = 1",
        "SELECT DivisionCode, SubjectCode, count(*) FROM MarkMaster WHERE AcademicYearCode = 1 AND ExamCode "
        "= 1 "
        "AND ClassCode = 1 AND DivisionCode IN (1, 2) GROUP BY DivisionCode, SubjectCode",
        "SELECT SubjectCode, MaximumMark FROM ClassSubjectTeacher WHERE ClassCode = 1 AND DivisionCode = 1 "
        "AND "
        "AcademicYearCode = 1 ORDER BY SlNo",
        "SELECT StudentCode, Rank FROM TempRankTotal WHERE ClassCode = 1 AND DivisionCode = 1 AND "
        "AcademicYearCode = 1 AND ExamCode = 1",
    };
    Connection main = DeliveredMainStore();
    for (const char* list : lists) {
        auto plan = main.Query(QStringLiteral("EXPLAIN QUERY PLAN ") + QLatin1String(list));
        ASSERT_TRUE(plan.Next());
        const QString step = plan.Text(plan.ColumnCount() - 1);
        EXPECT_TRUE(step.contains(QLatin1String("PRIMARY KEY"))) << list << "\n" << qPrintable(step);
    }
}

} // namespace tally::test
