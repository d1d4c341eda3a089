#pragma once

#include "store/Transaction.h"

#include <QDate>
#include <QString>

namespace tally {

/// The settings as the options screen saves them.
struct OptionSettings
{
    bool exitPrompt = false;
    bool autoGenerate = false;
    QDate dateOfBirthLimit; ///< invalid for none
    QString gender;         ///< "M", "F", "A" for all, empty while not chosen
    bool fractionMarks = false;
    bool roundedMarks = false;
};

/// The settings' rows: one for the school in the main file, one for each user's exit prompt in the temporary
/// file.
class OptionsRepository
{
public:
    /// Whether the user wants to be asked before a screen closes; false where nothing is stored.
    static bool ExitPromptOf(store::Connection& temp, int userCode);
    /// Takes the place of the stored row.
    static void Replace(store::Transaction& main, const OptionSettings& settings);
    static void ReplaceExitPrompt(store::Transaction& temp, bool exitPrompt, int userCode);
};

} // namespace tally
