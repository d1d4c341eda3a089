#include "support/OneMoment.h"

#include "store/StoreError.h"

#include <QSet>

#include <chrono>
#include <cstddef>
#include <gtest/gtest.h>

struct sqlite3;

extern "C" {
int sqlite3_auto_extension(void (*entry)());
int sqlite3_trace_v2(sqlite3* engine, unsigned mask, int (*callback)(unsigned, void*, void*, void*),
                     void* context);
}

namespace tally::test {

namespace {

constexpr unsigned StatementBegins = 1;

/// Called before each statement of every connection of the program, but not for its own.
std::function<void()> beforeStatement;
bool isWithin = false;

int Begin(unsigned /*event*/, void* /*context*/, void* /*statement*/, void* /*text*/)
{
    if (beforeStatement && !isWithin) {
        isWithin = true;
        beforeStatement();
        isWithin = false;
    }
    return 0;
}

int Watch(sqlite3* engine, char** /*error*/, const void* /*routines*/)
{
    return sqlite3_trace_v2(engine, StatementBegins, &Begin, nullptr);
}

/// Before any connection is opened.
const int watched = sqlite3_auto_extension(reinterpret_cast<void (*)()>(&Watch));

/// The client's change while the other one reads; it waits for nobody.
void TryToChange(store::Connection& client, const ChangeOfState& change, int& state)
{
    try {
        store::Transaction transaction(client);
        change(transaction, 1 - state);
        transaction.Commit();
        state = 1 - state;
    } catch (const store::StoreError& error) {
        EXPECT_TRUE(error.IsLocked()) << error.what();
    }
}

} // namespace

void ExpectOneMoment(store::Connection& client, const ChangeOfState& change,
                     const std::function<QStringList()>& load)
{
    ASSERT_EQ(watched, 0);
    client.SetPatience(std::chrono::milliseconds(0));
    QSet<QString> states;
    int state = 0;
    const auto read = [&] {
        const QStringList parts = load();
        EXPECT_EQ(QSet<QString>(parts.begin(), parts.end()).size(), 1)
            << parts.join(QLatin1Char(' ')).toStdString();
        states.insert(parts.front());
    };
    read();
    std::size_t gaps = 0;
    for (std::size_t begun = 1; begun > gaps; ++gaps) {
        SCOPED_TRACE(gaps);
        begun = 0;
        beforeStatement = [&] {
            if (begun++ == gaps)
                TryToChange(client, change, state);
        };
        read();
        beforeStatement = {};
    }
    EXPECT_EQ(states.size(), 2) << "the client was never let";
    EXPECT_GT(gaps, 3U) << "the statements were not seen";
}

} // namespace tally::test
