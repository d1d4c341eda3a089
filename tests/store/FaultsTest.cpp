#include "StoreFiles.h"
#include "support/AsOrdinaryUser.h"
#include "support/EngineWaits.h"
#include "support/StoreWords.h"

#include <chrono>
#include <optional>
#include <thread>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace tally::test {

using namespace std::chrono_literals;
using store::Connection;
using store::ErrorKind;
using store::Transaction;

namespace {

void AddName(Connection& connection, const QString& name)
{
    Transaction transaction(connection);
    transaction.Execute(QStringLiteral("INSERT INTO NameList VALUES (?)"), name);
    transaction.Commit();
}

qint64 Names(Connection& connection)
{
    return connection.Number(QStringLiteral("SELECT count(*) FROM NameList"));
}

bool IsWhole(Connection& connection)
{
    auto check = connection.Query(QStringLiteral("PRAGMA integrity_check"));
    return check.Next() && check.Text(0) == QLatin1String("ok");
}

} // namespace

TEST(Faults, AFullDiskSaysSoAndKeepsTheOldRows)
{
    const StoreFiles files;
    {
        Connection connection = files.MakeNameList();
        connection.Execute(QStringLiteral("PRAGMA max_page_count = 4"));
        const auto error = ErrorOf([&] {
            Transaction transaction(connection);
            for (int i = 0; i < 50; ++i)
                transaction.Execute(QStringLiteral("INSERT INTO NameList VALUES (?)"), QString(1000, u'x'));
            transaction.Commit();
        });
        ASSERT_TRUE(error);
        EXPECT_TRUE(error->Description().startsWith(QLatin1String("The Disk Is Full. This Was Not Saved")))
            << error->what();
        EXPECT_EQ(error->Kind(), ErrorKind::Other);
        EXPECT_EQ(connection.TransactionDepth(), 0);
        EXPECT_EQ(Names(connection), 1);
        AddName(connection, QStringLiteral("Balu"));
    }
    Connection reopened(files.Path(), Password);
    EXPECT_TRUE(IsWhole(reopened));
    EXPECT_EQ(Names(reopened), 2);
}

TEST(Faults, ASecondWriterGivesUpAfterItsPatienceWithALockError)
{
    const StoreFiles files;
    Connection first = files.MakeNameList();
    Connection second(files.Path(), Password);
    second.SetPatience(60ms);
    const Transaction holding(first);
    const std::size_t before = EngineWaits();
    const auto error = ErrorOf([&] { AddName(second, QStringLiteral("Balu")); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->IsLocked());
    EXPECT_EQ(error->Kind(), ErrorKind::GeneralFailure);
    EXPECT_TRUE(error->Description().startsWith(QLatin1String("The Data Is In Use By Another Client")))
        << error->what();
    EXPECT_GT(EngineWaits(), before);
    EXPECT_EQ(second.TransactionDepth(), 0);
}

TEST(Faults, ASecondWriterQueuesBehindAShortSave)
{
    const StoreFiles files;
    Connection first = files.MakeNameList();
    Connection second(files.Path(), Password);
    std::optional<Transaction> saving(first);
    const std::size_t before = EngineWaits();
    std::thread other([&] { AddName(second, QStringLiteral("Balu")); });
    AwaitEngineWait(before);
    saving->Execute(QStringLiteral("INSERT INTO NameList VALUES ('Chitra')"));
    saving->Commit();
    other.join();
    EXPECT_EQ(Names(first), 3);
}

TEST(Faults, AReaderSeesOnlyWhatWasCommitted)
{
    const StoreFiles files;
    Connection first = files.MakeNameList();
    Connection second(files.Path(), Password);
    Transaction transaction(first);
    transaction.Execute(QStringLiteral("INSERT INTO NameList VALUES ('Balu')"));
    EXPECT_EQ(Names(second), 1);
    transaction.Commit();
    EXPECT_EQ(Names(second), 2);
}

#ifdef Q_OS_UNIX

TEST(Faults, AReadOnlyFileCanBeReadAndRefusesASaveInPlainWords)
{
    const StoreFiles files;
    files.MakeNameList();
    const QByteArray before = files.Bytes();
    ASSERT_EQ(chmod(qPrintable(files.Folder()), 0755), 0);
    ASSERT_EQ(chmod(qPrintable(files.Path()), 0444), 0);
    {
        const AsOrdinaryUser user;
        Connection connection(files.Path(), Password);
        EXPECT_EQ(Names(connection), 1);
        const auto error = ErrorOf([&] { AddName(connection, QStringLiteral("Balu")); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Description(), OnlyReadable);
        EXPECT_EQ(Names(connection), 1);
    }
    EXPECT_EQ(files.Bytes(), before);
}

TEST(Faults, AReadOnlyFolderCanBeReadAndRefusesASave)
{
    const StoreFiles files;
    files.MakeNameList();
    const QByteArray before = files.Bytes();
    ASSERT_EQ(chmod(qPrintable(files.Path()), 0666), 0);
    ASSERT_EQ(chmod(qPrintable(files.Folder()), 0555), 0);
    {
        const AsOrdinaryUser user;
        Connection connection(files.Path(), Password);
        EXPECT_EQ(Names(connection), 1);
        const auto error = ErrorOf([&] { AddName(connection, QStringLiteral("Balu")); });
        ASSERT_TRUE(error);
        EXPECT_TRUE(error->Description().startsWith(QLatin1String("The Database"))) << error->what();
        // Some engines say no more than that a file could not be opened, and the office would look at the
        // file.
        EXPECT_TRUE(error->Description().contains(QLatin1String("Can Only Be Read"))) << error->what();
        EXPECT_EQ(connection.TransactionDepth(), 0);
        EXPECT_EQ(Names(connection), 1);
    }
    ASSERT_EQ(chmod(qPrintable(files.Folder()), 0755), 0);
    EXPECT_EQ(files.Bytes(), before);
}

TEST(Faults, AFileThatMayNotBeReadIsReported)
{
    const StoreFiles files;
    files.MakeNameList();
    ASSERT_EQ(chmod(qPrintable(files.Folder()), 0755), 0);
    ASSERT_EQ(chmod(qPrintable(files.Path()), 0), 0);
    const AsOrdinaryUser user;
    const auto error = ErrorOf([&] { Connection(files.Path(), Password); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().contains(QLatin1String("Could Not Be Opened"))) << error->what();
    EXPECT_TRUE(error->Description().startsWith(QDir::toNativeSeparators(files.Path()) + QLatin1Char(':')))
        << "with four files in the folder, the office must learn which one: " << error->what();
}

#endif

} // namespace tally::test
