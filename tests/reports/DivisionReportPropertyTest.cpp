#include "core/Numbers.h"
#include "reports/DivisionReportRepository.h"
#include "reports/StudentsListRepository.h"
#include "support/Neighbours.h"
#include "support/TestSchool.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <tuple>

namespace tally::test {
namespace {

constexpr int Divisions = 3;
constexpr int Subjects = 5;

/// A mark as the test knows it, in whole hundredths.
struct Entry
{
    int division;
    int student;
    int subject;
    int hundredths;
    bool present;
};

/// A class of chance, and beside its database the same marks in a plain list.
class RandomClass
{
public:
    explicit RandomClass(unsigned seed) : chance_(seed)
    {
        for (int subject = 1; subject <= Subjects; ++subject)
            school.main.Execute(QStringLiteral("INSERT INTO SubjectMaster VALUES (?, 'Subject', 'Sub', 0)"),
                                subject);
        for (int division = 1; division <= Divisions; ++division) {
            school.AddDivision(division, QByteArray(1, static_cast<char>('A' + division - 1)).constData());
            for (int subject = 1; subject <= Subjects; ++subject) {
                if (!Chance(85))
                    continue;
                const int maximum = maximumMarks_[static_cast<std::size_t>(Number(0, 3))];
                const bool taken = Chance(70);
                school.AddSubject(division, subject, "Sub", Subjects - subject, taken ? "Yes" : "No", maximum,
                                  maximum);
                taught[{division, subject}] = {maximum, taken};
            }
            const int count = Number(0, 9);
            for (int student = 0; student < count; ++student)
                LayMarks(division, school.AddStudent(division, QStringLiteral("Student")));
        }
    }

    bool Chance(int percent) { return Number(1, 100) <= percent; }
    int Number(int from, int to) { return std::uniform_int_distribution(from, to)(chance_); }

    struct Taught
    {
        int maximum;
        bool taken;
    };

    TestSchool school;
    std::vector<Entry> entries;
    std::map<std::pair<int, int>, Taught> taught; ///< by division and subject
    std::map<int, int> divisionOf;                ///< of each student

private:
    void LayMarks(int division, int student)
    {
        divisionOf[student] = division;
        for (int subject = 1; subject <= Subjects; ++subject) {
            if (!Chance(85))
                continue;
            const Entry entry{division, student, subject, Chance(15) ? 0 : Number(0, 10000), Chance(85)};
            entries.push_back(entry);
            school.main.Execute(
                QStringLiteral("INSERT INTO MarkMaster VALUES (1, ?, 1, 1, ?, ?, ?, ?, 0, 0)"), student,
                division, subject, entry.hundredths / 100.0, entry.present ? "P" : "A");
        }
    }

    std::mt19937 chance_;
    static constexpr std::array<int, 4> maximumMarks_{100, 50, 75, 30};
};

/// sum / (maximum x count) in percent, the second decimal rounded up from its half on; in whole numbers from
/// beginning to end.
QString PlainPercent(qint64 hundredths, int maximum, int count)
{
    const qint64 whole = qint64{maximum} * count;
    const qint64 rounded = (2 * 100 * hundredths + whole) / (2 * whole);
    return QStringLiteral("%1.%2").arg(rounded / 100).arg(rounded % 100, 2, 10, QLatin1Char('0'));
}

/// Each class among both kinds of neighbours.
class ClassesOfChance : public testing::TestWithParam<std::tuple<unsigned, Listed>>
{
protected:
    void SetUp() override
    {
        if (std::get<Listed>(GetParam()) == Listed::Yes)
            AddNeighbours(random.school.main);
        else
            AddNeighbours(random.school.main, {Side::Year, Side::Exam, Side::Class, Side::Division},
                          Listed::No);
        display = random.Chance(50) ? SubjectDisplay::All : SubjectDisplay::TakenForRankOnly;
        for (int division = 1; division <= Divisions; ++division)
            if (division == 1 || random.Chance(70))
                divisions.push_back(division);
        for (int subject = 1; subject <= Subjects; ++subject)
            if (random.Chance(80))
                subjects.push_back(subject);
    }

    bool IsShown(int division, int subject) const
    {
        const auto found = random.taught.find({division, subject});
        return found != random.taught.end() && (display == SubjectDisplay::All || found->second.taken) &&
               std::find(subjects.begin(), subjects.end(), subject) != subjects.end();
    }

    bool IsChosen(int division) const
    {
        return std::find(divisions.begin(), divisions.end(), division) != divisions.end();
    }

    const unsigned seed = std::get<unsigned>(GetParam());
    RandomClass random{seed};
    std::vector<int> divisions;
    std::vector<int> subjects;
    SubjectDisplay display{};
};

TEST_P(ClassesOfChance, HaveTheAveragesThatAreCountedOneByOne)
{
    std::vector<ListItem> items;
    for (const int division : divisions)
        items.push_back({division, QStringLiteral("  D"), {}});
    const GridTable list = ShowClassDivisionAverages(
        DivisionReportRepository(random.school.main).LoadDivisionAverages(random.school.scope, divisions),
        {.className = QStringLiteral("X"), .divisions = items, .subjectCodes = subjects, .display = display});

    std::vector<int> columns;
    for (int subject = Subjects; subject >= 1; --subject) // their numbers go down
        if (IsShown(1, subject))
            columns.push_back(subject);
    ASSERT_EQ(list.Cols(), FirstSubjectColumn + 2 * static_cast<int>(columns.size()));
    ASSERT_EQ(list.Rows(), static_cast<int>(divisions.size()) + 1);
    for (int row = 1; row < list.Rows(); ++row) {
        const int division = divisions[static_cast<std::size_t>(row - 1)];
        for (std::size_t number = 0; number < columns.size(); ++number) {
            const int subject = columns[number];
            qint64 sum = 0;
            int count = 0;
            for (const Entry& entry : random.entries) {
                if (entry.division == division && entry.subject == subject && entry.present) {
                    sum += entry.hundredths;
                    ++count;
                }
            }
            const QString expected =
                count > 0 && IsShown(division, subject)
                    ? PlainPercent(sum, random.taught.at({division, subject}).maximum, count)
                    : QString();
            const int col = FirstSubjectColumn + 2 * static_cast<int>(number) + 1;
            EXPECT_EQ(list.Text(row, col).toStdString(), expected.toStdString())
                << "class " << seed << " division " << division << " subject " << subject;
        }
    }
}

/// The limit that the test counts for a subject: of the divisions chosen, those with the highest maximum mark
/// among those with marks above 0. Empty for none.
QString PlainLimit(const RandomClass& random, const std::vector<int>& divisions, int subject)
{
    int maximum = 0;
    for (const bool summing : {false, true}) {
        qint64 sum = 0;
        int count = 0;
        for (const Entry& entry : random.entries) {
            const auto taught = random.taught.find({entry.division, subject});
            if (entry.subject != subject || entry.hundredths <= 0 || taught == random.taught.end() ||
                std::find(divisions.begin(), divisions.end(), entry.division) == divisions.end())
                continue;
            if (!summing)
                maximum = std::max(maximum, taught->second.maximum);
            else if (taught->second.maximum == maximum) {
                sum += entry.hundredths;
                ++count;
            }
        }
        if (count > 0)
            return PlainPercent(sum, maximum, count);
    }
    return {};
}

TEST_P(ClassesOfChance, ListTheStudentsThatAreComparedOneByOne)
{
    for (const AverageSide side : {AverageSide::Below, AverageSide::Above}) {
        const bool below = side == AverageSide::Below;
        const bool given = random.Chance(40);
        StudentsListOptions options{
            .side = side, .givenValue = {}, .markDecimals = random.Chance(50) ? 2 : 0};
        const int value = random.Number(1, 100);
        if (given)
            options.givenValue = QString::number(value);
        const StudentsListInput input = StudentsListRepository(random.school.main)
                                            .LoadStudentsList(random.school.scope, divisions, subjects, side);
        const GridTable list = ListStudents(input, options);

        int row = 0;
        // All have one name, so their numbers order them: "Student(A1)", "Student(A10)", "Student(A2)".
        std::map<QString, int> students;
        for (const auto& [student, division] : random.divisionOf)
            if (IsChosen(division))
                students[QStringLiteral("Student(A%1)").arg(student)] = student;
        ASSERT_EQ(input.students.size(), students.size()) << "class " << seed;
        for (const ClassAverageRow& student : input.students)
            EXPECT_EQ(std::count(student.marks.begin(), student.marks.end(), 0.0), 0) << "class " << seed;
        std::vector<int> counts(subjects.size(), 0);
        for (const auto& [name, student] : students) {
            QStringList cells;
            for (std::size_t number = 0; number < subjects.size(); ++number) {
                const int subject = subjects[number];
                const QString limitText = PlainLimit(random, divisions, subject);
                const auto limit = given ? value * 100 : qRound64(limitText.toDouble() * 100);
                const auto entry =
                    std::find_if(random.entries.begin(), random.entries.end(), [&](const Entry& one) {
                        return one.student == student && one.subject == subject;
                    });
                QString cell;
                if (entry != random.entries.end()) {
                    const bool zero = entry->hundredths == 0;
                    // A zero lies below everything, also below an average that nobody has made; above that
                    // lies nothing.
                    const bool above = !zero && (given || !limitText.isEmpty()) && entry->hundredths > limit;
                    if (below ? zero || entry->hundredths < limit : above)
                        cell = FormatMark(entry->hundredths / 100.0, options.markDecimals);
                }
                counts[number] += cell.toDouble() > 0 || (below && !cell.isEmpty()) ? 1 : 0;
                cells.append(cell);
            }
            if (cells.join(QString()).isEmpty())
                continue;
            ++row;
            QStringList shown;
            for (int col = 1; col < list.Cols(); ++col)
                shown.append(list.Text(row, col));
            EXPECT_EQ(shown.join(QLatin1Char('|')).toStdString(),
                      (name + QLatin1Char('|') + cells.join(QLatin1Char('|'))).toStdString())
                << "class " << seed;
        }
        EXPECT_EQ(list.Rows(), row + 1 + RowsBelowStudents) << "class " << seed;

        const GridTable summary = SummariseStudents(list, side);
        for (std::size_t number = 0; number < subjects.size(); ++number) {
            const int line = static_cast<int>(number) + 1;
            EXPECT_EQ(summary.Text(line, 1).toInt(), counts[number]) << "class " << seed;
            const QString limit = PlainLimit(random, divisions, subjects[number]);
            const QString last = limit.isEmpty() ? QString()
                                 : given         ? QString::number(value)
                                                 : PlainNumber(limit.toDouble());
            EXPECT_EQ(list.Text(list.Rows() - 1, line + 1).toStdString(), last.toStdString());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Forty, ClassesOfChance,
                         testing::Combine(testing::Range(1U, 41U), testing::Values(Listed::Yes, Listed::No)));

} // namespace
} // namespace tally::test
