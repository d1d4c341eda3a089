#pragma once

#include "core/ui/SearchScreen.h"

#include <memory>

namespace Ui {
class frmMasStudentAdmissionSearch;
}

namespace tally {

class DivisionChoice;

/// Finds students by their placements in the year in use, and hands one to frmMasStudentAdmissionEntry.
/// Opened from the relieving screen, it finds those on roll and hands the number to that one.
class frmMasStudentAdmissionSearch : public SearchScreen
{
    Q_OBJECT

public:
    frmMasStudentAdmissionSearch();
    ~frmMasStudentAdmissionSearch() override;

private:
    void cmdSearch_Click();
    void cmdCancel_Click();
    void dgdDetails_DblClick(int row);
    void LoadForRelieving(const QString& admissionNo);
    void LoadForAdmission(int studentCode, const QString& admissionNo);

    std::unique_ptr<Ui::frmMasStudentAdmissionSearch> ui_;
    DivisionChoice* classDivision_ = nullptr;
};

} // namespace tally
