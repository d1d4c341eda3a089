#pragma once

#include "core/school/SchoolTypes.h"

#include <QString>
#include <QTemporaryDir>

#include <vector>

namespace tally::bench {

/// An encrypted, delivered set of databases with one class of four divisions, twelve subjects and two exams,
/// unless said otherwise. Its files lie in a folder that goes with it.
class BenchSchool
{
public:
    /// `students` of the whole class, a multiple of four. The marks of the last exam are not all entered.
    explicit BenchSchool(int students, int exams = 2);

    QString Folder() const { return folder_.path(); }
    /// The class in the exam whose marks are complete.
    static SchoolScope Scope();
    static std::vector<int> DivisionCodes() { return {1, 2, 3, 4}; }
    static QString Password();

private:
    QTemporaryDir folder_;
};

/// The school of that size, made at the first call and kept until the process ends.
const BenchSchool& SchoolOf(int students);

/// Lets the session work in the folder of a BenchSchool, logged in and with both databases open.
void OpenSession(const QString& folder);

} // namespace tally::bench
