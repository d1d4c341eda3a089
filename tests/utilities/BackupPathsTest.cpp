#include "utilities/BackupPaths.h"

#include "core/ProgramFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

namespace tally::test {
namespace {

constexpr auto Source = PathRefusal::Field::Source;
constexpr auto Destination = PathRefusal::Field::Destination;

class BackupPathsTest : public testing::Test
{
protected:
    BackupPathsTest()
    {
        SetProgramFolder(folder.path());
        for (const char* name : {"Tallyboard.mdb", "TempTallyboard.mdb", "Old.mdb"})
            Make(In(name));
    }
    ~BackupPathsTest() override { SetProgramFolder({}); }

    QString In(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    static void Make(const QString& path)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("x");
    }
    void ExpectRefusal(CopyMode mode, const QString& source, const QString& destination, const char* text,
                       PathRefusal::Field field) const
    {
        const auto refusal = RefusePaths(mode, source, destination);
        ASSERT_TRUE(refusal) << qPrintable(source) << " " << qPrintable(destination);
        EXPECT_EQ(refusal->text.toStdString(), text);
        EXPECT_EQ(refusal->field, field);
    }
    void ExpectBackupRefusal(const QString& destination, const char* text) const
    {
        ExpectRefusal(CopyMode::Backup, In("Tallyboard.mdb"), destination, text, Destination);
    }

    void ExpectNoBackupRefusal(const QString& destination) const
    {
        const auto refusal = RefusePaths(CopyMode::Backup, In("Tallyboard.mdb"), destination);
        EXPECT_FALSE(refusal) << qPrintable(destination) << ": " << qPrintable(refusal->text);
    }

    QTemporaryDir folder;
};

TEST_F(BackupPathsTest, TheyAreTestedInTheOfficesOrder)
{
    ExpectRefusal(CopyMode::Restore, QStringLiteral("  "), QString(), "Enter Source Path", Source);
    ExpectRefusal(CopyMode::Backup, In("Tallyboard"), QStringLiteral("  "), "Enter Destination Path",
                  Destination);
    ExpectRefusal(CopyMode::Restore, In("Old"), In("Tallyboard"), "Give File Name With .mdb As Its Suffix",
                  Source);
    ExpectRefusal(CopyMode::Backup, In("Old"), In("Copy"), "Give File Name With .mdb As Its Suffix", Source);
    ASSERT_TRUE(QFile::link(In("Tallyboard.mdb"), In("Link")));
    ExpectBackupRefusal(In("Link"), "Give File Name With .mdb As Its Suffix");
    ExpectBackupRefusal(In("Tallyboard.mdb"), "Source And Destination Paths Should Not Be Same");
    ExpectRefusal(CopyMode::Restore, In("Nowhere.mdb"), In("Tallyboard.mdb"),
                  "Enter Source File Path Correctly", Source);
    ExpectRefusal(CopyMode::Backup, In("Nowhere.mdb"), In("MarkTemp.mdb"), "Enter Source File Path Correctly",
                  Source);
}

TEST_F(BackupPathsTest, GoodOnesAreNotRefused)
{
    EXPECT_FALSE(RefusePaths(CopyMode::Backup, In("Tallyboard.mdb"), In("Copy.mdb")));
    EXPECT_FALSE(RefusePaths(CopyMode::Backup, In("Tallyboard.mdb"), In("Old.mdb")));
    EXPECT_FALSE(RefusePaths(CopyMode::Backup, In("Tallyboard.mdb"), In("நகல்.mdb")));
    EXPECT_FALSE(RefusePaths(CopyMode::Restore, In("Old.mdb"), In("Tallyboard.mdb")));
}

TEST_F(BackupPathsTest, TheSuffixStandsInSmallLetters)
{
    ExpectBackupRefusal(In("Copy.MDB"), "Give File Name With .mdb As Its Suffix");
    Make(In("Old.MDB"));
    ExpectRefusal(CopyMode::Restore, In("Old.MDB"), In("Tallyboard.mdb"),
                  "Give File Name With .mdb As Its Suffix", Source);
}

TEST_F(BackupPathsTest, OneFileIsTheSameByAnySpellingAndThroughAnyLink)
{
    const char* const same = "Source And Destination Paths Should Not Be Same";
    const QString name = QDir(folder.path()).dirName();
    ExpectBackupRefusal(In("./Tallyboard.mdb"), same);
    ExpectBackupRefusal(In(("../" + name.toStdString() + "//Tallyboard.mdb").c_str()), same);
    ASSERT_TRUE(QFile::link(In("Tallyboard.mdb"), In("Link.mdb")));
    ExpectBackupRefusal(In("Link.mdb"), same);
    ExpectRefusal(CopyMode::Restore, In("Link.mdb"), In("Tallyboard.mdb"), same, Source);
}

TEST_F(BackupPathsTest, AFolderAndAPathFromNowhereAreNoSource)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("Folder.mdb")));
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    for (const QString& source :
         {In("Folder.mdb"), QStringLiteral("Old.mdb"), QString(296, QLatin1Char('n')) + ".mdb"})
        ExpectRefusal(CopyMode::Restore, source, In("Tallyboard.mdb"), "Enter Source File Path Correctly",
                      Source);
    QDir::setCurrent(before);
}

TEST_F(BackupPathsTest, NoFileThatTheProgramNeedsIsReplacedByABackup)
{
    for (const char* name :
         {"TempTallyboard.mdb", "BackupRestoreDetails.mdb", "Tallyboardhelp.mdb", "MarkTemp.mdb"}) {
        EXPECT_TRUE(IsProgramsOwnFile(In(name))) << name;
        ExpectBackupRefusal(In(name), "This File Belongs To The Program Itself. Give A Different File Name");
    }
    ASSERT_EQ(link(QFile::encodeName(In("TempTallyboard.mdb")).constData(),
                   QFile::encodeName(In("Hard.mdb")).constData()),
              0);
    EXPECT_TRUE(IsProgramsOwnFile(In("Hard.mdb"))) << "another name of the same file";
    EXPECT_FALSE(IsProgramsOwnFile(In("Old.mdb")));
    EXPECT_FALSE(IsProgramsOwnFile(QDir::tempPath() + QStringLiteral("/TempTallyboard.mdb")));
}

TEST_F(BackupPathsTest, NoFileThatBelongsToAnotherInstallationIsReplacedByABackup)
{
    const char* const own = "This File Belongs To The Program Itself. Give A Different File Name";
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("Other/School")));
    // A backup in a folder of its own may have the name of the school's file, and be replaced by the next.
    ExpectNoBackupRefusal(In("Other/Tallyboard.mdb"));
    Make(In("Other/Tallyboard.mdb"));
    ExpectNoBackupRefusal(In("Other/Tallyboard.mdb"));
    for (const char* beside : {"TempTallyboard.mdb", "BackupRestoreDetails.mdb", "Tallyboardhelp.mdb"}) {
        const QString path = In("Other/School/") + QLatin1String(beside);
        Make(path);
        for (const char* name :
             {"Other/School/Tallyboard.mdb", "Other/School/TALLYBOARD.mdb", "Other/./School//MarkTemp.mdb"})
            ExpectBackupRefusal(In(name), own);
        ExpectNoBackupRefusal(In("Other/School/Copy.mdb"));
        ASSERT_TRUE(QFile::remove(path));
    }
}

TEST_F(BackupPathsTest, AnotherNameOfTheSchoolsFileIsTheSameFile)
{
    const char* const same = "Source And Destination Paths Should Not Be Same";
    ASSERT_EQ(link(QFile::encodeName(In("Tallyboard.mdb")).constData(),
                   QFile::encodeName(In("Hard.mdb")).constData()),
              0);
    ExpectBackupRefusal(In("Hard.mdb"), same);
    // A file of the program that is not there yet has its place all the same, through any folder.
    const QString way = QDir::tempPath() + QLatin1Char('/') + QDir(folder.path()).dirName() +
                        QStringLiteral(" by another way");
    ASSERT_TRUE(QFile::link(folder.path(), way));
    const auto refusal =
        RefusePaths(CopyMode::Backup, In("Tallyboard.mdb"), way + QStringLiteral("/MarkTemp.mdb"));
    EXPECT_TRUE(QFile::remove(way));
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->field, Destination);
}

TEST_F(BackupPathsTest, NamesThatTheProgramGivesToItsOwnCopiesAreItsOwn)
{
    const char* const own = "This File Belongs To The Program Itself. Give A Different File Name";
    for (const char* name :
         {"Tallyboard copy of 2026-11-22.mdb", "Tallyboard before restore 2026-11-22 14.05.mdb",
          "Tallyboard before upgrade 2.mdb"}) {
        ExpectBackupRefusal(In(name), own);
        ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("Stick")));
        ExpectNoBackupRefusal(In("Stick/") + QLatin1String(name));
    }
}

} // namespace
} // namespace tally::test
