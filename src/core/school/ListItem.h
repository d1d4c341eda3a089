#pragma once

#include <QString>

namespace tally {

/// One line of a list from which several are ticked.
struct ListItem
{
    int code = 0;
    QString text;    ///< as it is shown, with the mark before the name
    QString refusal; ///< why it cannot be ticked; empty where it can
};

} // namespace tally
