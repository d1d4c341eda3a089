#include "core/ui/controls/DateFilter.h"

#include "core/ui/controls/DateLabel.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/Prompts.h"

#include <QCalendarWidget>
#include <QEvent>
#include <QSignalBlocker>

namespace tally {

DateFilter::DateFilter(DatePicker* picker, DateLabel* label) : QObject(picker), picker_(picker), label_(label)
{
    // A date counts when it is complete, not at each of its digits.
    picker->setKeyboardTracking(false);
    picker->calendarWidget()->installEventFilter(this);
    connect(picker, &DatePicker::Typed, this, [this] { typed_ = true; });
    // The same date typed anew is a choice as well, though it changes nothing.
    connect(picker, &QDateEdit::editingFinished, this, [this] {
        if (typed_)
            Fill();
    });
    connect(picker, &QDateEdit::dateChanged, this, [this] {
        if (!picker_->calendarWidget()->isVisible())
            Fill();
    });
}

QDate DateFilter::Date() const
{
    return label_->Date();
}

void DateFilter::Reset(const QDate& start)
{
    {
        const QSignalBlocker quiet(picker_);
        picker_->setDate(start.isValid() ? start : QDate::currentDate());
    }
    Clear();
}

void DateFilter::Clear()
{
    typed_ = false;
    label_->SetDate({});
}

void DateFilter::SetFocus()
{
    picker_->setFocus();
}

void DateFilter::Fill()
{
    typed_ = false;
    label_->SetDate(picker_->date());
    Q_EMIT Chosen();
}

bool DateFilter::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        label_->SetAwaiting(true);
    } else if (event->type() == QEvent::Hide) {
        label_->SetAwaiting(false);
        Fill();
    }
    return QObject::eventFilter(receiver, event);
}

bool RefuseOrder(const DateRange& range)
{
    // A start that is not given lies before every day.
    const QDate to = range.to->Date();
    if (!to.isValid() || to >= range.from->Date())
        return false;
    Prompts::Information(range.toBeforeFrom);
    range.to->Clear();
    range.to->SetFocus();
    return true;
}

bool RefuseHalf(const DateRange& range)
{
    const bool hasFrom = range.from->Date().isValid();
    if (hasFrom == range.to->Date().isValid())
        return false;
    Prompts::Information(hasFrom ? range.toMissing : range.fromMissing);
    (hasFrom ? range.to : range.from)->SetFocus();
    return true;
}

} // namespace tally
