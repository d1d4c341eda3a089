#pragma once

#include "core/ui/controls/DatePicker.h"
#include "core/ui/controls/OptionalDatePicker.h"
#include "masters/frmTeacherMaster.h"
#include "support/FormDriver.h"

#include <QCheckBox>

namespace tally::test {

/// The teacher screens in an office that knows two states, three cities, two blood groups and two
/// salutations.
class TeacherFixture : public FormDriver<frmTeacherMaster>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        Session().gintUserCode = 3;
        Given("INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1)");
        Given("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1), (2, 2, 'Panaji', 1), (3, 1, 'Aluva', 1)");
        Given("INSERT INTO BloodGroupMaster VALUES (1, 'O+', 1), (2, 'A-', 1)");
        Given("INSERT INTO SalutationMaster VALUES (1, 'Mrs', 1), (2, 'Mr', 1)");
    }

    void OpenMaster() { OpenForm("frmTeacherMaster"); }

    /// Opens the master and starts a new teacher.
    void StartNew()
    {
        OpenMaster();
        Press(Button("cmdNew"));
        ASSERT_TRUE(Find<QWidget>(form, "fraMain")->isEnabled());
    }

    /// Opens the master with a stored teacher and starts to edit.
    void StartEdit(int code)
    {
        OpenMaster();
        ASSERT_TRUE(form->LoadData(code));
        Press(Button("cmdEdit"));
    }

    void GivenTeacher(int code, const QString& name, const QString& shortName, int cityCode = 0)
    {
        Given("INSERT INTO TeacherMaster VALUES (?, 1, ?, ?, '1980-01-02', 'M', '2005-03-04', '2010-06-07',"
              " 'Father', 'House', 'Street', ?, '682001', '0484-1', 1, 'B.Ed', 1)",
              code, name, shortName, cityCode);
    }

    OptionalDatePicker* Date(const char* name) { return Find<OptionalDatePicker>(form, name); }

    /// Ticks a date and moves it, as the user does with the calendar.
    void Pick(const char* name, const QDate& date)
    {
        Tick(name);
        Date(name)->findChild<DatePicker*>()->setDate(date);
    }
    void Tick(const char* name)
    {
        auto* box = Date(name)->findChild<QCheckBox*>();
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Space);
        ASSERT_TRUE(box->isChecked());
    }

    void FillMandatory(const QString& name = QStringLiteral("Asha"),
                       const QString& shortName = QStringLiteral("ASH"))
    {
        Choose("cboPrefix", QStringLiteral("Mrs"));
        Type(Box("txtTeacherName"), name);
        Type(Box("txtTeacherShortName"), shortName);
    }

    QString Stored(const char* column, int code)
    {
        auto row =
            Session().gcnnMain->Query(QStringLiteral("SELECT %1 FROM TeacherMaster WHERE TeacherCode = ?")
                                          .arg(QString::fromLatin1(column)),
                                      code);
        EXPECT_TRUE(row.Next());
        return row.IsNull(0) ? QStringLiteral("NULL") : row.Text(0);
    }

    void ExpectIdle()
    {
        for (const char* off : {"fraMain", "cmdEdit", "cmdDelete", "cmdSave"})
            EXPECT_FALSE(IsEnabled(off)) << off;
        for (const char* on : {"cmdNew", "cmdCancel", "cmdSearch", "cmdExit"})
            EXPECT_TRUE(IsEnabled(on)) << on;
    }
};

} // namespace tally::test
