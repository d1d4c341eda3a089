#include "core/shell/SingleCopy.h"

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
        temporary = qgetenv("TMPDIR");
        qputenv("TMPDIR", folder.path().toLocal8Bit());
        for (const QString& name : {program, other}) {
            QFile file(name);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }
    void TearDown() override { temporary.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temporary); }

    QString LockFile() const
    {
        const QStringList files = QDir(folder.path()).entryList({QStringLiteral("tallyboard-*.lock")});
        return files.isEmpty() ? QString() : folder.filePath(files.first());
    }

    QTemporaryDir folder;
    QString program = folder.filePath(QStringLiteral("tallyboard"));
    QString other = folder.filePath(QStringLiteral("elsewhere"));
    QByteArray temporary;
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

} // namespace
} // namespace tally
