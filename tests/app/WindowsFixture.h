#pragma once

#include "support/ScreenFixture.h"

#include <QString>

#include <functional>

namespace tally::test {

/// Opens whatever window of the program a clerk works in.
class WindowsFixture : public ScreenFixture
{
protected:
    /// The registered screens by their names, and what stands around them: the login, the lock and the box
    /// that opens it. Each is opened alone and goes again.
    void ForEachWindow(const std::function<void(const QString& name, const QWidget& shown)>& look);

private:
    void LookAtLock(const std::function<void(const QString& name, const QWidget& shown)>& look);
};

} // namespace tally::test
