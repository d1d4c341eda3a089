#pragma once

#include "store/Connection.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tally {

/// The help text of one screen.
struct HelpPage
{
    QString screenName;
    QString details;
};

/// Every statement on the help texts, which lie in a file of their own. Throws StoreError.
class HelpRepository
{
public:
    /// `help` must outlive the repository.
    explicit HelpRepository(store::Connection& help) : help_(help) {}

    std::optional<HelpPage> Find(int screenNo);
    /// By name, small and capital letters alike; the first of several.
    std::optional<HelpPage> Find(const QString& screenName);
    /// All names, in the order of the screens' numbers.
    QStringList ScreenNames();

private:
    store::Connection& help_;
};

} // namespace tally
