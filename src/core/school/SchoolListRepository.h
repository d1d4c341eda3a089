#pragma once

#include "core/CodedTexts.h"
#include "store/Connection.h"

namespace tally {

/// The lists from which screens choose exam, class, division and blood group. Throws StoreError.
class SchoolListRepository
{
public:
    /// `main` must outlive the repository.
    explicit SchoolListRepository(store::Connection& main) : main_(main) {}

    /// By ExamOrder.
    CodedTexts Exams();
    /// The same behind a blank line with the code 0; nothing at all in a school without exams.
    CodedTexts ExamsBehindBlank();
    /// By ClassOrder.
    CodedTexts Classes();
    /// The divisions of a class; none for the class 0.
    CodedTexts DivisionsByName(int classCode);
    CodedTexts DivisionsByCode(int classCode);
    /// By name, behind a blank line with the code 0.
    CodedTexts BloodGroups();

private:
    store::Connection& main_;
};

} // namespace tally
