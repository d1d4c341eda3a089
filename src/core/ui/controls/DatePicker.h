#pragma once

#include <QDateEdit>

namespace tally {

/// A date field with a calendar to open, showing "dd/MMM/yyyy". Starts at the machine's date.
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
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// Brings back the day that was typed before its month and its year, where they have that day.
    void RestoreTypedDay();

    int typedDay_ = 0; ///< of the date being typed; 0 for none
};

} // namespace tally
