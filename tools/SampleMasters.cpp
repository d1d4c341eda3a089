#include "tools/SampleMasters.h"

#include "tools/SampleNames.h"

#include <algorithm>
#include <array>

namespace tally {

namespace {

constexpr int Administrator = 1;

struct City
{
    int state; ///< counted from 1
    const char* name;
};
constexpr std::array States{"Tamil Nadu", "Kerala", "Karnataka", "Puducherry"};
constexpr std::array Cities{City{1, "Chennai"},   City{1, "Coimbatore"},  City{1, "Madurai"},
                            City{1, "Salem"},     City{1, "Tirunelveli"}, City{2, "Kochi"},
                            City{2, "Kollam"},    City{2, "Kottayam"},    City{3, "Bengaluru"},
                            City{3, "Mangaluru"}, City{3, "Mysuru"},      City{4, "Karaikal"},
                            City{4, "Puducherry"}};
constexpr std::array BloodGroups{"A+", "A-", "AB+", "AB-", "B+", "B-", "O+", "O-"};
constexpr std::array Salutations{"Mr.", "Mrs.", "Ms.", "Dr."};
constexpr std::array Exams{"First Mid Term Test",    "Quarterly Examination", "Half Yearly Examination",
                           "Annual Examination",     "Second Mid Term Test",  "Third Mid Term Test",
                           "First Revision Test",    "Second Revision Test",  "Third Revision Test",
                           "Preparatory Examination"};

struct Subject
{
    const char* name;
    const char* shortName;
};
constexpr std::array Subjects{Subject{"English", "Eng"},           Subject{"Tamil", "Tam"},
                              Subject{"Mathematics", "Maths"},     Subject{"Science", "Sci"},
                              Subject{"Social Science", "SocSci"}, Subject{"Hindi", "Hindi"},
                              Subject{"Computer Science", "Comp"}, Subject{"General Knowledge", "GK"},
                              Subject{"Moral Science", "Moral"},   Subject{"Physical Education", "PhyEd"},
                              Subject{"Physics", "Phy"},           Subject{"Chemistry", "Chem"},
                              Subject{"Biology", "Bio"},           Subject{"History", "Hist"},
                              Subject{"Geography", "Geo"},         Subject{"Economics", "Eco"},
                              Subject{"Commerce", "Comm"},         Subject{"Drawing", "Draw"},
                              Subject{"Music", "Music"},           Subject{"Environmental Studies", "EVS"}};

void InsertPlaces(store::Transaction& transaction)
{
    auto state = transaction.Prepare(QStringLiteral("INSERT INTO StateMaster VALUES (?, ?, ?)"));
    int code = 0;
    for (const char* name : States)
        state.Run(++code, name, Administrator);
    auto city = transaction.Prepare(QStringLiteral("INSERT INTO CityMaster VALUES (?, ?, ?, ?)"));
    code = 0;
    for (const City& each : Cities)
        city.Run(++code, each.state, each.name, Administrator);
}

void InsertWordLists(store::Transaction& transaction, const SampleOptions& options)
{
    auto bloodGroup = transaction.Prepare(QStringLiteral("INSERT INTO BloodGroupMaster VALUES (?, ?, ?)"));
    int code = 0;
    for (const char* name : BloodGroups)
        bloodGroup.Run(++code, name, Administrator);
    auto salutation = transaction.Prepare(QStringLiteral("INSERT INTO SalutationMaster VALUES (?, ?, ?)"));
    code = 0;
    for (const char* name : Salutations)
        salutation.Run(++code, name, Administrator);

    auto exam = transaction.Prepare(QStringLiteral("INSERT INTO ExamMaster VALUES (?, ?, ?, ?)"));
    for (int i = 0; i < options.exams; ++i)
        exam.Run(i + 1, Exams[static_cast<std::size_t>(i)], i + 1, Administrator);
    auto subject = transaction.Prepare(QStringLiteral("INSERT INTO SubjectMaster VALUES (?, ?, ?, ?)"));
    for (int i = 0; i < options.subjects; ++i) {
        const Subject& each = Subjects[static_cast<std::size_t>(i)];
        subject.Run(i + 1, each.name, each.shortName, Administrator);
    }
}

/// The initial with two letters counted up, so that no two teachers share it.
QString ShortName(const QString& name, int number)
{
    constexpr int Letters = 26;
    return name.first(1) + QLatin1Char(static_cast<char>('A' + number / Letters)) +
           QLatin1Char(static_cast<char>('A' + number % Letters));
}

void InsertTeachers(store::Transaction& transaction, int count, SampleRandom& random)
{
    constexpr std::array Degrees{"B.A., B.Ed.", "B.Sc., B.Ed.", "M.A., B.Ed.", "M.Sc., M.Ed.", "M.Phil."};
    auto insert = transaction.Prepare(QStringLiteral(
        "INSERT INTO TeacherMaster VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '', ?, ?, ?, ?, ?, ?)"));
    for (int i = 0; i < count; ++i) {
        const SamplePerson person = InventPerson(random);
        const bool married = !random.OneIn(3);
        const QDate birth(random.Between(1966, 1997), random.Between(1, 12), random.Between(1, 28));
        const QDate joining = birth.addYears(random.Between(23, 28)).addDays(random.Below(200));
        const QDate wedding = married ? birth.addYears(26).addDays(random.Below(700)) : QDate();
        const int salutation = !person.girl ? 1 : married ? 2 : 3;
        const QString father = InventFather(random, person.familyName);
        const QString street = InventStreet(random);
        const int city = random.Between(1, static_cast<int>(Cities.size()));
        const QString pinCode = QString::number(random.Between(600001, 695999));
        const QString telephone = QString::number(random.Between(2200000, 2899999));
        const int bloodGroup = random.Below(static_cast<int>(BloodGroups.size()) + 1);
        const char* degree =
            Degrees[static_cast<std::size_t>(random.Below(static_cast<int>(Degrees.size())))];
        insert.Run(i + 1, salutation, person.name, ShortName(person.name, i), birth, married ? "M" : "S",
                   wedding, joining, father, street, city, pinCode, telephone, bloodGroup, degree,
                   Administrator);
    }
}

void InsertSchool(store::Transaction& transaction)
{
    constexpr int Months = 12;
    constexpr int FirstMonth = 6;
    for (int i = 0; i < Months; ++i)
        transaction.Execute(QStringLiteral("UPDATE MonthMaster SET MonthCode = ? WHERE MonthSlNo = ?"), i + 1,
                            (FirstMonth - 1 + i) % Months + 1);
    const char* name = "Silver Oak Higher Secondary School";
    const char* address1 = "14, Lake Road";
    const char* address2 = "Park Town";
    transaction.Execute(QStringLiteral("INSERT INTO SchoolMaster VALUES (?, ?, ?, 1, '600003', 'JUN', ?)"),
                        name, address1, address2, Administrator);
    transaction.Execute(QStringLiteral("INSERT INTO SchoolSetUp VALUES (?, ?, ?, 1, '600003')"), name,
                        address1, address2);
    transaction.Execute(QStringLiteral("INSERT INTO Options VALUES ('Y', 'Y', ?, 'A', 'N', 'N')"),
                        QDate(2020, 5, 31));
}

} // namespace

SampleMasters InsertSampleMasters(store::Transaction& transaction, const SampleOptions& options,
                                  SampleRandom& random)
{
    constexpr int FewestTeachers = 12;
    constexpr int TeachersPerSubject = 3;
    const int teachers = std::max(FewestTeachers, options.subjects * TeachersPerSubject);
    InsertPlaces(transaction);
    InsertWordLists(transaction, options);
    InsertTeachers(transaction, teachers, random);
    InsertSchool(transaction);
    return {static_cast<int>(Cities.size()), static_cast<int>(BloodGroups.size()), teachers};
}

} // namespace tally
