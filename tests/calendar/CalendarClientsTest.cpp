#include "calendar/CalendarFixture.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

namespace tally::test {
namespace {

/// One more client in a process of its own, on the same files.
class Client
{
public:
    explicit Client(const QString& folder)
    {
        process_.start(
            QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("calendar_client")),
            {folder});
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client() { Kill(); }

    std::string Says()
    {
        while (!process_.canReadLine())
            if (!process_.waitForReadyRead(60000))
                return process_.readAllStandardError().toStdString();
        return process_.readLine().trimmed().toStdString();
    }
    std::string Opens(const char* form)
    {
        process_.write(form);
        process_.write("\n");
        return Says();
    }
    void Kill()
    {
        process_.kill();
        process_.waitForFinished();
    }

private:
    QProcess process_;
};

class CalendarClients : public CalendarFixture, public testing::WithParamInterface<const char*>
{
protected:
    void SetUp() override
    {
        CalendarFixture::SetUp();
        GivenYear(1, 2007, "Y");
        GivenDays({QDate(2007, 6, 4)});
    }
};

TEST_P(CalendarClients, AKilledClientsScreenStaysShutUntilAnyClientStartsAnew)
{
    const char* form = GetParam();
    Client first(Folder());
    Client second(Folder());
    ASSERT_EQ(first.Says(), "ready");
    ASSERT_EQ(second.Says(), "ready");
    ASSERT_EQ(first.Opens(form), "open");
    const std::string refusal =
        "This Screen Is Already Opened By Another User. So You Cannot Open This Screen";
    EXPECT_EQ(second.Opens(form), refusal);
    first.Kill();
    EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus"), 1);
    EXPECT_EQ(second.Opens(form), refusal);
    {
        Client third(Folder());
        ASSERT_EQ(third.Says(), "ready");
    }
    EXPECT_EQ(second.Opens(form), "open");
}

INSTANTIATE_TEST_SUITE_P(Screens, CalendarClients,
                         testing::Values("frmMasAcademicYearSetup", "frmUtilApplicationDateSetup"),
                         [](const auto& form) { return std::string(form.param); });

} // namespace
} // namespace tally::test
