#include "core/shell/Application.h"

#include "core/ui/Prompts.h"
#include "store/StoreError.h"

namespace tally {

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const store::StoreError& error) {
        Prompts::Critical(error.Description());
    } catch (const std::exception& error) {
        Prompts::Critical(QStringLiteral("This Could Not Be Done : ") + QString::fromUtf8(error.what()));
    }
    return false;
}

} // namespace tally
