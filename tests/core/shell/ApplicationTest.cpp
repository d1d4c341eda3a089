#include "core/ProcessEnd.h"
#include "store/StoreError.h"
#include "support/ScreenFixture.h"

#include <functional>
#include <stdexcept>

namespace tally::test {
namespace {

/// Does its work when an event comes.
class Worker : public QObject
{
public:
    explicit Worker(std::function<void()> work) : work_(std::move(work)) {}

    bool event(QEvent*) override
    {
        work_();
        return true;
    }

private:
    std::function<void()> work_;
};

class ApplicationTest : public ScreenFixture
{
protected:
    void Handle(const std::function<void()>& work)
    {
        Worker worker(work);
        QEvent event(QEvent::User);
        EXPECT_FALSE(QCoreApplication::sendEvent(&worker, &event)) << "it was not done";
        prompts.Verify();
    }
};

TEST_F(ApplicationTest, AFaultOfTheStoreThatNoHandlerCaughtIsToldAndTheProgramGoesOn)
{
    prompts.ExpectCritical(NoSuchTable("Anywhere"));
    Handle([] { (void)MainStore().Number(QStringLiteral("SELECT count(*) FROM Anywhere")); });
    EXPECT_NE(OpenScreen(QStringLiteral("frmUtilOptions")), nullptr);
}

TEST_F(ApplicationTest, AnyOtherFaultIsToldAsWell)
{
    prompts.ExpectCritical(QStringLiteral("This Could Not Be Done : no room"));
    Handle([] { throw std::runtime_error("no room"); });
}

TEST_F(ApplicationTest, WorkOnADatabaseThatIsClosedIsToldInPlainWords)
{
    const auto closed = std::move(Session().gcnnTemp);
    prompts.ExpectCritical(QStringLiteral("The Database Is Closed"));
    Handle([] { (void)TempStore(); });
}

TEST_F(ApplicationTest, TheEndOfTheProcessThatIsSaidBeforeTheEventsBeginEndsThemInOrder)
{
    EndProcessWith({});
    EndProcess();
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

} // namespace
} // namespace tally::test
