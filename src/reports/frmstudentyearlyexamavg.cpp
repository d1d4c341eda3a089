#include "reports/frmstudentyearlyexamavg.h"

#include "core/Numbers.h"
#include "core/school/SchoolListRepository.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/SelectAllBox.h"
#include "reports/ComparisonRepository.h"
#include "reports/StudentChoice.h"
#include "ui_frmstudentyearlyexamavg.h"

namespace tally {

namespace {

constexpr int HelpScreenNo = 26;
/// Serial number and year.
constexpr int ColumnsInSight = 2;

} // namespace

frmstudentyearlyexamavg::frmstudentyearlyexamavg()
    : ReportScreen(QStringLiteral("frmstudentyearlyexamavg"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmstudentyearlyexamavg>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->msgDetails->SetFixedCols(ColumnsInSight);
    SetReportControls({.msgDetails = ui_->msgDetails,
                       .cmdExport = ui_->cmdExport,
                       .Frame3 = ui_->Frame3,
                       .cmdChart = ui_->cmdChart,
                       .optBarGrph = ui_->optBarGrph,
                       .optLineGrph = ui_->optLineGrph,
                       .cmdCancel = ui_->cmdCancel,
                       .cmdExit = ui_->cmdExit,
                       .printing = Printing::Never});
    ConnectHandlers();
    Form_Load();
}

frmstudentyearlyexamavg::~frmstudentyearlyexamavg() = default;

void frmstudentyearlyexamavg::ConnectHandlers()
{
    student_ = new StudentChoice(this, {ui_->cboClass, ui_->cboDivision, ui_->cbostudent},
                                 DivisionChoice::Order::ByCode);
    years_ = new SelectAllBox(ui_->chkSelectYear, ui_->Lstacademicyear);
    subjects_ = new SelectAllBox(ui_->chkSelectSubjects, ui_->Lstsubjects);
    // A subject that was not taught in each of the years can be looked at all the same, one by one.
    subjects_->PassOver(QLatin1Char('.'));
    connect(student_, &StudentChoice::Changed, this, &frmstudentyearlyexamavg::LoadYears);
    connect(years_, &SelectAllBox::Changed, this, &frmstudentyearlyexamavg::Lstacademicyear_ItemCheck);
    connect(ui_->Cboexamname, &DataCombo::Chosen, this, &frmstudentyearlyexamavg::LoadSubjects);
    connect(subjects_, &SelectAllBox::Changed, this, &frmstudentyearlyexamavg::ClearReport);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmstudentyearlyexamavg::cmdView_Click);
    for (DataCombo* combo : {ui_->cboClass, ui_->cboDivision, ui_->cbostudent, ui_->Cboexamname})
        combo->setProperty(EnterNeedsText, true);
}

void frmstudentyearlyexamavg::Form_Load()
{
    TellOnce([this] {
        student_->Load();
        ui_->Cboexamname->SetListBehindBlank({});
        Read([this] { ui_->Cboexamname->SetListBehindBlank(SchoolListRepository(MainStore()).Exams()); });
    });
    ui_->cboClass->setFocus();
}

void frmstudentyearlyexamavg::LoadYears()
{
    std::vector<ListItem> years;
    if (const int studentCode = student_->StudentCode(); studentCode != 0) {
        Read([&] {
            for (const auto& [code, text] : ComparisonRepository(MainStore()).StudentYears(studentCode))
                years.push_back({code, text, {}});
        });
    }
    years_->SetItems(years);
    Lstacademicyear_ItemCheck();
}

void frmstudentyearlyexamavg::Lstacademicyear_ItemCheck()
{
    OfferLineGraph(static_cast<int>(ui_->Lstacademicyear->TickedIndexes().size()));
    // Which subjects there are depends on the years first.
    ui_->Cboexamname->SetBoundCode(0);
    LoadSubjects();
}

void frmstudentyearlyexamavg::LoadSubjects()
{
    ClearReport();
    subjects_->Clear();
    const int studentCode = student_->StudentCode();
    const int examCode = ui_->Cboexamname->BoundCode();
    const std::vector<int> years = ui_->Lstacademicyear->TickedData();
    if (studentCode == 0 || examCode == 0)
        return;
    const auto found = Fetch(
        [&] { return ComparisonRepository(MainStore()).LoadYearSubjects(studentCode, examCode, years); });
    if (found)
        subjects_->SetItems(SubjectItems(*found, years, {}));
}

bool frmstudentyearlyexamavg::SelectionComplete()
{
    if (!student_->IsComplete())
        return false;
    if (ui_->Lstacademicyear->TickedIndexes().isEmpty())
        return Refuse(QStringLiteral("Select Academic Year(s)"), ui_->Lstacademicyear);
    if (ui_->Cboexamname->IsBlank())
        return Refuse(QStringLiteral("Select Exam Name"), ui_->Cboexamname);
    if (ui_->Lstsubjects->TickedIndexes().isEmpty())
        return Refuse(QStringLiteral("Select Subject(s)"), ui_->Lstsubjects);
    return true;
}

void frmstudentyearlyexamavg::cmdView_Click()
{
    if (SelectionComplete() && ViewReport([this] { return ReadList(); }))
        ui_->cmdChart->setEnabled(true);
}

GridTable frmstudentyearlyexamavg::ReadList() const
{
    ComparisonInput input =
        ComparisonRepository(MainStore())
            .LoadYearMarks(student_->StudentCode(), ui_->Cboexamname->BoundCode(),
                           ui_->Lstacademicyear->TickedData(), ui_->Lstsubjects->TickedData());
    for (const int index : ui_->Lstacademicyear->TickedIndexes())
        input.lines.emplace_back(ui_->Lstacademicyear->ItemData(index),
                                 ui_->Lstacademicyear->item(index)->text());
    const SessionContext& session = Session();
    return ShowYearMarks(input, MarkDecimals(session.gblnFractionMarks, session.gblnRoundedMarks));
}

ReportScreen::ReportHead frmstudentyearlyexamavg::Head() const
{
    return {windowTitle(), QStringLiteral("Class :%1 Division :%2 Student Name :%3 Exam Name : %4")
                               .arg(student_->ClassName(), student_->DivisionName(), student_->StudentName(),
                                    ui_->Cboexamname->currentText().trimmed())};
}

void frmstudentyearlyexamavg::cmdChart_Click()
{
    const GridTable& list = ui_->msgDetails->Table();
    const auto chart = LayDownChart(ChartOf(list, "AcdYear", YearLabels(list)));
    if (!chart)
        return;
    if (chart->rows.empty()) {
        Prompts::Information(QStringLiteral("Required Data Is Not Available For Displaying The Chart"));
        ui_->cmdChart->setEnabled(false);
        return;
    }
    // On a wall the chart has to say whose it is.
    ShowChart(*chart,
              {QStringLiteral("%1 - %2 %3")
                   .arg(Head().title, student_->StudentName(), ui_->Cboexamname->currentText().trimmed()),
               QStringLiteral("ACADEMIC YEAR"), QStringLiteral("MARKS")});
}

void frmstudentyearlyexamavg::cmdCancel_Click()
{
    ResetReport();
    Form_Load();
}

} // namespace tally
