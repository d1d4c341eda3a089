#pragma once

#include "core/ui/MasterStates.h"
#include "core/ui/Screen.h"

#include <memory>

class QPushButton;

namespace Ui {
class frmTeacherMaster;
}

namespace tally {

class OptionalDatePicker;
class TeacherRepository;
enum class DateFault;
struct Teacher;

/// Keeps one row for each teacher. Stored teachers come here from frmTeacherSearch.
class frmTeacherMaster : public Screen
{
    Q_OBJECT

public:
    frmTeacherMaster();
    ~frmTeacherMaster() override;

    /// Shows a stored teacher, ready for Edit or Delete. False when that failed or the teacher has
    /// gone; the user has been told.
    bool LoadData(int TeacherCode);

protected:
    void Form_Activate(bool first) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void Form_Load();
    void ConnectHandlers();
    void LoadLists();
    void LoadStates();
    void LoadCities();
    void LoadBloodGroups();
    /// Brings the lists up to date that the master behind a side button feeds, and chooses nothing in them.
    void ReloadBehind(const QPushButton* sideButton);

    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void cmdCancel_Click();
    void cmdSearch_Click();
    void OpenMaster(QPushButton* sideButton, const QString& formName);
    void optMarried_Click();
    void optSingle_Click();

    /// Writes, and starts over when other clients' rows stand against it. True when it was stored.
    bool WriteOrCancel(Conflict conflict, const std::function<void(store::Transaction&)>& work);
    bool IsReady(const Teacher& teacher);
    /// Says what is wrong with a date and takes the user there. True when the date is refused.
    bool RefuseDate(OptionalDatePicker* date, const QString& name, DateFault fault);
    Teacher Entered() const;
    void Show(const Teacher& teacher);
    void ShowState(MasterState state);
    TeacherRepository Teachers() const;

    std::unique_ptr<Ui::frmTeacherMaster> ui_;
    bool editing_ = false;
    int teacherCode_ = 0;                 ///< 0 while no stored teacher is in hand
    QPushButton* openedBehind_ = nullptr; ///< the side button whose master lies on top
};

} // namespace tally
