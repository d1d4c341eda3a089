#pragma once

#include "core/ui/MasterScreen.h"
#include "students/StudentSave.h"

#include <memory>

namespace Ui {
class frmMasStudentMaster;
}

namespace tally {

class DatePicker;
class PlaceChoice;

/// Keeps one row for each student. Stored students come here from frmMasStudentMasterSearch, and by typing
/// their number.
class frmMasStudentMaster : public MasterScreen
{
    Q_OBJECT

public:
    frmMasStudentMaster();
    ~frmMasStudentMaster() override;

    /// Shows a stored student, ready for Edit or Delete; one who has left the school, only to be looked at.
    /// False when that failed or the student has gone; the user has been told.
    [[nodiscard]] bool LoadData(int StudentCode);

protected:
    void cmdCancel_Click() override;
    void RefillLists() override;
    void ShowState(MasterState state) override;
    void Form_Activate(bool first) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void Form_Load();
    void ConnectHandlers();
    void LoadLists();
    /// Fills the lists, with the place chosen; 0 for none. Throws StoreError.
    void ReadLists(int stateCode, int cityCode);

    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void cmdSearch_Click();
    void ChangeOptionalAdmissionNos();

    /// Opens the boxes of a new student's numbers, or closes them, as Options says.
    void ShowNumbering();
    /// When numbers began to be generated while one was being typed for a new student: says so, clears it,
    /// and gives true.
    bool GenerationTookOver();
    /// False keeps the clerk in the box.
    bool txtAdmissionNumber_LostFocus();
    /// Offers to show who has the typed number already. False when the clerk declined.
    bool OfferHolder(const Student& holder);
    /// What is wrong with the date as far as it shows by itself.
    StudentFault FaultOnEnter(const DatePicker* date);
    bool IsReady(Student& student);
    /// Says what is wrong and takes the user there.
    void Tell(StudentFault fault);
    Student Entered() const;
    void Show(const Student& student);
    StudentSaving Saving() const;
    void ShowNumbers(const Student& student);

    std::unique_ptr<Ui::frmMasStudentMaster> ui_;
    PlaceChoice* places_ = nullptr;
    Student student_; ///< as it was loaded; code 0 while no stored student is in hand
};

} // namespace tally
