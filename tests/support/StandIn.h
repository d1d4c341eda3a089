#pragma once

#include "core/ui/ScreenRegistry.h"

#include <QString>

#include <utility>

namespace tally::test {

/// Takes the place of a screen of the program for as long as it lives; without a factory the place is empty.
class StandIn
{
public:
    explicit StandIn(QString formName, ScreenRegistry::Factory factory = {})
        : formName_(std::move(formName)), real_(ScreenRegistry::Forget(formName_))
    {
        if (factory)
            ScreenRegistry::Register(formName_, std::move(factory));
    }
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;
    ~StandIn()
    {
        ScreenRegistry::Forget(formName_);
        if (real_)
            ScreenRegistry::Register(formName_, real_);
    }

private:
    QString formName_;
    ScreenRegistry::Factory real_;
};

} // namespace tally::test
