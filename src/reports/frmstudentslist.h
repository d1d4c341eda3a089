#pragma once

#include "reports/ReportScreen.h"
#include "reports/StudentsList.h"

#include <memory>

namespace Ui {
class frmstudentslist;
}

namespace tally {

class DivisionSubjectChoice;

/// "List Of Students Below Class Average" and its sibling above: the students whose mark in a subject lies on
/// that side of the subject's class average or of a given value, by name or counted by subject.
class frmstudentslist : public ReportScreen
{
    Q_OBJECT

public:
    explicit frmstudentslist(const StudentsListDefinition& definition);
    ~frmstudentslist() override;

protected:
    QString ExitCaption() const override;
    ReportHead Head() const override;
    const FlexGrid* ShownList() const override;
    void cmdExport_Click() override;
    void cmdPrint_Click() override;
    void cmdCancel_Click() override;

private:
    enum class ReportType : int
    {
        Detail = 1,
        Summary = 2,
    };

    void ConnectHandlers();
    void LoadReportTypes();
    void Selection_Change();
    void optClassAverage_Click(bool on);
    void cmdView_Click();
    /// The list, or the summary, in the place that both share.
    void ShowPanel(ReportType type);

    bool IsSummaryShown() const;
    StudentsListOptions Options() const;

    std::unique_ptr<Ui::frmstudentslist> ui_;
    const StudentsListDefinition& definition_;
    DivisionSubjectChoice* choice_ = nullptr;
};

} // namespace tally
