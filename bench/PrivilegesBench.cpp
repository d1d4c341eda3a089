// Measures the screens of rights and of help: how soon they are there, and what a login with all rights costs
// against the bare statements. Exit code 1: a limit is not kept.

#include "bench/BareStore.h"
#include "bench/BenchProgram.h"
#include "bench/BenchSchool.h"
#include "bench/FindControl.h"
#include "bench/ScreenTimes.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"
#include "store/Connection.h"
#include "store/Transaction.h"
#include "utilities/PrivilegeTree.h"
#include "utilities/UserPrivilegeRepository.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTreeWidget>

#include <cstdio>
#include <memory>
#include <set>
#include <vector>

namespace {

using namespace tally;
using namespace tally::bench;

const QString Privileges = QStringLiteral("frmUtilUserPrivileges");
const QString Help = QStringLiteral("frmHelp");
constexpr int Students = 160;
constexpr int Administrator = 1;
constexpr int Clerk = 2;
constexpr double SaveLimit = 2;

/// The stored login of the clerk, ready to be saved with each line of the tree ticked.
void StartEdit(const Screen* screen)
{
    Find<QPushButton>(screen, "cmdNew")->click();
    auto* people = Find<QComboBox>(screen, "dbcUserName");
    people->setFocus();
    people->setCurrentIndex(people->findData(Clerk));
    Q_EMIT people->activated(people->currentIndex());
    PressKey(people, Qt::Key_Tab);
    QApplication::processEvents();
    auto* edit = Find<QPushButton>(screen, "cmdEdit");
    if (!edit->isEnabled())
        qFatal("The login is not shown");
    edit->click();
    auto* tree = Find<QTreeWidget>(screen, "tvwDisplay");
    // A menu that is ticked already takes nothing along.
    for (int group = 0; group < tree->topLevelItemCount(); ++group)
        for (const Qt::CheckState state : {Qt::Unchecked, Qt::Checked})
            tree->topLevelItem(group)->setCheckState(0, state);
    QApplication::processEvents();
}

/// Enter on Save until the screen has gone back to its start.
double SaveOnScreen(const Screen* screen)
{
    StartEdit(screen);
    auto* save = Find<QPushButton>(screen, "cmdSave");
    save->setFocus();
    QApplication::processEvents();
    const auto start = Clock::now();
    PressKey(save, Qt::Key_Return, QStringLiteral("\r"));
    const double time = Milliseconds(Clock::now() - start);
    const auto rights = Session().gcnnMain->Number(
        QStringLiteral("SELECT count(*) FROM UserPrivilegeDetails WHERE UserCode = ?"), Clerk);
    if (rights != static_cast<qint64>(PrivilegeNodes().size()))
        qFatal("The rights were not saved");
    return time;
}

/// The transaction of a save alone: all is looked at and written anew.
double SaveInTransaction()
{
    store::Connection& main = *Session().gcnnMain;
    const auto found = UserPrivilegeRepository(main).Find(Clerk);
    std::set<int> lines;
    for (const PrivilegeNode& node : PrivilegeNodes())
        lines.insert(lines.end(), static_cast<int>(lines.size()) + 1);
    const auto start = Clock::now();
    store::Transaction saving(main);
    const PrivilegeFault fault =
        SavePrivileges(saving, {.userCode = Clerk, .lines = lines}, found->login, found, Administrator);
    saving.Commit();
    const double time = Milliseconds(Clock::now() - start);
    if (fault != PrivilegeFault::None)
        qFatal("The rights were not saved");
    return time;
}

double SaveBare(BareStore& store)
{
    const auto clerk = QByteArray::number(Clerk);
    BareChange inserts{"INSERT INTO UserPrivilegeDetails (FormName, ButtonName, UserCode) VALUES (?, ?, ?)",
                       {}};
    for (const PrivilegeNode& node : PrivilegeNodes()) {
        const FormRight right = RightOf(node.key);
        inserts.runs.push_back({right.formName.toUtf8(), QString(LetterOf(right.right)).toUtf8(), clerk});
    }
    const std::vector<BareChange> changes{
        {"DELETE FROM UserPrivilegeDetails WHERE UserCode = ?", {{clerk}}},
        {"DELETE FROM UserPrivilegeMaster WHERE UserCode = ?", {{clerk}}},
        {"INSERT INTO UserPrivilegeMaster (UserCode, LoginId, Password, Block, EnteredBy, Days)"
         " VALUES (?, 'office', 'office2025', 'N', 1, 30)",
         {{clerk}}},
        inserts,
    };
    const auto start = Clock::now();
    store.Write(changes);
    return Milliseconds(Clock::now() - start);
}

bool ReportSave(const BenchSchool& school)
{
    Open(Privileges);
    const Screen* screen = ScreenRegistry::OpenInstance(Privileges);
    BareStore store(school);
    std::vector<double> onScreen;
    std::vector<double> transactions;
    std::vector<double> bare;
    // In turn, so that other work on the machine meets both alike.
    for (int run = 0; run < Runs; ++run) {
        onScreen.push_back(SaveOnScreen(screen));
        transactions.push_back(SaveInTransaction());
        bare.push_back(SaveBare(store));
    }
    Close(Privileges);
    const double ratio = Summary(transactions).median / Summary(bare).median;
    const bool kept = ratio <= SaveLimit;
    std::printf("\nSave of all rights / bare statements, median of %d: %.2f / %.2f ms = %.2f, at most %g%s\n",
                Runs, Summary(transactions).median, Summary(bare).median, ratio, SaveLimit,
                kept ? "" : "   MISSED");
    std::printf("From Enter on Save until the screen stands for the next login: %.2f ms\n",
                Summary(onScreen).median);
    return kept;
}

} // namespace

int main(int argc, char** argv)
{
    const auto application = StartApplication(argc, argv);
    Prompts::AnswerWith([](Prompts::Kind, const QString&) { return true; });
    const BenchSchool& school = SchoolOf(Students);
    OpenSession(school.Folder());
    Session().gintPrivilegeUserCode = Administrator;
    Session().gintUserCode = Administrator;
    Session().glngScreenNo = 19;
    const std::unique_ptr<mdiTallyboard> window(ShowMainWindow());
    window->resize(1024, 768);
    QApplication::setActiveWindow(window.get());
    QApplication::processEvents();
    bool kept = ReportOpenings({Privileges, Help});
    kept &= ReportSave(school);
    return kept ? 0 : 1;
}
