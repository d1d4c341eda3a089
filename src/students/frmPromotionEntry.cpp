#include "students/frmPromotionEntry.h"

#include "core/SessionContext.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/DivisionChoice.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "students/PromotionRepository.h"
#include "ui_frmPromotionEntry.h"

#include <QSignalBlocker>

#include <algorithm>

namespace tally {

namespace {

constexpr int HelpScreenNo = 20;

PromotionRepository Students()
{
    return PromotionRepository(MainStore());
}

/// The classes of a list, from the highest on.
CodedTexts ClassesOf(const DataCombo* list)
{
    CodedTexts classes;
    for (int index = 0; index < list->count(); ++index)
        if (const int code = list->itemData(index).toInt())
            classes.emplace_back(code, list->itemText(index));
    return classes;
}

/// Other items in a list. Whoever was ticked and still can be stays so, and the line in hand stays too.
void ShowItems(CheckList* list, const std::vector<ListItem>& items)
{
    const std::vector<int> ticked = list->TickedData();
    const int row = list->currentRow();
    const QSignalBlocker quiet(list);
    list->clear();
    for (const ListItem& item : items) {
        list->AddItem(item);
        if (item.refusal.isEmpty() && std::find(ticked.begin(), ticked.end(), item.code) != ticked.end())
            list->SetTicked(list->count() - 1, true);
    }
    if (list->count() > 0)
        list->setCurrentRow(std::clamp(row, 0, list->count() - 1));
}

bool IsEverybodyTicked(const CheckList* list)
{
    int open = 0;
    for (int index = 0; index < list->count(); ++index)
        open += list->Refusal(index).isEmpty() ? 1 : 0;
    return open > 0 && list->TickedIndexes().size() == open;
}

} // namespace

frmPromotionEntry::frmPromotionEntry()
    : Screen(QStringLiteral("frmPromotionEntry"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmPromotionEntry>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    cmdCancel_Click();
}

frmPromotionEntry::~frmPromotionEntry() = default;

void frmPromotionEntry::ConnectHandlers()
{
    using Form = frmPromotionEntry;
    from_ = new DivisionChoice(this, ui_->cbofromClass, ui_->cbofromDivision, DivisionChoice::Order::ByName);
    to_ = new DivisionChoice(this, ui_->cbotoclass, ui_->Cbotodivision, DivisionChoice::Order::ByName);
    connect(ui_->cbofromClass, &DataCombo::Chosen, this, &Form::cbofromClass_Click);
    connect(ui_->cbofromDivision, &DataCombo::Chosen, this, &Form::cbofromDivision_Click);
    connect(ui_->cbotoclass, &DataCombo::Chosen, this, &Form::cbotoclass_Click);
    connect(ui_->Cbotodivision, &DataCombo::Chosen, this, &Form::Cbotodivision_Click);
    // Both options change together, and one of them is enough to follow.
    connect(ui_->optpromote, &QRadioButton::toggled, this, &Form::PromoteValue);
    for (CheckList* list : {ui_->lstfromlist, ui_->lsttolist})
        connect(list, &CheckList::Ticked, this,
                [this, list](int index, bool ticked) { List_ItemCheck(list, index, ticked); });
    const auto selectAll = [this](QCheckBox* box, CheckList* list) {
        connect(box, &QCheckBox::toggled, this, [this, list](bool ticked) {
            list->SetAllTicked(ticked);
            LoadTotalNoOfStudents();
        });
    };
    selectAll(ui_->chkSelectAllFrom, ui_->lstfromlist);
    selectAll(ui_->chkSelectAllTo, ui_->lsttolist);
    connect(ui_->cmdMoveFromToTo, &QPushButton::clicked, this, &Form::cmdMoveFromToTo_Click);
    connect(ui_->cmdMoveToToFrom, &QPushButton::clicked, this, &Form::cmdMoveToToFrom_Click);
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &Form::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &Form::cmdCancel_Click);
}

void frmPromotionEntry::Form_Activate(bool first)
{
    if (first)
        TakeScreen(QStringLiteral("PromotionEntry"));
}

PromotionKind frmPromotionEntry::Kind() const
{
    return ui_->optpromote->isChecked() ? PromotionKind::Promote : PromotionKind::Retain;
}

Placement frmPromotionEntry::From() const
{
    return {ui_->cbofromClass->BoundCode(), ui_->cbofromDivision->BoundCode()};
}

Placement frmPromotionEntry::To() const
{
    return {ui_->cbotoclass->BoundCode(), ui_->Cbotodivision->BoundCode()};
}

PromotionPlan frmPromotionEntry::Plan() const
{
    PromotionPlan plan = lists_.Plan();
    plan.kind = Kind();
    plan.years = years_;
    plan.fromClass = From().classCode;
    plan.target = To();
    return plan;
}

void frmPromotionEntry::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    const auto years = Fetch([] { return Students().Years(Session().gintAcademicYearCode); });
    if (!years)
        return;
    if (years->currentName.isEmpty()) {
        Prompts::Information(QStringLiteral("The Current Academic Year Is Not In Academic Year Setup"));
        return;
    }
    ui_->lblfromacademicyear->setText(years->currentName);
    if (years->next == 0) {
        Prompts::Information(
            QStringLiteral("Enter Academic Year %1 In Academic Year Setup").arg(years->nextName));
        return;
    }
    years_ = *years;
    ui_->lbltoacademicyear->setText(years_.nextName);
    ui_->fraMain->setEnabled(true);
    ui_->cmdSave->setEnabled(true);
    ui_->optpromote->setChecked(true);
    ui_->optpromote->setFocus();
    ui_->cmdNew->setEnabled(false);
}

void frmPromotionEntry::PromoteValue()
{
    lists_.Clear();
    const int fromClass = From().classCode;
    const int toClass = TargetClass(ClassesOf(ui_->cbofromClass), Kind(), fromClass);
    if (fromClass != 0 && toClass == 0) {
        Prompts::Information(NoHigherClass);
        from_->TakeBackClass();
    }
    to_->ChooseClass(toClass);
    LoadFrom();
}

void frmPromotionEntry::cbofromDivision_Click()
{
    LoadFrom();
}

void frmPromotionEntry::cbotoclass_Click()
{
    LoadTo();
}

void frmPromotionEntry::Cbotodivision_Click()
{
    if (FollowsClassRules())
        LoadTo();
}

bool frmPromotionEntry::FollowsClassRules()
{
    const int fromClass = From().classCode;
    const int toClass = To().classCode;
    if (fromClass == 0 || toClass == 0)
        return true;
    const QString fault = ClassFault(ClassesOf(ui_->cbofromClass), Kind(), fromClass, toClass);
    if (fault.isEmpty())
        return true;
    Prompts::Information(fault);
    if (Kind() == PromotionKind::Promote)
        to_->ChooseClass(0);
    lists_.ShowTo({});
    ShowLists();
    ui_->cbotoclass->setFocus();
    return false;
}

void frmPromotionEntry::LoadFrom()
{
    const Placement from = From();
    std::vector<PromotionStudent> students;
    if (from.IsComplete() && !Read([&] { students = Students().FromStudents(years_, from); }))
        ui_->cbofromDivision->SetBoundCode(0);
    lists_.ShowFrom(std::move(students));
    ShowLists();
}

void frmPromotionEntry::LoadTo()
{
    const Placement to = To();
    std::vector<PromotionStudent> students;
    if (to.IsComplete() && !Read([&] { students = Students().ToStudents(years_, to); }))
        ui_->Cbotodivision->SetBoundCode(0);
    lists_.ShowTo(std::move(students));
    ShowLists();
}

void frmPromotionEntry::ShowLists()
{
    ShowItems(ui_->lstfromlist, lists_.FromItems());
    ShowItems(ui_->lsttolist, lists_.ToItems());
    LoadTotalNoOfStudents();
}

void frmPromotionEntry::LoadTotalNoOfStudents()
{
    const auto show = [](QLabel* total, QCheckBox* all, const CheckList* list) {
        total->setNum(static_cast<int>(list->TickedIndexes().size()));
        const QSignalBlocker quiet(all);
        all->setChecked(IsEverybodyTicked(list));
    };
    show(ui_->lbltotalselected, ui_->chkSelectAllFrom, ui_->lstfromlist);
    show(ui_->lbltotalselectedTo, ui_->chkSelectAllTo, ui_->lsttolist);
    const bool any = !ui_->lsttolist->TickedIndexes().isEmpty();
    // A button that is switched off would hand the keyboard to whatever comes next.
    if (!any && ui_->cmdMoveToToFrom->hasFocus())
        ui_->lsttolist->setFocus();
    ui_->cmdMoveToToFrom->setEnabled(any);
}

void frmPromotionEntry::List_ItemCheck(CheckList* list, int index, bool ticked)
{
    const QString refusal = ticked ? list->Refusal(index) : QString();
    if (!refusal.isEmpty()) {
        Prompts::Information(refusal);
        list->SetTicked(index, false);
    }
    LoadTotalNoOfStudents();
}

bool frmPromotionEntry::AnybodyTicked(CheckList* list)
{
    return !list->TickedIndexes().isEmpty() || Refuse(QStringLiteral("Select Student"), list);
}

void frmPromotionEntry::cmdMoveFromToTo_Click()
{
    if (!AnybodyTicked(ui_->lstfromlist))
        return;
    lists_.Move(ui_->lstfromlist->TickedData());
    ShowLists();
}

void frmPromotionEntry::cmdMoveToToFrom_Click()
{
    if (!AnybodyTicked(ui_->lsttolist))
        return;
    const bool all = lists_.TakeBack(ui_->lsttolist->TickedData(), From());
    ShowLists();
    if (!all)
        Prompts::Information(
            QStringLiteral("Selected Class-Division On The 'From' Side  Is Not The Class-Division From Which "
                           "The Student Was Promoted/Detained\nSo Promote/Detain Entry Removal Is Not "
                           "Allowed"));
}

bool frmPromotionEntry::IsComplete()
{
    if (From().classCode == 0)
        return Refuse(QStringLiteral("Select Class On The 'From' Side"), ui_->cbofromClass);
    if (From().divisionCode == 0)
        return Refuse(QStringLiteral("Select Division On The 'From' Side"), ui_->cbofromDivision);
    if (To().classCode == 0)
        return Refuse(QStringLiteral("Select Class On The 'To' Side"), ui_->cbotoclass);
    if (To().divisionCode == 0)
        return Refuse(QStringLiteral("Select Division On The 'To' Side"), ui_->Cbotodivision);
    if (!FollowsClassRules())
        return false;
    if (lists_.Listed().empty())
        return Refuse(QStringLiteral("Select Student To Promote/Detain"), ui_->lstfromlist);
    return true;
}

void frmPromotionEntry::cmdSave_Click()
{
    if (!IsComplete())
        return;
    std::optional<PromotionFault> fault;
    const auto error = TryWrite([&](store::Transaction& transaction) {
        fault = SavePromotion(transaction, Plan(), Session().gintUserCode);
    });
    if (error || fault) {
        // Where only another client's save stood in the way, what was moved stays for a second try.
        if (error)
            Prompts::Critical(error->Description());
        else
            Prompts::Information(fault->text);
        if (error ? error->IsConflict() : fault->startAnew)
            cmdCancel_Click();
        return;
    }
    AfterCommit([this] {
        Prompts::Information(QStringLiteral("Record Saved"));
        cmdCancel_Click();
    });
}

void frmPromotionEntry::cmdCancel_Click()
{
    ClearControls(this);
    lists_.Clear();
    years_ = {};
    const auto listed = Fetch([this] {
        from_->Load();
        to_->Load();
        return true;
    });
    for (QLabel* label : {ui_->lblfromacademicyear, ui_->lbltoacademicyear})
        label->clear();
    ShowLists();
    // Without the classes nothing can be promoted, only tried again.
    ui_->cmdNew->setEnabled(listed.has_value());
    ui_->fraMain->setEnabled(false);
    ui_->cmdSave->setEnabled(false);
    (listed ? ui_->cmdNew : ui_->cmdCancel)->setFocus();
}

QSize frmPromotionEntry::sizeHint() const
{
    // As much of two long lists as most displays can show; a smaller one bounds it.
    return {900, 660};
}

} // namespace tally
