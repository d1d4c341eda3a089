#include "core/ui/controls/DataCombo.h"
#include "core/ui/ScreenRegistry.h"
#include "masters/SimpleMasterFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QMdiSubWindow>

namespace tally::test {
namespace {

/// What holds for every member.
class SimpleMasterFamilyTest : public SimpleMasterFixture,
                               public testing::WithParamInterface<SimpleMasterMember>
{
protected:
    using Field = SimpleMasterMember::Field;

    const SimpleMasterMember& Member() const { return GetParam(); }

    void OpenMember()
    {
        if (Member().hasParent && Count("SELECT count(*) FROM StateMaster WHERE StateCode = 1") == 0)
            Given("INSERT INTO StateMaster VALUES (1, 'Kerala', 1)");
        OpenMaster(Member().formName);
    }

    qint64 Rows() const
    {
        return Session().gcnnMain->Number(
            QStringLiteral("SELECT count(*) FROM %1 WHERE %2 > 0")
                .arg(QLatin1String(Member().table), QLatin1String(Member().key)));
    }

    /// How many rows have that name, letter for letter.
    qint64 Named(const char* name) const
    {
        return Session().gcnnMain->Number(
            QStringLiteral("SELECT count(*) FROM %1 WHERE %2 = ? COLLATE BINARY")
                .arg(QLatin1String(Member().table), QLatin1String(Member().nameColumn)),
            name);
    }

    /// Types into whatever has the focus.
    void TypeOn(const char* text) { QTest::keyClicks(form->focusWidget(), QString::fromLatin1(text)); }

    /// From Alt+N to Enter on Save, without the mouse.
    void EnterByKeys(const char* Field::*value)
    {
        PressKey(form, Qt::Key_N, Qt::AltModifier);
        if (Member().hasParent) {
            PressKey(form, Qt::Key_Down);
            PressKey(form, Qt::Key_Return);
        }
        for (const Field& field : Member().fields) {
            ASSERT_EQ(FocusName(), field.control);
            TypeOn(field.*value);
            PressKey(form, Qt::Key_Return);
        }
        ASSERT_EQ(FocusName(), "cmdSave");
        PressKey(form, Qt::Key_Return);
    }

    void EnterAndStore(const char* Field::*value)
    {
        prompts.ExpectInformation(QStringLiteral("Record Saved"));
        EnterByKeys(value);
        prompts.Verify();
    }

    /// Opens the form and fills in a new row, which waits for Save.
    void OpenAndFillNew()
    {
        OpenMember();
        Press(Button("cmdNew"));
        if (Member().hasParent) {
            Find<DataCombo>(form, "dbcStateName")->setFocus();
            PressKey(form, Qt::Key_Down);
        }
        for (const Field& field : Member().fields)
            Retype(field.control, field.first);
    }

    void Select(int row, bool answer = true) { SelectRow(row, Member().selectQuestion, answer); }

    const char* NameBox() const { return Member().fields.front().control; }
};

TEST_P(SimpleMasterFamilyTest, OpensIdleWithItsCaptionAndItsControls)
{
    OpenMember();
    EXPECT_EQ(form->windowTitle().toStdString(), Member().caption);
    EXPECT_EQ(State(), "Idle");
    EXPECT_EQ(grid->RowCount(), 0);
    EXPECT_TRUE(Box(Member().searchControl)->isEnabled());
    for (const Field& field : Member().fields)
        EXPECT_FALSE(Box(field.control)->isEnabled());
    EXPECT_TRUE(Button("cmdCancel")->isEnabled());
    EXPECT_TRUE(Button("cmdExit")->isEnabled());
}

TEST_P(SimpleMasterFamilyTest, ARowLivesFromNewToDelete)
{
    OpenMember();
    EnterAndStore(&Field::first);
    EXPECT_EQ(Named(Member().fields.front().first), 1);
    EXPECT_EQ(State(), "Idle");
    EXPECT_EQ(FocusName(), "cmdNew");
    EXPECT_EQ(TextOf(NameBox()), "");
    ASSERT_EQ(grid->RowCount(), 1);

    Select(0);
    EXPECT_EQ(State(), "RowSelected");
    EXPECT_EQ(FocusName(), "cmdEdit");
    for (const Field& field : Member().fields)
        EXPECT_EQ(TextOf(field.control), field.first);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(State(), "Entry");
    EXPECT_EQ(FocusName(), "cmdSave");
    for (const Field& field : Member().fields)
        Retype(field.control, field.second);
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Named(Member().fields.front().first), 0);
    EXPECT_EQ(Named(Member().fields.front().second), 1);
    EXPECT_EQ(Rows(), 1);

    Select(0);
    prompts.ExpectQuestion(QString::fromLatin1(Member().deleteQuestion), false);
    Press(Button("cmdDelete"));
    EXPECT_EQ(Rows(), 1);
    EXPECT_EQ(State(), "RowSelected");
    prompts.ExpectQuestion(QString::fromLatin1(Member().deleteQuestion), true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Rows(), 0);
    EXPECT_EQ(grid->RowCount(), 0);
    EXPECT_EQ(State(), "Idle");
}

TEST_P(SimpleMasterFamilyTest, ASecondRowGetsTheNextCode)
{
    OpenMember();
    EnterAndStore(&Field::first);
    EnterAndStore(&Field::second);
    EXPECT_EQ(
        Session().gcnnMain->Number(QStringLiteral("SELECT max(%1) FROM %2")
                                       .arg(QLatin1String(Member().key), QLatin1String(Member().table))),
        2);
    EXPECT_EQ(grid->RowCount(), 2);
}

TEST_P(SimpleMasterFamilyTest, OnlyTheRowInHandIsChangedAndDeleted)
{
    OpenMember();
    EnterAndStore(&Field::first);
    EnterAndStore(&Field::second);
    store::Connection& main = *Session().gcnnMain;
    const AllRows::Row inHand{{QString::fromLatin1(Member().key), QStringLiteral("2")}};
    const AllRows before(main);
    Select(1);
    Press(Button("cmdEdit"));
    Retype(NameBox(), "Zz");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Named("Zz"), 1);
    before.ExpectTouchedOnly(main, Member().table, inHand);
    Select(1);
    prompts.ExpectQuestion(QString::fromLatin1(Member().deleteQuestion), true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Rows(), 1);
    before.ExpectTouchedOnly(main, Member().table, inHand);
}

TEST_P(SimpleMasterFamilyTest, EveryEmptyBoxIsToldInItsTurn)
{
    OpenMember();
    Press(Button("cmdNew"));
    if (Member().hasParent) {
        prompts.ExpectInformation(QStringLiteral("Select State"));
        Press(Button("cmdSave"));
        EXPECT_EQ(FocusName(), "dbcStateName");
        PressKey(form, Qt::Key_Down);
    }
    for (const Field& field : Member().fields) {
        if (QLatin1String(field.control) != QLatin1String("txtExamOrder") &&
            QLatin1String(field.control) != QLatin1String("txtSubjectShort"))
            Retype(field.control, "  ");
        prompts.ExpectInformation(QString::fromLatin1(field.emptyMessage));
        Press(Button("cmdSave"));
        EXPECT_EQ(FocusName(), field.control);
        prompts.Verify();
        Retype(field.control, field.first);
    }
    EXPECT_EQ(Rows(), 0);
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Rows(), 1);
}

TEST_P(SimpleMasterFamilyTest, ARowSavedWithItsOwnNamePasses)
{
    OpenMember();
    EnterAndStore(&Field::first);
    EnterAndStore(&Field::second);
    Select(1);
    Press(Button("cmdEdit"));
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Rows(), 2);
}

TEST_P(SimpleMasterFamilyTest, ANameOfAnotherRowIsRefusedWhateverItsLettersAndBlanksAround)
{
    OpenMember();
    EnterAndStore(&Field::first);
    Press(Button("cmdNew"));
    if (Member().hasParent) {
        Find<DataCombo>(form, "dbcStateName")->setFocus();
        PressKey(form, Qt::Key_Down);
    }
    for (const Field& field : Member().fields)
        Retype(field.control, field.second);
    const QString upper = QString::fromLatin1(Member().fields.front().first).toUpper();
    Retype(NameBox(), (QLatin1Char(' ') + upper).toLatin1().constData());
    prompts.ExpectInformation(QString::fromLatin1(Member().duplicateMessage));
    Press(Button("cmdSave"));
    EXPECT_EQ(FocusName(), NameBox());
    EXPECT_EQ(Rows(), 1);
    EXPECT_EQ(State(), "Entry");
    EXPECT_EQ(TextOf(NameBox()), " " + upper.toStdString());
}

TEST_P(SimpleMasterFamilyTest, RenamingARowToAnothersNameIsRefused)
{
    OpenMember();
    EnterAndStore(&Field::first);
    EnterAndStore(&Field::second);
    Select(1);
    Press(Button("cmdEdit"));
    Retype(NameBox(), Member().fields.front().first);
    prompts.ExpectInformation(QString::fromLatin1(Member().duplicateMessage));
    Press(Button("cmdSave"));
    EXPECT_EQ(Named(Member().fields.front().second), 1);
}

TEST_P(SimpleMasterFamilyTest, WithoutTheRightNothingHappensButTheRefusal)
{
    OpenMember();
    EnterAndStore(&Field::first);
    const qint64 before = Rows();
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("clerk"));
    Session().gintPrivilegeUserCode = 9;

    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    EXPECT_EQ(State(), "Idle");
    Select(0);
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    EXPECT_EQ(State(), "RowSelected");
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Delete"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(State(), "RowSelected");
    EXPECT_EQ(Rows(), before + (QLatin1String(Member().table) == QLatin1String("UserMaster") ? 1 : 0));
}

TEST_P(SimpleMasterFamilyTest, ARightGivenForThisFormIsEnough)
{
    const QString name = QString::fromLatin1(Member().formName);
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("clerk"),
              {{name, QStringLiteral("N")}, {name, QStringLiteral("E")}, {name, QStringLiteral("X")}});
    Session().gintPrivilegeUserCode = 9;
    OpenMember();
    EnterAndStore(&Field::first);
    EXPECT_EQ(Named(Member().fields.front().first), 1);
}

TEST_P(SimpleMasterFamilyTest, ADeclinedQuestionChangesNothing)
{
    OpenMember();
    EnterAndStore(&Field::first);
    Select(0, false);
    EXPECT_EQ(State(), "Idle");
    EXPECT_EQ(TextOf(NameBox()), "");
}

TEST_P(SimpleMasterFamilyTest, ADoubleClickOnTheRowInHandAsksAgain)
{
    OpenMember();
    EnterAndStore(&Field::first);
    Select(0, false);
    prompts.ExpectQuestion(QString::fromLatin1(Member().selectQuestion), true);
    const QPoint onRow = grid->visualRect(grid->currentIndex()).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, onRow);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, onRow);
    EXPECT_EQ(State(), "RowSelected");
    EXPECT_EQ(TextOf(NameBox()), Member().fields.front().first);
}

TEST_P(SimpleMasterFamilyTest, PassingThroughTheGridWithTabAsksNothing)
{
    OpenMember();
    EnterAndStore(&Field::first);
    Box(Member().searchControl)->setFocus();
    PressKey(form, Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "dgdDetails");
    PressKey(form, Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "cmdNew");
}

TEST_P(SimpleMasterFamilyTest, TabGoesInReadingOrder)
{
    OpenMember();
    Press(Button("cmdNew"));
    Box(Member().searchControl)->setFocus();
    QPoint before(-1, -1);
    for (const char* last = Member().searchControl; FocusName() != "cmdExit";) {
        PressKey(form, Qt::Key_Tab);
        const QPoint here = form->focusWidget()->mapTo(form, QPoint(0, 0));
        EXPECT_TRUE(here.y() > before.y() || (here.y() == before.y() && here.x() > before.x()))
            << FocusName() << " behind " << last;
        before = here;
    }
}

TEST_P(SimpleMasterFamilyTest, ARowDeletedByAnotherClientIsNotTakenForSaved)
{
    OpenMember();
    EnterAndStore(&Field::first);
    Select(0);
    Press(Button("cmdEdit"));
    Retype(NameBox(), Member().fields.front().second);
    AnotherClient()->Execute(QStringLiteral("DELETE FROM %1 WHERE %2 = 1")
                                 .arg(QLatin1String(Member().table), QLatin1String(Member().key)));
    prompts.ExpectCritical(RowIsGone);
    Press(Button("cmdSave"));
    EXPECT_EQ(State(), "Entry");
    EXPECT_EQ(TextOf(NameBox()), Member().fields.front().second);
    EXPECT_EQ(grid->RowCount(), 0);
    EXPECT_EQ(Rows(), 0);
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
}

TEST_P(SimpleMasterFamilyTest, AFileHeldByAnotherClientLosesNothing)
{
    OpenAndFillNew();
    const auto other = AnotherClient();
    other->Begin();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(1));
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdSave"));
    EXPECT_EQ(State(), "Entry");
    EXPECT_EQ(TextOf(NameBox()), Member().fields.front().first);
    other->Rollback();
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Named(Member().fields.front().first), 1);
}

TEST_P(SimpleMasterFamilyTest, ANameThatCannotBeComparedWithTheOthersIsNotSavedAndThatIsToldOnce)
{
    OpenAndFillNew();
    const QByteArray table(Member().table);
    Given(("ALTER TABLE " + table + " RENAME TO Away").constData());
    prompts.ExpectCritical(NoSuchTable(table.constData()));
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(State(), "Entry");
    Given(("ALTER TABLE Away RENAME TO " + table).constData());
    Save(QStringLiteral("Record Saved"));
}

TEST_P(SimpleMasterFamilyTest, AFaultInReadingBackWhatIsSavedSaysThatItIsSaved)
{
    OpenAndFillNew();
    const QByteArray table(Member().table);
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_EQ(kind, Prompts::Kind::Information);
        if (told.isEmpty())
            Given(("ALTER TABLE " + table + " RENAME TO Away").constData());
        told.append(text);
        return true;
    });
    Press(Button("cmdSave"));
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told.at(0), QStringLiteral("Record Saved"));
    EXPECT_TRUE(told.at(1).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    EXPECT_EQ(State(), "Idle");
    Given(("ALTER TABLE Away RENAME TO " + table).constData());
    Press(Button("cmdCancel"));
    EXPECT_EQ(grid->RowCount(), 1);
    EXPECT_EQ(told.size(), 2);
}

TEST_P(SimpleMasterFamilyTest, PastedTextKeepsOnlyWhatCouldBeTyped)
{
    OpenMember();
    Press(Button("cmdNew"));
    QLineEdit* name = Box(NameBox());
    name->setFocus();
    const auto paste = [&](const QString& text) {
        name->clear();
        QApplication::clipboard()->setText(text);
        PressKey(form, Qt::Key_V, Qt::ControlModifier);
        return name->text().toStdString();
    };
    EXPECT_EQ(paste(QStringLiteral("O'A\r\n")), "OA");
    EXPECT_EQ(paste(QStringLiteral("b\u00e9\u0915%c")), "bc");
    name->clear();
    QApplication::clipboard()->setText(QString(500, QLatin1Char('x')));
    PressKey(form, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(name->text().size(), name->maxLength());
    PressKey(form, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(name->text().size(), name->maxLength());
}

TEST_P(SimpleMasterFamilyTest, TheLongestTextsFitTheirColumns)
{
    OpenMember();
    Press(Button("cmdNew"));
    if (Member().hasParent) {
        Find<DataCombo>(form, "dbcStateName")->setFocus();
        PressKey(form, Qt::Key_Down);
    }
    for (const Field& field : Member().fields) {
        const bool number = QLatin1String(field.control) == QLatin1String("txtExamOrder");
        Retype(field.control, QByteArray(600, number ? '9' : 'W').constData());
        EXPECT_EQ(Box(field.control)->text().size(), Box(field.control)->maxLength());
    }
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(Rows(), 1);
}

TEST_P(SimpleMasterFamilyTest, AQuoteCanNotBeTypedAnywhere)
{
    OpenMember();
    Press(Button("cmdNew"));
    for (const char* name : {NameBox(), Member().searchControl}) {
        Retype(name, "a'b");
        EXPECT_EQ(TextOf(name), "ab");
    }
}

TEST_P(SimpleMasterFamilyTest, TheGridNarrowsAtEachKeyOfTheSearch)
{
    OpenMember();
    EnterAndStore(&Field::first);
    EnterAndStore(&Field::second);
    const QString second = QString::fromLatin1(Member().fields.front().second);
    Box(Member().searchControl)->setFocus();
    for (const QChar letter : second.toUpper()) {
        const auto before = Session().gcnnMain->StatementsRun();
        QTest::keyClick(form->focusWidget(), letter.toLatin1());
        EXPECT_EQ(Session().gcnnMain->StatementsRun() - before, 1U);
    }
    ASSERT_EQ(grid->RowCount(), 1);
    Retype(Member().searchControl, "  ");
    EXPECT_EQ(grid->RowCount(), 2);
    Retype(Member().searchControl, "zzzzz");
    EXPECT_EQ(grid->RowCount(), 0);
    Press(Button("cmdNew"));
    EXPECT_EQ(TextOf(Member().searchControl), "");
    EXPECT_EQ(grid->RowCount(), 2);
}

TEST_P(SimpleMasterFamilyTest, ASelectionBehindASearchIsTheRowThatIsShown)
{
    OpenMember();
    EnterAndStore(&Field::first);
    EnterAndStore(&Field::second);
    Retype(Member().searchControl, Member().fields.front().second);
    Select(0);
    EXPECT_EQ(TextOf(NameBox()), Member().fields.front().second);
    prompts.ExpectQuestion(QString::fromLatin1(Member().deleteQuestion), true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Named(Member().fields.front().first), 1);
    EXPECT_EQ(Named(Member().fields.front().second), 0);
}

TEST_P(SimpleMasterFamilyTest, CancelForgetsTheEntryAndTheRowInHand)
{
    OpenMember();
    EnterAndStore(&Field::first);
    Select(0);
    Press(Button("cmdEdit"));
    Retype(NameBox(), "x");
    Press(Button("cmdCancel"));
    EXPECT_EQ(State(), "Idle");
    EXPECT_EQ(FocusName(), "cmdNew");
    for (const Field& field : Member().fields)
        EXPECT_EQ(TextOf(field.control), "");
    EXPECT_EQ(Named(Member().fields.front().first), 1);
    prompts.ExpectInformation(QString::fromLatin1(Member().duplicateMessage));
    EnterByKeys(&Field::first);
    prompts.Verify();
    Press(Button("cmdCancel"));
    EnterAndStore(&Field::second);
    EXPECT_EQ(Rows(), 2);
}

TEST_P(SimpleMasterFamilyTest, TheUserIsNotedOnANewRowAndOnlyWhereItIsUsualOnAChangedOne)
{
    OpenMember();
    EnterAndStore(&Field::first);
    const QString column = QLatin1String(Member().table) == QLatin1String("UserMaster")
                               ? QStringLiteral("EnteredBy")
                               : QStringLiteral("UserCode");
    const QString userOf = QStringLiteral("SELECT %1 FROM %2 WHERE %3 = 1")
                               .arg(column, QLatin1String(Member().table), QLatin1String(Member().key));
    EXPECT_EQ(Session().gcnnMain->Number(userOf), 4);
    Session().gintUserCode = 7;
    Select(0);
    Press(Button("cmdEdit"));
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Session().gcnnMain->Number(userOf), Member().notesUserOnUpdate ? 7 : 4);
}

TEST_P(SimpleMasterFamilyTest, OnlyExitLeavesAndAsksWhereItIsWanted)
{
    OpenMember();
    const QString name = QString::fromLatin1(Member().formName);
    qobject_cast<QMdiSubWindow*>(form->parentWidget())->close();
    Settle();
    ASSERT_NE(ScreenRegistry::OpenInstance(name), nullptr);
    Session().gblnPromptOnExit = true;
    const QString question =
        QStringLiteral("Do You Want To Exit %1 ?").arg(QString::fromLatin1(Member().caption));
    prompts.ExpectQuestion(question, false);
    Press(Button("cmdExit"));
    ASSERT_NE(ScreenRegistry::OpenInstance(name), nullptr);
    prompts.ExpectQuestion(question, true);
    PressKey(form, Qt::Key_X, Qt::AltModifier);
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(name), nullptr);
}

TEST_P(SimpleMasterFamilyTest, F1KnowsTheHelpOfThisScreen)
{
    OpenMember();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, Member().helpScreenNo);
}

TEST_P(SimpleMasterFamilyTest, NoLetterStandsForTwoControls)
{
    OpenMember();
    EXPECT_EQ(ExpectOneControlALetter(form), QStringList());
}

TEST_P(SimpleMasterFamilyTest, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QString::fromLatin1(Member().formName));
}

TEST_P(SimpleMasterFamilyTest, AnActionCostsAsManyStatementsWithManyRowsAsWithOne)
{
    OpenMember();
    const auto costOfASave = [this](const char* Field::*value) {
        const auto before = Session().gcnnMain->StatementsRun();
        EnterAndStore(value);
        return Session().gcnnMain->StatementsRun() - before;
    };
    const auto empty = costOfASave(&Field::first);
    store::Transaction transaction(*Session().gcnnMain);
    for (int i = 0; i < 200; ++i) {
        const QString columns =
            Member().hasParent ? QStringLiteral("%1, StateCode, %2") : QStringLiteral("%1, %2");
        transaction.Execute(
            QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                .arg(QLatin1String(Member().table),
                     columns.arg(QLatin1String(Member().key), QLatin1String(Member().nameColumn)),
                     Member().hasParent ? QStringLiteral("?, 1, ?") : QStringLiteral("?, ?")),
            i + 10, QString(QStringLiteral("x%1").arg(i)));
    }
    transaction.Commit();
    EXPECT_EQ(costOfASave(&Field::second), empty);
}

INSTANTIATE_TEST_SUITE_P(Members, SimpleMasterFamilyTest, testing::ValuesIn(SimpleMasterMembers),
                         [](const auto& member) { return std::string(member.param.formName); });

} // namespace
} // namespace tally::test
