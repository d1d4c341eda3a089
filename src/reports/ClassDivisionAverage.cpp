#include "reports/ClassDivisionAverage.h"

#include "reports/DivisionReport.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tally {

namespace {

constexpr Qt::Alignment Centred = Qt::AlignHCenter | Qt::AlignVCenter;

using Column = DivisionAverageColumn;

/// The subjects of the division that are shown, in their order.
std::vector<SubjectSetup> ShownSubjects(const std::vector<SubjectSetup>& setup, int division,
                                        const DivisionAverageChoice& choice)
{
    std::vector<SubjectSetup> subjects = SubjectsOf(setup, division, choice.display);
    const auto& chosen = choice.subjectCodes;
    std::erase_if(subjects, [&chosen](const SubjectSetup& subject) {
        return std::find(chosen.begin(), chosen.end(), subject.subjectCode) == chosen.end();
    });
    return subjects;
}

} // namespace

GridTable ShowClassDivisionAverages(const DivisionAverageInput& input, const DivisionAverageChoice& choice)
{
    constexpr int SerialNoTwips = 525;
    constexpr int ClassTwips = 500;
    constexpr int DivisionTwips = 500;
    constexpr int SubjectTwips = 600;

    std::vector<GridColumn> columns{
        {.head = QStringLiteral("Sl.No."), .alignment = Centred, .twips = SerialNoTwips},
        {.head = QStringLiteral("Student Name"), .hidden = true},
        {.head = QStringLiteral("Ad.No"), .hidden = true},
        {.head = QStringLiteral("Class"), .twips = ClassTwips},
        {.head = QStringLiteral("Div"), .twips = DivisionTwips}};
    const std::vector<SubjectSetup> shown =
        choice.divisions.empty() ? std::vector<SubjectSetup>()
                                 : ShownSubjects(input.setup, choice.divisions.front().code, choice);
    std::map<int, std::size_t> columnOf;
    for (const SubjectSetup& subject : shown) {
        columnOf[subject.subjectCode] = columns.size();
        columns.push_back({.head = QString::number(subject.subjectCode), .hidden = true});
        columns.push_back({.head = subject.shortName, .alignment = NumberAlignment, .twips = SubjectTwips});
    }

    std::map<std::pair<int, int>, PercentAverage> averages; // by division and subject
    for (const DivisionMark& mark : input.marks)
        averages[{mark.divisionCode, mark.subjectCode}].Add(mark.mark);
    GridTable list(std::move(columns));
    for (const ListItem& division : choice.divisions) {
        GridTable::Row cells(static_cast<std::size_t>(list.Cols()));
        cells[static_cast<std::size_t>(Column::SerialNo)].text = QString::number(list.Rows());
        cells[static_cast<std::size_t>(Column::Class)].text = choice.className;
        cells[static_cast<std::size_t>(Column::Division)].text = division.text;
        for (const SubjectSetup& subject : ShownSubjects(input.setup, division.code, choice)) {
            const auto column = columnOf.find(subject.subjectCode);
            const auto average = averages.find({division.code, subject.subjectCode});
            if (column == columnOf.end() || average == averages.end())
                continue;
            cells[column->second].text = QString::number(subject.subjectCode);
            cells[column->second + 1].text = average->second.Text(subject.maximumMark);
        }
        list.AddRow(std::move(cells));
    }
    return list;
}

ChartTable ChartOfDivisionAverages(const GridTable& list)
{
    std::vector<ChartLabel> labels;
    for (int row = 1; row < list.Rows(); ++row)
        labels.push_back({row, list.Text(row, Column::Class) + QLatin1Char(' ') +
                                   WithoutMark(list.Text(row, Column::Division))});
    return ChartOf(list, "Class", labels);
}

} // namespace tally
