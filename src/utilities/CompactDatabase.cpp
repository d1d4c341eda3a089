#include "utilities/CompactDatabase.h"

#include "core/DatabasePassword.h"
#include "core/modTallyboard.h"
#include "core/OtherClients.h"
#include "core/SessionContext.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/PresencePause.h"
#include "core/ui/Prompts.h"
#include "store/Compact.h"
#include "store/Connection.h"
#include "store/StoreError.h"
#include "utilities/ClosedMain.h"

#include <optional>

namespace tally {

namespace {

/// Empty when the clerk may go on.
QString ReasonNotTo()
{
    const HourGlass busy;
    const PresencePause ownClockIsStill;
    try {
        if (!OtherClientsAnswer(MainStore()))
            return {};
    } catch (const store::StoreError& error) {
        return error.Description();
    }
    return QStringLiteral("Another Client Is Still Working With 'KITE-Tally Board'.\n"
                          "Nothing Was Compacted. Please Log Out All Other Clients And Try Again");
}

/// The failure, or nothing.
std::optional<store::StoreError> CompactClosed()
{
    const HourGlass busy;
    const ClosedMain closed;
    const QString password = DatabasePassword(Session());
    try {
        {
            store::Connection main(MainFile(), password);
            store::Compact(main, password);
        }
        OpenMainAgain();
        return {};
    } catch (const store::StoreError& error) {
        return error;
    }
}

} // namespace

void CompactDatabase()
{
    if (!Prompts::Confirm(QStringLiteral("Before Compacting, All The Clients(If Applicable) Should Be Logged "
                                         "Out From 'KITE-Tally Board'\n"
                                         "Do You Want To Compact The Database ?")))
        return;
    if (const QString reason = ReasonNotTo(); !reason.isEmpty()) {
        Prompts::Critical(reason);
        return;
    }
    if (const auto error = CompactClosed())
        Prompts::Critical(error->Description());
    else
        Prompts::Information(QStringLiteral("Database Compacting Completed"));
}

} // namespace tally
