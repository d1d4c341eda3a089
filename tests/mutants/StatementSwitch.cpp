// Loaded into the test programs before the engine's own library, and told through the environment what to do:
// it writes down the statements that a program prepares, or gives the engine one of them in place of another.
// So the program that is tested needs no door for it.

#include "code/Append.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <execinfo.h>
#include <fstream>
#include <link.h>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

extern "C" int sqlite3_prepare_v2(sqlite3* engine, const char* sql, int size, sqlite3_stmt** statement,
                                  const char** tail);

namespace {

using Prepare = decltype(&sqlite3_prepare_v2);

constexpr char EndOfField = '\x1f';
constexpr char EndOfRecord = '\x1e';

std::string NameOfProgram()
{
    char path[4096] = {};
    const ssize_t size = readlink("/proc/self/exe", path, sizeof(path) - 1);
    const std::string_view whole(path, size > 0 ? static_cast<std::size_t>(size) : 0);
    return std::string(whole.substr(whole.rfind('/') + 1));
}

/// The place in the program's own file, or 0 where the address lies in a library.
std::uintptr_t PlaceInProgram(void* address)
{
    Dl_info place{};
    link_map* file = nullptr;
    const bool known = dladdr1(address, &place, reinterpret_cast<void**>(&file), RTLD_DL_LINKMAP) != 0;
    const bool inProgram = known && file && file->l_name && *file->l_name == '\0';
    return inProgram ? reinterpret_cast<std::uintptr_t>(address) - file->l_addr : 0;
}

/// The places in the program to which this call returns, the nearest first.
std::vector<std::uintptr_t> Callers()
{
    constexpr int Most = 32;
    void* frames[Most];
    const int count = backtrace(frames, Most);
    std::vector<std::uintptr_t> callers;
    for (int frame = 0; frame < count; ++frame)
        if (const std::uintptr_t place = PlaceInProgram(frames[frame]))
            callers.push_back(place);
    return callers;
}

void Append(const char* path, const std::string& text)
{
    mutants::Append(path, text.data(), text.size());
}

void Record(const char* path, const std::string& sql)
{
    static const std::string program = NameOfProgram();
    static std::set<std::string> written;
    std::ostringstream record;
    record << program << EndOfField << std::hex;
    for (const std::uintptr_t caller : Callers())
        record << caller << ' ';
    record << EndOfField << sql << EndOfRecord;
    if (written.insert(record.str()).second)
        Append(path, record.str());
}

/// What is to be given in place of what, and to which callers.
struct Switch
{
    explicit Switch(const char* path)
    {
        const std::string program = NameOfProgram();
        std::ifstream file(path);
        std::string record;
        while (std::getline(file, record, EndOfRecord)) {
            std::istringstream fields(record);
            std::string kind;
            std::string first;
            std::string second;
            std::getline(fields, kind, EndOfField);
            std::getline(fields, first, EndOfField);
            std::getline(fields, second, EndOfField);
            if (kind == "text")
                texts.emplace(first, second);
            else if (first == program)
                callers.insert(std::stoull(second, nullptr, 16));
        }
    }

    const std::string* For(const std::string& sql) const
    {
        const auto found = texts.find(sql);
        if (found == texts.end())
            return nullptr;
        for (const std::uintptr_t caller : Callers())
            if (callers.count(caller) > 0)
                return &found->second;
        return nullptr;
    }

    std::map<std::string, std::string> texts;
    std::set<std::uintptr_t> callers;
};

} // namespace

int sqlite3_prepare_v2(sqlite3* engine, const char* sql, int size, sqlite3_stmt** statement,
                       const char** tail)
{
    static const auto prepare = reinterpret_cast<Prepare>(dlsym(RTLD_NEXT, "sqlite3_prepare_v2"));
    // The engine prepares statements of its own, too.
    if (PlaceInProgram(__builtin_return_address(0)) == 0)
        return prepare(engine, sql, size, statement, tail);
    const std::string text(sql, size < 0 ? std::strlen(sql) : strnlen(sql, static_cast<std::size_t>(size)));
    if (const char* record = std::getenv("TALLY_STATEMENTS_RECORD"))
        Record(record, text);
    if (const char* orders = std::getenv("TALLY_STATEMENTS_SWITCH")) {
        static const Switch given(orders);
        if (const std::string* other = given.For(text)) {
            const int result = prepare(engine, other->c_str(), -1, statement, tail);
            Append(std::getenv("TALLY_STATEMENTS_REPORT"), result == 0 ? "taken\n" : "refused\n");
            if (result == 0)
                return result;
        }
    }
    return prepare(engine, sql, size, statement, tail);
}
