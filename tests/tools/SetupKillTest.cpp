#include "store/StoreFiles.h"
#include "support/FileCalls.h"
#include "tools/DeliveredDatabases.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

constexpr int Names = 500;

class SetupKill : public testing::Test
{
protected:
    bool Make() const
    {
        return MakeDatabase(files.Path(), Password, [](store::Transaction& transaction) {
            transaction.Execute(QStringLiteral("CREATE TABLE NameList (Name TEXT)"));
            for (int name = 0; name < Names; ++name)
                transaction.Execute(QStringLiteral("INSERT INTO NameList VALUES (?)"), "Amala");
        });
    }

    qint64 StoredNames() const
    {
        store::Connection made(files.Path(), Password);
        return made.Number(QStringLiteral("SELECT count(*) FROM NameList"));
    }

    QStringList Left() const
    {
        return QDir(files.Folder()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    StoreFiles files;
};

TEST_F(SetupKill, AMakingKilledAtAnyFileOperationLeavesNoDatabaseOrAWholeOneAndTheNextRunClearsUp)
{
    // The very first operations open the lock and write who holds it; who dies in that line keeps it for half
    // an hour.
    std::size_t killed = 2;
    bool wasMade = false;
    for (; !RunAndDieAt(killed, [this] { Make(); }); ++killed) {
        SCOPED_TRACE(killed);
        const bool made = QFileInfo::exists(files.Path());
        EXPECT_TRUE(made || !wasMade) << "the later kill left less";
        wasMade = made;
        EXPECT_EQ(Make(), !made);
        EXPECT_EQ(StoredNames(), Names);
        if (!made) {
            EXPECT_EQ(Left(), QStringList(QStringLiteral("Tallyboard.mdb")));
        }
        for (const QString& name : Left())
            ASSERT_TRUE(QFile::remove(files.Path(name)));
    }
    EXPECT_EQ(StoredNames(), Names);
    EXPECT_EQ(Left(), QStringList(QStringLiteral("Tallyboard.mdb")));
    EXPECT_GT(killed, 10U) << "the operations were not seen";
}

} // namespace
} // namespace tally::test
