// A client of the school that saves one more student for each line it is given, in the real form, and says
// the number that he got, or the box that came instead.

#include "app/Screens.h"
#include "core/modTallyboard.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

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
    OpenConnections();
    mdiTallyboard::Load()->show();
    Session().gdtmApplicationDate = QDate(2024, 6, 10);

    const QString formName = QStringLiteral("frmMasStudentMaster");
    ShowForm(formName);
    const auto* form = ScreenRegistry::OpenInstance(formName);
    const auto* number = form->findChild<QLineEdit*>(QStringLiteral("txtAdmissionNumber"));
    const auto press = [form](const char* button) {
        form->findChild<QPushButton*>(QString::fromLatin1(button))->click();
    };
    QString told;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        told = text == QStringLiteral("Record Saved") ? number->text() : text;
        return true;
    });
    const auto say = [](const QString& text) {
        std::puts(qPrintable(text));
        std::fflush(stdout);
    };
    say(QStringLiteral("ready"));
    for (std::string name; std::getline(std::cin, name);) {
        told.clear();
        press("cmdNew");
        form->findChild<QLineEdit*>(QStringLiteral("txtstudentName"))->setText(QString::fromStdString(name));
        press("cmdSave");
        QApplication::processEvents();
        say(told);
    }
}
