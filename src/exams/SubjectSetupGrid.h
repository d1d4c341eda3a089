#pragma once

#include "core/CodedTexts.h"
#include "exams/SubjectSetupSheet.h"

#include <QList>
#include <QObject>

namespace tally {

class CellEditors;
class FlexGrid;
class FloatingCombo;
class FloatingEditor;

/// Shows a sheet in the grid of the set-up screen and edits it in boxes over the grid.
class SubjectSetupGrid : public QObject
{
    Q_OBJECT

public:
    /// `sheet` must outlive the grid. Lives as long as `form`. Who goes to one of `free` gives up, and no box
    /// keeps him.
    SubjectSetupGrid(FlexGrid* grid, SubjectSetupSheet& sheet, QWidget* form, QList<QWidget*> free);

    CellEditors* Boxes() const { return boxes_; }
    /// What can be chosen, behind a blank line, and what the rows call it from then on. Closes the boxes;
    /// the cell keeps what was typed.
    void SetSubjects(const CodedTexts& subjects);
    void SetTeachers(const CodedTexts& teachers);

    /// All rows anew. Closes the boxes, so it is nothing for while something is typed.
    void ShowRows();
    /// The box over a cell; none over one that can't be entered.
    void Open(int row, GridCol column);
    /// The same where the user asks for it: he is told why a cell of a frozen subject does not open.
    void Click(int row, GridCol column);
    void Close();
    /// Tells what the step has to tell and goes where it leads.
    void Take(const SubjectStep& step);

Q_SIGNALS:
    /// Something in the sheet is another one.
    void Changed();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void BuildLists();
    void BuildTexts();
    void dbcSubject_Change(int row, const QString& text);
    void dbcSubject_Enter(int row, const QString& text);
    QString dbcSubject_Validate(int row, const QString& text);
    void dbcTeacher_Change(int row, const QString& text);
    void dbcTeacher_Enter(int row, const QString& text);
    QString dbcTeacher_Validate(int row, const QString& text);
    void txtmaximummark_Change(int row, const QString& text);
    void TxtMaximumAllowed_Change(int row, const QString& text);
    void TxtMaximumAllowed_Enter(int row);
    QString TxtMaximumAllowed_Validate(int row);
    void cboRankYesNo_Click(int row, const QString& text);
    void cboRankYesNo_Enter(int row, const QString& text);
    void txtOrder_Change(int row, const QString& text);
    void txtOrder_Enter(int row);
    QString txtOrder_Validate(int row);
    void ShowRow(int row);
    void ShowNames();
    void SetSubject(int row, const QString& text);
    void SetTeacher(int row, const QString& text);
    /// What was refused is gone from the box too; the arrows go on behind it.
    void EmptySubject();
    /// The focus goes to where nobody is kept.
    bool GivesUp() const;

    FlexGrid* grid_;
    SubjectSetupSheet& sheet_;
    QList<QWidget*> free_;
    CellEditors* boxes_;
    FloatingCombo* dbcSubject_ = nullptr;
    FloatingCombo* dbcTeacher_ = nullptr;
    FloatingEditor* txtmaximummark_ = nullptr;
    FloatingEditor* TxtMaximumAllowed_ = nullptr;
    FloatingCombo* cboRankYesNo_ = nullptr;
    FloatingEditor* txtOrder_ = nullptr;
};

} // namespace tally
