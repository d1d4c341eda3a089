#pragma once

#include <QDateEdit>

namespace tally {

/// A date field with a calendar to open, showing "dd/MMM/yyyy". Starts at the machine's date. The digits of a
/// date can be typed as they come, 08022026 or 8/2/2026, and the month by its letters as well. Alt+Down opens
/// the calendar.
class DatePicker : public QDateEdit
{
    Q_OBJECT

public:
    explicit DatePicker(QWidget* parent = nullptr);

    /// From now on only the arrow keys and the calendar move the date; nothing can be typed, and a note says
    /// so.
    void TakeArrowsOnly();

Q_SIGNALS:
    /// The user typed into the field; the date counts once it is complete.
    void Typed();

protected:
    /// Tab leaves the field; the left and right arrows go from day to month to year.
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void TypeSign(QKeyEvent* event);
    /// A sign that stands between day, month and year ends the part that was typed.
    void EndPart();
    /// The digits of a day: one up to 3 may have a second one behind it.
    void TypeDayDigit(int digit);
    /// Shows the day, or the last one of the month that is shown, where that has fewer.
    void TypeDay(int day);
    /// The digits of a month: a 0 or a 1 may have a second one behind it.
    void TypeMonthDigit(int digit);
    void TypeMonth(int month);
    void TypeInto(Section section, const QString& text);
    /// Goes to a part of the date. Where a date counts only when it is complete nobody hears of the half.
    void Select(Section section);
    /// Brings back the day that was typed before its month and its year, where they have that day.
    void RestoreTypedDay();
    void ForgetTyped();
    /// Tells the date that was typed, where nobody heard of it while it was.
    void TellTyped();
    void OpenCalendar();

    QDate told_;          ///< the last date that others heard of, since something was typed
    int typedDay_ = 0;    ///< of the date being typed; 0 for none
    int dayDigit_ = -1;   ///< the first digit of a day, which waits for its second; -1 for none
    int monthDigit_ = -1; ///< the first digit of a month, which waits for its second; -1 for none
};

} // namespace tally
