#include "students/PromotionRepository.h"

#include "store/StoreError.h"
#include "students/PromotionLists.h"
#include "students/PromotionSchool.h"
#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

constexpr int Clerk = 5;

class PromotionRepositoryTest : public testing::Test
{
protected:
    PromotionRepository Repository() { return PromotionRepository(main); }
    PromotionYears Years() { return Repository().Years(ThisYear); }
    PromotionStudent Find(int code)
    {
        const std::vector<PromotionStudent> found = Repository().Find(Years(), {code});
        return found.size() == 1 ? found[0] : PromotionStudent();
    }
    static std::string Names(const std::vector<PromotionStudent>& students)
    {
        QStringList names;
        for (const PromotionStudent& student : students)
            names.append(student.name);
        return names.join(QLatin1Char(' ')).toStdString();
    }
    std::string FromNames(const Placement& place) { return Names(Repository().FromStudents(Years(), place)); }
    std::string ToNames(const Placement& place) { return Names(Repository().ToStudents(Years(), place)); }

    /// The plan of a clerk who promotes from IX-A into X-A as both are now.
    PromotionLists Lists()
    {
        PromotionLists lists;
        lists.ShowFrom(Repository().FromStudents(Years(), NineA));
        lists.ShowTo(Repository().ToStudents(Years(), TenA));
        return lists;
    }
    PromotionPlan PlanOf(const PromotionLists& lists)
    {
        PromotionPlan plan = lists.Plan();
        plan.years = Years();
        plan.fromClass = NineA.classCode;
        plan.target = TenA;
        return plan;
    }
    /// What the clerk is told; empty when it is stored.
    std::string Save(const PromotionPlan& plan)
    {
        store::Transaction transaction(main);
        const auto fault = SavePromotion(transaction, plan, Clerk);
        transaction.Commit();
        return fault ? fault->text.toStdString() : std::string();
    }

    store::Connection main = DeliveredMainStore();
    PromotionSchool school{main};
};

TEST_F(PromotionRepositoryTest, TheNextYearIsTheOneOfTheNextNumbers)
{
    EXPECT_EQ(Years().current, ThisYear);
    EXPECT_EQ(Years().next, NextYear);
    EXPECT_EQ(Years().currentName.toStdString(), "2024 - 2025");
    EXPECT_EQ(Years().nextName.toStdString(), "2025 - 2026");
}

TEST_F(PromotionRepositoryTest, TheFollowingYearIsTheOneThatFollowsInTheTableWhateverItsCode)
{
    EXPECT_EQ(Years().following, YearBehind);
    school.AddYear(2, 2027, 'N');
    EXPECT_EQ(Years().following, YearBehind);
    EXPECT_EQ(Repository().Years(NextYear).following, 2);
}

TEST_F(PromotionRepositoryTest, BehindTheLastYearsComesNone)
{
    EXPECT_EQ(Repository().Years(NextYear).next, YearBehind);
    EXPECT_EQ(Repository().Years(NextYear).following, 0);
    EXPECT_EQ(Repository().Years(YearBehind).next, 0);
    EXPECT_EQ(Repository().Years(YearBehind).nextName.toStdString(), "2027 - 2028");
}

TEST_F(PromotionRepositoryTest, AYearThatBeginsOrEndsOtherwiseIsNotTheNextOne)
{
    main.Execute(QStringLiteral("UPDATE AcademicYearSetup SET YearTo = 2025 WHERE AcademicYearCode = 9"));
    EXPECT_EQ(Years().next, 0);
    main.Execute(QStringLiteral(
        "UPDATE AcademicYearSetup SET YearFrom = 2026, YearTo = 2026 WHERE AcademicYearCode = 9"));
    EXPECT_EQ(Years().next, 0);
}

TEST_F(PromotionRepositoryTest, ASchoolWithoutAYearHasNoNextOne)
{
    for (const int none : {0, 99}) {
        const PromotionYears years = Repository().Years(none);
        EXPECT_EQ(years.next, 0);
        EXPECT_EQ(years.following, 0);
        EXPECT_EQ((years.currentName + years.nextName).toStdString(), "");
    }
}

TEST_F(PromotionRepositoryTest, TheFromSideListsTheClassDivisionOfThisYearByName)
{
    school.Add(QStringLiteral("Cara"), NineA);
    school.Add(QStringLiteral("asha"), NineA);
    school.Add(QStringLiteral("Binu"), NineA);
    school.Add(QStringLiteral("OtherDivision"), NineB);
    school.Add(QStringLiteral("OtherClass"), TenA);
    school.Add(QStringLiteral("OtherYear"), NineA, NextYear);
    school.Add(QStringLiteral("Nowhere"));
    EXPECT_EQ(FromNames(NineA), "asha Binu Cara");
    EXPECT_EQ(FromNames(NineB), "OtherDivision");
    EXPECT_EQ(FromNames(EightA), "");
}

TEST_F(PromotionRepositoryTest, TheToSideListsTheClassDivisionOfTheNextYearByName)
{
    school.Carry(school.Add(QStringLiteral("Cara"), NineA), TenA);
    school.Carry(school.Add(QStringLiteral("Asha"), TenB), TenA);
    school.Add(QStringLiteral("New"), TenA, NextYear);
    school.Carry(school.Add(QStringLiteral("OtherDivision"), NineA), TenB);
    school.Carry(school.Add(QStringLiteral("OtherClass"), NineA), NineA);
    school.Add(QStringLiteral("OtherYear"), TenA);
    EXPECT_EQ(ToNames(TenA), "Asha Cara New");
}

TEST_F(PromotionRepositoryTest, ARelievedStudentShowsOnNeitherSide)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineA);
    school.Carry(asha, TenA);
    school.Relieve(asha);
    EXPECT_EQ(FromNames(NineA) + ToNames(TenA), "");
    EXPECT_TRUE(Find(asha).relieved);
}

TEST_F(PromotionRepositoryTest, AStudentComesWithHisNumberAndBothPlaces)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineB);
    school.Carry(asha, TenB);
    school.Place(asha, EightA, YearBehind);
    const PromotionStudent student = Find(asha);
    EXPECT_EQ(student.studentCode, asha);
    EXPECT_EQ(student.name.toStdString(), "Asha");
    EXPECT_EQ(student.admissionNo.toStdString(), "A1");
    EXPECT_EQ(student.current, NineB);
    EXPECT_EQ(student.next, TenB);
    EXPECT_EQ(student.nextPlace.toStdString(), "X-B");
    EXPECT_FALSE(student.relieved);
}

TEST_F(PromotionRepositoryTest, StudentsAreFoundByName)
{
    std::vector<int> codes;
    for (const char* name : {"Binu", "Cara", "Asha"})
        codes.push_back(school.Add(QString::fromLatin1(name), NineA));
    EXPECT_EQ(Names(Repository().Find(Years(), codes)), "Asha Binu Cara");
}

TEST_F(PromotionRepositoryTest, AStudentWithoutAPlaceHasNone)
{
    const PromotionStudent student = Find(school.Add(QStringLiteral("Asha")));
    EXPECT_FALSE(student.current.IsComplete());
    EXPECT_FALSE(student.next.IsComplete());
    EXPECT_EQ(student.nextPlace, QString());
}

TEST_F(PromotionRepositoryTest, OnlyMarksInTheClassDivisionOfTheNextYearStandAgainstTakingBack)
{
    const int asha = school.Add(QStringLiteral("Asha"), TenA);
    school.Carry(asha, TenA);
    const int binu = school.Add(QStringLiteral("Binu"), NineA);
    school.Carry(binu, TenA);
    school.EnterMark(asha, TenA, ThisYear);
    school.EnterMark(asha, TenB, NextYear);
    school.EnterMark(asha, NineA, NextYear);
    school.EnterMark(binu, TenA, NextYear);
    EXPECT_FALSE(Find(asha).hasMarks);
    EXPECT_TRUE(Find(binu).hasMarks);
    const std::vector<PromotionStudent> target = Repository().ToStudents(Years(), TenA);
    ASSERT_EQ(target.size(), 2U);
    EXPECT_FALSE(target[0].hasMarks);
    EXPECT_TRUE(target[1].hasMarks);
    school.EnterMark(asha, TenA, NextYear);
    EXPECT_TRUE(Find(asha).hasMarks);
}

TEST_F(PromotionRepositoryTest, OnlyARowOfTheFollowingYearMeansCarriedOn)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineA);
    school.Carry(asha, TenA);
    const int binu = school.Add(QStringLiteral("Binu"), NineA);
    school.Carry(binu, TenA);
    school.CarryOn(binu, TenB);
    school.AddYear(11, 2027, 'N');
    school.Place(asha, TenA, 11);
    EXPECT_FALSE(Find(asha).carriedOn);
    EXPECT_TRUE(Find(binu).carriedOn);
}

TEST_F(PromotionRepositoryTest, FindsMoreStudentsThanOneStatementTakes)
{
    std::vector<int> codes;
    codes.reserve(1001);
    for (int student = 0; student < 1000; ++student)
        codes.push_back(school.Add(QStringLiteral("Student"), NineA));
    codes.push_back(5000);
    EXPECT_EQ(Repository().Find(Years(), codes).size(), 1000U);
    const PromotionYears years = Years();
    const auto before = main.StatementsRun();
    EXPECT_TRUE(Repository().Find(years, {}).empty());
    EXPECT_EQ(main.StatementsRun(), before) << "there is nobody to ask for";
}

TEST_F(PromotionRepositoryTest, APromotionPutsTheStudentIntoTheNextYearAndClosesThisOne)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineA);
    school.Add(QStringLiteral("Binu"), NineA);
    PromotionLists lists = Lists();
    lists.Move({asha});
    EXPECT_EQ(Save(PlanOf(lists)), "");
    EXPECT_EQ(school.Places(), "A1 IX-A N, X-A Y; A2 IX-A Y");
    EXPECT_EQ(
        main.Number(QStringLiteral("SELECT UserCode FROM StudentClassDivision WHERE AcademicYearCode = ?"),
                    NextYear),
        Clerk);
}

TEST_F(PromotionRepositoryTest, ARetainedStudentIsWrittenAlikeInTheSameClass)
{
    const int asha = school.Add(QStringLiteral("Asha"), TenA);
    PromotionLists lists;
    lists.ShowFrom(Repository().FromStudents(Years(), TenA));
    lists.ShowTo({});
    lists.Move({asha});
    PromotionPlan plan = PlanOf(lists);
    plan.kind = PromotionKind::Retain;
    plan.fromClass = TenA.classCode;
    EXPECT_EQ(Save(plan), "");
    EXPECT_EQ(school.Places(), "A1 X-A N, X-A Y");
}

TEST_F(PromotionRepositoryTest, WhoIsTakenBackSitsInThisYearOnly)
{
    for (const char* name : {"Asha", "Binu"})
        school.Carry(school.Add(QString::fromLatin1(name), NineA), TenA);
    PromotionLists lists = Lists();
    ASSERT_TRUE(lists.TakeBack({2}, NineA));
    EXPECT_EQ(Save(PlanOf(lists)), "");
    EXPECT_EQ(school.Places(), "A1 IX-A N, X-A Y; A2 IX-A Y");
}

TEST_F(PromotionRepositoryTest, TwoDivisionsMovedOneAfterTheOtherAreBothClosed)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineA);
    const int binu = school.Add(QStringLiteral("Binu"), NineB);
    PromotionLists lists = Lists();
    lists.Move({asha});
    lists.ShowFrom(Repository().FromStudents(Years(), NineB));
    lists.Move({binu});
    EXPECT_EQ(Save(PlanOf(lists)), "");
    EXPECT_EQ(school.Places(), "A1 IX-A N, X-A Y; A2 IX-B N, X-A Y");
}

TEST_F(PromotionRepositoryTest, WhoWasCarriedOnFromTheNextYearStaysMarkedAsGoneThere)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineA);
    school.Carry(asha, TenA);
    school.CarryOn(asha, TenB);
    const int binu = school.Add(QStringLiteral("Binu"), NineA);
    PromotionLists lists = Lists();
    lists.Move({binu});
    EXPECT_EQ(Save(PlanOf(lists)), "");
    EXPECT_EQ(school.Places(), "A1 IX-A N, X-A N; A2 IX-A N, X-A Y");
}

TEST_F(PromotionRepositoryTest, ARelievedStudentOfTheTargetKeepsHisPlaceThere)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineA);
    school.Carry(asha, TenA);
    school.Relieve(asha);
    const int binu = school.Add(QStringLiteral("Binu"), NineA);
    PromotionLists lists = Lists();
    lists.Move({binu});
    EXPECT_EQ(Save(PlanOf(lists)), "");
    EXPECT_EQ(school.Places(), "A1 IX-A N, X-A Y; A2 IX-A N, X-A Y");
}

TEST_F(PromotionRepositoryTest, ASaveTouchesTheTwoRowsOfItsStudentsAndNothingElse)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineA);
    school.Place(asha, EightA, YearBehind);
    for (const Placement& place : {NineA, NineB, TenA, TenB, EightA}) {
        school.Add(QStringLiteral("Other"), place);
        school.Carry(school.Add(QStringLiteral("Carried"), EightA), place);
        school.Add(QStringLiteral("Behind"), place, YearBehind);
    }
    main.Execute(
        QStringLiteral("DELETE FROM StudentClassDivision WHERE AcademicYearCode = ? AND ClassCode = 1 AND "
                       "DivisionCode = 1"),
        NextYear);
    PromotionLists lists = Lists();
    lists.Move({asha});
    const AllRows before(main);
    EXPECT_EQ(Save(PlanOf(lists)), "");
    before.ExpectTouchedOnly(main, "StudentClassDivision",
                             {{QStringLiteral("StudentCode"), QString::number(asha)}});
    EXPECT_EQ(
        main.Number(QStringLiteral("SELECT count(*) FROM StudentClassDivision WHERE StudentCode = 1 AND "
                                   "AcademicYearCode = ? AND Status = 'Y'"),
                    YearBehind),
        1);
}

TEST_F(PromotionRepositoryTest, ASaveWhoseListsAreNoLongerTrueStoresNothing)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineA);
    school.Carry(school.Add(QStringLiteral("Binu"), NineA), TenA);
    PromotionLists lists = Lists();
    lists.Move({asha});
    const PromotionPlan plan = PlanOf(lists);
    school.Add(QStringLiteral("Zoe"), TenA, NextYear);
    const AllRows before(main);
    EXPECT_EQ(Save(plan), "'Zoe' Was Placed In X-A By Another User Meanwhile.\nYou Cannot Save This Data.");
    before.ExpectTouchedOnly(main, "none", {});
}

TEST_F(PromotionRepositoryTest, AClassPutBetweenTheTwoMeanwhileIsFoundInTheSave)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineA);
    PromotionLists lists = Lists();
    lists.Move({asha});
    const PromotionPlan plan = PlanOf(lists);
    main.Execute(QStringLiteral("UPDATE ClassDivisionMaster SET ClassOrder = 9 WHERE ClassCode = 2"));
    EXPECT_EQ(Save(plan), "Promotion Can Be Done Only To Next Higher Class");
    EXPECT_EQ(school.Places(), "A1 IX-A Y");
}

TEST_F(PromotionRepositoryTest, ADivisionAClassOrAYearThatIsGoneIsToldAndNothingIsStored)
{
    const int asha = school.Add(QStringLiteral("Asha"), NineA);
    PromotionLists lists = Lists();
    lists.Move({asha});
    const PromotionPlan plan = PlanOf(lists);
    const std::string meanwhile = " By Another User Meanwhile.\nYou Cannot Save This Data.";
    const std::string noDivision = "The Class-Division On The 'To' Side Was Deleted" + meanwhile;
    const std::string otherYears = "The Academic Year Setup Was Changed" + meanwhile;
    const std::pair<std::vector<const char*>, std::string> changes[] = {
        {{"DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 1"}, noDivision},
        {{"DELETE FROM ClassDivisionDetails WHERE ClassCode = 1",
          "DELETE FROM ClassDivisionMaster WHERE ClassCode = 1"},
         noDivision},
        {{"DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 9"}, otherYears},
        {{"UPDATE AcademicYearSetup SET AcademicYearCode = 11 WHERE AcademicYearCode = 3"}, otherYears},
    };
    for (const auto& [statements, told] : changes) {
        store::Transaction around(main);
        for (const char* statement : statements)
            main.Execute(QString::fromLatin1(statement));
        EXPECT_EQ(Save(plan), told) << statements[0];
        EXPECT_EQ(school.Places(), "A1 IX-A Y");
    }
}

TEST_F(PromotionRepositoryTest, ListsAndChecksTakeAsManyStatementsForSixtyStudentsAsForThree)
{
    const auto statementsFor = [this](int count) {
        std::vector<int> moved;
        moved.reserve(static_cast<std::size_t>(count));
        for (int student = 0; student < count; ++student)
            moved.push_back(school.Add(QStringLiteral("Student"), NineA));
        const auto before = main.StatementsRun();
        PromotionLists lists = Lists();
        const auto listed = main.StatementsRun();
        lists.Move(moved);
        EXPECT_EQ(Save(PlanOf(lists)), "");
        return std::pair(listed - before, main.StatementsRun() - listed);
    };
    const auto [fewListed, fewSaved] = statementsFor(3);
    main.Execute(QStringLiteral("DELETE FROM StudentClassDivision"));
    const auto [manyListed, manySaved] = statementsFor(60);
    EXPECT_EQ(manyListed, fewListed);
    EXPECT_EQ(manySaved - fewSaved, 2U * 57) << "one row closed and one made for each student";
}

} // namespace
} // namespace tally::test
