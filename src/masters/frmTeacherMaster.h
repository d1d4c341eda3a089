#pragma once

#include "core/ui/MasterScreen.h"

#include <memory>

namespace Ui {
class frmTeacherMaster;
}

namespace tally {

class OptionalDatePicker;
class PlaceChoice;
class TeacherRepository;
enum class DateFault;
struct Teacher;

/// Keeps one row for each teacher. Stored teachers come here from frmTeacherSearch.
class frmTeacherMaster : public MasterScreen
{
    Q_OBJECT

public:
    frmTeacherMaster();
    ~frmTeacherMaster() override;

    /// Shows a stored teacher, ready for Edit or Delete. False when that failed or the teacher has
    /// gone; the user has been told.
    [[nodiscard]] bool LoadData(int TeacherCode);

protected:
    void cmdCancel_Click() override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void Form_Load();
    void ConnectHandlers();
    void LoadLists();
    /// Reads all lists and chooses a place; what else was chosen is blank then. Throws StoreError; then all
    /// stay as they are.
    void ReadLists(int stateCode, int cityCode);
    void LoadPlaces();
    void LoadBloodGroups();

    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void cmdSearch_Click();
    void optMarried_Click();
    void optSingle_Click();

    bool IsReady(const Teacher& teacher);
    /// Says what is wrong with a date and takes the user there. True when the date is refused.
    bool RefuseDate(OptionalDatePicker* date, const QString& name, DateFault fault);
    Teacher Entered() const;
    /// All but the place, which ReadLists has chosen.
    void Show(const Teacher& teacher);
    TeacherRepository Teachers() const;

    std::unique_ptr<Ui::frmTeacherMaster> ui_;
    PlaceChoice* places_ = nullptr;
    int teacherCode_ = 0; ///< 0 while no stored teacher is in hand
};

} // namespace tally
