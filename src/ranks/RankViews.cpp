#include "ranks/RankViews.h"

#include "core/Numbers.h"

#include <algorithm>

namespace tally {

namespace {

constexpr int DivisionCodeColumn = 4;

/// The columns behind the subjects, counted from the last one backwards.
constexpr int TotalFromEnd = 5;
constexpr int RankTotalFromEnd = 4;
constexpr int AverageFromEnd = 3;
constexpr int RankFromEnd = 2;
constexpr int GradeFromEnd = 1;

/// Of the numbers above 0, each with the two decimals that are written.
class ClassAverage
{
public:
    void Add(double value)
    {
        if (value <= 0)
            return;
        sum_.Add(value);
        ++count_;
    }

    /// Empty when nothing counted.
    QString Text() const { return count_ > 0 ? Format2(sum_.Value() / count_) : QString(); }

private:
    ExactSum sum_;
    int count_ = 0;
};

} // namespace

RankView::RankView(std::vector<RankSubject> subjects, TempRankTable table, SubjectDisplay display,
                   bool plainAverage)
    : subjects_(std::move(subjects)), table_(std::move(table)), display_(display), plainAverage_(plainAverage)
{
    const QLatin1String failed("Fail");
    for (std::size_t number = 0; number < table_.texts.Size(); ++number) {
        const QString& stored = table_.texts[static_cast<std::uint32_t>(number)];
        Mark& mark = marks_.emplace_back();
        mark.failed = stored.startsWith(failed);
        mark.text = mark.failed ? stored.mid(failed.size()) : stored;
        mark.absent = mark.failed && mark.text.trimmed() == QLatin1String("A");
        mark.value = AsFormat2(Val(mark.text));
    }
    absent_.assign(table_.rows.size(), false);
    for (std::size_t cell = 0; cell < table_.marks.size(); ++cell) {
        if (marks_[table_.marks[cell]].absent)
            absent_[cell / table_.subjectCount] = true;
    }
    ComputeAverages();
}

int RankView::Rows() const
{
    constexpr int RowsBelowStudents = 3;
    return FirstStudentRow + StudentCount() + RowsBelowStudents;
}

bool RankView::IsSubject(int column) const
{
    return column >= FirstSubjectColumn && column < FirstSubjectColumn + SubjectCount();
}

const RankSubject& RankView::SubjectAt(int column) const
{
    return subjects_[static_cast<std::size_t>(column - FirstSubjectColumn)];
}

const RankView::Mark& RankView::MarkAt(int student, int column) const
{
    const auto subject = static_cast<std::size_t>(column - FirstSubjectColumn);
    return marks_[table_.marks[static_cast<std::size_t>(student) * table_.subjectCount + subject]];
}

void RankView::ComputeAverages()
{
    for (int column = FirstSubjectColumn; column < FirstSubjectColumn + SubjectCount(); ++column) {
        ClassAverage average;
        for (int student = 0; student < StudentCount(); ++student)
            average.Add(MarkAt(student, column).value);
        averages_.push_back(average.Text());
    }
    ClassAverage average;
    for (const TempRankRow& row : table_.rows)
        average.Add(AsFormat2(row.total));
    averages_.push_back(average.Text());
}

QString RankView::HeadText(int column) const
{
    if (IsSubject(column))
        return SubjectAt(column).shortName;
    switch (column) {
    case 1: return QStringLiteral("Adm.No.");
    case 2: return QStringLiteral("Class");
    case 3: return QStringLiteral("Division");
    default: break;
    }
    switch (Cols() - column) {
    case TotalFromEnd:
    case RankTotalFromEnd: return QStringLiteral("Total");
    case AverageFromEnd: return QStringLiteral("Average");
    case RankFromEnd: return QStringLiteral("Rank");
    case GradeFromEnd: return QStringLiteral("Grade");
    default: return {};
    }
}

QString RankView::StudentText(int student, int column) const
{
    if (IsSubject(column))
        return MarkAt(student, column).text;
    const TempRankRow& row = table_.rows[static_cast<std::size_t>(student)];
    switch (column) {
    case 0: return row.studentName;
    case 1: return row.admissionNo;
    case 2: return table_.texts[row.className];
    case 3: return table_.texts[row.division];
    case DivisionCodeColumn: return QString::number(row.divisionCode);
    default: break;
    }
    switch (Cols() - column) {
    case TotalFromEnd: return PlainNumber(row.total);
    case RankTotalFromEnd: return PlainNumber(row.rankTotal);
    case AverageFromEnd: return plainAverage_ ? PlainNumber(row.average) : Format2(row.average);
    case RankFromEnd: return RankText(row.rank);
    case GradeFromEnd:
        return absent_[static_cast<std::size_t>(student)] ? QString() : table_.texts[row.grade];
    default: return {};
    }
}

QString RankView::Text(int row, int column) const
{
    if (row == 0)
        return HeadText(column);
    if (row == 1)
        return IsSubject(column) ? QString::number(SubjectAt(column).subjectCode) : QString();
    const int student = row - FirstStudentRow;
    if (student < StudentCount())
        return StudentText(student, column);
    if (row != AverageRow())
        return {};
    if (column == 0)
        return QStringLiteral("Average");
    const int average = column - FirstSubjectColumn;
    return average >= 0 && average <= SubjectCount() ? averages_[static_cast<std::size_t>(average)]
                                                     : QString();
}

CellFlag RankView::Flag(int row, int column) const
{
    const int student = row - FirstStudentRow;
    if (!IsSubject(column) || row < 1 || student >= StudentCount())
        return CellFlag::None;
    if (student >= 0 && MarkAt(student, column).failed)
        return CellFlag::FailedOrAbsent;
    return SubjectAt(column).takenForRank ? CellFlag::None : CellFlag::NotTaken;
}

bool RankView::ColumnHidden(int column) const
{
    if (column == DivisionCodeColumn)
        return true;
    if (display_ == SubjectDisplay::All)
        return column == Cols() - RankTotalFromEnd;
    return column == Cols() - TotalFromEnd || (IsSubject(column) && !SubjectAt(column).takenForRank);
}

RankView ShowRankList(TempRankRepository& working, const std::vector<int>& divisionCodes,
                      const std::vector<RankSubject>& subjects, RankOrder order,
                      const std::vector<QString>& gradesInOrder, SubjectDisplay display)
{
    TempRankTable table = working.LoadTempRankCalculation(order, divisionCodes);
    if (order != RankOrder::Grade)
        return {subjects, std::move(table), display, false};

    std::vector<std::size_t> numbers;
    for (const QString& grade : gradesInOrder) {
        for (std::size_t number = 0; number < table.rows.size(); ++number) {
            if (table.texts[table.rows[number].grade].compare(grade, Qt::CaseInsensitive) == 0)
                numbers.push_back(number);
        }
    }
    table = table.Picked(numbers);
    working.AppendRowsWithoutGrade(table);
    return {subjects, std::move(table), display, true};
}

std::vector<GradeSummaryRow> LoadGradeSummary(const RankView& view, const std::vector<QString>& grades,
                                              const QString& className,
                                              const std::vector<DivisionFullMark>& fullMarks)
{
    int strength = 0;
    int withoutGrade = 0;
    std::vector<int> counts(grades.size(), 0);
    const int gradeColumn = view.Cols() - GradeFromEnd;
    for (int row = RankView::FirstStudentRow; row < RankView::FirstStudentRow + view.StudentCount(); ++row) {
        const QString name = view.Text(row, 0).trimmed();
        if (name.isEmpty())
            continue;
        if (name != QLatin1String("Average"))
            ++strength;
        if (view.Text(row, 1).trimmed().isEmpty())
            continue;
        const QString grade = view.Text(row, gradeColumn).trimmed();
        if (grade.isEmpty()) {
            ++withoutGrade;
            continue;
        }
        for (std::size_t number = 0; number < grades.size(); ++number) {
            if (grade.compare(grades[number].trimmed(), Qt::CaseInsensitive) == 0)
                ++counts[number];
        }
    }

    std::vector<GradeSummaryRow> summary;
    summary.push_back({QStringLiteral("TOTAL STRENGTH"), QString::number(strength), {}, {}});
    int graded = 0;
    for (std::size_t number = 0; number < grades.size(); ++number) {
        graded += counts[number];
        summary.push_back({QStringLiteral("No. Of '%1' Grades").arg(grades[number]),
                           {},
                           QString::number(counts[number]),
                           grades[number]});
    }
    summary.push_back({QStringLiteral("TOTAL"), {}, QString::number(graded), {}});
    summary.push_back({QStringLiteral("ABSENTEE"), {}, QString::number(withoutGrade), {}});
    summary.push_back({QString(), {}, QString::number(graded + withoutGrade), {}});
    for (const DivisionFullMark& division : fullMarks) {
        summary.push_back({QStringLiteral("Full Mark For ") + className + division.divisionItem,
                           division.fullMark ? PlainNumber(*division.fullMark) : QString(),
                           {},
                           {}});
    }
    return summary;
}

} // namespace tally
