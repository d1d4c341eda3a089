#pragma once

#include "core/GridTable.h"

#include <QString>

#include <optional>
#include <vector>

namespace tally {

/// A class as the database keeps it.
struct ClassRecord
{
    int classCode = 0;
    QString className;
    int noOfDivisions = 0;
    int classOrder = 0; ///< 1 is the top class

    bool operator==(const ClassRecord&) const = default;
};

/// A division of a class. Its code is unique within the class only.
struct ClassDivision
{
    int classCode = 0;
    QString divisionName;
    int divisionCode = 0;

    bool operator==(const ClassDivision&) const = default;
};

/// One line of the class grid. What the user types stays text; a text without a number counts as 0.
struct ClassRow
{
    int serial = 0; ///< 0 while nothing was entered on the screen yet
    QString className;
    QString noOfDivisions;
    QString classOrder;
    int oldNoOfDivisions = 0; ///< the count for which the divisions were last made
    int oldDivision = 0;      ///< the count that was read from the database
    int classCode = 0;        ///< 0 for none yet

    bool IsNamed() const { return !className.trimmed().isEmpty(); }
    int Divisions() const { return noOfDivisions.toInt(); }
    int Order() const { return classOrder.toInt(); }
};

/// The columns of a class. The last three are hidden.
enum class ClassColumn : int
{
    Serial,
    ClassName,
    NoOfDivisions,
    ClassOrder,
    OldNoOfDivisions,
    OldDivision,
    ClassCode,
};

/// The columns of a division. The last one is hidden.
enum class DivisionColumn : int
{
    DivisionCode,
    DivisionName,
    ClassCode,
};

/// The name that the division with this code gets by itself: A to Z, then AA to AZ, BA to BZ, CA to CU
/// for 99.
QString DefaultDivisionName(int divisionCode);

/// All classes of the school with all their divisions, as they are edited together. Rows count from 1, as the
/// grid shows them below its head.
class ClassSectionGrid
{
public:
    /// One row less than the message about the limit says: the head of the grid counts as well.
    static constexpr int MostClasses = 98;

    /// One blank row and no divisions.
    void Clear();
    /// Takes over what the database holds, the classes in their order. False when they are more than the grid
    /// can hold: the first ones are there then, without any division.
    [[nodiscard]] bool Load(const std::vector<ClassRecord>& classes, std::vector<ClassDivision> divisions);
    /// The first row as it stands before anything was entered: serial number 1, class code 1.
    void StartFirstRow();

    int RowCount() const { return static_cast<int>(rows_.size()); }
    bool IsFull() const { return RowCount() >= MostClasses; }
    /// `row` from 1 to RowCount().
    ClassRow& Row(int row) { return rows_[static_cast<std::size_t>(row - 1)]; }
    const ClassRow& Row(int row) const { return rows_[static_cast<std::size_t>(row - 1)]; }
    /// The divisions of all classes, those of one class with the highest code first.
    const std::vector<ClassDivision>& Divisions() const { return divisions_; }

    /// All classes, and the divisions of one of them, as their grids show them.
    GridTable ClassTable() const;
    GridTable DivisionTable(int classCode) const;

    /// A blank row at the end with the next serial number and class code.
    void AddRow();
    /// Takes the class and its divisions out. The class that moves up into the first row gets the code 1,
    /// whatever it had.
    void DeleteRow(int row);

    /// Gives the class as many divisions as its row says, all with their default names.
    void LoadDivisions(int row);
    /// The number of divisions was typed: new divisions when it is another number than before.
    void SetNoOfDivisions(int row, const QString& text);
    /// The divisions of a class in the order of their codes.
    std::vector<ClassDivision> DivisionsOf(int classCode) const;
    void NameDivision(int classCode, int divisionCode, const QString& name);
    /// True when another division of the class, the last one only with `lastToo`, has this name.
    bool DivisionNameTaken(int classCode, int divisionCode, const QString& name, bool lastToo) const;
    /// True when another class has exactly this name.
    bool ClassNameTaken(int row, const QString& name) const;

    /// Moves every class that stands at the order of this row, or below it, behind this row, one after the
    /// other from the top of the grid. An order of 0 moves nothing.
    void ShiftClassOrders(int row);
    /// True when two classes stand at the same order.
    bool HasOrderTie() const;

    /// The row of a class; 0 for none.
    int FindClassRow(int classCode) const;
    int NextClassOrder() const;
    int MaxClassCode() const;
    /// True when the division is still among those of the screen.
    bool ArrayScan(int classCode, int divisionCode) const;
    /// True when a named class has this code.
    bool Grid2Scan(int classCode) const;

private:
    void Renumber();

    std::vector<ClassRow> rows_;
    std::vector<ClassDivision> divisions_;
};

/// Why the grid can't be saved as it stands.
struct ClassSectionFault
{
    QString message;
    ClassColumn column = ClassColumn::ClassName; ///< the field of the class that the message is about
    int row = 0;                                 ///< 0 when the class is not on the grid
};

/// The first fault of the grid in the order in which the office is told; none when it may be saved.
std::optional<ClassSectionFault> FindFault(const ClassSectionGrid& grid);

} // namespace tally
