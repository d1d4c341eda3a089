#include "core/ProcessEnd.h"

#include <QCoreApplication>

namespace tally {

namespace {

std::function<void()>& Replacement()
{
    static std::function<void()> replacement;
    return replacement;
}

} // namespace

void EndProcess()
{
    if (Replacement()) {
        Replacement()();
        return;
    }
    // Queued, because the end may come before the event loop runs, and quit() would ask windows that refuse.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

void EndProcessWith(std::function<void()> end)
{
    Replacement() = std::move(end);
}

} // namespace tally
