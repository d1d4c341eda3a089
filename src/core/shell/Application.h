#pragma once

#include <QApplication>

namespace tally {

/// The program's application. A fault that no handler has caught is told in a box, and the program goes on:
/// what a clerk has typed elsewhere must not go down with it.
class Application : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace tally
