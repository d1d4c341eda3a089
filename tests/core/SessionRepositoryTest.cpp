#include "core/SessionRepository.h"

#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

class SessionRows : public testing::Test
{
protected:
    void Run(const char* sql) { main.Execute(QString::fromLatin1(sql)); }
    qint64 Number(const char* sql) { return main.Number(QString::fromLatin1(sql)); }

    void GivenLogins()
    {
        Run("INSERT INTO UserMaster VALUES (3, 'Clerk', 0), (4, 'Head', 0), (5, 'Guest', 0)");
        Run("INSERT INTO UserPrivilegeMaster VALUES (3, 'clerk', 'one', 'N', 0, 0), (4, 'head', 'two', 'Y', "
            "0, 0), "
            "(5, 'guest', 'one', 'N', 0, 0)");
    }

    template <typename Work>
    void Write(Work work)
    {
        store::Transaction transaction(main);
        work(transaction);
        transaction.Commit();
    }

    store::Connection main = DeliveredMainStore();
    SessionRepository session{main};
};

TEST_F(SessionRows, TheActiveYearIsTheOneMarkedSo)
{
    Run("INSERT INTO AcademicYearSetup VALUES (1, 2023, 2024, '2023-06-01', '2024-05-31', 'N', 'N', 1)");
    EXPECT_FALSE(session.ActiveAcademicYear());
    Run("INSERT INTO AcademicYearSetup VALUES (2, 2024, 2025, '2024-06-01', '2025-05-31', 'Y', 'N', 1)");
    EXPECT_EQ(session.ActiveAcademicYear()->code, 2);
}

TEST_F(SessionRows, TheLastWorkingDateIsThatOfTheYearWithinItsDates)
{
    Run("INSERT INTO AcademicYearSetup VALUES (1, 2023, 2024, '2023-06-01', '2024-05-31', 'N', 'N', 1), "
        "(2, 2024, 2025, '2024-06-01', '2025-05-31', 'Y', 'N', 1)");
    Run("INSERT INTO ApplicationDate VALUES ('2023-07-03', 1)");
    EXPECT_FALSE(session.LastApplicationDate(2)) << "the day lies before the year";
    Run("INSERT INTO ApplicationDate VALUES ('2024-07-01', 1), ('2024-06-03', 1), ('2026-01-01', 1)");
    EXPECT_EQ(session.LastApplicationDate(1), QDate(2023, 7, 3));
    EXPECT_EQ(session.LastApplicationDate(2), QDate(2024, 7, 1));
    EXPECT_EQ(session.LastApplicationDate(), QDate(2026, 1, 1));
}

TEST_F(SessionRows, TheSchoolAndTheHeadOfReportsStandInTheirOwnCities)
{
    Run("INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1), (3, 'Punjab', 1)");
    Run("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1), (2, 2, 'Panaji', 1), (3, 3, 'Patiala', 1)");
    Run("INSERT INTO SchoolMaster VALUES ('Hill School', 'Hill Road', 'North', 2, '403001', 'JUN', 1)");
    Run("INSERT INTO SchoolSetUp VALUES ('Hill', 'Road', 'North', 2, '403001')");
    EXPECT_EQ(session.School()->city.toStdString(), "Panaji");
    EXPECT_EQ(session.School()->state.toStdString(), "Goa");
    EXPECT_EQ(session.ReportSchool()->city.toStdString(), "Panaji");
}

TEST_F(SessionRows, TheOptionsAreReadAsTheyWereStored)
{
    EXPECT_FALSE(session.Options());
    Run("INSERT INTO Options VALUES ('Y', 'N', '2019-05-31', 'A', '', 'Y')");
    const auto options = session.Options();
    ASSERT_TRUE(options);
    EXPECT_EQ(options->exitPrompt.toStdString(), "Y");
    EXPECT_EQ(options->admissionNoAutoGen.toStdString(), "N");
    EXPECT_EQ(options->dateOfBirthSetting, QDate(2019, 5, 31));
    EXPECT_EQ(options->genderOption.toStdString(), "A");
    EXPECT_EQ(options->marksInFraction.toStdString(), "");
    EXPECT_EQ(options->marksRounded.toStdString(), "Y");
}

TEST_F(SessionRows, ARightIsOfAFormALetterAndAUser)
{
    GivenLogins();
    Run("INSERT INTO UserPrivilegeDetails VALUES ('frmMasStateMaster', 'N', 3), ('frmMasCityMaster', 'E', "
        "3), "
        "('frmMasCityMaster', 'N', 4)");
    const QString states = QStringLiteral("frmMasStateMaster");
    const QString cities = QStringLiteral("frmMasCityMaster");
    EXPECT_TRUE(session.HasPrivilege(states, Right::New, 3));
    EXPECT_FALSE(session.HasPrivilege(cities, Right::New, 3)) << "the form counts";
    EXPECT_FALSE(session.HasPrivilege(states, Right::Edit, 3)) << "the letter counts";
    EXPECT_FALSE(session.HasPrivilege(states, Right::New, 4)) << "the user counts";
}

TEST_F(SessionRows, ALoginNeedsItsOwnPasswordAndGivesItsOwnUser)
{
    GivenLogins();
    const auto user = [this](const char* loginId, const char* password) {
        const auto found = session.FindLogin(QString::fromLatin1(loginId), QString::fromLatin1(password));
        return found ? found->name.toStdString() : std::string("nobody");
    };
    EXPECT_EQ(user("clerk", "one"), "Clerk");
    EXPECT_EQ(user("head", "two"), "Head");
    EXPECT_EQ(user("guest", "one"), "Guest");
    EXPECT_EQ(user("head", "one"), "nobody");
    EXPECT_EQ(user("other", "one"), "nobody");
}

TEST_F(SessionRows, AnUnblockedLoginIsOneOfThisNamePasswordAndState)
{
    GivenLogins();
    const auto unblocked = [this](const char* loginId, const char* password) {
        return session.IsUnblocked(QString::fromLatin1(loginId), QString::fromLatin1(password));
    };
    EXPECT_TRUE(unblocked("clerk", "one"));
    EXPECT_FALSE(unblocked("clerk", "two"));
    EXPECT_FALSE(unblocked("other", "one"));
    EXPECT_FALSE(unblocked("head", "two"));
}

TEST_F(SessionRows, AUserMayOpenTheFormsOfTheOwnRightsToOpen)
{
    GivenLogins();
    Run("INSERT INTO UserPrivilegeDetails VALUES ('frmMasStateMaster', 'D', 3), ('frmMasCityMaster', 'N', "
        "3), "
        "('frmSubjectMaster', 'D', 4)");
    EXPECT_EQ(session.OpenableForms(3), QStringList(QStringLiteral("frmMasStateMaster")));
}

TEST_F(SessionRows, AStartIsLoggedAndLeavesNoScreenInUseAndThisClientPresent)
{
    Run("INSERT INTO ExamBoardMaster VALUES (2, 1, 'X')");
    Run("INSERT INTO ScreenStatus VALUES ('frmexammarkentry')");
    Write([this](auto& transaction) { session.WriteStartRows(transaction, QDate(2024, 6, 3)); });
    EXPECT_EQ(Number("SELECT count(*) FROM AccessedDate WHERE AccessedDate = '2024-06-03'"), 1);
    EXPECT_EQ(Number("SELECT count(*) FROM ScreenStatus"), 0);
    EXPECT_EQ(Number("SELECT count(*) FROM ExamBoardMaster"), 1);
    EXPECT_EQ(Number("SELECT count(*) FROM ExamBoardMaster WHERE BoardCode = 1 AND Status = 'A'"), 1);
}

TEST_F(SessionRows, ThePresenceIsWrittenWhereItSaysSomethingElseAndNowhereElse)
{
    Run("INSERT INTO ExamBoardMaster VALUES (1, 1, 'A'), (2, 1, 'X')");
    const auto refreshed = [this] {
        Write([this](auto& transaction) { session.RefreshPresence(transaction); });
        return main.Number(QStringLiteral("SELECT changes()"));
    };
    EXPECT_EQ(refreshed(), 0) << "it says so already";
    for (const char* status : {"'X'", "NULL"}) {
        main.Execute(QStringLiteral("UPDATE ExamBoardMaster SET Status = %1 WHERE BoardCode = 1")
                         .arg(QLatin1String(status)));
        EXPECT_EQ(refreshed(), 1) << status;
        EXPECT_EQ(Number("SELECT count(*) FROM ExamBoardMaster WHERE BoardCode = 1 AND Status = 'A'"), 1)
            << status;
    }
    EXPECT_EQ(Number("SELECT count(*) FROM ExamBoardMaster WHERE BoardCode = 2 AND Status = 'X'"), 1);
    Write([this](auto& transaction) { session.RemovePresence(transaction); });
    EXPECT_EQ(Number("SELECT count(*) FROM ExamBoardMaster WHERE BoardCode = 1"), 0);
    EXPECT_EQ(Number("SELECT count(*) FROM ExamBoardMaster WHERE BoardCode = 2"), 1);
}

TEST_F(SessionRows, AScreenIsGivenBackAlone)
{
    Write([this](auto& transaction) {
        session.TakeScreen(transaction, QStringLiteral("frmexammarkentry"));
        session.TakeScreen(transaction, QStringLiteral("frmMasClassSectionEntry"));
    });
    const AllRows before(main);
    Write([this](auto& transaction) {
        session.ReleaseScreen(transaction, QStringLiteral("frmexammarkentry"));
    });
    EXPECT_EQ(Number("SELECT count(*) FROM ScreenStatus"), 1);
    before.ExpectTouchedOnly(main, "ScreenStatus",
                             {{QStringLiteral("Screen"), QStringLiteral("frmexammarkentry")}});
}

} // namespace
} // namespace tally::test
