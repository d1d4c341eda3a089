#include "utilities/OptionsRepository.h"

#include "core/SessionRepository.h"
#include "store/Tables.h"

#include <gtest/gtest.h>

namespace tally {
namespace {

class OptionsRepositoryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        store::Transaction mainTables(main);
        store::CreateMainTables(mainTables);
        mainTables.Commit();
        store::Transaction tempTables(temp);
        store::CreateTempTables(tempTables);
        tempTables.Commit();
    }

    void Replace(const OptionSettings& settings)
    {
        store::Transaction transaction(main);
        OptionsRepository::Replace(transaction, settings);
        transaction.Commit();
    }
    void ReplaceExitPrompt(bool prompt, int userCode)
    {
        store::Transaction transaction(temp);
        OptionsRepository::ReplaceExitPrompt(transaction, prompt, userCode);
        transaction.Commit();
    }

    store::Connection main = store::Connection::InMemory();
    store::Connection temp = store::Connection::InMemory();
};

TEST_F(OptionsRepositoryTest, TheRowComesBackAsItWasSaved)
{
    Replace({true, false, QDate(2020, 5, 31), QStringLiteral("F"), true, false});
    const auto stored = SessionRepository(main).Options();
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->exitPrompt.toStdString(), "Y");
    EXPECT_EQ(stored->admissionNoAutoGen.toStdString(), "N");
    EXPECT_EQ(stored->dateOfBirthSetting, QDate(2020, 5, 31));
    EXPECT_EQ(stored->genderOption.toStdString(), "F");
    EXPECT_EQ(stored->marksInFraction.toStdString(), "Y");
    EXPECT_EQ(stored->marksRounded.toStdString(), "N");
}

TEST_F(OptionsRepositoryTest, NoDateIsStoredAsNull)
{
    Replace({false, false, QDate(), QStringLiteral("A"), false, false});
    EXPECT_FALSE(SessionRepository(main).Options()->dateOfBirthSetting);
}

TEST_F(OptionsRepositoryTest, ADateThatIsBlankOrCanNotBeReadIsThereAndInvalid)
{
    // The table refuses such dates; a damaged file may hold one all the same.
    main.Execute(QStringLiteral("PRAGMA ignore_check_constraints = ON"));
    for (const char* text : {"", "soon", "2020-02-30"}) {
        main.Execute(QStringLiteral("DELETE FROM Options"));
        main.Execute(QStringLiteral("INSERT INTO Options VALUES ('N', 'N', ?, 'A', 'N', 'N')"),
                     QString::fromLatin1(text));
        const auto limit = SessionRepository(main).Options()->dateOfBirthSetting;
        ASSERT_TRUE(limit) << text;
        EXPECT_FALSE(limit->isValid()) << text;
    }
}

TEST_F(OptionsRepositoryTest, ThereIsOneRowForTheSchoolAndOnePerUser)
{
    for (int time = 0; time < 2; ++time) {
        Replace({false, false, QDate(), QStringLiteral("A"), false, false});
        ReplaceExitPrompt(true, 1);
        ReplaceExitPrompt(false, 2);
    }
    EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM Options")), 1);
    EXPECT_EQ(temp.Number(QStringLiteral("SELECT count(*) FROM Options")), 2);
    EXPECT_TRUE(OptionsRepository::ExitPromptOf(temp, 1));
    EXPECT_FALSE(OptionsRepository::ExitPromptOf(temp, 2));
    EXPECT_FALSE(OptionsRepository::ExitPromptOf(temp, 3));
}

} // namespace
} // namespace tally
