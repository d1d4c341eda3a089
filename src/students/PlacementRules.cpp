#include "students/PlacementRules.h"

namespace tally {

namespace {

QString ViewOnly(const QString& reason, const QString& admissionNo)
{
    return reason + QStringLiteral(" For Admission No. : %1\nYou Cannot Edit/Delete This Record.\n"
                                   "Do You Want To View The Details ?")
                        .arg(admissionNo);
}

} // namespace

PlacementFault FaultOfPlacing(const PlacementFacts& facts)
{
    if (facts.relieved)
        return PlacementFault::Relieved;
    if (facts.laterPlacements > 1)
        return PlacementFault::Promoted;
    if (facts.placements > 0)
        return PlacementFault::AlreadyPlaced;
    return facts.marks > 0 ? PlacementFault::HasMarks : PlacementFault::None;
}

PlacementFault FaultOfCorrecting(const PlacementFacts& facts)
{
    if (facts.relieved)
        return PlacementFault::Relieved;
    if (facts.laterPlacements > 1)
        return PlacementFault::Promoted;
    return facts.marks > 0 ? PlacementFault::HasMarks : PlacementFault::None;
}

PlacementFault FaultOfDeleting(const PlacementFacts& facts)
{
    if (facts.relieved)
        return PlacementFault::Relieved;
    if (facts.laterPlacements > 0)
        return PlacementFault::Promoted;
    return facts.marks > 0 ? PlacementFault::HasMarks : PlacementFault::None;
}

QString TextOf(PlacementFault fault)
{
    switch (fault) {
    case PlacementFault::None: break;
    case PlacementFault::Relieved:
        return QStringLiteral("Student Has Been Already Relieved, So You Cannot Modify This Entry");
    case PlacementFault::Promoted:
        return QStringLiteral("Already Promotion-Retain Entry Made For The Selected Student, So You Cannot "
                              "Modify This Entry");
    case PlacementFault::AlreadyPlaced: return QStringLiteral("Admission Already Made");
    case PlacementFault::HasMarks:
        return QStringLiteral("'Classwise Mark Entry' Is Already Made For The Selected Student. So You "
                              "Cannot Edit/Delete");
    }
    return {};
}

bool KeepsClass(const PlacementFacts& facts)
{
    return facts.placements > 1;
}

QStringList QuestionsBeforeViewing(const PlacementFacts& facts, const QString& admissionNo)
{
    QStringList questions;
    if (facts.laterPlacements > 0)
        questions.append(ViewOnly(QStringLiteral("Already Promotion Made"), admissionNo));
    else if (facts.marks > 0)
        questions.append(ViewOnly(QStringLiteral("Already Mark Entered"), admissionNo));
    if (facts.relieved)
        questions.append(QStringLiteral("Do You Want To View Relieved Student Details ?"));
    return questions;
}

} // namespace tally
