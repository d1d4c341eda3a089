#include "students/RelievingRepository.h"

#include "store/StoreError.h"
#include "students/Narrowings.h"
#include "students/PlacedStudents.h"
#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>
#include <tuple>

namespace tally::test {
namespace {

class RelievingRepositoryTest : public testing::Test
{
protected:
    RelievingRepositoryTest()
    {
        LayStudentMasters(main);
        LayClasses(main);
        for (const auto& [code, name] : {std::pair(1, "Anu"), std::pair(2, "Binu"), std::pair(3, "Cara")})
            StoreStudent(main, StudentNamed(code, name));
        main.Execute(QStringLiteral("INSERT INTO ApplicationDate VALUES ('2024-06-12', 1), ('2024-06-03', "
                                    "1), ('2023-06-01', 1)"));
    }

    template <typename Work>
    void Write(const Work& work)
    {
        store::Transaction transaction(main);
        work(transaction);
        transaction.Commit();
    }
    /// The work is refused because its row is another one by now.
    template <typename Work>
    void ExpectGone(const Work& work)
    {
        try {
            Write(work);
            FAIL();
        } catch (const store::StoreError& error) {
            EXPECT_EQ(error.Kind(), store::ErrorKind::GeneralFailure);
        }
    }
    std::string Texts(const RelievedFilter& filter, const char* head)
    {
        const GridResult result = relievings.Search(filter);
        const int column = ColumnOf(result.heads, QString::fromLatin1(head));
        QStringList texts;
        for (const QStringList& row : result.rows)
            texts.append(row.at(column));
        return texts.join(QLatin1Char('|')).toStdString();
    }

    store::Connection main = DeliveredMainStore();
    RelievingRepository relievings{main};
};

const Relieving Entry{.relievingDate = QDate(2024, 6, 10),
                      .reason = QStringLiteral("Moved"),
                      .tcNo = QStringLiteral("TC 7"),
                      .tcDate = QDate(2024, 6, 11)};

TEST_F(RelievingRepositoryTest, ARelievingFillsFourColumnsOfOneStudentAndIsTakenBackWhole)
{
    const std::string onRoll = StoredStudent(main, 2);
    Relieve(main, 3, "TC 7");
    const AllRows before(main);
    Write([](store::Transaction& transaction) { RelievingRepository::Relieve(transaction, 2, Entry); });
    EXPECT_EQ(StoredStudent(main, 2),
              "2|102|A102|2024-06-03|2|Binu||F|||0||||2015-01-02|0|N|2024-06-10|Moved|TC 7|2024-06-11|1");
    before.ExpectTouchedOnly(main, "StudentMaster", {{QStringLiteral("StudentCode"), QStringLiteral("2")}});
    Write([](store::Transaction& transaction) {
        RelievingRepository::PutBackOnRoll(transaction, 2, Entry.tcNo);
    });
    EXPECT_EQ(StoredStudent(main, 2), onRoll);
    before.ExpectTouchedOnly(main, "StudentMaster", {{QStringLiteral("StudentCode"), QStringLiteral("0")}});
}

TEST_F(RelievingRepositoryTest, AStudentWhoHasGoneMeanwhileIsAGeneralFailure)
{
    ExpectGone([](store::Transaction& transaction) { RelievingRepository::Relieve(transaction, 9, Entry); });
}

TEST_F(RelievingRepositoryTest, AnEntryThatIsAnotherOneByNowIsNotWrittenOver)
{
    const QString known = QStringLiteral("TC 1");
    for (const char* stored : {"", "TC 2"}) {
        Relieve(main, 2, stored);
        const AllRows before(main);
        ExpectGone([&](store::Transaction& transaction) {
            RelievingRepository::Relieve(transaction, 2, Entry, known);
        });
        ExpectGone([&](store::Transaction& transaction) {
            RelievingRepository::PutBackOnRoll(transaction, 2, known);
        });
        before.ExpectTouchedOnly(main, "none", {});
    }
    Relieve(main, 2, "TC 1");
    ExpectGone([](store::Transaction& transaction) { RelievingRepository::Relieve(transaction, 2, Entry); });
    Write(
        [&](store::Transaction& transaction) { RelievingRepository::Relieve(transaction, 2, Entry, known); });
    EXPECT_EQ(Texts({}, "TC No"), "TC 7");
}

TEST_F(RelievingRepositoryTest, AStudentWhoseNumberIsNullOrBlankIsOnRollAndCanBeRelieved)
{
    for (const char* stored : {"NULL", "' '"}) {
        main.Execute(QStringLiteral("UPDATE StudentMaster SET TCNo = %1 WHERE StudentCode = 2")
                         .arg(QLatin1String(stored)));
        Write([](store::Transaction& transaction) { RelievingRepository::Relieve(transaction, 2, Entry); });
        EXPECT_EQ(Texts({}, "TC No"), "TC 7") << stored;
    }
}

TEST_F(RelievingRepositoryTest, TheClassIsThatOfTheStudentsLastYear)
{
    EXPECT_FALSE(relievings.LastClassOf(1));
    Place(main, 1, 2, {1, 2});
    Place(main, 1, 1, {2, 1}, "N");
    Place(main, 2, 3, {2, 1});
    main.Execute(QStringLiteral("UPDATE ClassDivisionDetails SET DivisionName = 'Z' || DivisionName"
                                " WHERE ClassCode = 2"));
    for (const auto& [student, className, divisionName] :
         {std::tuple(1, "V", "B"), std::tuple(2, "IV", "ZA")}) {
        const auto last = relievings.LastClassOf(student);
        ASSERT_TRUE(last);
        EXPECT_EQ(last->className.toStdString(), className);
        EXPECT_EQ(last->divisionName.toStdString(), divisionName);
    }
}

TEST_F(RelievingRepositoryTest, PromotedIsWhoHasALaterYearBehindThisOne)
{
    Place(main, 1, 2, {1, 1}, "N");
    Place(main, 1, 3);
    Place(main, 2, 2);
    EXPECT_TRUE(relievings.IsPromoted(1, 2));
    EXPECT_FALSE(relievings.IsPromoted(1, 3));
    EXPECT_FALSE(relievings.IsPromoted(2, 2));
    EXPECT_FALSE(relievings.IsPromoted(3, 2));
}

TEST_F(RelievingRepositoryTest, TheFactsOfAStudent)
{
    Place(main, 1, 2);
    Relieve(main, 2, "TC 9");
    const RelievingFacts free = relievings.Facts(1, 0, 2, QStringLiteral("TC 1"));
    EXPECT_FALSE(free.relieved || free.promoted || free.tcNoTaken);
    EXPECT_TRUE(free.placed);
    EXPECT_EQ(free.admissionDate, QDate(2024, 6, 3));
    EXPECT_EQ(free.lastWorkingDay, QDate(2024, 6, 12));
    EXPECT_FALSE(relievings.Facts(1, 0, 1, {}).placed);
    EXPECT_TRUE(relievings.Facts(2, 0, 2, {}).relieved);
    EXPECT_TRUE(relievings.Facts(2, 1, 2, {}).relieved) << "another entry would be lost";
    EXPECT_FALSE(relievings.Facts(2, 2, 2, {}).relieved) << "his own entry is being changed";
    EXPECT_TRUE(relievings.Facts(1, 0, 2, QStringLiteral("tc 9")).tcNoTaken);
    const RelievingFacts nobody = relievings.Facts(0, 0, 2, {});
    EXPECT_FALSE(nobody.relieved || nobody.placed || nobody.promoted || nobody.tcNoTaken);
    main.Execute(QStringLiteral("DELETE FROM ApplicationDate"));
    EXPECT_FALSE(relievings.Facts(1, 0, 2, {}).lastWorkingDay.isValid());
}

TEST_F(RelievingRepositoryTest, ACertificatesNumberIsComparedInCapitalsWithWhatIsStored)
{
    Relieve(main, 1, "TC 7");
    Relieve(main, 2, "tc 8");
    EXPECT_TRUE(relievings.TCNoTaken(QStringLiteral("TC 7"), 3, 0));
    EXPECT_TRUE(relievings.TCNoTaken(QStringLiteral("tc 7"), 3, 0));
    EXPECT_FALSE(relievings.TCNoTaken(QStringLiteral("tc 8"), 3, 0)) << "stored in small letters";
    EXPECT_FALSE(relievings.TCNoTaken(QStringLiteral("TC 7"), 1, 0)) << "his own";
    EXPECT_FALSE(relievings.TCNoTaken(QStringLiteral("TC 7"), 3, 1)) << "that of the entry that moves";
    EXPECT_FALSE(relievings.TCNoTaken({}, 3, 0)) << "all who are on roll have none";
}

TEST_F(RelievingRepositoryTest, ASearchListsRelievedStudentsAloneByNameWithTheirDates)
{
    main.Execute(QStringLiteral("UPDATE StudentMaster SET TCNo = 'X' WHERE StudentCode = 0"));
    Write([](store::Transaction& transaction) { RelievingRepository::Relieve(transaction, 2, Entry); });
    Relieve(main, 1);
    EXPECT_EQ(Texts({}, "Student Name"), "Anu|Binu");
    EXPECT_EQ(Texts({}, "Admission Date"), "03/Jun/2024|03/Jun/2024");
    EXPECT_EQ(Texts({}, "Relieving Date"), "01/Sep/2024|10/Jun/2024");
    EXPECT_EQ(Texts({}, "TC Date"), "02/Sep/2024|11/Jun/2024");
    EXPECT_EQ(Texts({}, "TC No"), "TC 1|TC 7");
    EXPECT_EQ(Texts({}, "Admission No"), "A101|A102");
    EXPECT_EQ(relievings.Search({}).heads.join(QLatin1Char('|')).toStdString(),
              "StudentCode|Admission No|Admission Date|Student Name|Relieving Date|TC Date|RelievingReason|"
              "TC No|AcademicYearCode");
}

TEST_F(RelievingRepositoryTest, HoweverFiltersMeetWhomNoneLeavesOutIsFoundByName)
{
    const std::tuple<const char*, QDate, QDate> relieved[] = {
        {"Nandana", {2024, 6, 4}, {2024, 9, 6}},     {"Ananya", {2024, 6, 6}, {2024, 9, 4}},
        {"Kannan", {2024, 6, 5}, {2024, 9, 5}},      {"OtherNumberAn", {2024, 6, 5}, {2024, 9, 5}},
        {"Binu", {2024, 6, 5}, {2024, 9, 5}},        {"EarlierAn", {2024, 6, 3}, {2024, 9, 5}},
        {"LaterAn", {2024, 6, 7}, {2024, 9, 5}},     {"GoneEarlierAn", {2024, 6, 5}, {2024, 9, 3}},
        {"GoneLaterAn", {2024, 6, 5}, {2024, 9, 7}}, {"OnRollAn", {2024, 6, 5}, {2024, 9, 5}}};
    int code = 9;
    for (const auto& [name, admission, relieving] : relieved) {
        Student student = StudentNamed(++code, name);
        student.admissionDate = admission;
        StoreStudent(main, student);
        main.Execute(
            QStringLiteral("UPDATE StudentMaster SET TCNo = ?, RelievingDate = ? WHERE StudentCode = ?"),
            QStringLiteral("TC %1").arg(code), relieving, code);
    }
    for (const char* change :
         {"OptionalAdmissionNo = 'B9' WHERE StudentName = 'OtherNumberAn'",
          "TCNo = '' WHERE StudentName = 'OnRollAn'",
          "TCNo = 'TC', OptionalAdmissionNo = 'A11', StudentName = 'NobodyAn', AdmissionDate = '2024-06-05',"
          " RelievingDate = '2024-09-05' WHERE StudentCode = 0"})
        main.Execute(QStringLiteral("UPDATE StudentMaster SET ") + QString::fromLatin1(change));
    ExpectNarrowed<RelievedFilter>(
        {{"number", {[](auto& by) { by.admissionNo = QStringLiteral("a11"); }, {"OtherNumberAn"}}},
         {"name", {[](auto& by) { by.studentName = QStringLiteral("AN"); }, {"Binu"}}},
         {"from", {[](auto& by) { by.admissionFrom = QDate(2024, 6, 4); }, {"EarlierAn"}}},
         {"to", {[](auto& by) { by.admissionTo = QDate(2024, 6, 6); }, {"LaterAn"}}},
         {"goneFrom", {[](auto& by) { by.relievingFrom = QDate(2024, 9, 4); }, {"GoneEarlierAn"}}},
         {"goneTo", {[](auto& by) { by.relievingTo = QDate(2024, 9, 6); }, {"GoneLaterAn"}}}},
        {"", "number", "name", "number name", "from", "to", "from to", "goneFrom", "goneTo",
         "goneFrom goneTo", "number name from to goneFrom goneTo"},
        {"Ananya", "Binu", "EarlierAn", "GoneEarlierAn", "GoneLaterAn", "Kannan", "LaterAn", "Nandana",
         "OtherNumberAn"},
        [this](const RelievedFilter& filter) { return Texts(filter, "Student Name"); });
}

} // namespace
} // namespace tally::test
