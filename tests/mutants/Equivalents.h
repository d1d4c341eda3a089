#pragma once

#include <QHash>
#include <QPair>
#include <QString>
#include <QStringList>

namespace tally::mutants {

/// The mutants that no test can tell from their statement, each with the reason why. The file has a line for
/// the statement, by two blanks further in one for what was changed and by four the reason, which may go on
/// over several lines; `#` begins a remark.
class Equivalents
{
public:
    /// Throws std::runtime_error, with the number of the line, where the text is not of that form.
    static Equivalents FromText(const QString& text);

    /// Notes that there is such a mutant.
    bool Take(const QString& statement, const QString& change);
    /// Those that nobody took.
    QStringList Rest() const;

private:
    QHash<QPair<QString, QString>, bool> taken_;
};

} // namespace tally::mutants
