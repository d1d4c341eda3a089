#pragma once

#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "support/ScreenFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <string>

namespace tally::test {

/// One screen, driven as the clerk does: its controls are found by their names and answer to real keys.
template <typename Form>
class FormDriver : public ScreenFixture
{
protected:
    void OpenForm(const char* formName)
    {
        form = Open<Form>(formName);
        ASSERT_NE(form, nullptr) << formName;
    }

    QPushButton* Button(const char* name) const { return Find<QPushButton>(form, name); }
    QRadioButton* Option(const char* name) const { return Find<QRadioButton>(form, name); }
    QLineEdit* Box(const char* name) const { return Find<QLineEdit>(form, name); }
    DataCombo* List(const char* name) const { return Find<DataCombo>(form, name); }
    std::string TextOf(const char* name) const { return Box(name)->text().toStdString(); }
    bool IsEnabled(const char* name) const { return Find<QWidget>(form, name)->isEnabled(); }

    /// The object name of the control that has the keyboard within the form; empty for none.
    std::string FocusName() const
    {
        return form->focusWidget() ? form->focusWidget()->objectName().toStdString() : std::string();
    }
    /// The same for a control or any part of it.
    bool HasFocus(const char* name) const
    {
        const auto* control = Find<QWidget>(form, name);
        const QWidget* focused = form->focusWidget();
        return focused && (focused == control || control->isAncestorOf(focused));
    }

    /// Empties the box and types into it.
    void Retype(const char* name, const char* text) const
    {
        Box(name)->setFocus();
        QTest::keyClick(Box(name), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(Box(name), Qt::Key_Delete);
        QTest::keyClicks(Box(name), QString::fromLatin1(text));
    }
    /// Types into whatever has the keyboard, then Enter.
    static void Enter(const char* keys)
    {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(keys));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    /// Walks down a list with the arrow key until it shows `text`.
    static void Choose(QComboBox* list, const QString& text)
    {
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 0; step < list->count() && list->currentText() != text; ++step)
            QTest::keyClick(list, Qt::Key_Down);
        ASSERT_EQ(list->currentText().toStdString(), text.toStdString());
    }
    void Choose(const char* name, const QString& text) const { Choose(List(name), text); }
    /// Toggles an item of a list with boxes with the blank key.
    template <typename CheckedList>
    static void Tick(CheckedList* list, int index)
    {
        list->setFocus();
        list->setCurrentRow(index);
        QTest::keyClick(list, Qt::Key_Space);
    }
    static void Click(const FlexGrid* grid, int row, int col)
    {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                          grid->CellRect(row, col).center());
        Settle();
    }

    /// Saves and expects the word for the result, and no other box.
    void Save(const QString& word = QStringLiteral("Record Saved"))
    {
        prompts.ExpectInformation(word);
        Press(Button("cmdSave"));
        prompts.Verify();
    }
    /// Saves and expects to be told `message` and led to the control.
    void ExpectRefusal(const QString& message, const char* control)
    {
        prompts.ExpectInformation(message);
        Press(Button("cmdSave"));
        prompts.Verify();
        EXPECT_TRUE(HasFocus(control)) << control << ", not " << FocusName();
    }

    Form* form = nullptr;
};

} // namespace tally::test
