#include "masters/ClassSectionSave.h"

#include <algorithm>
#include <utility>

namespace tally {

namespace {

/// The database as it will look while the rows of the grid are written one after the other.
class Reconciliation
{
public:
    Reconciliation(ClassSectionGrid& grid, const StoredClassSections& stored) : grid_(grid), state_(stored) {}

    ClassSectionPlan Run()
    {
        for (int row = 1; row <= grid_.RowCount(); ++row) {
            const int remaining = DropDivisions(grid_.Row(row));
            if (!plan_.blockedDivisions.isEmpty()) {
                grid_.Row(row).noOfDivisions = QString::number(remaining);
                grid_.Row(row).oldNoOfDivisions = remaining;
            }
            if (!grid_.Row(row).IsNamed())
                continue;
            KeepClass(RecordOf(grid_.Row(row)));
            KeepDivisions(grid_.Row(row).classCode);
        }
        DropClasses();
        return std::move(plan_);
    }

private:
    bool IsUsed(const ClassDivision& division) const
    {
        const int classCode = division.classCode;
        const int code = division.divisionCode;
        return state_.ClassDivisionUsedInStudents(classCode, code) ||
               state_.ClassDivisionUsedInMarks(classCode, code) ||
               state_.ClassDivisionUsedInRanks(classCode, code) ||
               state_.ClassDivisionUsedInSetup(classCode, code);
    }

    /// Divisions go from the last one down. One that is in use keeps those before it as well, up to the next
    /// one that is still on the screen, so that no gap comes into being.
    int DropDivisions(const ClassRow& row)
    {
        int remaining = row.oldDivision;
        bool mayDelete = true;
        std::vector<ClassDivision> left;
        for (const ClassDivision& division : state_.divisions) {
            left.push_back(division);
            if (division.classCode != row.classCode)
                continue;
            if (grid_.ArrayScan(division.classCode, division.divisionCode)) {
                mayDelete = true;
            } else if (mayDelete && IsUsed(division)) {
                plan_.blockedDivisions.append(row.className + QStringLiteral(" - ") + division.divisionName);
                mayDelete = false;
            } else if (mayDelete) {
                plan_.deleteDivisions.emplace_back(division.classCode, division.divisionCode);
                left.pop_back();
                --remaining;
            }
        }
        state_.divisions = std::move(left);
        return remaining;
    }

    void KeepClass(const ClassRecord& record)
    {
        const auto known =
            std::find_if(state_.classes.begin(), state_.classes.end(),
                         [&](const ClassRecord& other) { return other.classCode == record.classCode; });
        if (known == state_.classes.end()) {
            plan_.insertClasses.push_back(record);
            state_.classes.push_back(record);
        } else if (*known != record) {
            plan_.updateClasses.push_back(record);
            *known = record;
        }
    }

    void KeepDivisions(int classCode)
    {
        for (const ClassDivision& division : grid_.Divisions()) {
            if (division.classCode != classCode)
                continue;
            const ClassDivision* known = state_.FindDivision(classCode, division.divisionCode);
            if (!known) {
                plan_.insertDivisions.push_back(division);
                state_.divisions.push_back(division);
            } else if (known->divisionName != division.divisionName) {
                plan_.renameDivisions.push_back(division);
            }
        }
    }

    /// Only students are looked at here. Anything else that refers to the class makes the store refuse.
    void DropClasses()
    {
        for (const ClassRecord& record : state_.classes) {
            if (grid_.Grid2Scan(record.classCode))
                continue;
            if (state_.ClassDivisionUsedInStudents(record.classCode, 0))
                plan_.blockedClasses.append(record.className);
            else
                plan_.deleteClasses.push_back(record.classCode);
        }
    }

    ClassSectionGrid& grid_;
    StoredClassSections state_;
    ClassSectionPlan plan_;
};

/// The sentences about what had to be kept.
QStringList Kept(const ClassSectionPlan& plan)
{
    QStringList sentences;
    const auto add = [&sentences](const QString& what, const QStringList& names) {
        if (!names.isEmpty())
            sentences.append(what + names.join(QStringLiteral(", ")) +
                             QStringLiteral(" Is Used In Other Entry Screen(s). So You Cannot Delete"));
    };
    add(QStringLiteral("This Division "), plan.blockedDivisions);
    add(QStringLiteral("The Class "), plan.blockedClasses);
    return sentences;
}

void Carry(store::Transaction& transaction, const ClassSectionPlan& plan, int userCode)
{
    using Repository = ClassSectionRepository;
    for (const auto& [classCode, divisionCode] : plan.deleteDivisions)
        Repository::DeleteDivision(transaction, classCode, divisionCode);
    for (const ClassRecord& record : plan.insertClasses)
        Repository::InsertClass(transaction, record, userCode);
    for (const ClassRecord& record : plan.updateClasses)
        Repository::UpdateClass(transaction, record);
    for (const ClassDivision& division : plan.insertDivisions)
        Repository::InsertDivision(transaction, division);
    for (const ClassDivision& division : plan.renameDivisions)
        Repository::RenameDivision(transaction, division);
    for (const int classCode : plan.deleteClasses)
        Repository::DeleteClass(transaction, classCode);
}

/// What is on the grid and not in the database.
std::vector<ClassDivision> MissingDivisions(const ClassSectionGrid& grid, const ClassSections& stored)
{
    std::vector<ClassDivision> missing;
    for (const ClassDivision& division : grid.Divisions())
        if (!division.divisionName.trimmed().isEmpty() &&
            !stored.ClassDivisionExists(division.classCode, division.divisionCode))
            missing.push_back(division);
    return missing;
}

} // namespace

ClassRecord RecordOf(const ClassRow& row)
{
    return {row.classCode, row.className.trimmed(), row.Divisions(), row.Order()};
}

ClassSectionPlan Reconcile(ClassSectionGrid& grid, const StoredClassSections& stored)
{
    return Reconciliation(grid, stored).Run();
}

void SaveNewClasses(store::Connection& connection, const ClassSectionGrid& grid, int userCode)
{
    store::Transaction transaction(connection);
    for (int row = 1; row <= grid.RowCount(); ++row)
        if (grid.Row(row).IsNamed())
            ClassSectionRepository::InsertClass(transaction, RecordOf(grid.Row(row)), userCode);
    for (const ClassDivision& division : grid.Divisions())
        if (!division.divisionName.trimmed().isEmpty())
            ClassSectionRepository::InsertDivision(transaction, division);
    transaction.Commit();
}

bool HoldsWorkOfOthers(const ClassSections& stored, const ClassSections& loaded)
{
    const auto holdsOther = [](const auto& now, const auto& then) {
        return std::any_of(now.begin(), now.end(), [&then](const auto& row) {
            return std::find(then.begin(), then.end(), row) == then.end();
        });
    };
    return holdsOther(stored.classes, loaded.classes) || holdsOther(stored.divisions, loaded.divisions);
}

bool SaveEditedClasses(store::Connection& connection, ClassSectionGrid& grid, ClassSections& loaded,
                       int userCode, QStringList& kept)
{
    ClassSectionRepository repository(connection);
    std::vector<ClassDivision> missing;
    {
        store::Transaction transaction(connection);
        const StoredClassSections stored = repository.Read();
        if (HoldsWorkOfOthers(stored, loaded))
            return false;
        ClassSectionGrid reconciled = grid;
        const ClassSectionPlan plan = Reconcile(reconciled, stored);
        Carry(transaction, plan, userCode);
        // Read before the commit: a failure to read must not come when the work is stored already.
        ClassSections written{repository.Classes(), repository.Divisions()};
        missing = MissingDivisions(reconciled, written);
        transaction.Commit();
        grid = std::move(reconciled);
        loaded = std::move(written);
        kept += Kept(plan);
    }
    if (missing.empty())
        return true;
    store::Transaction transaction(connection);
    for (const ClassDivision& division : missing)
        ClassSectionRepository::InsertDivision(transaction, division);
    transaction.Commit();
    return true;
}

} // namespace tally
