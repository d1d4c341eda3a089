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
                    {QStringLiteral("Class")},
                    {QStringLiteral("Division")},
                    {QStringLiteral("Subject")},
                    {QStringLiteral("Teacher")},
                    {QStringLiteral("Maximum Mark"), NumberAlignment},
                    {QStringLiteral("Maximum Allowed"), NumberAlignment},
                    {QStringLiteral("Taken For Rank")},
                    {QStringLiteral("Order"), NumberAlignment}});
    list.Reserve(static_cast<int>(setup.size()));
    const SetupReportRow* before = nullptr;
    for (const SetupReportRow& row : setup) {
        const bool newClass = !before || before->classCode != row.classCode;
        const bool newDivision = newClass || before->divisionCode != row.divisionCode;
        list.AddRow({{QString::number(list.Rows())},
                     {newClass ? row.className : QString()},
                     {newDivision ? row.divisionName : QString()},
                     {row.subjectName},
                     {row.teacherName},
                     {PlainNumber(row.maximumMark)},
                     {PlainNumber(row.maximumAllowed)},
                     {row.takenForRank},
                     {QString::number(row.slNo)}});
        before = &row;
    }
    return list;
}

std::vector<SetupSheetLine> SetupSheetLines(const GridTable& list, int lastRow, int lastCol)
{
    using Kind = SetupSheetLine::Kind;
    std::vector<SetupSheetLine> lines{{Kind::Head, SheetTexts(list, 0, lastCol)}};
    QString className;
    ExactSum sum;
    const auto addTotal = [&] { lines.push_back({Kind::Total, {Format2(sum.Value())}}); };
    for (int row = 1; row <= lastRow; ++row) {
        const QString& divisionName = list.Text(row, Column::Division);
        if (row == 1 || !divisionName.isEmpty()) {
            if (row > 1)
                addTotal();
            sum = {};
            if (!list.Text(row, Column::Class).isEmpty())
                className = list.Text(row, Column::Class);
            lines.push_back({Kind::Heading, {className, divisionName}});
        }
        lines.push_back({Kind::Subject, SheetTexts(list, row, lastCol)});
        if (list.Text(row, Column::TakenForRank).startsWith(u'Y', Qt::CaseInsensitive))
            sum.Add(Val(list.Text(row, Column::MaximumMark)));
    }
    if (lastRow > 0)
        addTotal();
    return lines;
}

} // namespace tally
