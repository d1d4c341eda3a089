#pragma once

#include <QDate>
#include <QWidget>

class QCheckBox;

namespace tally {

class DatePicker;

/// A date that may be left out: a check box in front of the date says whether there is one.
class OptionalDatePicker : public QWidget
{
    Q_OBJECT

public:
    explicit OptionalDatePicker(QWidget* parent = nullptr);

    bool IsTicked() const;
    void SetTicked(bool ticked);
    /// The date shown, ticked or not.
    QDate ShownDate() const;
    /// The date, invalid while it is not ticked.
    QDate Date() const { return IsTicked() ? ShownDate() : QDate(); }
    /// A valid date is shown and ticked; an invalid one unticks and leaves the shown date.
    void SetDate(const QDate& date);
    /// Changes the shown date alone.
    void SetShownDate(const QDate& date);

Q_SIGNALS:
    /// The user changed the date or the tick.
    void Changed();

private:
    QCheckBox* tick_;
    DatePicker* date_;
};

} // namespace tally
