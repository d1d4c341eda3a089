// The output side of the screen: the four orders, the summary, saving and exporting. The selection side is in
// frmRankCalculation.cpp.

#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "ranks/frmRankCalculation.h"
#include "ranks/RankViews.h"
#include "reports/output/ExportGridToExcel.h"
#include "ui_frmRankCalculation.h"

#include <QFrame>
#include <QHeaderView>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace tally {

namespace {

CellMark MarkOf(CellFlag flag)
{
    switch (flag) {
    case CellFlag::NotTaken: return CellMark::NotTakenForRank;
    case CellFlag::FailedOrAbsent: return CellMark::FailedOrAbsent;
    case CellFlag::None: break;
    }
    return CellMark::None;
}

/// It lies over the list, so Tab goes round within it instead of to what is behind it.
class SummaryPanel : public QFrame
{
public:
    using QFrame::QFrame;

protected:
    bool focusNextPrevChild(bool next) override
    {
        for (auto* control : findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (!control->hasFocus()) {
                control->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
                return true;
            }
        return false;
    }
};

} // namespace

void frmRankCalculation::BuildSummaryPanel()
{
    Frame5_ = new SummaryPanel(this);
    Frame5_->setObjectName(QStringLiteral("Frame5"));
    Frame5_->setProperty("floating", true);
    msgGrade_ = new FlexGrid(Frame5_);
    msgGrade_->setObjectName(QStringLiteral("msgGrade"));
    msgGrade_->setAccessibleName(QStringLiteral("Total details"));
    msgGrade_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    msgGrade_->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    cmdClose_ = new QPushButton(QStringLiteral("Close"), Frame5_);
    cmdClose_->setObjectName(QStringLiteral("cmdClose"));
    cmdClose_->setIcon(LookIcon(QStringLiteral("close")));
    auto* layout = new QVBoxLayout(Frame5_);
    layout->addWidget(msgGrade_);
    layout->addWidget(cmdClose_, 0, Qt::AlignRight);
    Frame5_->hide();
}

void frmRankCalculation::cmdView_Click()
{
    if (!table_.IsPrepared())
        return;
    Read([this] {
        const HourGlass hourGlass;
        ShowView(ReadView());
    });
}

RankView frmRankCalculation::ReadView()
{
    const std::vector<int> divisionCodes = ui_->Lstdivision->TickedData();
    const RankOrder order = Order();
    std::vector<QString> grades;
    if (order == RankOrder::Grade)
        grades = Repository().LoadGradesInOrder(Scope(), divisionCodes);
    return table_.Read([&](TempRankRepository& working) {
        return ShowRankList(working, divisionCodes, table_.List().subjects, order, grades, Display());
    });
}

void frmRankCalculation::ShowView(const RankView& view)
{
    std::vector<FlexGrid::Row> rows(static_cast<std::size_t>(view.Rows()));
    for (int row = 0; row < view.Rows(); ++row) {
        FlexGrid::Row& cells = rows[static_cast<std::size_t>(row)];
        cells.reserve(static_cast<std::size_t>(view.Cols()));
        const bool sums = row == view.AverageRow();
        for (int col = 0; col < view.Cols(); ++col)
            cells.push_back({view.Text(row, col), sums ? CellMark::Sum : MarkOf(view.Flag(row, col))});
    }
    FlexGrid* grid = ui_->msgDisplayDetails;
    const int currentCol = grid->CurrentCol();
    const int across = grid->horizontalScrollBar()->value();
    grid->SetContent(std::move(rows));
    for (int col = 0; col < view.Cols(); ++col) {
        grid->SetColHidden(col, view.ColumnHidden(col));
        const bool number = col >= RankView::FirstSubjectColumn && col < view.Cols() - 1;
        grid->SetColAlignment(col,
                              number ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    }
    for (int row = 1; row < view.Rows() && row <= RankView::FirstStudentRow; ++row)
        if (RankView::RowHidden(row))
            grid->SetRowHeight(row, 0);
    grid->FitColumns();
    // A list in another order is read from its top, in the columns that the user was looking at.
    grid->SetCurrentCell(RankView::FirstStudentRow, currentCol);
    grid->horizontalScrollBar()->setValue(across);
}

void frmRankCalculation::LoadGradeSummary(const RankView& view, const RankInput& input)
{
    std::vector<DivisionFullMark> fullMarks;
    const auto ticked = ui_->Lstdivision->TickedIndexes();
    for (std::size_t i = 0; i < input.fullMarks.size(); ++i)
        fullMarks.push_back(
            {ui_->Lstdivision->item(ticked[static_cast<qsizetype>(i)])->text(), input.fullMarks[i]});

    std::vector<FlexGrid::Row> rows(1, FlexGrid::Row(4));
    for (const GradeSummaryRow& texts :
         tally::LoadGradeSummary(view, input.grades, ui_->cboClass->currentText(), fullMarks)) {
        FlexGrid::Row row;
        for (const QString& text : texts)
            row.push_back({text, CellMark::None});
        rows.push_back(std::move(row));
    }
    msgGrade_->SetContent(std::move(rows));
    msgGrade_->SetRowHeight(0, 0);
    msgGrade_->SetColHidden(3, true);
    for (const int col : {1, 2})
        msgGrade_->SetColAlignment(col, Qt::AlignRight | Qt::AlignVCenter);
    msgGrade_->FitColumns();
    msgGrade_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
}

void frmRankCalculation::cmdTotalDetails_Click()
{
    PlaceSummaryPanel();
    Frame5_->show();
    Frame5_->raise();
    ui_->fraMain->setEnabled(false);
    ui_->Frame4->setEnabled(false);
    ui_->cmdTotalDetails->setEnabled(false);
    cmdClose_->setFocus();
}

void frmRankCalculation::cmdClose_Click()
{
    Frame5_->hide();
    ui_->fraMain->setEnabled(true);
    ui_->Frame4->setEnabled(true);
    ui_->cmdTotalDetails->setEnabled(true);
    ui_->cmdTotalDetails->setFocus();
}

void frmRankCalculation::resizeEvent(QResizeEvent* event)
{
    Screen::resizeEvent(event);
    PlaceSummaryPanel();
}

void frmRankCalculation::PlaceSummaryPanel()
{
    // As high as its lines; more of them than the form has room for scroll.
    const QSize size(std::min(460, width() - 4 * LookUnit),
                     std::min(Frame5_->sizeHint().height(), height() - 4 * LookUnit));
    Frame5_->setGeometry(QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size));
}

void frmRankCalculation::cmdSave_Click()
{
    std::vector<RankTotal> totals;
    const bool saved =
        Read([&] {
            totals = table_.Read([](TempRankRepository& working) { return working.LoadRankTotals(); });
        }) &&
        Write(Conflict::Describe, [&](store::Transaction& transaction) {
            RankRepository::ReplaceRankTotals(transaction, Scope(), ui_->Lstdivision->TickedData(), totals);
        });
    if (!saved)
        return;
    Prompts::Information(QStringLiteral("Record Saved"));
    ui_->cmdSave->setEnabled(false);
}

void frmRankCalculation::cmdExport_Click()
{
    if (!MayUse(Right::Print))
        return;
    QStringList divisions;
    for (const int index : ui_->Lstdivision->TickedIndexes())
        divisions.append(ui_->Lstdivision->item(index)->text());
    ExportReport(*ui_->msgDisplayDetails, QStringLiteral("Rank List"),
                 QStringLiteral("Exam Name :") + ui_->Cboexamname->currentText().trimmed() +
                     QStringLiteral("  Class :") + ui_->cboClass->currentText().trimmed() +
                     QStringLiteral(" Division :") + divisions.join(QLatin1Char(',')));
}

} // namespace tally
