#pragma once

#include "core/ui/Screen.h"
#include "exams/MarkEntry.h"

#include <memory>

namespace Ui {
class frmexammarkentry;
}

namespace tally {

class DataCombo;
class DivisionChoice;
class MarkGrid;

/// "Classwise Mark Entry": the marks of one exam in one class-division, typed either for one subject student
/// by student, or for one student subject by subject.
class frmexammarkentry : public Screen
{
    Q_OBJECT

public:
    frmexammarkentry();
    ~frmexammarkentry() override;

    QSize sizeHint() const override;

protected:
    QString ExitCaption() const override;
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void ConnectHandlers();

    void LoadExam();
    void dbcExam_Change();
    void cboClass_Click();
    void cboDivision_Click();
    /// True for a key that the list itself does not get.
    bool cboDivision_KeyPress(int key);
    void Optsubject_Click() { ListMode(MarkMode::Subject); }
    void Optstudent_Click() { ListMode(MarkMode::Student); }
    void List_Change();
    bool List_Validate();
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void cmdCancel_Click();
    void msgDetails_Click(int row, int col);

    SchoolScope Scope() const;
    MarkMode Mode() const { return entry_.Sheet().Mode(); }
    /// The list of the mode in which marks are entered.
    DataCombo* List() const;
    /// Chooses nothing in the list of the mode.
    void EmptyList();
    void EmptyMarks();
    /// Nothing to choose from in either list.
    void EmptyLists();
    /// Both lists without a choice; only that of `mode` can be used.
    void UseMode(MarkMode mode);
    /// The same, and what the class-division has to choose from and to list in it.
    void ListMode(MarkMode mode);
    /// The rows of the chosen subject anew; all as it was on false.
    bool ListStudentsForEdit();
    void ResetGrid();
    void ShowRows();
    void ShowAverage();
    /// A subject or a student is chosen in the list. Asks for it where none is.
    bool IsChosen();
    /// Everything that a save asks for is there. Says what is missing and takes the user to it.
    bool IsReady();

    std::unique_ptr<Ui::frmexammarkentry> ui_;
    DivisionChoice* classDivision_ = nullptr;
    MarkEntry entry_;
    MarkGrid* marks_ = nullptr;
    bool EditMode_ = false;
};

} // namespace tally
