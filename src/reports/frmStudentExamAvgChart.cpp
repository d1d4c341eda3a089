#include "reports/frmStudentExamAvgChart.h"

#include "core/Numbers.h"
#include "core/ui/look/Look.h"
#include "reports/ChartDrawing.h"
#include "reports/output/PrintPreview.h"
#include "ui_frmStudentExamAvgChart.h"

#include <QAction>
#include <QPagedPaintDevice>
#include <QPainter>

namespace tally {

namespace {

/// That of the report which most charts come from.
constexpr int HelpScreenNo = 25;

/// All values in words, for who cannot see the chart.
QString Spoken(const ChartTable& table)
{
    QStringList lines;
    for (const ChartTable::Row& row : table.rows) {
        QStringList values;
        for (qsizetype series = 0; series < table.series.size(); ++series)
            values.append(table.series[series] + u' ' +
                          PlainNumber(row.values[static_cast<std::size_t>(series)]));
        lines.append(row.label + QStringLiteral(": ") + values.join(QStringLiteral(", ")));
    }
    return lines.join(u'\n');
}

/// The chart on the whole of one page. Its letters are as large there as those of a list. False when the
/// paper does not take it.
bool PaintPage(QPagedPaintDevice& paper, const Chart& chart)
{
    constexpr double UnitsPerInch = 80;
    QPainter painter;
    if (!painter.begin(&paper))
        return false;
    const QSizeF dots(paper.width(), paper.height());
    PaintChart(painter, QRectF(QPointF(), dots), chart, dots * (UnitsPerInch / paper.logicalDpiX()));
    return painter.end();
}

} // namespace

frmStudentExamAvgChart::frmStudentExamAvgChart()
    : Screen(QStringLiteral("frmStudentExamAvgChart"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmStudentExamAvgChart>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdClose);
    connect(ui_->cmdPrint, &QPushButton::clicked, this, &frmStudentExamAvgChart::cmdPrint_Click);
    auto* print = new QAction(QStringLiteral("Print..."), this);
    print->setShortcut(QKeySequence::Print);
    print->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(print, &QAction::triggered, this, &frmStudentExamAvgChart::cmdPrint_Click);
    addAction(print);
    ui_->mscChart->addAction(print);
}

frmStudentExamAvgChart::~frmStudentExamAvgChart() = default;

void frmStudentExamAvgChart::ShowChart(const ChartTable& table, const ChartHeads& heads, ChartKind kind)
{
    ui_->mscChart->SetChart({table, heads, kind});
    ui_->mscChart->setAccessibleName(QStringLiteral("Chart: ") + heads.title);
    ui_->mscChart->setAccessibleDescription(Spoken(table));
}

void frmStudentExamAvgChart::cmdPrint_Click()
{
    const Chart& chart = ui_->mscChart->ShownChart();
    ShowPrintPreview({chart.heads.title, QPageLayout::Landscape,
                      [chart](QPagedPaintDevice& paper) { return PaintPage(paper, chart); }});
}

QSize frmStudentExamAvgChart::sizeHint() const
{
    // As much of the chart as most displays can show; a smaller one bounds it.
    return {1100, 760};
}

} // namespace tally
