#pragma once

#include <QDate>
#include <QLabel>

namespace tally {

/// Shows a date that has been chosen, or nothing. A click on it, or the blank key, asks whether to clear the
/// date.
class DateLabel : public QLabel
{
    Q_OBJECT

public:
    explicit DateLabel(QWidget* parent = nullptr);

    /// Invalid while nothing is chosen.
    QDate Date() const;
    /// Shows the date; an invalid one empties the label. Tells nobody.
    void SetDate(const QDate& date);
    /// Pale yellow while a date for it is being looked up in a calendar.
    void SetAwaiting(bool awaiting);

Q_SIGNALS:
    /// The user has cleared the date.
    void Cleared();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Click();
};

} // namespace tally
