#include "reports/StudentsListRepository.h"

#include "core/school/CodesQuery.h"
#include "core/school/DivisionRepository.h"
#include "store/WorkingTable.h"

#include <QHash>

#include <algorithm>
#include <map>

namespace tally {

namespace {

constexpr int WidthOfNameAndNumber = 100;
constexpr int FirstSubjectField = 2;

template <typename Things, typename Code>
QHash<int, std::size_t> PlacesOf(const Things& things, Code code)
{
    QHash<int, std::size_t> places;
    for (std::size_t place = 0; place < things.size(); ++place)
        places.insert(code(things[place]), place);
    return places;
}

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
    FillTempClassAverage(transaction, LoadStudents(scope, divisionCodes), input, side);
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

std::vector<ListedMark> StudentsListRepository::LoadMarks(const SchoolScope& scope,
                                                          const std::vector<int>& divisionCodes,
                                                          const std::vector<int>& subjectCodes)
{
    std::vector<ListedMark> marks;
    store::Statement rows = QueryCodes(
        main_,
        QStringLiteral("SELECT StudentCode, DivisionCode, SubjectCode, Mark FROM MarkMaster WHERE "
                       "AcademicYearCode = ? AND ExamCode = ? AND ClassCode = ? AND DivisionCode IN (%1)"),
        divisionCodes, scope.academicYearCode, scope.examCode, scope.classCode);
    while (rows.Next()) {
        const int subject = rows.Int(2);
        if (!rows.IsNull(3) &&
            std::find(subjectCodes.begin(), subjectCodes.end(), subject) != subjectCodes.end())
            marks.push_back({rows.Int(0), rows.Int(1), subject, rows.Double(3)});
    }
    return marks;
}

CodedTexts StudentsListRepository::LoadStudents(const SchoolScope& scope,
                                                const std::vector<int>& divisionCodes)
{
    return ReadCodedTexts(QueryCodes(
        main_,
        QStringLiteral("SELECT a.StudentCode, trim(b.StudentName) || '(' || trim(b.OptionalAdmissionNo) || "
                       "')' AS StudentName FROM StudentClassDivision a INNER JOIN StudentMaster b ON "
                       "b.StudentCode = a.StudentCode WHERE a.AcademicYearCode = ? AND a.ClassCode = ? AND "
                       "a.DivisionCode IN (%1)"),
        divisionCodes, scope.academicYearCode, scope.classCode));
}

void StudentsListRepository::FillTempClassAverage(store::Transaction& transaction, const CodedTexts& students,
                                                  const StudentsListInput& input, AverageSide side)
{
    store::WorkingTable table("TempClassAverage");
    table.Whole("StudentCode").Text("StudentName", WidthOfNameAndNumber);
    for (const auto& [code, shortName] : input.subjects)
        table.DecimalOfData(QStringLiteral("S%1").arg(code));
    table.Create(transaction);

    const std::size_t subjectCount = input.subjects.size();
    const auto studentPlaces = PlacesOf(students, [](const auto& student) { return student.first; });
    const auto subjectPlaces = PlacesOf(input.subjects, [](const auto& subject) { return subject.first; });
    std::vector<std::optional<double>> values(students.size() * subjectCount);
    for (const ListedMark& mark : input.marks) {
        const auto student = studentPlaces.constFind(mark.studentCode);
        const auto subject = subjectPlaces.constFind(mark.subjectCode);
        if (student == studentPlaces.cend() || subject == subjectPlaces.cend() ||
            (side == AverageSide::Above && mark.mark <= 0))
            continue;
        std::optional<double>& value = values[*student * subjectCount + *subject];
        const double stored = mark.mark == 0 ? StoredZero : mark.mark;
        value = value ? std::max(*value, stored) : stored;
    }

    store::Statement insert = table.Insert(transaction);
    auto value = values.cbegin();
    for (const auto& [code, name] : students) {
        int position = 0;
        insert.BindAt(++position, static_cast<qint64>(code));
        insert.BindAt(++position, name);
        for (std::size_t subject = 0; subject < subjectCount; ++subject, ++value) {
            if (*value)
                insert.BindAt(++position, **value);
            else
                insert.BindNullAt(++position);
        }
        insert.RunBound();
    }
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
