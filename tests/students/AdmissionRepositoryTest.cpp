#include "students/AdmissionRepository.h"

#include "store/StoreError.h"
#include "students/Narrowings.h"
#include "students/PlacedStudents.h"
#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>
#include <tuple>

namespace tally::test {
namespace {

class AdmissionRepositoryTest : public testing::Test
{
protected:
    AdmissionRepositoryTest()
    {
        LayStudentMasters(main);
        LayClasses(main);
    }

    void Store(int code, const char* name) { StoreStudent(main, StudentNamed(code, name)); }
    template <typename Work>
    void Write(const Work& work)
    {
        store::Transaction transaction(main);
        work(transaction);
        transaction.Commit();
    }
    std::string Texts(const PlacementFilter& filter, const char* head)
    {
        const GridResult result = admissions.Search(2, filter);
        const int column = ColumnOf(result.heads, QString::fromLatin1(head));
        QStringList texts;
        for (const QStringList& row : result.rows)
            texts.append(row.at(column));
        return texts.join(QLatin1Char('|')).toStdString();
    }

    store::Connection main = DeliveredMainStore();
    AdmissionRepository admissions{main};
};

TEST_F(AdmissionRepositoryTest, OnlyStudentsOfTheYearWhoWereNeverPlacedAreOfferedByNumber)
{
    Store(3, "Cara");
    Store(1, "Anu");
    Store(2, "Binu");
    Student earlier = StudentNamed(4, "Dev");
    earlier.academicYearCode = 1;
    StoreStudent(main, earlier);
    Place(main, 2, 3);
    main.Execute(QStringLiteral("UPDATE StudentMaster SET OptionalAdmissionNo = 'C1' WHERE StudentCode = 1"));
    QStringList offered;
    for (const auto& [code, number] : admissions.StudentsToPlace(2))
        offered.append(QStringLiteral("%1 %2").arg(code).arg(number));
    EXPECT_EQ(offered.join(QLatin1Char('|')).toStdString(), "3 A103|1 C1");
    EXPECT_TRUE(admissions.StudentsToPlace(0).empty()) << "the row that stands for no student";
}

TEST_F(AdmissionRepositoryTest, APlacementIsOfOneStudentInOneYearAndNoOtherRowIsTouched)
{
    Store(1, "Anu");
    Store(2, "Binu");
    Place(main, 1, 1, {2, 2}, "N");
    Place(main, 2, 2, {1, 1});
    const AllRows before(main);
    Write([](store::Transaction& transaction) { AdmissionRepository::Insert(transaction, 1, 2, {1, 2}, 7); });
    EXPECT_EQ(Placements(main), "1/1 IV-B N 1; 1/2 V-B Y 7; 2/2 V-A Y 1");
    Write([](store::Transaction& transaction) { AdmissionRepository::Update(transaction, 1, 2, {2, 1}, 8); });
    EXPECT_EQ(Placements(main), "1/1 IV-B N 1; 1/2 IV-A Y 8; 2/2 V-A Y 1");
    before.ExpectTouchedOnly(main, "StudentClassDivision",
                             {{QStringLiteral("StudentCode"), QStringLiteral("1")},
                              {QStringLiteral("AcademicYearCode"), QStringLiteral("2")}});
    const auto found = admissions.Find(1, 2);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->classCode, 2);
    EXPECT_EQ(found->divisionCode, 1);
    EXPECT_FALSE(admissions.Find(2, 1));
    Write([](store::Transaction& transaction) { AdmissionRepository::Delete(transaction, 1, 2); });
    EXPECT_EQ(Placements(main), "1/1 IV-B N 1; 2/2 V-A Y 1");
}

TEST_F(AdmissionRepositoryTest, APlacementThatHasGoneMeanwhileIsAGeneralFailure)
{
    Store(1, "Anu");
    try {
        Write([](store::Transaction& transaction) {
            AdmissionRepository::Update(transaction, 1, 2, {2, 1}, 8);
        });
        FAIL();
    } catch (const store::StoreError& error) {
        EXPECT_EQ(error.Kind(), store::ErrorKind::GeneralFailure);
    }
}

TEST_F(AdmissionRepositoryTest, WhatSpeaksAgainstAChangeIsCountedForTheStudentAndTheYear)
{
    for (const auto& [code, name] : {std::pair(1, "Anu"), std::pair(2, "Binu")}) {
        Store(code, name);
        for (int year = 1; year <= 4; ++year)
            Place(main, code, year);
        EnterMark(main, code, 2);
    }
    Relieve(main, 2);
    EnterMark(main, 1, 3);
    main.Execute(QStringLiteral("INSERT INTO ExamMaster VALUES (2, 'Final', 2, 1)"));
    main.Execute(QStringLiteral("INSERT INTO MarkMaster VALUES (2, 1, 2, 1, 1, 1, 30, 'P', 0, 1)"));
    const PlacementFacts facts = admissions.Facts(1, 2);
    EXPECT_FALSE(facts.relieved);
    EXPECT_EQ(facts.placements, 4);
    EXPECT_EQ(facts.laterPlacements, 2);
    EXPECT_EQ(facts.marks, 2);
    EXPECT_TRUE(admissions.Facts(2, 2).relieved);
    const PlacementFacts nobody = admissions.Facts(9, 2);
    EXPECT_FALSE(nobody.relieved);
    EXPECT_EQ(nobody.placements + nobody.laterPlacements + nobody.marks, 0);
}

TEST_F(AdmissionRepositoryTest, ASearchListsThePlacementsOfTheYearByClassDivisionAndName)
{
    Store(1, "Zoe");
    Store(2, "Anu");
    Store(3, "Binu");
    Store(4, "Cara");
    Place(main, 1, 2, {1, 1});
    Place(main, 2, 2, {2, 1});
    Place(main, 3, 2, {1, 2});
    Place(main, 4, 2, {1, 1});
    Place(main, 4, 1, {2, 2}, "N");
    EXPECT_EQ(Texts({}, "Student Name"), "Cara|Zoe|Binu|Anu");
    EXPECT_EQ(Texts({}, "Class Name"), "V|V|V|IV");
    EXPECT_EQ(Texts({}, "Division Name"), "A|A|B|A");
    EXPECT_EQ(Texts({}, "StudentCode"), "4|1|3|2");
    EXPECT_EQ(admissions.Search(2, {}).heads.join(QLatin1Char('|')).toStdString(),
              "Student Name|StudentCode|Admission No|Class Name|Division Name|Class Code|ClassOrder|"
              "AcademicYearCode");
    AddNeighbours(main);
    EXPECT_EQ(admissions.Search(10002, {}).rows.size(), 4U);
}

TEST_F(AdmissionRepositoryTest, HoweverFiltersMeetWhomNoneLeavesOutIsFoundByClassDivisionAndName)
{
    const std::tuple<const char*, Placement, const char*> placed[] = {
        {"Nandana", {1, 1}, "Y"},   {"Ananya", {1, 1}, "Y"},        {"Kannan", {1, 1}, "Y"},
        {"InBAn", {1, 2}, "Y"},     {"BackInBAn", {1, 2}, "Y"},     {"AnInIV", {2, 1}, "Y"},
        {"Binu", {1, 1}, "Y"},      {"OtherNumberAn", {1, 1}, "Y"}, {"RelievedAn", {1, 1}, "Y"},
        {"PromotedAn", {1, 1}, "N"}};
    int code = 0;
    for (const auto& [name, placement, status] : placed) {
        Store(++code, name);
        Place(main, code, 2, placement, status);
    }
    Store(++code, "OtherYearAn");
    Place(main, code, 1);
    Place(main, 0, 2);
    for (const char* change : {"OptionalAdmissionNo = 'B9' WHERE StudentName = 'OtherNumberAn'",
                               "TCNo = 'TC 1' WHERE StudentName = 'RelievedAn'",
                               "OptionalAdmissionNo = 'A1', StudentName = 'NobodyAn' WHERE StudentCode = 0"})
        main.Execute(QStringLiteral("UPDATE StudentMaster SET ") + QString::fromLatin1(change));
    ExpectNarrowed<PlacementFilter>(
        {{"name", {[](auto& by) { by.studentName = QStringLiteral("aN"); }, {"Binu"}}},
         {"number", {[](auto& by) { by.admissionNo = QStringLiteral("a1"); }, {"OtherNumberAn"}}},
         {"class", {[](auto& by) { by.classCode = 1; }, {"AnInIV"}}},
         {"division", {[](auto& by) { by.divisionCode = 1; }, {"BackInBAn", "InBAn"}}},
         {"onRoll", {[](auto& by) { by.onRollOnly = true; }, {"PromotedAn", "RelievedAn"}}}},
        {"", "name", "number", "name number", "class", "class division", "name class division",
         "name number class division", "onRoll"},
        {"Ananya", "Binu", "Kannan", "Nandana", "OtherNumberAn", "PromotedAn", "RelievedAn", "BackInBAn",
         "InBAn", "AnInIV"},
        [this](const PlacementFilter& filter) { return Texts(filter, "Student Name"); });
}

} // namespace
} // namespace tally::test
