// A client of the school in a process of its own that works at the mark screen as it is told, line by line:
// "enter SUBJECT MARK" types a first entry, "edit SUBJECT MARK" types over what is stored, and it says
// "typed"; "save" saves and it says the last box that came.

#include "app/Screens.h"
#include "core/modTallyboard.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/ScreenRegistry.h"
#include "exams/frmexammarkentry.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <cstdio>
#include <iostream>
#include <string>

namespace {

using namespace tally;

class Clerk
{
public:
    Clerk()
    {
        Prompts::AnswerWith([this](Prompts::Kind kind, const QString& text) {
            if (kind != Prompts::Kind::Question)
                lastBox_ = text;
            // "No" to further marks of the same class, "Yes" to all else.
            return !text.endsWith(QStringLiteral("'Exam-Class-Division' ?"));
        });
        ShowForm(QStringLiteral("frmexammarkentry"));
        form_ = ScreenRegistry::OpenInstance(QStringLiteral("frmexammarkentry"));
        form_->activateWindow();
    }

    /// Chooses the subject, with all marks typed but not saved.
    void Prepare(const QString& subject, const QString& mark, bool editing)
    {
        Start(subject);
        auto* grid = form_->findChild<FlexGrid*>(QStringLiteral("msgDetails"));
        if (editing) {
            Press("cmdEdit");
            QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                              grid->CellRect(1, 2).center());
        }
        for (int row = 1; row < grid->Rows() - 1; ++row) {
            QTest::keyClicks(QApplication::focusWidget(), mark);
            Key(Qt::Key_Return);
        }
    }

    QString Save()
    {
        lastBox_.clear();
        Press("cmdSave");
        return lastBox_;
    }

private:
    /// New, with everything chosen and the list of subjects left.
    void Start(const QString& subject)
    {
        Press("cmdNew");
        Choose("dbcExam", QStringLiteral("Term One"));
        Choose("cboClass", QStringLiteral("X"));
        Choose("cboDivision", QStringLiteral("A"));
        Choose("dbcSubject", subject);
        Key(Qt::Key_Tab);
    }

    static void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    void Choose(const char* name, const QString& text)
    {
        auto* list = form_->findChild<QComboBox*>(QString::fromLatin1(name));
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 0; step < list->count() && list->currentText() != text; ++step)
            QTest::keyClick(list, Qt::Key_Down);
    }

    void Press(const char* name)
    {
        auto* button = form_->findChild<QPushButton*>(QString::fromLatin1(name));
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
    }

    Screen* form_ = nullptr;
    QString lastBox_;
};

void Say(const QString& text)
{
    std::puts(qPrintable(text.simplified()));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    SetProgramFolder(QString::fromLocal8Bit(argv[1]));
    RegisterScreens();
    OpenConnections();
    Session().gintAcademicYearCode = 1;
    auto* window = mdiTallyboard::Load();
    Session().gblnSchoolExists = true;
    Session().gblnActiveYearExists = true;
    window->show();
    QApplication::setActiveWindow(window);
    Clerk clerk;
    Say(QStringLiteral("ready"));
    for (std::string line; std::getline(std::cin, line);) {
        const QStringList words = QString::fromStdString(line).split(QLatin1Char(' '));
        const QString& order = words.first();
        if (order == QLatin1String("save")) {
            Say(clerk.Save());
        } else {
            clerk.Prepare(words.at(1), words.at(2), order == QLatin1String("edit"));
            Say(QStringLiteral("typed"));
        }
    }
}
