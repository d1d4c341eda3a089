#pragma once

#include "core/GridTable.h"
#include "core/KeyFilters.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class QLineEdit;

namespace tally {

class CellBox;
class FlexGrid;
class FloatingCombo;
class FloatingEditor;

/// A column whose cells are edited in a box over them, and what its screen does then. Each function gets the
/// row over which the box stands, and its text.
struct CellColumn
{
    GridCol column;
    const char* name;           ///< the box's objectName
    KeyFilter filter = nullptr; ///< none takes everything
    int maxLength = 0;          ///< with a filter

    /// The user has typed, or chosen from the list. What was pasted is told once it holds nothing but what
    /// the filter takes, or what the cell held before.
    std::function<void(int row, const QString& text)> typed = {};
    /// Enter was pressed. Without a function it leads on as OpenNext does.
    std::function<void(int row, const QString& text)> enter = {};
    /// The focus is about to leave: why it has to stay, or nothing.
    std::function<QString(int row, const QString& text)> leave = {};
    /// Asked before each key that types, and before Enter; false drops the key.
    std::function<bool(int row)> mayType = {};
};

/// The boxes in which a form edits cells of its grids. One is open at a time. What is typed goes to the cell
/// at once, and Esc takes it back.
class CellEditors : public QObject
{
    Q_OBJECT

public:
    explicit CellEditors(QWidget* form);
    ~CellEditors() override;

    /// `remember` is called when a box opens over a row and gives what puts everything back as it is at that
    /// moment. Esc runs it.
    void SetTakeBack(std::function<std::function<void()>(int row)> remember);

    /// The boxes of a grid stand behind it in the order of Tab, in the order in which they are added.
    FloatingEditor* AddText(FlexGrid* grid, const CellColumn& column);
    FloatingCombo* AddList(FlexGrid* grid, const QStringList& texts, const CellColumn& column);

    /// Opens the first box that was added for the column. Nothing happens where it has none, or where there
    /// is no such row.
    void Open(const FlexGrid* grid, int row, GridCol column);
    /// From the open box to that of the next column that has one; from the last column to the first one in
    /// the row below, and on the last row to the same row again.
    void OpenNext();
    /// Puts the open box away without asking anything.
    void Close();

    /// Whether the open box may be left. Tells the reason why not.
    bool MayLeave();
    /// Tells why the text of the open box can't be, and leaves it selected to be typed over.
    void Refuse(const QString& reason);
    /// True while a box keeps the focus because its text was refused: no button may act then.
    bool KeepsFocus() const;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Entry;

    Entry& Add(FlexGrid* grid, CellBox* box, QWidget* control, QLineEdit* field, const CellColumn& column);
    void Typed(const Entry& entry);
    void Enter(const Entry& entry);
    void TakeBack(const Entry& entry);
    bool MayLeave(const Entry& entry);
    void Open(const Entry& entry, int row);

    std::vector<std::unique_ptr<Entry>> entries_;
    const Entry* open_ = nullptr; ///< the one that was opened last
    std::function<std::function<void()>(int row)> remember_;
    std::function<void()> takeBack_;
};

} // namespace tally
