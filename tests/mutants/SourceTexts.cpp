#include "mutants/SourceTexts.h"

#include <QRegularExpression>

namespace tally::mutants {

std::vector<SourceText> StatementTextsIn(const QString& file, const QString& code)
{
    static const QRegularExpression literals(
        QStringLiteral(R"re("(?:[^"\\\n]|\\.)*"(?:\s*"(?:[^"\\\n]|\\.)*")*)re"));
    static const QRegularExpression seam(QStringLiteral(R"re((?<!\\)"\s*")re"));
    static const QRegularExpression beginning(QStringLiteral(
        R"(^\s*(SELECT|INSERT|UPDATE|DELETE|REPLACE|WITH|FROM|WHERE|AND|OR|SET|GROUP BY|ORDER BY|UNION)\s)"));
    static const QRegularExpression gap(QStringLiteral("%\\d"));
    std::vector<SourceText> texts;
    auto matches = literals.globalMatch(code);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        QString text = match.captured().mid(1).chopped(1);
        text.remove(seam).replace(QLatin1String("\\\""), QLatin1String("\""));
        if (!beginning.match(text).hasMatch())
            continue;
        const int line = static_cast<int>(code.left(match.capturedStart()).count(QLatin1Char('\n'))) + 1;
        for (const QString& piece : text.split(gap, Qt::SkipEmptyParts))
            texts.push_back({file, line, piece});
    }
    return texts;
}

} // namespace tally::mutants
