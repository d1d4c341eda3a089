#pragma once

#include <QTableView>

namespace tally {

/// What every grid of the program does with the keys that all programs share.
class Grid : public QTableView
{
    Q_OBJECT

public:
    using QTableView::QTableView;

    /// Goes to the next cell of the current column that begins with what is typed; without a current cell
    /// through the first column in sight. Hidden cells are never found.
    void keyboardSearch(const QString& search) override;

protected:
    /// Ctrl+C copies what is selected as a spreadsheet takes it: a line for each row and a tab between the
    /// cells. Hidden rows and columns stay out, and nothing selected leaves the clipboard as it is.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString SelectedText() const;
    bool IsHidden(const QModelIndex& index) const;
};

} // namespace tally
