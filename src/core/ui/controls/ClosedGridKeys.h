#pragma once

#include <QObject>

class QKeyEvent;

namespace tally {

class FlexGrid;

/// A grid that is switched off cannot have the keyboard, but its rows are to be read. As long as some of them
/// lie out of sight, PageUp and PageDown turn them from wherever the keyboard is in the form, and the arrows
/// up and down do so from a button.
class ClosedGridKeys : public QObject
{
public:
    /// Both must outlive it, which the form does as its parent.
    ClosedGridKeys(FlexGrid* grid, QWidget* form);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    FlexGrid* grid_;
    QWidget* form_;
};

} // namespace tally
