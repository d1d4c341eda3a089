#pragma once

#include <QTreeWidget>

#include <set>
#include <vector>

namespace tally {

/// The tree of rights, each line with a box to tick. What is ticked or cleared is so with all that stands
/// below it.
class PrivilegeTreeView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit PrivilegeTreeView(QWidget* parent = nullptr);

    /// The numbers of the ticked lines.
    std::set<int> Checked() const;
    /// Ticks these lines and no others.
    void SetChecked(const std::set<int>& lines);
    /// Whether nobody may tick; the lines are there to be read in any case.
    void SetClosed(bool closed);

    /// Room for each caption where the window has it.
    QSize sizeHint() const override;

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

private:
    void DisplayTreeView();
    void NodeCheck(const QTreeWidgetItem* node);

    std::vector<QTreeWidgetItem*> items_; ///< by their numbers, the first at 0
    bool closed_ = false;
};

} // namespace tally
