#include "core/OptionFlags.h"

#include "core/SessionContext.h"

namespace tally {

void TakeOptionFlags(const StoredOptions& options)
{
    SessionContext& session = Session();
    session.gblnFractionMarks = options.marksInFraction == QLatin1String("Y");
    session.gblnRoundedMarks = options.marksRounded == QLatin1String("Y");
    session.gblnPromptOnExit = options.exitPrompt != QLatin1String("N");
    session.gblnAutoGenerate = options.admissionNoAutoGen != QLatin1String("N");
}

} // namespace tally
