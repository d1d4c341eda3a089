#include "students/frmMasStudentMaster.h"

#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/FieldHint.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/PlaceChoice.h"
#include "core/ui/Prompts.h"
#include "core/ui/SideButton.h"
#include "core/ui/TakeOnly.h"
#include "ui_frmMasStudentMaster.h"

#include <QKeyEvent>
#include <QShortcut>

#include <utility>

namespace tally {

namespace {

constexpr int HelpScreenNo = 10;

const QString Male = QStringLiteral("Male");
const QString Female = QStringLiteral("Female");

/// How an academic year is called: "2024 - 2025". Empty for none.
QString YearText(int yearFrom, int yearTo)
{
    return yearFrom == 0 ? QString() : QStringLiteral("%1 - %2").arg(yearFrom).arg(yearTo);
}

} // namespace

frmMasStudentMaster::frmMasStudentMaster()
    : MasterScreen(QStringLiteral("frmMasStudentMaster"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasStudentMaster>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    Form_Load();
    ConnectHandlers();
}

frmMasStudentMaster::~frmMasStudentMaster() = default;

void frmMasStudentMaster::Form_Load()
{
    TakeOnly(ui_->txtAdmissionNumber, &KeyNumeric, 9);
    TakeOnly(ui_->txtEmail, &KeyAllButQuote, 50);
    const std::pair<QLineEdit*, int> widths[] = {
        {ui_->txtOptionalAdmissionNo, 15}, {ui_->txtstudentName, 100}, {ui_->txtFGName, 100},
        {ui_->txtAddress1, 100},           {ui_->txtAddress2, 100},    {ui_->txtPincode, 15},
        {ui_->txtTelephone, 20},
    };
    for (const auto& [field, width] : widths)
        TakeOnly(field, &KeyAlphaNumeric, width);
    AskBeforeLeaving(ui_->txtAdmissionNumber, [this] { return txtAdmissionNumber_LostFocus(); },
                     {ui_->cmdCancel, ui_->cmdSearch, ui_->cmdExit});
    for (DatePicker* date : {ui_->dtpAdmissiondate, ui_->dtpDOB}) {
        date->setProperty(TakesEnter, true);
        date->installEventFilter(this);
    }
    ui_->cboSex->setCurrentIndex(-1);
    places_ = new PlaceChoice(this, ui_->dbcStateName, ui_->dbcCity);
    LoadLists();
    SetMasterControls({ui_->fraMain, ui_->cmdNew, ui_->cmdEdit, ui_->cmdDelete, ui_->cmdSave});
}

void frmMasStudentMaster::ConnectHandlers()
{
    connect(ui_->cmdNew, &QPushButton::clicked, this, &frmMasStudentMaster::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &frmMasStudentMaster::cmdEdit_Click);
    connect(ui_->cmdDelete, &QPushButton::clicked, this, &frmMasStudentMaster::cmdDelete_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmMasStudentMaster::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmMasStudentMaster::cmdCancel_Click);
    connect(ui_->cmdSearch, &QPushButton::clicked, this, &frmMasStudentMaster::cmdSearch_Click);
    const auto refill = [this] { RefillLists(); };
    new SideButton(this, ui_->cmdAddStateName, ui_->dbcStateName, QStringLiteral("frmMasStateMaster"),
                   refill);
    new SideButton(this, ui_->cmdAddCity, ui_->dbcCity, QStringLiteral("frmMasCityMaster"), refill);
    new SideButton(this, ui_->cmdAddBloodGroup, ui_->dbcBloodGroup, QStringLiteral("frmMasBloodGroupMaster"),
                   refill);
    const std::pair<QPushButton*, Qt::Key> sideKeys[] = {
        {ui_->cmdAddStateName, Qt::Key_S},
        {ui_->cmdAddCity, Qt::Key_C},
        {ui_->cmdAddBloodGroup, Qt::Key_B},
    };
    for (const auto& [button, key] : sideKeys)
        button->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | key));
    auto* bulkChange = new QShortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::SHIFT | Qt::Key_O), this);
    bulkChange->setContext(Qt::WidgetWithChildrenShortcut);
    connect(bulkChange, &QShortcut::activated, this, &frmMasStudentMaster::ChangeOptionalAdmissionNos);
}

void frmMasStudentMaster::LoadLists()
{
    Read([this] { ReadLists(0, 0); });
}

void frmMasStudentMaster::ReadLists(int stateCode, int cityCode)
{
    const CodedTexts bloodGroups = SchoolListRepository(MainStore()).BloodGroups();
    places_->Choose(stateCode, cityCode);
    ui_->dbcBloodGroup->SetList(bloodGroups);
}

void frmMasStudentMaster::RefillLists()
{
    Read([this] {
        places_->Refill();
        const int chosen = ui_->dbcBloodGroup->BoundCode();
        ui_->dbcBloodGroup->SetList(SchoolListRepository(MainStore()).BloodGroups());
        ui_->dbcBloodGroup->SetBoundCode(chosen);
    });
}

void frmMasStudentMaster::ShowState(MasterState state)
{
    MasterScreen::ShowState(state);
    ui_->lblAutoGenDisplay->setVisible(IsNew());
    if (IsNew())
        ShowNumbering();
    else
        ui_->lblMandatory->setVisible(IsEditing() && !student_.numberGenerated);
}

void frmMasStudentMaster::Form_Activate(bool first)
{
    // Options may lie open beside this screen, and be changed while a student is being entered.
    if (!first && IsNew() && !Session().gblnAutoGenerate)
        ShowNumbering();
}

void frmMasStudentMaster::ShowNumbering()
{
    const bool generated = Session().gblnAutoGenerate;
    ui_->txtAdmissionNumber->setEnabled(!generated);
    ui_->txtOptionalAdmissionNo->setEnabled(!generated);
    ui_->lblAutoGenDisplay->setText(generated
                                        ? QStringLiteral("Admission No. Will Be Generated Automatically")
                                        : QStringLiteral("Enter Admission No. Manually"));
    ui_->lblMandatory->setVisible(!generated);
}

StudentSaving frmMasStudentMaster::Saving() const
{
    return {.autoGenerate = Session().gblnAutoGenerate,
            .today = Session().gdtmApplicationDate,
            .userCode = Session().gintUserCode,
            .loadedOptionalNo = student_.optionalAdmissionNo};
}

bool frmMasStudentMaster::LoadData(int StudentCode)
{
    // A list that could not be read would show what is stored as blank, and the next save would store that.
    const auto student = Fetch([&] {
        auto stored = StudentRepository(MainStore()).Find(StudentCode);
        if (stored)
            ReadLists(stored->stateCode, stored->cityCode);
        return stored;
    });
    if (!student)
        return false;
    if (!*student) {
        Prompts::Information(QStringLiteral("No Record Exists"));
        return false;
    }
    Show(**student);
    if (student_.IsRelieved()) {
        ShowState(MasterState::Idle);
        ui_->cmdNew->setEnabled(false);
        ui_->cmdCancel->setFocus();
    } else {
        ShowState(MasterState::RowSelected);
        ui_->cmdEdit->setFocus();
    }
    return true;
}

void frmMasStudentMaster::Show(const Student& student)
{
    student_ = student;
    ShowNumbers(student);
    ui_->txtAdmissionNumber->setEnabled(!student.numberGenerated);
    ui_->txtOptionalAdmissionNo->setEnabled(true);
    // A picker leaves an empty date alone, and would show that of the student before.
    const QDate today = Session().gdtmApplicationDate;
    for (const auto& [picker, date] : {std::pair(ui_->dtpAdmissiondate, student.admissionDate),
                                       std::pair(ui_->dtpDOB, student.dateOfBirth)})
        picker->setDate(date.isValid() ? date : today.isValid() ? today : QDate::currentDate());
    ui_->txtAcademicyear->setText(YearText(student.yearFrom, student.yearTo));
    ui_->txtstudentName->setText(student.name);
    ui_->txtFGName->setText(student.fatherOrGuardian);
    ui_->cboSex->setCurrentText(student.male ? Male : Female);
    ui_->txtAddress1->setText(student.address1);
    ui_->txtAddress2->setText(student.address2);
    ui_->txtPincode->setText(student.pinCode);
    ui_->txtTelephone->setText(student.telephone);
    ui_->txtEmail->setText(student.email);
    ui_->dbcBloodGroup->SetBoundCode(student.bloodGroupCode);
    // A long text is read from its beginning.
    for (QLineEdit* box : {ui_->txtOptionalAdmissionNo, ui_->txtstudentName, ui_->txtFGName, ui_->txtAddress1,
                           ui_->txtAddress2, ui_->txtTelephone, ui_->txtEmail})
        box->home(false);
}

void frmMasStudentMaster::ShowNumbers(const Student& student)
{
    ui_->txtAdmissionNumber->setText(QString::number(student.admissionNo));
    ui_->txtOptionalAdmissionNo->setText(student.optionalAdmissionNo);
}

Student frmMasStudentMaster::Entered() const
{
    Student student = student_;
    student.admissionNo = ui_->txtAdmissionNumber->text().toInt();
    student.optionalAdmissionNo = ui_->txtOptionalAdmissionNo->text().trimmed();
    student.admissionDate = ui_->dtpAdmissiondate->date();
    if (student.code == 0)
        student.academicYearCode = Session().gintAcademicYearCode;
    student.name = ui_->txtstudentName->text().trimmed();
    student.fatherOrGuardian = ui_->txtFGName->text().trimmed();
    student.male = ui_->cboSex->currentText() == Male;
    student.dateOfBirth = ui_->dtpDOB->date();
    student.address1 = ui_->txtAddress1->text().trimmed();
    student.address2 = ui_->txtAddress2->text().trimmed();
    student.cityCode = ui_->dbcCity->BoundCode();
    student.pinCode = ui_->txtPincode->text().trimmed();
    student.telephone = ui_->txtTelephone->text().trimmed();
    student.email = ui_->txtEmail->text().trimmed();
    student.bloodGroupCode = ui_->dbcBloodGroup->BoundCode();
    return student;
}

void frmMasStudentMaster::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    const auto settings = Fetch([] { return ReadStudentSettings(MainStore()); });
    if (!settings)
        return;
    if (!settings->latestBirth.isValid())
        return Prompts::Information(
            QStringLiteral("Without Setting 'Date Of Birth In Options Screen' Students Cannot Be Created"));
    if (settings->gender.isEmpty())
        return Prompts::Information(
            QStringLiteral("Without Setting 'Gender In Options Screen' Students Cannot Be Created"));
    ShowState(MasterState::New);
    if (Session().gdtmApplicationDate.isValid())
        ui_->dtpAdmissiondate->setDate(Session().gdtmApplicationDate);
    ui_->txtAcademicyear->setText(YearText(Session().gintYearFrom, Session().gintYearTo));
    ui_->dtpDOB->setDate(settings->latestBirth);
    ui_->cboSex->setCurrentIndex(settings->gender == QLatin1String("M")   ? ui_->cboSex->findText(Male)
                                 : settings->gender == QLatin1String("F") ? ui_->cboSex->findText(Female)
                                                                          : -1);
    if (Session().gblnAutoGenerate)
        ui_->dtpAdmissiondate->setFocus();
    else
        ui_->txtAdmissionNumber->setFocus();
}

void frmMasStudentMaster::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    ShowState(MasterState::Editing);
    ui_->txtstudentName->setFocus();
    ui_->txtstudentName->end(false);
}

void frmMasStudentMaster::cmdDelete_Click()
{
    if (!MayUse(Right::Delete) || !Prompts::Ask(QStringLiteral("Do You Want To Delete This Student ?")))
        return;
    bool relieved = false;
    const bool done = WriteRow(
        Conflict::DataIsInUse,
        [&](store::Transaction& transaction) {
            // Another client may have entered his leaving while he stood on the screen.
            relieved = StudentRepository(transaction.On()).IsRelieved(student_.code);
            if (!relieved)
                StudentRepository::Delete(transaction, student_.code);
        },
        OnRefusal::Stay);
    if (!done)
        return;
    if (!relieved)
        return TellDeleted();
    Tell(StudentFault::Relieved);
    cmdCancel_Click();
}

void frmMasStudentMaster::cmdSave_Click()
{
    Student student = Entered();
    if (!IsReady(student))
        return;
    StudentFault fault = StudentFault::None;
    const bool written = WriteRow(
        Conflict::MasterIsGone,
        [&](store::Transaction& transaction) { fault = SaveStudent(transaction, student, Saving()); },
        OnRefusal::Refill);
    if (!written)
        return;
    // The clerk reads the numbers that are meant while the word for the result stands.
    const bool generatedTaken =
        fault == StudentFault::OptionalNumberTaken && !ui_->txtOptionalAdmissionNo->isEnabled();
    if (IsEditing())
        student.admissionNo = student_.admissionNo;
    if (fault == StudentFault::None || generatedTaken)
        ShowNumbers(student);
    if (fault == StudentFault::None)
        return TellSaved();
    Tell(fault);
    if (generatedTaken)
        for (QLineEdit* number : {ui_->txtAdmissionNumber, ui_->txtOptionalAdmissionNo})
            number->clear();
}

bool frmMasStudentMaster::IsReady(Student& student)
{
    if (GenerationTookOver())
        return false;
    const bool generate = Session().gblnAutoGenerate;
    if (TypesNumber(student, generate) &&
        !RequireText(QStringLiteral("Enter Student Admission No."), ui_->txtAdmissionNumber))
        return false;
    if (TypesOptionalNumber(student, generate) &&
        !RequireText(QStringLiteral("Enter Optional Admission No."), ui_->txtOptionalAdmissionNo))
        return false;
    const auto facts = Fetch([&] {
        KeepStoredNumber(MainStore(), student, Saving());
        return ReadStudentFacts(MainStore(), student, Saving());
    });
    if (!facts)
        return false;
    const StudentFault fault = FaultOf(student, *facts);
    if (fault != StudentFault::None) {
        Tell(fault);
        return false;
    }
    return RequireText(QStringLiteral("Enter Student Name"), ui_->txtstudentName);
}

void frmMasStudentMaster::Tell(StudentFault fault)
{
    QWidget* field = ui_->cmdSave;
    switch (fault) {
    case StudentFault::NumberTaken: field = ui_->txtAdmissionNumber; break;
    case StudentFault::OptionalNumberTaken: field = ui_->txtOptionalAdmissionNo; break;
    case StudentFault::AdmissionInFuture: field = ui_->dtpAdmissiondate; break;
    case StudentFault::BornTooLate:
    case StudentFault::BirthNotBeforeAdmission: field = ui_->dtpDOB; break;
    case StudentFault::None:
    case StudentFault::Relieved:
    case StudentFault::LatestBirthNotSet:
    case StudentFault::GenderNotSet:
    case StudentFault::NumbersUsedUp: break;
    }
    // The boxes of numbers that the system gives are closed.
    Refuse(FaultText(fault), field->isEnabled() ? field : ui_->cmdSave);
}

void frmMasStudentMaster::cmdCancel_Click()
{
    ClearControls(this);
    student_ = Student();
    LoadLists();
    ShowState(MasterState::Idle);
    ui_->cmdNew->setFocus();
}

void frmMasStudentMaster::cmdSearch_Click()
{
    ShowForm(QStringLiteral("frmMasStudentMasterSearch"));
}

void frmMasStudentMaster::ChangeOptionalAdmissionNos()
{
    if (Prompts::Ask(QStringLiteral("Do You Want To Change 'Optional Admission Nos' ?")))
        ShowForm(QStringLiteral("frmMasOptionalAdmissionNoChange"));
}

bool frmMasStudentMaster::GenerationTookOver()
{
    if (!IsNew() || !Session().gblnAutoGenerate || !ui_->txtAdmissionNumber->isEnabled())
        return false;
    Prompts::Information(QStringLiteral("Auto Generation Of Admission No. Is Enabled In Options Screen"));
    ui_->txtAdmissionNumber->clear();
    ui_->txtOptionalAdmissionNo->clear();
    ui_->dtpAdmissiondate->setFocus();
    ShowNumbering();
    return true;
}

bool frmMasStudentMaster::txtAdmissionNumber_LostFocus()
{
    const QString typed = ui_->txtAdmissionNumber->text();
    const auto holder =
        Fetch([&] { return StudentRepository(MainStore()).FindByAdmissionNo(typed.toInt()); });
    if (holder && *holder && (*holder)->code != student_.code)
        return OfferHolder(**holder);
    if (!GenerationTookOver() && IsEditing() && typed.toInt() != student_.admissionNo)
        ShowFieldHint(ui_->txtAdmissionNumber,
                      QStringLiteral("The Admission No. Of A Stored Student Stays As It Is"));
    return true;
}

bool frmMasStudentMaster::OfferHolder(const Student& holder)
{
    if (Prompts::Ask(holder.IsRelieved()
                         ? QStringLiteral("Do You Want To View Relieved Student Details ?")
                         : QStringLiteral("Admission No. Already Exists. Do You Want To View The "
                                          "Details ?")))
        return LoadData(holder.code);
    ui_->txtAdmissionNumber->clear();
    return false;
}

StudentFault frmMasStudentMaster::FaultOnEnter(const DatePicker* date)
{
    if (date == ui_->dtpAdmissiondate)
        return FaultOfAdmission(ui_->dtpAdmissiondate->date(), Session().gdtmApplicationDate);
    const auto settings = Fetch([] { return ReadStudentSettings(MainStore()); });
    return FaultOfBirth(ui_->dtpDOB->date(), settings ? settings->latestBirth : QDate(),
                        ui_->dtpAdmissiondate->date());
}

bool frmMasStudentMaster::eventFilter(QObject* receiver, QEvent* event)
{
    auto* date = qobject_cast<DatePicker*>(receiver);
    const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (!date || (key != Qt::Key_Return && key != Qt::Key_Enter))
        return MasterScreen::eventFilter(receiver, event);
    date->interpretText();
    const StudentFault fault = FaultOnEnter(date);
    if (fault == StudentFault::None)
        focusNextChild();
    else
        Tell(fault);
    return true;
}

} // namespace tally
