#include "store/Backup.h"

#include "NoRoom.h"
#include "SchoolFile.h"
#include "store/OwnFiles.h"
#include "support/AsOrdinaryUser.h"
#include "support/EngineWaits.h"
#include "support/FileSizeLimit.h"

#include <QFileInfo>

#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace tally::test {
namespace {

using store::Connection;

class Backup : public testing::Test
{
protected:
    Backup() { LaySchoolFile(files.Path(), 3); }

    QString Target(const QString& name = QStringLiteral("Copy.mdb")) const { return files.Path(name); }
    void BackUp(const QString& target, const store::Progress& progress = {}) const
    {
        Connection main(files.Path(), Password);
        main.SetPatience(std::chrono::seconds(60));
        store::BackUp(main, Password, target, progress);
    }
    std::string Refusal(const QString& target) const
    {
        const auto error = ErrorOf([&] { BackUp(target); });
        return error ? error->Description().toStdString() : "";
    }
    void ExpectNothingLeft(const QStringList& names = {QStringLiteral("Tallyboard.mdb")}) const
    {
        EXPECT_EQ(NamesIn(files.Folder()), names);
    }

    StoreFiles files;
};

TEST_F(Backup, IsTheFileByteForByteAndLeavesNothingElse)
{
    BackUp(Target());
    EXPECT_EQ(files.Bytes(QStringLiteral("Copy.mdb")), files.Bytes());
    EXPECT_EQ(StatesIn(Target()), 3);
    ExpectNothingLeft({QStringLiteral("Copy.mdb"), QStringLiteral("Tallyboard.mdb")});
}

TEST_F(Backup, ToTheSameDiskIsCopiedOnce)
{
    std::vector<qint64> totals;
    BackUp(Target(), [&totals](qint64, qint64 total) {
        totals.push_back(total);
        return true;
    });
    EXPECT_EQ(totals, std::vector<qint64>{QFileInfo(files.Path()).size()});
}

TEST_F(Backup, HoldsWhatWasCommittedAndNotWhatAnotherClientHasUnderWay)
{
    Connection other(files.Path(), Password);
    store::Transaction underWay(other);
    AddState(other, 4, QStringLiteral("Half"));
    BackUp(Target());
    EXPECT_EQ(StatesIn(Target()), 3);
}

TEST_F(Backup, TakesThePlaceOfAnEarlierOne)
{
    BackUp(Target());
    {
        Connection main(files.Path(), Password);
        AddState(main, 4, QStringLiteral("Kerala"));
    }
    BackUp(Target());
    EXPECT_EQ(StatesIn(Target()), 4);
}

TEST_F(Backup, ThatIsCancelledAtAnyWordLeavesTheEarlierOne)
{
    BackUp(Target());
    const QByteArray earlier = files.Bytes(QStringLiteral("Copy.mdb"));
    {
        Connection main(files.Path(), Password);
        AddState(main, 4, QStringLiteral("Kerala"));
    }
    int words = 0;
    BackUp(files.Path(QStringLiteral("Other.mdb")), [&](qint64, qint64) { return ++words > 0; });
    ASSERT_GT(words, 0);
    for (int allowed = 0; allowed < words; ++allowed) {
        int heard = 0;
        EXPECT_THROW(BackUp(Target(), [&](qint64, qint64) { return heard++ != allowed; }), store::Cancelled);
        EXPECT_EQ(files.Bytes(QStringLiteral("Copy.mdb")), earlier);
    }
    ExpectNothingLeft(
        {QStringLiteral("Copy.mdb"), QStringLiteral("Other.mdb"), QStringLiteral("Tallyboard.mdb")});
}

TEST_F(Backup, OnAFullDiskLeavesTheEarlierOneAndNothingHalf)
{
    BackUp(Target());
    const QByteArray earlier = files.Bytes(QStringLiteral("Copy.mdb"));
    Connection main(files.Path(), Password);
    const FileSizeLimit full(8192);
    const auto error = ErrorOf([&] { store::BackUp(main, Password, Target()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description().toStdString(), "The Copy Could Not Be Written (File too large)");
    EXPECT_EQ(files.Bytes(QStringLiteral("Copy.mdb")), earlier);
    ExpectNothingLeft({QStringLiteral("Copy.mdb"), QStringLiteral("Tallyboard.mdb")});
}

TEST_F(Backup, ToAPlaceThatIsNoneIsRefused)
{
    ASSERT_TRUE(QDir(files.Folder()).mkdir(QStringLiteral("Folder.mdb")));
    for (const QString& place :
         {QString(), QStringLiteral("Copy.mdb"), QStringLiteral("./Copy.mdb"),
          files.Path(QStringLiteral("Folder.mdb")), files.Path(QStringLiteral("Nowhere/Copy.mdb")),
          files.Path(QStringLiteral("Tallyboard.mdb/Copy.mdb"))})
        EXPECT_EQ(Refusal(place), "Invalid File Name") << place.toStdString();
    ExpectNothingLeft();
}

TEST_F(Backup, UnderANameThatIsTooLongForTheDiskIsRefusedBeforeAnythingIsCopied)
{
    const QString name = files.Path(QString(300, QLatin1Char('n')) + QStringLiteral(".mdb"));
    int words = 0;
    const auto error = ErrorOf([&] { BackUp(name, [&](qint64, qint64) { return ++words > 0; }); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description().toStdString(), "Invalid File Name");
    EXPECT_EQ(words, 0);
    ExpectNothingLeft();
}

TEST_F(Backup, ToALinkThatLeadsNowhereIsRefused)
{
    ASSERT_TRUE(QFile::link(files.Path(QStringLiteral("Gone.mdb")), Target()));
    EXPECT_EQ(Refusal(Target()), "Invalid File Name");
    EXPECT_FALSE(QFile::exists(files.Path(QStringLiteral("Gone.mdb"))));
    EXPECT_TRUE(QFileInfo(Target()).isSymLink());
}

TEST_F(Backup, ThatFoundItsPlaceFreeReplacesNoFileThatHasComeThereMeanwhile)
{
    Connection main(files.Path(), Password);
    const auto error = ErrorOf([&] {
        store::BackUp(
            main, Password, Target(),
            [&](qint64, qint64) {
                files.Write(QByteArray("somebody's"), QStringLiteral("Copy.mdb"));
                return true;
            },
            store::Occupied::Refuse);
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description().toStdString(),
              "File With The Given Name Already Exists. It Is Left As It Is");
    EXPECT_EQ(files.Bytes(QStringLiteral("Copy.mdb")), QByteArray("somebody's"));
    ExpectNothingLeft({QStringLiteral("Copy.mdb"), QStringLiteral("Tallyboard.mdb")});
}

TEST_F(Backup, ThatFoundItsPlaceFreeTakesIt)
{
    Connection main(files.Path(), Password);
    store::BackUp(main, Password, Target(), {}, store::Occupied::Refuse);
    EXPECT_EQ(StatesIn(Target()), 3);
}

TEST_F(Backup, MayHaveAnyLettersInItsName)
{
    const QString name = QString::fromUtf8("பள்ளி été 1.mdb");
    BackUp(Target(name));
    EXPECT_EQ(StatesIn(Target(name)), 3);
}

struct stat StatusOf(const QString& path)
{
    struct stat file = {};
    EXPECT_EQ(stat(QFile::encodeName(path).constData(), &file), 0);
    return file;
}

mode_t ModeOf(const QString& path)
{
    return StatusOf(path).st_mode & 0777U;
}

void SetMode(const QString& path, mode_t mode)
{
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), mode), 0);
}

TEST_F(Backup, WithoutTheRightToWriteSaysSo)
{
    ASSERT_TRUE(QDir(files.Folder()).mkdir(QStringLiteral("Closed")));
    SetMode(files.Path(QStringLiteral("Closed")), 0555);
    SetMode(files.Folder(), 0755);
    Connection main(files.Path(), Password);
    {
        const AsOrdinaryUser clerk;
        const auto error =
            ErrorOf([&] { store::BackUp(main, Password, files.Path(QStringLiteral("Closed/Copy.mdb"))); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Description().toStdString(), "The Copy Could Not Be Written (Permission denied)");
    }
    EXPECT_TRUE(NamesIn(files.Path(QStringLiteral("Closed"))).isEmpty());
}

TEST_F(Backup, ThroughALinkGoesToTheFileThatTheLinkNames)
{
    ASSERT_TRUE(QDir(files.Folder()).mkdir(QStringLiteral("Stick")));
    const QString there = files.Path(QStringLiteral("Stick/Real.mdb"));
    BackUp(there);
    ASSERT_TRUE(QFile::link(there, Target()));
    {
        Connection main(files.Path(), Password);
        AddState(main, 4, QStringLiteral("Kerala"));
    }
    BackUp(Target());
    EXPECT_EQ(StatesIn(there), 4);
    EXPECT_TRUE(QFileInfo(Target()).isSymLink());
}

TEST_F(Backup, OverAFileThatHoldsAnUnfinishedSaveIsRefused)
{
    BackUp(Target());
    files.Write(QByteArray("a save"), QStringLiteral("Copy.mdb-journal"));
    const QByteArray earlier = files.Bytes(QStringLiteral("Copy.mdb"));
    EXPECT_NE(Refusal(Target()).find(files.Path(QStringLiteral("Copy.mdb-journal")).toStdString()),
              std::string::npos);
    EXPECT_EQ(files.Bytes(QStringLiteral("Copy.mdb")), earlier);
}

TEST_F(Backup, IsReadableForNobodyWhoMayNotReadTheFile)
{
    for (const mode_t mode : {0600U, 0640U, 0660U, 0644U, 0664U}) {
        SetMode(files.Path(), mode);
        BackUp(Target());
        EXPECT_EQ(ModeOf(Target()), mode);
    }
}

/// A school whose file belongs to the group of the office, and a folder that gives its files to another one.
class BackupOfAGroup : public Backup
{
protected:
    static constexpr gid_t Office = 23001;
    static constexpr gid_t Visitors = 23002;

    void SetUp() override
    {
        if (geteuid() != 0)
            GTEST_SKIP() << "only the owner of the machine gives files to groups";
        GiveTo(files.Path(), Office);
        ASSERT_TRUE(QDir(files.Folder()).mkdir(QStringLiteral("Stick")));
        GiveTo(Stick(), Visitors);
        SetMode(Stick(), 02777);
        SetMode(files.Folder(), 0755);
    }
    static void GiveTo(const QString& path, gid_t group)
    {
        ASSERT_EQ(chown(QFile::encodeName(path).constData(), static_cast<uid_t>(-1), group), 0);
    }
    QString Stick() const { return files.Path(QStringLiteral("Stick")); }
    QString OnStick() const { return files.Path(QStringLiteral("Stick/Copy.mdb")); }
};

TEST_F(BackupOfAGroup, BelongsToTheSameGroupWhateverItsFolderGives)
{
    constexpr gid_t OwnersOfTheMachine = 0;
    for (const gid_t group : {Office, OwnersOfTheMachine}) {
        GiveTo(files.Path(), group);
        SetMode(files.Path(), 0660);
        BackUp(OnStick());
        EXPECT_EQ(StatusOf(OnStick()).st_gid, group);
        EXPECT_EQ(ModeOf(OnStick()), 0660U);
    }
}

TEST_F(BackupOfAGroup, GivesAnotherGroupNoMoreThanEverybodyWhereItCannotBelongToTheSame)
{
    for (const auto& [ofFile, ofCopy] : {std::pair(0660U, 0600U), std::pair(0664U, 0644U)}) {
        SetMode(files.Path(), ofFile);
        Connection main(files.Path(), Password);
        {
            const AsOrdinaryUser clerk;
            store::BackUp(main, Password, OnStick());
        }
        EXPECT_EQ(StatusOf(OnStick()).st_gid, Visitors);
        EXPECT_EQ(ModeOf(OnStick()), ofCopy);
    }
}

/// A backup to another disk than the school's.
class BackupElsewhere : public Backup
{
protected:
    void SetUp() override
    {
        if (!stick.isValid() || store::AreOnOneDisk(stick.path(), files.Folder()))
            GTEST_SKIP() << "this machine has one disk only";
    }
    QString OnStick() const { return stick.filePath(QStringLiteral("Copy.mdb")); }

    QTemporaryDir stick{QStringLiteral("/dev/shm/backup-XXXXXX")};
};

TEST_F(BackupElsewhere, LetsOthersSaveWhileTheOtherDiskIsWrittenTo)
{
    Connection main(files.Path(), Password);
    Connection other(files.Path(), Password);
    other.SetPatience(std::chrono::milliseconds(0));
    int saved = 0;
    bool othersWait = true;
    store::BackUp(main, Password, OnStick(), [&](qint64 done, qint64 total) {
        // The last words are of the proof.
        if (total > 0) {
            othersWait = 2 * done < total;
            const auto error = ErrorOf([&] { AddState(other, 100 + saved, QStringLiteral("Goa")); });
            EXPECT_EQ(error.has_value(), othersWait) << done << " of " << total;
            saved += error ? 0 : 1;
        }
        return true;
    });
    EXPECT_GT(saved, 0);
    EXPECT_EQ(StatesIn(OnStick()), 3);
    EXPECT_EQ(StatesIn(files.Path()), 3 + saved);
    ExpectNothingLeft();
    EXPECT_EQ(NamesIn(stick.path()), QStringList{QStringLiteral("Copy.mdb")});
}

TEST_F(BackupElsewhere, TellsHowFarItHasComeThroughBothHalvesOfItsWork)
{
    Connection main(files.Path(), Password);
    AddBallast(main);
    const qint64 size = QFileInfo(files.Path()).size();
    constexpr qint64 Step = 1 << 20;
    std::vector<qint64> expected;
    for (const qint64 half : {qint64(0), size})
        for (qint64 at = 0; at < size; at += Step)
            expected.push_back(half + at);
    std::vector<qint64> heard;
    store::BackUp(main, Password, OnStick(), [&](qint64 done, qint64 total) {
        // The last words are of the proof.
        if (total > 0) {
            EXPECT_EQ(total, 2 * size);
            heard.push_back(done);
        }
        return true;
    });
    EXPECT_EQ(heard, expected);
}

TEST_F(BackupElsewhere, OfAFileThatAnotherClientHoldsWaitsForItOnce)
{
    const BriefWaits soon;
    Connection main(files.Path(), Password);
    Connection other(files.Path(), Password);
    other.Execute(QStringLiteral("BEGIN EXCLUSIVE"));
    const auto waits = [&main](const QString& place) {
        const std::size_t before = EngineWaits();
        const auto error = ErrorOf([&] { store::BackUp(main, Password, place); });
        EXPECT_TRUE(error && error->IsLocked());
        return EngineWaits() - before;
    };
    EXPECT_EQ(waits(OnStick()), waits(Target()));
}

TEST_F(BackupElsewhere, IsMadeAlsoWhereNothingCanBeWrittenBesideTheFile)
{
    SetMode(files.Path(), 0666);
    SetMode(files.Folder(), 0555);
    SetMode(stick.path(), 0777);
    Connection main(files.Path(), Password);
    {
        const AsOrdinaryUser clerk;
        store::BackUp(main, Password, OnStick());
    }
    EXPECT_EQ(StatesIn(OnStick()), 3);
    SetMode(files.Folder(), 0755);
}

TEST_F(BackupElsewhere, IsMadeAlsoWhereTheOwnDiskHasNoRoomForACopy)
{
    const NoRoom full;
    BackUp(OnStick());
    EXPECT_EQ(StatesIn(OnStick()), 3);
}

TEST_F(BackupElsewhere, ThatIsCancelledAtAnyWordLeavesNothingOnEitherDisk)
{
    Connection main(files.Path(), Password);
    int words = 0;
    store::BackUp(main, Password, OnStick(), [&](qint64, qint64) { return ++words > 0; });
    ASSERT_TRUE(QFile::remove(OnStick()));
    for (int allowed = 0; allowed < words; ++allowed) {
        int heard = 0;
        EXPECT_THROW(
            store::BackUp(main, Password, OnStick(), [&](qint64, qint64) { return heard++ != allowed; }),
            store::Cancelled);
        ExpectNothingLeft();
        EXPECT_EQ(NamesIn(stick.path()), QStringList());
    }
}

TEST_F(Backup, OfADamagedFileIsRefusedAndTheEarlierOneStays)
{
    BackUp(Target());
    const QByteArray earlier = files.Bytes(QStringLiteral("Copy.mdb"));
    Connection main(files.Path(), Password);
    QByteArray bytes = files.Bytes();
    constexpr qsizetype Page = 4096;
    for (qsizetype at = 5 * Page; at < 6 * Page; ++at)
        bytes[at] = static_cast<char>(bytes[at] ^ 0x55);
    QFile file(files.Path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(bytes);
    file.close();
    EXPECT_TRUE(ErrorOf([&] { store::BackUp(main, Password, Target()); }));
    EXPECT_EQ(files.Bytes(QStringLiteral("Copy.mdb")), earlier);
}

TEST_F(Backup, OfAFileWhoseIndexLacksARowIsMadeAllTheSame)
{
    SpoilIndex(files.Path());
    BackUp(Target());
    EXPECT_EQ(files.Bytes(QStringLiteral("Copy.mdb")), files.Bytes());
}

class DayCopyFiles : public Backup
{
protected:
    void Keep(const QDate& day) const
    {
        Connection main(files.Path(), Password);
        store::KeepDayCopy(main, Password, day);
    }
    QStringList Kept() const
    {
        QStringList names;
        for (const QString& path : store::DayCopies(files.Path()))
            names.append(QFileInfo(path).fileName());
        return names;
    }
};

TEST_F(DayCopyFiles, OneIsKeptForEachOfTheLastSevenDays)
{
    for (int day = 1; day <= 9; ++day)
        Keep(QDate(2026, 11, 20).addDays(day));
    ASSERT_EQ(Kept().size(), 7);
    EXPECT_EQ(Kept().first().toStdString(), "Tallyboard copy of 2026-11-23.mdb");
    EXPECT_EQ(Kept().last().toStdString(), "Tallyboard copy of 2026-11-29.mdb");
    EXPECT_EQ(StatesIn(store::DayCopies(files.Path()).last()), 3);
}

TEST_F(DayCopyFiles, ThoseOfDaysToComeGoFirstAndTheOneJustMadeStays)
{
    for (int day = 1; day <= 7; ++day)
        Keep(QDate(2031, 1, day));
    for (int day = 20; day <= 22; ++day)
        Keep(QDate(2026, 11, day));
    ASSERT_EQ(Kept().size(), 7);
    EXPECT_EQ(Kept().mid(0, 3), (QStringList{QStringLiteral("Tallyboard copy of 2026-11-20.mdb"),
                                             QStringLiteral("Tallyboard copy of 2026-11-21.mdb"),
                                             QStringLiteral("Tallyboard copy of 2026-11-22.mdb")}));
    for (int day = 23; day <= 27; ++day)
        Keep(QDate(2026, 11, day));
    EXPECT_EQ(Kept().first().toStdString(), "Tallyboard copy of 2026-11-21.mdb");
    EXPECT_EQ(Kept().last().toStdString(), "Tallyboard copy of 2026-11-27.mdb");
    // A clock that is behind makes the oldest of all.
    Keep(QDate(2020, 1, 1));
    ASSERT_EQ(Kept().size(), 7);
    EXPECT_EQ(Kept().first().toStdString(), "Tallyboard copy of 2020-01-01.mdb");
}

TEST_F(DayCopyFiles, TheyAndWhatRestoresAndUpgradesKeepAreTheProgramsOwn)
{
    for (const char* name :
         {"Tallyboard copy of 2026-11-22.mdb", "tallyboard COPY OF my school.mdb",
          "Tallyboard before restore 2026-11-22 14.05.mdb", "Tallyboard before upgrade 2.mdb"})
        EXPECT_TRUE(store::IsOwnCopy(files.Path(QString::fromLatin1(name)), files.Path())) << name;
    ASSERT_TRUE(QDir(files.Folder()).mkdir(QStringLiteral("Stick")));
    for (const char* name : {"Tallyboard.mdb", "Copy.mdb", "My Tallyboard copy of 2026-11-22.mdb",
                             "Stick/Tallyboard copy of 2026-11-22.mdb"})
        EXPECT_FALSE(store::IsOwnCopy(files.Path(QString::fromLatin1(name)), files.Path())) << name;
}

TEST_F(DayCopyFiles, ASecondOneOfTheDayTakesThePlaceOfTheFirst)
{
    Keep(QDate(2026, 11, 22));
    {
        Connection main(files.Path(), Password);
        AddState(main, 4, QStringLiteral("Kerala"));
    }
    Keep(QDate(2026, 11, 22));
    ASSERT_EQ(Kept().size(), 1);
    EXPECT_EQ(StatesIn(store::DayCopies(files.Path()).last()), 4);
}

TEST_F(DayCopyFiles, FilesOfAnotherNameAreNobodysBusiness)
{
    const QStringList others{QStringLiteral("Tallyboard copy of 2026-13-45.mdb"),
                             QStringLiteral("Tallyboard copy of 2026-11-01 (best).mdb"),
                             QStringLiteral("Old Tallyboard copy of 2026-11-01.mdb")};
    for (const QString& name : others)
        files.Write(QByteArray("somebody's"), name);
    const QString link = files.Path(QStringLiteral("Tallyboard copy of 2026-11-02.mdb"));
    ASSERT_TRUE(QFile::link(files.Path(others.first()), link));
    for (int day = 1; day <= 9; ++day)
        Keep(QDate(2026, 11, 20).addDays(day));
    EXPECT_EQ(Kept().size(), 7);
    for (const QString& name : others)
        EXPECT_TRUE(QFile::exists(files.Path(name))) << name.toStdString();
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

TEST_F(DayCopyFiles, NoneIsMadeThatWouldLeaveTheDiskWithoutRoomForASave)
{
    const NoRoom full;
    Keep(QDate(2026, 11, 22));
    ExpectNothingLeft();
}

TEST_F(DayCopyFiles, WithoutRoomThereIsNoneAndNobodyHearsAndTheOthersStay)
{
    for (int day = 1; day <= 7; ++day)
        Keep(QDate(2026, 11, 14).addDays(day));
    const QStringList before = NamesIn(files.Folder());
    EXPECT_EQ(before.size(), 8);
    Connection main(files.Path(), Password);
    const FileSizeLimit full(8192);
    store::KeepDayCopy(main, Password, QDate(2026, 11, 22));
    ExpectNothingLeft(before);
}

/// Saves one state after the other until it is told to end, and knows which of them were stored.
class Saver
{
public:
    Saver(const QString& path, int firstCode)
        : thread_([this, path, firstCode] {
              Connection client(path, Password);
              client.SetPatience(std::chrono::seconds(60));
              for (int code = firstCode; !end_; ++code) {
                  store::Transaction transaction(client);
                  AddState(client, code, QStringLiteral("Saved %1").arg(code));
                  transaction.Commit();
                  saved_.push_back(code);
                  // A clerk needs a moment for the next one, and the engine lets nobody queue.
                  std::this_thread::sleep_for(std::chrono::milliseconds(5));
              }
          })
    {}
    std::vector<int> End()
    {
        end_ = true;
        thread_.join();
        return saved_;
    }

private:
    std::atomic<bool> end_ = false;
    std::vector<int> saved_;
    std::thread thread_;
};

TEST_F(Backup, WhileOthersSaveIsWholeAndNoSaveIsMissingFromTheFile)
{
    Saver one(files.Path(), 1000);
    Saver two(files.Path(), 2000000);
    for (int time = 0; time < 10; ++time) {
        BackUp(Target());
        EXPECT_GE(StatesIn(Target()), 3);
    }
    const auto saved = one.End().size() + two.End().size();
    EXPECT_EQ(StatesIn(files.Path()), 3 + static_cast<qint64>(saved));
}

} // namespace
} // namespace tally::test
