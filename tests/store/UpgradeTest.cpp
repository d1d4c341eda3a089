#include "store/Upgrade.h"

#include "OldMainFile.h"
#include "store/Tables.h"
#include "support/AsOrdinaryUser.h"
#include "support/EngineWaits.h"
#include "support/FileSizeLimit.h"
#include "support/TestStore.h"

#include <QDir>

#include <optional>
#include <thread>
#include <vector>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace tally::test {

using namespace std::chrono_literals;
using store::Connection;
using store::Transaction;
using store::Upgrade;

namespace {

const QString MainFile = QStringLiteral("Tallyboard.mdb");
const QString CopyName = QStringLiteral("Tallyboard before upgrade 2.mdb");
const QString SecondCopyName = QStringLiteral("Tallyboard before upgrade 2 (2).mdb");

class UpgradeTest : public testing::Test
{
protected:
    Connection Open(const QString& name = MainFile) { return {files.Path(name), Password}; }

    /// What a client reads that can't start.
    QString Refusal()
    {
        Connection main = Open();
        const auto error = ErrorOf([&] { Upgrade(main, 50ms); });
        EXPECT_TRUE(error);
        EXPECT_EQ(main.TransactionDepth(), 0);
        return error ? error->Description() : QString();
    }
    QString CouldNotBe() const
    {
        return QStringLiteral(
                   "The Database File %1 Must Be Upgraded For This Program, And Could Not Be. It Is "
                   "As It Was. ")
            .arg(QDir::toNativeSeparators(files.Path()));
    }
    void ExpectOldAndAlone()
    {
        EXPECT_EQ(files.Bytes(), old);
        EXPECT_EQ(FilesIn(files), QStringList{MainFile});
    }
    void SetVersion(int version)
    {
        Open().Execute(QStringLiteral("PRAGMA user_version = %1").arg(version));
        old = files.Bytes();
    }

    StoreFiles files;
    QByteArray old = MakeOldMainFile(files);
};

TEST_F(UpgradeTest, AnOldFileGetsTheTablesAndIndexesOfOneDeliveredToday)
{
    Connection main = Open();
    ASSERT_EQ(main.SchemaVersion(), 0);
    Upgrade(main);
    Connection delivered = DeliveredMainStore();
    EXPECT_EQ(Definitions(main), Definitions(delivered));
    EXPECT_EQ(main.SchemaVersion(), delivered.SchemaVersion());
    EXPECT_EQ(main.SchemaVersion(), store::MainVersion);
    EXPECT_TRUE(IsWhole(main));
}

TEST_F(UpgradeTest, TheRowsStayAsTheyAre)
{
    const auto rows = [](Connection& main) {
        QStringList all;
        for (const QString& definition : Definitions(main)) {
            if (!definition.contains(QLatin1String(": CREATE TABLE")))
                continue;
            auto row = main.Query(QStringLiteral("SELECT * FROM ") + definition.section(u':', 0, 0));
            while (row.Next())
                for (int column = 0; column < row.ColumnCount(); ++column)
                    all << row.Text(column);
        }
        return all;
    };
    Connection main = Open();
    const QStringList before = rows(main);
    ASSERT_GT(before.size(), 200);
    Upgrade(main);
    EXPECT_EQ(rows(main), before);
}

TEST_F(UpgradeTest, AWholeCopyOfTheOldFileLiesBesideIt)
{
    ASSERT_TRUE(QFile::setPermissions(files.Path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                                        QFile::WriteGroup));
    Connection main = Open();
    Upgrade(main);
    EXPECT_EQ(FilesIn(files), (QStringList{CopyName, MainFile}));
    EXPECT_EQ(files.Bytes(CopyName), old);
    EXPECT_EQ(QFile::permissions(files.Path(CopyName)), QFile::permissions(files.Path()));
    EXPECT_EQ(Open(CopyName).Number(QStringLiteral("SELECT count(*) FROM MarkMaster")), 1);
}

TEST_F(UpgradeTest, AFileThatIsUpToDateCostsOneStatementAndGetsNoCopy)
{
    {
        Connection main = Open();
        Upgrade(main);
    }
    ASSERT_TRUE(QFile::remove(files.Path(CopyName)));
    old = files.Bytes();
    Connection main = Open();
    const auto before = main.StatementsRun();
    Upgrade(main);
    EXPECT_EQ(main.StatementsRun() - before, 1U);
    ExpectOldAndAlone();
}

TEST_F(UpgradeTest, ACopyNeverTakesTheNameOfAFileThatIsThere)
{
    files.Write("ten years of marks", CopyName);
    Connection main = Open();
    Upgrade(main);
    EXPECT_EQ(files.Bytes(CopyName), QByteArray("ten years of marks"));
    EXPECT_EQ(files.Bytes(SecondCopyName), old);
}

TEST_F(UpgradeTest, HalfACopyThatAKilledProgramLeftIsMadeAnew)
{
    files.Write(old.first(5000), QStringLiteral("Tallyboard.mdb.copy"));
    Connection main = Open();
    Upgrade(main);
    EXPECT_EQ(FilesIn(files), (QStringList{CopyName, MainFile}));
    EXPECT_EQ(files.Bytes(CopyName), old);
}

TEST_F(UpgradeTest, AFileOfANewerProgramIsRefusedAndNotTouched)
{
    SetVersion(store::MainVersion + 1);
    EXPECT_EQ(Refusal(),
              QStringLiteral("The Database File %1 Belongs To A Newer Tally Board Than This One, And "
                             "Is Left As It Is. Please Start The Newer Program")
                  .arg(QDir::toNativeSeparators(files.Path())));
    ExpectOldAndAlone();
}

TEST_F(UpgradeTest, AnotherFileOfTheProgramInItsPlaceIsRefusedAndNotTouched)
{
    for (const auto create : {store::CreateTempTables, store::CreateBackupTables, store::CreateHelpTables}) {
        ASSERT_TRUE(QFile::remove(files.Path()));
        {
            Connection other(files.Path(), Password, Connection::Mode::Create);
            Transaction transaction(other);
            create(transaction);
            transaction.Commit();
        }
        old = files.Bytes();
        EXPECT_EQ(Refusal(), CouldNotBe() + QStringLiteral("This Is Not The Main Database Of This Program"));
        ExpectOldAndAlone();
    }
}

TEST_F(UpgradeTest, AnUpgradeThatFailsHalfWayLeavesTheOldFileAndNoCopy)
{
    Open().Execute(QStringLiteral("CREATE INDEX TeacherMarks ON MarkMaster (Mark)"));
    old = files.Bytes();
    EXPECT_EQ(Refusal(), CouldNotBe() + QStringLiteral("index TeacherMarks already exists"));
    ExpectOldAndAlone();
}

TEST_F(UpgradeTest, AFolderInThePlaceOfTheCopySaysSo)
{
    ASSERT_TRUE(QDir().mkdir(files.Path(MainFile + QStringLiteral(".copy"))));
    const QString refusal = Refusal();
    EXPECT_TRUE(refusal.startsWith(CouldNotBe() + QStringLiteral("No Copy Of It Could Be Made Beside It (")))
        << refusal.toStdString();
    EXPECT_EQ(files.Bytes(), old);
}

TEST_F(UpgradeTest, AFileWhoseMarkerCannotBeReadIsRefusedAndNotTouched)
{
    const qint64 page =
        Open().Number(QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = 'MRCODE'")) - 1;
    constexpr int Page = 4096;
    old.replace(page * Page, Page, QByteArray(Page, 'x'));
    files.Write(old);
    const QString refusal = Refusal();
    EXPECT_TRUE(refusal.startsWith(CouldNotBe())) << refusal.toStdString();
    ExpectOldAndAlone();
}

TEST_F(UpgradeTest, ACopyWhoseNamesAreAllTakenSaysSoAndIsCleared)
{
    const auto name = [](int number) {
        return QStringLiteral("Tallyboard before upgrade 2 (%1).mdb").arg(number);
    };
    files.Write("ten years of marks", CopyName);
    for (int number = 2; number <= 98; ++number)
        files.Write("of another year", name(number));
    {
        Connection main = Open();
        Upgrade(main);
    }
    EXPECT_EQ(files.Bytes(name(99)), old) << "the last free name";
    files.Write(old);
    EXPECT_EQ(Refusal(),
              CouldNotBe() + QStringLiteral("No Copy Of It Could Be Made Beside It (its name could "
                                            "not be given)"));
    EXPECT_EQ(files.Bytes(), old);
    EXPECT_EQ(files.Bytes(CopyName), QByteArray("ten years of marks"));
    EXPECT_FALSE(QFile::exists(files.Path(MainFile + QStringLiteral(".copy"))));
}

TEST_F(UpgradeTest, ADiskWithoutRoomForTheCopySaysSo)
{
    Connection main = Open();
    const auto error = ErrorOf([&] {
        const FileSizeLimit full(static_cast<rlim_t>(old.size() / 2));
        Upgrade(main);
    });
    ASSERT_TRUE(error);
    EXPECT_TRUE(
        error->Description().startsWith(CouldNotBe() + QStringLiteral("The Copy Could Not Be Written (")))
        << error->what();
    ExpectOldAndAlone();
    Upgrade(main);
    EXPECT_EQ(main.SchemaVersion(), store::MainVersion) << "with room again it goes";
}

TEST_F(UpgradeTest, ADiskWithRoomForTheCopyButNotForTheIndexesLeavesTheOldFile)
{
    Connection main = Open();
    const QStringList before = Definitions(main);
    const auto error = ErrorOf([&] {
        const FileSizeLimit full(static_cast<rlim_t>(old.size()));
        Upgrade(main);
    });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().startsWith(CouldNotBe())) << error->what();
    EXPECT_EQ(main.SchemaVersion(), 0);
    EXPECT_EQ(Definitions(main), before);
    EXPECT_TRUE(IsWhole(main));
    EXPECT_EQ(FilesIn(files), QStringList{MainFile});
}

TEST_F(UpgradeTest, AClientThatSavesForTooLongIsToldOfAndTheOldFileStays)
{
    Connection other = Open();
    const Transaction holding(other);
    EXPECT_TRUE(
        Refusal().startsWith(QLatin1String("The Data Is In Use By Another Client. Please Try Again")));
    ExpectOldAndAlone();
}

TEST_F(UpgradeTest, AClientWaitsAsLongAsItWasToldTo)
{
    Connection other = Open();
    const Transaction holding(other);
    Connection main = Open();
    const std::size_t before = EngineWaits();
    EXPECT_TRUE(ErrorOf([&main] { Upgrade(main, 0ms); }));
    EXPECT_EQ(EngineWaits(), before);
}

TEST_F(UpgradeTest, AfterwardsAClientWaitsForASaveAsBefore)
{
    Connection main = Open();
    Upgrade(main, 0ms);
    Connection other = Open();
    std::optional<Transaction> saving(other);
    const std::size_t before = EngineWaits();
    std::thread waiting(
        [&main] { EXPECT_FALSE(ErrorOf([&main] { Transaction second(main); }).has_value()); });
    AwaitEngineWait(before);
    saving.reset();
    waiting.join();
}

TEST_F(UpgradeTest, AClientThatWaitedForAnothersUpgradeFindsItDone)
{
    Connection first = Open();
    Connection second = Open();
    Transaction upgrading(first);
    const std::size_t before = EngineWaits();
    std::thread waiting([&second] { Upgrade(second); });
    AwaitEngineWait(before);
    upgrading.Execute(QStringLiteral("DROP INDEX StudentRanks"));
    store::CreateGuardIndexes(upgrading);
    upgrading.Execute(QStringLiteral("PRAGMA user_version = 2"));
    upgrading.Commit();
    waiting.join();
    EXPECT_EQ(FilesIn(files), QStringList{MainFile}) << "the second one copied an upgraded file";
}

TEST_F(UpgradeTest, AClientThatWaitedForANewersUpgradeIsRefused)
{
    Connection first = Open();
    Connection second = Open();
    Transaction upgrading(first);
    std::optional<store::StoreError> error;
    const std::size_t before = EngineWaits();
    std::thread waiting([&] { error = ErrorOf([&second] { Upgrade(second); }); });
    AwaitEngineWait(before);
    upgrading.Execute(QStringLiteral("PRAGMA user_version = 3"));
    upgrading.Commit();
    waiting.join();
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().contains(QLatin1String("Newer Tally Board"))) << error->what();
}

TEST_F(UpgradeTest, OfClientsThatStartAtOnceOneUpgradesAndOneCopyIsMade)
{
    constexpr int Clients = 4;
    for (int round = 0; round < 10; ++round) {
        files.Write(old);
        std::vector<std::thread> clients;
        clients.reserve(Clients);
        for (int client = 0; client < Clients; ++client)
            clients.emplace_back([this] {
                Connection main = Open();
                Upgrade(main);
                EXPECT_EQ(main.SchemaVersion(), store::MainVersion);
            });
        for (std::thread& client : clients)
            client.join();
        EXPECT_EQ(FilesIn(files), (QStringList{CopyName, MainFile}));
        EXPECT_EQ(files.Bytes(CopyName), old);
        ASSERT_TRUE(QFile::remove(files.Path(CopyName)));
    }
}

TEST_F(UpgradeTest, AStoreInMemoryIsUpgradedWithoutACopy)
{
    Connection main = Connection::InMemory();
    {
        Transaction transaction(main);
        LayOldMainFile(transaction);
        transaction.Commit();
    }
    Upgrade(main);
    EXPECT_EQ(main.SchemaVersion(), store::MainVersion);
}

#ifdef Q_OS_UNIX

/// Whether a writer's lock on the file would keep another process away. Within this one the engine counts its
/// locks itself.
bool IsLockedForOthers(const QString& path)
{
    constexpr off_t WritersByte = 0x40000001;
    const pid_t other = fork();
    if (other == 0) {
        struct flock probe = {};
        probe.l_type = F_WRLCK;
        probe.l_whence = SEEK_SET;
        probe.l_start = WritersByte;
        probe.l_len = 1;
        const bool asked = fcntl(open(qPrintable(path), O_RDWR | O_CLOEXEC), F_GETLK, &probe) == 0;
        _exit(asked && probe.l_type != F_UNLCK ? 1 : 0);
    }
    int state = 0;
    EXPECT_EQ(waitpid(other, &state, 0), other);
    return WIFEXITED(state) && WEXITSTATUS(state) == 1;
}

TEST_F(UpgradeTest, MakingACopyKeepsTheLockOnTheFile)
{
    Connection main = Open();
    EXPECT_FALSE(IsLockedForOthers(files.Path()));
    {
        Transaction upgrading(main);
        QFile copy(files.Path(CopyName));
        ASSERT_TRUE(copy.open(QIODevice::WriteOnly));
        main.CopyTo(copy);
        copy.close();
        EXPECT_TRUE(IsLockedForOthers(files.Path()));
    }
    EXPECT_FALSE(IsLockedForOthers(files.Path()));
    EXPECT_EQ(files.Bytes(CopyName), old);
}

TEST_F(UpgradeTest, AReadOnlyFileIsToldOf)
{
    ASSERT_EQ(chmod(qPrintable(files.Folder()), 0777), 0);
    ASSERT_EQ(chmod(qPrintable(files.Path()), 0444), 0);
    {
        const AsOrdinaryUser user;
        const QString refusal = Refusal();
        EXPECT_TRUE(refusal.startsWith(CouldNotBe() + QStringLiteral("The Database Can Only Be Read")))
            << qPrintable(refusal);
    }
    ExpectOldAndAlone();
}

TEST_F(UpgradeTest, AReadOnlyFolderIsToldOf)
{
    ASSERT_EQ(chmod(qPrintable(files.Path()), 0666), 0);
    ASSERT_EQ(chmod(qPrintable(files.Folder()), 0555), 0);
    {
        const AsOrdinaryUser user;
        const QString refusal = Refusal();
        EXPECT_TRUE(
            refusal.startsWith(CouldNotBe() + QStringLiteral("No Copy Of It Could Be Made Beside It (")))
            << qPrintable(refusal);
    }
    ASSERT_EQ(chmod(qPrintable(files.Folder()), 0755), 0);
    ExpectOldAndAlone();
}

#endif

} // namespace

} // namespace tally::test
