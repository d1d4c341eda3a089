#pragma once

#include "core/ui/controls/CheckList.h"
#include "core/ui/OpenDocument.h"
#include "ranks/frmRankCardPrinting.h"
#include "ranks/RankCardSchool.h"
#include "support/FormDriver.h"

#include <QCheckBox>

namespace tally::test {

/// "Rank Card" on a school whose rows a test lays down first.
class RankCardScreen : public FormDriver<frmRankCardPrinting>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        school = std::make_unique<TestSchool>(*Session().gcnnMain, *Session().gcnnTemp);
        cards = std::make_unique<RankCardSchool>(*school);
        Session().gintAcademicYearCode = 1;
        SetExportFolder(Folder() + QStringLiteral("/exports"));
        UseSpreadsheetProgram({true, [this](const QString& path) {
                                   exported = path;
                                   return true;
                               }});
    }

    void TearDown() override
    {
        UseRealSpreadsheetProgram();
        SetExportFolder({});
        cards.reset();
        school.reset();
        ScreenFixture::TearDown();
    }

    /// With neighbours beside what the test has laid down by then, but for other years: a card shows on
    /// purpose what the same division has in those.
    void OpenForm()
    {
        if (!form)
            SurroundSchool({Side::Exam, Side::Class, Side::Division});
        FormDriver::OpenForm("frmRankCardPrinting");
        exams = Find<CheckList>(form, "Lstexamnames");
        allExams = Find<QCheckBox>(form, "chkSelectExamName");
        classes = Find<DataCombo>(form, "cboClass");
        divisions = Find<DataCombo>(form, "cboDivision");
        students = Find<CheckList>(form, "LstStudents");
        allStudents = Find<QCheckBox>(form, "chkSelectStudents");
        grid = Find<FlexGrid>(form, "msgDetails");
    }

    /// Chooses the next entry with the arrow key.
    static void Next(DataCombo* combo)
    {
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Down);
    }

    /// Exams Term One and Term Two; Asha is complete in both, Binu lacks a mark in the second.
    void GivenTwoStudents()
    {
        cards->AddExam(2, "Term Two", 2);
        school->AddUsualDivision(2);
        const int asha = school->AddMarkedStudent(QStringLiteral("Asha"), {60, 70});
        const int binu = school->AddMarkedStudent(QStringLiteral("Binu"), {20, 71});
        cards->EnterMarks(2, asha, {80, 90});
        cards->EnterMarks(2, binu, {50});
        cards->SaveRank(1, asha, 130, 65, 1, "B");
        cards->SaveRank(1, binu, 91, 45.5, NoRank, "C");
    }

    void ChooseDivision()
    {
        Next(classes);
        Next(divisions);
        ASSERT_EQ(divisions->currentText(), QStringLiteral("A"));
    }

    /// Shows the cards of all students in Term One.
    void OpenAndProceed()
    {
        OpenForm();
        Tick(exams, 0);
        ChooseDivision();
        Press(allStudents);
        Press(Button("cmdView"));
        ASSERT_TRUE(Button("cmdExport")->isEnabled());
    }

    QStringList Items(const CheckList* list) const
    {
        QStringList texts;
        for (int index = 0; index < list->count(); ++index)
            texts.append(list->item(index)->text());
        return texts;
    }

    QString Row(int row) const
    {
        QStringList texts;
        for (int col = 0; col < grid->Cols(); ++col)
            texts.append(grid->TextMatrix(row, col));
        return texts.join(QLatin1Char('|'));
    }

    void ExpectNoCards()
    {
        EXPECT_EQ(grid->Rows(), 2);
        EXPECT_EQ(Row(1), QString());
        EXPECT_FALSE(Button("cmdExport")->isEnabled());
    }

    std::unique_ptr<TestSchool> school;
    std::unique_ptr<RankCardSchool> cards;
    CheckList* exams = nullptr;
    QCheckBox* allExams = nullptr;
    DataCombo* classes = nullptr;
    DataCombo* divisions = nullptr;
    CheckList* students = nullptr;
    QCheckBox* allStudents = nullptr;
    FlexGrid* grid = nullptr;
    QString exported;
};

} // namespace tally::test
