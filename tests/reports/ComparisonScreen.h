#pragma once

#include "core/Numbers.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/OpenDocument.h"
#include "ranks/RankCardSchool.h"
#include "reports/output/PrintPreview.h"
#include "support/FormDriver.h"

#include <QCheckBox>

namespace tally::test {

/// A screen that compares exams or years, on a school whose rows a test lays down first. What it exports,
/// prints and writes is only noted.
template <typename Form>
class ComparisonScreen : public FormDriver<Form>
{
protected:
    using Base = FormDriver<Form>;

    void SetUp() override
    {
        Base::SetUp();
        school = std::make_unique<TestSchool>(*Session().gcnnMain, *Session().gcnnTemp);
        cards = std::make_unique<RankCardSchool>(*school);
        Session().gintAcademicYearCode = 1;
        SetExportFolder(Base::Folder() + QStringLiteral("/exports"));
        UseSpreadsheetProgram({true, [this](const QString& path) {
                                   exported = path;
                                   return true;
                               }});
        UseTextProgram([this](const QString& path) {
            opened = path;
            return true;
        });
        UsePrintPreview([this](const PrintJob& job) { printed = job.title; });
    }

    void TearDown() override
    {
        UsePrintPreview({});
        UseTextProgram({});
        UseRealSpreadsheetProgram();
        SetExportFolder({});
        cards.reset();
        school.reset();
        Base::TearDown();
    }

    /// With neighbours beside what the test has laid down by then.
    void OpenReport(const char* formName, const std::set<Side>& sides)
    {
        if (!Base::form)
            Base::SurroundSchool(sides);
        Base::OpenForm(formName);
        classes = Base::List("cboClass");
        divisions = Base::List("cboDivision");
        subjects = Find<CheckList>(Base::form, "Lstsubjects");
        allSubjects = Find<QCheckBox>(Base::form, "chkSelectSubjects");
        grid = Find<FlexGrid>(Base::form, "msgDetails");
    }

    /// Presses "Proceed", is told what is missing and led to it.
    void ExpectMissing(const char* message, const char* control)
    {
        Base::prompts.ExpectInformation(QString::fromLatin1(message));
        Press(Base::Button("cmdView"));
        Base::prompts.Verify();
        EXPECT_TRUE(Base::HasFocus(control)) << control << ", not " << Base::FocusName();
        ExpectNoList();
    }

    static std::string Items(const CheckList* list)
    {
        QStringList texts;
        for (int index = 0; index < list->count(); ++index)
            texts.append(list->item(index)->text());
        return texts.join(QLatin1Char('|')).toStdString();
    }
    static std::string Items(const DataCombo* list)
    {
        QStringList texts;
        for (int index = 0; index < list->count(); ++index)
            texts.append(list->itemText(index));
        return texts.join(QLatin1Char('|')).toStdString();
    }

    std::string Row(int row) const
    {
        QStringList texts;
        for (int col = 0; col < grid->Cols(); ++col)
            texts.append(grid->TextMatrix(row, col));
        return texts.join(QLatin1Char('|')).toStdString();
    }

    /// All rows of the chart's table, each with its values.
    QStringList ChartRows()
    {
        QStringList rows;
        auto all = Session().gcnnTemp->Query(QStringLiteral("SELECT * FROM TempChartReport"));
        while (all.Next()) {
            QStringList cells{all.Text(0)};
            for (int column = 1; column < all.ColumnCount(); ++column)
                cells.append(PlainNumber(all.Double(column)));
            rows.append(cells.join(QLatin1Char('|')));
        }
        return rows;
    }

    void ExpectNoList()
    {
        EXPECT_EQ(grid->Rows(), 2);
        EXPECT_EQ(grid->Cols(), 1);
        for (const char* control : {"cmdExport", "Frame3", "cmdPrint"})
            EXPECT_FALSE(Base::IsEnabled(control)) << control;
    }

    std::unique_ptr<TestSchool> school;
    std::unique_ptr<RankCardSchool> cards;
    DataCombo* classes = nullptr;
    DataCombo* divisions = nullptr;
    CheckList* subjects = nullptr;
    QCheckBox* allSubjects = nullptr;
    FlexGrid* grid = nullptr;
    QString exported; ///< the workbook
    QString opened;   ///< the text report
    QString printed;  ///< the title of what was shown as pages
};

} // namespace tally::test
