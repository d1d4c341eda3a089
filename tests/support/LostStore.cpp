#include "support/LostStore.h"

#include <cstring>
#include <gtest/gtest.h>
#include <optional>

struct sqlite3;

extern "C" {
int sqlite3_auto_extension(void (*entry)());
int sqlite3_trace_v2(sqlite3* engine, unsigned mask, int (*callback)(unsigned, void*, void*, void*),
                     void* context);
int sqlite3_set_authorizer(sqlite3* engine,
                           int (*callback)(void*, int, const char*, const char*, const char*, const char*),
                           void* context);
}

namespace tally::test {

namespace {

constexpr unsigned StatementBegins = 1;
constexpr int Allowed = 0;
constexpr int Denied = 1;

/// How many statements may begin still; nothing where all may.
std::optional<std::size_t> left;
bool lost = false;

int Begin(unsigned /*event*/, void* /*context*/, void* /*statement*/, void* /*text*/)
{
    if (left && *left > 0)
        --*left;
    return 0;
}

/// Asked for each thing that a new statement is to do.
int Allow(void* /*context*/, int /*action*/, const char* what, const char* /*more*/, const char* /*file*/,
          const char* /*trigger*/)
{
    if (left != 0U || (what && std::strcmp(what, "ROLLBACK") == 0))
        return Allowed;
    lost = true;
    return Denied;
}

int Watch(sqlite3* engine, char** /*error*/, const void* /*routines*/)
{
    sqlite3_set_authorizer(engine, &Allow, nullptr);
    return sqlite3_trace_v2(engine, StatementBegins, &Begin, nullptr);
}

/// Before any connection is opened.
const int watched = sqlite3_auto_extension(reinterpret_cast<void (*)()>(&Watch));

} // namespace

bool LosesStoreAt(std::size_t number, const std::function<void()>& work)
{
    EXPECT_EQ(watched, 0);
    left = number;
    lost = false;
    work();
    left.reset();
    return lost;
}

} // namespace tally::test
