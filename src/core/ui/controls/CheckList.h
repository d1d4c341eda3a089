#pragma once

#include "core/school/ListItem.h"

#include <QListWidget>

#include <vector>

namespace tally {

/// A list whose items carry a code each and can be ticked, with the mouse or the blank key. Whatever its
/// height is, it shows whole lines.
class CheckList : public QListWidget
{
    Q_OBJECT

public:
    explicit CheckList(QWidget* parent = nullptr);

    void AddItem(const ListItem& item);
    int ItemData(int index) const;
    /// Why the item cannot be ticked; empty where it can. The list takes the user's tick all the same, for
    /// the screen to tell and take back.
    QString Refusal(int index) const;
    bool IsTicked(int index) const;
    /// Ticks without telling anybody; Ticked is for what the user does.
    void SetTicked(int index, bool ticked);
    /// The same for all items, but that none is ticked that cannot be.
    void SetAllTicked(bool ticked);
    /// All items are ticked that can be, and that is at least one.
    bool AreAllTicked() const;
    QList<int> TickedIndexes() const;
    /// The codes of the ticked items, in the order of the list.
    std::vector<int> TickedData() const;

Q_SIGNALS:
    /// The user ticked or unticked an item.
    void Ticked(int index, bool ticked);

protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void focusInEvent(QFocusEvent* event) override;
    void updateGeometries() override;
    bool event(QEvent* event) override;
};

} // namespace tally
