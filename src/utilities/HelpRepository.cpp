#include "utilities/HelpRepository.h"

namespace tally {

namespace {

std::optional<HelpPage> ReadPage(store::Statement rows)
{
    if (!rows.Next())
        return std::nullopt;
    return HelpPage{rows.Text(0), rows.Text(1)};
}

} // namespace

std::optional<HelpPage> HelpRepository::Find(int screenNo)
{
    return ReadPage(help_.Query(
        QStringLiteral("SELECT ScreenName, Details FROM Tallyboarddetails WHERE Scrno = ?"), screenNo));
}

std::optional<HelpPage> HelpRepository::Find(const QString& screenName)
{
    return ReadPage(help_.Query(QStringLiteral("SELECT ScreenName, Details FROM Tallyboarddetails"
                                               " WHERE upper(ScreenName) = upper(?) ORDER BY Scrno"),
                                screenName));
}

QStringList HelpRepository::ScreenNames()
{
    QStringList names;
    store::Statement rows =
        help_.Query(QStringLiteral("SELECT ScreenName FROM Tallyboarddetails ORDER BY Scrno"));
    while (rows.Next())
        names.append(rows.Text(0));
    return names;
}

} // namespace tally
