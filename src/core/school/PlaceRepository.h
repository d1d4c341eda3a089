#pragma once

#include "core/CodedTexts.h"
#include "store/Connection.h"

namespace tally {

/// The lists from which addresses choose their state and city, by name. Throws StoreError.
class PlaceRepository
{
public:
    /// `main` must outlive the repository.
    explicit PlaceRepository(store::Connection& main) : main_(main) {}

    /// A blank line with code 0 first.
    CodedTexts States();
    /// The cities of a state; none for the state 0.
    CodedTexts Cities(int stateCode);

private:
    store::Connection& main_;
};

} // namespace tally
