#include "reports/output/WorkbookReader.h"

#include <QProcess>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace tally::test {

namespace {

QByteArray Part(const QString& path, const QString& name)
{
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), path, name});
    EXPECT_TRUE(unzip.waitForFinished());
    EXPECT_EQ(unzip.exitCode(), 0) << name.toStdString();
    return unzip.readAllStandardOutput();
}

QString Value(const QXmlStreamReader& xml, const char* name)
{
    return xml.attributes().value(QLatin1String(name)).toString();
}

template <typename Visit>
void ForEachElement(const QByteArray& part, Visit visit)
{
    QXmlStreamReader xml(part);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement)
            visit(xml);
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

} // namespace

WorkbookReader::WorkbookReader(const QString& path, int sheet)
{
    ReadStyles(path);
    ReadSheet(path, sheet);
    ReadRest(path);
}

void WorkbookReader::ReadStyles(const QString& path)
{
    std::vector<bool> bolds;
    std::vector<double> sizes;
    std::vector<QString> fills;
    std::vector<int> borderLines;
    std::vector<QString> lineColors;
    QHash<int, QString> formats{
        {0, QStringLiteral("General")}, {1, QStringLiteral("0")}, {2, QStringLiteral("0.00")}};
    bool inCells = false;
    ForEachElement(Part(path, QStringLiteral("xl/styles.xml")), [&](const QXmlStreamReader& xml) {
        const QStringView name = xml.name();
        if (name == u"numFmt") {
            formats[Value(xml, "numFmtId").toInt()] = Value(xml, "formatCode");
        } else if (name == u"font") {
            bolds.push_back(false);
            sizes.push_back(0);
        } else if (name == u"b") {
            bolds.back() = true;
        } else if (name == u"sz") {
            sizes.back() = Value(xml, "val").toDouble();
        } else if (name == u"name" && bolds.size() == 1) {
            columnFont_ = QStringLiteral("%1 %2").arg(Value(xml, "val")).arg(sizes.back());
        } else if (name == u"fill") {
            fills.emplace_back();
        } else if (name == u"fgColor") {
            fills.back() = Value(xml, "rgb");
        } else if (name == u"border") {
            borderLines.push_back(0);
            lineColors.emplace_back();
        } else if (name == u"left" || name == u"right" || name == u"top" || name == u"bottom") {
            borderLines.back() += Value(xml, "style") == u"thin" ? 1 : 0;
        } else if (name == u"color" && !lineColors.empty()) {
            lineColors.back() = Value(xml, "rgb");
        } else if (name == u"cellXfs") {
            inCells = true;
        } else if (name == u"cellStyles") {
            inCells = false;
        } else if (inCells && name == u"xf") {
            Style style;
            style.bold = bolds.at(Value(xml, "fontId").toUInt());
            style.points = sizes.at(Value(xml, "fontId").toUInt());
            style.fill = fills.at(Value(xml, "fillId").toUInt());
            style.border = borderLines.at(Value(xml, "borderId").toUInt()) == 4;
            style.lineColor = lineColors.at(Value(xml, "borderId").toUInt());
            style.numberFormat = formats.value(Value(xml, "numFmtId").toInt());
            styles_.push_back(style);
        } else if (inCells && name == u"alignment") {
            styles_.back().horizontal = Value(xml, "horizontal");
            styles_.back().vertical = Value(xml, "vertical");
            styles_.back().indent = Value(xml, "indent").toInt();
            styles_.back().wrap = Value(xml, "wrapText") == u"1";
            styles_.back().shrink = Value(xml, "shrinkToFit") == u"1";
        }
    });
}

void WorkbookReader::ReadSheet(const QString& path, int sheet)
{
    QXmlStreamReader xml(Part(path, QStringLiteral("xl/worksheets/sheet%1.xml").arg(sheet)));
    Cell* cell = nullptr;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString name = xml.name().toString();
        for (const QXmlStreamAttribute& attribute : xml.attributes())
            attributes_[name + u'/' + attribute.name().toString()] = attribute.value().toString();
        if (name == u"row") {
            heights_[Value(xml, "r").toInt()] = Value(xml, "ht").toDouble();
        } else if (name == u"c") {
            cell = &cells_[Value(xml, "r")];
            cell->exists = true;
            cell->style = styles_.at(Value(xml, "s").toUInt());
        } else if (name == u"v") {
            cell->isNumber = true;
            cell->value = xml.readElementText();
        } else if (name == u"t") {
            cell->value = xml.readElementText();
        } else if (name == u"mergeCell") {
            merges_.push_back(Value(xml, "ref"));
        } else if (name == u"col") {
            for (int column = Value(xml, "min").toInt(); column <= Value(xml, "max").toInt(); ++column)
                widths_[column] = Value(xml, "width").toDouble();
        } else if (name == u"oddFooter") {
            texts_[name] = xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

void WorkbookReader::ReadRest(const QString& path)
{
    QXmlStreamReader core(Part(path, QStringLiteral("docProps/core.xml")));
    while (!core.atEnd()) {
        if (core.readNext() == QXmlStreamReader::StartElement && core.name() != u"coreProperties")
            texts_[core.name().toString()] = core.readElementText();
    }
    QXmlStreamReader application(Part(path, QStringLiteral("docProps/app.xml")));
    while (!application.atEnd()) {
        if (application.readNext() == QXmlStreamReader::StartElement && application.name() == u"Company")
            texts_[QStringLiteral("Company")] = application.readElementText();
    }
    QXmlStreamReader book(Part(path, QStringLiteral("xl/workbook.xml")));
    while (!book.atEnd()) {
        if (book.readNext() == QXmlStreamReader::StartElement && book.name() == u"definedName") {
            const QString name = Value(book, "name");
            names_[name] = book.readElementText();
        }
    }
}

} // namespace tally::test
