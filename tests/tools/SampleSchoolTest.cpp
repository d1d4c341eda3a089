#include "tools/SampleSchool.h"

#include "support/TestStore.h"

#include <QCryptographicHash>

#include <gtest/gtest.h>

namespace tally::test {

using store::Connection;

namespace {

Connection SchoolOf(const SampleOptions& options)
{
    Connection connection = DeliveredMainStore();
    store::Transaction transaction(connection);
    FillSampleSchool(transaction, options);
    transaction.Commit();
    return connection;
}

SampleOptions Small()
{
    SampleOptions options;
    options.classes = 4;
    options.students = 12;
    return options;
}

QStringList TablesOf(Connection& store)
{
    QStringList tables;
    auto rows =
        store.Query(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"));
    while (rows.Next())
        tables << rows.Text(0);
    return tables;
}

/// One number for all rows of all tables in their order.
QByteArray Fingerprint(Connection& store)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString& table : TablesOf(store)) {
        hash.addData(table.toUtf8());
        auto rows = store.Query(QStringLiteral("SELECT * FROM %1").arg(table));
        while (rows.Next()) {
            for (int column = 0; column < rows.ColumnCount(); ++column)
                hash.addData(rows.IsNull(column) ? QByteArray("\0", 1) : rows.Text(column).toUtf8() + '\n');
        }
    }
    return hash.result().toHex();
}

/// Rows whose code names no row of the other table.
QStringList LooseReferences(Connection& store)
{
    QStringList loose;
    for (const QString& table : TablesOf(store)) {
        QHash<int, QStringList> matches;
        QHash<int, QString> parents;
        auto keys = store.Query(QStringLiteral("PRAGMA foreign_key_list(%1)").arg(table));
        while (keys.Next()) {
            // A reference to a table's own key does not name its column.
            const QString from = keys.Text(3);
            const QString to = keys.IsNull(4) ? from : keys.Text(4);
            parents[keys.Int(0)] = keys.Text(2);
            matches[keys.Int(0)] << QStringLiteral("p.%1 = c.%2")
                                        .arg(to == QLatin1String("CCityCode") ? QStringLiteral("CityCode")
                                                                              : to,
                                             from);
            EXPECT_TRUE(from.endsWith(QLatin1String("Code"))) << qPrintable(table);
        }
        for (auto key = parents.cbegin(); key != parents.cend(); ++key) {
            const qint64 rows =
                store.Number(QStringLiteral("SELECT count(*) FROM %1 c WHERE c.%2 IS NOT NULL AND NOT EXISTS"
                                            " (SELECT 1 FROM %3 p WHERE %4)")
                                 .arg(table, matches[key.key()].constFirst().section(QLatin1String("c."), -1),
                                      key.value(), matches[key.key()].join(QLatin1String(" AND "))));
            if (rows > 0)
                loose << QStringLiteral("%1 -> %2: %3").arg(table, key.value()).arg(rows);
        }
    }
    return loose;
}

/// Divisions of the active year whose state in an exam is the given one, told as the rank list tells it.
constexpr auto Divisions = " FROM ClassDivisionDetails d WHERE ";
constexpr auto StudentsOf =
    "(SELECT count(*) FROM StudentClassDivision s WHERE s.AcademicYearCode = 2 AND s.ClassCode = d.ClassCode"
    " AND s.DivisionCode = d.DivisionCode)";
constexpr auto SubjectsOf =
    "(SELECT count(*) FROM ClassSubjectTeacher t WHERE t.AcademicYearCode = 2 AND t.ClassCode = d.ClassCode"
    " AND t.DivisionCode = d.DivisionCode)";
constexpr auto GradesOf =
    "(SELECT count(*) FROM RankMaster r WHERE r.AcademicYearCode = 2 AND r.ClassCode = d.ClassCode"
    " AND r.DivisionCode = d.DivisionCode AND r.ExamCode = ?)";
constexpr auto MarksOf =
    "(SELECT count(*) FROM MarkMaster m WHERE m.AcademicYearCode = 2 AND m.ClassCode = d.ClassCode"
    " AND m.DivisionCode = d.DivisionCode AND m.ExamCode = ?)";

template <typename... Values>
qint64 DivisionsWhere(Connection& store, const QString& condition, const Values&... values)
{
    return store.Number(QStringLiteral("SELECT count(*)") + QLatin1String(Divisions) + condition, values...);
}

} // namespace

TEST(SampleSchool, TheSameSeedGivesTheSameSchool)
{
    Connection first = SchoolOf(Small());
    Connection second = SchoolOf(Small());
    EXPECT_EQ(Fingerprint(first), Fingerprint(second));
}

TEST(SampleSchool, AnotherSeedGivesAnotherSchool)
{
    SampleOptions other = Small();
    other.seed = 2;
    Connection first = SchoolOf(Small());
    Connection second = SchoolOf(other);
    EXPECT_NE(Fingerprint(first), Fingerprint(second));
}

TEST(SampleSchool, EveryCodeNamesARow)
{
    Connection store = SchoolOf(Small());
    EXPECT_EQ(LooseReferences(store).join(u'\n'), QString());

    store.Execute(QStringLiteral("PRAGMA foreign_keys = OFF"));
    store.Execute(QStringLiteral("DELETE FROM SubjectMaster WHERE SubjectCode = 1"));
    store.Execute(
        QStringLiteral("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 2"));
    EXPECT_EQ(LooseReferences(store).size(), 2 + 4) << "a missing row must be noticed";
}

TEST(SampleSchool, HasTheSizeAskedFor)
{
    Connection store =
        SchoolOf({.seed = 5, .classes = 3, .divisions = 2, .students = 7, .subjects = 6, .exams = 2});
    EXPECT_EQ(store.Number(QStringLiteral("SELECT count(*) FROM ClassDivisionMaster WHERE ClassCode > 0")),
              3);
    EXPECT_EQ(store.Number(QStringLiteral("SELECT count(*) FROM ExamMaster")), 2);
    EXPECT_EQ(store.Number(QStringLiteral("SELECT count(*) FROM SubjectMaster WHERE SubjectCode > 0")), 6);
    EXPECT_EQ(
        store.Number(QStringLiteral("SELECT count(*) FROM StudentClassDivision WHERE AcademicYearCode = 2"
                                    " AND ClassCode = 2 AND DivisionCode = 2")),
        7);
    EXPECT_EQ(
        store.Number(QStringLiteral("SELECT count(*) FROM ClassSubjectTeacher WHERE AcademicYearCode = 2"
                                    " AND ClassCode = 1 AND DivisionCode = 1")),
        6);
}

TEST(SampleSchool, OneYearAloneIsEnough)
{
    SampleOptions options = Small();
    options.years = 1;
    Connection store = SchoolOf(options);
    EXPECT_EQ(
        store.Number(QStringLiteral("SELECT count(*) FROM AcademicYearSetup WHERE AcademicYearCode > 0")), 1);
    EXPECT_EQ(
        store.Number(QStringLiteral("SELECT AcademicYearCode FROM AcademicYearSetup WHERE Status = 'Y'")), 1);
    EXPECT_EQ(LooseReferences(store).join(u'\n'), QString());
}

TEST(SampleSchool, HasOneActiveYearAfterAFinishedOne)
{
    Connection store = SchoolOf(Small());
    EXPECT_EQ(
        store.Number(QStringLiteral("SELECT AcademicYearCode FROM AcademicYearSetup WHERE Status = 'Y'")), 2);
    EXPECT_EQ(
        store.Number(QStringLiteral("SELECT AcademicYearCode FROM AcademicYearSetup WHERE Processed = 'Y'")),
        1);
    EXPECT_EQ(
        store.Number(QStringLiteral("SELECT count(*) FROM ApplicationDate d, AcademicYearSetup y"
                                    " WHERE y.AcademicYearCode = 1 AND d.ApplicationDate BETWEEN y.FromDate"
                                    " AND y.ToDate")),
        365);
}

TEST(SampleSchool, FinishedExamsHaveEveryMark)
{
    Connection store = SchoolOf(Small());
    EXPECT_EQ(store.Number(QStringLiteral(
                  "SELECT count(*) FROM StudentClassDivision s JOIN ClassSubjectTeacher t USING"
                  " (AcademicYearCode, ClassCode, DivisionCode) JOIN ExamMaster e"
                  " LEFT JOIN MarkMaster m USING (AcademicYearCode, ClassCode, DivisionCode, StudentCode, "
                  "SubjectCode,"
                  " ExamCode) WHERE m.Mark IS NULL AND (s.AcademicYearCode = 1 OR e.ExamCode < 4)")),
              0);
}

TEST(SampleSchool, TheRunningExamShowsEveryStateOfADivision)
{
    Connection store = SchoolOf(Small());
    const QString students = QLatin1String(StudentsOf);
    const QString subjects = QLatin1String(SubjectsOf);
    const QString grades = QLatin1String(GradesOf);
    const QString marks = QLatin1String(MarksOf);
    EXPECT_EQ(DivisionsWhere(store, students + QStringLiteral(" = 0")), 1);
    EXPECT_EQ(
        DivisionsWhere(store, students + QStringLiteral(" > 0 AND ") + subjects + QStringLiteral(" = 0")), 1);
    const QString ready =
        students + QStringLiteral(" > 0 AND ") + subjects + QStringLiteral(" > 0 AND ") + grades;
    EXPECT_EQ(DivisionsWhere(store, ready + QStringLiteral(" = 0"), 4), 1);
    const QString expected = students + QStringLiteral(" * ") + subjects;
    EXPECT_GT(DivisionsWhere(store,
                             ready + QStringLiteral(" > 0 AND ") + marks + QStringLiteral(" < ") + expected,
                             4, 4),
              0);
    EXPECT_GT(DivisionsWhere(store,
                             ready + QStringLiteral(" > 0 AND ") + marks + QStringLiteral(" = ") + expected,
                             4, 4),
              0);
}

TEST(SampleSchool, HasAbsencesFailuresTiesAndRelievedStudents)
{
    Connection store = SchoolOf(Small());
    EXPECT_GT(store.Number(QStringLiteral("SELECT count(*) FROM MarkMaster WHERE LeaveOrPresent = 'A'")), 0);
    EXPECT_EQ(store.Number(
                  QStringLiteral("SELECT count(*) FROM MarkMaster WHERE LeaveOrPresent = 'A' AND Mark > 0")),
              0);
    EXPECT_GT(store.Number(
                  QStringLiteral("SELECT count(*) FROM MarkMaster WHERE LeaveOrPresent = 'P' AND Mark < 17")),
              0);
    EXPECT_GT(store.Number(QStringLiteral("SELECT count(*) FROM (SELECT sum(Mark) AS Total, count(*) AS n "
                                          "FROM MarkMaster WHERE ExamCode = 1"
                                          " GROUP BY AcademicYearCode, ClassCode, DivisionCode, StudentCode) "
                                          "GROUP BY Total HAVING count(*) > 1")),
              0);
    EXPECT_GT(
        store.Number(QStringLiteral("SELECT count(*) FROM StudentMaster s JOIN StudentClassDivision d USING"
                                    " (StudentCode) WHERE s.TCNo <> '' AND d.AcademicYearCode = 2")),
        0);
}

TEST(SampleSchool, OnlyRelievedStudentsHaveATransferCertificateAndTheOthersAnEmptyNumberAndNotNone)
{
    Connection store = SchoolOf(Small());
    const auto students = [&store](const char* condition) {
        return store.Number(QStringLiteral("SELECT count(*) FROM StudentMaster WHERE StudentCode > 0 AND ") +
                            QLatin1String(condition));
    };
    EXPECT_EQ(students("TCNo IS NULL"), 0);
    EXPECT_GT(students("RelievingDate IS NULL"), 0);
    EXPECT_EQ(students("RelievingDate IS NULL AND TCNo <> ''"), 0);
    EXPECT_GT(students("RelievingDate IS NOT NULL"), 0);
    EXPECT_EQ(students("RelievingDate IS NOT NULL AND TCNo = ''"), 0);
}

TEST(SampleSchool, NoMarkIsAboveWhatItsSubjectAllows)
{
    Connection store = SchoolOf(Small());
    EXPECT_EQ(store.Number(QStringLiteral("SELECT count(*) FROM MarkMaster m JOIN ClassSubjectTeacher t USING"
                                          " (AcademicYearCode, ClassCode, DivisionCode, SubjectCode)"
                                          " WHERE m.Mark > t.MaximumAllowed OR m.Mark < 0")),
              0);
}

TEST(SampleSchool, EachClassLeavesOneOrTwoSubjectsOutOfTheRank)
{
    Connection store = SchoolOf(Small());
    auto classes = store.Query(QStringLiteral("SELECT sum(TakenForRank = 'No') FROM ClassSubjectTeacher"
                                              " GROUP BY AcademicYearCode, ClassCode, DivisionCode"));
    int divisions = 0;
    while (classes.Next()) {
        ++divisions;
        EXPECT_GE(classes.Int(0), 1);
        EXPECT_LE(classes.Int(0), 2);
    }
    EXPECT_EQ(divisions, 2 * 4 * 3 + 1);
}

TEST(SampleSchool, EveryGradeTableFallsToZero)
{
    Connection store = SchoolOf(Small());
    auto tables =
        store.Query(QStringLiteral("SELECT DISTINCT AcademicYearCode, ExamCode, ClassCode, DivisionCode"
                                   " FROM RankMaster"));
    while (tables.Next()) {
        auto bands = store.Query(
            QStringLiteral(
                "SELECT TotalAverage, SubjectAverage, Status FROM RankMaster WHERE AcademicYearCode = ?"
                " AND ExamCode = ? AND ClassCode = ? AND DivisionCode = ? ORDER BY Status"),
            tables.Int(0), tables.Int(1), tables.Int(2), tables.Int(3));
        double last = 101;
        double lastOfSubject = 101;
        int order = 0;
        while (bands.Next()) {
            EXPECT_LT(bands.Double(0), last);
            last = bands.Double(0);
            lastOfSubject = bands.Double(1);
            EXPECT_EQ(bands.Int(2), ++order);
        }
        EXPECT_EQ(last, 0);
        EXPECT_EQ(lastOfSubject, 0);
    }
}

TEST(SampleSchool, PromotedStudentsHaveBothYears)
{
    Connection store = SchoolOf(Small());
    EXPECT_EQ(store.Number(QStringLiteral(
                  "SELECT count(*) FROM StudentClassDivision a LEFT JOIN StudentClassDivision b"
                  " ON b.StudentCode = a.StudentCode AND b.AcademicYearCode = 2"
                  " WHERE a.AcademicYearCode = 1"
                  " AND (a.Status = 'N') <> (b.ClassCode IS a.ClassCode - 1)")),
              0);
    EXPECT_EQ(store.Number(QStringLiteral("SELECT count(*) FROM StudentClassDivision WHERE Status = 'N'"
                                          " AND AcademicYearCode = 1")),
              3 * 3 * 12);
}

TEST(SampleSchool, NamesHoldLettersBeyondAsciiButNoApostrophe)
{
    Connection store = SchoolOf(Small());
    EXPECT_EQ(
        store.Number(QStringLiteral("SELECT count(*) FROM StudentMaster WHERE StudentName LIKE '%''%'")), 0);
    EXPECT_GT(store.Number(QStringLiteral("SELECT count(*) FROM StudentMaster"
                                          " WHERE length(CAST(StudentName AS BLOB)) > length(StudentName)")),
              0);
}

TEST(SampleSchool, TheThreeUsersHaveDifferentRights)
{
    Connection store = SchoolOf(Small());
    const auto has = [&](int user, const char* form, const char* button) {
        return store.Number(QStringLiteral("SELECT count(*) FROM UserPrivilegeDetails WHERE UserCode = ?"
                                           " AND FormName = ? AND ButtonName = ?"),
                            user, form, button);
    };
    EXPECT_EQ(store.Number(QStringLiteral("SELECT count(*) FROM UserPrivilegeMaster WHERE Block = 'N'")), 3);
    EXPECT_EQ(has(1, "frmUtilUserPrivileges", "N"), 1);
    EXPECT_EQ(has(1, "ToolsMenu", "D"), 1);
    EXPECT_EQ(has(2, "frmUtilUserPrivileges", "N"), 0);
    EXPECT_EQ(has(2, "frmMasStudentMaster", "N"), 1);
    EXPECT_EQ(has(2, "frmMasStudentMaster", "X"), 0);
    EXPECT_EQ(has(3, "frmexammarkentry", "E"), 1);
    EXPECT_EQ(has(3, "frmMasStudentMaster", "D"), 0);
}

TEST(SampleSchool, OneLargeClassCanBeMade)
{
    Connection store =
        SchoolOf({.classes = 1, .divisions = 1, .students = 2000, .subjects = 12, .exams = 1, .years = 1});
    EXPECT_EQ(store.Number(QStringLiteral("SELECT count(*) FROM MarkMaster")), 2000 * 12);
    EXPECT_EQ(store.Number(QStringLiteral("SELECT count(DISTINCT OptionalAdmissionNo) FROM StudentMaster")),
              2001);
}

TEST(SampleSchool, TheLargestNumberOfClassesAndDivisionsFitsTheirNames)
{
    Connection store =
        SchoolOf({.classes = 98, .divisions = 97, .students = 1, .subjects = 1, .exams = 1, .years = 1});
    EXPECT_EQ(store.Number(QStringLiteral("SELECT count(*) FROM ClassDivisionDetails")), 98 * 97 + 2);
    EXPECT_EQ(store.Number(QStringLiteral("SELECT count(*) FROM ClassDivisionDetails WHERE ClassCode = 98"
                                          " AND DivisionName = 'CU' AND DivisionCode = 99")),
              1);
}

TEST(SampleSchool, ObjectsToASizeThatCannotBe)
{
    EXPECT_EQ(SampleObjection({}), QString());
    EXPECT_NE(SampleObjection({.classes = 0}), QString());
    EXPECT_NE(SampleObjection({.classes = 99}), QString());
    EXPECT_NE(SampleObjection({.divisions = 98}), QString());
    EXPECT_NE(SampleObjection({.students = 0}), QString());
    EXPECT_NE(SampleObjection({.subjects = 21}), QString());
    EXPECT_NE(SampleObjection({.exams = 11}), QString());
    EXPECT_NE(SampleObjection({.years = 3}), QString());
}

} // namespace tally::test
