#include "utilities/OptionsRepository.h"

namespace tally {

namespace {

QString Flag(bool set)
{
    return set ? QStringLiteral("Y") : QStringLiteral("N");
}

} // namespace

bool OptionsRepository::ExitPromptOf(store::Connection& temp, int userCode)
{
    auto row = temp.Query(QStringLiteral("SELECT Options FROM Options WHERE UserCode = ?"), userCode);
    return row.Next() && row.Text(0) == QLatin1String("Y");
}

void OptionsRepository::Replace(store::Transaction& main, const OptionSettings& settings)
{
    main.Execute(QStringLiteral("DELETE FROM Options"));
    main.Execute(QStringLiteral("INSERT INTO Options (ExitPrompt, AdmissionNoAutoGen, DateOfBirthSetting, "
                                "GenderOption, MarksInFraction, MarksRounded) VALUES (?, ?, ?, ?, ?, ?)"),
                 Flag(settings.exitPrompt), Flag(settings.autoGenerate), settings.dateOfBirthLimit,
                 settings.gender, Flag(settings.fractionMarks), Flag(settings.roundedMarks));
}

void OptionsRepository::ReplaceExitPrompt(store::Transaction& temp, bool exitPrompt, int userCode)
{
    temp.Execute(QStringLiteral("DELETE FROM Options WHERE UserCode = ?"), userCode);
    temp.Execute(QStringLiteral("INSERT INTO Options (Options, UserCode) VALUES (?, ?)"), Flag(exitPrompt),
                 userCode);
}

} // namespace tally
