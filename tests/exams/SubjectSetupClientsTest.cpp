#include "exams/MarkClient.h"
#include "exams/MarkScreen.h"

#include <QFile>
#include <QRandomGenerator>

namespace tally::test {
namespace {

constexpr int Students = 60;

const std::string AboveForty = "Entered Mark Should Not Exceed Maximum Allowed Mark : 40";
const std::string BelowFortyFive = "'Maximum Allowed' Marks Should Not Be Lesser Than Mark (45) Entered In "
                                   "'Classwise Mark Entry'";
const std::string SubjectIsGone = "Selected Master Data Is Deleted. You Cannot Save This Data.";
const std::string SubjectHasMarks =
    "Already Marks Are Entered For This Class-Division-Subject(s). So You Can't Delete";
const std::string SetIsChanged = "Subjects Of This Class-Division Were Changed By Another User Meanwhile. "
                                 "You Cannot Save This Data.";

/// One clerk enters the first marks of a division of sixty students while another one sets up its subjects.
class SubjectSetupClients : public MarkScreen
{
protected:
    void SetUp() override
    {
        MarkScreen::SetUp();
        AddStudents(Students);
    }

    /// Both have typed before either saves.
    void LetBothType(MarkClient& marks, const char* marksLine, MarkClient& setup, const char* setupLine)
    {
        ASSERT_EQ(marks.Says(), "ready");
        ASSERT_EQ(setup.Says(), "ready");
        marks.Tell(marksLine);
        setup.Tell(setupLine);
        ASSERT_EQ(marks.Says(), "typed");
        ASSERT_EQ(setup.Says(), "typed");
    }

    static std::string Save(MarkClient& client)
    {
        client.Tell("save");
        return client.Says();
    }

    /// "allowed, count of marks" of English as the next client finds it; "gone" without a row.
    std::string English()
    {
        const auto client = AnotherClient();
        auto row = client->Query(
            QStringLiteral("SELECT MaximumAllowed, (SELECT count(*) FROM MarkMaster b WHERE b.SubjectCode = "
                           "a.SubjectCode) FROM ClassSubjectTeacher a WHERE a.SubjectCode = 1"));
        const bool found = row.Next();
        const auto marks =
            client->Number(QStringLiteral("SELECT count(*) FROM MarkMaster WHERE SubjectCode = 1"));
        return (found ? QString::number(row.Double(0)) : QStringLiteral("gone")).toStdString() + ", " +
               std::to_string(marks);
    }
};

TEST_F(SubjectSetupClients, MarksSavedFirstKeepTheLimitAboveThem)
{
    MarkClient marks(Folder());
    MarkClient setup(Folder());
    LetBothType(marks, "enter English 45", setup, "allow English 40");
    EXPECT_EQ(Save(marks), "Record Saved");
    EXPECT_EQ(Save(setup), BelowFortyFive);
    EXPECT_EQ(English(), "50, 60");
}

TEST_F(SubjectSetupClients, ALimitSavedFirstKeepsTheMarksBelowIt)
{
    MarkClient marks(Folder());
    MarkClient setup(Folder());
    LetBothType(marks, "enter English 45", setup, "allow English 40");
    EXPECT_EQ(Save(setup), "Record Updated");
    EXPECT_EQ(Save(marks), AboveForty);
    EXPECT_EQ(English(), "40, 0");
}

TEST_F(SubjectSetupClients, OfALimitAndMarksSavedAtOnceOneIsStoredAndTheOtherIsToldSo)
{
    MarkClient marks(Folder());
    MarkClient setup(Folder());
    LetBothType(marks, "enter English 45", setup, "allow English 40");
    marks.Tell("save");
    setup.Tell("save");
    const std::string marksSay = marks.Says();
    const std::string setupSays = setup.Says();
    if (marksSay == "Record Saved") {
        EXPECT_EQ(setupSays, BelowFortyFive);
        EXPECT_EQ(English(), "50, 60");
    } else {
        EXPECT_EQ(marksSay, AboveForty);
        EXPECT_EQ(setupSays, "Record Updated");
        EXPECT_EQ(English(), "40, 0");
    }
}

TEST_F(SubjectSetupClients, MarksSavedFirstKeepTheirSubjectInTheSet)
{
    MarkClient marks(Folder());
    MarkClient setup(Folder());
    LetBothType(marks, "enter English 45", setup, "drop English -");
    EXPECT_EQ(Save(marks), "Record Saved");
    EXPECT_EQ(Save(setup), SubjectHasMarks);
    EXPECT_EQ(English(), "50, 60");
}

TEST_F(SubjectSetupClients, ASubjectTakenOutFirstGetsNoMarks)
{
    MarkClient marks(Folder());
    MarkClient setup(Folder());
    LetBothType(marks, "enter English 45", setup, "drop English -");
    EXPECT_EQ(Save(setup), "Record Updated");
    EXPECT_EQ(Save(marks), SubjectIsGone);
    EXPECT_EQ(English(), "gone, 0");
}

TEST_F(SubjectSetupClients, OfASubjectTakenOutAndItsMarksSavedAtOnceOneIsStoredAndTheOtherIsToldSo)
{
    MarkClient marks(Folder());
    MarkClient setup(Folder());
    LetBothType(marks, "enter English 45", setup, "drop English -");
    marks.Tell("save");
    setup.Tell("save");
    const std::string marksSay = marks.Says();
    const std::string setupSays = setup.Says();
    if (marksSay == "Record Saved") {
        EXPECT_EQ(setupSays, SubjectHasMarks);
        EXPECT_EQ(English(), "50, 60");
    } else {
        EXPECT_EQ(marksSay, SubjectIsGone);
        EXPECT_EQ(setupSays, "Record Updated");
        EXPECT_EQ(English(), "gone, 0");
    }
}

TEST_F(SubjectSetupClients, OfTwoSetUpsOfADivisionSavedAtOnceOneIsStoredAndTheOtherIsToldSo)
{
    MarkClient first(Folder());
    MarkClient second(Folder());
    LetBothType(first, "allow English 30", second, "allow English 40");
    first.Tell("save");
    second.Tell("save");
    const std::string firstSays = first.Says();
    const std::string secondSays = second.Says();
    if (firstSays == "Record Updated") {
        EXPECT_EQ(secondSays, SetIsChanged);
        EXPECT_EQ(English(), "30, 0");
    } else {
        EXPECT_EQ(firstSays, SetIsChanged);
        EXPECT_EQ(secondSays, "Record Updated");
        EXPECT_EQ(English(), "40, 0");
    }
}

/// A set of twelve subjects, each allowed 100, that clients write over until they are killed.
class SubjectSetupKills : public MarkScreen
{
protected:
    static constexpr int Subjects = 12;

    void SetUp() override
    {
        MarkScreen::SetUp();
        for (int code = 3; code <= Subjects; ++code)
            school->AddSubject(1, code, QByteArray::number(code).constData(), code);
        // A subject without a teacher is not saved.
        Given("UPDATE ClassSubjectTeacher SET TeacherCode = 7, MaximumAllowed = 100");
    }

    /// "12 of 100 to 100", as the next client finds it, who first restores what a kill interrupted.
    std::string Found()
    {
        const auto client = AnotherClient();
        auto row = client->Query(QStringLiteral(
            "SELECT count(*), min(MaximumAllowed), max(MaximumAllowed) FROM ClassSubjectTeacher"));
        row.Next();
        return QStringLiteral("%1 of %2 to %3")
            .arg(row.Text(0), QString::number(row.Double(1)), QString::number(row.Double(2)))
            .toStdString();
    }

    void KillWhileReplacing(int kills)
    {
        QRandomGenerator random(20260711);
        for (int kill = 0; kill < kills; ++kill) {
            {
                MarkClient client(Folder());
                ASSERT_EQ(client.Says(), "ready");
                client.Tell("replace");
                ASSERT_EQ(client.Says(), "Record Updated");
                QTest::qSleep(static_cast<int>(random.bounded(200)));
            }
            interrupted_ += QFile::exists(Folder() + QStringLiteral("/Tallyboard.mdb-journal")) ? 1 : 0;
            const std::string found = Found();
            const bool inFull = found == "12 of 100 to 100";
            ASSERT_TRUE(inFull || found == "12 of 90 to 90") << "kill " << kill << " left " << found;
            ++(inFull ? inFull_ : lowered_);
        }
    }

    int inFull_ = 0;      ///< kills that left every subject with 100
    int lowered_ = 0;     ///< kills that left every subject with 90
    int interrupted_ = 0; ///< kills in the midst of writing, which the next client takes back
};

TEST_F(SubjectSetupKills, AClientKilledWhileItReplacesASetLeavesOneOfTheTwoWhole)
{
    KillWhileReplacing(4);
}

TEST_F(SubjectSetupKills, DISABLED_TwoHundredClientsKilledWhileTheyReplaceASetLeaveOneOfTheTwoWhole)
{
    KillWhileReplacing(200);
    RecordProperty("inFull", inFull_);
    RecordProperty("lowered", lowered_);
    RecordProperty("interrupted", interrupted_);
    for (const int kills : {inFull_, lowered_, interrupted_})
        EXPECT_GT(kills, 0);
}

} // namespace
} // namespace tally::test
