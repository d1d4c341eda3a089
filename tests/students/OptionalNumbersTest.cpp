#include "students/OptionalNumbers.h"

#include <chrono>
#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// Asha (1) and Binu (2) are listed; Cara (3) has the number C3 somewhere else in the school.
class OptionalNumbersTest : public testing::Test
{
protected:
    void SetUp() override
    {
        numbers.TakeSnapshot(
            {{1, QStringLiteral("A1")}, {2, QStringLiteral("B2")}, {3, QStringLiteral("C3")}});
        numbers.List({{1, QStringLiteral("Asha"), 101, QStringLiteral("A1")},
                      {2, QStringLiteral("Binu"), 102, QStringLiteral("B2")}});
    }

    /// "row message" of an entry; the row 0 for the end.
    static std::string ToText(const NumberStep& step)
    {
        return std::to_string(step.row) + ' ' + step.message.toStdString();
    }
    std::string Enter(int row, const char* text)
    {
        return ToText(numbers.Enter(row, QString::fromLatin1(text)));
    }
    std::string Fault(const CodedTexts& holders = {}) const
    {
        const auto fault = numbers.FindFault(holders);
        return fault ? ToText(*fault) : std::string();
    }
    std::string Changes() const
    {
        std::string text;
        for (const auto& [student, number] : numbers.Changes())
            text += std::to_string(student) + ' ' + number.toStdString() + ';';
        return text;
    }

    OptionalNumbers numbers;
};

TEST_F(OptionalNumbersTest, TheTableShowsTheNumbersWithTheCodeHidden)
{
    const GridTable table = numbers.Table();
    std::string head;
    for (int col = 0; col < table.Cols(); ++col)
        head += table.Text(0, col).toStdString() + (table.Column(col).hidden ? " hidden|" : "|");
    EXPECT_EQ(head, "S.No.|Student Name|Admission No.|Optional Admission No.|StudentCode hidden|");
    EXPECT_EQ(table.Rows(), 3);
    std::string row;
    for (int col = 0; col < table.Cols(); ++col)
        row += table.Text(2, col).toStdString() + '|';
    EXPECT_EQ(row, "2|Binu|102|B2|2|");
}

TEST_F(OptionalNumbersTest, ANewNumberLeadsToTheNextRowAndFromTheLastOneToTheEnd)
{
    EXPECT_EQ(Enter(1, "N1"), "2 ");
    EXPECT_EQ(Enter(2, "N2"), "0 ");
    EXPECT_EQ(Changes(), "1 N1;2 N2;");
}

TEST_F(OptionalNumbersTest, TheOwnNumberIsTakenUnchangedAndInOtherLetters)
{
    EXPECT_EQ(Enter(1, "A1"), "2 ");
    EXPECT_EQ(Changes(), "");
    EXPECT_EQ(Enter(1, "a1"), "2 ");
    EXPECT_EQ(Changes(), "1 a1;");
}

TEST_F(OptionalNumbersTest, AnEmptyNumberAndOneOfBlanksAreAskedFor)
{
    for (const char* text : {"", "   "}) {
        EXPECT_EQ(Enter(1, text), "1 Enter Optional Admission No.");
        EXPECT_EQ(Fault(), "1 Enter Optional Admission No.");
    }
}

TEST_F(OptionalNumbersTest, ANumberOfAnotherStudentOfTheSchoolIsRefusedAndTakenOut)
{
    for (const char* text : {"C3", "c3", " C3 "}) {
        EXPECT_EQ(Enter(1, text), "1 Optional Admission No. Already Exists");
        EXPECT_EQ(numbers.Number(1), QString());
    }
}

TEST_F(OptionalNumbersTest, OfTwoEmptyNumbersNoneCountsAsThatOfTheOther)
{
    numbers.SetNumber(1, {});
    EXPECT_EQ(Enter(2, ""), "2 Enter Optional Admission No.");
    EXPECT_EQ(Fault(), "1 Enter Optional Admission No.");
}

TEST_F(OptionalNumbersTest, ANumberThatAnotherRowHasByNowIsRefused)
{
    EXPECT_EQ(Enter(2, "N9"), "0 ");
    EXPECT_EQ(Enter(1, "n9"), "1 Optional Admission No. Already Exists");
    EXPECT_EQ(Enter(1, "N8"), "2 ");
    EXPECT_EQ(Enter(2, "n8"), "2 Optional Admission No. Already Exists");
}

TEST_F(OptionalNumbersTest, TheOldNumberOfAnotherRowStaysTakenSoTwoStudentsCannotSwap)
{
    EXPECT_EQ(Enter(2, "N9"), "0 ");
    EXPECT_EQ(Enter(1, "B2"), "1 Optional Admission No. Already Exists");
    numbers.SetNumber(1, QStringLiteral("B2"));
    EXPECT_EQ(Fault({{2, QStringLiteral("B2")}}), "1 Optional Admission No. Already Exists");
}

TEST_F(OptionalNumbersTest, BlanksAroundANumberDoNotCount)
{
    EXPECT_EQ(Enter(1, " N 1 "), "2 ");
    EXPECT_EQ(Changes(), "1 N 1;");
}

TEST_F(OptionalNumbersTest, ASaveFindsTheFirstRowThatIsEmptyOrHasTheNumberOfAnother)
{
    EXPECT_EQ(Fault(), "");
    numbers.SetNumber(2, QStringLiteral("N2"));
    EXPECT_EQ(Fault(), "");
    EXPECT_EQ(Fault({{2, QStringLiteral("N2")}}), "") << "the own number is no fault";
    EXPECT_EQ(Fault({{7, QStringLiteral("n2")}}), "2 Optional Admission No. Already Exists");
    numbers.SetNumber(1, {});
    EXPECT_EQ(Fault({{7, QStringLiteral("n2")}}), "1 Enter Optional Admission No.");
}

TEST_F(OptionalNumbersTest, ASaveFindsTheSameNewNumberInTwoRows)
{
    numbers.SetNumber(1, QStringLiteral("N9"));
    numbers.SetNumber(2, QStringLiteral("n9"));
    EXPECT_EQ(Fault(), "1 Optional Admission No. Already Exists");
}

TEST_F(OptionalNumbersTest, ARowThatWasNotChangedIsNoFaultWhateverItsNumberIs)
{
    numbers.SetNumber(2, QStringLiteral("A1"));
    EXPECT_EQ(Fault({{1, QStringLiteral("A1")}}), "2 Optional Admission No. Already Exists")
        << "the row that was changed";
}

TEST_F(OptionalNumbersTest, AClearedListHasNoRowsAndTheSnapshotStays)
{
    for (const int row : {1, 2})
        EXPECT_TRUE(numbers.HasRow(row)) << row;
    for (const int row : {0, 3})
        EXPECT_FALSE(numbers.HasRow(row)) << row;
    numbers.Clear();
    EXPECT_EQ(numbers.RowCount(), 0);
    EXPECT_FALSE(numbers.HasRow(1));
    numbers.List({{1, QStringLiteral("Asha"), 101, QStringLiteral("A1")}});
    EXPECT_EQ(Enter(1, "C3"), "1 Optional Admission No. Already Exists");
}

TEST_F(OptionalNumbersTest, AnotherListTakesThePlaceOfTheOneBefore)
{
    numbers.List({{3, QStringLiteral("Cara"), 103, QStringLiteral("C3")}});
    EXPECT_EQ(numbers.RowCount(), 1);
    EXPECT_EQ(numbers.Number(1).toStdString(), "C3");
}

TEST_F(OptionalNumbersTest, ANewSnapshotTakesThePlaceOfTheOldOne)
{
    numbers.TakeSnapshot({{9, QStringLiteral("N1")}});
    EXPECT_EQ(Enter(1, "C3"), "2 ");
    EXPECT_EQ(Enter(2, "N1"), "2 Optional Admission No. Already Exists");
}

TEST_F(OptionalNumbersTest, ANumberIsTestedAgainstFiftyThousandWithinAKeysTime)
{
    CodedTexts all;
    for (int student = 1; student <= 50000; ++student)
        all.emplace_back(student, QStringLiteral("N%1").arg(student));
    numbers.TakeSnapshot(all);
    const auto start = std::chrono::steady_clock::now();
    constexpr int Keys = 100;
    for (int key = 0; key < Keys; ++key)
        EXPECT_EQ(Enter(1, "N50000"), "1 Optional Admission No. Already Exists");
    EXPECT_LT(std::chrono::steady_clock::now() - start, Keys * std::chrono::milliseconds(16));
}

} // namespace
} // namespace tally::test
