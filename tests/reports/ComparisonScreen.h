#pragma once

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

    std::unique_ptr<RankCardSchool> cards;
    DataCombo* classes = nullptr;
    DataCombo* divisions = nullptr;
    DataCombo* students = nullptr;
    CheckList* subjects = nullptr;
    QCheckBox* allSubjects = nullptr;
};

} // namespace tally::test
