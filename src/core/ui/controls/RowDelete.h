#pragma once

#include <QObject>

#include <functional>

class QLineEdit;
class QPushButton;

namespace tally {

class CellEditors;

/// "Delete Row": a box for the serial number of a row of a grid, and the button that takes the row out.
class RowDelete : public QObject
{
public:
    struct Rules
    {
        std::function<int()> lastRow;         ///< the highest number that may be deleted; 0 for none
        std::function<void(int row)> takeOut; ///< the user has said Yes, and no box is open
    };

    /// `boxes` are those of the grid: while one of them keeps the focus, nothing is deleted.
    RowDelete(QLineEdit* serialNo, QPushButton* button, CellEditors* boxes, Rules rules);

    /// The rows have become more or fewer.
    void Refresh();

private:
    void Click();

    QLineEdit* serialNo_;
    QPushButton* button_;
    CellEditors* boxes_;
    Rules rules_;
};

} // namespace tally
