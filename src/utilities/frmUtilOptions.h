#pragma once

#include "core/ui/Screen.h"

#include <QDate>

#include <memory>

namespace Ui {
class frmUtilOptions;
}

namespace tally {

struct OptionSettings;

/// The school's few settings.
class frmUtilOptions : public Screen
{
    Q_OBJECT

public:
    frmUtilOptions();
    ~frmUtilOptions() override;

private:
    void LoadSettings();
    /// Back to the working date. Tells nobody.
    void ResetDatePicker();
    void DTPDateOfBirthSetting_Change(const QDate& date);
    void lblDateOfBirthSetting_Cleared();
    void chkFractionMarks_Click(bool ticked);
    void cmdSave_Click();
    void cmdCancel_Click();
    void Changed();
    OptionSettings Settings() const;

    std::unique_ptr<Ui::frmUtilOptions> ui_;
};

} // namespace tally
