#include "reports/output/Workbook.h"

#include "reports/output/SheetFile.h"
#include "reports/output/WorkbookReader.h"

#include <QTemporaryDir>

#include <cstdio>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace tally::test {
namespace {

class WorkbookTest : public testing::Test
{
protected:
    static WorkbookReader Printed(const PrintSetup& setup)
    {
        const QTemporaryDir folder;
        Workbook workbook(folder.path(), {});
        workbook.WriteText(0, 0, QStringLiteral("Asha"), {});
        workbook.SetUpPrint(setup);
        return WorkbookReader(workbook.Finish());
    }

    QTemporaryDir folder_;
};

TEST_F(WorkbookTest, SaysThatNoMoreFilesCanBeOpened)
{
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    EXPECT_THROW(Workbook(folder_.path(), {}), WorkbookError);
    setrlimit(RLIMIT_NOFILE, &before);
}

TEST_F(WorkbookTest, TakesNothingBeyondTheEdgesOfASheet)
{
    constexpr int BehindLastRow = 1048576;
    constexpr int BehindLastColumn = 16384;
    Workbook workbook(folder_.path(), {});
    EXPECT_THROW(workbook.SetColumnWidth(BehindLastColumn, 1), WorkbookError);
    EXPECT_THROW(workbook.SetRowHeight(BehindLastRow, 1), WorkbookError);
    EXPECT_THROW(workbook.WriteText(0, BehindLastColumn, QStringLiteral("Asha"), {}), WorkbookError);
    EXPECT_THROW(workbook.WriteText(0, BehindLastColumn, {}, {}), WorkbookError);
    EXPECT_THROW(workbook.WriteNumber(BehindLastRow, 0, 1, {}), WorkbookError);
    EXPECT_THROW(workbook.WriteMerged(0, 1, BehindLastColumn, QStringLiteral("Asha"), {}), WorkbookError);
    EXPECT_THROW(workbook.SetUpPrint({.lastColumn = BehindLastColumn}), WorkbookError);
}

TEST_F(WorkbookTest, RepeatsAHeadInTheFirstRowToo)
{
    const QString titles = QStringLiteral("_xlnm.Print_Titles");
    EXPECT_EQ(Printed({.headRow = 0}).DefinedName(titles), QStringLiteral("Sheet1!$1:$1"));
    EXPECT_EQ(Printed({}).DefinedName(titles), QString());
}

TEST_F(WorkbookTest, BeginsItsPagesWhereItIsTold)
{
    const WorkbookReader sheet = Printed({.percent = 80, .newPage = {5, 9, 30}});
    EXPECT_EQ(sheet.Attribute(QStringLiteral("rowBreaks"), QStringLiteral("count")), QStringLiteral("3"));
    EXPECT_EQ(sheet.Attribute(QStringLiteral("brk"), QStringLiteral("id")), QStringLiteral("30"));
    EXPECT_EQ(sheet.Attribute(QStringLiteral("pageSetup"), QStringLiteral("scale")), QStringLiteral("80"));
    EXPECT_EQ(Printed({}).Attribute(QStringLiteral("rowBreaks"), QStringLiteral("count")), QString());
}

TEST_F(WorkbookTest, KnowsTheRoomOfAPage)
{
    // A4, with half an inch at the sides, 0.6 above and 0.75 below.
    EXPECT_EQ(Workbook::PrintableArea(false), QSizeF(595 - 72, 842 - 1.35 * 72));
    EXPECT_EQ(Workbook::PrintableArea(true), QSizeF(842 - 72, 595 - 1.35 * 72));
}

TEST_F(WorkbookTest, CountsABoundColumnInTheDigitsThatFitBetweenItsEdges)
{
    constexpr double Digit = 6.36;
    EXPECT_DOUBLE_EQ(Workbook::ColumnLetters(10 * Digit), 10 - 5.0 / 7);
}

TEST(SheetFileTest, TheFileThatTookTheNumberOfAClosedOneIsLeftAlone)
{
    std::FILE* taken = nullptr;
    {
        std::FILE* rows = std::tmpfile();
        ASSERT_NE(rows, nullptr);
        const int number = fileno(rows);
        const SheetFile sheet(rows);
        std::fclose(rows);
        taken = std::tmpfile();
        ASSERT_NE(taken, nullptr);
        ASSERT_EQ(fileno(taken), number);
    }
    EXPECT_NE(std::fputs("still open", taken), EOF);
    EXPECT_EQ(std::fclose(taken), 0);
}

} // namespace
} // namespace tally::test
