#pragma once

#include "core/Numbers.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/ScreenRegistry.h"
#include "reports/ChartView.h"
#include "reports/GridText.h"
#include "reports/ReportOutput.h"
#include "support/FormDriver.h"
#include "support/TestSchool.h"

#include <optional>

namespace tally::test {

/// A report on a school whose rows a test lays down first. What it exports, prints and writes is only noted.
template <typename Form>
class ReportDriver : public FormDriver<Form>
{
protected:
    using Base = FormDriver<Form>;

    void SetUp() override
    {
        Base::SetUp();
        school = std::make_unique<TestSchool>(*Session().gcnnMain, *Session().gcnnTemp);
        Session().gintAcademicYearCode = 1;
        output.emplace(Base::Folder());
    }

    void TearDown() override
    {
        output.reset();
        school.reset();
        Base::TearDown();
    }

    /// With neighbours on these sides of what the test has laid down by then.
    void OpenReport(const char* formName, const std::set<Side>& sides)
    {
        if (!Base::form)
            Base::SurroundSchool(sides);
        Base::OpenForm(formName);
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

    void ExpectNoList()
    {
        EXPECT_EQ(grid->Rows(), 2);
        EXPECT_EQ(grid->Cols(), 1);
        EXPECT_FALSE(Base::IsEnabled("cmdExport"));
        EXPECT_FALSE(Base::IsEnabled("cmdPrint"));
        if (const auto* Frame3 = Base::form->template findChild<QWidget*>(QStringLiteral("Frame3"))) {
            EXPECT_FALSE(Frame3->isEnabled()) << "a list without a chart has no such frame";
        }
    }

    /// Whether the chart may be of lines, once there is a list to be charted.
    bool IsLineOffered() const
    {
        return Base::Option("optLineGrph")->isEnabledTo(Find<QWidget>(Base::form, "Frame3"));
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

    std::string Row(int row) const { return RowText(grid->Table(), row); }

    /// All rows of the chart's table, each with its values.
    static std::string ChartRows()
    {
        QStringList rows;
        auto all = Session().gcnnTemp->Query(QStringLiteral("SELECT * FROM TempChartReport"));
        while (all.Next()) {
            QStringList cells{all.Text(0)};
            for (int column = 1; column < all.ColumnCount(); ++column)
                cells.append(PlainNumber(all.Double(column)));
            rows.append(cells.join(QLatin1Char('|')));
        }
        return rows.join(QLatin1Char(';')).toStdString();
    }

    /// What the chart window shows; nothing while it is closed.
    static std::optional<Chart> ShownChart()
    {
        const Screen* window = ScreenRegistry::OpenInstance(QStringLiteral("frmStudentExamAvgChart"));
        return window ? std::optional(Find<ChartView>(window, "mscChart")->ShownChart()) : std::nullopt;
    }
    static std::string ChartWords()
    {
        const ChartHeads heads = ShownChart().value_or(Chart()).heads;
        return QStringList{heads.title, heads.xAxis, heads.yAxis}.join(QLatin1Char('|')).toStdString();
    }

    std::unique_ptr<TestSchool> school;
    std::optional<ReportOutput> output;
    FlexGrid* grid = nullptr;
};

} // namespace tally::test
