#pragma once

#include <QEvent>
#include <QWidget>

#include <utility>

namespace tally::test {

/// Counts the events of one kind that a widget gets.
class EventCounter : public QObject
{
public:
    EventCounter(QWidget* widget, QEvent::Type type) : QObject(widget), type_(type)
    {
        widget->installEventFilter(this);
    }
    int Count() const { return count_; }
    /// The same, and begins anew.
    int Taken() { return std::exchange(count_, 0); }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count_ += event->type() == type_ ? 1 : 0;
        return false;
    }

private:
    QEvent::Type type_;
    int count_ = 0;
};

} // namespace tally::test
