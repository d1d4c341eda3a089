#pragma once

#include "tools/SampleRandom.h"
#include "tools/SampleSchool.h"

namespace tally {

/// What the rest of the sample school draws from; codes run from 1 without gaps.
struct SampleMasters
{
    int cities = 0;
    int bloodGroups = 0;
    int teachers = 0;
};

/// States, cities, blood groups, salutations, exams, subjects, teachers, the school and the options.
SampleMasters InsertSampleMasters(store::Transaction& transaction, const SampleOptions& options,
                                  SampleRandom& random);

} // namespace tally
