#pragma once

#include "core/school/ListItem.h"
#include "exams/SetupCopyRepository.h"

#include <QString>

#include <vector>

namespace tally {

class DataCombo;

/// The lists of one side of a copy screen, in which it is chosen from where, or to where, a setup is copied:
/// each one below that on which it depends.
class CopySide
{
public:
    /// A side may lack the list of the exams, and that of the divisions; it is null then.
    struct Lists
    {
        DataCombo* year;
        DataCombo* exam;
        DataCombo* classes;
        DataCombo* divisions;
    };

    /// `name` is the side as it is called in what the clerk is told, "From" or "To". The lists must outlive
    /// it.
    CopySide(const QString& name, const Lists& lists);

    /// 0 for what is not chosen.
    SchoolScope Scope() const;

    /// Offers other years, exams and classes, and keeps what is chosen as far as it still exists. Offers no
    /// division.
    void Offer(const CodedTexts& years, const CopyChoices& choices);
    /// Chooses none of them.
    void OfferDivisions(const CodedTexts& divisions);
    void OfferDivisions(const std::vector<ListItem>& divisions);
    /// Nothing is chosen in the lists below this one, and no division is offered.
    void BlankBelow(const DataCombo* list);
    /// Nothing is chosen at all.
    void Blank();

    /// Something is chosen in the list. Else asks for it and takes the user there.
    bool IsChosen(DataCombo* list) const;
    /// The same for all lists, from the top.
    bool IsComplete() const;

private:
    struct Line
    {
        DataCombo* list;
        QString what; ///< that is chosen in it
    };

    QString name_;
    Lists lists_;
    std::vector<Line> lines_; ///< from the top
};

/// What follows a copy that is stored: tells so, and asks whether it shall go to other classes too.
bool AskToCopyAgain(const QString& result);

} // namespace tally
