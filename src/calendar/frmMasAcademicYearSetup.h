#pragma once

#include "core/ui/MasterScreen.h"

#include <memory>

namespace Ui {
class frmMasAcademicYearSetup;
}

namespace tally {

struct AcademicYear;

/// Makes the school's academic years, one after another, and says which one is active. While no year is
/// active, it cannot be left.
class frmMasAcademicYearSetup : public MasterScreen
{
    Q_OBJECT

public:
    frmMasAcademicYearSetup();
    ~frmMasAcademicYearSetup() override;

protected:
    void Form_Activate(bool first) override;
    bool Form_QueryUnload() override;
    void cmdCancel_Click() override;
    void cmdExit_Click() override;
    void RefillLists() override;
    void ShowState(MasterState state) override;

private:
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void cmdOpenSchoolSetup_Click();
    void txtAcademicYearFrom_Change(const QString& text);
    void dgdDetails_DblClick(int row);

    void LoadGrid();
    void ShowSchoolSetupOffer();
    /// The tests in front of a save; each that fails tells the user.
    bool IsComplete();
    bool FitsAmongYears();
    void StoreNew(store::Transaction& transaction, const AcademicYear& year);
    void TakeFirstYear(const AcademicYear& year);
    /// The session is without a year and all that it says, until one is active again.
    void ForgetYearInUse();
    bool AYearIsActive();
    /// The year as the controls show it.
    AcademicYear Entered() const;
    bool EnteredActive() const;

    std::unique_ptr<Ui::frmMasAcademicYearSetup> ui_;
    int code_ = 0; ///< of the row in hand; 0 for none
};

} // namespace tally
