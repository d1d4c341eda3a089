#include "exams/MarkGrid.h"

#include "core/ui/controls/CellEditors.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingCombo.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/FormKeys.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"

#include <QEvent>

namespace tally {

namespace {

constexpr double HighestMark = 999.99;

/// Cuts decimals that no mark has and empties a box whose number no mark reaches.
void KeepMarkLimit(FloatingEditor* box)
{
    QString before;
    do {
        // One digit at a time; a pasted text may have more.
        before = box->text();
        if (CheckMarkLimit(box, 2, HighestMark, QStringLiteral("Mark Obtained")))
            box->clear();
    } while (box->text() != before);
}

} // namespace

MarkGrid::MarkGrid(FlexGrid* grid, MarkSheet& sheet, QWidget* form)
    : QObject(form), grid_(grid), sheet_(sheet), boxes_(new CellEditors(form))
{
    grid->Show(sheet.Table());
    grid->setProperty(TakesEnter, true);
    txtmarkobtained_ =
        boxes_->AddText(grid, {.column = MarkColumn::Mark,
                               .name = "txtmarkobtained",
                               .filter = &KeyNumericDecimal,
                               .maxLength = 7,
                               .typed = std::bind_front(&MarkGrid::txtmarkobtained_Change, this),
                               .enter = std::bind_front(&MarkGrid::txtmarkobtained_Enter, this)});
    cboPresentAbsent_ = boxes_->AddList(grid, {PresentText, AbsentText},
                                        {.column = MarkColumn::Presence,
                                         .name = "cboPresentAbsent",
                                         .filter = &KeyAlpha,
                                         .maxLength = 7,
                                         .typed = std::bind_front(&MarkGrid::cboPresentAbsent_Click, this),
                                         .enter = std::bind_front(&MarkGrid::cboPresentAbsent_Enter, this)});
    auto* second = boxes_->AddText(
        grid,
        {.column = MarkColumn::Presence, .name = "txtpresentorabsent", .enter = [](int, const QString&) {}});
    connect(second, &FloatingEditor::Typed, second,
            [second](const QString& text) { second->setText(text.toUpper()); });
    for (QWidget* part : std::initializer_list<QWidget*>{cboPresentAbsent_, cboPresentAbsent_->lineEdit()})
        part->installEventFilter(this);
    boxes_->SetTakeBack([this](int row) {
        return [this, row, before = sheet_.Row(row)] {
            sheet_.PutBack(row, before);
            ShowRow(row);
        };
    });
}

void MarkGrid::ShowRows()
{
    // A box would stand over a row that is no longer the one it was opened for, and no row is current.
    Close();
    grid_->SetRows(1);
    grid_->ShowRows(sheet_.Table());
}

void MarkGrid::ShowRow(int row)
{
    grid_->ShowRow(row, sheet_.Cells(row));
}

void MarkGrid::Open(int row, GridCol column)
{
    if (sheet_.HasRow(row))
        boxes_->Open(grid_, row, column);
}

void MarkGrid::Close()
{
    boxes_->Close();
}

void MarkGrid::Take(const MarkStep& step)
{
    if (!step.message.isEmpty())
        Prompts::Information(step.message);
    if (step.row > 0) {
        Open(step.row, step.column);
        return;
    }
    Close();
    Q_EMIT AllEntered();
}

void MarkGrid::txtmarkobtained_Change(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    const QString refusal = sheet_.RefusalWhileTyping(row, text);
    if (refusal.isEmpty()) {
        KeepMarkLimit(txtmarkobtained_);
    } else {
        Prompts::Information(refusal);
        txtmarkobtained_->clear();
    }
    sheet_.SetMark(row, txtmarkobtained_->text());
    ShowRow(row);
}

void MarkGrid::txtmarkobtained_Enter(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    const MarkStep step = sheet_.EnterMark(row, text);
    ShowRow(row);
    // A mark of 0 says nothing yet: whether it counts is declared next.
    if (step.column != MarkColumn::Presence)
        Q_EMIT MarkEntered();
    Take(step);
}

void MarkGrid::cboPresentAbsent_MouseDown()
{
    if (cboPresentAbsent_->IsBlank())
        Prompts::Information(QStringLiteral("Select Present/Absent"));
}

void MarkGrid::cboPresentAbsent_Click(int row, const QString& text)
{
    // A word that is none is refused by Enter; until then the row keeps what it has.
    if (!sheet_.HasRow(row) || !MarkSheet::IsPresence(text))
        return;
    sheet_.SetPresence(row, text);
    ShowRow(row);
}

void MarkGrid::cboPresentAbsent_Enter(int row, const QString& text)
{
    if (cboPresentAbsent_->IsBlank() || !sheet_.HasRow(row))
        return;
    const MarkStep step = sheet_.EnterPresence(row, text);
    if (step.column == MarkColumn::Presence) {
        // What was typed stays in the box to be mended.
        Prompts::Information(step.message);
        return;
    }
    ShowRow(row);
    Take(step);
}

bool MarkGrid::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        cboPresentAbsent_MouseDown();
    return false;
}

} // namespace tally
