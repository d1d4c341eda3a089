#pragma once

#include "core/school/SchoolTypes.h"
#include "reports/ExamComparison.h"
#include "reports/ReportScreen.h"

#include <memory>

namespace Ui {
class frmExamComparison;
}

namespace tally {

class SelectAllBox;
class StudentChoice;

/// Compares the chosen exams: a division's average of each chosen subject, or one student's marks.
class frmExamComparison : public ReportScreen
{
    Q_OBJECT

public:
    /// `report` must outlive the screen.
    explicit frmExamComparison(const ExamComparison& report);
    ~frmExamComparison() override;

protected:
    ReportHead Head() const override;
    void cmdCancel_Click() override;
    void cmdPrint_Click() override;
    void cmdChart_Click() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void ConnectHandlers();

    void Lstexamnames_ItemCheck();
    void cboClass_Enter();
    void LoadSubjects();
    void Optsubjectdisplayno_Click(bool on);
    void cmdView_Click();

    /// All that the list needs must be chosen. Says what is missing and gives it the focus.
    bool SelectionComplete();
    /// The list as it is chosen.
    GridTable ReadList() const;
    /// "{Class}/{Division}".
    QString ClassDivision() const;
    QString TextTitle() const;

    SubjectDisplay Display() const;

    const ExamComparison& report_;
    std::unique_ptr<Ui::frmExamComparison> ui_;
    StudentChoice* student_ = nullptr;
    SelectAllBox* exams_ = nullptr;
    SelectAllBox* subjects_ = nullptr;
};

} // namespace tally
