#include "students/OptionalNumbers.h"

#include <algorithm>

namespace tally {

namespace {

const QString EnterNumber = QStringLiteral("Enter Optional Admission No.");
const QString NumberExists = QStringLiteral("Optional Admission No. Already Exists");

/// Numbers with the same key are the same number.
QString KeyOf(const QString& number)
{
    return number.trimmed().toLower();
}

QHash<QString, int> Holders(const CodedTexts& numbersOfStudents)
{
    QHash<QString, int> holders;
    holders.reserve(static_cast<qsizetype>(numbersOfStudents.size()));
    for (const auto& [student, number] : numbersOfStudents)
        holders.insert(KeyOf(number), student);
    return holders;
}

bool IsOfAnother(const QHash<QString, int>& holders, const QString& number, int studentCode)
{
    const auto holder = holders.constFind(KeyOf(number));
    return holder != holders.constEnd() && *holder != studentCode;
}

} // namespace

void OptionalNumbers::TakeSnapshot(const CodedTexts& numbersOfStudents)
{
    snapshot_ = Holders(numbersOfStudents);
}

void OptionalNumbers::List(const std::vector<NumberedStudent>& students)
{
    rows_.clear();
    for (const NumberedStudent& student : students)
        rows_.push_back({student, student.number});
}

GridTable OptionalNumbers::Table() const
{
    GridTable table({{QStringLiteral("S.No."), NumberAlignment},
                     {QStringLiteral("Student Name"), TextAlignment, false, true},
                     {QStringLiteral("Admission No."), NumberAlignment},
                     {QStringLiteral("Optional Admission No.")},
                     {QStringLiteral("StudentCode"), NumberAlignment, true}});
    table.Reserve(RowCount());
    for (int row = 1; row <= RowCount(); ++row)
        table.AddRow(Cells(row));
    return table;
}

GridTable::Row OptionalNumbers::Cells(int row) const
{
    const Row& entry = At(row);
    return {{QString::number(row)},
            {entry.student.name},
            {QString::number(entry.student.admissionNo)},
            {entry.number},
            {QString::number(entry.student.studentCode)}};
}

void OptionalNumbers::SetNumber(int row, const QString& text)
{
    rows_[static_cast<std::size_t>(row - 1)].number = text.trimmed();
}

NumberStep OptionalNumbers::Enter(int row, const QString& text)
{
    SetNumber(row, text);
    if (Number(row).isEmpty())
        return {row, EnterNumber};
    if (IsInAnotherRow(row, Number(row)) ||
        IsOfAnother(snapshot_, Number(row), At(row).student.studentCode)) {
        SetNumber(row, {});
        return {row, NumberExists};
    }
    return {row < RowCount() ? row + 1 : 0, {}};
}

CodedTexts OptionalNumbers::Changes() const
{
    CodedTexts changes;
    for (const Row& row : rows_)
        if (row.IsChanged())
            changes.emplace_back(row.student.studentCode, row.number);
    return changes;
}

std::optional<NumberStep> OptionalNumbers::FindFault(const CodedTexts& holders) const
{
    const QHash<QString, int> stored = Holders(holders);
    for (int row = 1; row <= RowCount(); ++row) {
        if (Number(row).isEmpty())
            return NumberStep{row, EnterNumber};
        if (At(row).IsChanged() && (IsOfAnother(stored, Number(row), At(row).student.studentCode) ||
                                    IsInAnotherRow(row, Number(row))))
            return NumberStep{row, NumberExists};
    }
    return {};
}

bool OptionalNumbers::IsInAnotherRow(int row, const QString& number) const
{
    const QString key = KeyOf(number);
    for (int other = 1; other <= RowCount(); ++other)
        if (other != row && KeyOf(Number(other)) == key)
            return true;
    return false;
}

} // namespace tally
