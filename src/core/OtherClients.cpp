#include "core/OtherClients.h"

#include "core/SessionRepository.h"

#include <QElapsedTimer>

#include <thread>

namespace tally {

bool OtherClientsAnswer(store::Connection& main, std::chrono::milliseconds patience)
{
    constexpr std::chrono::milliseconds BetweenLooks{50};
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
        std::this_thread::sleep_for(BetweenLooks);
    }
    return repository.IsRollAnswered();
}

} // namespace tally
