#include "exams/MarkRepository.h"

#include "store/StoreError.h"
#include "support/Neighbours.h"
#include "support/TestSchool.h"

#include <gtest/gtest.h>
#include <string>

namespace tally::test {
namespace {

class MarkRepositoryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        school.AddDivision(1, "A");
        school.AddDivision(2, "B");
        school.AddSubject(1, 1, "Eng", 2, "Yes", 100, 50);
        school.AddSubject(1, 2, "Mat", 1);
    }

    void Relieve(int student)
    {
        school.main.Execute(QStringLiteral("UPDATE StudentMaster SET TCNo = 'TC' WHERE StudentCode = ?"),
                            student);
    }

    static std::string ToText(const CodedTexts& names)
    {
        QStringList texts;
        for (const auto& [code, name] : names)
            texts.append(QStringLiteral("%1 %2").arg(QString::number(code), name));
        return texts.join(QStringLiteral("; ")).toStdString();
    }

    qint64 MarkCount() { return school.main.Number(QStringLiteral("SELECT count(*) FROM MarkMaster")); }

    /// Three students, one of them relieved after a mark, two subjects, and beside them another division.
    void GivenTwoDivisions()
    {
        school.AddMarkedStudent(QStringLiteral("Asha"), {40, 80});
        school.AddMarkedStudent(QStringLiteral("Binu"), {30, 60});
        school.AddStudent(1, QStringLiteral("Cara"));
        Relieve(2);
        school.AddSubject(2, 3, "Art", 1);
        school.EnterMark(school.AddStudent(2, QStringLiteral("Dev")), 3, 20);
    }

    static QString Line(const MarkSubject& subject)
    {
        return QStringLiteral("%1 %2 %3/%4 ")
            .arg(subject.subjectCode)
            .arg(subject.name)
            .arg(subject.maximumAllowed)
            .arg(subject.maximumMark);
    }
    /// All that the repository tells of one exam of one class-division.
    std::string AllOf(const SchoolScope& asked)
    {
        QString text =
            QString::fromStdString(ToText(marks.Subjects(asked)) + '|' + ToText(marks.Students(asked)) + '|' +
                                   ToText(marks.StudentsToMark(asked, true)) + '|' +
                                   ToText(marks.StudentsToMark(asked, false)) + '|');
        for (const MarkSubject& subject : marks.SubjectsToMark(asked))
            text += Line(subject);
        text += QLatin1Char('|');
        if (const auto found = marks.FindSubject(asked, 1))
            text += Line(*found);
        for (const MarkMode mode : {MarkMode::Subject, MarkMode::Student}) {
            text += QLatin1Char('|');
            for (const StoredMark& mark : marks.StoredMarks(asked, mode, 1))
                text += QStringLiteral("%1 %2 ").arg(mark.code).arg(mark.mark);
        }
        text += QStringLiteral("|%1 %2").arg(marks.HasStudents(asked)).arg(marks.HasSubjects(asked));
        return text.toStdString();
    }

    template <typename Work>
    void Write(Work work)
    {
        store::Transaction transaction(school.main);
        work(transaction);
        transaction.Commit();
    }

    TestSchool school;
    MarkRepository marks{school.main};
    SchoolScope scope{1, 1, 1, 1};
};

TEST_F(MarkRepositoryTest, SubjectsAreChosenByNameAndEnteredInTheirOrder)
{
    school.AddSubject(2, 3, "Art", 1);
    EXPECT_EQ(ToText(marks.Subjects(scope)), "1 Subject 1; 2 Subject 2");
    school.main.Execute(
        QStringLiteral("UPDATE SubjectMaster SET SubjectName = 'Zoology' WHERE SubjectCode = 1"));
    EXPECT_EQ(ToText(marks.Subjects(scope)), "2 Subject 2; 1 Zoology");
    const auto rows = marks.SubjectsToMark(scope);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].subjectCode, 2);
    EXPECT_EQ(rows[1].maximumAllowed, 50);
    EXPECT_EQ(rows[1].maximumMark, 100);
}

TEST_F(MarkRepositoryTest, ASubjectThatTheDivisionDoesNotTakeIsNotFound)
{
    EXPECT_EQ(marks.FindSubject(scope, 1)->maximumAllowed, 50);
    EXPECT_EQ(marks.FindSubject(scope, 1)->name, QString());
    EXPECT_FALSE(marks.FindSubject(scope, 3));
    EXPECT_FALSE(marks.FindSubject({1, 1, 1, 2}, 1));
}

TEST_F(MarkRepositoryTest, StudentsComeByNameThenByAdmissionNumber)
{
    school.AddStudent(1, QStringLiteral("Binu"), QStringLiteral("9"));
    school.AddStudent(1, QStringLiteral("  asha"), QStringLiteral("7"));
    school.AddStudent(1, QStringLiteral("Binu"), QStringLiteral("8"));
    school.AddStudent(2, QStringLiteral("Cara"), QStringLiteral("6"));
    school.AddStudent(1, QStringLiteral("Dev"), QStringLiteral("1"));
    const std::string inOrder = "2 asha(7); 3 Binu(8); 1 Binu(9); 5 Dev(1)";
    EXPECT_EQ(ToText(marks.Students(scope)), inOrder);
    EXPECT_EQ(ToText(marks.StudentsToMark(scope, true)), inOrder);
}

TEST_F(MarkRepositoryTest, ARelievedStudentStaysOnlyWithMarksInThisExamAndNeverInAnEdit)
{
    school.main.Execute(QStringLiteral("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 0)"));
    school.AddMarkedStudent(QStringLiteral("Asha"), {40});
    school.AddMarkedStudent(QStringLiteral("Binu"), {40});
    school.AddStudent(1, QStringLiteral("Cara"));
    school.AddStudent(1, QStringLiteral("Dev"));
    Relieve(2);
    Relieve(3);
    EXPECT_EQ(ToText(marks.StudentsToMark(scope, true)), "1 Asha(A1); 2 Binu(A2); 4 Dev(A4)");
    EXPECT_EQ(ToText(marks.StudentsToMark({1, 2, 1, 1}, true)), "1 Asha(A1); 4 Dev(A4)");
    EXPECT_EQ(ToText(marks.StudentsToMark(scope, false)), "1 Asha(A1); 4 Dev(A4)");
    EXPECT_EQ(ToText(marks.Students(scope)), "1 Asha(A1); 4 Dev(A4)");
}

TEST_F(MarkRepositoryTest, ARelievedStudentDoesNotStayForMarksOfAnotherYearClassOrDivision)
{
    school.main.Execute(QStringLiteral(
        "INSERT INTO AcademicYearSetup VALUES (2, 2025, 2026, '2025-06-01', '2026-05-31', 'N', 'N', 0)"));
    school.main.Execute(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 2, 0)"));
    school.main.Execute(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (2, 'A', 1)"));
    const int asha = school.AddStudent(1, QStringLiteral("Asha"));
    Relieve(asha);
    for (const SchoolScope& other :
         {SchoolScope{2, 1, 1, 1}, SchoolScope{1, 1, 2, 1}, SchoolScope{1, 1, 1, 2}}) {
        Write([&](auto& transaction) {
            MarkRepository::Insert(transaction, other, {{asha, 1, 40, true, 0}}, 5);
        });
        EXPECT_EQ(ToText(marks.StudentsToMark(scope, true)), "");
    }
    Write([&](auto& transaction) {
        MarkRepository::Insert(transaction, scope, {{asha, 1, 40, true, 0}}, 5);
    });
    EXPECT_EQ(ToText(marks.StudentsToMark(scope, true)), "1 Asha(A1)");
}

TEST_F(MarkRepositoryTest, ARowWhoseStudentOrSubjectHasGoneCountsForNothing)
{
    // A damaged file can hold such rows, which the lists pass over.
    school.AddStudent(1, QStringLiteral("Asha"));
    school.main.Execute(QStringLiteral("PRAGMA foreign_keys = OFF"));
    school.main.Execute(QStringLiteral("DELETE FROM StudentMaster WHERE StudentCode > 0"));
    school.main.Execute(QStringLiteral("DELETE FROM SubjectMaster WHERE SubjectCode > 0"));
    EXPECT_FALSE(marks.HasStudents(scope));
    EXPECT_FALSE(marks.HasSubjects(scope));
}

TEST_F(MarkRepositoryTest, TheStudentsOfALargeClassAreReadInOneStatement)
{
    for (int student = 0; student < 60; ++student)
        school.AddStudent(1, QStringLiteral("Student %1").arg(student));
    const auto before = school.main.StatementsRun();
    EXPECT_EQ(marks.StudentsToMark(scope, true).size(), 60U);
    EXPECT_EQ(school.main.StatementsRun() - before, 1U);
}

TEST_F(MarkRepositoryTest, MarksAreReadBySubjectAndByStudent)
{
    school.AddMarkedStudent(QStringLiteral("Asha"), {40, 80});
    const int binu = school.AddStudent(1, QStringLiteral("Binu"));
    school.EnterAbsence(binu, 1);
    const auto ofEnglish = marks.StoredMarks(scope, MarkMode::Subject, 1);
    ASSERT_EQ(ofEnglish.size(), 2U);
    EXPECT_EQ(ofEnglish[1].code, binu);
    EXPECT_FALSE(ofEnglish[1].present);
    const auto ofAsha = marks.StoredMarks(scope, MarkMode::Student, 1);
    ASSERT_EQ(ofAsha.size(), 2U);
    EXPECT_EQ(ofAsha[0].mark + ofAsha[1].mark, 120);
    EXPECT_TRUE(marks.StoredMarks({1, 2, 1, 1}, MarkMode::Subject, 1).empty());
}

TEST_F(MarkRepositoryTest, ADeleteTakesTheSubjectOrTheStudentAndNothingElse)
{
    school.AddMarkedStudent(QStringLiteral("Asha"), {40, 80});
    school.AddMarkedStudent(QStringLiteral("Binu"), {30, 60});
    Write([&](auto& transaction) {
        MarkRepository::Delete(transaction, {1, 2, 1, 1}, MarkMode::Subject, 1);
    });
    EXPECT_EQ(MarkCount(), 4) << "another exam keeps its marks";
    Write([&](auto& transaction) { MarkRepository::Delete(transaction, scope, MarkMode::Subject, 1); });
    EXPECT_EQ(MarkCount(), 2);
    Write([&](auto& transaction) { MarkRepository::Delete(transaction, scope, MarkMode::Student, 1); });
    EXPECT_EQ(MarkCount(), 1);
    EXPECT_EQ(marks.StoredMarks(scope, MarkMode::Student, 2).size(), 1U);
    Write([&](auto& transaction) { MarkRepository::Delete(transaction, scope, MarkMode::Student, 1); });
    EXPECT_EQ(MarkCount(), 1) << "what is gone already may be deleted again";
}

TEST_F(MarkRepositoryTest, NothingOfItIsFoundInAnotherYearClassOrDivision)
{
    GivenTwoDivisions();
    const std::string nothing = "||||||||0 0";
    EXPECT_EQ(AllOf({2, 1, 1, 1}), nothing) << "another year";
    EXPECT_EQ(AllOf({1, 1, 2, 1}), nothing) << "another class";
    EXPECT_EQ(AllOf({1, 1, 1, 3}), nothing) << "another division";
}

TEST_F(MarkRepositoryTest, InAnotherExamThereAreTheSameStudentsAndSubjectsAndNoMarks)
{
    GivenTwoDivisions();
    EXPECT_EQ(AllOf(scope),
              "1 Subject 1; 2 Subject 2|1 Asha(A1); 3 Cara(A3)|1 Asha(A1); 2 Binu(A2); 3 Cara(A3)|"
              "1 Asha(A1); 3 Cara(A3)|2 Subject 2 100/100 1 Subject 1 50/100 |1  50/100 |"
              "1 40 2 30 |1 40 2 80 |1 1");
    EXPECT_EQ(AllOf({1, 2, 1, 1}),
              "1 Subject 1; 2 Subject 2|1 Asha(A1); 3 Cara(A3)|1 Asha(A1); 3 Cara(A3)|"
              "1 Asha(A1); 3 Cara(A3)|2 Subject 2 100/100 1 Subject 1 50/100 |1  50/100 |"
              "||1 1");
}

TEST_F(MarkRepositoryTest, NeighboursOnAllSidesAreNotNoticed)
{
    GivenTwoDivisions();
    const std::string alone = AllOf(scope);
    const std::string otherExam = AllOf({1, 2, 1, 1});
    AddNeighbours(school.main);
    EXPECT_EQ(AllOf(scope), alone);
    EXPECT_EQ(AllOf({1, 2, 1, 1}), otherExam);
}

TEST_F(MarkRepositoryTest, AWriteTouchesNoMarkOutsideItsExamClassDivisionAndSubjectOrStudent)
{
    GivenTwoDivisions();
    AddNeighbours(school.main);
    AllRows::Row own{{QStringLiteral("AcademicYearCode"), QStringLiteral("1")},
                     {QStringLiteral("ExamCode"), QStringLiteral("1")},
                     {QStringLiteral("ClassCode"), QStringLiteral("1")},
                     {QStringLiteral("DivisionCode"), QStringLiteral("1")}};
    for (const auto& [mode, column] : {std::pair{MarkMode::Subject, QStringLiteral("SubjectCode")},
                                       std::pair{MarkMode::Student, QStringLiteral("StudentCode")}}) {
        const AllRows before(school.main);
        Write([&, mode = mode](auto& transaction) { MarkRepository::Delete(transaction, scope, mode, 2); });
        AllRows::Row touched = own;
        touched[column] = QStringLiteral("2");
        before.ExpectTouchedOnly(school.main, "MarkMaster", touched);
        EXPECT_TRUE(marks.StoredMarks(scope, mode, 2).empty());
    }
    const AllRows before(school.main);
    Write([&](auto& transaction) { MarkRepository::Insert(transaction, scope, {{3, 2, 55, true, 0}}, 5); });
    own[QStringLiteral("StudentCode")] = QStringLiteral("3");
    before.ExpectTouchedOnly(school.main, "MarkMaster", own);
    EXPECT_EQ(marks.StoredMarks(scope, MarkMode::Subject, 2).size(), 1U);
}

TEST_F(MarkRepositoryTest, AMarkThatIsThereAlreadyIsADuplicateAndNothingIsStored)
{
    school.AddMarkedStudent(QStringLiteral("Asha"), {40});
    const int binu = school.AddStudent(1, QStringLiteral("Binu"));
    try {
        Write([&](auto& transaction) {
            MarkRepository::Insert(transaction, scope, {{binu, 1, 30, true, 0}, {1, 1, 41, true, 0}}, 5);
        });
        FAIL() << "the second mark was taken";
    } catch (const store::StoreError& error) {
        EXPECT_TRUE(error.IsDuplicate());
    }
    EXPECT_EQ(MarkCount(), 1);
}

TEST_F(MarkRepositoryTest, StudentsAreThereAlsoWhenAllOfThemWereRelieved)
{
    EXPECT_FALSE(marks.HasStudents(scope));
    Relieve(school.AddStudent(1, QStringLiteral("Asha")));
    EXPECT_TRUE(marks.HasStudents(scope));
    EXPECT_TRUE(marks.HasSubjects(scope));
    EXPECT_FALSE(marks.HasSubjects({1, 1, 1, 2}));
}

} // namespace
} // namespace tally::test
