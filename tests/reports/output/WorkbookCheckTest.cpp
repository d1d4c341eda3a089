#include "reports/output/WorkbookCheck.h"

#include "reports/output/Workbook.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <zip.h>

namespace tally::test {
namespace {

struct Part
{
    QByteArray name;
    QByteArray text;
};

const QByteArray SheetName = "xl/worksheets/sheet1.xml";

class WorkbookCheck : public testing::Test
{
protected:
    /// Whether an archive of these parts passes for a workbook with one sheet of one text and one number.
    bool Passes(const std::vector<Part>& parts) const
    {
        zipFile archive = zipOpen64(QFile::encodeName(Path()).constData(), APPEND_STATUS_CREATE);
        for (const Part& part : parts) {
            zipOpenNewFileInZip64(archive, part.name.constData(), nullptr, nullptr, 0, nullptr, 0, nullptr,
                                  Z_DEFLATED, Z_DEFAULT_COMPRESSION, 0);
            zipWriteInFileInZip(archive, part.text.constData(), static_cast<unsigned>(part.text.size()));
            zipCloseFileInZip(archive);
        }
        zipClose(archive, nullptr);
        return IsWholeWorkbook(Path(), {Expected()});
    }
    bool PassesWithRows(const QByteArray& rows) const
    {
        return Passes({{SheetName, "<worksheet><sheetData>" + rows + "</sheetData></worksheet>"}});
    }
    static CellTally Expected()
    {
        CellTally cells;
        cells.AddText(0, 0, u"Asha");
        cells.AddNumber(0, 1, 77.25);
        return cells;
    }
    QString Path() const { return folder_.filePath(QStringLiteral("workbook.xlsx")); }

    QTemporaryDir folder_;
};

const QByteArray TextCell = R"(<c r="A1" t="inlineStr"><is><t>Asha</t></is></c>)";
const QByteArray NumberCell = R"(<c r="B1" s="1"><v>77.25</v></c>)";

TEST_F(WorkbookCheck, TakesJustTheCellsThatWereWritten)
{
    EXPECT_TRUE(PassesWithRows("<row r=\"1\">" + TextCell + NumberCell + "</row>"));
    EXPECT_FALSE(PassesWithRows("<row r=\"1\">" + TextCell + "</row>")) << "one is missing";
    EXPECT_FALSE(PassesWithRows("<row r=\"1\">" + NumberCell + "</row>")) << "the other one is";
    EXPECT_FALSE(PassesWithRows("<row r=\"1\">" + QByteArray(TextCell).replace("Asha", "Anu") + NumberCell +
                                "</row>"));
    EXPECT_FALSE(PassesWithRows("<row r=\"1\">" + TextCell + NumberCell + NumberCell + "</row>"))
        << "one too many";
    for (const char* other : {R"(<c r="B1"><v>77.5</v></c>)", R"(<c r="B2"><v>77.25</v></c>)",
                              R"(<c r="B1"/>)", R"(<c r="B1" t="inlineStr"><is><t>77.25</t></is></c>)"})
        EXPECT_FALSE(PassesWithRows("<row r=\"1\">" + TextCell + other + "</row>")) << other;
}

TEST_F(WorkbookCheck, TakesNoPartThatIsCutShort)
{
    const Part sheet{SheetName, "<worksheet>" + TextCell + NumberCell + "</worksheet>"};
    const QByteArray styles = R"(<styles><fonts count="2"><font/><font/></fonts></styles>)";
    EXPECT_TRUE(Passes({sheet, {"xl/styles.xml", styles}}));
    for (qsizetype length = 0; length < styles.size(); ++length)
        EXPECT_FALSE(Passes({sheet, {"xl/styles.xml", styles.left(length)}})) << length;
    EXPECT_FALSE(Passes({sheet, {"xl/styles.xml", styles + styles}}));
}

TEST_F(WorkbookCheck, TakesNoListThatLostLinesInItsMidst)
{
    const Part sheet{SheetName, "<worksheet>" + TextCell + NumberCell + "</worksheet>"};
    EXPECT_FALSE(Passes({sheet, {"xl/styles.xml", R"(<styles><fonts count="2"><font/></fonts></styles>)"}}));
}

TEST_F(WorkbookCheck, TakesNoPartWhoseRecordInTheArchiveIsDamaged)
{
    const std::vector<Part> parts{{SheetName, "<worksheet>" + TextCell + NumberCell + "</worksheet>"},
                                  {"xl/styles.xml", "<styles/>"}};
    ASSERT_TRUE(Passes(parts));
    struct Place
    {
        const char* record;
        qsizetype byte; ///< of the last such record, which is that of the styles
    };
    // The record in front of the part, that of the list at the end, and the checksum, which both hold.
    const std::vector<Place> damages[] = {{{"PK\3\4", 0}}, {{"PK\1\2", 0}}, {{"PK\3\4", 14}, {"PK\1\2", 16}}};
    for (const std::vector<Place>& damage : damages) {
        ASSERT_TRUE(Passes(parts));
        QFile file(Path());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        QByteArray content = file.readAll();
        for (const auto& [record, byte] : damage) {
            char& changed = content[content.lastIndexOf(record) + byte];
            changed = static_cast<char>(changed ^ 1);
        }
        ASSERT_TRUE(file.seek(0));
        ASSERT_EQ(file.write(content), content.size());
        file.close();
        EXPECT_FALSE(IsWholeWorkbook(Path(), {Expected()})) << damage[0].record << ' ' << damage[0].byte;
    }
}

TEST_F(WorkbookCheck, WantsEverySheet)
{
    const QByteArray sheet = "<worksheet>" + TextCell + NumberCell + "</worksheet>";
    EXPECT_FALSE(Passes({{"xl/styles.xml", "<styles/>"}}));
    EXPECT_FALSE(Passes({{"xl/worksheets/sheet2.xml", sheet}}));
    EXPECT_FALSE(Passes({{SheetName, sheet}, {"xl/worksheets/sheet2.xml", sheet}}));
}

TEST_F(WorkbookCheck, TakesNoFileThatIsCutShortOrHasAChangedByte)
{
    Workbook workbook(folder_.path(), {});
    workbook.WriteText(0, 0, QStringLiteral("Asha"), {});
    workbook.WriteNumber(0, 1, 77.25, {});
    const QString path = workbook.Finish();
    ASSERT_EQ(path, Path());
    ASSERT_TRUE(IsWholeWorkbook(path, {Expected()}));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    file.close();

    const auto passes = [&](const QByteArray& content) {
        QFile other(path);
        EXPECT_TRUE(other.open(QIODevice::WriteOnly | QIODevice::Truncate));
        EXPECT_EQ(other.write(content), content.size());
        other.close();
        return IsWholeWorkbook(path, {Expected()});
    };
    ASSERT_TRUE(passes(whole));
    for (qsizetype length = 0; length < whole.size(); length += 7)
        EXPECT_FALSE(passes(whole.left(length))) << length;
    // A piece in the middle that never came to the disk.
    for (qsizetype at = 0; at < whole.size() - 64; at += 7)
        EXPECT_FALSE(passes(whole.left(at) + whole.mid(at + 64))) << at;
    EXPECT_FALSE(IsWholeWorkbook(folder_.filePath(QStringLiteral("missing.xlsx")), {}));
}

} // namespace
} // namespace tally::test
