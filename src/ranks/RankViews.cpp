#include "ranks/RankViews.h"

#include "core/Numbers.h"

#include <algorithm>

namespace tally {

namespace {

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

/// A mark's text as it stands in the table, taken apart.
struct ReadMark
{
    QString text;
    double value = 0;
    bool failed = false;
    bool absent = false;
};

std::vector<ReadMark> ReadMarks(const TextPool& texts)
{
    const QLatin1String failed("Fail");
    std::vector<ReadMark> marks(texts.Size());
    for (std::size_t number = 0; number < marks.size(); ++number) {
        const QString& stored = texts[static_cast<std::uint32_t>(number)];
        ReadMark& mark = marks[number];
        mark.failed = stored.startsWith(failed);
        mark.text = mark.failed ? stored.mid(failed.size()) : stored;
        mark.absent = mark.failed && mark.text.trimmed() == QLatin1String("A");
        mark.value = AsFormat2(Val(mark.text));
    }
    return marks;
}

CellMark MarkOf(const RankSubject& subject)
{
    return subject.takenForRank ? CellMark::None : CellMark::NotTakenForRank;
}

/// Lays rows of TempRankCalculation out as a rank list.
class RankListBuilder
{
public:
    RankListBuilder(const std::vector<RankSubject>& subjects, const TempRankTable& table, bool plainAverage)
        : subjects_(subjects), table_(table), marks_(ReadMarks(table.texts)), plainAverage_(plainAverage)
    {}

    GridTable Build(SubjectDisplay display) const
    {
        GridTable list(Columns(display));
        const auto students = static_cast<int>(table_.rows.size());
        list.Reserve(RankListRows::FirstStudent + students + RankListRows::BelowStudents);
        list.AddRow(Codes());
        list.HideRow(RankListRows::Codes);
        for (std::size_t student = 0; student < table_.rows.size(); ++student)
            list.AddRow(Student(student));
        list.AddRow();
        list.AddRow(Averages());
        list.AddRow();
        return list;
    }

private:
    std::vector<GridColumn> Columns(SubjectDisplay display) const
    {
        const bool all = display == SubjectDisplay::All;
        const auto number = [](const QString& head, bool hidden = false) {
            return GridColumn{.head = head, .alignment = NumberAlignment, .hidden = hidden};
        };
        std::vector<GridColumn> columns{{},
                                        {QStringLiteral("Adm.No.")},
                                        {QStringLiteral("Class")},
                                        {QStringLiteral("Division")},
                                        {.head = {}, .hidden = true}};
        for (const RankSubject& subject : subjects_)
            columns.push_back(number(subject.shortName, !all && !subject.takenForRank));
        columns.push_back(number(QStringLiteral("Total"), !all));
        columns.push_back(number(QStringLiteral("Total"), all));
        columns.push_back(number(QStringLiteral("Average")));
        columns.push_back(number(QStringLiteral("Rank")));
        columns.push_back({QStringLiteral("Grade")});
        return columns;
    }

    GridTable::Row Codes() const
    {
        GridTable::Row cells(static_cast<std::size_t>(RankColumn::FirstSubject));
        for (const RankSubject& subject : subjects_)
            cells.push_back({QString::number(subject.subjectCode), MarkOf(subject)});
        return cells;
    }

    const ReadMark& MarkAt(std::size_t student, std::size_t subject) const
    {
        return marks_[table_.marks[student * table_.subjectCount + subject]];
    }

    GridTable::Row Student(std::size_t student) const
    {
        constexpr std::size_t CellsBesideSubjects = 10;
        const TempRankRow& row = table_.rows[student];
        GridTable::Row cells;
        cells.reserve(subjects_.size() + CellsBesideSubjects);
        cells.push_back({row.studentName});
        cells.push_back({row.admissionNo});
        cells.push_back({table_.texts[row.className]});
        cells.push_back({table_.texts[row.division]});
        cells.push_back({QString::number(row.divisionCode)});
        bool absent = false;
        for (std::size_t subject = 0; subject < subjects_.size(); ++subject) {
            const ReadMark& mark = MarkAt(student, subject);
            cells.push_back({mark.text, mark.failed ? CellMark::FailedOrAbsent : MarkOf(subjects_[subject])});
            absent = absent || mark.absent;
        }
        cells.push_back({PlainNumber(row.total)});
        cells.push_back({PlainNumber(row.rankTotal)});
        cells.push_back({plainAverage_ ? PlainNumber(row.average) : Format2(row.average)});
        cells.push_back({RankText(row.rank)});
        cells.push_back({absent ? QString() : table_.texts[row.grade]});
        return cells;
    }

    GridTable::Row Averages() const
    {
        constexpr std::size_t CellsBehindTotal = 4;
        GridTable::Row cells(static_cast<std::size_t>(RankColumn::FirstSubject));
        cells.front().text = QStringLiteral("Average");
        for (std::size_t subject = 0; subject < subjects_.size(); ++subject) {
            ClassAverage average;
            for (std::size_t student = 0; student < table_.rows.size(); ++student)
                average.Add(MarkAt(student, subject).value);
            cells.push_back({average.Text()});
        }
        ClassAverage ofTotals;
        for (const TempRankRow& row : table_.rows)
            ofTotals.Add(AsFormat2(row.total));
        cells.push_back({ofTotals.Text()});
        cells.resize(cells.size() + CellsBehindTotal);
        for (GridCell& cell : cells)
            cell.mark = CellMark::Sum;
        return cells;
    }

    const std::vector<RankSubject>& subjects_;
    const TempRankTable& table_;
    const std::vector<ReadMark> marks_; ///< one per different text of table_
    const bool plainAverage_;
};

} // namespace

GridTable ShowRankList(TempRankRepository& working, const std::vector<int>& divisionCodes,
                       const std::vector<RankSubject>& subjects, RankOrder order,
                       const std::vector<QString>& gradesInOrder, SubjectDisplay display)
{
    TempRankTable table = working.LoadTempRankCalculation(order, divisionCodes);
    if (order == RankOrder::Grade) {
        std::vector<std::size_t> numbers;
        for (const QString& grade : gradesInOrder) {
            for (std::size_t number = 0; number < table.rows.size(); ++number) {
                if (table.texts[table.rows[number].grade].compare(grade, Qt::CaseInsensitive) == 0)
                    numbers.push_back(number);
            }
        }
        table = table.Picked(numbers);
        working.AppendRowsWithoutGrade(table);
    }
    return RankListBuilder(subjects, table, order == RankOrder::Grade).Build(display);
}

GridTable LoadGradeSummary(const GridTable& list, const std::vector<QString>& grades,
                           const QString& className, const std::vector<DivisionFullMark>& fullMarks)
{
    int strength = 0;
    int withoutGrade = 0;
    std::vector<int> counts(grades.size(), 0);
    const int gradeColumn = list.Cols() - 1;
    for (int row = RankListRows::FirstStudent; row < list.Rows() - RankListRows::BelowStudents; ++row) {
        const QString name = list.Text(row, RankColumn::StudentName).trimmed();
        if (name.isEmpty())
            continue;
        if (name != QLatin1String("Average"))
            ++strength;
        if (list.Text(row, RankColumn::AdmissionNo).trimmed().isEmpty())
            continue;
        const QString grade = list.Text(row, gradeColumn).trimmed();
        if (grade.isEmpty()) {
            ++withoutGrade;
            continue;
        }
        for (std::size_t number = 0; number < grades.size(); ++number) {
            if (grade.compare(grades[number].trimmed(), Qt::CaseInsensitive) == 0)
                ++counts[number];
        }
    }

    GridTable summary({{.head = {}, .stretched = true},
                       {.head = {}, .alignment = NumberAlignment},
                       {.head = {}, .alignment = NumberAlignment},
                       {.head = {}, .hidden = true}});
    summary.HideRow(0);
    const auto add = [&summary](const QString& text, const QString& number, const QString& count,
                                const QString& grade = {}) {
        summary.AddRow({{text}, {number}, {count}, {grade}});
    };
    add(QStringLiteral("TOTAL STRENGTH"), QString::number(strength), {});
    int graded = 0;
    for (std::size_t number = 0; number < grades.size(); ++number) {
        graded += counts[number];
        add(QStringLiteral("No. Of '%1' Grades").arg(grades[number]), {}, QString::number(counts[number]),
            grades[number]);
    }
    add(QStringLiteral("TOTAL"), {}, QString::number(graded));
    add(QStringLiteral("ABSENTEE"), {}, QString::number(withoutGrade));
    add({}, {}, QString::number(graded + withoutGrade));
    for (const DivisionFullMark& division : fullMarks)
        add(QStringLiteral("Full Mark For ") + className + division.divisionItem,
            division.fullMark ? PlainNumber(*division.fullMark) : QString(), {});
    return summary;
}

} // namespace tally
