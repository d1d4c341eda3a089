#pragma once

#include "exams/MarkSheet.h"

#include <QObject>

namespace tally {

class CellEditors;
class FlexGrid;
class FloatingCombo;
class FloatingEditor;

/// Shows a sheet in the grid of the mark screen and edits it in boxes over the grid.
class MarkGrid : public QObject
{
    Q_OBJECT

public:
    /// `sheet` must outlive the grid. Lives as long as `form`.
    MarkGrid(FlexGrid* grid, MarkSheet& sheet, QWidget* form);

    /// All rows for another choice. Closes the boxes, so it is nothing for while a mark is typed.
    void ShowRows();
    /// The box over a cell; none where the row or the column takes nothing.
    void Open(int row, GridCol column);
    void Close();
    /// Tells what the step has to tell and goes where it leads.
    void Take(const MarkStep& step);

Q_SIGNALS:
    /// A mark was ended that says something by itself.
    void MarkEntered();
    /// The last row was ended.
    void AllEntered();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void txtmarkobtained_Change(int row, const QString& text);
    void txtmarkobtained_Enter(int row, const QString& text);
    void cboPresentAbsent_MouseDown();
    void cboPresentAbsent_Click(int row, const QString& text);
    void cboPresentAbsent_Enter(int row, const QString& text);
    void ShowRow(int row);

    FlexGrid* grid_;
    MarkSheet& sheet_;
    CellEditors* boxes_;
    FloatingEditor* txtmarkobtained_ = nullptr;
    FloatingCombo* cboPresentAbsent_ = nullptr;
};

} // namespace tally
