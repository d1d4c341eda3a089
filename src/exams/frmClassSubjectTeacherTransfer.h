#pragma once

#include "core/ui/Screen.h"
#include "exams/CopySide.h"

#include <array>
#include <memory>
#include <optional>

namespace Ui {
class frmClassSubjectTeacherTransfer;
}

namespace tally {

class DataCombo;

/// "Classwise Subject - Teacher - Mark  Entry - Copy": copies what one class-division takes to another one,
/// of the same year or of the next.
class frmClassSubjectTeacherTransfer : public Screen
{
    Q_OBJECT

public:
    frmClassSubjectTeacherTransfer();
    ~frmClassSubjectTeacherTransfer() override;

    QSize sizeHint() const override;

private:
    void ConnectHandlers();

    void cboFromAcademicyear_Click();
    void cboClassFrom_Click();
    void cboDivision_Click();
    void cboDivision_Settled();
    void cboAcademicYearTo_Click();
    void cboClassTo_Click();
    void cboDivisionTo_Click();
    void cboDivisionTo_Settled(bool goesOn);
    void cmdTransfer_Click();
    void cmdNew_Click();
    void cmdSave_Click();
    void cmdCancel_Click();

    std::array<DataCombo*, 6> Lists() const;
    /// What the grid of a side shows.
    void ShowFrom(std::vector<TaughtSubject> subjects);
    void ShowTo(std::vector<TaughtSubject> subjects);
    /// The divisions of the "From" class, none of them chosen.
    void ListSources();
    /// The divisions of the "To" class as they are set up by now, none of them chosen. Where they can't be
    /// read, which the user is told, no class is chosen either.
    void ListTargets();
    /// Why the chosen target can't get a copy; empty where it can, and while none is chosen.
    QString TargetRefusal() const;
    /// Tells that a class-division is not copied onto itself, and chooses no target then.
    bool IsAnotherPlace();
    /// Everything that a save asks for is there. Says what is missing and takes the user to it.
    bool IsReady();
    void ClearTo();

    std::unique_ptr<Ui::frmClassSubjectTeacherTransfer> ui_;
    std::optional<CopySide> from_;
    std::optional<CopySide> to_;
    SubjectTargets targets_;
    std::vector<TaughtSubject> source_; ///< what is shown on the "From" side
    std::vector<TaughtSubject> copy_;   ///< what is shown on the "To" side
};

} // namespace tally
