#pragma once

#include "core/SessionContext.h"
#include "core/ui/Screen.h"
#include "support/ExpectedPrompts.h"
#include "support/Neighbours.h"
#include "support/StoreWords.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>
#include <optional>

class QAbstractButton;
class QMdiSubWindow;

namespace tally {
class mdiTallyboard;
}

namespace tally::test {

/// A program folder of its own with freshly delivered, encrypted databases, and a session that starts clean.
/// The databases hold rows of others too, which a test finds in no list and must leave as they are. Ending
/// the process is only counted.
class ProgramFixture : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// Opens both connections of the session, as the splash does.
    void OpenConnections();
    /// One more client on the main database, or on another file of the folder.
    std::unique_ptr<store::Connection> AnotherClient(
        const QString& file = QStringLiteral("Tallyboard.mdb")) const;
    QString Folder() const { return folder_.path(); }
    /// Runs one statement on the session's main database, for the rows that a test starts from.
    template <typename... Values>
    void Given(const char* sql, const Values&... values)
    {
        Session().gcnnMain->Execute(QString::fromLatin1(sql), values...);
    }
    /// The first column of the first row of a query on the main database; 0 for none.
    template <typename... Values>
    qint64 Count(const char* sql, const Values&... values)
    {
        return Session().gcnnMain->Number(QString::fromLatin1(sql), values...);
    }
    /// Lays neighbours beside all that the session's main database holds of the school, on these sides. They
    /// stand in no list, and a test must leave them as they are too.
    void SurroundSchool(const std::set<Side>& sides = {Side::Year, Side::Exam, Side::Class, Side::Division});
    /// Takes what the main database holds of others by now for what must stay as it is.
    void GuardOthers() { others_ = RowsOfOthers(*Session().gcnnMain); }
    /// For a test in which the files themselves, or rows of others, are to go.
    void LeaveOthersUnguarded() { guarded_ = false; }
    /// A user who may log in, with rights given as pairs of form name and code.
    void GivenUser(int code, const QString& loginId, const QString& password,
                   const QList<std::pair<QString, QString>>& rights = {},
                   const QString& block = QStringLiteral("N"));

    ExpectedPrompts prompts;
    int processEnds = 0;

private:
    /// On the session's own connection where it has one still.
    void ExpectUntouched(const RowsOfOthers& others, store::Connection* session, const char* file) const;

    QTemporaryDir folder_;
    std::optional<RowsOfOthers> others_; ///< of the main database, where they are more than was delivered
    bool guarded_ = true;
};

/// The same with both connections open and the main window shown.
class ScreenFixture : public ProgramFixture
{
protected:
    void SetUp() override;

    /// Opens a screen as its menu entry does and gives it; null when it did not open.
    template <typename Form>
    Form* Open(const char* formName)
    {
        return qobject_cast<Form*>(OpenScreen(QString::fromLatin1(formName)));
    }
    Screen* OpenScreen(const QString& formName);
    /// Opens the screen on a display of 800 by 600; all of it must be visible and nothing cut off.
    void ExpectToFit(const QString& formName);
    /// Lets the clock of the main window tick, now and once.
    void Tick();
    /// Keeps the presence row, which is written each second, out of a count of statements.
    void StopPresence();

    mdiTallyboard* window = nullptr;
};

/// The control of that name; fails the test when there is none.
template <typename Control>
Control* Find(const QObject* parent, const char* objectName)
{
    auto* control = parent->findChild<Control*>(QString::fromLatin1(objectName));
    EXPECT_NE(control, nullptr) << "no control " << objectName;
    return control;
}

/// Every underlined letter of `form` must lead to one control only. Gives the texts of those fields and
/// buttons that no letter leads to.
QStringList ExpectOneControlALetter(const QWidget* form);
/// Puts the focus on the widget and types.
void Type(QWidget* widget, const QString& keys);
/// Presses one key on the widget that has the focus within `form`.
void PressKey(QWidget* form, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Clicks a button with the mouse; a disabled one does nothing, as for the user.
void Press(QAbstractButton* button);
/// Lets queued events and deletions happen.
void Settle();

} // namespace tally::test
