#pragma once

#include "core/KeyFilters.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace tally {

/// The simple masters are lists of names that work alike: search, grid, one entry frame, New to Exit. All in
/// which they differ stands in one table of definitions, and a further master is one further entry of it.
///
/// The statements take these values by name: `:Code` the row in hand (0 for a new one), `:User` who saves,
/// `:Search` the trimmed search text, `:Held` the name that the row had when it was selected (empty for a new
/// one), and the placeholders of the entry boxes.

/// One entry box of a master.
struct SimpleMasterField
{
    enum class Kind
    {
        Text,
        Number,       ///< bound as a whole number
        WithoutBlanks ///< a text that loses the blanks inside, however they came in
    };

    const char* control; ///< object name of the box
    const char* label;
    const char* gridColumn; ///< head of the grid column that fills the box when a row is selected
    const char* placeholder;
    const char* emptyMessage; ///< shown when nothing was entered
    KeyFilter filter;
    int maxLength; ///< in characters, as wide as the column
    Kind kind = Kind::Text;
};

/// A further list from which the row's parent is chosen, in front of the entry boxes. Its first line is
/// blank.
struct SimpleMasterParent
{
    const char* control; ///< object name of the list
    const char* label;
    const char* gridColumn; ///< head of the (hidden) grid column with the parent's code
    const char* placeholder;
    const char* emptyMessage;
    const char* entries;    ///< statement: code and text of each line
    const char* addControl; ///< object name of the button that opens the parent's own master
    const char* addCaption;
    const char* addForm; ///< form name of that master
};

/// A name or number that another row must not have already.
struct DuplicateTest
{
    QString count; ///< statement: how many other rows have it
    const char* message;
    std::size_t field; ///< the box that gets the focus
};

struct SimpleMasterDefinition
{
    /// Which row of the grid may be selected.
    enum class Selectable
    {
        CodeAboveZero,
        NameNotBlank
    };

    const char* formName;
    const char* caption;
    int helpScreenNo;
    const char* table;
    const char* key; ///< the table's code column

    const char* searchControl;
    const char* searchLabel;
    std::optional<SimpleMasterParent> parent;
    std::vector<SimpleMasterField>
        fields;       ///< the first one is the name, and its filter is the search box's too
    const char* note; ///< shown under the entry boxes; empty for none

    Selectable selectable;
    const char* selectQuestion;
    const char* deleteQuestion;
    std::vector<DuplicateTest> duplicates; ///< in the order in which they are told

    const char* grid;
    const char* codeColumn; ///< head of the grid column with the row's code; it is hidden
    const char* update;
    const char* insert;
    const char* remove;
};

/// All simple masters.
std::span<const SimpleMasterDefinition> SimpleMasterDefinitions();

} // namespace tally
