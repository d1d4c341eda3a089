#include "StoreFiles.h"

#include <stdexcept>

namespace tally::test {

using store::Connection;
using store::Transaction;

class Transactions : public testing::Test
{
protected:
    Transactions() { store_.Execute(QStringLiteral("CREATE TABLE Mark (Mark INTEGER UNIQUE)")); }

    static void Insert(Transaction& transaction, int mark)
    {
        transaction.Execute(QStringLiteral("INSERT INTO Mark VALUES (?)"), mark);
    }

    QString Marks()
    {
        QStringList marks;
        auto rows = store_.Query(QStringLiteral("SELECT Mark FROM Mark ORDER BY Mark"));
        while (rows.Next())
            marks << rows.Text(0);
        return marks.join(u' ');
    }

    Connection store_ = Connection::InMemory();
};

TEST_F(Transactions, CommitKeepsTheRows)
{
    Transaction transaction(store_);
    Insert(transaction, 1);
    transaction.Commit();
    EXPECT_EQ(store_.TransactionDepth(), 0);
    EXPECT_EQ(Marks(), QLatin1String("1"));
}

TEST_F(Transactions, LeavingTheScopeRollsBack)
{
    {
        Transaction transaction(store_);
        Insert(transaction, 1);
    }
    EXPECT_EQ(store_.TransactionDepth(), 0);
    EXPECT_EQ(Marks(), QString());
}

TEST_F(Transactions, AnExceptionRollsBackAndPassesThrough)
{
    const auto save = [&] {
        Transaction transaction(store_);
        Insert(transaction, 1);
        throw std::runtime_error("power cut");
    };
    EXPECT_THROW(save(), std::runtime_error);
    EXPECT_EQ(Marks(), QString());
}

TEST_F(Transactions, AFailingStatementLosesTheWholeSave)
{
    const auto error = ErrorOf([&] {
        Transaction transaction(store_);
        Insert(transaction, 1);
        Insert(transaction, 1);
        transaction.Commit();
    });
    EXPECT_TRUE(error);
    EXPECT_EQ(Marks(), QString());
}

TEST_F(Transactions, AnInnerRollbackKeepsTheOuterRows)
{
    Transaction outer(store_);
    Insert(outer, 1);
    {
        Transaction inner(store_);
        Insert(inner, 2);
        EXPECT_EQ(store_.TransactionDepth(), 2);
    }
    Insert(outer, 3);
    outer.Commit();
    EXPECT_EQ(Marks(), QLatin1String("1 3"));
}

TEST_F(Transactions, AnInnerCommitIsLostWithTheOuterRollback)
{
    {
        Transaction outer(store_);
        Transaction inner(store_);
        Insert(inner, 2);
        inner.Commit();
    }
    EXPECT_EQ(Marks(), QString());
}

TEST_F(Transactions, ThreeLevelsUndoOnlyTheMiddleOne)
{
    Transaction outer(store_);
    Insert(outer, 1);
    {
        Transaction middle(store_);
        Insert(middle, 2);
        Transaction inner(store_);
        Insert(inner, 3);
        inner.Commit();
    }
    outer.Commit();
    EXPECT_EQ(Marks(), QLatin1String("1"));
}

TEST_F(Transactions, ANewOneCanFollowARolledBackOne)
{
    {
        Transaction lost(store_);
        Insert(lost, 1);
    }
    Transaction kept(store_);
    Insert(kept, 2);
    kept.Commit();
    EXPECT_EQ(Marks(), QLatin1String("2"));
}

TEST_F(Transactions, RollbackWithoutATransactionDoesNothing)
{
    store_.Rollback();
    store_.Commit();
    EXPECT_EQ(store_.TransactionDepth(), 0);
}

TEST_F(Transactions, RollbackOfWhatTheEngineHasGivenUpItselfDoesNothing)
{
    store_.Execute(QStringLiteral("INSERT INTO Mark VALUES (1)"));
    store_.Begin();
    store_.Begin();
    EXPECT_TRUE(
        ErrorOf([this] { store_.Execute(QStringLiteral("INSERT OR ROLLBACK INTO Mark VALUES (1)")); }));
    EXPECT_FALSE(ErrorOf([this] {
        store_.Rollback();
        store_.Rollback();
    }));
    EXPECT_EQ(store_.TransactionDepth(), 0);
}

class TwoClients : public testing::Test
{
protected:
    void SetUp() override { other_.SetPatience(std::chrono::milliseconds(0)); }

    static void Add(Connection& connection, const char* name)
    {
        connection.Execute(QStringLiteral("INSERT INTO NameList VALUES (?)"), name);
    }

    static qint64 Names(Connection& connection)
    {
        return connection.Number(QStringLiteral("SELECT count(*) FROM NameList"));
    }

    StoreFiles files_;
    Connection own_ = files_.MakeNameList();
    Connection other_{files_.Path(), Password};
};

TEST_F(TwoClients, OwnWritesAreNoChangesByOthers)
{
    const qint64 before = own_.ChangesByOthers();
    Add(own_, "Binu");
    {
        Transaction transaction(own_);
        Add(own_, "Cara");
        EXPECT_EQ(own_.ChangesByOthers(), before);
        transaction.Commit();
    }
    EXPECT_EQ(own_.ChangesByOthers(), before);
    EXPECT_EQ(Names(other_), 3);
    EXPECT_EQ(own_.ChangesByOthers(), before) << "the other one has only read";
}

TEST_F(TwoClients, WhatAnotherStoresIsAChangeAndItsUnfinishedWorkIsNone)
{
    const qint64 before = own_.ChangesByOthers();
    {
        Transaction transaction(other_);
        Add(other_, "Binu");
        EXPECT_EQ(own_.ChangesByOthers(), before);
    }
    EXPECT_EQ(own_.ChangesByOthers(), before);
    Add(other_, "Binu");
    const qint64 after = own_.ChangesByOthers();
    EXPECT_NE(after, before);
    Add(own_, "Cara");
    EXPECT_EQ(own_.ChangesByOthers(), after);
    other_.Execute(QStringLiteral("CREATE TABLE Further (Name TEXT)"));
    EXPECT_NE(own_.ChangesByOthers(), after);
}

TEST_F(TwoClients, AReadTransactionSeesOneMomentAndLetsOthersWriteUpToTheirCommit)
{
    {
        const store::ReadTransaction reading(own_);
        const qint64 before = own_.ChangesByOthers();
        EXPECT_EQ(Names(own_), 1);
        Transaction transaction(other_);
        Add(other_, "Binu");
        const auto error = ErrorOf([&] { transaction.Commit(); });
        ASSERT_TRUE(error);
        EXPECT_TRUE(error->IsLocked());
        EXPECT_EQ(Names(own_), 1);
        EXPECT_EQ(own_.ChangesByOthers(), before);
    }
    EXPECT_EQ(own_.TransactionDepth(), 0);
    Add(other_, "Binu");
    EXPECT_EQ(Names(own_), 2);
}

TEST_F(TwoClients, AReadTransactionWithinAnotherCostsNothingAndEndsWithTheOuterOne)
{
    {
        const store::ReadTransaction outer(own_);
        EXPECT_EQ(Names(own_), 1);
        const auto before = own_.StatementsRun();
        {
            const store::ReadTransaction inner(own_);
        }
        EXPECT_EQ(own_.StatementsRun(), before);
        EXPECT_TRUE(ErrorOf([&] { Add(other_, "Binu"); })) << "the moment is held on to";
        EXPECT_EQ(Names(own_), 1);
    }
    EXPECT_EQ(own_.TransactionDepth(), 0);
    Add(other_, "Binu");
    EXPECT_EQ(Names(own_), 2);
}

TEST_F(TwoClients, AStatementThatHasMetALockDoesNotStandInTheWayOfTheNextSave)
{
    store::Statement insert = other_.Prepare(QStringLiteral("INSERT INTO NameList VALUES ('Binu')"));
    {
        const Transaction saving(own_);
        const auto error = ErrorOf([&insert] { insert.Run(); });
        ASSERT_TRUE(error);
        EXPECT_TRUE(error->IsLocked());
    }
    Transaction next(other_);
    Add(other_, "Cara");
    EXPECT_FALSE(ErrorOf([&next] { next.Commit(); }));
    EXPECT_EQ(Names(own_), 2);
}

TEST_F(TwoClients, AReadTransactionWithinAWritingOneLeavesItsRowsAlone)
{
    Transaction transaction(own_);
    Add(own_, "Binu");
    {
        const store::ReadTransaction reading(own_);
        EXPECT_EQ(Names(own_), 2);
    }
    transaction.Commit();
    EXPECT_EQ(Names(other_), 2);
}

TEST(Transaction, WithoutOneThereIsNothingToCommitOrToRollBack)
{
    Connection connection = Connection::InMemory();
    connection.Commit();
    EXPECT_EQ(connection.TransactionDepth(), 0);
    connection.Rollback();
    EXPECT_EQ(connection.TransactionDepth(), 0);
}

} // namespace tally::test
