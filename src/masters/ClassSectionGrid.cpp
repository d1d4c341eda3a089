#include "masters/ClassSectionGrid.h"

#include <algorithm>

namespace tally {

namespace {

constexpr int Letters = 26;

/// Numbers that stand for nothing show as nothing.
QString Shown(int number)
{
    return number == 0 ? QString() : QString::number(number);
}

} // namespace

QString DefaultDivisionName(int divisionCode)
{
    const int index = divisionCode - 1;
    const QChar letter(u'A' + index % Letters);
    return index < Letters ? QString(letter) : QString(QChar(u'A' + index / Letters - 1)) + letter;
}

void ClassSectionGrid::Clear()
{
    rows_.assign(1, {});
    divisions_.clear();
}

bool ClassSectionGrid::Load(const std::vector<ClassRecord>& classes, std::vector<ClassDivision> divisions)
{
    rows_.clear();
    divisions_.clear();
    for (const ClassRecord& record : classes) {
        if (IsFull())
            return false;
        ClassRow& row = rows_.emplace_back();
        row.serial = RowCount();
        row.className = record.className;
        row.noOfDivisions = QString::number(record.noOfDivisions);
        row.classOrder = QString::number(record.classOrder);
        row.oldNoOfDivisions = record.noOfDivisions;
        row.oldDivision = record.noOfDivisions;
        row.classCode = record.classCode;
    }
    divisions_ = std::move(divisions);
    return true;
}

void ClassSectionGrid::StartFirstRow()
{
    if (rows_.empty())
        rows_.emplace_back();
    rows_.front().serial = 1;
    rows_.front().classCode = 1;
}

GridTable ClassSectionGrid::ClassTable() const
{
    GridTable table({{QStringLiteral("S.No"), NumberAlignment},
                     {.head = QStringLiteral("Class Name"), .stretched = true},
                     {QStringLiteral("No. Of Divisions"), NumberAlignment},
                     {QStringLiteral("Class Order"), NumberAlignment},
                     {.head = QStringLiteral("OldNoofdivisions"), .hidden = true},
                     {.head = QStringLiteral("OldDivision"), .hidden = true},
                     {.head = QStringLiteral("Classcode"), .hidden = true}});
    for (const ClassRow& row : rows_)
        table.AddRow({{Shown(row.serial)},
                      {row.className},
                      {row.noOfDivisions},
                      {row.classOrder},
                      {QString::number(row.oldNoOfDivisions)},
                      {QString::number(row.oldDivision)},
                      {Shown(row.classCode)}});
    return table;
}

GridTable ClassSectionGrid::DivisionTable(int classCode) const
{
    GridTable table({{QStringLiteral("Sl.No."), NumberAlignment},
                     {.head = QStringLiteral("Division Name"), .stretched = true},
                     {.head = QStringLiteral("ClassCode"), .hidden = true}});
    for (const ClassDivision& division : DivisionsOf(classCode))
        table.AddRow({{QString::number(division.divisionCode)},
                      {division.divisionName},
                      {QString::number(division.classCode)}});
    return table;
}

void ClassSectionGrid::AddRow()
{
    const int classCode = MaxClassCode() + 1;
    ClassRow& row = rows_.emplace_back();
    row.serial = RowCount();
    row.classCode = classCode;
}

void ClassSectionGrid::DeleteRow(int row)
{
    if (RowCount() == 1)
        rows_.emplace_back();
    Row(row).noOfDivisions.clear();
    LoadDivisions(row);
    rows_.erase(rows_.begin() + (row - 1));
    if (row == 1)
        Row(1).classCode = 1;
    Renumber();
}

void ClassSectionGrid::Renumber()
{
    int serial = 0;
    for (ClassRow& row : rows_)
        row.serial = ++serial;
}

void ClassSectionGrid::LoadDivisions(int row)
{
    const int classCode = Row(row).classCode;
    divisions_.erase(std::remove_if(divisions_.begin(), divisions_.end(),
                                    [classCode](const ClassDivision& division) {
                                        return division.classCode == classCode;
                                    }),
                     divisions_.end());
    for (int code = Row(row).Divisions(); code >= 1; --code)
        divisions_.push_back({classCode, DefaultDivisionName(code), code});
}

void ClassSectionGrid::SetNoOfDivisions(int row, const QString& text)
{
    ClassRow& entry = Row(row);
    entry.noOfDivisions = text;
    if (entry.Divisions() != 0 && entry.Divisions() == entry.oldNoOfDivisions)
        return;
    LoadDivisions(row);
    entry.oldNoOfDivisions = entry.Divisions();
}

std::vector<ClassDivision> ClassSectionGrid::DivisionsOf(int classCode) const
{
    std::vector<ClassDivision> found;
    std::copy_if(divisions_.rbegin(), divisions_.rend(), std::back_inserter(found),
                 [classCode](const ClassDivision& division) { return division.classCode == classCode; });
    return found;
}

void ClassSectionGrid::NameDivision(int classCode, int divisionCode, const QString& name)
{
    for (ClassDivision& division : divisions_)
        if (division.classCode == classCode && division.divisionCode == divisionCode)
            division.divisionName = name;
}

bool ClassSectionGrid::DivisionNameTaken(int classCode, int divisionCode, const QString& name,
                                         bool lastToo) const
{
    const std::vector<ClassDivision> divisions = DivisionsOf(classCode);
    const auto end = divisions.end() - (lastToo || divisions.empty() ? 0 : 1);
    return std::any_of(divisions.begin(), end, [&](const ClassDivision& division) {
        return division.divisionCode != divisionCode && division.divisionName.trimmed() == name;
    });
}

bool ClassSectionGrid::ClassNameTaken(int row, const QString& name) const
{
    for (int other = 1; other <= RowCount(); ++other)
        if (other != row && Row(other).className.trimmed() == name)
            return true;
    return false;
}

void ClassSectionGrid::ShiftClassOrders(int row)
{
    const int taken = Row(row).Order();
    if (taken == 0)
        return;
    int next = taken;
    for (int other = 1; other <= RowCount(); ++other)
        if (other != row && Row(other).Order() >= taken)
            Row(other).classOrder = QString::number(++next);
}

bool ClassSectionGrid::HasOrderTie() const
{
    std::vector<int> orders;
    for (const ClassRow& row : rows_)
        orders.push_back(row.Order());
    std::sort(orders.begin(), orders.end());
    return std::adjacent_find(orders.begin(), orders.end()) != orders.end();
}

int ClassSectionGrid::FindClassRow(int classCode) const
{
    for (int row = 1; row <= RowCount(); ++row)
        if (Row(row).classCode == classCode)
            return row;
    return 0;
}

int ClassSectionGrid::NextClassOrder() const
{
    int highest = 0;
    for (const ClassRow& row : rows_)
        highest = std::max(highest, row.Order());
    return highest + 1;
}

int ClassSectionGrid::MaxClassCode() const
{
    int highest = 0;
    for (const ClassRow& row : rows_)
        highest = std::max(highest, row.classCode);
    return highest;
}

bool ClassSectionGrid::ArrayScan(int classCode, int divisionCode) const
{
    return std::any_of(divisions_.begin(), divisions_.end(), [&](const ClassDivision& division) {
        return division.classCode == classCode && division.divisionCode == divisionCode;
    });
}

bool ClassSectionGrid::Grid2Scan(int classCode) const
{
    return std::any_of(rows_.begin(), rows_.end(), [classCode](const ClassRow& row) {
        return row.classCode == classCode && row.IsNamed();
    });
}

} // namespace tally
