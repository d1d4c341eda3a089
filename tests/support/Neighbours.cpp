#include "support/Neighbours.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

namespace tally::test {

namespace {

constexpr int Away = 1000;

QStringList ColumnsOf(store::Connection& store, const QString& table)
{
    QStringList columns;
    auto rows = store.Query(QStringLiteral("PRAGMA table_info(%1)").arg(table));
    while (rows.Next())
        columns.append(rows.Text(1));
    return columns;
}

/// Copies the own rows of a table, with these columns taken `away`.
void Copy(store::Connection& store, const char* table, const QStringList& changed, int away)
{
    const QString name = QString::fromLatin1(table);
    const QStringList columns = ColumnsOf(store, name);
    QStringList values = columns;
    QStringList own;
    for (const QString& column : changed) {
        const QString letters = QStringLiteral("OptionalAdmissionNo");
        values.replace(columns.indexOf(column), column == letters
                                                    ? QStringLiteral("%1 || ' %2'").arg(column).arg(away)
                                                    : QStringLiteral("%1 + %2").arg(column).arg(away));
    }
    for (const QString& column : columns)
        if (column.endsWith(QLatin1String("Code")))
            own.append(QStringLiteral("ifnull(%1, 0) < %2").arg(column).arg(Away));
    const QString key = columns.contains(changed.first()) ? changed.first() : columns.first();
    store.Execute(QStringLiteral("INSERT OR IGNORE INTO %1 (%2) SELECT %3 FROM %1 WHERE %4 AND %5 > 0")
                      .arg(name, columns.join(QLatin1String(", ")), values.join(QLatin1String(", ")),
                           own.join(QLatin1String(" AND ")), key));
}

QString ColumnOf(Side side)
{
    switch (side) {
    case Side::Year: return QStringLiteral("AcademicYearCode");
    case Side::Exam: return QStringLiteral("ExamCode");
    case Side::Class: return QStringLiteral("ClassCode");
    case Side::Division: return QStringLiteral("DivisionCode");
    }
    return {};
}

std::string ToText(const AllRows::Row& row)
{
    QString text;
    for (const auto& [column, value] : row)
        text += column + QLatin1Char('=') + value + QLatin1Char(' ');
    return text.toStdString();
}

} // namespace

void AddNeighbours(store::Connection& main, const std::set<Side>& sides)
{
    // Neighbours refer to neighbours; which of them comes first must not matter.
    main.Execute(QStringLiteral("PRAGMA foreign_keys = OFF"));
    int away = Away;
    for (const Side side : sides) {
        const QString column = ColumnOf(side);
        if (side == Side::Year)
            Copy(main, "AcademicYearSetup", {column}, Away);
        if (side == Side::Exam)
            Copy(main, "ExamMaster", {column, QStringLiteral("ExamOrder")}, Away);
        if (side == Side::Class)
            Copy(main, "ClassDivisionMaster", {column}, Away);
        if (side == Side::Class || side == Side::Division)
            Copy(main, "ClassDivisionDetails", {column}, Away);
        for (const char* table : {"ClassSubjectTeacher", "RankMaster", "MarkMaster", "TempRankTotal"})
            if (ColumnsOf(main, QString::fromLatin1(table)).contains(column))
                Copy(main, table, {column}, Away);
        if (side == Side::Exam)
            continue;
        // A student is in one class a year: in another class it is another student, of the same name.
        if (side == Side::Year) {
            Copy(main, "StudentClassDivision", {column}, Away);
            continue;
        }
        away += Away;
        const QString student = QStringLiteral("StudentCode");
        Copy(main, "StudentMaster",
             {student, QStringLiteral("AdmissionNo"), QStringLiteral("OptionalAdmissionNo")}, away);
        main.Execute(
            QStringLiteral("INSERT INTO StudentClassDivision (StudentCode, AcademicYearCode, ClassCode, "
                           "DivisionCode, Status, UserCode) SELECT StudentCode + %1, AcademicYearCode, "
                           "ClassCode + %2, DivisionCode + %3, Status, UserCode FROM "
                           "StudentClassDivision WHERE StudentCode < %4 AND AcademicYearCode < %4")
                .arg(away)
                .arg(side == Side::Class ? Away : 0)
                .arg(side == Side::Division ? Away : 0)
                .arg(Away));
    }
    main.Execute(QStringLiteral("PRAGMA foreign_keys = ON"));
}

AllRows::AllRows(store::Connection& store)
{
    QStringList names;
    auto tables = store.Query(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table'"));
    while (tables.Next())
        names.append(tables.Text(0));
    for (const QString& name : names) {
        const QStringList columns = ColumnsOf(store, name);
        auto& rows = tables_[name];
        auto all = store.Query(QStringLiteral("SELECT * FROM ") + name);
        while (all.Next()) {
            Row row;
            for (int column = 0; column < columns.size(); ++column)
                row[columns.at(column)] = all.IsNull(column) ? QStringLiteral("NULL") : all.Text(column);
            rows.insert(std::move(row));
        }
    }
}

void AllRows::ExpectTouchedOnly(store::Connection& store, const char* table, const Row& scope) const
{
    const auto after = AllRows(store).tables_;
    ASSERT_EQ(after.size(), tables_.size()) << "a table came or went";
    for (const auto& [name, before] : tables_) {
        std::vector<Row> touched;
        std::set_symmetric_difference(before.begin(), before.end(), after.at(name).begin(),
                                      after.at(name).end(), std::back_inserter(touched));
        for (const Row& row : touched) {
            const bool own = name == QLatin1String(table) &&
                             std::all_of(scope.begin(), scope.end(), [&row](const auto& column) {
                                 return row.at(column.first) == column.second;
                             });
            EXPECT_TRUE(own) << name.toStdString() << ": " << ToText(row);
        }
    }
}

} // namespace tally::test
