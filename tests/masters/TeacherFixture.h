#pragma once

#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/controls/OptionalDatePicker.h"
#include "masters/frmTeacherMaster.h"
#include "support/ScreenFixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace tally::test {

/// The teacher screens in an office that knows two states, three cities, two blood groups and two
/// salutations.
class TeacherFixture : public ScreenFixture
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

    void OpenMaster()
    {
        form = Open<frmTeacherMaster>("frmTeacherMaster");
        ASSERT_NE(form, nullptr);
    }

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

    QPushButton* Button(const char* name) { return Find<QPushButton>(form, name); }
    QLineEdit* Text(const char* name) { return Find<QLineEdit>(form, name); }
    DataCombo* List(const char* name) { return Find<DataCombo>(form, name); }
    OptionalDatePicker* Date(const char* name) { return Find<OptionalDatePicker>(form, name); }
    QAbstractButton* Option(const char* name) { return Find<QAbstractButton>(form, name); }

    /// Goes through a list with the arrow keys until the text stands there.
    void Choose(const char* name, const QString& text)
    {
        DataCombo* list = List(name);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 0; step < list->count() && list->currentText() != text; ++step)
            QTest::keyClick(list, Qt::Key_Down);
        ASSERT_EQ(list->currentText().toStdString(), text.toStdString());
    }

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
        Type(Text("txtTeacherName"), name);
        Type(Text("txtTeacherShortName"), shortName);
    }

    bool HasFocus(const char* name) const
    {
        const auto* control = Find<QWidget>(form, name);
        const QWidget* focused = form->focusWidget();
        return focused && (focused == control || control->isAncestorOf(focused));
    }

    /// Saves and expects to be told `message` and taken to the control.
    void ExpectRefusal(const QString& message, const char* control)
    {
        prompts.ExpectInformation(message);
        Press(Button("cmdSave"));
        prompts.Verify();
        EXPECT_TRUE(HasFocus(control)) << control;
        EXPECT_TRUE(Button("cmdSave")->isEnabled());
    }

    void Save(const QString& message = QStringLiteral("Record Saved"))
    {
        prompts.ExpectInformation(message);
        Press(Button("cmdSave"));
        prompts.Verify();
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
        EXPECT_FALSE(Find<QWidget>(form, "fraMain")->isEnabled());
        EXPECT_TRUE(Button("cmdNew")->isEnabled());
        EXPECT_FALSE(Button("cmdEdit")->isEnabled());
        EXPECT_FALSE(Button("cmdDelete")->isEnabled());
        EXPECT_FALSE(Button("cmdSave")->isEnabled());
        for (const char* always : {"cmdCancel", "cmdSearch", "cmdExit"})
            EXPECT_TRUE(Button(always)->isEnabled()) << always;
    }

    frmTeacherMaster* form = nullptr;
};

} // namespace tally::test
