#pragma once

#include <QDate>
#include <QObject>

namespace tally {

class DateLabel;
class DatePicker;

/// A date by which a search may be narrowed: it counts only while the label beside its picker shows it. The
/// label is filled when the picker's calendar closes and when a date is typed or reached with the arrow keys.
class DateFilter : public QObject
{
    Q_OBJECT

public:
    /// From then on the label follows the picker. Belongs to the picker.
    DateFilter(DatePicker* picker, DateLabel* label);

    /// Invalid while the date does not take part.
    QDate Date() const;
    /// Empties the label and lets the picker start at `start`; at the machine's date where that is invalid.
    void Reset(const QDate& start);
    /// Empties the label alone.
    void Clear();
    /// Leads the keyboard to the picker.
    void SetFocus();

Q_SIGNALS:
    /// The user has chosen the date that the label shows.
    void Chosen();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void Fill();

    DatePicker* picker_;
    DateLabel* label_;
    bool typed_ = false; ///< something was typed that does not show in the label yet
};

/// Two date filters between which a search lies. Both ends are given or none.
struct DateRange
{
    DateFilter* from;
    DateFilter* to;
    QString toBeforeFrom; ///< what the user is told when the end lies before the start
    QString fromMissing;  ///< ... when only the end is given
    QString toMissing;    ///< ... when only the start is given
};

/// When the end of the range lies before its start: tells so, clears the end, and gives true.
[[nodiscard]] bool RefuseOrder(const DateRange& range);
/// When one end alone is given: asks for the other, and gives true.
[[nodiscard]] bool RefuseHalf(const DateRange& range);

} // namespace tally
