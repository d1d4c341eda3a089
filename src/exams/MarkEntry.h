#pragma once

#include "exams/MarkRepository.h"
#include "exams/MarkSheet.h"

namespace tally {

/// What the clerk is told of a class-division without students, and of one without subjects.
inline const QString NoStudents =
    QStringLiteral("Student Admission Entry Is Not Made For The Selected Class-Division");
inline const QString NoSubjects =
    QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Selected Class-Division");

/// What a mode gives to choose from.
struct MarkChoices
{
    CodedTexts entries; ///< the subjects, or the students
    QString noEntry;    ///< what the clerk is told where there is none of them; else empty
    QString noRow;      ///< the same of the rows of the sheet
};

/// The sheet of the mark screen with what is read for it. It keeps no connection: the main file may be closed
/// and opened anew while marks are being entered. Throws StoreError; then all is as it was.
class MarkEntry
{
public:
    MarkSheet& Sheet() { return sheet_; }
    const MarkSheet& Sheet() const { return sheet_; }
    /// The subject or student that was chosen last has marks in this exam.
    bool MarksExist() const { return marksExist_; }
    void ForgetMarks() { marksExist_ = false; }

    /// The rows of the mode, nothing entered, and what they can be entered for.
    MarkChoices List(store::Connection& main, const SchoolScope& scope);
    /// The stored marks of the subject or student come into the rows. False for a subject that the class has
    /// given up meanwhile: the rows stay to be looked at, but their marks are not those of this subject, and
    /// an edit must not replace its marks by them.
    bool Choose(store::Connection& main, const SchoolScope& scope, int code);
    /// The rows of the subject anew, without the relieved students: who was relieved has no place in a list
    /// that is edited, and his marks go with the next save.
    void ListForEdit(store::Connection& main, const SchoolScope& scope, int subjectCode);
    /// The sheet goes by the limits and teachers that are stored by now. Throws a StoreError with
    /// IsConflict() where the class-division has given up a subject meanwhile, unless `editing` mends marks
    /// of it that are stored.
    void TakeLimits(store::Connection& main, const SchoolScope& scope, int chosenCode, bool editing);
    /// What the class-division lacks for a save; empty for nothing.
    static QString Missing(store::Connection& main, const SchoolScope& scope);

private:
    /// `subject` brings its limits and its teacher; none in student mode, and for a subject that the class
    /// has given up, where those shown before stay.
    void Take(const std::optional<MarkSubject>& subject, const std::vector<StoredMark>& stored);

    MarkSheet sheet_;
    bool marksExist_ = false;
};

} // namespace tally
