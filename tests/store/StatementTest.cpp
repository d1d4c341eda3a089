#include "store/Identifier.h"
#include "StoreFiles.h"

namespace tally::test {

using store::Connection;
using store::ErrorKind;
using store::Null;

class Statement : public testing::Test
{
protected:
    Statement()
    {
        store_.Execute(QStringLiteral("CREATE TABLE Thing (Number INTEGER, Name TEXT COLLATE NOCASE)"));
    }

    Connection store_ = Connection::InMemory();
};

TEST_F(Statement, KeepsEveryTextAsItIs)
{
    const QString name = QStringLiteral("O'Brien; DROP TABLE Thing -- \"Łucja\" 100%");
    store_.Execute(QStringLiteral("INSERT INTO Thing VALUES (?, ?)"), 1, name);
    auto rows = store_.Query(QStringLiteral("SELECT Name FROM Thing WHERE Name = ?"), name);
    ASSERT_TRUE(rows.Next());
    EXPECT_EQ(rows.Text(0), name);
}

TEST_F(Statement, KeepsDatesAsIsoTextAndAMissingDateAsNull)
{
    store_.Execute(QStringLiteral("INSERT INTO Thing VALUES (1, ?), (2, ?)"), QDate(2008, 2, 29), QDate());
    auto rows = store_.Query(QStringLiteral("SELECT Name FROM Thing ORDER BY Number"));
    ASSERT_TRUE(rows.Next());
    EXPECT_EQ(rows.Text(0), QLatin1String("2008-02-29"));
    EXPECT_EQ(rows.Date(0), QDate(2008, 2, 29));
    ASSERT_TRUE(rows.Next());
    EXPECT_TRUE(rows.IsNull(0));
    EXPECT_FALSE(rows.Date(0).isValid());
}

TEST_F(Statement, ReadsNullAsZeroAndAsEmptyText)
{
    auto rows = store_.Query(QStringLiteral("SELECT ?"), Null{});
    ASSERT_TRUE(rows.Next());
    EXPECT_TRUE(rows.IsNull(0));
    EXPECT_EQ(rows.Long(0), 0);
    EXPECT_EQ(rows.Text(0), QString());
    EXPECT_EQ(rows.FirstLetter(0), '\0');
}

TEST_F(Statement, AnEmptyTextIsNotNull)
{
    auto rows = store_.Query(QStringLiteral("SELECT ?"), QString());
    ASSERT_TRUE(rows.Next());
    EXPECT_FALSE(rows.IsNull(0));
}

TEST_F(Statement, RunsManyTimesWithNewValues)
{
    auto insert = store_.Prepare(QStringLiteral("INSERT INTO Thing VALUES (?, ?)"));
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ(insert.Run(i, "Desk"), 1);
    EXPECT_EQ(store_.Number(QStringLiteral("SELECT sum(Number) FROM Thing")), 6);
}

TEST_F(Statement, KeepsNoValueOfTheRunBefore)
{
    auto insert = store_.Prepare(QStringLiteral("INSERT INTO Thing VALUES (?, ?)"));
    insert.Run(1, "Desk");
    insert.Run(2, Null{});
    insert.Run(3, "Desk");
    insert.Run(4, QDate());
    insert.Run(5, "Desk");
    insert.Reset();
    insert.BindAt(1, qint64(6));
    insert.BindNullAt(2);
    insert.RunBound();
    EXPECT_EQ(store_.Number(QStringLiteral("SELECT sum(Number) FROM Thing WHERE Name IS NULL")), 2 + 4 + 6);
}

TEST_F(Statement, HalfReadBeginsAnewWithNewValues)
{
    store_.Execute(QStringLiteral("INSERT INTO Thing VALUES (1, 'Desk'), (2, 'Desk'), (3, 'Board')"));
    auto rows =
        store_.Query(QStringLiteral("SELECT Number FROM Thing WHERE Name = ? ORDER BY Number"), "Desk");
    ASSERT_TRUE(rows.Next());
    rows.Bind("Board");
    ASSERT_TRUE(rows.Next());
    EXPECT_EQ(rows.Int(0), 3);
    rows.Bind("Desk");
    ASSERT_TRUE(rows.Next());
    EXPECT_EQ(rows.Int(0), 1);
}

TEST_F(Statement, TakesNamedValuesThatItHasAPlaceFor)
{
    auto insert = store_.Prepare(QStringLiteral("INSERT INTO Thing VALUES (:Number, :Name)"));
    insert.BindNamed(":Number", qint64(7));
    insert.BindNamed(":Name", QStringLiteral("Desk"));
    insert.BindNamed(":Colour", qint64(8));
    insert.BindNamed(":Colour", QStringLiteral("Red"));
    insert.RunBound();
    EXPECT_EQ(store_.Number(QStringLiteral("SELECT count(*) FROM Thing WHERE Number = 7 AND Name = 'Desk'")),
              1);
}

TEST_F(Statement, TellsHowManyRowsItChanged)
{
    store_.Execute(QStringLiteral("INSERT INTO Thing VALUES (1, 'Desk'), (2, 'Desk'), (3, 'Board')"));
    EXPECT_EQ(store_.Execute(QStringLiteral("UPDATE Thing SET Number = 9 WHERE Name = ?"), "DESK"), 2);
    EXPECT_EQ(store_.Execute(QStringLiteral("DELETE FROM Thing WHERE Number = 77")), 0);
}

TEST_F(Statement, NamesItsColumns)
{
    const auto rows = store_.Query(QStringLiteral("SELECT Number, Name AS [Thing Name] FROM Thing"));
    ASSERT_EQ(rows.ColumnCount(), 2);
    EXPECT_EQ(rows.ColumnName(0), QLatin1String("Number"));
    EXPECT_EQ(rows.ColumnName(1), QLatin1String("Thing Name"));
}

TEST_F(Statement, AFailedRunCanBeFollowedByAGoodOne)
{
    store_.Execute(QStringLiteral("CREATE UNIQUE INDEX OneNumber ON Thing (Number)"));
    auto insert = store_.Prepare(QStringLiteral("INSERT INTO Thing VALUES (?, ?)"));
    insert.Run(1, "Desk");
    EXPECT_TRUE(ErrorOf([&] { insert.Run(1, "Board"); }));
    EXPECT_EQ(insert.Run(2, "Board"), 1);
}

TEST_F(Statement, AnErrorNamesTheStatementButNeverItsValues)
{
    store_.Execute(QStringLiteral("CREATE UNIQUE INDEX OneName ON Thing (Name)"));
    const QString insert = QStringLiteral("INSERT INTO Thing VALUES (?, ?)");
    store_.Execute(insert, 1, "secret-word");
    const auto error = ErrorOf([&] { store_.Execute(insert, 1, "secret-word"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Kind(), ErrorKind::GeneralFailure);
    EXPECT_EQ(error->Statement(), insert);
    EXPECT_FALSE(error->Description().contains(QLatin1String("secret-word")));
    EXPECT_FALSE(error->IsLocked());
    EXPECT_EQ(QString::fromUtf8(error->what()), error->Description());
}

TEST_F(Statement, AValueTooManyIsAnErrorOfTheStatement)
{
    const QString query = QStringLiteral("SELECT Name FROM Thing WHERE Number = ?");
    const auto error = ErrorOf([&] { store_.Query(query, 1, 2); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Statement(), query);
}

TEST_F(Statement, AQuotedIdentifierTakesAnyName)
{
    for (const char* name : {"Eng", "order", "A b", "x\"y", "1st", "Total); DROP TABLE Thing; --"}) {
        const QString quoted = store::QuotedIdentifier(QString::fromLatin1(name));
        store_.Execute(QStringLiteral("CREATE TABLE %1 (%1 TEXT)").arg(quoted));
        const auto rows = store_.Query(QStringLiteral("SELECT * FROM %1").arg(quoted));
        EXPECT_EQ(rows.ColumnName(0), QString::fromLatin1(name));
    }
    EXPECT_EQ(store_.Number(QStringLiteral("SELECT count(*) FROM Thing")), 0);
}

} // namespace tally::test
