#include "masters/frmTeacherMaster.h"

#include "core/modTallyboard.h"
#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/PlaceChoice.h"
#include "core/ui/Prompts.h"
#include "core/ui/SideButton.h"
#include "core/ui/TakeOnly.h"
#include "masters/TeacherRepository.h"
#include "store/StoreError.h"
#include "ui_frmTeacherMaster.h"

#include <QFocusEvent>

#include <utility>

namespace tally {

namespace {

constexpr int HelpScreenNo = 9;

/// The user looks at another program, a menu or a drop-down list and will come back to the same control.
bool FocusComesBack(const QEvent* event)
{
    switch (static_cast<const QFocusEvent*>(event)->reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason: return true;
    default: return false;
    }
}

} // namespace

frmTeacherMaster::frmTeacherMaster()
    : MasterScreen(QStringLiteral("frmTeacherMaster"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmTeacherMaster>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    Form_Load();
    ConnectHandlers();
}

frmTeacherMaster::~frmTeacherMaster() = default;

void frmTeacherMaster::Form_Load()
{
    const std::pair<QLineEdit*, int> widths[] = {
        {ui_->txtTeacherName, 100}, {ui_->txtTeacherShortName, 3}, {ui_->txtFHName, 100},
        {ui_->txtAddress1, 100},    {ui_->txtAddress2, 100},       {ui_->txtPincode, 15},
        {ui_->txtTelephone, 20},    {ui_->txtQualification, 50},
    };
    for (const auto& [field, width] : widths)
        TakeOnly(field, &KeyAlphaNumeric, width);
    places_ = new PlaceChoice(this, ui_->dbcStateName, ui_->dbcCityName);
    LoadLists();
    ui_->dtpWedding->setEnabled(false);
    SetMasterControls({ui_->fraMain, ui_->cmdNew, ui_->cmdEdit, ui_->cmdDelete, ui_->cmdSave});
}

void frmTeacherMaster::ConnectHandlers()
{
    connect(ui_->cmdNew, &QPushButton::clicked, this, &frmTeacherMaster::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &frmTeacherMaster::cmdEdit_Click);
    connect(ui_->cmdDelete, &QPushButton::clicked, this, &frmTeacherMaster::cmdDelete_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmTeacherMaster::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmTeacherMaster::cmdCancel_Click);
    connect(ui_->cmdSearch, &QPushButton::clicked, this, &frmTeacherMaster::cmdSearch_Click);
    const auto refillPlaces = [this] { Read([this] { places_->Refill(); }); };
    new SideButton(this, ui_->cmdAddStateName, ui_->dbcStateName, QStringLiteral("frmMasStateMaster"),
                   refillPlaces);
    new SideButton(this, ui_->cmdAddCity, ui_->dbcStateName, QStringLiteral("frmMasCityMaster"),
                   refillPlaces);
    new SideButton(this, ui_->cmdAddBloodGroup, ui_->dbcBloodGroup, QStringLiteral("frmMasBloodGroupMaster"),
                   [this] {
                       const int chosen = ui_->dbcBloodGroup->BoundCode();
                       LoadBloodGroups();
                       ui_->dbcBloodGroup->SetBoundCode(chosen);
                   });
    const std::pair<QPushButton*, Qt::Key> sideKeys[] = {
        {ui_->cmdAddStateName, Qt::Key_S},
        {ui_->cmdAddCity, Qt::Key_C},
        {ui_->cmdAddBloodGroup, Qt::Key_B},
    };
    for (const auto& [button, key] : sideKeys) {
        button->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | key));
        button->installEventFilter(this);
    }
    connect(ui_->optMarried, &QRadioButton::clicked, this, &frmTeacherMaster::optMarried_Click);
    connect(ui_->optSingle, &QRadioButton::clicked, this, &frmTeacherMaster::optSingle_Click);
    connect(ui_->dtpJoining, &OptionalDatePicker::Changed, this, [this] {
        RefuseDate(ui_->dtpJoining, QStringLiteral("Joining Date"),
                   FaultWhileChoosing(ui_->dtpJoining->Date(), ui_->dtpDOB->Date()));
    });
    connect(ui_->dtpWedding, &OptionalDatePicker::Changed, this, [this] {
        RefuseDate(ui_->dtpWedding, QStringLiteral("Wedding Date"),
                   FaultWhileChoosing(ui_->dtpWedding->Date(), ui_->dtpDOB->Date()));
    });
}

TeacherRepository frmTeacherMaster::Teachers() const
{
    return TeacherRepository(MainStore());
}

void frmTeacherMaster::LoadLists()
{
    Read([this] { ReadLists(0, 0); });
}

void frmTeacherMaster::ReadLists(int stateCode, int cityCode)
{
    const CodedTexts salutations = Teachers().Salutations();
    const CodedTexts bloodGroups = SchoolListRepository(MainStore()).BloodGroups();
    places_->Choose(stateCode, cityCode);
    ui_->cboPrefix->SetListBehindBlank(salutations);
    ui_->dbcBloodGroup->SetList(bloodGroups);
}

void frmTeacherMaster::LoadPlaces()
{
    Read([this] { places_->Load(); });
}

void frmTeacherMaster::LoadBloodGroups()
{
    Read([this] { ui_->dbcBloodGroup->SetList(SchoolListRepository(MainStore()).BloodGroups()); });
}

bool frmTeacherMaster::eventFilter(QObject* receiver, QEvent* event)
{
    // Who goes for a new place or blood group is going to choose that one.
    if (event->type() == QEvent::FocusOut && !FocusComesBack(event) && qobject_cast<QPushButton*>(receiver)) {
        if (receiver == ui_->cmdAddBloodGroup)
            LoadBloodGroups();
        else
            LoadPlaces();
    }
    return MasterScreen::eventFilter(receiver, event);
}

bool frmTeacherMaster::LoadData(int TeacherCode)
{
    // A list that could not be read would show what is stored as blank, and the next save would store that.
    const auto teacher = Fetch([&] {
        auto stored = Teachers().Find(TeacherCode);
        if (stored)
            ReadLists(stored->stateCode, stored->cityCode);
        return stored;
    });
    if (!teacher)
        return false;
    if (!*teacher) {
        Prompts::Information(QStringLiteral("No Record Exists"));
        return false;
    }
    teacherCode_ = TeacherCode;
    Show(**teacher);
    ShowState(MasterState::RowSelected);
    ui_->cmdEdit->setFocus();
    return true;
}

void frmTeacherMaster::Show(const Teacher& teacher)
{
    ui_->cboPrefix->SetBoundCode(teacher.salutationCode);
    ui_->txtTeacherName->setText(teacher.name);
    ui_->txtTeacherShortName->setText(teacher.shortName);
    ui_->txtFHName->setText(teacher.fatherOrSpouse);
    ui_->dtpDOB->SetDate(teacher.dateOfBirth);
    ui_->dtpWedding->SetDate(teacher.weddingDate);
    ui_->dtpJoining->SetDate(teacher.joiningDate);
    (teacher.married ? ui_->optMarried : ui_->optSingle)->setChecked(true);
    teacher.married ? optMarried_Click() : optSingle_Click();
    ui_->txtAddress1->setText(teacher.address1);
    ui_->txtAddress2->setText(teacher.address2);
    ui_->txtPincode->setText(teacher.pinCode);
    ui_->txtTelephone->setText(teacher.telephone);
    ui_->dbcBloodGroup->SetBoundCode(teacher.bloodGroupCode);
    ui_->txtQualification->setText(teacher.qualification);
}

Teacher frmTeacherMaster::Entered() const
{
    return {
        .salutationCode = ui_->cboPrefix->BoundCode(),
        .name = ui_->txtTeacherName->text().trimmed(),
        .shortName = ui_->txtTeacherShortName->text().trimmed(),
        .dateOfBirth = ui_->dtpDOB->Date(),
        .married = ui_->optMarried->isChecked(),
        .weddingDate = ui_->dtpWedding->Date(),
        .joiningDate = ui_->dtpJoining->Date(),
        .fatherOrSpouse = ui_->txtFHName->text().trimmed(),
        .address1 = ui_->txtAddress1->text().trimmed(),
        .address2 = ui_->txtAddress2->text().trimmed(),
        .stateCode = ui_->dbcStateName->BoundCode(),
        .cityCode = ui_->dbcCityName->BoundCode(),
        .pinCode = ui_->txtPincode->text().trimmed(),
        .telephone = ui_->txtTelephone->text().trimmed(),
        .bloodGroupCode = ui_->dbcBloodGroup->BoundCode(),
        .qualification = ui_->txtQualification->text().trimmed(),
    };
}

void frmTeacherMaster::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    ShowState(MasterState::New);
    ui_->cboPrefix->setFocus();
}

void frmTeacherMaster::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    ShowState(MasterState::Editing);
    ui_->cboPrefix->setFocus();
}

void frmTeacherMaster::cmdDelete_Click()
{
    if (!MayUse(Right::Delete) || !Prompts::Ask(QStringLiteral("Do You Want To Delete This Teacher ?")))
        return;
    DeleteRow(
        [this](store::Transaction& transaction) { TeacherRepository::Delete(transaction, teacherCode_); },
        OnRefusal::StartAnew);
}

void frmTeacherMaster::cmdSave_Click()
{
    const Teacher teacher = Entered();
    if (!IsReady(teacher))
        return;
    SaveRow(
        [&](store::Transaction& transaction) {
            const int userCode = Session().gintUserCode;
            if (!IsEditing()) {
                const int code = GetNextCode(transaction, QStringLiteral("TeacherCode"),
                                             QStringLiteral("TeacherMaster"), 0);
                TeacherRepository::Insert(transaction, code, teacher, userCode);
            } else {
                TeacherRepository::Update(transaction, teacherCode_, teacher, userCode);
            }
        },
        OnRefusal::StartAnew);
}

bool frmTeacherMaster::IsReady(const Teacher& teacher)
{
    if (teacher.salutationCode == 0)
        return Refuse(QStringLiteral("Select Salutation"), ui_->cboPrefix);
    if (!RequireText(QStringLiteral("Enter Teacher Name"), ui_->txtTeacherName) ||
        !RequireText(QStringLiteral("Enter Teacher Short Name"), ui_->txtTeacherShortName))
        return false;
    if (RefuseDate(ui_->dtpJoining, QStringLiteral("Joining Date"),
                   FaultAtSave(teacher.joiningDate, teacher.dateOfBirth)))
        return false;
    if (RefuseDate(ui_->dtpWedding, QStringLiteral("Wedding Date"),
                   FaultAtSave(teacher.weddingDate, teacher.dateOfBirth)))
        return false;

    const auto taken = Fetch([&] {
        return std::pair(Teachers().NameTaken(teacher.name, teacherCode_),
                         Teachers().ShortNameTaken(teacher.shortName, teacherCode_));
    });
    if (!taken)
        return false;
    const auto [nameTaken, shortNameTaken] = *taken;
    if (nameTaken)
        return Refuse(QStringLiteral("Teacher Name Already Exists"), ui_->txtTeacherName);
    if (shortNameTaken)
        return Refuse(QStringLiteral("Teacher Short Name Already Exists"), ui_->txtTeacherShortName);
    return true;
}

bool frmTeacherMaster::RefuseDate(OptionalDatePicker* date, const QString& name, DateFault fault)
{
    if (fault == DateFault::BirthMissing)
        Refuse(QStringLiteral("Select 'Date Of Birth'"), ui_->dtpDOB);
    else if (fault == DateFault::NotAfterBirth)
        Refuse(QStringLiteral("'%1' Should Be Greater Than 'Date Of Birth'").arg(name), date);
    return fault != DateFault::None;
}

void frmTeacherMaster::cmdCancel_Click()
{
    for (OptionalDatePicker* date : {ui_->dtpDOB, ui_->dtpWedding, ui_->dtpJoining})
        date->SetTicked(false);
    ClearControls(this);
    ui_->optSingle->setChecked(true);
    optSingle_Click();
    teacherCode_ = 0;
    LoadLists();
    ShowState(MasterState::Idle);
    ui_->cmdNew->setFocus();
}

void frmTeacherMaster::cmdSearch_Click()
{
    ShowForm(QStringLiteral("frmTeacherSearch"));
}

void frmTeacherMaster::optMarried_Click()
{
    ui_->dtpWedding->setEnabled(true);
}

void frmTeacherMaster::optSingle_Click()
{
    ui_->dtpWedding->SetTicked(false);
    ui_->dtpWedding->setEnabled(false);
}

} // namespace tally
