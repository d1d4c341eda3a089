#include "utilities/frmUtilBackupRestore.h"

#include "core/ProgramFolder.h"
#include "core/shell/mdiTallyboard.h"
#include "store/Restore.h"
#include "support/FormDriver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>

namespace tally::test {
namespace {

const QString ReplaceQuestion =
    QStringLiteral("File With The Given Name Already Exists\nDo You Want To Replace The Existing File ?\n"
                   "For Replacing, Click 'YES' Else Click 'NO' To Give Different Name");
const QString RestoreQuestion =
    QStringLiteral("This Operation Will Delete Your Current Database And Restore The Selected One\n"
                   "This Operation Cannot Be RolledBack\n"
                   "For Restoring Click 'YES' Else Click 'NO' To Cancel This Operation");
const QString Lost = QStringLiteral("Old Database Will Be Lost");
const QString BackedUp = QStringLiteral("Database Backup Completed");
const QString Restored = QStringLiteral("Database Restore Completed");

class frmUtilBackupRestoreTest : public FormDriver<frmUtilBackupRestore>
{
protected:
    void OpenBackup() { OpenForm("frmUtilBackupRestore"); }
    QString In(const char* name) const { return Folder() + QLatin1Char('/') + QString::fromUtf8(name); }
    static QByteArray Bytes(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void Write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
    }
    void ChooseRestore()
    {
        Option("optBackUp")->setFocus();
        QTest::keyClick(Option("optBackUp"), Qt::Key_R, Qt::AltModifier);
        Settle();
        ASSERT_TRUE(Option("optRecovery")->isChecked());
    }
    void TypeDestination(const QString& path) { Type(Box("txtDestinationPath"), path); }
    void TypeSource(const QString& path) { Type(Box("txtSourcePath"), path); }
    void Go() { Press(Button("cmdBackup")); }
    /// Backs up into a file that is not there yet.
    void BackUpTo(const char* name)
    {
        Press(Button("cmdCancel"));
        TypeDestination(In(name));
        prompts.ExpectInformation(BackedUp);
        Go();
        prompts.Verify();
    }
    qint64 Logged(const char* table, const QString& column, const QString& path)
    {
        return AnotherClient(QStringLiteral("BackupRestoreDetails.mdb"))
            ->Number(QStringLiteral("SELECT count(*) FROM %1 WHERE %2 = ?")
                         .arg(QString::fromLatin1(table), column),
                     path);
    }
    qint64 LoggedBackups(const QString& path)
    {
        return Logged("BackupDatabase", QStringLiteral("BackupPath"), QDir::toNativeSeparators(path));
    }
    qint64 LoggedRestores(const QString& path)
    {
        return Logged("RestoreDatabase", QStringLiteral("RestorePath"), QDir::toNativeSeparators(path));
    }
    void ExpectPathRefusal(const QString& text, const char* field)
    {
        prompts.ExpectInformation(text);
        Go();
        prompts.Verify();
        EXPECT_TRUE(HasFocus(field)) << FocusName();
    }
};

TEST_F(frmUtilBackupRestoreTest, ItOpensForABackupOfTheSchoolsOwnFile)
{
    OpenBackup();
    EXPECT_EQ(form->windowTitle().toStdString(), "Database Backup / Database Restore");
    EXPECT_TRUE(Option("optBackUp")->isChecked());
    EXPECT_EQ(TextOf("txtSourcePath"), QDir::toNativeSeparators(In("Tallyboard.mdb")).toStdString());
    EXPECT_FALSE(IsEnabled("txtSourcePath"));
    EXPECT_FALSE(IsEnabled("cmdSourcePath"));
    EXPECT_EQ(TextOf("txtDestinationPath"), "");
    EXPECT_EQ(Find<QLabel>(form, "lblPrompt")->text().toStdString(), "Destination Path");
    EXPECT_EQ(Button("cmdBackup")->text().remove(QLatin1Char('&')).toStdString(), " Back      up");
    EXPECT_FALSE(Find<QProgressBar>(form, "prgProgress")->isVisible());
    for (const char* box : {"txtSourcePath", "txtDestinationPath"})
        EXPECT_EQ(Box(box)->maxLength(), 300);
}

TEST_F(frmUtilBackupRestoreTest, TheOtherModeRestoresIntoThatFile)
{
    OpenBackup();
    ChooseRestore();
    EXPECT_EQ(TextOf("txtDestinationPath"), QDir::toNativeSeparators(In("Tallyboard.mdb")).toStdString());
    EXPECT_FALSE(IsEnabled("txtDestinationPath"));
    EXPECT_FALSE(IsEnabled("cmdDestPath"));
    EXPECT_EQ(TextOf("txtSourcePath"), "");
    EXPECT_EQ(Find<QLabel>(form, "lblPrompt")->text().toStdString(), "Source Path");
    EXPECT_EQ(Button("cmdBackup")->text().remove(QLatin1Char('&')).toStdString(), "  Re Store");
}

TEST_F(frmUtilBackupRestoreTest, ABackupIsWholeLoggedAndTheProgramGoesOn)
{
    OpenBackup();
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    BackUpTo("Copy.mdb");
    EXPECT_EQ(AnotherClient(QStringLiteral("Copy.mdb"))
                  ->Number(QStringLiteral("SELECT count(*) FROM StateMaster WHERE StateCode = 7")),
              1);
    EXPECT_EQ(LoggedBackups(In("Copy.mdb")), 1);
    ASSERT_NE(Session().gcnnMain, nullptr);
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateCode = 7"), 1);
    ScreenFixture::Tick();
}

TEST_F(frmUtilBackupRestoreTest, PathsThatCannotBeAreRefusedBeforeAnythingIsTouched)
{
    OpenBackup();
    ExpectPathRefusal(QStringLiteral("Enter Destination Path"), "txtDestinationPath");
    TypeDestination(In("Copy"));
    ExpectPathRefusal(QStringLiteral("Give File Name With .mdb As Its Suffix"), "txtDestinationPath");
    EXPECT_FALSE(QFile::exists(In("Copy")));
    Press(Button("cmdCancel"));
    TypeDestination(In("Tallyboard.mdb"));
    ExpectPathRefusal(QStringLiteral("Source And Destination Paths Should Not Be Same"),
                      "txtDestinationPath");
    ChooseRestore();
    ExpectPathRefusal(QStringLiteral("Enter Source Path"), "txtSourcePath");
    TypeSource(In("Nowhere.mdb"));
    ExpectPathRefusal(QStringLiteral("Enter Source File Path Correctly"), "txtSourcePath");
}

TEST_F(frmUtilBackupRestoreTest, AFolderThatIsNotThereIsToldAndTheProgramGoesOn)
{
    OpenBackup();
    TypeDestination(In("Nowhere/Copy.mdb"));
    prompts.ExpectCritical(QStringLiteral("Invalid File Name"));
    Go();
    EXPECT_NE(Session().gcnnMain, nullptr);
    EXPECT_EQ(LoggedBackups(In("Nowhere/Copy.mdb")), 0);
}

TEST_F(frmUtilBackupRestoreTest, AnExistingFileIsReplacedOnlyBehindBothQuestions)
{
    OpenBackup();
    BackUpTo("Copy.mdb");
    const QByteArray earlier = Bytes(In("Copy.mdb"));
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    Press(Button("cmdCancel"));
    TypeDestination(In("Copy.mdb"));

    prompts.ExpectQuestionOrCancel(ReplaceQuestion, Prompts::Reply::Cancel);
    Go();
    prompts.Verify();
    EXPECT_EQ(Bytes(In("Copy.mdb")), earlier);

    prompts.ExpectQuestionOrCancel(ReplaceQuestion, Prompts::Reply::No);
    Go();
    prompts.Verify();
    EXPECT_TRUE(HasFocus("txtDestinationPath"));
    EXPECT_EQ(Bytes(In("Copy.mdb")), earlier);
    EXPECT_EQ(LoggedBackups(In("Copy.mdb")), 1);

    prompts.ExpectQuestionOrCancel(ReplaceQuestion, Prompts::Reply::Yes);
    prompts.ExpectConfirmation(Lost, true);
    prompts.ExpectInformation(BackedUp);
    Go();
    prompts.Verify();
    EXPECT_NE(Bytes(In("Copy.mdb")), earlier);
    EXPECT_EQ(LoggedBackups(In("Copy.mdb")), 2);
}

TEST_F(frmUtilBackupRestoreTest, WhoShrinksFromLosingTheOldFileKeepsItAndIsLoggedAllTheSame)
{
    OpenBackup();
    BackUpTo("Copy.mdb");
    const QByteArray earlier = Bytes(In("Copy.mdb"));
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    Press(Button("cmdCancel"));
    TypeDestination(In("Copy.mdb"));
    prompts.ExpectQuestionOrCancel(ReplaceQuestion, Prompts::Reply::Yes);
    prompts.ExpectConfirmation(Lost, false);
    prompts.ExpectInformation(BackedUp);
    Go();
    EXPECT_EQ(Bytes(In("Copy.mdb")), earlier);
    EXPECT_EQ(LoggedBackups(In("Copy.mdb")), 2);
}

TEST_F(frmUtilBackupRestoreTest, ARestoreReplacesTheWholeSchoolAndKeepsTheOldOneBesideIt)
{
    LeaveOthersUnguarded();
    OpenBackup();
    BackUpTo("Copy.mdb");
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    ChooseRestore();
    TypeSource(In("Copy.mdb"));
    prompts.ExpectQuestion(RestoreQuestion, true);
    prompts.ExpectConfirmation(Lost, true);
    prompts.ExpectInformation(Restored);
    Go();
    prompts.Verify();
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateCode = 7"), 0);
    EXPECT_EQ(LoggedRestores(In("Copy.mdb")), 1);
    const QStringList kept = store::KeptBeforeRestore(In("Tallyboard.mdb"));
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(AnotherClient(QFileInfo(kept.first()).fileName())
                  ->Number(QStringLiteral("SELECT count(*) FROM StateMaster WHERE StateCode = 7")),
              1);
    ScreenFixture::Tick();
}

TEST_F(frmUtilBackupRestoreTest, ARestoreThatIsNotConfirmedChangesNothing)
{
    OpenBackup();
    BackUpTo("Copy.mdb");
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    ChooseRestore();
    TypeSource(In("Copy.mdb"));
    prompts.ExpectQuestion(RestoreQuestion, false);
    Go();
    prompts.Verify();
    EXPECT_EQ(LoggedRestores(In("Copy.mdb")), 0);

    prompts.ExpectQuestion(RestoreQuestion, true);
    prompts.ExpectConfirmation(Lost, false);
    prompts.ExpectInformation(Restored);
    Go();
    prompts.Verify();
    EXPECT_EQ(LoggedRestores(In("Copy.mdb")), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateCode = 7"), 1);
    EXPECT_TRUE(store::KeptBeforeRestore(In("Tallyboard.mdb")).isEmpty());
}

TEST_F(frmUtilBackupRestoreTest, AFileWithoutTheMarkerIsRefusedAndOneThatIsNoDatabaseIsTold)
{
    OpenBackup();
    ChooseRestore();
    TypeSource(In("TempTallyboard.mdb"));
    prompts.ExpectCritical(
        QStringLiteral("The Source File Is Not A 'KITE-Tally Board' Database File. Select Correct File"));
    Go();
    prompts.Verify();
    Press(Button("cmdCancel"));
    Write(In("Letter.mdb"), "Dear parents, ");
    TypeSource(In("Letter.mdb"));
    QString told;
    Prompts::AnswerWith([&told](Prompts::Kind, const QString& text) {
        told += text;
        return false;
    });
    Go();
    EXPECT_TRUE(told.contains(QLatin1String("Letter.mdb"))) << told.toStdString();
    EXPECT_NE(Session().gcnnMain, nullptr);
}

TEST_F(frmUtilBackupRestoreTest, ABackupThatIsCancelledLeavesNothingAndIsNotLogged)
{
    OpenBackup();
    TypeDestination(In("Copy.mdb"));
    QTimer::singleShot(0, form, [this] { Press(Button("cmdCancel")); });
    // The work looks for input only so often, and a small school is copied sooner.
    Session().gcnnMain->Execute(QStringLiteral("CREATE TABLE Large (Bytes BLOB)"));
    Session().gcnnMain->Execute(QStringLiteral("INSERT INTO Large VALUES (zeroblob(100000000))"));
    prompts.ExpectCritical(QStringLiteral("Cancelled. Nothing Was Changed"));
    Go();
    prompts.Verify();
    EXPECT_FALSE(QFile::exists(In("Copy.mdb")));
    EXPECT_EQ(LoggedBackups(In("Copy.mdb")), 0);
    EXPECT_NE(Session().gcnnMain, nullptr);
    EXPECT_TRUE(IsEnabled("cmdExit"));
}

TEST_F(frmUtilBackupRestoreTest, WithoutTheRightNothingIsDone)
{
    OpenBackup();
    GivenUser(3, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 3;
    TypeDestination(In("Copy.mdb"));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Take Database Backup"));
    Go();
    prompts.Verify();
    EXPECT_FALSE(QFile::exists(In("Copy.mdb")));
    ChooseRestore();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Restore Database"));
    Go();
}

TEST_F(frmUtilBackupRestoreTest, TheOneRightOfTheScreenIsEnoughForBoth)
{
    GivenUser(3, QStringLiteral("clerk"), QStringLiteral("pass"),
              {{QStringLiteral("frmUtilBackupRestore"), QStringLiteral("D")}});
    Session().gintPrivilegeUserCode = 3;
    OpenBackup();
    BackUpTo("Copy.mdb");
    ChooseRestore();
    ExpectPathRefusal(QStringLiteral("Enter Source Path"), "txtSourcePath");
}

TEST_F(frmUtilBackupRestoreTest, TheDetailsShowTheLogOfTheModeWithItsDays)
{
    OpenBackup();
    BackUpTo("Copy.mdb");
    auto* grid = Find<FlexGrid>(form, "msgDetails");
    EXPECT_TRUE(grid->isHidden());
    Press(Button("cmdDetails"));
    EXPECT_FALSE(grid->isHidden());
    EXPECT_EQ(Button("cmdDetails")->text().remove(QLatin1Char('&')).toStdString(), "Cancel");
    ASSERT_EQ(grid->Rows(), 2);
    EXPECT_EQ(grid->TextMatrix(1, 0).toStdString(), "1");
    EXPECT_EQ(grid->TextMatrix(1, 1), QDir::toNativeSeparators(In("Copy.mdb")));
    EXPECT_EQ(grid->TextMatrix(1, 2),
              QLocale::c().toString(QDate::currentDate(), QStringLiteral("dd/MMM/yyyy")));
    ChooseRestore();
    EXPECT_EQ(grid->Rows(), 1);
    Press(Button("cmdDetails"));
    EXPECT_TRUE(grid->isHidden());
    EXPECT_EQ(Button("cmdDetails")->text().remove(QLatin1Char('&')).toStdString(), "Details  >>");
}

TEST_F(frmUtilBackupRestoreTest, WithoutTheLogFileABackupIsMadeAndTheLackIsTold)
{
    ASSERT_TRUE(QFile::remove(In("BackupRestoreDetails.mdb")));
    const QString missing = QStringLiteral("The Database File %1 Is Missing")
                                .arg(QDir::toNativeSeparators(In("BackupRestoreDetails.mdb")));
    prompts.ExpectCritical(missing);
    OpenBackup();
    prompts.Verify();
    TypeDestination(In("Copy.mdb"));
    prompts.ExpectInformation(BackedUp);
    prompts.ExpectCritical(missing);
    Go();
    EXPECT_TRUE(QFile::exists(In("Copy.mdb")));
}

TEST_F(frmUtilBackupRestoreTest, TheFileDialogsOfferDatabasesAndFillTheirField)
{
    OpenBackup();
    const QString filter = QStringLiteral("Database Files (*.mdb)");
    prompts.ExpectFileDialog(
        {Prompts::FileDialog::Kind::SaveAs, QStringLiteral("Destination Path"), QString(), filter},
        In("Chosen.mdb"));
    Press(Button("cmdDestPath"));
    EXPECT_EQ(TextOf("txtDestinationPath"), QDir::toNativeSeparators(In("Chosen.mdb")).toStdString());
    prompts.ExpectFileDialog(
        {Prompts::FileDialog::Kind::SaveAs, QStringLiteral("Destination Path"), Folder(), filter}, QString());
    Press(Button("cmdDestPath"));
    EXPECT_EQ(TextOf("txtDestinationPath"), QDir::toNativeSeparators(In("Chosen.mdb")).toStdString());
    ChooseRestore();
    prompts.ExpectFileDialog(
        {Prompts::FileDialog::Kind::Open, QStringLiteral("Source Path"), QString(), filter}, In("Old.mdb"));
    Press(Button("cmdSourcePath"));
    EXPECT_EQ(TextOf("txtSourcePath"), QDir::toNativeSeparators(In("Old.mdb")).toStdString());
}

TEST_F(frmUtilBackupRestoreTest, CancelBringsTheFieldsBack)
{
    OpenBackup();
    TypeDestination(In("Copy.mdb"));
    Press(Button("cmdCancel"));
    EXPECT_EQ(TextOf("txtDestinationPath"), "");
    EXPECT_TRUE(HasFocus("txtDestinationPath"));
}

TEST_F(frmUtilBackupRestoreTest, EachLetterLeadsToOneControl)
{
    OpenBackup();
    EXPECT_EQ(ExpectOneControlALetter(form), QStringList());
}

TEST_F(frmUtilBackupRestoreTest, FitsASmallDisplay)
{
    ExpectToFit(QStringLiteral("frmUtilBackupRestore"));
}

} // namespace
} // namespace tally::test
