#pragma once

#include "reports/ReportScreen.h"

#include <memory>

namespace Ui {
class frmrptClasssubjectteacher;
}

namespace tally {

/// "Classwise  Subject - Teacher - Marks Details": who teaches what out of how many marks, in all classes or
/// in one, in all of its divisions or in one.
class frmrptClasssubjectteacher : public ReportScreen
{
    Q_OBJECT

public:
    frmrptClasssubjectteacher();
    ~frmrptClasssubjectteacher() override;

    QSize sizeHint() const override;

protected:
    ReportHead Head() const override;
    void cmdCancel_Click() override;
    void cmdExport_Click() override;

private:
    void Form_Load();
    void ConnectHandlers();

    void optAllClass_Click();
    void optSpecificClass_Click();
    void optAllDivision_Click();
    void optSpecificDivision_Click();
    void dbcClass_Change();
    void cmdView_Click();

    std::unique_ptr<Ui::frmrptClasssubjectteacher> ui_;
};

} // namespace tally
