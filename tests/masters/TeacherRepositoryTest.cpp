#include "masters/TeacherRepository.h"

#include "store/StoreError.h"
#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

const QDate Birth(1980, 5, 6);

TEST(TeacherDates, WithoutADateThereIsNothingToFind)
{
    EXPECT_EQ(FaultWhileChoosing({}, {}), DateFault::None);
    EXPECT_EQ(FaultAtSave({}, {}), DateFault::None);
    EXPECT_EQ(FaultAtSave({}, Birth), DateFault::None);
}

TEST(TeacherDates, ADateNeedsADateOfBirth)
{
    EXPECT_EQ(FaultWhileChoosing(Birth, {}), DateFault::BirthMissing);
    EXPECT_EQ(FaultAtSave(Birth, {}), DateFault::BirthMissing);
}

TEST(TeacherDates, TheDayOfBirthItselfPassesWhileChoosingAndIsRefusedAtTheSave)
{
    EXPECT_EQ(FaultWhileChoosing(Birth, Birth), DateFault::None);
    EXPECT_EQ(FaultAtSave(Birth, Birth), DateFault::NotAfterBirth);
    EXPECT_EQ(FaultWhileChoosing(Birth.addDays(-1), Birth), DateFault::NotAfterBirth);
    EXPECT_EQ(FaultAtSave(Birth.addDays(-1), Birth), DateFault::NotAfterBirth);
    EXPECT_EQ(FaultAtSave(Birth.addDays(1), Birth), DateFault::None);
}

class TeacherRepositoryTest : public testing::Test
{
protected:
    TeacherRepositoryTest()
    {
        Run("INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1)");
        Run("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1), (2, 2, 'Panaji', 1), (3, 1, 'Aluva', 1)");
        Run("INSERT INTO BloodGroupMaster VALUES (1, 'O+', 1)");
        Run("INSERT INTO SalutationMaster VALUES (1, 'Mrs', 1)");
    }

    void Run(const char* sql) { main.Execute(QString::fromUtf8(sql)); }

    void Insert(int code, const Teacher& teacher)
    {
        store::Transaction transaction(main);
        TeacherRepository::Insert(transaction, code, teacher, 7);
        transaction.Commit();
    }

    static Teacher Named(const char* name, const char* shortName, int cityCode = 0)
    {
        Teacher teacher;
        teacher.salutationCode = 1;
        teacher.name = QString::fromLatin1(name);
        teacher.shortName = QString::fromLatin1(shortName);
        teacher.cityCode = cityCode;
        return teacher;
    }

    QStringList FoundNames(const char* name, const char* city)
    {
        QStringList names;
        for (const QStringList& row :
             teachers.Search(QString::fromLatin1(name), QString::fromLatin1(city)).rows)
            names.append(row.first());
        return names;
    }

    store::Connection main = DeliveredMainStore();
    TeacherRepository teachers{main};
};

TEST_F(TeacherRepositoryTest, AStoredTeacherComesBackAsItWas)
{
    Teacher teacher = Named("Asha", "ASH", 3);
    teacher.dateOfBirth = Birth;
    teacher.married = true;
    teacher.weddingDate = QDate(2004, 2, 29);
    teacher.joiningDate = QDate(2010, 6, 1);
    teacher.fatherOrSpouse = QStringLiteral("Babu");
    teacher.address1 = QStringLiteral("House");
    teacher.address2 = QStringLiteral("Street");
    teacher.pinCode = QStringLiteral("682001");
    teacher.telephone = QStringLiteral("0484");
    teacher.bloodGroupCode = 1;
    teacher.qualification = QStringLiteral("B.Ed");
    Insert(4, teacher);
    const auto found = teachers.Find(4);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->salutationCode, 1);
    EXPECT_EQ(found->name, teacher.name);
    EXPECT_EQ(found->shortName, teacher.shortName);
    EXPECT_EQ(found->dateOfBirth, teacher.dateOfBirth);
    EXPECT_TRUE(found->married);
    EXPECT_EQ(found->weddingDate, teacher.weddingDate);
    EXPECT_EQ(found->joiningDate, teacher.joiningDate);
    EXPECT_EQ(found->fatherOrSpouse, teacher.fatherOrSpouse);
    EXPECT_EQ(found->address1, teacher.address1);
    EXPECT_EQ(found->address2, teacher.address2);
    EXPECT_EQ(found->cityCode, 3);
    EXPECT_EQ(found->stateCode, 1);
    EXPECT_EQ(found->pinCode, teacher.pinCode);
    EXPECT_EQ(found->telephone, teacher.telephone);
    EXPECT_EQ(found->bloodGroupCode, 1);
    EXPECT_EQ(found->qualification, teacher.qualification);
}

TEST_F(TeacherRepositoryTest, NamesDifferByCaseButShortNamesDoNot)
{
    Insert(1, Named("Asha", "ASH"));
    EXPECT_TRUE(teachers.NameTaken(QStringLiteral("Asha"), 0));
    EXPECT_FALSE(teachers.NameTaken(QStringLiteral("ASHA"), 0));
    EXPECT_FALSE(teachers.NameTaken(QStringLiteral("Asha"), 1));
    EXPECT_FALSE(teachers.NameTaken(QStringLiteral("Binu"), 0));
    EXPECT_TRUE(teachers.ShortNameTaken(QStringLiteral("ash"), 0));
    EXPECT_FALSE(teachers.ShortNameTaken(QStringLiteral("ash"), 1));
    EXPECT_FALSE(teachers.ShortNameTaken(QStringLiteral("BIN"), 0));
}

TEST_F(TeacherRepositoryTest, TheRowForNoTeacherIsNeitherFoundNorHasItsNamesTaken)
{
    Insert(1, Named("Asha", "ASH", 1));
    Run("UPDATE TeacherMaster SET TeacherName = 'Aban', TeacherShortName = 'ABA', CityCode = 1 WHERE "
        "TeacherCode = 0");
    EXPECT_FALSE(teachers.NameTaken(QStringLiteral("Aban"), 1));
    EXPECT_FALSE(teachers.ShortNameTaken(QStringLiteral("ABA"), 1));
    for (const auto& [name, city] :
         {std::pair{"", ""}, std::pair{"a", ""}, std::pair{"", "koch"}, std::pair{"a", "koch"}})
        EXPECT_EQ(FoundNames(name, city), QStringList{QStringLiteral("Asha")}) << name << '/' << city;
}

TEST_F(TeacherRepositoryTest, AShortNameWithLettersOfOtherLanguagesIsTakenToo)
{
    Teacher teacher = Named("Zoe", "");
    teacher.shortName = QStringLiteral("Zo\u00eb");
    Insert(1, teacher);
    EXPECT_TRUE(teachers.ShortNameTaken(QStringLiteral("Zo\u00eb"), 0));
    EXPECT_TRUE(teachers.ShortNameTaken(QStringLiteral("zO\u00eb"), 0));
    EXPECT_FALSE(teachers.ShortNameTaken(QStringLiteral("Zoe"), 0));
}

TEST_F(TeacherRepositoryTest, SearchFindsLettersOfOtherLanguagesAsTheyWereEntered)
{
    Run("INSERT INTO CityMaster VALUES (4, 1, '\u00c5rsta', 1), (5, 1, '\u00e5rsta', 1)");
    Teacher teacher = Named("", "ZOE", 5);
    teacher.name = QStringLiteral("Zo\u00eb \u0905\u0936\u093e");
    Insert(1, teacher);
    const auto found = [this](const QString& name, const QString& city) {
        return teachers.Search(name, city).rows.size();
    };
    EXPECT_EQ(found(QStringLiteral("o\u00eb"), {}), 1U);
    EXPECT_EQ(found(QStringLiteral("ZO\u00eb \u0905"), {}), 1U);
    EXPECT_EQ(found({}, QStringLiteral("\u00e5RST")), 1U);
    EXPECT_EQ(found(QStringLiteral("Zoe"), {}), 0U);
}

TEST_F(TeacherRepositoryTest, SalutationsStandByNameWithoutABlankLine)
{
    Run("INSERT INTO SalutationMaster VALUES (2, 'Mr', 1)");
    EXPECT_EQ(teachers.Salutations(), (CodedTexts{{2, QStringLiteral("Mr")}, {1, QStringLiteral("Mrs")}}));
}

TEST_F(TeacherRepositoryTest, SearchFindsPartsOfNameAndCityWhateverTheCaseInTheOrderOfTheNames)
{
    const auto found = [this](const char* name, const char* city) {
        return FoundNames(name, city).join(QLatin1Char(' ')).toStdString();
    };
    Insert(1, Named("Chandra", "CHA", 1));
    Insert(2, Named("Asha", "ASH", 2));
    Insert(3, Named("Binu", "BIN"));
    Insert(4, Named("Bhama", "BHA", 1));
    EXPECT_EQ(found("", ""), "Asha Bhama Binu Chandra");
    EXPECT_EQ(found("HA", ""), "Asha Bhama Chandra");
    EXPECT_EQ(found("", "koch"), "Bhama Chandra");
    EXPECT_EQ(found("a", "panaji"), "Asha");
    EXPECT_EQ(found("ha", "kochi"), "Bhama Chandra");
    EXPECT_EQ(found("binu", "kochi"), "");
}

TEST_F(TeacherRepositoryTest, SearchShowsTheTeachersOwnCityAndState)
{
    Teacher teacher = Named("Asha", "ASH", 2);
    teacher.telephone = QStringLiteral("0832");
    Insert(1, teacher);
    for (const auto& [name, city] :
         {std::pair{"", ""}, std::pair{"asha", ""}, std::pair{"", "panaji"}, std::pair{"asha", "panaji"}}) {
        const GridResult found = teachers.Search(QString::fromLatin1(name), QString::fromLatin1(city));
        ASSERT_EQ(found.rows.size(), 1U) << name << '/' << city;
        EXPECT_EQ(found.rows.front().join(QLatin1Char('|')).toStdString(), "Asha|ASH|Goa|Panaji|0832|1");
    }
}

TEST_F(TeacherRepositoryTest, ATeacherWithoutACityIsFoundWithBlankCityAndState)
{
    Insert(3, Named("Binu", "BIN"));
    const GridResult found = teachers.Search({}, {});
    EXPECT_EQ(found.heads.join(QLatin1Char('|')).toStdString(),
              "Teacher Name|Short Name|State Name|City Name|Telephone|TeacherCode");
    ASSERT_EQ(found.rows.size(), 1U);
    EXPECT_EQ(found.rows.front().join(QLatin1Char('|')).toStdString(), "Binu|BIN||||3");
}

TEST_F(TeacherRepositoryTest, AnUpdateStoresEachValueOfItsOwnTeacherAlone)
{
    Run("INSERT INTO SalutationMaster VALUES (2, 'Mr', 1)");
    Insert(1, Named("Asha", "ASH", 1));
    Insert(2, Named("Binu", "BIN", 1));
    const AllRows before(main);
    {
        store::Transaction transaction(main);
        TeacherRepository::Update(transaction, 1,
                                  {.salutationCode = 2,
                                   .name = QStringLiteral("Asha Rani"),
                                   .shortName = QStringLiteral("ARA"),
                                   .dateOfBirth = Birth,
                                   .married = true,
                                   .weddingDate = QDate(2004, 2, 29),
                                   .joiningDate = QDate(2010, 6, 1),
                                   .fatherOrSpouse = QStringLiteral("Babu"),
                                   .address1 = QStringLiteral("House"),
                                   .address2 = QStringLiteral("Street"),
                                   .cityCode = 3,
                                   .pinCode = QStringLiteral("683101"),
                                   .telephone = QStringLiteral("0484"),
                                   .bloodGroupCode = 1,
                                   .qualification = QStringLiteral("B.Ed")},
                                  9);
        transaction.Commit();
    }
    before.ExpectTouchedOnly(main, "TeacherMaster", {{QStringLiteral("TeacherCode"), QStringLiteral("1")}});
    auto row = main.Query(QStringLiteral("SELECT * FROM TeacherMaster WHERE TeacherCode = 1"));
    ASSERT_TRUE(row.Next());
    QStringList values;
    for (int column = 0; column < row.ColumnCount(); ++column)
        values.append(row.Text(column));
    EXPECT_EQ(
        values.join(QLatin1Char('|')).toStdString(),
        "1|2|Asha Rani|ARA|1980-05-06|M|2004-02-29|2010-06-01|Babu|House|Street|3|683101|0484|1|B.Ed|9");
}

TEST_F(TeacherRepositoryTest, ADeleteTakesItsOwnTeacher)
{
    Insert(1, Named("Asha", "ASH"));
    Insert(2, Named("Binu", "BIN"));
    const AllRows before(main);
    {
        store::Transaction transaction(main);
        TeacherRepository::Delete(transaction, 1);
        transaction.Commit();
    }
    before.ExpectTouchedOnly(main, "TeacherMaster", {{QStringLiteral("TeacherCode"), QStringLiteral("1")}});
    EXPECT_FALSE(teachers.Find(1));
}

TEST_F(TeacherRepositoryTest, AnUpdateOfATeacherWhoHasGoneSaysSo)
{
    store::Transaction transaction(main);
    try {
        TeacherRepository::Update(transaction, 9, Named("Asha", "ASH"), 1);
        FAIL() << "nobody was updated";
    } catch (const store::StoreError& error) {
        EXPECT_EQ(error.Kind(), store::ErrorKind::GeneralFailure);
    }
}

TEST_F(TeacherRepositoryTest, ATeacherNeedsASalutationThatExists)
{
    Teacher teacher = Named("Asha", "ASH");
    teacher.salutationCode = 8;
    EXPECT_THROW(Insert(1, teacher), store::StoreError);
}

} // namespace
} // namespace tally::test
