#include "reports/SetupReport.h"

#include "core/Numbers.h"

namespace tally {

namespace {

using Column = SetupReportColumn;

QStringList SheetTexts(const GridTable& list, int row, int lastCol)
{
    QStringList texts;
    for (int col = 0; col <= lastCol; ++col)
        if (col != GridCol(Column::Class) && col != GridCol(Column::Division))
            texts.append(list.Text(row, col));
    return texts;
}

} // namespace

GridTable SetupReportTable(const std::vector<SetupReportRow>& setup)
{
    constexpr Qt::Alignment Centered = Qt::AlignHCenter | Qt::AlignVCenter;
    GridTable list({{QStringLiteral("Sl.No."), Centered},
                    {.head = QStringLiteral("Class"), .merged = true},
                    {.head = QStringLiteral("Division"), .merged = true},
                    {QStringLiteral("Subject")},
                    {QStringLiteral("Teacher")},
                    {QStringLiteral("Maximum Mark"), NumberAlignment},
                    {QStringLiteral("Maximum Allowed"), NumberAlignment},
                    {QStringLiteral("Taken For Rank")},
                    {QStringLiteral("Order"), NumberAlignment}});
    list.Reserve(static_cast<int>(setup.size()));
    for (const SetupReportRow& row : setup)
        list.AddRow({{QString::number(list.Rows())},
                     {row.className},
                     {row.divisionName},
                     {row.subjectName},
                     {row.teacherName},
                     {PlainNumber(row.maximumMark)},
                     {PlainNumber(row.maximumAllowed)},
                     {row.takenForRank},
                     {QString::number(row.slNo)}});
    return list;
}

std::vector<SetupSheetLine> SetupSheetLines(const GridTable& list, int lastRow, int lastCol)
{
    using Kind = SetupSheetLine::Kind;
    std::vector<SetupSheetLine> lines{{Kind::Head, SheetTexts(list, 0, lastCol)}};
    ExactSum sum;
    const auto addTotal = [&] { lines.push_back({Kind::Total, {Format2(sum.Value())}}); };
    for (int row = 1; row <= lastRow; ++row) {
        if (!list.Repeats(row, Column::Division)) {
            if (row > 1)
                addTotal();
            sum = {};
            lines.push_back(
                {Kind::Heading, {list.Text(row, Column::Class), list.Text(row, Column::Division)}});
        }
        lines.push_back({Kind::Subject, SheetTexts(list, row, lastCol)});
        // Small letters too, as the store compares.
        if (list.Text(row, Column::TakenForRank).startsWith(u'Y', Qt::CaseInsensitive))
            sum.Add(Val(list.Text(row, Column::MaximumMark)));
    }
    if (lastRow > 0)
        addTotal();
    return lines;
}

} // namespace tally
