#pragma once

#include "core/CodedTexts.h"
#include "core/GridTable.h"
#include "exams/MarkTypes.h"

#include <optional>
#include <vector>

namespace tally {

/// The two texts of a presence.
inline const QString PresentText = QStringLiteral("Present");
inline const QString AbsentText = QStringLiteral("Absent");

/// One line of the sheet. What was not entered yet is empty.
struct MarkRow
{
    QString name;              ///< of the student or the subject
    int code = 0;              ///< of the student in subject mode, of the subject in student mode
    QString mark;              ///< a number as text
    QString presence;          ///< PresentText or AbsentText
    int teacherCode = 0;       ///< 0: no teacher
    double maximumAllowed = 0; ///< student mode only
    double maximumMark = 0;    ///< student mode only

    double Mark() const;
    bool IsAbsent() const;
};

/// The columns of the sheet. Those behind the presence are hidden.
enum class MarkColumn : int
{
    Serial,
    Name,
    Mark,
    Presence,
    Code,
    MaximumAllowed,
    TeacherCode,
    MaximumMark,
};

/// Where the entry goes on, and what the clerk is told before. An empty message: nothing.
struct MarkStep
{
    MarkColumn column = MarkColumn::Mark; ///< or the presence
    int row = 0;                          ///< from 1; 0: every row is entered, and Save comes next
    QString message;
};

/// The marks of one subject or of one student while they are entered. Rows count from 1, as the grid shows
/// them below its head.
class MarkSheet
{
public:
    MarkMode Mode() const { return mode_; }
    int RowCount() const { return static_cast<int>(rows_.size()); }
    bool HasRow(int row) const { return row >= 1 && row <= RowCount(); }
    /// `row` from 1 to RowCount().
    const MarkRow& Row(int row) const { return rows_[static_cast<std::size_t>(row - 1)]; }
    /// The limits of the chosen subject, in subject mode. They outlive the choice.
    double MaximumAllowed() const { return maximumAllowed_; }
    double MaximumMark() const { return maximumMark_; }

    /// The sheet as its grid shows it, with one blank row behind the rows.
    GridTable Table() const;
    GridTable::Row Cells(int row) const;

    /// No rows.
    void Clear();
    void UseMode(MarkMode mode);
    /// A row per student, everybody present.
    void ListStudents(const CodedTexts& students);
    /// The same for a list that was shown before: whoever was in it keeps the teacher.
    void ListStudentsAgain(const CodedTexts& students);
    /// A row per subject, nothing entered.
    void ListSubjects(const std::vector<MarkSubject>& subjects);

    /// Nothing is chosen in the list: no row has a mark or a presence.
    void EmptyMarks();
    /// A subject is chosen: no marks yet, everybody present, its limits and its teacher for all rows.
    void StartSubject(const MarkSubject& subject);
    /// A student is chosen: no marks yet, present in every subject.
    void StartStudent() { ResetMarks(); }
    /// The limits and teachers as the class-division has them by now; what was entered stays. Gives the
    /// subjects that it takes no more, which keep theirs.
    std::vector<int> TakeLimits(const std::vector<MarkSubject>& subjects, int chosenCode);
    /// Puts stored marks into their rows. One without a row is passed over.
    void TakeMarks(const std::vector<StoredMark>& marks);

    /// Why the mark that stands in the box can't be one of this row; empty when it can.
    QString RefusalWhileTyping(int row, const QString& text) const;
    /// The number that the text begins with, 0 for none, becomes the mark.
    void SetMark(int row, const QString& text);
    /// "P..." is present, "A..." absent, small letters too.
    static bool IsPresence(const QString& text);
    /// Any other text is kept as nothing entered.
    void SetPresence(int row, const QString& text);
    /// Mark and presence of a row as they were in `before`.
    void PutBack(int row, const MarkRow& before);
    /// A mark was ended with Enter. A mark above 0 makes the student present; a mark of 0 has to be declared.
    MarkStep EnterMark(int row, const QString& text);
    /// A presence was ended with Enter. A text that is none changes nothing and leads back to the presence.
    MarkStep EnterPresence(int row, const QString& text);

    /// The percentage of all marks together, absences left out, as it is shown; empty while there is none.
    QString Average() const;
    /// The first reason why the sheet can't be saved.
    std::optional<MarkStep> FindFault() const;
    /// The first mark above what its subject allows.
    std::optional<MarkStep> FindMarkAboveLimit() const;
    /// All rows for the subject or the student that is chosen.
    std::vector<MarkRecord> Records(int chosenCode) const;

private:
    void ResetMarks();
    MarkRow* Find(int code);
    MarkRow& At(int row) { return rows_[static_cast<std::size_t>(row - 1)]; }
    MarkStep Behind(int row) const;
    double LimitOf(int row) const;
    void TakeLimits(MarkRow& row, const MarkSubject& subject);

    MarkMode mode_ = MarkMode::Subject;
    QString nameHead_ = QStringLiteral("Student  Name"); ///< until a mode is used
    std::vector<MarkRow> rows_;
    double maximumAllowed_ = 0;
    double maximumMark_ = 0;
};

} // namespace tally
