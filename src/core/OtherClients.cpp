#include "core/OtherClients.h"

#include "core/SessionRepository.h"

#include <QElapsedTimer>

#include <thread>

namespace tally {

bool OtherClientsAnswer(store::Connection& main, std::chrono::milliseconds patience,
                        const std::function<void()>& whileWaiting)
{
    // While one client looks, none can answer; the clock of one that has met a look waits for its next tick.
    constexpr std::chrono::milliseconds BetweenLooks{250};
    SessionRepository repository(main);
    {
        store::Transaction calling(main);
        repository.CallRoll(calling);
        calling.Commit();
    }
    QElapsedTimer waiting;
    waiting.start();
    while (!waiting.hasExpired(patience.count())) {
        if (repository.IsRollAnswered())
            return true;
        if (whileWaiting)
            whileWaiting();
        std::this_thread::sleep_for(BetweenLooks);
    }
    return repository.IsRollAnswered();
}

} // namespace tally
