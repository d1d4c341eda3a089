#include "core/ui/ScreenRegistry.h"
#include "reports/ChartRepository.h"
#include "reports/ChartView.h"
#include "reports/DivisionReportScreen.h"
#include "reports/frmclassdivisionsubjectavg.h"
#include "support/StoreWords.h"

#include <chrono>

namespace tally::test {
namespace {

/// The averages of two divisions, about to be charted, and another client on the same working file.
class SharedChart : public DivisionReportScreen<frmclassdivisionsubjectavg>
{
protected:
    void SetUp() override
    {
        DivisionReportScreen::SetUp();
        other = AnotherClient(QStringLiteral("TempTallyboard.mdb"));
        GivenTwoDivisions();
        OpenReport("frmclassdivisionsubjectavg", "ChkSelectDivision", "chkSelectSubjects");
        ChooseAll();
        Press(Button("cmdView"));
        ASSERT_TRUE(IsEnabled("cmdChart"));
    }
    void TearDown() override
    {
        other.reset();
        DivisionReportScreen::TearDown();
    }

    static Screen* ChartWindow()
    {
        return ScreenRegistry::OpenInstance(QStringLiteral("frmStudentExamAvgChart"));
    }
    static std::string Shown()
    {
        return Find<ChartView>(ChartWindow(), "mscChart")->accessibleDescription().toStdString();
    }

    std::unique_ptr<store::Connection> other;
    const std::string own = "X A: Eng 60, Mat 80\nX B: Eng 37.75, Mat 50";
};

TEST_F(SharedChart, StaysThatOfTheOwnReportWhenAnotherClientLaysHisDown)
{
    Press(Button("cmdChart"));
    EXPECT_EQ(Shown(), own);
    ChartRepository(*other).LayDown({.labelColumn = "ExamName",
                                     .series = {QStringLiteral("Zoo")},
                                     .rows = {{QStringLiteral("Foreign"), {1}}}});
    EXPECT_EQ(Shown(), own);
    const auto* chart = Find<ChartView>(ChartWindow(), "mscChart");
    ASSERT_EQ(chart->ShownChart().table.series.size(), 2);
    Press(Button("cmdChart"));
    EXPECT_EQ(Shown(), own) << "the report takes the place of the other client's";
    EXPECT_EQ(other->Number(QStringLiteral("SELECT count(*) FROM TempChartReport")), 2);
}

TEST_F(SharedChart, IsNotShownWhileTheFileIsHeldAndCanBeAskedForAgain)
{
    Session().gcnnTemp->SetPatience(std::chrono::milliseconds(50));
    other->Begin();
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdChart"));
    prompts.Verify();
    EXPECT_EQ(ChartWindow(), nullptr);
    EXPECT_TRUE(IsEnabled("cmdChart"));
    other->Rollback();
    Press(Button("cmdChart"));
    EXPECT_EQ(Shown(), own);
}

} // namespace
} // namespace tally::test
