#pragma once

#include "core/ui/controls/CheckList.h"
#include "core/ui/OpenDocument.h"
#include "ranks/frmRankCalculation.h"
#include "support/FormDriver.h"
#include "support/TestSchool.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>

namespace tally::test {

/// "Rank List Preparation" on a school whose rows a test lays down first.
class RankScreen : public FormDriver<frmRankCalculation>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        school = std::make_unique<TestSchool>(*Session().gcnnMain, *Session().gcnnTemp);
        Session().gintAcademicYearCode = 1;
    }

    void TearDown() override
    {
        UseRealSpreadsheetProgram();
        SetExportFolder({});
        school.reset();
        ScreenFixture::TearDown();
    }

    /// With neighbours on all sides of what the test has laid down by then.
    void OpenForm()
    {
        if (!form)
            SurroundSchool();
        FormDriver::OpenForm("frmRankCalculation");
        exam = Find<QComboBox>(form, "Cboexamname");
        classes = Find<QComboBox>(form, "cboClass");
        divisions = Find<CheckList>(form, "Lstdivision");
        selectAll = Find<QCheckBox>(form, "chkSelectAll");
        grid = Find<FlexGrid>(form, "msgDisplayDetails");
    }

    /// Chooses the exam and the class with the arrow keys.
    void ChooseExamAndClass()
    {
        exam->setFocus();
        QTest::keyClick(exam, Qt::Key_Down);
        QTest::keyClick(exam, Qt::Key_Return);
        QTest::keyClick(classes, Qt::Key_Down);
    }

    /// What that option checks, it checks once the key or the mouse has done its work.
    void DisplayAllSubjects()
    {
        Press(Option("Optsubjectdisplayyes"));
        Settle();
    }

    /// Toggles a division with the blank key.
    void Tick(int index) { FormDriver::Tick(divisions, index); }

    void OpenAndProceed()
    {
        OpenForm();
        ChooseExamAndClass();
        Press(selectAll);
        Press(Button("cmdUpdate"));
        ASSERT_FALSE(Find<QGroupBox>(form, "Frame2")->isEnabled());
    }

    /// How many rank totals of the exam and the class are saved, with this condition on them.
    qint64 SavedTotals(const char* condition = "Rank > 0")
    {
        const QByteArray own =
            "SELECT count(*) FROM TempRankTotal WHERE AcademicYearCode = 1 AND ExamCode = 1"
            " AND ClassCode = 1 AND DivisionCode < 10 AND ";
        return Count((own + condition).constData());
    }

    int GridRowOf(const QString& name) const
    {
        for (int row = 0; row < grid->Rows(); ++row)
            if (grid->TextMatrix(row, 0) == name)
                return row;
        return -1;
    }

    QString Cell(const QString& name, const QString& head) const
    {
        for (int col = 0; col < grid->Cols(); ++col)
            if (grid->TextMatrix(0, col) == head && grid->ColWidth(col) > 0)
                return grid->TextMatrix(GridRowOf(name), col);
        return QStringLiteral("no column ") + head;
    }

    QStringList ShownNames() const
    {
        QStringList names;
        for (int row = 2; row < grid->Rows(); ++row)
            if (!grid->TextMatrix(row, 1).isEmpty())
                names.append(grid->TextMatrix(row, 0));
        return names;
    }

    /// Fifty students in twenty-five subjects, more than any window of the tests can show.
    void GivenALongAndWideList()
    {
        constexpr int Subjects = 25;
        school->AddDivision(1, "A");
        school->AddUsualBands(1);
        for (int subject = 1; subject <= Subjects; ++subject)
            school->AddSubject(1, subject, ("Subj" + QByteArray::number(subject)).constData(), subject);
        for (int student = 1; student <= 50; ++student)
            school->AddMarkedStudent(QStringLiteral("Student %1").arg(student),
                                     std::vector<double>(Subjects, 40 + student));
    }

    /// Asha 90 80 (170), Binu 80 90 (170), Cara 50 60 (110), Dev 20 fails 70, Esa absent.
    void GivenFiveStudents()
    {
        school->AddUsualDivision(2);
        school->AddMarkedStudent(QStringLiteral("Asha"), {90, 80});
        school->AddMarkedStudent(QStringLiteral("Binu"), {80, 90});
        school->AddMarkedStudent(QStringLiteral("Cara"), {50, 60});
        school->AddMarkedStudent(QStringLiteral("Dev"), {20, 70});
        const int esa = school->AddStudent(1, QStringLiteral("Esa"));
        school->EnterMark(esa, 1, 55);
        school->EnterAbsence(esa, 2);
    }

    std::unique_ptr<TestSchool> school;
    QComboBox* exam = nullptr;
    QComboBox* classes = nullptr;
    CheckList* divisions = nullptr;
    QCheckBox* selectAll = nullptr;
    FlexGrid* grid = nullptr;
};

} // namespace tally::test
