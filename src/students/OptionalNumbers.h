#pragma once

#include "core/CodedTexts.h"
#include "core/GridTable.h"

#include <QHash>

#include <optional>
#include <vector>

namespace tally {

/// A student whose optional admission number is being changed.
struct NumberedStudent
{
    int studentCode = 0;
    QString name;
    int admissionNo = 0;
    QString number; ///< OptionalAdmissionNo as it is stored
};

/// The columns of the sheet. The code is hidden.
enum class NumberColumn : int
{
    Serial,
    Name,
    AdmissionNo,
    Number,
    Code,
};

/// Where the entry goes on, and what the clerk is told before. An empty message: nothing.
struct NumberStep
{
    int row = 0; ///< from 1; 0: every row is entered, and Save comes next
    QString message;
};

/// The optional admission numbers of a class-division while they are changed. Numbers that differ in small
/// letters and capitals alone are the same, and blanks around one do not count. Rows count from 1, as the
/// grid shows them below its head.
class OptionalNumbers
{
public:
    /// The numbers of all students of the school as they were at one moment, so that no key has to wait for
    /// the store.
    void TakeSnapshot(const CodedTexts& numbersOfStudents);
    void List(const std::vector<NumberedStudent>& students);
    /// No rows. The snapshot stays.
    void Clear() { rows_.clear(); }

    int RowCount() const { return static_cast<int>(rows_.size()); }
    bool HasRow(int row) const { return row >= 1 && row <= RowCount(); }
    /// `row` from 1 to RowCount().
    const QString& Number(int row) const { return At(row).number; }
    GridTable Table() const;
    GridTable::Row Cells(int row) const;

    void SetNumber(int row, const QString& text);
    /// A number was ended with Enter. One that another student has is taken out of the row, which the entry
    /// stays in then.
    NumberStep Enter(int row, const QString& text);

    /// The rows whose number is another one than the stored one.
    CodedTexts Changes() const;
    /// The first reason why the numbers can't be stored. `holders` are the students who have one of the
    /// numbers of Changes(), with that number.
    std::optional<NumberStep> FindFault(const CodedTexts& holders) const;

private:
    struct Row
    {
        NumberedStudent student;
        QString number;

        bool IsChanged() const { return number != student.number; }
    };

    const Row& At(int row) const { return rows_[static_cast<std::size_t>(row - 1)]; }
    bool IsInAnotherRow(int row, const QString& number) const;

    std::vector<Row> rows_;
    QHash<QString, int> snapshot_; ///< who has a number
};

} // namespace tally
