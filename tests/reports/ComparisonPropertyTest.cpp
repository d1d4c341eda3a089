#include "core/Numbers.h"
#include "ranks/RankCardSchool.h"
#include "reports/ComparisonRepository.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>

namespace tally::test {
namespace {

/// A mark as the test knows it, in whole hundredths.
struct Entry
{
    int year;
    int student;
    int exam;
    int division;
    int subject;
    int hundredths;
    bool present;
};

/// A school of chance, and beside its database the same marks in a plain list.
class RandomSchool
{
public:
    static constexpr int Years = 3;
    static constexpr int Exams = 4;
    static constexpr int Divisions = 2;
    static constexpr int Subjects = 6;
    static constexpr int Students = 12;

    explicit RandomSchool(unsigned seed) : chance_(seed)
    {
        for (int year = 2; year <= Years; ++year)
            cards_.AddYear(year, 2023 + year);
        for (int exam = 2; exam <= Exams; ++exam)
            cards_.AddExam(exam, "Exam", exam);
        for (int division = 1; division <= Divisions; ++division)
            school.AddDivision(division, division == 1 ? "A" : "B");
        for (int subject = 1; subject <= Subjects; ++subject)
            Run("INSERT INTO SubjectMaster VALUES (?, 'Subject', 'Sub', 0)", subject);
        for (int year = 1; year <= Years; ++year)
            LayYear(year);
    }

    bool Chance(int percent) { return Number(1, 100) <= percent; }
    int Number(int from, int to) { return std::uniform_int_distribution(from, to)(chance_); }

    bool IsTaught(int year, int division, int subject, SubjectDisplay display) const
    {
        const auto found = taught_.find({year, division, subject});
        return found != taught_.end() && (display == SubjectDisplay::All || found->second);
    }

    /// In whatever year.
    bool WasIn(int student, int division) const { return placed_.contains({student, division}); }

    TestSchool school;
    std::vector<Entry> entries;

private:
    template <typename... Values>
    void Run(const char* sql, const Values&... values)
    {
        school.main.Execute(QString::fromLatin1(sql), values...);
    }

    void LayYear(int year)
    {
        for (int division = 1; division <= Divisions; ++division) {
            for (int subject = 1; subject <= Subjects; ++subject) {
                if (!Chance(80))
                    continue;
                const bool forRank = Chance(70);
                taught_[{year, division, subject}] = forRank;
                Run("INSERT INTO ClassSubjectTeacher VALUES (?, 1, ?, ?, 0, 100, 100, ?, ?)", year, division,
                    subject, forRank ? "Yes" : "No", Number(1, 9));
            }
        }
        for (int student = 1; student <= Students; ++student) {
            const int division = Number(1, Divisions);
            placed_.insert({student, division});
            if (year == 1)
                school.AddStudent(division, QStringLiteral("Student"));
            else
                Run("INSERT INTO StudentClassDivision VALUES (?, ?, 1, ?, 'Y', 0)", student, year, division);
            for (int exam = 1; exam <= Exams; ++exam)
                LayMarks(year, student, exam);
        }
    }

    /// Also in subjects that are not taught, and in a division that the student has left.
    void LayMarks(int year, int student, int exam)
    {
        for (int subject = 1; subject <= Subjects; ++subject) {
            if (!Chance(75))
                continue;
            const Entry entry{
                year,      student, exam, Number(1, Divisions), subject, Chance(15) ? 0 : Number(0, 10000),
                Chance(85)};
            entries.push_back(entry);
            Run("INSERT INTO MarkMaster VALUES (?, ?, ?, 1, ?, ?, ?, ?, 0, 0)", entry.year, entry.student,
                entry.exam, entry.division, entry.subject, entry.hundredths / 100.0,
                entry.present ? "P" : "A");
        }
    }

    std::mt19937 chance_;
    RankCardSchool cards_{school};
    std::map<std::tuple<int, int, int>, bool> taught_; ///< taken for rank, by year, division and subject
    std::set<std::pair<int, int>> placed_;             ///< student and division
};

/// Sum by count in steps of so many hundredths, a half to the even step or, as for written numbers, up.
qint64 Steps(qint64 sum, int count, int hundredths, bool halfUp)
{
    const qint64 divisor = qint64{count} * hundredths;
    const qint64 whole = sum / divisor;
    const qint64 twice = 2 * (sum % divisor);
    const bool up = twice > divisor || (twice == divisor && (halfUp || whole % 2 == 1));
    return up ? whole + 1 : whole;
}

/// "70", or "70.50" with two decimals.
QString PlainText(qint64 steps, int decimals)
{
    return decimals == 0 ? QString::number(steps)
                         : QStringLiteral("%1.%2").arg(steps / 100).arg(steps % 100, 2, 10, QLatin1Char('0'));
}

/// The average of the entries picked, rounded to the decimals; empty where there is none.
template <typename Pick>
QString PlainAverage(const std::vector<Entry>& entries, int decimals, const Pick& pick)
{
    qint64 sum = 0;
    int count = 0;
    for (const Entry& entry : entries) {
        if (pick(entry)) {
            sum += entry.hundredths;
            ++count;
        }
    }
    return count == 0 ? QString() : PlainText(Steps(sum, count, decimals == 0 ? 100 : 1, false), decimals);
}

/// What the list shows of a subject; "none" where it has no such column.
QString Shown(const GridTable& list, int row, int subject)
{
    for (int col = FirstSubjectColumn; col < list.Cols(); col += 2) {
        if (list.Text(0, col) == QString::number(subject))
            return list.Text(row, col + 1);
    }
    return QStringLiteral("none");
}

std::string Told(const QString& text, unsigned seed, int line, int subject)
{
    return QStringLiteral("%1 (school %2, line %3, subject %4)")
        .arg(text)
        .arg(seed)
        .arg(line)
        .arg(subject)
        .toStdString();
}

void ExpectShown(const GridTable& list, int row, int subject, const QString& expected, unsigned seed)
{
    EXPECT_EQ(Told(Shown(list, row, subject), seed, row, subject), Told(expected, seed, row, subject));
}

std::vector<int> CodesUpTo(int highest)
{
    std::vector<int> codes;
    for (int code = 1; code <= highest; ++code)
        codes.push_back(code);
    return codes;
}

CodedTexts LinesOf(const std::vector<int>& codes)
{
    CodedTexts lines;
    for (const int code : codes)
        lines.emplace_back(code, QStringLiteral("Line"));
    return lines;
}

class ComparedSchools : public testing::TestWithParam<unsigned>
{
protected:
    void SetUp() override
    {
        year = random.Number(1, RandomSchool::Years);
        division = random.Number(1, RandomSchool::Divisions);
        student = random.Number(1, RandomSchool::Students);
        exam = random.Number(1, RandomSchool::Exams);
        display = random.Chance(50) ? SubjectDisplay::All : SubjectDisplay::TakenForRankOnly;
        decimals = random.Chance(50) ? 2 : 0;
    }

    /// The subjects that are taught, each with a mark before its name where one of the exams has no entry of
    /// it that counts.
    template <typename Counts>
    void ExpectMarked(const std::vector<ListItem>& items, const Counts& counts)
    {
        std::set<std::pair<int, QString>> expected;
        for (const int subject : subjects) {
            if (!random.IsTaught(year, division, subject, display))
                continue;
            const bool complete = std::all_of(exams.begin(), exams.end(), [&](int line) {
                return std::any_of(random.entries.begin(), random.entries.end(), [&](const Entry& entry) {
                    return entry.exam == line && entry.subject == subject && counts(entry);
                });
            });
            expected.insert({subject, complete ? QStringLiteral("  Subject") : QStringLiteral(". Subject")});
        }
        std::set<std::pair<int, QString>> found;
        for (const ListItem& item : items)
            found.insert({item.code, item.text});
        EXPECT_TRUE(found == expected) << "school " << GetParam();
        EXPECT_EQ(items.size(), expected.size());
    }

    RandomSchool random{GetParam()};
    ComparisonRepository repository{random.school.main};
    const std::vector<int> exams = CodesUpTo(RandomSchool::Exams);
    const std::vector<int> subjects = CodesUpTo(RandomSchool::Subjects);
    const std::vector<int> years = CodesUpTo(RandomSchool::Years);
    int year = 0;
    int division = 0;
    int student = 0;
    int exam = 0;
    SubjectDisplay display{};
    int decimals = 0;
};

TEST_P(ComparedSchools, TheAveragesOfADivisionAreThoseCountedOneByOne)
{
    ComparisonInput input = repository.LoadDivisionMarks({year, 0, 1, division}, exams, subjects, display);
    input.lines = LinesOf(exams);
    const GridTable list = ShowDivisionAverages(input);
    for (const int subject : subjects) {
        const bool taught = random.IsTaught(year, division, subject, display);
        for (const int line : exams) {
            const QString expected = PlainAverage(random.entries, 2, [&](const Entry& entry) {
                return entry.year == year && entry.division == division && entry.exam == line &&
                       entry.subject == subject && entry.present;
            });
            ExpectShown(list, line, subject, taught ? expected : QStringLiteral("none"), GetParam());
        }
    }
}

TEST_P(ComparedSchools, AStudentsMarksAndTheirAverageAreThoseCountedOneByOne)
{
    ComparisonInput input =
        repository.LoadStudentMarks({year, 0, 1, division}, student, exams, subjects, display);
    input.lines = LinesOf(exams);
    const GridTable list = ShowStudentMarks(input, decimals);
    for (const int subject : subjects) {
        const bool taught = random.IsTaught(year, division, subject, display);
        qint64 sum = 0;
        int count = 0;
        for (const int line : exams) {
            QString expected;
            for (const Entry& entry : random.entries) {
                if (entry.year != year || entry.division != division || entry.student != student ||
                    entry.exam != line || entry.subject != subject)
                    continue;
                const int shown = entry.hundredths > 0 ? decimals : 2;
                expected = PlainText(Steps(entry.hundredths, 1, shown == 0 ? 100 : 1, false), shown);
                sum += entry.hundredths;
                count += entry.hundredths > 0 ? 1 : 0;
            }
            ExpectShown(list, line, subject, taught ? expected : QStringLiteral("none"), GetParam());
        }
        const QString average = count > 0 ? PlainText(Steps(sum, count, 1, true), 2) : QString();
        ExpectShown(list, RandomSchool::Exams + 1, subject, taught ? average : QStringLiteral("none"),
                    GetParam());
    }
}

TEST_P(ComparedSchools, AStudentsMarksOverTheYearsAreThoseCountedOneByOne)
{
    ComparisonInput input = repository.LoadYearMarks(student, exam, years, subjects);
    input.lines = LinesOf(years);
    const GridTable list = ShowYearMarks(input, decimals);
    for (const int subject : subjects) {
        for (const int line : years) {
            ExpectShown(list, line, subject,
                        PlainAverage(random.entries, decimals,
                                     [&](const Entry& entry) {
                                         return entry.year == line && entry.student == student &&
                                                entry.exam == exam && entry.subject == subject;
                                     }),
                        GetParam());
        }
    }
}

TEST_P(ComparedSchools, TheMarkBeforeASubjectTellsOfALineWithoutMarks)
{
    const auto isMarked = [](const std::vector<ListItem>& items, int subject) {
        const auto item = std::find_if(items.begin(), items.end(),
                                       [subject](const ListItem& one) { return one.code == subject; });
        return item != items.end() && item->text.startsWith(QLatin1String(". "));
    };
    const auto hasEntry = [this](const auto& pick) {
        return std::any_of(random.entries.begin(), random.entries.end(), pick);
    };
    const std::vector<ListItem> ofYears =
        SubjectItems(repository.LoadYearSubjects(student, exam, years), years, {});
    for (const ListItem& item : ofYears) {
        const bool complete = std::all_of(years.begin(), years.end(), [&](int line) {
            return hasEntry([&](const Entry& entry) {
                return entry.year == line && entry.student == student && entry.exam == exam &&
                       entry.subject == item.code;
            });
        });
        EXPECT_EQ(isMarked(ofYears, item.code), !complete) << "school " << GetParam();
    }
    for (const int subject : subjects) {
        const bool offered = std::any_of(ofYears.begin(), ofYears.end(),
                                         [&](const ListItem& item) { return item.code == subject; });
        EXPECT_EQ(offered, hasEntry([&](const Entry& entry) {
                      return entry.student == student && entry.subject == subject;
                  }));
    }
}

TEST_P(ComparedSchools, TheMarksBeforeTheSubjectsOfADivisionTellOfAnExamWithoutMarks)
{
    const auto items =
        SubjectItems(repository.LoadDivisionSubjects({year, 0, 1, division}, exams, display), exams, {});
    ExpectMarked(items, [&](const Entry& entry) {
        return entry.year == year && entry.division == division && random.WasIn(entry.student, division);
    });
}

TEST_P(ComparedSchools, TheMarksBeforeTheSubjectsOfAStudentTellOfAnExamWithoutMarks)
{
    const auto items = SubjectItems(
        repository.LoadStudentSubjects({year, 0, 1, division}, student, exams, display), exams, {});
    ExpectMarked(items, [&](const Entry& entry) {
        return entry.student == student && entry.division == division && random.WasIn(student, division);
    });
}

INSTANTIATE_TEST_SUITE_P(Thirty, ComparedSchools, testing::Range(1U, 31U));

} // namespace
} // namespace tally::test
