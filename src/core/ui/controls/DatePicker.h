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
};

} // namespace tally
