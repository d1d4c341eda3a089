#pragma once

#include "core/CodedTexts.h"
#include "core/GridResult.h"
#include "store/Transaction.h"

#include <QDate>
#include <QString>

#include <optional>

namespace tally {

/// One teacher's row. Codes are 0 and texts empty for what the office does not know; dates are invalid then.
struct Teacher
{
    int salutationCode = 0;
    QString name;
    QString shortName;
    QDate dateOfBirth;
    bool married = false;
    QDate weddingDate;
    QDate joiningDate;
    QString fatherOrSpouse;
    QString address1;
    QString address2;
    int stateCode = 0; ///< follows from the city; read only
    int cityCode = 0;
    QString pinCode;
    QString telephone;
    int bloodGroupCode = 0;
    QString qualification;
};

/// What is wrong with a wedding or joining date beside the date of birth.
enum class DateFault
{
    None,
    BirthMissing,
    NotAfterBirth,
};

/// While a date is being chosen: the day of birth itself still passes. An invalid `date` has no fault.
DateFault FaultWhileChoosing(const QDate& date, const QDate& birth);
/// At the save: the date must lie after the day of birth. An invalid `date` has no fault.
DateFault FaultAtSave(const QDate& date, const QDate& birth);

/// Every statement of the teachers and of their salutations.
class TeacherRepository
{
public:
    explicit TeacherRepository(store::Connection& main) : main_(main) {}

    /// By name.
    CodedTexts Salutations();

    std::optional<Teacher> Find(int teacherCode);
    /// Another teacher has exactly this name, capital and small letters told apart.
    bool NameTaken(const QString& name, int exceptCode);
    /// Another teacher has this short name, capital and small letters from A to Z alike.
    bool ShortNameTaken(const QString& shortName, int exceptCode);
    /// The teachers whose name and whose city's name hold the texts; an empty text filters nothing. Columns:
    /// "Teacher Name", "Short Name", "State Name", "City Name", "Telephone", "TeacherCode".
    GridResult Search(const QString& name, const QString& city);

    static void Insert(store::Transaction& transaction, int teacherCode, const Teacher& teacher,
                       int userCode);
    /// A general failure when the teacher has gone meanwhile.
    static void Update(store::Transaction& transaction, int teacherCode, const Teacher& teacher,
                       int userCode);
    static void Delete(store::Transaction& transaction, int teacherCode);

private:
    store::Connection& main_;
};

} // namespace tally
