#pragma once

#include "core/school/SchoolListRepository.h"
#include "core/ui/Screen.h"
#include "exams/MarkRepository.h"
#include "exams/MarkSheet.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Ui {
class frmexammarkentry;
}

namespace tally {

class DataCombo;
class FloatingCombo;
class FloatingEditor;

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
    void Form_Activate(bool first) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void BuildGrid();
    void BuildBoxes();
    void ConnectHandlers();

    void LoadExam();
    void LoadClass();
    void LoadDivision();
    void LoadSubject();
    void LoadStudent();
    void cmdAddExam_Click();
    void NoteOpenExamMaster();
    void dbcExam_Change();
    void cboClass_Click();
    void cboDivision_Click();
    /// True for a key that the list itself does not get.
    bool cboDivision_KeyPress(int key);
    void Optsubject_Click();
    void Optstudent_Click();
    void List_Change();
    bool List_Validate();
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdSave_Click();
    void cmdCancel_Click();

    void msgDetails_Click(int row, int col);
    bool msgDetails_Wheel(const QWheelEvent* event);
    void txtmarkobtained_Change(const QString& text);
    void txtmarkobtained_Enter();
    void cboPresentAbsent_MouseDown();
    void cboPresentAbsent_Click();
    void cboPresentAbsent_Enter();
    void ShowEntryControl(MarkField field, int row);
    /// The row gets what it held before a box was opened over it.
    void TakeBack(int row);
    void HideEntryControls();
    /// Tells what the step has to tell and goes where it leads.
    void Take(const MarkStep& step);
    void ShowAverage();

    SchoolListRepository Lists() const;
    MarkRepository Marks() const;
    MarkScope Scope() const;
    /// The list of the mode in which marks are entered.
    DataCombo* List() const;
    /// Chooses nothing in the list of the mode.
    void EmptyList();
    void EmptyMarks();
    /// Nothing to choose from in either list.
    void EmptyLists();
    /// Reads a list and its rows, both or none. Tells why it can't.
    void ReadList(const std::function<void()>& work);
    /// Both lists without a choice; only that of `mode` can be used.
    void UseMode(MarkMode mode);
    void ListStudents();
    /// The rows of the chosen subject anew, without the relieved students; all as it was on false.
    bool ListStudentsForEdit();
    /// Shows what is stored for the choice. `subject` brings its limits and its teacher; none in student
    /// mode, and for a subject that the class has given up, where those shown before stay.
    void TakeStored(const std::optional<MarkSubject>& subject, const std::vector<StoredMark>& stored);
    void ResetGrid();
    void ShowRow(int row);
    /// All rows for another choice. Closes the boxes, so it is nothing for while a mark is typed.
    void ShowRows();
    /// A subject or a student is chosen in the list. Asks for it where none is.
    bool IsChosen();
    /// Everything that a save asks for is there. Says what is missing and takes the user to it.
    bool IsReady();

    std::unique_ptr<Ui::frmexammarkentry> ui_;
    FloatingEditor* txtmarkobtained_ = nullptr;
    FloatingEditor* txtpresentorabsent_ = nullptr;
    FloatingCombo* cboPresentAbsent_ = nullptr;

    MarkSheet sheet_;
    MarkRow opened_; ///< the row as it was when a box was opened over it
    bool EditMode_ = false;
    bool MarksExist_ = false;  ///< the subject or student that was chosen last has marks in this exam
    bool examsOpened_ = false; ///< the exam master was opened from here, and exams may have been added
    int wheelTurned_ = 0; ///< the part of a notch that has not moved the rows yet, in eighths of a degree
};

} // namespace tally
