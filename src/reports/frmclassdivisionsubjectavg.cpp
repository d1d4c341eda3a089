#include "reports/frmclassdivisionsubjectavg.h"

#include "core/SessionContext.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/look/Look.h"
#include "reports/ClassDivisionAverage.h"
#include "reports/DivisionReportRepository.h"
#include "reports/DivisionSubjectChoice.h"
#include "ui_frmclassdivisionsubjectavg.h"

namespace tally {

namespace {

constexpr int HelpScreenNo = 23;

constexpr DivisionReportRules Rules{
    .wantsAllMarks = true,
    .comparesAllSubjects = false,
    .tellsOneReason = true,
    .marksSubjects = true,
    .subjectsDiffer = "Subject(s) Taken For Rank Are Not Same For The Selected Division",
    .noDivision = "Select Division(s)",
};

} // namespace

frmclassdivisionsubjectavg::frmclassdivisionsubjectavg()
    : ReportScreen(QStringLiteral("frmclassdivisionsubjectavg"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmclassdivisionsubjectavg>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->msgDetails->SetFixedCols(FirstSubjectColumn);
    SetReportControls({.msgDetails = ui_->msgDetails,
                       .msgSummary = nullptr,
                       .cmdExport = ui_->cmdExport,
                       .cmdPrint = ui_->cmdPrint,
                       .Frame3 = ui_->Frame3,
                       .cmdChart = ui_->cmdChart,
                       .optBarGrph = ui_->optBarGrph,
                       .optLineGrph = ui_->optLineGrph,
                       .cmdCancel = ui_->cmdCancel,
                       .cmdExit = ui_->cmdExit});
    choice_ = new DivisionSubjectChoice(this,
                                        {.Cboexamname = ui_->Cboexamname,
                                         .cboClass = ui_->cboClass,
                                         .Lstdivision = ui_->Lstdivision,
                                         .selectDivisions = ui_->ChkSelectDivision,
                                         .Lstsubjects = ui_->Lstsubjects,
                                         .selectSubjects = ui_->chkSelectSubjects,
                                         .Optsubjectdisplayyes = ui_->Optsubjectdisplayyes,
                                         .Optsubjectdisplayno = ui_->Optsubjectdisplayno},
                                        Rules);
    connect(choice_, &DivisionSubjectChoice::Changed, this, &frmclassdivisionsubjectavg::Selection_Change);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmclassdivisionsubjectavg::cmdView_Click);
    frmclassdivisionsubjectavg::cmdCancel_Click();
}

frmclassdivisionsubjectavg::~frmclassdivisionsubjectavg() = default;

void frmclassdivisionsubjectavg::Selection_Change()
{
    ClearReport();
    OfferLineGraph(static_cast<int>(choice_->DivisionCodes().size()));
}

void frmclassdivisionsubjectavg::cmdView_Click()
{
    if (!choice_->IsComplete())
        return;
    const auto input = Fetch([this] {
        const HourGlass hourGlass;
        return DivisionReportRepository(MainStore())
            .LoadDivisionAverages(choice_->Scope(), choice_->DivisionCodes());
    });
    if (input)
        ShowReport(ShowClassDivisionAverages(*input, {.className = choice_->ClassName(),
                                                      .divisions = choice_->Divisions(),
                                                      .subjectCodes = choice_->SubjectCodes(),
                                                      .display = choice_->Display()}));
}

void frmclassdivisionsubjectavg::cmdChart_Click()
{
    const auto chart = LayDownChart(ChartOfDivisionAverages(ShownList()->Table()));
    if (chart)
        ShowChart(*chart, {QStringLiteral("Class-Division wise Subject Average For ") + choice_->ExamName(),
                           QStringLiteral("CLASS"), QStringLiteral("AVERAGE")});
}

ReportScreen::ReportHead frmclassdivisionsubjectavg::Head() const
{
    return {QStringLiteral("Subject Average Based On Class/Division"),
            QStringLiteral("Exam Name :") + choice_->ExamName()};
}

void frmclassdivisionsubjectavg::cmdCancel_Click()
{
    ResetReport();
    choice_->Reset();
    ui_->Cboexamname->setFocus();
}

} // namespace tally
