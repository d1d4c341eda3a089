#pragma once

#include "core/school/DivisionSelection.h"
#include "core/ui/Screen.h"
#include "ranks/OwnRankTable.h"
#include "ranks/RankRepository.h"

#include <memory>

namespace Ui {
class frmRankCalculation;
}

namespace tally {

class GradeSummaryPanel;

/// "Rank List Preparation": chooses an exam, a class and divisions, computes their joint rank list, shows it
/// in four orders with a summary by grade, and saves and exports it.
class frmRankCalculation : public Screen
{
    Q_OBJECT

public:
    frmRankCalculation();
    ~frmRankCalculation() override;

    QSize sizeHint() const override;

protected:
    QString ExitCaption() const override;
    void Form_Unload() override;

private:
    void Form_Load();
    void ConnectHandlers();
    void ShowDivisionKey();

    void LoadLists();
    void Cboexamname_Click();
    void cboClass_Click();
    void Lstdivision_ItemCheck(int index, bool ticked);
    void chkSelectAll_Click(bool ticked);
    void Optsubjectdisplayyes_Click(bool on);
    void cmdUpdate_Click();
    void cmdView_Click();
    void cmdTotalDetails_Click();
    void cmdClose_Click();
    void cmdSave_Click();
    void cmdExport_Click();
    void cmdPrintSetup_Click();
    void cmdCancel_Click();

    /// Exam, class and a division must be chosen. Says which is missing and gives it the focus.
    bool SelectionComplete();
    /// True when a ticked division does not agree with the base; those that do not are unticked. Nothing when
    /// they could not be compared, of which the user has been told.
    std::optional<bool> CheckSubjectMatch();
    std::optional<bool> CheckGradeMatch();
    void Untick(const std::vector<int>& divisionCodes);
    void ClearBases();
    /// The two checks of divisions ranked together, each with its own words; only the first mismatch is told.
    /// False when the divisions could not be compared.
    [[nodiscard]] bool CheckAgreement(const QString& subjectMessage, const QString& gradeMessage);

    RankRepository Repository() const;
    SchoolScope Scope() const;
    SubjectDisplay Display() const;
    RankOrder Order() const;

    /// The own list in the order picked.
    GridTable ReadList();
    void ShowList(GridTable list);
    void LoadGradeSummary(const GridTable& list, const RankInput& input);
    /// What stands under the list's title on sheets and paper.
    QString ListHead() const;
    /// The items of the ticked divisions, their marks included.
    QStringList TickedDivisions() const;
    void ResetGrid();

    std::unique_ptr<Ui::frmRankCalculation> ui_;
    GradeSummaryPanel* Frame5_ = nullptr;

    OwnRankTable table_;
    MatchBase subjectBase_; ///< BaseSubjectSet and BaseSubjectDivision
    MatchBase gradeBase_;   ///< BaseGradeSet and BaseGradeDivision
    bool SelectAllBusy_ = false;
};

} // namespace tally
