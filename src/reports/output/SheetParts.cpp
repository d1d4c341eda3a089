#include "reports/output/SheetParts.h"

#include "core/modTallyboard.h"
#include "core/SessionContext.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <optional>

namespace tally {

namespace {

/// Office programs keep no more digits of a number.
constexpr int MostDigits = 15;

bool IsDigit(QChar letter)
{
    return letter >= u'0' && letter <= u'9';
}

struct NumberText
{
    double value = 0;
    int decimals = 0;
};

std::optional<NumberText> AsNumber(const QString& text)
{
    const qsizetype first = text.startsWith(u'-') ? 1 : 0;
    const qsizetype point = text.indexOf(u'.');
    const qsizetype wholeEnd = point < 0 ? text.size() : point;
    const qsizetype decimals = point < 0 ? 0 : text.size() - point - 1;
    if (wholeEnd == first || (point >= 0 && decimals == 0) || wholeEnd - first + decimals > MostDigits)
        return std::nullopt;
    if (text.at(first) == u'0' && wholeEnd - first > 1)
        return std::nullopt;
    for (qsizetype i = first; i < text.size(); ++i) {
        if (i != point && !IsDigit(text.at(i)))
            return std::nullopt;
    }
    return NumberText{text.toDouble(), static_cast<int>(decimals)};
}

/// How much larger than the standard font the style's letters are.
double Enlargement(const CellStyle& style)
{
    return style.points == 0 ? 1 : style.points / Workbook::StandardPoints;
}

int LineCount(const QString& text, const CellStyle& style, double width)
{
    return 1 + static_cast<int>(LettersOnPaper(text) * Enlargement(style) / width);
}

} // namespace

std::array<QString, SchoolHeadRows> SchoolHead()
{
    const SessionContext& session = Session();
    return {session.gstrSchoolName, session.gstrSchoolAddress, session.gstrSchoolCity};
}

QString StampLine()
{
    const QDateTime now = QDateTime::currentDateTime();
    return QStringLiteral("User Name : %1    Date : %2    Time : %3")
        .arg(Session().gstrUserName, ShownDate(now.date()),
             QLocale::c().toString(now.time(), QStringLiteral("hh:mm AP")));
}

double LettersOnPaper(const QString& text)
{
    constexpr double Capital = 1.25;
    const auto capitals =
        std::count_if(text.begin(), text.end(), [](QChar letter) { return letter.isUpper(); });
    return static_cast<double>(text.size() - capitals) + Capital * static_cast<double>(capitals);
}

double HeadLineHeight(const QString& text, const CellStyle& style, double width, double least)
{
    return std::max(least, LineCount(text, style, width) * Enlargement(style) * Workbook::StandardRowHeight);
}

void WriteHeadLine(Workbook& workbook, int row, int lastColumn, const QString& text, CellStyle style,
                   double width, double least)
{
    style.wrap = LineCount(text, style, width) > 1;
    const double height = HeadLineHeight(text, style, width, least);
    if (height > Workbook::StandardRowHeight)
        workbook.SetRowHeight(row, height);
    workbook.WriteMerged(row, 0, lastColumn, text, style);
}

bool IsIdentity(const QString& text)
{
    return text.size() > 1 && (text.front() == u'0' || text.size() > MostDigits) &&
           std::all_of(text.begin(), text.end(), IsDigit);
}

bool IsNumber(const QString& text)
{
    return AsNumber(text).has_value();
}

void WriteTyped(Workbook& workbook, int row, int column, const QString& text, CellStyle style)
{
    const std::optional<NumberText> number = AsNumber(text);
    if (number) {
        style.decimals = number->decimals;
        workbook.WriteNumber(row, column, number->value, style);
    } else {
        workbook.WriteText(row, column, text, style);
    }
}

} // namespace tally
