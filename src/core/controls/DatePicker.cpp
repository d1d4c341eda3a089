#include "core/controls/DatePicker.h"

#include <QCalendarWidget>

namespace tally {

DatePicker::DatePicker(QWidget* parent) : QDateEdit(QDate::currentDate(), parent)
{
    setCalendarPopup(true);
    // Month names are English on every machine, as they are in the office's lists.
    setLocale(QLocale::c());
    setDisplayFormat(QStringLiteral("dd/MMM/yyyy"));
    calendarWidget()->setLocale(QLocale::c());
    calendarWidget()->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
}

} // namespace tally
