#pragma once

#include "core/GridResult.h"
#include "store/Transaction.h"
#include "students/RelievingRules.h"

#include <QDate>
#include <QString>

#include <optional>

namespace tally {

/// The names of a class and one of its divisions.
struct ClassNames
{
    QString className;
    QString divisionName;
};

/// By what the relieved students are searched; an empty text and an invalid date filter nothing.
struct RelievedFilter
{
    QString admissionNo; ///< a part of it
    QString studentName; ///< a part of it
    QDate admissionFrom;
    QDate admissionTo;
    QDate relievingFrom;
    QDate relievingTo;
};

/// Every statement by which students leave the school and come back. Throws StoreError.
class RelievingRepository
{
public:
    /// `main` must outlive the repository.
    explicit RelievingRepository(store::Connection& main) : main_(main) {}

    /// Where the student sits in the last year he was placed in; nothing where he never was.
    std::optional<ClassNames> LastClassOf(int studentCode);
    /// A later year than this one holds the student.
    bool IsPromoted(int studentCode, int academicYearCode);
    /// What speaks against relieving the student in the year under the certificate `tcNo`. `formerCode` is
    /// the student whose entry is being changed, 0 for none: his certificate is the one in hand.
    RelievingFacts Facts(int studentCode, int formerCode, int academicYearCode, const QString& tcNo);
    /// A student other than these two has a certificate whose number stands in the store as `tcNo` does in
    /// capitals.
    bool TCNoTaken(const QString& tcNo, int studentCode, int formerCode);

    /// By name. Columns: "StudentCode", "Admission No", "Admission Date", "Student Name", "Relieving Date",
    /// "TC Date", "RelievingReason", "TC No", "AcademicYearCode".
    GridResult Search(const RelievedFilter& filter);

    /// `tcNo` names the certificate that the student is known to have; empty for one on roll. A general
    /// failure when it is another one by now, or the student has gone: what another client entered is not
    /// written over.
    static void Relieve(store::Transaction& transaction, int studentCode, const Relieving& entry,
                        const QString& tcNo = {});
    /// The same for an entry that is taken back.
    static void PutBackOnRoll(store::Transaction& transaction, int studentCode, const QString& tcNo);

private:
    QDate LastWorkingDay();

    store::Connection& main_;
};

} // namespace tally
