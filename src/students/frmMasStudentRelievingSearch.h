#pragma once

#include "core/ui/SearchScreen.h"

#include <memory>

namespace Ui {
class frmMasStudentRelievingSearch;
}

namespace tally {

class DateFilter;
struct DateRange;

/// Finds students who have left the school and hands one to frmMasStudentRelievingMaster.
class frmMasStudentRelievingSearch : public SearchScreen
{
    Q_OBJECT

public:
    frmMasStudentRelievingSearch();
    ~frmMasStudentRelievingSearch() override;

private:
    void cmdSearch_Click();
    void dgdDetails_DblClick(int row);
    /// The dates by which nothing is searched yet, and their pickers at the working date.
    void ResetDates();
    DateRange AdmissionDates() const;
    DateRange RelievingDates() const;

    std::unique_ptr<Ui::frmMasStudentRelievingSearch> ui_;
    DateFilter* admissionFrom_;
    DateFilter* admissionTo_;
    DateFilter* relievingFrom_;
    DateFilter* relievingTo_;
};

} // namespace tally
