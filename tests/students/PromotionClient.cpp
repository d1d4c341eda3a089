// A client of the school in a process of its own that works at the promotion screen until it is killed. It
// promotes all of IX-A into X-A, takes all but the first student back, and does both again, over and over,
// from wherever the client before was stopped; after each save it says the word for it.

#include "app/Screens.h"
#include "core/modTallyboard.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/ScreenRegistry.h"
#include "students/frmPromotionEntry.h"
#include "students/PromotionSchool.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <cstdio>

namespace {

using namespace tally;

void Say(const QString& text)
{
    std::puts(qPrintable(text.simplified()));
    std::fflush(stdout);
}

class Clerk
{
public:
    Clerk()
    {
        Prompts::AnswerWith([](Prompts::Kind, const QString& text) {
            Say(text);
            return true;
        });
        ShowForm(QStringLiteral("frmPromotionEntry"));
        form_ = ScreenRegistry::OpenInstance(QStringLiteral("frmPromotionEntry"));
        form_->activateWindow();
    }

    /// Promotes who is still in IX-A; where nobody is, takes all but the first one back.
    void SaveTheOther()
    {
        Start();
        Press<QCheckBox>("chkSelectAllFrom");
        if (!List("lstfromlist")->TickedIndexes().isEmpty()) {
            Press<QPushButton>("cmdMoveFromToTo");
        } else {
            Press<QCheckBox>("chkSelectAllTo");
            CheckList* list = List("lsttolist");
            list->setFocus();
            list->setCurrentRow(0);
            QTest::keyClick(list, Qt::Key_Space);
            Press<QPushButton>("cmdMoveToToFrom");
        }
        Press<QPushButton>("cmdSave");
    }

private:
    void Start()
    {
        Press<QPushButton>("cmdNew");
        Choose("cbofromClass", QStringLiteral("IX"));
        Choose("cbofromDivision", QStringLiteral("A"));
        Choose("Cbotodivision", QStringLiteral("A"));
    }
    void Choose(const char* name, const QString& text)
    {
        auto* list = form_->findChild<QComboBox*>(QString::fromLatin1(name));
        list->setFocus();
        QTest::keyClick(list, Qt::Key_End);
        for (int step = 0; step < list->count() && list->currentText() != text; ++step)
            QTest::keyClick(list, Qt::Key_Up);
    }
    CheckList* List(const char* name) const
    {
        return form_->findChild<CheckList*>(QString::fromLatin1(name));
    }
    template <typename Button>
    void Press(const char* name)
    {
        auto* button = form_->findChild<Button*>(QString::fromLatin1(name));
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
    }

    Screen* form_ = nullptr;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    SetProgramFolder(QString::fromLocal8Bit(argv[1]));
    RegisterScreens();
    OpenConnections();
    Session().gintAcademicYearCode = test::ThisYear;
    auto* window = mdiTallyboard::Load();
    Session().gblnSchoolExists = true;
    Session().gblnActiveYearExists = true;
    window->show();
    QApplication::setActiveWindow(window);
    Clerk clerk;
    for (;;)
        clerk.SaveTheOther();
}
