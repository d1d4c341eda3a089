#include "support/ScreenFixture.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>

#include <algorithm>
#include <array>

namespace tally::test {
namespace {

constexpr int Clients = 5;
constexpr int Students = 30;

/// One of the clients, and what it has said so far.
class ListClient
{
public:
    void Start(const QString& folder, int classCode)
    {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(
            QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("rank_list_client")),
            {folder, QString::number(classCode)});
        ASSERT_TRUE(process_.waitForStarted());
    }

    void Kill()
    {
        process_.kill();
        ASSERT_TRUE(process_.waitForFinished());
        Listen();
    }

    void Listen()
    {
        process_.waitForReadyRead(1);
        while (process_.canReadLine()) {
            const QByteArray line = process_.readLine().trimmed();
            rounds += line == "round" ? 1 : 0;
            locks += line == "lock" ? 1 : 0;
            if (line.startsWith("fault"))
                faults.append(QString::fromUtf8(line));
        }
    }

    bool IsRunning() const { return process_.state() == QProcess::Running; }

    int rounds = 0;
    int locks = 0;
    QStringList faults;

private:
    QProcess process_;
};

class RankClients : public ProgramFixture
{
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        OpenConnections();
        store::Transaction school(*Session().gcnnMain);
        Given(
            "INSERT INTO AcademicYearSetup VALUES (1, 2024, 2025, '2024-06-01', '2025-05-31', 'Y', 'N', 0)");
        Given("INSERT INTO ExamMaster VALUES (1, 'Term One', 1, 0)");
        for (int subject = 1; subject <= Clients; ++subject)
            Given("INSERT INTO SubjectMaster VALUES (?, ?, ?, 0)", subject, subject, subject);
        for (int classCode = 1; classCode <= Clients; ++classCode)
            AddClass(classCode);
        school.Commit();
        Session().gcnnMain.reset();
        Session().gcnnTemp.reset();
    }

    /// Each class has another number of subjects, so that no two working tables look alike.
    void AddClass(int classCode)
    {
        Given("INSERT INTO ClassDivisionMaster VALUES (?, ?, 1, ?, 0)", classCode,
              QStringLiteral("C%1").arg(classCode), classCode);
        Given("INSERT INTO ClassDivisionDetails VALUES (?, 'A', 1)", classCode);
        Given("INSERT INTO RankMaster VALUES (1, 1, ?, 1, 0, 0, 'D', 1, 0)", classCode);
        for (int subject = 1; subject <= classCode; ++subject)
            Given("INSERT INTO ClassSubjectTeacher VALUES (1, ?, 1, ?, 0, 100, 100, 'Yes', ?)", classCode,
                  subject, subject);
        for (int number = 1; number <= Students; ++number) {
            const int student = classCode * 100 + number;
            Given("INSERT INTO StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo, StudentName, "
                  "AcademicYearCode, CityCode, BloodGroupCode, TCNo) VALUES (?, ?, ?, ?, 1, 0, 0, '')",
                  student, student, student,
                  QStringLiteral("Class %1 Student %2").arg(classCode).arg(number));
            Given("INSERT INTO StudentClassDivision VALUES (?, 1, ?, 1, 'Y', 0)", student, classCode);
            for (int subject = 1; subject <= classCode; ++subject)
                Given("INSERT INTO MarkMaster VALUES (1, ?, 1, ?, 1, ?, ?, 'P', 0, 0)", student, classCode,
                      subject, 20 + number + classCode);
        }
    }

    /// Lets five clients work until each has gone its rounds and `seconds` are over. With kills one of them
    /// dies at random every little while, and another takes its place.
    void Work(int seconds, bool kills)
    {
        constexpr int FewestRounds = 3;
        constexpr qint64 PatienceInMs = 240000;
        const qint64 milliseconds = qint64{1000} * seconds;
        std::array<ListClient, Clients> clients;
        const auto start = [&](std::size_t number) {
            clients.at(number).Start(Folder(), static_cast<int>(number) + 1);
        };
        for (std::size_t number = 0; number < clients.size(); ++number)
            start(number);
        QRandomGenerator random(20260815);
        QElapsedTimer worked;
        worked.start();
        QElapsedTimer sinceKill;
        sinceKill.start();
        qint64 nextKill = 1500;
        const auto busy = [&] {
            return std::any_of(clients.begin(), clients.end(),
                               [](const ListClient& client) { return client.rounds < FewestRounds; });
        };
        while (worked.elapsed() < milliseconds || busy()) {
            ASSERT_LT(worked.elapsed(), milliseconds + PatienceInMs) << "a client stands still";
            for (ListClient& client : clients) {
                client.Listen();
                ASSERT_TRUE(client.IsRunning());
                ASSERT_TRUE(client.faults.isEmpty()) << client.faults.join(QLatin1Char('\n')).toStdString();
            }
            QTest::qSleep(10);
            if (kills && sinceKill.elapsed() > nextKill) {
                const auto victim = static_cast<std::size_t>(random.bounded(Clients));
                clients.at(victim).Kill();
                start(victim);
                sinceKill.restart();
                nextKill = random.bounded(1500);
            }
        }
        int rounds = 0;
        int locks = 0;
        for (ListClient& client : clients) {
            client.Kill();
            EXPECT_TRUE(client.faults.isEmpty()) << client.faults.join(QLatin1Char('\n')).toStdString();
            rounds += client.rounds;
            locks += client.locks;
        }
        RecordProperty("rounds", rounds);
        RecordProperty("locks", locks);
        ExpectEachClassWholeAndItsOwn();
    }

    void ExpectEachClassWholeAndItsOwn() const
    {
        const auto main = AnotherClient();
        for (int classCode = 1; classCode <= Clients; ++classCode) {
            EXPECT_EQ(main->Number(QStringLiteral("SELECT count(*) FROM TempRankTotal WHERE ClassCode = ?"),
                                   classCode),
                      Students);
            EXPECT_EQ(
                main->Number(QStringLiteral("SELECT count(*) FROM TempRankTotal WHERE ClassCode = ? AND "
                                            "StudentCode / 100 = ?"),
                             classCode, classCode),
                Students);
        }
    }
};

TEST_F(RankClients, FiveClientsAtOnceEachSeeAndSaveTheirOwnListOnly)
{
    Work(5, false);
}

TEST_F(RankClients, ClientsThatAreKilledLeaveTheOthersTheirOwnLists)
{
    Work(8, true);
}

TEST_F(RankClients, DISABLED_FiveClientsSeeAndSaveTheirOwnListsForMinutes)
{
    Work(150, false);
}

TEST_F(RankClients, DISABLED_ClientsAreKilledForMinutes)
{
    Work(150, true);
}

} // namespace
} // namespace tally::test
