#include "core/school/PlaceRepository.h"

#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

class PlaceRepositoryTest : public testing::Test
{
protected:
    void Run(const char* sql) { main.Execute(QString::fromLatin1(sql)); }

    const QString blank = QStringLiteral(" ");
    store::Connection main = DeliveredMainStore();
    PlaceRepository places{main};
};

TEST_F(PlaceRepositoryTest, ADeliveredSystemOffersNothingButABlankState)
{
    EXPECT_EQ(places.States(), (CodedTexts{{0, blank}}));
    EXPECT_TRUE(places.Cities(0).empty());
}

TEST_F(PlaceRepositoryTest, StatesAndTheirCitiesComeByNameAndNeverTheRowThatMeansNotChosen)
{
    Run("INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1)");
    Run("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1), (2, 2, 'Panaji', 1), (3, 1, 'Aluva', 1)");
    EXPECT_EQ(places.States(),
              (CodedTexts{{0, blank}, {2, QStringLiteral("Goa")}, {1, QStringLiteral("Kerala")}}));
    EXPECT_EQ(places.Cities(1), (CodedTexts{{3, QStringLiteral("Aluva")}, {1, QStringLiteral("Kochi")}}));
    EXPECT_TRUE(places.Cities(0).empty());
}

} // namespace
} // namespace tally::test
