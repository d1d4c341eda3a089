#pragma once

#include "bench/BenchSchool.h"

#include <QByteArray>
#include <QList>

#include <memory>
#include <vector>

struct sqlite3;

namespace tally::bench {

/// A statement that changes rows, and the values of each time that it runs.
struct BareChange
{
    QByteArray sql;
    std::vector<QList<QByteArray>> runs;
};

/// The main database through nothing but the engine's own C interface: what the same work costs when no line
/// of the program stands in between. Ends the process on an error.
class BareStore
{
public:
    explicit BareStore(const BenchSchool& school) : BareStore(school.Folder()) {}
    explicit BareStore(const QString& folder);

    /// One statement that sums the marks of each student. Gives the sum of all, so that no compiler drops the
    /// work.
    double SumByStudent();
    /// One statement for each student and subject, its text made and prepared each time.
    double MarkByMark();
    /// The same, prepared once and bound each time.
    double MarkByMarkPrepared();
    /// One transaction that inserts a mark for each student of a division in a subject, prepared once. Gives
    /// the number of marks.
    int InsertMarks(int examCode, int divisionCode, int subjectCode);
    /// One transaction of all the changes. Gives the number of rows that they changed.
    int Write(const std::vector<BareChange>& changes);
    /// Any select: reads every column of every row as text. The first placeholder takes `text`, the others 0.
    /// Gives the number of rows.
    int ReadAll(const QString& sql, const QString& text);

private:
    struct Close
    {
        void operator()(sqlite3* engine) const;
    };
    struct Student
    {
        int code;
        int division;
    };

    void Run(const QString& sql);
    std::vector<Student> Students();
    std::vector<int> Subjects();

    std::unique_ptr<sqlite3, Close> engine_;
};

} // namespace tally::bench
