#include "exams/frmClassRankTransferSetup.h"

#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/SideButton.h"
#include "exams/GradeSetupRepository.h"
#include "exams/GradeTable.h"
#include "ui_frmClassRankTransferSetup.h"

#include <QEvent>
#include <QSignalBlocker>

#include <algorithm>

namespace tally {

namespace {

constexpr int HelpScreenNo = 18;

SetupCopyRepository Setups()
{
    return SetupCopyRepository(MainStore());
}

/// As it is shown where it is entered. Nothing is entered here, so the last row has no number.
GridTable TableOf(const std::vector<GradeRecord>& records)
{
    GradeTable grades;
    grades.Load(records);
    GridTable table = grades.Table();
    table.SetText(table.Rows() - 1, GradeColumn::Serial, {});
    return table;
}

} // namespace

frmClassRankTransferSetup::frmClassRankTransferSetup()
    : Screen(QStringLiteral("frmClassRankTransferSetup"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmClassRankTransferSetup>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->cmdAddExam->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_E));
    ui_->cmdAddClass->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_C));
    from_.emplace(QStringLiteral("From"), CopySide::Lists{ui_->cboFromAcademicyear, ui_->dbcExamFrom,
                                                          ui_->cboFromClass, ui_->cboFromDivision});
    to_.emplace(QStringLiteral("To"),
                CopySide::Lists{ui_->cboToAcademicYear, ui_->dbcExamTo, ui_->cboToClass, nullptr});
    for (FlexGrid* grid : {ui_->msgFromDetails, ui_->msgToDetails})
        grid->SetReadableWhileClosed();
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    cmdCancel_Click();
}

frmClassRankTransferSetup::~frmClassRankTransferSetup() = default;

void frmClassRankTransferSetup::ConnectHandlers()
{
    using Form = frmClassRankTransferSetup;
    for (DataCombo* list : {ui_->cboFromAcademicyear, ui_->dbcExamFrom, ui_->cboFromClass,
                            ui_->cboFromDivision, ui_->cboToAcademicYear, ui_->dbcExamTo, ui_->cboToClass})
        list->SetGivingUp({ui_->cmdCancel, ui_->cmdExit});
    for (DataCombo* list : {ui_->cboFromAcademicyear, ui_->dbcExamFrom, ui_->cboFromClass})
        connect(list, &DataCombo::Chosen, this, [this, list] { From_Change(list); });
    connect(ui_->cboFromClass, &DataCombo::Settled, this, &Form::ListSources);
    connect(ui_->cboFromDivision, &DataCombo::Chosen, this, &Form::cboFromDivision_Click);
    connect(ui_->cboFromDivision, &DataCombo::Settled, this, &Form::cboFromDivision_Settled);
    connect(ui_->cboToAcademicYear, &DataCombo::Chosen, this, &Form::cboToAcademicYear_Click);
    connect(ui_->dbcExamTo, &DataCombo::Chosen, this, &Form::dbcExamTo_Change);
    connect(ui_->cboToClass, &DataCombo::Chosen, this, &Form::ClearTo);
    connect(ui_->cboToClass, &DataCombo::Settled, this, &Form::cboToClass_Settled);
    connect(ui_->lstDivision, &CheckList::Ticked, this, &Form::lstDivision_ItemCheck);
    ui_->lstDivision->installEventFilter(this);
    ui_->lstDivision->viewport()->installEventFilter(this);
    connect(ui_->chkSelectAll, &QCheckBox::toggled, this, &Form::chkSelectAll_Click);
    new SideButton(this, ui_->cmdAddExam, ui_->dbcExamTo, QStringLiteral("frmexamnamemaster"),
                   [this] { RefillLists(); });
    new SideButton(this, ui_->cmdAddClass, ui_->cboToClass, QStringLiteral("frmMasClassSectionEntry"),
                   [this] { RefillLists(); });
    connect(ui_->cmdTransfer, &QPushButton::clicked, this, &Form::cmdTransfer_Click);
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &Form::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &Form::cmdCancel_Click);
}

bool frmClassRankTransferSetup::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress)
        clicked_ = event->type() == QEvent::MouseButtonPress;
    return Screen::eventFilter(receiver, event);
}

void frmClassRankTransferSetup::ShowFrom(std::vector<GradeRecord> table)
{
    source_ = std::move(table);
    ui_->msgFromDetails->Show(TableOf(source_));
}

void frmClassRankTransferSetup::ShowTo(std::vector<GradeRecord> table)
{
    copy_ = std::move(table);
    ui_->msgToDetails->Show(TableOf(copy_));
}

void frmClassRankTransferSetup::From_Change(const DataCombo* list)
{
    from_->BlankBelow(list);
    ShowFrom({});
    ShowTo({});
}

void frmClassRankTransferSetup::ListSources()
{
    const SchoolScope from = from_->Scope();
    if (from.academicYearCode == 0 || from.examCode == 0 || from.classCode == 0)
        return;
    const auto divisions =
        Fetch([&from] { return SchoolListRepository(MainStore()).DivisionsByName(from.classCode); });
    if (divisions)
        from_->OfferDivisions(*divisions);
    else
        ui_->cboFromClass->SetBoundCode(0);
}

void frmClassRankTransferSetup::cboFromDivision_Click()
{
    ShowFrom({});
    // A copy of another source must not be saved as one of this.
    ShowTo({});
}

void frmClassRankTransferSetup::cboFromDivision_Settled()
{
    const SchoolScope from = from_->Scope();
    if (from.divisionCode == 0)
        return;
    auto table = Fetch([&from] { return GradeSetupRepository(MainStore()).Rows(from); });
    if (!table) {
        ui_->cboFromDivision->SetBoundCode(0);
        return;
    }
    if (table->empty()) {
        Refuse(NotMade(GradeCopy), ui_->cboFromDivision);
        ui_->cboFromDivision->TakeBack();
    }
    ShowFrom(std::move(*table));
    OfferCopy();
}

void frmClassRankTransferSetup::ClearTo()
{
    ShowTo({});
    ui_->lstDivision->clear();
    ClearSelectAll();
    ui_->cmdTransfer->setEnabled(false);
}

void frmClassRankTransferSetup::ClearSelectAll()
{
    const QSignalBlocker quiet(ui_->chkSelectAll);
    ui_->chkSelectAll->setChecked(false);
}

void frmClassRankTransferSetup::cboToAcademicYear_Click()
{
    // The exam stays: the same one is copied to in the other year.
    to_->BlankBelow(ui_->dbcExamTo);
    ClearTo();
}

void frmClassRankTransferSetup::cboToClass_Settled()
{
    if (ui_->cboToClass->BoundCode() != 0 && to_->IsChosen(ui_->cboToAcademicYear))
        ListTargets(false);
}

void frmClassRankTransferSetup::ListTargets(bool keepTicks)
{
    CheckList* list = ui_->lstDivision;
    const std::vector<int> ticked = keepTicks ? list->TickedData() : std::vector<int>();
    const int row = list->currentRow();
    const SchoolScope to = to_->Scope();
    std::vector<ListItem> items;
    if (to.academicYearCode != 0 && to.examCode != 0 && to.classCode != 0) {
        const auto targets = Fetch([&to] { return Setups().TargetsOfGrades(to); });
        if (!targets)
            ui_->cboToClass->SetBoundCode(0);
        items = targets.value_or(items);
    }
    list->clear();
    for (const ListItem& item : items) {
        list->AddItem(item);
        if (item.refusal.isEmpty() && std::find(ticked.begin(), ticked.end(), item.code) != ticked.end())
            list->SetTicked(list->count() - 1, true);
    }
    if (list->count() > 0)
        list->setCurrentRow(std::clamp(row, 0, list->count() - 1));
    if (!list->AreAllTicked())
        ClearSelectAll();
    OfferCopy();
}

void frmClassRankTransferSetup::OfferCopy()
{
    const bool possible = !source_.empty() && !ui_->lstDivision->TickedIndexes().isEmpty();
    if (!possible)
        ShowTo({});
    ui_->cmdTransfer->setEnabled(possible);
}

void frmClassRankTransferSetup::lstDivision_ItemCheck(int index, bool ticked)
{
    CheckList* list = ui_->lstDivision;
    if (ticked && !list->Refusal(index).isEmpty()) {
        Prompts::Information(clicked_ ? list->Refusal(index) : AlreadyExistsWhileTicking(GradeCopy));
        list->SetTicked(index, false);
    }
    if (!ticked)
        ClearSelectAll();
    OfferCopy();
}

void frmClassRankTransferSetup::chkSelectAll_Click(bool ticked)
{
    ui_->lstDivision->SetAllTicked(ticked);
    OfferCopy();
}

void frmClassRankTransferSetup::cmdTransfer_Click()
{
    if (source_.empty())
        Refuse(QStringLiteral("No Record Exists For Copying"), ui_->cboFromDivision);
    else
        ShowTo(source_);
}

void frmClassRankTransferSetup::RefillLists()
{
    const auto choices = Fetch([] { return Setups().Choices(Session().gintAcademicYearCode); });
    if (!choices)
        return;
    const SchoolScope from = from_->Scope();
    from_->Offer(choices->fromYears, *choices);
    ListSources();
    ui_->cboFromDivision->SetBoundCode(from.divisionCode);
    if (ui_->cboFromDivision->BoundCode() == 0)
        ShowFrom({});
    to_->Offer(choices->toYears, *choices);
    ListTargets(true);
}

bool frmClassRankTransferSetup::IsReady()
{
    if (!from_->IsComplete() || !to_->IsComplete())
        return false;
    if (ui_->lstDivision->TickedIndexes().isEmpty())
        return Refuse(QStringLiteral("Select Division(s) On The 'To' Side"), ui_->lstDivision);
    if (copy_.empty())
        return Refuse(QStringLiteral("Record Does Not Exist On The 'To' Side For Copying"),
                      ui_->msgToDetails);
    return true;
}

void frmClassRankTransferSetup::cmdSave_Click()
{
    if (!IsReady())
        return;
    QString refusal;
    const auto error = TryWrite([&](store::Transaction& transaction) {
        refusal = SaveGradeCopy(transaction, to_->Scope(), ui_->lstDivision->TickedData(), copy_,
                                Session().gintUserCode);
    });
    if (error || !refusal.isEmpty()) {
        if (error)
            Prompts::Critical(error->Description());
        else
            Prompts::Information(refusal);
        // What is chosen stays for a second try, but for what other clients have taken or deleted.
        if (!error || error->IsConflict())
            RefillLists();
        return;
    }
    AfterCommit([this] {
        if (!AskToCopyAgain(QStringLiteral("Rank Criteria Copied"))) {
            cmdCancel_Click();
            return;
        }
        to_->Blank();
        ClearTo();
        ui_->cboToAcademicYear->setFocus();
    });
}

void frmClassRankTransferSetup::EnableFrames(bool enabled)
{
    for (QWidget* frame :
         std::initializer_list<QWidget*>{ui_->fraMainFrom, ui_->fraMainTo, ui_->Frame1, ui_->Frame5})
        frame->setEnabled(enabled);
}

void frmClassRankTransferSetup::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    EnableFrames(true);
    ui_->cmdSave->setEnabled(true);
    ui_->cboFromAcademicyear->setFocus();
    ui_->cmdNew->setEnabled(false);
}

void frmClassRankTransferSetup::cmdCancel_Click()
{
    ClearControls(this);
    const auto choices = Fetch([] { return Setups().Choices(Session().gintAcademicYearCode); });
    const CopyChoices offered = choices.value_or(CopyChoices());
    from_->Offer(offered.fromYears, offered);
    to_->Offer(offered.toYears, offered);
    ShowFrom({});
    ClearTo();
    EnableFrames(false);
    // Without the lists nothing can be copied, only tried again.
    ui_->cmdNew->setEnabled(choices.has_value());
    ui_->cmdSave->setEnabled(false);
    (choices ? ui_->cmdNew : ui_->cmdCancel)->setFocus();
}

QSize frmClassRankTransferSetup::sizeHint() const
{
    // As much of both tables as most displays can show; a smaller one bounds it.
    return {860, 680};
}

} // namespace tally
