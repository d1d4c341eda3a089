#pragma once

#include "core/ui/controls/FloatingCombo.h"
#include "core/ui/controls/FloatingEditor.h"
#include "exams/frmClassSubjectTeacher.h"
#include "support/FormDriver.h"
#include "support/TestSchool.h"

#include <initializer_list>
#include <memory>
#include <string>

namespace tally::test {

inline const QString FrozenText =
    QStringLiteral("Already Marks Are Entered For This Subject\r\nYou Can Edit Only 'Maximum Allowed' And "
                   "'Taken For Rank' Fields");
inline const QString HasMarksText =
    QStringLiteral("Already Marks Are Entered For This Class-Division-Subject(s). So You Can't Delete");
inline const QString EnteredMeanwhileText = QStringLiteral(
    "Subjects Of This Class-Division Were Entered By Another User Meanwhile.\nYou Cannot Save This Data.");
inline const QString ChangedMeanwhileText = QStringLiteral(
    "Subjects Of This Class-Division Were Changed By Another User Meanwhile.\nYou Cannot Save This Data.");

/// What EnabledControls gives of the screen while nothing is chosen, while a set is entered or edited, and
/// while a stored one is looked at.
inline const std::string Idle = "Frame1 cmdNew cmdCancel cmdExit";
inline const std::string Entering = "Frame1 fraMain cmdSave cmdCancel cmdExit";
/// Once something is typed, and while a set is edited, no other class-division can be chosen.
inline const std::string Typing = "fraMain cmdSave cmdCancel cmdExit";
inline const std::string Found = "Frame1 cmdEdit cmdDelete cmdCancel cmdExit";

/// The set-up screen over the divisions X A and X B. A takes Maths (code 2, order 1, Noor, 100 out of 100)
/// and English (code 1, order 2, Mary, 50 out of 100, not for rank); B takes nothing. Art (3) and Tamil (4)
/// are taken by nobody; the teachers are Mary (7), Noor (8) and Omar (9).
class SubjectSetupScreen : public FormDriver<frmClassSubjectTeacher>
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// With neighbours on all sides of what the test has laid down by then.
    void OpenForm();
    void OpenNew();
    /// The class, and Enter.
    void ChooseClass() const;
    /// The class and the division, and Enter in the latter.
    void ChooseDivision(const char* division);
    /// New, division B, and the keyboard in its first subject.
    void StartNew();
    /// Division A, and Edit.
    void StartEdit();

    /// The object name of the control with the keyboard.
    std::string Focus() const;
    std::string EnabledControls();
    void Click(int row, int col) { FormDriver::Click(grid, row, col); }
    void DeleteRow(int row, bool answer = true);
    /// Types the cells of a row from the open box on, each ended with Enter; an empty one keeps what is
    /// there.
    static void EnterCells(std::initializer_list<const char*> cells);
    static void Paste(QWidget* box, const QString& text);

    /// The cells of the visible columns.
    std::string RowText(int row) const;
    std::string Rows() const;
    std::string Total() const;
    /// "order subject teacher allowed/maximum rank" of each row of a division.
    std::string Stored(int division);
    /// A mark of the only student, who is in division A.
    void GivenMark(int code, double mark);

    /// Runs a statement as another client of the same files.
    void Other(const char* sql) { AnotherClient()->Execute(QString::fromLatin1(sql)); }

    std::unique_ptr<TestSchool> school;
    DataCombo* classes = nullptr;
    DataCombo* divisions = nullptr;
    FlexGrid* grid = nullptr;
    FloatingCombo* subject = nullptr;
    FloatingCombo* teacher = nullptr;
    FloatingEditor* maximum = nullptr;
    FloatingEditor* allowed = nullptr;
    FloatingCombo* rank = nullptr;
    FloatingEditor* order = nullptr;
};

} // namespace tally::test
