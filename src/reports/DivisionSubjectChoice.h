#pragma once

#include "core/school/SchoolTypes.h"
#include "reports/DivisionReport.h"

#include <QObject>

#include <vector>

class QCheckBox;
class QRadioButton;

namespace tally {

class CheckList;
class DataCombo;
class Screen;
class SelectAllBox;

/// The lists that choose an exam, a class, divisions of it and subjects that these have in common. Belongs to
/// its screen.
class DivisionSubjectChoice : public QObject
{
    Q_OBJECT

public:
    struct Controls
    {
        DataCombo* Cboexamname = nullptr;
        DataCombo* cboClass = nullptr; ///< on while an exam is chosen
        CheckList* Lstdivision = nullptr;
        QCheckBox* selectDivisions = nullptr;
        CheckList* Lstsubjects = nullptr;
        QCheckBox* selectSubjects = nullptr;
        QRadioButton* Optsubjectdisplayyes = nullptr;
        QRadioButton* Optsubjectdisplayno = nullptr;
    };

    DivisionSubjectChoice(Screen* screen, const Controls& controls, const DivisionReportRules& rules);

    /// Reads exams and classes anew. Nothing is chosen then, and the subjects taken for rank are displayed.
    void Reset();
    /// True when all is chosen; else says what is missing first and gives it the keyboard.
    [[nodiscard]] bool IsComplete();

    /// The year of the session with exam and class.
    SchoolScope Scope() const;
    SubjectDisplay Display() const;
    std::vector<int> DivisionCodes() const;
    std::vector<int> SubjectCodes() const;
    /// The divisions as the list shows them, with their marks.
    std::vector<ListItem> Divisions() const;
    QString ExamName() const;
    QString ClassName() const;
    /// Without their marks, joined by commas.
    QString DivisionNames() const;

Q_SIGNALS:
    /// Something else is chosen than before.
    void Changed();

private:
    void Cboexamname_Click();
    void cboClass_Click();
    void Lstdivision_ItemCheck(int index, bool ticked);
    void selectDivisions_Click(bool ticked);

    /// Takes the lists of divisions and subjects away.
    void ClearDivisions();
    void LoadDivisions();
    /// What the ticked divisions have in common; they lose their ticks where the base has nothing to display.
    void LoadSubjects();
    /// Unticks those that differ from the base and says so. False when they could not be compared, of which
    /// the user has been told.
    [[nodiscard]] bool CompareWithBase();
    void Untick(const std::vector<int>& divisionCodes);
    /// False when the divisions could not be compared, of which the user has been told; none is ticked then.
    [[nodiscard]] bool TickAll();
    /// The division that the others are compared with stays the one that was ticked first.
    void KeepBase();

    Screen* screen_;
    Controls controls_;
    DivisionReportRules rules_;
    SelectAllBox* subjects_;
    int base_ = 0; ///< DivisionCode; 0 while none is ticked
};

} // namespace tally
