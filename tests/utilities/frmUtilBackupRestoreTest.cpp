#include "utilities/frmUtilBackupRestore.h"

#include "core/DatabasePassword.h"
#include "core/ProgramFolder.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "store/OldMainFile.h"
#include "store/Restore.h"
#include "store/Tables.h"
#include "support/AsOrdinaryUser.h"
#include "support/FileSizeLimit.h"
#include "support/FormDriver.h"
#include "utilities/InputOnlyTo.h"

#include <QAction>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <sys/stat.h>

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
const QString Ended = QStringLiteral("Cancelled. Nothing Was Changed");

/// How often a control was painted.
class Painted : public QObject
{
public:
    explicit Painted(QWidget* control) { control->installEventFilter(this); }

    int times = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        times += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

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
    /// Does something else as soon as the next work looks for input, which it does at its first word.
    void Meanwhile(const std::function<void()>& work)
    {
        came = false;
        QTimer::singleShot(0, form, [this, work] {
            came = true;
            work();
        });
    }
    /// While it works all is off but Cancel.
    void ExpectAllOffButCancel() const
    {
        for (const char* name : {"optBackUp", "optRecovery", "txtSourcePath", "cmdSourcePath",
                                 "txtDestinationPath", "cmdDestPath", "cmdBackup", "cmdDetails", "cmdExit"})
            EXPECT_FALSE(IsEnabled(name)) << name;
        EXPECT_TRUE(IsEnabled("cmdCancel"));
    }
    QProgressBar* Bar() const { return Find<QProgressBar>(form, "prgProgress"); }
    void TypeRestore(const char* source)
    {
        ChooseRestore();
        TypeSource(In(source));
    }
    void ExpectRestoreQuestions()
    {
        prompts.ExpectQuestion(RestoreQuestion, true);
        prompts.ExpectConfirmation(Lost, true);
    }
    void ExpectPathRefusal(const QString& text, const char* field)
    {
        prompts.ExpectInformation(text);
        Go();
        prompts.Verify();
        EXPECT_TRUE(HasFocus(field)) << FocusName();
    }

    bool came = false; ///< what was to happen meanwhile
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
    EXPECT_FALSE(Bar()->isVisible()) << "a proof is no restore";
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
    Meanwhile([this] { Press(Button("cmdCancel")); });
    prompts.ExpectInformation(Ended);
    Go();
    prompts.Verify();
    ASSERT_TRUE(came);
    EXPECT_FALSE(QFile::exists(In("Copy.mdb")));
    EXPECT_EQ(LoggedBackups(In("Copy.mdb")), 0);
    EXPECT_NE(Session().gcnnMain, nullptr);
    EXPECT_TRUE(IsEnabled("cmdExit"));
    EXPECT_EQ(TextOf("txtDestinationPath"), In("Copy.mdb").toStdString());
    // Who ended one may take the next.
    prompts.ExpectInformation(BackedUp);
    Go();
    prompts.Verify();
    EXPECT_TRUE(QFile::exists(In("Copy.mdb")));
}

TEST_F(frmUtilBackupRestoreTest, WhileItWorksNoWindowGoesAndNothingElseStarts)
{
    OpenBackup();
    TypeDestination(In("Copy.mdb"));
    Meanwhile([this] {
        EXPECT_FALSE(window->close());
        EXPECT_FALSE(form->parentWidget()->close());
        EXPECT_FALSE(form->close());
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(form->isVisible());
        ExpectAllOffButCancel();
        EXPECT_TRUE(HasFocus("cmdCancel"));
        for (const Qt::Key key :
             {Qt::Key_F1, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Left, Qt::Key_Down, Qt::Key_Escape}) {
            QTest::keyClick(QApplication::focusWidget(), key);
            EXPECT_TRUE(HasFocus("cmdCancel")) << key << " " << FocusName();
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_X, Qt::AltModifier);
        QTest::mouseClick(Button("cmdDetails"), Qt::LeftButton);
        window->MenuItem(QStringLiteral("mnufrmUtilOptions"))->trigger();
        window->MenuItem(QStringLiteral("mnuClose"))->trigger();
        Settle();
    });
    prompts.ExpectInformation(BackedUp);
    Go();
    prompts.Verify();
    ASSERT_TRUE(came);
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")), nullptr);
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmUtilOptions")), nullptr);
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmUtilBackupRestore")), form);
    EXPECT_TRUE(Find<FlexGrid>(form, "msgDetails")->isHidden());
    EXPECT_EQ(processEnds, 0);
    // Behind the work both go their usual way.
    prompts.ExpectInformation(
        QStringLiteral("If You Want To Close 'KITE-Tally Board', Click On The Close Menu"));
    EXPECT_FALSE(window->close());
    PressKey(form, Qt::Key_F1);
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")), nullptr);
}

TEST_F(frmUtilBackupRestoreTest, TheLetterOfCancelTheBlankKeyAndTheMouseEndTheWorkToo)
{
    OpenBackup();
    const std::function<void()> ways[] = {
        [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::AltModifier); },
        [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space); },
        // By the way that the system takes, which is that of the window.
        [this] {
            const QPushButton* cancel = Button("cmdCancel");
            QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                              cancel->mapTo(window, cancel->rect().center()));
        },
    };
    for (const auto& way : ways) {
        TypeDestination(In("Copy.mdb"));
        Meanwhile(way);
        prompts.ExpectInformation(Ended);
        Go();
        prompts.Verify();
        EXPECT_TRUE(came);
        EXPECT_FALSE(QFile::exists(In("Copy.mdb")));
        Press(Button("cmdCancel"));
    }
}

TEST_F(frmUtilBackupRestoreTest, ABoxThatComesAllTheSameCanBeAnswered)
{
    OpenBackup();
    TypeDestination(In("Copy.mdb"));
    bool answered = false;
    Meanwhile([&] {
        QMessageBox box(window);
        box.addButton(QMessageBox::Ok);
        QTimer::singleShot(0, &box, [&] {
            answered = true;
            QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
        });
        EXPECT_EQ(box.exec(), QMessageBox::Ok);
    });
    prompts.ExpectInformation(BackedUp);
    Go();
    EXPECT_TRUE(answered);
}

TEST_F(frmUtilBackupRestoreTest, TheClockThatWouldFailIsStillWhileASourceIsProved)
{
    LeaveOthersUnguarded();
    OpenBackup();
    // The proof looks for input behind so many rows.
    Given("CREATE TABLE Long (Number INTEGER PRIMARY KEY, Text TEXT NOT NULL)");
    Given("CREATE INDEX LongTexts ON Long (Text)");
    Given("INSERT INTO Long WITH RECURSIVE Numbers(Number) AS"
          " (SELECT 1 UNION ALL SELECT Number + 1 FROM Numbers WHERE Number < 500000)"
          " SELECT Number, 'x' FROM Numbers");
    BackUpTo("Copy.mdb");
    TypeRestore("Copy.mdb");
    Given("DROP TABLE ExamBoardMaster");
    Meanwhile([this] {
        EXPECT_NE(Session().gcnnMain, nullptr);
        ExpectAllOffButCancel();
        EXPECT_TRUE(Bar()->isVisible());
        EXPECT_EQ(Bar()->minimum(), 0);
        EXPECT_EQ(Bar()->maximum(), 0) << "nobody knows how long it takes";
        ScreenFixture::Tick();
        Press(Button("cmdCancel"));
    });
    prompts.ExpectInformation(Ended);
    Go();
    prompts.Verify();
    EXPECT_TRUE(came);
    EXPECT_EQ(LoggedRestores(In("Copy.mdb")), 0);
    // Behind the work it says so.
    StopPresence();
}

TEST_F(frmUtilBackupRestoreTest, ARestoreThatIsCancelledWhileItPoursChangesNothing)
{
    OpenBackup();
    BackUpTo("Copy.mdb");
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    TypeRestore("Copy.mdb");
    prompts.ExpectQuestion(RestoreQuestion, true);
    prompts.ExpectConfirmation(Lost, true);
    prompts.ExpectInformation(Ended);
    // The main database is closed as soon as the proof and the questions are over.
    auto* poll = new QTimer(form);
    QObject::connect(poll, &QTimer::timeout, form, [this] {
        if (Session().gcnnMain)
            return;
        ExpectAllOffButCancel();
        Press(Button("cmdCancel"));
    });
    poll->start(0);
    Go();
    poll->stop();
    prompts.Verify();
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateCode = 7"), 1);
    EXPECT_EQ(LoggedRestores(In("Copy.mdb")), 0);
    EXPECT_TRUE(store::KeptBeforeRestore(In("Tallyboard.mdb")).isEmpty());
}

TEST_F(frmUtilBackupRestoreTest, TheBarShowsHowFarTheWorkHasComeAndStaysForAWhile)
{
    OpenBackup();
    Given("CREATE TABLE Large (Bytes BLOB)");
    Given("INSERT INTO Large VALUES (zeroblob(20000000))");
    auto* bar = Find<QProgressBar>(form, "prgProgress");
    TypeDestination(In("Copy.mdb"));
    QList<int> values;
    QObject::connect(bar, &QProgressBar::valueChanged, form, [&values](int value) { values.append(value); });
    const QRect field = Box("txtDestinationPath")->geometry();
    Meanwhile([this, bar, field] {
        EXPECT_TRUE(bar->isVisible());
        EXPECT_EQ(bar->minimum(), 0);
        EXPECT_EQ(Box("txtDestinationPath")->geometry(), field);
    });
    // Looks for input and paints now and then, and not at each word.
    qint64 looks = 0;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, form, [&looks] { ++looks; });
    look.start(0);
    Painted painted(bar);
    QElapsedTimer elapsed;
    elapsed.start();
    prompts.ExpectInformation(BackedUp);
    Go();
    look.stop();
    EXPECT_GE(looks, 1);
    EXPECT_LE(looks, elapsed.elapsed() / 40 + 2);
    EXPECT_GE(painted.times, 1);
    ASSERT_TRUE(came);
    EXPECT_GT(values.size(), 10);
    EXPECT_TRUE(
        std::any_of(values.begin(), values.end(), [](int value) { return value > 400 && value < 600; }));
    auto* timer = Find<QTimer>(form, "Timer1");
    EXPECT_TRUE(timer->isActive());
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->value(), bar->maximum());
    const int steps = 5000 / timer->interval();
    timer->setInterval(3600000);
    for (int step = 1; step < steps; ++step)
        ASSERT_TRUE(QMetaObject::invokeMethod(timer, "timeout"));
    EXPECT_TRUE(bar->isVisible());
    // The next work begins anew.
    Press(Button("cmdCancel"));
    TypeDestination(In("Second.mdb"));
    Meanwhile([timer] { EXPECT_FALSE(timer->isActive()) << "nothing takes the bar of this work away"; });
    prompts.ExpectInformation(BackedUp);
    Go();
    ASSERT_TRUE(came);
    EXPECT_TRUE(timer->isActive());
    for (int step = 1; step < steps; ++step)
        ASSERT_TRUE(QMetaObject::invokeMethod(timer, "timeout"));
    EXPECT_TRUE(bar->isVisible());
    ASSERT_TRUE(QMetaObject::invokeMethod(timer, "timeout"));
    EXPECT_FALSE(bar->isVisible());
    EXPECT_FALSE(timer->isActive());
}

TEST_F(frmUtilBackupRestoreTest, TheKeyboardComesBackAlsoWhereTheWindowIsNotTheActiveOneYet)
{
    OpenBackup();
    Button("cmdBackup")->setFocus();
    QWidget behindABox;
    behindABox.show();
    behindABox.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&behindABox));
    {
        const InputOnlyTo cancel(Button("cmdCancel"));
        EXPECT_EQ(form->window()->focusWidget(), Button("cmdCancel"));
    }
    EXPECT_EQ(form->window()->focusWidget(), Button("cmdBackup"));
    Button("cmdBackup")->clearFocus();
    {
        const InputOnlyTo cancel(Button("cmdCancel"));
        EXPECT_EQ(form->window()->focusWidget(), Button("cmdCancel"));
    }
}

TEST_F(frmUtilBackupRestoreTest, NoBarStandsWhereNothingWasCopied)
{
    OpenBackup();
    auto* bar = Find<QProgressBar>(form, "prgProgress");
    BackUpTo("Copy.mdb");
    Find<QTimer>(form, "Timer1")->stop();
    bar->hide();
    Press(Button("cmdCancel"));
    prompts.ExpectQuestionOrCancel(ReplaceQuestion, Prompts::Reply::Yes);
    prompts.ExpectConfirmation(Lost, false);
    prompts.ExpectInformation(BackedUp);
    TypeDestination(In("Copy.mdb"));
    Go();
    prompts.Verify();
    EXPECT_FALSE(bar->isVisible());
    Press(Button("cmdCancel"));
    prompts.ExpectCritical(QStringLiteral("Invalid File Name"));
    TypeDestination(In("no folder/Copy.mdb"));
    Go();
    prompts.Verify();
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(frmUtilBackupRestoreTest, BehindTheWorkTheKeyboardIsWhereItWasAndEnterWipesNoPath)
{
    OpenBackup();
    TypeDestination(In("Copy.mdb"));
    Button("cmdBackup")->setFocus();
    prompts.ExpectInformation(BackedUp);
    QTest::keyClick(Button("cmdBackup"), Qt::Key_Return);
    prompts.Verify();
    EXPECT_TRUE(HasFocus("cmdBackup")) << FocusName();
    EXPECT_EQ(TextOf("txtDestinationPath"), In("Copy.mdb").toStdString());
}

TEST_F(frmUtilBackupRestoreTest, WhereTheDatabaseCannotBeOpenedAgainItIsToldAndEachButtonSaysSo)
{
    LeaveOthersUnguarded();
    OpenBackup();
    TypeDestination(In("Copy.mdb"));
    Meanwhile([this] { ASSERT_TRUE(QFile::rename(In("Tallyboard.mdb"), In("Away.mdb"))); });
    prompts.ExpectCritical(QStringLiteral("The Database File %1 Is Missing")
                               .arg(QDir::toNativeSeparators(In("Tallyboard.mdb"))));
    prompts.ExpectInformation(BackedUp);
    Go();
    prompts.Verify();
    ASSERT_TRUE(came);
    EXPECT_EQ(Session().gcnnMain, nullptr);
    ScreenFixture::Tick();
    prompts.ExpectCritical(QStringLiteral("The Database Is Closed"));
    Go();
    prompts.Verify();
    ASSERT_TRUE(QFile::rename(In("Away.mdb"), In("Tallyboard.mdb")));
}

TEST_F(frmUtilBackupRestoreTest, ARestoreWaitsUntilAllOtherScreensOfThisClientAreClosed)
{
    LeaveOthersUnguarded();
    OpenBackup();
    BackUpTo("Copy.mdb");
    auto* other = OpenScreen(QStringLiteral("frmUtilOptions"));
    ASSERT_NE(other, nullptr);
    ShowForm(QStringLiteral("frmUtilBackupRestore"));
    Settle();
    TypeRestore("Copy.mdb");
    prompts.ExpectInformation(QStringLiteral("Close All Other Screens Before The Restore"));
    Go();
    prompts.Verify();
    EXPECT_EQ(TextOf("txtSourcePath"), In("Copy.mdb").toStdString());
    other->Unload();
    Settle();
    ExpectRestoreQuestions();
    prompts.ExpectInformation(Restored);
    Go();
    prompts.Verify();
    EXPECT_EQ(LoggedRestores(In("Copy.mdb")), 1);
}

TEST_F(frmUtilBackupRestoreTest, BehindARestoreTheButtonsAskItsRightsAndTheMenusStayUntilTheNextLogin)
{
    LeaveOthersUnguarded();
    GivenUser(3, QStringLiteral("clerk"), QStringLiteral("pass"),
              {{QStringLiteral("frmUtilBackupRestore"), QStringLiteral("D")}});
    Session().gintPrivilegeUserCode = 3;
    OpenBackup();
    Given("DELETE FROM UserPrivilegeDetails");
    Session().gintPrivilegeUserCode = 4;
    GivenUser(4, QStringLiteral("head"), QStringLiteral("pass"),
              {{QStringLiteral("frmUtilBackupRestore"), QStringLiteral("D")}});
    BackUpTo("Copy.mdb");
    Given("INSERT INTO UserPrivilegeDetails (FormName, ButtonName, UserCode)"
          " VALUES ('frmUtilBackupRestore', 'D', 3)");
    Session().gintPrivilegeUserCode = 3;
    window->EnableMenuItem(QStringLiteral("mnufrmUtilBackupRestore"), true);
    TypeRestore("Copy.mdb");
    ExpectRestoreQuestions();
    prompts.ExpectInformation(Restored);
    Go();
    prompts.Verify();
    EXPECT_TRUE(window->MenuItem(QStringLiteral("mnufrmUtilBackupRestore"))->isEnabled());
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Restore Database"));
    Go();
    prompts.Verify();
    EXPECT_EQ(LoggedRestores(In("Copy.mdb")), 1);
}

TEST_F(frmUtilBackupRestoreTest, AFileOfAnOlderYearIsAccepted)
{
    LeaveOthersUnguarded();
    Given("DELETE FROM AcademicYearSetup WHERE AcademicYearCode > 0");
    Given("INSERT INTO AcademicYearSetup VALUES (1, 2019, 2020, '2019-06-01', '2020-05-31', 'Y', 'N', 1)");
    OpenBackup();
    BackUpTo("Copy.mdb");
    Given("UPDATE AcademicYearSetup SET YearFrom = 2025, YearTo = 2026, FromDate = '2025-06-01',"
          " ToDate = '2026-05-31' WHERE AcademicYearCode = 1");
    TypeRestore("Copy.mdb");
    ExpectRestoreQuestions();
    prompts.ExpectInformation(Restored);
    Go();
    prompts.Verify();
    EXPECT_EQ(Count("SELECT YearFrom FROM AcademicYearSetup WHERE AcademicYearCode = 1"), 2019);
}

TEST_F(frmUtilBackupRestoreTest, AFileOfAnOlderProgramIsAcceptedAndUpgraded)
{
    LeaveOthersUnguarded();
    {
        store::Connection old(In("Old.mdb"), DatabasePassword(Session()), store::Connection::Mode::Create);
        store::Transaction laying(old);
        LayOldMainFile(laying);
        laying.Commit();
    }
    OpenBackup();
    TypeRestore("Old.mdb");
    ExpectRestoreQuestions();
    prompts.ExpectInformation(Restored);
    Go();
    prompts.Verify();
    EXPECT_EQ(Session().gcnnMain->SchemaVersion(), store::MainVersion);
    EXPECT_EQ(Count("SELECT count(*) FROM MarkMaster WHERE Mark = 50"), 1);
}

TEST_F(frmUtilBackupRestoreTest, ADiskThatTakesNoMoreIsTold)
{
    OpenBackup();
    TypeDestination(In("Copy.mdb"));
    prompts.ExpectCritical(QStringLiteral("The Copy Could Not Be Written (File too large)"));
    {
        const FileSizeLimit full(8192);
        Go();
    }
    prompts.Verify();
    EXPECT_FALSE(QFile::exists(In("Copy.mdb")));
    EXPECT_EQ(LoggedBackups(In("Copy.mdb")), 0);
    EXPECT_NE(Session().gcnnMain, nullptr);
}

TEST_F(frmUtilBackupRestoreTest, AFolderThatTakesNoFilesIsTold)
{
    OpenBackup();
    ASSERT_TRUE(QDir(Folder()).mkdir(QStringLiteral("Closed")));
    ASSERT_EQ(chmod(QFile::encodeName(In("Closed")).constData(), 0555), 0);
    ASSERT_EQ(chmod(QFile::encodeName(In("Tallyboard.mdb")).constData(), 0666), 0);
    ASSERT_EQ(chmod(QFile::encodeName(Folder()).constData(), 0777), 0);
    TypeDestination(In("Closed/Copy.mdb"));
    prompts.ExpectCritical(QStringLiteral("The Copy Could Not Be Written (Permission denied)"));
    {
        const AsOrdinaryUser clerk;
        Go();
    }
    prompts.Verify();
    EXPECT_TRUE(QDir(In("Closed")).isEmpty());
    EXPECT_EQ(LoggedBackups(In("Closed/Copy.mdb")), 0);
    EXPECT_NE(Session().gcnnMain, nullptr);
}

TEST_F(frmUtilBackupRestoreTest, ANameThatTheDiskDoesNotTakeIsTold)
{
    OpenBackup();
    // A disk takes names of 255 letters, the box 300 with the folder.
    const QTemporaryDir nearRoot(QStringLiteral("/tmp/tally-XXXXXX"));
    TypeDestination(nearRoot.filePath(QString(260, QLatin1Char('n')) + QStringLiteral(".mdb")));
    prompts.ExpectCritical(QStringLiteral("Invalid File Name"));
    Go();
    prompts.Verify();
    Press(Button("cmdCancel"));
    ASSERT_TRUE(QFile::link(In("Gone.mdb"), In("Link.mdb")));
    TypeDestination(In("Link.mdb"));
    prompts.ExpectCritical(QStringLiteral("Invalid File Name"));
    Go();
    prompts.Verify();
    EXPECT_FALSE(QFile::exists(In("Gone.mdb")));
    Press(Button("cmdCancel"));
    // The box takes no more letters than the store of the log.
    TypeDestination(QString(400, QLatin1Char('n')));
    EXPECT_EQ(TextOf("txtDestinationPath").size(), 300U);
}

TEST_F(frmUtilBackupRestoreTest, AFileThatComesToAFreePlaceMeanwhileIsNotReplaced)
{
    OpenBackup();
    TypeDestination(In("Copy.mdb"));
    Meanwhile([this] { Write(In("Copy.mdb"), "somebody's"); });
    prompts.ExpectCritical(QStringLiteral("File With The Given Name Already Exists. It Is Left As It Is"));
    Go();
    prompts.Verify();
    ASSERT_TRUE(came);
    EXPECT_EQ(Bytes(In("Copy.mdb")), QByteArray("somebody's"));
}

TEST_F(frmUtilBackupRestoreTest, WithoutTheRightNothingIsDone)
{
    OpenBackup();
    GivenUser(3, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 3;
    for (const QString& destination : {QString(), In("Copy.mdb")}) {
        TypeDestination(destination);
        prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Take Database Backup"));
        Go();
        prompts.Verify();
    }
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
    const char* const heads[] = {"Restore Code", "Restore Path", "Restore Date"};
    for (int col = 0; col < 3; ++col)
        EXPECT_EQ(grid->TextMatrix(0, col).toStdString(), heads[col]);
    Press(Button("cmdDetails"));
    EXPECT_TRUE(grid->isHidden());
    EXPECT_EQ(Button("cmdDetails")->text().remove(QLatin1Char('&')).toStdString(), "Details  >>");
}

TEST_F(frmUtilBackupRestoreTest, ALogThatCannotBeReadLeavesNoEntriesOfTheOtherModeInSight)
{
    OpenBackup();
    BackUpTo("Copy.mdb");
    const auto* grid = Find<FlexGrid>(form, "msgDetails");
    ASSERT_EQ(grid->Rows(), 2);
    AnotherClient(QStringLiteral("BackupRestoreDetails.mdb"))
        ->Execute(QStringLiteral("ALTER TABLE RestoreDatabase RENAME TO Away"));
    prompts.ExpectCritical(NoSuchTable("RestoreDatabase"));
    ChooseRestore();
    prompts.Verify();
    EXPECT_EQ(grid->Rows(), 1);
    EXPECT_EQ(grid->TextMatrix(0, 0).toStdString(), "Restore Code");
}

TEST_F(frmUtilBackupRestoreTest, TheDetailsTakeRoomOfTheirOwnInTheMiddle)
{
    OpenBackup();
    QWidget* frame = form->parentWidget();
    const int before = frame->height();
    Press(Button("cmdDetails"));
    Settle();
    EXPECT_GE(frame->height(), before + Find<FlexGrid>(form, "msgDetails")->height());
    const QPoint middle = frame->parentWidget()->rect().center();
    EXPECT_LE((frame->geometry().center() - middle).manhattanLength(), 4);
}

TEST_F(frmUtilBackupRestoreTest, AScreenThatFillsTheWindowStaysSoWithItsDetails)
{
    OpenBackup();
    QWidget* frame = form->parentWidget();
    frame->showMaximized();
    Settle();
    const QSize full = frame->size();
    Press(Button("cmdDetails"));
    Settle();
    EXPECT_TRUE(frame->isMaximized());
    EXPECT_EQ(frame->size(), full);
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
