#pragma once

#include <QChar>

namespace tally {

/// What a user may be allowed to do on a form. The values are the letters that are stored with a user's
/// rights.
enum class Right : char16_t
{
    Open = u'D',
    New = u'N',
    Edit = u'E',
    Delete = u'X',
    Save = u'S',
    Print = u'P',
    Add = u'A',
    Modify = u'M',
    Change = u'C',
    Backup = u'B',
    Restore = u'R'
};

/// The letter that stands for the right in the store.
constexpr QChar LetterOf(Right right)
{
    return QChar(static_cast<char16_t>(right));
}

} // namespace tally
