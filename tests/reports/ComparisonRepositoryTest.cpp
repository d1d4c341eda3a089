#include "reports/ComparisonRepository.h"

#include "ranks/RankCardSchool.h"
#include "support/Neighbours.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// Class X with divisions A and B in two years and three exams. In A: Asha, who repeats the class, Binu, who
/// came from B, and a second Asha with a lower number. Nothing lies in its order.
class ComparedSchool : public testing::Test
{
protected:
    ComparedSchool()
    {
        cards.AddYear(2, 2025);
        Run("UPDATE ExamMaster SET ExamOrder = 5");
        cards.AddExam(2, "Annual", 3);
        cards.AddExam(3, "Mid", 4);
        school.AddDivision(1, "A");
        school.AddDivision(2, "B");
        school.AddSubject(1, 1, "Eng", 2);
        school.AddSubject(1, 2, "Mat", 1, "No");
        school.AddSubject(1, 5, "Drw", 1);
        school.AddSubject(2, 4, "Art", 1);
        Run("INSERT INTO ClassSubjectTeacher VALUES (2, 1, 1, 1, 0, 100, 100, 'Yes', 9), "
            "(2, 1, 1, 5, 0, 100, 100, 'Yes', 8)");
        school.AddStudent(1, QStringLiteral("Asha"), QStringLiteral("B7"));
        school.AddStudent(1, QStringLiteral("Binu"));
        school.AddStudent(1, QStringLiteral("Asha"), QStringLiteral("A9"));
        school.AddStudent(2, QStringLiteral("Cara"));
        Run("INSERT INTO StudentClassDivision VALUES (1, 2, 1, 1, 'Y', 0), (4, 2, 1, 1, 'Y', 0)");
        cards.EnterMark(1, 1, 1, 60);
        cards.EnterMark(1, 2, 1, 70.5);
        cards.EnterMark(1, 3, 1, 99, "A");
        cards.EnterMark(1, 1, 2, 0);
        cards.EnterMark(2, 2, 1, 45);
        cards.EnterMark(2, 1, 5, 33, "A");
        cards.EnterMark(3, 1, 1, 80, "P", 2);
        cards.EnterMark(3, 1, 5, 81, "P", 2);
        Run("INSERT INTO MarkMaster VALUES (1, 4, 1, 1, 2, 4, 88, 'P', 0, 0)");
    }

    void Run(const char* sql) { school.main.Execute(QString::fromLatin1(sql)); }

    static std::string Text(const CodedTexts& lines)
    {
        QStringList texts;
        for (const auto& [code, text] : lines)
            texts.append(QStringLiteral("%1 %2").arg(QString::number(code), text));
        return texts.join(QStringLiteral("; ")).toStdString();
    }
    static std::string Text(const SubjectListInput& input)
    {
        QStringList entered;
        for (const EnteredSubject& subject : input.entered)
            entered.append(QStringLiteral("%1/%2").arg(subject.lineCode).arg(subject.subjectCode));
        entered.sort();
        entered.removeDuplicates();
        return Text(input.subjects) + " | " + entered.join(QLatin1Char(' ')).toStdString();
    }
    static std::string Text(const ComparisonInput& input)
    {
        QStringList marks;
        for (const ComparedMark& mark : input.marks)
            marks.append(QStringLiteral("%1/%2=%3").arg(mark.lineCode).arg(mark.subjectCode).arg(mark.mark));
        marks.sort();
        return Text(input.subjects) + " | " + marks.join(QLatin1Char(' ')).toStdString();
    }

    TestSchool school;
    RankCardSchool cards{school};
    ComparisonRepository repository{school.main};
    const SchoolScope own{1, 0, 1, 1};
    static constexpr SubjectDisplay ForRank = SubjectDisplay::TakenForRankOnly;
    static constexpr SubjectDisplay All = SubjectDisplay::All;
};

TEST_F(ComparedSchool, StudentsAreThoseOfTheDivisionAndYearByNameAndNumberRelievedOnesToo)
{
    Run("UPDATE StudentMaster SET TCNo = 'T1' WHERE StudentCode = 2");
    EXPECT_EQ(Text(repository.Students(own)), "3 Asha (A9); 1 Asha (B7); 2 Binu (A2)");
    EXPECT_EQ(Text(repository.Students({1, 0, 1, 2})), "4 Cara (A4)");
    EXPECT_EQ(Text(repository.Students({2, 0, 1, 1})), "1 Asha (B7); 4 Cara (A4)");
    EXPECT_EQ(Text(repository.Students({1, 0, 2, 1})), "");
}

TEST_F(ComparedSchool, SubjectsAreThoseOfTheDivisionInTheirOrderThenByCode)
{
    EXPECT_EQ(Text(repository.LoadDivisionSubjects(own, {}, ForRank).subjects), "5 Subject 5; 1 Subject 1");
    EXPECT_EQ(Text(repository.LoadDivisionSubjects(own, {}, All).subjects),
              "2 Subject 2; 5 Subject 5; 1 Subject 1");
    EXPECT_EQ(Text(repository.LoadStudentSubjects(own, 1, {}, ForRank).subjects), "5 Subject 5; 1 Subject 1");
    EXPECT_EQ(Text(repository.LoadDivisionSubjects({2, 0, 1, 1}, {}, All).subjects),
              "5 Subject 5; 1 Subject 1");
}

TEST_F(ComparedSchool, SubjectsWithOneNumberStandByCode)
{
    Run("UPDATE ClassSubjectTeacher SET SlNo = 1");
    EXPECT_EQ(Text(repository.LoadDivisionSubjects(own, {}, ForRank).subjects), "1 Subject 1; 5 Subject 5");
    EXPECT_EQ(Text(repository.LoadDivisionMarks(own, {}, {5, 1}, ForRank).subjects), "1 Eng; 5 Drw");
    EXPECT_EQ(Text(repository.LoadDivisionMarks(own, {}, {5, 2, 1}, All).subjects), "1 Eng; 2 Mat; 5 Drw");
}

TEST_F(ComparedSchool, OfADivisionEnteredIsWhatAnyoneHasAMarkOfInTheYearPresentOrNot)
{
    EXPECT_EQ(Text(repository.LoadDivisionSubjects(own, {1, 2, 3}, All)),
              "2 Subject 2; 5 Subject 5; 1 Subject 1 | 1/1 1/2 2/1 2/5");
    EXPECT_EQ(Text(repository.LoadDivisionSubjects(own, {2}, ForRank)), "5 Subject 5; 1 Subject 1 | 2/1 2/5");
    EXPECT_EQ(Text(repository.LoadDivisionSubjects({2, 0, 1, 1}, {1, 2, 3}, ForRank)),
              "5 Subject 5; 1 Subject 1 | 3/1 3/5");
}

TEST_F(ComparedSchool, MarksOfOneWhoWasNeverInTheDivisionAreNotEnteredThere)
{
    Run("DELETE FROM MarkMaster");
    cards.EnterMark(1, 4, 1, 50);
    EXPECT_EQ(Text(repository.LoadDivisionSubjects(own, {1}, ForRank)), "5 Subject 5; 1 Subject 1 | 1/1")
        << "she is in it a year later";
    Run("DELETE FROM StudentClassDivision WHERE AcademicYearCode = 2");
    EXPECT_EQ(Text(repository.LoadDivisionSubjects(own, {1}, ForRank)), "5 Subject 5; 1 Subject 1 | ");
    EXPECT_EQ(Text(repository.LoadStudentSubjects(own, 4, {1}, ForRank)), "5 Subject 5; 1 Subject 1 | ");
    Run("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
    Run("INSERT INTO ClassDivisionDetails VALUES (2, 'P', 1)");
    Run("INSERT INTO StudentClassDivision VALUES (4, 2, 2, 1, 'Y', 0)");
    EXPECT_EQ(Text(repository.LoadDivisionSubjects(own, {1}, ForRank)), "5 Subject 5; 1 Subject 1 | ");
    EXPECT_EQ(Text(repository.LoadStudentSubjects(own, 4, {1}, ForRank)), "5 Subject 5; 1 Subject 1 | ");
}

TEST_F(ComparedSchool, OfAStudentEnteredIsWhatHeHasAMarkOfInTheDivisionInAnyYear)
{
    EXPECT_EQ(Text(repository.LoadStudentSubjects(own, 1, {1, 2, 3}, ForRank)),
              "5 Subject 5; 1 Subject 1 | 1/1 1/2 2/5 3/1 3/5");
    EXPECT_EQ(Text(repository.LoadStudentSubjects(own, 2, {2, 3}, ForRank)),
              "5 Subject 5; 1 Subject 1 | 2/1");
    EXPECT_EQ(Text(repository.LoadStudentSubjects({1, 0, 1, 2}, 4, {1}, ForRank)), "4 Subject 4 | 1/4");
}

TEST_F(ComparedSchool, ADivisionOfTheSameCodeInAnotherClassIsNotNoticed)
{
    const auto division = [this] {
        return Text(repository.LoadDivisionSubjects(own, {1, 2, 3}, ForRank)) + " / " +
               Text(repository.LoadDivisionMarks(own, {1, 2, 3}, {1, 2, 5}, ForRank));
    };
    const auto student = [this] {
        return Text(repository.LoadStudentSubjects(own, 1, {1, 2, 3}, ForRank)) + " / " +
               Text(repository.LoadStudentMarks(own, 1, {1, 2, 3}, {1, 2, 5}, ForRank)) + " / " +
               Text(repository.StudentYears(1));
    };
    const std::string divisionBefore = division();
    const std::string studentBefore = student();
    Run("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
    Run("INSERT INTO ClassDivisionDetails VALUES (2, 'P', 1)");
    Run("INSERT INTO ClassSubjectTeacher VALUES (1, 2, 1, 2, 0, 100, 100, 'Yes', 1), "
        "(1, 2, 1, 5, 0, 100, 100, 'Yes', 2)");
    EXPECT_EQ(student(), studentBefore);
    const int other = school.AddStudent(1, QStringLiteral("Other"));
    school.main.Execute(QStringLiteral("UPDATE StudentClassDivision SET ClassCode = 2 WHERE StudentCode = ?"),
                        other);
    school.main.Execute(QStringLiteral("INSERT INTO MarkMaster VALUES (1, ?, 1, 2, 1, 5, 50, 'P', 0, 0)"),
                        other);
    EXPECT_EQ(division(), divisionBefore);
    // She has gone on into the other class, where she has a mark of a subject that she had none of here.
    Run("UPDATE StudentClassDivision SET ClassCode = 2 WHERE StudentCode = 1 AND AcademicYearCode = 2");
    Run("INSERT INTO MarkMaster VALUES (2, 1, 1, 2, 1, 5, 50, 'P', 0, 0)");
    EXPECT_EQ(Text(repository.LoadStudentSubjects(own, 1, {1, 2}, ForRank)),
              "5 Subject 5; 1 Subject 1 | 1/1 1/2 2/5");
}

TEST_F(ComparedSchool, OfADivisionTheMarksOfThosePresentAreReadInItsYearAndExams)
{
    EXPECT_EQ(Text(repository.LoadDivisionMarks(own, {1, 2, 3}, {1, 2, 5}, All)),
              "2 Mat; 5 Drw; 1 Eng | 1/1=60 1/1=70.5 1/2=0 2/1=45");
    EXPECT_EQ(Text(repository.LoadDivisionMarks(own, {2}, {1}, ForRank)), "1 Eng | 2/1=45");
    EXPECT_EQ(Text(repository.LoadDivisionMarks(own, {2}, {1, 2}, ForRank)), "1 Eng | 2/1=45")
        << "a subject that is no more taken for rank";
    EXPECT_EQ(Text(repository.LoadDivisionMarks({1, 0, 1, 2}, {1}, {1, 4}, ForRank)), "4 Art | 1/4=88");
    EXPECT_EQ(Text(repository.LoadDivisionMarks({2, 0, 1, 1}, {1, 3}, {1}, ForRank)),
              "1 Eng | 3/1=80 3/5=81");
}

TEST_F(ComparedSchool, OfAStudentAllMarksAreReadThoseOfAnAbsenceToo)
{
    EXPECT_EQ(Text(repository.LoadStudentMarks(own, 1, {1, 2, 3}, {1, 5}, ForRank)),
              "5 Drw; 1 Eng | 1/1=60 1/2=0 2/5=33");
    EXPECT_EQ(Text(repository.LoadStudentMarks(own, 3, {1}, {1, 2}, All)), "2 Mat; 1 Eng | 1/1=99");
    EXPECT_EQ(Text(repository.LoadStudentMarks({2, 0, 1, 1}, 1, {1, 3}, {1}, ForRank)),
              "1 Eng | 3/1=80 3/5=81");
    EXPECT_EQ(Text(repository.LoadStudentMarks({1, 0, 1, 2}, 1, {1, 3}, {4}, ForRank)), "4 Art | ");
}

TEST_F(ComparedSchool, AMarkThatWasLeftOpenIsNone)
{
    Run("UPDATE MarkMaster SET Mark = NULL WHERE StudentCode = 1");
    EXPECT_EQ(Text(repository.LoadDivisionMarks(own, {1}, {1}, ForRank)), "1 Eng | 1/1=70.5");
    EXPECT_EQ(Text(repository.LoadStudentMarks(own, 1, {1}, {1}, ForRank)), "1 Eng | ");
    EXPECT_EQ(Text(repository.LoadYearMarks(1, 1, {1}, {1})), "1 Eng | ");
}

TEST_F(ComparedSchool, TheYearsAreThoseInWhichTheStudentHadAPlace)
{
    EXPECT_EQ(Text(repository.StudentYears(1)), "1 2024 - 2025 X/A; 2 2025 - 2026 X/A");
    EXPECT_EQ(Text(repository.StudentYears(4)), "1 2024 - 2025 X/B; 2 2025 - 2026 X/A");
    EXPECT_EQ(Text(repository.StudentYears(2)), "1 2024 - 2025 X/A");
    EXPECT_EQ(Text(repository.StudentYears(99)), "");
}

TEST_F(ComparedSchool, OfAllYearsTheSubjectsAreThoseWithMarksInAnyExamByName)
{
    Run("UPDATE SubjectMaster SET SubjectName = 'Zoology' WHERE SubjectCode = 1");
    EXPECT_EQ(Text(repository.LoadYearSubjects(1, 1, {1, 2})),
              "2 Subject 2; 5 Subject 5; 1 Zoology | 1/1 1/2");
    EXPECT_EQ(Text(repository.LoadYearSubjects(1, 3, {1, 2})),
              "2 Subject 2; 5 Subject 5; 1 Zoology | 2/1 2/5");
    EXPECT_EQ(Text(repository.LoadYearSubjects(1, 3, {2})), "5 Subject 5; 1 Zoology | 2/1 2/5");
    EXPECT_EQ(Text(repository.LoadYearSubjects(4, 1, {1, 2})), "4 Subject 4 | 1/4");
    EXPECT_EQ(Text(repository.LoadYearSubjects(1, 1, {})), " | ");
}

TEST_F(ComparedSchool, SubjectsOfOneNameStandByCode)
{
    Run("UPDATE SubjectMaster SET SubjectName = 'English'");
    EXPECT_EQ(Text(repository.LoadYearSubjects(1, 1, {1, 2}).subjects), "1 English; 2 English; 5 English");
}

TEST_F(ComparedSchool, OfAllYearsTheMarksAreThoseOfTheExamInTheOrderOfTheSubjectsAskedFor)
{
    EXPECT_EQ(Text(repository.LoadYearMarks(1, 1, {1, 2}, {5, 1})), "5 Drw; 1 Eng | 1/1=60 1/2=0");
    EXPECT_EQ(Text(repository.LoadYearMarks(1, 2, {1, 2}, {1, 5})), "1 Eng; 5 Drw | 1/5=33");
    EXPECT_EQ(Text(repository.LoadYearMarks(1, 3, {1, 2}, {1})), "1 Eng | 2/1=80 2/5=81");
    EXPECT_EQ(Text(repository.LoadYearMarks(1, 3, {1}, {1})), "1 Eng | ");
    EXPECT_EQ(Text(repository.LoadYearMarks(4, 1, {1, 2}, {4})), "4 Art | 1/4=88");
}

TEST_F(ComparedSchool, OfAllYearsASubjectThatIsGoneHasNoColumn)
{
    EXPECT_EQ(Text(repository.LoadYearMarks(1, 1, {1, 2}, {5, 77, 1})), "5 Drw; 1 Eng | 1/1=60 1/2=0");
}

TEST_F(ComparedSchool, MarksOfAYearWithoutAPlaceAreLeftOut)
{
    Run("DELETE FROM StudentClassDivision WHERE StudentCode = 1 AND AcademicYearCode = 2");
    EXPECT_EQ(Text(repository.LoadYearMarks(1, 3, {1, 2}, {1})), "1 Eng | ");
}

/// All that the lists of division A are made from, and of Asha's years.
class ComparedNeighbours : public ComparedSchool
{
protected:
    std::string OfTheDivision()
    {
        return Text(repository.Students(own)) + " | " +
               Text(repository.LoadDivisionSubjects(own, {1, 2, 3}, All)) + " | " +
               Text(repository.LoadDivisionMarks(own, {1, 2, 3}, {1, 2, 5}, All));
    }
    std::string OfTheStudent()
    {
        return Text(repository.LoadStudentSubjects(own, 1, {1, 2, 3}, All)) + " | " +
               Text(repository.LoadStudentMarks(own, 1, {1, 2, 3}, {1, 2, 5}, All));
    }
    std::string OfTheYears()
    {
        return Text(repository.LoadYearSubjects(1, 1, {1, 2})) + " | " +
               Text(repository.LoadYearMarks(1, 1, {1, 2}, {1, 2, 5}));
    }
};

TEST_F(ComparedNeighbours, RowsOnAllSidesAreNotNoticedInADivision)
{
    const std::string alone = OfTheDivision();
    AddNeighbours(school.main);
    EXPECT_EQ(OfTheDivision(), alone);
}

TEST_F(ComparedNeighbours, OfAStudentTheMarksOfOtherExamsClassesAndDivisionsAreNotNoticed)
{
    const std::string alone = OfTheStudent();
    AddNeighbours(school.main, {Side::Exam, Side::Class, Side::Division});
    EXPECT_EQ(OfTheStudent(), alone);
}

TEST_F(ComparedNeighbours, OfTheYearsOtherYearsAndExamsAreNotNoticed)
{
    const std::string alone = OfTheYears();
    AddNeighbours(school.main, {Side::Year, Side::Exam});
    EXPECT_EQ(OfTheYears(), alone);
}

TEST_F(ComparedNeighbours, EachListTakesTheSameStatementsHoweverLargeTheSchoolIs)
{
    const auto statements = [this](const auto& work) {
        const auto before = school.main.StatementsRun();
        work();
        return school.main.StatementsRun() - before;
    };
    const auto division = [this] { OfTheDivision(); };
    const auto student = [this] { OfTheStudent(); };
    const auto years = [this] { OfTheYears(); };
    const std::vector<std::uint64_t> small{statements(division), statements(student), statements(years)};
    for (int subject = 10; subject < 40; ++subject)
        school.AddSubject(1, subject, "More", subject);
    for (int number = 0; number < 50; ++number) {
        const int code = school.AddStudent(1, QStringLiteral("More"), QStringLiteral("M%1").arg(number));
        for (int subject = 10; subject < 40; ++subject)
            cards.EnterMark(1, code, subject, 50);
    }
    EXPECT_EQ((std::vector<std::uint64_t>{statements(division), statements(student), statements(years)}),
              small);
}

} // namespace
} // namespace tally::test
