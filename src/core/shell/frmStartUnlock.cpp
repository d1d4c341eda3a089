#include "core/shell/frmStartUnlock.h"

#include "core/SessionContext.h"
#include "core/SessionRepository.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "store/StoreError.h"
#include "ui_frmStartUnlock.h"

namespace tally {

namespace {

constexpr int EntryLength = 15;

bool SameText(const QString& typed, const QString& known)
{
    return typed.trimmed().toUpper() == known.toUpper();
}

} // namespace

frmStartUnlock::frmStartUnlock(QWidget* lock) : QDialog(lock), ui_(std::make_unique<Ui::frmStartUnlock>())
{
    ui_->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    DressButtons(this);
    new FormKeys(this);
    TakeOnly(ui_->txtLoginID, KeyAlphaNumeric, EntryLength);
    TakeOnly(ui_->txtPassword, KeyAlphaNumeric, EntryLength);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmStartUnlock::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::close);
}

frmStartUnlock::~frmStartUnlock() = default;

void frmStartUnlock::cmdOK_Click()
{
    if (!RequireText(QStringLiteral("Enter Login ID"), ui_->txtLoginID) ||
        !RequireText(QStringLiteral("Enter Password"), ui_->txtPassword))
        return;
    try {
        if (SessionRepository(MainStore()).IsNewInstallation())
            return Unload();
    } catch (const store::StoreError& error) {
        Prompts::Critical(error.Description());
        return;
    }
    if (SameText(ui_->txtLoginID->text(), Session().gstrLoginId) &&
        SameText(ui_->txtPassword->text(), Session().gstrPassword))
        return Unload();
    Prompts::Information(QStringLiteral("Enter Correct Login ID / Password"));
    ui_->txtLoginID->clear();
    ui_->txtPassword->clear();
    ui_->txtLoginID->setFocus();
}

void frmStartUnlock::Unload()
{
    close();
    Q_EMIT Unlocked();
}

} // namespace tally
