#include "ranks/RankComputation.h"

#include "core/Numbers.h"

#include <QHash>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

namespace tally {

namespace {

constexpr std::size_t NotListed = static_cast<std::size_t>(-1);
/// No screen lets such a mark in; its digits would not fit a cell.
constexpr double BeyondAllMarks = 1e15;

/// What a mark has to reach. The two lowest bands of the first division decide for all divisions.
class PassRule
{
public:
    explicit PassRule(const std::vector<GradeBand>& gradeTable)
        : lowest_(!gradeTable.empty() ? gradeTable[0].totalAverage : 0),
          passing_(gradeTable.size() > 1 ? gradeTable[1].totalAverage : 0)
    {}

    bool MarkFailed(double mark) const
    {
        const int whole = ToWhole(mark);
        return lowest_ == whole || passing_ > whole;
    }

private:
    double lowest_;
    double passing_;
};

/// A student's total on its way to a rank.
struct TempTotal
{
    std::size_t row = 0;
    double total = 0;
    bool mayRank = false;
};

std::size_t DivisionIndex(const std::vector<SchoolDivision>& divisions, int divisionCode)
{
    const auto found = std::find_if(divisions.begin(), divisions.end(), [&](const SchoolDivision& division) {
        return division.divisionCode == divisionCode;
    });
    return found == divisions.end() ? NotListed : static_cast<std::size_t>(found - divisions.begin());
}

class Computation
{
public:
    Computation(const RankInput& input, const RankOptions& options) : input_(input), options_(options)
    {
        list_.className = input.className;
        list_.divisions = input.divisions;
        list_.markDecimals = MarkDecimals(options.fractionMarks, options.roundedMarks);
    }

    RankList Run()
    {
        AddStudents();
        AddSubjects();
        EnterMarks();
        for (std::size_t row = 0; row < list_.rows.size(); ++row)
            AddTotals(row);
        GiveRanks();
        for (std::size_t row = 0; row < list_.rows.size(); ++row)
            list_.rows[row].minMarks = MinMarks(row);
        GiveGrades();
        return std::move(list_);
    }

private:
    RankCell* Cells(std::size_t row) { return list_.cells.data() + row * list_.subjects.size(); }

    /// Calls `use(row or student number, mark)` for each mark of a student known to `numbers`.
    template <typename Use>
    void ForEachMark(const Use& use) const
    {
        // Marks mostly come student by student, so the last student found is nearly always the one wanted.
        int lastStudent = 0;
        std::size_t number = NotListed;
        for (const StudentMark& mark : input_.marks) {
            if (number == NotListed || mark.studentCode != lastStudent) {
                lastStudent = mark.studentCode;
                number = numbers_.value(mark.studentCode, NotListed);
            }
            if (number != NotListed)
                use(number, mark);
        }
    }

    void AddStudents()
    {
        const std::size_t count = input_.students.size();
        numbers_.reserve(static_cast<qsizetype>(count));
        for (std::size_t student = 0; student < count; ++student)
            numbers_.insert(input_.students[student].studentCode, student);

        std::vector<bool> marked(count, false);
        ForEachMark([&](std::size_t student, const StudentMark&) { marked[student] = true; });
        list_.rows.reserve(count);
        rowOf_.assign(count, NotListed);
        for (std::size_t student = 0; student < count; ++student) {
            const RankStudent& from = input_.students[student];
            const std::size_t division = DivisionIndex(input_.divisions, from.divisionCode);
            if (!marked[student] || division == NotListed)
                continue;
            rowOf_[student] = list_.rows.size();
            RankRow& row = list_.rows.emplace_back();
            row.studentCode = from.studentCode;
            row.division = division;
            row.studentName = from.studentName;
            row.admissionNo = from.admissionNo;
        }
    }

    void AddSubjects()
    {
        for (const SubjectSetup& subject : input_.subjects) {
            if (SubjectIndex(subject.subjectCode, 0) != NotListed)
                continue;
            list_.subjects.push_back(
                {subject.subjectCode, subject.shortName.trimmed(), subject.takenForRank});
            if (subject.takenForRank)
                maximumTotal_ += subject.maximumMark;
        }
        list_.cells.assign(list_.rows.size() * list_.subjects.size(), {});
    }

    /// Looks from `start` on, around the end.
    std::size_t SubjectIndex(int subjectCode, std::size_t start) const
    {
        const std::size_t count = list_.subjects.size();
        for (std::size_t step = 0; step < count; ++step) {
            const std::size_t index = start + step < count ? start + step : start + step - count;
            if (list_.subjects[index].subjectCode == subjectCode)
                return index;
        }
        return NotListed;
    }

    void EnterMarks()
    {
        const PassRule pass(input_.gradeTable);
        std::size_t likelySubject = 0;
        ForEachMark([&](std::size_t student, const StudentMark& mark) {
            const std::size_t row = rowOf_[student];
            if (row == NotListed || mark.divisionCode != input_.students[student].divisionCode)
                return;
            const std::size_t subject = SubjectIndex(mark.subjectCode, likelySubject);
            if (subject == NotListed)
                return;
            likelySubject = subject + 1 < list_.subjects.size() ? subject + 1 : 0;
            RankCell& cell = Cells(row)[subject];
            if (cell.kind == RankCell::Kind::Blank)
                EnterMark(cell, mark, list_.subjects[subject].takenForRank, pass);
        });
    }

    void EnterMark(RankCell& cell, const StudentMark& mark, bool takenForRank, const PassRule& pass) const
    {
        if (mark.present) {
            cell.kind = RankCell::Kind::Mark;
            cell.value = Round(mark.mark, list_.markDecimals);
        } else {
            cell.kind = RankCell::Kind::Absent;
        }
        // In a subject not taken for rank neither an absence nor a low mark is held against the student.
        if (!takenForRank)
            cell.mark = CellMark::NotTakenForRank;
        else if (!mark.present || pass.MarkFailed(mark.mark))
            cell.mark = CellMark::FailedOrAbsent;
    }

    void AddTotals(std::size_t row)
    {
        double total = 0;
        double rankTotal = 0;
        int counted = 0;
        const RankCell* cells = Cells(row);
        for (std::size_t subject = 0; subject < list_.subjects.size(); ++subject) {
            const RankCell& cell = cells[subject];
            if (cell.value <= 0)
                continue;
            ++counted;
            total += cell.value;
            if (cell.mark != CellMark::NotTakenForRank)
                rankTotal += cell.value;
        }
        if (counted == 0)
            return;
        if (maximumTotal_ == 0)
            throw DivisionError();
        const double percent = rankTotal / maximumTotal_ * 100;
        RankRow& target = list_.rows[row];
        if (options_.fractionMarks) {
            target.total = Round(total, list_.markDecimals);
            target.rankTotal = Round(rankTotal, list_.markDecimals);
            target.average = Round(percent, list_.markDecimals);
        } else {
            target.total = total;
            target.rankTotal = rankTotal;
            target.average = AsFormat2(percent);
        }
    }

    bool FailedOrAbsent(std::size_t row)
    {
        const RankCell* cells = Cells(row);
        return std::any_of(cells, cells + list_.subjects.size(),
                           [](const RankCell& cell) { return cell.mark == CellMark::FailedOrAbsent; });
    }

    void GiveRanks()
    {
        std::vector<TempTotal> totals;
        totals.reserve(list_.rows.size());
        for (std::size_t row = 0; row < list_.rows.size(); ++row) {
            if (list_.rows[row].rankTotal != 0)
                totals.push_back({row, list_.rows[row].rankTotal, !FailedOrAbsent(row)});
        }
        std::sort(totals.begin(), totals.end(),
                  [](const TempTotal& left, const TempTotal& right) { return left.total > right.total; });

        int rank = 1;
        for (auto from = totals.cbegin(); from != totals.cend();) {
            const auto to = std::find_if(std::next(from), totals.cend(),
                                         [&](const TempTotal& other) { return other.total != from->total; });
            int sharers = 0;
            for (; from != to; ++from) {
                if (!from->mayRank)
                    continue;
                list_.rows[from->row].rank = rank;
                ++sharers;
            }
            if (sharers > 0)
                rank += options_.skipRanks ? sharers : 1;
        }
    }

    /// The lowest mark that the subject averages of the grade table are held against.
    double MinMarks(std::size_t row)
    {
        if (list_.subjects.empty())
            return 0;
        const RankCell* cells = Cells(row);
        const RankCell* end = cells + list_.subjects.size();
        // The first mark above 0 opens the search, whether or not its subject is taken for rank.
        const RankCell* first =
            std::find_if(cells, end, [](const RankCell& cell) { return cell.value != 0; });
        double lowest = first == end ? 0 : first->value;
        // A zero counts from the second subject on.
        for (const RankCell* cell = cells + 1; cell < end; ++cell) {
            if (cell->kind == RankCell::Kind::Mark && cell->mark != CellMark::NotTakenForRank)
                lowest = std::min(lowest, cell->value);
        }
        return lowest;
    }

    void GiveGrades()
    {
        for (RankRow& row : list_.rows) {
            const int divisionCode = list_.divisions[row.division].divisionCode;
            for (const GradeBand& band : input_.gradeTable) {
                if (band.divisionCode == divisionCode && band.subjectAverage <= row.minMarks &&
                    band.totalAverage <= row.average)
                    row.grade = band.grade;
            }
            row.grade = row.grade.trimmed();
        }
    }

    const RankInput& input_;
    const RankOptions& options_;
    RankList list_;
    QHash<int, std::size_t> numbers_; ///< student code to index into the students of the input
    std::vector<std::size_t> rowOf_;  ///< by that index
    double maximumTotal_ = 0;
};

} // namespace

bool RankList::MarkedAbsent(std::size_t row) const
{
    for (std::size_t subject = 0; subject < subjects.size(); ++subject) {
        const RankCell& cell = Cell(row, subject);
        if (cell.kind == RankCell::Kind::Absent && cell.mark == CellMark::FailedOrAbsent)
            return true;
    }
    return false;
}

std::vector<GradeBand> LoadGradeTable(const std::vector<GradeBand>& bands,
                                      const std::vector<int>& divisionCodes)
{
    std::vector<GradeBand> table;
    for (const int divisionCode : divisionCodes) {
        const auto first = static_cast<std::ptrdiff_t>(table.size());
        std::copy_if(bands.begin(), bands.end(), std::back_inserter(table),
                     [&](const GradeBand& band) { return band.divisionCode == divisionCode; });
        std::stable_sort(table.begin() + first, table.end(),
                         [](const GradeBand& left, const GradeBand& right) {
                             return left.subjectAverage != right.subjectAverage
                                        ? left.subjectAverage < right.subjectAverage
                                        : left.totalAverage < right.totalAverage;
                         });
    }
    constexpr double NoUpperBound = 100;
    for (std::size_t row = 0; row < table.size(); ++row) {
        const bool last = row + 1 == table.size() || table[row + 1].divisionCode != table[row].divisionCode;
        table[row].upperSubjectAverage = last ? NoUpperBound : table[row + 1].subjectAverage - 1;
    }
    return table;
}

RankList ComputeRankList(const RankInput& input, const RankOptions& options)
{
    return Computation(input, options).Run();
}

std::string_view CellText(const RankCell& cell, int markDecimals, bool marked, CellBuffer& buffer)
{
    char* const start = buffer.data();
    char* end = start;
    if (cell.kind == RankCell::Kind::Blank)
        return ""; // an empty text, which is not Null in the table
    if (marked && cell.mark == CellMark::FailedOrAbsent)
        end = std::copy_n("Fail", 4, end);
    if (cell.kind == RankCell::Kind::Absent) {
        *end++ = 'A';
    } else if (!(std::abs(cell.value) < BeyondAllMarks)) {
        const QByteArray digits = PlainNumber(cell.value).toLatin1();
        end = std::copy(digits.begin(), digits.end(), end);
    } else if (markDecimals == 0) {
        end = std::to_chars(end, start + buffer.size(), static_cast<qint64>(cell.value)).ptr;
    } else {
        end =
            std::to_chars(end, start + buffer.size(), cell.value, std::chars_format::fixed, markDecimals).ptr;
    }
    return {start, static_cast<std::size_t>(end - start)};
}

} // namespace tally
