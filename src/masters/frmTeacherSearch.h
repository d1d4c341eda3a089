#pragma once

#include "core/ui/SearchScreen.h"

#include <memory>

namespace Ui {
class frmTeacherSearch;
}

namespace tally {

/// Finds teachers by name and city and hands one to frmTeacherMaster.
class frmTeacherSearch : public SearchScreen
{
    Q_OBJECT

public:
    frmTeacherSearch();
    ~frmTeacherSearch() override;

private:
    void cmdSearch_Click();
    void dgdDetails_DblClick(int row);

    std::unique_ptr<Ui::frmTeacherSearch> ui_;
};

} // namespace tally
