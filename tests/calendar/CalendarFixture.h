#pragma once

#include "support/ScreenFixture.h"

#include <QDate>

namespace tally::test {

/// A school whose academic years and working days a test lays down before the program starts.
class CalendarFixture : public ScreenFixture
{
protected:
    void SetUp() override;

    /// The month in which the school's years begin, by its short name.
    void GivenStartMonth(const char* shortName);
    /// A year from June to May with the code, its first calendar year and whether it is active.
    void GivenYear(int code, int yearFrom, const char* status);
    void GivenDays(const QList<QDate>& days);
    /// How many working days there are, and how many screens are taken, without those of others.
    qint64 Days();
    qint64 ScreensTaken();
    /// The login of the session, with the limit of days and pairs of form name and right.
    void GivenSessionUser(int days, const QList<std::pair<QString, QString>>& rights);
    /// Starts the program on the rows given so far; the work menus are open.
    void Start();
    /// From now on the session can only read, as on a folder without the right to write.
    void MakeReadOnly();

    /// Switches the four work menus.
    void EnableMenus(bool enabled);
    bool MenusAre(bool enabled) const;
    std::string Panel(int number) const;
    std::string Text(const QWidget* form, const char* control) const;
    QDate DateIn(const QWidget* form, const char* picker) const;
    /// Whether the control has the focus within its form.
    bool HasFocus(const QWidget* form, const char* control) const;
    bool IsOn(const QWidget* form, const char* control) const;
    void Click(const QWidget* form, const char* button);
    bool IsOpen(const char* formName) const;
    /// Presses F1 and gives the number of the help screen that was asked for.
    int HelpNumber(QWidget* form);
};

} // namespace tally::test
