#include "exams/SubjectSetupSheet.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <string>

namespace tally::test {
namespace {

constexpr auto Subject = SubjectColumn::Subject;
constexpr auto Teacher = SubjectColumn::Teacher;
constexpr auto MaximumMark = SubjectColumn::MaximumMark;
constexpr auto MaximumAllowed = SubjectColumn::MaximumAllowed;
constexpr auto TakenForRank = SubjectColumn::TakenForRank;
constexpr auto Order = SubjectColumn::Order;

/// Two subjects are stored: English, which somebody has 45 in, and Maths without any mark.
class SubjectSetupSheetTest : public testing::Test
{
protected:
    SubjectSetupSheetTest()
    {
        sheet.Load(
            {{1, "English", 7, "Mary", 100, 100, YesText, 1}, {2, "Maths", 8, "Noor", 100, 80, NoText, 2}},
            {{1, {3, 45}}});
    }

    /// Fills a row as the boxes do, without its order.
    void Fill(int row, int code, const char* name, const char* maximum = "100")
    {
        sheet.SetSubject(row, code, QString::fromLatin1(name));
        sheet.SetTeacher(row, 9, QStringLiteral("Omar"));
        sheet.SetMaximumMark(row, QString::fromLatin1(maximum));
        sheet.SetTakenForRank(row, YesText);
    }

    std::string RowText(int row) const
    {
        QStringList texts;
        for (const GridCell& cell : sheet.Cells(row))
            texts.append(cell.text);
        return texts.join(QLatin1Char('|')).toStdString();
    }

    /// "row column message", the column by its number; empty for no fault.
    std::string Fault() const
    {
        const auto fault = sheet.FindFault();
        return fault ? Text(*fault) : std::string();
    }
    static std::string Text(const SubjectStep& step)
    {
        return QStringLiteral("%1 %2 %3")
            .arg(QString::number(step.row), QString::number(static_cast<int>(step.column)), step.message)
            .trimmed()
            .toStdString();
    }
    static std::string To(int row, SubjectColumn column) { return Text({column, row, {}}); }

    SubjectSetupSheet sheet;
};

TEST_F(SubjectSetupSheetTest, WhatIsStoredComesWithABlankRowBehindIt)
{
    ASSERT_EQ(sheet.RowCount(), 3);
    EXPECT_EQ(RowText(1), "1|English|Mary|100|100|Yes|1|1|7");
    EXPECT_EQ(RowText(2), "2|Maths|Noor|100|80|No|2|2|8");
    EXPECT_EQ(RowText(3), "3||||||||");
    sheet = SubjectSetupSheet();
    ASSERT_EQ(sheet.RowCount(), 1);
    EXPECT_EQ(RowText(1), "1||||||||");
}

TEST_F(SubjectSetupSheetTest, TheHeadsAreThoseOfTheSetUpAndTheCodesAreHidden)
{
    const GridTable table = sheet.Table();
    QStringList heads;
    for (int col = 0; col < table.Cols(); ++col)
        heads.append(table.Text(0, col) + (table.Column(col).hidden ? QStringLiteral("-") : QString()));
    EXPECT_EQ(heads.join(QLatin1Char('|')).toStdString(),
              "S.No.|Subject Name|Teacher Name|Maximum Mark|Maximum Allowed|Taken For Rank|Subject "
              "Order|SubjectCode-|Teachercode-");
    EXPECT_EQ(table.Rows(), 4);
}

TEST_F(SubjectSetupSheetTest, ASubjectWithMarksOpensOnlyTheMaximumAllowedAndTheRank)
{
    for (const auto column : {Subject, Teacher, MaximumMark, Order, SubjectColumn::Serial}) {
        EXPECT_FALSE(sheet.Opens(1, column)) << static_cast<int>(column);
        EXPECT_EQ(sheet.RefusalToOpen(1, column),
                  QStringLiteral("Already Marks Are Entered For This Subject\r\nYou Can Edit Only 'Maximum "
                                 "Allowed' And 'Taken For Rank' Fields"));
    }
    for (const auto column : {MaximumAllowed, TakenForRank}) {
        EXPECT_TRUE(sheet.Opens(1, column));
        EXPECT_EQ(sheet.RefusalToOpen(1, column), QString());
    }
    EXPECT_EQ(sheet.FirstOpen(1), MaximumAllowed);
}

TEST_F(SubjectSetupSheetTest, ASubjectWithoutMarksOpensEverythingButItsNumber)
{
    for (const auto column : {Subject, Teacher, MaximumMark, MaximumAllowed, TakenForRank, Order})
        EXPECT_TRUE(sheet.Opens(2, column)) << static_cast<int>(column);
    EXPECT_FALSE(sheet.Opens(2, SubjectColumn::Serial));
    EXPECT_EQ(sheet.RefusalToOpen(2, SubjectColumn::Serial), QString());
    EXPECT_FALSE(sheet.Opens(2, SubjectColumn::SubjectCode));
    EXPECT_EQ(sheet.FirstOpen(2), Subject);
}

TEST_F(SubjectSetupSheetTest, ABlankRowOpensItsSubjectFirst)
{
    EXPECT_TRUE(sheet.Opens(3, Subject));
    for (const auto column : {Teacher, MaximumMark, MaximumAllowed, TakenForRank, Order})
        EXPECT_FALSE(sheet.Opens(3, column));
    EXPECT_FALSE(sheet.Opens(0, Subject));
    EXPECT_FALSE(sheet.Opens(4, Subject));
}

TEST_F(SubjectSetupSheetTest, AnAbsenceFreezesASubjectAsAMarkDoes)
{
    sheet.TakeMarks({{2, {1, 0}}});
    EXPECT_TRUE(sheet.IsFrozen(2));
    EXPECT_FALSE(sheet.IsFrozen(1)) << "its marks have gone";
}

TEST_F(SubjectSetupSheetTest, TheTotalLeavesOutWhatIsNotTakenForRank)
{
    EXPECT_EQ(sheet.TotalMark(), 100);
    sheet.SetTakenForRank(2, YesText);
    EXPECT_EQ(sheet.TotalMark(), 200);
    sheet.SetTakenForRank(1, NoText);
    EXPECT_EQ(sheet.TotalMark(), 100);
    sheet.SetSubject(3, 3, QStringLiteral("Art"));
    sheet.SetMaximumMark(3, QStringLiteral("50"));
    EXPECT_EQ(sheet.TotalMark(), 150) << "what is not decided yet counts";
}

TEST_F(SubjectSetupSheetTest, AMaximumMarkIsAllowedInFull)
{
    sheet.SetMaximumMark(2, QStringLiteral("60"));
    EXPECT_EQ(RowText(2), "2|Maths|Noor|60|60|No|2|2|8");
    EXPECT_EQ(sheet.SetMaximumAllowed(2, QStringLiteral("50")), QString());
    EXPECT_EQ(RowText(2), "2|Maths|Noor|60|50|No|2|2|8");
}

TEST_F(SubjectSetupSheetTest, AnEmptyMaximumMarkIsNone)
{
    sheet.SetMaximumMark(2, {});
    EXPECT_EQ(RowText(2), "2|Maths|Noor|0||No|2|2|8");
    EXPECT_EQ(Text(sheet.EnterMaximumMark(2)), "0 1") << "Enter stays";
    sheet.SetMaximumMark(2, QStringLiteral("0"));
    EXPECT_EQ(Text(sheet.EnterMaximumMark(2)), "0 1");
    sheet.SetMaximumMark(2, QStringLiteral("999999"));
    EXPECT_EQ(Text(sheet.EnterMaximumMark(2)), To(2, MaximumAllowed));
    EXPECT_EQ(sheet.Row(2).MaximumMark(), 999999);
}

TEST_F(SubjectSetupSheetTest, NoMoreIsAllowedThanTheMaximumMark)
{
    EXPECT_EQ(sheet.SetMaximumAllowed(2, QStringLiteral("101")),
              QStringLiteral("'Maximum Allowed' Mark Should Not Be Greater Than 'Maximum Mark' Entered"));
    EXPECT_EQ(sheet.Row(2).maximumAllowed.toStdString(), "0");
    EXPECT_EQ(sheet.Row(2).maximumMark.toStdString(), "100");
    EXPECT_EQ(sheet.SetMaximumAllowed(2, QStringLiteral("100")), QString());
}

TEST_F(SubjectSetupSheetTest, NoLessIsAllowedThanTheHighestMarkEntered)
{
    EXPECT_EQ(sheet.SetMaximumAllowed(1, QStringLiteral("40")), QString());
    EXPECT_EQ(Text(sheet.EnterMaximumAllowed(1)),
              "0 1 'Maximum Allowed' Marks Should Not Be Lesser Than Mark (45) Entered In 'Classwise Mark "
              "Entry'");
    EXPECT_EQ(sheet.Row(1).maximumAllowed.toStdString(), "0");
    EXPECT_EQ(sheet.SetMaximumAllowed(1, QStringLiteral("44")), QString());
    EXPECT_NE(sheet.RefusalOfMaximumAllowed(1), QString());
    EXPECT_EQ(sheet.Row(1).maximumAllowed.toStdString(), "44") << "to be mended";
    EXPECT_EQ(sheet.SetMaximumAllowed(1, QStringLiteral("45")), QString());
    EXPECT_EQ(sheet.RefusalOfMaximumAllowed(1), QString());
    EXPECT_EQ(Text(sheet.EnterMaximumAllowed(1)), To(1, TakenForRank));
}

TEST_F(SubjectSetupSheetTest, WithoutMarksEvenNothingMayBeAllowedForTheTimeBeing)
{
    EXPECT_EQ(sheet.SetMaximumAllowed(2, QStringLiteral("0")), QString());
    EXPECT_EQ(sheet.RefusalOfMaximumAllowed(2), QString());
}

TEST_F(SubjectSetupSheetTest, MoreStoredThanTheMaximumMarkIsToldOnEnterBeforeAMarkAboveIt)
{
    sheet.Load({{1, "English", 7, "Mary", 30, 40, YesText, 1}}, {{1, {3, 45}}});
    EXPECT_EQ(Text(sheet.EnterMaximumAllowed(1)),
              "0 1 'Maximum Allowed' Mark Should Not Be Greater Than 'Maximum Mark' Entered");
    EXPECT_EQ(sheet.Row(1).maximumAllowed.toStdString(), "0");
}

TEST_F(SubjectSetupSheetTest, AHighestMarkWithDecimalsIsToldWithThem)
{
    EXPECT_EQ(BelowEnteredMark(45.5).toStdString(),
              "'Maximum Allowed' Marks Should Not Be Lesser Than Mark (45.5) Entered In 'Classwise Mark "
              "Entry'");
}

TEST_F(SubjectSetupSheetTest, EnterOnNothingAllowedStays)
{
    sheet.SetMaximumAllowed(2, {});
    EXPECT_EQ(Text(sheet.EnterMaximumAllowed(2)), "0 1");
}

TEST_F(SubjectSetupSheetTest, TwoRowsCannotHoldOneSubject)
{
    sheet.SetSubject(3, 2, QStringLiteral("Maths"));
    EXPECT_EQ(sheet.DropRepeatedSubject(3).toStdString(), "Subject Already Selected");
    EXPECT_EQ(RowText(3), "3||||||||");
    sheet.SetSubject(3, 0, QStringLiteral(" maths "));
    EXPECT_EQ(Text(sheet.EnterSubject(3)), "0 1 Subject Already Selected");
    EXPECT_EQ(RowText(3), "3||||||||");
    sheet.SetSubject(3, 2, QStringLiteral("Mathematics"));
    EXPECT_EQ(sheet.DropRepeatedSubject(3).toStdString(), "Subject Already Selected") << "under another name";
    sheet.SetSubject(3, 3, QStringLiteral("Art"));
    EXPECT_EQ(sheet.DropRepeatedSubject(3), QString());
    EXPECT_EQ(Text(sheet.EnterSubject(3)), To(3, Teacher));
    sheet.SetSubject(2, 3, QStringLiteral("Art"));
    EXPECT_EQ(sheet.DropRepeatedSubject(2).toStdString(), "Subject Already Selected") << "of a row below";
}

TEST_F(SubjectSetupSheetTest, AnEmptiedSubjectLosesItsCodeAndEnterStays)
{
    sheet.SetSubject(2, 0, QStringLiteral("  "));
    EXPECT_EQ(RowText(2), "2||Noor|100|80|No|2||8");
    EXPECT_EQ(Text(sheet.EnterSubject(2)), "0 1");
    EXPECT_EQ(sheet.DropRepeatedSubject(2), QString()) << "two blank ones are not the same subject";
}

TEST_F(SubjectSetupSheetTest, AWordThatIsNoSubjectOrTeacherIsRefusedOnEnter)
{
    sheet.SetSubject(3, 0, QStringLiteral("Mths"));
    EXPECT_EQ(Text(sheet.EnterSubject(3)), "0 1 Select Subject Name");
    EXPECT_EQ(sheet.Row(3).subjectName.toStdString(), "Mths") << "it stays to be mended";
    sheet.SetSubject(3, 0, {});
    sheet.SetSubject(2, 0, QStringLiteral("Mths"));
    EXPECT_EQ(Text(sheet.EnterSubject(2)), "0 1 Select Subject Name") << "the blank row has no code either";
    sheet.SetSubject(3, 3, QStringLiteral("Art"));
    sheet.SetTeacher(3, 0, QStringLiteral("Omr"));
    EXPECT_EQ(Text(sheet.EnterTeacher(3)), "0 1 Select Teacher Name");
    sheet.SetTeacher(3, 0, {});
    EXPECT_EQ(Text(sheet.EnterTeacher(3)), To(3, MaximumMark));
}

TEST_F(SubjectSetupSheetTest, EnterWalksThroughTheColumnsToTheNextRow)
{
    EXPECT_EQ(Text(sheet.EnterSubject(2)), To(2, Teacher));
    EXPECT_EQ(Text(sheet.EnterTeacher(2)), To(2, MaximumMark));
    EXPECT_EQ(Text(sheet.EnterMaximumMark(2)), To(2, MaximumAllowed));
    EXPECT_EQ(Text(sheet.EnterMaximumAllowed(2)), To(2, TakenForRank));
    EXPECT_EQ(Text(sheet.EnterTakenForRank(2, YesText)), To(2, Order));
    EXPECT_EQ(Text(sheet.EnterOrder(2)), To(3, Subject));
}

TEST_F(SubjectSetupSheetTest, EnterWalksPastWhatMarksHaveFrozen)
{
    EXPECT_EQ(Text(sheet.EnterTakenForRank(1, YesText)), To(2, Subject)) << "the order of row 1 is frozen";
    sheet.TakeMarks({{1, {1, 45}}, {2, {1, 60}}});
    EXPECT_EQ(Text(sheet.EnterTakenForRank(1, YesText)), To(2, MaximumAllowed));
}

TEST_F(SubjectSetupSheetTest, TheRankIsYesOrNoAndNothingElse)
{
    for (const char* text : {"y", "YES", "Ye", " yes "}) {
        sheet.SetTakenForRank(2, QString::fromLatin1(text));
        EXPECT_EQ(sheet.Row(2).takenForRank, YesText) << text;
        sheet.SetTakenForRank(2, QStringLiteral("n"));
        EXPECT_EQ(sheet.Row(2).takenForRank, NoText);
    }
    sheet.SetTakenForRank(2, QStringLiteral("may"));
    EXPECT_EQ(sheet.Row(2).takenForRank, NoText) << "a word that is neither changes nothing";
    for (const char* text : {"", " ", "may", "Yess", "No."}) {
        EXPECT_EQ(SubjectSetupSheet::RefusalOfRank(QString::fromLatin1(text)).toStdString(), "Select Rank");
        EXPECT_EQ(Text(sheet.EnterTakenForRank(2, QString::fromLatin1(text))), "0 1 Select Rank");
    }
    EXPECT_EQ(SubjectSetupSheet::RefusalOfRank(QStringLiteral("n")), QString());
    sheet.SetTakenForRank(2, QStringLiteral(" "));
    EXPECT_EQ(sheet.Row(2).takenForRank, QString());
}

TEST_F(SubjectSetupSheetTest, TwoRowsCannotHoldOneOrder)
{
    Fill(3, 3, "Art");
    for (const char* order : {"1", "02"}) {
        sheet.SetOrder(3, QString::fromLatin1(order));
        EXPECT_EQ(Text(sheet.EnterOrder(3)), "0 1 Subject Order Already Exists");
    }
    EXPECT_EQ(sheet.RowCount(), 3);
    EXPECT_EQ(sheet.DropRepeatedOrder(3).toStdString(), "Subject Order Already Exists");
    EXPECT_EQ(sheet.Row(3).order, QString());
    sheet.SetOrder(3, QStringLiteral("03"));
    EXPECT_EQ(sheet.DropRepeatedOrder(3), QString());
    sheet.SetOrder(2, QStringLiteral("3"));
    EXPECT_EQ(Text(sheet.EnterOrder(2)), "0 1 Subject Order Already Exists") << "in a row below";
    sheet.SetOrder(2, QStringLiteral("2"));
    EXPECT_EQ(Text(sheet.EnterOrder(3)), To(4, Subject));
    EXPECT_EQ(sheet.Row(3).order.toStdString(), "3");
    EXPECT_EQ(RowText(4), "4||||||||") << "a blank row comes behind the last one";
}

TEST_F(SubjectSetupSheetTest, OnLeavingOnlyTheOrderOfANamedRowCounts)
{
    Fill(3, 3, "Art");
    sheet.SetOrder(3, QStringLiteral("2"));
    sheet.SetSubject(2, 0, {});
    EXPECT_EQ(sheet.DropRepeatedOrder(3), QString());
    EXPECT_EQ(Text(sheet.EnterOrder(3)), "0 1 Subject Order Already Exists") << "on Enter every row counts";
}

TEST_F(SubjectSetupSheetTest, AnEmptyOrderIsNoOrderAndRepeatsNone)
{
    Fill(3, 3, "Art");
    sheet.SetOrder(2, {});
    sheet.SetOrder(3, QStringLiteral("0"));
    EXPECT_EQ(Text(sheet.EnterOrder(3)), "0 1");
    EXPECT_EQ(sheet.DropRepeatedOrder(3), QString());
}

TEST_F(SubjectSetupSheetTest, ADeletedRowLeavesTheOthersAndABlankOneAtTheEnd)
{
    sheet.DeleteRow(1);
    ASSERT_EQ(sheet.RowCount(), 2);
    EXPECT_EQ(RowText(1), "1|Maths|Noor|100|80|No|2|2|8");
    sheet.DeleteRow(2);
    ASSERT_EQ(sheet.RowCount(), 2) << "the blank row is always there";
    EXPECT_EQ(RowText(2), "2||||||||");
    sheet.DeleteRow(1);
    ASSERT_EQ(sheet.RowCount(), 1);
    sheet.DeleteRow(1);
    ASSERT_EQ(sheet.RowCount(), 1);
}

TEST_F(SubjectSetupSheetTest, WhatMarksFreezeMeanwhileIsPutBackAndTheRestStaysAsItWasTyped)
{
    const auto stored = sheet.Subjects();
    Fill(2, 2, "Maths", "60");
    sheet.SetMaximumAllowed(2, QStringLiteral("50"));
    sheet.SetOrder(2, QStringLiteral("7"));
    Fill(3, 3, "Art");
    sheet.SetOrder(3, QStringLiteral("3"));
    sheet.TakeMarks({{1, {3, 45}}, {2, {1, 10}}});
    sheet.PutBackFrozen(stored);
    EXPECT_EQ(RowText(1), "1|English|Mary|100|100|Yes|1|1|7");
    EXPECT_EQ(RowText(2), "2|Maths|Noor|100|50|Yes|2|2|8");
    EXPECT_TRUE(sheet.IsFrozen(2));
    EXPECT_EQ(RowText(3), "3|Art|Omar|100|100|Yes|3|3|9");
    EXPECT_EQ(RowText(4), "4||||||||");
    EXPECT_EQ(sheet.RowCount(), 4);
}

TEST_F(SubjectSetupSheetTest, MoreThanTheFrozenMaximumMarkIsNotKept)
{
    const auto stored = sheet.Subjects();
    sheet.SetMaximumMark(2, QStringLiteral("200"));
    sheet.TakeMarks({{2, {1, 10}}});
    sheet.PutBackFrozen(stored);
    EXPECT_EQ(RowText(2), "2|Maths|Noor|100|80|No|2|2|8");
    sheet.SetMaximumAllowed(2, QStringLiteral("100"));
    sheet.PutBackFrozen(stored);
    EXPECT_EQ(RowText(2), "2|Maths|Noor|100|100|No|2|2|8") << "as much as that is";
}

TEST_F(SubjectSetupSheetTest, ASubjectThatGotMarksAfterItWasTakenOutComesBack)
{
    const auto stored = sheet.Subjects();
    sheet.DeleteRow(2);
    Fill(2, 3, "Art");
    sheet.SetOrder(2, QStringLiteral("3"));
    sheet.TakeMarks({{2, {1, 10}}});
    sheet.PutBackFrozen(stored);
    EXPECT_EQ(RowText(2), "2|Art|Omar|100|100|Yes|3|3|9");
    EXPECT_EQ(RowText(3), "3|Maths|Noor|100|80|No|2|2|8");
    EXPECT_TRUE(sheet.IsFrozen(3));
    EXPECT_EQ(RowText(4), "4||||||||");
    EXPECT_EQ(Fault(), "");
}

TEST_F(SubjectSetupSheetTest, ARowTypedForASubjectThatHasMarksCanBeFilledButNotTakenOut)
{
    sheet.TakeMarks({{3, {1, 10}}});
    sheet.SetSubject(3, 3, QStringLiteral("Art"));
    for (const auto column : {Subject, Teacher, MaximumMark, MaximumAllowed, TakenForRank, Order})
        EXPECT_TRUE(sheet.Opens(3, column)) << static_cast<int>(column);
    EXPECT_TRUE(sheet.HasMarks(3));
    EXPECT_FALSE(sheet.HasMarks(2));
}

TEST_F(SubjectSetupSheetTest, OtherNamesReachTheRowsByTheirCodes)
{
    sheet.SetSubject(3, 0, QStringLiteral("Art"));
    sheet.RenameSubjects({{0, " "}, {2, "Mathematics"}, {3, "Drawing"}});
    sheet.RenameTeachers({{0, " "}, {7, "Mary Ann"}});
    EXPECT_EQ(RowText(1), "1|English|Mary Ann|100|100|Yes|1|1|7") << "a name that is not listed stays";
    EXPECT_EQ(RowText(2), "2|Mathematics|Noor|100|80|No|2|2|8");
    EXPECT_EQ(RowText(3), "3|Art|||||||") << "what is only a text has no other name";
    EXPECT_EQ(Fault(), "3 5 Select Rank");
}

TEST_F(SubjectSetupSheetTest, ASheetIsBlankUntilSomethingIsEntered)
{
    EXPECT_FALSE(sheet.IsBlank());
    sheet = SubjectSetupSheet();
    EXPECT_TRUE(sheet.IsBlank());
    sheet.SetSubject(1, 0, QStringLiteral("M"));
    EXPECT_FALSE(sheet.IsBlank());
    sheet.SetSubject(1, 0, {});
    EXPECT_TRUE(sheet.IsBlank());
}

TEST_F(SubjectSetupSheetTest, ARowIsNotBlankWhateverStandsInIt)
{
    EXPECT_TRUE(SubjectRow().IsBlank());
    for (QString SubjectRow::*field :
         {&SubjectRow::subjectName, &SubjectRow::teacherName, &SubjectRow::maximumMark,
          &SubjectRow::maximumAllowed, &SubjectRow::takenForRank, &SubjectRow::order}) {
        SubjectRow row;
        row.*field = QStringLiteral("1");
        EXPECT_FALSE(row.IsBlank());
        row.*field = QStringLiteral(" ");
        EXPECT_TRUE(row.IsBlank());
    }
}

TEST_F(SubjectSetupSheetTest, ARowIsPutBackWhole)
{
    const SubjectRow before = sheet.Row(1);
    sheet.SetSubject(1, 3, QStringLiteral("Art"));
    EXPECT_FALSE(sheet.IsFrozen(1));
    sheet.PutBack(1, before);
    EXPECT_TRUE(sheet.IsFrozen(1));
    EXPECT_EQ(RowText(1), "1|English|Mary|100|100|Yes|1|1|7");
}

TEST_F(SubjectSetupSheetTest, WhatWasReadCanBeSavedAndTheBlankRowIsNoSubject)
{
    EXPECT_EQ(Fault(), "");
    const auto subjects = sheet.Subjects();
    ASSERT_EQ(subjects.size(), 2U);
    EXPECT_EQ(subjects[1].subjectCode, 2);
    EXPECT_EQ(subjects[1].teacherCode, 8);
    EXPECT_EQ(subjects[1].maximumMark, 100);
    EXPECT_EQ(subjects[1].maximumAllowed, 80);
    EXPECT_EQ(subjects[1].takenForRank, NoText);
    EXPECT_EQ(subjects[1].slNo, 2);
    EXPECT_EQ(sheet.FindRow(2), 2);
    EXPECT_EQ(sheet.FindRow(3), 0);
    EXPECT_EQ(sheet.FindRow(0), 0) << "the blank row has no code";
}

TEST_F(SubjectSetupSheetTest, ASetWithoutSubjectsIsRefused)
{
    sheet = SubjectSetupSheet();
    EXPECT_EQ(Fault(), "1 1 Enter Details Properly");
}

TEST_F(SubjectSetupSheetTest, TheChecksOfASaveComeInTheirOrder)
{
    sheet.SetSubject(3, 3, QStringLiteral("Art"));
    sheet.SetOrder(2, QStringLiteral("1"));
    EXPECT_EQ(Fault(), "3 5 Select Rank");
    sheet.SetTakenForRank(3, YesText);
    EXPECT_EQ(Fault(), "3 6 Subject Order Should Not Be Empty");
    sheet.SetOrder(3, QStringLiteral("3"));
    EXPECT_EQ(Fault(), "2 6 Subject Order Already Exists")
        << "of two rows the one that is not frozen can be mended";
    sheet.SetOrder(2, QStringLiteral("3"));
    EXPECT_EQ(Fault(), "2 6 Subject Order Already Exists") << "the earlier one of two";
    sheet.SetOrder(2, QStringLiteral("2"));
    EXPECT_EQ(Fault(), "3 1 Enter Details Properly");
    sheet.SetTeacher(3, 9, QStringLiteral("Omar"));
    EXPECT_EQ(Fault(), "3 1 Enter Details Properly");
    sheet.SetMaximumMark(3, QStringLiteral("50"));
    EXPECT_EQ(Fault(), "");
    sheet.SetMaximumAllowed(3, QStringLiteral("0"));
    EXPECT_EQ(Fault(), "3 1 Enter Details Properly");
}

TEST_F(SubjectSetupSheetTest, ARowLeftHalfFilledInTheMiddleIsRefused)
{
    sheet.SetSubject(2, 0, {});
    EXPECT_EQ(Fault(), "2 1 Enter Details Properly");
    sheet.SetSubject(2, 2, QStringLiteral("Maths"));
    sheet.SetTeacher(2, 0, QStringLiteral("Nobody"));
    EXPECT_EQ(Fault(), "2 1 Enter Details Properly") << "a name that no teacher has";
}

TEST_F(SubjectSetupSheetTest, AStoredSubjectThatIsOutOfNothingIsRefused)
{
    sheet.Load({{1, "English", 7, "Mary", 0, 50, YesText, 1}}, {});
    EXPECT_EQ(Fault(), "1 1 Enter Details Properly");
}

TEST_F(SubjectSetupSheetTest, ALastRowWithoutItsSubjectButWithATeacherIsHalfFilledToo)
{
    sheet.SetTeacher(3, 9, QStringLiteral("Omar"));
    EXPECT_EQ(Fault(), "3 1 Enter Details Properly");
}

TEST_F(SubjectSetupSheetTest, ABlankRowInTheMiddleIsRefused)
{
    Fill(3, 3, "Art");
    sheet.SetOrder(3, QStringLiteral("3"));
    sheet.EnterOrder(3);
    sheet.PutBack(3, {});
    ASSERT_EQ(sheet.RowCount(), 4);
    EXPECT_EQ(Fault(), "3 1 Enter Details Properly");
}

TEST_F(SubjectSetupSheetTest, WhatIsFrozenIsNotJudgedSinceItCannotBeMended)
{
    sheet.Load({{1, "English", 0, {}, 0, 100, YesText, 0}, {2, "Maths", 0, {}, 100, 80, NoText, 0}},
               {{1, {3, 45}}, {2, {1, 10}}});
    EXPECT_EQ(Fault(), "");
    sheet.SetMaximumAllowed(2, QStringLiteral("0"));
    EXPECT_EQ(Fault(), "2 4 Enter Details Properly") << "and the box opens that can be entered";
}

TEST_F(SubjectSetupSheetTest, TwoFrozenSubjectsKeepAnOrderThatTheyShare)
{
    sheet.Load({{1, "English", 7, "Mary", 100, 100, YesText, 4}, {2, "Maths", 8, "Noor", 100, 80, NoText, 4}},
               {{1, {3, 45}}, {2, {1, 10}}});
    EXPECT_EQ(Fault(), "");
    Fill(3, 3, "Art");
    sheet.SetOrder(3, QStringLiteral("4"));
    EXPECT_EQ(Fault(), "3 6 Subject Order Already Exists");
}

TEST_F(SubjectSetupSheetTest, ASubjectThatStandsTwiceIsNotSaved)
{
    Fill(3, 2, "Maths");
    sheet.SetOrder(3, QStringLiteral("3"));
    EXPECT_EQ(Fault(), "3 1 Subject Already Selected");
}

} // namespace
} // namespace tally::test
