#include "store/Restore.h"

#include "NoRoom.h"
#include "OldMainFile.h"
#include "SchoolFile.h"
#include "store/Backup.h"
#include "store/OwnFiles.h"
#include "support/EngineWaits.h"
#include "support/FileSizeLimit.h"

#include <QFileInfo>

namespace tally::test {
namespace {

using store::Connection;

class RestoreTest : public testing::Test
{
protected:
    RestoreTest()
    {
        LaySchoolFile(files.Path(), 3);
        LaySchoolFile(Source(), 40);
    }

    QString Source() const { return files.Path(QStringLiteral("Source.mdb")); }
    QString Restore(const QDateTime& now = QDateTime(QDate(2026, 11, 22), QTime(14, 5))) const
    {
        store::Restore restore(Source(), Password);
        Connection main(files.Path(), Password);
        return restore.PourInto(main, now);
    }
    /// How many unfinished files lie beside the school's at most while it is restored.
    qsizetype CopiesDuring(const QString& source) const
    {
        store::Restore restore(source, Password);
        Connection main(files.Path(), Password);
        qsizetype copies = 0;
        restore.PourInto(main, QDateTime::currentDateTime(), [&](qint64, qint64) {
            copies = std::max(copies, NamesIn(files.Folder()).filter(QStringLiteral(".part")).size());
            return true;
        });
        return copies;
    }
    std::string Refusal() const
    {
        const auto error = ErrorOf([this] { Restore(); });
        return error ? error->Description().toStdString() : "";
    }
    /// Nothing was restored, and nothing lies beside the file that did not lie there before.
    void ExpectAsBefore() const
    {
        EXPECT_EQ(StatesIn(files.Path()), 3);
        EXPECT_EQ(store::KeptBeforeRestore(files.Path()), QStringList());
        for (const QString& name : NamesIn(files.Folder()))
            EXPECT_FALSE(name.contains(QLatin1String(".part"))) << name.toStdString();
    }

    StoreFiles files;
};

TEST_F(RestoreTest, TheFileHoldsWhatTheSourceHoldsAndTheSourceStays)
{
    const QByteArray source = files.Bytes(QStringLiteral("Source.mdb"));
    Restore();
    EXPECT_EQ(StatesIn(files.Path()), 40);
    EXPECT_EQ(files.Bytes(QStringLiteral("Source.mdb")), source);
}

TEST_F(RestoreTest, ASmallerSourceLeavesNothingOfTheLargerSchool)
{
    {
        Connection main(files.Path(), Password);
        store::Transaction transaction(main);
        for (int code = 100; code < 5000; ++code)
            AddState(main, code, QStringLiteral("State %1").arg(code));
        transaction.Commit();
    }
    const qint64 before = QFileInfo(files.Path()).size();
    Restore();
    EXPECT_EQ(StatesIn(files.Path()), 40);
    EXPECT_LT(QFileInfo(files.Path()).size(), before);
}

TEST_F(RestoreTest, WhatWasThereLiesBesideItUntilTheNextRestore)
{
    const QByteArray before = files.Bytes();
    const QString first = Restore();
    EXPECT_EQ(QFileInfo(first).fileName().toStdString(), "Tallyboard before restore 2026-11-22 14.05.mdb");
    EXPECT_EQ(files.Bytes(QFileInfo(first).fileName()), before);
    const QString second = Restore(QDateTime(QDate(2026, 11, 23), QTime(9, 0)));
    EXPECT_EQ(store::KeptBeforeRestore(files.Path()), QStringList{second});
    EXPECT_EQ(StatesIn(second), 40);
}

TEST_F(RestoreTest, TwoRestoresOfOneMinuteKeepTheLaterOnesSchool)
{
    Restore();
    {
        Connection main(files.Path(), Password);
        AddState(main, 50, QStringLiteral("Kerala"));
    }
    const QString second = Restore();
    EXPECT_EQ(store::KeptBeforeRestore(files.Path()), QStringList{second});
    EXPECT_EQ(StatesIn(second), 41);
}

TEST_F(RestoreTest, ClientsThatHaveTheFileOpenGoOnInTheRestoredSchool)
{
    Connection other(files.Path(), Password);
    EXPECT_EQ(States(other), 3);
    store::Statement prepared = other.Prepare(QStringLiteral("SELECT count(*) FROM StateMaster"));
    Restore();
    EXPECT_EQ(States(other), 40);
    ASSERT_TRUE(prepared.Next());
    EXPECT_EQ(prepared.Int(0), 41);
    prepared.Reset();
    AddState(other, 99, QStringLiteral("Goa"));
    EXPECT_EQ(StatesIn(files.Path()), 41);
}

TEST_F(RestoreTest, AnotherClientNoticesThatTheFileHasChanged)
{
    Connection other(files.Path(), Password);
    const qint64 before = other.ChangesByOthers();
    Restore();
    EXPECT_NE(other.ChangesByOthers(), before);
}

TEST_F(RestoreTest, AnotherClientsSaveThatIsUnderWayKeepsTheRestoreOut)
{
    Connection other(files.Path(), Password);
    store::Transaction underWay(other);
    AddState(other, 99, QStringLiteral("Goa"));
    store::Restore restore(Source(), Password);
    Connection main(files.Path(), Password);
    main.SetPatience(std::chrono::milliseconds(20));
    const auto error = ErrorOf([&] { restore.PourInto(main, QDateTime::currentDateTime()); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->IsLocked());
    underWay.Commit();
    EXPECT_EQ(StatesIn(files.Path()), 4);
    EXPECT_EQ(store::KeptBeforeRestore(files.Path()), QStringList());
}

TEST_F(RestoreTest, ThatIsCancelledAtAnyWordLeavesTheOldSchool)
{
    const QByteArray before = files.Bytes();
    const auto restoreWith = [this](const store::Progress& progress) {
        store::Restore restore(Source(), Password);
        Connection main(files.Path(), Password);
        restore.PourInto(main, QDateTime::currentDateTime(), progress);
    };
    int words = 0;
    restoreWith([&](qint64, qint64) { return ++words > 0; });
    ASSERT_GT(words, 0);
    for (const QString& kept : store::KeptBeforeRestore(files.Path()))
        QFile::remove(kept);
    files.Write(before);
    for (int allowed = 0; allowed < words; ++allowed) {
        int heard = 0;
        EXPECT_THROW(restoreWith([&](qint64, qint64) { return heard++ != allowed; }), store::Cancelled);
        ExpectAsBefore();
    }
}

TEST_F(RestoreTest, OnAFullDiskLeavesTheOldSchool)
{
    store::Restore restore(Source(), Password);
    Connection main(files.Path(), Password);
    {
        const FileSizeLimit full(8192);
        const auto error = ErrorOf([&] { restore.PourInto(main, QDateTime::currentDateTime()); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Description().toStdString(), "The Copy Could Not Be Written (File too large)");
    }
    ExpectAsBefore();
}

TEST_F(RestoreTest, AFailedRestoreLeavesWhatAnEarlierOneHasKept)
{
    const QString kept = Restore();
    store::Restore restore(Source(), Password);
    Connection main(files.Path(), Password);
    {
        const FileSizeLimit full(8192);
        EXPECT_TRUE(ErrorOf([&] { restore.PourInto(main, QDateTime(QDate(2026, 11, 23), QTime(9, 0))); }));
    }
    EXPECT_EQ(store::KeptBeforeRestore(files.Path()), QStringList{kept});
}

TEST_F(RestoreTest, AFileOfAnOlderProgramIsUpgradedOnItsWayAndStaysItself)
{
    LayOldSchoolFile(Source());
    const QByteArray source = files.Bytes(QStringLiteral("Source.mdb"));
    const QStringList before = NamesIn(files.Folder());
    Restore();
    Connection main(files.Path(), Password);
    EXPECT_EQ(main.SchemaVersion(), store::MainVersion);
    EXPECT_EQ(OldMarksIn(files.Path()), 1);
    EXPECT_EQ(files.Bytes(QStringLiteral("Source.mdb")), source);
    EXPECT_EQ(NamesIn(files.Folder()).size(), before.size() + 1);
}

TEST_F(RestoreTest, AFileOfANewerProgramIsRefused)
{
    {
        Connection newer(Source(), Password);
        newer.Execute(QStringLiteral("PRAGMA user_version = 999"));
    }
    EXPECT_NE(Refusal().find("Newer"), std::string::npos);
    ExpectAsBefore();
}

TEST_F(RestoreTest, AFileWithoutTheMarkerIsRefused)
{
    {
        Connection foreign(Source(), Password);
        EXPECT_TRUE(store::IsMainFile(foreign));
        foreign.Execute(QStringLiteral("DROP TABLE MRCODE"));
        EXPECT_FALSE(store::IsMainFile(foreign));
    }
    EXPECT_EQ(Refusal(), "The Source File Is Not A 'KITE-Tally Board' Database File. Select Correct File");
    ExpectAsBefore();
}

TEST_F(RestoreTest, AFileThatLacksATableOrAColumnIsRefused)
{
    {
        Connection poor(Source(), Password);
        poor.Execute(QStringLiteral("ALTER TABLE TransactionMaster RENAME TO Away"));
    }
    EXPECT_EQ(Refusal(), "The Source File Is Not Complete. It Lacks TransactionCode Of TransactionMaster");
    {
        Connection poor(Source(), Password);
        poor.Execute(QStringLiteral("CREATE TABLE TransactionMaster (TransactionCode INTEGER)"));
    }
    EXPECT_EQ(Refusal(), "The Source File Is Not Complete. It Lacks TransactionDate Of TransactionMaster");
    ExpectAsBefore();
}

TEST_F(RestoreTest, AFileWithAnotherPasswordOrNoneIsRefused)
{
    ASSERT_TRUE(QFile::remove(Source()));
    Connection(Source(), QStringLiteral("another one"), Connection::Mode::Create)
        .Execute(QStringLiteral("CREATE TABLE MRCODE (MRCODE TEXT)"));
    EXPECT_NE(Refusal(), "");
    ASSERT_TRUE(QFile::remove(Source()));
    Connection(Source(), QString(), Connection::Mode::Create)
        .Execute(QStringLiteral("CREATE TABLE MRCODE (MRCODE TEXT)"));
    EXPECT_NE(Refusal(), "");
    files.Write(QByteArray("no database at all"), QStringLiteral("Source.mdb"));
    EXPECT_NE(Refusal(), "");
    files.Write(QByteArray(), QStringLiteral("Source.mdb"));
    EXPECT_NE(Refusal(), "");
    ExpectAsBefore();
}

TEST_F(RestoreTest, ADamagedPageAnywhereIsRefused)
{
    const QByteArray whole = files.Bytes(QStringLiteral("Source.mdb"));
    for (qsizetype page = 0; page < whole.size() / 4096; page += 7) {
        QByteArray damaged = whole;
        const qsizetype at = page * 4096 + 1234;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
        files.Write(damaged, QStringLiteral("Source.mdb"));
        EXPECT_NE(Refusal(), "") << page;
    }
    ExpectAsBefore();
}

TEST_F(RestoreTest, AFileWhoseIndexLacksARowIsRefused)
{
    const std::string damaged = "The Database File Is Damaged (row ";
    store::Restore restore(Source(), Password);
    SpoilIndex(Source());
    EXPECT_EQ(Refusal().substr(0, damaged.size()), damaged);
    Connection main(files.Path(), Password);
    const auto error = ErrorOf([&] { restore.PourInto(main, QDateTime::currentDateTime()); });
    ASSERT_TRUE(error) << "it was spoilt behind its proof";
    EXPECT_EQ(error->Description().toStdString().substr(0, damaged.size()), damaged);
    ExpectAsBefore();
}

TEST_F(RestoreTest, ACutFileIsRefused)
{
    const QByteArray whole = files.Bytes(QStringLiteral("Source.mdb"));
    for (qsizetype size = 1000; size < whole.size(); size += 9 * 4096 + 500) {
        files.Write(whole.left(size), QStringLiteral("Source.mdb"));
        EXPECT_NE(Refusal(), "") << size;
    }
    ExpectAsBefore();
}

TEST_F(RestoreTest, AFileOfTwoMomentsIsRefused)
{
    const QByteArray before = files.Bytes(QStringLiteral("Source.mdb"));
    {
        Connection source(Source(), Password);
        store::Transaction transaction(source);
        for (int code = 100; code < 400; ++code) {
            source.Execute(QStringLiteral("INSERT INTO CityMaster (CityCode, StateCode, CityName, UserCode)"
                                          " VALUES (?, 1, ?, 1)"),
                           code, QStringLiteral("City %1").arg(code));
        }
        transaction.Commit();
    }
    const QByteArray behind = files.Bytes(QStringLiteral("Source.mdb"));
    ASSERT_GT(behind.size(), before.size());
    // The end of the one, the beginning of the other, as a plain copy under way gives them.
    files.Write(before.left(4096) + behind.mid(4096), QStringLiteral("Source.mdb"));
    EXPECT_NE(Refusal(), "");
    ExpectAsBefore();
}

TEST_F(RestoreTest, ASourceThatChangesBehindItsProofIsProvedAnew)
{
    store::Restore restore(Source(), Password);
    {
        Connection another(Source(), Password);
        another.Execute(QStringLiteral("DROP TABLE FeesSetup"));
    }
    Connection main(files.Path(), Password);
    EXPECT_TRUE(ErrorOf([&] { restore.PourInto(main, QDateTime::currentDateTime()); }));
    ExpectAsBefore();
}

TEST_F(RestoreTest, ASourceThatIsStillTheSameIsNotProvedAgain)
{
    for (const bool older : {false, true}) {
        if (older)
            LayOldSchoolFile(Source());
        {
            Connection source(Source(), Password);
            AddLongTable(source);
        }
        int proving = 0;
        // Nobody knows how long a proof takes.
        const auto count = [&proving](qint64, qint64 total) {
            proving += total == 0 ? 1 : 0;
            return true;
        };
        store::Restore restore(Source(), Password, count);
        EXPECT_GT(proving, 0) << older;
        proving = 0;
        Connection main(files.Path(), Password);
        restore.PourInto(main, QDateTime::currentDateTime(), count);
        EXPECT_EQ(proving, 0) << older;
    }
}

TEST_F(RestoreTest, OnlyAFileOfAnOlderProgramNeedsAFolderForItsCopy)
{
    const WorkFolder work(files);
    ASSERT_TRUE(QDir(files.Path(QStringLiteral("Work"))).removeRecursively());
    files.Write(QByteArray("no folder"), QStringLiteral("Work"));
    Restore();
    EXPECT_EQ(StatesIn(files.Path()), 40);
    LayOldSchoolFile(Source());
    const QString refusal = QString::fromStdString(Refusal());
    EXPECT_TRUE(refusal.startsWith(QLatin1String("The Copy Could Not Be Written (")) &&
                refusal.endsWith(u')'))
        << refusal.toStdString();
}

TEST_F(RestoreTest, AFileOnTheSameDiskIsPouredWithoutACopy)
{
    EXPECT_EQ(CopiesDuring(Source()), 1) << "of the school that is replaced";
}

TEST_F(RestoreTest, WhatIsKeptStaysWhereTheFileCannotBeReadBehindAFailure)
{
    {
        Connection source(Source(), Password);
        AddBallast(source);
    }
    store::Restore restore(Source(), Password);
    Connection main(files.Path(), Password);
    const auto breakDisk = [this](qint64, qint64) {
        if (store::KeptBeforeRestore(files.Path()).isEmpty())
            return true;
        QFile file(files.Path());
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        EXPECT_EQ(file.write(QByteArray(4096, 'x')), 4096);
        return false;
    };
    EXPECT_TRUE(ErrorOf([&] { restore.PourInto(main, QDateTime::currentDateTime(), breakDisk); }));
    const QStringList kept = store::KeptBeforeRestore(files.Path());
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(StatesIn(kept.first()), 3);
}

TEST_F(RestoreTest, ALinkUnderTheNameOfAKeptFileIsSomebodysOwn)
{
    const QString link = files.Path(QStringLiteral("Tallyboard before restore 2026-11-21 09.30.mdb"));
    ASSERT_TRUE(QFile::link(Source(), link));
    EXPECT_EQ(store::KeptBeforeRestore(files.Path()), QStringList());
    Restore();
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

TEST_F(RestoreTest, AClientInTheWayIsWaitedForOnce)
{
    const BriefWaits soon;
    store::Restore restore(Source(), Password);
    Connection main(files.Path(), Password);
    Connection other(files.Path(), Password);
    other.Execute(QStringLiteral("BEGIN EXCLUSIVE"));
    const auto waits = [](const std::function<void()>& work) {
        const std::size_t before = EngineWaits();
        const auto error = ErrorOf(work);
        EXPECT_TRUE(error && error->IsLocked());
        return EngineWaits() - before;
    };
    const auto ofRestore = waits([&] { restore.PourInto(main, QDateTime::currentDateTime()); });
    EXPECT_GT(ofRestore, 0U);
    EXPECT_EQ(ofRestore, waits([&] { const store::Transaction saving(main); }));
}

TEST_F(RestoreTest, AFileThatAnEarlierOneHasKeptIsRestoredAndStays)
{
    const QString kept = Restore();
    const QString again = QString(kept).replace(QLatin1String("/Tally"), QLatin1String("/./Tally"));
    ASSERT_NE(again, kept);
    store::Restore restore(again, Password);
    Connection main(files.Path(), Password);
    const QString second = restore.PourInto(main, QDateTime(QDate(2026, 11, 23), QTime(9, 0)));
    EXPECT_EQ(StatesIn(files.Path()), 3);
    EXPECT_EQ(store::KeptBeforeRestore(files.Path()), (QStringList{kept, second}));
    EXPECT_EQ(StatesIn(kept), 3);
    EXPECT_EQ(StatesIn(second), 40);
}

QStringList OpenScreensIn(Connection& main)
{
    QStringList screens;
    auto rows = main.Query(QStringLiteral("SELECT Screen FROM ScreenStatus ORDER BY Screen"));
    while (rows.Next())
        screens.append(rows.Text(0));
    return screens;
}

TEST_F(RestoreTest, ClientsHaveOpenTheScreensOfNowAndNotThoseOfTheBackup)
{
    const auto open = [](Connection& main, const char* screen) {
        main.Execute(QStringLiteral("INSERT INTO ScreenStatus (Screen) VALUES (?)"),
                     QString::fromLatin1(screen));
    };
    Connection other(files.Path(), Password);
    open(other, "frmBoth");
    open(other, "frmNow");
    {
        Connection source(Source(), Password);
        open(source, "frmBoth");
        open(source, "frmThen");
    }
    Restore();
    EXPECT_EQ(OpenScreensIn(other), (QStringList{QStringLiteral("frmBoth"), QStringLiteral("frmNow")}));
}

TEST_F(RestoreTest, AnUpgradeThatFailsTellsOfTheFileThatWasChosen)
{
    LayOldSchoolFile(Source());
    {
        Connection old(Source(), Password);
        old.Execute(QStringLiteral("DROP INDEX StudentRanks"));
    }
    const std::string told = Refusal();
    EXPECT_NE(told.find(Source().toStdString() + " Must Be Upgraded"), std::string::npos) << told;
    EXPECT_EQ(told.find("Restore.mdb"), std::string::npos) << told;
    ExpectAsBefore();
}

TEST_F(RestoreTest, WhatWasProvedIsOneMoment)
{
    // Somebody spoils the source while it is proved, as soon as that lets him.
    Connection another(Source(), Password);
    another.SetPatience(std::chrono::milliseconds(0));
    bool spoilt = false;
    store::Restore restore(Source(), Password, [&](qint64, qint64) {
        spoilt = spoilt || !ErrorOf([&] { another.Execute(QStringLiteral("DROP TABLE FeesSetup")); });
        return true;
    });
    EXPECT_FALSE(spoilt);
    another.Execute(QStringLiteral("DROP TABLE FeesSetup"));
    Connection main(files.Path(), Password);
    EXPECT_TRUE(ErrorOf([&] { restore.PourInto(main, QDateTime::currentDateTime()); }));
    ExpectAsBefore();
}

/// A restore of a file on another disk than the school's.
class RestoreFromElsewhere : public RestoreTest
{
protected:
    void SetUp() override
    {
        if (!stick.isValid() || store::AreOnOneDisk(stick.path(), files.Folder()))
            GTEST_SKIP() << "this machine has one disk only";
        ASSERT_TRUE(QFile::copy(Source(), OnStick()));
    }
    QString OnStick() const { return stick.filePath(QStringLiteral("Source.mdb")); }

    QTemporaryDir stick{QStringLiteral("/dev/shm/restore-XXXXXX")};
};

TEST_F(RestoreFromElsewhere, ThatIsCancelledAtAnyWordLeavesTheOldSchool)
{
    store::Restore restore(OnStick(), Password);
    for (int allowed = 0; allowed < 2; ++allowed) {
        Connection main(files.Path(), Password);
        int heard = 0;
        EXPECT_THROW(restore.PourInto(main, QDateTime::currentDateTime(),
                                      [&](qint64, qint64) { return heard++ != allowed; }),
                     store::Cancelled);
        ExpectAsBefore();
    }
}

TEST_F(RestoreFromElsewhere, IsPouredFromThereWhereTheOwnDiskHasNoRoomForACopy)
{
    {
        const NoRoom full;
        EXPECT_EQ(CopiesDuring(OnStick()), 1) << "of the school that is replaced";
    }
    EXPECT_EQ(StatesIn(files.Path()), 40);
}

TEST_F(RestoreFromElsewhere, KeepsOthersWaitingForTheOwnDiskOnly)
{
    store::Restore restore(OnStick(), Password);
    Connection main(files.Path(), Password);
    Connection other(files.Path(), Password);
    other.SetPatience(std::chrono::milliseconds(0));
    int free = 0;
    int copied = 0;
    restore.PourInto(main, QDateTime::currentDateTime(), [&](qint64, qint64) {
        ++copied;
        free += ErrorOf([&] { States(other); }) ? 0 : 1;
        return true;
    });
    EXPECT_GT(free, 0);
    EXPECT_GT(copied, free);
    EXPECT_EQ(States(other), 40);
    EXPECT_EQ(NamesIn(stick.path()), QStringList{QStringLiteral("Source.mdb")});
    for (const QString& name : NamesIn(files.Folder()))
        EXPECT_FALSE(name.contains(QLatin1String(".part"))) << name.toStdString();
}

TEST_F(RestoreTest, WhatIsKeptIsReadableForNobodyWhoMayNotReadTheFile)
{
    QFile::setPermissions(files.Path(), QFile::ReadOwner | QFile::WriteOwner);
    const QString kept = Restore();
    EXPECT_EQ(QFile::permissions(kept), QFile::permissions(files.Path()));
}

} // namespace
} // namespace tally::test
