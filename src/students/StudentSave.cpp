#include "students/StudentSave.h"

#include "core/modTallyboard.h"
#include "core/SessionRepository.h"

namespace tally {

namespace {

int NextCode(store::Transaction& transaction, const QString& column)
{
    return GetNextCode(transaction, column, QStringLiteral("StudentMaster"), 0);
}

/// The highest number in the school plus one, numbers typed by hand included.
StudentFault AllotNumbers(store::Transaction& transaction, Student& student)
{
    const int next = NextCode(transaction, QStringLiteral("AdmissionNo"));
    if (next > HighestAdmissionNo)
        return StudentFault::NumbersUsedUp;
    // Somebody may have typed just this number as the school's own for another student.
    student.admissionNo = next;
    student.optionalAdmissionNo = QString::number(next);
    return StudentRepository(transaction.On())
                   .OptionalAdmissionNoTaken(student.optionalAdmissionNo, student.code)
               ? StudentFault::OptionalNumberTaken
               : StudentFault::None;
}

} // namespace

StudentSettings ReadStudentSettings(store::Connection& main)
{
    const auto options = SessionRepository(main).Options();
    if (!options)
        return {};
    return {.latestBirth = options->dateOfBirthSetting.value_or(QDate()), .gender = options->genderOption};
}

void KeepStoredNumber(store::Connection& main, Student& student, const StudentSaving& saving)
{
    if (student.code == 0 || student.optionalAdmissionNo != saving.loadedOptionalNo)
        return;
    if (const auto stored = StudentRepository(main).Find(student.code))
        student.optionalAdmissionNo = stored->optionalAdmissionNo;
}

StudentFacts ReadStudentFacts(store::Connection& main, const Student& student, const StudentSaving& saving)
{
    StudentRepository students(main);
    return {
        .settings = ReadStudentSettings(main),
        .today = saving.today,
        .numberTaken = TypesNumber(student, saving.autoGenerate) &&
                       students.AdmissionNoTaken(student.admissionNo, student.code),
        .optionalNumberTaken = TypesOptionalNumber(student, saving.autoGenerate) &&
                               students.OptionalAdmissionNoTaken(student.optionalAdmissionNo, student.code),
        .relieved = students.IsRelieved(student.code),
    };
}

StudentFault SaveStudent(store::Transaction& transaction, Student& student, const StudentSaving& saving)
{
    KeepStoredNumber(transaction.On(), student, saving);
    const StudentFault fault = FaultOf(student, ReadStudentFacts(transaction.On(), student, saving));
    if (fault != StudentFault::None)
        return fault;
    if (student.code != 0) {
        StudentRepository::Update(transaction, student, saving.userCode);
        return StudentFault::None;
    }
    student.numberGenerated = saving.autoGenerate;
    if (saving.autoGenerate) {
        const StudentFault numbers = AllotNumbers(transaction, student);
        if (numbers != StudentFault::None)
            return numbers;
    }
    student.code = NextCode(transaction, QStringLiteral("StudentCode"));
    StudentRepository::Insert(transaction, student, saving.userCode);
    return StudentFault::None;
}

} // namespace tally
