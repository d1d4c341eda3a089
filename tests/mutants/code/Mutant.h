// Stands in the changed copy of the program, beside its sources. Every place that can be changed asks here
// whether it is changed in this run: TALLY_MUTANT holds the number of the one change. With
// TALLY_MUTANTS_RECORD each place that was asked leaves its number in that file.
#pragma once

#include "Append.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>
#include <utility>

#ifdef QT_CORE_LIB
#include <QByteArray>
#include <QString>
#endif

namespace mutants {

struct Orders
{
    unsigned long number = 0;
    const char* record = nullptr;
};

inline const Orders& TheOrders()
{
    static const Orders orders = [] {
        const char* number = std::getenv("TALLY_MUTANT");
        return Orders{number ? std::strtoul(number, nullptr, 10) : 0, std::getenv("TALLY_MUTANTS_RECORD")};
    }();
    return orders;
}

inline void Note(unsigned long number)
{
    const std::string line = std::to_string(number) + '\n';
    Append(TheOrders().record, line.data(), line.size());
}

template <unsigned long Number>
bool IsOn()
{
    static std::atomic<bool> noted{false};
    if (TheOrders().record && !noted.exchange(true))
        Note(Number);
    return TheOrders().number == Number;
}

/// Whether this run is that of the change.
template <unsigned long Number>
constexpr bool On()
{
    if (std::is_constant_evaluated())
        return false;
    return IsOn<Number>();
}

template <unsigned long Number, typename Left, typename Right>
constexpr bool Less(Left&& left, Right&& right)
{
    return On<Number>() ? left <= right : left < right;
}

template <unsigned long Number, typename Left, typename Right>
constexpr bool LessOrEqual(Left&& left, Right&& right)
{
    return On<Number>() ? left < right : left <= right;
}

template <unsigned long Number, typename Left, typename Right>
constexpr bool Greater(Left&& left, Right&& right)
{
    return On<Number>() ? left >= right : left > right;
}

template <unsigned long Number, typename Left, typename Right>
constexpr bool GreaterOrEqual(Left&& left, Right&& right)
{
    return On<Number>() ? left > right : left >= right;
}

/// What is added or taken away, the other way round.
template <unsigned long Number, typename Value>
constexpr auto Turned(Value value)
{
    return On<Number>() ? -value : +value;
}

/// The numbers below Count in order, or, for the change number First + n, with n and n + 1 exchanged.
template <unsigned long First, int Count>
struct Order
{
    int order[Count];

    Order() : order{} { Fill(std::make_integer_sequence<int, Count - 1>{}); }

    const int* begin() const { return order; }
    const int* end() const { return order + Count; }

private:
    template <int... Number>
    void Fill(std::integer_sequence<int, Number...>)
    {
        for (int turn = 0; turn < Count; ++turn)
            order[turn] = turn;
        ((IsOn<First + Number>() ? std::swap(order[Number], order[Number + 1]) : void()), ...);
    }
};

template <unsigned long Number, typename Object>
Object* Either(Object* usual, Object* other)
{
    return On<Number>() ? other : usual;
}

template <unsigned long Number>
const char* Text(const char* text)
{
    if (!On<Number>())
        return text;
    static const std::string changed = std::string(text) + '~';
    return changed.c_str();
}

#ifdef QT_CORE_LIB
template <unsigned long Number>
QString Text(const QString& text)
{
    return On<Number>() ? text + QLatin1Char('~') : text;
}

template <unsigned long Number>
QLatin1String Text(QLatin1String text)
{
    if (!On<Number>())
        return text;
    static const QByteArray changed = QByteArray(text.data(), text.size()) + '~';
    return QLatin1String(changed);
}

/// The text without its letter for the keyboard.
template <unsigned long Number>
QString WithoutLetter(QString text)
{
    return On<Number>() ? text.remove(text.indexOf(QLatin1Char('&')), 1) : text;
}
#endif

} // namespace mutants
