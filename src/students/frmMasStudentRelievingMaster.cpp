#include "students/frmMasStudentRelievingMaster.h"

#include "core/modTallyboard.h"
#include "core/SessionContext.h"
#include "core/ui/controls/LeaveGuard.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "students/RelievingRepository.h"
#include "students/StudentRepository.h"
#include "ui_frmMasStudentRelievingMaster.h"

#include <tuple>
#include <utility>

namespace tally {

namespace {

constexpr int HelpScreenNo = 12;

StudentRepository Students()
{
    return StudentRepository(MainStore());
}

} // namespace

frmMasStudentRelievingMaster::frmMasStudentRelievingMaster()
    : MasterScreen(QStringLiteral("frmMasStudentRelievingMaster"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasStudentRelievingMaster>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    ConnectHandlers();
    Form_Load();
}

frmMasStudentRelievingMaster::~frmMasStudentRelievingMaster() = default;

void frmMasStudentRelievingMaster::Form_Load()
{
    TakeOnly(ui_->txtOptionalAdmissionNo, &KeyAlphaNumeric, 15);
    TakeOnly(ui_->txtRelievingReason, &KeyAlphaNumeric, 100);
    TakeOnly(ui_->txtTCNo, &KeyAlphaNumeric, 15);
    ui_->cmdSearchAdmissionNo->setIcon(LookIcon(QStringLiteral("search")));
    ui_->cmdSearchAdmissionNo->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_A));
    ResetDates();
    SetMasterControls({ui_->fraMain, ui_->cmdNew, ui_->cmdEdit, ui_->cmdDelete, ui_->cmdSave});
}

void frmMasStudentRelievingMaster::ConnectHandlers()
{
    using Form = frmMasStudentRelievingMaster;
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &Form::cmdEdit_Click);
    connect(ui_->cmdDelete, &QPushButton::clicked, this, &Form::cmdDelete_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &Form::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &Form::cmdCancel_Click);
    connect(ui_->cmdSearch, &QPushButton::clicked, this, &Form::cmdSearch_Click);
    connect(ui_->cmdSearchAdmissionNo, &QPushButton::clicked, this, &Form::cmdSearchAdmissionNo_Click);

    // Whoever is shown goes with the number that he was shown for.
    connect(ui_->txtOptionalAdmissionNo, &QLineEdit::textEdited, this, &Form::ForgetStudent);

    using Validate = bool (Form::*)();
    const std::pair<QWidget*, Validate> guarded[] = {
        {ui_->txtOptionalAdmissionNo, &Form::txtOptionalAdmissionNo_Validate},
        {ui_->txtTCNo, &Form::txtTCNo_Validate},
        {ui_->dtpRelievingDate, &Form::dtpRelievingDate_Validate},
        {ui_->dtpTCDate, &Form::dtpTCDate_Validate},
    };
    const QList<QWidget*> free{ui_->cmdCancel, ui_->cmdSearch, ui_->cmdExit, ui_->cmdSearchAdmissionNo};
    for (const auto& [field, validate] : guarded)
        AskBeforeLeaving(
            field, [this, validate = validate] { return !IsEntering() || (this->*validate)(); }, free);
}

RelievingRepository frmMasStudentRelievingMaster::Relievings() const
{
    return RelievingRepository(MainStore());
}

void frmMasStudentRelievingMaster::ShowState(MasterState state)
{
    MasterScreen::ShowState(state);
    for (QWidget* frame : {ui_->Frame1, ui_->Frame2})
        frame->setEnabled(ui_->fraMain->isEnabled());
}

bool frmMasStudentRelievingMaster::IsEntering() const
{
    return IsNew() || IsEditing();
}

bool frmMasStudentRelievingMaster::LoadNumber(const QString& optionalAdmissionNo)
{
    if (!IsEntering())
        cmdNew_Click();
    if (!IsEntering())
        return false;
    ui_->txtOptionalAdmissionNo->setText(optionalAdmissionNo);
    if (!txtOptionalAdmissionNo_Validate())
        return false;
    ui_->dtpRelievingDate->setFocus();
    return true;
}

bool frmMasStudentRelievingMaster::LoadEntry(int studentCode, bool viewOnly)
{
    const auto found =
        Fetch([&] { return std::pair(Students().Find(studentCode), Relievings().LastClassOf(studentCode)); });
    if (!found)
        return false;
    const auto& [student, lastClass] = *found;
    if (!student || !student->IsRelieved()) {
        Prompts::Information(QStringLiteral("No Record Exists"));
        return false;
    }
    formerCode_ = studentCode;
    formerTCNo_ = student->tcNo;
    ui_->txtOptionalAdmissionNo->setText(student->optionalAdmissionNo);
    LoadData(*student, lastClass);
    ResetDates();
    for (const auto& [picker, date] : {std::pair(ui_->dtpRelievingDate, student->relievingDate),
                                       std::pair(ui_->dtpTCDate, student->tcDate)})
        if (date.isValid())
            picker->setDate(date);
    ui_->txtRelievingReason->setText(student->relievingReason);
    ui_->txtTCNo->setText(student->tcNo);
    ShowState(viewOnly ? MasterState::Viewing : MasterState::RowSelected);
    (viewOnly ? ui_->cmdCancel : ui_->cmdEdit)->setFocus();
    return true;
}

void frmMasStudentRelievingMaster::LoadData(const Student& student,
                                            const std::optional<ClassNames>& lastClass)
{
    ForgetStudent();
    studentCode_ = student.code;
    // Who was never placed in a class is no student of the school yet, and there is nothing to leave.
    if (!lastClass)
        return;
    admissionDate_ = student.admissionDate;
    ui_->lblAdmissionDate->setText(ShownDate(student.admissionDate));
    ui_->lblStudentName->setText(student.name);
    ui_->lblFGName->setText(student.fatherOrGuardian);
    ui_->lblAddress1->setText(student.address1);
    ui_->lblAddress2->setText(student.address2);
    ui_->lblSex->setText(student.male ? QStringLiteral("Male") : QStringLiteral("Female"));
    ui_->lblStateName->setText(student.stateName);
    ui_->lblCityName->setText(student.cityName);
    ui_->lblPincode->setText(student.pinCode);
    ui_->lblDob->setText(ShownDate(student.dateOfBirth));
    ui_->lblTelephone->setText(student.telephone);
    ui_->lblBloodGroupName->setText(student.bloodGroupName);
    ui_->lblEmailId->setText(student.email);
    ui_->lblClassName->setText(lastClass->className);
    ui_->lblDivisionName->setText(lastClass->divisionName);
}

void frmMasStudentRelievingMaster::ForgetStudent()
{
    studentCode_ = 0;
    admissionDate_ = QDate();
    ClearLabels();
}

void frmMasStudentRelievingMaster::ClearLabels()
{
    for (QLabel* label : std::initializer_list<QLabel*>{
             ui_->lblAdmissionDate, ui_->lblStudentName, ui_->lblFGName, ui_->lblAddress1, ui_->lblAddress2,
             ui_->lblSex, ui_->lblStateName, ui_->lblCityName, ui_->lblPincode, ui_->lblDob,
             ui_->lblTelephone, ui_->lblBloodGroupName, ui_->lblEmailId, ui_->lblClassName,
             ui_->lblDivisionName})
        label->clear();
}

void frmMasStudentRelievingMaster::ResetDates()
{
    const QDate today = Session().gdtmApplicationDate;
    for (DatePicker* picker : {ui_->dtpRelievingDate, ui_->dtpTCDate})
        picker->setDate(today.isValid() ? today : QDate::currentDate());
}

Relieving frmMasStudentRelievingMaster::Entered() const
{
    return {
        .relievingDate = ui_->dtpRelievingDate->date(),
        .reason = ui_->txtRelievingReason->text().trimmed(),
        .tcNo = ui_->txtTCNo->text().trimmed(),
        .tcDate = ui_->dtpTCDate->date(),
    };
}

RelievingFacts frmMasStudentRelievingMaster::Facts(const QString& tcNo) const
{
    return Relievings().Facts(studentCode_, formerCode_, Session().gintAcademicYearCode, tcNo);
}

bool frmMasStudentRelievingMaster::txtOptionalAdmissionNo_Validate()
{
    const QString number = ui_->txtOptionalAdmissionNo->text().trimmed();
    ForgetStudent();
    if (number.isEmpty())
        return true;
    const auto found = Fetch([&] {
        const auto student = Students().FindByOptionalAdmissionNo(number);
        studentCode_ = student ? student->code : 0;
        return std::tuple(student, Relievings().LastClassOf(studentCode_), Facts());
    });
    if (!found)
        return false;
    const auto& [student, lastClass, facts] = *found;
    if (!Accepts(student ? FaultOfStudent(facts) : RelievingFault::NumberUnknown))
        return false;
    LoadData(*student, lastClass);
    return true;
}

bool frmMasStudentRelievingMaster::txtTCNo_Validate()
{
    const QString tcNo = Entered().tcNo;
    if (tcNo.isEmpty())
        return Accepts(RelievingFault::TCNoMissing);
    const auto facts = Fetch([&] { return Facts(tcNo); });
    return facts && Accepts(facts->tcNoTaken ? RelievingFault::TCNoTaken : RelievingFault::None);
}

bool frmMasStudentRelievingMaster::dtpRelievingDate_Validate()
{
    if (!admissionDate_.isValid())
        return true;
    const auto facts = Fetch([this] { return Facts(); });
    return facts && Accepts(FaultOfRelievingDate(Entered().relievingDate, *facts));
}

bool frmMasStudentRelievingMaster::dtpTCDate_Validate()
{
    if (!admissionDate_.isValid())
        return true;
    const auto facts = Fetch([this] { return Facts(); });
    return facts && Accepts(FaultOfTCDate(Entered(), *facts));
}

bool frmMasStudentRelievingMaster::Accepts(RelievingFault fault)
{
    if (fault == RelievingFault::None)
        return true;
    Prompts::Information(tally::TextOf(fault));
    const QDate today = Session().gdtmApplicationDate;
    switch (fault) {
    case RelievingFault::NumberUnknown:
    case RelievingFault::AlreadyRelieved:
    case RelievingFault::Promoted:
        ui_->txtOptionalAdmissionNo->clear();
        ForgetStudent();
        break;
    case RelievingFault::RelievedInFuture: ui_->dtpRelievingDate->setDate(today); break;
    case RelievingFault::TCInFuture: ui_->dtpTCDate->setDate(today); break;
    default: break;
    }
    return false;
}

QWidget* frmMasStudentRelievingMaster::FieldOf(RelievingFault fault) const
{
    switch (fault) {
    case RelievingFault::RelievedBeforeAdmission:
    case RelievingFault::RelievedInFuture: return ui_->dtpRelievingDate;
    case RelievingFault::TCNoMissing:
    case RelievingFault::TCNoTaken: return ui_->txtTCNo;
    case RelievingFault::TCBeforeAdmission:
    case RelievingFault::TCInFuture:
    case RelievingFault::TCBeforeRelieving: return ui_->dtpTCDate;
    default: return ui_->txtOptionalAdmissionNo;
    }
}

void frmMasStudentRelievingMaster::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    // A search that is still open may begin a new entry over a stored one, which is left as it is then.
    cmdCancel_Click();
    ShowState(MasterState::New);
    ui_->txtOptionalAdmissionNo->setFocus();
}

void frmMasStudentRelievingMaster::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    ShowState(MasterState::Editing);
    ui_->txtOptionalAdmissionNo->setFocus();
}

void frmMasStudentRelievingMaster::cmdDelete_Click()
{
    if (!MayUse(Right::Delete) || !Prompts::Ask(QStringLiteral("Do You Want To Delete This Entry ?")))
        return;
    const bool deleted = WriteRow(
        Conflict::DataIsInUse,
        [this](store::Transaction& transaction) {
            RelievingRepository::PutBackOnRoll(transaction, formerCode_, formerTCNo_);
        },
        OnRefusal::Stay);
    if (deleted)
        TellDeleted();
}

void frmMasStudentRelievingMaster::cmdSave_Click()
{
    if (!RequireText(QStringLiteral("Enter Admission No."), ui_->txtOptionalAdmissionNo))
        return;
    // The number may have been typed and never left.
    if (studentCode_ == 0 && !txtOptionalAdmissionNo_Validate()) {
        ui_->txtOptionalAdmissionNo->setFocus();
        return;
    }
    const Relieving entry = Entered();
    auto fault = RelievingFault::None;
    const bool done = WriteRow(
        Conflict::Describe,
        [&](store::Transaction& transaction) {
            // Read where they hold: another client may have gone on with the student meanwhile.
            fault = FaultOfRelieving(entry, Facts(entry.tcNo));
            if (fault != RelievingFault::None)
                return;
            const bool stays = formerCode_ == studentCode_;
            if (formerCode_ != 0 && !stays)
                RelievingRepository::PutBackOnRoll(transaction, formerCode_, formerTCNo_);
            RelievingRepository::Relieve(transaction, studentCode_, entry, stays ? formerTCNo_ : QString());
        },
        OnRefusal::Stay);
    if (!done)
        return;
    if (Accepts(fault))
        TellSaved();
    else
        FieldOf(fault)->setFocus();
}

void frmMasStudentRelievingMaster::cmdCancel_Click()
{
    ClearControls(this);
    ForgetStudent();
    formerCode_ = 0;
    formerTCNo_.clear();
    ResetDates();
    ShowState(MasterState::Idle);
    ui_->cmdNew->setFocus();
}

void frmMasStudentRelievingMaster::cmdSearch_Click()
{
    ShowForm(QStringLiteral("frmMasStudentRelievingSearch"));
}

void frmMasStudentRelievingMaster::cmdSearchAdmissionNo_Click()
{
    Session().gblnCalledFromSearch = true;
    ShowForm(QStringLiteral("frmMasStudentAdmissionSearch"));
}

} // namespace tally
