#pragma once

#include "core/Twips.h"
#include "ranks/RankCardSchool.h"
#include "reports/ReportDriver.h"

#include <QCheckBox>

namespace tally::test {

/// A screen that compares exams or years.
template <typename Form>
class ComparisonScreen : public ReportDriver<Form>
{
protected:
    using Base = ReportDriver<Form>;

    void SetUp() override
    {
        Base::SetUp();
        cards = std::make_unique<RankCardSchool>(*Base::school);
    }

    void TearDown() override
    {
        cards.reset();
        Base::TearDown();
    }

    void OpenComparison(const char* formName, const std::set<Side>& sides)
    {
        Base::OpenReport(formName, sides);
        classes = Base::List("cboClass");
        divisions = Base::List("cboDivision");
        students = Base::List("cbostudent");
        subjects = Find<CheckList>(Base::form, "Lstsubjects");
        allSubjects = Find<QCheckBox>(Base::form, "chkSelectSubjects");
    }

    /// One box tells that the table is missing; nothing is chosen or shown behind it.
    template <typename Work>
    void ExpectMissingTable(const char* table, const Work& work)
    {
        Base::LeaveOthersUnguarded();
        const QString name = QString::fromLatin1(table);
        Session().gcnnMain->Execute(QStringLiteral("ALTER TABLE %1 RENAME TO Elsewhere").arg(name));
        Base::prompts.ExpectCritical(NoSuchTable(table));
        work();
        Base::prompts.Verify();
        Session().gcnnMain->Execute(QStringLiteral("ALTER TABLE Elsewhere RENAME TO %1").arg(name));
    }
    /// Takes the place of the chart's table, so that it cannot be laid down.
    static void BlockChart()
    {
        Session().gcnnTemp->Execute(QStringLiteral("DROP TABLE IF EXISTS TempChartReport"));
        Session().gcnnTemp->Execute(QStringLiteral("CREATE VIEW TempChartReport AS SELECT 1 AS Mark"));
    }
    /// A column at least as wide as the form gives it.
    void ExpectWidth(int col, int twips)
    {
        EXPECT_GE(Base::grid->ColWidth(col), twips / TwipsPerPixel) << col;
    }

    std::unique_ptr<RankCardSchool> cards;
    DataCombo* classes = nullptr;
    DataCombo* divisions = nullptr;
    DataCombo* students = nullptr;
    CheckList* subjects = nullptr;
    QCheckBox* allSubjects = nullptr;
};

} // namespace tally::test
