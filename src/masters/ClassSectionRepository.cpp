#include "masters/ClassSectionRepository.h"

#include <algorithm>

namespace tally {

namespace {

bool Holds(const std::set<DivisionKey>& keys, int classCode, int divisionCode)
{
    if (divisionCode != 0)
        return keys.count({classCode, divisionCode}) > 0;
    const auto first = keys.lower_bound({classCode, 0});
    return first != keys.end() && first->first == classCode;
}

} // namespace

const ClassDivision* ClassSections::FindDivision(int classCode, int divisionCode) const
{
    const auto found = std::find_if(divisions.begin(), divisions.end(), [&](const ClassDivision& division) {
        return division.classCode == classCode && division.divisionCode == divisionCode;
    });
    return found == divisions.end() ? nullptr : &*found;
}

bool StoredClassSections::ClassDivisionUsedInStudents(int classCode, int divisionCode) const
{
    return Holds(withStudents, classCode, divisionCode);
}

bool StoredClassSections::ClassDivisionUsedInMarks(int classCode, int divisionCode) const
{
    return Holds(withMarks, classCode, divisionCode);
}

bool StoredClassSections::ClassDivisionUsedInRanks(int classCode, int divisionCode) const
{
    return Holds(withRanks, classCode, divisionCode);
}

bool StoredClassSections::ClassDivisionUsedInSetup(int classCode, int divisionCode) const
{
    return Holds(withSetup, classCode, divisionCode);
}

std::vector<ClassRecord> ClassSectionRepository::Classes()
{
    std::vector<ClassRecord> classes;
    store::Statement rows =
        connection_.Query(QStringLiteral("SELECT ClassCode, ClassName, NoOfDivisions, ClassOrder FROM "
                                         "ClassDivisionMaster WHERE ClassCode > 0 ORDER BY ClassOrder"));
    while (rows.Next())
        classes.push_back({rows.Int(0), rows.Text(1), rows.Int(2), rows.Int(3)});
    return classes;
}

std::vector<ClassDivision> ClassSectionRepository::Divisions()
{
    std::vector<ClassDivision> divisions;
    store::Statement rows = connection_.Query(
        QStringLiteral("SELECT ClassCode, DivisionName, DivisionCode FROM ClassDivisionDetails "
                       "WHERE ClassCode > 0 ORDER BY ClassCode, DivisionCode DESC"));
    while (rows.Next())
        divisions.push_back({rows.Int(0), rows.Text(1), rows.Int(2)});
    return divisions;
}

std::set<DivisionKey> ClassSectionRepository::DivisionsIn(const char* table)
{
    std::set<DivisionKey> keys;
    // One look into the table's key for each division, instead of a walk through all marks of the school.
    store::Statement rows = connection_.Query(
        QStringLiteral(
            "SELECT a.ClassCode, a.DivisionCode FROM ClassDivisionDetails a WHERE EXISTS (SELECT 1 "
            "FROM %1 b WHERE b.ClassCode = a.ClassCode AND b.DivisionCode = a.DivisionCode)")
            .arg(QLatin1String(table)));
    while (rows.Next())
        keys.emplace(rows.Int(0), rows.Int(1));
    return keys;
}

StoredClassSections ClassSectionRepository::Read()
{
    return {Classes(),
            Divisions(),
            DivisionsIn("StudentClassDivision"),
            DivisionsIn("MarkMaster"),
            DivisionsIn("RankMaster"),
            DivisionsIn("ClassSubjectTeacher")};
}

void ClassSectionRepository::InsertClass(store::Transaction& transaction, const ClassRecord& record,
                                         int userCode)
{
    transaction.Execute(QStringLiteral("INSERT INTO ClassDivisionMaster (ClassCode, ClassName, "
                                       "NoOfDivisions, ClassOrder, UserCode) VALUES (?, ?, ?, ?, ?)"),
                        record.classCode, record.className, record.noOfDivisions, record.classOrder,
                        userCode);
}

void ClassSectionRepository::UpdateClass(store::Transaction& transaction, const ClassRecord& record)
{
    transaction.Execute(QStringLiteral("UPDATE ClassDivisionMaster SET ClassName = ?, NoOfDivisions = ?, "
                                       "ClassOrder = ? WHERE ClassCode = ?"),
                        record.className, record.noOfDivisions, record.classOrder, record.classCode);
}

void ClassSectionRepository::DeleteClass(store::Transaction& transaction, int classCode)
{
    transaction.Execute(QStringLiteral("DELETE FROM ClassDivisionDetails WHERE ClassCode = ?"), classCode);
    transaction.Execute(QStringLiteral("DELETE FROM ClassDivisionMaster WHERE ClassCode = ?"), classCode);
}

void ClassSectionRepository::InsertDivision(store::Transaction& transaction, const ClassDivision& division)
{
    transaction.Execute(
        QStringLiteral(
            "INSERT INTO ClassDivisionDetails (ClassCode, DivisionName, DivisionCode) VALUES (?, ?, ?)"),
        division.classCode, division.divisionName, division.divisionCode);
}

void ClassSectionRepository::RenameDivision(store::Transaction& transaction, const ClassDivision& division)
{
    transaction.Execute(QStringLiteral("UPDATE ClassDivisionDetails SET DivisionName = ? WHERE ClassCode = ? "
                                       "AND DivisionCode = ?"),
                        division.divisionName, division.classCode, division.divisionCode);
}

void ClassSectionRepository::DeleteDivision(store::Transaction& transaction, int classCode, int divisionCode)
{
    transaction.Execute(QStringLiteral("DELETE FROM ClassDivisionDetails WHERE ClassCode = ? AND "
                                       "DivisionCode = ?"),
                        classCode, divisionCode);
}

void ClassSectionRepository::OrderByCode(store::Transaction& transaction)
{
    transaction.Execute(QStringLiteral(
        "UPDATE ClassDivisionMaster SET ClassOrder = (SELECT count(*) FROM ClassDivisionMaster a "
        "WHERE a.ClassCode > 0 AND a.ClassCode <= ClassDivisionMaster.ClassCode) "
        "WHERE ClassCode > 0"));
}

} // namespace tally
