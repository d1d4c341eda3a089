#pragma once

#include "core/ui/Screen.h"

#include <QDate>

#include <memory>

namespace Ui {
class frmUtilApplicationDateChange;
}

namespace tally {

/// Lets a user go back to an earlier working day, in this session only, as far as the user's limit of days
/// allows.
class frmUtilApplicationDateChange : public Screen
{
    Q_OBJECT

public:
    frmUtilApplicationDateChange();
    ~frmUtilApplicationDateChange() override;

protected:
    void Form_Activate(bool first) override;

private:
    void dtpApplicationDate_Change(const QDate& date);
    void cmdSave_Click();
    void cmdCancel_Click();

    void ShowRange();
    void ShowWorkingDate();

    std::unique_ptr<Ui::frmUtilApplicationDateChange> ui_;
    QDate lastDay_; ///< the last working day of the year in use; invalid where it has none, or none was read
};

} // namespace tally
