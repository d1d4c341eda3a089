#pragma once

#include "reports/ReportScreen.h"

#include <memory>

namespace Ui {
class frmstudentyearlyexamavg;
}

namespace tally {

class SelectAllBox;
class StudentChoice;

/// "Subject Marks Based On AcademicYear(s)": follows a student of this year through his own years in the
/// school, and compares his marks in one exam.
class frmstudentyearlyexamavg : public ReportScreen
{
    Q_OBJECT

public:
    frmstudentyearlyexamavg();
    ~frmstudentyearlyexamavg() override;

protected:
    ReportHead Head() const override;
    void cmdCancel_Click() override;
    void cmdChart_Click() override;

private:
    void Form_Load();
    void ConnectHandlers();

    void LoadYears();
    void Lstacademicyear_ItemCheck();
    void LoadSubjects();
    void cmdView_Click();

    /// All that the list needs must be chosen. Says what is missing and gives it the focus.
    bool SelectionComplete();
    /// The list as it is chosen.
    GridTable ReadList() const;

    std::unique_ptr<Ui::frmstudentyearlyexamavg> ui_;
    StudentChoice* student_ = nullptr;
    SelectAllBox* years_ = nullptr;
    SelectAllBox* subjects_ = nullptr;
};

} // namespace tally
