#include "core/ui/controls/DataCombo.h"

#include "core/ui/FormKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <utility>

namespace tally {

DataCombo::DataCombo(QWidget* parent) : QComboBox(parent)
{
    connect(this, &QComboBox::currentIndexChanged, this, [this] { changed_ = true; });
    connect(this, &QComboBox::activated, this, [this] {
        if (!std::exchange(changed_, false) && !isEditable())
            return;
        unsettled_ = true;
        Q_EMIT Chosen();
    });
}

void DataCombo::SetList(const Entries& entries)
{
    const QSignalBlocker quiet(this);
    clear();
    for (const auto& [code, text] : entries)
        addItem(text, code);
    Choose(findData(0));
}

void DataCombo::SetListBehindBlank(Entries entries)
{
    entries.insert(entries.begin(), {0, QStringLiteral(" ")});
    SetList(entries);
}

void DataCombo::SetBoundCode(int code)
{
    const int found = findData(code);
    Choose(found >= 0 ? found : findData(0));
}

void DataCombo::SetText(const QString& text)
{
    const int found = findText(text, Qt::MatchFixedString);
    Choose(found >= 0 ? found : findData(0));
}

void DataCombo::TakeBack()
{
    const int refused = currentIndex();
    Choose(findData(0));
    // Behind the box that told the refusal the window need not be active again yet.
    if (window()->focusWidget() == this)
        takenBack_ = refused;
}

void DataCombo::Settle()
{
    Settle(false);
}

void DataCombo::Settle(bool goesOn)
{
    if (std::exchange(unsettled_, false))
        Q_EMIT Settled(goesOn);
}

void DataCombo::showPopup()
{
    isOpen_ = true;
    QComboBox::showPopup();
}

void DataCombo::hidePopup()
{
    QComboBox::hidePopup();
    // The entry that was clicked is chosen only behind its list.
    if (std::exchange(isOpen_, false))
        QMetaObject::invokeMethod(
            this, [this] { Settle(true); }, Qt::QueuedConnection);
}

void DataCombo::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && property(TakesEnter).toBool()) {
        unsettled_ = true;
        Settle(true);
        return;
    }
    const bool walks = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    const int refused = std::exchange(takenBack_, -1);
    if (walks && refused >= 0) {
        const QSignalBlocker quiet(this);
        setCurrentIndex(refused);
    }
    QComboBox::keyPressEvent(event);
    // Behind the last entry there is no other one to go on to.
    if (walks && refused >= 0 && currentIndex() == refused)
        TakeBack();
}

void DataCombo::focusOutEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        takenBack_ = -1;
    QComboBox::focusOutEvent(event);
    if (guard_.Leaves(event) && !givingUp_.contains(QApplication::focusWidget()))
        Settle(event->reason() == Qt::TabFocusReason);
}

void DataCombo::Choose(int index)
{
    const QSignalBlocker quiet(this);
    setCurrentIndex(index);
    changed_ = false;
    unsettled_ = false;
    takenBack_ = -1;
    update();
}

} // namespace tally
