#include "students/StudentRows.h"
#include "support/ScreenFixture.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <array>
#include <set>
#include <string>

namespace tally::test {
namespace {

/// One more client in a process of its own, on the same files.
class Client
{
public:
    void Start(const QString& folder)
    {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(
            QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("student_client")),
            {folder});
        ASSERT_TRUE(process_.waitForStarted());
        ASSERT_EQ(Says(), "ready");
    }
    ~Client()
    {
        process_.kill();
        process_.waitForFinished();
    }

    void Save(const QByteArray& name)
    {
        process_.write(name + '\n');
        process_.waitForBytesWritten();
    }
    std::string Says()
    {
        while (!process_.canReadLine())
            if (!process_.waitForReadyRead(60000))
                return "nothing";
        return process_.readLine().trimmed().toStdString();
    }

private:
    QProcess process_;
};

class StudentClients : public ProgramFixture
{
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        OpenConnections();
        LayStudentMasters(*Session().gcnnMain);
        Given("INSERT INTO Options VALUES ('N', 'Y', '2018-05-31', 'A', 'N', 'N')");
        Given("INSERT INTO SchoolMaster VALUES ('School', '', '', 0, '', 'JUN', 1)");
        Given("INSERT INTO ApplicationDate VALUES ('2024-06-10', 1)");
    }

    /// Both save a student at the same moment, so many times; a number follows the other without a gap.
    void SaveTogether(int times)
    {
        std::array<Client, 2> clients;
        for (Client& client : clients)
            client.Start(Folder());
        for (int time = 1; time <= times; ++time) {
            for (Client& client : clients)
                client.Save("Student of round " + QByteArray::number(time));
            const std::set<std::string> said{clients[0].Says(), clients[1].Says()};
            const std::set<std::string> next{std::to_string(2 * time - 1), std::to_string(2 * time)};
            ASSERT_EQ(said, next);
        }
        EXPECT_EQ(
            Count("SELECT count(*) FROM StudentMaster WHERE StudentCode > 0 AND StudentCode = AdmissionNo"
                  " AND OptionalAdmissionNo = '' || AdmissionNo AND ManGenAutoGen = 'Y'"),
            2 * times);
    }
};

TEST_F(StudentClients, TwoThatSaveAtOnceGetDifferentNumbers)
{
    SaveTogether(5);
}

TEST_F(StudentClients, DISABLED_TwoThatSaveAtOnceGetDifferentNumbersTwoHundredTimes)
{
    SaveTogether(200);
}

} // namespace
} // namespace tally::test
