#include "masters/SimpleMasterDefinitions.h"

#include "store/Dialect.h"

namespace tally {

namespace {

using Field = SimpleMasterField;
using Selectable = SimpleMasterDefinition::Selectable;

// The members differ in small things on purpose: offices rely on which names they may enter twice. Whether a
// stored name is trimmed before it is compared, whether a save notes its user, and the blank at the end of a
// question stand here as they are.

// clang-format off

SimpleMasterDefinition StateMaster()
{
    return {
        .formName = "frmMasStateMaster",
        .caption = "State Master",
        .helpScreenNo = 1,
        .table = "StateMaster",
        .key = "StateCode",
        .searchControl = "txtSearchStateName",
        .searchLabel = "S&tate Name :",
        .parent = std::nullopt,
        .fields = {{"txtStateName", "State Na&me :", "State Name", ":StateName", "Enter State Name", KeyAlpha, 30}},
        .note = "",
        .selectable = Selectable::CodeAboveZero,
        .selectQuestion = "Do You Want To Edit/Delete ? ",
        .deleteQuestion = "Do You Want To Delete This State Name ?",
        .duplicates = {{"SELECT count(*) FROM StateMaster"
                        " WHERE upper(trim(StateName)) = upper(:StateName) AND StateCode <> :Code",
                        "State Name Already Exists", 0}},
        .grid = "SELECT StateName AS \"State Name\", StateCode FROM StateMaster"
                " WHERE upper(StateName) LIKE '%' || upper(:Search) || '%' AND StateCode > 0 ORDER BY StateName",
        .codeColumn = "StateCode",
        .update = "UPDATE StateMaster SET StateName = :StateName, UserCode = :User WHERE StateCode = :Code",
        .insert = "INSERT INTO StateMaster (StateCode, StateName, UserCode) VALUES (:Code, :StateName, :User)",
        .remove = "DELETE FROM StateMaster WHERE StateCode = :Code"};
}

SimpleMasterDefinition CityMaster()
{
    return {
        .formName = "frmMasCityMaster",
        .caption = "City Master",
        .helpScreenNo = 2,
        .table = "CityMaster",
        .key = "CityCode",
        .searchControl = "txtSearchCityName",
        .searchLabel = "Ci&ty Name :",
        .parent = SimpleMasterParent{
            "dbcStateName", "State Na&me :", "StateCode", ":StateCode", "Select State",
            "SELECT 0 AS StateCode, ' ' AS StateName FROM StateMaster"
            " UNION SELECT StateCode, StateName FROM StateMaster WHERE StateCode > 0 ORDER BY StateName",
            "cmdAddStateName", "&Add State", "frmMasStateMaster"},
        .fields = {{"txtCityName", "C&ity Name :", "City Name", ":CityName", "Enter City Name", KeyAlpha, 30}},
        .note = "",
        .selectable = Selectable::CodeAboveZero,
        .selectQuestion = "Do You Want To Edit/Delete ?",
        .deleteQuestion = "Do You Want To Delete This City Name ?",
        .duplicates = {{"SELECT count(*) FROM CityMaster"
                        " WHERE upper(CityName) = upper(:CityName) AND StateCode = :StateCode AND CityCode <> :Code",
                        "City Name Already Exists For The Selected State Name", 0}},
        .grid = "SELECT B.StateName AS \"State Name\", A.CityName AS \"City Name\", A.CityCode, A.StateCode"
                " FROM StateMaster B, CityMaster A"
                " WHERE upper(A.CityName) LIKE '%' || upper(:Search) || '%' AND A.StateCode = B.StateCode"
                " AND A.CityCode > 0 AND (:StateCode = 0 OR A.StateCode = :StateCode) ORDER BY StateName, CityName",
        .codeColumn = "CityCode",
        .update = "UPDATE CityMaster SET CityName = :CityName, StateCode = :StateCode, UserCode = :User"
                  " WHERE CityCode = :Code",
        .insert = "INSERT INTO CityMaster (CityCode, StateCode, CityName, UserCode) VALUES (:Code, :StateCode, :CityName, :User)",
        .remove = "DELETE FROM CityMaster WHERE CityCode = :Code"};
}

SimpleMasterDefinition BloodGroupMaster()
{
    return {
        .formName = "frmMasBloodGroupMaster",
        .caption = "Blood Group Master",
        .helpScreenNo = 7,
        .table = "BloodGroupMaster",
        .key = "BloodGroupCode",
        .searchControl = "txtSearchBloodGroupName",
        .searchLabel = "&Blood Group Name :",
        .parent = std::nullopt,
        .fields = {{"txtBloodGroupName", "Blood &Group Name :", "Blood Group Name", ":BloodGroupName",
                    "Enter Blood Group Name", KeyAlphaNumeric, 5}},
        .note = "",
        .selectable = Selectable::CodeAboveZero,
        .selectQuestion = "Do You Want To Edit/Delete ?",
        .deleteQuestion = "Do You Want To Delete This Blood Group ?",
        .duplicates = {{"SELECT count(*) FROM BloodGroupMaster"
                        " WHERE upper(BloodGroupName) = upper(:BloodGroupName) AND BloodGroupCode <> :Code",
                        "Blood Group Name Already Exists", 0}},
        .grid = "SELECT BloodGroupCode, BloodGroupName AS \"Blood Group Name\" FROM BloodGroupMaster"
                " WHERE upper(BloodGroupName) LIKE '%' || upper(:Search) || '%' AND BloodGroupCode > 0"
                " ORDER BY BloodGroupName",
        .codeColumn = "BloodGroupCode",
        .update = "UPDATE BloodGroupMaster SET BloodGroupName = :BloodGroupName, UserCode = :User"
                  " WHERE BloodGroupCode = :Code",
        .insert = "INSERT INTO BloodGroupMaster (BloodGroupCode, BloodGroupName, UserCode) VALUES (:Code, :BloodGroupName, :User)",
        .remove = "DELETE FROM BloodGroupMaster WHERE BloodGroupCode = :Code"};
}

/// The one duplicate test that goes by the name held since the selection instead of the code.
SimpleMasterDefinition SalutationMaster()
{
    return {
        .formName = "frmSalutationMaster",
        .caption = "Salutation Master",
        .helpScreenNo = 8,
        .table = "SalutationMaster",
        .key = "SalutationCode",
        .searchControl = "txtSearchSalutationName",
        .searchLabel = "Salu&tation Name :",
        .parent = std::nullopt,
        .fields = {{"txtSalutationName", "Salutation Na&me :", "Salutation Name", ":SalutationName",
                    "Enter Salutation Name", KeyAlphaNumeric, 5}},
        .note = "",
        .selectable = Selectable::CodeAboveZero,
        .selectQuestion = "Do You Want To Edit/Delete ?",
        .deleteQuestion = "Do You Want To Delete This Salutation Name ?",
        .duplicates = {{QStringLiteral("SELECT count(*) FROM SalutationMaster"
                                       " WHERE upper(SalutationName) = upper(:SalutationName)"
                                       " AND SalutationName <> :Held") + store::dialect::RespectingCase(),
                        "Salutation Name Already Exists", 0}},
        .grid = "SELECT SalutationName AS \"Salutation Name\", SalutationCode FROM SalutationMaster"
                " WHERE upper(SalutationName) LIKE '%' || upper(:Search) || '%' ORDER BY SalutationName",
        .codeColumn = "SalutationCode",
        .update = "UPDATE SalutationMaster SET SalutationName = :SalutationName WHERE SalutationCode = :Code",
        .insert = "INSERT INTO SalutationMaster (SalutationCode, SalutationName, UserCode) VALUES (:Code, :SalutationName, :User)",
        .remove = "DELETE FROM SalutationMaster WHERE SalutationCode = :Code"};
}

SimpleMasterDefinition ExamNameMaster()
{
    return {
        .formName = "frmexamnamemaster",
        .caption = "Exam Name Master",
        .helpScreenNo = 5,
        .table = "ExamMaster",
        .key = "ExamCode",
        .searchControl = "txtExamNameSearch",
        .searchLabel = "Ex&am Name :",
        .parent = std::nullopt,
        .fields = {{"txtExamName", "Exam Na&me :", "Exam Name", ":ExamName", "Enter Exam Name", KeyAlphaNumeric, 50},
                   {"txtExamOrder", "Exam O&rder :", "Exam Order", ":ExamOrder", "Enter Exam Order", KeyNumeric, 5,
                    Field::Kind::Number}},
        .note = "Note : Depending Upon The Numeric Value Given In 'Exam Order', Exams Will Be Displayed In All"
                " Screens.",
        .selectable = Selectable::CodeAboveZero,
        .selectQuestion = "Do You Want To Edit/Delete ?",
        .deleteQuestion = "Do You Want To Delete This Exam Name ?",
        .duplicates = {{"SELECT count(*) FROM ExamMaster WHERE upper(ExamName) = upper(:ExamName)"
                        " AND ExamCode <> :Code",
                        "Exam Name Already Exists", 0},
                       {"SELECT count(*) FROM ExamMaster WHERE ExamOrder = :ExamOrder AND ExamCode <> :Code",
                        "Exam Order Already Exists", 1}},
        .grid = "SELECT ExamName AS \"Exam Name\", ExamOrder AS \"Exam Order\", ExamCode FROM ExamMaster"
                " WHERE upper(ExamName) LIKE '%' || upper(:Search) || '%' ORDER BY ExamOrder",
        .codeColumn = "ExamCode",
        .update = "UPDATE ExamMaster SET ExamName = :ExamName, ExamOrder = :ExamOrder WHERE ExamCode = :Code",
        .insert = "INSERT INTO ExamMaster (ExamCode, ExamName, ExamOrder, UserCode) VALUES (:Code, :ExamName, :ExamOrder, :User)",
        .remove = "DELETE FROM ExamMaster WHERE ExamCode = :Code"};
}

/// A new subject may bear the short name of another one as its name; only like is compared with like.
SimpleMasterDefinition SubjectMaster()
{
    return {
        .formName = "frmSubjectMaster",
        .caption = "Subject Master",
        .helpScreenNo = 6,
        .table = "SubjectMaster",
        .key = "SubjectCode",
        .searchControl = "txtSubjectNameSearch",
        .searchLabel = "Subjec&t Name :",
        .parent = std::nullopt,
        .fields = {{"txtSubjectName", "Subject Na&me :", "Subject Name", ":SubjectName", "Enter Subject Name",
                    KeyAlphaNumeric, 25},
                   // Short names become heads of report columns.
                   {"txtSubjectShort", "S&hort Name :", "Short Name", ":SubjectShortName",
                    "Enter Subject Short Name", KeyLetters, 6, Field::Kind::WithoutBlanks}},
        .note = "",
        .selectable = Selectable::CodeAboveZero,
        .selectQuestion = "Do You Want To Edit/Delete ?",
        .deleteQuestion = "Do You Want To Delete This Subject Name ?",
        .duplicates = {{"SELECT count(*) FROM SubjectMaster WHERE (upper(SubjectName) = upper(:SubjectName)"
                        " OR upper(SubjectShortName) = upper(:SubjectShortName)) AND SubjectCode <> :Code",
                        "Subject Name/Short Name Already Exists", 0}},
        .grid = "SELECT SubjectName AS \"Subject Name\", SubjectShortName AS \"Short Name\", SubjectCode"
                " FROM SubjectMaster WHERE upper(SubjectName) LIKE '%' || upper(:Search) || '%'"
                " AND SubjectCode > 0 ORDER BY SubjectName",
        .codeColumn = "SubjectCode",
        .update = "UPDATE SubjectMaster SET SubjectName = :SubjectName, SubjectShortName = :SubjectShortName"
                  " WHERE SubjectCode = :Code",
        .insert = "INSERT INTO SubjectMaster (SubjectCode, SubjectName, SubjectShortName, UserCode) VALUES (:Code, :SubjectName, :SubjectShortName, :User)",
        .remove = "DELETE FROM SubjectMaster WHERE SubjectCode = :Code"};
}

/// The only list that comes in the order of entry.
SimpleMasterDefinition UserMaster()
{
    return {
        .formName = "frmUtilUserMaster",
        .caption = "User Master",
        .helpScreenNo = 33,
        .table = "UserMaster",
        .key = "UserCode",
        .searchControl = "txtSearchUserName",
        .searchLabel = "&User Name :",
        .parent = std::nullopt,
        .fields = {{"txtName", "User Na&me :", "User Name", ":UserName", "Enter User Name", KeyAlpha, 50}},
        .note = "",
        .selectable = Selectable::NameNotBlank,
        .selectQuestion = "Do You Want To Edit/Delete ?",
        .deleteQuestion = "Do You Want To Delete This User Name ?",
        .duplicates = {{"SELECT count(*) FROM UserMaster WHERE upper(UserName) = upper(:UserName)"
                        " AND UserCode <> :Code",
                        "User Name Already Exists", 0}},
        .grid = "SELECT UserName AS \"User Name\", UserCode AS userid FROM UserMaster"
                " WHERE upper(UserName) LIKE '%' || upper(:Search) || '%' AND UserCode > 0",
        .codeColumn = "userid",
        .update = "UPDATE UserMaster SET UserName = :UserName WHERE UserCode = :Code",
        .insert = "INSERT INTO UserMaster (UserCode, UserName, EnteredBy) VALUES (:Code, :UserName, :User)",
        .remove = "DELETE FROM UserMaster WHERE UserCode = :Code"};
}

// clang-format on

} // namespace

std::span<const SimpleMasterDefinition> SimpleMasterDefinitions()
{
    static const std::vector<SimpleMasterDefinition> definitions{
        StateMaster(),    CityMaster(),    BloodGroupMaster(), SalutationMaster(),
        ExamNameMaster(), SubjectMaster(), UserMaster(),
    };
    return definitions;
}

} // namespace tally
