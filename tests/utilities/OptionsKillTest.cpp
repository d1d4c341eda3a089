#include "support/KilledSchool.h"
#include "utilities/OptionsRepository.h"

namespace tally::test {
namespace {

class OptionsKill : public KilledSchool
{};

TEST_F(OptionsKill, TheSchoolsRowKilledAtAnyFileOperationIsTheOldOneOrTheNewOne)
{
    Lay(0, [](store::Transaction& transaction) {
        OptionsRepository::Replace(transaction, {false, false, {}, QStringLiteral("M"), false, false});
    });
    ExpectWhole(
        [](store::Transaction& transaction) {
            OptionsRepository::Replace(transaction,
                                       {true, true, QDate(2020, 5, 31), QStringLiteral("F"), true, true});
        },
        RowsOf("SELECT * FROM Options"));
}

TEST_F(OptionsKill, TheUsersOwnRowKilledAtAnyFileOperationIsTheOldOneOrTheNewOne)
{
    LayFile([](store::Transaction& transaction) {
        store::CreateTempTables(transaction);
        for (const int user : {1, 2})
            OptionsRepository::ReplaceExitPrompt(transaction, false, user);
    });
    ExpectWhole(
        [](store::Transaction& transaction) { OptionsRepository::ReplaceExitPrompt(transaction, true, 2); },
        RowsOf("SELECT UserCode, Options FROM Options ORDER BY UserCode"));
}

} // namespace
} // namespace tally::test
