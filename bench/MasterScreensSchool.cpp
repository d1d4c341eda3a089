#include "bench/MasterScreensSchool.h"

#include "bench/BenchSchool.h"
#include "tools/DeliveredDatabases.h"
#include "tools/SampleSchool.h"

namespace tally::bench {

namespace {

constexpr int Administrator = 1;

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

void AddStudents(store::Transaction& transaction)
{
    constexpr int AdmissionNoAbove = 100000;
    auto insert = transaction.Prepare(
        QStringLiteral("INSERT INTO StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo,"
                       " AcademicYearCode, StudentName, CityCode, UserCode) VALUES (?, ?, ?, 1, ?, ?, ?)"));
    for (int code = NextCode(transaction, "StudentCode", "StudentMaster");
         code <= MasterScreensSchool::Students; ++code) {
        const int admissionNo = AdmissionNoAbove + code;
        insert.Run(code, admissionNo, QString::number(admissionNo), QStringLiteral("Kamala ") + Letters(code),
                   code % MasterScreensSchool::Cities + 1, Administrator);
    }
}

} // namespace

MasterScreensSchool::MasterScreensSchool()
{
    SampleOptions options;
    options.classes = 12;
    options.divisions = 4;
    options.students = 1;
    options.subjects = 20;
    options.exams = 10;
    options.years = 1;
    MakeDeliveredDatabases(folder_.path(), BenchSchool::Password(), [&](store::Transaction& transaction) {
        FillSampleSchool(transaction, options);
        AddPlaces(transaction);
        AddTeachers(transaction);
        AddStudents(transaction);
    });
}

} // namespace tally::bench
