#pragma once

#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/ScreenRegistry.h"
#include "students/PlacedStudents.h"
#include "support/FormDriver.h"

#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace tally::test {

inline const QString EditOrDelete = QStringLiteral("Do You Want To Edit/Delete ?");
inline const QString NoRecord = QStringLiteral("No Record Exists");

/// The screens by which students come and go, in an office that works in its second year on 10/Jun/2024 and
/// has its calendar filled up to the 12th.
class StudentOffice : public FormDriver<Screen>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        StopPresence();
        LayStudentMasters(Main());
        LayClasses(Main());
        Given("INSERT INTO ApplicationDate VALUES ('2024-06-03', 1), ('2024-06-12', 1)");
        Session().gintUserCode = 3;
        Session().gintAcademicYearCode = 2;
        Session().gdtmApplicationDate = QDate(2024, 6, 10);
    }

    static store::Connection& Main() { return *Session().gcnnMain; }

    static void GivenStudent(const Student& student) { StoreStudent(Main(), student); }
    /// With the code's number, "A101" for 1.
    static void GivenStudent(int code, const char* name) { GivenStudent(StudentNamed(code, name)); }
    static void GivenPlacement(int code, int year = 2, const Placement& placement = {1, 1},
                               const char* status = "Y")
    {
        Place(Main(), code, year, placement, status);
    }
    /// Runs a statement as another client of the same files.
    void Other(const char* sql) { AnotherClient()->Execute(QString::fromLatin1(sql)); }

    std::string LabelOf(const char* name) const { return Find<QLabel>(form, name)->text().toStdString(); }
    bool IsShown(const char* name) const { return Find<QWidget>(form, name)->isVisibleTo(form); }
    DatePicker* Date(const char* name) const { return Find<DatePicker>(form, name); }
    DataGrid* Grid() const { return Find<DataGrid>(form, "dgdDetails"); }

    /// The names of the buttons and frames that are on, of those that follow what the screen is doing.
    std::string EnabledOf(const std::vector<const char*>& names) const
    {
        QStringList on;
        for (const char* name : names)
            if (IsEnabled(name))
                on.append(QString::fromLatin1(name));
        return on.join(QLatin1Char(' ')).toStdString();
    }
    static std::string ListedIn(const QComboBox* list)
    {
        QStringList texts;
        for (int index = 0; index < list->count(); ++index)
            texts.append(list->itemText(index));
        return texts.join(QLatin1Char('|')).toStdString();
    }
    /// The column of the list, from top to bottom.
    std::string Listed(const char* head) const
    {
        QStringList texts;
        for (int row = 0; row < Grid()->RowCount(); ++row)
            texts.append(Grid()->Text(row, QString::fromLatin1(head)));
        return texts.join(QLatin1Char('|')).toStdString();
    }
    /// The heads that the list shows.
    std::string ShownHeads() const
    {
        QStringList heads;
        for (int column = 0; column < Grid()->model()->columnCount(); ++column)
            if (!Grid()->isColumnHidden(column))
                heads.append(Grid()->model()->headerData(column, Qt::Horizontal).toString());
        return heads.join(QLatin1Char('|')).toStdString();
    }
    void DoubleClick(int row) const
    {
        int column = 0;
        while (Grid()->isColumnHidden(column))
            ++column;
        const QPoint middle = Grid()->visualRect(Grid()->model()->index(row, column)).center();
        QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        QTest::mouseDClick(Grid()->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        Settle();
    }

    static bool IsOpen(const char* formName)
    {
        return ScreenRegistry::OpenInstance(QString::fromLatin1(formName)) != nullptr;
    }
    /// From now on the test drives the screen in front, which is this one.
    void TurnTo(const char* formName)
    {
        form = ScreenRegistry::OpenInstance(QString::fromLatin1(formName));
        ASSERT_NE(form, nullptr) << formName;
        EXPECT_EQ(window->Area()->activeSubWindow()->widget(), form) << formName;
    }
};

} // namespace tally::test
