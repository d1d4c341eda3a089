#include "core/Numbers.h"
#include "ranks/RankCardRepository.h"
#include "support/TestSchool.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

constexpr int Divisions = 2;
constexpr int Subjects = 3;
constexpr int Students = 6;
/// As wide as a number may be written: 15 digits with sign, point and exponent.
constexpr int LongestNumber = 22;

struct Column
{
    const char* table;
    const char* name;
    const char* numberedBy; ///< the number by which every second or third row is picked
};

constexpr Column SpoiltColumns[] = {
    {"MarkMaster", "Mark", "StudentCode"},
    {"MarkMaster", "LeaveOrPresent", "StudentCode"},
    {"ClassSubjectTeacher", "MaximumMark", "SubjectCode"},
    {"ClassSubjectTeacher", "MaximumAllowed", "SubjectCode"},
    {"ClassSubjectTeacher", "SlNo", "SubjectCode"},
    {"ClassSubjectTeacher", "TakenForRank", "SubjectCode"},
    {"RankMaster", "TotalAverage", "rowid"},
    {"RankMaster", "SubjectAverage", "rowid"},
    {"RankMaster", "Grade", "rowid"},
    {"RankMaster", "Status", "rowid"},
    {"ExamMaster", "ExamOrder", "ExamCode"},
    {"ClassDivisionMaster", "NoOfDivisions", "ClassCode"},
    {"ClassDivisionMaster", "ClassOrder", "ClassCode"},
    {"StudentMaster", "DOB", "StudentCode"},
    {"StudentMaster", "AdmissionDate", "StudentCode"},
    {"StudentMaster", "StudentName", "StudentCode"},
};

/// A school with rows that no screen lets in, as a damaged copy or a repair by hand leaves them.
class HostileSchool
{
public:
    explicit HostileSchool(quint32 seed) : random_(seed)
    {
        for (int division = 1; division <= Divisions; ++division) {
            school.AddDivision(division, "D");
            school.AddUsualBands(division);
            for (int subject = 1; subject <= Subjects; ++subject)
                school.AddSubject(division, subject, "Same", subject);
            for (int student = 0; student < Students; ++student) {
                const int code = school.AddStudent(division, QStringLiteral("Student %1").arg(student));
                for (int subject = 1; subject <= Subjects; ++subject)
                    school.EnterMark(code, subject, 30 + 10 * student + subject);
            }
        }
        school.options = {Chance(), Chance(), Chance()};
        school.main.Execute(QStringLiteral("PRAGMA ignore_check_constraints = ON"));
        for (int times = random_.bounded(1, 9); times > 0; --times)
            Spoil();
    }

    TestSchool school;
    QStringList spoilt; ///< what was done to it

private:
    bool Chance() { return random_.bounded(2) == 0; }

    /// Some rows of one column get a value far beyond what its screen takes.
    void Spoil()
    {
        static const char* const values[] = {
            "1e15",
            "-1e15",
            "1e300",
            "-1e300",
            "1.7e308",
            "9e999",
            "-9e999",
            "1e-300",
            "'NaN'",
            "'1e400'",
            "'Infinity'",
            "''",
            "-1",
            "0",
            "33.335",
            "9223372036854775807",
            "-9223372036854775808",
            "4294967296",
            "NULL",
            "x'00ff00'",
            "'%%'",
            "'9999-99-99'",
        };
        const Column& column = SpoiltColumns[random_.bounded(static_cast<int>(std::size(SpoiltColumns)))];
        const QString statement =
            QStringLiteral("UPDATE OR IGNORE %1 SET %2 = %3 WHERE %4 % ")
                .arg(QLatin1String(column.table), QLatin1String(column.name),
                     QLatin1String(values[random_.bounded(static_cast<int>(std::size(values)))]),
                     QLatin1String(column.numberedBy)) +
            QString::number(random_.bounded(1, 4)) + QLatin1String(" = 0");
        if (school.main.Execute(statement) > 0)
            spoilt.append(statement);
    }

    QRandomGenerator random_;
};

std::vector<int> Codes(int count)
{
    std::vector<int> codes(static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number)
        codes[static_cast<std::size_t>(number)] = number + 1;
    return codes;
}

void ExpectBounded(TestSchool& school, const RankList& list, RankOrder order)
{
    const auto before = school.main.StatementsRun() + school.temp.StatementsRun();
    const GridTable view = school.Show(list, order, SubjectDisplay::All);
    EXPECT_LE(school.main.StatementsRun() + school.temp.StatementsRun() - before, 3U);
    // Grade by grade a student comes as often as the grade stands in the tables.
    const int bands = static_cast<int>(school.Input(Codes(Divisions)).gradeTable.size());
    EXPECT_LE(StudentCount(view), Divisions * Students * (order == RankOrder::Grade ? bands : 1));
    for (int row = RankListRows::FirstStudent; row < view.Rows(); ++row)
        for (auto column = static_cast<int>(RankColumn::FirstSubject); column < view.Cols() - 1; ++column)
            EXPECT_LE(view.Text(row, column).size(), LongestNumber) << view.Text(row, column).toStdString();
}

void ExpectBoundedCards(TestSchool& school)
{
    const auto students = Codes(Divisions * Students);
    const GridTable cards =
        ComputeRankCards(
            RankCardRepository(school.main).LoadRankCards({1, 1, 1}, students, {1}, SubjectDisplay::All),
            MarkDecimals(school.options.fractionMarks, school.options.roundedMarks))
            .table;
    EXPECT_LE(cards.Rows(), RankCardGrid::FirstLineRow + 2 * static_cast<int>(students.size()));
    for (int row = 0; row < cards.Rows(); ++row)
        for (auto column = static_cast<int>(CardColumn::FirstSubject); column < cards.Cols(); ++column)
            EXPECT_LE(cards.Text(row, column).size(), LongestNumber) << cards.Text(row, column).toStdString();
}

} // namespace

TEST(HostileRows, GiveAListAndCardsAsLargeAsTheSchoolWithNumbersThatFitTheirColumns)
{
    QString spoilt;
    for (quint32 seed = 0; seed < 300; ++seed) {
        HostileSchool hostile(seed);
        TestSchool& school = hostile.school;
        spoilt += hostile.spoilt.join(QLatin1Char('\n'));
        SCOPED_TRACE(hostile.spoilt.join(QLatin1Char('\n')).toStdString());
        try {
            const RankList list = school.Prepare(Codes(Divisions));
            EXPECT_EQ(list.cells.size(), list.rows.size() * list.subjects.size());
            for (const RankOrder order :
                 {RankOrder::Rank, RankOrder::Grade, RankOrder::AdmissionNo, RankOrder::Alphabetical})
                ExpectBounded(school, list, order);
            school.Save(Codes(Divisions));
            EXPECT_EQ(school.main.Number(QStringLiteral("SELECT count(*) FROM TempRankTotal")),
                      static_cast<qint64>(list.rows.size()));
        } catch (const DivisionError&) {
            // Maximum marks that add up to nothing are told to the user.
        }
        ExpectBoundedCards(school);
    }
    for (const Column& column : SpoiltColumns)
        EXPECT_TRUE(spoilt.contains(
            QStringLiteral("%1 SET %2 =").arg(QLatin1String(column.table), QLatin1String(column.name))))
            << column.name;
}

TEST(HostileRows, AMarkBeyondAllMarksIsWrittenWithAnExponent)
{
    for (const bool fractions : {false, true}) {
        TestSchool school;
        school.options.fractionMarks = fractions;
        school.AddUsualDivision(2);
        school.AddMarkedStudent("Anil", {1e300, 50});
        school.AddMarkedStudent("Bina", {-1e300, 50});
        school.AddMarkedStudent("Cara", {1e15, 50});
        const GridTable view = school.Show(school.Prepare(), RankOrder::Alphabetical);
        EXPECT_EQ(view.Text(2, 5), "1e+300");
        EXPECT_EQ(view.Text(3, 5), "-1e+300");
        EXPECT_EQ(view.Mark(3, 5), CellMark::FailedOrAbsent);
        EXPECT_EQ(view.Text(4, 5), "1e+15");
        EXPECT_EQ(view.Text(2, 7), "1e+300");
    }
}

} // namespace tally::test
