#include "reports/DivisionReportRepository.h"

#include "reports/StudentsListRepository.h"
#include "support/Neighbours.h"
#include "support/TestSchool.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

constexpr auto Taken = SubjectDisplay::TakenForRankOnly;
constexpr auto All = SubjectDisplay::All;

/// From this code on divisions are those of neighbours.
constexpr int FirstNeighbour = 10000;

/// Class X with the divisions A, B and C. Nothing lies in the order in which it is listed.
///
/// A: Eng, and Mor not for rank; Zoya (1) absent in Eng, Asha (2). B: Mat, Eng; Mina (3). C: Eng, no
/// students.
class DivisionReports : public testing::Test
{
protected:
    DivisionReports()
    {
        school.AddDivision(1, "C2");
        school.AddDivision(2, "B");
        school.AddDivision(3, "A");
        school.AddSubject(1, 1, "Eng", 5);
        school.AddSubject(1, 3, "Mor", 2, "No", 20, 20);
        school.AddSubject(2, 2, "Mat", 4, "Yes", 50, 50);
        school.AddSubject(2, 1, "Eng", 3);
        school.AddSubject(3, 1, "Eng", 1);
        school.AddStudent(1, QStringLiteral(" Zoya "), QStringLiteral(" Z1"));
        school.AddStudent(1, QStringLiteral("Asha"));
        school.AddStudent(2, QStringLiteral("Mina"));
        school.EnterAbsence(1, 1);
        school.EnterMark(2, 1, 40.5);
        school.EnterMark(2, 3, 12);
        school.EnterMark(3, 1, 0);
        school.EnterMark(3, 2, 33.25);
    }

    void Run(const char* sql) { school.main.Execute(QString::fromLatin1(sql)); }

    static std::string Text(const CommonSubjectsInput& input)
    {
        QStringList texts;
        for (const auto& [code, name] : input.subjects)
            texts.append(QStringLiteral("%1 %2").arg(code).arg(name));
        QStringList students;
        for (const int student : input.students)
            students.append(QString::number(student));
        students.sort();
        QStringList marks;
        for (const EnteredMark& mark : input.marks)
            marks.append(QStringLiteral("%1/%2").arg(mark.studentCode).arg(mark.subjectCode));
        marks.sort();
        return (texts.join(QLatin1String("; ")) + QLatin1String(" | ") + students.join(QLatin1Char(' ')) +
                QLatin1String(" | ") + marks.join(QLatin1Char(' ')))
            .toStdString();
    }

    static QString Marks(const std::vector<DivisionMark>& all)
    {
        QStringList marks;
        for (const DivisionMark& mark : all)
            marks.append(
                QStringLiteral("%1/%2=%3").arg(mark.divisionCode).arg(mark.subjectCode).arg(mark.mark));
        marks.sort();
        return marks.join(QLatin1Char(' '));
    }

    static std::string Text(const DivisionAverageInput& input)
    {
        QStringList setup;
        for (const SubjectSetup& subject : input.setup)
            if (subject.divisionCode < FirstNeighbour)
                setup.append(QStringLiteral("%1/%2").arg(subject.divisionCode).arg(subject.subjectCode));
        return (setup.join(QLatin1Char(' ')) + QLatin1String(" | ") + Marks(input.marks)).toStdString();
    }

    static std::string Text(const StudentsListInput& input)
    {
        QStringList subjects;
        for (const auto& [code, name] : input.subjects)
            subjects.append(QStringLiteral("%1 %2").arg(code).arg(name));
        return subjects.join(QLatin1Char(' ')).toStdString() + " | " + Marks(input.marks).toStdString() +
               " | " + Students(input);
    }

    static std::string Students(const StudentsListInput& input)
    {
        QStringList students;
        for (const ClassAverageRow& row : input.students) {
            QString text = row.studentName;
            for (const auto& mark : row.marks)
                text += mark ? QStringLiteral(" %1").arg(*mark) : QStringLiteral(" -");
            students.append(text);
        }
        return students.join(QLatin1String("; ")).toStdString();
    }

    StudentsListInput List(const std::vector<int>& divisions, const std::vector<int>& subjects,
                           AverageSide side = AverageSide::Below)
    {
        return students.LoadStudentsList(school.scope, divisions, subjects, side);
    }

    /// All that is read of these divisions.
    std::string Everything(const std::vector<int>& divisions)
    {
        return Text(divisionsOf.LoadCommonSubjects(school.scope, divisions, All)) + '\n' +
               Text(divisionsOf.LoadCommonSubjects(school.scope, divisions, Taken)) + '\n' +
               Text(divisionsOf.LoadDivisionAverages(school.scope, divisions)) + '\n' +
               Text(List(divisions, {1, 2, 3})) + '\n' + Text(List(divisions, {2, 3}, AverageSide::Above));
    }

    TestSchool school;
    DivisionReportRepository divisionsOf{school.main};
    StudentsListRepository students{school.main};
};

TEST_F(DivisionReports, ListTheSubjectsOfAllDivisionsEachOnceAtItsFirstNumber)
{
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {1, 2}, All)),
              "3 Subject 3; 1 Subject 1; 2 Subject 2 | 1 2 3 | 1/1 2/1 2/3 3/1 3/2");
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {1, 2}, Taken)),
              "1 Subject 1; 2 Subject 2 | 1 2 3 | 1/1 2/1 2/3 3/1 3/2");
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {3}, All)), "1 Subject 1 |  | ");
}

TEST_F(DivisionReports, ListSubjectsOfOneNumberByTheirCodes)
{
    Run("UPDATE ClassSubjectTeacher SET SlNo = 1");
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {2, 1}, All)).substr(0, 36),
              "1 Subject 1; 2 Subject 2; 3 Subject ");
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {2, 1}, Taken)).substr(0, 26),
              "1 Subject 1; 2 Subject 2 |");
    Run("UPDATE ClassSubjectTeacher SET SlNo = 0 WHERE SubjectCode = 2");
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {2, 1}, Taken)).substr(0, 26),
              "2 Subject 2; 1 Subject 1 |");
}

TEST_F(DivisionReports, ListSubjectsOfOneNameEach)
{
    Run("UPDATE SubjectMaster SET SubjectName = 'Same' WHERE SubjectCode > 0");
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {1, 2}, All)).substr(0, 24),
              "3 Same; 1 Same; 2 Same |");
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {1, 2}, Taken)).substr(0, 16),
              "1 Same; 2 Same |");
}

TEST_F(DivisionReports, ListNoSubjectThatOnlyNeighboursTake)
{
    AddNeighbours(school.main);
    Run("INSERT INTO SubjectMaster VALUES (7, 'Next', 'Next', 0)");
    for (const char* place : {"10001, 1, 1", "1, 10001, 1", "1, 1, 10001"})
        Run(("INSERT INTO ClassSubjectTeacher VALUES (" + std::string(place) + ", 7, 0, 100, 100, 'Yes', 1)")
                .c_str());
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {1, 2}, All)).substr(0, 38),
              "3 Subject 3; 1 Subject 1; 2 Subject 2 ");
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {1, 2}, Taken)).substr(0, 26),
              "1 Subject 1; 2 Subject 2 |");
}

TEST_F(DivisionReports, AverageTheMarksOfThoseWhoWerePresent)
{
    EXPECT_EQ(Text(divisionsOf.LoadDivisionAverages(school.scope, {1, 2})),
              "3/1 1/3 2/1 2/2 1/1 | 1/1=40.5 1/3=12 2/1=0 2/2=33.25");
    EXPECT_EQ(Text(divisionsOf.LoadDivisionAverages(school.scope, {2})),
              "3/1 1/3 2/1 2/2 1/1 | 2/1=0 2/2=33.25");
}

TEST_F(DivisionReports, ListStudentsByNameWithTheirMarksInTheSubjectsChosen)
{
    EXPECT_EQ(Text(List({1, 2}, {2, 1})), "2 Mat 1 Eng | 1/1=0 1/1=40.5 2/1=0 2/2=33.25 | "
                                          "Asha(A2) - 40.5; Mina(A3) 33.25 -1; Zoya(Z1) - -1");
    EXPECT_EQ(Text(List({1}, {3})), "3 Mor | 1/3=12 | Asha(A2) 12; Zoya(Z1) -");
}

TEST_F(DivisionReports, LeaveZerosOutOfTheListAbove)
{
    EXPECT_EQ(Students(List({1, 2}, {1}, AverageSide::Above)), "Asha(A2) 40.5; Mina(A3) -; Zoya(Z1) -");
}

TEST_F(DivisionReports, ListARelievedStudentToo)
{
    Run("UPDATE StudentMaster SET TCNo = '17' WHERE StudentCode = 2");
    EXPECT_EQ(Students(List({1}, {1})), "Asha(A2) 40.5; Zoya(Z1) -1");
}

TEST_F(DivisionReports, ListSmallLettersAmongCapitals)
{
    Run("UPDATE StudentMaster SET StudentName = 'asha' WHERE StudentCode = 3");
    Run("UPDATE StudentMaster SET StudentName = 'BELA' WHERE StudentCode = 2");
    EXPECT_EQ(Students(List({1, 2}, {1})), "asha(A3) -1; BELA(A2) 40.5; Zoya(Z1) -1");
}

TEST_F(DivisionReports, ListStudentsOfOneNameByTheirCodes)
{
    Run("UPDATE StudentMaster SET StudentName = 'Asha'");
    Run("UPDATE StudentMaster SET OptionalAdmissionNo = 'Q' WHERE StudentCode = 3");
    Run("UPDATE StudentMaster SET OptionalAdmissionNo = 'Q ' WHERE StudentCode = 2");
    Run("UPDATE StudentClassDivision SET DivisionCode = 3 - DivisionCode");
    EXPECT_EQ(Students(List({1, 2}, {1})), "Asha(Q) 40.5; Asha(Q) -1; Asha(Z1) -1");
}

TEST_F(DivisionReports, TakeAMarkWithoutAValueForNone)
{
    Run("UPDATE MarkMaster SET Mark = NULL WHERE StudentCode = 2 AND SubjectCode = 1");
    EXPECT_EQ(Text(List({1}, {1})), "1 Eng | 1/1=0 | Asha(A2) -; Zoya(Z1) -1");
}

TEST_F(DivisionReports, TakeTheHigherMarkOfAStudentWhoHasOneInTwoDivisions)
{
    Run("INSERT INTO MarkMaster VALUES (1, 1, 1, 1, 2, 1, 25, 'P', 0, 0)");
    Run("INSERT INTO MarkMaster VALUES (1, 2, 1, 1, 2, 1, 10, 'P', 0, 0)");
    EXPECT_EQ(Students(List({1, 2}, {1})), "Asha(A2) 40.5; Mina(A3) -1; Zoya(Z1) 25");
    EXPECT_EQ(Students(List({1}, {1})), "Asha(A2) 40.5; Zoya(Z1) -1");
}

TEST_F(DivisionReports, ListNobodyForAMarkOfAStudentWhoIsGone)
{
    Run("DELETE FROM StudentClassDivision WHERE StudentCode = 2");
    EXPECT_EQ(Text(List({1}, {1})), "1 Eng | 1/1=0 1/1=40.5 | Zoya(Z1) -1");
}

TEST_F(DivisionReports, LeaveOutASubjectThatIsGone)
{
    EXPECT_EQ(Text(List({1}, {99, 1})), "1 Eng | 1/1=0 1/1=40.5 | Asha(A2) 40.5; Zoya(Z1) -1");
}

TEST_F(DivisionReports, HoldNamesOfAHundredLettersWithTheirNumbers)
{
    const QString name(100, QLatin1Char('W'));
    school.main.Execute(QStringLiteral("UPDATE StudentMaster SET StudentName = ?, OptionalAdmissionNo = "
                                       "'123456789012345' WHERE StudentCode = 3"),
                        name);
    const StudentsListInput input = List({2}, {1});
    ASSERT_EQ(input.students.size(), 1U);
    EXPECT_EQ(input.students[0].studentName, name + QStringLiteral("(123456789012345)"));
}

TEST_F(DivisionReports, HoldFortySubjects)
{
    std::vector<int> subjects;
    for (int subject = 10; subject < 50; ++subject) {
        school.AddSubject(1, subject, "Same", subject);
        school.EnterMark(1, subject, subject);
        subjects.push_back(subject);
    }
    const StudentsListInput input = List({1}, subjects);
    ASSERT_EQ(input.students.size(), 2U);
    EXPECT_EQ(input.students[1].marks.front(), 10);
    EXPECT_EQ(input.students[1].marks.back(), 49);
}

TEST_F(DivisionReports, NoticeNoRowsOnAnySide)
{
    const std::string both = Everything({1, 2});
    const std::string one = Everything({1});
    AddNeighbours(school.main);
    EXPECT_EQ(Everything({1, 2}), both);
    EXPECT_EQ(Everything({1}), one);
}

TEST_F(DivisionReports, NoticeNeitherAnotherYearNorExamNorClassOfTheirOwnStudents)
{
    const std::string both = Everything({1, 2});
    AddNeighbours(school.main, {Side::Year, Side::Exam, Side::Class}, Listed::No);
    EXPECT_EQ(Everything({1, 2}), both);
}

TEST_F(DivisionReports, AreEmptyInAnotherYearOrExamAsFarAsThatGoes)
{
    school.scope.examCode = 2;
    EXPECT_EQ(Text(divisionsOf.LoadDivisionAverages(school.scope, {1})), "3/1 1/3 2/1 2/2 1/1 | ");
    EXPECT_EQ(Text(List({1}, {1})), "1 Eng |  | Asha(A2) -; Zoya(Z1) -");
    school.scope = {2, 1, 1};
    EXPECT_EQ(Text(divisionsOf.LoadCommonSubjects(school.scope, {1, 2}, All)), " |  | ");
    EXPECT_EQ(Text(List({1}, {1})), "1 Eng |  | ");
}

TEST_F(DivisionReports, LeaveNothingBehindInTheFile)
{
    const AllRows before(school.main);
    List({1, 2}, {1, 2});
    before.ExpectTouchedOnly(school.main, "", {});
    EXPECT_EQ(school.main.TransactionDepth(), 0);
}

TEST_F(DivisionReports, LeaveAWorkTableOfAnotherProgramAsItWas)
{
    Run("CREATE TABLE TempClassAverage (StudentCode number, StudentName Text(100), S7 Double)");
    Run("INSERT INTO TempClassAverage VALUES (7, 'Next door', 77)");
    EXPECT_EQ(Students(List({2}, {1})), "Mina(A3) -1");
    EXPECT_EQ(school.main.Number(QStringLiteral("SELECT S7 FROM TempClassAverage")), 77);
}

TEST(DivisionReportStatements, AreAsManyForManyDivisionsSubjectsAndStudents)
{
    const auto statements = [](int divisions, int size) {
        TestSchool school;
        std::vector<int> all;
        std::vector<int> subjects;
        for (int division = 1; division <= divisions; ++division) {
            school.AddDivision(division, QByteArray::number(division).constData());
            for (int subject = 1; subject <= size; ++subject)
                school.AddSubject(division, subject, "Eng", subject);
            for (int student = 1; student <= size; ++student)
                school.EnterMark(school.AddStudent(division, QStringLiteral("Asha")), 1, 50);
            all.push_back(division);
        }
        for (int subject = 1; subject <= size; ++subject)
            subjects.push_back(subject);
        const auto before = school.main.StatementsRun();
        DivisionReportRepository(school.main).LoadCommonSubjects(school.scope, all, All);
        DivisionReportRepository(school.main).LoadDivisionAverages(school.scope, all);
        const auto rows = StudentsListRepository(school.main)
                              .LoadStudentsList(school.scope, all, subjects, AverageSide::Below)
                              .students.size();
        EXPECT_EQ(rows, static_cast<std::size_t>(divisions * size));
        return school.main.StatementsRun() - before;
    };
    EXPECT_EQ(statements(1, 1), statements(6, 12));
}

} // namespace
} // namespace tally::test
