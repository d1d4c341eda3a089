#pragma once

#include "core/ui/controls/DateFilter.h"
#include "core/ui/SearchScreen.h"

#include <memory>

namespace Ui {
class frmMasStudentRelievingSearch;
}

namespace tally {

/// Finds students who have left the school and hands one to frmMasStudentRelievingMaster.
class frmMasStudentRelievingSearch : public SearchScreen
{
    Q_OBJECT

public:
    frmMasStudentRelievingSearch();
    ~frmMasStudentRelievingSearch() override;

private:
    void cmdSearch_Click();
    void cmdCancel_Click();
    void dgdDetails_DblClick(int row);
    /// The dates by which nothing is searched yet, and their pickers at the working date.
    void ResetDates();

    std::unique_ptr<Ui::frmMasStudentRelievingSearch> ui_;
    DateRange admitted_{};
    DateRange relieved_{};
};

} // namespace tally
