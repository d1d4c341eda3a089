#include "support/Neighbours.h"

#include "store/Transaction.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

namespace tally::test {

namespace {

/// Higher than any code that a test lays down.
constexpr int Away = 10000;
const QString NextDoor = QStringLiteral("Next door");

QStringList ColumnsOf(store::Connection& store, const QString& table)
{
    QStringList columns;
    auto rows = store.Query(QStringLiteral("PRAGMA table_info(%1)").arg(table));
    while (rows.Next())
        columns.append(rows.Text(1));
    return columns;
}

/// Copies the own rows of a table, or those of another source with its columns, with these columns taken
/// `away`. What a neighbour has already stays.
void Copy(store::Connection& store, const char* table, const QStringList& changed, int away,
          const QString& source = {})
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
    store.Execute(QStringLiteral("INSERT OR IGNORE INTO %1 (%2) SELECT %3 FROM %6 WHERE %4 AND %5 > 0")
                      .arg(name, columns.join(QLatin1String(", ")), values.join(QLatin1String(", ")),
                           own.join(QLatin1String(" AND ")), key, source.isEmpty() ? name : source));
}

/// The marks of all students in all subjects, and their totals, whether they are entered or not.
const QString PossibleMarks = QStringLiteral(
    "(SELECT a.AcademicYearCode, a.StudentCode, e.ExamCode, a.ClassCode, a.DivisionCode, s.SubjectCode,"
    " 77 AS Mark, 'P' AS LeaveOrPresent, 0 AS TeacherCode, 0 AS UserCode"
    " FROM StudentClassDivision a, ExamMaster e, ClassSubjectTeacher s"
    " WHERE s.AcademicYearCode = a.AcademicYearCode AND s.ClassCode = a.ClassCode"
    " AND s.DivisionCode = a.DivisionCode)");
const QString PossibleTotals = QStringLiteral(
    "(SELECT a.StudentCode, a.AcademicYearCode, e.ExamCode, a.ClassCode, a.DivisionCode, 77 AS Total, 77 AS "
    "Average, 7 AS Rank, 'N' AS Grade FROM StudentClassDivision a, ExamMaster e)");

void CopyMasters(store::Connection& main, Side side, const QString& column)
{
    if (side == Side::Year)
        Copy(main, "AcademicYearSetup", {column}, Away);
    if (side == Side::Exam)
        Copy(main, "ExamMaster", {column, QStringLiteral("ExamOrder")}, Away);
    if (side == Side::Class)
        Copy(main, "ClassDivisionMaster", {column}, Away);
    if (side == Side::Class || side == Side::Division)
        Copy(main, "ClassDivisionDetails", {column}, Away);
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

bool IsNeighbours(const AllRows::Row& row)
{
    return std::any_of(row.begin(), row.end(), [](const auto& value) {
        const bool isCode =
            value.first.endsWith(QLatin1String("Code")) && !value.first.endsWith(QLatin1String("PinCode"));
        const int code = isCode ? value.second.toInt() : 0;
        return code >= Away || code == -1 || value.second == NextDoor;
    });
}

std::string ToText(const AllRows::Row& row)
{
    QString text;
    for (const auto& [column, value] : row)
        text += column + QLatin1Char('=') + value + QLatin1Char(' ');
    return text.toStdString();
}

} // namespace

void AddNeighbours(store::Connection& main, const std::set<Side>& sides, Listed listed)
{
    // Neighbours refer to neighbours; which of them comes first must not matter.
    main.Execute(QStringLiteral("PRAGMA foreign_keys = OFF"));
    store::Transaction transaction(main);
    int away = Away;
    for (const Side side : sides) {
        const QString column = ColumnOf(side);
        if (listed == Listed::Yes)
            CopyMasters(main, side, column);
        for (const char* table : {"ClassSubjectTeacher", "RankMaster", "MarkMaster", "TempRankTotal"})
            if (ColumnsOf(main, QString::fromLatin1(table)).contains(column))
                Copy(main, table, {column}, Away);
        if (listed == Listed::No) {
            Copy(main, "MarkMaster", {column}, Away, PossibleMarks);
            Copy(main, "TempRankTotal", {column}, Away, PossibleTotals);
        }
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
    transaction.Commit();
    main.Execute(QStringLiteral("PRAGMA foreign_keys = ON"));
}

void AddOthers(store::Connection& main, store::Connection& temp)
{
    for (const char* row :
         {"StateMaster VALUES (-1, ?1, 0)", "CityMaster VALUES (-1, -1, ?1, 0)",
          "BloodGroupMaster VALUES (-1, 'Next', 0)", "SubjectMaster VALUES (-1, ?1, 'Next', 0)",
          ("TeacherMaster (TeacherCode, TeacherName, TeacherShortName, CityCode, BloodGroupCode) "
           "VALUES (-1, ?1, 'Nxt', -1, -1)"),
          "UserMaster VALUES (-1, ?1, 0)", "ClassDivisionMaster VALUES (-1, 'Next', 2, 7, 0)",
          "ClassDivisionDetails VALUES (-1, 'N1', 1)", "ClassDivisionDetails VALUES (-1, 'N2', 2)",
          "AcademicYearSetup VALUES (-1, 1990, 1991, '1990-06-01', '1991-05-31', 'N', 'N', 0)",
          ("StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo, AcademicYearCode, StudentName, "
           "CityCode, BloodGroupCode, TCNo) VALUES (-1, NULL, ?1, -1, ?1, -1, -1, '')"),
          "TransactionMaster VALUES (-1, '1990-06-01', -1, -1, 0, 'N', 0)",
          "FeesSetup VALUES (-1, -1, ?1, 0, 0)"}) {
        const QString insert = QLatin1String("INSERT INTO ") + QLatin1String(row);
        if (insert.contains(QLatin1String("?1")))
            main.Execute(insert, NextDoor);
        else
            main.Execute(insert);
    }
    temp.Execute(QStringLiteral("INSERT INTO Options VALUES ('Y', -1)"));
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

RowsOfOthers::RowsOfOthers(store::Connection& store) : rows_(store)
{
    for (auto& [name, rows] : rows_.tables_) {
        const QString key = ColumnsOf(store, name).first();
        std::erase_if(rows, [&key](const AllRows::Row& row) {
            const bool standsForNone =
                key.endsWith(QLatin1String("Code")) && row.at(key) == QLatin1String("0");
            return !standsForNone && !IsNeighbours(row);
        });
    }
}

void RowsOfOthers::ExpectUntouched(store::Connection& store) const
{
    const AllRows all(store);
    for (const auto& [name, before] : rows_.tables_) {
        const auto found = all.tables_.find(name);
        if (found == all.tables_.end())
            continue;
        const auto& after = found->second;
        for (const AllRows::Row& row : before)
            EXPECT_EQ(after.count(row), before.count(row)) << name.toStdString() << " lost " << ToText(row);
        for (const AllRows::Row& row : after)
            EXPECT_TRUE(!IsNeighbours(row) || before.count(row) > 0)
                << name.toStdString() << " has got " << ToText(row);
    }
}

} // namespace tally::test
