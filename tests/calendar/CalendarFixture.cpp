#include "calendar/CalendarFixture.h"

#include "core/DatabasePassword.h"
#include "core/shell/mdiTallyboard.h"
#include "core/TempFolder.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/ScreenRegistry.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include <array>

namespace tally::test {

namespace {

constexpr std::array WorkMenus{"mnuMasters", "mnuTransactions", "mnuReports", "mnuToolsMenu"};

} // namespace

void CalendarFixture::SetUp()
{
    ScreenFixture::SetUp();
    Given("INSERT INTO ApplicationDate VALUES ('1990-06-01', -1)");
    GuardOthers();
    GivenStartMonth("JUN");
}

void CalendarFixture::GivenStartMonth(const char* shortName)
{
    Given("DELETE FROM SchoolMaster");
    Given("INSERT INTO SchoolMaster VALUES ('School', 'Street', '', 0, '1', ?, 1)", shortName);
}

void CalendarFixture::GivenYear(int code, int yearFrom, const char* status)
{
    Given("INSERT INTO AcademicYearSetup VALUES (?, ?, ?, ?, ?, ?, 'N', 1)", code, yearFrom, yearFrom + 1,
          QDate(yearFrom, 6, 1), QDate(yearFrom + 1, 5, 31), status);
}

void CalendarFixture::GivenDays(const QList<QDate>& days)
{
    for (const QDate& day : days)
        Given("INSERT INTO ApplicationDate VALUES (?, 1)", day);
}

qint64 CalendarFixture::Days()
{
    return Count("SELECT count(*) FROM ApplicationDate WHERE UserCode > 0");
}

qint64 CalendarFixture::ScreensTaken()
{
    return Count("SELECT count(*) FROM ScreenStatus WHERE Screen <> 'Next door'");
}

void CalendarFixture::GivenSessionUser(int days, const QList<std::pair<QString, QString>>& rights)
{
    GivenUser(4, QStringLiteral("clerk"), QStringLiteral("secret"), rights);
    Given("UPDATE UserPrivilegeMaster SET Days = ? WHERE UserCode = 4", days);
}

void CalendarFixture::Start()
{
    delete window;
    SessionContext fresh;
    fresh.gcnnMain = std::move(Session().gcnnMain);
    fresh.gcnnTemp = std::move(Session().gcnnTemp);
    BuildDatabasePassword(fresh);
    fresh.gintUserCode = fresh.gintPrivilegeUserCode = 4;
    Session() = std::move(fresh);
    CreateTempFolder();
    window = mdiTallyboard::Load();
    ASSERT_NE(window, nullptr);
    // The start has forgotten all screens; this one another client has opened since.
    Given("INSERT INTO ScreenStatus VALUES ('Next door')");
    GuardOthers();
    EnableMenus(true);
    window->show();
    QApplication::setActiveWindow(window);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    Settle();
}

void CalendarFixture::MakeReadOnly()
{
    StopPresence();
    Given("PRAGMA query_only = ON");
}

void CalendarFixture::EnableMenus(bool enabled)
{
    for (const char* menu : WorkMenus)
        window->EnableMenuItem(QString::fromLatin1(menu), enabled);
}

bool CalendarFixture::MenusAre(bool enabled) const
{
    for (const char* menu : WorkMenus)
        if (window->MenuItem(QString::fromLatin1(menu))->isEnabled() != enabled)
            return false;
    return true;
}

std::string CalendarFixture::Panel(int number) const
{
    return window->statusBar()
        ->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)
        .at(number - 1)
        ->text()
        .toStdString();
}

std::string CalendarFixture::Text(const QWidget* form, const char* control) const
{
    const auto* widget = Find<QWidget>(form, control);
    return widget->property(widget->inherits("QComboBox") ? "currentText" : "text").toString().toStdString();
}

QDate CalendarFixture::DateIn(const QWidget* form, const char* picker) const
{
    return Find<DatePicker>(form, picker)->date();
}

bool CalendarFixture::HasFocus(const QWidget* form, const char* control) const
{
    return form->focusWidget() == Find<QWidget>(form, control);
}

bool CalendarFixture::IsOn(const QWidget* form, const char* control) const
{
    return Find<QWidget>(form, control)->isEnabled();
}

void CalendarFixture::Click(const QWidget* form, const char* button)
{
    Press(Find<QPushButton>(form, button));
}

bool CalendarFixture::IsOpen(const char* formName) const
{
    return ScreenRegistry::OpenInstance(QString::fromLatin1(formName)) != nullptr;
}

int CalendarFixture::HelpNumber(QWidget* form)
{
    PressKey(form, Qt::Key_F1);
    return Session().glngScreenNo;
}

} // namespace tally::test
