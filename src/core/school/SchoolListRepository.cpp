#include "core/school/SchoolListRepository.h"

namespace tally {

CodedTexts SchoolListRepository::Exams()
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("Select ExamCode,ExamName from ExamMaster order by ExamOrder")));
}

CodedTexts SchoolListRepository::ExamsBehindBlank()
{
    return ReadCodedTexts(main_.Query(
        QStringLiteral("Select 0 as ExamCode,' ' as ExamName,0 as ExamOrder from ExamMaster union "
                       "Select ExamCode,ExamName,ExamOrder from ExamMaster order by ExamOrder")));
}

CodedTexts SchoolListRepository::Classes()
{
    // The row with code 0 stands for "not chosen" and is no class of the school.
    return ReadCodedTexts(main_.Query(QStringLiteral(
        "Select ClassCode,ClassName from ClassDivisionMaster where ClassCode > 0 order by ClassOrder")));
}

CodedTexts SchoolListRepository::DivisionsByName(int classCode)
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("Select DivisionCode,DivisionName from ClassDivisionDetails where "
                                   "ClassCode=? order by DivisionName"),
                    classCode));
}

CodedTexts SchoolListRepository::DivisionsByCode(int classCode)
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("Select DivisionCode,DivisionName from ClassDivisionDetails where "
                                   "ClassCode=? order by DivisionCode"),
                    classCode));
}

} // namespace tally
