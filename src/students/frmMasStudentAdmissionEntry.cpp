#include "students/frmMasStudentAdmissionEntry.h"

#include "core/modTallyboard.h"
#include "core/SessionContext.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/DivisionChoice.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/SideButton.h"
#include "students/AdmissionRepository.h"
#include "students/StudentRepository.h"
#include "ui_frmMasStudentAdmissionEntry.h"

#include <tuple>

namespace tally {

namespace {

constexpr int HelpScreenNo = 11;

} // namespace

frmMasStudentAdmissionEntry::frmMasStudentAdmissionEntry()
    : MasterScreen(QStringLiteral("frmMasStudentAdmissionEntry"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasStudentAdmissionEntry>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    ConnectHandlers();
    Form_Load();
}

frmMasStudentAdmissionEntry::~frmMasStudentAdmissionEntry() = default;

void frmMasStudentAdmissionEntry::ConnectHandlers()
{
    using Form = frmMasStudentAdmissionEntry;
    classDivision_ = new DivisionChoice(this, ui_->dbcClass, ui_->dbcDivision, DivisionChoice::Order::ByName);
    new SideButton(this, ui_->cmdAddClass, ui_->dbcClass, QStringLiteral("frmMasClassSectionEntry"),
                   [this] { Read([this] { classDivision_->Refill(); }); });
    ui_->cmdAddClass->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_C));
    connect(ui_->dbcAdmissionNo, &DataCombo::Chosen, this, &Form::dbcAdmissionNo_Change);
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &Form::cmdEdit_Click);
    connect(ui_->cmdDelete, &QPushButton::clicked, this, &Form::cmdDelete_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &Form::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &Form::cmdCancel_Click);
    connect(ui_->cmdSearch, &QPushButton::clicked, this, &Form::cmdSearch_Click);
    // Who went off to enter a new student comes back to place him.
    connect(this, &Screen::CameBack, this, [this] {
        if (IsNew())
            Read([this] { LoadStudents(); });
    });
}

void frmMasStudentAdmissionEntry::Form_Load()
{
    SetMasterControls({ui_->Frame1, ui_->cmdNew, ui_->cmdEdit, ui_->cmdDelete, ui_->cmdSave});
    ChooseFromList(true);
    LoadLists();
}

AdmissionRepository frmMasStudentAdmissionEntry::Admissions() const
{
    return AdmissionRepository(MainStore());
}

void frmMasStudentAdmissionEntry::LoadLists()
{
    Read([this] {
        LoadStudents();
        classDivision_->Load();
    });
}

void frmMasStudentAdmissionEntry::LoadStudents()
{
    const int chosen = ui_->dbcAdmissionNo->BoundCode();
    ui_->dbcAdmissionNo->SetListBehindBlank(Admissions().StudentsToPlace(Session().gintAcademicYearCode));
    ui_->dbcAdmissionNo->SetBoundCode(chosen);
    if (ui_->dbcAdmissionNo->BoundCode() != chosen)
        dbcAdmissionNo_Change();
}

void frmMasStudentAdmissionEntry::RefillLists()
{
    Read([this] {
        if (!IsEditing())
            LoadStudents();
        classDivision_->Refill();
    });
}

void frmMasStudentAdmissionEntry::dbcAdmissionNo_Change()
{
    studentCode_ = ui_->dbcAdmissionNo->BoundCode();
    LoadControls();
}

void frmMasStudentAdmissionEntry::LoadControls()
{
    ClearLabels();
    if (studentCode_ == 0)
        return;
    const auto student = Fetch([this] { return StudentRepository(MainStore()).Find(studentCode_); });
    if (student && *student)
        Show(**student);
}

bool frmMasStudentAdmissionEntry::LoadPlacement(int studentCode, bool viewOnly)
{
    const auto found = Fetch([&] {
        const int year = Session().gintAcademicYearCode;
        auto facts = std::tuple(StudentRepository(MainStore()).Find(studentCode),
                                Admissions().Find(studentCode, year), Admissions().Facts(studentCode, year));
        // A list that could not be read would show the placement as blank.
        if (const auto& placement = std::get<1>(facts))
            classDivision_->Choose(placement->classCode, placement->divisionCode);
        return facts;
    });
    if (!found)
        return false;
    const auto& [student, placement, facts] = *found;
    if (!student || !placement) {
        Prompts::Information(QStringLiteral("No Record Exists"));
        return false;
    }
    studentCode_ = studentCode;
    ChooseFromList(false);
    ui_->lblAdmissionNo->setText(student->optionalAdmissionNo);
    Show(*student);
    ui_->dbcClass->setEnabled(!KeepsClass(facts));
    ShowState(viewOnly ? MasterState::Viewing : MasterState::RowSelected);
    (viewOnly ? ui_->cmdCancel : ui_->cmdEdit)->setFocus();
    return true;
}

void frmMasStudentAdmissionEntry::ChooseFromList(bool fromList)
{
    ui_->dbcAdmissionNo->SetBoundCode(0);
    ui_->dbcAdmissionNo->setEnabled(fromList);
    ui_->dbcAdmissionNo->setVisible(fromList);
    ui_->lblAdmissionNo->clear();
    ui_->lblAdmissionNo->setVisible(!fromList);
    ui_->dbcClass->setEnabled(true);
}

void frmMasStudentAdmissionEntry::Show(const Student& student)
{
    ui_->lblStudentName->setText(student.name);
    ui_->lblFGName->setText(student.fatherOrGuardian);
    ui_->lblDob->setText(ShownDate(student.dateOfBirth));
    ui_->lblSex->setText(student.male ? QStringLiteral("Male") : QStringLiteral("Female"));
    ui_->lblAddress1->setText(student.address1 + QLatin1Char('\n') + student.address2);
    ui_->lblCity->setText(student.cityName);
    ui_->lblStateName->setText(student.stateName);
    ui_->lblPincode->setText(student.pinCode);
}

void frmMasStudentAdmissionEntry::ClearLabels()
{
    for (QLabel* label :
         std::initializer_list<QLabel*>{ui_->lblStudentName, ui_->lblFGName, ui_->lblDob, ui_->lblSex,
                                        ui_->lblAddress1, ui_->lblCity, ui_->lblStateName, ui_->lblPincode})
        label->clear();
}

void frmMasStudentAdmissionEntry::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    ShowState(MasterState::New);
    ClearLabels();
    ChooseFromList(true);
    Read([this] { LoadStudents(); });
    ui_->dbcAdmissionNo->setFocus();
}

void frmMasStudentAdmissionEntry::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    ShowState(MasterState::Editing);
    ui_->cmdSave->setFocus();
}

void frmMasStudentAdmissionEntry::cmdDelete_Click()
{
    if (!MayUse(Right::Delete) || !Prompts::Ask(QStringLiteral("Do You Want To Delete This Admission ?")))
        return;
    auto fault = PlacementFault::None;
    const bool done = WriteRow(
        Conflict::DataIsInUse,
        [&](store::Transaction& transaction) {
            const int year = Session().gintAcademicYearCode;
            // Another client may have gone on with the student while the placement stood on the screen.
            fault = FaultOfDeleting(Admissions().Facts(studentCode_, year));
            if (fault == PlacementFault::None)
                AdmissionRepository::Delete(transaction, studentCode_, year);
        },
        OnRefusal::Stay);
    if (!done)
        return;
    if (fault == PlacementFault::None)
        TellDeleted();
    else
        Explain(fault);
}

bool frmMasStudentAdmissionEntry::IsReady()
{
    if (!IsEditing() && ui_->dbcAdmissionNo->IsBlank())
        return Refuse(QStringLiteral("Select Admission No."), ui_->dbcAdmissionNo);
    if (ui_->dbcClass->IsBlank())
        return Refuse(QStringLiteral("Select Class"), ui_->dbcClass);
    if (ui_->dbcDivision->IsBlank())
        return Refuse(QStringLiteral("Select Division"), ui_->dbcDivision);
    return true;
}

void frmMasStudentAdmissionEntry::cmdSave_Click()
{
    if (!IsReady())
        return;
    const Placement placement{ui_->dbcClass->BoundCode(), ui_->dbcDivision->BoundCode()};
    auto fault = PlacementFault::None;
    const bool done = WriteRow(
        Conflict::MasterIsGone,
        [&](store::Transaction& transaction) {
            const int year = Session().gintAcademicYearCode;
            const PlacementFacts facts = Admissions().Facts(studentCode_, year);
            fault = IsEditing() ? FaultOfCorrecting(facts) : FaultOfPlacing(facts);
            if (fault != PlacementFault::None)
                return;
            const auto store = IsEditing() ? &AdmissionRepository::Update : &AdmissionRepository::Insert;
            store(transaction, studentCode_, year, placement, Session().gintUserCode);
        },
        OnRefusal::Refill);
    if (!done)
        return;
    if (fault == PlacementFault::None)
        TellSaved();
    else
        Explain(fault);
}

void frmMasStudentAdmissionEntry::Explain(PlacementFault fault)
{
    Prompts::Information(tally::TextOf(fault));
    if (fault == PlacementFault::AlreadyPlaced)
        ui_->dbcAdmissionNo->setFocus();
    else if (fault != PlacementFault::HasMarks)
        cmdCancel_Click();
}

void frmMasStudentAdmissionEntry::cmdCancel_Click()
{
    ClearControls(this);
    ChooseFromList(true);
    studentCode_ = 0;
    ClearLabels();
    LoadLists();
    ShowState(MasterState::Idle);
    ui_->cmdNew->setFocus();
}

void frmMasStudentAdmissionEntry::cmdSearch_Click()
{
    Session().gblnCalledFromSearch = false;
    ShowForm(QStringLiteral("frmMasStudentAdmissionSearch"));
}

} // namespace tally
