#include "masters/ClassSectionRepository.h"

#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

using Keys = std::set<DivisionKey>;

/// Two classes, the older one behind the newer, each with divisions 1 and 2.
class ClassSectionRows : public testing::Test
{
protected:
    ClassSectionRows()
    {
        Run("INSERT INTO ClassDivisionMaster VALUES (1, 'IX', 2, 2, 1), (2, 'X', 2, 1, 1)");
        Run("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1), (1, 'B', 2), (2, 'A', 1), (2, 'B', 2)");
    }

    void Run(const char* sql) { main.Execute(QString::fromLatin1(sql)); }

    template <typename Work>
    void Write(Work work)
    {
        store::Transaction transaction(main);
        work(transaction);
        transaction.Commit();
    }

    std::string Classes()
    {
        QStringList rows;
        for (const ClassRecord& record : classes.Classes())
            rows.append(QStringLiteral("%1 %2 %3 %4")
                            .arg(QString::number(record.classCode), record.className,
                                 QString::number(record.noOfDivisions), QString::number(record.classOrder)));
        return rows.join(QLatin1String("; ")).toStdString();
    }

    std::string Divisions()
    {
        QStringList rows;
        for (const ClassDivision& division : classes.Divisions())
            rows.append(QStringLiteral("%1 %2 %3")
                            .arg(QString::number(division.classCode), division.divisionName,
                                 QString::number(division.divisionCode)));
        return rows.join(QLatin1String("; ")).toStdString();
    }

    static AllRows::Row OfClass(const char* code)
    {
        return {{QStringLiteral("ClassCode"), QString::fromLatin1(code)}};
    }
    static AllRows::Row OfDivision(const char* classCode, const char* code)
    {
        return {{QStringLiteral("ClassCode"), QString::fromLatin1(classCode)},
                {QStringLiteral("DivisionCode"), QString::fromLatin1(code)}};
    }

    store::Connection main = DeliveredMainStore();
    ClassSectionRepository classes{main};
};

TEST_F(ClassSectionRows, ClassesComeInTheirOrderAndDivisionsByClassTheHighestCodeFirst)
{
    EXPECT_EQ(Classes(), "2 X 2 1; 1 IX 2 2");
    EXPECT_EQ(Divisions(), "1 B 2; 1 A 1; 2 B 2; 2 A 1");
}

TEST_F(ClassSectionRows, TheRowForNoClassIsNeverListedWhateverItHolds)
{
    Run("UPDATE ClassDivisionMaster SET ClassName = 'O', ClassOrder = 3 WHERE ClassCode = 0");
    Run("INSERT INTO ClassDivisionDetails VALUES (0, 'A', 1)");
    EXPECT_EQ(Classes(), "2 X 2 1; 1 IX 2 2");
    EXPECT_EQ(Divisions(), "1 B 2; 1 A 1; 2 B 2; 2 A 1");
}

TEST_F(ClassSectionRows, ADivisionIsInUseByTheRowsOfItsOwnClassAndCode)
{
    Run("INSERT INTO AcademicYearSetup VALUES (1, 2023, 2024, '2023-06-01', '2024-05-31', 'Y', 'N', 1)");
    Run("INSERT INTO ExamMaster VALUES (1, 'Term', 1, 1)");
    Run("INSERT INTO StudentClassDivision VALUES (0, 1, 1, 1, 'Y', 1)");
    Run("INSERT INTO MarkMaster VALUES (1, 0, 1, 1, 2, 0, 40, 'P', 0, 1)");
    Run("INSERT INTO RankMaster VALUES (1, 1, 2, 1, 80, 50, 'A', 1, 1)");
    Run("INSERT INTO ClassSubjectTeacher VALUES (1, 2, 2, 0, 0, 100, 100, 'Yes', 1)");
    const StoredClassSections stored = classes.Read();
    EXPECT_EQ(stored.withStudents, (Keys{{1, 1}}));
    EXPECT_EQ(stored.withMarks, (Keys{{1, 2}}));
    EXPECT_EQ(stored.withRanks, (Keys{{2, 1}}));
    EXPECT_EQ(stored.withSetup, (Keys{{2, 2}}));
}

TEST_F(ClassSectionRows, AChangeOfAClassTouchesItAlone)
{
    const AllRows before(main);
    Write([](auto& transaction) {
        ClassSectionRepository::UpdateClass(transaction, {1, QStringLiteral("VIII"), 3, 5});
    });
    EXPECT_EQ(Classes(), "2 X 2 1; 1 VIII 3 5");
    before.ExpectTouchedOnly(main, "ClassDivisionMaster", OfClass("1"));
}

TEST_F(ClassSectionRows, AClassGoesWithItsDivisionsAlone)
{
    Write([](auto& transaction) { ClassSectionRepository::DeleteClass(transaction, 1); });
    EXPECT_EQ(Classes(), "2 X 2 1");
    EXPECT_EQ(Divisions(), "2 B 2; 2 A 1");
    EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM ClassDivisionMaster")), 2);
}

TEST_F(ClassSectionRows, ADivisionIsRenamedAndDeletedAlone)
{
    AllRows before(main);
    Write([](auto& transaction) {
        ClassSectionRepository::RenameDivision(transaction, {1, QStringLiteral("C"), 2});
    });
    EXPECT_EQ(Divisions(), "1 C 2; 1 A 1; 2 B 2; 2 A 1");
    before.ExpectTouchedOnly(main, "ClassDivisionDetails", OfDivision("1", "2"));

    before = AllRows(main);
    Write([](auto& transaction) { ClassSectionRepository::DeleteDivision(transaction, 2, 1); });
    EXPECT_EQ(Divisions(), "1 C 2; 1 A 1; 2 B 2");
    before.ExpectTouchedOnly(main, "ClassDivisionDetails", OfDivision("2", "1"));
}

TEST_F(ClassSectionRows, ANewOrderCountsTheClassesByTheirCodesAndLeavesTheRowForNoClass)
{
    Run("INSERT INTO ClassDivisionMaster VALUES (7, 'XI', 0, 1, 1)");
    Run("UPDATE ClassDivisionMaster SET ClassOrder = 4 WHERE ClassCode = 0");
    Write([](auto& transaction) { ClassSectionRepository::OrderByCode(transaction); });
    EXPECT_EQ(Classes(), "1 IX 2 1; 2 X 2 2; 7 XI 0 3");
    EXPECT_EQ(main.Number(QStringLiteral("SELECT ClassOrder FROM ClassDivisionMaster WHERE ClassCode = 0")),
              4);
}

} // namespace
} // namespace tally::test
