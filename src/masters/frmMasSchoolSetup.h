#pragma once

#include "core/ui/MasterScreen.h"
#include "masters/SchoolRepository.h"

#include <memory>

namespace Ui {
class frmMasSchoolSetup;
}

namespace tally {

class PlaceChoice;

/// "School Setup": the school's name and address, and the month in which its academic year starts. A new
/// system goes nowhere before it is filled.
class frmMasSchoolSetup : public MasterScreen
{
    Q_OBJECT

public:
    frmMasSchoolSetup();
    ~frmMasSchoolSetup() override;

protected:
    void Form_Activate(bool first) override;
    void cmdCancel_Click() override;
    void cmdExit_Click() override;
    /// Takes in what was added to states and cities and what is gone from them.
    void RefillLists() override;

private:
    void LoadData();
    void LoadAcademicYearStartMonth();

    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdSave_Click();

    /// Says what is missing and gives it the focus; true when nothing is.
    bool IsComplete();
    /// False, and says so, when the start month contradicts the academic years that exist.
    bool StartMonthFits();
    School Entered() const;
    SchoolRepository Repository() const;

    std::unique_ptr<Ui::frmMasSchoolSetup> ui_;
    PlaceChoice* places_ = nullptr;
};

} // namespace tally
