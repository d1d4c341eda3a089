#include "ranks/RankScreen.h"
#include "reports/output/WorkbookReader.h"

#include <QLabel>

namespace tally::test {
namespace {

/// Another client prepares and drops rank lists of its own in the table that all clients share.
class SharedRankList : public RankScreen
{
protected:
    void SetUp() override
    {
        RankScreen::SetUp();
        other = AnotherClient(QStringLiteral("TempTallyboard.mdb"));
        GivenFiveStudents();
    }

    void TearDown() override
    {
        other.reset();
        RankScreen::TearDown();
    }

    void AnotherClientProceeds() const
    {
        RankList list;
        list.className = QStringLiteral("IX");
        list.divisions = {{7, QStringLiteral("Q")}};
        list.subjects = {{9, QStringLiteral("Zoo"), true}};
        list.rows.resize(2);
        list.rows[0].studentName = QStringLiteral("Foreign One");
        list.rows[1].studentName = QStringLiteral("Foreign Two");
        list.cells.resize(2);
        store::Transaction transaction(*other);
        TempRankRepository::FillTempRankCalculation(transaction, list);
        transaction.Commit();
    }

    void AnotherClientCancels() const
    {
        store::Transaction transaction(*other);
        TempRankRepository::DropTempRankCalculation(transaction);
        transaction.Commit();
    }

    qint64 ForeignRows() const
    {
        return other->Number(QStringLiteral("SELECT count(*) FROM TempRankCalculation WHERE StudentName LIKE "
                                            "'Foreign%'"));
    }

    bool TableStands() const
    {
        return other->Number(QStringLiteral(
                   "SELECT count(*) FROM sqlite_master WHERE name = 'TempRankCalculation'")) > 0;
    }

    void ExpectOwnRowsSaved()
    {
        EXPECT_EQ(SavedTotals("StudentCode BETWEEN 1 AND 5"), 5);
        EXPECT_EQ(SavedTotals(), 5);
        EXPECT_EQ(Count("SELECT Total FROM TempRankTotal WHERE StudentCode = 1 AND AcademicYearCode = 1 AND "
                        "ExamCode = 1 AND "
                        "ClassCode = 1 AND DivisionCode = 1"),
                  170);
    }

    std::unique_ptr<store::Connection> other;
    const QStringList own{QStringLiteral("Asha"), QStringLiteral("Binu"), QStringLiteral("Cara"),
                          QStringLiteral("Dev"), QStringLiteral("Esa")};
};

TEST_F(SharedRankList, EveryOrderShowsTheOwnListAfterAnotherClientHasProceeded)
{
    OpenAndProceed();
    for (const char* order :
         {"optAlphabeticalOrder", "optAdmissionNoOrder", "optGradeOrder", "optRankOrder"}) {
        AnotherClientProceeds();
        Press(Option(order));
        QStringList shown = ShownNames();
        shown.sort();
        EXPECT_EQ(shown, order == QByteArray("optGradeOrder") ? own.mid(0, 4) : own) << order;
        EXPECT_EQ(Cell(QStringLiteral("Cara"), QStringLiteral("Mat")), QStringLiteral("60")) << order;
    }
    AnotherClientProceeds();
    Press(Button("cmdView"));
    EXPECT_EQ(ShownNames().size(), 5);
}

TEST_F(SharedRankList, AViewFindsTheOwnListAfterAnotherClientHasDroppedTheTable)
{
    OpenAndProceed();
    AnotherClientProceeds();
    AnotherClientCancels();
    Press(Option("optAlphabeticalOrder"));
    EXPECT_EQ(ShownNames(), own);
}

TEST_F(SharedRankList, ASaveStoresTheOwnStudentsAfterAnotherClientHasProceeded)
{
    OpenAndProceed();
    AnotherClientProceeds();
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    Press(Button("cmdSave"));
    ExpectOwnRowsSaved();
}

TEST_F(SharedRankList, ASaveStoresTheOwnStudentsAfterAnotherClientHasDroppedTheTable)
{
    OpenAndProceed();
    AnotherClientProceeds();
    AnotherClientCancels();
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    Press(Button("cmdSave"));
    ExpectOwnRowsSaved();
}

TEST_F(SharedRankList, TheSummaryIsOfTheOwnListThoughAnotherClientProceedsBeforeItIsCounted)
{
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    {
        const QObject whileProceeding;
        QObject::connect(grid->model(), &QAbstractItemModel::modelReset, &whileProceeding,
                         [this] { AnotherClientProceeds(); });
        Press(Button("cmdUpdate"));
    }
    ASSERT_EQ(ForeignRows(), 2);
    Press(Button("cmdTotalDetails"));
    EXPECT_EQ(Find<FlexGrid>(form, "msgGrade")->TextMatrix(1, 1), QStringLiteral("5"));
}

TEST_F(SharedRankList, TheExportIsOfTheOwnList)
{
    OpenAndProceed();
    AnotherClientProceeds();
    Press(Option("optAlphabeticalOrder"));
    AnotherClientProceeds();
    SetExportFolder(Folder() + QStringLiteral("/exports"));
    QString opened;
    UseSpreadsheetProgram({true, [&](const QString& path) {
                               opened = path;
                               return true;
                           }});
    Press(Button("cmdExport"));
    const WorkbookReader sheet(opened);
    QStringList names;
    for (int row = 1; row <= 20; ++row)
        if (const QString text = sheet.At(QStringLiteral("A%1").arg(row).toLatin1().constData()).value;
            own.contains(text) || text.startsWith(QLatin1String("Foreign")))
            names.append(text);
    EXPECT_EQ(names, own);
}

TEST_F(SharedRankList, ATableThatNobodyElseTouchedIsReadWithoutWaitingForAWriter)
{
    OpenAndProceed();
    Session().gcnnTemp->SetPatience(std::chrono::milliseconds(0));
    const store::Transaction writing(*other);
    Press(Option("optAlphabeticalOrder"));
    EXPECT_EQ(ShownNames(), own);
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    Press(Button("cmdSave"));
    ExpectOwnRowsSaved();
}

TEST_F(SharedRankList, AnotherUsersOptionsInTheSameFileDisturbNothing)
{
    OpenAndProceed();
    other->Execute(QStringLiteral("INSERT INTO Options VALUES ('N', 9)"));
    Press(Option("optAlphabeticalOrder"));
    EXPECT_EQ(ShownNames(), own);
    EXPECT_EQ(other->Number(QStringLiteral("SELECT count(*) FROM Options WHERE UserCode = 9")), 1);
}

TEST_F(SharedRankList, ALockIsToldInPlainWordsAndTheListStaysToBeShownAndSaved)
{
    OpenAndProceed();
    const QStringList shown = ShownNames();
    AnotherClientProceeds();
    Session().gcnnTemp->SetPatience(std::chrono::milliseconds(50));
    other->Begin();
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Option("optAlphabeticalOrder"));
    prompts.Verify();
    EXPECT_EQ(ShownNames(), shown);
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
    EXPECT_EQ(SavedTotals(), 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);

    other->Rollback();
    Press(Button("cmdView"));
    EXPECT_EQ(ShownNames(), own);
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    Press(Button("cmdSave"));
    ExpectOwnRowsSaved();
}

TEST_F(SharedRankList, ALockWhileProceedingLeavesTheSelectionOpenAndTheOtherClientsTable)
{
    AnotherClientProceeds();
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    Session().gcnnTemp->SetPatience(std::chrono::milliseconds(50));
    other->Begin();
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdUpdate"));
    prompts.Verify();
    other->Rollback();
    EXPECT_TRUE(Find<QGroupBox>(form, "Frame2")->isEnabled());
    EXPECT_TRUE(Button("cmdUpdate")->hasFocus());
    EXPECT_FALSE(Button("cmdSave")->isEnabled());
    EXPECT_EQ(ForeignRows(), 2);
    Press(Button("cmdView"));
    EXPECT_TRUE(ShownNames().isEmpty()) << "nothing is prepared that could be viewed";
    Press(Button("cmdUpdate"));
    EXPECT_EQ(ShownNames().size(), 5);
}

TEST_F(SharedRankList, CancelAndExitLeaveAnotherClientsTable)
{
    OpenAndProceed();
    AnotherClientProceeds();
    Press(Button("cmdCancel"));
    EXPECT_EQ(ForeignRows(), 2);
    Press(Button("cmdExit"));
    Settle();
    OpenAndProceed();
    AnotherClientProceeds();
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ForeignRows(), 2);
}

TEST_F(SharedRankList, CancelAfterAViewLaidTheListDownAgainDropsIt)
{
    OpenAndProceed();
    AnotherClientProceeds();
    Press(Option("optAlphabeticalOrder"));
    EXPECT_EQ(ForeignRows(), 0);
    Press(Button("cmdCancel"));
    EXPECT_FALSE(TableStands());
}

TEST_F(SharedRankList, CancelSaysNothingWhenTheTableIsGoneOrLocked)
{
    OpenAndProceed();
    AnotherClientProceeds();
    AnotherClientCancels();
    Press(Button("cmdCancel"));
    EXPECT_FALSE(TableStands());
    ChooseExamAndClass();
    Press(selectAll);
    Press(Button("cmdUpdate"));
    Session().gcnnTemp->SetPatience(std::chrono::milliseconds(50));
    const store::Transaction writing(*other);
    Press(Button("cmdCancel"));
    EXPECT_TRUE(exam->hasFocus());
}

TEST_F(SharedRankList, LayingTheListDownAgainReadsNoMoreOfTheSchoolsTables)
{
    StopPresence();
    OpenAndProceed();
    const auto statements = [&](const char* name) {
        const auto before = Session().gcnnMain->StatementsRun();
        Press(Option(name));
        return Session().gcnnMain->StatementsRun() - before;
    };
    const auto alone = statements("optGradeOrder");
    Press(Option("optRankOrder"));
    AnotherClientProceeds();
    EXPECT_EQ(statements("optGradeOrder"), alone);
}

} // namespace
} // namespace tally::test
