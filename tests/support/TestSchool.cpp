#include "support/TestSchool.h"

#include <stdexcept>

namespace tally::test {

namespace {

std::size_t NumberOf(const RankList& list, const QString& name)
{
    for (std::size_t number = 0; number < list.rows.size(); ++number) {
        if (list.rows[number].studentName == name)
            return number;
    }
    throw std::runtime_error("The list has no student " + name.toStdString());
}

} // namespace

TestSchool::TestSchool()
    : ownMain_(std::make_unique<store::Connection>(DeliveredMainStore())),
      ownTemp_(std::make_unique<store::Connection>(DeliveredTempStore())), main(*ownMain_), temp(*ownTemp_)
{
    OpenYear();
}

TestSchool::TestSchool(store::Connection& onMain, store::Connection& onTemp) : main(onMain), temp(onTemp)
{
    OpenYear();
}

void TestSchool::OpenYear()
{
    main.Execute(QStringLiteral(
        "Insert into AcademicYearSetup values(1,2024,2025,'2024-06-01','2025-05-31','Y','N',0)"));
    main.Execute(QStringLiteral("Insert into ExamMaster values(1,'Term One',1,0)"));
    main.Execute(QStringLiteral("Insert into ClassDivisionMaster values(1,'X',9,1,0)"));
}

void TestSchool::AddDivision(int divisionCode, const char* name)
{
    main.Execute(QStringLiteral("Insert into ClassDivisionDetails values(1,?,?)"), name, divisionCode);
}

void TestSchool::AddSubject(int divisionCode, int subjectCode, const char* shortName, int slNo,
                            const char* takenForRank, double maximumMark, double maximumAllowed)
{
    main.Execute(QStringLiteral("Insert or ignore into SubjectMaster values(?,?,?,0)"), subjectCode,
                 QStringLiteral("Subject %1").arg(subjectCode), shortName);
    main.Execute(QStringLiteral("Insert into ClassSubjectTeacher values(1,1,?,?,0,?,?,?,?)"), divisionCode,
                 subjectCode, maximumMark, maximumAllowed, takenForRank, slNo);
}

void TestSchool::AddBand(int divisionCode, double totalAverage, double subjectAverage, const char* grade,
                         int status)
{
    main.Execute(QStringLiteral("Insert into RankMaster values(1,1,1,?,?,?,?,?,0)"), divisionCode,
                 totalAverage, subjectAverage, grade, status);
}

void TestSchool::AddUsualBands(int divisionCode)
{
    AddBand(divisionCode, 80, 50, "A", 1);
    AddBand(divisionCode, 60, 40, "B", 2);
    AddBand(divisionCode, 35, 20, "C", 3);
    AddBand(divisionCode, 0, 0, "D", 4);
}

void TestSchool::AddUsualDivision(int subjectCount)
{
    static const char* const shortNames[] = {"Eng", "Mat", "Sci", "Art"};
    AddDivision(1, "A");
    AddUsualBands(1);
    for (int subject = 1; subject <= subjectCount; ++subject)
        AddSubject(1, subject, shortNames[subject - 1], subject);
}

int TestSchool::AddStudent(int divisionCode, const QString& name, const QString& admissionNo)
{
    const int code = static_cast<int>(divisionOf_.size()) + 1;
    divisionOf_[code] = divisionCode;
    main.Execute(
        QStringLiteral("Insert into StudentMaster(StudentCode,AdmissionNo,OptionalAdmissionNo,StudentName,"
                       "AcademicYearCode,CityCode,BloodGroupCode,TCNo) values(?,?,?,?,1,0,0,'')"),
        code, code, admissionNo.isEmpty() ? QStringLiteral("A%1").arg(code) : admissionNo, name);
    main.Execute(QStringLiteral("Insert into StudentClassDivision values(?,1,1,?,'Y',0)"), code,
                 divisionCode);
    return code;
}

void TestSchool::InsertMark(int studentCode, int subjectCode, double mark, const char* leaveOrPresent)
{
    main.Execute(QStringLiteral("Insert into MarkMaster values(1,?,1,1,?,?,?,?,0,0)"), studentCode,
                 divisionOf_.at(studentCode), subjectCode, mark, leaveOrPresent);
}

void TestSchool::EnterMark(int studentCode, int subjectCode, double mark)
{
    InsertMark(studentCode, subjectCode, mark, "P");
}

void TestSchool::EnterAbsence(int studentCode, int subjectCode)
{
    InsertMark(studentCode, subjectCode, 0, "A");
}

int TestSchool::AddMarkedStudent(const QString& name, const std::vector<double>& marks)
{
    const int student = AddStudent(1, name);
    int subject = 0;
    for (const double mark : marks)
        EnterMark(student, ++subject, mark);
    return student;
}

RankList TestSchool::Prepare(const std::vector<int>& divisions)
{
    RankList list = Compute(divisions);
    store::Transaction transaction(temp);
    TempRankRepository::FillTempRankCalculation(transaction, list);
    transaction.Commit();
    return list;
}

GridTable TestSchool::Show(const RankList& list, RankOrder order, SubjectDisplay display)
{
    std::vector<int> divisions;
    for (const SchoolDivision& division : list.divisions)
        divisions.push_back(division.divisionCode);
    TempRankRepository working = WorkingTable();
    return ShowRankList(working, divisions, list.subjects, order,
                        Repository().LoadGradesInOrder(scope, divisions), display);
}

void TestSchool::Save(const std::vector<int>& divisions)
{
    store::Transaction transaction(main);
    RankRepository::ReplaceRankTotals(transaction, scope, divisions, WorkingTable().LoadRankTotals());
    transaction.Commit();
}

const RankRow& RowOf(const RankList& list, const QString& name)
{
    return list.rows[NumberOf(list, name)];
}

const RankCell& CellOf(const RankList& list, const QString& name, std::size_t subject)
{
    return list.Cell(NumberOf(list, name), subject);
}

QString StoredCell(const RankList& list, const QString& name, std::size_t subject)
{
    CellBuffer buffer{};
    const std::string_view text = CellText(CellOf(list, name, subject), list.markDecimals, true, buffer);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

int StudentCount(const GridTable& view)
{
    return view.Rows() - RankListRows::FirstStudent - RankListRows::BelowStudents;
}

int AverageRow(const GridTable& view)
{
    return view.Rows() - 2;
}

QStringList NamesOf(const GridTable& view)
{
    QStringList names;
    for (int student = 0; student < StudentCount(view); ++student)
        names.append(view.Text(RankListRows::FirstStudent + student, 0));
    return names;
}

int RowOf(const GridTable& view, const QString& name)
{
    const auto student = NamesOf(view).indexOf(name);
    return student < 0 ? -1 : RankListRows::FirstStudent + static_cast<int>(student);
}

} // namespace tally::test
