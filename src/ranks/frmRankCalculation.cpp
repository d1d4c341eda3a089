#include "ranks/frmRankCalculation.h"

#include "core/school/DivisionRepository.h"
#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/FormKeys.h"
#include "core/ui/ListRoom.h"
#include "core/ui/look/CellPaint.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "ranks/GradeSummaryPanel.h"
#include "ranks/RankViews.h"
#include "reports/output/ExportGridToExcel.h"
#include "reports/output/GridPrint.h"
#include "store/StoreError.h"
#include "ui_frmRankCalculation.h"

#include <QScrollBar>

#include <algorithm>

namespace tally {

namespace {

constexpr int HelpScreenNo = 21;
const QString ListTitle = QStringLiteral("Rank List");

} // namespace

frmRankCalculation::frmRankCalculation()
    : Screen(QStringLiteral("frmRankCalculation"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmRankCalculation>()), table_(TempStore())
{
    ui_->setupUi(this);
    DressButtons(this);
    Frame5_ = new GradeSummaryPanel(this);
    ShowDivisionKey();
    // The name stays in sight beside the ranks.
    ui_->msgDisplayDetails->SetFixedCols(1);
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    Form_Load();
}

frmRankCalculation::~frmRankCalculation() = default;

void frmRankCalculation::Form_Load()
{
    ResetGrid();
    LoadLists();
    ui_->Cboexamname->setFocus();
}

void frmRankCalculation::ConnectHandlers()
{
    connect(ui_->Cboexamname, &QComboBox::activated, this, &frmRankCalculation::Cboexamname_Click);
    connect(ui_->cboClass, &QComboBox::activated, this, &frmRankCalculation::cboClass_Click);
    connect(ui_->Lstdivision, &CheckList::Ticked, this, &frmRankCalculation::Lstdivision_ItemCheck);
    connect(ui_->chkSelectAll, &QCheckBox::toggled, this, &frmRankCalculation::chkSelectAll_Click);
    // An arrow key gives the option the focus after switching it on, so what is missing takes it after that.
    connect(ui_->Optsubjectdisplayyes, &QRadioButton::toggled, this,
            &frmRankCalculation::Optsubjectdisplayyes_Click, Qt::QueuedConnection);
    connect(ui_->cmdUpdate, &QPushButton::clicked, this, &frmRankCalculation::cmdUpdate_Click);
    for (QRadioButton* order :
         {ui_->optRankOrder, ui_->optGradeOrder, ui_->optAdmissionNoOrder, ui_->optAlphabeticalOrder})
        connect(order, &QRadioButton::clicked, this, &frmRankCalculation::cmdView_Click);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmRankCalculation::cmdView_Click);
    connect(ui_->cmdTotalDetails, &QPushButton::clicked, this, &frmRankCalculation::cmdTotalDetails_Click);
    connect(Frame5_, &GradeSummaryPanel::CloseClicked, this, &frmRankCalculation::cmdClose_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmRankCalculation::cmdSave_Click);
    connect(ui_->cmdExport, &QPushButton::clicked, this, &frmRankCalculation::cmdExport_Click);
    connect(ui_->cmdPrintSetup, &QPushButton::clicked, this, &frmRankCalculation::cmdPrintSetup_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmRankCalculation::cmdCancel_Click);
    for (QComboBox* combo : {ui_->Cboexamname, ui_->cboClass})
        combo->setProperty(EnterNeedsText, true);
}

void frmRankCalculation::ShowDivisionKey()
{
    // Each sign stands between the brackets of its note, as it will stand before a division's name.
    const int brackets = fontMetrics().horizontalAdvance(QStringLiteral("[   ]"));
    for (QLabel* sign : {ui_->lblMark1, ui_->lblMark2, ui_->lblMark3, ui_->lblMark4})
        sign->setFixedWidth(brackets);
    const QString paint = QStringLiteral("background: %1; color: black; border: 1px solid gray;");
    ui_->lblFailed->setStyleSheet(paint.arg(CellColor(CellMark::FailedOrAbsent).name()) +
                                  QStringLiteral("font-weight: bold;"));
    ui_->lblNotTaken->setStyleSheet(paint.arg(CellColor(CellMark::NotTakenForRank).name()) +
                                    QStringLiteral("font-style: italic;"));
}

RankRepository frmRankCalculation::Repository() const
{
    return RankRepository(MainStore());
}

SchoolScope frmRankCalculation::Scope() const
{
    return {Session().gintAcademicYearCode, ui_->Cboexamname->BoundCode(), ui_->cboClass->BoundCode()};
}

SubjectDisplay frmRankCalculation::Display() const
{
    return ChosenDisplay(ui_->Optsubjectdisplayyes->isChecked());
}

RankOrder frmRankCalculation::Order() const
{
    if (ui_->optGradeOrder->isChecked())
        return RankOrder::Grade;
    if (ui_->optAdmissionNoOrder->isChecked())
        return RankOrder::AdmissionNo;
    return ui_->optAlphabeticalOrder->isChecked() ? RankOrder::Alphabetical : RankOrder::Rank;
}

void frmRankCalculation::LoadLists()
{
    ui_->Cboexamname->SetListBehindBlank({});
    ui_->cboClass->SetListBehindBlank({});
    Read([this] {
        SchoolListRepository lists(MainStore());
        ui_->Cboexamname->SetListBehindBlank(lists.Exams());
        ui_->cboClass->SetListBehindBlank(lists.Classes());
    });
}

void frmRankCalculation::Cboexamname_Click()
{
    ui_->cboClass->setCurrentIndex(0);
    cboClass_Click();
    ui_->cboClass->setEnabled(ui_->Cboexamname->BoundCode() != 0);
}

void frmRankCalculation::cboClass_Click()
{
    ui_->chkSelectAll->setChecked(false);
    ui_->cmdExport->setEnabled(false);
    ui_->Lstdivision->clear();
    bool allReady = true;
    const bool isRead = Read([&] {
        for (const DivisionFacts& facts : DivisionRepository(MainStore()).LoadDivisionFacts(Scope())) {
            const ListItem item = DivisionItem(facts, Display());
            ui_->Lstdivision->AddItem(item);
            allReady = allReady && item.refusal.isEmpty();
        }
    });
    ui_->chkSelectAll->setEnabled(allReady);
    // A class over no divisions could not be chosen again.
    if (!isRead)
        ui_->cboClass->SetBoundCode(0);
}

void frmRankCalculation::Lstdivision_ItemCheck(int index, bool ticked)
{
    if (!ticked) {
        Untick({ui_->Lstdivision->ItemData(index)});
        return;
    }
    const QString refusal = ui_->Lstdivision->Refusal(index);
    if (!refusal.isEmpty()) {
        Prompts::Information(refusal);
        Untick({ui_->Lstdivision->ItemData(index)});
        return;
    }
    // What could not be compared is not ranked together.
    if (!CheckAgreement(
            QStringLiteral("Selected Division's 'Subjects Taken For Rank' Does Not Match With Already "
                           "Selected Division(s)"),
            QStringLiteral("Selected Division's 'Classwise Rank-Grade Setup' Does Not Match With Already "
                           "Selected Division(s)")))
        Untick({ui_->Lstdivision->ItemData(index)});
}

void frmRankCalculation::Untick(const std::vector<int>& divisionCodes)
{
    if (divisionCodes.empty())
        return;
    for (int index = 0; index < ui_->Lstdivision->count(); ++index)
        if (std::find(divisionCodes.begin(), divisionCodes.end(), ui_->Lstdivision->ItemData(index)) !=
            divisionCodes.end())
            ui_->Lstdivision->SetTicked(index, false);
    if (ui_->chkSelectAll->isChecked()) {
        SelectAllBusy_ = true;
        ui_->chkSelectAll->setChecked(false);
    }
}

void frmRankCalculation::chkSelectAll_Click(bool ticked)
{
    if (SelectAllBusy_) {
        SelectAllBusy_ = false;
        ClearBases();
        return;
    }
    ui_->Lstdivision->SetAllTicked(ticked);
    if (!ticked) {
        ClearBases();
        return;
    }
    if (!CheckAgreement(
            QStringLiteral("Selected Divisions' 'Subject(s) Taken For Rank' Does Not Match With The Non "
                           "Selected Division(s)"),
            QStringLiteral("Selected Divisions' 'Classwise Rank-Grade Setup' Does Not Match With The Non "
                           "Selected Division(s)")))
        Untick(ui_->Lstdivision->TickedData());
}

void frmRankCalculation::Optsubjectdisplayyes_Click(bool on)
{
    if (!on)
        return;
    const std::optional<bool> mismatch = CheckSubjectMatch();
    if (!mismatch)
        Untick(ui_->Lstdivision->TickedData());
    else if (*mismatch)
        Prompts::Information(
            QStringLiteral("Selected Divisions' 'Subject(s) Taken For Rank' Does Not Match With "
                           "The Non Selected Division(s)"));
}

bool frmRankCalculation::CheckAgreement(const QString& subjectMessage, const QString& gradeMessage)
{
    const std::optional<bool> subjects = CheckSubjectMatch();
    if (subjects == true) {
        Prompts::Information(subjectMessage);
        return true;
    }
    const std::optional<bool> grades = subjects ? CheckGradeMatch() : std::nullopt;
    if (grades == true)
        Prompts::Information(gradeMessage);
    return grades.has_value();
}

bool frmRankCalculation::SelectionComplete()
{
    if (ui_->Cboexamname->BoundCode() == 0)
        return Refuse(QStringLiteral("Select Exam Name"), ui_->Cboexamname);
    if (ui_->cboClass->BoundCode() == 0)
        return Refuse(QStringLiteral("Select Class"), ui_->cboClass);
    if (ui_->Lstdivision->TickedIndexes().isEmpty())
        return Refuse(QStringLiteral("Select Division(s)"), ui_->Lstdivision);
    return true;
}

std::optional<bool> frmRankCalculation::CheckSubjectMatch()
{
    if (!SelectionComplete())
        return false;
    const auto setup = Fetch([this] { return DivisionRepository(MainStore()).LoadSubjectSetup(Scope()); });
    if (!setup)
        return std::nullopt;
    const MatchResult result =
        tally::CheckSubjectMatch(*setup, ui_->Lstdivision->TickedData(), Display(), subjectBase_);
    Untick(result.untick);
    return result.mismatch;
}

std::optional<bool> frmRankCalculation::CheckGradeMatch()
{
    const auto bands = Fetch([this] { return DivisionRepository(MainStore()).LoadGradeBands(Scope()); });
    if (!bands)
        return std::nullopt;
    const MatchResult result = tally::CheckGradeMatch(*bands, ui_->Lstdivision->TickedData(), gradeBase_);
    Untick(result.untick);
    return result.mismatch;
}

void frmRankCalculation::ClearBases()
{
    subjectBase_ = {};
    gradeBase_ = {};
}

void frmRankCalculation::cmdUpdate_Click()
{
    if (!SelectionComplete())
        return;
    try {
        const HourGlass hourGlass;
        const SessionContext& session = Session();
        const RankInput input = Repository().LoadRankInput(Scope(), ui_->Lstdivision->TickedData());
        table_.Prepare(ComputeRankList(
            input, {session.gblnFractionMarks, session.gblnRoundedMarks, ui_->chkRankSkipping->isChecked()}));
        ui_->Frame2->setEnabled(false);
        ui_->optRankOrder->setChecked(true);
        GridTable list = ReadList();
        LoadGradeSummary(list, input);
        ShowList(std::move(list));
    } catch (const store::StoreError& error) {
        table_.Drop();
        ui_->Frame2->setEnabled(true);
        ui_->cmdUpdate->setFocus();
        Prompts::Critical(error.Description());
        return;
    } catch (const DivisionError& error) {
        Prompts::Critical(QString::fromLatin1(error.what()));
        return;
    }
    for (QPushButton* button : {ui_->cmdSave, ui_->cmdExport, ui_->cmdTotalDetails, ui_->cmdPrintSetup})
        button->setEnabled(true);
    // The keyboard was on a button that is closed now.
    ui_->msgDisplayDetails->setFocus();
}

void frmRankCalculation::cmdView_Click()
{
    if (!table_.IsPrepared())
        return;
    Read([this] {
        const HourGlass hourGlass;
        ShowList(ReadList());
    });
}

GridTable frmRankCalculation::ReadList()
{
    const std::vector<int> divisionCodes = ui_->Lstdivision->TickedData();
    const RankOrder order = Order();
    std::vector<QString> grades;
    if (order == RankOrder::Grade)
        grades = Repository().LoadGradesInOrder(Scope(), divisionCodes);
    return table_.Read([&](TempRankRepository& working) {
        return ShowRankList(working, divisionCodes, table_.List().subjects, order, grades, Display());
    });
}

void frmRankCalculation::ShowList(GridTable list)
{
    // A list in another order is read from its top, in the columns that the user was looking at.
    FlexGrid* grid = ui_->msgDisplayDetails;
    const int currentCol = grid->CurrentCol();
    const int across = grid->horizontalScrollBar()->value();
    grid->Show(std::move(list));
    grid->SetCurrentCell(RankListRows::FirstStudent, currentCol);
    grid->horizontalScrollBar()->setValue(across);
}

void frmRankCalculation::LoadGradeSummary(const GridTable& list, const RankInput& input)
{
    std::vector<DivisionFullMark> fullMarks;
    const QStringList divisions = TickedDivisions();
    for (std::size_t i = 0; i < input.fullMarks.size(); ++i)
        fullMarks.push_back({divisions[static_cast<qsizetype>(i)], input.fullMarks[i]});
    Frame5_->ShowSummary(
        tally::LoadGradeSummary(list, input.grades, ui_->cboClass->currentText(), fullMarks));
}

QStringList frmRankCalculation::TickedDivisions() const
{
    QStringList divisions;
    for (const int index : ui_->Lstdivision->TickedIndexes())
        divisions.append(ui_->Lstdivision->item(index)->text());
    return divisions;
}

void frmRankCalculation::cmdTotalDetails_Click()
{
    for (QWidget* behind : std::initializer_list<QWidget*>{ui_->fraMain, ui_->Frame4, ui_->cmdTotalDetails})
        behind->setEnabled(false);
    Frame5_->Open();
}

void frmRankCalculation::cmdClose_Click()
{
    Frame5_->hide();
    for (QWidget* behind : std::initializer_list<QWidget*>{ui_->fraMain, ui_->Frame4, ui_->cmdTotalDetails})
        behind->setEnabled(true);
    ui_->cmdTotalDetails->setFocus();
}

void frmRankCalculation::cmdSave_Click()
{
    std::vector<RankTotal> totals;
    const bool saved =
        Read([&] {
            totals = table_.Read([](TempRankRepository& working) { return working.LoadRankTotals(); });
        }) &&
        Write(Conflict::Describe, [&](store::Transaction& transaction) {
            RankRepository::ReplaceRankTotals(transaction, Scope(), ui_->Lstdivision->TickedData(), totals);
        });
    if (!saved)
        return;
    Prompts::Information(QStringLiteral("Record Saved"));
    ui_->cmdSave->setEnabled(false);
}

void frmRankCalculation::cmdExport_Click()
{
    if (!MayUse(Right::Print))
        return;
    ExportReport(ui_->msgDisplayDetails->Table(), ListTitle, ListHead());
}

void frmRankCalculation::cmdPrintSetup_Click()
{
    // What may be taken away in a workbook may be taken away on paper.
    if (MayUse(Right::Print))
        ShowGridPreview(ui_->msgDisplayDetails->Table(), ListTitle, ListHead());
}

QString frmRankCalculation::ListHead() const
{
    return QStringLiteral("Exam Name :") + ui_->Cboexamname->currentText().trimmed() +
           QStringLiteral("  Class :") + ui_->cboClass->currentText().trimmed() +
           QStringLiteral(" Division :") + TickedDivisions().join(QLatin1Char(','));
}

void frmRankCalculation::cmdCancel_Click()
{
    ClearControls(this);
    if (Frame5_->isVisibleTo(this))
        cmdClose_Click();
    ui_->Frame2->setEnabled(true);
    ui_->Optsubjectdisplayno->setChecked(true);
    ui_->optRankOrder->setChecked(true);
    for (QWidget* control : std::initializer_list<QWidget*>{ui_->cmdExport, ui_->cboClass, ui_->cmdSave,
                                                            ui_->cmdTotalDetails, ui_->cmdPrintSetup})
        control->setEnabled(false);
    ui_->chkSelectAll->setEnabled(true);
    LoadLists();
    ClearBases();
    ResetGrid();
    table_.Drop();
    ui_->Cboexamname->setFocus();
}

void frmRankCalculation::ResetGrid()
{
    GridTable empty(std::vector<GridColumn>(4));
    empty.AddRow();
    empty.HideRow(RankListRows::Codes);
    ui_->msgDisplayDetails->Show(std::move(empty));
}

QSize frmRankCalculation::sizeHint() const
{
    return ListRoom;
}

QString frmRankCalculation::ExitCaption() const
{
    return QStringLiteral("Rank Calculation");
}

void frmRankCalculation::Form_Unload()
{
    table_.Drop();
}

} // namespace tally
