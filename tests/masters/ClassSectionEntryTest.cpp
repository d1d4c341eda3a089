#include "core/ui/ScreenRegistry.h"
#include "masters/ClassSectionScreen.h"
#include "store/StoreError.h"
#include "support/OneMoment.h"

#include <QHeaderView>
#include <QLabel>

namespace tally::test {
namespace {

using ClassSectionEntry = ClassSectionScreen;

const char* const DataInUse = "This Data Is Already Used By Other Screen(s).\nYou Cannot Delete This Data.";

TEST_F(ClassSectionEntry, OpensWithTheNoteAboutTheOrderAndNothingElseToPress)
{
    OpenForm();
    EXPECT_EQ(form->windowTitle().toStdString(), "Class Section Entry");
    EXPECT_TRUE(Find<QFrame>(form, "fraAboutEntry")->isVisible());
    EXPECT_EQ(Find<QLabel>(form, "Label1")->text().toStdString(),
              "Priority Number Is Auto Generated Number. Higher Class Will Have The Top Priority, Eg. 12th "
              "Standard Will Have 1. So Enter The Class Name In Desending Order.");
    for (const char* frame : {"Frame1", "fraButtons", "fraClassDetails", "fraDivisionDetails"})
        EXPECT_FALSE(IsEnabled(frame)) << frame;
    for (const FlexGrid* grid : {classes, divisions})
        EXPECT_EQ(grid->Rows(), 2) << "a blank row below the head";
    Press(Button("cmdClose"));
    EXPECT_FALSE(Find<QFrame>(form, "fraAboutEntry")->isVisible());
    EXPECT_TRUE(IsEnabled("fraButtons"));
}

TEST_F(ClassSectionEntry, HeadsAndHiddenColumnsAreAsTheOfficeKnowsThem)
{
    Browse();
    const QStringList heads{"S.No",        "Class Name",       "No. Of Divisions",
                            "Class Order", "OldNoofdivisions", "OldDivision",
                            "Classcode"};
    for (int col = 0; col < heads.size(); ++col) {
        EXPECT_EQ(classes->TextMatrix(0, col), heads.at(col));
        EXPECT_EQ(classes->ColWidth(col) == 0, col >= 4) << col;
    }
    EXPECT_EQ(divisions->TextMatrix(0, 0).toStdString(), "Sl.No.");
    EXPECT_EQ(divisions->TextMatrix(0, 1).toStdString(), "Division Name");
    EXPECT_EQ(divisions->TextMatrix(0, 2).toStdString(), "ClassCode");
    EXPECT_EQ(divisions->ColWidth(2), 0);
    for (const FlexGrid* grid : {classes, divisions}) {
        EXPECT_EQ(grid->horizontalHeader()->length(), grid->viewport()->width()) << "names have all the room";
        EXPECT_EQ(grid->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    }
}

TEST_F(ClassSectionEntry, WithoutClassesThereIsOnlyNew)
{
    Browse();
    EXPECT_TRUE(IsEnabled("cmdNew"));
    EXPECT_TRUE(Button("cmdNew")->hasFocus());
    for (const char* off : {"cmdEdit", "cmdSave", "fraClassDetails", "fraDivisionDetails", "Frame1"})
        EXPECT_FALSE(IsEnabled(off)) << off;
    Press(Button("cmdNew"));
    for (const char* on : {"cmdSave", "fraClassDetails", "fraDivisionDetails", "Frame1"})
        EXPECT_TRUE(IsEnabled(on)) << on;
    EXPECT_FALSE(IsEnabled("cmdNew"));
    EXPECT_FALSE(IsEnabled("cmdEdit"));
    EXPECT_EQ(classes->Rows(), 2);
    EXPECT_EQ(classes->TextMatrix(1, 0).toStdString(), "1");
    EXPECT_EQ(classes->TextMatrix(1, 6).toStdString(), "1");
}

TEST_F(ClassSectionEntry, WithClassesThereIsOnlyEdit)
{
    GivenThreeClasses();
    Browse();
    EXPECT_TRUE(IsEnabled("cmdEdit"));
    EXPECT_TRUE(Button("cmdEdit")->hasFocus());
    for (const char* off : {"cmdNew", "cmdSave", "fraClassDetails", "fraDivisionDetails", "Frame1"})
        EXPECT_FALSE(IsEnabled(off)) << off;
    EXPECT_EQ(ClassRowText(2), "2|XI|3|2");
    Press(Button("cmdEdit"));
    for (const char* on : {"cmdSave", "fraClassDetails", "fraDivisionDetails", "Frame1"})
        EXPECT_TRUE(IsEnabled(on)) << on;
    EXPECT_FALSE(IsEnabled("cmdNew"));
    EXPECT_FALSE(IsEnabled("cmdEdit"));
    EXPECT_TRUE(Button("cmdSave")->hasFocus());
}

TEST_F(ClassSectionEntry, WhenTheLastClassHasGoneTheNextOneIsTheFirstOfTheSchool)
{
    GivenThreeClasses();
    Edit();
    Press(Button("cmdCancel"));
    EXPECT_TRUE(IsEnabled("cmdEdit"));
    const auto other = AnotherClient();
    for (const char* table : {"ClassDivisionDetails", "ClassDivisionMaster"})
        other->Execute(QStringLiteral("DELETE FROM %1 WHERE ClassCode > 0").arg(QLatin1String(table)));
    Press(Button("cmdCancel"));
    EXPECT_FALSE(IsEnabled("cmdEdit"));
    EXPECT_TRUE(Button("cmdNew")->hasFocus());
    Press(Button("cmdNew"));
    Press(Button("cmdCancel"));
    for (const char* off : {"cmdSave", "fraClassDetails", "fraDivisionDetails", "Frame1"})
        EXPECT_FALSE(IsEnabled(off)) << off;
    Press(Button("cmdNew"));
    Enter("X");
    Enter("1");
    Save(QStringLiteral("Record Saved"));
    EXPECT_EQ(StoredClasses(), "1 X 1 1;");
}

TEST_F(ClassSectionEntry, TheClassesStandInTheirOrder)
{
    GivenClass(1, QStringLiteral("IX"), 1, 3);
    GivenClass(2, QStringLiteral("XI"), 1, 1);
    GivenClass(3, QStringLiteral("X"), 1, 2);
    Browse();
    EXPECT_EQ(classes->Rows(), 4);
    EXPECT_EQ(ClassRowText(1), "1|XI|1|1");
    EXPECT_EQ(ClassRowText(3), "3|IX|1|3");
    EXPECT_EQ(classes->TextMatrix(3, 6).toStdString(), "1");
}

TEST_F(ClassSectionEntry, NewAndEditAskForTheirPrivilege)
{
    GivenUser(5, QStringLiteral("clerk"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 5;
    Browse();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    EXPECT_FALSE(IsEnabled("cmdSave"));
    EXPECT_TRUE(IsEnabled("cmdNew"));

    GivenThreeClasses();
    Press(Button("cmdCancel"));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    EXPECT_FALSE(IsEnabled("cmdSave"));
    EXPECT_TRUE(IsEnabled("cmdEdit"));
}

TEST_F(ClassSectionEntry, NinetyNineStoredClassesLoadNinetyEightAndLeaveTheButtons)
{
    for (int code = 1; code <= 99; ++code)
        GivenClass(code, QString::number(code), 1, code);
    OpenForm();
    prompts.ExpectInformation(QStringLiteral("You Cannot Create More Than 99 Classes"));
    Press(Button("cmdClose"));
    EXPECT_EQ(classes->Rows(), 99);
    EXPECT_TRUE(IsEnabled("cmdNew"));
    EXPECT_FALSE(IsEnabled("cmdEdit"));
}

TEST_F(ClassSectionEntry, AnEditedNameIsUpdatedAndTheScreenBrowsesAgain)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 1, 1);
    Enter("12");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 12 2 1; 2 XI 3 2; 3 X 1 3;");
    EXPECT_TRUE(IsEnabled("cmdEdit"));
    EXPECT_FALSE(IsEnabled("cmdSave"));
    EXPECT_FALSE(txtNoOfDivisions->isVisible());
    EXPECT_EQ(ClassRowText(1), "1|12|2|1");
}

TEST_F(ClassSectionEntry, WhileTheWordForTheResultStandsNothingCanBeEntered)
{
    GivenThreeClasses();
    Edit();
    bool entering = true;
    Prompts::AnswerWith([&](Prompts::Kind, const QString&) {
        entering = IsEnabled("fraClassDetails");
        return true;
    });
    Press(Button("cmdSave"));
    EXPECT_FALSE(entering);
}

TEST_F(ClassSectionEntry, ANewClassBehindTheOthersIsInserted)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 3, 3);
    Enter("");
    Enter("IX");
    Enter("2");
    EXPECT_EQ(classes->TextMatrix(4, 6).toStdString(), "4");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 2 XI 3 2; 3 X 1 3; 4 IX 2 4;");
    EXPECT_EQ(StoredDivisions(4), "1A 2B");
    EXPECT_EQ(Count("SELECT UserCode FROM ClassDivisionMaster WHERE ClassCode = 4"), 5);
}

struct Refusal
{
    const char* what;
    const char* spoil; ///< a statement that spoils the stored classes; empty for none
    const char* message;
    const char* focus;
    int row;

    friend void PrintTo(const Refusal& refusal, std::ostream* out) { *out << "check " << refusal.what; }
};

class ClassSectionRefusal : public ClassSectionScreen, public testing::WithParamInterface<Refusal>
{};

TEST_P(ClassSectionRefusal, TellsTheFaultAndOpensTheBoxOnItsRow)
{
    GivenThreeClasses();
    Given(GetParam().spoil);
    Edit();
    prompts.ExpectInformation(QString::fromLatin1(GetParam().message));
    Press(Button("cmdSave"));
    auto* box = Find<FloatingEditor>(form, GetParam().focus);
    EXPECT_TRUE(box->hasFocus()) << GetParam().what;
    EXPECT_TRUE(box->isVisible()) << GetParam().what;
    EXPECT_EQ(box->Row(), GetParam().row) << GetParam().what;
    EXPECT_TRUE(IsEnabled("cmdSave"));
}

INSTANTIATE_TEST_SUITE_P(
    EachCheck, ClassSectionRefusal,
    testing::Values(
        Refusal{"1", "UPDATE ClassDivisionMaster SET ClassName = 'XII' WHERE ClassCode = 3",
                "Class Name Already Exists", "txtClassName", 3},
        Refusal{"2", "UPDATE ClassDivisionMaster SET ClassName = '' WHERE ClassCode = 2",
                "Class Name Should Not Be Empty", "txtClassName", 2},
        Refusal{"3", "UPDATE ClassDivisionMaster SET NoOfDivisions = 0 WHERE ClassCode = 2",
                "Each Class Should Have Atleast One Division", "txtNoOfDivisions", 2},
        Refusal{"4 and 6", "UPDATE ClassDivisionMaster SET ClassOrder = 0 WHERE ClassCode = 1",
                "Class Order Should Not Be Empty", "txtClassOrder", 1},
        Refusal{"5", "UPDATE ClassDivisionMaster SET ClassOrder = 2 WHERE ClassCode = 3",
                "Class Order Already Exists", "txtClassOrder", 3},
        Refusal{"7", "DELETE FROM ClassDivisionDetails WHERE ClassCode > 0", "Enter Class-Division Details",
                "txtClassName", 1},
        Refusal{"8",
                "UPDATE ClassDivisionDetails SET DivisionName = '' WHERE ClassCode = 2 AND DivisionCode = 3",
                "Enter Division Name To Class XI", "txtNoOfDivisions", 2}));

TEST_F(ClassSectionEntry, NothingEnteredAsksForClassesAndDivisions)
{
    New();
    prompts.ExpectInformation(QStringLiteral("Enter Class-Division Details"));
    Press(Button("cmdSave"));
    EXPECT_TRUE(txtClassName->hasFocus());
    EXPECT_EQ(txtClassName->Row(), 1);
}

TEST_F(ClassSectionEntry, ABlockedDivisionIsToldAndTheSaveGoesOn)
{
    GivenThreeClasses();
    GivenStudentIn(2, 3);
    Edit();
    Click(classes, 2, 2);
    QTest::keyClicks(txtNoOfDivisions, QStringLiteral("2"));
    prompts.ExpectInformation(
        QStringLiteral("This Division XI - C Is Used In Other Entry Screen(s). So You Cannot Delete"));
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredDivisions(2), "1A 2B 3C");
    EXPECT_EQ(ClassRowText(2), "2|XI|3|2");
}

TEST_F(ClassSectionEntry, ABlockedClassIsToldAndComesBack)
{
    GivenThreeClasses();
    GivenStudentIn(2, 1);
    Edit();
    DeleteRow(2);
    EXPECT_EQ(classes->Rows(), 3);
    prompts.ExpectInformation(
        QStringLiteral("The Class XI Is Used In Other Entry Screen(s). So You Cannot Delete"));
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 2 XI 3 2; 3 X 1 3;");
    EXPECT_EQ(classes->Rows(), 4);
}

TEST_F(ClassSectionEntry, WhatWasKeptIsToldWhenAllIsStoredAndNobodyWaitsForItsReader)
{
    GivenThreeClasses();
    GivenStudentIn(2, 3);
    Edit();
    Click(classes, 2, 2);
    QTest::keyClicks(txtNoOfDivisions, QStringLiteral("2"));
    auto other = AnotherClient();
    other->SetPatience(std::chrono::milliseconds(0));
    int told = 0;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        if (!text.startsWith(QLatin1String("This Division")))
            return true;
        ++told;
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
        EXPECT_EQ(other->Number(
                      QStringLiteral("SELECT NoOfDivisions FROM ClassDivisionMaster WHERE ClassCode = 2")),
                  3);
        const store::Transaction save(*other);
        return true;
    });
    Press(Button("cmdSave"));
    EXPECT_EQ(told, 1);
}

TEST_F(ClassSectionEntry, ACommitThatIsRefusedTellsNothingAsKept)
{
    GivenThreeClasses();
    GivenStudentIn(2, 3);
    Edit();
    Click(classes, 2, 2);
    QTest::keyClicks(txtNoOfDivisions, QStringLiteral("2"));
    StopPresence();
    const auto other = AnotherClient();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(0));
    auto reader = other->Query(QStringLiteral("SELECT * FROM MonthMaster"));
    ASSERT_TRUE(reader.Next());
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdSave"));
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    EXPECT_EQ(ClassRowText(2), "2|XI|2|2") << "what was typed stands, as nothing is stored";
    EXPECT_EQ(ClassRowText(3), "3|X|1|3");
}

TEST_F(ClassSectionEntry, WhatOtherTablesHoldFailsTheSaveWholeAndCancels)
{
    GivenThreeClasses();
    Given("INSERT INTO ExamMaster VALUES (1, 'Term', 1, 1)");
    Given("INSERT INTO RankMaster (ExamCode, ClassCode, DivisionCode) VALUES (1, 3, 1)");
    Edit();
    Click(classes, 1, 1);
    Enter("12");
    DeleteRow(3);
    prompts.ExpectCritical(QString::fromLatin1(DataInUse));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 2 XI 3 2; 3 X 1 3;");
    EXPECT_EQ(ClassRowText(1), "1|XII|2|1");
    EXPECT_EQ(classes->Rows(), 4);
    EXPECT_TRUE(IsEnabled("cmdEdit"));
    EXPECT_FALSE(IsEnabled("cmdSave"));
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
}

TEST_F(ClassSectionEntry, AFirstSaveThatMeetsAnotherClientsClassesShowsThose)
{
    New();
    Enter("X");
    Enter("1");
    GivenThreeClasses();
    prompts.ExpectCritical(QString::fromLatin1(DataInUse));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 2 XI 3 2; 3 X 1 3;");
    EXPECT_EQ(ClassRowText(1), "1|XII|2|1");
}

TEST_F(ClassSectionEntry, AnyOtherFailureIsDescribedAndKeepsWhatWasEntered)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 1, 1);
    Enter("12");
    Given("ALTER TABLE MarkMaster RENAME TO Elsewhere");
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 2 XI 3 2; 3 X 1 3;");
    EXPECT_EQ(ClassRowText(1), "1|12|2|1");
    EXPECT_TRUE(IsEnabled("cmdSave"));
    EXPECT_FALSE(txtNoOfDivisions->isVisible());
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
}

TEST_F(ClassSectionEntry, WhatTheFirstTransactionKeptIsShownWhereTheSecondOneFailsAndLeavesTheEntry)
{
    GivenClass(1, QStringLiteral("XII"), 1, 1);
    GivenClass(2, QStringLiteral("XI"), 1, 2);
    GivenClass(3, QStringLiteral("X"), 2, 3);
    GivenStudentIn(2, 1);
    Given("INSERT INTO ExamMaster VALUES (1, 'Term', 1, 1)");
    Given("INSERT INTO RankMaster (ExamCode, ClassCode, DivisionCode) VALUES (1, 3, 2)");
    Given("CREATE TRIGGER NoMoreDivisions BEFORE INSERT ON ClassDivisionDetails"
          " BEGIN SELECT * FROM Nowhere; END");
    Edit();
    Click(classes, 2, 2);
    QTest::keyClicks(txtNoOfDivisions, QStringLiteral("2"));
    Click(classes, 3, 2);
    QTest::keyClicks(txtNoOfDivisions, QStringLiteral("1"));
    DeleteRow(1);
    prompts.ExpectInformation(
        QStringLiteral("This Division X - B Is Used In Other Entry Screen(s). So You Cannot Delete"));
    prompts.ExpectInformation(
        QStringLiteral("The Class XI Is Used In Other Entry Screen(s). So You Cannot Delete"));
    prompts.ExpectCritical(NoSuchTable("main.Nowhere"));
    Press(Button("cmdSave"));
    EXPECT_EQ(ClassRowText(2), "2|X|2|3");
    EXPECT_TRUE(IsEnabled("cmdSave"));
}

TEST_F(ClassSectionEntry, ALockedDatabaseIsSaidPlainlyAndASecondTrySaves)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 1, 1);
    Enter("12");
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(0));
    auto other = AnotherClient();
    QString told;
    {
        const store::Transaction writing(*other);
        Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
            told = text;
            return true;
        });
        Press(Button("cmdSave"));
    }
    EXPECT_TRUE(told.startsWith(QLatin1String("The Data Is In Use By Another Client"))) << qPrintable(told);
    EXPECT_EQ(ClassRowText(1), "1|12|2|1");
    EXPECT_TRUE(IsEnabled("cmdSave"));
    Press(Button("cmdSave"));
    EXPECT_EQ(told.toStdString(), "Record Updated");
    EXPECT_EQ(StoredClasses(), "1 12 2 1; 2 XI 3 2; 3 X 1 3;");
}

TEST_F(ClassSectionEntry, AClassThatAnotherClientDeletedMeanwhileIsStoredAgain)
{
    GivenThreeClasses();
    Edit();
    AnotherClient()->Execute(QStringLiteral("DELETE FROM ClassDivisionDetails WHERE ClassCode = 2"));
    AnotherClient()->Execute(QStringLiteral("DELETE FROM ClassDivisionMaster WHERE ClassCode = 2"));
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 2 XI 3 2; 3 X 1 3;");
    EXPECT_EQ(StoredDivisions(2), "1A 2B 3C");
}

TEST_F(ClassSectionEntry, AClassThatAnotherClientAddedMeanwhileIsToldAndShownInsteadOfDeleted)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 1, 1);
    Enter("12");
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (4, 'IX', 1, 4, 1)"));
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (4, 'A', 1)"));
    prompts.ExpectCritical(
        QStringLiteral("The Classes Were Changed By Another User Meanwhile.\nYou Cannot Save This Data."));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 2 XI 3 2; 3 X 1 3; 4 IX 1 4;");
    EXPECT_EQ(ClassRowText(1), "1|XII|2|1");
    EXPECT_EQ(ClassRowText(4), "4|IX|1|4");
    EXPECT_TRUE(IsEnabled("cmdEdit"));
    EXPECT_FALSE(IsEnabled("cmdSave"));
}

TEST_F(ClassSectionEntry, AClassThatAnotherClientAddedBeforeTheEditIsNotDeletedEither)
{
    GivenThreeClasses();
    Browse();
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (4, 'IX', 1, 4, 1)"));
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (4, 'A', 1)"));
    Press(Button("cmdEdit"));
    prompts.ExpectCritical(
        QStringLiteral("The Classes Were Changed By Another User Meanwhile.\nYou Cannot Save This Data."));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 2 XI 3 2; 3 X 1 3; 4 IX 1 4;");
}

TEST_F(ClassSectionEntry, ATieThatIsLeftAfterTheSaveRenumbersAllClassesByCode)
{
    GivenClass(1, QStringLiteral("XII"), 1, 3);
    GivenClass(2, QStringLiteral("XI"), 1, 2);
    GivenClass(3, QStringLiteral("X"), 1, 1);
    GivenStudentIn(1, 1);
    Edit();
    DeleteRow(3);
    Click(classes, 2, 3);
    Enter("");
    Enter("IX");
    Enter("1");
    EXPECT_EQ(classes->TextMatrix(3, 3).toStdString(), "3") << "the order of the class that will be kept";
    prompts.ExpectInformation(
        QStringLiteral("The Class XII Is Used In Other Entry Screen(s). So You Cannot Delete"));
    prompts.ExpectInformation(QStringLiteral("Re-Arrange Class Order"));
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XII 1 1; 2 XI 1 2; 3 X 1 3; 4 IX 1 4;");
    EXPECT_EQ(ClassRowText(1), "1|XII|1|1");
}

TEST_F(ClassSectionEntry, DeletingTheFirstRowGivesTheNextClassTheCodeOne)
{
    GivenThreeClasses();
    Edit();
    DeleteRow(1);
    EXPECT_EQ(classes->Rows(), 3);
    EXPECT_EQ(ClassRowText(1), "1|XI|3|2");
    EXPECT_EQ(classes->TextMatrix(1, 6).toStdString(), "1");
    EXPECT_EQ(classes->TextMatrix(2, 6).toStdString(), "3");
}

TEST_F(ClassSectionEntry, ARefusalOfTheSecondTransactionLeavesWhatTheFirstOneStored)
{
    GivenThreeClasses();
    Edit();
    // The divisions of the class that moves up are left without their class.
    DeleteRow(1);
    prompts.ExpectCritical(QString::fromLatin1(DataInUse));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XI 3 2; 3 X 1 3;");
    EXPECT_EQ(ClassRowText(1), "1|XI|3|2");
    EXPECT_TRUE(IsEnabled("cmdEdit"));
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
}

TEST_F(ClassSectionEntry, ARefusalOfTheSecondTransactionComesBehindWhatTheFirstOneKept)
{
    GivenClass(1, QStringLiteral("XII"), 1, 1);
    GivenClass(2, QStringLiteral("XI"), 1, 2);
    GivenClass(3, QStringLiteral("X"), 2, 3);
    GivenStudentIn(3, 2);
    Edit();
    Click(classes, 3, 2);
    QTest::keyClicks(txtNoOfDivisions, QStringLiteral("1"));
    DeleteRow(1);
    prompts.ExpectInformation(
        QStringLiteral("This Division X - B Is Used In Other Entry Screen(s). So You Cannot Delete"));
    prompts.ExpectCritical(QString::fromLatin1(DataInUse));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredDivisions(3), "1A 2B");
}

TEST_F(ClassSectionEntry, AFaultInReadingBackWhatIsSavedSaysThatItIsSavedAndOffersNoNewEntry)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 1, 1);
    Enter("12");
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_EQ(kind, Prompts::Kind::Information);
        if (told.isEmpty())
            Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
        told.append(text);
        return true;
    });
    Press(Button("cmdSave"));
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told.at(0), QStringLiteral("Record Updated"));
    EXPECT_TRUE(told.at(1).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    for (const char* button : {"cmdNew", "cmdEdit", "cmdSave"})
        EXPECT_FALSE(IsEnabled(button)) << button;
    Given("ALTER TABLE Away RENAME TO ClassDivisionMaster");
    Press(Button("cmdCancel"));
    EXPECT_TRUE(IsEnabled("cmdEdit"));
    EXPECT_EQ(ClassRowText(1), "1|12|2|1");
}

TEST_F(ClassSectionEntry, AFaultInRenumberingSaysThatOnlyTheOrderIsNotStored)
{
    GivenClass(1, QStringLiteral("XII"), 1, 3);
    GivenClass(2, QStringLiteral("XI"), 1, 2);
    GivenClass(3, QStringLiteral("X"), 1, 1);
    GivenStudentIn(1, 1);
    Edit();
    DeleteRow(3);
    Click(classes, 2, 3);
    Enter("");
    Enter("IX");
    Enter("1");
    Given("CREATE TRIGGER KeepTheTie BEFORE UPDATE ON ClassDivisionMaster WHEN NEW.ClassCode = 1"
          " BEGIN SELECT RAISE(ABORT, 'no'); END");
    prompts.ExpectInformation(
        QStringLiteral("The Class XII Is Used In Other Entry Screen(s). So You Cannot Delete"));
    prompts.ExpectCritical(QStringLiteral("The Classes Are Saved. Only Their Order Could Not Be Renumbered.\n"
                                          "The Data Contradicts Other Data That Is Already Stored (no)"));
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredDivisions(4), "1A");
    EXPECT_TRUE(IsEnabled("cmdEdit"));
}

TEST_F(ClassSectionEntry, ClassesThatCannotBeReadAreNotOfferedToBeEnteredAnew)
{
    GivenThreeClasses();
    OpenForm();
    Given("ALTER TABLE ClassDivisionDetails RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionDetails"));
    Press(Button("cmdClose"));
    EXPECT_FALSE(IsEnabled("cmdNew"));
    EXPECT_TRUE(Button("cmdCancel")->hasFocus());
    EXPECT_EQ(ClassRowText(1), "1|||");
    EXPECT_EQ(DivisionTexts(), "1");
    Given("ALTER TABLE Away RENAME TO ClassDivisionDetails");
    Press(Button("cmdCancel"));
    EXPECT_TRUE(IsEnabled("cmdEdit"));
}

TEST_F(ClassSectionEntry, WhereCancelCannotReadTheClassesNothingThatWasEnteredStaysInSight)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 2, 1);
    Enter("11");
    Given("ALTER TABLE ClassDivisionDetails RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionDetails"));
    Press(Button("cmdCancel"));
    EXPECT_EQ(classes->Rows(), 2);
    EXPECT_EQ(ClassRowText(1), "|||");
    EXPECT_EQ(DivisionTexts(), "");
    EXPECT_FALSE(txtNoOfDivisions->isVisible());
    Given("ALTER TABLE Away RENAME TO ClassDivisionDetails");
}

TEST_F(ClassSectionEntry, NoToTheQuestionDeletesNothing)
{
    GivenThreeClasses();
    Edit();
    Type(txtDeleteSlNo, QStringLiteral("2"));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete S.No. 2 ?"), false);
    Press(Button("cmdDeleteRow"));
    EXPECT_EQ(classes->Rows(), 4);
    EXPECT_EQ(txtDeleteSlNo->text().toStdString(), "2");
}

TEST_F(ClassSectionEntry, ADeletedRowIsGoneOnlyWithTheSave)
{
    GivenThreeClasses();
    Edit();
    DeleteRow(2);
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 2 XI 3 2; 3 X 1 3;");
    EXPECT_EQ(ClassRowText(2), "2|X|1|3");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 3 X 1 3;");
    EXPECT_EQ(StoredDivisions(2), "");
}

TEST_F(ClassSectionEntry, TheDivisionsShownAreThoseOfTheClassThatMovesUp)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 2, 0);
    EXPECT_EQ(DivisionTexts(), "1A 2B 3C");
    DeleteRow(2);
    EXPECT_EQ(DivisionTexts(), "1A");
}

TEST_F(ClassSectionEntry, CancelForgetsWhatWasEntered)
{
    GivenThreeClasses();
    Edit();
    Type(txtDeleteSlNo, QStringLiteral("2"));
    Click(classes, 1, 1);
    Enter("12");
    Press(Button("cmdCancel"));
    EXPECT_EQ(txtDeleteSlNo->text().toStdString(), "");
    EXPECT_EQ(ClassRowText(1), "1|XII|2|1");
    EXPECT_EQ(divisions->Rows(), 1);
    EXPECT_TRUE(Button("cmdEdit")->hasFocus());
    EXPECT_FALSE(IsEnabled("fraClassDetails"));
    EXPECT_FALSE(txtNoOfDivisions->isVisible());
}

TEST_F(ClassSectionEntry, TheCloseBoxDoesNothingAndExitAsksWhereTheOfficeWants)
{
    GivenThreeClasses();
    Edit();
    form->parentWidget()->close();
    Settle();
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmMasClassSectionEntry")), nullptr);

    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Class Section Entry ?"), false);
    Press(Button("cmdExit"));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Class Section Entry ?"), true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmMasClassSectionEntry")), nullptr);
}

TEST_F(ClassSectionEntry, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmMasClassSectionEntry"));
    OpenForm();
    const auto* note = Find<QLabel>(form, "Label1");
    EXPECT_TRUE(note->wordWrap());
    EXPECT_GE(note->height(), note->heightForWidth(note->width()));
}

TEST_F(ClassSectionEntry, TheClassesAndTheirDivisionsAreOfOneMoment)
{
    GivenClass(1, QStringLiteral("0"), 1, 1);
    Given("UPDATE ClassDivisionDetails SET DivisionName = '0' WHERE ClassCode = 1");
    Browse();
    const auto rename = [](store::Transaction& transaction, int state) {
        for (const char* change : {"UPDATE ClassDivisionMaster SET ClassName = ? WHERE ClassCode = 1",
                                   "UPDATE ClassDivisionDetails SET DivisionName = ? WHERE ClassCode = 1"})
            transaction.Execute(QString::fromLatin1(change), QString::number(state));
    };
    ExpectOneMoment(*AnotherClient(), rename, [this] {
        Press(Button("cmdCancel"));
        Press(Button("cmdEdit"));
        return QStringList{classes->TextMatrix(1, 1), divisions->TextMatrix(1, 1)};
    });
}

} // namespace
} // namespace tally::test
