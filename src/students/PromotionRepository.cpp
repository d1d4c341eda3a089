#include "students/PromotionRepository.h"

#include "core/school/CodesQuery.h"
#include "core/school/SchoolListRepository.h"

#include <algorithm>

namespace tally {

namespace {

/// As many codes as a statement takes beside its other values.
constexpr std::size_t CodesAtOnce = 900;

/// Students with their places in the current and in the next year. The values in front are the following, the
/// current and the next year; %1 says which students.
const QString StudentsWhere = QStringLiteral(
    "SELECT a.StudentCode, a.StudentName, a.OptionalAdmissionNo, a.TCNo, b.ClassCode, b.DivisionCode, "
    "c.ClassCode, c.DivisionCode, d.ClassName, e.DivisionName, "
    "(SELECT count(*) FROM MarkMaster f WHERE f.StudentCode = c.StudentCode AND "
    "f.AcademicYearCode = c.AcademicYearCode AND f.ClassCode = c.ClassCode AND "
    "f.DivisionCode = c.DivisionCode), "
    "(SELECT count(*) FROM StudentClassDivision g WHERE g.StudentCode = a.StudentCode AND "
    "g.AcademicYearCode = ?) "
    "FROM StudentMaster a "
    "LEFT JOIN StudentClassDivision b ON b.StudentCode = a.StudentCode AND b.AcademicYearCode = ? "
    "LEFT JOIN StudentClassDivision c ON c.StudentCode = a.StudentCode AND c.AcademicYearCode = ? "
    "LEFT JOIN ClassDivisionMaster d ON d.ClassCode = c.ClassCode "
    "LEFT JOIN ClassDivisionDetails e ON e.ClassCode = c.ClassCode AND e.DivisionCode = c.DivisionCode "
    "WHERE %1 ORDER BY a.StudentName");

void ReadStudents(store::Statement rows, std::vector<PromotionStudent>& students)
{
    while (rows.Next()) {
        PromotionStudent student{.studentCode = rows.Int(0),
                                 .name = rows.Text(1),
                                 .admissionNo = rows.Text(2),
                                 .relieved = !rows.Text(3).isEmpty(),
                                 .current = {rows.Int(4), rows.Int(5)},
                                 .next = {rows.Int(6), rows.Int(7)},
                                 .nextPlace = {},
                                 .hasMarks = rows.Int(10) > 0,
                                 .carriedOn = rows.Int(11) > 0};
        if (student.next.IsComplete())
            student.nextPlace = rows.Text(8) + QLatin1Char('-') + rows.Text(9);
        students.push_back(std::move(student));
    }
}

QString YearName(int yearFrom, int yearTo)
{
    return QStringLiteral("%1 - %2").arg(yearFrom).arg(yearTo);
}

} // namespace

PromotionYears PromotionRepository::Years(int academicYearCode)
{
    PromotionYears years;
    years.current = academicYearCode;
    store::Statement current =
        main_.Query(QStringLiteral("SELECT YearFrom, YearTo FROM AcademicYearSetup"
                                   " WHERE AcademicYearCode = ? AND AcademicYearCode > 0"),
                    academicYearCode);
    if (!current.Next())
        return years;
    const int yearFrom = current.Int(0);
    const int yearTo = current.Int(1);
    years.currentName = YearName(yearFrom, yearTo);
    years.nextName = YearName(yearFrom + 1, yearTo + 1);
    years.next = static_cast<int>(main_.Number(
        QStringLiteral("SELECT AcademicYearCode FROM AcademicYearSetup WHERE YearFrom = ? AND YearTo = ?"),
        yearFrom + 1, yearTo + 1));
    // Years are made one after the other, but a code says nothing about which one comes next.
    years.following = static_cast<int>(main_.Number(
        QStringLiteral("SELECT AcademicYearCode FROM AcademicYearSetup WHERE YearFrom > ? ORDER BY YearFrom"),
        yearFrom + 1));
    return years;
}

std::vector<PromotionStudent> PromotionRepository::FromStudents(const PromotionYears& years,
                                                                const Placement& from)
{
    return StudentsOf(years, years.current, from);
}

std::vector<PromotionStudent> PromotionRepository::ToStudents(const PromotionYears& years,
                                                              const Placement& to)
{
    return StudentsOf(years, years.next, to);
}

std::vector<PromotionStudent> PromotionRepository::StudentsOf(const PromotionYears& years, int yearCode,
                                                              const Placement& place)
{
    std::vector<PromotionStudent> students;
    ReadStudents(
        main_.Query(
            StudentsWhere.arg(QStringLiteral(
                "a.TCNo = '' AND a.StudentCode IN (SELECT StudentCode FROM StudentClassDivision WHERE "
                "AcademicYearCode = ? AND ClassCode = ? AND DivisionCode = ?)")),
            years.following, years.current, years.next, yearCode, place.classCode, place.divisionCode),
        students);
    return students;
}

std::vector<PromotionStudent> PromotionRepository::Find(const PromotionYears& years,
                                                        const std::vector<int>& studentCodes)
{
    std::vector<PromotionStudent> students;
    const QString sql = StudentsWhere.arg(QStringLiteral("a.StudentCode IN (%1)"));
    for (std::size_t first = 0; first < studentCodes.size(); first += CodesAtOnce) {
        const auto begin = studentCodes.begin() + static_cast<std::ptrdiff_t>(first);
        const std::size_t count = std::min(CodesAtOnce, studentCodes.size() - first);
        const std::vector<int> codes(begin, begin + static_cast<std::ptrdiff_t>(count));
        ReadStudents(QueryCodes(main_, sql, codes, years.following, years.current, years.next), students);
    }
    return students;
}

PromotionFacts PromotionRepository::Facts(const PromotionPlan& plan)
{
    SchoolListRepository lists(main_);
    return {
        .years = Years(plan.years.current),
        .classes = lists.Classes(),
        .divisions = lists.DivisionsByCode(plan.target.classCode),
        .students = Find(plan.years, plan.Students()),
        .target = ToStudents(plan.years, plan.target),
    };
}

void PromotionRepository::Store(store::Transaction& transaction, const PromotionPlan& plan, int userCode)
{
    transaction.Execute(
        QStringLiteral("DELETE FROM StudentClassDivision WHERE AcademicYearCode = ? AND ClassCode = ? AND "
                       "DivisionCode = ? AND EXISTS (SELECT 1 FROM StudentMaster a WHERE a.StudentCode = "
                       "StudentClassDivision.StudentCode AND a.TCNo = '')"),
        plan.years.next, plan.target.classCode, plan.target.divisionCode);
    store::Statement setStatus = transaction.Prepare(QStringLiteral(
        "UPDATE StudentClassDivision SET Status = ? WHERE StudentCode = ? AND AcademicYearCode = ?"));
    store::Statement insert = transaction.Prepare(
        QStringLiteral("INSERT INTO StudentClassDivision (StudentCode, AcademicYearCode, ClassCode, "
                       "DivisionCode, Status, UserCode) VALUES (?, ?, ?, ?, ?, ?)"));
    for (const PromotionStudent& student : plan.takenBack)
        setStatus.Run("Y", student.studentCode, plan.years.current);
    for (const PromotionStudent& student : plan.listed) {
        setStatus.Run("N", student.studentCode, plan.years.current);
        // Whoever was carried on from the next year has left it as well.
        insert.Run(student.studentCode, plan.years.next, plan.target.classCode, plan.target.divisionCode,
                   student.carriedOn ? "N" : "Y", userCode);
    }
}

std::optional<PromotionFault> SavePromotion(store::Transaction& transaction, const PromotionPlan& plan,
                                            int userCode)
{
    if (auto fault = FindFault(plan, PromotionRepository(transaction.On()).Facts(plan)))
        return fault;
    PromotionRepository::Store(transaction, plan, userCode);
    return {};
}

} // namespace tally
