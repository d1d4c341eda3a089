#include "bench/MasterScreensSchool.h"

#include "bench/BenchSchool.h"
#include "students/Placement.h"
#include "tools/DeliveredDatabases.h"
#include "tools/SampleSchool.h"

#include <array>

namespace tally::bench {

namespace {

constexpr int Administrator = 1;
constexpr int Classes = 12;
constexpr int FullDivisions = 70;

/// Three letters that no other number below 26 to the third has.
QString Letters(int number)
{
    constexpr int Alphabet = 26;
    QString letters;
    for (int i = 0; i < 3; ++i, number /= Alphabet)
        letters.prepend(QLatin1Char(static_cast<char>('A' + number % Alphabet)));
    return letters;
}

/// The code behind the last one of the invented school, whose codes have no gaps.
int NextCode(store::Transaction& transaction, const char* key, const char* table)
{
    return static_cast<int>(transaction.On().Number(
        QStringLiteral("SELECT max(%1) + 1 FROM %2").arg(QLatin1String(key), QLatin1String(table))));
}

void AddPlaces(store::Transaction& transaction)
{
    auto state = transaction.Prepare(QStringLiteral("INSERT INTO StateMaster VALUES (?, ?, ?)"));
    for (int code = NextCode(transaction, "StateCode", "StateMaster"); code <= MasterScreensSchool::States;
         ++code)
        state.Run(code, QStringLiteral("State ") + Letters(code), Administrator);
    auto city = transaction.Prepare(QStringLiteral("INSERT INTO CityMaster VALUES (?, ?, ?, ?)"));
    for (int code = NextCode(transaction, "CityCode", "CityMaster"); code <= MasterScreensSchool::Cities;
         ++code)
        city.Run(code, code % MasterScreensSchool::States + 1, QStringLiteral("Nagar ") + Letters(code),
                 Administrator);
}

void AddTeachers(store::Transaction& transaction)
{
    auto insert = transaction.Prepare(QStringLiteral(
        "INSERT INTO TeacherMaster (TeacherCode, SalutationCode, TeacherName, TeacherShortName,"
        " MaritalStatus, CityCode, Telephone, BloodGroupCode, UserCode)"
        " VALUES (?, 1, ?, ?, 'S', ?, '2200000', 1, ?)"));
    for (int code = NextCode(transaction, "TeacherCode", "TeacherMaster");
         code <= MasterScreensSchool::Teachers; ++code)
        // Digits keep the short names apart from the invented school's.
        insert.Run(code, QStringLiteral("Prakash ") + Letters(code), QString::number(code), code,
                   Administrator);
}

/// One more student for each code from the first free one on; that one is given back.
int AddStudents(store::Transaction& transaction)
{
    constexpr int AdmissionNoAbove = 100000;
    auto insert = transaction.Prepare(
        QStringLiteral("INSERT INTO StudentMaster VALUES (?, ?, ?, ?, 1, ?, 'Raghavan', 'F', '12 Hill Road',"
                       " '', ?, '682001', '2200000', '', ?, 1, 'Y', NULL, '', '', NULL, ?)"));
    const int first = NextCode(transaction, "StudentCode", "StudentMaster");
    for (int code = first; code <= MasterScreensSchool::Students; ++code) {
        const int admissionNo = AdmissionNoAbove + code;
        insert.Run(code, admissionNo, QString::number(admissionNo), QDate(2025, 6, 2).addDays(-(code % 1000)),
                   QStringLiteral("Kamala ") + Letters(code), code % MasterScreensSchool::Cities + 1,
                   QDate(2015, 1, 1).addDays(-(code % 3000)), Administrator);
    }
    return first;
}

/// Where a student sits in the active year. The first few fill the small division, and the others the full
/// ones from the highest class on.
Placement SeatOf(int numberOfStudent)
{
    using School = MasterScreensSchool;
    if (numberOfStudent < School::StudentsOfSmallDivision)
        return {School::PromotedClass, School::SmallDivision};
    const int division = (numberOfStudent - School::StudentsOfSmallDivision) / School::StudentsOfFullDivision;
    return {division / FullDivisions + 1, School::FullDivision + division % FullDivisions};
}

/// Each student climbs a class a year and keeps the division; the years before the active one are his own as
/// far as there was a class for him, and he was admitted in the first of them.
void AddHistory(store::Transaction& transaction, int firstStudent)
{
    constexpr std::array YearsBackwards{MasterScreensSchool::ActiveYear, 3, 4, 5};
    constexpr int ActiveYearFrom = 2025;
    auto year = transaction.Prepare(
        QStringLiteral("INSERT INTO AcademicYearSetup VALUES (?, ?, ?, ?, ?, 'N', ?, 1)"));
    const auto addYear = [&](int code, int from, const char* processed) {
        year.Run(code, from, from + 1, QDate(from, 6, 1), QDate(from + 1, 5, 31), processed);
    };
    addYear(MasterScreensSchool::NextYear, ActiveYearFrom + 1, "N");
    for (int back = 1; back < static_cast<int>(YearsBackwards.size()); ++back)
        addYear(YearsBackwards[static_cast<std::size_t>(back)], ActiveYearFrom - back, "Y");

    auto division = transaction.Prepare(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (?, ?, ?)"));
    for (int classCode = 1; classCode <= Classes; ++classCode)
        for (int code = MasterScreensSchool::SmallDivision;
             code < MasterScreensSchool::FullDivision + FullDivisions; ++code)
            division.Run(classCode, QString::number(code), code);

    auto place =
        transaction.Prepare(QStringLiteral("INSERT INTO StudentClassDivision VALUES (?, ?, ?, ?, ?, 1)"));
    auto admit = transaction.Prepare(
        QStringLiteral("UPDATE StudentMaster SET AcademicYearCode = ? WHERE StudentCode = ?"));
    for (int student = firstStudent; student <= MasterScreensSchool::Students; ++student) {
        const Placement seat = SeatOf(student - firstStudent);
        int classCode = seat.classCode;
        int admitted = 0;
        for (const int yearCode : YearsBackwards) {
            if (classCode > Classes)
                break;
            place.Run(student, yearCode, classCode, seat.divisionCode,
                      yearCode == MasterScreensSchool::ActiveYear ? "Y" : "N");
            admitted = yearCode;
            ++classCode;
        }
        admit.Run(admitted, student);
    }
}

} // namespace

MasterScreensSchool::MasterScreensSchool(History history)
{
    SampleOptions options;
    options.classes = Classes;
    options.divisions = 4;
    options.students = 1;
    options.subjects = 20;
    options.exams = 10;
    options.years = 1;
    MakeDeliveredDatabases(folder_.path(), BenchSchool::Password(), [&](store::Transaction& transaction) {
        FillSampleSchool(transaction, options);
        AddPlaces(transaction);
        AddTeachers(transaction);
        const int firstStudent = AddStudents(transaction);
        if (history == History::FourYears)
            AddHistory(transaction, firstStudent);
    });
}

} // namespace tally::bench
