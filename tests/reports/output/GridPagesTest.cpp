#include "reports/output/GridPages.h"

#include "core/SessionContext.h"
#include "reports/output/GridPrint.h"
#include "reports/output/PrintPreview.h"
#include "support/ExpectedPrompts.h"
#include "support/FileSizeLimit.h"
#include "support/TableOf.h"
#include "support/TestPaper.h"

#include <QApplication>
#include <QFileInfo>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>

namespace tally::test {
namespace {

/// The toolkit warns of a file that cannot be opened.
class Quiet
{
public:
    Quiet() = default;
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
    ~Quiet() { qInstallMessageHandler(before_); }

private:
    QtMessageHandler before_ =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
};

constexpr double DotsPerPoint = 300.0 / 72;

/// So many rows under two heads.
GridTable Rows(int count, const QString& name = QStringLiteral("Asha"))
{
    GridTable table({{QStringLiteral("Sl.No.")}, {QStringLiteral("Student Name")}});
    for (int row = 1; row <= count; ++row)
        table.AddRow({{QString::number(row)}, {name}});
    return table;
}

class GridPagesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Session().gstrSchoolName = QStringLiteral("St. Mary's School");
        Session().gstrSchoolAddress = QStringLiteral("Hill Road");
        Session().gstrSchoolCity = QStringLiteral("Kochi");
    }
    void TearDown() override
    {
        UsePrintPreview({});
        Session().gstrSchoolName.clear();
        Session().gstrSchoolAddress.clear();
        Session().gstrSchoolCity.clear();
    }

    /// Prints the table; nothing may lie beyond the edges of the paper.
    static std::unique_ptr<TestPaper> Print(const GridTable& table)
    {
        const GridPages pages(table, QStringLiteral("CLASS LIST"),
                              QStringLiteral("STUDENT LIST FOR CLASS   X A"));
        auto paper = std::make_unique<TestPaper>(pages.Orientation());
        const int count = pages.Paint(*paper);
        EXPECT_EQ(count, static_cast<int>(paper->Pages().size()));
        for (const TestPaper::Page& page : paper->Pages())
            for (const TestPaper::Word& word : page.words)
                EXPECT_TRUE(paper->Edges().contains(word.place)) << word.text.toStdString();
        return paper;
    }

    /// The edges of the cells of a page: their lefts or tops, and behind the last one its right or bottom.
    /// Cells meet, so that each edge but the outer ones belongs to two.
    template <typename From, typename To>
    static std::vector<double> Edges(const TestPaper::Page& page, From from, To to)
    {
        std::map<double, double> ends;
        for (const QRectF& frame : page.frames)
            ends[std::round((frame.*from)())] = (frame.*to)();
        std::vector<double> edges;
        for (const auto& [begin, end] : ends) {
            if (!edges.empty()) {
                EXPECT_NEAR(begin, edges.back(), 1) << "cells meet";
                edges.pop_back();
            }
            edges.push_back(begin);
            edges.push_back(end);
        }
        return edges;
    }
    static std::vector<double> ColumnEdges(const TestPaper::Page& page)
    {
        return Edges(page, &QRectF::left, &QRectF::right);
    }
    static std::vector<double> RowEdges(const TestPaper::Page& page)
    {
        return Edges(page, &QRectF::top, &QRectF::bottom);
    }
    static const TestPaper::Word& WordOf(const TestPaper::Page& page, const char* text)
    {
        static const TestPaper::Word none{};
        const auto word =
            std::find_if(page.words.begin(), page.words.end(), [text](const TestPaper::Word& one) {
                return one.text.trimmed().endsWith(QLatin1String(text));
            });
        EXPECT_NE(word, page.words.end()) << text;
        return word == page.words.end() ? none : *word;
    }
    /// How much wider and higher a cell is than the text in it, in points.
    static QSizeF RoomAround(const TestPaper::Page& page, const char* text)
    {
        const QRectF place = WordOf(page, text).place;
        const auto cell = std::find_if(page.frames.begin(), page.frames.end(),
                                       [&](const QRectF& frame) { return frame.contains(place); });
        EXPECT_NE(cell, page.frames.end()) << text << " stands in no cell";
        return cell == page.frames.end() ? QSizeF() : (cell->size() - place.size()) / DotsPerPoint;
    }

    /// The window that is open.
    static QPrintPreviewDialog* Preview()
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<QPrintPreviewDialog*>(window); dialog && dialog->isVisible())
                return dialog;
        return nullptr;
    }
    static QString NotPrinted()
    {
        return QStringLiteral(
            "\"CLASS LIST\" could not be printed. The printer may not be there, or the file "
            "may not be written.");
    }
};

TEST_F(GridPagesTest, AShortListTakesOneUprightPage)
{
    const auto paper = Print(Rows(2));
    ASSERT_EQ(paper->Pages().size(), 1U);
    EXPECT_LT(paper->width(), paper->height());
    EXPECT_EQ(paper->Text(0).substr(0, paper->Text(0).find("|CLASS LIST ")),
              "St. Mary's School|Hill Road|Kochi|CLASS LIST|STUDENT LIST FOR CLASS   X A");
    EXPECT_TRUE(paper->Holds(0, "|Page 1 of 1|Sl.No.|Student Name|1|Asha|2|Asha")) << paper->Text(0);
}

TEST_F(GridPagesTest, ALongListRepeatsItsHeadsAndNumbersItsPages)
{
    const auto paper = Print(Rows(120));
    const std::size_t count = paper->Pages().size();
    ASSERT_GE(count, 3U);
    for (std::size_t page = 0; page < count; ++page) {
        EXPECT_TRUE(paper->Holds(page, "|Sl.No.|Student Name|")) << page;
        EXPECT_TRUE(paper->Holds(
            page, QStringLiteral("Page %1 of %2").arg(page + 1).arg(count).toLatin1().constData()))
            << page;
        EXPECT_EQ(paper->Holds(page, "St. Mary's School"), page == 0) << page;
    }
}

TEST_F(GridPagesTest, EachRowIsPrintedOnceAndInItsOrder)
{
    constexpr int Students = 200;
    const auto paper = Print(Rows(Students));
    int next = 1;
    for (const TestPaper::Page& page : paper->Pages())
        for (const TestPaper::Word& word : page.words)
            if (word.text == QString::number(next))
                ++next;
    EXPECT_EQ(next, Students + 1);
}

TEST_F(GridPagesTest, EachPageButTheLastIsFilledWithRowsToTheRoomOfItsFooter)
{
    const auto paper = Print(Rows(120));
    const double room = paper->height() - 20 * DotsPerPoint;
    for (std::size_t page = 0; page < paper->Pages().size(); ++page) {
        const std::vector<double> rows = RowEdges(paper->Pages()[page]);
        const double next = rows.back() + rows.back() - rows[rows.size() - 2];
        EXPECT_LE(rows.back(), room) << page;
        EXPECT_EQ(next > room, page + 1 < paper->Pages().size()) << page;
        if (page > 0) {
            EXPECT_NEAR(rows.front(), 0, 1) << page;
        }
        const QByteArray number =
            QStringLiteral("Page %1 of %2").arg(page + 1).arg(paper->Pages().size()).toLatin1();
        const QRectF footer = WordOf(paper->Pages()[page], number.constData()).place;
        EXPECT_NEAR(footer.bottom(), paper->height(), 2);
        EXPECT_NEAR(footer.right(), paper->width(), 2);
    }
}

TEST_F(GridPagesTest, TheLinesOverTheListStandUnderOneAnotherAndAboveIt)
{
    const auto paper = Print(Rows(3));
    const TestPaper::Page& page = paper->Pages()[0];
    double end = 0;
    for (const char* line :
         {"St. Mary's School", "Hill Road", "Kochi", "CLASS LIST", "STUDENT LIST FOR CLASS   X A"}) {
        const QRectF place = WordOf(page, line).place;
        EXPECT_NEAR(place.top(), end, 1) << line;
        EXPECT_NEAR(place.center().x(), paper->width() / 2.0, 2) << line;
        end = place.bottom() + 2 * DotsPerPoint;
    }
    EXPECT_NEAR(RowEdges(page).front(), end + 3 * DotsPerPoint, 2);
}

TEST_F(GridPagesTest, AListStandsInTheMiddleAndItsCellsAreAsLargeAsTheirTextsNeed)
{
    const char* const longest = "A name longer than its head";
    GridTable table = Rows(2, QString::fromLatin1(longest));
    const auto expect = [](const QSizeF& around) {
        EXPECT_TRUE(around.width() >= 7 && around.width() < 8) << around.width();
        EXPECT_TRUE(around.height() >= 6 && around.height() < 7) << around.height();
    };
    {
        const auto paper = Print(table);
        const TestPaper::Page& page = paper->Pages()[0];
        EXPECT_EQ(RowEdges(page).size(), 4U);
        const std::vector<double> columns = ColumnEdges(page);
        EXPECT_EQ(columns.size(), 3U);
        EXPECT_NEAR(columns.front(), paper->width() - columns.back(), 2);
        expect(RoomAround(page, "Sl.No."));
        expect(RoomAround(page, longest));
    }
    table.SetMark(2, 1, CellMark::Sum);
    table.SetText(1, 1, {});
    expect(RoomAround(Print(table)->Pages()[0], longest));
}

TEST_F(GridPagesTest, ALongHeadGoesOnInFurtherLinesAboveItsRows)
{
    GridTable table(
        {{QStringLiteral("The head of a column that holds more than any column is wide, so that it "
                         "takes several lines")}});
    table.AddRow({{QStringLiteral("Asha")}});
    const auto paper = Print(table);
    const TestPaper::Page& page = paper->Pages()[0];
    const std::vector<double> rows = RowEdges(page);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_GT(rows[1] - rows[0], 2 * (rows[2] - rows[1]) - 12 * DotsPerPoint);
    EXPECT_LE(WordOf(page, "several lines").place.bottom(), rows[1]);
    EXPECT_GT(WordOf(page, "Asha").place.top(), rows[1]);
}

TEST_F(GridPagesTest, LettersAreBlackOnGreyLinesAndHeadsAndMarksStandOut)
{
    GridTable table = TableOf({{{QStringLiteral("Name")}, {QStringLiteral("Mark")}},
                               {{QStringLiteral("Asha")}, {QStringLiteral("12")}},
                               {{QStringLiteral("Total")}, {QStringLiteral("50")}}});
    table.SetMark(1, 1, CellMark::NotTakenForRank);
    table.SetMark(2, 0, CellMark::Sum);
    const auto paper = Print(table);
    const TestPaper::Page& page = paper->Pages()[0];
    for (const char* bold : {"St. Mary's School", "CLASS LIST", "Name", "Mark", "Total"})
        EXPECT_TRUE(WordOf(page, bold).font.bold()) << bold;
    for (const char* plain : {"Hill Road", "Asha", "12", "50", "Page 1 of 1"})
        EXPECT_FALSE(WordOf(page, plain).font.bold()) << plain;
    EXPECT_TRUE(WordOf(page, "12").font.italic());
    EXPECT_FALSE(WordOf(page, "Asha").font.italic());
    for (const TestPaper::Word& word : page.words) {
        EXPECT_EQ(word.ink, qRgb(0, 0, 0)) << word.text.toStdString();
        EXPECT_EQ(word.font.hintingPreference(), QFont::PreferNoHinting)
            << "letters that keep to the dots of the display";
    }
    EXPECT_EQ(page.lines, std::set<QRgb>{qRgb(0x90, 0x98, 0xa0)});
}

TEST_F(GridPagesTest, AWideListLiesOnItsSideAndFitsTheWidth)
{
    std::vector<GridColumn> columns{{QStringLiteral("Student Name")}};
    GridTable::Row cells{{QStringLiteral("Asha")}};
    for (int subject = 1; subject <= 40; ++subject) {
        columns.push_back({QStringLiteral("Sub%1").arg(subject)});
        cells.push_back({QStringLiteral("9%1.25").arg(subject)});
    }
    GridTable table(columns);
    table.AddRow(cells);
    const auto paper = Print(table);
    ASSERT_EQ(paper->Pages().size(), 1U);
    EXPECT_GT(paper->width(), paper->height());
    for (const char* text : {"|Asha|91.25|", "|940.25"})
        EXPECT_TRUE(paper->Holds(0, text)) << paper->Text(0);
}

TEST_F(GridPagesTest, NumbersStandAtTheRightOfTheirColumn)
{
    GridTable table({{QStringLiteral("Mark"), NumberAlignment}});
    table.AddRow({{QStringLiteral("5")}});
    table.AddRow({{QStringLiteral("100000")}});
    const auto paper = Print(table);
    const std::vector<TestPaper::Word>& words = paper->Pages()[0].words;
    const auto place = [&](const char* text) {
        const auto word = std::find_if(words.begin(), words.end(), [text](const TestPaper::Word& one) {
            return one.text == QLatin1String(text);
        });
        return word == words.end() ? QRectF() : word->place;
    };
    EXPECT_NEAR(place("5").right(), place("100000").right(), 1);
    EXPECT_GT(place("5").left(), place("100000").left());
}

TEST_F(GridPagesTest, WhatRepeatsInAMergedColumnStandsOnceAndAgainAtTheTopOfEachPage)
{
    GridTable table({{.head = QStringLiteral("Class"), .merged = true}, {.head = QStringLiteral("Subject")}});
    constexpr int Subjects = 120;
    for (int row = 0; row < Subjects; ++row)
        table.AddRow({{QStringLiteral("X")}, {QStringLiteral("Eng%1").arg(row)}});
    const auto paper = Print(table);
    ASSERT_GE(paper->Pages().size(), 2U);
    for (std::size_t page = 0; page < paper->Pages().size(); ++page) {
        EXPECT_TRUE(paper->Holds(page, "|Class|Subject|X|Eng")) << page;
        EXPECT_EQ(QString::fromStdString(paper->Text(page)).count(QStringLiteral("|X|")), 1) << page;
    }
}

TEST_F(GridPagesTest, WhatIsHiddenIsNotPrinted)
{
    GridTable table = TableOf({{{QStringLiteral("Name")}, {QStringLiteral("Code")}},
                               {{QStringLiteral("Asha")}, {QStringLiteral("4711")}},
                               {{QStringLiteral("Binu")}, {QStringLiteral("4712")}}});
    table.Column(1).hidden = true;
    table.HideRow(2);
    const auto paper = Print(table);
    EXPECT_TRUE(paper->Holds(0, "|Name|Asha"));
    for (const char* text : {"Code", "4711", "Binu"})
        EXPECT_FALSE(paper->Holds(0, text)) << text;
}

TEST_F(GridPagesTest, EmptyRowsAtTheEndAreLeftOutAndOthersStay)
{
    constexpr int Spare = 100;
    GridTable table({{QStringLiteral("Sl.No.")}, {.head = QStringLiteral("Code"), .hidden = true}});
    table.AddRow({{QStringLiteral("1")}});
    table.AddRow();
    table.AddRow({{QStringLiteral("3")}});
    for (int row = 0; row < Spare; ++row)
        table.AddRow({{}, {QStringLiteral("what is hidden does not count")}});
    const auto paper = Print(table);
    EXPECT_EQ(paper->Pages().size(), 1U);
    QRectF first;
    QRectF third;
    for (const TestPaper::Word& word : paper->Pages()[0].words) {
        first = word.text == QLatin1String("1") ? word.place : first;
        third = word.text == QLatin1String("3") ? word.place : third;
    }
    EXPECT_GT(third.top() - first.top(), 2 * first.height()) << "there is a row between them";
}

TEST_F(GridPagesTest, AListWithoutRowsOrColumnsIsAPageAllTheSame)
{
    EXPECT_TRUE(Print(GridTable({{QStringLiteral("Name")}}))->Holds(0, "Page 1 of 1|Name"));
    EXPECT_TRUE(Print(GridTable())->Holds(0, "Page 1 of 1"));
}

TEST_F(GridPagesTest, ANameOfAHundredLettersGoesOnInFurtherLines)
{
    QString name;
    for (int word = 0; word < 10; ++word)
        name += QStringLiteral("Nameless%1 ").arg(word);
    const auto paper = Print(Rows(2, name));
    for (int word = 0; word < 10; ++word)
        EXPECT_TRUE(paper->Holds(0, QStringLiteral("Nameless%1").arg(word).toLatin1().constData())) << word;
    EXPECT_GT(Print(Rows(100, name))->Pages().size(), Print(Rows(100))->Pages().size());
    EXPECT_EQ(Print(Rows(2, QString(100, QLatin1Char('x'))))->Pages().size(), 1U)
        << "also one without blanks";
}

TEST_F(GridPagesTest, ARowHigherThanAPageTakesNoMoreThanOne)
{
    const GridPages pages(Rows(3, QString(20000, QLatin1Char('x'))), {}, {});
    TestPaper paper(pages.Orientation());
    EXPECT_EQ(pages.Paint(paper), 3);
}

TEST_F(GridPagesTest, ALongTextInBoldLettersHasRoomForAllItsLines)
{
    // Of names of every length, some take a line more in bold letters than in others.
    for (int letters = 20; letters < 120; ++letters) {
        QString name;
        while (name.size() < letters)
            name += QStringLiteral("wm ");
        GridTable table = Rows(2, name);
        table.SetMark(1, 1, CellMark::Sum);
        QRectF next;
        double end = 0;
        const auto paper = Print(table);
        for (const TestPaper::Word& word : paper->Pages()[0].words) {
            if (word.text == QLatin1String("2"))
                next = word.place;
            else if (next.isNull() && word.text.contains(QLatin1String("wm")))
                end = std::max(end, word.place.bottom());
        }
        EXPECT_LE(end, next.top()) << letters;
    }
}

TEST_F(GridPagesTest, MarkedCellsKeepTheirPaint)
{
    GridTable table = Rows(1);
    constexpr QRgb Failed = qRgb(255, 216, 176);
    EXPECT_FALSE(Print(table)->Pages()[0].fills.contains(Failed));
    table.SetMark(1, 1, CellMark::FailedOrAbsent);
    EXPECT_TRUE(Print(table)->Pages()[0].fills.contains(Failed));
}

TEST_F(GridPagesTest, WhatASchoolHasNotEnteredLeavesNoGap)
{
    const QRectF second = WordOf(Print(Rows(1))->Pages()[0], "Hill Road").place;
    Session().gstrSchoolAddress.clear();
    const auto paper = Print(Rows(1));
    EXPECT_EQ(paper->Text(0).rfind("St. Mary's School|Kochi|CLASS LIST|", 0), 0U);
    EXPECT_EQ(WordOf(paper->Pages()[0], "Kochi").place.top(), second.top());
}

TEST_F(GridPagesTest, ThePreviewShowsACopyOfItsOwn)
{
    std::optional<PrintJob> shown;
    UsePrintPreview([&](const PrintJob& job) { shown = job; });
    {
        GridTable table = Rows(3);
        ShowGridPreview(table, QStringLiteral("CLASS LIST"), QStringLiteral("Class X"));
        table.SetRows(1);
    }
    ASSERT_TRUE(shown.has_value());
    EXPECT_EQ(Preview(), nullptr) << "one stands for the other";
    EXPECT_EQ(shown->title.toStdString(), "CLASS LIST");
    EXPECT_EQ(shown->orientation, QPageLayout::Portrait);
    TestPaper paper(shown->orientation);
    EXPECT_TRUE(shown->paint(paper));
    EXPECT_TRUE(paper.Holds(0, "|Class X|"));
    EXPECT_TRUE(paper.Holds(0, "|3|Asha"));
}

TEST_F(GridPagesTest, APaperThatTakesNotAllPagesHasNotTakenTheList)
{
    std::optional<PrintJob> shown;
    UsePrintPreview([&](const PrintJob& job) { shown = job; });
    ShowGridPreview(Rows(300), QStringLiteral("CLASS LIST"), {});
    ASSERT_TRUE(shown.has_value());
    TestPaper paper(shown->orientation);
    paper.TakeAtMost(2);
    EXPECT_FALSE(shown->paint(paper));
    const Quiet toolkit;
    QPdfWriter nowhere(QStringLiteral("/no such folder/list.pdf"));
    EXPECT_FALSE(shown->paint(nowhere));
}

TEST_F(GridPagesTest, APrinterThatFailsIsToldAndOneThatPrintsIsNot)
{
    for (const bool fails : {false, true}) {
        ShowGridPreview(Rows(3), QStringLiteral("CLASS LIST"), {});
        QPrintPreviewDialog* preview = Preview();
        ASSERT_NE(preview, nullptr);
        TestPaper paper(QPageLayout::Portrait);
        if (fails)
            paper.Fail();
        Q_EMIT preview->paintRequested(&paper);
        EXPECT_TRUE(paper.Holds(0, "Asha"));
        ExpectedPrompts prompts;
        if (fails)
            prompts.ExpectCritical(NotPrinted());
        preview->accept();
        prompts.Verify();
    }
}

TEST_F(GridPagesTest, WhoOnlyLooksAtThePagesIsToldNothing)
{
    ShowGridPreview(Rows(3), QStringLiteral("CLASS LIST"), {});
    QPrintPreviewDialog* preview = Preview();
    ASSERT_NE(preview, nullptr);
    preview->printer()->setOutputFormat(QPrinter::PdfFormat);
    preview->printer()->setOutputFileName(QStringLiteral("/no such folder/list.pdf"));
    const ExpectedPrompts prompts;
    const Quiet toolkit;
    preview->findChild<QPrintPreviewWidget*>()->updatePreview();
    preview->accept();
}

TEST_F(GridPagesTest, AFileThatCannotBePrintedIntoIsToldOnceAndAfterThePreview)
{
    ShowGridPreview(Rows(3), QStringLiteral("CLASS LIST"), {});
    QPrintPreviewDialog* preview = Preview();
    ASSERT_NE(preview, nullptr);
    preview->printer()->setOutputFormat(QPrinter::PdfFormat);
    preview->printer()->setOutputFileName(QStringLiteral("/no such folder/list.pdf"));
    auto* pages = preview->findChild<QPrintPreviewWidget*>();
    ASSERT_NE(pages, nullptr);
    ExpectedPrompts prompts;
    {
        const Quiet toolkit;
        pages->print();
        pages->print();
    }
    prompts.Verify();
    prompts.ExpectCritical(NotPrinted());
    preview->accept();
    prompts.Verify();
}

TEST_F(GridPagesTest, AFileForWhichTheDiskHasNoRoomIsTold)
{
    const QTemporaryDir folder;
    ShowGridPreview(Rows(300), QStringLiteral("CLASS LIST"), {});
    QPrintPreviewDialog* preview = Preview();
    ASSERT_NE(preview, nullptr);
    preview->printer()->setOutputFormat(QPrinter::PdfFormat);
    preview->printer()->setOutputFileName(folder.filePath(QStringLiteral("list.pdf")));
    ExpectedPrompts prompts;
    {
        const FileSizeLimit full(2048);
        preview->findChild<QPrintPreviewWidget*>()->print();
    }
    prompts.ExpectCritical(NotPrinted());
    preview->accept();
    prompts.Verify();
}

TEST_F(GridPagesTest, WhatCameOutOfThePrinterIsNotTold)
{
    const QTemporaryDir folder;
    ShowGridPreview(Rows(300), QStringLiteral("CLASS LIST"), {});
    QPrintPreviewDialog* preview = Preview();
    ASSERT_NE(preview, nullptr);
    preview->printer()->setOutputFormat(QPrinter::PdfFormat);
    preview->printer()->setOutputFileName(folder.filePath(QStringLiteral("list.pdf")));
    const ExpectedPrompts prompts;
    preview->findChild<QPrintPreviewWidget*>()->print();
    preview->accept();
    EXPECT_GT(QFileInfo(folder.filePath(QStringLiteral("list.pdf"))).size(), 2048);
}

TEST_F(GridPagesTest, TheRealPreviewOpensWithoutAPrinterAndClosesAgain)
{
    ShowGridPreview(Rows(100), QStringLiteral("CLASS LIST"), {});
    QPrintPreviewDialog* preview = Preview();
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(preview->windowTitle().toStdString(), "CLASS LIST");
    EXPECT_EQ(preview->printer()->docName().toStdString(), "CLASS LIST");
    EXPECT_EQ(preview->printer()->pageLayout().orientation(), QPageLayout::Portrait);
    EXPECT_EQ(preview->printer()->pageLayout().pageSize().id(), QPageSize::A4);
    QSignalSpy gone(preview, &QObject::destroyed);
    preview->close();
    ASSERT_TRUE(QTest::qWaitFor([&] { return gone.count() == 1; }));
}

TEST_F(GridPagesTest, TheRealPreviewLiesAcrossWhereTheListDoes)
{
    std::vector<GridColumn> columns(20, GridColumn{QStringLiteral("A subject")});
    ShowGridPreview(GridTable(columns), QStringLiteral("CLASS LIST"), {});
    QPrintPreviewDialog* preview = Preview();
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(preview->printer()->pageLayout().orientation(), QPageLayout::Landscape);
    preview->accept();
}

} // namespace
} // namespace tally::test
