#pragma once

#include <QObject>
#include <QPointer>

class QAbstractButton;

namespace tally {

/// While it lives, nothing that the user does reaches the program but what he does on one button, and the
/// answer to a box that comes all the same. For long work that lets the window be painted between its steps,
/// and must not be met by other work.
class InputOnlyTo : public QObject
{
    Q_OBJECT

public:
    /// Gives the keyboard to the button. Behind a box the window may not be the active one yet, but it knows
    /// already who has the keyboard in it.
    explicit InputOnlyTo(QAbstractButton* button);
    /// Gives it back to whatever had it.
    ~InputOnlyTo() override;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    QAbstractButton* button_;
    QPointer<QWidget> before_;
};

} // namespace tally
