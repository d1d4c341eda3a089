#include "core/ui/controls/Grid.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include <set>

namespace tally {

namespace {

/// A line break or a tab within a text would begin another row or cell of the spreadsheet.
QString OneCell(QString text)
{
    for (QChar& letter : text)
        if (letter < QLatin1Char(' ') || letter == QChar::LineSeparator ||
            letter == QChar::ParagraphSeparator)
            letter = QLatin1Char(' ');
    return text;
}

} // namespace

QString Grid::SelectedText() const
{
    const QItemSelection selection = selectionModel()->selection();
    std::set<int> rows;
    std::set<int> columns;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            if (!isRowHidden(row))
                rows.insert(row);
        for (int column = range.left(); column <= range.right(); ++column)
            if (!isColumnHidden(column))
                columns.insert(column);
    }
    QStringList lines;
    for (const int row : rows) {
        QStringList cells;
        for (const int column : columns) {
            // Cells picked here and there keep their places; what lies between them stays empty.
            const QModelIndex index = model()->index(row, column);
            cells.append(selection.contains(index) ? OneCell(index.data().toString()) : QString());
        }
        lines.append(cells.join(QLatin1Char('\t')));
    }
    return columns.empty() ? QString() : lines.join(QLatin1Char('\n'));
}

void Grid::keyPressEvent(QKeyEvent* event)
{
    if (!event->matches(QKeySequence::Copy)) {
        QTableView::keyPressEvent(event);
        return;
    }
    const QString text = SelectedText();
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
    event->accept();
}

bool Grid::IsHidden(const QModelIndex& index) const
{
    return isRowHidden(index.row()) || isColumnHidden(index.column());
}

void Grid::keyboardSearch(const QString& search)
{
    const QModelIndex before = currentIndex();
    if (!before.isValid()) {
        // The search goes on from the current row, and behind the last one it begins at the first.
        int column = 0;
        while (isColumnHidden(column))
            ++column;
        selectionModel()->setCurrentIndex(model()->index(model()->rowCount() - 1, column),
                                          QItemSelectionModel::NoUpdate);
    }
    QTableView::keyboardSearch(search);
    const QModelIndex found = currentIndex();
    if (IsHidden(found))
        setCurrentIndex(before);
    else if (!before.isValid() && !selectionModel()->isSelected(found))
        selectionModel()->clearCurrentIndex();
}

} // namespace tally
