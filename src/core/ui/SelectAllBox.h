#pragma once

#include "core/school/ListItem.h"

#include <QObject>

#include <vector>

class QCheckBox;

namespace tally {

class CheckList;

/// The box "Select All" and the list that it ticks and unticks. It passes over items that cannot be ticked,
/// and goes off when one of the others is unticked, or when there was nothing to tick. The user is told why
/// an item cannot be ticked, and its tick is taken back.
class SelectAllBox : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the list.
    SelectAllBox(QCheckBox* box, CheckList* list);

    /// Takes the place of the items; none is ticked, and the box is off. Tells nobody.
    void SetItems(const std::vector<ListItem>& items);
    void Clear() { SetItems({}); }
    /// The box also passes over the items that begin with `mark`, though they can be ticked one by one.
    void PassOver(QChar mark) { passedOver_ = mark; }

Q_SIGNALS:
    /// The user has ticked or unticked an item or all of them.
    void Changed();

private:
    void TickAll(bool ticked);
    void Tick(int index, bool ticked);

    QCheckBox* box_;
    CheckList* list_;
    QChar passedOver_; ///< null for none
};

} // namespace tally
