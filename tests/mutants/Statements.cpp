#include "mutants/Statements.h"

#include "mutants/Terms.h"
#include "mutants/TestRuns.h"

#include <QDir>
#include <QRegularExpression>

namespace tally::mutants {

namespace {

/// Whether everybody passes through the code of this file on the way to the engine. What these files prepare
/// by themselves has no terms.
bool IsDoor(const QString& file)
{
    static const QRegularExpression door(
        QStringLiteral("^src/(store/(Connection|Statement|Transaction)|core/SearchConditions)\\."));
    return door.match(file).hasMatch();
}

} // namespace

Statements::Statements(const QString& sourceFolder, const QString& programFolder)
    : sourceFolder_(sourceFolder + QLatin1Char('/')), programFolder_(programFolder + QLatin1Char('/'))
{}

void Statements::Add(std::size_t test, const QByteArray& record)
{
    const QStringList entries = QString::fromUtf8(record).split(QChar(0x1e), Qt::SkipEmptyParts);
    for (const QString& entry : entries) {
        const QStringList fields = entry.split(QChar(0x1f));
        if (fields.size() == 3)
            sights_.push_back(
                {test, fields[0], fields[1].split(QLatin1Char(' '), Qt::SkipEmptyParts), fields[2]});
    }
}

void Statements::LookUp(const QString& program, const QSet<QString>& addresses)
{
    const QStringList asked = addresses.values();
    QByteArray calls;
    for (const QString& address : asked)
        // Where the call returns to may be another line already.
        calls += QByteArray::number(address.toULongLong(nullptr, 16) - 1, 16) + '\n';
    const QStringList answers =
        OutputOf(QStringLiteral("addr2line"), {QStringLiteral("-e"), programFolder_ + program}, calls)
            .split(QLatin1Char('\n'));
    for (qsizetype number = 0; number < asked.size(); ++number) {
        QString place = QDir::cleanPath(answers.value(number).section(QLatin1Char(' '), 0, 0));
        if (place.startsWith(sourceFolder_))
            place.remove(0, sourceFolder_.size());
        places_.insert({program, asked[number]}, place);
    }
}

Caller Statements::OwnCaller(const Sight& sight) const
{
    static const QRegularExpression header(QStringLiteral("\\.h:|^/usr/"));
    for (const QString& address : sight.addresses) {
        const Caller caller{sight.program, address};
        const QString place = places_.value(caller);
        if (!IsDoor(place.section(QLatin1Char(':'), 0, 0)) && !header.match(place).hasMatch())
            return place.startsWith(QLatin1String("src/")) ? caller : Caller();
    }
    return {};
}

void Statements::Resolve()
{
    QMap<QString, QSet<QString>> unknown;
    for (const Sight& sight : sights_)
        for (const QString& address : sight.addresses)
            if (!places_.contains({sight.program, address}))
                unknown[sight.program].insert(address);
    for (auto program = unknown.begin(); program != unknown.end(); ++program)
        LookUp(program.key(), program.value());

    for (const Sight& sight : sights_) {
        const Caller caller = OwnCaller(sight);
        if (caller.first.isEmpty())
            continue;
        Statement& statement = byShape_[ShapeOf(sight.text)];
        statement.texts.insert(sight.text);
        statement.callers.insert(caller);
        statement.tests.insert(sight.test);
        statement.places.insert(places_.value(caller));
    }
    sights_.clear();
}

bool Statements::Hold(const QString& piece) const
{
    for (const Statement& statement : byShape_)
        for (const QString& text : statement.texts)
            if (text.contains(piece))
                return true;
    return false;
}

} // namespace tally::mutants
