#include "utilities/PrivilegeTree.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <string>

namespace tally {
namespace {

/// As the office's stored rights and its guards know it: number, caption and key of each line.
constexpr const char* Tree = R"(
  1 Masters = Masters
  2   State Master = frmMasStateMaster
  3     New = frmMasStateMasterNew
  4     Edit = frmMasStateMasterEdit
  5     Delete = frmMasStateMasterDelete
  6   City Master = frmMasCityMaster
  7     New = frmMasCityMasterNew
  8     Edit = frmMasCityMasterEdit
  9     Delete = frmMasCityMasterDelete
 10   Blood Group Master = frmMasBloodGroupMaster
 11     New = frmMasBloodGroupMasterNew
 12     Edit = frmMasBloodGroupMasterEdit
 13     Delete = frmMasBloodGroupMasterDelete
 14   SchoolSetUp = frmMasSchoolSetup
 15     New = frmMasSchoolSetupNew
 16     Edit = frmMasSchoolSetupEdit
 17   Class&Section Details = frmMasClassSectionEntry
 18     New = frmMasClassSectionEntryNew
 19     Edit = frmMasClassSectionEntryEdit
 20   Subject Master = frmSubjectMaster
 21     New = frmSubjectMasterNew
 22     Edit = frmSubjectMasterEdit
 23     Delete = frmSubjectMasterDelete
 24   Salutation Master = frmSalutationMaster
 25     New = frmSalutationMasterNew
 26     Edit = frmSalutationMasterEdit
 27     Delete = frmSalutationMasterDelete
 28   Teacher Master = frmTeacherMaster
 29     New = frmTeacherMasterNew
 30     Edit = frmTeacherMasterEdit
 31     Delete = frmTeacherMasterDelete
 32   ExamName Master = frmexamnamemaster
 33     New = frmexamnamemasterNew
 34     Edit = frmexamnamemasterEdit
 35     Delete = frmexamnamemasterDelete
 36   AcademicYear SetUp = frmMasAcademicYearSetup
 37     New = frmMasAcademicYearSetupNew
 38     Edit = frmMasAcademicYearSetupEdit
 39     Delete = frmMasAcademicYearSetupDelete
 40   AcademicYear Change = frmMasAcademicYearChange
 41     Save = frmMasAcademicYearChangeSave
 42   Student Master = frmMasStudentMaster
 43     New = frmMasStudentMasterNew
 44     Edit = frmMasStudentMasterEdit
 45     Delete = frmMasStudentMasterDelete
 46   Student Admission Entry = frmMasStudentAdmissionEntry
 47     New = frmMasStudentAdmissionEntryNew
 48     Edit = frmMasStudentAdmissionEntryEdit
 49     Delete = frmMasStudentAdmissionEntryDelete
 50   Student Releving Entry = frmMasStudentRelievingMaster
 51     New = frmMasStudentRelievingMasterNew
 52     Edit = frmMasStudentRelievingMasterEdit
 53     Delete = frmMasStudentRelievingMasterDelete
 54 Transactions = Transactions
 55   ClassWise Subject - Teacher - Mark Entry = frmClassSubjectTeacher
 56     New = frmClassSubjectTeacherNew
 57     Edit = frmClassSubjectTeacherEdit
 58     Delete = frmClassSubjectTeacherDelete
 59   ClassWise Subject - Teacher - Mark Entry - Copy = frmClassSubjectTeacherTransfer
 60     New = frmClassSubjectTeacherTransferNew
 61     Edit = frmClassSubjectTeacherTransferEdit
 62   ClassWise Rank - Grade Setup = frmClassRankSetup
 63     New = frmClassRankSetupNew
 64     Edit = frmClassRankSetupEdit
 65     Delete = frmClassRankSetupDelete
 66   ClassWise Rank - Grade Setup - Copy = frmClassRankTransferSetup
 67     New = frmClassRankTransferSetupNew
 68     Edit = frmClassRankTransferSetupEdit
 69   ClassWise Mark Entry = frmexammarkentry
 70     New = frmexammarkentryNew
 71     Edit = frmexammarkentryEdit
 72     Delete = frmexammarkentryDelete
 73   Promotion Entry = frmpromotionentry
 74     New = frmpromotionentryNew
 75     Edit = frmpromotionentryEdit
 76 Reports = Reports
 77   Rank List Preparation = frmRankCalculation
 78     Export = frmRankCalculationExport
 79   Subject Average = SubjectAverage
 80     Based On Class - Division = frmclassdivisionsubjectavg
 81       Export = frmclassdivisionsubjectavgExport
 82     Based On Exam(s) = frmdivisionsubjectexamavg
 83       Export = frmdivisionsubjectexamavgExport
 84   Student Mark Comparison = StudentMarkComparision
 85     Based On Exam(s) = frmstudentexamavg
 86       Export = frmstudentexamavgExport
 87     Based On Academic Year(s) = frmstudentyearlyexamavg
 88       Export = frmstudentyearlyexamavgExport
 89   Students List = StudentsList
 90     Below Class Average = frmstudentslistbelow
 91       Export = frmstudentslistbelowExport
 92     Above Class Average = frmstudentslistabove
 93       Export = frmstudentslistaboveExport
 94   Rank Card Printing = frmRankCardPrinting
 95     Export = frmRankCardPrintingExport
 96   Class List = frmrptClassList
 97     Export = frmrptClassListExport
 98   Classwise Subject - Teacher - Mark Report = frmrptClassSubjectTeacher
 99     Export = frmrptClassSubjectTeacherExport
100 Utilities = ToolsMenu
101   User Master = frmUtilUserMaster
102     New = frmUtilUserMasterNew
103     Edit = frmUtilUserMasterEdit
104     Delete = frmUtilUserMasterDelete
105   User Privileges = frmUtilUserPrivileges
106     New = frmUtilUserPrivilegesNew
107     Edit = frmUtilUserPrivilegesEdit
108   Application Date Setup = frmUtilApplicationDateSetup
109     Add = frmUtilApplicationDateSetupAdd
110     Delete = frmUtilApplicationDateSetupDel
111   Application Date Change = frmUtilApplicationDateChange
112     Save = frmUtilApplicationDateChangeSave
113   Database Backup / Database Restore = frmUtilBackupRestore
114   Compress Database Size = frmCompactDatabase
115   Options = frmUtilOptions
)";

int DepthOf(const PrivilegeNode& node)
{
    int depth = 0;
    for (int above = node.parent; above > 0; ++depth)
        above = PrivilegeNodes().at(static_cast<std::size_t>(above) - 1).parent;
    return depth;
}

TEST(PrivilegeTree, HoldsTheScreensAndTheirRightsInTheirFixedOrder)
{
    QString tree = QStringLiteral("\n");
    int number = 0;
    for (const PrivilegeNode& node : PrivilegeNodes())
        tree += QStringLiteral("%1 %2%3 = %4\n")
                    .arg(++number, 3)
                    .arg(QString(2 * DepthOf(node), QLatin1Char(' ')), node.caption, node.key);
    EXPECT_EQ(tree.toStdString(), Tree);
}

TEST(PrivilegeTree, TheGuardedLinesAreThoseOfTheScreenOfPrivileges)
{
    const auto keyOf = [](int line) {
        return PrivilegeNodes().at(static_cast<std::size_t>(line) - 1).key.toStdString();
    };
    EXPECT_EQ(keyOf(PrivilegeLine::Utilities), "ToolsMenu");
    EXPECT_EQ(keyOf(PrivilegeLine::UserPrivileges), "frmUtilUserPrivileges");
    EXPECT_EQ(keyOf(PrivilegeLine::UserPrivilegesNew), "frmUtilUserPrivilegesNew");
    EXPECT_EQ(keyOf(PrivilegeLine::UserPrivilegesEdit), "frmUtilUserPrivilegesEdit");
}

TEST(PrivilegeTree, AKeyIsTheFormAndTheRightByItsEnd)
{
    struct Case
    {
        const char* key;
        const char* form;
        char letter;
    };
    const Case cases[] = {
        {"frmMasStateMasterNew", "frmMasStateMaster", 'N'},
        {"frmMasStateMasterEdit", "frmMasStateMaster", 'E'},
        {"frmMasStateMasterDelete", "frmMasStateMaster", 'X'},
        {"frmUtilBackupRestoreBackup", "frmUtilBackupRestore", 'B'},
        {"frmUtilBackupRestoreRestor", "frmUtilBackupRestore", 'R'},
        {"frmMasAcademicYearChangeSave", "frmMasAcademicYearChange", 'S'},
        {"frmUtilApplicationDateChangeSave", "frmUtilApplicationDateChange", 'S'},
        {"frmUtilApplicationDateSetupAdd", "frmUtilApplicationDateSetup", 'A'},
        {"frmUtilApplicationDateSetupDel", "frmUtilApplicationDateSetup", 'M'},
        {"frmrptClassListExport", "frmrptClassList", 'P'},
        {"frmrptClassList", "frmrptClassList", 'D'},
        {"frmUtilBackupRestore", "frmUtilBackupRestore", 'D'},
        {"frmUtilApplicationDateSetup", "frmUtilApplicationDateSetup", 'D'},
        {"ToolsMenu", "ToolsMenu", 'D'},
        {"frmOtherAdd", "frmOtherAdd", 'D'},
        {"frmOtherDel", "frmOtherDel", 'D'},
    };
    for (const Case& expected : cases) {
        const FormRight right = RightOf(QString::fromLatin1(expected.key));
        EXPECT_EQ(right.formName.toStdString(), expected.form) << expected.key;
        EXPECT_EQ(LetterOf(right.right), QLatin1Char(expected.letter)) << expected.key;
    }
}

TEST(PrivilegeTree, EachLineIsOneRightAndComesBackFromItAlone)
{
    std::set<std::string> rights;
    int number = 0;
    for (const PrivilegeNode& node : PrivilegeNodes()) {
        ++number;
        const FormRight right = RightOf(node.key);
        EXPECT_EQ(KeyOf(right).toStdString(), node.key.toStdString());
        EXPECT_EQ(RightsOf({number}), std::vector{right}) << number;
        EXPECT_EQ(LinesOf({right}), std::set{number});
        rights.insert((right.formName.toLower() + LetterOf(right.right)).toStdString());
    }
    EXPECT_EQ(rights.size(), PrivilegeNodes().size());
}

TEST(PrivilegeTree, AnySetOfLinesComesBackFromItsRights)
{
    const int all = static_cast<int>(PrivilegeNodes().size());
    for (int step = 1; step <= all; ++step) {
        std::set<int> lines;
        for (int line = step; line <= all; line += step)
            lines.insert(line);
        EXPECT_EQ(LinesOf(RightsOf(lines)), lines) << step;
    }
    EXPECT_EQ(LinesOf(RightsOf({})), std::set<int>());
}

TEST(PrivilegeTree, RightsAreKnownInSmallAndCapitalLettersAndOthersLeftOut)
{
    EXPECT_EQ(LinesOf({{QStringLiteral("FRMUTILUSERPRIVILEGES"), Right::New},
                       {QStringLiteral("frmPromotionEntry"), Right::Edit},
                       {QStringLiteral("frmUtilBackupRestore"), Right::Backup},
                       {QStringLiteral("frmUtilApplicationDateChange"), Right::Modify},
                       {QStringLiteral("frmUtilApplicationDateChange"), Right::Change},
                       {QStringLiteral("frmGone"), Right::Open},
                       {QString(), static_cast<Right>(u'?')}}),
              (std::set{PrivilegeLine::UserPrivilegesNew, 75}));
}

TEST(PrivilegeTree, BelowALineStandAllThatAreReachedFromItHoweverDeep)
{
    EXPECT_EQ(PrivilegeLinesBelow(2), (std::vector{3, 4, 5}));
    EXPECT_EQ(PrivilegeLinesBelow(79), (std::vector{80, 81, 82, 83}));
    EXPECT_EQ(PrivilegeLinesBelow(3), std::vector<int>());
    EXPECT_EQ(PrivilegeLinesBelow(115), std::vector<int>());
    std::vector<int> reports;
    for (int line = 77; line <= 99; ++line)
        reports.push_back(line);
    EXPECT_EQ(PrivilegeLinesBelow(76), reports);
    EXPECT_EQ(PrivilegeLinesBelow(1).size(), 52U);
    EXPECT_EQ(PrivilegeLinesBelow(PrivilegeLine::Utilities).size(), 15U);
}

} // namespace
} // namespace tally
