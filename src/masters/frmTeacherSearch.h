#pragma once

#include "core/ui/Screen.h"

#include <memory>

namespace Ui {
class frmTeacherSearch;
}

namespace tally {

/// Finds teachers by name and city and hands one to frmTeacherMaster.
class frmTeacherSearch : public Screen
{
    Q_OBJECT

public:
    frmTeacherSearch();
    ~frmTeacherSearch() override;

    QSize sizeHint() const override;

protected:
    bool Form_QueryUnload() override;

private:
    void cmdSearch_Click();
    void cmdCancel_Click();
    void dgdDetails_DblClick(int row);
    void FormQuery(const QString& name, const QString& city);
    void EmptyGrid();

    std::unique_ptr<Ui::frmTeacherSearch> ui_;
};

} // namespace tally
