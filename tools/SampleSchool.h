#pragma once

#include "store/Transaction.h"
#include "tools/DeliveredDatabases.h"

#include <QVector>

namespace tally {

/// The size of an invented school. The same options give the same school on every machine.
struct SampleOptions
{
    quint64 seed = 1;
    int classes = 10;  ///< 1 to 98
    int divisions = 3; ///< per class, 1 to 97
    int students = 35; ///< per division
    int subjects = 10; ///< of the highest class, 1 to 20; lower classes take one or two fewer
    int exams = 4;     ///< 1 to 10
    int years = 2;     ///< 1: the active year alone; 2: a finished year before it
};

/// Why a school of this size cannot be made; empty when it can.
QString SampleObjection(const SampleOptions& options);

/// A login of the sample school.
struct SampleAccount
{
    const char* person;
    const char* loginId;
    const char* password;
    const char* rights; ///< in words
};
/// The three users of every sample school: all rights, the office's, a teacher's.
QVector<SampleAccount> SampleAccounts();

/// Fills the tables of a main database that holds its delivered rows and nothing else. The options must have
/// no objection.
///
/// The active year has the code `years`; class 1 is the highest class. Marks are complete for every exam of a
/// finished year and for all exams of the active year but the last. In that last exam a third of the
/// divisions is complete, a third has half of its subjects, a third has none, and the last division of the
/// highest class has no grades yet. With two classes and two divisions or more, the lowest class has two
/// further divisions: one without students, and one with students but without subjects.
void FillSampleSchool(store::Transaction& transaction, const SampleOptions& options);

/// The people and rights of SampleAccounts(), with the user codes 1 to 3.
void InsertSampleUsers(store::Transaction& transaction);

} // namespace tally
