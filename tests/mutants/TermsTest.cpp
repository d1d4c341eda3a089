#include "mutants/Terms.h"

#include <QMap>

#include <gtest/gtest.h>

namespace tally::mutants {
namespace {

/// The changes that can be made, in order.
std::string Changes(const char* sql)
{
    QStringList changes;
    for (const Mutant& mutant : MutantsOf(QString::fromLatin1(sql)))
        changes.append(mutant.change);
    return changes.join(QLatin1String("; ")).toStdString();
}

/// The statement with this change.
std::string With(const char* change, const char* sql)
{
    for (const Mutant& mutant : MutantsOf(QString::fromLatin1(sql)))
        if (mutant.change == QLatin1String(change))
            return mutant.sql.toStdString();
    return "no such change";
}

TEST(TermsTest, AConditionGoesAsAWholeAndByEachOperand)
{
    const char* const sql = "SELECT a FROM t WHERE a = 1 AND b > 2 ORDER BY a";
    EXPECT_EQ(Changes(sql),
              "without WHERE a = 1 AND b > 2; without a = 1; without b > 2; without ORDER BY a; "
              "ORDER BY a turned");
    EXPECT_EQ(With("without WHERE a = 1 AND b > 2", sql), "SELECT a FROM t WHERE 1 ORDER BY a");
    EXPECT_EQ(With("without b > 2", sql), "SELECT a FROM t WHERE a = 1 AND 1 ORDER BY a");
}

TEST(TermsTest, AConditionOfOneTermGoesOnce)
{
    EXPECT_EQ(Changes("DELETE FROM t WHERE a = 1"), "without WHERE a = 1");
}

TEST(TermsTest, TheOperandOfAnOrIsTakenNeverToHold)
{
    const char* const sql = "SELECT a FROM t WHERE a = 1 OR b = 2 AND c = 3";
    EXPECT_EQ(Changes(sql), "without WHERE a = 1 OR b = 2 AND c = 3; without a = 1; without b = 2 AND c = 3; "
                            "without b = 2; without c = 3");
    EXPECT_EQ(With("without a = 1", sql), "SELECT a FROM t WHERE NOT 1 OR b = 2 AND c = 3");
    EXPECT_EQ(With("without c = 3", sql), "SELECT a FROM t WHERE a = 1 OR b = 2 AND 1");
}

TEST(TermsTest, BracketsAreLookedInto)
{
    const char* const sql = "SELECT a FROM t WHERE NOT (a = 1 OR (b = 2)) AND c = 3";
    EXPECT_EQ(Changes(sql), "without WHERE NOT (a = 1 OR (b = 2)) AND c = 3; without NOT (a = 1 OR (b = 2)); "
                            "without a = 1; without (b = 2); without c = 3");
    EXPECT_EQ(With("without (b = 2)", sql), "SELECT a FROM t WHERE NOT (a = 1 OR NOT 1) AND c = 3");
}

TEST(TermsTest, EachValueKeepsItsPlaceWhateverGoes)
{
    const char* const sql = "SELECT a FROM t WHERE a = ? AND b = ? AND c = ?";
    EXPECT_EQ(With("without a = ?", sql), "SELECT a FROM t WHERE (?1 IS ?1) AND b = ?2 AND c = ?3");
    EXPECT_EQ(With("without c = ?", sql), "SELECT a FROM t WHERE a = ?1 AND b = ?2 AND (?3 IS ?3)");
    EXPECT_EQ(With("without WHERE a = ? AND b = ? AND c = ?", sql),
              "SELECT a FROM t WHERE (?1 IS ?1 AND ?2 IS ?2 AND ?3 IS ?3)");
    EXPECT_EQ(With("without a = :Name", "SELECT a FROM t WHERE a = :Name OR b = ?"),
              "SELECT a FROM t WHERE NOT (:Name IS :Name) OR b = ?2");
    EXPECT_EQ(With("without a = ?", "SELECT a FROM t WHERE a = ?3 AND b = ?"),
              "SELECT a FROM t WHERE (?3 IS ?3) AND b = ?4");
}

TEST(TermsTest, TheAndOfABetweenIsNoOperator)
{
    const char* const sql = "SELECT a FROM t WHERE a BETWEEN ? AND ? AND b = 1";
    EXPECT_EQ(Changes(sql),
              "without WHERE a BETWEEN ? AND ? AND b = 1; without a BETWEEN ? AND ?; without the "
              "lower bound of a BETWEEN ? AND ?; without the upper bound of a BETWEEN ? AND ?; "
              "without b = 1");
    EXPECT_EQ(With("without the lower bound of a BETWEEN ? AND ?", sql),
              "SELECT a FROM t WHERE (a <= ?2 AND (?1 IS ?1)) AND b = 1");
    EXPECT_EQ(With("without the upper bound of a BETWEEN ? AND ?", sql),
              "SELECT a FROM t WHERE (a >= ?1 AND (?2 IS ?2)) AND b = 1");
}

TEST(TermsTest, AndAndOrWithinTextsNamesRemarksAndCasesAreNoOperators)
{
    EXPECT_EQ(
        Changes("SELECT a FROM t WHERE a = 'x AND ''y'' OR z' -- AND\n OR \"b AND c\" = [d OR e] /* OR */"),
        "without WHERE a = 'x AND ''y'' OR z' -- AND OR \"b AND c\" = [d OR e]; without a = 'x AND ''y'' "
        "OR z'; without \"b AND c\" = [d OR e]");
    EXPECT_EQ(Changes("SELECT a FROM t WHERE CASE WHEN a = 1 AND b = 2 THEN 1 ELSE 0 END = 1"),
              "without WHERE CASE WHEN a = 1 AND b = 2 THEN 1 ELSE 0 END = 1");
}

TEST(TermsTest, EachAssignmentLeavesItsColumnAsItWas)
{
    const char* const sql = "UPDATE t SET a = ?, b = upper(?, 1) WHERE c = ?";
    EXPECT_EQ(Changes(sql), "without SET a = ?; without SET b = upper(?, 1); without WHERE c = ?");
    EXPECT_EQ(With("without SET b = upper(?, 1)", sql),
              "UPDATE t SET a = ?1, b = CASE WHEN (?2 IS ?2) THEN b END WHERE c = ?3");
    EXPECT_EQ(With("without SET a = 'A'", "UPDATE t SET a = 'A'"), "UPDATE t SET a = CASE WHEN 1 THEN a END");
}

TEST(TermsTest, TheConditionsOfJoinsAreLookedInto)
{
    EXPECT_EQ(
        Changes("SELECT a FROM t INNER JOIN s ON t.a = s.a AND t.b = s.b LEFT JOIN r ON r.a = s.a, q "
                "WHERE c = 1"),
        "without ON t.a = s.a AND t.b = s.b; without t.a = s.a; without t.b = s.b; without ON r.a = s.a; "
        "without WHERE c = 1");
}

TEST(TermsTest, AnItemOfAnOrderGoesOrIsTurned)
{
    const char* const sql = "SELECT a FROM t ORDER BY a, ifnull(b, 0) DESC, c ASC LIMIT 1";
    EXPECT_EQ(With("without ORDER BY a", sql), "SELECT a FROM t ORDER BY  ifnull(b, 0) DESC, c ASC LIMIT 1");
    EXPECT_EQ(With("without ORDER BY c ASC", sql), "SELECT a FROM t ORDER BY a, ifnull(b, 0) DESC LIMIT 1");
    EXPECT_EQ(With("ORDER BY a turned", sql),
              "SELECT a FROM t ORDER BY a DESC, ifnull(b, 0) DESC, c ASC LIMIT 1");
    EXPECT_EQ(With("ORDER BY ifnull(b, 0) DESC turned", sql),
              "SELECT a FROM t ORDER BY a, ifnull(b, 0) ASC, c ASC LIMIT 1");
    EXPECT_EQ(With("ORDER BY c ASC turned", sql),
              "SELECT a FROM t ORDER BY a, ifnull(b, 0) DESC, c DESC LIMIT 1");
}

TEST(TermsTest, AGroupGoesByEachItem)
{
    const char* const sql = "SELECT a, count(*) FROM t GROUP BY a, b HAVING count(*) > 1";
    EXPECT_EQ(Changes(sql), "without GROUP BY a; without GROUP BY b; without HAVING count(*) > 1");
    EXPECT_EQ(With("without GROUP BY b", sql), "SELECT a, count(*) FROM t GROUP BY a HAVING count(*) > 1");
    EXPECT_EQ(With("without GROUP BY a", "SELECT a FROM t GROUP BY a ORDER BY a"),
              "SELECT a FROM t  ORDER BY a");
}

TEST(TermsTest, SubSelectsAreLookedIntoWhereverTheyStand)
{
    EXPECT_EQ(
        Changes("SELECT (SELECT x FROM s WHERE p = 1) FROM t WHERE a IN (SELECT a FROM r WHERE q = 1 AND "
                "EXISTS (SELECT 1 FROM o WHERE o.a = r.a))"),
        "without WHERE p = 1; without WHERE a IN (SELECT a FROM r WHERE q = 1 AND EXISTS (SELECT 1 FROM o "
        "WHERE o.a = r.a)); without WHERE q = 1 AND EXISTS (SELECT 1 FROM o WHERE o.a = r.a); without q = "
        "1; without EXISTS (SELECT 1 FROM o WHERE o.a = r.a); without WHERE o.a = r.a");
    EXPECT_EQ(
        Changes("UPDATE t SET a = (SELECT count(*) FROM s WHERE b = 1) WHERE c = 1"),
        "without SET a = (SELECT count(*) FROM s WHERE b = 1); without WHERE b = 1; without WHERE c = 1");
}

TEST(TermsTest, EachSideOfAUnionHasItsOwnCondition)
{
    EXPECT_EQ(Changes("SELECT a FROM t WHERE a > 0 UNION SELECT b FROM s WHERE a > 0 ORDER BY 1"),
              "without WHERE a > 0; without WHERE a > 0 (2); without ORDER BY 1; ORDER BY 1 turned");
}

TEST(TermsTest, DistinctAndCollationsGo)
{
    EXPECT_EQ(With("without DISTINCT", "SELECT DISTINCT a FROM t"), "SELECT  a FROM t");
    EXPECT_EQ(With("without COLLATE BINARY", "SELECT a FROM t WHERE (a = ? COLLATE BINARY)"),
              "SELECT a FROM t WHERE (a = ?1 )");
}

TEST(TermsTest, StatementsWithoutTermsHaveNoMutants)
{
    EXPECT_EQ(Changes("INSERT INTO t (a, b) VALUES (?, ?)"), "");
    EXPECT_EQ(Changes("CREATE INDEX i ON t (a)"), "");
    EXPECT_EQ(Changes("CREATE TABLE t (a CHECK (a IN (SELECT 1)))"), "");
    EXPECT_EQ(Changes("PRAGMA foreign_keys = ON"), "");
    EXPECT_EQ(Changes(""), "");
}

TEST(TermsTest, AStatementIsTheSameForAnyNumberOfCodes)
{
    const QString one = QStringLiteral("SELECT a FROM t WHERE b = ?1 AND c IN (?)");
    const QString many = QStringLiteral("SELECT a FROM t\n  WHERE b = ? AND c IN (?,?,?)");
    const QString none = QStringLiteral("SELECT a FROM t WHERE b = ? AND c IN (Null)");
    EXPECT_EQ(ShapeOf(one).toStdString(), "SELECT a FROM t WHERE b = ? AND c IN (?, ...)");
    EXPECT_EQ(ShapeOf(many), ShapeOf(one));
    EXPECT_EQ(ShapeOf(none), ShapeOf(one));
    EXPECT_EQ(ShapeOf(ShapeOf(one)), ShapeOf(one));
    EXPECT_EQ(MutantsOf(many).back().change, MutantsOf(one).back().change);
    EXPECT_EQ(With("without c IN (?, ...)", "SELECT a FROM t WHERE b = ? AND c IN (?,?)"),
              "SELECT a FROM t WHERE b = ?1 AND (?2 IS ?2 AND ?3 IS ?3)");
}

} // namespace
} // namespace tally::mutants
