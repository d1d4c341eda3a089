#pragma once

namespace tally {

/// The columns of msgDetails. Those behind the presence are hidden.
enum MarkCol : int
{
    SerialCol,
    NameCol,
    MarkObtainedCol,
    PresentAbsentCol,
    CodeCol,
    MaximumAllowedCol,
    TeacherCodeCol,
    MaximumMarkCol,
};

} // namespace tally
