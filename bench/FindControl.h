#pragma once

#include <QWidget>

namespace tally::bench {

/// The control of that name on a screen; without it there is nothing to measure, and the program ends.
template <typename Control>
Control* Find(const QWidget* screen, const char* name)
{
    auto* control = screen->findChild<Control*>(QLatin1String(name));
    if (control == nullptr)
        qFatal("%s has no %s", qUtf8Printable(screen->objectName()), name);
    return control;
}

} // namespace tally::bench
