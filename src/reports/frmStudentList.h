#pragma once

#include "reports/ReportScreen.h"

#include <memory>

namespace Ui {
class frmStudentList;
}

namespace tally {

class DivisionTicks;

/// "Student Name List": the students of some divisions of a class as a text, with empty columns to be filled
/// by hand. No menu leads to it.
class frmStudentList : public ReportScreen
{
    Q_OBJECT

public:
    frmStudentList();
    ~frmStudentList() override;

    QSize sizeHint() const override;

protected:
    ReportHead Head() const override;
    void cmdCancel_Click() override;
    void cmdPrint_Click() override;

private:
    void Form_Load();
    void ConnectHandlers();
    void cmdView_Click();
    void cmdAddColumnName_Click();
    /// What is shown is no longer what is selected.
    void ClearList();
    void EnableColumnBoxes(bool on);

    std::unique_ptr<Ui::frmStudentList> ui_;
    DivisionTicks* divisions_ = nullptr;
    int added_ = 0; ///< the columns of the list that are filled by hand
};

} // namespace tally
