#include "students/PromotionLists.h"
#include "students/PromotionSchool.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

PromotionStudent Student(int code, const char* name, const Placement& current = NineA,
                         const Placement& next = {})
{
    PromotionStudent student;
    student.studentCode = code;
    student.name = QString::fromLatin1(name);
    student.admissionNo = QStringLiteral("A%1").arg(code);
    student.current = current;
    student.next = next;
    if (next == TenA)
        student.nextPlace = QStringLiteral("X-A");
    return student;
}

PromotionStudent WithMarks(PromotionStudent student)
{
    student.hasMarks = true;
    return student;
}

PromotionStudent CarriedOn(PromotionStudent student)
{
    student.carriedOn = true;
    return student;
}

PromotionStudent Relieved(PromotionStudent student)
{
    student.relieved = true;
    return student;
}

/// The lines of a list between bars.
std::string ToText(const std::vector<ListItem>& items)
{
    QStringList lines;
    for (const ListItem& item : items)
        lines.append(item.text);
    return lines.join(QLatin1Char('|')).toStdString();
}

const CodedTexts Classes{{5, QStringLiteral("XI")},
                         {1, QStringLiteral("X")},
                         {2, QStringLiteral("IX")},
                         {3, QStringLiteral("VIII")}};

TEST(PromotionClasses, APromotionLeadsIntoTheClassJustAboveInTheOrderOfTheList)
{
    EXPECT_EQ(TargetClass(Classes, PromotionKind::Promote, 1), 5);
    EXPECT_EQ(TargetClass(Classes, PromotionKind::Promote, 3), 2);
}

TEST(PromotionClasses, NothingLiesAboveTheHighestClassNorAboveNone)
{
    EXPECT_EQ(TargetClass(Classes, PromotionKind::Promote, 5), 0);
    EXPECT_EQ(TargetClass(Classes, PromotionKind::Promote, 0), 0);
}

TEST(PromotionClasses, WhoIsRetainedStaysInTheClassTheHighestOneToo)
{
    EXPECT_EQ(TargetClass(Classes, PromotionKind::Retain, 5), 5);
    EXPECT_EQ(TargetClass(Classes, PromotionKind::Retain, 3), 3);
}

TEST(PromotionClasses, APromotionIsRefusedToAnyClassButTheNextHigherOne)
{
    const auto fault = [](int from, int to) {
        return ClassFault(Classes, PromotionKind::Promote, from, to).toStdString();
    };
    EXPECT_EQ(fault(2, 1), "");
    EXPECT_EQ(fault(2, 2), "Promotion Cannot Be Done To The Same/Lower Classes");
    EXPECT_EQ(fault(2, 3), "Promotion Cannot Be Done To The Same/Lower Classes");
    EXPECT_EQ(fault(2, 5), "Promotion Can Be Done Only To Next Higher Class");
    EXPECT_EQ(fault(3, 5), "Promotion Can Be Done Only To Next Higher Class");
}

TEST(PromotionClasses, ToRetainIsRefusedInAnyOtherClass)
{
    const auto fault = [](int from, int to) {
        return ClassFault(Classes, PromotionKind::Retain, from, to).toStdString();
    };
    EXPECT_EQ(fault(2, 2), "");
    EXPECT_EQ(fault(2, 1), "Retain Can Be Made Only In The Same Class");
    EXPECT_EQ(fault(2, 3), "Retain Can Be Made Only In The Same Class");
}

class PromotionListsTest : public testing::Test
{
protected:
    std::string From() const { return ToText(lists.FromItems()); }
    std::string To() const { return ToText(lists.ToItems()); }

    PromotionLists lists;
};

TEST_F(PromotionListsTest, WhoWasCarriedOnAlreadyHasASignInFrontAndCannotBeTicked)
{
    lists.ShowFrom({Student(1, "Asha"), Student(2, "Binu", NineA, TenA)});
    EXPECT_EQ(From(), "    Asha - (A1)|#   Binu - (A2)");
    EXPECT_EQ(lists.FromItems()[0].refusal, QString());
    EXPECT_EQ(lists.FromItems()[1].refusal.toStdString(), "Student 'Binu' Already Promoted/Detained To X-A");
    EXPECT_EQ(lists.FromItems()[1].code, 2);
}

TEST_F(PromotionListsTest, TheNextYearTellsWhatStandsAgainstTakingAStudentBack)
{
    lists.ShowTo({Student(1, "Asha", NineA, TenA), CarriedOn(Student(2, "Binu", NineA, TenA)),
                  WithMarks(Student(3, "Cara", NineA, TenA)),
                  WithMarks(CarriedOn(Student(4, "Dev", NineA, TenA)))});
    EXPECT_EQ(To(), "   Asha - (A1)| # Binu - (A2)| $ Cara - (A3)| #$ Dev - (A4)");
    const std::string marks =
        "Marks Are Already Entered For This Student, So Removing Of Student Is Not Possible";
    EXPECT_EQ(lists.ToItems()[0].refusal, QString());
    EXPECT_EQ(lists.ToItems()[1].refusal.toStdString(),
              "Already Promotion/Detaining Made For This Student, So Removing Of Student Is Not Possible");
    EXPECT_EQ(lists.ToItems()[2].refusal.toStdString(), marks);
    EXPECT_EQ(lists.ToItems()[3].refusal.toStdString(), marks) << "marks are told before names";
}

TEST_F(PromotionListsTest, WhoIsMovedStandsBehindTheOthersInTheOrderOfMoving)
{
    lists.ShowFrom({Student(1, "Asha"), Student(2, "Binu"), Student(3, "Cara")});
    lists.ShowTo({Student(4, "Zoe", NineA, TenA)});
    lists.Move({3});
    lists.Move({1});
    EXPECT_EQ(From(), "    Binu - (A2)");
    EXPECT_EQ(To(), "   Zoe - (A4)|   Cara - (A3)|   Asha - (A1)");
    EXPECT_TRUE(lists.TakeBack({3}, NineA));
    EXPECT_EQ(From(), "    Binu - (A2)|    Cara - (A3)");
    EXPECT_EQ(To(), "   Zoe - (A4)|   Asha - (A1)");
}

TEST_F(PromotionListsTest, WhoIsInNeitherListIsPassedOver)
{
    lists.ShowFrom({Student(1, "Asha")});
    lists.ShowTo({Student(4, "Zoe", NineA, TenA)});
    lists.Move({7});
    EXPECT_TRUE(lists.TakeBack({7}, NineA));
    EXPECT_EQ(From(), "    Asha - (A1)");
    EXPECT_EQ(To(), "   Zoe - (A4)");
}

TEST_F(PromotionListsTest, WhatIsMovedButNotStoredCanAlwaysBeTakenBack)
{
    lists.ShowFrom({WithMarks(CarriedOn(Student(1, "Asha")))});
    lists.Move({1});
    EXPECT_EQ(To(), "   Asha - (A1)");
    EXPECT_EQ(lists.ToItems()[0].refusal, QString());
}

TEST_F(PromotionListsTest, WhoIsTakenBackLosesTheSignInHisOwnList)
{
    lists.ShowFrom({Student(1, "Asha"), Student(2, "Binu", NineA, TenA)});
    lists.ShowTo({Student(2, "Binu", NineA, TenA)});
    EXPECT_TRUE(lists.TakeBack({2}, NineA));
    EXPECT_EQ(From(), "    Asha - (A1)|    Binu - (A2)");
    EXPECT_EQ(To(), "");
    lists.Move({2});
    EXPECT_EQ(From(), "    Asha - (A1)");
    EXPECT_EQ(To(), "   Binu - (A2)");
    EXPECT_TRUE(lists.Plan().takenBack.empty()) << "he is where he was";
}

TEST_F(PromotionListsTest, WhoIsCarriedOnAlreadyIsNotMovedOnceMore)
{
    lists.ShowFrom({Student(1, "Asha"), Student(2, "Binu", NineA, TenA)});
    lists.ShowTo({Student(2, "Binu", NineA, TenA)});
    ASSERT_TRUE(lists.TakeBack({2}, NineA));
    lists.ShowTo({});
    lists.Move({1, 2});
    EXPECT_EQ(From(), "#   Binu - (A2)");
    EXPECT_EQ(To(), "   Asha - (A1)");
}

TEST_F(PromotionListsTest, WhoCameFromAnotherClassDivisionIsNotTakenBackAndTheOthersAre)
{
    lists.ShowFrom({Student(1, "Asha", NineA, TenA)});
    lists.ShowTo({Student(1, "Asha", NineA, TenA), Student(2, "Binu", NineB, TenA),
                  Student(3, "Cara", TenA, TenA), Student(4, "New", {}, TenA)});
    EXPECT_FALSE(lists.TakeBack({1, 2, 3, 4}, NineA));
    EXPECT_EQ(From(), "    Asha - (A1)");
    EXPECT_EQ(To(), "   Binu - (A2)|   Cara - (A3)|   New - (A4)");
}

TEST_F(PromotionListsTest, AnotherDivisionOfTheClassKeepsWhoWasMovedAndOffersNobodyTwice)
{
    lists.ShowFrom({Student(1, "Asha"), Student(2, "Binu")});
    lists.ShowTo({});
    lists.Move({1});
    lists.ShowFrom({Student(5, "Esha", NineB)});
    EXPECT_EQ(To(), "   Asha - (A1)");
    lists.ShowFrom({Student(1, "Asha"), Student(2, "Binu")});
    EXPECT_EQ(From(), "    Binu - (A2)");
}

TEST_F(PromotionListsTest, AnotherDivisionOfTheNextYearTakesTheMovedAlongAndForgetsWhoWasTakenBack)
{
    lists.ShowFrom({Student(1, "Asha"), Student(2, "Binu", NineA, TenA)});
    lists.ShowTo({Student(2, "Binu", NineA, TenA), Student(7, "Zoe", NineB, TenA)});
    lists.Move({1});
    ASSERT_TRUE(lists.TakeBack({2}, NineA));
    lists.ShowTo({Student(6, "Fay", NineA, TenB)});
    EXPECT_EQ(To(), "   Fay - (A6)|   Asha - (A1)");
    EXPECT_EQ(From(), "#   Binu - (A2)");
    EXPECT_TRUE(lists.Plan().takenBack.empty());
}

TEST_F(PromotionListsTest, WhoWasMovedAndIsStoredThereByAnotherClientIsListedOnce)
{
    lists.ShowFrom({Student(1, "Asha")});
    lists.ShowTo({});
    lists.Move({1});
    lists.ShowTo({Student(1, "Asha", NineA, TenA)});
    EXPECT_EQ(To(), "   Asha - (A1)");
    EXPECT_TRUE(lists.TakeBack({1}, NineA));
    EXPECT_EQ(lists.Plan().takenBack.size(), 1U);
}

TEST_F(PromotionListsTest, ThePlanHoldsWhoWasThereWhoShallBeAndWhoWasTakenBack)
{
    lists.ShowFrom({Student(1, "Asha"), Student(2, "Binu", NineA, TenA)});
    lists.ShowTo({Student(2, "Binu", NineA, TenA), Student(3, "Cara", NineB, TenA)});
    lists.Move({1});
    ASSERT_TRUE(lists.TakeBack({2}, NineA));
    const PromotionPlan plan = lists.Plan();
    const auto codes = [](const std::vector<PromotionStudent>& students) {
        std::vector<int> of;
        of.reserve(students.size());
        for (const PromotionStudent& student : students)
            of.push_back(student.studentCode);
        return of;
    };
    EXPECT_EQ(codes(plan.before), (std::vector<int>{2, 3}));
    EXPECT_EQ(codes(plan.listed), (std::vector<int>{3, 1}));
    EXPECT_EQ(codes(plan.takenBack), (std::vector<int>{2}));
    EXPECT_EQ(plan.Students(), (std::vector<int>{3, 1, 2}));
}

TEST_F(PromotionListsTest, AClearedListHasNobodyAndRemembersNobody)
{
    lists.ShowFrom({Student(1, "Asha")});
    lists.ShowTo({Student(2, "Binu", NineA, TenA)});
    lists.Move({1});
    lists.Clear();
    EXPECT_EQ(From() + To(), "");
    EXPECT_TRUE(lists.Plan().Students().empty());
    EXPECT_TRUE(lists.Plan().before.empty());
}

/// Binu is in X-A already, Asha is moved into it, Cara taken back from it.
class PromotionFaults : public testing::Test
{
protected:
    void SetUp() override
    {
        plan.years = {.current = ThisYear,
                      .next = NextYear,
                      .following = YearBehind,
                      .currentName = QStringLiteral("2024 - 2025"),
                      .nextName = QStringLiteral("2025 - 2026")};
        plan.fromClass = NineA.classCode;
        plan.target = TenA;
        plan.before = {binu, cara};
        plan.listed = {binu, asha};
        plan.takenBack = {cara};
        years = plan.years;
    }

    /// What the clerk is told, behind "anew: " where he has to start anew.
    std::string Fault() const
    {
        const auto fault = FindFault(plan, {years, classes, divisions, {asha, binu, cara}, target});
        return fault ? (fault->startAnew ? "anew: " : "") + fault->text.toStdString() : std::string();
    }
    static std::string Meanwhile(const std::string& what)
    {
        return "anew: " + what + " By Another User Meanwhile.\nYou Cannot Save This Data.";
    }
    static std::string Changed(const std::string& name)
    {
        return Meanwhile("The Class-Division Of '" + name + "' Was Changed");
    }
    static std::string CarriedOnMeanwhile(const std::string& name)
    {
        return Meanwhile("The Promote/Detain Entry Of '" + name + "' In The Next Academic Year Was Changed");
    }

    PromotionStudent asha = Student(1, "Asha");
    PromotionStudent binu = Student(2, "Binu", NineA, TenA);
    PromotionStudent cara = Student(3, "Cara", NineA, TenA);
    PromotionYears years;
    CodedTexts classes{Classes};
    CodedTexts divisions{{1, QStringLiteral("A")}, {2, QStringLiteral("B")}};
    std::vector<PromotionStudent> target{binu, cara};
    PromotionPlan plan;
};

TEST_F(PromotionFaults, ThereIsNoneWhileEverythingIsAsItWasSeen)
{
    EXPECT_EQ(Fault(), "");
}

TEST_F(PromotionFaults, WhoeverWasRelievedMeanwhileCannotBeCarriedAndTheListsStay)
{
    for (PromotionStudent* student : {&asha, &binu}) {
        const PromotionStudent before = *student;
        *student = Relieved(*student);
        EXPECT_EQ(Fault(), "Promotion Cannot Be Done To The Relieved Student(s)");
        *student = before;
    }
}

TEST_F(PromotionFaults, WhoeverHasNoClassInThisYearIsNamedAndTheListsStay)
{
    asha.current = {};
    EXPECT_EQ(Fault(), "'Student Admission Entry' Not Exists For The Student Asha");
    asha.current = NineA;
    binu.current = {};
    EXPECT_EQ(Fault(), "'Student Admission Entry' Not Exists For The Student Binu");
}

TEST_F(PromotionFaults, AStudentWhoIsGoneHasNoClassInThisYear)
{
    const auto fault = FindFault(plan, {years, classes, divisions, {binu, cara}, target});
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->text.toStdString(), "'Student Admission Entry' Not Exists For The Student Asha");
}

TEST_F(PromotionFaults, ARelievedStudentIsToldBeforeOneWithoutAClass)
{
    binu.current = {};
    asha = Relieved(asha);
    EXPECT_EQ(Fault(), "Promotion Cannot Be Done To The Relieved Student(s)");
}

TEST_F(PromotionFaults, WhoeverWasCarriedMeanwhileIsToldWithHisPlace)
{
    asha.next = TenB;
    asha.nextPlace = QStringLiteral("X-B");
    EXPECT_EQ(Fault(), "anew: Student 'Asha' Already Promoted/Detained To X-B");
    asha.current = NineB;
    EXPECT_EQ(Fault(), "anew: Student 'Asha' Already Promoted/Detained To X-B") << "wherever he came from";
}

TEST_F(PromotionFaults, WhoeverChangedHisClassDivisionMeanwhileIsTold)
{
    asha.current = NineB;
    EXPECT_EQ(Fault(), Changed("Asha"));
}

TEST_F(PromotionFaults, WhoeverLeftTheTargetMeanwhileIsNotPutBackUnseen)
{
    binu.next = TenB;
    EXPECT_EQ(Fault(), Changed("Binu"));
    binu.next = {};
    EXPECT_EQ(Fault(), Changed("Binu"));
}

TEST_F(PromotionFaults, WhoeverWasCarriedOnFromTheTargetMeanwhileIsTold)
{
    binu = CarriedOn(binu);
    EXPECT_EQ(Fault(), CarriedOnMeanwhile("Binu"));
    plan.before[0] = plan.listed[0] = binu;
    binu = Student(2, "Binu", NineA, TenA);
    EXPECT_EQ(Fault(), CarriedOnMeanwhile("Binu")) << "his status would say that he is gone";
}

TEST_F(PromotionFaults, WhoeverIsMovedAndGotAPlaceInTheYearBehindMeanwhileIsTold)
{
    asha = CarriedOn(asha);
    EXPECT_EQ(Fault(), CarriedOnMeanwhile("Asha"));
}

TEST_F(PromotionFaults, YearsThatAreOthersByNowAreTold)
{
    const std::string changed = Meanwhile("The Academic Year Setup Was Changed");
    years.following = 11;
    EXPECT_EQ(Fault(), changed);
    years = plan.years;
    years.next = 0;
    EXPECT_EQ(Fault(), changed);
    classes.clear();
    EXPECT_EQ(Fault(), changed) << "before any class";
}

TEST_F(PromotionFaults, AClassOrADivisionThatIsGoneIsTold)
{
    const std::string gone = Meanwhile("The Class-Division On The 'To' Side Was Deleted");
    divisions = {{2, QStringLiteral("B")}};
    EXPECT_EQ(Fault(), gone);
    divisions.clear();
    std::erase_if(classes, [](const auto& entry) { return entry.first == TenA.classCode; });
    EXPECT_EQ(Fault(), gone);
    classes.clear();
    EXPECT_EQ(Fault(), Meanwhile("The Class On The 'From' Side Was Deleted"));
}

TEST_F(PromotionFaults, AClassPutBetweenTheTwoIsToldAsWhileChoosing)
{
    classes.insert(classes.begin() + 2, {7, QStringLiteral("IX B")});
    EXPECT_EQ(Fault(), "anew: Promotion Can Be Done Only To Next Higher Class");
}

TEST_F(PromotionFaults, ADivisionChangedBeforeThePromotionIsNoFaultOfWhoIsInTheTargetAlready)
{
    binu.current = NineB;
    EXPECT_EQ(Fault(), "");
}

TEST_F(PromotionFaults, WhoGotMarksMeanwhileCannotBeTakenBack)
{
    cara = WithMarks(cara);
    EXPECT_EQ(Fault(),
              "anew: Marks Are Already Entered For This Student, So Removing Of Student Is Not Possible");
}

TEST_F(PromotionFaults, WhoWasCarriedOnMeanwhileCannotBeTakenBack)
{
    cara = CarriedOn(cara);
    EXPECT_EQ(Fault(), "anew: Already Promotion/Detaining Made For This Student, So Removing Of Student Is "
                       "Not Possible");
}

TEST_F(PromotionFaults, WhoIsNoLongerWhereHeIsTakenBackFromIsTold)
{
    const PromotionStudent before = cara;
    cara.next = TenB;
    EXPECT_EQ(Fault(), Changed("Cara"));
    cara.hasMarks = true;
    EXPECT_EQ(Fault(), Changed("Cara")) << "the marks are of another class-division";
    cara = before;
    cara.current = {};
    EXPECT_EQ(Fault(), Changed("Cara"));
}

TEST_F(PromotionFaults, WhoIsTakenBackAndWasRelievedMeanwhileIsToldAsRelieved)
{
    cara = Relieved(cara);
    EXPECT_EQ(Fault(), "anew: Promotion Cannot Be Done To The Relieved Student(s)");
    cara.next = TenB;
    EXPECT_EQ(Fault(), "anew: Promotion Cannot Be Done To The Relieved Student(s)") << "wherever he is";
}

TEST_F(PromotionFaults, WhoeverCameIntoTheTargetMeanwhileIsNotLost)
{
    target.push_back(Student(9, "Zoe", {}, TenA));
    EXPECT_EQ(Fault(),
              "anew: 'Zoe' Was Placed In X-A By Another User Meanwhile.\nYou Cannot Save This Data.");
}

} // namespace
} // namespace tally::test
