#pragma once

#include "core/Screen.h"

#include <QDate>

#include <memory>

namespace Ui {
class frmUtilApplicationDateSetup;
}

namespace tally {

/// Moves the school's working calendar forward or back by one day, for everybody.
class frmUtilApplicationDateSetup : public Screen
{
    Q_OBJECT

public:
    frmUtilApplicationDateSetup();
    ~frmUtilApplicationDateSetup() override;

protected:
    void Form_Activate(bool first) override;

private:
    void cmdAddOneDay_Click();
    void cmdDeleteLastDay_Click();

    void LoadLastDate();
    void ShowDate(const QDate& date);

    std::unique_ptr<Ui::frmUtilApplicationDateSetup> ui_;
    QDate lastDate_; ///< the last working day of the year in use
};

} // namespace tally
