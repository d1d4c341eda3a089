#pragma once

#include "core/ui/Screen.h"
#include "ranks/RankCards.h"

#include <memory>

namespace Ui {
class frmRankCardPrinting;
}

namespace tally {

class DivisionChoice;
class SelectAllBox;

/// "Rank Card": shows for chosen students of a division a card with the marks and the saved rank of each
/// chosen exam, and exports the cards for printing.
class frmRankCardPrinting : public Screen
{
    Q_OBJECT

public:
    frmRankCardPrinting();
    ~frmRankCardPrinting() override;

    QSize sizeHint() const override;

private:
    void Form_Load();
    void ConnectHandlers();
    void ShowStudentKey();

    void LoadExams();
    /// Lists the students of the chosen division, each with the mark of incomplete marks in a ticked exam.
    void LoadStudentList();
    void LoadRankCard();

    void cmdView_Click();
    void cmdExport_Click();
    void cmdCancel_Click();

    /// Exam, class, division and student must be chosen. Says which is missing and gives it the focus.
    bool SelectionComplete();
    /// What is chosen has changed, so the cards shown are no longer those of the selection.
    void ClearCards();

    SchoolScope Scope() const;

    std::unique_ptr<Ui::frmRankCardPrinting> ui_;
    DivisionChoice* classDivision_ = nullptr;
    SelectAllBox* exams_ = nullptr;
    SelectAllBox* students_ = nullptr;
};

} // namespace tally
