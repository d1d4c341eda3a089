#pragma once

#include "core/ui/controls/DatePicker.h"
#include "students/frmMasStudentMaster.h"
#include "students/StudentRows.h"
#include "support/FormDriver.h"

#include <QComboBox>
#include <QLabel>

namespace tally::test {

inline const QDate WorkingDate(2024, 6, 10);
inline const QString MasterIsGone =
    QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");

/// The screens of students in an office that works in its second year and takes students born by May 2018.
class StudentFixture : public FormDriver<frmMasStudentMaster>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        StopPresence();
        LayStudentMasters(*Session().gcnnMain);
        Given("INSERT INTO Options VALUES ('N', 'N', '2018-05-31', 'A', 'N', 'N')");
        Session().gintUserCode = 3;
        Session().gintAcademicYearCode = 2;
        Session().gintYearFrom = 2024;
        Session().gintYearTo = 2025;
        Session().gdtmApplicationDate = WorkingDate;
    }

    void OpenMaster() { OpenForm("frmMasStudentMaster"); }
    /// Opens the master and starts a new student.
    void StartNew()
    {
        OpenMaster();
        Press(Button("cmdNew"));
        ASSERT_TRUE(IsEnabled("fraMain"));
    }
    /// Opens the master with a stored student and starts to edit.
    void StartEdit(int code)
    {
        OpenMaster();
        ASSERT_TRUE(form->LoadData(code));
        Press(Button("cmdEdit"));
    }

    static void GivenStudent(const Student& student) { StoreStudent(*Session().gcnnMain, student); }
    static std::string Stored(int code) { return StoredStudent(*Session().gcnnMain, code); }
    static std::optional<Student> Found(int code)
    {
        return StudentRepository(*Session().gcnnMain).Find(code);
    }

    DatePicker* Date(const char* name) { return Find<DatePicker>(form, name); }
    std::string LabelOf(const char* name) { return Find<QLabel>(form, name)->text().toStdString(); }
    bool IsShown(const char* name) { return Find<QWidget>(form, name)->isVisibleTo(form); }
    /// What the list of genders shows; empty for none.
    std::string Gender() { return Find<QComboBox>(form, "cboSex")->currentText().toStdString(); }
    /// Types a date, day by day, as into any field.
    void TypeDate(const char* name, const char* date)
    {
        Date(name)->setFocus();
        Date(name)->setSelectedSection(QDateTimeEdit::DaySection);
        QTest::keyClicks(Date(name), QString::fromLatin1(date));
    }

    /// What is needed at least, with numbers typed by hand.
    void FillMandatory(const char* number = "101", const char* optional = "A1", const char* name = "Anu")
    {
        Type(Box("txtAdmissionNumber"), QString::fromLatin1(number));
        Type(Box("txtOptionalAdmissionNo"), QString::fromLatin1(optional));
        Type(Box("txtstudentName"), QString::fromUtf8(name));
        Date("dtpDOB")->setDate(QDate(2015, 1, 2));
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
