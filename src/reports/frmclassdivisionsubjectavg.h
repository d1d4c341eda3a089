#pragma once

#include "reports/ReportScreen.h"

#include <memory>

namespace Ui {
class frmclassdivisionsubjectavg;
}

namespace tally {

class DivisionSubjectChoice;

/// "Subject Average Based On Class - Division": the averages of the subjects of a class in an exam, a row for
/// each division, as a list and as a chart.
class frmclassdivisionsubjectavg : public ReportScreen
{
    Q_OBJECT

public:
    frmclassdivisionsubjectavg();
    ~frmclassdivisionsubjectavg() override;

protected:
    ReportHead Head() const override;
    void cmdCancel_Click() override;
    void cmdChart_Click() override;

private:
    void Selection_Change();
    void cmdView_Click();

    std::unique_ptr<Ui::frmclassdivisionsubjectavg> ui_;
    DivisionSubjectChoice* choice_ = nullptr;
};

} // namespace tally
