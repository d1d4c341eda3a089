#include "calendar/ApplicationDatePanel.h"

#include "core/modTallyboard.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"

namespace tally {

void ShowMovedApplicationDate()
{
    mdiTallyboard::Instance()->SetPanel(3, QStringLiteral("Application Date :") +
                                               ShownDate(Session().gdtmApplicationDate));
}

} // namespace tally
