#pragma once

#include <QFrame>

class QPushButton;

namespace tally {

class FlexGrid;
class GridTable;

/// The summary of a rank list by grade, in a panel that lies over the form of the list.
class GradeSummaryPanel : public QFrame
{
    Q_OBJECT

public:
    /// Hidden until it is opened.
    explicit GradeSummaryPanel(QWidget* form);

    void ShowSummary(GridTable summary);
    /// In the middle of the form, with the keyboard on its Close button.
    void Open();

Q_SIGNALS:
    void CloseClicked();

protected:
    /// It lies over the list, so Tab goes round within it instead of to what is behind it.
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void Place();

    FlexGrid* msgGrade_;
    QPushButton* cmdClose_;
};

} // namespace tally
