#pragma once

#include "core/SessionContext.h"

namespace tally {

/// Puts the four pieces of the database password into the session. Each piece is made from character codes,
/// so that the password lies nowhere whole, neither in the program's file nor in its memory at rest.
void BuildDatabasePassword(SessionContext& session);

/// The password of all four databases, joined from the session's pieces for the moment of opening one.
/// The same text at each call; at least 24 printable characters.
QString DatabasePassword(const SessionContext& session);

} // namespace tally
