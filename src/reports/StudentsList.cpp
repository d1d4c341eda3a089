#include "reports/StudentsList.h"

#include "core/Numbers.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tally {

namespace {

/// What a mark in the subject is compared with; nothing where it cannot be compared.
std::optional<double> LimitOf(int subjectCode, const std::vector<SubjectLimit>& limits,
                              const StudentsListOptions& options)
{
    if (options.givenValue)
        return Val(*options.givenValue);
    const auto limit = std::find_if(limits.begin(), limits.end(), [subjectCode](const SubjectLimit& one) {
        return one.subjectCode == subjectCode;
    });
    if (limit == limits.end())
        return options.side == AverageSide::Below ? std::optional(0.0) : std::nullopt;
    return limit->text.isEmpty() ? std::nullopt : std::optional<double>(Val(limit->text));
}

bool IsOnSide(double mark, double limit, AverageSide side)
{
    return side == AverageSide::Below ? mark < limit : mark > limit;
}

/// The cell of a mark on the side; empty where it is not.
QString CellText(const std::optional<double>& mark, const std::optional<double>& limit,
                 const StudentsListOptions& options)
{
    if (!mark || !limit || !IsOnSide(*mark, *limit, options.side))
        return {};
    return FormatMark(*mark == StoredZero ? 0 : *mark, options.markDecimals);
}

bool Counts(const QString& cell, AverageSide side)
{
    return Val(cell) > 0 ||
           (side == AverageSide::Below && (cell == QLatin1String("0.00") || cell == QLatin1String("0")));
}

} // namespace

const std::array<StudentsListDefinition, 2>& StudentsListDefinitions()
{
    static constexpr std::array<StudentsListDefinition, 2> Definitions{{
        {
            .formName = "frmstudentslistbelow",
            .caption = "List Of Students Below Class Average",
            .helpScreenNo = 27,
            .side = AverageSide::Below,
            .noDivision = " Select Division(s)",
            .exitCaption = "List Of Students Below Class Average",
            .titleGivenValue = "List Of Students Average Below ",
            .divisionsOfHead = " Division :",
            .exportsSummary = false,
            .printsText = false,
            .headHeight = 400,
        },
        {
            .formName = "frmstudentslistabove",
            .caption = "List Of Students Above Class Average",
            .helpScreenNo = 28,
            .side = AverageSide::Above,
            .noDivision = "Select Division(s)",
            .exitCaption = "Students Above Class Avg. / Given Value Report",
            .titleGivenValue = nullptr,
            .divisionsOfHead = " Division : ",
            .exportsSummary = true,
            .printsText = true,
            .headHeight = 315,
        },
    }};
    return Definitions;
}

std::vector<SubjectLimit> SubjectLimits(const StudentsListInput& input, const StudentsListOptions& options)
{
    std::map<std::pair<int, int>, double> maximumMarks; // by division and subject
    for (const SubjectSetup& subject : input.setup)
        maximumMarks[{subject.divisionCode, subject.subjectCode}] = subject.maximumMark;

    std::map<std::pair<int, double>, PercentAverage> averages; // by subject and maximum mark
    for (const DivisionMark& mark : input.marks) {
        const auto maximum = maximumMarks.find({mark.divisionCode, mark.subjectCode});
        if (mark.mark > 0 && maximum != maximumMarks.end())
            averages[{mark.subjectCode, maximum->second}].Add(mark.mark);
    }

    std::map<int, QString> texts;
    for (const auto& [group, average] : averages) {
        const auto& [subjectCode, maximumMark] = group;
        QString& text = texts[subjectCode];
        if (!options.givenValue)
            text = average.Text(maximumMark);
        else
            text =
                options.side == AverageSide::Below ? Format2(Val(*options.givenValue)) : *options.givenValue;
    }
    std::vector<SubjectLimit> limits;
    limits.reserve(texts.size());
    for (const auto& [subjectCode, text] : texts)
        limits.push_back({subjectCode, text});
    return limits;
}

GridTable ListStudents(const StudentsListInput& input, const StudentsListOptions& options)
{
    constexpr int NameTwips = 2500;

    const std::vector<SubjectLimit> limits = SubjectLimits(input, options);
    std::vector<GridColumn> columns{
        {.head = {}, .hidden = true},
        {.head = QStringLiteral("Student Name (Admission No)"), .twips = NameTwips}};
    std::vector<std::optional<double>> limitOf;
    for (const auto& [code, shortName] : input.subjects) {
        columns.push_back({.head = shortName, .alignment = NumberAlignment});
        limitOf.push_back(LimitOf(code, limits, options));
    }

    constexpr auto FirstSubject = static_cast<std::size_t>(StudentsListColumn::FirstSubject);
    GridTable list(std::move(columns));
    for (const ClassAverageRow& student : input.students) {
        GridTable::Row cells;
        for (std::size_t subject = 0; subject < student.marks.size(); ++subject) {
            QString text = CellText(student.marks[subject], limitOf[subject], options);
            if (text.isEmpty())
                continue;
            cells.resize(FirstSubject + student.marks.size());
            cells[FirstSubject + subject].text = std::move(text);
        }
        if (cells.empty())
            continue;
        cells[static_cast<std::size_t>(StudentsListColumn::StudentName)].text = student.studentName;
        list.AddRow(std::move(cells));
    }
    list.AddRow();

    GridTable::Row last(static_cast<std::size_t>(list.Cols()), {.text = {}, .mark = CellMark::Sum});
    for (const SubjectLimit& limit : limits)
        for (std::size_t subject = 0; subject < input.subjects.size(); ++subject)
            if (input.subjects[subject].first == limit.subjectCode && !limit.text.isEmpty())
                last[FirstSubject + subject].text = PlainNumber(Val(limit.text));
    list.AddRow(std::move(last));
    return list;
}

GridTable SummariseStudents(const GridTable& list, AverageSide side)
{
    GridTable summary({{QStringLiteral("Subject")},
                       {.head = QStringLiteral("No.Of Students"), .alignment = NumberAlignment},
                       {.head = {}, .hidden = true}});
    for (int col = static_cast<int>(StudentsListColumn::FirstSubject); col < list.Cols(); ++col) {
        int students = 0;
        for (int row = 1; row < list.Rows() - RowsBelowStudents; ++row)
            students += Counts(list.Text(row, col), side) ? 1 : 0;
        summary.AddRow({{list.Text(0, col)},
                        {students > 0 ? QString::number(students) : QString()},
                        {list.Text(1, col)}});
    }
    return summary;
}

TextReport PrintedStudents(const GridTable& list)
{
    constexpr int NameWidth = 15;
    constexpr int NumberWidth = 5;
    constexpr int MarkWidth = 5;
    constexpr int FirstPrinted = 2;

    TextReport report{
        .title = QStringLiteral("Details of List of Students Above Class Average/Given value"),
        .columns = {{QStringLiteral("Student Name"), NameWidth}, {QStringLiteral("Ad.No"), NumberWidth}},
        .rows = {}};
    for (int col = static_cast<int>(StudentsListColumn::FirstSubject); col < list.Cols(); ++col)
        report.columns.push_back({list.Text(0, col), MarkWidth});
    for (int row = FirstPrinted; row < list.Rows(); ++row) {
        if (row == list.Rows() - RowsBelowStudents)
            continue;
        // In one column of the paper a long name would cut its number off.
        const QString& student = list.Text(row, StudentsListColumn::StudentName);
        const auto bracket = student.lastIndexOf(QLatin1Char('('));
        QStringList cells{student.left(bracket),
                          bracket < 0 ? QString() : student.mid(bracket + 1).chopped(1)};
        for (int col = static_cast<int>(StudentsListColumn::FirstSubject); col < list.Cols(); ++col)
            cells.append(list.Text(row, col));
        report.rows.push_back(std::move(cells));
    }
    return report;
}

TextReport PrintedSummary(const GridTable& summary)
{
    constexpr int SubjectWidth = 10;
    constexpr int StudentsWidth = 15;

    TextReport report{.title = QStringLiteral("Summary of List of Students Above Class Average/Given value"),
                      .columns = {{summary.Text(0, StudentsSummaryColumn::Subject), SubjectWidth},
                                  {summary.Text(0, StudentsSummaryColumn::Students), StudentsWidth}},
                      .rows = {}};
    for (int row = 1; row < summary.Rows(); ++row)
        report.rows.push_back({summary.Text(row, StudentsSummaryColumn::Subject),
                               summary.Text(row, StudentsSummaryColumn::Students)});
    return report;
}

} // namespace tally
