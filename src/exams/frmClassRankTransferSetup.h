#pragma once

#include "core/ui/Screen.h"
#include "exams/CopySide.h"

#include <memory>
#include <optional>

namespace Ui {
class frmClassRankTransferSetup;
}

namespace tally {

/// "Classwise Rank - Grade Setup -  Copy": copies the grade table of a class-division to any number of
/// divisions of a class, for the same exam or another one, in the same year or the next.
class frmClassRankTransferSetup : public Screen
{
    Q_OBJECT

public:
    frmClassRankTransferSetup();
    ~frmClassRankTransferSetup() override;

    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void ConnectHandlers();

    /// Of the year, the exam or the class.
    void From_Change(const DataCombo* list);
    void cboFromDivision_Click();
    void cboFromDivision_Settled();
    void cboToAcademicYear_Click();
    void dbcExamTo_Change() { cboToAcademicYear_Click(); }
    void cboToClass_Settled();
    void lstDivision_ItemCheck(int index, bool ticked);
    void chkSelectAll_Click(bool ticked);
    void cmdTransfer_Click();
    void cmdNew_Click();
    void cmdSave_Click();
    void cmdCancel_Click();

    /// What the grid of a side shows.
    void ShowFrom(std::vector<GradeRecord> table);
    void ShowTo(std::vector<GradeRecord> table);
    /// The divisions of a side as they are by now, for its year, exam and class; none where one of those is
    /// missing. On a failure, which the user is told, no class is chosen either. On the "To" side whoever was
    /// ticked and still can be stays so with `keepTicks`.
    void ListSources();
    void ListTargets(bool keepTicks);
    void ClearTo();
    /// The divisions stay ticked as they are.
    void ClearSelectAll();
    /// A copy can be made of a table that is shown for divisions that are ticked.
    void OfferCopy();
    /// All lists anew, behind a change of the masters. What is chosen stays as far as it still exists.
    void RefillLists();
    /// Everything that a save asks for is there. Says what is missing and takes the user to it.
    bool IsReady();
    void EnableFrames(bool enabled);

    std::unique_ptr<Ui::frmClassRankTransferSetup> ui_;
    std::optional<CopySide> from_;
    std::optional<CopySide> to_;
    std::vector<GradeRecord> source_; ///< what is shown on the "From" side
    std::vector<GradeRecord> copy_;   ///< what is shown on the "To" side
    bool clicked_ = false;            ///< the list of divisions was touched by the mouse last
};

} // namespace tally
