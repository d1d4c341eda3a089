#pragma once

#include "core/ui/Screen.h"

#include <memory>
#include <optional>

namespace Ui {
class frmMasAcademicYearChange;
}

namespace tally {

struct StoredYear;

/// Lets the user work in another academic year until the program ends. Only the session changes.
class frmMasAcademicYearChange : public Screen
{
    Q_OBJECT

public:
    frmMasAcademicYearChange();
    ~frmMasAcademicYearChange() override;

protected:
    void Form_Activate(bool first) override;

private:
    void txtAcademicYearFrom_Change(const QString& text);
    void cmdSave_Click();
    void cmdCancel_Click();

    /// The stored year that was typed; without one the user has been told and the fields are empty.
    std::optional<StoredYear> FindYear();
    std::optional<StoredYear> Refused(const QString& text);
    void WorkIn(const StoredYear& found);
    void ClearFields();

    std::unique_ptr<Ui::frmMasAcademicYearChange> ui_;
};

} // namespace tally
