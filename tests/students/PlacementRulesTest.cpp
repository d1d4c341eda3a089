#include "students/PlacementRules.h"

#include "students/Placement.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

TEST(PlacementRules, AStudentOnRollWithoutMarksMayBePlacedCorrectedAndDeleted)
{
    EXPECT_EQ(FaultOfPlacing({}), PlacementFault::None);
    EXPECT_EQ(FaultOfCorrecting({.placements = 1}), PlacementFault::None);
    EXPECT_EQ(FaultOfDeleting({.placements = 1}), PlacementFault::None);
}

TEST(PlacementRules, WhatSpeaksAgainstPlacingIsToldInItsOrder)
{
    PlacementFacts facts{.relieved = true, .placements = 3, .laterPlacements = 2, .marks = 1};
    EXPECT_EQ(FaultOfPlacing(facts), PlacementFault::Relieved);
    facts.relieved = false;
    EXPECT_EQ(FaultOfPlacing(facts), PlacementFault::Promoted);
    facts.laterPlacements = 1;
    EXPECT_EQ(FaultOfPlacing(facts), PlacementFault::AlreadyPlaced);
    facts.placements = 0;
    EXPECT_EQ(FaultOfPlacing(facts), PlacementFault::HasMarks);
}

TEST(PlacementRules, WhatSpeaksAgainstACorrectionIsToldInItsOrderAndOneLaterYearAlonePasses)
{
    PlacementFacts facts{.relieved = true, .placements = 3, .laterPlacements = 2, .marks = 1};
    EXPECT_EQ(FaultOfCorrecting(facts), PlacementFault::Relieved);
    facts.relieved = false;
    EXPECT_EQ(FaultOfCorrecting(facts), PlacementFault::Promoted);
    facts.laterPlacements = 1;
    EXPECT_EQ(FaultOfCorrecting(facts), PlacementFault::HasMarks);
    facts.marks = 0;
    EXPECT_EQ(FaultOfCorrecting(facts), PlacementFault::None);
}

TEST(PlacementRules, ADeleteLeavesNoLaterYearAndNoMarksBehind)
{
    PlacementFacts facts{.relieved = true, .placements = 2, .laterPlacements = 1, .marks = 1};
    EXPECT_EQ(FaultOfDeleting(facts), PlacementFault::Relieved);
    facts.relieved = false;
    EXPECT_EQ(FaultOfDeleting(facts), PlacementFault::Promoted);
    facts.laterPlacements = 0;
    EXPECT_EQ(FaultOfDeleting(facts), PlacementFault::HasMarks);
}

TEST(PlacementRules, APlaceIsAClassAndADivision)
{
    EXPECT_TRUE((Placement{1, 2}).IsComplete());
    EXPECT_FALSE((Placement{1, 0}).IsComplete());
    EXPECT_FALSE((Placement{0, 2}).IsComplete());
}

TEST(PlacementRules, EachFaultHasItsText)
{
    const std::pair<PlacementFault, const char*> texts[] = {
        {PlacementFault::None, ""},
        {PlacementFault::Relieved, "Student Has Been Already Relieved, So You Cannot Modify This Entry"},
        {PlacementFault::Promoted, "Already Promotion-Retain Entry Made For The Selected Student, So You "
                                   "Cannot Modify This Entry"},
        {PlacementFault::AlreadyPlaced, "Admission Already Made"},
        {PlacementFault::HasMarks, "'Classwise Mark Entry' Is Already Made For The Selected Student. So You "
                                   "Cannot Edit/Delete"},
    };
    for (const auto& [fault, text] : texts)
        EXPECT_EQ(TextOf(fault).toStdString(), text);
}

TEST(PlacementRules, WhoHasASecondYearKeepsHisClass)
{
    EXPECT_FALSE(KeepsClass({.placements = 1}));
    EXPECT_TRUE(KeepsClass({.placements = 2}));
}

TEST(PlacementRules, WhatCanNoLongerBeChangedIsAskedAboutLaterYearsBeforeMarksAndThenTheRelieving)
{
    const auto asked = [](const PlacementFacts& facts) {
        return QuestionsBeforeViewing(facts, QStringLiteral("A7")).join(QLatin1Char('|')).toStdString();
    };
    const std::string rest =
        " For Admission No. : A7\nYou Cannot Edit/Delete This Record.\nDo You Want To View The Details ?";
    const std::string relieved = "Do You Want To View Relieved Student Details ?";
    EXPECT_EQ(asked({.placements = 1}), "");
    EXPECT_EQ(asked({.placements = 2, .laterPlacements = 1}), "Already Promotion Made" + rest);
    EXPECT_EQ(asked({.placements = 2, .laterPlacements = 1, .marks = 3}), "Already Promotion Made" + rest);
    EXPECT_EQ(asked({.placements = 1, .marks = 3}), "Already Mark Entered" + rest);
    EXPECT_EQ(asked({.relieved = true, .placements = 1}), relieved);
    EXPECT_EQ(asked({.relieved = true, .placements = 1, .marks = 3}),
              "Already Mark Entered" + rest + "|" + relieved);
}

} // namespace
} // namespace tally::test
