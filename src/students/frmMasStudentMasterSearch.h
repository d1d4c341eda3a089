#pragma once

#include "core/ui/controls/DateFilter.h"
#include "core/ui/SearchScreen.h"

#include <memory>

namespace Ui {
class frmMasStudentMasterSearch;
}

namespace tally {

class PlaceChoice;

/// Finds students by number, name, place and time of admission, and hands one to frmMasStudentMaster.
class frmMasStudentMasterSearch : public SearchScreen
{
    Q_OBJECT

public:
    frmMasStudentMasterSearch();
    ~frmMasStudentMasterSearch() override;

private:
    void cmdSearch_Click();
    void cmdCancel_Click();
    void dgdDetails_DblClick(int row);
    void LoadPlaces();
    void ResetDates();

    std::unique_ptr<Ui::frmMasStudentMasterSearch> ui_;
    PlaceChoice* places_;
    DateRange admitted_;
};

} // namespace tally
