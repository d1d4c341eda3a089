#pragma once

#include "core/GridResult.h"
#include "store/Connection.h"

#include <QDate>
#include <QString>

namespace tally {

/// By what students are looked for. Empty texts, codes 0 and invalid dates filter nothing.
struct StudentFilters
{
    QString admissionNo; ///< a part of the number that screens show
    QString name;        ///< a part of the name
    int stateCode = 0;
    int cityCode = 0;
    QDate admittedFrom; ///< these two days included
    QDate admittedTo;

    bool AreEmpty() const
    {
        return admissionNo.isEmpty() && name.isEmpty() && stateCode == 0 && cityCode == 0 &&
               !admittedFrom.isValid() && !admittedTo.isValid();
    }
};

/// The statement by which frmMasStudentMasterSearch finds students.
class StudentSearchRepository
{
public:
    /// `main` must outlive the repository.
    explicit StudentSearchRepository(store::Connection& main) : main_(main) {}

    /// The students by name, relieved ones included. Columns: "StudentCode", "Admission No", "Admission
    /// Date", "Student Name", "Telephone", "State Name", "City Name", "CityCode".
    GridResult Search(const StudentFilters& filters);

private:
    store::Connection& main_;
};

} // namespace tally
