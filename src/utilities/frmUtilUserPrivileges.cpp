#include "utilities/frmUtilUserPrivileges.h"

#include "core/SessionContext.h"
#include "core/ui/controls/LeaveGuard.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/SideButton.h"
#include "core/ui/TakeOnly.h"
#include "ui_frmUtilUserPrivileges.h"

#include <tuple>

namespace tally {

namespace {

constexpr int HelpScreenNo = 34;
constexpr int MostDays = 365;
constexpr int LoginWidth = 15;
constexpr int DaysWidth = 3;
const QString PasswordsDiffer = QStringLiteral("Password Does Not Match");

/// Puts other entries into a list and keeps what is chosen, as far as it is still among them.
void Refill(DataCombo* list, const CodedTexts& entries)
{
    const int chosen = list->BoundCode();
    list->SetList(entries);
    list->SetBoundCode(chosen);
}

} // namespace

frmUtilUserPrivileges::frmUtilUserPrivileges()
    : MasterScreen(QStringLiteral("frmUtilUserPrivileges"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmUtilUserPrivileges>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    ConnectHandlers();
    Form_Load();
}

frmUtilUserPrivileges::~frmUtilUserPrivileges() = default;

void frmUtilUserPrivileges::Form_Load()
{
    // What cannot be typed at the login would lock its owner out.
    for (QLineEdit* field : {ui_->txtLoginID, ui_->txtPassword, ui_->txtRePassword})
        TakeOnly(field, &KeyAlphaNumeric, LoginWidth);
    TakeOnly(ui_->txtDays, &KeyNumeric, DaysWidth);
    ui_->cmdAddUserName->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_U));
    frmUtilUserPrivileges::RefillLists();
    SetMasterControls({ui_->Frame1, ui_->cmdNew, ui_->cmdEdit, nullptr, ui_->cmdSave});
    ui_->cmdNew->setFocus();
}

void frmUtilUserPrivileges::ConnectHandlers()
{
    using Form = frmUtilUserPrivileges;
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &Form::cmdEdit_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &Form::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &Form::cmdCancel_Click);
    connect(ui_->cmdTransfer, &QPushButton::clicked, this, &Form::cmdTransfer_Click);
    new SideButton(this, ui_->cmdAddUserName, ui_->dbcUserName, QStringLiteral("frmUtilUserMaster"),
                   [this] { RefillLists(); });

    const QList<QWidget*> givingUp{ui_->cmdCancel, ui_->cmdExit};
    ui_->dbcUserName->SetGivingUp(givingUp);
    connect(ui_->dbcUserName, &DataCombo::Settled, this, &Form::dbcUserName_Settled);
    connect(ui_->dbcFromUser, &DataCombo::Chosen, this, &Form::LoadToUserName);
    connect(ui_->dbcToUser, &DataCombo::Chosen, this, &Form::LoadFromUserName);
    connect(ui_->txtDays, &QLineEdit::textEdited, this, &Form::txtDays_Change);

    // Save asks the same, and would ask it a second time.
    AskBeforeLeaving(
        ui_->txtLoginID, [this] { return txtLoginID_Validate(); },
        givingUp + QList<QWidget*>{ui_->cmdSave, ui_->cmdAddUserName});
    AskBeforeLeaving(
        ui_->txtRePassword,
        [this] {
            if (IsEntering() && ui_->txtRePassword->text() != ui_->txtPassword->text())
                Prompts::Information(PasswordsDiffer);
            return true;
        },
        givingUp + QList<QWidget*>{ui_->cmdSave, ui_->cmdAddUserName, ui_->txtPassword});
}

UserPrivilegeRepository frmUtilUserPrivileges::Privileges() const
{
    return UserPrivilegeRepository(MainStore());
}

void frmUtilUserPrivileges::ShowState(MasterState state)
{
    MasterScreen::ShowState(state);
    ui_->tvwDisplay->SetClosed(!IsEntering());
    // A stored login stays with its person.
    for (QWidget* choice : std::initializer_list<QWidget*>{ui_->dbcUserName, ui_->cmdAddUserName})
        choice->setEnabled(IsNew());
    // Rights that are copied meanwhile would not be those that are being changed.
    ui_->Frame2->setEnabled(!IsEntering());
}

void frmUtilUserPrivileges::RefillLists()
{
    const auto lists = Fetch([this] {
        UserPrivilegeRepository privileges = Privileges();
        return std::tuple(privileges.People(), privileges.PeopleWithLogin(ui_->dbcToUser->BoundCode()),
                          privileges.PeopleWithLogin(ui_->dbcFromUser->BoundCode()));
    });
    if (!lists)
        return;
    const auto& [people, from, to] = *lists;
    Refill(ui_->dbcUserName, people);
    Refill(ui_->dbcFromUser, from);
    Refill(ui_->dbcToUser, to);
}

void frmUtilUserPrivileges::LoadFromUserName()
{
    Read([this] { Refill(ui_->dbcFromUser, Privileges().PeopleWithLogin(ui_->dbcToUser->BoundCode())); });
}

void frmUtilUserPrivileges::LoadToUserName()
{
    Read([this] { Refill(ui_->dbcToUser, Privileges().PeopleWithLogin(ui_->dbcFromUser->BoundCode())); });
}

int frmUtilUserPrivileges::UserCode() const
{
    return userCode_ != 0 ? userCode_ : ui_->dbcUserName->BoundCode();
}

UserLogin frmUtilUserPrivileges::Entered() const
{
    return {
        .loginId = ui_->txtLoginID->text().trimmed(),
        .password = ui_->txtPassword->text().trimmed(),
        .blocked = ui_->cboBlocked->currentText() == QLatin1String("YES"),
        .days = ui_->txtDays->text().toInt(),
    };
}

void frmUtilUserPrivileges::dbcUserName_Settled()
{
    const int userCode = ui_->dbcUserName->BoundCode();
    if (!IsNew() || userCode == 0)
        return;
    const auto stored = Fetch([&] { return Privileges().Find(userCode); });
    // A login that cannot be read must not look like none.
    if (!stored)
        TakeChoiceBack();
    else if (*stored)
        OfferDetails(**stored);
}

void frmUtilUserPrivileges::OfferDetails(const UserPrivileges& stored)
{
    if (Prompts::Ask(tally::TextOf(PrivilegeFault::AlreadyExists)))
        Show(stored);
    else
        TakeChoiceBack();
}

void frmUtilUserPrivileges::TakeChoiceBack()
{
    ui_->dbcUserName->setFocus();
    ui_->dbcUserName->TakeBack();
}

void frmUtilUserPrivileges::Show(const UserPrivileges& stored)
{
    userCode_ = ui_->dbcUserName->BoundCode();
    found_ = stored;
    const UserLogin& login = stored.login;
    ui_->txtLoginID->setText(login.loginId);
    ui_->txtPassword->setText(login.password);
    ui_->txtRePassword->setText(login.password);
    ui_->cboBlocked->setCurrentText(login.blocked ? QStringLiteral("YES") : QStringLiteral("NO"));
    ui_->txtDays->setText(QString::number(login.days));
    ui_->tvwDisplay->SetChecked(LinesOf(stored.rights));
    ShowState(MasterState::RowSelected);
    ui_->cmdEdit->setFocus();
}

void frmUtilUserPrivileges::ShowAnew()
{
    const auto stored = Fetch([this] { return Privileges().Find(userCode_); });
    if (stored && *stored)
        Show(**stored);
    else
        cmdCancel_Click();
}

bool frmUtilUserPrivileges::txtLoginID_Validate()
{
    const QString loginId = Entered().loginId;
    if (!IsEntering() || loginId.isEmpty())
        return true;
    const auto taken = Fetch([&] { return Privileges().LoginIdTaken(loginId, UserCode()); });
    if (taken && *taken)
        Prompts::Information(tally::TextOf(PrivilegeFault::LoginIdTaken));
    return taken && !*taken;
}

void frmUtilUserPrivileges::txtDays_Change(const QString& text)
{
    if (text.toInt() <= MostDays)
        return;
    ui_->txtDays->clear();
    Refuse(QStringLiteral("Days Should Not Be Greater Than 365"), ui_->txtDays);
}

void frmUtilUserPrivileges::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    ShowState(MasterState::New);
    ui_->dbcUserName->setFocus();
}

void frmUtilUserPrivileges::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    ShowState(MasterState::Editing);
    ui_->txtLoginID->setFocus();
}

bool frmUtilUserPrivileges::IsComplete()
{
    if (ui_->dbcUserName->IsBlank())
        return Refuse(QStringLiteral("Select User Name"), ui_->dbcUserName);
    if (!RequireText(QStringLiteral("Enter Login ID"), ui_->txtLoginID) ||
        !RequireText(QStringLiteral("Enter Password"), ui_->txtPassword) ||
        !RequireText(QStringLiteral("Enter Re-Type Password"), ui_->txtRePassword))
        return false;
    if (ui_->cboBlocked->currentText().isEmpty())
        return Refuse(QStringLiteral("Select Whether User Is Blocked Or Not"), ui_->cboBlocked);
    if (ui_->txtPassword->text() == ui_->txtRePassword->text())
        return true;
    ui_->txtPassword->clear();
    ui_->txtRePassword->clear();
    return Refuse(PasswordsDiffer, ui_->txtPassword);
}

void frmUtilUserPrivileges::cmdSave_Click()
{
    if (!IsComplete())
        return;
    const UserLogin login = Entered();
    const PrivilegeChange change{
        .userCode = UserCode(),
        .blocked = login.blocked,
        .lines = ui_->tvwDisplay->Checked(),
    };
    auto fault = PrivilegeFault::None;
    const bool done = WriteRow(
        Conflict::MasterIsGone,
        [&](store::Transaction& transaction) {
            fault = SavePrivileges(transaction, change, login, found_, Session().gintUserCode);
        },
        OnRefusal::Refill);
    if (!done)
        return;
    if (fault == PrivilegeFault::None)
        TellSaved();
    else
        Explain(fault);
}

void frmUtilUserPrivileges::Explain(PrivilegeFault fault)
{
    if (fault == PrivilegeFault::AlreadyExists)
        dbcUserName_Settled();
    else if (fault == PrivilegeFault::LoginIdTaken)
        Refuse(tally::TextOf(fault), ui_->txtLoginID);
    else
        // What was typed stays, to be mended or compared.
        Prompts::Information(tally::TextOf(fault));
}

void frmUtilUserPrivileges::cmdCancel_Click()
{
    ClearControls(this);
    ui_->tvwDisplay->SetChecked({});
    userCode_ = 0;
    found_.reset();
    RefillLists();
    ShowState(MasterState::Idle);
    ui_->cmdNew->setFocus();
}

void frmUtilUserPrivileges::cmdTransfer_Click()
{
    // A copy changes what is stored of the target; without this, who may only look could give himself all.
    if (!MayUse(Right::Edit))
        return;
    if (ui_->dbcFromUser->IsBlank()) {
        Refuse(QStringLiteral("Select 'From User'"), ui_->dbcFromUser);
        return;
    }
    if (ui_->dbcToUser->IsBlank()) {
        Refuse(QStringLiteral("Select 'To User'"), ui_->dbcToUser);
        return;
    }
    const int fromUser = ui_->dbcFromUser->BoundCode();
    const int toUser = ui_->dbcToUser->BoundCode();
    if (fromUser == toUser) {
        Refuse(QStringLiteral("Both 'From User' And 'To User' Should Not Be Same"), ui_->dbcToUser);
        return;
    }
    auto fault = CopyFault::None;
    const auto copy = [&](bool replaces) {
        return WriteRow(
            Conflict::MasterIsGone,
            [&](store::Transaction& transaction) {
                fault = CopyPrivileges(transaction, fromUser, toUser, replaces);
            },
            OnRefusal::Stay);
    };
    const auto text = [&] {
        return tally::TextOf(fault, ui_->dbcFromUser->currentText(), ui_->dbcToUser->currentText());
    };
    // Whether the target has rights is known only where they would be replaced.
    bool done = copy(false);
    if (done && fault == CopyFault::WouldReplace) {
        if (!Prompts::Ask(text()))
            return;
        done = copy(true);
    }
    if (!done)
        return;
    if (fault != CopyFault::None) {
        Prompts::Information(text());
        return;
    }
    AfterCommit([&] {
        Prompts::Information(QStringLiteral("Privilege Copied"));
        ui_->dbcFromUser->SetBoundCode(0);
        ui_->dbcToUser->SetBoundCode(0);
        RefillLists();
        if (toUser == userCode_)
            ShowAnew();
    });
}

} // namespace tally
