#include "mutants/CodePlaces.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace tally::mutants {
namespace {

std::vector<CodePlace> Places(std::uint32_t count)
{
    std::vector<CodePlace> places;
    for (std::uint32_t number = 0; number < count; ++number)
        places.push_back({number, {}, 1, {}, {}});
    return places;
}

std::string Numbers(const std::vector<CodePlace>& places)
{
    std::string numbers;
    for (const CodePlace& place : places)
        numbers += std::to_string(place.number) + ' ';
    return numbers;
}

TEST(CodePlacesTest, ALineOfTheListIsAChange)
{
    const auto places = CodePlacesIn(QStringLiteral(
        "4097\tsrc/a/B.cpp\t12\tturned: x\tif (x)\n4098\tsrc/a/C.cpp\t7\tleft out: y()\ty();\n"));
    ASSERT_EQ(places.size(), 2U);
    EXPECT_EQ(places[0].number, 4097U);
    EXPECT_EQ(places[0].file, QStringLiteral("src/a/B.cpp"));
    EXPECT_EQ(places[0].line, 12);
    EXPECT_EQ(places[0].change, QStringLiteral("turned: x"));
    EXPECT_EQ(places[0].text, QStringLiteral("if (x)"));
    EXPECT_EQ(places[1].number, 4098U);
}

TEST(CodePlacesTest, AnotherListIsRefused)
{
    for (const char* list : {"4097\tsrc/a/B.cpp\t12\tturned: x\n", "x\tsrc/a/B.cpp\t12\tturned: x\tif (x)\n"})
        EXPECT_THROW(CodePlacesIn(QString::fromLatin1(list)), std::runtime_error) << list;
}

TEST(CodePlacesTest, ASampleIsTakenEvenly)
{
    EXPECT_EQ(Numbers(EvenlyFrom(Places(9), 3)), "1 4 7 ");
    EXPECT_EQ(Numbers(EvenlyFrom(Places(10), 4)), "1 3 6 8 ");
    EXPECT_EQ(Numbers(EvenlyFrom(Places(3), 3)), "0 1 2 ");
    EXPECT_EQ(Numbers(EvenlyFrom(Places(3), 5)), "0 1 2 ");
}

TEST(CodePlacesTest, AFolderHasItsFilesAndThoseBelowButNoneOfANeighbour)
{
    std::vector<CodePlace> places = Places(5);
    const char* files[] = {"src/core/ui/A.cpp", "src/core/ui/controls/B.cpp", "src/core/uix/C.cpp",
                           "src/core/D.cpp", "src/core/ui/A.cpp"};
    for (std::size_t number = 0; number < places.size(); ++number)
        places[number].file = QString::fromLatin1(files[number]);
    for (const char* folder : {"src/core/ui", "src/core/ui/"})
        EXPECT_EQ(Numbers(PlacesWithin(places, QString::fromLatin1(folder))), "0 1 4 ");
    EXPECT_EQ(Numbers(PlacesWithin(places, QStringLiteral("src/core/ui/A.cpp"))), "0 4 ");
    EXPECT_EQ(Numbers(PlacesWithin(places, QStringLiteral("src/exams"))), "");
}

} // namespace
} // namespace tally::mutants
