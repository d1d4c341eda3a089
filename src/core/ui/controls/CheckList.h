#pragma once

#include <QListWidget>

#include <vector>

namespace tally {

/// A list whose items carry a code each and can be ticked, with the mouse or the blank key.
class CheckList : public QListWidget
{
    Q_OBJECT

public:
    explicit CheckList(QWidget* parent = nullptr);

    void AddItem(const QString& text, int itemData);
    int ItemData(int index) const;
    bool IsTicked(int index) const;
    /// Ticks without telling anybody; Ticked is for what the user does.
    void SetTicked(int index, bool ticked);
    QList<int> TickedIndexes() const;
    /// The codes of the ticked items, in the order of the list.
    std::vector<int> TickedData() const;

Q_SIGNALS:
    /// The user ticked or unticked an item.
    void Ticked(int index, bool ticked);

protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void focusInEvent(QFocusEvent* event) override;
};

} // namespace tally
