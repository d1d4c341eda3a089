#include "core/DatabasePassword.h"
#include "store/Connection.h"
#include "tools/DeliveredDatabases.h"
#include "tools/SampleSchool.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tally::test {

namespace {

struct Finished
{
    int exitCode;
    QString out;
    QString err;
};

Finished Start(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromUtf8(program), arguments);
    EXPECT_TRUE(process.waitForFinished());
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QString ProgramPassword()
{
    SessionContext session;
    BuildDatabasePassword(session);
    return DatabasePassword(session);
}

QStringList SmallSchool(const QString& folder)
{
    return {folder, QStringLiteral("--classes"), QStringLiteral("2"), QStringLiteral("--students"),
            QStringLiteral("3")};
}

} // namespace

TEST(SetupProgram, MakesTheFilesAndThenKeepsThem)
{
    const QTemporaryDir folder;
    const Finished first = Start(TALLY_SETUP, {folder.path()});
    EXPECT_EQ(first.exitCode, 0) << qPrintable(first.err);
    EXPECT_EQ(first.out.count(QLatin1String("made ")), 4);
    store::Connection main(folder.filePath(QStringLiteral("Tallyboard.mdb")), ProgramPassword());
    EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM UserMaster")), 1);

    const Finished second = Start(TALLY_SETUP, {folder.path()});
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_EQ(second.out.count(QLatin1String("kept ")), 4);
}

TEST(SetupProgram, RefusesWrongArgumentsAndAMissingFolder)
{
    const QTemporaryDir folder;
    EXPECT_EQ(Start(TALLY_SETUP, {}).exitCode, 2);
    EXPECT_EQ(Start(TALLY_SETUP, {folder.path(), folder.path()}).exitCode, 2);
    const Finished missing = Start(TALLY_SETUP, {folder.filePath(QStringLiteral("nowhere"))});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.err.contains(QLatin1String("Is Missing"))) << qPrintable(missing.err);
}

TEST(SetupProgram, MakesNoDatabaseThroughALinkThatLeadsNowhere)
{
    const QTemporaryDir folder;
    const QString elsewhere = folder.filePath(QStringLiteral("elsewhere"));
    const QString database = folder.filePath(QStringLiteral("Tallyboard.mdb"));
    ASSERT_TRUE(QFile::link(elsewhere, database));
    const Finished run = Start(TALLY_SETUP, {folder.path()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(QLatin1String("Tallyboard.mdb Could Not Be Made"))) << qPrintable(run.err);
    EXPECT_FALSE(QFileInfo::exists(elsewhere));
    EXPECT_TRUE(QFileInfo(database).isSymLink());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::System).size(), 1);
}

TEST(SampleProgram, MakesASchoolAndTellsItsLogins)
{
    const QTemporaryDir folder;
    const Finished run = Start(TALLY_SAMPLE, SmallSchool(folder.path()));
    EXPECT_EQ(run.exitCode, 0) << qPrintable(run.err);
    for (const SampleAccount& account : SampleAccounts()) {
        EXPECT_TRUE(run.out.contains(QLatin1String(account.loginId)));
        EXPECT_TRUE(run.out.contains(QLatin1String(account.password)));
    }
    store::Connection main(folder.filePath(QStringLiteral("Tallyboard.mdb")), ProgramPassword());
    EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM ClassDivisionMaster WHERE ClassCode > 0")), 2);
}

TEST(SampleProgram, NeverTouchesASchoolThatIsThere)
{
    const QTemporaryDir folder;
    ASSERT_EQ(Start(TALLY_SETUP, {folder.path()}).exitCode, 0);
    EXPECT_EQ(Start(TALLY_SAMPLE, SmallSchool(folder.path())).exitCode, 3);
    store::Connection main(folder.filePath(QStringLiteral("Tallyboard.mdb")), ProgramPassword());
    EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM ClassDivisionMaster WHERE ClassCode > 0")), 0);
}

TEST(SampleProgram, BesideAnotherRunInTheSameFolderIsToldToWaitAndSpoilsNothing)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Tallyboard.mdb"));
    const bool made = MakeDatabase(path, ProgramPassword(), [&folder](store::Transaction& transaction) {
        transaction.Execute(QStringLiteral("CREATE TABLE NameList (Name TEXT)"));
        for (const char* program : {TALLY_SETUP, TALLY_SAMPLE}) {
            const Finished beside = Start(program, {folder.path()});
            EXPECT_EQ(beside.exitCode, 1) << program;
            EXPECT_TRUE(beside.err.contains(QLatin1String("Is Just Being Made"))) << qPrintable(beside.err);
        }
        transaction.Execute(QStringLiteral("INSERT INTO NameList VALUES ('Amala')"));
    });
    EXPECT_TRUE(made);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList(QStringLiteral("Tallyboard.mdb")));
    store::Connection main(path, ProgramPassword());
    EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM NameList")), 1);
}

#ifdef Q_OS_LINUX

TEST(SampleProgram, SaysSoWhenTheLoginsFindNoRoomOnTheDisk)
{
    for (const char* program : {TALLY_SAMPLE, TALLY_SETUP}) {
        const QTemporaryDir folder;
        QProcess process;
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        process.start(QString::fromUtf8(program), {folder.path()});
        ASSERT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 1) << program;
        EXPECT_FALSE(process.readAllStandardError().isEmpty()) << program;
    }
}

#endif

TEST(SampleProgram, RefusesNumbersOutOfRange)
{
    const QTemporaryDir folder;
    for (const char* wrong : {"0", "99", "-1", "many", "4294967297"}) {
        const Finished run =
            Start(TALLY_SAMPLE, {folder.path(), QStringLiteral("--classes=%1").arg(QLatin1String(wrong))});
        EXPECT_EQ(run.exitCode, 2) << wrong;
        EXPECT_FALSE(run.err.isEmpty()) << wrong;
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

} // namespace tally::test
