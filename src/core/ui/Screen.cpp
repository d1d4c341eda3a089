#include "core/ui/Screen.h"

#include "core/modTallyboard.h"
#include "core/SessionRepository.h"
#include "core/ui/FormKeys.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "store/StoreError.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <utility>

namespace tally {

Screen::Screen(const QString& formName, int helpScreenNo)
{
    setObjectName(formName);
    new FormKeys(this, helpScreenNo);
}

void Screen::SetExitButton(QAbstractButton* button)
{
    exitButton_ = button;
    connect(button, &QAbstractButton::clicked, this, &Screen::Exit);
}

void Screen::Exit()
{
    // A key pressed just before a box came may still arrive behind it.
    if (!Prompts::AreOpen())
        cmdExit_Click();
}

void Screen::cmdExit_Click()
{
    if (ConfirmExit(ExitCaption()))
        Unload();
}

void Screen::Unload()
{
    if (unloaded_ || !Form_QueryUnload() || !ReleaseScreen())
        return;
    unloaded_ = true;
    Form_Unload();
    if (menusTaken_) {
        Session().gblnMenusLocked = AnyScreenHasTakenMenus();
        EnableMainMenus();
    }
    LeaveArea();
    ShowBackground();
}

void Screen::LeaveArea()
{
    auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
    QWidget* outermost = frame ? static_cast<QWidget*>(frame) : this;
    // Hiding leads the keyboard to the next field, which asks the one it leaves; nobody is to be asked here,
    // and what was typed by half is not to be judged.
    if (QWidget* field = QApplication::focusWidget(); field && isAncestorOf(field)) {
        const QSignalBlocker unheard(field);
        field->clearFocus();
    }
    outermost->hide();
    // The frame is not asked to close: it may be in the middle of that, and would stay.
    if (frame && frame->mdiArea())
        frame->mdiArea()->removeSubWindow(frame);
    // A box may wait for its answer on behalf of a handler of this screen, under others or by itself.
    Prompts::WhenAnswered([left = QPointer<QWidget>(outermost)] {
        if (left)
            left->deleteLater();
    });
}

void Screen::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (CloseBoxExits() && (!exitButton_ || exitButton_->isEnabled()))
        Exit();
}

void Screen::Activate()
{
    if (unloaded_ || !Session().gcnnMain)
        return;
    const bool first = !activated_;
    activated_ = true;
    Form_Activate(first);
    if (!first)
        Q_EMIT CameBack();
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

void Screen::TakeScreen(const QString& screenName)
{
    const auto error = TryWrite([&screenName](store::Transaction& transaction) {
        SessionRepository(MainStore()).TakeScreen(transaction, screenName);
    });
    if (!error) {
        takenScreen_ = screenName;
        return;
    }
    if (error->IsConflict())
        Prompts::Information(
            QStringLiteral("This Screen Is Already Opened By Another User. So You Cannot Open This Screen"));
    else
        Prompts::Critical(error->Description());
    Unload();
}

bool Screen::ReleaseScreen()
{
    if (takenScreen_.isEmpty())
        return true;
    const auto error = TryWrite([this](store::Transaction& transaction) {
        SessionRepository(MainStore()).ReleaseScreen(transaction, takenScreen_);
    });
    if (!error)
        return true;
    Prompts::Critical(error->Description());
    // A row that stayed behind would shut the screen for all clients, so the user tries again. Where trying
    // again will not help, nobody is kept in a screen; the next start of the program clears the row.
    return !error->IsLocked();
}

std::optional<bool> Screen::HasRight(Right right, std::optional<Right> instead)
{
    const auto allowed = Fetch([&] {
        return (instead && CheckPrivilege(objectName(), *instead)) || CheckPrivilege(objectName(), right);
    });
    Session().gblnPrivilege = allowed.value_or(false);
    return allowed;
}

bool Screen::MayUse(Right right, std::optional<Right> instead)
{
    const auto allowed = HasRight(right, instead);
    if (allowed && !*allowed)
        Prompts::Information(Session().gstrPrivilegeMessage);
    return allowed.value_or(false);
}

std::optional<store::StoreError> Screen::TryWrite(const std::function<void(store::Transaction&)>& work)
{
    try {
        store::Transaction transaction(MainStore());
        work(transaction);
        transaction.Commit();
        return {};
    } catch (const store::StoreError& error) {
        return error;
    }
}

bool Screen::Write(Conflict conflict, const std::function<void(store::Transaction&)>& work)
{
    const auto error = TryWrite(work);
    if (error)
        Prompts::Critical(TextOf(*error, conflict));
    return !error;
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
        if (!gathering_)
            Prompts::Critical(error.Description());
        else if (firstFailure_.isEmpty())
            firstFailure_ = error.Description();
        return false;
    }
}

QString Screen::FirstFailureOf(const std::function<void()>& work)
{
    if (gathering_) {
        work();
        return {};
    }
    const QScopedValueRollback gathering(gathering_, true);
    work();
    return std::exchange(firstFailure_, QString());
}

void Screen::TellOnce(const std::function<void()>& work)
{
    if (const QString failure = FirstFailureOf(work); !failure.isEmpty())
        Prompts::Critical(failure);
}

void Screen::AfterCommit(const std::function<void()>& work)
{
    if (const QString failure = FirstFailureOf(work); !failure.isEmpty())
        Prompts::Information(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.\n"
                                            "Only The Screen Could Not Be Read Anew : ") +
                             failure);
}

} // namespace tally
