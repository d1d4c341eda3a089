#include "ranks/frmRankCardPrinting.h"

#include "core/Numbers.h"
#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/DivisionChoice.h"
#include "core/ui/FormKeys.h"
#include "core/ui/ListRoom.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/SelectAllBox.h"
#include "ranks/ExportFlexGridToExcel1.h"
#include "ranks/RankCardRepository.h"
#include "reports/output/ExportWorkbook.h"
#include "ui_frmRankCardPrinting.h"

namespace tally {

namespace {

constexpr int HelpScreenNo = 22;

} // namespace

frmRankCardPrinting::frmRankCardPrinting()
    : Screen(QStringLiteral("frmRankCardPrinting"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmRankCardPrinting>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ShowStudentKey();
    ui_->msgDetails->SetFixedCols(RankCardGrid::FixedColumns);
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    Form_Load();
}

frmRankCardPrinting::~frmRankCardPrinting() = default;

void frmRankCardPrinting::Form_Load()
{
    TellOnce([this] {
        LoadExams();
        Read([this] { classDivision_->Load(); });
        LoadStudentList();
    });
    ui_->Lstexamnames->setFocus();
}

void frmRankCardPrinting::ConnectHandlers()
{
    classDivision_ = new DivisionChoice(this, ui_->cboClass, ui_->cboDivision, DivisionChoice::Order::ByCode);
    connect(ui_->cboClass, &DataCombo::Chosen, this, &frmRankCardPrinting::LoadStudentList);
    connect(ui_->cboDivision, &DataCombo::Chosen, this, &frmRankCardPrinting::LoadStudentList);
    exams_ = new SelectAllBox(ui_->chkSelectExamName, ui_->Lstexamnames);
    students_ = new SelectAllBox(ui_->chkSelectStudents, ui_->LstStudents);
    connect(exams_, &SelectAllBox::Changed, this, &frmRankCardPrinting::LoadStudentList);
    connect(students_, &SelectAllBox::Changed, this, &frmRankCardPrinting::ClearCards);
    connect(ui_->Optsubjectdisplayyes, &QRadioButton::toggled, this, &frmRankCardPrinting::ClearCards);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmRankCardPrinting::cmdView_Click);
    connect(ui_->cmdExport, &QPushButton::clicked, this, &frmRankCardPrinting::cmdExport_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmRankCardPrinting::cmdCancel_Click);
    for (DataCombo* combo : {ui_->cboClass, ui_->cboDivision})
        combo->setProperty(EnterNeedsText, true);
}

void frmRankCardPrinting::ShowStudentKey()
{
    // The sign stands between the brackets of its note, as it will stand before a student's name.
    ui_->Label5->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("[   ]")));
}

SchoolScope frmRankCardPrinting::Scope() const
{
    return {Session().gintAcademicYearCode, 0, ui_->cboClass->BoundCode(), ui_->cboDivision->BoundCode()};
}

void frmRankCardPrinting::LoadExams()
{
    std::vector<ListItem> exams;
    Read([&] {
        for (const auto& [code, name] : SchoolListRepository(MainStore()).Exams())
            exams.push_back({code, name, {}});
    });
    exams_->SetItems(exams);
}

void frmRankCardPrinting::LoadStudentList()
{
    ClearCards();
    students_->Clear();
    const SchoolScope scope = Scope();
    if (scope.divisionCode == 0)
        return;
    Read([&] {
        const HourGlass hourGlass;
        const StudentListInput input = RankCardRepository(MainStore()).LoadStudentList(scope);
        const std::vector<bool> complete = MarksComplete(input, ui_->Lstexamnames->TickedData());
        std::vector<ListItem> items;
        for (std::size_t number = 0; number < input.students.size(); ++number)
            items.push_back(StudentItem(input.students[number], complete[number]));
        students_->SetItems(items);
    });
}

bool frmRankCardPrinting::SelectionComplete()
{
    if (ui_->Lstexamnames->TickedIndexes().isEmpty())
        return Refuse(QStringLiteral("Select Exam Name(s)"), ui_->Lstexamnames);
    if (ui_->cboClass->IsBlank())
        return Refuse(QStringLiteral("Select Class"), ui_->cboClass);
    if (ui_->cboDivision->IsBlank())
        return Refuse(QStringLiteral("Select Division"), ui_->cboDivision);
    if (ui_->LstStudents->TickedIndexes().isEmpty())
        return Refuse(QStringLiteral("Select Student(s)"), ui_->LstStudents);
    return true;
}

void frmRankCardPrinting::cmdView_Click()
{
    if (SelectionComplete())
        LoadRankCard();
}

void frmRankCardPrinting::LoadRankCard()
{
    ClearCards();
    bool empty = false;
    Read([&] {
        const HourGlass hourGlass;
        const SessionContext& session = Session();
        RankCardGrid cards = ComputeRankCards(
            RankCardRepository(MainStore())
                .LoadRankCards(Scope(), ui_->LstStudents->TickedData(), ui_->Lstexamnames->TickedData(),
                               ChosenDisplay(ui_->Optsubjectdisplayyes->isChecked())),
            MarkDecimals(session.gblnFractionMarks, session.gblnRoundedMarks));
        empty = cards.lines == 0;
        ui_->msgDetails->Show(std::move(cards.table));
        ui_->cmdExport->setEnabled(!empty);
    });
    if (empty)
        Prompts::Information(
            QStringLiteral("No Marks Are Entered For The Selected Student(s) In The Selected Exam(s)"));
}

void frmRankCardPrinting::ClearCards()
{
    ClearMSGrid(ui_->msgDetails);
    ui_->cmdExport->setEnabled(false);
}

void frmRankCardPrinting::cmdExport_Click()
{
    if (!MayUse(Right::Print))
        return;
    const GridTable& cards = ui_->msgDetails->Table();
    RunExport([&] {
        const int examCount = static_cast<int>(ui_->Lstexamnames->TickedIndexes().size());
        ExportFlexGridToExcel1(cards, cards.Rows() - 1, cards.Cols() - 1, {}, {}, examCount);
    });
}

void frmRankCardPrinting::cmdCancel_Click()
{
    ClearControls(this);
    ui_->Optsubjectdisplayno->setChecked(true);
    Form_Load();
}

QSize frmRankCardPrinting::sizeHint() const
{
    return ListRoom;
}

} // namespace tally
