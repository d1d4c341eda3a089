#include "core/ui/ScreenHost.h"

namespace tally {

namespace {

ScreenHost* instance = nullptr;

} // namespace

ScreenHost* ScreenHost::Instance()
{
    return instance;
}

ScreenHost::ScreenHost()
{
    instance = this;
}

ScreenHost::~ScreenHost()
{
    instance = nullptr;
}

} // namespace tally
