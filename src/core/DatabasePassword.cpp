#include "core/DatabasePassword.h"

#include <initializer_list>

namespace tally {

namespace {

QString FromCodes(std::initializer_list<char16_t> codes)
{
    QString piece;
    for (const char16_t code : codes)
        piece += QChar(code);
    return piece;
}

} // namespace

void BuildDatabasePassword(SessionContext& session)
{
    session.gstrDatabasePassword1 = FromCodes({75, 57, 116, 35, 81, 118, 50});
    session.gstrDatabasePassword2 = FromCodes({109, 64, 55, 82, 122, 43});
    session.gstrDatabasePassword3 = FromCodes({76, 120, 52, 33, 87, 98, 36});
    session.gstrDatabasePassword4 = FromCodes({72, 53, 61, 103, 110, 84, 56});
}

QString DatabasePassword(const SessionContext& session)
{
    return session.gstrDatabasePassword3 + QLatin1Char('_') + session.gstrDatabasePassword1 +
           session.gstrDatabasePassword4 + QLatin1Char('_') + session.gstrDatabasePassword2;
}

} // namespace tally
