#pragma once

#include "core/ui/MasterStates.h"
#include "core/ui/Screen.h"
#include "masters/SchoolRepository.h"

#include <memory>

namespace Ui {
class frmMasSchoolSetup;
}

namespace tally {

/// "School Setup": the school's name and address, and the month in which its academic year starts. A new
/// system goes nowhere before it is filled.
class frmMasSchoolSetup : public Screen
{
    Q_OBJECT

public:
    frmMasSchoolSetup();
    ~frmMasSchoolSetup() override;

protected:
    void Form_Activate(bool first) override;
    void cmdExit_Click() override;

private:
    void LoadData();
    void LoadAcademicYearStartMonth();
    void LoadStates();
    void LoadCities();
    /// Takes in what was added to both lists and what is gone from them, and keeps what is chosen.
    void RefillPlaces();

    void dbcStateName_Change();
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdSave_Click();
    void cmdCancel_Click();

    /// Says what is missing and gives it the focus; true when nothing is.
    bool IsComplete();
    /// False, and says so, when the start month contradicts the academic years that exist.
    bool StartMonthFits();
    School Entered() const;
    SchoolRepository Repository() const;

    std::unique_ptr<Ui::frmMasSchoolSetup> ui_;
    MasterControls controls_;
    bool editing_ = false; ///< the stored school is being changed
};

} // namespace tally
