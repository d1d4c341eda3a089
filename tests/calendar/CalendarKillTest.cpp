#include "calendar/AcademicYearRepository.h"
#include "calendar/ApplicationDateRepository.h"
#include "support/KilledSchool.h"

namespace tally::test {
namespace {

/// The school's year 1 is 2024. Year 2 follows on it, with all its days.
class CalendarKill : public KilledSchool
{
protected:
    static AcademicYear SecondYear() { return {2, 2025, 2026, QDate(2025, 6, 1), QDate(2026, 5, 31)}; }

    static void InsertSecondYear(store::Transaction& transaction)
    {
        const AcademicYear year = SecondYear();
        AcademicYearRepository::Insert(transaction, year, false, 1);
        for (QDate day = year.fromDate; day <= year.toDate; day = day.addDays(1))
            ApplicationDateRepository::Insert(transaction, day, 1);
    }

    static Reading YearsAndDays()
    {
        return RowsOf("SELECT AcademicYearCode, Status FROM AcademicYearSetup UNION ALL "
                      "SELECT count(*), max(ApplicationDate) FROM ApplicationDate");
    }
};

TEST_F(CalendarKill, ANewYearKilledAtAnyFileOperationIsThereWithItsFirstDayOrNotAtAll)
{
    Lay(0, [](store::Transaction&) {});
    ExpectWhole(
        [](store::Transaction& transaction) {
            const AcademicYear year = SecondYear();
            AcademicYearRepository::Insert(transaction, year, true, 1);
            ApplicationDateRepository::Insert(transaction, year.fromDate, 1);
        },
        YearsAndDays());
}

TEST_F(CalendarKill, AChangedStatusKilledAtAnyFileOperationIsTheOldOneOrTheNewOne)
{
    Lay(0, InsertSecondYear);
    ExpectWhole(
        [](store::Transaction& transaction) { AcademicYearRepository::UpdateStatus(transaction, 2, true); },
        YearsAndDays());
}

TEST_F(CalendarKill, ADeletedYearKilledAtAnyFileOperationKeepsAllItsDaysOrNone)
{
    Lay(0, InsertSecondYear);
    ExpectWhole(
        [](store::Transaction& transaction) {
            const AcademicYear year = SecondYear();
            ApplicationDateRepository::DeleteBetween(transaction, year.fromDate, year.toDate);
            AcademicYearRepository::Delete(transaction, year.code);
        },
        YearsAndDays());
}

TEST_F(CalendarKill, AWorkingDayKilledAtAnyFileOperationIsOpenedOrNot)
{
    Lay(0, InsertSecondYear);
    ExpectWhole(
        [](store::Transaction& transaction) {
            ApplicationDateRepository::Insert(transaction, QDate(2026, 6, 1), 1);
        },
        YearsAndDays());
}

TEST_F(CalendarKill, AWorkingDayTakenBackKilledAtAnyFileOperationIsThereOrGone)
{
    Lay(0, InsertSecondYear);
    ExpectWhole(
        [](store::Transaction& transaction) {
            ApplicationDateRepository::Delete(transaction, SecondYear().toDate);
        },
        YearsAndDays());
}

} // namespace
} // namespace tally::test
