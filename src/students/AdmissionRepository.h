#pragma once

#include "core/CodedTexts.h"
#include "core/GridResult.h"
#include "store/Transaction.h"
#include "students/Placement.h"
#include "students/PlacementRules.h"

#include <QString>

#include <optional>

namespace tally {

/// By what the placements of a year are searched; an empty text and code 0 filter nothing.
struct PlacementFilter
{
    QString admissionNo; ///< a part of it
    QString studentName; ///< a part of it
    int classCode = 0;
    int divisionCode = 0;
    bool onRollOnly = false; ///< neither relieved nor promoted to a later year
};

/// Every statement by which students are placed in the class-divisions of a year. Throws StoreError.
class AdmissionRepository
{
public:
    /// `main` must outlive the repository.
    explicit AdmissionRepository(store::Connection& main) : main_(main) {}

    /// The students admitted in the year who were never placed, by number, under which they are shown.
    CodedTexts StudentsToPlace(int academicYearCode);
    /// Nothing where the student has no place in the year.
    std::optional<Placement> Find(int studentCode, int academicYearCode);
    PlacementFacts Facts(int studentCode, int academicYearCode);
    /// By class, division and name. Columns: "Student Name", "StudentCode", "Admission No", "Class Name",
    /// "Division Name", "Class Code", "ClassOrder", "AcademicYearCode".
    GridResult Search(int academicYearCode, const PlacementFilter& filter);

    static void Insert(store::Transaction& transaction, int studentCode, int academicYearCode,
                       const Placement& placement, int userCode);
    /// A general failure when the placement has gone meanwhile.
    static void Update(store::Transaction& transaction, int studentCode, int academicYearCode,
                       const Placement& placement, int userCode);
    static void Delete(store::Transaction& transaction, int studentCode, int academicYearCode);

private:
    int CountOf(const QString& sql, int studentCode, int academicYearCode);

    store::Connection& main_;
};

} // namespace tally
