#include "exams/MarkClient.h"
#include "exams/MarkScreen.h"

namespace tally::test {
namespace {

constexpr int Students = 60;

/// Two clerks over a division of sixty students.
class MarkClients : public MarkScreen
{
protected:
    void SetUp() override
    {
        MarkScreen::SetUp();
        AddStudents(Students);
    }

    /// "count of lowest to highest", the marks of one subject as the next client finds them.
    std::string MarksOf(int subject)
    {
        const auto client = AnotherClient();
        auto rows = client->Query(
            QStringLiteral("SELECT count(*), min(Mark), max(Mark) FROM MarkMaster WHERE SubjectCode = ?"),
            subject);
        if (!rows.Next() || rows.Int(0) == 0)
            return "none";
        return QStringLiteral("%1 of %2 to %3")
            .arg(QString::number(rows.Int(0)), QString::number(rows.Double(1)),
                 QString::number(rows.Double(2)))
            .toStdString();
    }

    void GivenEnglishOfEverybody(double each)
    {
        for (int student = 1; student <= Students; ++student)
            school->EnterMark(student, 1, each);
    }

    /// Both clerks have typed before either saves.
    void LetBothType(MarkClient& first, const char* firstLine, MarkClient& second, const char* secondLine)
    {
        ASSERT_EQ(first.Says(), "ready");
        ASSERT_EQ(second.Says(), "ready");
        first.Tell(firstLine);
        second.Tell(secondLine);
        ASSERT_EQ(first.Says(), "typed");
        ASSERT_EQ(second.Says(), "typed");
    }

    static void SaveAtOnce(MarkClient& first, MarkClient& second)
    {
        first.Tell("save");
        second.Tell("save");
    }
};

TEST_F(MarkClients, TwoSubjectsSavedAtOnceAreBothStoredWhole)
{
    MarkClient first(Folder());
    MarkClient second(Folder());
    LetBothType(first, "enter English 10", second, "enter Maths 20");
    SaveAtOnce(first, second);
    EXPECT_EQ(first.Says(), "Record Saved");
    EXPECT_EQ(second.Says(), "Record Saved");
    EXPECT_EQ(MarksOf(1), "60 of 10 to 10");
    EXPECT_EQ(MarksOf(2), "60 of 20 to 20");
}

TEST_F(MarkClients, OfTwoFirstEntriesOfASubjectTheFirstIsStoredAndTheOtherIsToldSo)
{
    MarkClient first(Folder());
    MarkClient second(Folder());
    LetBothType(first, "enter English 10", second, "enter English 20");
    SaveAtOnce(first, second);
    const std::string firstSays = first.Says();
    const std::string secondSays = second.Says();
    const std::string refusal =
        "Marks Of This Subject Were Entered By Another User Meanwhile. You Cannot Save This Data.";
    if (firstSays == "Record Saved") {
        EXPECT_EQ(secondSays, refusal);
        EXPECT_EQ(MarksOf(1), "60 of 10 to 10");
    } else {
        EXPECT_EQ(firstSays, refusal);
        EXPECT_EQ(secondSays, "Record Saved");
        EXPECT_EQ(MarksOf(1), "60 of 20 to 20");
    }
}

TEST_F(MarkClients, OfTwoEditsOfASubjectTheLaterSaveIsStoredWhole)
{
    GivenEnglishOfEverybody(5);
    MarkClient first(Folder());
    MarkClient second(Folder());
    LetBothType(first, "edit English 10", second, "edit English 20");
    second.Tell("save");
    EXPECT_EQ(second.Says(), "Record Updated");
    EXPECT_EQ(MarksOf(1), "60 of 20 to 20");
    first.Tell("save");
    EXPECT_EQ(first.Says(), "Record Updated");
    EXPECT_EQ(MarksOf(1), "60 of 10 to 10");
}

TEST_F(MarkClients, OfTwoEditsOfASubjectSavedAtOnceOneIsStoredWhole)
{
    GivenEnglishOfEverybody(5);
    MarkClient first(Folder());
    MarkClient second(Folder());
    LetBothType(first, "edit English 10", second, "edit English 20");
    SaveAtOnce(first, second);
    EXPECT_EQ(first.Says(), "Record Updated");
    EXPECT_EQ(second.Says(), "Record Updated");
    const std::string marks = MarksOf(1);
    EXPECT_TRUE(marks == "60 of 10 to 10" || marks == "60 of 20 to 20") << marks;
}

} // namespace
} // namespace tally::test
