#pragma once

#include "core/ui/MasterScreen.h"

#include <cstdint>
#include <memory>

namespace Ui {
class frmMasStudentAdmissionEntry;
}

namespace tally {

class AdmissionRepository;
class DivisionChoice;
enum class PlacementFault : std::uint8_t;
struct Student;

/// Places a student in a class and division of the year in use, and corrects the placement. Stored placements
/// come here from frmMasStudentAdmissionSearch.
class frmMasStudentAdmissionEntry : public MasterScreen
{
    Q_OBJECT

public:
    frmMasStudentAdmissionEntry();
    ~frmMasStudentAdmissionEntry() override;

    /// Shows a student's placement in the year, ready for Edit or Delete, or with `viewOnly` to be looked at
    /// alone. False when that failed or the placement has gone; the user has been told.
    [[nodiscard]] bool LoadPlacement(int studentCode, bool viewOnly);

protected:
    void cmdCancel_Click() override;
    void RefillLists() override;

private:
    void Form_Load();
    void ConnectHandlers();
    void LoadLists();
    /// Reads who has no placement yet; who was chosen stays so if he is still among them. Throws StoreError.
    void LoadStudents();
    void LoadControls();

    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void cmdSearch_Click();
    void dbcAdmissionNo_Change();

    bool IsReady();
    /// Says why the placement stays as it is, and goes on from there.
    void Explain(PlacementFault fault);
    /// A student is chosen from the list; else one is shown who has a placement.
    void ChooseFromList(bool fromList);
    void Show(const Student& student);
    void ClearLabels();
    AdmissionRepository Admissions() const;

    std::unique_ptr<Ui::frmMasStudentAdmissionEntry> ui_;
    DivisionChoice* classDivision_ = nullptr;
    int studentCode_ = 0; ///< 0 while no student is in hand
};

} // namespace tally
