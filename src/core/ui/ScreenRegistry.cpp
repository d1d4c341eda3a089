#include "core/ui/ScreenRegistry.h"

#include "core/ui/Screen.h"

#include <QHash>
#include <QPointer>

namespace tally::ScreenRegistry {

namespace {

struct Entry
{
    Factory factory;
    QPointer<Screen> instance;
};

QHash<QString, Entry>& Entries()
{
    static QHash<QString, Entry> entries;
    return entries;
}

} // namespace

bool Register(const QString& formName, Factory factory)
{
    if (Knows(formName))
        return false;
    Entries()[formName].factory = std::move(factory);
    return true;
}

Factory Forget(const QString& formName)
{
    return Entries().take(formName).factory;
}

QStringList Names()
{
    QStringList names = Entries().keys();
    names.sort();
    return names;
}

bool Knows(const QString& formName)
{
    return Entries().contains(formName);
}

Screen* Instance(const QString& formName)
{
    const auto entry = Entries().find(formName);
    if (entry == Entries().end())
        return nullptr;
    if (!OpenInstance(formName))
        entry->instance = entry->factory();
    return entry->instance;
}

Screen* OpenInstance(const QString& formName)
{
    Screen* screen = Entries().value(formName).instance;
    return screen && !screen->IsUnloaded() ? screen : nullptr;
}

} // namespace tally::ScreenRegistry
