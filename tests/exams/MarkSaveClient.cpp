// A client of the school in a process of its own that works as it is told, line by line. At the mark screen
// "enter SUBJECT MARK" types a first entry and "edit SUBJECT MARK" types over what is stored; at the set-up
// of the subjects "allow SUBJECT MARK" lowers or raises what is allowed and "drop SUBJECT -" takes one out;
// at the set-up of the grades "give GRADE AVERAGE" types from where the grade is given, into the row that has
// it or into a new table of this grade alone; "copy A B" copies the grades of division A to B.
// Then it says "typed"; "save" saves and it says the last box that came. "replace" stores another set of
// subjects over and over, "regrade" another table of grades, and says the word after each save, until it is
// killed.

#include "app/Screens.h"
#include "core/modTallyboard.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

namespace {

using namespace tally;

/// Whoever works at one screen: the last box that told something is kept.
class Worker
{
public:
    explicit Worker(const char* formName)
    {
        Prompts::AnswerWith([this](Prompts::Kind kind, const QString& text) {
            if (kind != Prompts::Kind::Question)
                lastBox_ = text;
            // "No" to further marks of the same class, "Yes" to all else.
            return !text.endsWith(QStringLiteral("'Exam-Class-Division' ?"));
        });
        ShowForm(QString::fromLatin1(formName));
        form_ = ScreenRegistry::OpenInstance(QString::fromLatin1(formName));
        form_->activateWindow();
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    virtual ~Worker() = default;

    /// Types as it is told, without saving.
    virtual void Prepare(const QString& order, const QString& subject, const QString& mark) = 0;

    QString Save()
    {
        lastBox_.clear();
        Press("cmdSave");
        return lastBox_;
    }

protected:
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

    FlexGrid* Grid() { return form_->findChild<FlexGrid*>(QStringLiteral("msgDetails")); }
    void Click(int row, int col)
    {
        QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          Grid()->CellRect(row, col).center());
    }

    Screen* form_ = nullptr;

private:
    QString lastBox_;
};

class MarkClerk : public Worker
{
public:
    MarkClerk() : Worker("frmexammarkentry") {}

    void Prepare(const QString& order, const QString& subject, const QString& mark) override
    {
        Press("cmdNew");
        Choose("dbcExam", QStringLiteral("Term One"));
        Choose("cboClass", QStringLiteral("X"));
        Choose("cboDivision", QStringLiteral("A"));
        Choose("dbcSubject", subject);
        Key(Qt::Key_Tab);
        if (order == QLatin1String("edit")) {
            Press("cmdEdit");
            Click(1, 2);
        }
        for (int row = 1; row < Grid()->Rows() - 1; ++row) {
            QTest::keyClicks(QApplication::focusWidget(), mark);
            Key(Qt::Key_Return);
        }
    }
};

class SubjectClerk : public Worker
{
public:
    SubjectClerk() : Worker("frmClassSubjectTeacher") {}

    void Prepare(const QString& order, const QString& subject, const QString& mark) override
    {
        StartEdit();
        int row = 1;
        while (row < Grid()->Rows() && Grid()->TextMatrix(row, 1) != subject)
            ++row;
        if (order == QLatin1String("allow")) {
            Click(row, 4);
            QTest::keyClicks(QApplication::focusWidget(), mark);
            Key(Qt::Key_Return);
        } else {
            auto* serialNo = form_->findChild<QLineEdit*>(QStringLiteral("txtDeleteSlNo"));
            serialNo->setFocus();
            QTest::keyClicks(serialNo, QString::number(row));
            Press("cmdDeleteRow");
        }
    }

    /// All subjects are allowed 90 where they were allowed 100, and the other way round.
    QString SaveTheOther()
    {
        StartEdit();
        const bool inFull = Grid()->TextMatrix(1, 4) == QStringLiteral("100");
        for (int row = 1; row < Grid()->Rows() - 1; ++row) {
            Click(row, 4);
            QTest::keyClicks(QApplication::focusWidget(),
                             inFull ? QStringLiteral("90") : QStringLiteral("100"));
        }
        return Save();
    }

private:
    void StartEdit()
    {
        Choose("cboClass", QStringLiteral("X"));
        Choose("cboDivision", QStringLiteral("A"));
        Key(Qt::Key_Return);
        Press("cmdEdit");
    }
};

class GradeClerk : public Worker
{
public:
    GradeClerk() : Worker("frmClassRankSetup") {}

    void Prepare(const QString&, const QString& grade, const QString& average) override
    {
        int row = StartEdit() ? 1 : 0;
        while (row > 0 && Grid()->TextMatrix(row, 3) != grade)
            ++row;
        if (row > 0)
            Click(row, 1);
        QTest::keyClicks(QApplication::focusWidget(), average);
        Key(Qt::Key_Return);
        if (row > 0)
            return;
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("0"));
        Key(Qt::Key_Return);
        QTest::keyClicks(QApplication::focusWidget(), grade);
    }

    /// All grades ask for a subject average of 20 where they asked for 10, and the other way round.
    QString SaveTheOther()
    {
        StartEdit();
        const QString other =
            Grid()->TextMatrix(1, 2) == QStringLiteral("10") ? QStringLiteral("20") : QStringLiteral("10");
        for (int row = 1; row < Grid()->Rows() - 2; ++row) {
            Click(row, 2);
            QTest::keyClicks(QApplication::focusWidget(), other);
        }
        return Save();
    }

private:
    /// False where there are no grades, and new ones are entered.
    bool StartEdit()
    {
        Press("cmdNew");
        Choose("dbcExam", QStringLiteral("Term One"));
        Choose("cboClass", QStringLiteral("X"));
        Choose("cboDivision", QStringLiteral("A"));
        Key(Qt::Key_Return);
        const bool areStored = !Grid()->TextMatrix(1, 1).isEmpty();
        if (areStored)
            Press("cmdEdit");
        return areStored;
    }
};

class GradeCopyClerk : public Worker
{
public:
    GradeCopyClerk() : Worker("frmClassRankTransferSetup") {}

    void Prepare(const QString&, const QString& from, const QString& to) override
    {
        Press("cmdNew");
        Choose("cboFromAcademicyear", QStringLiteral("2024 - 2025"));
        Choose("dbcExamFrom", QStringLiteral("Term One"));
        Choose("cboFromClass", QStringLiteral("X"));
        Choose("cboFromDivision", from);
        Choose("cboToAcademicYear", QStringLiteral("2024 - 2025"));
        Choose("dbcExamTo", QStringLiteral("Term One"));
        Choose("cboToClass", QStringLiteral("X"));
        auto* divisions = form_->findChild<CheckList*>(QStringLiteral("lstDivision"));
        divisions->setFocus();
        divisions->setCurrentItem(divisions->findItems(to, Qt::MatchExactly).value(0));
        Key(Qt::Key_Space);
        Press("cmdTransfer");
    }
};

std::unique_ptr<Worker> WorkerFor(const QString& order)
{
    if (order == QLatin1String("allow") || order == QLatin1String("drop"))
        return std::make_unique<SubjectClerk>();
    if (order == QLatin1String("give"))
        return std::make_unique<GradeClerk>();
    if (order == QLatin1String("copy"))
        return std::make_unique<GradeCopyClerk>();
    return std::make_unique<MarkClerk>();
}

void Say(const QString& text)
{
    std::puts(qPrintable(text.simplified()));
    std::fflush(stdout);
}

template <typename Clerk>
[[noreturn]] void SaveUntilKilled()
{
    for (Clerk clerk;;)
        Say(clerk.SaveTheOther());
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
    std::unique_ptr<Worker> worker;
    Say(QStringLiteral("ready"));
    for (std::string line; std::getline(std::cin, line);) {
        const QStringList words = QString::fromStdString(line).split(QLatin1Char(' '));
        const QString& order = words.first();
        if (order == QLatin1String("replace")) {
            SaveUntilKilled<SubjectClerk>();
        } else if (order == QLatin1String("regrade")) {
            SaveUntilKilled<GradeClerk>();
        } else if (order == QLatin1String("save")) {
            Say(worker->Save());
        } else {
            worker = WorkerFor(order);
            worker->Prepare(order, words.at(1), words.at(2));
            Say(QStringLiteral("typed"));
        }
    }
}
