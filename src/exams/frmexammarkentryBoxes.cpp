// The boxes that float over the grid: what they accept and where Enter leads.

#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingCombo.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "exams/frmexammarkentry.h"
#include "exams/MarkEntryColumns.h"
#include "ui_frmexammarkentry.h"

#include <algorithm>

namespace tally {

namespace {

constexpr int MarkLength = 7;
constexpr int PresenceLength = 7;
constexpr double HighestMark = 999.99;

bool IsMarkText(const QString& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar letter) { return letter == u'.' || (letter >= u'0' && letter <= u'9'); });
}

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

void frmexammarkentry::BuildBoxes()
{
    FlexGrid* grid = ui_->msgDetails;
    txtmarkobtained_ = new FloatingEditor(grid);
    txtmarkobtained_->setObjectName(QStringLiteral("txtmarkobtained"));
    TakeOnly(txtmarkobtained_, &KeyNumericDecimal, MarkLength);
    cboPresentAbsent_ = new FloatingCombo(grid);
    cboPresentAbsent_->setObjectName(QStringLiteral("cboPresentAbsent"));
    cboPresentAbsent_->addItems({PresentText, AbsentText});
    TakeOnly(cboPresentAbsent_->lineEdit(), &KeyAlpha, PresenceLength);
    for (QWidget* part : std::initializer_list<QWidget*>{cboPresentAbsent_, cboPresentAbsent_->lineEdit()})
        part->installEventFilter(this);
    txtpresentorabsent_ = new FloatingEditor(grid);
    txtpresentorabsent_->setObjectName(QStringLiteral("txtpresentorabsent"));

    using Form = frmexammarkentry;
    connect(txtmarkobtained_, &FloatingEditor::Typed, this, &Form::txtmarkobtained_Change);
    connect(txtmarkobtained_, &FloatingEditor::EnterPressed, this, &Form::txtmarkobtained_Enter);
    connect(txtmarkobtained_, &FloatingEditor::TakenBack, this,
            [this] { TakeBack(txtmarkobtained_->Row()); });
    connect(cboPresentAbsent_, &FloatingCombo::TakenBack, this,
            [this] { TakeBack(cboPresentAbsent_->Row()); });
    connect(cboPresentAbsent_, &DataCombo::Chosen, this, &Form::cboPresentAbsent_Click);
    connect(cboPresentAbsent_, &FloatingCombo::EnterPressed, this, &Form::cboPresentAbsent_Enter);
    connect(txtpresentorabsent_, &FloatingEditor::Typed, txtpresentorabsent_,
            [this](const QString& text) { txtpresentorabsent_->setText(text.toUpper()); });

    QWidget* before = grid;
    for (QWidget* next : std::initializer_list<QWidget*>{txtmarkobtained_, cboPresentAbsent_,
                                                         txtpresentorabsent_, ui_->cmdNew}) {
        setTabOrder(before, next);
        before = next;
    }
}

void frmexammarkentry::msgDetails_Click(int row, int col)
{
    if (!ui_->cmdSave->isEnabled())
        return;
    HideEntryControls();
    if (!IsChosen())
        return;
    if (col == MarkObtainedCol)
        ShowEntryControl(MarkField::Mark, row);
    else if (col == PresentAbsentCol)
        ShowEntryControl(MarkField::Presence, row);
}

void frmexammarkentry::txtmarkobtained_Change(const QString& text)
{
    // What was pasted is heard again as soon as all that is no number has been taken out.
    if (!IsMarkText(text))
        return;
    const int row = txtmarkobtained_->Row();
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

void frmexammarkentry::txtmarkobtained_Enter()
{
    const int row = txtmarkobtained_->Row();
    if (!sheet_.HasRow(row))
        return;
    const MarkStep step = sheet_.EnterMark(row, txtmarkobtained_->text());
    ShowRow(row);
    // A mark of 0 says nothing yet: whether it counts is declared next.
    if (step.field != MarkField::Presence)
        ShowAverage();
    Take(step);
}

void frmexammarkentry::cboPresentAbsent_MouseDown()
{
    if (cboPresentAbsent_->IsBlank())
        Prompts::Information(QStringLiteral("Select Present/Absent"));
}

void frmexammarkentry::cboPresentAbsent_Click()
{
    const int row = cboPresentAbsent_->Row();
    if (!sheet_.HasRow(row))
        return;
    sheet_.SetPresence(row, cboPresentAbsent_->currentText());
    ShowRow(row);
}

void frmexammarkentry::cboPresentAbsent_Enter()
{
    const int row = cboPresentAbsent_->Row();
    if (cboPresentAbsent_->IsBlank() || !sheet_.HasRow(row))
        return;
    const MarkStep step = sheet_.EnterPresence(row, cboPresentAbsent_->currentText());
    if (step.field == MarkField::Presence) {
        // What was typed stays in the box to be mended.
        Prompts::Information(step.message);
        return;
    }
    ShowRow(row);
    Take(step);
}

void frmexammarkentry::Take(const MarkStep& step)
{
    if (!step.message.isEmpty())
        Prompts::Information(step.message);
    if (step.field != MarkField::Save) {
        ShowEntryControl(step.field, step.row);
        return;
    }
    HideEntryControls();
    ui_->cmdSave->setFocus();
}

void frmexammarkentry::ShowEntryControl(MarkField field, int row)
{
    if (!sheet_.HasRow(row))
        return;
    HideEntryControls();
    opened_ = sheet_.Row(row);
    if (field == MarkField::Mark)
        txtmarkobtained_->OpenAt(row, MarkObtainedCol);
    else
        cboPresentAbsent_->OpenAt(row, PresentAbsentCol);
}

void frmexammarkentry::TakeBack(int row)
{
    if (!sheet_.HasRow(row))
        return;
    sheet_.PutBack(row, opened_);
    ShowRow(row);
}

void frmexammarkentry::HideEntryControls()
{
    txtmarkobtained_->Close();
    txtpresentorabsent_->Close();
    cboPresentAbsent_->Close();
}

} // namespace tally
