#include "core/ui/controls/DataGrid.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/look/CellPaint.h"
#include "core/ui/look/Look.h"
#include "support/ScreenFixture.h"
#include "support/TableOf.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPaintEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include <cmath>

namespace tally::test {
namespace {

constexpr double ForText = 4.5;
constexpr double ForEdges = 3;

double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other)
{
    const double a = Luminance(one);
    const double b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// A list of marks, wider than its form, with a failed mark and one that is not taken for the rank; and a
/// field beside it that can take the focus. In the light look and in the dark one.
class GridLine : public ScreenFixture, public testing::WithParamInterface<bool>
{
protected:
    static constexpr int Failed = 2;
    static constexpr int NotTaken = 3;
    static constexpr int Plain = 4;
    static constexpr int Current = 5;

    void SetUp() override
    {
        ApplyLook(*qApp, GetParam());
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        rows->addWidget(grid);
        rows->addWidget(field);
        grid->Show(TableOf(std::vector<GridTable::Row>(9, GridTable::Row(12))));
        for (int col = 0; col < 12; ++col)
            grid->SetColWidth(col, 60);
        for (int row = 1; row < 9; ++row) {
            grid->SetMark(row, Failed, CellMark::FailedOrAbsent);
            grid->SetMark(row, NotTaken, CellMark::NotTakenForRank);
        }
        form->resize(500, 320);
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        grid->SetCurrentCell(Current, 1);
    }

    void TearDown() override
    {
        ScreenFixture::TearDown();
        ApplyLook(*qApp, false);
    }

    /// What the eye sees of a cell.
    QImage Cell(int row, int col)
    {
        QCoreApplication::processEvents();
        const QRect cell = grid->CellRect(row, col);
        return grid->grab(cell.translated(grid->viewport()->pos())).toImage();
    }
    QColor Middle(int row, int col)
    {
        const QImage cell = Cell(row, col);
        return cell.pixelColor(cell.rect().center());
    }
    QColor Top(int row, int col)
    {
        const QImage cell = Cell(row, col);
        return cell.pixelColor(cell.width() / 2, 0);
    }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    FlexGrid* grid = new FlexGrid(form);
    QLineEdit* field = new QLineEdit(form);
};

TEST_P(GridLine, TheCurrentRowStandsOutAlongItsWholeLengthWhereverTheFocusIs)
{
    for (QWidget* focused : {static_cast<QWidget*>(grid), static_cast<QWidget*>(field)}) {
        focused->setFocus();
        for (const int col : {0, Plain, Plain + 1}) {
            EXPECT_NE(Middle(Current, col), Middle(Current - 1, col)) << col;
            EXPECT_NE(Middle(Current, col), Middle(Current + 1, col)) << col;
            EXPECT_GE(Contrast(Top(Current, col), Middle(Current, col)), ForEdges) << col;
            EXPECT_GE(Contrast(QApplication::palette().color(QPalette::Text), Middle(Current, col)), ForText);
        }
    }
}

TEST_P(GridLine, AMarkKeepsItsPaintInTheCurrentRowAndWhereItIsSelected)
{
    const QList<std::pair<int, CellMark>> marks{{Failed, CellMark::FailedOrAbsent},
                                                {NotTaken, CellMark::NotTakenForRank}};
    for (const auto& [col, mark] : marks) {
        EXPECT_EQ(Middle(Current, col), CellColor(mark));
        EXPECT_GE(Contrast(Top(Current, col), CellColor(mark)), ForEdges) << "the row's edge is seen there";
        const QImage beside = Cell(Current, col);
        grid->SetCurrentCell(Current, col);
        EXPECT_EQ(Middle(Current, col), CellColor(mark));
        EXPECT_FALSE(Cell(Current, col) == beside) << "which cell is selected is seen as well";
    }
}

TEST_P(GridLine, TheTextOfAMarkAndAnyOtherIsReadOnItsGround)
{
    for (const int col : {Failed, NotTaken, Plain}) {
        grid->SetTextMatrix(Current + 1, col, QStringLiteral("WWW"));
        const QImage cell = Cell(Current + 1, col);
        const QColor ground = cell.pixelColor(1, 1);
        double best = 0;
        for (int x = 0; x < cell.width(); ++x)
            for (int y = 0; y < cell.height(); ++y)
                best = std::max(best, Contrast(cell.pixelColor(x, y), ground));
        EXPECT_GE(best, ForText) << col;
    }
}

TEST_P(GridLine, AMarkWithoutAColourIsSeenByItsLetters)
{
    for (const int row : {Current + 1, Current + 3})
        grid->SetTextMatrix(row, Plain, QStringLiteral("HHH"));
    EXPECT_TRUE(Cell(Current + 1, Plain) == Cell(Current + 3, Plain));
    grid->SetMark(Current + 1, Plain, CellMark::Sum);
    EXPECT_FALSE(Cell(Current + 1, Plain) == Cell(Current + 3, Plain));
}

TEST_P(GridLine, ACellThatIsSelectedBesideTheCurrentRowIsPaintedInOneColour)
{
    grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
    grid->SetTextMatrix(Current - 2, Plain, QStringLiteral("HHH"));
    grid->selectionModel()->select(grid->model()->index(Current - 3, Plain), QItemSelectionModel::Select);
    const QColor accent = grid->palette().color(QPalette::Highlight);
    const QImage cell = Cell(Current - 2, Plain);
    for (const QPoint& point : {QPoint(0, 0), QPoint(1, 1), QPoint(2, 2), cell.rect().bottomRight()})
        EXPECT_EQ(cell.pixelColor(point), accent) << point.x();
}

TEST_P(GridLine, ATextStandsAtTheLeftInTheMiddleOrAtTheRightOfItsColumn)
{
    constexpr int Twips = 1500;
    GridTable table({{.head = QStringLiteral("Name"), .twips = Twips},
                     {.head = QStringLiteral("Sl.No."), .alignment = Qt::AlignCenter, .twips = Twips},
                     {.head = QStringLiteral("Mark"), .alignment = NumberAlignment, .twips = Twips}});
    table.AddRow({{QStringLiteral("HHH")}, {QStringLiteral("HHH")}, {QStringLiteral("HHH")}});
    grid->Show(std::move(table));
    const auto roomBeside = [this](int col) {
        const QImage cell = Cell(1, col);
        const int middle = cell.height() / 2;
        const QColor ground = cell.pixelColor(0, middle);
        std::vector<int> ink;
        for (int x = 0; x < cell.width(); ++x)
            if (cell.pixelColor(x, middle) != ground)
                ink.push_back(x);
        EXPECT_FALSE(ink.empty());
        return ink.empty() ? std::pair(0, 0) : std::pair(ink.front(), cell.width() - ink.back());
    };
    const auto [beforeName, behindName] = roomBeside(0);
    EXPECT_LT(beforeName, 10);
    const auto [beforeNumber, behindNumber] = roomBeside(1);
    EXPECT_NEAR(beforeNumber, behindNumber, 3);
    const auto [beforeMark, behindMark] = roomBeside(2);
    EXPECT_LT(behindMark, 10);
    EXPECT_GT(std::min(behindName, beforeMark), 50);
}

/// What was painted of a widget.
class Painted : public QObject
{
public:
    explicit Painted(QWidget* widget) { widget->installEventFilter(this); }
    QRegion region;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

TEST_P(GridLine, TheLineGoesWithTheKeysAndTheRowBeforeIsAsItWas)
{
    const QColor usual = Middle(Current - 2, Plain);
    const QColor line = Middle(Current, Plain);
    grid->setFocus();
    Settle();
    Painted painted(grid->viewport());
    QTest::keyClick(grid, Qt::Key_Down);
    Settle();
    for (const int row : {Current, Current + 1})
        for (const int col : {0, Plain, Plain + 1})
            for (const QPoint& point :
                 {grid->CellRect(row, col).center(), grid->CellRect(row, col).topLeft()})
                EXPECT_TRUE(painted.region.contains(point)) << row << '/' << col;
    EXPECT_EQ(Middle(Current + 1, Plain), line);
    EXPECT_EQ(Middle(Current, Plain), usual);
}

TEST_P(GridLine, TheHeldColumnShowsTheLineToo)
{
    for (int col = 0; col < grid->Cols(); ++col)
        grid->SetColWidth(col, 90);
    grid->SetFixedCols(1);
    const QImage unheld = Cell(Current, 0);
    grid->horizontalScrollBar()->setValue(300);
    QCoreApplication::processEvents();
    const auto held = [this](int row) {
        const QRect cell(0, grid->CellRect(row, 0).top(), 80, grid->CellRect(row, 0).height());
        return grid->grab(cell.translated(grid->viewport()->pos())).toImage();
    };
    EXPECT_TRUE(held(Current) == unheld.copy(0, 0, 80, unheld.height()));
    EXPECT_FALSE(held(Current) == held(Current + 1));
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, GridLine, ::testing::Bool(),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

} // namespace
} // namespace tally::test
