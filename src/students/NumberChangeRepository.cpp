#include "students/NumberChangeRepository.h"

#include "store/Dialect.h"
#include "store/StoreError.h"

#include <algorithm>

namespace tally {

namespace {

/// As many numbers as a statement takes.
constexpr std::size_t NumbersAtOnce = 900;

} // namespace

CodedTexts NumberChangeRepository::AllNumbers()
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("SELECT StudentCode, OptionalAdmissionNo FROM StudentMaster")));
}

std::vector<NumberedStudent> NumberChangeRepository::Students(const SchoolScope& scope)
{
    std::vector<NumberedStudent> students;
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT a.StudentCode, a.StudentName, a.AdmissionNo, a.OptionalAdmissionNo FROM "
                       "StudentMaster a INNER JOIN StudentClassDivision b ON a.StudentCode = b.StudentCode "
                       "WHERE b.AcademicYearCode = ? AND b.ClassCode = ? AND b.DivisionCode = ? AND "
                       "(a.TCNo IS NULL OR a.TCNo = '') ORDER BY a.StudentName"),
        scope.academicYearCode, scope.classCode, scope.divisionCode);
    while (rows.Next())
        students.push_back({rows.Int(0), rows.Text(1), rows.Int(2), rows.Text(3)});
    return students;
}

CodedTexts NumberChangeRepository::Holders(const CodedTexts& changes)
{
    CodedTexts holders;
    for (std::size_t first = 0; first < changes.size(); first += NumbersAtOnce) {
        const std::size_t count = std::min(NumbersAtOnce, changes.size() - first);
        store::Statement rows =
            main_.Prepare(QStringLiteral("SELECT StudentCode, OptionalAdmissionNo FROM "
                                         "StudentMaster WHERE OptionalAdmissionNo IN (%1)")
                              .arg(store::dialect::Placeholders(count)));
        for (std::size_t number = 0; number < count; ++number)
            rows.BindAt(static_cast<int>(number) + 1, changes[first + number].second);
        const CodedTexts found = ReadCodedTexts(std::move(rows));
        holders.insert(holders.end(), found.begin(), found.end());
    }
    return holders;
}

void NumberChangeRepository::Update(store::Transaction& transaction, const CodedTexts& changes)
{
    const QString sql =
        QStringLiteral("UPDATE StudentMaster SET OptionalAdmissionNo = ? WHERE StudentCode = ?");
    store::Statement update = transaction.Prepare(sql);
    for (const auto& [student, number] : changes)
        if (update.Run(number, student) == 0)
            throw store::StoreError::RowIsGone(sql);
}

std::optional<NumberStep> SaveNumbers(store::Transaction& transaction, const OptionalNumbers& numbers)
{
    const CodedTexts changes = numbers.Changes();
    if (auto fault = numbers.FindFault(NumberChangeRepository(transaction.On()).Holders(changes)))
        return fault;
    NumberChangeRepository::Update(transaction, changes);
    return {};
}

} // namespace tally
