#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace tally {

/// The waiting pointer for as long as it lives.
class HourGlass
{
public:
    HourGlass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    HourGlass(const HourGlass&) = delete;
    HourGlass& operator=(const HourGlass&) = delete;
    ~HourGlass() { QGuiApplication::restoreOverrideCursor(); }
};

} // namespace tally
