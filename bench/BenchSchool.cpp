#include "bench/BenchSchool.h"

#include "core/DatabasePassword.h"
#include "core/modTallyboard.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "tools/DeliveredDatabases.h"
#include "tools/SampleSchool.h"

#include <map>
#include <memory>

namespace tally::bench {

BenchSchool::BenchSchool(int students, int exams)
{
    SampleOptions options;
    options.classes = 1;
    options.divisions = static_cast<int>(DivisionCodes().size());
    options.students = students / options.divisions;
    options.subjects = 12;
    options.exams = exams;
    options.years = 1;
    MakeDeliveredDatabases(folder_.path(), Password(),
                           [&](store::Transaction& transaction) { FillSampleSchool(transaction, options); });
}

SchoolScope BenchSchool::Scope()
{
    return {.academicYearCode = 1, .examCode = 1, .classCode = 1};
}

QString BenchSchool::Password()
{
    SessionContext session;
    BuildDatabasePassword(session);
    return DatabasePassword(session);
}

const BenchSchool& SchoolOf(int students)
{
    static std::map<int, std::unique_ptr<BenchSchool>> schools;
    std::unique_ptr<BenchSchool>& school = schools[students];
    if (!school)
        school = std::make_unique<BenchSchool>(students);
    return *school;
}

void OpenSession(const QString& folder)
{
    SetProgramFolder(folder);
    Session() = SessionContext();
    OpenConnections();
    LoadActiveAcademicYear();
}

} // namespace tally::bench
