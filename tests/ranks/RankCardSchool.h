#pragma once

#include "support/TestSchool.h"

namespace tally::test {

/// Lays down what rank cards are made from, on the class of a TestSchool.
class RankCardSchool
{
public:
    explicit RankCardSchool(TestSchool& school) : school_(school) {}

    void AddExam(int examCode, const char* name, int order)
    {
        Run("Insert into ExamMaster values(?,?,?,0)", examCode, name, order);
    }

    void AddYear(int academicYearCode, int from)
    {
        Run("Insert into AcademicYearSetup values(?,?,?,'2000-06-01','2001-05-31','N','Y',0)",
            academicYearCode, from, from + 1);
    }

    /// A mark in class 1, division 1. `leaveOrPresent` "A" is an absence.
    void EnterMark(int examCode, int studentCode, int subjectCode, double mark,
                   const char* leaveOrPresent = "P", int academicYearCode = 1)
    {
        Run("Insert into MarkMaster values(?,?,?,1,1,?,?,?,0,0)", academicYearCode, studentCode, examCode,
            subjectCode, mark, leaveOrPresent);
    }

    /// Marks in the subjects from 1 on.
    void EnterMarks(int examCode, int studentCode, const std::vector<double>& marks)
    {
        int subject = 0;
        for (const double mark : marks)
            EnterMark(examCode, studentCode, ++subject, mark);
    }

    /// What saving a rank list leaves. NoRank for a student without one.
    void SaveRank(int examCode, int studentCode, double total, double average, qint64 rank, const char* grade,
                  int academicYearCode = 1)
    {
        Run("Insert into TempRankTotal values(?,?,?,1,1,?,?,?,?)", studentCode, academicYearCode, examCode,
            total, average, rank, grade);
    }

private:
    template <typename... Values>
    void Run(const char* sql, const Values&... values)
    {
        school_.main.Execute(QString::fromLatin1(sql), values...);
    }

    TestSchool& school_;
};

} // namespace tally::test
