#include "reports/output/WorkbookCheck.h"

#include <QFile>
#include <QHash>
#include <QIODevice>
#include <QXmlStreamReader>

#include <array>
#include <memory>
#include <unzip.h>
#include <xlsxwriter.h>

namespace tally {

namespace {

/// Of the parts that a workbook consists of.
constexpr std::size_t LongestName = 256;

struct CloseArchive
{
    void operator()(void* archive) const { unzClose(archive); }
};
using Archive = std::unique_ptr<void, CloseArchive>;

/// The part of the archive that is open, as a stream.
class PartStream : public QIODevice
{
public:
    explicit PartStream(unzFile archive) : archive_(archive)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 most) override
    {
        const int read = unzReadCurrentFile(archive_, data, static_cast<unsigned>(most));
        return read > 0 ? read : -1;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    unzFile archive_;
};

void ReadCell(QXmlStreamReader& xml, CellTally& cells)
{
    const QByteArray name = xml.attributes().value(QLatin1String("r")).toLatin1();
    const auto row = static_cast<int>(lxw_name_to_row(name.constData()));
    const auto column = static_cast<int>(lxw_name_to_col(name.constData()));
    QString text;
    bool isNumber = false;
    while (xml.readNextStartElement()) {
        isNumber = xml.name() == u"v";
        text = xml.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    if (isNumber)
        cells.AddNumber(row, column, text.toDouble());
    else
        cells.AddText(row, column, text);
}

/// Reads the element that was just begun to its end, and adds the cells in it.
void ReadElement(QXmlStreamReader& xml, CellTally& cells)
{
    const QString promised = xml.attributes().value(QLatin1String("count")).toString();
    int children = 0;
    while (xml.readNextStartElement()) {
        ++children;
        if (xml.name() == u"c")
            ReadCell(xml, cells);
        else
            ReadElement(xml, cells);
    }
    // A list that lost some of its lines in the middle may still be sound in itself.
    if (!promised.isEmpty() && promised.toInt() != children)
        xml.raiseError(QStringLiteral("A list is cut short"));
}

/// Reads the part of the archive that is the current one; false when it is not whole.
bool ReadPart(unzFile archive, CellTally& cells)
{
    if (unzOpenCurrentFile(archive) != UNZ_OK)
        return false;
    PartStream stream(archive);
    QXmlStreamReader xml(&stream);
    if (xml.readNextStartElement())
        ReadElement(xml, cells);
    while (!xml.atEnd())
        xml.readNext();
    // Closing compares the checksum of what was read.
    return unzCloseCurrentFile(archive) == UNZ_OK && !xml.hasError();
}

} // namespace

void CellTally::AddText(int row, int column, QStringView text)
{
    Add(qHashMulti(0, row, column, text));
}

void CellTally::AddNumber(int row, int column, double number)
{
    Add(qHashMulti(0, row, column, number));
}

void CellTally::Add(std::size_t cell)
{
    ++count_;
    sum_ += cell;
}

bool IsWholeWorkbook(const QString& path, const std::vector<CellTally>& sheets)
{
    const Archive archive(unzOpen64(QFile::encodeName(path).constData()));
    if (!archive)
        return false;
    QHash<QByteArray, CellTally> expected;
    for (const CellTally& sheet : sheets)
        expected.insert("xl/worksheets/sheet" + QByteArray::number(expected.size() + 1) + ".xml", sheet);
    int found = unzGoToFirstFile(archive.get());
    for (; found == UNZ_OK; found = unzGoToNextFile(archive.get())) {
        std::array<char, LongestName> name{};
        CellTally cells;
        if (unzGetCurrentFileInfo64(archive.get(), nullptr, name.data(), LongestName - 1, nullptr, 0, nullptr,
                                    0) != UNZ_OK ||
            !ReadPart(archive.get(), cells) || cells != expected.take(name.data()))
            return false;
    }
    return found == UNZ_END_OF_LIST_OF_FILE && expected.isEmpty();
}

} // namespace tally
