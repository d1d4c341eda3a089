#include "app/Screens.h"
#include "core/shell/Application.h"
#include "core/ui/look/Look.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    tally::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    tally::ApplyLook(application, false);
    tally::RegisterScreens();
    return RUN_ALL_TESTS();
}
