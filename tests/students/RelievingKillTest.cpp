#include "students/RelievingRepository.h"
#include "support/KilledSchool.h"

namespace tally::test {
namespace {

/// A school whose first student has left, and clients that are killed while they move that to another one.
class RelievingKill : public KilledSchool
{
protected:
    static constexpr int First = 1;
    static constexpr int Second = 2;

    void SetUp() override
    {
        Lay(5, [](store::Transaction& transaction) {
            RelievingRepository::Relieve(transaction, First, Entry());
        });
    }

    static Relieving Entry()
    {
        return {.relievingDate = QDate(2024, 6, 10),
                .reason = QStringLiteral("Moved"),
                .tcNo = QStringLiteral("TC 1"),
                .tcDate = QDate(2024, 6, 11)};
    }

    /// "1 2024-06-10 Moved TC 1 2024-06-11" for each student who has anything of a relieving.
    static std::string State(store::Connection& main)
    {
        auto rows = main.Query(
            QStringLiteral("SELECT StudentCode, RelievingDate, RelievingReason, TCNo, TCDate FROM "
                           "StudentMaster WHERE TCNo <> '' OR RelievingReason <> '' OR RelievingDate IS NOT "
                           "NULL OR TCDate IS NOT NULL ORDER BY StudentCode"));
        QStringList relieved;
        while (rows.Next())
            relieved.append(QStringLiteral("%1 %2 %3 %4 %5")
                                .arg(rows.Text(0), rows.Text(1), rows.Text(2), rows.Text(3), rows.Text(4)));
        return relieved.join(QStringLiteral("; ")).toStdString();
    }
};

TEST_F(RelievingKill, AnEntryThatMovesToAnotherStudentIsWithOneOfThemWheneverItsClientIsKilled)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            RelievingRepository::PutBackOnRoll(transaction, First, Entry().tcNo);
            RelievingRepository::Relieve(transaction, Second, Entry());
        },
        State);
}

TEST_F(RelievingKill, AnEntryThatIsTakenBackIsThereWholeOrNotAtAll)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            RelievingRepository::PutBackOnRoll(transaction, First, Entry().tcNo);
        },
        State);
}

} // namespace
} // namespace tally::test
