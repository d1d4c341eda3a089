#include "ranks/TempRankRepository.h"

#include "core/school/CodesQuery.h"
#include "store/WorkingTable.h"

namespace tally {

namespace {

constexpr const char* TableName = "TempRankCalculation";

/// Columns of TempRankCalculation before and behind the subjects.
constexpr int FirstSubjectField = 5;
constexpr int FieldsBehindSubjects = 6;

store::WorkingTable TempRankCalculation(const std::vector<RankSubject>& subjects)
{
    store::WorkingTable table(TableName);
    table.Text("StudentName", 100).Text("AdmissionNo", 15).Text("Class", 4).Text("Division", 3);
    table.Whole("DivisionCode");
    for (const RankSubject& subject : subjects)
        table.TextOfData(subject.shortName + QLatin1Char('_'), 10);
    table.Decimal("Total").Decimal("Average").Whole("Rank").Text("Grade", 2).Decimal("RankTotal");
    table.Whole("StudentCode");
    return table;
}

void AppendRows(store::Statement& statement, TempRankTable& table)
{
    table.subjectCount =
        static_cast<std::size_t>(statement.ColumnCount() - FirstSubjectField - FieldsBehindSubjects);
    const int behind = FirstSubjectField + static_cast<int>(table.subjectCount);
    while (statement.Next()) {
        TempRankRow& row = table.rows.emplace_back();
        row.studentName = statement.Text(0);
        row.admissionNo = statement.Text(1);
        row.className = table.texts.Add(statement.Utf8(2));
        row.division = table.texts.Add(statement.Utf8(3));
        row.divisionCode = statement.Int(4);
        for (int field = FirstSubjectField; field < behind; ++field)
            table.marks.push_back(table.texts.Add(statement.Utf8(field)));
        row.total = statement.Double(behind);
        row.average = statement.Double(behind + 1);
        row.rank = statement.IsNull(behind + 2) ? NoRank : statement.Long(behind + 2);
        row.grade = table.texts.Add(statement.Utf8(behind + 3));
        row.rankTotal = statement.Double(behind + 4);
        row.studentCode = statement.Int(behind + 5);
    }
}

} // namespace

void TempRankRepository::FillTempRankCalculation(store::Transaction& temp, const RankList& list)
{
    const store::WorkingTable table = TempRankCalculation(list.subjects);
    table.Create(temp);

    const std::size_t subjectCount = list.subjects.size();
    const int behind = FirstSubjectField + static_cast<int>(subjectCount);
    store::Statement insert = table.Insert(temp);
    const QByteArray className = list.className.toUtf8();
    std::vector<QByteArray> divisionNames;
    for (const SchoolDivision& division : list.divisions)
        divisionNames.push_back(division.divisionName.toUtf8());
    std::vector<CellBuffer> texts(subjectCount);

    insert.BindStaticAt(3, {className.constData(), static_cast<std::size_t>(className.size())});
    for (std::size_t number = 0; number < list.rows.size(); ++number) {
        const RankRow& row = list.rows[number];
        const QByteArray& divisionName = divisionNames[row.division];
        insert.BindAt(1, row.studentName.trimmed());
        insert.BindAt(2, row.admissionNo);
        insert.BindStaticAt(4, {divisionName.constData(), static_cast<std::size_t>(divisionName.size())});
        insert.BindAt(5, static_cast<qint64>(list.divisions[row.division].divisionCode));
        for (std::size_t subject = 0; subject < subjectCount; ++subject) {
            insert.BindStaticAt(
                FirstSubjectField + 1 + static_cast<int>(subject),
                CellText(list.Cell(number, subject), list.markDecimals, true, texts[subject]));
        }
        insert.BindAt(behind + 1, row.total);
        insert.BindAt(behind + 2, row.average);
        insert.BindAt(behind + 3, row.rank == 0 ? NoRank : static_cast<qint64>(row.rank));
        // An absent student is neither graded nor left ungraded: the blank keeps such students out of both
        // groups.
        insert.BindAt(behind + 4, list.MarkedAbsent(number) ? QStringLiteral(" ") : row.grade);
        insert.BindAt(behind + 5, row.rankTotal);
        insert.BindAt(behind + 6, static_cast<qint64>(row.studentCode));
        insert.RunBound();
    }
}

void TempRankRepository::DropTempRankCalculation(store::Transaction& temp)
{
    store::WorkingTable::Drop(temp, TableName);
}

TempRankTable TempRankRepository::LoadTempRankCalculation(RankOrder order,
                                                          const std::vector<int>& divisionCodes)
{
    // Behind the order that the user picked, the student's code keeps equal rows in the same places every
    // time.
    const QString sql = QStringLiteral("SELECT * FROM TempRankCalculation");
    TempRankTable table;
    const auto load = [&](store::Statement rows) { AppendRows(rows, table); };
    switch (order) {
    case RankOrder::Rank: load(temp_.Query(sql + QLatin1String(" ORDER BY Rank, Total, StudentCode"))); break;
    case RankOrder::Grade:
        load(QueryCodes(temp_,
                        sql + QLatin1String(" WHERE Grade IS NOT NULL AND DivisionCode IN (%1) "
                                            "ORDER BY Rank, Total, StudentCode"),
                        divisionCodes));
        break;
    case RankOrder::AdmissionNo:
        load(temp_.Query(sql + QLatin1String(" ORDER BY AdmissionNo, StudentCode")));
        break;
    case RankOrder::Alphabetical:
        load(temp_.Query(sql + QLatin1String(" ORDER BY StudentName, StudentCode")));
        break;
    }
    return table;
}

void TempRankRepository::AppendRowsWithoutGrade(TempRankTable& table)
{
    store::Statement rows =
        temp_.Query(QStringLiteral("SELECT * FROM TempRankCalculation WHERE Grade IS NULL"));
    AppendRows(rows, table);
}

std::vector<RankTotal> TempRankRepository::LoadRankTotals()
{
    std::vector<RankTotal> totals;
    store::Statement rows = temp_.Query(QStringLiteral(
        "SELECT StudentCode, DivisionCode, RankTotal, Average, Rank, Grade FROM TempRankCalculation"));
    while (rows.Next())
        totals.push_back({rows.Int(0), rows.Int(1), rows.Double(2), rows.Double(3),
                          rows.IsNull(4) ? std::nullopt : std::optional(rows.Long(4)), rows.Text(5)});
    return totals;
}

} // namespace tally
