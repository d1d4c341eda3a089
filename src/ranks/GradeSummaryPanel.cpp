#include "ranks/GradeSummaryPanel.h"

#include "core/ui/controls/FlexGrid.h"
#include "core/ui/look/Look.h"

#include <QEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tally {

GradeSummaryPanel::GradeSummaryPanel(QWidget* form)
    : QFrame(form), msgGrade_(new FlexGrid(this)), cmdClose_(new QPushButton(QStringLiteral("Close"), this))
{
    setObjectName(QStringLiteral("Frame5"));
    setProperty("floating", true);
    msgGrade_->setObjectName(QStringLiteral("msgGrade"));
    msgGrade_->setAccessibleName(QStringLiteral("Total details"));
    msgGrade_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    msgGrade_->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    cmdClose_->setObjectName(QStringLiteral("cmdClose"));
    cmdClose_->setIcon(LookIcon(QStringLiteral("close")));
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(msgGrade_);
    rows->addWidget(cmdClose_, 0, Qt::AlignRight);
    connect(cmdClose_, &QPushButton::clicked, this, &GradeSummaryPanel::CloseClicked);
    form->installEventFilter(this);
    hide();
}

void GradeSummaryPanel::ShowSummary(GridTable summary)
{
    msgGrade_->Show(std::move(summary));
}

void GradeSummaryPanel::Open()
{
    Place();
    show();
    raise();
    cmdClose_->setFocus();
}

void GradeSummaryPanel::Place()
{
    // As high as its lines; more of them than the form has room for scroll.
    const QSize room = parentWidget()->size() - QSize(4 * LookUnit, 4 * LookUnit);
    const QSize size = QSize(460, sizeHint().height()).boundedTo(room);
    setGeometry(QRect(
        QPoint((parentWidget()->width() - size.width()) / 2, (parentWidget()->height() - size.height()) / 2),
        size));
}

bool GradeSummaryPanel::focusNextPrevChild(bool next)
{
    for (auto* control : findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (!control->hasFocus()) {
            control->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    return false;
}

bool GradeSummaryPanel::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        Place();
    return QFrame::eventFilter(receiver, event);
}

} // namespace tally
