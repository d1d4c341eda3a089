#pragma once

#include <gtest/gtest.h>
#include <ostream>
#include <vector>

namespace tally::test {

/// What the office sees of one simple master, told apart from the program's own table.
struct SimpleMasterMember
{
    struct Field
    {
        const char* control;
        const char* emptyMessage;
        const char* first;  ///< what a first row holds
        const char* second; ///< what a second row holds
    };

    const char* formName;
    const char* caption;
    int helpScreenNo;
    const char* table;
    const char* key;
    const char* nameColumn;
    const char* searchControl;
    std::vector<Field> fields;
    const char* duplicateMessage;
    const char* selectQuestion;
    const char* deleteQuestion;
    bool notesUserOnUpdate;
    bool hasParent = false;
};

inline std::ostream& operator<<(std::ostream& out, const SimpleMasterMember& member)
{
    return out << member.formName;
}

// clang-format off
inline const std::vector<SimpleMasterMember> SimpleMasterMembers{
    {"frmMasStateMaster", "State Master", 1, "StateMaster", "StateCode", "StateName", "txtSearchStateName",
     {{"txtStateName", "Enter State Name", "Kerala", "Punjab"}},
     "State Name Already Exists", "Do You Want To Edit/Delete ? ", "Do You Want To Delete This State Name ?", true},
    {"frmMasCityMaster", "City Master", 2, "CityMaster", "CityCode", "CityName", "txtSearchCityName",
     {{"txtCityName", "Enter City Name", "Kochi", "Mysore"}},
     "City Name Already Exists For The Selected State Name", "Do You Want To Edit/Delete ?",
     "Do You Want To Delete This City Name ?", true, true},
    {"frmMasBloodGroupMaster", "Blood Group Master", 7, "BloodGroupMaster", "BloodGroupCode", "BloodGroupName",
     "txtSearchBloodGroupName", {{"txtBloodGroupName", "Enter Blood Group Name", "AB+", "O-"}},
     "Blood Group Name Already Exists", "Do You Want To Edit/Delete ?",
     "Do You Want To Delete This Blood Group ?", true},
    {"frmSalutationMaster", "Salutation Master", 8, "SalutationMaster", "SalutationCode", "SalutationName",
     "txtSearchSalutationName", {{"txtSalutationName", "Enter Salutation Name", "Mr.", "Ms."}},
     "Salutation Name Already Exists", "Do You Want To Edit/Delete ?",
     "Do You Want To Delete This Salutation Name ?", false},
    {"frmexamnamemaster", "Exam Name Master", 5, "ExamMaster", "ExamCode", "ExamName", "txtExamNameSearch",
     {{"txtExamName", "Enter Exam Name", "Half Year", "Model"}, {"txtExamOrder", "Enter Exam Order", "10", "20"}},
     "Exam Name Already Exists", "Do You Want To Edit/Delete ?", "Do You Want To Delete This Exam Name ?", false},
    {"frmSubjectMaster", "Subject Master", 6, "SubjectMaster", "SubjectCode", "SubjectName", "txtSubjectNameSearch",
     {{"txtSubjectName", "Enter Subject Name", "English", "Physics"},
      {"txtSubjectShort", "Enter Subject Short Name", "Eng", "Phy"}},
     "Subject Name/Short Name Already Exists", "Do You Want To Edit/Delete ?",
     "Do You Want To Delete This Subject Name ?", false},
    {"frmUtilUserMaster", "User Master", 33, "UserMaster", "UserCode", "UserName", "txtSearchUserName",
     {{"txtName", "Enter User Name", "Anne", "Mary"}},
     "User Name Already Exists", "Do You Want To Edit/Delete ?", "Do You Want To Delete This User Name ?", false},
};
// clang-format on

} // namespace tally::test
