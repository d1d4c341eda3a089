#include "core/controls/DatePicker.h"

#include <QCalendarWidget>
#include <QLineEdit>

namespace tally {

DatePicker::DatePicker(QWidget* parent) : QDateEdit(QDate::currentDate(), parent)
{
    setCalendarPopup(true);
    // Month names are English on every machine, as they are in the office's lists.
    setLocale(QLocale::c());
    setDisplayFormat(QStringLiteral("dd/MMM/yyyy"));
    calendarWidget()->setLocale(QLocale::c());
    calendarWidget()->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    connect(lineEdit(), &QLineEdit::textEdited, this, &DatePicker::Typed);
}

void DatePicker::TakeArrowsOnly()
{
    lineEdit()->setReadOnly(true);
}

bool DatePicker::focusNextPrevChild(bool next)
{
    return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace tally
