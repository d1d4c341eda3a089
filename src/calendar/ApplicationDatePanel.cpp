#include "calendar/ApplicationDatePanel.h"

#include "core/mdiTallyboard.h"
#include "core/modTallyboard.h"
#include "core/SessionContext.h"

namespace tally {

void ShowMovedApplicationDate()
{
    if (auto* window = mdiTallyboard::Instance())
        window->SetPanel(3, QStringLiteral("Application Date :") + ShownDate(Session().gdtmApplicationDate));
}

} // namespace tally
