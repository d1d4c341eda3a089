#pragma once

#include "core/ui/MasterScreen.h"
#include "students/RelievingRules.h"

#include <memory>
#include <optional>

namespace Ui {
class frmMasStudentRelievingMaster;
}

namespace tally {

class DatePicker;
class RelievingRepository;
struct ClassNames;
struct Student;

/// Enters that a student leaves the school, with his transfer certificate. Stored entries come here from
/// frmMasStudentRelievingSearch.
class frmMasStudentRelievingMaster : public MasterScreen
{
    Q_OBJECT

public:
    frmMasStudentRelievingMaster();
    ~frmMasStudentRelievingMaster() override;

    /// Takes the number of a student who was looked up for the entry in hand; begins a new entry where there
    /// is none. False when the student cannot be relieved; the user has been told.
    [[nodiscard]] bool LoadNumber(const QString& optionalAdmissionNo);
    /// Shows the entry of a relieved student, ready for Edit or Delete, or with `viewOnly` to be looked at
    /// alone. False when that failed or the entry has gone; the user has been told.
    [[nodiscard]] bool LoadEntry(int studentCode, bool viewOnly);

protected:
    void cmdCancel_Click() override;
    void ShowState(MasterState state) override;

private:
    void Form_Load();
    void ConnectHandlers();

    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void cmdSearch_Click();
    void cmdSearchAdmissionNo_Click();

    bool txtOptionalAdmissionNo_Validate();
    bool txtTCNo_Validate();
    bool dtpRelievingDate_Validate();
    bool dtpTCDate_Validate();

    bool IsEntering() const;
    Relieving Entered() const;
    /// What speaks against relieving the student in hand under the certificate `tcNo`.
    RelievingFacts Facts(const QString& tcNo = {}) const;
    /// True for no fault. Else tells it, and empties or sets back what it makes worthless.
    bool Accepts(RelievingFault fault);
    QWidget* FieldOf(RelievingFault fault) const;

    void LoadData(const Student& student, const std::optional<ClassNames>& lastClass);
    void ForgetStudent();
    void ClearLabels();
    void ResetDates();
    RelievingRepository Relievings() const;

    std::unique_ptr<Ui::frmMasStudentRelievingMaster> ui_;
    int studentCode_ = 0; ///< the student on the screen; 0 for none
    int formerCode_ = 0;  ///< the student whose stored entry is in hand; 0 for a new one
    QString formerTCNo_;  ///< of that entry, as it was loaded
    QDate admissionDate_; ///< as it is shown; invalid while none is
};

} // namespace tally
