#pragma once

#include "core/school/DivisionRepository.h"
#include "ranks/RankRepository.h"
#include "ranks/RankViews.h"
#include "support/TestStore.h"

#include <map>
#include <memory>
#include <vector>

namespace tally::test {

/// One class of a small school, with as many divisions, subjects and students as a test asks for. Everything
/// belongs to year 1, exam 1 and class 1 ("X"). Codes that a test does not give count from 1.
class TestSchool
{
public:
    /// On stores of its own, in memory.
    TestSchool();
    /// On the stores of a running program.
    TestSchool(store::Connection& onMain, store::Connection& onTemp);

    void AddDivision(int divisionCode, const char* name);
    /// Out of 100 unless said otherwise.
    void AddSubject(int divisionCode, int subjectCode, const char* shortName, int slNo,
                    const char* takenForRank = "Yes", double maximumMark = 100, double maximumAllowed = 100);
    void AddBand(int divisionCode, double totalAverage, double subjectAverage, const char* grade, int status);
    /// A from 80, B from 60, C from 35 (subjects from 50, 40 and 20), D below: 35 passes a subject.
    void AddUsualBands(int divisionCode);
    /// Division A (code 1) with the usual bands and subjects Eng, Mat, ... (codes from 1), all taken for
    /// rank.
    void AddUsualDivision(int subjectCount);

    int AddStudent(int divisionCode, const QString& name, const QString& admissionNo = {});
    void EnterMark(int studentCode, int subjectCode, double mark);
    void EnterAbsence(int studentCode, int subjectCode);
    /// A student of division 1 with these marks in the subjects from 1 on.
    int AddMarkedStudent(const QString& name, const std::vector<double>& marks);

    RankInput Input(const std::vector<int>& divisions = {1})
    {
        return Repository().LoadRankInput(scope, divisions);
    }
    RankList Compute(const std::vector<int>& divisions = {1})
    {
        return ComputeRankList(Input(divisions), options);
    }
    /// Computes the list and writes TempRankCalculation.
    RankList Prepare(const std::vector<int>& divisions = {1});
    GridTable Show(const RankList& list, RankOrder order,
                   SubjectDisplay display = SubjectDisplay::TakenForRankOnly);
    void Save(const std::vector<int>& divisions = {1});

    RankRepository Repository() { return RankRepository(main); }
    DivisionRepository Divisions() { return DivisionRepository(main); }
    TempRankRepository WorkingTable() { return TempRankRepository(temp); }

private:
    std::unique_ptr<store::Connection> ownMain_;
    std::unique_ptr<store::Connection> ownTemp_;

public:
    store::Connection& main;
    store::Connection& temp;
    SchoolScope scope{1, 1, 1};
    RankOptions options;

private:
    void OpenYear();
    void InsertMark(int studentCode, int subjectCode, double mark, const char* leaveOrPresent);

    std::map<int, int> divisionOf_;
};

/// The row of the student called `name`; the test fails when there is none.
const RankRow& RowOf(const RankList& list, const QString& name);
const RankCell& CellOf(const RankList& list, const QString& name, std::size_t subject);
/// The cell as it stands in TempRankCalculation.
QString StoredCell(const RankList& list, const QString& name, std::size_t subject);
/// How many rows of the view are students.
int StudentCount(const GridTable& view);
int AverageRow(const GridTable& view);
/// The students' names from top to bottom.
QStringList NamesOf(const GridTable& view);
/// The row of the view that shows `name`; -1 when none does.
int RowOf(const GridTable& view, const QString& name);

} // namespace tally::test
