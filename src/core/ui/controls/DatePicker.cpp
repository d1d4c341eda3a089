#include "core/ui/controls/DatePicker.h"

#include "core/ui/controls/FieldHint.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextCharFormat>

namespace tally {

DatePicker::DatePicker(QWidget* parent) : QDateEdit(QDate::currentDate(), parent)
{
    setCalendarPopup(true);
    // Month names are English on every machine, as they are in the office's lists.
    setLocale(QLocale::c());
    setDisplayFormat(QStringLiteral("dd/MMM/yyyy"));
    calendarWidget()->setLocale(QLocale::c());
    calendarWidget()->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    // The edge of the calendar is the application's; the room for it is its own.
    calendarWidget()->setAttribute(Qt::WA_StyledBackground);
    calendarWidget()->setContentsMargins(1, 1, 1, 1);
    // The toolkit's red for weekends is hard to read on any ground.
    QTextCharFormat weekend;
    weekend.setFontWeight(QFont::Bold);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        calendarWidget()->setWeekdayTextFormat(day, weekend);
    connect(lineEdit(), &QLineEdit::textEdited, this, &DatePicker::Typed);
}

void DatePicker::TakeArrowsOnly()
{
    lineEdit()->setReadOnly(true);
}

void DatePicker::keyPressEvent(QKeyEvent* event)
{
    const QString text = event->text();
    const bool sign = !text.isEmpty() && text.at(0).isPrint() &&
                      (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
    if (sign && lineEdit()->isReadOnly() && !isReadOnly())
        ShowFieldHint(this, QStringLiteral("The Arrow Keys And The Calendar Move This Date"));
    else
        HideFieldHint(this);
    const bool inDay = currentSection() == DaySection;
    QDateEdit::keyPressEvent(event);
    if (inDay)
        typedDay_ = sign ? sectionText(DaySection).toInt() : 0;
    else if (sign)
        RestoreTypedDay();
}

void DatePicker::RestoreTypedDay()
{
    // The toolkit takes a 29th of February for a 28th before a leap year follows.
    const QDate shown = locale().toDate(text(), displayFormat());
    if (shown.isValid() && shown.day() < typedDay_ && QDate::isValid(shown.year(), shown.month(), typedDay_))
        setDate(QDate(shown.year(), shown.month(), typedDay_));
}

void DatePicker::showEvent(QShowEvent* event)
{
    // A date that is only looked at must not get the keyboard by way of its line when its screen opens.
    lineEdit()->setFocusPolicy(focusPolicy());
    QDateEdit::showEvent(event);
}

bool DatePicker::focusNextPrevChild(bool next)
{
    return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

void DatePicker::focusOutEvent(QFocusEvent* event)
{
    typedDay_ = 0;
    if (event->reason() != Qt::ActiveWindowFocusReason || !lineEdit()->isModified()) {
        QDateEdit::focusOutEvent(event);
        return;
    }
    // A box or another program has the keyboard, and it comes back to this field. What is typed by half is
    // not taken yet, nor told to be wrong beneath a box that waits for its answer.
    lineEdit()->event(event);
    QWidget::focusOutEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace tally
