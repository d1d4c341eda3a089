#include "store/Tables.h"

#include "store/Dialect.h"
#include "store/TableDefinition.h"

#include <span>

namespace tally::store {

namespace {

constexpr auto YesNo = "'Y', 'N'";
constexpr auto YesNoOrBlank = "'Y', 'N', ''";
constexpr auto ToClassDivision = "FOREIGN KEY (ClassCode, DivisionCode) REFERENCES ClassDivisionDetails";

// clang-format off

void CreateReferenceMasters(Transaction& transaction)
{
    CreateTable(transaction, "StateMaster", {
        Long("StateCode").Key(),
        Text("StateName", 30),
        Integer("UserCode")});
    CreateTable(transaction, "CityMaster", {
        Long("CityCode").Key(),
        Long("StateCode").To("StateMaster"),
        Text("CityName", 30),
        Integer("UserCode")});
    CreateTable(transaction, "BloodGroupMaster", {
        Long("BloodGroupCode").Key(),
        Text("BloodGroupName", 5),
        Integer("UserCode")});
    CreateTable(transaction, "SalutationMaster", {
        Long("SalutationCode").Key(),
        Text("SalutationName", 5),
        Integer("UserCode")});
    CreateTable(transaction, "ExamMaster", {
        Long("ExamCode").Key(),
        Text("ExamName", 50),
        Long("ExamOrder").Unique().Between(0, 99999),
        Integer("UserCode")});
    CreateTable(transaction, "SubjectMaster", {
        Long("SubjectCode").Key(),
        Text("SubjectName", 25),
        Text("SubjectShortName", 6),
        Integer("UserCode")});
    CreateTable(transaction, "TeacherMaster", {
        Long("TeacherCode").Key(),
        Long("SalutationCode").To("SalutationMaster"),
        Text("TeacherName", 100),
        Text("TeacherShortName", 3).Unique(),
        Date("DOB"),
        Text("MaritalStatus", 1).In("'M', 'S', ''"),
        Date("WeddingDate"),
        Date("JoiningDate"),
        Text("FHName", 100),
        Text("Address1", 100),
        Text("Address2", 100),
        Long("CityCode").To("CityMaster"),
        Text("PinCode", 15),
        Text("Telephone", 20),
        Long("BloodGroupCode").To("BloodGroupMaster"),
        Text("Qualification", 50),
        Integer("UserCode")});
    // The order of the classes is not unique here: a save moves the classes one after the other, and the
    // screen renumbers a tie that is left.
    CreateTable(transaction, "ClassDivisionMaster", {
        Long("ClassCode").Key(),
        Text("ClassName", 4),
        Integer("NoOfDivisions").Between(0, 99),
        Integer("ClassOrder"),
        Integer("UserCode")});
    CreateTable(transaction, "ClassDivisionDetails", {
        Long("ClassCode").To("ClassDivisionMaster"),
        Text("DivisionName", 3),
        Long("DivisionCode")},
        {"PRIMARY KEY (ClassCode, DivisionCode)"});
    CreateTable(transaction, "MonthMaster", {
        Integer("MonthSlNo").Key().Between(1, 12),
        Text("MonthShortName", 3),
        Integer("MonthCode")});
    CreateTable(transaction, "SchoolMaster", {
        Text("SchoolName", 100),
        Text("SAddress1", 100),
        Text("SAddress2", 100),
        Long("CCityCode").To("CityMaster"),
        Text("CPinCode", 10),
        Text("MonthShortName", 3),
        Integer("UserCode")});
    CreateTable(transaction, "SchoolSetUp", {
        Text("SchoolName", 100),
        Text("Address1", 100),
        Text("Address2", 100),
        Long("CityCode").To("CityMaster"),
        Text("PinCode", 10)});
}

void CreateCalendarAndSession(Transaction& transaction)
{
    CreateTable(transaction, "AcademicYearSetup", {
        Integer("AcademicYearCode").Key(),
        Integer("YearFrom").Between(1980, 2099),
        Integer("YearTo").Between(1980, 2099),
        Date("FromDate"),
        Date("ToDate"),
        Text("Status", 1).In(YesNo),
        Text("Processed", 1).In(YesNo),
        Integer("UserCode")});
    CreateTable(transaction, "ApplicationDate", {
        Date("ApplicationDate").Key(),
        Integer("UserCode")});
    CreateTable(transaction, "Options", {
        Text("ExitPrompt", 1).In(YesNoOrBlank),
        Text("AdmissionNoAutoGen", 1).In(YesNoOrBlank),
        Date("DateOfBirthSetting"),
        Text("GenderOption", 1).In("'M', 'F', 'A', ''"),
        Text("MarksInFraction", 1).In(YesNoOrBlank),
        Text("MarksRounded", 1).In(YesNoOrBlank)});
    CreateTable(transaction, "ScreenStatus", {
        Text("Screen", 50).Key()});
    CreateTable(transaction, "AccessedDate", {
        Date("AccessedDate")});
    CreateTable(transaction, "ExamBoardMaster", {
        Long("BoardCode"),
        Long("BoardNo"),
        Text("Status", 1)});
    CreateTable(transaction, "ControlFileMaster", {
        Text("ID", 50),
        Long("NextNo")});
    CreateTable(transaction, "MRCODE", {
        Text("MRCODE", 20)});
}

void CreateUsers(Transaction& transaction)
{
    CreateTable(transaction, "UserMaster", {
        Long("UserCode").Key(),
        Text("UserName", 50),
        Integer("EnteredBy")});
    CreateTable(transaction, "UserPrivilegeMaster", {
        Long("UserCode").Key().To("UserMaster"),
        Text("LoginId", 15).Unique(),
        Text("Password", 15),
        Text("Block", 1).In(YesNo),
        Integer("EnteredBy"),
        Integer("Days").Between(0, 365)});
    CreateTable(transaction, "UserPrivilegeDetails", {
        Text("FormName", 50),
        Text("ButtonName", 1),
        Long("UserCode").To("UserMaster")});
}

void CreateStudentsAndMarks(Transaction& transaction)
{
    CreateTable(transaction, "StudentMaster", {
        Long("StudentCode").Key(),
        Long("AdmissionNo").Unique().Between(0, 999999999),
        Text("OptionalAdmissionNo", 15).Unique(),
        Date("AdmissionDate"),
        Integer("AcademicYearCode").To("AcademicYearSetup"),
        Text("StudentName", 100),
        Text("FgName", 100),
        Text("Sex", 1).In("'M', 'F', ''"),
        Text("Address1", 100),
        Text("Address2", 100),
        Long("CityCode").To("CityMaster"),
        Text("Pincode", 15),
        Text("Telephone", 20),
        Text("Email", 50),
        Date("DOB"),
        Long("BloodGroupCode").To("BloodGroupMaster"),
        Text("ManGenAutoGen", 1).In(YesNoOrBlank),
        Date("RelievingDate"),
        Text("RelievingReason", 100),
        Text("TCNo", 15),
        Date("TCDate"),
        Integer("UserCode")});
    CreateTable(transaction, "StudentClassDivision", {
        Long("StudentCode").To("StudentMaster"),
        Integer("AcademicYearCode").To("AcademicYearSetup"),
        Long("ClassCode"),
        Long("DivisionCode"),
        Text("Status", 1).In(YesNo),
        Integer("UserCode")},
        {"PRIMARY KEY (StudentCode, AcademicYearCode)", ToClassDivision});
    CreateTable(transaction, "ClassSubjectTeacher", {
        Integer("AcademicYearCode").To("AcademicYearSetup"),
        Long("ClassCode"),
        Long("DivisionCode"),
        Long("SubjectCode").To("SubjectMaster"),
        Long("TeacherCode").To("TeacherMaster"),
        Double("MaximumMark"),
        Double("MaximumAllowed"),
        Text("TakenForRank", 3).In("'Yes', 'No'"),
        Integer("SlNo").Between(0, 99999)},
        {"PRIMARY KEY (ClassCode, DivisionCode, AcademicYearCode, SubjectCode)", ToClassDivision});
    CreateTable(transaction, "RankMaster", {
        Integer("AcademicYearCode").To("AcademicYearSetup"),
        Long("ExamCode").To("ExamMaster"),
        Long("ClassCode"),
        Long("DivisionCode"),
        Double("TotalAverage"),
        Double("SubjectAverage"),
        Text("Grade", 2),
        Integer("Status"),
        Integer("UserCode")},
        {ToClassDivision});
    CreateTable(transaction, "MarkMaster", {
        Integer("AcademicYearCode").To("AcademicYearSetup"),
        Long("StudentCode").To("StudentMaster"),
        Long("ExamCode").To("ExamMaster"),
        Long("ClassCode"),
        Long("DivisionCode"),
        Long("SubjectCode").To("SubjectMaster"),
        Double("Mark"),
        Text("LeaveOrPresent", 1).In("'P', 'A'"),
        Long("TeacherCode").To("TeacherMaster"),
        Integer("UserCode")},
        {"PRIMARY KEY (ClassCode, DivisionCode, AcademicYearCode, ExamCode, StudentCode, SubjectCode)",
         ToClassDivision});
    CreateTable(transaction, "TempRankTotal", {
        Long("StudentCode").To("StudentMaster"),
        Integer("AcademicYearCode").To("AcademicYearSetup"),
        Long("ExamCode").To("ExamMaster"),
        Long("ClassCode"),
        Long("DivisionCode"),
        Double("Total"),
        Double("Average"),
        Long("Rank"),
        Text("Grade", 2)},
        {"PRIMARY KEY (ClassCode, DivisionCode, AcademicYearCode, ExamCode, StudentCode)", ToClassDivision});
    CreateTable(transaction, "TransactionMaster", {
        Long("TransactionCode").Key(),
        Date("TransactionDate"),
        Long("StudentCode").To("StudentMaster"),
        Integer("AcademicYearCode").To("AcademicYearSetup"),
        Double("Amount"),
        Text("DeleteStatus", 1).In(YesNo),
        Integer("UserCode")});
    CreateTable(transaction, "FeesSetup", {
        Long("FeesCode").Key(),
        Long("ClassCode").To("ClassDivisionMaster"),
        Text("FeesName", 50),
        Double("Amount"),
        Integer("UserCode")});
}

// clang-format on

void CreateIndexes(Transaction& transaction, std::span<const char* const> indexes)
{
    for (const char* index : indexes)
        transaction.Execute(QStringLiteral("CREATE INDEX ") + QLatin1String(index));
}

/// The keys of the tables of marks and ranks begin with class and division, so they serve the lists of a
/// class-division and the refusal to delete one. What is left are the ways in by class within a year, by
/// student and by user. What guards deletes stands below.
void CreateListIndexes(Transaction& transaction)
{
    const char* const indexes[] = {
        "ClassStudents ON StudentClassDivision (ClassCode, DivisionCode, AcademicYearCode, Status)",
        "ClassGrades ON RankMaster (ClassCode, DivisionCode, AcademicYearCode, ExamCode, Status)",
        "StudentMarks ON MarkMaster (StudentCode, AcademicYearCode)",
        "UserRights ON UserPrivilegeDetails (UserCode, FormName, ButtonName)",
        "StateCities ON CityMaster (StateCode)",
        "CityStudents ON StudentMaster (CityCode)",
    };
    CreateIndexes(transaction, indexes);
}

} // namespace

void CreateGuardIndexes(Transaction& transaction)
{
    // Where a table's own key leads to a list, a column that no list asks for stands behind the code, so that
    // the engine keeps to the key: there the rows of a class-division lie together. The tables of the
    // school's own details have one row and need no index.
    const char* const indexes[] = {
        "YearAdmissions ON StudentMaster (AcademicYearCode)",
        "YearStudents ON StudentClassDivision (AcademicYearCode)",
        "YearSubjects ON ClassSubjectTeacher (AcademicYearCode, TeacherCode)",
        "YearGrades ON RankMaster (AcademicYearCode)",
        "YearMarks ON MarkMaster (AcademicYearCode, UserCode)",
        "YearRanks ON TempRankTotal (AcademicYearCode, Grade)",
        "YearTransactions ON TransactionMaster (AcademicYearCode)",
        "ExamGrades ON RankMaster (ExamCode, UserCode)",
        "ExamMarks ON MarkMaster (ExamCode, AcademicYearCode, UserCode)",
        "ExamRanks ON TempRankTotal (ExamCode, Grade)",
        "SubjectClasses ON ClassSubjectTeacher (SubjectCode)",
        "SubjectMarks ON MarkMaster (SubjectCode, UserCode)",
        "TeacherSubjects ON ClassSubjectTeacher (TeacherCode)",
        "TeacherMarks ON MarkMaster (TeacherCode)",
        "StudentRanks ON TempRankTotal (StudentCode, AcademicYearCode)",
        "StudentTransactions ON TransactionMaster (StudentCode, AcademicYearCode)",
        "BloodGroupStudents ON StudentMaster (BloodGroupCode)",
        "BloodGroupTeachers ON TeacherMaster (BloodGroupCode)",
        "CityTeachers ON TeacherMaster (CityCode)",
        "SalutationTeachers ON TeacherMaster (SalutationCode)",
        "ClassFees ON FeesSetup (ClassCode)",
    };
    CreateIndexes(transaction, indexes);
}

void CreateMainTables(Transaction& transaction)
{
    CreateReferenceMasters(transaction);
    CreateCalendarAndSession(transaction);
    CreateUsers(transaction);
    CreateStudentsAndMarks(transaction);
    CreateListIndexes(transaction);
    CreateGuardIndexes(transaction);
    transaction.Execute(dialect::WriteSchemaVersion(MainVersion));
}

// clang-format off

void CreateTempTables(Transaction& transaction)
{
    CreateTable(transaction, "Options", {
        Text("Options", 1).In(YesNo),
        Integer("UserCode")});
    transaction.Execute(dialect::WriteSchemaVersion(OtherFilesVersion));
}

void CreateBackupTables(Transaction& transaction)
{
    CreateTable(transaction, "BackupDatabase", {
        Long("BackupCode").Key(),
        Text("BackupPath", 300),
        Text("BackupDate", 30)});
    CreateTable(transaction, "RestoreDatabase", {
        Long("RestoreCode").Key(),
        Text("RestorePath", 300),
        Text("RestoreDate", 30)});
    transaction.Execute(dialect::WriteSchemaVersion(OtherFilesVersion));
}

void CreateHelpTables(Transaction& transaction)
{
    CreateTable(transaction, "Tallyboarddetails", {
        Long("Scrno").Key(),
        Text("ScreenName", 100),
        Memo("Details")});
    transaction.Execute(dialect::WriteSchemaVersion(OtherFilesVersion));
}

// clang-format on

} // namespace tally::store
