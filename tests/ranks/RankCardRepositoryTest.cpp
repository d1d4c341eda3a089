#include "ranks/RankCardRepository.h"

#include "ranks/RankCardSchool.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// Class X with divisions A and B and class IX with division P; in each a student with marks, ranks and a
/// subject of its own, and in division A of X more of all that, also in another year. Nothing lies in its
/// order.
class RankCardSets : public testing::Test
{
protected:
    RankCardSets()
    {
        cards.AddYear(2, 2025);
        Run("UPDATE ExamMaster SET ExamOrder = 5");
        cards.AddExam(2, "Annual", 3);
        cards.AddExam(3, "Mid", 4);
        Run("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
        Run("INSERT INTO ClassDivisionDetails VALUES (2, 'P', 1)");
        school.AddDivision(1, "A");
        school.AddDivision(2, "B");
        school.AddSubject(1, 1, "Eng", 2);
        school.AddSubject(1, 2, "Mat", 1, "No");
        school.AddSubject(1, 5, "Drw", 1);
        school.AddSubject(1, 3, "Sci", 1);
        school.AddSubject(2, 4, "Art", 1);
        Run("INSERT INTO SubjectMaster VALUES (6, 'Music', 'Mus', 0), (7, 'Games', 'Gam', 0)");
        Run("INSERT INTO ClassSubjectTeacher VALUES (2, 1, 1, 6, 0, 100, 100, 'Yes', 1), "
            "(1, 2, 1, 7, 0, 100, 100, 'Yes', 1)");
        for (const char* name : {"Cara", "Asha", "Asha"})
            school.AddStudent(1, QString::fromLatin1(name));
        school.AddStudent(2, QStringLiteral("Dev"));
        for (int more = 0; more < 3; ++more)
            school.AddStudent(2, QStringLiteral("Elsa"));
        Run("UPDATE StudentClassDivision SET Status = 'N' WHERE StudentCode = 3");
        Run("UPDATE StudentClassDivision SET ClassCode = 2, DivisionCode = 1 WHERE StudentCode = 5");
        Run("UPDATE StudentClassDivision SET AcademicYearCode = 2, DivisionCode = 1 WHERE StudentCode = 7");
        AddMarksAndRanks();
    }

    void AddMarksAndRanks()
    {
        cards.EnterMark(2, 1, 1, 60);
        cards.EnterMark(1, 2, 1, 50);
        cards.EnterMark(1, 1, 2, 45);
        cards.EnterMark(1, 1, 1, 40);
        cards.EnterMark(3, 1, 1, 33);
        cards.EnterMark(1, 1, 1, 70, "P", 2);
        Run("INSERT INTO MarkMaster VALUES (1, 4, 1, 1, 2, 4, 99, 'P', 0, 0), (1, 5, 1, 2, 1, 7, 88, 'P', 0, "
            "0)");
        cards.SaveRank(2, 1, 60, 60, 1, "C");
        cards.SaveRank(1, 2, 50, 50, 2, "D");
        cards.SaveRank(1, 1, 85, 42.5, 1, "B");
        cards.SaveRank(3, 1, 33, 33, 1, "E");
        cards.SaveRank(1, 1, 70, 70, 1, "A", 2);
        Run("INSERT INTO TempRankTotal VALUES (4, 1, 1, 1, 2, 99, 99, 1, 'A'), (5, 1, 1, 2, 1, 88, 88, 1, "
            "'A')");
    }

    void Run(const char* sql) { school.main.Execute(QString::fromLatin1(sql)); }

    RankCardInput Cards(const SchoolScope& scope, const std::vector<int>& students = {},
                        const std::vector<int>& exams = {},
                        SubjectDisplay display = SubjectDisplay::TakenForRankOnly)
    {
        return repository.LoadRankCards(scope, students, exams, display);
    }

    std::string Subjects(SubjectDisplay display)
    {
        QStringList texts;
        for (const CardSubject& subject : Cards(own, {}, {}, display).subjects)
            texts.append(
                QStringLiteral("%1 %2").arg(QString::number(subject.subjectCode), subject.shortName));
        return texts.join(QLatin1String("; ")).toStdString();
    }

    TestSchool school;
    RankCardSchool cards{school};
    RankCardRepository repository{school.main};
    const SchoolScope own{1, 0, 1, 1};
};

TEST_F(RankCardSets, TheStudentsOfADivisionAndYearStandByNameThenByCode)
{
    QStringList texts;
    const StudentListInput input = repository.LoadStudentList(own);
    for (const ListedStudent& student : input.students)
        texts.append(QStringLiteral("%1 %2").arg(QString::number(student.studentCode), student.studentName));
    EXPECT_EQ(texts.join(QLatin1String("; ")).toStdString(), "2 Asha; 3 Asha; 1 Cara");
    EXPECT_EQ(input.subjectCount, 4);
}

TEST_F(RankCardSets, MarksAreCountedByExamAndStudentWithinTheDivisionAndYear)
{
    QStringList texts;
    for (const ExamMarkCount& count : repository.LoadStudentList(own).counts)
        texts.append(QStringLiteral("%1 %2 %3").arg(count.examCode).arg(count.studentCode).arg(count.marks));
    texts.sort();
    EXPECT_EQ(texts.join(QLatin1String("; ")).toStdString(), "1 1 2; 1 2 1; 2 1 1; 3 1 1");
}

TEST_F(RankCardSets, TheNamesAreThoseOfTheClassAndDivision)
{
    const auto names = [this](const SchoolScope& scope) {
        const RankCardInput input = Cards(scope);
        return (input.className + QLatin1Char(' ') + input.divisionName).toStdString();
    };
    EXPECT_EQ(names({1, 0, 1, 1}), "X A");
    EXPECT_EQ(names({1, 0, 1, 2}), "X B");
    EXPECT_EQ(names({1, 0, 2, 1}), "IX P");
}

TEST_F(RankCardSets, AStudentWithoutAMarkInTheDivisionHasNoName)
{
    QStringList texts;
    for (const CardStudent& student : Cards(own, {2, 1, 4, 5, 6}).students)
        texts.append(
            QStringLiteral("%1 %2 %3")
                .arg(QString::number(student.studentCode), student.studentName, student.admissionNo));
    EXPECT_EQ(texts.join(QLatin1String("; ")).toStdString(), "2 Asha A2; 1 Cara A1; 4  ; 5  ; 6  ");
}

TEST_F(RankCardSets, TheExamsAreThoseAskedForInTheOrderOfTheSchoolThenByCode)
{
    Run("INSERT INTO ExamMaster VALUES (9, 'Ninth', NULL, 0), (8, 'Eighth', NULL, 0)");
    QStringList names;
    for (const SchoolExam& exam : Cards(own, {}, {1, 2, 8, 9}).exams)
        names.append(exam.examName);
    EXPECT_EQ(names.join(QLatin1Char(' ')).toStdString(), "Eighth Ninth Annual Term One");
}

TEST_F(RankCardSets, TheSubjectsAreThoseOfTheYearClassAndDivisionInTheirOrderThenByCode)
{
    EXPECT_EQ(Subjects(SubjectDisplay::All), "2 Mat; 3 Sci; 5 Drw; 1 Eng");
    EXPECT_EQ(Subjects(SubjectDisplay::TakenForRankOnly), "3 Sci; 5 Drw; 1 Eng");
}

TEST_F(RankCardSets, TheMarksAreThoseOfTheDivisionInTheExamsTheLatestYearLast)
{
    QStringList texts;
    for (const CardMark& mark : Cards(own, {}, {1, 2}).marks)
        texts.append(QStringLiteral("%1 %2 %3 %4")
                         .arg(mark.examCode)
                         .arg(mark.studentCode)
                         .arg(mark.subjectCode)
                         .arg(mark.mark));
    EXPECT_EQ(texts.join(QLatin1String("; ")).toStdString(),
              "1 1 1 40; 1 1 2 45; 1 2 1 50; 2 1 1 60; 1 1 1 70");
}

TEST_F(RankCardSets, TheRanksAreThoseOfTheDivisionInTheExamsTheLatestYearLast)
{
    QStringList texts;
    for (const CardRank& rank : Cards(own, {}, {1, 2}).ranks)
        texts.append(QStringLiteral("%1 %2 %3 %4")
                         .arg(QString::number(rank.examCode), QString::number(rank.studentCode),
                              QString::number(*rank.total), rank.grade));
    EXPECT_EQ(texts.join(QLatin1String("; ")).toStdString(), "1 1 85 B; 1 2 50 D; 2 1 60 C; 1 1 70 A");
}

} // namespace
} // namespace tally::test
