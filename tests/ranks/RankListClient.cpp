// One of several clients, each with a class of its own: prepares, views and saves its rank list over and
// over, and looks whether all of it is its own. Says "round" after each round, "lock" for each box that told
// of a lock, and "fault: ..." for whatever must not be. It goes on until it is killed, or, given a number of
// rounds, says "done" behind the last one and waits.

#include "app/Screens.h"
#include "core/modTallyboard.h"
#include "core/Numbers.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"

#include <QApplication>
#include <QComboBox>
#include <QMap>
#include <QPushButton>
#include <QTest>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

namespace {

using namespace tally;

void Say(const QString& line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

/// Names of students and their totals.
using Totals = QMap<QString, QString>;

class Client
{
public:
    explicit Client(int classCode) : classCode_(classCode)
    {
        Prompts::AnswerWith([this](Prompts::Kind kind, const QString& text) { return Answer(kind, text); });
        expected_ = Read("Select c.StudentName,Sum(a.Mark) from MarkMaster a inner join StudentMaster c on "
                         "c.StudentCode=a.StudentCode where a.ClassCode=? group by c.StudentName");
    }

    /// False when a lock cut it short.
    bool Round(bool exits)
    {
        ShowForm(QStringLiteral("frmRankCalculation"));
        form_ = ScreenRegistry::OpenInstance(QStringLiteral("frmRankCalculation"));
        QTest::keyClick(form_->findChild<QComboBox*>(QStringLiteral("Cboexamname")), Qt::Key_Down);
        for (int step = 0; step < classCode_; ++step)
            QTest::keyClick(form_->findChild<QComboBox*>(QStringLiteral("cboClass")), Qt::Key_Down);
        Press("chkSelectAll");
        if (!Press("cmdUpdate")) {
            Leave(exits);
            return false;
        }
        ExpectShown("cmdUpdate");
        for (const char* order :
             {"optAlphabeticalOrder", "optGradeOrder", "optAdmissionNoOrder", "optRankOrder", "cmdView"}) {
            Press(order);
            ExpectShown(order);
        }
        const bool saved = Press("cmdSave");
        if (saved)
            Expect("saved",
                   Read("Select c.StudentName,a.Total from TempRankTotal a inner join StudentMaster c "
                        "on c.StudentCode=a.StudentCode where a.ClassCode=?"));
        Leave(exits);
        if (saved)
            Say(QStringLiteral("round"));
        return saved;
    }

private:
    bool Answer(Prompts::Kind kind, const QString& text)
    {
        locked_ = text.startsWith(QLatin1String("The Data Is In Use By Another Client."));
        if (locked_)
            Say(QStringLiteral("lock"));
        else if (kind == Prompts::Kind::Critical || text != QLatin1String("Record Saved"))
            Say(QStringLiteral("fault: the box ") + text);
        return true;
    }

    /// False when a lock stood in the way.
    bool Press(const char* name)
    {
        locked_ = false;
        auto* button = form_->findChild<QAbstractButton*>(QString::fromLatin1(name));
        if (!button->isEnabled())
            Say(QStringLiteral("fault: closed is ") + QString::fromLatin1(name));
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
        return !locked_;
    }

    void Leave(bool exits)
    {
        Press(exits ? "cmdExit" : "cmdCancel");
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    Totals Read(const char* sql) const
    {
        Totals totals;
        auto rows = Session().gcnnMain->Query(QString::fromLatin1(sql), classCode_);
        while (rows.Next())
            totals.insert(rows.Text(0), PlainNumber(rows.Double(1)));
        return totals;
    }

    void ExpectShown(const char* pressed) const
    {
        const auto* grid = form_->findChild<FlexGrid*>(QStringLiteral("msgDisplayDetails"));
        const int total = grid->Cols() - 4;
        Totals shown;
        for (int row = 2; row < grid->Rows(); ++row)
            if (!grid->TextMatrix(row, 1).isEmpty())
                shown.insert(grid->TextMatrix(row, 0), grid->TextMatrix(row, total));
        Expect(pressed, shown);
    }

    void Expect(const char* what, const Totals& found) const
    {
        if (found != expected_)
            Say(QStringLiteral("fault: %1 of class %2 found %3")
                    .arg(QString::fromLatin1(what))
                    .arg(classCode_)
                    .arg(QStringList(found.keys()).join(QLatin1Char(','))));
    }

    int classCode_;
    Totals expected_;
    Screen* form_ = nullptr;
    bool locked_ = false;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (argc != 3 && argc != 4)
        return 2;
    SetProgramFolder(QString::fromLocal8Bit(argv[1]));
    RegisterScreens();
    OpenConnections();
    mdiTallyboard::Load()->show();
    Client client(std::atoi(argv[2]));
    const int rounds = argc == 4 ? std::atoi(argv[3]) : INT_MAX;
    bool exits = false;
    for (int round = 0; round < rounds; exits = !exits)
        round += client.Round(exits) ? 1 : 0;
    Say(QStringLiteral("done"));
    std::string line;
    std::getline(std::cin, line);
}
