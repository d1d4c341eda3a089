#pragma once

#include "core/ui/controls/FloatingEditor.h"
#include "exams/frmClassRankSetup.h"
#include "support/FormDriver.h"
#include "support/TestSchool.h"

#include <memory>
#include <string>

namespace tally::test {

inline const QString MarksStandAgainstIt = QStringLiteral(
    "Already Marks Are Entered For This 'Classwise Rank-Grade Setup'. So You Can't Edit/Delete");
inline const QString AlreadyThere = QStringLiteral("'Total Average' Already Exists");
inline const QString FromHighestToZero =
    QStringLiteral("'Total Average' Should Be Entered From Highest Average To 0(Zero)");
inline const QString ReferNotes = QStringLiteral("Enter Values Properly, Refer Notes Given Below");

/// What EnabledControls gives of the screen in each of its states.
inline const std::string Idle = "Frame1 cmdNew cmdCancel cmdExit";
inline const std::string Entering = "Frame1 fraMain cmdSave cmdCancel cmdExit";
inline const std::string Typing = "fraMain cmdSave cmdCancel cmdExit"; ///< as Entering, with something typed
inline const std::string Found = "Frame1 cmdEdit cmdDelete cmdCancel cmdExit";
inline const std::string Editing = "fraMain cmdSave cmdCancel cmdExit";
inline const std::string Locked = "Frame1 cmdCancel cmdExit";

/// The grade screen over the divisions A and B of class X and the exams "Term One" and "Term Two". Division A
/// has the student 1 and the subject 1.
class GradeScreen : public FormDriver<frmClassRankSetup>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        StopPresence();
        school = std::make_unique<TestSchool>(*Session().gcnnMain, *Session().gcnnTemp);
        Session().gintAcademicYearCode = 1;
        Session().gintUserCode = 5;
        Given("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 0)");
        school->AddDivision(1, "A");
        school->AddDivision(2, "B");
        school->AddSubject(1, 1, "Eng", 1);
        school->AddStudent(1, QStringLiteral("Asha"));
    }
    void TearDown() override
    {
        school.reset();
        ScreenFixture::TearDown();
    }

    /// A from 80, B from 60, C below, for division A in the first exam.
    void GivenGrades()
    {
        school->AddBand(1, 80, 50, "A", 1);
        school->AddBand(1, 60, 40, "B", 2);
        school->AddBand(1, 0, 0, "C", 3);
    }
    void GivenMark() { school->EnterMark(1, 1, 40); }
    /// What another client runs on the same files; `sql` ends in a condition on the rows of division A.
    void OtherInDivision(const char* sql)
    {
        AnotherClient()->Execute(
            QString::fromLatin1(sql) +
            QStringLiteral(" AND ExamCode = 1 AND ClassCode = 1 AND DivisionCode = 1 AND "
                           "AcademicYearCode = 1"));
    }
    void OtherEntersMark()
    {
        AnotherClient()->Execute(
            QStringLiteral("INSERT INTO MarkMaster VALUES (1, 1, 1, 1, 1, 1, 40, 'P', 0, 6)"));
    }

    /// With neighbours on all sides of what the test has laid down by then.
    void OpenForm(const std::set<Side>& sides = {Side::Year, Side::Exam, Side::Class, Side::Division})
    {
        SurroundSchool(sides);
        FormDriver::OpenForm("frmClassRankSetup");
        grid = Find<FlexGrid>(form, "msgDetails");
        division = Find<DataCombo>(form, "cboDivision");
        totalAverage = Find<FloatingEditor>(form, "Txttotalaverage");
        subjectAverage = Find<FloatingEditor>(form, "txtsubjectaverage");
        grade = Find<FloatingEditor>(form, "Txtgrade");
    }
    void ChooseDivision(const char* name = "A")
    {
        Choose("dbcExam", QStringLiteral("Term One"));
        Choose("cboClass", QStringLiteral("X"));
        Choose("cboDivision", QString::fromLatin1(name));
    }
    /// New, with everything chosen; the first row is entered next where nothing stands against it.
    void StartNew()
    {
        OpenForm();
        Press(Button("cmdNew"));
        ChooseDivision();
        PressKey(form, Qt::Key_Return);
    }
    /// The stored grades of division A, in the state Found.
    void ShowStored()
    {
        OpenForm();
        ChooseDivision();
        PressKey(form, Qt::Key_Return);
        ASSERT_EQ(EnabledControls(), Found);
    }
    void StartEdit()
    {
        ShowStored();
        Press(Button("cmdEdit"));
        ASSERT_EQ(EnabledControls(), Editing);
    }
    /// One row behind the other from the open box on.
    static void TypeRows(const std::vector<std::vector<const char*>>& rows)
    {
        for (const auto& row : rows)
            for (const char* text : row)
                Enter(text);
    }

    void Click(int row, int col) { FormDriver::Click(grid, row, col); }
    std::string EnabledControls() const
    {
        std::string names;
        for (const char* name :
             {"Frame1", "fraMain", "cmdNew", "cmdEdit", "cmdDelete", "cmdSave", "cmdCancel", "cmdExit"})
            if (IsEnabled(name))
                names += (names.empty() ? "" : " ") + std::string(name);
        return names;
    }
    /// "Txttotalaverage 2": the box that is open, and its row.
    std::string OpenBox() const
    {
        for (const FloatingEditor* box : {totalAverage, subjectAverage, grade})
            if (box->isVisible() && box->hasFocus())
                return box->objectName().toStdString() + ' ' + std::to_string(box->Row());
        return "none";
    }
    std::string Cell(int row, int col) const { return grid->TextMatrix(row, col).toStdString(); }
    std::string Rows() const
    {
        std::string rows;
        for (int row = 1; row < grid->Rows(); ++row) {
            rows += row > 1 ? " " : "";
            for (int col = 0; col < grid->Cols(); ++col)
                rows += (col > 0 ? "|" : "") + Cell(row, col);
        }
        return rows;
    }
    /// "1 80 50 A -" of each stored row of a division in the first exam: place, averages, grade and user.
    std::string Stored(int divisionCode = 1)
    {
        QStringList rows;
        auto found = Session().gcnnMain->Query(
            QStringLiteral(
                "SELECT Status, TotalAverage, SubjectAverage, Grade, UserCode FROM RankMaster WHERE "
                "ExamCode = 1 AND ClassCode = 1 AND DivisionCode = ? AND AcademicYearCode = 1 "
                "ORDER BY Status"),
            divisionCode);
        while (found.Next())
            rows.append(QStringLiteral("%1 %2 %3 %4 %5")
                            .arg(QString::number(found.Int(0)), QString::number(found.Double(1)),
                                 QString::number(found.Double(2)), found.Text(3),
                                 found.IsNull(4) ? QStringLiteral("-") : found.Text(4)));
        return rows.join(QStringLiteral("; ")).toStdString();
    }

    std::unique_ptr<TestSchool> school;
    FlexGrid* grid = nullptr;
    DataCombo* division = nullptr;
    FloatingEditor* totalAverage = nullptr;
    FloatingEditor* subjectAverage = nullptr;
    FloatingEditor* grade = nullptr;
};

inline const std::string UsualRows = "1|80|50|A 2|60|40|B 3|0|0|C 4|||";
inline const std::string UsualStored = "1 80 50 A 0; 2 60 40 B 0; 3 0 0 C 0";

} // namespace tally::test
