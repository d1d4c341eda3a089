#pragma once

#include "core/CodedTexts.h"
#include "core/GridTable.h"
#include "exams/SubjectSetup.h"

#include <QString>

#include <optional>
#include <vector>

namespace tally {

/// The columns of the sheet. Those behind the order are hidden.
enum class SubjectColumn : int
{
    Serial,
    Subject,
    Teacher,
    MaximumMark,
    MaximumAllowed,
    TakenForRank,
    Order,
    SubjectCode,
    TeacherCode,
};

/// One line of the sheet. What the user types stays text; what was not entered yet is empty.
struct SubjectRow
{
    QString subjectName;
    int subjectCode = 0; ///< 0 for a name that no subject has
    QString teacherName;
    int teacherCode = 0; ///< 0 for a name that no teacher has
    QString maximumMark;
    QString maximumAllowed;
    QString takenForRank; ///< YesText, NoText or empty
    QString order;
    bool stored = false; ///< it was read, not entered

    bool IsNamed() const { return !subjectName.trimmed().isEmpty(); }
    /// Nothing stands in it.
    bool IsBlank() const;
    double MaximumMark() const;
    double MaximumAllowed() const;
    int Order() const { return order.toInt(); }
};

/// Where the entry goes on, and what the clerk is told before. An empty message: nothing.
struct SubjectStep
{
    SubjectColumn column = SubjectColumn::Subject;
    int row = 0; ///< from 1; 0: the entry stays where it is
    QString message;
};

/// That a subject with marks can't be taken out of a set.
inline const QString SubjectsHaveMarks =
    QStringLiteral("Already Marks Are Entered For This Class-Division-Subject(s). So You Can't Delete");
/// That only two fields of a subject with marks can be changed.
inline const QString SubjectIsFrozen =
    QStringLiteral("Already Marks Are Entered For This Subject\r\nYou Can Edit Only 'Maximum Allowed' And "
                   "'Taken For Rank' Fields");
/// That a mark stands above the highest one that is to be allowed.
QString BelowEnteredMark(double highest);

/// The subjects of one class-division while they are set up. Rows count from 1, as the grid shows them below
/// its head. The last row is where the next subject goes. A row that was read, and whose subject has marks,
/// is frozen: it opens only the maximum allowed and whether it is taken for rank.
class SubjectSetupSheet
{
public:
    SubjectSetupSheet() { Clear(); }

    /// One blank row, no marks.
    void Clear();
    /// What is stored, and a blank row behind it.
    void Load(const std::vector<TaughtSubject>& subjects, const MarksBySubject& marks);
    /// Marks that were entered meanwhile.
    void TakeMarks(const MarksBySubject& marks) { marks_ = marks; }
    /// What marks freeze of the subjects that are stored becomes what it is there, also where a row was taken
    /// out or has got another subject. What can still be entered stays as it was typed, as far as the maximum
    /// mark goes.
    void PutBackFrozen(const std::vector<TaughtSubject>& stored);
    /// Other names of subjects and teachers that have kept their codes.
    void RenameSubjects(const CodedTexts& subjects);
    void RenameTeachers(const CodedTexts& teachers);

    int RowCount() const { return static_cast<int>(rows_.size()); }
    bool HasRow(int row) const { return row >= 1 && row <= RowCount(); }
    /// Nothing is entered.
    bool IsBlank() const;
    /// `row` from 1 to RowCount().
    const SubjectRow& Row(int row) const { return rows_[static_cast<std::size_t>(row - 1)]; }
    /// The row of a subject; 0 for none.
    int FindRow(int subjectCode) const;

    /// The sheet as its grid shows it.
    GridTable Table() const;
    GridTable::Row Cells(int row) const;
    /// What the marks of the subjects are out of together, those left out that are not taken for rank.
    double TotalMark() const;

    /// The subject of the row has marks, so that it can't be taken out.
    bool HasMarks(int row) const { return marks_.count(Row(row).subjectCode) > 0; }
    bool IsFrozen(int row) const { return Row(row).stored && HasMarks(row); }
    /// Whether a cell can be entered at all. A row without a subject gets that first.
    bool Opens(int row, SubjectColumn column) const;
    /// Why a click on a cell opens nothing; empty where that needs no word, and where it opens.
    QString RefusalToOpen(int row, SubjectColumn column) const;
    /// The first cell of a row that can be entered.
    SubjectColumn FirstOpen(int row) const;

    /// A subject by its text; code 0 where no subject has this name. Blanks empty the subject.
    void SetSubject(int row, int code, const QString& name);
    /// Why the row can't have its subject, which it then loses; empty when it can.
    QString DropRepeatedSubject(int row);
    void SetTeacher(int row, int code, const QString& name);
    /// The mark that a text begins with. As much is allowed from then on.
    void SetMaximumMark(int row, const QString& text);
    /// Gives why the number can't be, and then none is allowed.
    QString SetMaximumAllowed(int row, const QString& text);
    /// Why the number can't be allowed beside marks that were entered; empty when it can.
    QString RefusalOfMaximumAllowed(int row) const;
    /// "Y..." up to "Yes" and "N..." up to "No", small letters too, and blanks; any other text changes
    /// nothing.
    void SetTakenForRank(int row, const QString& text);
    /// Why this can't stand in the box; empty when it can.
    static QString RefusalOfRank(const QString& text);
    void SetOrder(int row, const QString& text);
    /// Why the row can't have its order beside a named row, and the row then has none; empty when it can.
    QString DropRepeatedOrder(int row);
    /// Everything of a row as it was in `before`.
    void PutBack(int row, const SubjectRow& before);

    /// Fields were ended with Enter. Each leads to the next cell that can be entered.
    SubjectStep EnterSubject(int row);
    SubjectStep EnterTeacher(int row) const;
    SubjectStep EnterMaximumMark(int row) const;
    SubjectStep EnterMaximumAllowed(int row);
    SubjectStep EnterTakenForRank(int row, const QString& text);
    /// On the last row a blank one comes behind it.
    SubjectStep EnterOrder(int row);

    /// Takes a row out. A blank one always stays at the end.
    void DeleteRow(int row);

    /// The first reason why the sheet can't be saved, with the row that it is about.
    std::optional<SubjectStep> FindFault() const;
    /// All named rows.
    std::vector<TaughtSubject> Subjects() const;

private:
    SubjectRow& At(int row) { return rows_[static_cast<std::size_t>(row - 1)]; }
    double HighestMark(int row) const;
    /// Another row, a named one only with `namedOnly`, has the order of this one.
    bool OrderIsRepeated(int row, bool namedOnly) const;
    int RowWithOrderOf(int row) const;
    bool IsComplete(int row) const;
    /// The cell behind this one that can be entered, in this row or in the next one.
    SubjectStep Behind(int row, SubjectColumn column) const;
    void EndInBlankRow();

    std::vector<SubjectRow> rows_;
    MarksBySubject marks_;
};

} // namespace tally
