#include "masters/ClassSectionSave.h"

#include "store/StoreError.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>
#include <ostream>

namespace tally::test {
namespace {

constexpr int Clerk = 9;

/// A store with a year, an exam, a subject and a student, to which a division can be tied.
class ClassSectionSaveTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Run("INSERT INTO AcademicYearSetup VALUES (1, 2023, 2024, '2023-06-01', '2024-05-31', 'Y', 'N', 1)");
        Run("INSERT INTO ExamMaster VALUES (1, 'Term', 1, 1)");
        Run("INSERT INTO SubjectMaster VALUES (1, 'English', 'Eng', 1)");
        Run("INSERT INTO StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo) VALUES (1, 1, '1')");
    }

    void Run(const char* sql) { store.Execute(QString::fromLatin1(sql)); }
    qint64 Number(const char* sql) { return store.Number(QString::fromLatin1(sql)); }

    /// Classes are given by their rows, their divisions named by default.
    void GivenClasses(const std::vector<ClassRecord>& classes)
    {
        for (const ClassRecord& record : classes) {
            store.Execute(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (?, ?, ?, ?, 1)"),
                          record.classCode, record.className, record.noOfDivisions, record.classOrder);
            for (int code = 1; code <= record.noOfDivisions; ++code)
                store.Execute(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (?, ?, ?)"),
                              record.classCode, DefaultDivisionName(code), code);
        }
        Load();
    }

    void Load()
    {
        ClassSectionRepository repository(store);
        loaded = {repository.Classes(), repository.Divisions()};
        ASSERT_TRUE(grid.Load(loaded.classes, loaded.divisions));
    }

    void Tie(const char* table, int classCode, int divisionCode)
    {
        const QString name = QString::fromLatin1(table);
        QString values =
            QStringLiteral("(StudentCode, AcademicYearCode, ClassCode, DivisionCode) VALUES (1, 1, ?, ?)");
        if (name == QLatin1String("MarkMaster"))
            values = QStringLiteral(
                "(StudentCode, AcademicYearCode, ExamCode, SubjectCode, ClassCode, DivisionCode)"
                " VALUES (1, 1, 1, 1, ?, ?)");
        else if (name == QLatin1String("RankMaster"))
            values =
                QStringLiteral("(AcademicYearCode, ExamCode, ClassCode, DivisionCode) VALUES (1, 1, ?, ?)");
        else if (name == QLatin1String("ClassSubjectTeacher"))
            values = QStringLiteral(
                "(AcademicYearCode, SubjectCode, ClassCode, DivisionCode) VALUES (1, 1, ?, ?)");
        store.Execute(QStringLiteral("INSERT INTO ") + name + QLatin1Char(' ') + values, classCode,
                      divisionCode);
    }

    void Save() { ASSERT_TRUE(SaveEditedClasses(store, grid, loaded, Clerk, told)); }

    /// "code name count order" of each class in its order.
    std::string Classes()
    {
        QString all;
        for (const ClassRecord& record : ClassSectionRepository(store).Classes())
            all += QStringLiteral("%1 %2 %3 %4; ")
                       .arg(QString::number(record.classCode), record.className,
                            QString::number(record.noOfDivisions), QString::number(record.classOrder));
        return all.trimmed().toStdString();
    }

    std::string Divisions(int classCode)
    {
        QString all;
        for (const ClassDivision& division : ClassSectionRepository(store).Divisions())
            if (division.classCode == classCode)
                all.prepend(QString::number(division.divisionCode) + division.divisionName +
                            QLatin1Char(' '));
        return all.trimmed().toStdString();
    }

    store::Connection store = DeliveredMainStore();
    ClassSections loaded;
    ClassSectionGrid grid;
    QStringList told;
};

TEST_F(ClassSectionSaveTest, TheRowThatStandsForNoClassIsNeverListedNorChanged)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 1, 2}});
    EXPECT_EQ(grid.RowCount(), 2);
    grid.DeleteRow(2);
    Save();
    store::Transaction transaction(store);
    ClassSectionRepository::OrderByCode(transaction);
    transaction.Commit();
    EXPECT_EQ(Number("SELECT count(*) FROM ClassDivisionMaster WHERE ClassCode = 0 AND ClassOrder = 0"), 1);
}

TEST_F(ClassSectionSaveTest, TheFirstClassesAreStoredWithTheirDivisionsAndTheUser)
{
    grid.StartFirstRow();
    grid.Row(1).className = QStringLiteral("XII");
    grid.Row(1).classOrder = QStringLiteral("1");
    grid.SetNoOfDivisions(1, QStringLiteral("2"));
    grid.AddRow();
    SaveNewClasses(store, grid, Clerk);
    EXPECT_EQ(Classes(), "1 XII 2 1;");
    EXPECT_EQ(Divisions(1), "1A 2B");
    EXPECT_EQ(Number("SELECT UserCode FROM ClassDivisionMaster WHERE ClassCode = 1"), Clerk);
}

TEST_F(ClassSectionSaveTest, AFirstSaveThatMeetsAnotherClientsClassesStoresNothing)
{
    grid.StartFirstRow();
    grid.AddRow();
    for (const int row : {1, 2}) {
        grid.Row(row).className = QString::number(row);
        grid.Row(row).classOrder = QString::number(row);
        grid.SetNoOfDivisions(row, QStringLiteral("1"));
    }
    Run("INSERT INTO ClassDivisionMaster VALUES (2, 'XI', 0, 1, 1)");
    EXPECT_THROW(SaveNewClasses(store, grid, Clerk), store::StoreError);
    EXPECT_EQ(Classes(), "2 XI 0 1;");
    EXPECT_EQ(store.TransactionDepth(), 0);
}

TEST_F(ClassSectionSaveTest, ChangedNamesOrdersAndCountsAreStored)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 2, 2}});
    grid.Row(1).className = QStringLiteral("12");
    grid.Row(1).classOrder = QStringLiteral("3");
    grid.SetNoOfDivisions(2, QStringLiteral("3"));
    grid.NameDivision(2, 1, QStringLiteral("Red"));
    Save();
    EXPECT_EQ(Classes(), "2 XI 3 2; 1 12 1 3;");
    EXPECT_EQ(Divisions(2), "1Red 2B 3C");
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(Number("SELECT UserCode FROM ClassDivisionMaster WHERE ClassCode = 1"), 1)
        << "an update leaves the user who created the class";
}

TEST_F(ClassSectionSaveTest, ANewClassIsStoredWithTheUser)
{
    GivenClasses({{3, "XII", 1, 1}});
    grid.AddRow();
    grid.Row(2).className = QStringLiteral("XI");
    grid.Row(2).classOrder = QStringLiteral("2");
    grid.SetNoOfDivisions(2, QStringLiteral("2"));
    Save();
    EXPECT_EQ(Classes(), "3 XII 1 1; 4 XI 2 2;");
    EXPECT_EQ(Divisions(4), "1A 2B");
    EXPECT_EQ(Number("SELECT UserCode FROM ClassDivisionMaster WHERE ClassCode = 4"), Clerk);
}

TEST_F(ClassSectionSaveTest, ARowThatHasNoNameYetIsNoClass)
{
    GivenClasses({{3, "XII", 1, 1}});
    grid.AddRow();
    Save();
    EXPECT_EQ(Classes(), "3 XII 1 1;");
}

TEST_F(ClassSectionSaveTest, ARemovedClassAndItsDivisionsGo)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 2, 2}});
    grid.DeleteRow(2);
    Save();
    EXPECT_EQ(Classes(), "1 XII 1 1;");
    EXPECT_EQ(Divisions(2), "");
}

TEST_F(ClassSectionSaveTest, TheReusedHighestCodeUpdatesTheClassThatStillExists)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 3, 2}});
    Tie("StudentClassDivision", 2, 1);
    grid.DeleteRow(2);
    grid.AddRow();
    grid.Row(2).className = QStringLiteral("New");
    grid.Row(2).classOrder = QStringLiteral("2");
    grid.SetNoOfDivisions(2, QStringLiteral("1"));
    Save();
    EXPECT_EQ(Classes(), "1 XII 1 1; 2 New 1 2;");
    EXPECT_EQ(Divisions(2), "1A");
    EXPECT_EQ(Number("SELECT UserCode FROM ClassDivisionMaster WHERE ClassCode = 2"), 1);
    EXPECT_TRUE(told.empty());
}

TEST_F(ClassSectionSaveTest, AFreeLastDivisionGoesAndAUsedOneBeforeItIsReportedAndCounted)
{
    GivenClasses({{1, "XII", 4, 1}});
    Tie("StudentClassDivision", 1, 3);
    grid.SetNoOfDivisions(1, QStringLiteral("2"));
    Save();
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0].toStdString(),
              "This Division XII - C Is Used In Other Entry Screen(s). So You Cannot Delete");
    EXPECT_EQ(Classes(), "1 XII 3 1;");
    EXPECT_EQ(Divisions(1), "1A 2B 3C");
    EXPECT_EQ(grid.Row(1).noOfDivisions.toStdString(), "3");
    EXPECT_EQ(grid.Row(1).oldNoOfDivisions, 3);
}

TEST_F(ClassSectionSaveTest, AUsedLastDivisionKeepsThoseBeforeItUnreportedWhetherUsedOrFree)
{
    GivenClasses({{1, "XII", 4, 1}});
    Tie("StudentClassDivision", 1, 4);
    Tie("MarkMaster", 1, 3);
    grid.SetNoOfDivisions(1, QStringLiteral("1"));
    Save();
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0].toStdString(),
              "This Division XII - D Is Used In Other Entry Screen(s). So You Cannot Delete");
    EXPECT_EQ(Classes(), "1 XII 4 1;");
    EXPECT_EQ(Divisions(1), "1A 2B 3C 4D");
}

TEST(ReconcileTest, ADivisionBehindOneThatIsStillOnTheScreenMayGo)
{
    const StoredClassSections stored{
        {{{1, "XII", 3, 1}}, {{1, "C", 3}, {1, "B", 2}, {1, "A", 1}}}, {{1, 3}}, {}, {}, {}};
    ClassSectionGrid grid;
    ASSERT_TRUE(grid.Load(stored.classes, {{1, "B", 2}}));
    const ClassSectionPlan plan = Reconcile(grid, stored);
    EXPECT_EQ(plan.blockedDivisions, QStringList("XII - C"));
    EXPECT_EQ(plan.deleteDivisions, (std::vector<DivisionKey>{{1, 1}}));
}

TEST(ReconcileTest, ADivisionGoesOnceAlsoWhereTwoRowsHaveItsClass)
{
    const StoredClassSections stored{
        {{{1, "XII", 3, 1}}, {{1, "C", 3}, {1, "B", 2}, {1, "A", 1}}}, {}, {}, {}, {}};
    ClassSectionGrid grid;
    ASSERT_TRUE(grid.Load({{1, "XII", 1, 1}, {1, "XI", 1, 2}}, {{1, "A", 1}}));
    EXPECT_EQ(Reconcile(grid, stored).deleteDivisions, (std::vector<DivisionKey>{{1, 3}, {1, 2}}));
}

TEST(StoredClassSectionsTest, AnyDivisionOfAClassIsOneOfItsOwn)
{
    StoredClassSections stored;
    stored.withStudents = {{1, 1}, {1, 2}};
    EXPECT_TRUE(stored.ClassDivisionUsedInStudents(1, 0));
    EXPECT_FALSE(stored.ClassDivisionUsedInStudents(2, 0)) << "behind all others";
    stored.withStudents = {{3, 0}};
    EXPECT_FALSE(stored.ClassDivisionUsedInStudents(2, 0)) << "in front of another one";
    EXPECT_TRUE(stored.ClassDivisionUsedInStudents(3, 0)) << "whatever its code";
}

TEST_F(ClassSectionSaveTest, OfTwoRowsWithOneCodeTheLaterOneIsStored)
{
    GivenClasses({{4, "XII", 1, 1}, {5, "XI", 1, 2}, {1, "X", 1, 3}});
    grid.DeleteRow(1);
    ASSERT_EQ(grid.Row(1).classCode, grid.Row(2).classCode);
    EXPECT_THROW(Save(), store::StoreError) << "the divisions of the class that moved up have none";
    EXPECT_EQ(Classes(), "1 X 1 3;");
    EXPECT_EQ(Divisions(1), "1A");
}

TEST_F(ClassSectionSaveTest, OfTwoRowsWithOneCodeTheLaterOneIsStoredAlsoWhereTheirClassHasGone)
{
    GivenClasses({{4, "XII", 1, 1}, {5, "XI", 1, 2}, {1, "X", 1, 3}});
    grid.DeleteRow(1);
    Run("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1");
    Run("DELETE FROM ClassDivisionMaster WHERE ClassCode = 1");
    EXPECT_THROW(Save(), store::StoreError);
    EXPECT_EQ(Classes(), "1 X 1 3;");
    EXPECT_EQ(Divisions(1), "1A");
}

class BlockedByTest : public ClassSectionSaveTest, public testing::WithParamInterface<const char*>
{};

TEST_P(BlockedByTest, ADivisionInUseStays)
{
    GivenClasses({{1, "XII", 2, 1}, {2, "XI", 2, 2}});
    Tie(GetParam(), 1, 2);
    grid.SetNoOfDivisions(1, QStringLiteral("1"));
    Save();
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0].toStdString(),
              "This Division XII - B Is Used In Other Entry Screen(s). So You Cannot Delete");
    EXPECT_EQ(Divisions(1), "1A 2B");
    EXPECT_EQ(Classes(), "1 XII 2 1; 2 XI 2 2;");
}

INSTANTIATE_TEST_SUITE_P(EachUse, BlockedByTest,
                         testing::Values("StudentClassDivision", "MarkMaster", "RankMaster",
                                         "ClassSubjectTeacher"));

TEST_F(ClassSectionSaveTest, AllBlockedDivisionsAreToldTogether)
{
    GivenClasses({{1, "XII", 2, 1}, {2, "XI", 3, 2}});
    Tie("MarkMaster", 1, 2);
    Tie("RankMaster", 2, 3);
    grid.SetNoOfDivisions(1, QStringLiteral("1"));
    grid.SetNoOfDivisions(2, QStringLiteral("1"));
    Save();
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0].toStdString(),
              "This Division XII - B, XI - C Is Used In Other Entry Screen(s). So You Cannot Delete");
}

TEST_F(ClassSectionSaveTest, BehindABlockedRowTheStoredCountComesBack)
{
    GivenClasses({{1, "XII", 2, 1}, {2, "XI", 2, 2}});
    Tie("MarkMaster", 1, 2);
    grid.SetNoOfDivisions(1, QStringLiteral("1"));
    grid.SetNoOfDivisions(2, QStringLiteral("4"));
    Save();
    EXPECT_EQ(Classes(), "1 XII 2 1; 2 XI 2 2;");
    EXPECT_EQ(Divisions(2), "1A 2B 3C 4D");
}

TEST_F(ClassSectionSaveTest, AClassWithStudentsStaysAndIsTold)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 2, 2}, {3, "X", 1, 3}, {4, "IX", 1, 4}});
    Tie("StudentClassDivision", 2, 2);
    store.Execute(
        QStringLiteral("INSERT INTO AcademicYearSetup VALUES (2, 2024, 2025, NULL, NULL, 'N', 'N', 1)"));
    store.Execute(QStringLiteral("INSERT INTO StudentClassDivision VALUES (1, 2, 3, 1, 'Y', 1)"));
    grid.DeleteRow(4);
    grid.DeleteRow(3);
    grid.DeleteRow(2);
    Save();
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0].toStdString(),
              "The Class XI, X Is Used In Other Entry Screen(s). So You Cannot Delete");
    EXPECT_EQ(Classes(), "1 XII 1 1; 2 XI 2 2; 3 X 1 3;");
    EXPECT_EQ(Divisions(2), "1A 2B");
}

TEST_F(ClassSectionSaveTest, AClassThatItsStudentsKeepKeepsItsNameToo)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 1, 2}});
    Tie("StudentClassDivision", 2, 1);
    grid.Row(2).className.clear();
    grid.SetNoOfDivisions(2, QStringLiteral("0"));
    ASSERT_FALSE(FindFault(grid));
    Save();
    EXPECT_EQ(Classes(), "1 XII 1 1; 2 XI 1 2;");
}

class RefusedByStoreTest : public ClassSectionSaveTest, public testing::WithParamInterface<const char*>
{};

TEST_P(RefusedByStoreTest, AClassWithOtherUsesThanStudentsFailsTheWholeSave)
{
    GivenClasses({{1, "XII", 3, 1}, {2, "XI", 1, 2}});
    Tie(GetParam(), 2, 1);
    grid.Row(1).className = QStringLiteral("12");
    grid.SetNoOfDivisions(1, QStringLiteral("1"));
    grid.DeleteRow(2);
    EXPECT_THROW(Save(), store::StoreError);
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(Classes(), "1 XII 3 1; 2 XI 1 2;");
    EXPECT_EQ(Divisions(1), "1A 2B 3C");
    EXPECT_EQ(store.TransactionDepth(), 0);
}

INSTANTIATE_TEST_SUITE_P(EachUse, RefusedByStoreTest,
                         testing::Values("MarkMaster", "RankMaster", "ClassSubjectTeacher"));

TEST_F(ClassSectionSaveTest, BlockedDivisionsAreToldBeforeBlockedClasses)
{
    GivenClasses({{1, "XII", 2, 1}, {2, "XI", 1, 2}});
    Tie("MarkMaster", 1, 2);
    Tie("StudentClassDivision", 2, 1);
    grid.SetNoOfDivisions(1, QStringLiteral("1"));
    grid.DeleteRow(2);
    Save();
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told[0].left(14).toStdString(), "This Division ");
    EXPECT_EQ(told[1].left(10).toStdString(), "The Class ");
}

TEST_F(ClassSectionSaveTest, AClassThatAnotherClientDeletedMeanwhileIsThereAgain)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 2, 2}});
    Run("DELETE FROM ClassDivisionDetails WHERE ClassCode = 2");
    Run("DELETE FROM ClassDivisionMaster WHERE ClassCode = 2");
    Save();
    EXPECT_EQ(Classes(), "1 XII 1 1; 2 XI 2 2;");
    EXPECT_EQ(Divisions(2), "1A 2B");
}

struct WorkOfOthers
{
    const char* name;
    const char* sql;
};

void PrintTo(const WorkOfOthers& work, std::ostream* out)
{
    *out << work.name;
}

class WorkOfOthersTest : public ClassSectionSaveTest, public testing::WithParamInterface<WorkOfOthers>
{};

TEST_P(WorkOfOthersTest, WhatAnotherClientAddedOrChangedMeanwhileIsNotWipedOut)
{
    GivenClasses({{1, "XII", 2, 1}, {2, "XI", 1, 2}});
    grid.Row(1).className = QStringLiteral("12");
    Run(GetParam().sql);
    const std::string classes = Classes();
    const std::string divisions = Divisions(1) + Divisions(2);
    EXPECT_FALSE(SaveEditedClasses(store, grid, loaded, Clerk, told));
    EXPECT_EQ(Classes(), classes);
    EXPECT_EQ(Divisions(1) + Divisions(2), divisions);
    EXPECT_EQ(told, QStringList());
    EXPECT_EQ(store.TransactionDepth(), 0);
    Load();
    Save();
    EXPECT_EQ(Classes(), classes) << "what is on the screen anew may be saved";
}

INSTANTIATE_TEST_SUITE_P(
    Each, WorkOfOthersTest,
    testing::Values(
        WorkOfOthers{"AClass", "INSERT INTO ClassDivisionMaster VALUES (8, 'VIII', 1, 5, 1)"},
        WorkOfOthers{"ADivision", "INSERT INTO ClassDivisionDetails VALUES (2, 'B', 2)"},
        WorkOfOthers{"AClassName", "UPDATE ClassDivisionMaster SET ClassName = '11' WHERE ClassCode = 2"},
        WorkOfOthers{"TheNumberOfDivisions",
                     "UPDATE ClassDivisionMaster SET NoOfDivisions = 4 WHERE ClassCode = 2"},
        WorkOfOthers{"AnOrder", "UPDATE ClassDivisionMaster SET ClassOrder = 7 WHERE ClassCode = 2"},
        WorkOfOthers{"ADivisionName", "UPDATE ClassDivisionDetails SET DivisionName = 'Red'"
                                      " WHERE ClassCode = 2"}),
    [](const auto& work) { return std::string(work.param.name); });

TEST_F(ClassSectionSaveTest, WhenTheSecondTransactionFailsTheFirstOneStays)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 1, 2}});
    // The class that moves up takes the code 1, and its divisions keep a class that the save deletes.
    grid.DeleteRow(1);
    EXPECT_THROW(Save(), store::StoreError);
    EXPECT_EQ(Classes(), "1 XI 1 2;");
    EXPECT_EQ(store.TransactionDepth(), 0);
    EXPECT_EQ(told, QStringList());
    EXPECT_FALSE(HoldsWorkOfOthers(ClassSectionRepository(store).Read(), loaded))
        << "what this client stored itself does not refuse its next try";
}

TEST_F(ClassSectionSaveTest, TheSecondTransactionStoresTheDivisionsThatAKeptClassLacks)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 1, 2}});
    Tie("StudentClassDivision", 2, 1);
    grid.SetNoOfDivisions(2, QStringLiteral("2"));
    grid.DeleteRow(1);
    Save();
    EXPECT_EQ(Divisions(2), "1A 2B");
}

TEST_F(ClassSectionSaveTest, TheSecondTransactionStoresNoDivisionWithoutAName)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 1, 2}});
    Tie("StudentClassDivision", 2, 1);
    grid.SetNoOfDivisions(2, QStringLiteral("2"));
    grid.NameDivision(2, 2, QStringLiteral(" "));
    grid.DeleteRow(1);
    Save();
    EXPECT_EQ(Divisions(2), "1A");
}

TEST_F(ClassSectionSaveTest, WhatWasKeptIsToldAlsoWhenTheSecondTransactionFails)
{
    GivenClasses({{1, "XII", 1, 1}, {2, "XI", 1, 2}, {3, "X", 2, 3}});
    Tie("MarkMaster", 3, 2);
    grid.SetNoOfDivisions(3, QStringLiteral("1"));
    grid.DeleteRow(1);
    EXPECT_THROW(Save(), store::StoreError);
    EXPECT_EQ(told, QStringList(QStringLiteral(
                        "This Division X - B Is Used In Other Entry Screen(s). So You Cannot Delete")));
}

TEST_F(ClassSectionSaveTest, OrderingByCodeNumbersTheClassesInTheOrderOfTheirCreation)
{
    GivenClasses({{4, "XII", 1, 3}, {7, "XI", 1, 1}, {9, "X", 1, 3}});
    store::Transaction transaction(store);
    ClassSectionRepository::OrderByCode(transaction);
    transaction.Commit();
    EXPECT_EQ(Classes(), "4 XII 1 1; 7 XI 1 2; 9 X 1 3;");
}

TEST_F(ClassSectionSaveTest, NamesOutsideAsciiAndWithQuotesAreStoredAsTheyAre)
{
    GivenClasses({{1, "XII", 1, 1}});
    grid.Row(1).className = QStringLiteral("दसवी");
    grid.NameDivision(1, 1, QStringLiteral("É'ß"));
    Save();
    const auto classes = ClassSectionRepository(store).Classes();
    EXPECT_EQ(classes.at(0).className, QStringLiteral("दसवी"));
    EXPECT_EQ(ClassSectionRepository(store).Divisions().at(0).divisionName, QStringLiteral("É'ß"));
}

TEST_F(ClassSectionSaveTest, ASaveThatChangesNothingCostsTheSameForTwoAndForNinetyEightClasses)
{
    GivenClasses({{1, "1", 2, 1}, {2, "2", 2, 2}});
    auto before = store.StatementsRun();
    Save();
    const auto small = store.StatementsRun() - before;
    std::vector<ClassRecord> more;
    for (int code = 3; code <= 98; ++code)
        more.push_back({code, QString::number(code), 4, code});
    GivenClasses(more);
    before = store.StatementsRun();
    Save();
    EXPECT_EQ(store.StatementsRun() - before, small);
    EXPECT_LE(small, 12U);
}

TEST_F(ClassSectionSaveTest, AChangedClassCostsOneStatementForItselfAndOneForEachDivisionChanged)
{
    GivenClasses({{1, "1", 5, 1}, {2, "2", 2, 2}});
    auto before = store.StatementsRun();
    Save();
    const auto idle = store.StatementsRun() - before;
    grid.Row(1).className = QStringLiteral("XII");
    grid.NameDivision(1, 3, QStringLiteral("Red"));
    before = store.StatementsRun();
    Save();
    EXPECT_EQ(store.StatementsRun() - before, idle + 2);
}

} // namespace
} // namespace tally::test
