#pragma once

#include "core/CodedTexts.h"
#include "core/school/ListItem.h"
#include "exams/SubjectSetup.h"

#include <QString>
#include <QStringList>

#include <map>
#include <set>
#include <vector>

namespace tally {

/// What is copied from one class-division to others.
struct SetupCopy
{
    QString setup; ///< as the office calls it, in quotes
    QString mark;  ///< stands before the name of a division that has one already
};

/// The subjects of a class-division with their teachers and maximum marks.
inline const SetupCopy SubjectCopy{QStringLiteral("'Classwise Subject-Teacher-Mark Entry'"),
                                   QStringLiteral(".")};
/// The grade table of a class-division for an exam.
inline const SetupCopy GradeCopy{QStringLiteral("'Classwise Rank-Grade Setup'"), QStringLiteral("# ")};

/// What the clerk is told of a source without a setup, and of a target that has one.
QString NotMade(const SetupCopy& copy);
QString AlreadyExists(const SetupCopy& copy);
/// The same as it is told while a key ticks the division: without its first quote, as the office knows it.
QString AlreadyExistsWhileTicking(const SetupCopy& copy);

/// The lines of the "To" side: the mark before the name of a division that has a setup, and why that one
/// can't be chosen.
std::vector<ListItem> CopyItems(const SetupCopy& copy, const CodedTexts& divisions,
                                const std::set<int>& setUp);

/// What the divisions of a class take, by their codes. One that takes nothing is not in it.
using SubjectsByDivision = std::map<int, std::vector<TaughtSubject>>;
/// The divisions that count as set up. One subject alone is a beginning, which a copy may replace.
std::set<int> SetUpDivisions(const SubjectsByDivision& subjects);

/// That divisions which were to get a copy, by their names, have got a table of their own meanwhile.
QString TablesEnteredMeanwhile(const QStringList& divisions);

} // namespace tally
