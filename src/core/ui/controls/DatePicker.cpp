#include "core/ui/controls/DatePicker.h"

#include "core/ui/controls/FieldHint.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>

#include <algorithm>
#include <utility>

namespace tally {

namespace {

constexpr int MostDays = 31;

} // namespace

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
    connect(this, &QDateEdit::dateChanged, this, [this](QDate date) {
        if (told_.isValid())
            told_ = date;
    });
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
    if (sign && lineEdit()->isReadOnly()) {
        // The toolkit would take a sign that stands between day, month and year for a way out of the field.
        if (!isReadOnly())
            ShowFieldHint(this, QStringLiteral("The Arrow Keys And The Calendar Move This Date"));
        return;
    }
    HideFieldHint(this);
    if (event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier))
        return OpenCalendar();
    if (sign)
        return TypeSign(event);
    ForgetTyped();
    QDateEdit::keyPressEvent(event);
}

void DatePicker::TypeSign(QKeyEvent* event)
{
    if (!told_.isValid())
        told_ = date();
    const QChar sign = event->text().at(0);
    if (QStringLiteral("/-. ").contains(sign))
        return EndPart();
    if (currentSection() == DaySection && sign.isDigit())
        return TypeDayDigit(sign.digitValue());
    if (currentSection() == MonthSection && sign.isDigit())
        return TypeMonthDigit(sign.digitValue());
    dayDigit_ = -1;
    monthDigit_ = -1;
    QDateEdit::keyPressEvent(event);
    RestoreTypedDay();
}

void DatePicker::EndPart()
{
    // The toolkit would go on to the next field, and what follows the sign would be typed there. A part that
    // is whole has led to the next one by itself.
    if (!lineEdit()->hasSelectedText() || dayDigit_ >= 0 || monthDigit_ >= 0)
        Select(currentSection() == DaySection ? MonthSection : YearSection);
    dayDigit_ = -1;
}

void DatePicker::TypeDayDigit(int digit)
{
    const int first = std::exchange(dayDigit_, -1);
    const int day = std::max(first, 0) * 10 + digit;
    if (day > MostDays) {
        // A 3 was the whole day, and the month begins.
        Select(MonthSection);
        return TypeMonthDigit(digit);
    }
    TypeDay(day);
    if (day > 0 && (first >= 0 || digit > MostDays / 10))
        return;
    dayDigit_ = digit;
    Select(DaySection);
}

void DatePicker::TypeDay(int day)
{
    typedDay_ = day;
    if (day == 0)
        return;
    // The toolkit takes no day that the month lacks, though another month may be typed next.
    const QDate shown = locale().toDate(text(), displayFormat());
    const int most = shown.isValid() ? shown.daysInMonth() : MostDays;
    TypeInto(DaySection, QStringLiteral("%1").arg(std::min(day, most), 2, 10, QLatin1Char('0')));
}

void DatePicker::TypeMonthDigit(int digit)
{
    constexpr int Months = 12;
    const int first = std::exchange(monthDigit_, -1);
    const int month = std::max(first, 0) * 10 + digit;
    // Then a 1 was the whole month, and the year begins.
    if (month > Months)
        return TypeInto(YearSection, QString::number(digit));
    TypeMonth(month);
    if (first >= 0 || digit > 1)
        return;
    monthDigit_ = digit;
    Select(MonthSection);
}

void DatePicker::TypeMonth(int month)
{
    TypeInto(MonthSection, locale().monthName(month, QLocale::ShortFormat));
    RestoreTypedDay();
}

void DatePicker::Select(Section section)
{
    const QSignalBlocker quiet(keyboardTracking() ? nullptr : this);
    setSelectedSection(section);
}

void DatePicker::TypeInto(Section section, const QString& text)
{
    Select(section);
    for (const QChar sign : text) {
        QKeyEvent typed(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, sign);
        QDateEdit::keyPressEvent(&typed);
    }
}

void DatePicker::RestoreTypedDay()
{
    // It was taken for the last one of the month before, or for a 28th of February before a leap year
    // follows.
    const QDate shown = locale().toDate(text(), displayFormat());
    const QSignalBlocker quiet(keyboardTracking() ? nullptr : this);
    if (shown.day() < typedDay_)
        setDate(QDate(shown.year(), shown.month(), typedDay_));
}

void DatePicker::ForgetTyped()
{
    typedDay_ = 0;
    dayDigit_ = -1;
    monthDigit_ = -1;
}

void DatePicker::TellTyped()
{
    if (!told_.isValid())
        return;
    interpretText();
    if (std::exchange(told_, {}) != date())
        Q_EMIT dateChanged(date());
}

void DatePicker::OpenCalendar()
{
    // The toolkit opens it for a click on its arrow only.
    QStyleOptionComboBox box;
    box.initFrom(this);
    const QPointF arrow =
        style()->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, this).center();
    QMouseEvent click(QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QDateEdit::mousePressEvent(&click);
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

void DatePicker::focusInEvent(QFocusEvent* event)
{
    QDateEdit::focusInEvent(event);
    // Behind the year there is room for nothing: a date typed there would be lost.
    if (event->reason() != Qt::MouseFocusReason && !lineEdit()->isModified())
        setSelectedSection(DaySection);
}

void DatePicker::focusOutEvent(QFocusEvent* event)
{
    ForgetTyped();
    if (event->reason() != Qt::ActiveWindowFocusReason || !lineEdit()->isModified()) {
        TellTyped();
        QDateEdit::focusOutEvent(event);
        // What was typed has been taken; who comes back begins anew.
        lineEdit()->setModified(false);
        return;
    }
    // A box or another program has the keyboard, and it comes back to this field. What is typed by half is
    // not taken yet, nor told to be wrong beneath a box that waits for its answer.
    lineEdit()->event(event);
    QWidget::focusOutEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace tally
