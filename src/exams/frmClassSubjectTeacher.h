#pragma once

#include "core/ui/MasterScreen.h"
#include "exams/SubjectSetupSave.h"
#include "exams/SubjectSetupSheet.h"

#include <memory>

namespace Ui {
class frmClassSubjectTeacher;
}

namespace tally {

class DivisionChoice;
class RowDelete;
class SubjectSetupGrid;

/// "Classwise Subject - Teacher - Mark  Entry": which subjects a class-division takes in the current year,
/// who teaches them, out of what marks, in what order, and which of them count towards rank.
class frmClassSubjectTeacher : public MasterScreen
{
    Q_OBJECT

public:
    frmClassSubjectTeacher();
    ~frmClassSubjectTeacher() override;

    QSize sizeHint() const override;

protected:
    void cmdExit_Click() override;
    void cmdCancel_Click() override;
    void ShowState(MasterState state) override;

private:
    void Form_Load();
    void ConnectHandlers();

    /// What is chosen in the class lists is given up.
    void LoadLists();
    void RefillClass();
    void LoadSubjectList();
    void LoadTeacherList();
    /// Another class or division is chosen than the one whose subjects are shown.
    void List_Change();
    /// `goesOn` leads to what can be done with the choice.
    void ReadChoice(bool goesOn);
    /// A choice that the clerk has left to give up, which he then did not.
    void SettleChoice();
    void GoOn();
    void msgDetails_Click(int row, int col);
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void DeleteRow(int row);
    void ShowTotalMark();
    void Sheet_Change();
    /// What was typed belongs to the class-division for which it was typed, and no other one can be chosen
    /// while it stands there.
    void LockChoice();

    SchoolScope Scope() const;
    /// Both class and division are chosen.
    bool IsChosen() const;
    /// What the chosen class-division takes comes into the grid; one blank row without a choice. Any edit
    /// ends. Where it could not be read the division is given up, and the user has been told.
    void ShowSubjects();
    void Show(StoredSubjects stored);
    /// Everything that a save asks for is there. Says what is missing and takes the user to it.
    bool IsReady();
    void TellRefusal(const SubjectRefusal& refusal);

    std::unique_ptr<Ui::frmClassSubjectTeacher> ui_;
    DivisionChoice* classDivision_ = nullptr;
    SubjectSetupSheet sheet_;
    SubjectSetupGrid* subjects_ = nullptr;
    RowDelete* deleteRow_ = nullptr;
    std::vector<TaughtSubject> shown_; ///< what was stored when the class-division was chosen
    bool listsAreRead_ = false;        ///< without them nothing can be begun
    bool entering_ = false;            ///< New was pressed, also while a stored set is looked at
};

} // namespace tally
