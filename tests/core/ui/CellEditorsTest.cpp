#include "core/ui/controls/CellEditors.h"

#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingCombo.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/controls/RowDelete.h"
#include "core/ui/FormKeys.h"
#include "support/ScreenFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tally::test {
namespace {

enum class Col
{
    Serial,
    Name,
    Rank,
    Mark,
};

const QString NoName = QStringLiteral("Enter A Name");

/// A form with a grid of three subjects, whose name, rank and mark are edited, a second grid with one box,
/// the delete box, and a button.
class Editors : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        for (QWidget* widget : std::initializer_list<QWidget*>{grid, others, serialNo, deleteButton, button})
            rows->addWidget(widget);
        for (FlexGrid* each : {grid, others}) {
            each->SetCols(4);
            each->SetRows(4);
            each->SetTextMatrix(1, Col::Mark, QStringLiteral("47"));
            each->SetTextMatrix(0, Col::Mark, QStringLiteral("Mark"));
        }
        name = boxes->AddText(grid, {.column = Col::Name,
                                     .name = "txtName",
                                     .filter = &KeyAlpha,
                                     .maxLength = 8,
                                     .typed = [this](int row, const QString& text) { Note(row, text); },
                                     .leave =
                                         [](int, const QString& text) {
                                             return text == QLatin1String("Bad") ? NoName : QString();
                                         }});
        rank = boxes->AddList(
            grid, {QStringLiteral("Yes"), QStringLiteral("No")},
            {.column = Col::Rank,
             .name = "cboRank",
             .filter = &KeyLetters,
             .maxLength = 3,
             .typed = [this](int row, const QString& text) { Note(row, text); },
             .leave = [](int, const QString& text) { return text.isEmpty() ? NoName : QString(); }});
        mark = boxes->AddText(grid, {.column = Col::Mark,
                                     .name = "txtMark",
                                     .filter = &KeyNumeric,
                                     .maxLength = 3,
                                     .typed = [this](int row, const QString& text) { Note(row, text); },
                                     .mayType = [this](int) { return mayType; }});
        other = boxes->AddText(others, {.column = Col::Mark,
                                        .name = "txtOther",
                                        .enter = [this](int row, const QString& text) { Note(row, text); }});
        QObject::connect(button, &QPushButton::clicked, button, [this] { ++clicks; });
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    }

    void Note(int row, const QString& text) { noted.append(QStringLiteral("%1 %2").arg(row).arg(text)); }

    /// What was noted since the last call.
    std::string Noted()
    {
        const QString all = noted.join(QLatin1Char('|'));
        noted.clear();
        return all.toStdString();
    }

    /// The boxes that are seen, with their rows.
    std::string Seen() const
    {
        QStringList seen;
        for (const auto& [widget, box] :
             {std::pair<QWidget*, CellBox*>{name, name}, {rank, rank}, {mark, mark}, {other, other}})
            if (widget->isVisible())
                seen.append(widget->objectName() + QString::number(box->Row()));
        return seen.join(QLatin1Char(' ')).toStdString();
    }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    FlexGrid* grid = new FlexGrid(form);
    FlexGrid* others = new FlexGrid(form);
    QLineEdit* serialNo = new QLineEdit(form);
    QPushButton* deleteButton = new QPushButton(form);
    QPushButton* button = new QPushButton(form);
    CellEditors* boxes = new CellEditors(form);
    FloatingEditor* name = nullptr;
    FloatingCombo* rank = nullptr;
    FloatingEditor* mark = nullptr;
    FloatingEditor* other = nullptr;
    QStringList noted;
    bool mayType = true;
    int clicks = 0;
};

TEST_F(Editors, OneBoxIsOpenAtATimeWhateverGridItIsIn)
{
    boxes->Open(grid, 2, Col::Mark);
    EXPECT_EQ(Seen(), "txtMark2");
    EXPECT_TRUE(mark->hasFocus());
    boxes->Open(others, 1, Col::Mark);
    EXPECT_EQ(Seen(), "txtOther1");
    boxes->Open(grid, 3, Col::Rank);
    EXPECT_EQ(Seen(), "cboRank3");
    boxes->Close();
    EXPECT_EQ(Seen(), "");
}

TEST_F(Editors, WhereThereIsNoRowOrNoBoxNothingOpensAndNothingCloses)
{
    boxes->Open(grid, 2, Col::Mark);
    boxes->Open(grid, 2, Col::Serial);
    boxes->Open(others, 1, Col::Name);
    for (const int row : {-1, 0, 4})
        boxes->Open(grid, row, Col::Name);
    EXPECT_EQ(Seen(), "txtMark2");
}

TEST_F(Editors, EnterLeadsThroughTheColumnsAndOnToTheRowBelow)
{
    EXPECT_TRUE(boxes->MayLeave());
    boxes->OpenNext();
    EXPECT_EQ(Seen(), "") << "no box was open";
    boxes->Open(grid, 2, Col::Name);
    for (const char* next : {"cboRank2", "txtMark2", "txtName3", "cboRank3", "txtMark3", "txtName3"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(Seen(), next);
    }
}

TEST_F(Editors, EnterFollowsTheColumnsWhateverOrderTheirBoxesWereAddedIn)
{
    auto* third = new FlexGrid(form);
    third->SetCols(4);
    third->SetRows(3);
    for (const auto& [column, box] : {std::pair(Col::Mark, "c"), {Col::Name, "a"}, {Col::Rank, "b"}})
        boxes->AddText(third, {.column = column, .name = box});
    boxes->Open(third, 1, Col::Name);
    for (const char* next : {"b", "c", "a"}) {
        boxes->OpenNext();
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), next);
    }
    boxes->Open(others, 2, Col::Mark);
    boxes->OpenNext();
    EXPECT_EQ(Seen(), "txtOther3") << "the boxes of another grid are no next ones";
}

TEST_F(Editors, ABoxTakesEverySignWhereNothingSaysWhichAndBearsTheNameOfItsColumn)
{
    auto* free = boxes->AddText(others, {.column = Col::Name,
                                         .name = "txtFree",
                                         .typed = [this](int row, const QString& text) { Note(row, text); }});
    boxes->Open(others, 2, Col::Name);
    QTest::keyClicks(free, QStringLiteral("7%"));
    EXPECT_EQ(Noted(), "2 7|2 7%");
    EXPECT_EQ(mark->accessibleName().toStdString(), "Mark");
}

TEST_F(Editors, EnterOfABoxWithARuleOfItsOwnLeadsWhereTheScreenSays)
{
    others->SetTextMatrix(2, Col::Mark, QStringLiteral("81"));
    boxes->Open(others, 2, Col::Mark);
    QTest::keyClicks(other, QStringLiteral("9"));
    EXPECT_EQ(Noted(), "") << "nobody wants to know what is typed";
    QTest::keyClick(other, Qt::Key_Enter);
    EXPECT_EQ(Noted(), "2 9");
    EXPECT_EQ(Seen(), "txtOther2");
}

TEST_F(Editors, WhatIsTypedOrChosenIsToldWithItsRow)
{
    boxes->Open(grid, 3, Col::Mark);
    QTest::keyClicks(mark, QStringLiteral("7x5"));
    EXPECT_EQ(Noted(), "3 7|3 75");
    boxes->Open(grid, 1, Col::Rank);
    QTest::keyClick(rank, Qt::Key_Down);
    EXPECT_EQ(Noted(), "1 Yes");
    boxes->Open(grid, 2, Col::Rank);
    QTest::keyClick(rank, Qt::Key_N);
    EXPECT_EQ(Noted(), "2 n") << "the letters that the list adds are no more than an offer";
}

TEST_F(Editors, WhatWasPastedIsToldOnceItIsClean)
{
    boxes->Open(grid, 1, Col::Mark);
    QApplication::clipboard()->setText(QStringLiteral("8b"));
    mark->paste();
    EXPECT_EQ(Noted(), "1 8");
}

TEST_F(Editors, ASignThatTheCellHadIsToldWithTheRest)
{
    grid->SetTextMatrix(1, Col::Mark, QStringLiteral("4.5"));
    boxes->Open(grid, 1, Col::Mark);
    QTest::keyClick(mark, Qt::Key_Home);
    QTest::keyClick(mark, Qt::Key_Delete);
    QTest::keyClick(mark, Qt::Key_3);
    EXPECT_EQ(Noted(), "1 .5|1 3.5");
}

TEST_F(Editors, EscPutsBackWhatTheScreenHeldWhenTheBoxOpened)
{
    grid->SetTextMatrix(2, Col::Rank, QStringLiteral("No"));
    int state = 1;
    boxes->SetTakeBack([this, &state](int row) {
        return [this, row, &state, before = state] {
            state = before;
            Note(row, QString::number(before));
        };
    });
    boxes->Open(grid, 1, Col::Mark);
    state = 2;
    QTest::keyClick(mark, Qt::Key_9);
    QTest::keyClick(mark, Qt::Key_Escape);
    EXPECT_EQ(mark->text().toStdString(), "47");
    EXPECT_EQ(Noted(), "1 9|1 1");
    boxes->OpenNext();
    state = 3;
    QTest::keyClick(name, Qt::Key_Escape);
    EXPECT_EQ(Noted(), "2 1") << "what the first Esc has put back";
    boxes->OpenNext();
    QTest::keyClick(rank, Qt::Key_Escape);
    EXPECT_EQ(Noted(), "2 1");

    other->OpenAt(3, static_cast<int>(Col::Mark));
    QTest::keyClick(other, Qt::Key_Escape);
    EXPECT_EQ(Noted(), "") << "not opened by the screen";
}

TEST_F(Editors, ARefusedTextIsToldSelectedAndKeepsTheFocus)
{
    boxes->Open(grid, 1, Col::Name);
    QTest::keyClicks(name, QStringLiteral("Bad"));
    prompts.ExpectInformation(NoName);
    button->setFocus();
    EXPECT_TRUE(name->hasFocus());
    EXPECT_TRUE(boxes->KeepsFocus());
    EXPECT_EQ(name->selectedText().toStdString(), "Bad");
    Settle();
    EXPECT_FALSE(boxes->KeepsFocus());

    prompts.ExpectInformation(NoName);
    Press(button);
    Settle();
    EXPECT_EQ(clicks, 0);
    prompts.ExpectInformation(NoName);
    EXPECT_FALSE(boxes->MayLeave());
    QTest::keyClicks(name, QStringLiteral("Good"));
    EXPECT_TRUE(boxes->MayLeave());
    Press(button);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Editors, ARefusedListKeepsTheFocusToo)
{
    boxes->Open(grid, 1, Col::Rank);
    prompts.ExpectInformation(NoName);
    button->setFocus();
    EXPECT_TRUE(rank->hasFocus());
    EXPECT_TRUE(boxes->KeepsFocus());
    Settle();
    boxes->Close();
    EXPECT_EQ(Seen(), "") << "nobody is asked where the screen puts a box away";
}

TEST_F(Editors, ARefusalWhileTypingLeavesTheTextToBeTypedOver)
{
    boxes->Open(grid, 1, Col::Mark);
    button->setFocus();
    prompts.ExpectInformation(NoName);
    boxes->Refuse(NoName);
    EXPECT_TRUE(mark->hasFocus());
    EXPECT_EQ(mark->selectedText().toStdString(), "47");
}

TEST_F(Editors, ABoxThatMayNotBeTypedInDropsItsKeysButLeavesTabAndEsc)
{
    boxes->Open(grid, 1, Col::Mark);
    mayType = false;
    QTest::keyClick(mark, Qt::Key_5);
    QTest::keyClick(mark, Qt::Key_Return);
    EXPECT_EQ(mark->text().toStdString(), "47");
    EXPECT_EQ(Seen(), "txtMark1");
    QTest::keyClick(mark, Qt::Key_Left);
    EXPECT_FALSE(mark->hasSelectedText()) << "the caret may be moved";
    mark->setText(QStringLiteral("48"));
    QTest::keyClick(mark, Qt::Key_Escape);
    EXPECT_EQ(mark->text().toStdString(), "47");
    for (const auto key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        boxes->Open(grid, 1, Col::Mark);
        QKeyEvent leads(QEvent::KeyPress, key, Qt::NoModifier, QStringLiteral("\t"));
        QApplication::sendEvent(mark, &leads);
        EXPECT_FALSE(mark->hasFocus()) << key;
    }
    boxes->Open(grid, 1, Col::Name);
    QTest::keyClicks(name, QStringLiteral("A"));
    EXPECT_EQ(name->text().toStdString(), "A") << "another box";
}

TEST_F(Editors, TheBoxesStandBehindTheirGridInTheOrderOfTab)
{
    QStringList order;
    const QWidget* next = grid;
    while ((next = next->nextInFocusChain()) != serialNo)
        if (!next->objectName().isEmpty() && !next->objectName().startsWith(QLatin1String("qt_")))
            order.append(next->objectName());
    EXPECT_EQ(order.join(QLatin1Char(' ')).toStdString(), "txtName cboRank txtMark txtOther");
}

/// The box and the button by which rows are deleted.
class Deleting : public Editors
{
protected:
    void SetUp() override
    {
        Editors::SetUp();
        deletes = new RowDelete(serialNo, deleteButton, boxes,
                                {.lastRow = [this] { return lastRow; },
                                 .takeOut = [this](int row) { Note(row, QString::fromStdString(Seen())); }});
    }

    void Type(const char* number)
    {
        serialNo->setFocus();
        serialNo->selectAll();
        QTest::keyClick(serialNo, Qt::Key_Delete);
        QTest::keyClicks(serialNo, QString::fromLatin1(number));
    }

    RowDelete* deletes = nullptr;
    int lastRow = 3;
};

TEST_F(Deleting, OnlyARowThatThereIsCanBeDeleted)
{
    EXPECT_FALSE(deleteButton->isEnabled()) << "from the start";
    for (const auto& [number, may] :
         {std::pair{"", false}, {"0", false}, {"1", true}, {"3", true}, {"4", false}, {"x", false}}) {
        Type(number);
        EXPECT_EQ(deleteButton->isEnabled(), may) << number;
        EXPECT_EQ(serialNo->property(TakesEnter).toBool(), !may) << "where Enter leads, " << number;
    }
    Type("123456");
    EXPECT_EQ(serialNo->text().toStdString(), "12345") << "as many digits as an order";
    Type("4");
    lastRow = 4;
    deletes->Refresh();
    EXPECT_TRUE(deleteButton->isEnabled());
}

TEST_F(Deleting, AYesTakesTheRowOutWithNoBoxOpenAndStartsOver)
{
    boxes->Open(grid, 2, Col::Mark);
    Type("2");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete S.No. 2 ?"), false);
    Press(deleteButton);
    EXPECT_EQ(Noted(), "");
    EXPECT_EQ(serialNo->text().toStdString(), "2");
    EXPECT_EQ(Seen(), "txtMark2");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete S.No. 2 ?"), true);
    Press(deleteButton);
    EXPECT_EQ(Noted(), "2 ");
    EXPECT_EQ(serialNo->text().toStdString(), "");
    EXPECT_TRUE(serialNo->hasFocus());
    EXPECT_FALSE(deleteButton->isEnabled());
}

TEST_F(Deleting, NothingIsDeletedWhileABoxKeepsTheFocus)
{
    Type("2");
    boxes->Open(grid, 1, Col::Name);
    QTest::keyClicks(name, QStringLiteral("Bad"));
    prompts.ExpectInformation(NoName);
    button->setFocus();
    ASSERT_TRUE(boxes->KeepsFocus());
    deleteButton->click();
    EXPECT_EQ(Noted(), "1 B|1 Ba|1 Bad");
}

} // namespace
} // namespace tally::test
