#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingCombo.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/FormKeys.h"
#include "support/EventCounter.h"
#include "support/ScreenFixture.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace tally::test {
namespace {

/// A form with a list, a grid of fifty rows with both kinds of boxes over it, and a button.
class FloatingBoxes : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        for (QWidget* widget : std::initializer_list<QWidget*>{list, grid, button})
            rows->addWidget(widget);
        list->SetList({{1, QStringLiteral("One")}, {2, QStringLiteral("Two")}});
        grid->SetCols(3);
        grid->SetRows(51);
        grid->SetTextMatrix(2, 1, QStringLiteral(" Absent "));
        combo->addItems({QStringLiteral("Present"), QStringLiteral("Absent")});
        form->resize(500, 300);
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        list->setFocus();
    }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    DataCombo* list = new DataCombo(form);
    FlexGrid* grid = new FlexGrid(form);
    FloatingEditor* editor = new FloatingEditor(grid);
    FloatingCombo* combo = new FloatingCombo(grid);
    QPushButton* button = new QPushButton(form);
};

TEST_F(FloatingBoxes, AListOpensOverItsCellWithTheTrimmedTextSelected)
{
    EXPECT_FALSE(combo->isVisible());
    combo->OpenAt(2, 1);
    EXPECT_TRUE(combo->hasFocus());
    EXPECT_EQ(combo->geometry(), grid->CellRect(2, 1));
    EXPECT_EQ(combo->currentText().toStdString(), "Absent");
    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_EQ(combo->lineEdit()->selectedText().toStdString(), "Absent");
    for (const char* text : {"Present", "Pre", ""}) {
        grid->SetTextMatrix(3, 1, QString::fromLatin1(text));
        combo->OpenAt(3, 1);
        EXPECT_EQ(combo->currentText().toStdString(), text);
        EXPECT_EQ(combo->currentIndex(), qstrcmp(text, "Present") == 0 ? 0 : -1) << text;
    }
    combo->Close();
    EXPECT_FALSE(combo->isVisible());
    EXPECT_EQ(combo->Row(), 3);
}

TEST_F(FloatingBoxes, BoxesFollowTheirCellsWhenTheGridScrollsOrAColumnGrows)
{
    editor->OpenAt(50, 2);
    EXPECT_EQ(editor->geometry(), grid->CellRect(50, 2)) << "the cell was scrolled into sight";
    EXPECT_TRUE(grid->viewport()->rect().contains(editor->geometry().center()));
    EXPECT_EQ(grid->CurrentRow(), 50);
    EXPECT_EQ(grid->CurrentCol(), 2);
    combo->OpenAt(1, 1);
    EXPECT_EQ(combo->geometry(), grid->CellRect(1, 1));
    EXPECT_EQ(editor->geometry(), grid->CellRect(50, 2));
    grid->SetColWidth(1, 170);
    EXPECT_EQ(combo->width(), grid->CellRect(1, 1).width());
}

TEST_F(FloatingBoxes, ABoxStaysOverItsCellWhenTheFormGrowsAndAColumnTakesTheRoom)
{
    GridTable table({{QStringLiteral("S.No.")}, {.head = QStringLiteral("Name"), .stretched = true}, {}});
    table.AddRow();
    grid->Show(std::move(table));
    editor->OpenAt(1, 2);
    const int before = editor->x();
    form->resize(900, 300);
    Settle();
    EXPECT_GT(editor->x(), before);
    EXPECT_EQ(editor->geometry(), grid->CellRect(1, 2));
}

TEST_F(FloatingBoxes, EscGivesABoxTheTextWithWhichItWasOpened)
{
    int takenBack = 0;
    grid->SetTextMatrix(3, 2, QStringLiteral("47"));
    QObject::connect(editor, &FloatingEditor::TakenBack, editor, [&takenBack] { ++takenBack; });
    editor->OpenAt(3, 2);
    QTest::keyClicks(editor, QStringLiteral("81"));
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(editor->text().toStdString(), "47");
    EXPECT_EQ(editor->selectedText().toStdString(), "47");
    EXPECT_TRUE(editor->hasFocus());
    button->setFocus();
    EXPECT_FALSE(editor->hasSelectedText()) << "nothing would be typed over any more";
    EXPECT_EQ(takenBack, 1);

    QObject::connect(combo, &FloatingCombo::TakenBack, combo, [&takenBack] { ++takenBack; });
    combo->OpenAt(2, 1);
    QTest::keyClicks(combo->lineEdit(), QStringLiteral("Pr"));
    QTest::keyClick(combo->lineEdit(), Qt::Key_Escape);
    EXPECT_EQ(combo->currentText().toStdString(), "Absent");
    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_TRUE(combo->hasFocus());
    EXPECT_EQ(takenBack, 2);
}

TEST_F(FloatingBoxes, EnterOfAListIsTheScreensToAnswer)
{
    int enters = 0;
    QObject::connect(combo, &FloatingCombo::EnterPressed, combo, [&enters] { ++enters; });
    combo->OpenAt(2, 1);
    QTest::keyClick(combo, Qt::Key_Return);
    QTest::keyClick(combo, Qt::Key_Enter);
    EXPECT_EQ(enters, 2);
    EXPECT_TRUE(combo->hasFocus());
}

TEST_F(FloatingBoxes, EnterAndEscOfABoxAreNoKeysOfTheFormAroundIt)
{
    const EventCounter keys(form, QEvent::KeyPress);
    const QSignalSpy opened(grid, &FlexGrid::CellClicked);
    new FormKeys(form, 0);
    editor->OpenAt(3, 2);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        QTest::keyClick(editor, key);
    EXPECT_TRUE(editor->hasFocus()) << "Enter is no Tab there";
    combo->OpenAt(2, 1);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        QTest::keyClick(combo, key);
    EXPECT_TRUE(combo->hasFocus());
    EXPECT_EQ(keys.Count(), 0);
    EXPECT_EQ(opened.count(), 0) << "nor of the grid beneath";
}

TEST_F(FloatingBoxes, AListIsAskedOnceForEachLeavingAndKeepsTheFocusOnARefusal)
{
    int asked = 0;
    int clicks = 0;
    bool mayLeave = false;
    list->SetValidate([&] {
        ++asked;
        return mayLeave;
    });
    QObject::connect(button, &QPushButton::clicked, button, [&clicks] { ++clicks; });
    Press(button);
    Settle();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(clicks, 0) << "the click that took the focus has no effect";
    EXPECT_TRUE(list->hasFocus());
    mayLeave = true;
    Press(button);
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(button->hasFocus());
}

TEST_F(FloatingBoxes, ARefusalHasTheFocusBackBeforeAnythingElseHappens)
{
    list->SetValidate([] { return false; });
    button->setFocus();
    EXPECT_TRUE(list->hasFocus());
}

TEST_F(FloatingBoxes, OnlyAnotherEntryOfAListIsAChoice)
{
    int chosen = 0;
    QObject::connect(list, &DataCombo::Chosen, list, [&chosen] { ++chosen; });
    const auto chooseInPopup = [this](std::initializer_list<Qt::Key> keys) {
        list->showPopup();
        for (const Qt::Key key : keys)
            QTest::keyClick(list->view(), key);
        Settle();
    };
    list->SetBoundCode(1);
    chooseInPopup({Qt::Key_Return});
    EXPECT_EQ(list->BoundCode(), 1);
    EXPECT_EQ(chosen, 0) << "the same entry again";
    chooseInPopup({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(list->BoundCode(), 2);
    EXPECT_EQ(chosen, 1);
    chooseInPopup({Qt::Key_Return});
    EXPECT_EQ(chosen, 1);
    list->setCurrentIndex(0);
    list->SetBoundCode(2);
    chooseInPopup({Qt::Key_Return});
    EXPECT_EQ(chosen, 1) << "what the screen does meanwhile is no choice";
}

TEST_F(FloatingBoxes, WhereATextWasTypedOverItTheSameEntryIsAChoiceToo)
{
    int chosen = 0;
    QObject::connect(combo, &DataCombo::Chosen, combo, [&chosen] { ++chosen; });
    combo->OpenAt(2, 1);
    combo->setEditText(QStringLiteral("Ab"));
    combo->showPopup();
    QTest::keyClick(combo->view(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(combo->currentText().toStdString(), "Absent");
    EXPECT_EQ(chosen, 1);
}

TEST_F(FloatingBoxes, TheWheelOverAClosedListChangesNothing)
{
    int chosen = 0;
    QObject::connect(list, &DataCombo::Chosen, list, [&chosen] { ++chosen; });
    list->SetBoundCode(1);
    for (QWidget* focused : {static_cast<QWidget*>(list), static_cast<QWidget*>(button)}) {
        focused->setFocus();
        const QPointF middle = list->rect().center();
        QWheelEvent notch(middle, list->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(list, &notch);
        EXPECT_EQ(list->BoundCode(), 1);
        EXPECT_TRUE(focused->hasFocus());
    }
    EXPECT_EQ(chosen, 0);
}

TEST_F(FloatingBoxes, AnotherWindowInFrontIsNoLeaving)
{
    int asked = 0;
    list->SetValidate([&asked] {
        ++asked;
        return true;
    });
    auto* other = new QLineEdit;
    other->show();
    QApplication::setActiveWindow(other);
    other->setFocus();
    Settle();
    EXPECT_EQ(asked, 0);
}

} // namespace
} // namespace tally::test
