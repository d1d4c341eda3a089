#include "students/RelievingRules.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

const QDate Admission(2024, 6, 3);
const QDate LastDay(2024, 6, 12);

/// Whom nothing speaks against.
RelievingFacts Free()
{
    return {.placed = true, .admissionDate = Admission, .lastWorkingDay = LastDay};
}

Relieving Entry()
{
    return {.relievingDate = QDate(2024, 6, 10),
            .reason = {},
            .tcNo = QStringLiteral("TC 1"),
            .tcDate = QDate(2024, 6, 11)};
}

TEST(RelievingRules, AWholeEntryOfAStudentOnRollPasses)
{
    EXPECT_EQ(FaultOfRelieving(Entry(), Free()), RelievingFault::None);
    EXPECT_EQ(FaultOfStudent(Free()), RelievingFault::None);
}

TEST(RelievingRules, FaultsAreToldInTheOrderOfTheSave)
{
    // All faults at once; one after the other is mended.
    RelievingFacts facts{.relieved = true,
                         .placed = false,
                         .promoted = true,
                         .admissionDate = Admission,
                         .lastWorkingDay = LastDay,
                         .tcNoTaken = true};
    Relieving entry{
        .relievingDate = Admission.addDays(-1), .reason = {}, .tcNo = {}, .tcDate = Admission.addDays(-1)};
    const auto expect = [&](RelievingFault fault) { EXPECT_EQ(FaultOfRelieving(entry, facts), fault); };
    expect(RelievingFault::AlreadyRelieved);
    facts.relieved = false;
    expect(RelievingFault::NotPlaced);
    facts.placed = true;
    expect(RelievingFault::Promoted);
    facts.promoted = false;
    expect(RelievingFault::RelievedBeforeAdmission);
    entry.relievingDate = LastDay.addDays(1);
    expect(RelievingFault::RelievedInFuture);
    entry.relievingDate = LastDay;
    expect(RelievingFault::TCNoMissing);
    entry.tcNo = QStringLiteral("TC 1");
    expect(RelievingFault::TCBeforeAdmission);
    entry.tcDate = LastDay.addDays(1);
    expect(RelievingFault::TCInFuture);
    entry.tcDate = LastDay.addDays(-1);
    expect(RelievingFault::TCBeforeRelieving);
    entry.tcDate = LastDay;
    expect(RelievingFault::TCNoTaken);
    facts.tcNoTaken = false;
    expect(RelievingFault::None);
}

TEST(RelievingRules, AStudentIsAskedAboutBeforeHisDates)
{
    RelievingFacts facts;
    EXPECT_FALSE(facts.placed);
    EXPECT_EQ(FaultOfStudent(facts), RelievingFault::None) << "that is told at the save";
    facts.promoted = true;
    EXPECT_EQ(FaultOfStudent(facts), RelievingFault::Promoted);
    facts.relieved = true;
    EXPECT_EQ(FaultOfStudent(facts), RelievingFault::AlreadyRelieved);
}

TEST(RelievingRules, TheDayOfTheAdmissionPassesAndTheDayBeforeDoesNot)
{
    EXPECT_EQ(FaultOfRelievingDate(Admission, Free()), RelievingFault::None);
    EXPECT_EQ(FaultOfRelievingDate(Admission.addDays(-1), Free()), RelievingFault::RelievedBeforeAdmission);
    Relieving entry = Entry();
    entry.relievingDate = entry.tcDate = Admission;
    EXPECT_EQ(FaultOfTCDate(entry, Free()), RelievingFault::None);
    EXPECT_EQ(FaultOfRelieving(entry, Free()), RelievingFault::None);
    entry.tcDate = Admission.addDays(-1);
    EXPECT_EQ(FaultOfTCDate(entry, Free()), RelievingFault::TCBeforeAdmission);
}

TEST(RelievingRules, AnyDayUpToTheLastOneOfTheCalendarHasBeenReached)
{
    EXPECT_EQ(FaultOfRelievingDate(LastDay, Free()), RelievingFault::None);
    EXPECT_EQ(FaultOfRelievingDate(LastDay.addDays(1), Free()), RelievingFault::RelievedInFuture);
    RelievingFacts without = Free();
    without.lastWorkingDay = QDate();
    EXPECT_EQ(FaultOfRelievingDate(Admission, without), RelievingFault::RelievedInFuture);
}

TEST(RelievingRules, WhileTheCertificatesDateIsChosenItIsComparedWithTheRelievingBeforeTheFuture)
{
    RelievingFacts facts = Free();
    Relieving entry = Entry();
    entry.relievingDate = LastDay.addDays(3);
    entry.tcDate = LastDay.addDays(2);
    EXPECT_EQ(FaultOfTCDate(entry, facts), RelievingFault::TCBeforeRelievingWhileChoosing);
    entry.tcDate = LastDay.addDays(3);
    EXPECT_EQ(FaultOfTCDate(entry, facts), RelievingFault::TCInFuture);
    facts.admissionDate = LastDay.addDays(9);
    EXPECT_EQ(FaultOfTCDate(entry, facts), RelievingFault::TCBeforeAdmission);
}

TEST(RelievingRules, AnAdmissionDateThatNobodyKnowsIsBeforeEveryDay)
{
    RelievingFacts facts = Free();
    facts.admissionDate = QDate();
    EXPECT_EQ(FaultOfRelievingDate(QDate(1990, 1, 1), facts), RelievingFault::None);
}

TEST(RelievingRules, EachFaultHasItsTextAndTheCertificatesDateHasTwo)
{
    const std::pair<RelievingFault, const char*> texts[] = {
        {RelievingFault::None, ""},
        {RelievingFault::NumberUnknown, "Admission No. Does Not Exist"},
        {RelievingFault::AlreadyRelieved, "Student Is Already Relieved"},
        {RelievingFault::NotPlaced, "'Student Admission Entry' Not Exists For This Student"},
        {RelievingFault::Promoted, "Already Student Promoted Or Detained.\n"
                                   "So You Cannot Relieve This Student In This Academic Year"},
        {RelievingFault::RelievedBeforeAdmission, "Relieving Date Should Be Greater Than Admission Date"},
        {RelievingFault::RelievedInFuture, "Future Date Cannot Be Given For 'Relieving Date'"},
        {RelievingFault::TCNoMissing, "Enter TC No."},
        {RelievingFault::TCBeforeAdmission, "TC Date Should Be Greater Than Admission Date"},
        {RelievingFault::TCInFuture, "Future Date Cannot Be Given For 'TC Date'"},
        {RelievingFault::TCBeforeRelieving, "TC Date Should Not Be Less Than Relieving Date"},
        {RelievingFault::TCBeforeRelievingWhileChoosing, "TC Date Should Not Be Lesser Than Relieving Date"},
        {RelievingFault::TCNoTaken, "TC No. Already Exists"},
    };
    for (const auto& [fault, text] : texts)
        EXPECT_EQ(TextOf(fault).toStdString(), text);
}

} // namespace
} // namespace tally::test
