#include "utilities/CompactDatabase.h"

#include "core/DatabasePassword.h"
#include "core/modTallyboard.h"
#include "core/OtherClients.h"
#include "core/SessionContext.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/OpenBox.h"
#include "core/ui/PresencePause.h"
#include "core/ui/Prompts.h"
#include "store/Compact.h"
#include "store/Connection.h"
#include "store/StoreError.h"
#include "utilities/ClosedMain.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace tally {

namespace {

const QString OthersAreThere =
    QStringLiteral("Another Client Is Still Working With 'KITE-Tally Board'.\n"
                   "Nothing Was Compacted. Please Log Out All Other Clients And Try Again");

/// Empty when the clerk may go on.
QString ReasonNotTo()
{
    const HourGlass busy;
    const PresencePause ownClockIsStill;
    const Prompts::OpenBox nothingStarts;
    // The question has been answered, and must be seen to go.
    const auto paint = [] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); };
    try {
        if (!OtherClientsAnswer(MainStore(), RollPatience, paint))
            return {};
    } catch (const store::StoreError& error) {
        if (!error.IsLocked())
            return error.Description();
    }
    return OthersAreThere;
}

/// What was wrong; empty for nothing.
QString CompactClosed()
{
    const HourGlass busy;
    const ClosedMain closed;
    const QString password = DatabasePassword(Session());
    try {
        bool othersAreThere = false;
        try {
            store::Connection main(MainFile(), password);
            store::Compact(main, password);
        } catch (const store::StoreError& error) {
            // Nothing has been written yet.
            if (!error.IsLocked())
                throw;
            othersAreThere = true;
        }
        OpenMainAgain();
        return othersAreThere ? OthersAreThere : QString();
    } catch (const store::StoreError& error) {
        return error.Description() +
               QStringLiteral("\nThe Database Is Closed. Please Close The Program And Start It Again");
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
    if (const QString failure = CompactClosed(); !failure.isEmpty())
        Prompts::Critical(failure);
    else
        Prompts::Information(QStringLiteral("Database Compacting Completed"));
}

} // namespace tally
