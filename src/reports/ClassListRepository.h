#pragma once

#include "core/GridTable.h"
#include "store/Connection.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace tally {

/// In which order the students of a class are listed.
enum class ClassListOrder : std::uint8_t
{
    Alphabetical,        ///< by name
    AdmissionNo,         ///< by the number that the program counts
    OptionalAdmissionNo, ///< by the school's own number, as a text
};

struct ClassListStudent
{
    QString optionalAdmissionNo;
    QString studentName;
};

/// Who is in the divisions of a class, those who have left since among them. Throws StoreError.
class ClassListRepository
{
public:
    /// `main` must outlive the repository.
    explicit ClassListRepository(store::Connection& main) : main_(main) {}

    std::vector<ClassListStudent> LoadStudents(int academicYearCode, int classCode,
                                               const std::vector<int>& divisionCodes, ClassListOrder order);

private:
    store::Connection& main_;
};

} // namespace tally
