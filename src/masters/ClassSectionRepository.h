#pragma once

#include "masters/ClassSectionGrid.h"
#include "store/Transaction.h"

#include <set>
#include <utility>

namespace tally {

/// Class code and division code.
using DivisionKey = std::pair<int, int>;

/// The classes of the school with their divisions, as they were read at one moment.
struct ClassSections
{
    std::vector<ClassRecord> classes;     ///< in their order
    std::vector<ClassDivision> divisions; ///< by class, within it the highest code first

    const ClassDivision* FindDivision(int classCode, int divisionCode) const;
    bool ClassDivisionExists(int classCode, int divisionCode) const
    {
        return FindDivision(classCode, divisionCode) != nullptr;
    }
};

/// What the database holds about classes and who refers to them, read at one moment.
struct StoredClassSections : ClassSections
{
    std::set<DivisionKey> withStudents;
    std::set<DivisionKey> withMarks;
    std::set<DivisionKey> withRanks;
    std::set<DivisionKey> withSetup;

    /// With division code 0: any division of the class.
    bool ClassDivisionUsedInStudents(int classCode, int divisionCode) const;
    bool ClassDivisionUsedInMarks(int classCode, int divisionCode) const;
    bool ClassDivisionUsedInRanks(int classCode, int divisionCode) const;
    bool ClassDivisionUsedInSetup(int classCode, int divisionCode) const;
};

/// The classes of the school and their divisions. The row with code 0 stands for "not chosen" and is never
/// listed or changed here.
class ClassSectionRepository
{
public:
    explicit ClassSectionRepository(store::Connection& connection) : connection_(connection) {}

    /// In their order.
    std::vector<ClassRecord> Classes();
    /// By class, within it the highest code first.
    std::vector<ClassDivision> Divisions();
    /// Classes, divisions and all that refers to them, in six statements.
    StoredClassSections Read();

    static void InsertClass(store::Transaction& transaction, const ClassRecord& record, int userCode);
    static void UpdateClass(store::Transaction& transaction, const ClassRecord& record);
    /// With all its divisions.
    static void DeleteClass(store::Transaction& transaction, int classCode);
    static void InsertDivision(store::Transaction& transaction, const ClassDivision& division);
    static void RenameDivision(store::Transaction& transaction, const ClassDivision& division);
    static void DeleteDivision(store::Transaction& transaction, int classCode, int divisionCode);
    /// Numbers the classes from 1 in the order of their codes, which is the order of their creation.
    static void OrderByCode(store::Transaction& transaction);

private:
    std::set<DivisionKey> DivisionsIn(const char* table);

    store::Connection& connection_;
};

} // namespace tally
