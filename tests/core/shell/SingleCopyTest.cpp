#include "core/shell/SingleCopy.h"

#include "support/AsOrdinaryUser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tally {
namespace {

class SingleCopyTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(folder.isValid());
        // As on a machine without a desktop, whatever machine the test runs on.
        qunsetenv("XDG_RUNTIME_DIR");
        qputenv("TMPDIR", folder.path().toLocal8Bit());
        for (const QString& name : {program, other}) {
            QFile file(name);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }
    void TearDown() override
    {
        for (const auto& [name, value] : environment)
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }

    static QString LockFileIn(const QDir& place)
    {
        const QStringList files = place.entryList({QStringLiteral("tallyboard-*.lock")});
        return files.isEmpty() ? QString() : place.filePath(files.first());
    }
    QString LockFile() const { return LockFileIn(QDir(folder.path())); }

    QTemporaryDir folder;
    QString program = folder.filePath(QStringLiteral("tallyboard"));
    QString other = folder.filePath(QStringLiteral("elsewhere"));
    const std::vector<std::pair<const char*, QByteArray>> environment{
        {"TMPDIR", qgetenv("TMPDIR")}, {"XDG_RUNTIME_DIR", qgetenv("XDG_RUNTIME_DIR")}};
};

TEST_F(SingleCopyTest, TheSecondCopyOfTheSameProgramIsTold)
{
    const SingleCopy first(program);
    EXPECT_FALSE(first.AnotherIsRunning());
    EXPECT_TRUE(SingleCopy(program).AnotherIsRunning());
}

TEST_F(SingleCopyTest, ALinkToTheProgramIsTheSameProgram)
{
    const QString link = folder.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(program, link));
    const SingleCopy first(program);
    EXPECT_TRUE(SingleCopy(link).AnotherIsRunning());
}

TEST_F(SingleCopyTest, AnotherProgramDoesNotCount)
{
    const SingleCopy first(program);
    EXPECT_FALSE(SingleCopy(other).AnotherIsRunning());
}

TEST_F(SingleCopyTest, AfterTheFirstCopyEndsTheNextMayStart)
{
    {
        const SingleCopy first(program);
    }
    EXPECT_FALSE(SingleCopy(program).AnotherIsRunning());
}

TEST_F(SingleCopyTest, ACopyThatDiedDoesNotHoldThePlace)
{
    QString left;
    QByteArray content;
    {
        const SingleCopy first(program);
        left = LockFile();
        QFile file(left);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        content = file.readAll();
    }
    // The file of a process that can't be alive, as a power cut leaves it.
    content = "999999999" + content.mid(content.indexOf('\n'));
    QFile file(left);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    EXPECT_FALSE(SingleCopy(program).AnotherIsRunning());
}

TEST_F(SingleCopyTest, WhereNoLockCanBeLaidTheOfficeMayStillWork)
{
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner));
    {
        const test::AsOrdinaryUser clerk;
        EXPECT_FALSE(SingleCopy(program).AnotherIsRunning());
    }
    EXPECT_TRUE(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_EQ(LockFile(), QString());
}

TEST_F(SingleCopyTest, OnADesktopTheLockLiesInTheFolderOfTheSession)
{
    const QString session = folder.filePath(QStringLiteral("session"));
    ASSERT_TRUE(QDir().mkdir(session));
    ASSERT_TRUE(QFile::setPermissions(session, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    qputenv("XDG_RUNTIME_DIR", session.toLocal8Bit());
    const SingleCopy first(program);
    EXPECT_FALSE(LockFileIn(QDir(session)).isEmpty());
    EXPECT_TRUE(LockFile().isEmpty());
    EXPECT_TRUE(SingleCopy(program).AnotherIsRunning());
}

} // namespace
} // namespace tally
