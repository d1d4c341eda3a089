#include "core/school/SchoolListRepository.h"

namespace tally {

CodedTexts SchoolListRepository::Exams()
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("SELECT ExamCode, ExamName FROM ExamMaster ORDER BY ExamOrder")));
}

CodedTexts SchoolListRepository::ExamsBehindBlank()
{
    return ReadCodedTexts(main_.Query(
        QStringLiteral("SELECT 0 AS ExamCode, ' ' AS ExamName,0 AS ExamOrder FROM ExamMaster UNION "
                       "SELECT ExamCode, ExamName, ExamOrder FROM ExamMaster ORDER BY ExamOrder")));
}

CodedTexts SchoolListRepository::Classes()
{
    // The row with code 0 stands for "not chosen" and is no class of the school.
    return ReadCodedTexts(main_.Query(QStringLiteral(
        "SELECT ClassCode, ClassName FROM ClassDivisionMaster WHERE ClassCode > 0 ORDER BY ClassOrder")));
}

CodedTexts SchoolListRepository::DivisionsByName(int classCode)
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("SELECT DivisionCode, DivisionName FROM ClassDivisionDetails WHERE "
                                   "ClassCode = ? ORDER BY DivisionName"),
                    classCode));
}

CodedTexts SchoolListRepository::DivisionsByCode(int classCode)
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("SELECT DivisionCode, DivisionName FROM ClassDivisionDetails WHERE "
                                   "ClassCode = ? ORDER BY DivisionCode"),
                    classCode));
}

CodedTexts SchoolListRepository::BloodGroups()
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("SELECT 0 AS BloodGroupCode, ' ' AS BloodGroupName FROM BloodGroupMaster"
                                   " UNION SELECT BloodGroupCode, BloodGroupName FROM BloodGroupMaster"
                                   " WHERE BloodGroupCode > 0 ORDER BY BloodGroupName")));
}

} // namespace tally
