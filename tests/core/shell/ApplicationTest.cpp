#include "store/StoreError.h"
#include "support/ScreenFixture.h"

#include <QPushButton>

#include <stdexcept>

namespace tally::test {
namespace {

class ApplicationTest : public ScreenFixture
{
protected:
    /// Presses a button whose handler does `work`.
    void PressWith(const std::function<void()>& work)
    {
        QPushButton button;
        QObject::connect(&button, &QPushButton::clicked, &button, work);
        button.show();
        QTest::mouseClick(&button, Qt::LeftButton);
        prompts.Verify();
    }
};

TEST_F(ApplicationTest, AFaultOfTheStoreThatNoHandlerCaughtIsToldAndTheProgramGoesOn)
{
    prompts.ExpectCritical(NoSuchTable("Anywhere"));
    PressWith([] { (void)MainStore().Number(QStringLiteral("SELECT count(*) FROM Anywhere")); });
    EXPECT_NE(OpenScreen(QStringLiteral("frmUtilOptions")), nullptr);
}

TEST_F(ApplicationTest, AnyOtherFaultIsToldAsWell)
{
    prompts.ExpectCritical(QStringLiteral("This Could Not Be Done : no room"));
    PressWith([] { throw std::runtime_error("no room"); });
}

TEST_F(ApplicationTest, WorkOnADatabaseThatIsClosedIsToldInPlainWords)
{
    const auto closed = std::move(Session().gcnnTemp);
    prompts.ExpectCritical(QStringLiteral("The Database Is Closed"));
    PressWith([] { (void)TempStore(); });
}

} // namespace
} // namespace tally::test
