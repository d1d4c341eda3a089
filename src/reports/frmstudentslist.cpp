#include "reports/frmstudentslist.h"

#include "core/Numbers.h"
#include "core/SessionContext.h"
#include "core/Twips.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "reports/DivisionSubjectChoice.h"
#include "reports/output/ExportGridToExcel.h"
#include "reports/StudentsListRepository.h"
#include "ui_frmstudentslist.h"

#include <QHeaderView>

namespace tally {

namespace {

DivisionReportRules RulesOf(const StudentsListDefinition& definition)
{
    return {
        .wantsAllMarks = false,
        .comparesAllSubjects = true,
        .tellsOneReason = false,
        .marksSubjects = false,
        .subjectsDiffer = "Selected Division's 'Subjects Taken For Rank' Does Not Match With Already "
                          "Selected Division(s)",
        .noDivision = definition.noDivision,
    };
}

} // namespace

frmstudentslist::frmstudentslist(const StudentsListDefinition& definition)
    : ReportScreen(QString::fromLatin1(definition.formName), definition.helpScreenNo),
      ui_(std::make_unique<Ui::frmstudentslist>()), definition_(definition)
{
    ui_->setupUi(this);
    setWindowTitle(QString::fromLatin1(definition.caption));
    DressButtons(this);
    ui_->msgDetails->SetFixedCols(static_cast<int>(StudentsListColumn::FirstSubject));
    ui_->msgDetails->horizontalHeader()->setMinimumHeight(definition.headHeight / TwipsPerPixel);
    SetReportControls({.msgDetails = ui_->msgDetails,
                       .msgSummary = ui_->msgSummary,
                       .cmdExport = ui_->cmdExport,
                       .cmdPrint = ui_->cmdPrint,
                       .Frame3 = nullptr,
                       .cmdChart = nullptr,
                       .optBarGrph = nullptr,
                       .optLineGrph = nullptr,
                       .cmdCancel = ui_->cmdCancel,
                       .cmdExit = ui_->cmdExit});
    choice_ = new DivisionSubjectChoice(this,
                                        {.Cboexamname = ui_->Cboexamname,
                                         .cboClass = ui_->cboClass,
                                         .Lstdivision = ui_->Lstdivision,
                                         .selectDivisions = ui_->chkSelectAllDivision,
                                         .Lstsubjects = ui_->Lstsubjects,
                                         .selectSubjects = ui_->chkSelectAll,
                                         .Optsubjectdisplayyes = ui_->Optsubjectdisplayyes,
                                         .Optsubjectdisplayno = ui_->Optsubjectdisplayno},
                                        RulesOf(definition));
    ConnectHandlers();
    LoadReportTypes();
    frmstudentslist::cmdCancel_Click();
}

frmstudentslist::~frmstudentslist() = default;

void frmstudentslist::ConnectHandlers()
{
    connect(choice_, &DivisionSubjectChoice::Changed, this, &frmstudentslist::Selection_Change);
    connect(ui_->optClassAverage, &QRadioButton::toggled, this, &frmstudentslist::optClassAverage_Click);
    connect(ui_->optAll, &QRadioButton::toggled, this, &frmstudentslist::Selection_Change);
    connect(ui_->Txtgivenvalue, &QLineEdit::textChanged, this, &frmstudentslist::Selection_Change);
    connect(ui_->cboReportType, &DataCombo::Chosen, this, &frmstudentslist::Selection_Change);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmstudentslist::cmdView_Click);
}

void frmstudentslist::LoadReportTypes()
{
    ui_->cboReportType->SetList(
        {{static_cast<int>(ReportType::Detail), QStringLiteral("Detail ( With Student Name)")},
         {static_cast<int>(ReportType::Summary), QStringLiteral("Summary ( No.Of Sudents)")}});
}

void frmstudentslist::Selection_Change()
{
    ClearReport();
}

void frmstudentslist::optClassAverage_Click(bool on)
{
    if (on)
        ui_->Txtgivenvalue->clear();
    ui_->Txtgivenvalue->setEnabled(!on);
    Selection_Change();
}

StudentsListOptions frmstudentslist::Options() const
{
    const SessionContext& session = Session();
    StudentsListOptions options{.side = definition_.side,
                                .givenValue = {},
                                .markDecimals =
                                    MarkDecimals(session.gblnFractionMarks, session.gblnRoundedMarks)};
    if (ui_->optGivenValue->isChecked())
        options.givenValue = ui_->Txtgivenvalue->text().trimmed();
    return options;
}

void frmstudentslist::cmdView_Click()
{
    if (!choice_->IsComplete())
        return;
    const StudentsListOptions options = Options();
    if (options.givenValue && Val(*options.givenValue) <= 0) {
        Refuse(QStringLiteral("'Given Value' Should Be Greater Than 0(Zero)"), ui_->Txtgivenvalue);
        return;
    }
    if (ui_->cboReportType->IsBlank()) {
        Refuse(QStringLiteral("Select Report Type"), ui_->cboReportType);
        return;
    }
    Read([&] {
        const HourGlass hourGlass;
        const StudentsListInput input = StudentsListRepository(MainStore())
                                            .LoadStudentsList(choice_->Scope(), choice_->DivisionCodes(),
                                                              choice_->SubjectCodes(), definition_.side);
        GridTable list = ListStudents(input, options);
        ui_->msgSummary->Show(SummariseStudents(list, definition_.side));
        ShowPanel(static_cast<ReportType>(ui_->cboReportType->BoundCode()));
        ShowReport(std::move(list));
        SwitchOutput(!input.students.empty() && !input.subjects.empty());
    });
}

void frmstudentslist::ShowPanel(ReportType type)
{
    ui_->Frame2->setVisible(type == ReportType::Detail);
    ui_->Frame6->setVisible(type == ReportType::Summary);
}

bool frmstudentslist::IsSummaryShown() const
{
    return ui_->Frame6->isVisibleTo(this);
}

const FlexGrid* frmstudentslist::ShownList() const
{
    return IsSummaryShown() ? ui_->msgSummary : ui_->msgDetails;
}

ReportScreen::ReportHead frmstudentslist::Head() const
{
    const std::optional<QString> value = Options().givenValue;
    return {value && definition_.titleGivenValue ? QString::fromLatin1(definition_.titleGivenValue) + *value
                                                 : windowTitle(),
            QStringLiteral("Exam Name :") + choice_->ExamName() + QStringLiteral(" Class :") +
                choice_->ClassName() + QString::fromLatin1(definition_.divisionsOfHead) +
                choice_->DivisionNames()};
}

void frmstudentslist::cmdExport_Click()
{
    if (!MayUse(Right::Print))
        return;
    const ReportHead head = Head();
    const FlexGrid* list =
        definition_.exportsSummary ? ShownList() : static_cast<const FlexGrid*>(ui_->msgDetails);
    ExportReport(list->Table(), head.title, head.subTitle);
}

void frmstudentslist::cmdPrint_Click()
{
    if (!definition_.printsText) {
        ReportScreen::cmdPrint_Click();
        return;
    }
    if (!MayPrint())
        return;
    if (IsSummaryShown())
        PrintText(QStringLiteral("Summary.txt"), PrintedSummary(ui_->msgSummary->Table()));
    else
        PrintText(QStringLiteral("Details.txt"), PrintedStudents(ui_->msgDetails->Table()));
}

void frmstudentslist::cmdCancel_Click()
{
    ResetReport();
    ui_->optClassAverage->setChecked(true);
    ui_->optAll->setChecked(true);
    ShowPanel(ReportType::Detail);
    choice_->Reset();
    ui_->Cboexamname->setFocus();
}

QString frmstudentslist::ExitCaption() const
{
    return QString::fromLatin1(definition_.exitCaption);
}

} // namespace tally
