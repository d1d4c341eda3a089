#include "core/ui/TakeOnly.h"

#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FieldHint.h"
#include "core/ui/FormKeys.h"
#include "support/ScreenFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QVBoxLayout>
#include <QWindow>

namespace tally::test {
namespace {

const QString AlphaOnly = QStringLiteral("Only Letters A To Z, Blank And . Can Be Entered Here");
const QString NoQuote = QStringLiteral("The Sign ' Cannot Be Entered Here");

class TakeOnlyTest : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        for (QWidget* widget : {static_cast<QWidget*>(first), static_cast<QWidget*>(second)})
            rows->addWidget(widget);
        rows->addStretch();
        new FormKeys(form);
        form->resize(500, 200);
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        first->setFocus();
    }

    void Paste(const QString& text, Qt::Key key = Qt::Key_V,
               Qt::KeyboardModifier modifier = Qt::ControlModifier)
    {
        QApplication::clipboard()->setText(text);
        PressKey(form, key, modifier);
    }

    static QRect PlaceOf(const QWidget* widget) { return {widget->mapToGlobal(QPoint()), widget->size()}; }
    /// Where the note stands on the display; empty without one.
    static QRect NotePlace()
    {
        for (const QWidget* widget : QApplication::allWidgets())
            if (widget->objectName() == QStringLiteral("fieldHint") && widget->isVisible())
                return PlaceOf(widget);
        return {};
    }
    std::string Hint() const { return FieldHintAt(first).toStdString(); }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    QLineEdit* first = new QLineEdit(form);
    QLineEdit* second = new QLineEdit(form);
};

TEST_F(TakeOnlyTest, AFieldDropsWhatItDoesNotTake)
{
    TakeOnly(first, KeyNumericDecimal, 5);
    Type(first, QStringLiteral("1a2.-5 777"));
    EXPECT_EQ(first->text().toStdString(), "12.57");
}

TEST_F(TakeOnlyTest, PastedTextLosesWhatCouldNotBeTyped)
{
    TakeOnly(first, KeyAlpha, 30);
    QApplication::clipboard()->setText(QStringLiteral("St. Mary's 2"));
    PressKey(form, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(first->text().toStdString(), "St. Marys ");
}

TEST_F(TakeOnlyTest, AFieldOfDigitsStillKnowsTheCommandKeys)
{
    TakeOnly(first, KeyNumeric, 5);
    Type(first, QStringLiteral("123"));
    PressKey(form, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(first, QStringLiteral("4"));
    EXPECT_EQ(first->text().toStdString(), "4");
}

TEST_F(TakeOnlyTest, PastedLineBreaksVanishThoughEnterIsAKeyThatPasses)
{
    TakeOnly(first, KeyAlpha, 30);
    QApplication::clipboard()->setText(QStringLiteral("New\r\nDelhi\n"));
    PressKey(form, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(first->text().toStdString(), "NewDelhi");
}

TEST_F(TakeOnlyTest, AFieldThatPassesItsTextOnPassesTheCleanedTextLast)
{
    QString heard;
    QObject::connect(first, &QLineEdit::textEdited, first, [&heard](const QString& text) { heard = text; });
    TakeOnly(first, KeyNumeric, 5);
    QApplication::clipboard()->setText(QStringLiteral("1a2"));
    first->paste();
    EXPECT_EQ(heard.toStdString(), "12");
}

TEST_F(TakeOnlyTest, APastedTextIsCleanedBeforeItIsCutToTheField)
{
    TakeOnly(first, KeyNumericDecimal, 5);
    QApplication::clipboard()->setText(QStringLiteral("Mark: 12.75"));
    PressKey(form, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(first->text().toStdString(), "12.75");
}

TEST_F(TakeOnlyTest, BackspaceStillWorksInAFilteredField)
{
    TakeOnly(first, KeyNumeric, 5);
    Type(first, QStringLiteral("123"));
    PressKey(form, Qt::Key_Backspace);
    EXPECT_EQ(first->text().toStdString(), "12");
}

TEST_F(TakeOnlyTest, ADroppedKeySaysWhatTheFieldTakesUntilTheNextKeyThatItTakes)
{
    TakeOnly(first, KeyAlpha, 30);
    Type(first, QStringLiteral("St"));
    EXPECT_EQ(Hint(), "");
    QTest::keyClicks(first, QStringLiteral("4"));
    EXPECT_EQ(Hint(), AlphaOnly.toStdString());
    EXPECT_TRUE(first->hasFocus());
    QTest::keyClick(first, Qt::Key_Shift, Qt::ShiftModifier);
    PressKey(form, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Hint(), AlphaOnly.toStdString());
    QTest::keyClicks(first, QStringLiteral("a"));
    EXPECT_EQ(Hint(), "");
    EXPECT_EQ(first->text().toStdString(), "Sta");
}

TEST_F(TakeOnlyTest, ASwallowedQuoteSaysWhatTheFieldTakes)
{
    TakeOnly(first, KeyAlpha, 30);
    Type(first, QStringLiteral("St. Mary'"));
    EXPECT_EQ(Hint(), AlphaOnly.toStdString());
    Type(second, QStringLiteral("O'"));
    EXPECT_EQ(FieldHintAt(second), NoQuote);
    EXPECT_EQ(Hint(), "");
}

TEST_F(TakeOnlyTest, AKeyForWhichThereIsNoRoomSaysHowManyThereMayBe)
{
    TakeOnly(first, KeyNumeric, 3);
    Type(first, QStringLiteral("123"));
    EXPECT_EQ(Hint(), "");
    QTest::keyClicks(first, QStringLiteral("4"));
    EXPECT_EQ(Hint(), "Not More Than 3 Characters Can Be Entered Here");
    EXPECT_EQ(first->text().toStdString(), "123");
    QTest::keyClicks(first, QStringLiteral("a"));
    EXPECT_EQ(Hint(), "Only Digits Can Be Entered Here") << "it would not be taken with room either";
    PressKey(form, Qt::Key_Backspace);
    EXPECT_EQ(first->text().toStdString(), "12");
    EXPECT_EQ(Hint(), "") << "to take one away there is always room";
    QTest::keyClicks(first, QStringLiteral("3"));
    first->selectAll();
    QTest::keyClicks(first, QStringLiteral("5"));
    EXPECT_EQ(first->text().toStdString(), "5");
    EXPECT_EQ(Hint(), "");
    QTest::keyClicks(first, QStringLiteral("67"));
    first->selectAll();
    Paste(QStringLiteral("890"));
    EXPECT_EQ(first->text().toStdString(), "890");
}

TEST_F(TakeOnlyTest, CommandsAndKeysWithoutALetterSayNothing)
{
    TakeOnly(first, KeyNumeric, 5);
    Type(first, QStringLiteral("12"));
    PressKey(form, Qt::Key_A, Qt::ControlModifier);
    PressKey(form, Qt::Key_C, Qt::ControlModifier);
    PressKey(form, Qt::Key_Left);
    PressKey(form, Qt::Key_F2);
    PressKey(form, Qt::Key_Z, Qt::AltModifier);
    EXPECT_EQ(Hint(), "");
}

TEST_F(TakeOnlyTest, APastedTextTellsWhichSignsWereLeftOut)
{
    TakeOnly(first, KeyAlpha, 30);
    Paste(QStringLiteral("St. Mary's (2)"));
    EXPECT_EQ(first->text().toStdString(), "St. Marys ");
    EXPECT_EQ(Hint(), "Left Out : ' ( 2 )\n" + AlphaOnly.toStdString());
    Paste(QStringLiteral(" Hill\n"), Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(first->text().toStdString(), "St. Marys  Hill");
    EXPECT_EQ(Hint(), "") << "a break at the end is no part of what was meant";
    Paste(QStringLiteral("New\nDelhi"), Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(Hint(), "Left Out : Line Break\n" + AlphaOnly.toStdString());
    Paste(QStringLiteral("1a1b1"), Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(Hint(), "Left Out : 1\n" + AlphaOnly.toStdString()) << "each sign once";
}

TEST_F(TakeOnlyTest, EveryKindOfBreakIsLeftOutOfATextOfOneLine)
{
    TakeOnly(first, KeyAllButQuote, 30);
    for (const QChar sign : {QChar(QLatin1Char('\n')), QChar(QLatin1Char('\t')), QChar(QChar::LineSeparator),
                             QChar(QChar::ParagraphSeparator)}) {
        first->clear();
        Paste(QStringLiteral("New") + sign + QStringLiteral(" Delhi"));
        EXPECT_EQ(first->text().toStdString(), "New Delhi") << int{sign.unicode()};
        EXPECT_TRUE(Hint().starts_with("Left Out : Line Break\n")) << Hint();
    }
}

TEST_F(TakeOnlyTest, ASignOutsideTheUsualOnesIsToldAsTheOneSignThatItIs)
{
    TakeOnly(first, KeyAlpha, 30);
    Paste(QString::fromUtf8("A😀B"));
    EXPECT_EQ(first->text().toStdString(), "AB");
    EXPECT_EQ(Hint(), "Left Out : 😀\n" + AlphaOnly.toStdString());
}

TEST_F(TakeOnlyTest, OfATextInAnotherScriptTheFirstSignsAreTold)
{
    TakeOnly(first, KeyAlpha, 30);
    Paste(QString::fromUtf8("абвгдежзийкл"));
    EXPECT_EQ(Hint(), "Left Out : а б в г д е ж з и й к л\n" + AlphaOnly.toStdString());
    Paste(QString::fromUtf8("абвгдежзийклмно"));
    EXPECT_EQ(Hint(), "Left Out : а б в г д е ж з и й к л ...\n" + AlphaOnly.toStdString());
}

TEST_F(TakeOnlyTest, NoSignIsCutInTwoWhereANoteShowsOnlyTheStartOfATextsEnd)
{
    TakeOnly(first, KeyAllButQuote, 4);
    Paste(QString::fromUtf8("Hill Government Higher Secondary😀School"));
    EXPECT_EQ(Hint(), "Left Out At The End :  Government Higher Secondary😀 ...\n"
                      "Not More Than 4 Characters Can Be Entered Here");
    Paste(QString::fromUtf8("Government Higher Secondary S😀ool"), Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(Hint(), "Left Out At The End : Government Higher Secondary S ...\n"
                      "Not More Than 4 Characters Can Be Entered Here");
}

TEST_F(TakeOnlyTest, APastedTextTellsWhatItsEndLost)
{
    TakeOnly(first, KeyAlpha, 8);
    Paste(QStringLiteral("Government Higher Secondary School For Girls"));
    EXPECT_EQ(first->text().toStdString(), "Governme");
    EXPECT_EQ(Hint(), "Left Out At The End : nt Higher Secondary School For ...\n"
                      "Not More Than 8 Characters Can Be Entered Here");
}

TEST_F(TakeOnlyTest, OfWhatATextsEndLostThirtyLettersAreToldWhole)
{
    TakeOnly(first, KeyAlpha, 4);
    const QString thirty(30, QLatin1Char('a'));
    for (const QString& more : {QString(), QStringLiteral("b")}) {
        first->clear();
        Paste(QStringLiteral("Hill") + thirty + more);
        EXPECT_EQ(Hint(), "Left Out At The End : " + thirty.toStdString() + (more.isEmpty() ? "" : " ...") +
                              "\nNot More Than 4 Characters Can Be Entered Here");
    }
}

TEST_F(TakeOnlyTest, WhereNothingOfAPastedTextIsTakenTheSelectionStays)
{
    TakeOnly(first, KeyNumeric, 5);
    Type(first, QStringLiteral("12"));
    first->selectAll();
    Paste(QStringLiteral("abc"));
    EXPECT_EQ(first->text().toStdString(), "12");
    EXPECT_EQ(Hint(), "Left Out : a b c\nOnly Digits Can Be Entered Here");
}

TEST_F(TakeOnlyTest, PasteFromTheContextMenuIsCleanedBeforeItIsCutAndTellsWhatWasLeftOut)
{
    TakeOnly(first, KeyNumericDecimal, 5);
    QApplication::clipboard()->setText(QStringLiteral("Mark: 12.75"));
    QContextMenuEvent open(QContextMenuEvent::Keyboard, QPoint(5, 5), first->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(first, &open);
    const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_FALSE(menu.isNull());
    bool pasted = false;
    for (QAction* action : menu->actions()) {
        if (action->text().startsWith(QStringLiteral("&Paste"))) {
            action->trigger();
            pasted = true;
        }
    }
    EXPECT_TRUE(pasted);
    EXPECT_EQ(first->text().toStdString(), "12.75");
    EXPECT_EQ(Hint(), "Left Out : M a r k : Blank\nOnly Digits And . Can Be Entered Here");
    menu->close();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "there was one menu";
    Settle();
    EXPECT_TRUE(menu.isNull());
}

TEST_F(TakeOnlyTest, ADroppedTextIsCleanedBeforeItIsCutAndStaysWhereItCameFrom)
{
    TakeOnly(first, KeyNumericDecimal, 5);
    QMimeData data;
    data.setText(QStringLiteral("Mark: 12.75"));
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction);
    QDragEnterEvent enter(QPoint(5, 5), Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(first, &enter);
    QApplication::sendEvent(first, &drop);
    EXPECT_EQ(first->text().toStdString(), "12.75");
    EXPECT_EQ(Hint(), "Left Out : M a r k : Blank\nOnly Digits And . Can Be Entered Here");
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    EXPECT_TRUE(drop.isAccepted());
}

TEST_F(TakeOnlyTest, ATextThatIsTakenWholeGoesWhereItIsDropped)
{
    TakeOnly(second, KeyNumeric, 5);
    second->setText(QStringLiteral("34"));
    const QPoint atTheStart(1, second->height() / 2);
    QMimeData data;
    data.setText(QStringLiteral("12"));
    QDragEnterEvent enter(atTheStart, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(atTheStart, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(second, &enter);
    second->setCursorPosition(2);
    QApplication::sendEvent(second, &drop);
    EXPECT_EQ(second->text().toStdString(), "1234");
    EXPECT_EQ(drop.dropAction(), Qt::MoveAction);
}

TEST_F(TakeOnlyTest, WithoutATextADropLeavesTheFieldAndItsHintAsTheyAre)
{
    TakeOnly(first, KeyNumericDecimal, 5);
    first->setText(QStringLiteral("12"));
    first->setCursorPosition(1);
    QMimeData data;
    data.setData(QStringLiteral("image/png"), "picture");
    QDropEvent drop(QPointF(300, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(first, &drop);
    EXPECT_EQ(first->text().toStdString(), "12");
    EXPECT_EQ(first->cursorPosition(), 1);
    EXPECT_EQ(Hint(), "");
}

TEST_F(TakeOnlyTest, WhatAnInputMethodBringsIsCleanedAndToldAsWell)
{
    TakeOnly(first, KeyAlpha, 30);
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8("Zoë"));
    QApplication::sendEvent(first, &event);
    EXPECT_EQ(first->text().toStdString(), "Zo");
    EXPECT_EQ(FieldHintAt(first), QString::fromUtf8("Left Out : ë\n") + AlphaOnly);
}

TEST_F(TakeOnlyTest, ASignThatTheFieldWasFilledWithStaysWhileTheRestIsTypedOver)
{
    TakeOnly(first, &KeyNumeric, 8);
    first->setText(QStringLiteral("40.25"));
    PressKey(form, Qt::Key_End);
    PressKey(form, Qt::Key_Backspace);
    EXPECT_EQ(first->text().toStdString(), "40.2");
    EXPECT_EQ(Hint(), "");
    QTest::keyClicks(first, QStringLiteral("7."));
    EXPECT_EQ(first->text().toStdString(), "40.27") << "the key itself is not taken";
    for (int press = 0; press < 3; ++press)
        PressKey(form, Qt::Key_Backspace);
    EXPECT_EQ(first->text().toStdString(), "40");
    first->undo();
    EXPECT_EQ(first->text().left(3).toStdString(), "40.");
    second->setText(QStringLiteral("1.5"));
    TakeOnly(second, &KeyNumeric, 8);
    second->setFocus();
    PressKey(form, Qt::Key_End);
    PressKey(form, Qt::Key_Backspace);
    EXPECT_EQ(second->text().toStdString(), "1.") << "also where it was filled before";
    first->setFocus();
    first->setText(QStringLiteral("40"));
    Paste(QStringLiteral(".5"));
    EXPECT_EQ(first->text().toStdString(), "405") << "another text has no point";
}

TEST_F(TakeOnlyTest, TypingGoesOnBehindWhatAnInputMethodBroughtIntoTheMiddle)
{
    TakeOnly(first, KeyAlpha, 30);
    first->setText(QStringLiteral("Annabel"));
    first->setCursorPosition(3);
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8("ëoë"));
    QApplication::sendEvent(first, &event);
    QTest::keyClicks(first, QStringLiteral("x"));
    EXPECT_EQ(first->text().toStdString(), "Annoxabel");
}

TEST_F(TakeOnlyTest, APasswordIsNeverReadOutInAHint)
{
    TakeOnly(first, KeyAlphaNumeric, 6);
    first->setEchoMode(QLineEdit::Password);
    Paste(QStringLiteral("secret*word"));
    EXPECT_EQ(Hint(),
              TakenSigns(KeyAlphaNumeric).toStdString() + "\nNot More Than 6 Characters Can Be Entered Here");
}

TEST_F(TakeOnlyTest, AListThatCanBeTypedIntoDropsKeysAndSaysSo)
{
    auto* list = new DataCombo(form);
    list->setEditable(true);
    form->layout()->addWidget(list);
    list->show();
    TakeOnly(list->lineEdit(), KeyAlpha, 7);
    list->setFocus();
    QTest::keyClicks(list, QStringLiteral("a5"));
    EXPECT_EQ(list->currentText().toStdString(), "a");
    EXPECT_EQ(FieldHintAt(list), AlphaOnly);
    QTest::keyClicks(list, QStringLiteral("b'"));
    EXPECT_EQ(list->currentText().toStdString(), "ab");
    EXPECT_EQ(FieldHintAt(list), AlphaOnly);
}

TEST_F(TakeOnlyTest, AFieldThatCannotBeTypedIntoTakesAndSaysNothing)
{
    first->setReadOnly(true);
    Type(first, QStringLiteral("'"));
    EXPECT_EQ(Hint(), "");
    TakeOnly(first, KeyNumeric, 5);
    Type(first, QStringLiteral("a"));
    Paste(QStringLiteral("12b"));
    EXPECT_EQ(first->text().toStdString(), "");
    EXPECT_EQ(Hint(), "");
}

TEST_F(TakeOnlyTest, AHintGoesWithTheFocusAndWithTheField)
{
    TakeOnly(first, KeyAlpha, 30);
    Type(first, QStringLiteral("5"));
    second->setFocus();
    EXPECT_EQ(Hint(), "");
    Type(first, QStringLiteral("5"));
    ASSERT_NE(Hint(), "");
    delete first;
    Type(second, QStringLiteral("'"));
    EXPECT_EQ(FieldHintAt(second), NoQuote);
}

TEST_F(TakeOnlyTest, AHintTakesNeitherTheFocusNorTheWindowFromTheField)
{
    TakeOnly(first, KeyAlpha, 30);
    Type(first, QStringLiteral("5"));
    EXPECT_EQ(QApplication::focusWidget(), first);
    EXPECT_EQ(QApplication::activeWindow(), form);
    EXPECT_FALSE(NotePlace().intersects(PlaceOf(first)));
}

TEST_F(TakeOnlyTest, AHintLetsTheMouseThroughToWhatLiesBeneathIt)
{
    TakeOnly(first, KeyAlpha, 30);
    Type(first, QStringLiteral("5"));
    const QPoint spot = NotePlace().intersected(PlaceOf(second)).center();
    ASSERT_TRUE(PlaceOf(second).contains(spot));
    QWindow* hit = QGuiApplication::topLevelAt(spot);
    ASSERT_NE(hit, nullptr);
    QTest::mouseClick(hit, Qt::LeftButton, Qt::NoModifier, hit->mapFromGlobal(spot));
    EXPECT_TRUE(second->hasFocus());
    EXPECT_EQ(Hint(), "");
}

TEST_F(TakeOnlyTest, AHintStaysWithinTheWindowOfItsFieldAndShowsAllOfItsText)
{
    TakeOnly(second, KeyAlphaNumeric, 30);
    form->resize(220, 200);
    Type(second, QStringLiteral("!"));
    const QRect narrow = NotePlace();
    EXPECT_TRUE(PlaceOf(form).contains(narrow));
    EXPECT_FALSE(narrow.intersects(PlaceOf(second)));
    form->resize(700, 90);
    Settle();
    const QRect wide = NotePlace();
    EXPECT_TRUE(PlaceOf(form).contains(wide));
    EXPECT_FALSE(wide.intersects(PlaceOf(second))) << "it goes along with the field";
    EXPECT_LT(wide.height(), narrow.height()) << "what has no room in one line goes on in the next";
}

TEST_F(TakeOnlyTest, ScreenReadersAreToldWhatAFieldTakesAndHearTheHint)
{
    TakeOnly(first, KeyAlpha, 30);
    EXPECT_EQ(first->accessibleDescription(), AlphaOnly);
    Paste(QStringLiteral("5"));
    EXPECT_EQ(first->accessibleDescription(), QStringLiteral("Left Out : 5\n") + AlphaOnly);
    QTest::keyClicks(first, QStringLiteral("a"));
    EXPECT_EQ(first->accessibleDescription(), AlphaOnly);
}

} // namespace
} // namespace tally::test
