#pragma once

#include "store/Connection.h"

#include <QString>

#include <vector>

namespace tally {

/// What a division takes in one subject, from whom and out of how many marks.
struct SetupReportRow
{
    QString className;
    QString divisionName;
    int classCode = 0;
    int divisionCode = 0; ///< unique only within its class
    QString subjectName;
    QString teacherName;
    double maximumMark = 0;
    double maximumAllowed = 0;
    QString takenForRank; ///< "Yes" or "No"
    int slNo = 0;
};

/// What the divisions of a year take. Throws StoreError.
class SetupReportRepository
{
public:
    /// `main` must outlive the repository.
    explicit SetupReportRepository(store::Connection& main) : main_(main) {}

    /// By class, division and the order of the subjects. 0 stands for all classes, and for all divisions.
    std::vector<SetupReportRow> LoadSetup(int academicYearCode, int classCode, int divisionCode);

private:
    store::Connection& main_;
};

} // namespace tally
