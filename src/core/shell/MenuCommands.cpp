#include "core/shell/MenuCommands.h"

#include <QMap>

namespace tally::MenuCommands {

namespace {

QMap<QString, Command>& Commands()
{
    static QMap<QString, Command> commands;
    return commands;
}

} // namespace

void Register(const QString& name, const Command& command)
{
    Commands().insert(name, command);
}

void Forget(const QString& name)
{
    Commands().remove(name);
}

bool Knows(const QString& name)
{
    return Commands().contains(name);
}

QStringList Names()
{
    return Commands().keys();
}

void Run(const QString& name)
{
    if (const Command command = Commands().value(name))
        command();
}

} // namespace tally::MenuCommands
