#pragma once

#include "core/school/SchoolTypes.h"
#include "core/ui/MasterScreen.h"
#include "exams/GradeTable.h"

#include <array>
#include <memory>

namespace Ui {
class frmClassRankSetup;
}

namespace tally {

class CellEditors;
class DataCombo;
class DivisionChoice;
class RowDelete;

/// "Classwise Rank - Grade Setup": the table of grades of one exam in one class-division. It stays as it is
/// once the exam has a mark there.
class frmClassRankSetup : public MasterScreen
{
    Q_OBJECT

public:
    frmClassRankSetup();
    ~frmClassRankSetup() override;

    QSize sizeHint() const override;

protected:
    void cmdCancel_Click() override;
    void RefillLists() override;
    void ShowState(MasterState state) override;

private:
    void Form_Load();
    void ConnectHandlers();
    void BuildEditors();

    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void msgDetails_Click(int row, int col);
    void Txttotalaverage_Change(int row, const QString& text);
    void Txttotalaverage_Enter(int row, const QString& text);
    QString Txttotalaverage_Leave(int row, const QString& text) const;
    void txtsubjectaverage_Change(int row, const QString& text);
    void Txtgrade_Change(int row, const QString& text);
    void Txtgrade_Enter(int row);

    SchoolScope Scope() const;
    std::array<DataCombo*, 3> Lists() const;
    /// What is chosen in them stays as far as it still exists.
    void LoadLists();
    /// Another exam or class-division is chosen than the one whose grades are shown.
    void List_Change();
    /// `goesOn` leads to what can be done with the choice.
    void ReadChoice(bool goesOn);
    /// A choice that the clerk has left to give up, which he then did not.
    void SettleChoice();
    void GoOn();
    /// Shows what is stored for the choice, and what may be done with it. Where a save has met marks they
    /// lock the grades even if they have gone again since.
    void LoadGrades(bool marksWereMet = false);
    /// The same for grades that are shown, which may be gone by now.
    void LoadShownGrades();
    /// Marks have come in: the grades stay as they are stored.
    void TellOfMarks();

    /// The lists are closed while what is entered would go with another choice.
    void GuardChoice();
    void ShowRows();
    void ShowRow(int row);
    /// Tells what the step has to tell and goes where it leads.
    void Take(const GradeStep& step);
    bool IsReady();
    /// Says why the stored grades stay as they are.
    void Explain(const QString& obstacle);
    /// The keyboard is on its way out of the screen or of what was begun.
    bool IsGivingUp() const;

    std::unique_ptr<Ui::frmClassRankSetup> ui_;
    DivisionChoice* classDivision_ = nullptr;
    CellEditors* boxes_ = nullptr;
    RowDelete* deleteRow_ = nullptr;
    GradeTable grades_;
    std::vector<GradeRecord> found_; ///< what is stored for the choice; none while it was not read
    bool isRead_ = false;
    bool entering_ = false; ///< since New, until Cancel
};

} // namespace tally
