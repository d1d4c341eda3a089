#include "support/ScreenFixture.h"

#include "core/DatabasePassword.h"
#include "core/modTallyboard.h"
#include "core/ProcessEnd.h"
#include "core/ProgramFolder.h"
#include "core/shell/mdiTallyboard.h"
#include "core/TempFolder.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "reports/output/PrintPreview.h"
#include "store/StoreError.h"
#include "tools/DeliveredDatabases.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QPointer>
#include <QTimer>

namespace tally::test {

namespace {

QString Password()
{
    SessionContext session;
    BuildDatabasePassword(session);
    return DatabasePassword(session);
}

constexpr auto MainFile = "Tallyboard.mdb";
constexpr auto TempFile = "TempTallyboard.mdb";

/// The four delivered files, made once for all tests of the program, with rows of others.
class Delivered
{
public:
    Delivered()
    {
        MakeDeliveredDatabases(folder_.path(), Password());
        store::Connection main(Path(MainFile), Password());
        store::Connection temp(Path(TempFile), Password());
        AddOthers(main, temp);
        inMain.emplace(main);
        inTemp.emplace(temp);
    }
    QString Path(const char* file) const { return folder_.filePath(QLatin1String(file)); }
    QStringList Files() const { return QDir(folder_.path()).entryList(QDir::Files); }
    QString Path(const QString& file) const { return folder_.filePath(file); }

    std::optional<RowsOfOthers> inMain;
    std::optional<RowsOfOthers> inTemp;

private:
    QTemporaryDir folder_;
};

const Delivered& TheDelivered()
{
    static const Delivered delivered;
    return delivered;
}

} // namespace

void ProgramFixture::SetUp()
{
    ASSERT_TRUE(folder_.isValid());
    for (const QString& file : TheDelivered().Files())
        ASSERT_TRUE(QFile::copy(TheDelivered().Path(file), folder_.filePath(file)));
    SetProgramFolder(folder_.path());
    Session() = SessionContext();
    EndProcessWith([this] { ++processEnds; });
}

void ProgramFixture::TearDown()
{
    Settle();
    delete mdiTallyboard::Instance();
    // A window takes its calendars and lists with it, so what is left is looked up before each step.
    const auto windows = QApplication::topLevelWidgets();
    const QList<QPointer<QWidget>> left(windows.begin(), windows.end());
    for (const QPointer<QWidget>& widget : left)
        if (widget && !widget->parent())
            delete widget;
    if (guarded_) {
        ExpectUntouched(others_ ? *others_ : *TheDelivered().inMain, Session().gcnnMain.get(), MainFile);
        ExpectUntouched(*TheDelivered().inTemp, Session().gcnnTemp.get(), TempFile);
    }
    Session() = SessionContext();
    EndProcessWith({});
    UsePrintPreview({});
    SetProgramFolder({});
}

void ProgramFixture::ExpectUntouched(const RowsOfOthers& others, store::Connection* session,
                                     const char* file) const
{
    try {
        if (session)
            others.ExpectUntouched(*session);
        else
            others.ExpectUntouched(*AnotherClient(QLatin1String(file)));
    } catch (const store::StoreError& error) {
        ADD_FAILURE() << file << ": " << error.what();
    }
}

void ProgramFixture::SurroundSchool(const std::set<Side>& sides)
{
    AddNeighbours(*Session().gcnnMain, sides, Listed::No);
    GuardOthers();
}

void ProgramFixture::OpenConnections()
{
    tally::OpenConnections();
    // No test pulls the plug on the disk, and waiting for it would make up most of the time.
    for (store::Connection* connection : {Session().gcnnMain.get(), Session().gcnnTemp.get()})
        connection->Execute(QStringLiteral("PRAGMA synchronous = OFF"));
}

std::unique_ptr<store::Connection> ProgramFixture::AnotherClient(const QString& file) const
{
    return std::make_unique<store::Connection>(folder_.filePath(file), Password());
}

void ProgramFixture::GivenUser(int code, const QString& loginId, const QString& password,
                               const QList<std::pair<QString, QString>>& rights, const QString& block)
{
    Given("INSERT INTO UserMaster (UserCode, UserName, EnteredBy) VALUES (?, ?, 0)", code,
          QString(QStringLiteral("User ") + loginId));
    Given("INSERT INTO UserPrivilegeMaster (UserCode, LoginId, Password, Block, EnteredBy, Days)"
          " VALUES (?, ?, ?, ?, 0, 0)",
          code, loginId, password, block);
    for (const auto& [form, right] : rights)
        Given("INSERT INTO UserPrivilegeDetails (FormName, ButtonName, UserCode) VALUES (?, ?, ?)", form,
              right, code);
}

void ScreenFixture::SetUp()
{
    ProgramFixture::SetUp();
    OpenConnections();
    CreateTempFolder();
    // A test that presses Print would wait in vain for somebody to close what comes.
    UsePrintPreview([](const PrintJob&) {});
    window = mdiTallyboard::Load();
    ASSERT_NE(window, nullptr);
    // An office past its first run, so that the window forces no screen.
    Session().gblnSchoolExists = true;
    Session().gblnActiveYearExists = true;
    window->show();
    QApplication::setActiveWindow(window);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
}

Screen* ScreenFixture::OpenScreen(const QString& formName)
{
    ShowForm(formName);
    Settle();
    return ScreenRegistry::OpenInstance(formName);
}

void ScreenFixture::Tick()
{
    auto* timer = Find<QTimer>(window, "tmrTimer");
    ASSERT_TRUE(timer->isActive());
    ASSERT_TRUE(QMetaObject::invokeMethod(timer, "timeout"));
}

void ScreenFixture::StopPresence()
{
    Find<QTimer>(window, "tmrTimer")->stop();
}

void ScreenFixture::ExpectToFit(const QString& formName)
{
    window->setWindowState(Qt::WindowNoState);
    window->resize(800, 600);
    const Screen* form = OpenScreen(formName);
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(window->Area()->viewport()->rect().contains(form->parentWidget()->geometry()));
    EXPECT_LE(form->minimumSizeHint().width(), form->width());
    EXPECT_LE(form->minimumSizeHint().height(), form->height());
}

QStringList ExpectOneControlALetter(const QWidget* form)
{
    QStringList texts;
    for (const auto* label : form->findChildren<QLabel*>())
        if (label->buddy())
            texts.append(label->text());
    for (const auto* button : form->findChildren<QAbstractButton*>())
        if (!button->text().isEmpty())
            texts.append(button->text());
    QStringList letters;
    QStringList without;
    for (const QString& text : texts) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        EXPECT_FALSE(!letter.isEmpty() && letters.contains(letter)) << text.toStdString();
        (letter.isEmpty() ? without : letters).append(letter.isEmpty() ? text : letter);
    }
    EXPECT_GE(letters.size(), 5);
    return without;
}

void Type(QWidget* widget, const QString& keys)
{
    widget->setFocus();
    QTest::keyClicks(widget, keys);
}

void PressKey(QWidget* form, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget* focused = form->focusWidget();
    QTest::keyClick(focused ? focused : form, key, modifiers);
}

void Press(QAbstractButton* button)
{
    // An option stretched over a row answers on its sign and text only, which stand at its left.
    const QPoint onItsSign(std::min(10, button->width() / 2), button->height() / 2);
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, button->isCheckable() ? onItsSign : QPoint());
}

void Settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace tally::test
