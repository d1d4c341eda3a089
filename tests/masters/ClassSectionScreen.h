#pragma once

#include "core/ui/controls/FloatingEditor.h"
#include "masters/frmMasClassSectionEntry.h"
#include "support/FormDriver.h"

#include <QFrame>
#include <QGroupBox>

namespace tally::test {

/// The open class screen with its controls, and classes to start from.
class ClassSectionScreen : public FormDriver<frmMasClassSectionEntry>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        Session().gintUserCode = 5;
    }

    void GivenClass(int code, const QString& name, int count, int order)
    {
        Given("INSERT INTO ClassDivisionMaster VALUES (?, ?, ?, ?, 1)", code, name, count, order);
        for (int division = 1; division <= count; ++division)
            Given("INSERT INTO ClassDivisionDetails VALUES (?, ?, ?)", code, DefaultDivisionName(division),
                  division);
    }

    void GivenThreeClasses()
    {
        GivenClass(1, QStringLiteral("XII"), 2, 1);
        GivenClass(2, QStringLiteral("XI"), 3, 2);
        GivenClass(3, QStringLiteral("X"), 1, 3);
    }

    void GivenStudentIn(int classCode, int divisionCode)
    {
        Given(
            "INSERT INTO AcademicYearSetup VALUES (1, 2023, 2024, '2023-06-01', '2024-05-31', 'Y', 'N', 1)");
        Given("INSERT INTO StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo) VALUES (1, 1, '1')");
        Given("INSERT INTO StudentClassDivision VALUES (1, 1, ?, ?, 'Y', 1)", classCode, divisionCode);
    }

    void OpenForm()
    {
        FormDriver::OpenForm("frmMasClassSectionEntry");
        classes = Find<FlexGrid>(form, "msgClassDetails");
        divisions = Find<FlexGrid>(form, "msgDivisionDetails");
        txtClassName = Find<FloatingEditor>(form, "txtClassName");
        txtNoOfDivisions = Find<FloatingEditor>(form, "txtNoOfDivisions");
        txtClassOrder = Find<FloatingEditor>(form, "txtClassOrder");
        txtDivisionName = Find<FloatingEditor>(form, "txtDivisionName");
        txtDeleteSlNo = Find<QLineEdit>(form, "txtDeleteSlNo");
    }

    void Browse()
    {
        OpenForm();
        Press(Button("cmdClose"));
    }

    void Edit()
    {
        Browse();
        Press(Button("cmdEdit"));
    }

    void New()
    {
        Browse();
        Press(Button("cmdNew"));
    }

    void DeleteRow(int row)
    {
        txtDeleteSlNo->setFocus();
        QTest::keyClicks(txtDeleteSlNo, QString::number(row));
        prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete S.No. %1 ?").arg(row), true);
        Press(Button("cmdDeleteRow"));
    }

    /// The visible cells of a row of the class grid.
    std::string ClassRowText(int row)
    {
        QStringList texts;
        for (int col = 0; col <= 3; ++col)
            texts.append(classes->TextMatrix(row, col));
        return texts.join(QLatin1Char('|')).toStdString();
    }

    std::string DivisionTexts()
    {
        QString texts;
        for (int row = 1; row < divisions->Rows(); ++row)
            texts += divisions->TextMatrix(row, 0) + divisions->TextMatrix(row, 1) + QLatin1Char(' ');
        return texts.trimmed().toStdString();
    }

    /// "code name count order" of each stored class in its order.
    std::string StoredClasses()
    {
        QString all;
        for (const ClassRecord& record : ClassSectionRepository(*Session().gcnnMain).Classes())
            all += QStringLiteral("%1 %2 %3 %4; ")
                       .arg(QString::number(record.classCode), record.className,
                            QString::number(record.noOfDivisions), QString::number(record.classOrder));
        return all.trimmed().toStdString();
    }

    std::string StoredDivisions(int classCode)
    {
        QString all;
        for (const ClassDivision& division : ClassSectionRepository(*Session().gcnnMain).Divisions())
            if (division.classCode == classCode)
                all.prepend(QString::number(division.divisionCode) + division.divisionName +
                            QLatin1Char(' '));
        return all.trimmed().toStdString();
    }

    FlexGrid* classes = nullptr;
    FlexGrid* divisions = nullptr;
    FloatingEditor* txtClassName = nullptr;
    FloatingEditor* txtNoOfDivisions = nullptr;
    FloatingEditor* txtClassOrder = nullptr;
    FloatingEditor* txtDivisionName = nullptr;
    QLineEdit* txtDeleteSlNo = nullptr;
};

} // namespace tally::test
