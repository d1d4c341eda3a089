#pragma once

#include "store/Connection.h"
#include "store/Transaction.h"

#include <QStringList>

#include <functional>
#include <memory>

namespace tally::test {

/// Takes the school to a state, 0 or 1, in which every table tells it.
using ChangeOfState = std::function<void(store::Transaction&, int state)>;

/// `load` reads with connections of this program and gives the state that each part of what it read is of, 0
/// at first. It is run again and again: each time another client changes the state before another one of its
/// statements, if it is let. All parts of one reading must be of one state.
void ExpectOneMoment(store::Connection& client, const ChangeOfState& change,
                     const std::function<QStringList()>& load);

/// Does `work`, and `between` as soon as any connection of the program has run the statement `sql` in it.
void RunBehind(const char* sql, const std::function<void()>& between, const std::function<void()>& work);

} // namespace tally::test
