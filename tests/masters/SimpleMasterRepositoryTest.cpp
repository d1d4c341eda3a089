#include "masters/SimpleMasterRepository.h"

#include "core/SessionContext.h"
#include "store/StoreError.h"
#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <stdexcept>

namespace tally::test {
namespace {

/// The rows of one simple master, and what its statements make of them. A row is its columns with a stroke
/// between.
struct Rows
{
    const char* formName;
    const char* table;
    const char* key;
    const char* given; ///< VALUES of the rows, none of which stands in the order of its list
    const char* all;   ///< the grid without a search
    const char* search;
    const char* found; ///< the grid with it
    SimpleMasterEntry changed;
    const char* row;   ///< that row in the table afterwards
    const char* added; ///< the row that the same entry makes when it is new
};

SimpleMasterEntry Entry(int code, const QStringList& values, int parentCode = 0, const char* held = "")
{
    return {code, parentCode, values, QString::fromLatin1(held)};
}

QString Text(const char* text)
{
    return QString::fromLatin1(text);
}

std::ostream& operator<<(std::ostream& out, const Rows& rows)
{
    return out << rows.formName;
}

// clang-format off
const std::vector<Rows> AllMasters{
    {"frmMasStateMaster", "StateMaster", "StateCode",
     "(1, 'Kerala', 1), (2, 'Goa', 1), (3, 'Punjab', 1)",
     "Goa|2; Kerala|1; Punjab|3", "ER", "Kerala|1",
     Entry(2, {QStringLiteral("Sikkim")}), "2|Sikkim|9", "4|Sikkim|9"},
    {"frmMasCityMaster", "CityMaster", "CityCode",
     "(1, 1, 'Kochi', 1), (2, 2, 'Panaji', 1), (3, 1, 'Aluva', 1), (4, 2, 'Margao', 1)",
     "Goa|Margao|4|2; Goa|Panaji|2|2; Kerala|Aluva|3|1; Kerala|Kochi|1|1", "o", "Goa|Margao|4|2; Kerala|Kochi|1|1",
     Entry(2, {QStringLiteral("Thrissur")}, 1), "2|1|Thrissur|9", "5|1|Thrissur|9"},
    {"frmMasBloodGroupMaster", "BloodGroupMaster", "BloodGroupCode",
     "(1, 'O+', 1), (2, 'B-', 1), (3, 'AB+', 1)",
     "3|AB+; 2|B-; 1|O+", "b", "3|AB+; 2|B-",
     Entry(2, {QStringLiteral("O-")}), "2|O-|9", "4|O-|9"},
    {"frmSalutationMaster", "SalutationMaster", "SalutationCode",
     "(1, 'Sri', 1), (2, 'Ms.', 1), (3, 'Mr.', 1)",
     "Mr.|3; Ms.|2; Sri|1", "m", "Mr.|3; Ms.|2",
     Entry(2, {QStringLiteral("Dr.")}), "2|Dr.|1", "4|Dr.|9"},
    {"frmexamnamemaster", "ExamMaster", "ExamCode",
     "(1, 'Annual', 30, 1), (2, 'Model', 20, 1), (3, 'Half Year', 10, 1)",
     "Half Year|10|3; Model|20|2; Annual|30|1", "AL", "Half Year|10|3; Annual|30|1",
     Entry(2, {QStringLiteral("Weekly"), QStringLiteral("40")}), "2|Weekly|40|1", "4|Weekly|40|9"},
    {"frmSubjectMaster", "SubjectMaster", "SubjectCode",
     "(1, 'Physics', 'Phy', 1), (2, 'English', 'Eng', 1), (3, 'Art', 'Drw', 1)",
     "Art|Drw|3; English|Eng|2; Physics|Phy|1", "S", "English|Eng|2; Physics|Phy|1",
     Entry(2, {QStringLiteral("Malayalam"), QStringLiteral("Mal")}), "2|Malayalam|Mal|1", "4|Malayalam|Mal|9"},
    {"frmUtilUserMaster", "UserMaster", "UserCode",
     "(1, 'Office', 1), (2, 'Clerk', 1), (3, 'Head', 1)",
     "Office|1; Clerk|2; Head|3", "L", "Clerk|2",
     Entry(2, {QStringLiteral("Teacher")}), "2|Teacher|1", "4|Teacher|9"},
};
// clang-format on

class SimpleMasterRows : public testing::TestWithParam<Rows>
{
protected:
    ~SimpleMasterRows() override { Session() = SessionContext(); }

    void SetUp() override
    {
        for (const SimpleMasterDefinition& candidate : SimpleMasterDefinitions())
            if (Text(candidate.formName) == Text(GetParam().formName))
                definition = &candidate;
        ASSERT_NE(definition, nullptr);
        if (definition->parent)
            main.Execute(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1)"));
        main.Execute(
            QStringLiteral("INSERT INTO %1 VALUES %2").arg(Text(GetParam().table), Text(GetParam().given)));
    }

    SimpleMasterRepository Master() { return {main, *definition}; }

    std::string Grid(const char* search, int parentCode = 0)
    {
        QStringList lines;
        for (const QStringList& row : Master().Rows(Text(search), parentCode).rows)
            lines.append(row.join(QLatin1Char('|')));
        return lines.join(QLatin1String("; ")).toStdString();
    }

    /// The row with this code, as the table holds it; empty where there is none.
    std::string Stored(int code)
    {
        auto row = main.Query(
            QStringLiteral("SELECT * FROM %1 WHERE %2 = ?").arg(Text(GetParam().table), Text(GetParam().key)),
            code);
        QStringList values;
        if (row.Next())
            for (int column = 0; column < row.ColumnCount(); ++column)
                values.append(row.Text(column));
        return values.join(QLatin1Char('|')).toStdString();
    }

    template <typename Work>
    void Write(Work work)
    {
        store::Transaction transaction(main);
        work(transaction);
        transaction.Commit();
    }

    /// The next code of a table is looked up in the session's database.
    static store::Connection& SessionStore()
    {
        Session() = SessionContext();
        Session().gcnnMain = std::make_unique<store::Connection>(DeliveredMainStore());
        return *Session().gcnnMain;
    }

    store::Connection& main = SessionStore();
    const SimpleMasterDefinition* definition = nullptr;
};

TEST_P(SimpleMasterRows, TheGridHoldsTheNamesThatWereSearchedForInTheirOrder)
{
    EXPECT_EQ(Grid(""), GetParam().all);
    EXPECT_EQ(Grid(GetParam().search), GetParam().found);
    EXPECT_EQ(Grid("zz"), "");
}

TEST_P(SimpleMasterRows, AChangeTouchesItsOwnRowAndAllOfIt)
{
    const AllRows before(main);
    Write([&](auto& transaction) { Master().Update(transaction, GetParam().changed, 9); });
    EXPECT_EQ(Stored(2), GetParam().row);
    before.ExpectTouchedOnly(main, GetParam().table, {{Text(GetParam().key), QStringLiteral("2")}});
}

TEST_P(SimpleMasterRows, ANewRowGetsTheNextCodeAndItsUser)
{
    Write([&](auto& transaction) { Master().Insert(transaction, GetParam().changed, 9); });
    const QString added = Text(GetParam().added);
    EXPECT_EQ(Stored(added.section(QLatin1Char('|'), 0, 0).toInt()), GetParam().added);
}

TEST_P(SimpleMasterRows, ADeleteTakesItsOwnRow)
{
    const AllRows before(main);
    Write([&](auto& transaction) { Master().Delete(transaction, 2); });
    EXPECT_EQ(Stored(2), "");
    before.ExpectTouchedOnly(main, GetParam().table, {{Text(GetParam().key), QStringLiteral("2")}});
}

INSTANTIATE_TEST_SUITE_P(All, SimpleMasterRows, testing::ValuesIn(AllMasters),
                         [](const auto& rows) { return rows.param.formName; });

class SimpleMasterDuplicates : public testing::Test
{
protected:
    void Run(const char* sql) { main.Execute(Text(sql)); }

    /// Which test finds another row that has what the entry holds; -1 when none does.
    int Found(const char* formName, const SimpleMasterEntry& entry)
    {
        for (const SimpleMasterDefinition& definition : SimpleMasterDefinitions()) {
            if (Text(definition.formName) == Text(formName)) {
                const DuplicateTest* test = SimpleMasterRepository(main, definition).Duplicate(entry);
                return test ? static_cast<int>(test->field) : -1;
            }
        }
        return -2;
    }

    /// A name in small letters is another row's already, is the own one, and is nobody's.
    void ExpectByNameAndCode(const char* formName, int code, const QString& name, int parentCode = 0)
    {
        EXPECT_EQ(Found(formName, Entry(0, {name}, parentCode)), 0) << formName;
        EXPECT_EQ(Found(formName, Entry(code + 1, {name}, parentCode)), 0) << formName;
        EXPECT_EQ(Found(formName, Entry(code, {name}, parentCode)), -1) << formName;
        EXPECT_EQ(Found(formName, Entry(0, {QStringLiteral("new")}, parentCode)), -1) << formName;
    }

    store::Connection main = DeliveredMainStore();
};

TEST_F(SimpleMasterDuplicates, AnotherRowHasTheNameWhateverItsCapitals)
{
    Run("INSERT INTO StateMaster VALUES (1, ' Kerala ', 1), (2, 'Goa', 1)");
    Run("INSERT INTO BloodGroupMaster VALUES (1, 'AB+', 1)");
    Run("INSERT INTO UserMaster VALUES (1, 'Clerk', 1)");
    ExpectByNameAndCode("frmMasStateMaster", 1, QStringLiteral("kerala"));
    ExpectByNameAndCode("frmMasBloodGroupMaster", 1, QStringLiteral("ab+"));
    ExpectByNameAndCode("frmUtilUserMaster", 1, QStringLiteral("clerk"));
}

TEST_F(SimpleMasterDuplicates, ACityIsTheSameInItsOwnStateOnly)
{
    Run("INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1)");
    Run("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1)");
    ExpectByNameAndCode("frmMasCityMaster", 1, QStringLiteral("kochi"), 1);
    EXPECT_EQ(Found("frmMasCityMaster", Entry(0, {QStringLiteral("Kochi")}, 2)), -1);
}

TEST_F(SimpleMasterDuplicates, ASalutationIsAskedForBesideTheNameThatItHad)
{
    const auto found = [this](const char* name, const char* held) {
        return Found("frmSalutationMaster", Entry(2, {Text(name)}, 0, held));
    };
    Run("INSERT INTO SalutationMaster VALUES (1, 'Mr.', 1)");
    EXPECT_EQ(found("mr.", ""), 0);
    EXPECT_EQ(found("mr.", "Mr."), -1);
    EXPECT_EQ(found("mr.", "MR."), 0) << "the name that it had is known by its capitals too";
    EXPECT_EQ(found("Dr.", "Ms."), -1);
}

TEST_F(SimpleMasterDuplicates, AnExamHasANameAndAnOrderOfItsOwn)
{
    const auto found = [this](int code, const char* name, const char* order) {
        return Found("frmexamnamemaster", Entry(code, {Text(name), Text(order)}));
    };
    Run("INSERT INTO ExamMaster VALUES (1, 'Annual', 30, 1)");
    EXPECT_EQ(found(0, "annual", "40"), 0);
    EXPECT_EQ(found(0, "Model", "30"), 1);
    EXPECT_EQ(found(0, "Model", "40"), -1);
    EXPECT_EQ(found(1, "Annual", "30"), -1);
}

TEST_F(SimpleMasterDuplicates, ASubjectHasANameAndAShortNameOfItsOwn)
{
    const auto found = [this](int code, const char* name, const char* shortName) {
        return Found("frmSubjectMaster", Entry(code, {Text(name), Text(shortName)}));
    };
    Run("INSERT INTO SubjectMaster VALUES (1, 'Physics', 'Phy', 1)");
    EXPECT_EQ(found(0, "physics", "Ph"), 0);
    EXPECT_EQ(found(0, "Physical Training", "PHY"), 0);
    EXPECT_EQ(found(0, "Phy", "Ph"), -1) << "only like is compared with like";
    EXPECT_EQ(found(1, "Physics", "Phy"), -1);
}

class CitiesOfStates : public testing::Test
{
protected:
    CitiesOfStates()
    {
        main.Execute(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1)"));
        main.Execute(QStringLiteral("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1), (2, 2, 'Panaji', 1), "
                                    "(3, 1, 'Aluva', 1), (4, 0, 'Nowhere', 1)"));
    }

    static const SimpleMasterDefinition& Definition()
    {
        for (const SimpleMasterDefinition& definition : SimpleMasterDefinitions())
            if (definition.parent)
                return definition;
        throw std::runtime_error("no master has a parent");
    }

    store::Connection main = DeliveredMainStore();
    SimpleMasterRepository cities{main, Definition()};
};

TEST_F(CitiesOfStates, TheStatesStandByNameBehindABlank)
{
    EXPECT_EQ(
        cities.Parents(),
        (CodedTexts{{0, QStringLiteral(" ")}, {2, QStringLiteral("Goa")}, {1, QStringLiteral("Kerala")}}));
}

TEST_F(CitiesOfStates, TheGridIsOfTheStateChosenOrOfAll)
{
    const auto names = [this](int stateCode) {
        QStringList found;
        for (const QStringList& row : cities.Rows({}, stateCode).rows)
            found.append(row.at(1));
        return found.join(QLatin1Char(' ')).toStdString();
    };
    EXPECT_EQ(names(1), "Aluva Kochi");
    EXPECT_EQ(names(2), "Panaji");
    EXPECT_EQ(names(0), "Nowhere Panaji Aluva Kochi");
}

TEST_F(CitiesOfStates, AChangeOfARowThatHasGoneIsToldAndTouchesNothing)
{
    const AllRows before(main);
    store::Transaction transaction(main);
    EXPECT_THROW(cities.Update(transaction, Entry(8, {QStringLiteral("Kollam")}, 1), 9), store::StoreError);
    before.ExpectTouchedOnly(main, "CityMaster", {{QStringLiteral("CityCode"), QStringLiteral("8")}});
}

} // namespace
} // namespace tally::test
