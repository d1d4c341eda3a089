#include "utilities/HelpRepository.h"

#include "store/Tables.h"
#include "store/Transaction.h"

#include <gtest/gtest.h>

namespace tally {
namespace {

class HelpRepositoryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        store::Transaction transaction(help);
        store::CreateHelpTables(transaction);
        transaction.Commit();
        Add(9, "Twin", "the later one");
        Add(2, "Class&Section", "of classes");
        Add(5, "twin", "the first one");
    }
    void Add(int number, const char* name, const char* details)
    {
        help.Execute(QStringLiteral("INSERT INTO Tallyboarddetails (Scrno, ScreenName, Details)"
                                    " VALUES (?, ?, ?)"),
                     number, name, details);
    }
    HelpRepository Texts() { return HelpRepository(help); }

    store::Connection help = store::Connection::InMemory();
};

TEST_F(HelpRepositoryTest, AScreenIsFoundByItsNumber)
{
    const auto page = Texts().Find(2);
    ASSERT_TRUE(page);
    EXPECT_EQ(page->screenName.toStdString(), "Class&Section");
    EXPECT_EQ(page->details.toStdString(), "of classes");
    EXPECT_FALSE(Texts().Find(3));
    EXPECT_FALSE(Texts().Find(0));
}

TEST_F(HelpRepositoryTest, AScreenIsFoundByItsNameTheFirstOfTwo)
{
    EXPECT_EQ(Texts().Find(QStringLiteral("TWIN"))->details.toStdString(), "the first one");
    EXPECT_EQ(Texts().Find(QStringLiteral("class&section"))->details.toStdString(), "of classes");
    EXPECT_FALSE(Texts().Find(QStringLiteral("class_section")));
}

TEST_F(HelpRepositoryTest, NamesComeInTheOrderOfTheNumbers)
{
    EXPECT_EQ(Texts().ScreenNames().join(QLatin1Char(' ')).toStdString(), "Class&Section twin Twin");
}

} // namespace
} // namespace tally
