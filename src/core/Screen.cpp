#include "core/Screen.h"

#include "core/FormKeys.h"
#include "core/modTallyboard.h"
#include "core/modTallyboardForms.h"
#include "core/Prompts.h"
#include "core/SessionContext.h"
#include "core/SessionRepository.h"
#include "store/StoreError.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QMdiSubWindow>

namespace tally {

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
    if (unloaded_ || !Form_Unload())
        return;
    unloaded_ = true;
    ReleaseWhatWasTaken();
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
    if (CloseBoxExits() && (!exitButton_ || exitButton_->isEnabled()))
        cmdExit_Click();
}

void Screen::Activate()
{
    if (unloaded_)
        return;
    const bool first = !activated_;
    activated_ = true;
    Form_Activate(first);
}

bool Screen::TakeMenus(bool amongOthers)
{
    if (!amongOthers && OtherFormsOpen(this)) {
        Prompts::Information(
            QStringLiteral("You Cannot Open '%1' Form When Other Forms Are Opened. First Close Other "
                           "Forms")
                .arg(windowTitle().trimmed()));
        Unload();
        return false;
    }
    DisableMainMenus();
    Session().gblnMenusLocked = true;
    menusTaken_ = true;
    return true;
}

bool Screen::TakeScreen(const QString& screenName)
{
    try {
        store::Transaction transaction(*Session().gcnnMain);
        SessionRepository(*Session().gcnnMain).TakeScreen(transaction, screenName);
        transaction.Commit();
        takenScreen_ = screenName;
        return true;
    } catch (const store::StoreError& error) {
        if (error.IsConflict())
            Prompts::Information(QStringLiteral(
                "This Screen Is Already Opened By Another User. So You Cannot Open This Screen"));
        else
            Prompts::Critical(error.Description());
        Unload();
        return false;
    }
}

void Screen::ReleaseWhatWasTaken()
{
    if (!takenScreen_.isEmpty()) {
        Write(Conflict::Describe, [this](store::Transaction& transaction) {
            SessionRepository(*Session().gcnnMain).ReleaseScreen(transaction, takenScreen_);
        });
    }
    if (menusTaken_) {
        Session().gblnMenusLocked = false;
        EnableMainMenus();
    }
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
        Prompts::Critical(TextOf(error, conflict));
        return false;
    }
}

QString Screen::TextOf(const store::StoreError& error, Conflict conflict)
{
    if (conflict == Conflict::Describe || !error.IsConflict())
        return error.Description();
    return conflict == Conflict::DataIsInUse
               ? QStringLiteral("This Data Is Already Used By Other Screen(s).\nYou Cannot Delete This Data.")
               : QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");
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
