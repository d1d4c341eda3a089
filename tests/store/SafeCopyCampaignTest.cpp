// Many clients and many kills at any moment, a handful of each with every change and thousands now and then.

#include "SchoolFile.h"
#include "store/Backup.h"
#include "store/Compact.h"
#include "store/Restore.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <random>
#include <set>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tally::test {
namespace {

using store::Connection;

constexpr int NewStates = 400;
constexpr int OldStates = 250;

/// A process of its own; ends as soon as its work does.
pid_t Start(const std::function<void()>& work)
{
    const pid_t client = fork();
    if (client == 0) {
        try {
            work();
        } catch (const std::exception&) {
            _exit(1);
        }
        _exit(0);
    }
    return client;
}

/// How the client has ended.
int StateOf(pid_t client)
{
    int state = 0;
    EXPECT_EQ(waitpid(client, &state, 0), client);
    return state;
}

/// A client that is killed at any moment may have come to its end before, but not to a failure.
void ExpectKilledOrDone(pid_t client)
{
    const int state = StateOf(client);
    EXPECT_TRUE(WIFSIGNALED(state) || WEXITSTATUS(state) == 0) << "the client has failed by itself";
}

class SafeCopyCampaign : public testing::Test
{
protected:
    void SetUp() override
    {
        LaySchoolFile(files.Path(), OldStates);
        LaySchoolFile(Source(), NewStates);
    }

    QString Source() const { return files.Path(QStringLiteral("Source.mdb")); }
    QString Target() const { return files.Path(QStringLiteral("Copy.mdb")); }

    void BackUp() const
    {
        Connection main(files.Path(), Password);
        main.SetPatience(std::chrono::seconds(60));
        store::BackUp(main, Password, Target());
    }
    QString Restore() const
    {
        store::Restore restore(Source(), Password);
        Connection main(files.Path(), Password);
        main.SetPatience(std::chrono::seconds(60));
        return restore.PourInto(main, QDateTime::currentDateTime());
    }
    void Compact() const
    {
        Connection main(files.Path(), Password);
        main.SetPatience(std::chrono::seconds(60));
        store::Compact(main, Password);
    }

    void KillAtRandom(int times)
    {
        std::mt19937 random(20261122); // NOLINT: each run kills at the same moments
        const std::array<std::function<void()>, 3> works{[this] { BackUp(); }, [this] { Restore(); },
                                                         [this] { Compact(); }};
        BackUp();
        std::array<int, 2> found{};
        bool wasRestored = false;
        for (int time = 0; time < times && !HasFailure(); ++time) {
            SCOPED_TRACE(time);
            const pid_t client = Start(works.at(static_cast<std::size_t>(time) % works.size()));
            std::this_thread::sleep_for(std::chrono::microseconds(random() % 60000));
            kill(client, SIGKILL);
            ExpectKilledOrDone(client);
            const qint64 states = StatesIn(files.Path());
            EXPECT_TRUE(states == OldStates || states == NewStates) << states;
            ++found.at(states == NewStates ? 1 : 0);
            EXPECT_TRUE(states == NewStates || !wasRestored) << "the older school has come back";
            if (states == NewStates && !wasRestored) {
                EXPECT_TRUE(IsOldSchoolKept()) << "the old school is lost";
            }
            wasRestored = states == NewStates;
            const qint64 copied = StatesIn(Target());
            EXPECT_TRUE(copied == OldStates || copied == NewStates) << copied;
            for (const QString& kept : store::KeptBeforeRestore(files.Path()))
                StatesIn(kept);
            if (time % 6 == 5) {
                LayOldSchool();
                wasRestored = false;
            }
        }
        EXPECT_GT(found[0], 0);
    }

    /// Whether the school of the beginning lies beside the file in one that a restore has kept.
    bool IsOldSchoolKept() const
    {
        const QStringList kept = store::KeptBeforeRestore(files.Path());
        return std::any_of(kept.begin(), kept.end(),
                           [](const QString& path) { return StatesIn(path) == OldStates; });
    }

    void LayOldSchool()
    {
        for (const QString& name : NamesIn(files.Folder())) {
            if (name != QLatin1String("Source.mdb") && name != QLatin1String("Copy.mdb"))
                QFile::remove(files.Path(name));
        }
        LaySchoolFile(files.Path(), OldStates);
    }

    /// What a client does all day: saves, and notes each save that was stored.
    void SaveAllDay(int client, int writeEnd) const
    {
        Connection main(files.Path(), Password);
        main.SetPatience(std::chrono::seconds(60));
        for (int number = 0;; ++number) {
            const int code = (client + 1) * 1000000 + number;
            store::Transaction saving(main);
            AddState(main, code, QStringLiteral("Saved %1").arg(code));
            saving.Commit();
            if (write(writeEnd, &code, sizeof code) != sizeof code)
                return;
            // A clerk needs a moment for the next one, and the engine lets nobody queue.
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    /// Tries until no client saves between the two locks, as a clerk does who is told so, though not for
    /// ever.
    bool CompactBesideOthers() const
    {
        constexpr int Tries = 20;
        for (int tried = 0; tried < Tries; ++tried) {
            const auto error = ErrorOf([this] { Compact(); });
            if (!error)
                return true;
            EXPECT_TRUE(error->IsLocked()) << error->Description().toStdString();
        }
        return false;
    }

    static std::set<int> CodesIn(const QString& path)
    {
        Connection file(path, Password);
        std::set<int> codes;
        auto rows = file.Query(QStringLiteral("SELECT StateCode FROM StateMaster"));
        while (rows.Next())
            codes.insert(rows.Int(0));
        return codes;
    }

    void WorkBeside(int clients, int backups, int restores, int compactings)
    {
        int noted[2] = {-1, -1};
        ASSERT_EQ(pipe(noted), 0);
        std::vector<pid_t> working;
        working.reserve(static_cast<std::size_t>(clients));
        for (int client = 0; client < clients; ++client)
            working.push_back(Start([&, client] {
                close(noted[0]);
                SaveAllDay(client, noted[1]);
            }));
        close(noted[1]);
        std::vector<int> saved;
        std::thread reading([&] {
            int code = 0;
            while (read(noted[0], &code, sizeof code) == sizeof code)
                saved.push_back(code);
        });

        std::set<int> found;
        int compacted = 0;
        for (int time = 0; time < backups && !HasFailure(); ++time) {
            BackUp();
            StatesIn(Target());
            if (time % std::max(1, backups / restores) == 0)
                found.merge(CodesIn(Restore()));
            if (time % std::max(1, backups / compactings) == 0)
                compacted += CompactBesideOthers() ? 1 : 0;
        }
        for (const pid_t client : working) {
            kill(client, SIGKILL);
            EXPECT_TRUE(WIFSIGNALED(StateOf(client))) << "a client has ended by itself";
        }
        reading.join();
        close(noted[0]);

        found.merge(CodesIn(files.Path()));
        StatesIn(files.Path());
        EXPECT_GT(saved.size(), 0U);
        std::size_t lost = 0;
        for (const int code : saved)
            lost += found.contains(code) ? 0 : 1;
        EXPECT_EQ(lost, 0U) << "of " << saved.size() << " saves";
        EXPECT_GT(compacted, 0);
        RecordProperty("saves", static_cast<int>(saved.size()));
        RecordProperty("compacted", compacted);
    }

    void OfferDamaged(int times)
    {
        const QByteArray whole = files.Bytes(QStringLiteral("Source.mdb"));
        std::mt19937 random(20261122); // NOLINT: each run damages the same bytes
        for (int time = 0; time < times && !HasFailure(); ++time) {
            SCOPED_TRACE(time);
            QByteArray bytes = whole;
            const auto at = static_cast<qsizetype>(random() % static_cast<std::size_t>(bytes.size()));
            switch (time % 4) {
            case 0: bytes[at] = static_cast<char>(bytes[at] ^ static_cast<char>(1 + random() % 255)); break;
            case 1: bytes.truncate(at); break;
            case 2: bytes.replace(at, 4096, QByteArray(4096, '\0')); break;
            default: {
                // One page in the place of another.
                const qsizetype pages = whole.size() / 4096;
                const auto one = static_cast<qsizetype>(random()) % pages;
                const auto other = (one + 1 + static_cast<qsizetype>(random()) % (pages - 1)) % pages;
                bytes.replace(one * 4096, 4096, whole.mid(other * 4096, 4096));
                break;
            }
            }
            files.Write(bytes, QStringLiteral("Source.mdb"));
            const bool refused = ErrorOf([this] { Restore(); }).has_value();
            const qint64 states = StatesIn(files.Path());
            EXPECT_EQ(states, refused ? OldStates : NewStates);
            if (!refused)
                LayOldSchool();
        }
    }

    StoreFiles files;
};

TEST_F(SafeCopyCampaign, AHandfulOfKillsAtAnyMomentLeaveAWholeSchool)
{
    KillAtRandom(24);
}

TEST_F(SafeCopyCampaign, DISABLED_AThousandKillsAtAnyMomentLeaveAWholeSchool)
{
    KillAtRandom(3000);
}

TEST_F(SafeCopyCampaign, AHandfulOfCopiesBesideFiveClientsLoseNoSave)
{
    WorkBeside(5, 4, 2, 2);
}

TEST_F(SafeCopyCampaign, DISABLED_TwoHundredCopiesBesideFiveClientsLoseNoSave)
{
    WorkBeside(5, 200, 20, 20);
}

TEST_F(SafeCopyCampaign, AHandfulOfDamagedFilesLeaveTheOldSchool)
{
    OfferDamaged(24);
}

TEST_F(SafeCopyCampaign, DISABLED_AThousandDamagedFilesLeaveTheOldSchool)
{
    OfferDamaged(1000);
}

} // namespace
} // namespace tally::test
