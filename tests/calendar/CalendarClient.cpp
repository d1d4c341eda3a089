// A client of the school that opens a screen at each line it is given and says "open", or the box that came.

#include "app/Screens.h"
#include "core/modTallyboard.h"
#include "core/ProgramFolder.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/ScreenRegistry.h"

#include <QApplication>

#include <cstdio>
#include <iostream>
#include <string>

int main(int argc, char** argv)
{
    using namespace tally;
    const QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    SetProgramFolder(QString::fromLocal8Bit(argv[1]));
    RegisterScreens();
    QString box;
    Prompts::AnswerWith([&box](Prompts::Kind, const QString& text) {
        box = text;
        return true;
    });

    OpenConnections();
    mdiTallyboard::Load()->show();
    const auto say = [](const QString& text) {
        std::puts(qPrintable(text));
        std::fflush(stdout);
    };
    say(QStringLiteral("ready"));
    for (std::string line; std::getline(std::cin, line);) {
        box.clear();
        ShowForm(QString::fromStdString(line));
        QApplication::processEvents();
        say(ScreenRegistry::OpenInstance(QString::fromStdString(line)) ? QStringLiteral("open") : box);
    }
}
