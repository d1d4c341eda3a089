#include "reports/frmExamComparison.h"

#include "core/Numbers.h"
#include "core/school/SchoolListRepository.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/SelectAllBox.h"
#include "reports/ComparisonRepository.h"
#include "reports/StudentChoice.h"
#include "ui_frmExamComparison.h"

#include <QKeyEvent>

namespace tally {

namespace {

/// Serial number and exam, and the hidden column between them.
constexpr int ColumnsInSight = 3;

} // namespace

frmExamComparison::frmExamComparison(const ExamComparison& report)
    : ReportScreen(QString::fromLatin1(report.formName), report.helpScreenNo), report_(report),
      ui_(std::make_unique<Ui::frmExamComparison>())
{
    ui_->setupUi(this);
    setWindowTitle(QString::fromLatin1(report.caption));
    ui_->lblStudent->setVisible(report.ofStudent);
    ui_->cbostudent->setVisible(report.ofStudent);
    DressButtons(this);
    ui_->msgDetails->SetFixedCols(ColumnsInSight);
    SetReportControls({.msgDetails = ui_->msgDetails,
                       .cmdExport = ui_->cmdExport,
                       .cmdPrint = ui_->cmdPrint,
                       .Frame3 = ui_->Frame3,
                       .cmdChart = ui_->cmdChart,
                       .optBarGrph = ui_->optBarGrph,
                       .optLineGrph = ui_->optLineGrph,
                       .cmdCancel = ui_->cmdCancel,
                       .cmdExit = ui_->cmdExit});
    ConnectHandlers();
    Form_Load();
}

frmExamComparison::~frmExamComparison() = default;

void frmExamComparison::ConnectHandlers()
{
    student_ = new StudentChoice(
        this, {ui_->cboClass, ui_->cboDivision, report_.ofStudent ? ui_->cbostudent : nullptr},
        DivisionChoice::Order::ByName);
    exams_ = new SelectAllBox(ui_->chkSelectExamName, ui_->Lstexamnames);
    subjects_ = new SelectAllBox(ui_->chkSelectSubjects, ui_->Lstsubjects);
    connect(exams_, &SelectAllBox::Changed, this, &frmExamComparison::Lstexamnames_ItemCheck);
    connect(subjects_, &SelectAllBox::Changed, this, &frmExamComparison::ClearReport);
    connect(student_, &StudentChoice::Changed, this, &frmExamComparison::LoadSubjects);
    // An arrow key gives the option the focus after switching it on, so what is missing takes it after that.
    connect(ui_->Optsubjectdisplayno, &QRadioButton::toggled, this,
            &frmExamComparison::Optsubjectdisplayno_Click, Qt::QueuedConnection);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmExamComparison::cmdView_Click);
    for (DataCombo* combo : {ui_->cboDivision, ui_->cbostudent})
        combo->setProperty(EnterNeedsText, true);
    ui_->cboClass->setProperty(TakesEnter, true);
    ui_->cboClass->installEventFilter(this);
}

void frmExamComparison::Form_Load()
{
    ui_->cboClass->setEnabled(false);
    OfferLineGraph(0);
    TellOnce([this] {
        std::vector<ListItem> exams;
        Read([&] {
            for (const auto& [code, name] : SchoolListRepository(MainStore()).Exams())
                exams.push_back({code, name, {}});
        });
        exams_->SetItems(exams);
        student_->Load();
    });
    ui_->Lstexamnames->setFocus();
}

SubjectDisplay frmExamComparison::Display() const
{
    return ChosenDisplay(!ui_->Optsubjectdisplayno->isChecked());
}

void frmExamComparison::Lstexamnames_ItemCheck()
{
    const auto ticked = static_cast<int>(ui_->Lstexamnames->TickedIndexes().size());
    ui_->cboClass->setEnabled(ticked > 0);
    OfferLineGraph(ticked);
    LoadSubjects();
}

bool frmExamComparison::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = watched == ui_->cboClass && event->type() == QEvent::KeyPress;
    const int key = isKey ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return ReportScreen::eventFilter(watched, event);
    cboClass_Enter();
    return true;
}

void frmExamComparison::cboClass_Enter()
{
    if (ui_->cboClass->IsBlank())
        return;
    // Who comes by the keys has the divisions in the order of their codes, as the office is used to.
    student_->OfferDivisions(DivisionChoice::Order::ByCode);
    ui_->cboDivision->setFocus(Qt::TabFocusReason);
}

void frmExamComparison::LoadSubjects()
{
    ClearReport();
    subjects_->Clear();
    if (!student_->IsMade())
        return;
    const SchoolScope scope = student_->Scope();
    const std::vector<int> exams = ui_->Lstexamnames->TickedData();
    const auto found = Fetch([&] {
        const HourGlass hourGlass;
        ComparisonRepository repository(MainStore());
        return report_.ofStudent
                   ? repository.LoadStudentSubjects(scope, student_->StudentCode(), exams, Display())
                   : repository.LoadDivisionSubjects(scope, exams, Display());
    });
    if (found)
        subjects_->SetItems(SubjectItems(*found, exams, QString::fromLatin1(report_.subjectRefusal)));
}

void frmExamComparison::Optsubjectdisplayno_Click(bool on)
{
    LoadSubjects();
    if (!on || !ui_->cboClass->IsBlank())
        return;
    {
        // Neither of the two is on then, until one is chosen for a class.
        const QSignalBlocker quiet(ui_->Optsubjectdisplayno);
        ui_->subjectDisplay->setExclusive(false);
        ui_->Optsubjectdisplayno->setChecked(false);
        ui_->subjectDisplay->setExclusive(true);
    }
    // Without an exam the class is off, and the exam comes first.
    Refuse(QStringLiteral("Select Class"),
           ui_->cboClass->isEnabled() ? static_cast<QWidget*>(ui_->cboClass) : ui_->Lstexamnames);
}

bool frmExamComparison::SelectionComplete()
{
    if (ui_->Lstexamnames->TickedIndexes().isEmpty())
        return Refuse(QStringLiteral("Select Exam Name(s)"), ui_->Lstexamnames);
    if (!student_->IsComplete())
        return false;
    if (!ui_->Optsubjectdisplayno->isChecked() && !ui_->Optsubjectdisplayyes->isChecked())
        return Refuse(QStringLiteral("Select 'Subjects Taken For Rank' Option"), ui_->Optsubjectdisplayno);
    if (ui_->Lstsubjects->TickedIndexes().isEmpty())
        return Refuse(QStringLiteral("Select Subject(s)"), ui_->Lstsubjects);
    return true;
}

void frmExamComparison::cmdView_Click()
{
    if (SelectionComplete())
        ViewReport([this] { return ReadList(); });
}

GridTable frmExamComparison::ReadList() const
{
    const std::vector<int> exams = ui_->Lstexamnames->TickedData();
    const std::vector<int> subjects = ui_->Lstsubjects->TickedData();
    ComparisonRepository repository(MainStore());
    ComparisonInput input = report_.ofStudent
                                ? repository.LoadStudentMarks(student_->Scope(), student_->StudentCode(),
                                                              exams, subjects, Display())
                                : repository.LoadDivisionMarks(student_->Scope(), exams, subjects, Display());
    for (const int index : ui_->Lstexamnames->TickedIndexes())
        input.lines.emplace_back(ui_->Lstexamnames->ItemData(index), ui_->Lstexamnames->item(index)->text());
    const SessionContext& session = Session();
    return report_.ofStudent
               ? ShowStudentMarks(input, MarkDecimals(session.gblnFractionMarks, session.gblnRoundedMarks))
               : ShowDivisionAverages(input);
}

ReportScreen::ReportHead frmExamComparison::Head() const
{
    return {
        windowTitle(),
        report_.ofStudent
            ? QStringLiteral("Class :%1 Division : %2 Student Name :%3")
                  .arg(student_->ClassName(), student_->DivisionName(), student_->StudentName())
            : QStringLiteral("Class :%1  Division :%2").arg(student_->ClassName(), student_->DivisionName())};
}

QString frmExamComparison::ClassDivision() const
{
    return student_->ClassName() + QLatin1Char('/') + student_->DivisionName();
}

QString frmExamComparison::TextTitle() const
{
    return QStringLiteral("Marks For %1 Of %2 In Each Exam").arg(student_->StudentName(), ClassDivision());
}

void frmExamComparison::cmdPrint_Click()
{
    if (!report_.ofStudent)
        ReportScreen::cmdPrint_Click();
    else if (MayPrint())
        PrintText(QStringLiteral("StudentExamAvg.txt"),
                  StudentMarksText(ui_->msgDetails->Table(), TextTitle()));
}

void frmExamComparison::cmdChart_Click()
{
    const GridTable& list = ui_->msgDetails->Table();
    const auto chart = LayDownChart(ChartOf(list, "ExamName", ExamLabels(list)));
    if (!chart)
        return;
    // On a wall the chart has to say whose it is.
    const QString title =
        report_.ofStudent ? TextTitle() : Head().title + QStringLiteral(" - ") + ClassDivision();
    ShowChart(*chart, {title, QStringLiteral("EXAMS"), QStringLiteral("MARKS")});
}

void frmExamComparison::cmdCancel_Click()
{
    ResetReport();
    const QSignalBlocker quiet(ui_->Optsubjectdisplayno);
    ui_->Optsubjectdisplayno->setChecked(true);
    Form_Load();
}

} // namespace tally
