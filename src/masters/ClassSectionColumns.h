#pragma once

namespace tally {

/// The columns of msgClassDetails. The last three are hidden.
enum ClassCol : int
{
    SerialCol,
    ClassNameCol,
    NoOfDivisionsCol,
    ClassOrderCol,
    OldNoOfDivisionsCol,
    OldDivisionCol,
    ClassCodeCol,
};

/// The columns of msgDivisionDetails. The last one is hidden.
enum DivisionCol : int
{
    DivisionCodeCol,
    DivisionNameCol,
    DivisionClassCol,
};

} // namespace tally
