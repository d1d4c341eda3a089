#include "tools/SampleSchool.h"

#include "tools/SampleMasters.h"
#include "tools/SampleNames.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tally {

namespace {

constexpr int OfficeUser = 2;
constexpr int TeacherUser = 3;
constexpr int ActiveYearFrom = 2025;
constexpr int FirstAdmissionNo = 1001;
constexpr int MostSubjects = 20;
constexpr int MostExams = 10;
constexpr int MostClasses = 98;
constexpr int MostDivisions = 97;
/// The two of the lowest class that are not ready for work.
constexpr int UnfinishedDivisions = 2;
constexpr int StudentsWithoutSubjects = 5;

struct Student
{
    int code;
    int ability; ///< the percentage around which the marks lie
};

struct SubjectOfDivision
{
    int code;
    int teacher;
    int maximumMark;
};

/// One class and division. Its students were in the class below, in the division of the same name, the year
/// before.
struct Division
{
    int classIndex; ///< 0 is the highest class
    int divisionCode;
    QVector<Student> students;
    QVector<Student> studentsOfYearBefore;
    QVector<SubjectOfDivision> subjects;

    int ClassCode() const { return classIndex + 1; }
};

QString ClassName(int standard, int classes)
{
    constexpr std::array Roman{"I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX", "X", "XI", "XII"};
    return static_cast<std::size_t>(classes) <= Roman.size()
               ? QString::fromLatin1(Roman[static_cast<std::size_t>(standard - 1)])
               : QString::number(standard);
}

/// A to Z, AA to AZ, BA to BZ, CA and so on.
QString DivisionName(int number)
{
    constexpr int Letters = 26;
    const auto letter = [](int index) { return QString(QLatin1Char(static_cast<char>('A' + index))); };
    const int round = (number - 1) / Letters;
    const QString last = letter((number - 1) % Letters);
    return round == 0 ? last : letter(round - 1) + last;
}

class School
{
public:
    School(store::Transaction& transaction, const SampleOptions& options)
        : transaction_(transaction), options_(options), random_(options.seed)
    {}

    void Fill()
    {
        InsertSampleUsers(transaction_);
        masters_ = InsertSampleMasters(transaction_, options_, random_);
        InsertCalendar();
        InsertClasses();
        AdmitStudents();
        for (Division& division : divisions_) {
            ChooseSubjects(division);
            for (int year = 1; year <= options_.years; ++year)
                InsertYear(division, year);
        }
        InsertUnfinishedDivisions();
    }

private:
    bool IsActive(int year) const { return year == options_.years; }
    int YearFrom(int year) const { return ActiveYearFrom - (options_.years - year); }
    bool HasUnfinishedDivisions() const { return options_.classes > 1 && options_.divisions > 1; }

    void InsertCalendar()
    {
        auto insertYear = transaction_.Prepare(
            QStringLiteral("INSERT INTO AcademicYearSetup VALUES (?, ?, ?, ?, ?, ?, ?, 1)"));
        auto insertDay = transaction_.Prepare(QStringLiteral("INSERT INTO ApplicationDate VALUES (?, 1)"));
        for (int year = 1; year <= options_.years; ++year) {
            const QDate from(YearFrom(year), 6, 1);
            const QDate to = from.addYears(1).addDays(-1);
            insertYear.Run(year, from.year(), to.year(), from, to, IsActive(year) ? "Y" : "N",
                           IsActive(year) ? "N" : "Y");
            for (QDate day = from; day <= (IsActive(year) ? Today() : to); day = day.addDays(1))
                insertDay.Run(day);
        }
    }

    static QDate Today() { return {ActiveYearFrom + 1, 3, 16}; }

    void InsertClasses()
    {
        auto insertClass =
            transaction_.Prepare(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (?, ?, ?, ?, 1)"));
        auto insertDivision =
            transaction_.Prepare(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (?, ?, ?)"));
        for (int i = 0; i < options_.classes; ++i) {
            const bool lowest = i == options_.classes - 1;
            const int count =
                options_.divisions + (lowest && HasUnfinishedDivisions() ? UnfinishedDivisions : 0);
            insertClass.Run(i + 1, ClassName(options_.classes - i, options_.classes), count, i + 1);
            for (int code = 1; code <= count; ++code)
                insertDivision.Run(i + 1, DivisionName(code), code);
            for (int code = 1; code <= options_.divisions; ++code)
                divisions_.append({i, code, {}, {}, {}});
        }
    }

    /// The oldest are admitted first, so that numbers grow as the classes go down.
    void AdmitStudents()
    {
        const bool withYearBefore = options_.years > 1;
        if (withYearBefore) {
            for (int i = 0; i < options_.divisions; ++i)
                divisions_[i].studentsOfYearBefore =
                    AdmitGroup(options_.students, 0, 1, Leaving::AfterLastYear);
        }
        for (Division& division : divisions_) {
            const bool lowest = division.classIndex == options_.classes - 1;
            const int year = withYearBefore && lowest ? options_.years : 1;
            const bool oneLeaves = (division.classIndex + division.divisionCode) % 3 == 1;
            division.students = AdmitGroup(options_.students, division.classIndex, year,
                                           oneLeaves ? Leaving::OneOfThem : Leaving::None);
        }
        if (!withYearBefore)
            return;
        for (qsizetype i = options_.divisions; i < divisions_.size(); ++i)
            divisions_[i].studentsOfYearBefore = divisions_[i - options_.divisions].students;
    }

    enum class Leaving
    {
        None,
        OneOfThem,
        AfterLastYear,
    };

    QVector<Student> AdmitGroup(int count, int classIndex, int year, Leaving leaving)
    {
        QVector<Student> group;
        group.reserve(count);
        for (int i = 0; i < count; ++i) {
            const int code = ++lastStudent_;
            InsertStudent(code, classIndex, year);
            if (leaving == Leaving::AfterLastYear)
                Relieve(code, QDate(ActiveYearFrom, 5, 30), "Completed Studies");
            else if (leaving == Leaving::OneOfThem && i == count / 2)
                Relieve(code, Today(), "Parents Moved To Another City");
            group.append({code, std::clamp(63 + random_.Around(22), 12, 96)});
        }
        return group;
    }

    void InsertStudent(int code, int classIndex, int year)
    {
        constexpr int FirstAge = 6;
        constexpr int LastAge = 17;
        constexpr int HandNumbered = 20;
        const SamplePerson person = InventPerson(random_);
        const QString father = InventFather(random_, person.familyName);
        const QString street = InventStreet(random_);
        const int age = std::min(FirstAge + options_.classes - 1 - classIndex, LastAge);
        const QDate birth = QDate(ActiveYearFrom - age - 1, 6, 1).addDays(random_.Below(365));
        const QDate admission(YearFrom(year), 6, random_.Between(1, 10));
        const int city = random_.Between(1, masters_.cities);
        const QString pinCode = QString::number(random_.Between(600001, 695999));
        const QString telephone = QString::number(random_.Between(2200000, 2899999));
        const int bloodGroup = random_.Below(masters_.bloodGroups + 1);
        const int number = FirstAdmissionNo + code - 1;
        const bool numberedByHand = random_.OneIn(HandNumbered);
        const QString shownNumber =
            numberedByHand ? QStringLiteral("SO-%1").arg(number) : QString::number(number);
        if (!insertStudent_)
            insertStudent_ =
                transaction_.Prepare(QStringLiteral("INSERT INTO StudentMaster VALUES (?, ?, ?, ?, ?, ?, ?, "
                                                    "?, ?, '', ?, ?, ?, ?, ?, ?, ?, NULL, '', '',"
                                                    " NULL, ?)"));
        insertStudent_->Run(code, number, shownNumber, admission, year, person.name, father,
                            person.girl ? "F" : "M", street, city, pinCode, telephone,
                            QStringLiteral("s%1@silveroak.example").arg(number), birth, bloodGroup,
                            numberedByHand ? "N" : "Y", OfficeUser);
    }

    void Relieve(int student, const QDate& date, const char* reason)
    {
        transaction_.Execute(
            QStringLiteral("UPDATE StudentMaster SET RelievingDate = ?, RelievingReason = ?, TCNo = ?,"
                           " TCDate = ? WHERE StudentCode = ?"),
            date, reason, QStringLiteral("TC/%1").arg(++lastCertificate_), date, student);
    }

    /// The lower classes take fewer subjects; the last one or two do not count for the rank.
    void ChooseSubjects(Division& division)
    {
        const int fewer = 3 * division.classIndex / options_.classes;
        const int count = std::max(1, options_.subjects - fewer);
        for (int code = 1; code <= count; ++code) {
            const int teacher = random_.Between(1, masters_.teachers);
            division.subjects.append({code, teacher, TakenForRank(division, code, count) ? 100 : 50});
        }
    }

    static bool TakenForRank(const Division& division, int subject, int subjects)
    {
        constexpr int EnoughSubjects = 5;
        const int left = subjects < EnoughSubjects ? 0 : 1 + division.classIndex % 2;
        return subject <= subjects - left;
    }

    void InsertYear(const Division& division, int year)
    {
        const QVector<Student>& students = IsActive(year) ? division.students : division.studentsOfYearBefore;
        const bool promoted = !IsActive(year) && division.classIndex > 0;
        PlaceStudents(students, year, division.ClassCode(), division.divisionCode, promoted ? "N" : "Y");
        InsertSubjects(division, year);
        for (int exam = 1; exam <= options_.exams; ++exam) {
            const bool inProgress = IsActive(year) && exam == options_.exams;
            if (!(inProgress && GradesMissing(division)))
                InsertGrades(division, year, exam);
            InsertMarks(division, students, year, exam,
                        inProgress ? SubjectsMarkedSoFar(division)
                                   : static_cast<int>(division.subjects.size()));
        }
    }

    bool GradesMissing(const Division& division) const
    {
        return HasUnfinishedDivisions() && division.classIndex == 0 &&
               division.divisionCode == options_.divisions;
    }

    /// Of the exam that is being written: all, half or none.
    int SubjectsMarkedSoFar(const Division& division) const
    {
        const int subjects = static_cast<int>(division.subjects.size());
        switch ((division.classIndex + division.divisionCode - 1) % 3) {
        case 0: return subjects;
        case 1: return subjects / 2;
        default: return 0;
        }
    }

    void PlaceStudents(const QVector<Student>& students, int year, int classCode, int divisionCode,
                       const char* status)
    {
        auto insert = transaction_.Prepare(
            QStringLiteral("INSERT INTO StudentClassDivision VALUES (?, ?, ?, ?, ?, ?)"));
        for (const Student& student : students)
            insert.Run(student.code, year, classCode, divisionCode, status, OfficeUser);
    }

    void InsertSubjects(const Division& division, int year)
    {
        auto insert = transaction_.Prepare(
            QStringLiteral("INSERT INTO ClassSubjectTeacher VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"));
        const int count = static_cast<int>(division.subjects.size());
        for (const SubjectOfDivision& subject : division.subjects)
            insert.Run(year, division.ClassCode(), division.divisionCode, subject.code, subject.teacher,
                       subject.maximumMark, subject.maximumMark,
                       TakenForRank(division, subject.code, count) ? "Yes" : "No", subject.code);
    }

    void InsertGrades(const Division& division, int year, int exam)
    {
        struct Band
        {
            int totalAverage;
            int subjectAverage;
            const char* grade;
        };
        constexpr std::array Bands{Band{90, 80, "A+"}, Band{80, 70, "A"}, Band{70, 60, "B+"},
                                   Band{60, 50, "B"},  Band{50, 40, "C"}, Band{35, 35, "D"},
                                   Band{0, 0, "F"}};
        auto insert = transaction_.Prepare(
            QStringLiteral("INSERT INTO RankMaster VALUES (?, ?, ?, ?, ?, ?, ?, ?, NULL)"));
        int row = 0;
        for (const Band& band : Bands)
            insert.Run(year, exam, division.ClassCode(), division.divisionCode, band.totalAverage,
                       band.subjectAverage, band.grade, ++row);
    }

    void InsertMarks(const Division& division, const QVector<Student>& students, int year, int exam,
                     int subjects)
    {
        constexpr int Absence = 50;
        constexpr int Tie = 12;
        auto present = transaction_.Prepare(
            QStringLiteral("INSERT INTO MarkMaster VALUES (?, ?, ?, ?, ?, ?, ?, 'P', ?, ?)"));
        auto absent = transaction_.Prepare(
            QStringLiteral("INSERT INTO MarkMaster VALUES (?, ?, ?, ?, ?, ?, 0, 'A', ?, ?)"));
        QVector<int> marks(subjects);
        for (const Student& student : students) {
            const bool likeTheOneBefore = random_.OneIn(Tie);
            for (int i = 0; i < subjects; ++i) {
                const SubjectOfDivision& subject = division.subjects[i];
                if (!likeTheOneBefore)
                    marks[i] = Mark(student, subject);
                if (random_.OneIn(Absence))
                    absent.Run(year, student.code, exam, division.ClassCode(), division.divisionCode,
                               subject.code, subject.teacher, TeacherUser);
                else
                    present.Run(year, student.code, exam, division.ClassCode(), division.divisionCode,
                                subject.code, marks[i], subject.teacher, TeacherUser);
            }
        }
    }

    int Mark(const Student& student, const SubjectOfDivision& subject)
    {
        const int easiness = subject.code * 7 % 11 - 5;
        const int percent = std::clamp(student.ability + easiness + random_.Around(12), 2, 100);
        return percent * subject.maximumMark / 100;
    }

    void InsertUnfinishedDivisions()
    {
        if (!HasUnfinishedDivisions())
            return;
        const int lowest = options_.classes;
        const int withoutStudents = options_.divisions + 1;
        const int withoutSubjects = options_.divisions + 2;
        Division planned = divisions_.last();
        planned.divisionCode = withoutStudents;
        InsertSubjects(planned, options_.years);
        const auto students = AdmitGroup(StudentsWithoutSubjects, lowest - 1, options_.years, Leaving::None);
        PlaceStudents(students, options_.years, lowest, withoutSubjects, "Y");
    }

    store::Transaction& transaction_;
    SampleOptions options_;
    SampleRandom random_;
    SampleMasters masters_;
    QVector<Division> divisions_;
    std::optional<store::Statement> insertStudent_;
    int lastStudent_ = 0;
    int lastCertificate_ = 0;
};

} // namespace

QString SampleObjection(const SampleOptions& options)
{
    const auto outside = [](int value, int high) { return value < 1 || value > high; };
    if (outside(options.classes, MostClasses))
        return QStringLiteral("The number of classes must be 1 to %1").arg(MostClasses);
    if (outside(options.divisions, MostDivisions))
        return QStringLiteral("The number of divisions must be 1 to %1").arg(MostDivisions);
    if (outside(options.subjects, MostSubjects))
        return QStringLiteral("The number of subjects must be 1 to %1").arg(MostSubjects);
    if (outside(options.exams, MostExams))
        return QStringLiteral("The number of exams must be 1 to %1").arg(MostExams);
    if (outside(options.years, 2))
        return QStringLiteral("The number of years must be 1 or 2");
    constexpr int MostStudents = 100000;
    if (outside(options.students, MostStudents))
        return QStringLiteral("The number of students must be 1 to %1").arg(MostStudents);
    return {};
}

void FillSampleSchool(store::Transaction& transaction, const SampleOptions& options)
{
    School(transaction, options).Fill();
}

} // namespace tally
