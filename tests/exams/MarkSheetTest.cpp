#include "exams/MarkSheet.h"

#include "core/Numbers.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace tally::test {
namespace {

const std::string OfAbsent = "Mark Entry Is Not Allowed When A Student Is Absent";
const std::string AboveLimit = "Entered Mark Should Not Exceed Maximum Allowed Mark : ";

/// English, allowed 50 out of 100, with students of the codes 1 to `students`.
MarkSheet SubjectSheet(int students = 3)
{
    MarkSheet sheet;
    CodedTexts names;
    for (int code = 1; code <= students; ++code)
        names.emplace_back(code, QStringLiteral("Student %1").arg(code));
    sheet.ListStudents(names);
    sheet.StartSubject({1, QStringLiteral("English"), 7, 50, 100});
    return sheet;
}

/// One student in English (allowed 50 out of 100) and Maths (allowed 20 out of 25).
MarkSheet StudentSheet()
{
    MarkSheet sheet;
    sheet.UseMode(MarkMode::Student);
    sheet.ListSubjects({{1, QStringLiteral("English"), 7, 50, 100}, {2, QStringLiteral("Maths"), 8, 20, 25}});
    sheet.StartStudent();
    return sheet;
}

void Declare(MarkSheet& sheet, int row, const char* mark, const char* presence)
{
    sheet.SetMark(row, QString::fromLatin1(mark));
    sheet.SetPresence(row, QString::fromLatin1(presence));
}

std::string ToText(const MarkStep& step)
{
    const char* const field = step.row == 0                         ? "save "
                              : step.column == MarkColumn::Presence ? "presence "
                                                                    : "mark ";
    return field + std::to_string(step.row) +
           (step.message.isEmpty() ? "" : ": " + step.message.toStdString());
}

struct TypedMark
{
    const char* text;
    const char* mark;

    friend void PrintTo(const TypedMark& row, std::ostream* out) { *out << '"' << row.text << '"'; }
};

class TypedMarks : public testing::TestWithParam<TypedMark>
{};

TEST_P(TypedMarks, TheNumberThatATextBeginsWithIsTheMark)
{
    MarkSheet sheet = SubjectSheet();
    sheet.SetMark(1, QString::fromLatin1(GetParam().text));
    EXPECT_EQ(sheet.Row(1).mark.toStdString(), GetParam().mark);
}

INSTANTIATE_TEST_SUITE_P(MarkSheet, TypedMarks,
                         testing::Values(TypedMark{"45", "45"}, TypedMark{"045", "45"},
                                         TypedMark{"12.", "12"}, TypedMark{"12.50", "12.5"},
                                         TypedMark{".5", "0.5"}, TypedMark{"1.2.3", "1.2"},
                                         TypedMark{"", "0"}, TypedMark{".", "0"}, TypedMark{"abc", "0"}));

struct Typing
{
    MarkMode mode;
    const char* presence;
    const char* text;
    std::string refusal;

    friend void PrintTo(const Typing& row, std::ostream* out)
    {
        *out << (row.mode == MarkMode::Subject ? "subject, " : "student, ") << row.presence << ", "
             << row.text;
    }
};

class TypingRules : public testing::TestWithParam<Typing>
{};

TEST_P(TypingRules, RefuseWhatCanBeNoMarkOfTheRow)
{
    const Typing& typing = GetParam();
    MarkSheet sheet = typing.mode == MarkMode::Subject ? SubjectSheet() : StudentSheet();
    sheet.SetPresence(2, QString::fromLatin1(typing.presence));
    EXPECT_EQ(sheet.RefusalWhileTyping(2, QString::fromLatin1(typing.text)).toStdString(), typing.refusal);
}

INSTANTIATE_TEST_SUITE_P(MarkSheet, TypingRules,
                         testing::Values(Typing{MarkMode::Subject, "Present", "50", ""},
                                         Typing{MarkMode::Subject, "Present", "50.01", AboveLimit + "50"},
                                         Typing{MarkMode::Subject, "Present", "100", AboveLimit + "50"},
                                         Typing{MarkMode::Subject, "Absent", "5", OfAbsent},
                                         Typing{MarkMode::Subject, "Absent", "0", OfAbsent},
                                         Typing{MarkMode::Subject, "Absent", "100", OfAbsent},
                                         Typing{MarkMode::Student, "Present", "20", ""},
                                         Typing{MarkMode::Student, "Present", "21", AboveLimit + "20"},
                                         Typing{MarkMode::Student, "Absent", "5", OfAbsent},
                                         Typing{MarkMode::Student, "Absent", "0", ""}));

TEST(MarkSheet, TheHighestMarkIsTheAllowedOneAlsoWhereItIsAboveWhatTheMarkIsOutOf)
{
    MarkSheet sheet = SubjectSheet();
    sheet.StartSubject({1, {}, 7, 120, 100});
    EXPECT_TRUE(sheet.RefusalWhileTyping(1, QStringLiteral("110")).isEmpty());
    EXPECT_FALSE(sheet.RefusalWhileTyping(1, QStringLiteral("121")).isEmpty());
}

TEST(MarkSheet, AMarkAboveZeroMakesPresentAndLeadsDownToTheSaveButton)
{
    MarkSheet sheet = SubjectSheet();
    EXPECT_EQ(ToText(sheet.EnterMark(1, QStringLiteral("45"))), "mark 2");
    Declare(sheet, 3, "0", "Absent");
    EXPECT_EQ(ToText(sheet.EnterMark(3, QStringLiteral("45"))), "save 0");
    EXPECT_EQ(sheet.Row(3).presence.toStdString(), "Present");
}

TEST(MarkSheet, AZeroOrAnEmptyBoxHasToBeDeclaredPresentOrAbsent)
{
    for (const char* text : {"0", "", "0.0", "."}) {
        MarkSheet sheet = SubjectSheet();
        EXPECT_EQ(ToText(sheet.EnterMark(2, QString::fromLatin1(text))), "presence 2") << text;
        EXPECT_EQ(sheet.Row(2).mark.toStdString(), "0");
    }
}

TEST(MarkSheet, ADeclaredZeroLeadsOn)
{
    MarkSheet sheet = SubjectSheet();
    sheet.SetMark(1, QStringLiteral("0"));
    EXPECT_EQ(ToText(sheet.EnterPresence(1, QStringLiteral("Absent"))), "mark 2");
    EXPECT_EQ(sheet.Row(1).presence.toStdString(), "Absent");
    EXPECT_EQ(ToText(sheet.EnterPresence(1, QStringLiteral("p"))), "mark 2");
    EXPECT_EQ(sheet.Row(1).presence.toStdString(), "Present");
    sheet.SetMark(3, QStringLiteral("0"));
    EXPECT_EQ(ToText(sheet.EnterPresence(3, QStringLiteral("absent"))), "save 0");
}

TEST(MarkSheet, APresenceThatIsNeitherIsRefusedAndTheRowStays)
{
    MarkSheet sheet = SubjectSheet();
    EXPECT_EQ(ToText(sheet.EnterPresence(1, QStringLiteral("Late"))), "presence 1: Select Present/Absent ");
    EXPECT_EQ(sheet.Row(1).presence.toStdString(), "Present");
}

TEST(MarkSheet, AnAbsenceWithAMarkLeadsBackToTheMark)
{
    MarkSheet sheet = SubjectSheet();
    sheet.SetMark(2, QStringLiteral("30"));
    EXPECT_EQ(ToText(sheet.EnterPresence(2, QStringLiteral("Absent"))), "mark 2: " + OfAbsent);
    EXPECT_EQ(ToText(sheet.EnterMark(2, QStringLiteral("30"))), "mark 3");
    EXPECT_EQ(sheet.Row(2).presence.toStdString(), "Present") << "a mark above 0 takes the absence back";
}

TEST(MarkSheet, TheClassAverageCountsZeroMarksAndNoAbsences)
{
    MarkSheet sheet = SubjectSheet();
    Declare(sheet, 1, "45", "Present");
    Declare(sheet, 2, "0", "Present");
    Declare(sheet, 3, "0", "Absent");
    EXPECT_EQ(sheet.Average().toStdString(), "22.5");
    sheet.SetPresence(2, QStringLiteral("Absent"));
    EXPECT_EQ(sheet.Average().toStdString(), "45");
}

TEST(MarkSheet, TheClassAverageIsOutOfTheMaximumMarkRoundedToTwoDecimals)
{
    MarkSheet sheet = SubjectSheet();
    sheet.StartSubject({1, {}, 7, 50, 60});
    for (const auto& [row, mark] : {std::pair{1, "10"}, {2, "20"}, {3, "10"}})
        sheet.SetMark(row, QString::fromLatin1(mark));
    EXPECT_EQ(sheet.Average().toStdString(), "22.22");
    MarkSheet halves = SubjectSheet(1);
    halves.StartSubject({1, {}, 7, 999, 800});
    halves.SetMark(1, QStringLiteral("1"));
    EXPECT_EQ(halves.Average().toStdString(), "0.12") << "0.125: a half goes to the even neighbour";
}

TEST(MarkSheet, TheAverageOfALargeClassIsThatOfTheExactSum)
{
    constexpr int Students = 100;
    MarkSheet sheet = SubjectSheet(Students);
    for (int step = 1; step <= 400; ++step) {
        int hundredths = 0;
        for (int row = 1; row <= Students; ++row) {
            const int mark = (row * 13 + step * 7) % 5000;
            hundredths += mark;
            sheet.SetMark(row, PlainNumber(mark / 100.0));
        }
        const double sum = hundredths / 100.0;
        ASSERT_EQ(sheet.Average().toStdString(),
                  PlainNumber(Round(sum / (Students * 100) * 100, 2)).toStdString())
            << "step " << step;
    }
}

TEST(MarkSheet, ThereIsNoAverageWithoutMarksPresencesOrLimits)
{
    EXPECT_EQ(MarkSheet().Average().toStdString(), "");
    MarkSheet sheet = SubjectSheet();
    EXPECT_EQ(sheet.Average().toStdString(), "");
    for (int row = 1; row <= 3; ++row)
        Declare(sheet, row, "0", "Absent");
    EXPECT_EQ(sheet.Average().toStdString(), "");
    for (const MarkSubject& limits : {MarkSubject{1, {}, 7, 0, 100}, MarkSubject{1, {}, 7, 50, 0}}) {
        sheet.StartSubject(limits);
        sheet.SetMark(1, QStringLiteral("5"));
        EXPECT_EQ(sheet.Average().toStdString(), "");
    }
}

TEST(MarkSheet, AStudentsAverageIsOutOfTheMaximumMarksOfTheSubjectsAttended)
{
    MarkSheet sheet = StudentSheet();
    Declare(sheet, 1, "50", "Present");
    Declare(sheet, 2, "20", "Present");
    EXPECT_EQ(sheet.Average().toStdString(), "56");
    Declare(sheet, 2, "0", "Absent");
    EXPECT_EQ(sheet.Average().toStdString(), "50");
}

TEST(MarkSheet, EveryRowNeedsAMarkAndTheFirstFaultIsToldFirst)
{
    MarkSheet sheet = SubjectSheet();
    EXPECT_EQ(ToText(sheet.FindFault().value()), "mark 1: Enter Mark");
    Declare(sheet, 1, "0", "Present");
    Declare(sheet, 2, "0", "Absent");
    EXPECT_EQ(ToText(sheet.FindFault().value()), "mark 3: Enter Mark");
    Declare(sheet, 3, "20", "Absent");
    EXPECT_EQ(ToText(sheet.FindFault().value()), "mark 3: " + OfAbsent);
    Declare(sheet, 2, "", "");
    EXPECT_EQ(ToText(sheet.FindFault().value()), "mark 3: " + OfAbsent) << "contradictions go before gaps";
    Declare(sheet, 3, "20", "Present");
    EXPECT_EQ(ToText(sheet.FindFault().value()), "presence 2: Select Present/Absent");
    Declare(sheet, 2, "0", "Absent");
    EXPECT_FALSE(sheet.FindFault());
}

TEST(MarkSheet, MarksAreEnteredForAnExamAClassAndADivisionTogether)
{
    EXPECT_TRUE(IsComplete({.academicYearCode = 1, .examCode = 2, .classCode = 3, .divisionCode = 4}));
    EXPECT_FALSE(IsComplete({.academicYearCode = 1, .classCode = 3, .divisionCode = 4}));
    EXPECT_FALSE(IsComplete({.academicYearCode = 1, .examCode = 2, .divisionCode = 4}));
    EXPECT_FALSE(IsComplete({.academicYearCode = 1, .examCode = 2, .classCode = 3}));
}

TEST(MarkSheet, AStudentNeedsAMarkInEachSubjectOfTheClass)
{
    MarkSheet sheet = StudentSheet();
    Declare(sheet, 1, "20", "Present");
    EXPECT_EQ(ToText(sheet.FindFault().value()), "mark 2: Enter Mark");
}

TEST(MarkSheet, StoredMarksGoToTheirRowsAndOneWithoutARowIsPassedOver)
{
    MarkSheet sheet = SubjectSheet();
    sheet.TakeMarks({{9, 50, true}, {3, 12.5, true}, {1, 0, false}});
    EXPECT_EQ(sheet.Row(1).mark.toStdString() + sheet.Row(1).presence.toStdString(), "0Absent");
    EXPECT_EQ(sheet.Row(2).mark.toStdString() + sheet.Row(2).presence.toStdString(), "Present");
    EXPECT_EQ(sheet.Row(3).mark.toStdString() + sheet.Row(3).presence.toStdString(), "12.5Present");
}

TEST(MarkSheet, TheTeacherOfASubjectStandsInEveryRowAndThoseOfAStudentByRow)
{
    const std::vector<MarkRecord> records = SubjectSheet().Records(1);
    EXPECT_EQ(records.size(), 3U);
    for (const MarkRecord& record : records)
        EXPECT_EQ(record.teacherCode, 7);
    EXPECT_EQ(StudentSheet().Records(5).at(1).teacherCode, 8);
}

TEST(MarkSheet, StudentAndSubjectChangePlacesWithTheMode)
{
    MarkSheet bySubject = SubjectSheet();
    Declare(bySubject, 3, "0", "Absent");
    const MarkRecord third = bySubject.Records(1).at(2);
    EXPECT_EQ(third.studentCode, 3);
    EXPECT_EQ(third.subjectCode, 1);
    EXPECT_FALSE(third.present);
    const MarkRecord second = StudentSheet().Records(5).at(1);
    EXPECT_EQ(second.studentCode, 5);
    EXPECT_EQ(second.subjectCode, 2);
    EXPECT_TRUE(second.present);
}

TEST(MarkSheet, AListShownAgainStartsWithoutMarksAndKeepsTheTeacherOfThoseWhoAreStillInIt)
{
    MarkSheet sheet = SubjectSheet();
    Declare(sheet, 1, "0", "Absent");
    Declare(sheet, 3, "30", "Present");
    sheet.ListStudentsAgain(
        {{4, QStringLiteral("New")}, {1, QStringLiteral("Student 1")}, {3, QStringLiteral("Student 3")}});
    ASSERT_EQ(sheet.RowCount(), 3);
    for (int row = 1; row <= 3; ++row) {
        EXPECT_EQ(sheet.Row(row).mark.toStdString(), "");
        EXPECT_EQ(sheet.Row(row).presence.toStdString(), "Present");
    }
    EXPECT_EQ(sheet.Row(1).teacherCode, 0);
    EXPECT_EQ(sheet.Row(2).teacherCode, 7);
    EXPECT_EQ(sheet.Row(3).code, 3);
    EXPECT_EQ(sheet.Row(3).teacherCode, 7);
}

TEST(MarkSheet, ASubjectThatIsSetUpAnewBringsItsLimitsAndItsTeacher)
{
    MarkSheet sheet = SubjectSheet();
    Declare(sheet, 1, "45", "Present");
    EXPECT_TRUE(sheet.TakeLimits({{2, {}, 9, 10, 10}, {1, {}, 8, 40, 80}}, 1).empty());
    EXPECT_EQ(sheet.MaximumAllowed(), 40);
    EXPECT_EQ(sheet.MaximumMark(), 80);
    EXPECT_EQ(sheet.Row(3).teacherCode, 8);
    EXPECT_EQ(sheet.Row(1).mark.toStdString(), "45") << "what was entered stays";
    ASSERT_TRUE(sheet.FindMarkAboveLimit());
    EXPECT_EQ(ToText(*sheet.FindMarkAboveLimit()), "mark 1: " + AboveLimit + "40");
    sheet.SetMark(1, QStringLiteral("40"));
    EXPECT_FALSE(sheet.FindMarkAboveLimit());
}

TEST(MarkSheet, ASubjectThatTheClassHasGivenUpKeepsItsLimits)
{
    MarkSheet sheet = SubjectSheet();
    EXPECT_EQ(sheet.TakeLimits({{2, {}, 9, 10, 10}}, 1), std::vector<int>{1});
    EXPECT_EQ(sheet.MaximumAllowed(), 50);
    MarkSheet ofStudent = StudentSheet();
    EXPECT_EQ(ofStudent.TakeLimits({{1, {}, 9, 40, 100}}, 0), std::vector<int>{2});
    EXPECT_EQ(ofStudent.Row(1).maximumAllowed, 40);
    EXPECT_EQ(ofStudent.Row(2).maximumAllowed, 20);
    EXPECT_EQ(ofStudent.TakeLimits({}, 0), (std::vector<int>{1, 2}));
}

TEST(MarkSheet, AStudentsRowsTakeTheLimitsOfTheirOwnSubjects)
{
    MarkSheet sheet = StudentSheet();
    sheet.SetMark(2, QStringLiteral("20"));
    EXPECT_FALSE(sheet.FindMarkAboveLimit());
    EXPECT_TRUE(sheet.TakeLimits({{1, {}, 9, 30, 60}, {2, {}, 8, 15, 15}}, 0).empty());
    EXPECT_EQ(sheet.Row(1).maximumAllowed, 30);
    EXPECT_EQ(sheet.Row(1).maximumMark, 60);
    EXPECT_EQ(sheet.Row(1).teacherCode, 9);
    ASSERT_TRUE(sheet.FindMarkAboveLimit());
    EXPECT_EQ(ToText(*sheet.FindMarkAboveLimit()), "mark 2: " + AboveLimit + "15");
}

} // namespace
} // namespace tally::test
