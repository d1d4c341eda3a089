#pragma once

#include "core/school/DivisionSelection.h"
#include "store/Connection.h"

#include <cstdint>
#include <vector>

namespace tally {

/// In which order the divisions of a class stand.
enum class DivisionOrder : std::uint8_t
{
    ByCode,
    ByName,
};

/// What the divisions of a class take and what has been entered for them. Each function runs a fixed number
/// of statements, whatever the size of the class. Throws StoreError.
class DivisionRepository
{
public:
    /// `main` must outlive the repository.
    explicit DivisionRepository(store::Connection& main) : main_(main) {}

    /// The divisions of the class with what their marks in the list depend on, as of one moment.
    std::vector<DivisionFacts> LoadDivisionFacts(const SchoolScope& scope,
                                                 DivisionOrder order = DivisionOrder::ByCode);
    /// The subjects of the class, all divisions, by SlNo.
    std::vector<SubjectSetup> LoadSubjectSetup(const SchoolScope& scope);
    /// The grade tables of the class for the exam, all divisions, each in its own order.
    std::vector<GradeBand> LoadGradeBands(const SchoolScope& scope);

private:
    store::Connection& main_;
};

} // namespace tally
