#include "bench/BenchProgram.h"

#include "app/Screens.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"

#include <QProcess>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace tally::bench {

std::unique_ptr<QApplication> StartApplication(int& argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    auto application = std::make_unique<QApplication>(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyLook(*application, false);
    RegisterScreens();
    Prompts::AnswerWith([](Prompts::Kind, const QString& text) -> bool {
        qFatal("Unexpected message: %s", qUtf8Printable(text));
    });
    return application;
}

mdiTallyboard* ShowMainWindow()
{
    mdiTallyboard* window = mdiTallyboard::Load();
    if (window == nullptr)
        qFatal("The main window did not load");
    auto* tick = window->findChild<QTimer*>(QStringLiteral("tmrTimer"));
    if (tick == nullptr)
        qFatal("The main window has no tmrTimer");
    tick->stop();
    window->show();
    QApplication::processEvents();
    return window;
}

QByteArray OutputOfChild(const char* program, const QString& folder)
{
    QProcess process;
    process.start(QString::fromLocal8Bit(program), {folder});
    process.waitForFinished(-1);
    std::fputs(process.readAllStandardError().constData(), stderr);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("%s could not measure", program);
    return process.readAllStandardOutput().trimmed();
}

void EndChild()
{
    std::fflush(stdout);
    std::_Exit(0);
}

} // namespace tally::bench
