#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace tally::test {

/// Reads a sheet of a workbook back the way an office program sees it.
class WorkbookReader
{
public:
    struct Style
    {
        bool bold = false;
        bool border = false; ///< on all four sides
        QString lineColor;   ///< of the border, "FFRRGGBB"
        int indent = 0;
        bool wrap = false;
        bool shrink = false;
        QString fill; ///< "FFRRGGBB"; empty for none
        QString horizontal;
        QString vertical;
        QString numberFormat;
        double points = 0; ///< the size of the letters

        bool operator==(const Style&) const = default;
    };

    struct Cell
    {
        bool exists = false;
        bool isNumber = false;
        QString value;
        Style style;

        bool operator==(const Cell&) const = default;
    };

    /// Sheets count from 1. Fails the running test when the file is no readable workbook or lacks the sheet.
    explicit WorkbookReader(const QString& path, int sheet = 1);

    /// By the sheet's own name, such as "B7". A cell that is not there has exists = false.
    Cell At(const QString& reference) const { return cells_.value(reference); }
    /// All cells of the sheet by their names.
    const QHash<QString, Cell>& Cells() const { return cells_; }
    const QStringList& Merges() const { return merges_; }
    /// The font in whose digits columns are counted, and its size, such as "Calibri 11".
    const QString& ColumnFont() const { return columnFont_; }
    /// In letters; 0 where the sheet says nothing. Columns from 1.
    double ColumnWidth(int column) const { return widths_.value(column); }
    /// 0 where the sheet says nothing. Rows from 1.
    double RowHeight(int row) const { return heights_.value(row); }
    /// An attribute of an element of the sheet, such as "pageSetup", "orientation".
    QString Attribute(const QString& element, const QString& name) const
    {
        return attributes_.value(element + u'/' + name);
    }
    QString Footer() const { return texts_.value(QStringLiteral("oddFooter")); }
    QString Property(const QString& element) const { return texts_.value(element); }
    QString DefinedName(const QString& name) const { return names_.value(name); }

private:
    void ReadStyles(const QString& path);
    void ReadSheet(const QString& path, int sheet);
    void ReadRest(const QString& path);

    QHash<QString, Cell> cells_;
    QStringList merges_;
    QString columnFont_;
    QHash<int, double> widths_;
    QHash<int, double> heights_;
    QHash<QString, QString> attributes_;
    QHash<QString, QString> texts_;
    QHash<QString, QString> names_;
    std::vector<Style> styles_;
};

} // namespace tally::test
