#pragma once

#include "reports/ReportScreen.h"

#include <memory>

namespace Ui {
class frmrptClassList;
}

namespace tally {

class DivisionTicks;

/// "Class  List": the students of some divisions of a class, for the wall or the workbook.
class frmrptClassList : public ReportScreen
{
    Q_OBJECT

public:
    frmrptClassList();
    ~frmrptClassList() override;

    QSize sizeHint() const override;

protected:
    ReportHead Head() const override;
    void cmdCancel_Click() override;

private:
    void Form_Load();
    void cmdView_Click();

    std::unique_ptr<Ui::frmrptClassList> ui_;
    DivisionTicks* divisions_ = nullptr;
};

} // namespace tally
