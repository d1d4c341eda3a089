#pragma once

#include "core/Right.h"

#include <QString>

#include <array>
#include <set>
#include <vector>

namespace tally {

/// A right as it is stored: what a user may do on which form. Right::Open on a form or a menu's group lets
/// him reach it.
struct FormRight
{
    QString formName;
    Right right = Right::Open;

    bool operator==(const FormRight&) const = default;
};

/// One line of the tree of rights.
struct PrivilegeNode
{
    int parent; ///< the number of the line that it stands below; 0 for a group
    QString caption;
    QString key; ///< which right it stands for; no two lines have the same
};

/// All lines in their order from top to bottom. A line's number is its place in that order; the first is 1.
const std::vector<PrivilegeNode>& PrivilegeNodes();

/// The lines that lead to the screen of privileges and let a user work in it.
namespace PrivilegeLine {
inline constexpr int Utilities = 100;
inline constexpr int UserPrivileges = 105;
inline constexpr int UserPrivilegesNew = 106;
inline constexpr int UserPrivilegesEdit = 107;
inline constexpr std::array Managing{Utilities, UserPrivileges, UserPrivilegesNew, UserPrivilegesEdit};
} // namespace PrivilegeLine

/// The numbers of all lines below line `number`, however deep.
std::vector<int> PrivilegeLinesBelow(int number);

/// The right that the line with this key stands for.
FormRight RightOf(const QString& key);
/// The key of the line for a right; empty for one that no line stands for in any tree.
QString KeyOf(const FormRight& right);

/// The rights that these lines stand for, in the order of the tree.
std::vector<FormRight> RightsOf(const std::set<int>& lines);
/// The lines for these rights. A right without a line, as an earlier program may have stored it, is left out.
std::set<int> LinesOf(const std::vector<FormRight>& rights);

} // namespace tally
