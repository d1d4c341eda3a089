#include "app/Screens.h"

#include "core/AboutUs.h"
#include "core/ScreenRegistry.h"
#include "ranks/frmRankCalculation.h"
#include "utilities/frmUtilOptions.h"

#include <QDir>

// The resources of a static library are linked only where they are asked for, and by a name outside all namespaces.
static void InitResources()
{
    Q_INIT_RESOURCE(tallyboard);
}

namespace tally {

namespace {

template <typename Form>
void Register(const char* formName)
{
    ScreenRegistry::Register(QString::fromLatin1(formName), [] { return new Form; });
}

} // namespace

void RegisterScreens()
{
    InitResources();
    Register<AboutUs>("AboutUs");
    Register<frmRankCalculation>("frmRankCalculation");
    Register<frmUtilOptions>("frmUtilOptions");
}

} // namespace tally
