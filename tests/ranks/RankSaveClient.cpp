// A client of the school that prepares and saves the same rank list over and over, with and without skipped
// ranks, until it is killed. It says "saved" after each save.

#include "app/Screens.h"
#include "core/modTallyboard.h"
#include "core/ProgramFolder.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/ScreenRegistry.h"
#include "ranks/frmRankCalculation.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <cstdio>

int main(int argc, char** argv)
{
    using namespace tally;
    const QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    SetProgramFolder(QString::fromLocal8Bit(argv[1]));
    RegisterScreens();
    Prompts::AnswerWith([](Prompts::Kind kind, const QString&) { return kind != Prompts::Kind::Critical; });

    OpenConnections();
    mdiTallyboard::Load()->show();
    ShowForm(QStringLiteral("frmRankCalculation"));
    Screen* form = ScreenRegistry::OpenInstance(QStringLiteral("frmRankCalculation"));
    const auto press = [form](const char* name) {
        auto* button = form->findChild<QAbstractButton*>(QString::fromLatin1(name));
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
    };
    for (bool skipping = false;; skipping = !skipping) {
        auto* exam = form->findChild<QComboBox*>(QStringLiteral("Cboexamname"));
        QTest::keyClick(exam, Qt::Key_Down);
        QTest::keyClick(form->findChild<QComboBox*>(QStringLiteral("cboClass")), Qt::Key_Down);
        press("chkSelectAll");
        if (skipping)
            press("chkRankSkipping");
        press("cmdUpdate");
        press("cmdSave");
        std::puts("saved");
        std::fflush(stdout);
        press("cmdCancel");
    }
}
