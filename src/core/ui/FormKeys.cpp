#include "core/ui/FormKeys.h"

#include "core/SessionContext.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"
#include "core/ui/TakeOnly.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace tally {

namespace {

bool IsEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool IsMnemonicOf(const QString& text, const QKeyEvent* key)
{
    return QKeySequence::mnemonic(text) ==
           QKeySequence(QKeyCombination(Qt::AltModifier, Qt::Key(key->key())));
}

/// A control may leave its Enter unused; it then reaches the frames around it, and is no Tab there either.
bool TakesItsEnter(const QWidget* widget)
{
    return widget && widget->property(TakesEnter).toBool();
}

/// Alt and a letter mean a button, a field or a menu; where none has the letter, they mean nothing, least of
/// all the letter itself. AltGr, by which some keyboards type, is another key.
bool IsAltLetter(const QKeyEvent* key)
{
    return (key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::AltModifier &&
           !key->text().isEmpty() && key->text().at(0).isPrint();
}

/// What Alt and a letter mean to a form.
struct Letter
{
    bool isOurs = false;       ///< a control of the form has it, usable or not
    QWidget* target = nullptr; ///< the button or field that it leads to; null where none can be used
};

Letter FindLetter(const QWidget* form, const QKeyEvent* key)
{
    Letter letter;
    if (key->modifiers() != Qt::AltModifier)
        return letter;
    const auto look = [&](const QString& text, QWidget* control) {
        if (letter.target || !IsMnemonicOf(text, key))
            return;
        letter.isOurs = true;
        if (control->isEnabled() && control->isVisibleTo(form))
            letter.target = control;
    };
    for (auto* button : form->findChildren<QAbstractButton*>())
        look(button->text(), button);
    for (const auto* label : form->findChildren<QLabel*>())
        if (label->buddy())
            look(label->text(), label->buddy());
    return letter;
}

void ShowHelp(int screenNo)
{
    const QString form = QStringLiteral("frmHelp");
    Screen* const open = ScreenRegistry::OpenInstance(form);
    Session().glngScreenNo = screenNo;
    ShowForm(form);
    // One that is open may show another text, which the clerk has chosen in it since.
    if (open) {
        QEvent asked(QEvent::HelpRequest);
        QApplication::sendEvent(open, &asked);
    }
}

} // namespace

FormKeys::FormKeys(QWidget* form, int helpScreenNo) : QObject(form), form_(form), helpScreenNo_(helpScreenNo)
{
    qApp->installEventFilter(this);
}

bool FormKeys::eventFilter(QObject* receiver, QEvent* event)
{
    const bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    auto* widget = qobject_cast<QWidget*>(receiver);
    if (!widget || (!isKey && event->type() != QEvent::Shortcut))
        return false;
    if (widget != form_ && !form_->isAncestorOf(widget))
        return isKey && widget->window() == form_->window() && IsInFront() && TakeLetter(event);
    if (event->type() == QEvent::Shortcut) {
        // The window system may hand a key to the window behind a box that has only just come.
        if (Prompts::AreOpen())
            return true;
        // A button would wait with its click, for the sake of looks, and what comes first may be a box.
        auto* button = qobject_cast<QAbstractButton*>(widget);
        if (button)
            Reach(button);
        return button != nullptr;
    }
    return TakeLetter(event) ||
           (event->type() == QEvent::KeyPress && TakeKey(widget, static_cast<QKeyEvent*>(event)));
}

bool FormKeys::IsInFront() const
{
    const auto* frame = qobject_cast<QMdiSubWindow*>(form_->parentWidget());
    return frame && frame->mdiArea() && frame->mdiArea()->activeSubWindow() == frame;
}

bool FormKeys::TakeLetter(QEvent* event)
{
    const Letter letter = FindLetter(form_, static_cast<QKeyEvent*>(event));
    if (!letter.isOurs)
        return false;
    // The form goes before the menu bar where both have the letter, as Clic&k and Loc&k do.
    event->accept();
    if (letter.target && event->type() == QEvent::KeyPress)
        Reach(letter.target);
    return true;
}

bool FormKeys::TakeKey(QWidget* widget, const QKeyEvent* key)
{
    if (key->key() == Qt::Key_F1 && helpScreenNo_ != 0) {
        if (!Prompts::AreOpen())
            ShowHelp(helpScreenNo_);
        return true;
    }
    if (IsAltLetter(key))
        return true;
    if (key->text() == QLatin1String("'")) {
        TellDroppedQuote(widget);
        return true;
    }
    if (!IsEnter(key->key()) || TakesItsEnter(form_->focusWidget()))
        return false;
    if (auto* button = qobject_cast<QAbstractButton*>(widget);
        button && !button->isCheckable() && button->isEnabled()) {
        button->click();
        return true;
    }
    if (const auto* combo = qobject_cast<QComboBox*>(widget);
        combo && combo->property(EnterNeedsText).toBool() && combo->currentText().trimmed().isEmpty())
        return true;
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
    QApplication::sendEvent(widget, &tab);
    return true;
}

void FormKeys::Reach(QWidget* target)
{
    target->setFocus(Qt::ShortcutFocusReason);
    // The field before may have kept the focus, or led it elsewhere; then the button was not reached.
    auto* button = qobject_cast<QAbstractButton*>(target);
    if (button && form_->focusWidget() == button)
        button->click();
}

} // namespace tally
