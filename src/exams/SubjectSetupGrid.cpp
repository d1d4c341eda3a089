#include "exams/SubjectSetupGrid.h"

#include "core/ui/controls/CellEditors.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingCombo.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/FormKeys.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <functional>
#include <utility>

namespace tally {

namespace {

/// As many digits as the largest figure that an office would count in.
constexpr int LongestMark = 6;
constexpr int LongestOrder = 5;
constexpr int LongestName = 100;

bool IsNamed(const DataCombo* list, int index, const QString& name)
{
    return index >= 0 && list->itemText(index).trimmed().compare(name, Qt::CaseInsensitive) == 0;
}

/// The entry that a text names; of several with the same name the one that is chosen. -1 for none.
int EntryOf(const DataCombo* list, const QString& text)
{
    const QString name = text.trimmed();
    if (IsNamed(list, list->currentIndex(), name))
        return list->currentIndex();
    for (int index = 0; index < list->count(); ++index)
        if (IsNamed(list, index, name))
            return index;
    return -1;
}

/// Whether a longer name begins with the text, to which its typist may still be on the way.
bool MayGoOn(const DataCombo* list, const QString& text)
{
    const QString name = text.trimmed();
    for (int index = 0; index < list->count(); ++index) {
        const QString entry = list->itemText(index).trimmed();
        if (entry.size() > name.size() && entry.startsWith(name, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

struct Named
{
    int code; ///< 0 for a name that no entry has
    QString name;
};

/// The entry that a text names. Another client may have renamed what stands in the cell: untouched, it stays
/// what it is, though no entry has its name, or another one.
Named EntryFor(const DataCombo* list, const QString& text, const Named& cell)
{
    if (cell.code != 0 && text == cell.name && !IsNamed(list, list->currentIndex(), text))
        return cell;
    const int entry = EntryOf(list, text);
    return entry < 0 ? Named{0, text} : Named{list->itemData(entry).toInt(), list->itemText(entry).trimmed()};
}

/// Shows what stands in a cell: of several with the same name the one that it is.
void ShowIn(FloatingCombo* list, const Named& cell)
{
    if (cell.code == 0)
        return;
    list->SetBoundCode(cell.code);
    list->setEditText(cell.name);
    list->SelectText();
}

} // namespace

SubjectSetupGrid::SubjectSetupGrid(FlexGrid* grid, SubjectSetupSheet& sheet, QWidget* form,
                                   QList<QWidget*> free)
    : QObject(form), grid_(grid), sheet_(sheet), free_(std::move(free)), boxes_(new CellEditors(form))
{
    grid->Show(sheet.Table());
    grid->setProperty(TakesEnter, true);
    BuildLists();
    BuildTexts();
    boxes_->SetTakeBack([this](int row) {
        return [this, row, before = sheet_.Row(row)] {
            sheet_.PutBack(row, before);
            ShowRow(row);
        };
    });
}

void SubjectSetupGrid::BuildLists()
{
    using Self = SubjectSetupGrid;
    dbcSubject_ = boxes_->AddList(grid_, {},
                                  {.column = SubjectColumn::Subject,
                                   .name = "dbcSubject",
                                   .filter = &KeyAllButQuote,
                                   .maxLength = LongestName,
                                   .typed = std::bind_front(&Self::dbcSubject_Change, this),
                                   .enter = std::bind_front(&Self::dbcSubject_Enter, this),
                                   .leave = std::bind_front(&Self::dbcSubject_Validate, this)});
    dbcTeacher_ = boxes_->AddList(grid_, {},
                                  {.column = SubjectColumn::Teacher,
                                   .name = "dbcTeacher",
                                   .filter = &KeyAllButQuote,
                                   .maxLength = LongestName,
                                   .typed = std::bind_front(&Self::dbcTeacher_Change, this),
                                   .enter = std::bind_front(&Self::dbcTeacher_Enter, this),
                                   .leave = std::bind_front(&Self::dbcTeacher_Validate, this)});
}

void SubjectSetupGrid::BuildTexts()
{
    using Self = SubjectSetupGrid;
    txtmaximummark_ = boxes_->AddText(
        grid_, {.column = SubjectColumn::MaximumMark,
                .name = "txtmaximummark",
                .filter = &KeyNumeric,
                .maxLength = LongestMark,
                .typed = std::bind_front(&Self::txtmaximummark_Change, this),
                .enter = [this](int row, const QString&) { Take(sheet_.EnterMaximumMark(row)); }});
    // Behind the filter of the box, and therefore asked before it.
    txtmaximummark_->installEventFilter(this);
    TxtMaximumAllowed_ = boxes_->AddText(
        grid_, {.column = SubjectColumn::MaximumAllowed,
                .name = "TxtMaximumAllowed",
                .filter = &KeyNumeric,
                .maxLength = LongestMark,
                .typed = std::bind_front(&Self::TxtMaximumAllowed_Change, this),
                .enter = [this](int row, const QString&) { TxtMaximumAllowed_Enter(row); },
                .leave = [this](int row, const QString&) { return TxtMaximumAllowed_Validate(row); }});
    cboRankYesNo_ =
        boxes_->AddList(grid_, {QStringLiteral(" "), YesText, NoText},
                        {.column = SubjectColumn::TakenForRank,
                         .name = "cboRankYesNo",
                         .filter = &KeyAlpha,
                         .maxLength = 3,
                         .typed = std::bind_front(&Self::cboRankYesNo_Click, this),
                         .enter = std::bind_front(&Self::cboRankYesNo_Enter, this),
                         .leave = [this](int, const QString& text) {
                             return GivesUp() ? QString() : SubjectSetupSheet::RefusalOfRank(text);
                         }});
    txtOrder_ =
        boxes_->AddText(grid_, {.column = SubjectColumn::Order,
                                .name = "txtOrder",
                                .filter = &KeyNumeric,
                                .maxLength = LongestOrder,
                                .typed = std::bind_front(&Self::txtOrder_Change, this),
                                .enter = [this](int row, const QString&) { txtOrder_Enter(row); },
                                .leave = [this](int row, const QString&) { return txtOrder_Validate(row); }});
}

void SubjectSetupGrid::SetSubjects(const CodedTexts& subjects)
{
    Close();
    dbcSubject_->SetList(subjects);
    sheet_.RenameSubjects(subjects);
    ShowNames();
}

void SubjectSetupGrid::SetTeachers(const CodedTexts& teachers)
{
    Close();
    dbcTeacher_->SetList(teachers);
    sheet_.RenameTeachers(teachers);
    ShowNames();
}

void SubjectSetupGrid::ShowNames()
{
    for (int row = 1; row <= sheet_.RowCount(); ++row)
        ShowRow(row);
}

void SubjectSetupGrid::ShowRows()
{
    // A box would stand over a row that is no longer the one it was opened for, and no row is current.
    Close();
    grid_->SetRows(1);
    grid_->ShowRows(sheet_.Table());
    Q_EMIT Changed();
}

void SubjectSetupGrid::ShowRow(int row)
{
    grid_->ShowRow(row, sheet_.Cells(row));
    Q_EMIT Changed();
}

void SubjectSetupGrid::Open(int row, GridCol column)
{
    if (!sheet_.Opens(row, static_cast<SubjectColumn>(static_cast<int>(column))))
        return;
    boxes_->Open(grid_, row, column);
    const SubjectRow& entry = sheet_.Row(row);
    if (column == GridCol(SubjectColumn::Subject))
        ShowIn(dbcSubject_, {entry.subjectCode, entry.subjectName});
    else if (column == GridCol(SubjectColumn::Teacher))
        ShowIn(dbcTeacher_, {entry.teacherCode, entry.teacherName});
}

void SubjectSetupGrid::Click(int row, GridCol column)
{
    Close();
    const QString refusal = sheet_.RefusalToOpen(row, static_cast<SubjectColumn>(static_cast<int>(column)));
    if (refusal.isEmpty())
        Open(row, column);
    else
        Prompts::Information(refusal);
}

void SubjectSetupGrid::Close()
{
    boxes_->Close();
}

void SubjectSetupGrid::Take(const SubjectStep& step)
{
    if (!step.message.isEmpty())
        Prompts::Information(step.message);
    if (step.row > 0)
        Open(step.row, step.column);
}

bool SubjectSetupGrid::GivesUp() const
{
    return free_.contains(QApplication::focusWidget());
}

void SubjectSetupGrid::SetSubject(int row, const QString& text)
{
    const SubjectRow& entry = sheet_.Row(row);
    const Named named = EntryFor(dbcSubject_, text, {entry.subjectCode, entry.subjectName});
    if (named.code != entry.subjectCode || named.name != entry.subjectName)
        sheet_.SetSubject(row, named.code, named.name);
}

void SubjectSetupGrid::dbcSubject_Change(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    SetSubject(row, text);
    // Only a typed text can go on; what was taken from the list is meant as it is. A list that is being left
    // takes the entry that was typed, and is judged by its leaving.
    const bool isTaken =
        !dbcSubject_->lineEdit()->isModified() && dbcSubject_->window()->focusWidget() == dbcSubject_;
    const bool mayGoOn = !isTaken && MayGoOn(dbcSubject_, text);
    const QString refusal = mayGoOn ? QString() : sheet_.DropRepeatedSubject(row);
    ShowRow(row);
    if (refusal.isEmpty())
        return;
    // Before the box, which takes the keyboard: a text that is being left would be chosen once more.
    EmptySubject();
    Prompts::Information(refusal);
}

void SubjectSetupGrid::EmptySubject()
{
    dbcSubject_->TakeBack();
    dbcSubject_->setEditText(QString());
}

void SubjectSetupGrid::dbcSubject_Enter(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    SetSubject(row, text);
    const SubjectStep step = sheet_.EnterSubject(row);
    ShowRow(row);
    if (!sheet_.Row(row).IsNamed())
        EmptySubject();
    Take(step);
    if (step.row == 0)
        dbcSubject_->SelectText();
}

QString SubjectSetupGrid::dbcSubject_Validate(int row, const QString& text)
{
    if (!sheet_.HasRow(row) || GivesUp())
        return {};
    SetSubject(row, text);
    QString refusal = sheet_.DropRepeatedSubject(row);
    ShowRow(row);
    if (!refusal.isEmpty())
        EmptySubject();
    return refusal;
}

void SubjectSetupGrid::SetTeacher(int row, const QString& text)
{
    const SubjectRow& entry = sheet_.Row(row);
    const Named named = EntryFor(dbcTeacher_, text, {entry.teacherCode, entry.teacherName});
    sheet_.SetTeacher(row, named.code, named.name);
}

void SubjectSetupGrid::dbcTeacher_Change(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    SetTeacher(row, text);
    ShowRow(row);
}

void SubjectSetupGrid::dbcTeacher_Enter(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    SetTeacher(row, text);
    ShowRow(row);
    const SubjectStep step = sheet_.EnterTeacher(row);
    Take(step);
    if (step.row == 0)
        dbcTeacher_->SelectText();
}

QString SubjectSetupGrid::dbcTeacher_Validate(int row, const QString& text)
{
    // The list completes a name behind what was typed.
    dbcTeacher_Change(row, text);
    return {};
}

void SubjectSetupGrid::txtmaximummark_Change(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    sheet_.SetMaximumMark(row, text);
    ShowRow(row);
}

void SubjectSetupGrid::TxtMaximumAllowed_Change(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    const QString refusal = sheet_.SetMaximumAllowed(row, text);
    ShowRow(row);
    if (refusal.isEmpty())
        return;
    Prompts::Information(refusal);
    TxtMaximumAllowed_->clear();
}

void SubjectSetupGrid::TxtMaximumAllowed_Enter(int row)
{
    if (!sheet_.HasRow(row))
        return;
    const SubjectStep step = sheet_.EnterMaximumAllowed(row);
    ShowRow(row);
    Take(step);
    if (!step.message.isEmpty())
        TxtMaximumAllowed_->clear();
}

QString SubjectSetupGrid::TxtMaximumAllowed_Validate(int row)
{
    return sheet_.HasRow(row) && !GivesUp() ? sheet_.RefusalOfMaximumAllowed(row) : QString();
}

void SubjectSetupGrid::cboRankYesNo_Click(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    sheet_.SetTakenForRank(row, text);
    ShowRow(row);
}

void SubjectSetupGrid::cboRankYesNo_Enter(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    const SubjectStep step = sheet_.EnterTakenForRank(row, text);
    ShowRow(row);
    Take(step);
}

void SubjectSetupGrid::txtOrder_Change(int row, const QString& text)
{
    if (!sheet_.HasRow(row))
        return;
    sheet_.SetOrder(row, text);
    ShowRow(row);
}

void SubjectSetupGrid::txtOrder_Enter(int row)
{
    if (!sheet_.HasRow(row))
        return;
    const int rows = sheet_.RowCount();
    const SubjectStep step = sheet_.EnterOrder(row);
    if (sheet_.RowCount() > rows)
        ShowRows();
    else
        ShowRow(row);
    Take(step);
    if (!step.message.isEmpty())
        txtOrder_->SelectText();
}

QString SubjectSetupGrid::txtOrder_Validate(int row)
{
    if (!sheet_.HasRow(row) || GivesUp())
        return {};
    QString refusal = sheet_.DropRepeatedOrder(row);
    if (!refusal.isEmpty()) {
        ShowRow(row);
        txtOrder_->clear();
    }
    return refusal;
}

bool SubjectSetupGrid::eventFilter(QObject*, QEvent* event)
{
    // A letter among the digits is a slip of the fingers, and the number is begun anew.
    if (event->type() == QEvent::KeyPress && IsDropped(static_cast<QKeyEvent*>(event), &KeyNumeric)) {
        txtmaximummark_->clear();
        txtmaximummark_Change(txtmaximummark_->Row(), {});
    }
    return false;
}

} // namespace tally
