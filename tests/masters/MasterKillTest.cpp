#include "masters/ClassSectionSave.h"
#include "masters/SchoolRepository.h"
#include "masters/SimpleMasterRepository.h"
#include "masters/TeacherRepository.h"
#include "support/KilledSchool.h"

namespace tally::test {
namespace {

/// A school with the states Kerala (code 1) and Goa (2), the teacher Asha (1) and the class X.
class MasterKill : public KilledSchool
{
protected:
    void SetUp() override
    {
        Lay(5, [](store::Transaction& transaction) {
            transaction.Execute(
                QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1)"));
            transaction.Execute(QStringLiteral("INSERT INTO SalutationMaster VALUES (1, 'Mrs', 1)"));
            TeacherRepository::Insert(transaction, 1, Named("Asha"), 1);
        });
    }

    static Teacher Named(const char* name)
    {
        Teacher teacher;
        teacher.salutationCode = 1;
        teacher.name = QString::fromLatin1(name);
        teacher.shortName = teacher.name.left(3);
        teacher.address1 = QString(100, QLatin1Char('x'));
        return teacher;
    }

    static SimpleMasterRepository States(store::Transaction& transaction)
    {
        const SimpleMasterDefinition& states = SimpleMasterDefinitions().front();
        EXPECT_STREQ(states.table, "StateMaster");
        return {transaction.On(), states};
    }

    static Reading StoredStates() { return RowsOf("SELECT StateCode, StateName FROM StateMaster"); }
    static Reading StoredTeachers() { return RowsOf("SELECT TeacherCode, TeacherName FROM TeacherMaster"); }
    static Reading StoredClasses()
    {
        return RowsOf("SELECT a.ClassCode, a.ClassName, a.ClassOrder, b.DivisionCode, b.DivisionName "
                      "FROM ClassDivisionMaster a LEFT JOIN ClassDivisionDetails b "
                      "ON b.ClassCode = a.ClassCode ORDER BY a.ClassCode, b.DivisionCode");
    }
};

TEST_F(MasterKill, ANewRowKilledAtAnyFileOperationIsThereOrNot)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            States(transaction).Insert(transaction, {0, 0, {QStringLiteral("Punjab")}, {}}, 1);
        },
        StoredStates());
}

TEST_F(MasterKill, AChangedRowKilledAtAnyFileOperationIsTheOldOneOrTheNewOne)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            States(transaction).Update(transaction, {2, 0, {QStringLiteral("Punjab")}, {}}, 1);
        },
        StoredStates());
}

TEST_F(MasterKill, ADeletedRowKilledAtAnyFileOperationIsThereOrGone)
{
    ExpectWhole([](store::Transaction& transaction) { States(transaction).Delete(transaction, 2); },
                StoredStates());
}

TEST_F(MasterKill, ANewTeacherKilledAtAnyFileOperationIsThereOrNot)
{
    ExpectWhole(
        [](store::Transaction& transaction) { TeacherRepository::Insert(transaction, 2, Named("Binu"), 1); },
        StoredTeachers());
}

TEST_F(MasterKill, AChangedTeacherKilledAtAnyFileOperationIsTheOldOneOrTheNewOne)
{
    ExpectWhole(
        [](store::Transaction& transaction) { TeacherRepository::Update(transaction, 1, Named("Cara"), 1); },
        StoredTeachers());
}

TEST_F(MasterKill, ADeletedTeacherKilledAtAnyFileOperationIsThereOrGone)
{
    ExpectWhole([](store::Transaction& transaction) { TeacherRepository::Delete(transaction, 1); },
                StoredTeachers());
}

TEST_F(MasterKill, EditedClassesKilledAtAnyFileOperationAreTheOldOnesOrTheNewOnesWhole)
{
    const Work renameOneAndAddOne = [](store::Connection& main) {
        ClassSectionRepository repository(main);
        ClassSectionGrid grid;
        ClassSections loaded{repository.Classes(), repository.Divisions()};
        ASSERT_TRUE(grid.Load(loaded.classes, loaded.divisions));
        grid.Row(1).className = QStringLiteral("XII");
        grid.AddRow();
        grid.Row(2).className = QStringLiteral("XI");
        grid.SetNoOfDivisions(2, QStringLiteral("99"));
        grid.Row(2).classOrder = QStringLiteral("10");
        QStringList kept;
        ASSERT_TRUE(SaveEditedClasses(main, grid, loaded, 1, kept));
    };
    ExpectWhole(renameOneAndAddOne, StoredClasses());
}

TEST_F(MasterKill, AChangedSchoolKilledAtAnyFileOperationHasItsNameAndItsMonthsOrNeither)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            SchoolRepository repository(transaction.On());
            School school;
            school.name = QStringLiteral("Hill School");
            school.startMonth = QStringLiteral("JUN");
            repository.Replace(transaction, school, 1);
            repository.GenerateMonthCode(transaction, 6);
        },
        RowsOf(
            "SELECT MonthSlNo, MonthCode FROM MonthMaster UNION ALL SELECT SchoolName, 0 FROM SchoolMaster"));
}

class FirstClassesKill : public MasterKill
{
protected:
    void SetUp() override
    {
        LayFile([](store::Transaction& transaction) {
            store::CreateMainTables(transaction);
            store::InsertDeliveredMainRows(transaction);
        });
    }
};

TEST_F(FirstClassesKill, KilledAtAnyFileOperationAreAllThereOrNone)
{
    const Work enterTwo = [](store::Connection& main) {
        ClassSectionGrid grid;
        grid.StartFirstRow();
        grid.Row(1).className = QStringLiteral("XII");
        grid.SetNoOfDivisions(1, QStringLiteral("99"));
        grid.Row(1).classOrder = QStringLiteral("1");
        grid.AddRow();
        grid.Row(2).className = QStringLiteral("XI");
        grid.SetNoOfDivisions(2, QStringLiteral("99"));
        grid.Row(2).classOrder = QStringLiteral("2");
        SaveNewClasses(main, grid, 1);
    };
    ExpectWhole(enterTwo, StoredClasses());
}

} // namespace
} // namespace tally::test
