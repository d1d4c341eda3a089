#include "reports/SubjectComparison.h"

#include "core/Numbers.h"
#include "reports/MarkAverage.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace tally {

namespace {

constexpr Qt::Alignment Centred = Qt::AlignHCenter | Qt::AlignVCenter;
/// Of an average that a list shows.
constexpr int AverageDecimals = 2;

// The least widths of the columns, in twips.
constexpr int SerialNoTwips = 525;
constexpr int LineTwips = 3000;

/// Where each code stands among the texts.
QHash<int, std::size_t> PlacesOf(const CodedTexts& texts)
{
    QHash<int, std::size_t> places;
    for (std::size_t place = 0; place < texts.size(); ++place)
        places.insert(texts[place].first, place);
    return places;
}

/// The averages by line and subject. A mark finds its place by the codes, never by the order in which the
/// marks come.
class AverageTable
{
public:
    explicit AverageTable(const ComparisonInput& input)
        : subjectCount_(input.subjects.size()), averages_(input.lines.size() * subjectCount_)
    {
        const QHash<int, std::size_t> lines = PlacesOf(input.lines);
        const QHash<int, std::size_t> subjects = PlacesOf(input.subjects);
        for (const ComparedMark& mark : input.marks) {
            const auto line = lines.constFind(mark.lineCode);
            const auto subject = subjects.constFind(mark.subjectCode);
            if (line != lines.constEnd() && subject != subjects.constEnd())
                averages_[*line * subjectCount_ + *subject].Add(mark.mark);
        }
    }

    const MarkAverage& At(std::size_t line, std::size_t subject) const
    {
        return averages_[line * subjectCount_ + subject];
    }

private:
    std::size_t subjectCount_;
    std::vector<MarkAverage> averages_;
};

std::vector<GridColumn> ExamColumns(const char* serialNo, const char* examName)
{
    return {{.head = QString::fromLatin1(serialNo), .alignment = Centred, .twips = SerialNoTwips},
            {.head = QStringLiteral("Student Name"), .hidden = true},
            {.head = QString::fromLatin1(examName), .twips = LineTwips},
            {.head = QStringLiteral("Class"), .hidden = true},
            {.head = QStringLiteral("Div"), .hidden = true}};
}

/// The lines below the heads, with serial numbers, their text in `lineColumn`, and their averages with
/// `decimals`.
GridTable ShowLines(const ComparisonInput& input, std::vector<GridColumn> columns, GridCol lineColumn,
                    int decimals)
{
    for (const auto& [code, shortName] : input.subjects)
        AddSubjectColumns(columns, code, shortName);
    GridTable list(std::move(columns));
    const AverageTable averages(input);
    for (std::size_t line = 0; line < input.lines.size(); ++line) {
        GridTable::Row cells(static_cast<std::size_t>(FirstSubjectColumn));
        cells.front().text = QString::number(line + 1);
        cells[static_cast<std::size_t>(lineColumn)].text = input.lines[line].second;
        for (std::size_t subject = 0; subject < input.subjects.size(); ++subject) {
            const MarkAverage& average = averages.At(line, subject);
            cells.push_back({average.Exists() ? QString::number(input.subjects[subject].first) : QString()});
            cells.push_back({average.Exists() ? average.Text(decimals) : QString()});
        }
        list.AddRow(std::move(cells));
    }
    return list;
}

/// The row "Total Average" below the exams. What has been added up there is shown with `markDecimals` from
/// then on.
void AddTotalAverage(GridTable& list, int markDecimals)
{
    GridTable::Row total(static_cast<std::size_t>(list.Cols()), {.text = {}, .mark = CellMark::Sum});
    total[static_cast<std::size_t>(ExamLineColumn::ExamName)].text = QStringLiteral("Total Average");
    for (int col = FirstSubjectColumn + 1; col < list.Cols(); col += 2) {
        MarkAverage average;
        for (int row = 1; row < list.Rows(); ++row) {
            const double mark = Val(list.Text(row, col));
            if (mark <= 0)
                continue;
            average.Add(mark);
            list.SetText(row, col, FormatMark(mark, markDecimals));
        }
        if (average.Exists())
            total[static_cast<std::size_t>(col)].text = Format2(average.Value());
    }
    list.AddRow(std::move(total));
    list.AddRow();
}

} // namespace

std::vector<ListItem> SubjectItems(const SubjectListInput& input, const std::vector<int>& lineCodes,
                                   const QString& refusal)
{
    QSet<std::pair<int, int>> entered;
    for (const EnteredSubject& subject : input.entered)
        entered.insert({subject.lineCode, subject.subjectCode});
    std::vector<ListItem> items;
    for (const auto& [code, name] : input.subjects) {
        const bool complete =
            std::all_of(lineCodes.begin(), lineCodes.end(), [&entered, subject = code](int line) {
                return entered.contains({line, subject});
            });
        items.push_back({code, QLatin1String(complete ? "  " : ". ") + name,
                         complete || refusal.isEmpty() ? QString() : refusal.arg(name)});
    }
    return items;
}

GridTable ShowDivisionAverages(const ComparisonInput& input)
{
    return ShowLines(input, ExamColumns("Sl.No.", "Exam Name"), ExamLineColumn::ExamName, AverageDecimals);
}

GridTable ShowStudentMarks(const ComparisonInput& input, int markDecimals)
{
    GridTable list =
        ShowLines(input, ExamColumns("SlNo", "ExamName"), ExamLineColumn::ExamName, AverageDecimals);
    AddTotalAverage(list, markDecimals);
    return list;
}

GridTable ShowYearMarks(const ComparisonInput& input, int markDecimals)
{
    return ShowLines(input,
                     {{.head = QStringLiteral("Sl.No."), .alignment = Centred, .twips = SerialNoTwips},
                      {.head = QStringLiteral("Academic Year/Class/Division"), .twips = LineTwips},
                      {.head = QStringLiteral("Ad.No"), .hidden = true},
                      {.head = QStringLiteral("Class"), .hidden = true},
                      {.head = QStringLiteral("Div"), .hidden = true}},
                     YearLineColumn::YearAndClass, markDecimals);
}

std::vector<ChartLabel> ExamLabels(const GridTable& list)
{
    std::vector<ChartLabel> labels;
    for (int row = 1; row < list.Rows(); ++row) {
        if (!list.Text(row, ExamLineColumn::SerialNo).isEmpty())
            labels.push_back({row, list.Text(row, ExamLineColumn::ExamName)});
    }
    return labels;
}

std::vector<ChartLabel> YearLabels(const GridTable& list)
{
    std::vector<ChartLabel> labels;
    for (int row = 1; row < list.Rows(); ++row) {
        if (!list.Text(row, FirstSubjectColumn + 1).isEmpty())
            labels.push_back({row, list.Text(row, YearLineColumn::YearAndClass)});
    }
    return labels;
}

TextReport StudentMarksText(const GridTable& list, const QString& title)
{
    constexpr int SerialNoWidth = 6;
    constexpr int ExamWidth = 25;
    constexpr int MarkWidth = 5;
    std::vector<std::pair<GridCol, int>> columns{{ExamLineColumn::SerialNo, SerialNoWidth},
                                                 {ExamLineColumn::ExamName, ExamWidth}};
    for (int col = FirstSubjectColumn + 1; col < list.Cols(); col += 2)
        columns.emplace_back(col, MarkWidth);

    TextReport text{title, {}, {}};
    for (const auto& [col, width] : columns)
        text.columns.push_back({list.Text(0, col), width});
    // Below the average stands only the blank row.
    for (int row = 1; row < list.Rows() - 1; ++row) {
        QStringList cells;
        for (const auto& column : columns)
            cells.append(list.Text(row, column.first));
        text.rows.push_back(cells);
    }
    return text;
}

} // namespace tally
