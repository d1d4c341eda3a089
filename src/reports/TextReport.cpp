#include "reports/TextReport.h"

#include "core/Numbers.h"

#include <algorithm>

namespace tally {

namespace {

/// A name that was entered with a line break, or with what moves the letters behind it, stays in its cell.
QString OneLine(QString text)
{
    for (QChar& letter : text)
        if (letter.category() == QChar::Other_Control || letter.category() == QChar::Separator_Line ||
            letter.category() == QChar::Separator_Paragraph)
            letter = u' ';
    return text;
}

/// The text behind the blanks that bring it into the middle of `width` letters.
QString Centered(const QString& text, qsizetype width)
{
    const int blanks = text.isEmpty() ? 0 : ToWhole(static_cast<double>(width - text.size()) / 2);
    return QString(std::max(0, blanks), u' ') + text;
}

QString Line(const std::vector<TextReport::Column>& columns, const QStringList& cells)
{
    QString line = QStringLiteral("|");
    qsizetype number = 0;
    for (const TextReport::Column& column : columns) {
        const QString cell = Centered(OneLine(cells.value(number++)), column.width);
        line += cell.leftJustified(column.width, u' ', true) + u'|';
    }
    return line;
}

} // namespace

QString LayOutText(const TextReport& report, const TextReportSchool& school)
{
    QStringList heads;
    for (const TextReport::Column& column : report.columns)
        heads.append(column.head);
    const QString head = Line(report.columns, heads);
    const QString dashes(head.size(), u'-');

    QStringList lines;
    for (const QString& text : {school.name, school.address, school.city, report.title})
        lines.append(Centered(text, head.size()));
    lines << dashes << head << dashes;
    for (const QStringList& row : report.rows)
        lines << Line(report.columns, row) << dashes;
    return lines.join(u'\n') + u'\n';
}

} // namespace tally
