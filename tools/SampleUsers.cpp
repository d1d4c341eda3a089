#include "tools/SampleSchool.h"

#include <array>

namespace tally {

namespace {

/// The rights that exist for one entry of the rights tree: the entry itself (D) and the buttons under it.
struct Right
{
    const char* formName;
    const char* everything;
    const char* office;
    const char* teacher;
};

constexpr std::array Rights{
    Right{"Masters", "D", "D", ""},
    Right{"frmMasStateMaster", "DNEX", "DNE", ""},
    Right{"frmMasCityMaster", "DNEX", "DNE", ""},
    Right{"frmMasBloodGroupMaster", "DNEX", "DNE", ""},
    Right{"frmMasSchoolSetup", "DNE", "", ""},
    Right{"frmMasClassSectionEntry", "DNE", "DNE", ""},
    Right{"frmSubjectMaster", "DNEX", "DNE", ""},
    Right{"frmSalutationMaster", "DNEX", "DNE", ""},
    Right{"frmTeacherMaster", "DNEX", "DNE", ""},
    Right{"frmexamnamemaster", "DNEX", "DNE", ""},
    Right{"frmMasAcademicYearSetup", "DNEX", "", ""},
    Right{"frmMasAcademicYearChange", "DS", "DS", ""},
    Right{"frmMasStudentMaster", "DNEX", "DNE", ""},
    Right{"frmMasStudentAdmissionEntry", "DNEX", "DNE", ""},
    Right{"frmMasStudentRelievingMaster", "DNEX", "DNE", ""},
    Right{"Transactions", "D", "D", "D"},
    Right{"frmClassSubjectTeacher", "DNEX", "DNE", ""},
    Right{"frmClassSubjectTeacherTransfer", "DNE", "DNE", ""},
    Right{"frmClassRankSetup", "DNEX", "DNE", ""},
    Right{"frmClassRankTransferSetup", "DNE", "DNE", ""},
    Right{"frmexammarkentry", "DNEX", "DNE", "DNE"},
    Right{"frmpromotionentry", "DNE", "DNE", ""},
    Right{"Reports", "D", "D", "D"},
    Right{"frmRankCalculation", "DP", "DP", "D"},
    Right{"SubjectAverage", "D", "D", "D"},
    Right{"frmclassdivisionsubjectavg", "DP", "DP", "D"},
    Right{"frmdivisionsubjectexamavg", "DP", "DP", "D"},
    Right{"StudentMarkComparision", "D", "D", "D"},
    Right{"frmstudentexamavg", "DP", "DP", "D"},
    Right{"frmstudentyearlyexamavg", "DP", "DP", "D"},
    Right{"StudentsList", "D", "D", "D"},
    Right{"frmstudentslistbelow", "DP", "DP", "D"},
    Right{"frmstudentslistabove", "DP", "DP", "D"},
    Right{"frmRankCardPrinting", "DP", "DP", ""},
    Right{"frmrptClassList", "DP", "DP", "D"},
    Right{"frmrptClassSubjectTeacher", "DP", "DP", ""},
    Right{"ToolsMenu", "D", "D", ""},
    Right{"frmUtilUserMaster", "DNEX", "", ""},
    Right{"frmUtilUserPrivileges", "DNE", "", ""},
    Right{"frmUtilApplicationDateSetup", "DAM", "DA", ""},
    Right{"frmUtilApplicationDateChange", "DS", "DS", ""},
    Right{"frmUtilBackupRestore", "D", "D", ""},
    Right{"frmCompactDatabase", "D", "", ""},
    Right{"frmUtilOptions", "D", "", ""},
};

} // namespace

QVector<SampleAccount> SampleAccounts()
{
    return {
        {"Asha Menon", "admin", "admin2025", "all rights, may work up to 365 days back"},
        {"Daniel Roy", "office", "office2025",
         "the office: no deleting, no users, years or options, 30 days back"},
        {"Meena Iyer", "teacher", "teach2025",
         "a teacher: mark entry and reports without export, no days back"},
    };
}

void InsertSampleUsers(store::Transaction& transaction)
{
    constexpr std::array Days{365, 30, 0};
    constexpr std::array Granted{&Right::everything, &Right::office, &Right::teacher};
    constexpr int FirstUser = 1;

    auto person = transaction.Prepare(QStringLiteral("INSERT INTO UserMaster VALUES (?, ?, ?)"));
    auto login =
        transaction.Prepare(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (?, ?, ?, 'N', ?, ?)"));
    auto right = transaction.Prepare(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES (?, ?, ?)"));
    const QVector<SampleAccount> accounts = SampleAccounts();
    for (int i = 0; i < accounts.size(); ++i) {
        const SampleAccount& account = accounts[i];
        const auto column = static_cast<std::size_t>(i);
        const int code = FirstUser + i;
        person.Run(code, account.person, FirstUser);
        login.Run(code, account.loginId, account.password, FirstUser, Days[column]);
        for (const Right& entry : Rights) {
            for (const QChar button : QString::fromLatin1(entry.*Granted[column]))
                right.Run(entry.formName, QString(button), code);
        }
    }
}

} // namespace tally
