#include "exams/SetupCopy.h"

namespace tally {

QString NotMade(const SetupCopy& copy)
{
    return copy.setup + QStringLiteral(" Is Not Made For The Selected Combination");
}

QString AlreadyExists(const SetupCopy& copy)
{
    return copy.setup + QStringLiteral(" Already Exists For This Division");
}

QString AlreadyExistsWhileTicking(const SetupCopy& copy)
{
    return AlreadyExists(copy).mid(1);
}

std::vector<ListItem> CopyItems(const SetupCopy& copy, const CodedTexts& divisions,
                                const std::set<int>& setUp)
{
    std::vector<ListItem> items;
    items.reserve(divisions.size());
    for (const auto& [code, name] : divisions) {
        if (setUp.count(code) > 0)
            items.push_back({code, copy.mark + name, AlreadyExists(copy)});
        else
            items.push_back({code, name, {}});
    }
    return items;
}

std::set<int> SetUpDivisions(const SubjectsByDivision& subjects)
{
    constexpr std::size_t Beginning = 1;
    std::set<int> divisions;
    for (const auto& [division, taken] : subjects)
        if (taken.size() > Beginning)
            divisions.insert(division);
    return divisions;
}

QString TablesEnteredMeanwhile(const QStringList& divisions)
{
    return QStringLiteral("%1 Of Division(s) %2 Was Entered By Another User Meanwhile.\n"
                          "You Cannot Save This Data.")
        .arg(GradeCopy.setup, divisions.join(QStringLiteral(", ")));
}

} // namespace tally
