#pragma once

#include "core/ui/controls/FloatingCombo.h"
#include "core/ui/controls/FloatingEditor.h"
#include "exams/frmexammarkentry.h"
#include "support/FormDriver.h"
#include "support/TestSchool.h"

#include <QComboBox>
#include <QLabel>

#include <string>

namespace tally::test {

inline const QString AlreadyEntered = QStringLiteral(
    "Marks Are Already Entered For This Subject. Do You Want To View/Edit/Delete The Details ?");
inline const QString AlreadyEnteredForStudent = QStringLiteral(
    "Marks Are Already Entered For This Student. Do You Want To View/Edit/Delete The Details ?");
inline const QString SameAgain =
    QStringLiteral("Do You Want To Enter Marks For The Same 'Exam-Class-Division' ?");
inline const QString MasterIsGone =
    QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");
inline const QString AboveFiftyText =
    QStringLiteral("Entered Mark Should Not Exceed Maximum Allowed Mark : 50");
inline const QString NoStudentsText =
    QStringLiteral("Student Admission Entry Is Not Made For The Selected Class-Division");
inline const QString NoSubjectsText =
    QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Selected Class-Division");

/// What EnabledControls gives of the screen while marks are looked up, entered, and found stored.
inline const std::string Browse = "Frame1 dbcSubject cmdNew cmdCancel cmdExit";
inline const std::string New = "Frame1 dbcSubject fraMain cmdSave cmdCancel cmdExit";
inline const std::string Found = "Frame1 dbcSubject cmdEdit cmdDelete cmdCancel cmdExit";

/// The mark screen over a division X A of exam "Term One". English (code 1, allowed 50 out of 100) and Maths
/// (code 2, allowed 100 out of 100) come in the order Maths, English; Eng's teacher is 7, Maths' is 8.
class MarkScreen : public FormDriver<frmexammarkentry>
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// To the division.
    void AddStudents(int count);
    void GivenRelieved(int studentCode);
    /// How many marks of the division are stored.
    qint64 Marks();

    /// With neighbours on all sides of what the test has laid down by then.
    void OpenForm();
    /// The same, and New is pressed.
    void OpenNew();
    /// The object name of the control with the focus.
    std::string Focus() const;
    /// The buttons, frames and lists that are enabled, in reading order.
    std::string EnabledControls();

    /// The entries of a list, from the top, with bars between them.
    static std::string Entries(const QComboBox* list);
    void ChooseClassDivision();
    /// New, with everything chosen; the focus is on the first mark.
    void StartSubject(const QString& subject);
    void StartStudent(const QString& student);
    /// Chooses a subject with marks and says Yes to looking at them.
    void ShowStoredSubject(const QString& subject);
    /// The same for a student.
    void ShowStoredStudent(const QString& student);

    void Click(int row, int col) { FormDriver::Click(grid, row, col); }
    void Paste(const QString& text);

    /// The cells of the visible columns and the text of the average.
    std::string RowText(int row) const;
    std::string Rows() const;
    std::string Average() const { return average->text().toStdString(); }
    /// "student subject mark P teacher user" of each stored row.
    std::string Stored();

    std::unique_ptr<TestSchool> school;
    DataCombo* exam = nullptr;
    QComboBox* classes = nullptr;
    QComboBox* divisions = nullptr;
    QRadioButton* bySubject = nullptr;
    QRadioButton* byStudent = nullptr;
    DataCombo* subjects = nullptr;
    DataCombo* students = nullptr;
    FlexGrid* grid = nullptr;
    FloatingEditor* mark = nullptr;
    FloatingCombo* presence = nullptr;
    QLabel* average = nullptr;
};

/// The same with the students Asha, Binu and Cara in the division, who have the codes 1 to 3.
class MarkScreenOfThree : public MarkScreen
{
protected:
    void SetUp() override;
};

} // namespace tally::test
