#include "reports/StudentsListRepository.h"

#include "core/school/CodesQuery.h"
#include "core/school/DivisionRepository.h"
#include "store/Dialect.h"
#include "store/WorkingTable.h"

#include <algorithm>

namespace tally {

namespace {

constexpr int WidthOfNameAndNumber = 100;
constexpr int FirstSubjectField = 2;

} // namespace

StudentsListInput StudentsListRepository::LoadStudentsList(const SchoolScope& scope,
                                                           const std::vector<int>& divisionCodes,
                                                           const std::vector<int>& subjectCodes,
                                                           AverageSide side)
{
    // Not committed: with its end the table is gone, and no other client has ever seen it.
    store::Transaction transaction(main_);
    StudentsListInput input;
    input.subjects = LoadSubjects(subjectCodes);
    input.setup = DivisionRepository(main_).LoadSubjectSetup(scope);
    input.marks = LoadMarks(scope, divisionCodes, subjectCodes);
    FillTempClassAverage(transaction, scope, divisionCodes, input.subjects, side);
    input.students = LoadTempClassAverage();
    return input;
}

CodedTexts StudentsListRepository::LoadSubjects(const std::vector<int>& subjectCodes)
{
    const CodedTexts found = ReadCodedTexts(
        QueryCodes(main_,
                   QStringLiteral("SELECT SubjectCode, SubjectShortName FROM SubjectMaster WHERE "
                                  "SubjectCode IN (%1)"),
                   subjectCodes));
    CodedTexts subjects;
    for (const int code : subjectCodes) {
        const auto subject =
            std::find_if(found.begin(), found.end(), [code](const auto& one) { return one.first == code; });
        if (subject != found.end())
            subjects.push_back(*subject);
    }
    return subjects;
}

std::vector<DivisionMark> StudentsListRepository::LoadMarks(const SchoolScope& scope,
                                                            const std::vector<int>& divisionCodes,
                                                            const std::vector<int>& subjectCodes)
{
    std::vector<DivisionMark> marks;
    store::Statement rows = QueryCodes(
        main_,
        QStringLiteral("SELECT DivisionCode, SubjectCode, Mark FROM MarkMaster WHERE AcademicYearCode = ? "
                       "AND ExamCode = ? AND ClassCode = ? AND Mark IS NOT NULL AND DivisionCode IN (%1) "
                       "AND SubjectCode IN (%2)"),
        {divisionCodes, subjectCodes}, scope.academicYearCode, scope.examCode, scope.classCode);
    while (rows.Next())
        marks.push_back({rows.Int(0), rows.Int(1), rows.Double(2)});
    return marks;
}

void StudentsListRepository::FillTempClassAverage(store::Transaction& transaction, const SchoolScope& scope,
                                                  const std::vector<int>& divisionCodes,
                                                  const CodedTexts& subjects, AverageSide side)
{
    const bool below = side == AverageSide::Below;
    const QString mark = below ? QStringLiteral("CASE Mark WHEN 0 THEN %1 ELSE Mark END").arg(StoredZero)
                               : QStringLiteral("Mark");
    store::WorkingTable table("TempClassAverage");
    table.Whole("StudentCode").Text("StudentName", WidthOfNameAndNumber);
    QString columns;
    QString marks;
    for (std::size_t number = 0; number < subjects.size(); ++number) {
        table.DecimalOfData(QStringLiteral("S%1").arg(subjects[number].first));
        columns += QStringLiteral(", c.Mark%1").arg(number);
        marks += QStringLiteral(", max(CASE SubjectCode WHEN ? THEN %1 END) AS Mark%2").arg(mark).arg(number);
    }
    table.Create(transaction);

    // One statement for all students, with one reading of their marks.
    const QString divisions = store::dialect::Placeholders(divisionCodes.size());
    store::Statement insert = table.InsertRowsOf(
        transaction,
        QLatin1String(
            "SELECT a.StudentCode, trim(b.StudentName) || '(' || trim(b.OptionalAdmissionNo) || ')'") +
            columns +
            QLatin1String(" FROM StudentClassDivision a INNER JOIN StudentMaster b ON b.StudentCode = "
                          "a.StudentCode LEFT JOIN (SELECT StudentCode") +
            marks +
            QStringLiteral(" FROM MarkMaster WHERE AcademicYearCode = ? AND ExamCode = ? AND ClassCode = ? "
                           "AND DivisionCode IN (%1)")
                .arg(divisions) +
            QLatin1String(below ? "" : " AND Mark > 0") +
            QStringLiteral(" GROUP BY StudentCode) c ON c.StudentCode = a.StudentCode WHERE "
                           "a.AcademicYearCode = ? AND a.ClassCode = ? AND a.DivisionCode IN (%1)")
                .arg(divisions));
    int position = 0;
    const auto bind = [&insert, &position](int value) {
        insert.BindAt(++position, static_cast<qint64>(value));
    };
    const auto bindDivisions = [&] { std::for_each(divisionCodes.begin(), divisionCodes.end(), bind); };
    for (const auto& [code, shortName] : subjects)
        bind(code);
    bind(scope.academicYearCode);
    bind(scope.examCode);
    bind(scope.classCode);
    bindDivisions();
    bind(scope.academicYearCode);
    bind(scope.classCode);
    bindDivisions();
    insert.RunBound();
}

std::vector<ClassAverageRow> StudentsListRepository::LoadTempClassAverage()
{
    // Behind the name, which two students may share, the code keeps them in the same places every time.
    std::vector<ClassAverageRow> students;
    store::Statement rows =
        main_.Query(QStringLiteral("SELECT * FROM TempClassAverage ORDER BY StudentName, StudentCode"));
    while (rows.Next()) {
        ClassAverageRow& student = students.emplace_back();
        student.studentName = rows.Text(1);
        for (int field = FirstSubjectField; field < rows.ColumnCount(); ++field)
            student.marks.push_back(rows.IsNull(field) ? std::nullopt : std::optional(rows.Double(field)));
    }
    return students;
}

} // namespace tally
