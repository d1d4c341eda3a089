#include "store/Compact.h"

#include "SchoolFile.h"
#include "support/FileSizeLimit.h"
#include "support/OneMoment.h"

#include <QFileInfo>

namespace tally::test {
namespace {

using store::Connection;

class CompactTest : public testing::Test
{
protected:
    CompactTest()
    {
        LaySchoolFile(files.Path(), 3000);
        Connection main(files.Path(), Password);
        main.Execute(QStringLiteral("DELETE FROM StateMaster WHERE StateCode > 5"));
    }

    void Compact(const store::Progress& progress = {}) const
    {
        Connection main(files.Path(), Password);
        store::Compact(main, Password, progress);
    }
    qint64 Size(const char* name) const { return QFileInfo(files.Path(QString::fromLatin1(name))).size(); }

    StoreFiles files;
};

TEST_F(CompactTest, TheFileIsSmallerAndHoldsTheSame)
{
    const qint64 before = Size("Tallyboard.mdb");
    Compact();
    EXPECT_LT(Size("Tallyboard.mdb"), before);
    EXPECT_EQ(StatesIn(files.Path()), 5);
    Connection main(files.Path(), Password);
    EXPECT_EQ(main.SchemaVersion(), store::MainVersion);
}

TEST_F(CompactTest, BesideItLieTheFileAsItWasAndTheFileAsItIs)
{
    const QByteArray before = files.Bytes();
    Compact();
    EXPECT_EQ(files.Bytes(QStringLiteral("Tallyboard.Bak")), before);
    EXPECT_EQ(StatesIn(files.Path(QStringLiteral("MarkTemp.mdb"))), 5);
    EXPECT_EQ(NamesIn(files.Folder()),
              (QStringList{QStringLiteral("MarkTemp.mdb"), QStringLiteral("Tallyboard.Bak"),
                           QStringLiteral("Tallyboard.mdb")}));
}

TEST_F(CompactTest, OnlyOneGenerationOfTheCopyExists)
{
    Compact();
    {
        Connection main(files.Path(), Password);
        AddState(main, 99, QStringLiteral("Goa"));
    }
    const QByteArray before = files.Bytes();
    Compact();
    EXPECT_EQ(files.Bytes(QStringLiteral("Tallyboard.Bak")), before);
    EXPECT_EQ(NamesIn(files.Folder()).size(), 3);
}

TEST_F(CompactTest, ClientsThatHaveTheFileOpenGoOn)
{
    Connection other(files.Path(), Password);
    EXPECT_EQ(States(other), 5);
    Compact();
    EXPECT_EQ(States(other), 5);
    AddState(other, 99, QStringLiteral("Goa"));
    EXPECT_EQ(StatesIn(files.Path()), 6);
}

TEST_F(CompactTest, AClientThatSavesMeanwhileWaits)
{
    Connection other(files.Path(), Password);
    other.SetPatience(std::chrono::milliseconds(0));
    int refused = 0;
    Compact([&](qint64, qint64) {
        const auto error = ErrorOf([&] { AddState(other, 99, QStringLiteral("Goa")); });
        EXPECT_TRUE(error && error->IsLocked());
        ++refused;
        return true;
    });
    EXPECT_GT(refused, 0);
    EXPECT_EQ(StatesIn(files.Path()), 5);
}

TEST_F(CompactTest, AClientThatIsInItsWayIsToldAsALockAndTheFileIsAsItWas)
{
    const QByteArray before = files.Bytes();
    Connection other(files.Path(), Password);
    const auto lock = [this] {
        Connection main(files.Path(), Password);
        main.SetPatience(std::chrono::milliseconds(20));
        return ErrorOf([&] { store::Compact(main, Password); });
    };
    {
        const store::Transaction saving(other);
        const auto error = lock();
        ASSERT_TRUE(error);
        EXPECT_TRUE(error->IsLocked());
    }
    {
        // It reads, and so does not keep the first lock out, but the last one.
        const store::ReadTransaction reading(other);
        EXPECT_EQ(States(other), 5);
        const auto error = lock();
        ASSERT_TRUE(error);
        EXPECT_TRUE(error->IsLocked());
    }
    EXPECT_EQ(files.Bytes(), before);
}

TEST_F(CompactTest, AClientThatSavesBetweenTheCopyAndTheRewritingEndsTheWork)
{
    Connection main(files.Path(), Password);
    Connection other(files.Path(), Password);
    std::optional<store::StoreError> error;
    RunBehind(
        "ROLLBACK", [&other] { AddState(other, 99, QStringLiteral("Goa")); },
        [&] { error = ErrorOf([&] { store::Compact(main, Password); }); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->IsLocked());
    EXPECT_EQ(error->Description().toStdString(),
              "The Data Is In Use By Another Client. Please Try Again In A Moment (another client has saved "
              "meanwhile)");
    EXPECT_EQ(StatesIn(files.Path()), 6);
}

TEST_F(CompactTest, AnUnfinishedSaveBesideTheCopyIsNamed)
{
    Compact();
    files.Write(QByteArray("a save"), QStringLiteral("Tallyboard.Bak-journal"));
    const auto error = ErrorOf([this] { Compact(); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().contains(files.Path(QStringLiteral("Tallyboard.Bak-journal"))))
        << error->Description().toStdString();
}

TEST_F(CompactTest, OnAFullDiskTheFileIsAsItWas)
{
    const QByteArray before = files.Bytes();
    Connection main(files.Path(), Password);
    {
        const FileSizeLimit full(8192);
        EXPECT_TRUE(ErrorOf([&] { store::Compact(main, Password); }));
    }
    EXPECT_EQ(files.Bytes(), before);
    EXPECT_EQ(NamesIn(files.Folder()), QStringList{QStringLiteral("Tallyboard.mdb")});
}

TEST_F(CompactTest, AFolderInTheWayOfACopyIsToldAndNothingIsDone)
{
    const QByteArray before = files.Bytes();
    ASSERT_TRUE(QDir(files.Folder()).mkdir(QStringLiteral("MarkTemp.mdb")));
    const auto error = ErrorOf([this] { Compact(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description().toStdString(),
              "The Copy Could Not Be Written (its name could not be given)");
    EXPECT_EQ(files.Bytes(), before);
}

TEST_F(CompactTest, TheCopiesAreReadableForNobodyWhoMayNotReadTheFile)
{
    QFile::setPermissions(files.Path(), QFile::ReadOwner | QFile::WriteOwner);
    Compact();
    for (const char* name : {"Tallyboard.Bak", "MarkTemp.mdb"})
        EXPECT_EQ(QFile::permissions(files.Path(QString::fromLatin1(name))),
                  QFile::permissions(files.Path()));
}

} // namespace
} // namespace tally::test
