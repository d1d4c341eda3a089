#include "core/Screen.h"

#include "core/FormKeys.h"
#include "core/modTallyboard.h"
#include "core/modTallyboardForms.h"
#include "core/Prompts.h"
#include "core/SessionContext.h"
#include "store/StoreError.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QMdiSubWindow>

namespace tally {

namespace {

QString ConflictText(bool deleting)
{
    return deleting
               ? QStringLiteral("This Data Is Already Used By Other Screen(s).\nYou Cannot Delete This Data.")
               : QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");
}

} // namespace

Screen::Screen(const QString& formName, int helpScreenNo)
{
    setObjectName(formName);
    setAttribute(Qt::WA_DeleteOnClose);
    new FormKeys(this, helpScreenNo);
}

void Screen::SetExitButton(QAbstractButton* button)
{
    exitButton_ = button;
    connect(button, &QAbstractButton::clicked, this, &Screen::cmdExit_Click);
}

void Screen::cmdExit_Click()
{
    if (ConfirmExit(ExitCaption()))
        Unload();
}

void Screen::Unload()
{
    if (unloaded_)
        return;
    Form_Unload();
    unloaded_ = true;
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
        frame->close();
    else
        close();
    ShowBackground();
}

void Screen::closeEvent(QCloseEvent* event)
{
    if (unloaded_) {
        event->accept();
        return;
    }
    event->ignore();
    if (!exitButton_ || exitButton_->isEnabled())
        cmdExit_Click();
}

bool Screen::MayUse(QChar code)
{
    bool allowed = false;
    if (!Read([&] { allowed = CheckPrivilege(objectName(), code); }))
        return false;
    Session().gblnPrivilege = allowed;
    if (!allowed)
        Prompts::Information(Session().gstrPrivilegeMessage);
    return allowed;
}

bool Screen::Write(Conflict conflict, const std::function<void(store::Transaction&)>& work)
{
    try {
        store::Transaction transaction(*Session().gcnnMain);
        work(transaction);
        transaction.Commit();
        return true;
    } catch (const store::StoreError& error) {
        const bool fixedText = conflict != Conflict::Describe && !error.IsLocked() &&
                               error.Kind() == store::ErrorKind::GeneralFailure;
        Prompts::Critical(fixedText ? ConflictText(conflict == Conflict::DataIsInUse) : error.Description());
        return false;
    }
}

bool Screen::Read(const std::function<void()>& work)
{
    try {
        work();
        return true;
    } catch (const store::StoreError& error) {
        Prompts::Critical(error.Description());
        return false;
    }
}

} // namespace tally
