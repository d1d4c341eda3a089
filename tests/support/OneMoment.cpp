#include "support/OneMoment.h"

#include "store/StoreError.h"

#include <QSet>

#include <chrono>
#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>

struct sqlite3;
struct sqlite3_stmt;

extern "C" {
const char* sqlite3_sql(sqlite3_stmt* statement);
int sqlite3_auto_extension(void (*entry)());
int sqlite3_trace_v2(sqlite3* engine, unsigned mask, int (*callback)(unsigned, void*, void*, void*),
                     void* context);
}

namespace tally::test {

namespace {

constexpr unsigned StatementBegins = 1;
constexpr unsigned StatementEnds = 2;

/// Called before each statement of every connection of the program, but not for its own.
std::function<void()> beforeStatement;
/// Called behind each of them, with its text.
std::function<void(const char*)> behindStatement;
bool isWithin = false;

int Hear(unsigned event, void* /*context*/, void* statement, void* /*more*/)
{
    if (isWithin || (!beforeStatement && !behindStatement))
        return 0;
    isWithin = true;
    if (event == StatementBegins && beforeStatement)
        beforeStatement();
    if (event == StatementEnds && behindStatement)
        behindStatement(sqlite3_sql(static_cast<sqlite3_stmt*>(statement)));
    isWithin = false;
    return 0;
}

int Watch(sqlite3* engine, char** /*error*/, const void* /*routines*/)
{
    return sqlite3_trace_v2(engine, StatementBegins | StatementEnds, &Hear, nullptr);
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

void RunBehind(const char* sql, const std::function<void()>& between, const std::function<void()>& work)
{
    ASSERT_EQ(watched, 0);
    bool done = false;
    behindStatement = [&](const char* ended) {
        if (!done && std::strcmp(ended, sql) == 0) {
            done = true;
            between();
        }
    };
    work();
    behindStatement = {};
    EXPECT_TRUE(done) << sql << " was not run";
}

} // namespace tally::test
