#include "utilities/PrivilegeTree.h"

#include <QHash>
#include <QLatin1String>
#include <QStringList>

#include <algorithm>
#include <array>

namespace tally {

namespace {

/// A line of the tree as it is written down here: how deep it stands, and the words below it that are rights.
struct Line
{
    int depth;
    const char* caption;
    const char* key;
    const char* leaves; ///< separated by blanks; the key of each is the line's own and the word
};

// The captions and keys differ from those of the menus in small things, and the offices' stored rights go by
// them as they are.
// clang-format off
constexpr Line Lines[] = {
    {0, "Masters", "Masters", ""},
    {1, "State Master", "frmMasStateMaster", "New Edit Delete"},
    {1, "City Master", "frmMasCityMaster", "New Edit Delete"},
    {1, "Blood Group Master", "frmMasBloodGroupMaster", "New Edit Delete"},
    {1, "SchoolSetUp", "frmMasSchoolSetup", "New Edit"},
    {1, "Class&Section Details", "frmMasClassSectionEntry", "New Edit"},
    {1, "Subject Master", "frmSubjectMaster", "New Edit Delete"},
    {1, "Salutation Master", "frmSalutationMaster", "New Edit Delete"},
    {1, "Teacher Master", "frmTeacherMaster", "New Edit Delete"},
    {1, "ExamName Master", "frmexamnamemaster", "New Edit Delete"},
    {1, "AcademicYear SetUp", "frmMasAcademicYearSetup", "New Edit Delete"},
    {1, "AcademicYear Change", "frmMasAcademicYearChange", "Save"},
    {1, "Student Master", "frmMasStudentMaster", "New Edit Delete"},
    {1, "Student Admission Entry", "frmMasStudentAdmissionEntry", "New Edit Delete"},
    {1, "Student Releving Entry", "frmMasStudentRelievingMaster", "New Edit Delete"},
    {0, "Transactions", "Transactions", ""},
    {1, "ClassWise Subject - Teacher - Mark Entry", "frmClassSubjectTeacher", "New Edit Delete"},
    {1, "ClassWise Subject - Teacher - Mark Entry - Copy", "frmClassSubjectTeacherTransfer", "New Edit"},
    {1, "ClassWise Rank - Grade Setup", "frmClassRankSetup", "New Edit Delete"},
    {1, "ClassWise Rank - Grade Setup - Copy", "frmClassRankTransferSetup", "New Edit"},
    {1, "ClassWise Mark Entry", "frmexammarkentry", "New Edit Delete"},
    {1, "Promotion Entry", "frmpromotionentry", "New Edit"},
    {0, "Reports", "Reports", ""},
    {1, "Rank List Preparation", "frmRankCalculation", "Export"},
    {1, "Subject Average", "SubjectAverage", ""},
    {2, "Based On Class - Division", "frmclassdivisionsubjectavg", "Export"},
    {2, "Based On Exam(s)", "frmdivisionsubjectexamavg", "Export"},
    {1, "Student Mark Comparison", "StudentMarkComparision", ""},
    {2, "Based On Exam(s)", "frmstudentexamavg", "Export"},
    {2, "Based On Academic Year(s)", "frmstudentyearlyexamavg", "Export"},
    {1, "Students List", "StudentsList", ""},
    {2, "Below Class Average", "frmstudentslistbelow", "Export"},
    {2, "Above Class Average", "frmstudentslistabove", "Export"},
    {1, "Rank Card Printing", "frmRankCardPrinting", "Export"},
    {1, "Class List", "frmrptClassList", "Export"},
    {1, "Classwise Subject - Teacher - Mark Report", "frmrptClassSubjectTeacher", "Export"},
    {0, "Utilities", "ToolsMenu", ""},
    {1, "User Master", "frmUtilUserMaster", "New Edit Delete"},
    {1, "User Privileges", "frmUtilUserPrivileges", "New Edit"},
    {1, "Application Date Setup", "frmUtilApplicationDateSetup", "Add Delete"},
    {1, "Application Date Change", "frmUtilApplicationDateChange", "Save"},
    {1, "Database Backup / Database Restore", "frmUtilBackupRestore", ""},
    {1, "Compress Database Size", "frmCompactDatabase", ""},
    {1, "Options", "frmUtilOptions", ""},
};
// clang-format on

const QString DateSetup = QStringLiteral("frmUtilApplicationDateSetup");
const QString AddADay = QStringLiteral("Add");
const QString DeleteADay = QStringLiteral("Del");

struct Tail
{
    QLatin1String word;
    Right right;
};

/// What the key of a right ends in.
constexpr std::array Tails{
    Tail{QLatin1String("New"), Right::New},       Tail{QLatin1String("Edit"), Right::Edit},
    Tail{QLatin1String("Backup"), Right::Backup}, Tail{QLatin1String("Restor"), Right::Restore},
    Tail{QLatin1String("Save"), Right::Save},     Tail{QLatin1String("Export"), Right::Print},
    Tail{QLatin1String("Delete"), Right::Delete},
};

std::vector<PrivilegeNode> BuildNodes()
{
    std::vector<PrivilegeNode> nodes;
    std::array<int, 3> lastAt{}; // the number of the last line at each depth
    for (const Line& line : Lines) {
        const auto depth = static_cast<std::size_t>(line.depth);
        const QString key = QString::fromLatin1(line.key);
        nodes.push_back({depth > 0 ? lastAt.at(depth - 1) : 0, QString::fromLatin1(line.caption), key});
        const auto number = static_cast<int>(nodes.size());
        lastAt.at(depth) = number;
        const QStringList leaves =
            QString::fromLatin1(line.leaves).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString& leaf : leaves) {
            // Taking a day back is no deleting of rows.
            const bool isDay = key == DateSetup && leaf == QLatin1String("Delete");
            nodes.push_back({number, leaf, key + (isDay ? DeleteADay : leaf)});
        }
    }
    return nodes;
}

} // namespace

const std::vector<PrivilegeNode>& PrivilegeNodes()
{
    static const std::vector<PrivilegeNode> nodes = BuildNodes();
    return nodes;
}

std::vector<int> PrivilegeLinesBelow(int number)
{
    std::vector<int> below;
    int line = 0;
    // A line stands behind the one that it is below.
    for (const PrivilegeNode& node : PrivilegeNodes()) {
        ++line;
        if (node.parent == number || std::find(below.begin(), below.end(), node.parent) != below.end())
            below.push_back(line);
    }
    return below;
}

FormRight RightOf(const QString& key)
{
    if (key == DateSetup + AddADay)
        return {DateSetup, Right::Add};
    if (key == DateSetup + DeleteADay)
        return {DateSetup, Right::Modify};
    for (const Tail& tail : Tails)
        if (key.endsWith(tail.word))
            return {key.chopped(tail.word.size()), tail.right};
    return {key, Right::Open};
}

QString KeyOf(const FormRight& right)
{
    switch (right.right) {
    case Right::Open: return right.formName;
    case Right::Add: return right.formName + AddADay;
    case Right::Modify: return right.formName + DeleteADay;
    default: break;
    }
    for (const Tail& tail : Tails)
        if (tail.right == right.right)
            return right.formName + tail.word;
    return {};
}

std::vector<FormRight> RightsOf(const std::set<int>& lines)
{
    std::vector<FormRight> rights;
    rights.reserve(lines.size());
    for (const int line : lines)
        rights.push_back(RightOf(PrivilegeNodes().at(static_cast<std::size_t>(line) - 1).key));
    return rights;
}

std::set<int> LinesOf(const std::vector<FormRight>& rights)
{
    // The store compares names without case.
    static const QHash<QString, int> lineOf = [] {
        QHash<QString, int> lines;
        for (const PrivilegeNode& node : PrivilegeNodes())
            lines.insert(node.key.toLower(), static_cast<int>(lines.size()) + 1);
        return lines;
    }();
    std::set<int> lines;
    for (const FormRight& right : rights)
        if (const int line = lineOf.value(KeyOf(right).toLower()))
            lines.insert(line);
    return lines;
}

} // namespace tally
