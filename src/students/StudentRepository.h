#pragma once

#include "store/Transaction.h"

#include <QDate>
#include <QString>

#include <optional>

namespace tally {

/// One student's row. Codes are 0 and texts empty for what the office does not know; dates are invalid then.
struct Student
{
    int code = 0;
    int admissionNo = 0;         ///< at most nine digits
    QString optionalAdmissionNo; ///< the school's own, which screens show as "Admission No"
    QDate admissionDate;
    int academicYearCode = 0; ///< the year of the admission
    QString name;
    QString fatherOrGuardian;
    bool male = false;
    QString address1;
    QString address2;
    int cityCode = 0;
    QString pinCode;
    QString telephone;
    QString email;
    QDate dateOfBirth;
    int bloodGroupCode = 0;
    bool numberGenerated = false; ///< by the system; else typed by hand
    QDate relievingDate;
    QString relievingReason;
    QString tcNo;
    QDate tcDate;

    // What the codes stand for; read only.
    int yearFrom = 0;
    int yearTo = 0;
    QString cityName;
    int stateCode = 0;
    QString stateName;
    QString bloodGroupName;

    /// The student has left the school: there is a transfer certificate.
    bool IsRelieved() const { return !tcNo.trimmed().isEmpty(); }
};

/// Every statement on the students' rows that more than one screen needs. The row with code 0, which means
/// that no student is chosen, is never found.
class StudentRepository
{
public:
    /// `main` must outlive the repository.
    explicit StudentRepository(store::Connection& main) : main_(main) {}

    std::optional<Student> Find(int studentCode);
    std::optional<Student> FindByAdmissionNo(int number);
    /// By the number that screens show. Small letters and capitals count alike.
    std::optional<Student> FindByOptionalAdmissionNo(const QString& number);
    /// False for a student who is on roll, and for none.
    bool IsRelieved(int studentCode);

    /// A student other than `exceptCode`, 0 for a new one, has the number already.
    bool AdmissionNoTaken(int admissionNo, int exceptCode);
    bool OptionalAdmissionNoTaken(const QString& number, int exceptCode);

    /// Stores a student who is on roll, under the code and the numbers he has.
    static void Insert(store::Transaction& transaction, const Student& student, int userCode);
    /// Changes all but what a student keeps from his creation on (code, admission number, year of admission
    /// and how the number came about) and his leaving. A general failure when the student has gone meanwhile.
    static void Update(store::Transaction& transaction, const Student& student, int userCode);
    static void Delete(store::Transaction& transaction, int studentCode);

private:
    std::optional<Student> FindWhere(const QString& condition, const auto& value);

    store::Connection& main_;
};

} // namespace tally
