#pragma once

#include "core/ui/Screen.h"

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
    /// Reads the last date where that failed before; false when it fails again and the user has been told.
    bool KnowsLastDate();
    void ShowDate(const QDate& date);

    std::unique_ptr<Ui::frmUtilApplicationDateSetup> ui_;
    QDate lastDate_; ///< the last working day of the year in use; invalid while it could not be read
};

} // namespace tally
