#include "app/Screens.h"
#include "core/shell/Application.h"
#include "core/ui/look/Look.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

QtMessageHandler usual = nullptr;

/// The toolkit warns of what it is asked to do in vain, and names its class.
void Report(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    static const QRegularExpression misuse(QStringLiteral("^Q[A-Z][A-Za-z]+::"));
    if (type == QtWarningMsg && message.contains(misuse))
        ADD_FAILURE() << message.toStdString();
    usual(type, context, message);
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    tally::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    tally::ApplyLook(application, false);
    tally::RegisterScreens();
    usual = qInstallMessageHandler(&Report);
    return RUN_ALL_TESTS();
}
