#include "masters/TeacherRepository.h"

#include "store/StoreError.h"
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
    EXPECT_TRUE(teachers.ShortNameTaken(QStringLiteral("ash"), 0));
    EXPECT_FALSE(teachers.ShortNameTaken(QStringLiteral("ash"), 1));
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

TEST_F(TeacherRepositoryTest, BloodGroupsBeginBlankAndSalutationsDoNot)
{
    EXPECT_EQ(teachers.BloodGroups(), (CodedTexts{{0, QStringLiteral(" ")}, {1, QStringLiteral("O+")}}));
    EXPECT_EQ(teachers.Salutations(), (CodedTexts{{1, QStringLiteral("Mrs")}}));
}

TEST_F(TeacherRepositoryTest, SearchFindsPartsOfNameAndCityWhateverTheCase)
{
    Insert(1, Named("Chandra", "CHA", 1));
    Insert(2, Named("Asha", "ASH", 2));
    Insert(3, Named("Binu", "BIN"));
    EXPECT_EQ(FoundNames("", ""),
              (QStringList{QStringLiteral("Asha"), QStringLiteral("Binu"), QStringLiteral("Chandra")}));
    EXPECT_EQ(FoundNames("HA", ""), (QStringList{QStringLiteral("Asha"), QStringLiteral("Chandra")}));
    EXPECT_EQ(FoundNames("", "koch"), QStringList{QStringLiteral("Chandra")});
    EXPECT_EQ(FoundNames("a", "panaji"), QStringList{QStringLiteral("Asha")});
    EXPECT_TRUE(FoundNames("binu", "kochi").isEmpty());
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
