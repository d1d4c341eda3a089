#pragma once

#include "reports/ReportDriver.h"

#include <QCheckBox>

namespace tally::test {

/// A report over several divisions of a class.
template <typename Form>
class DivisionReportScreen : public ReportDriver<Form>
{
protected:
    using Base = ReportDriver<Form>;
    using Base::grid;
    using Base::school;

    /// Division B (code 1) with Binu, absent in Mat, and Cara; division A (code 2) with Asha. Both take Eng
    /// and Mat out of 100, and Mor, which is not taken for rank, out of 50.
    void GivenTwoDivisions()
    {
        GivenDivision(1, "B");
        GivenDivision(2, "A");
        const int asha = school->AddStudent(2, QStringLiteral("Asha"));
        const int binu = school->AddStudent(1, QStringLiteral("Binu"));
        const int cara = school->AddStudent(1, QStringLiteral("Cara"));
        EnterMarks(asha, {60, 80, 10});
        EnterMarks(binu, {30, std::nullopt, 20});
        EnterMarks(cara, {45.5, 50, 30});
    }

    /// With the three subjects, Mor as `mor` says, and nobody in it.
    void GivenDivision(int code, const char* name, const char* mor = "No", double maximum = 100)
    {
        school->AddDivision(code, name);
        school->AddSubject(code, 1, "Eng", 1, "Yes", maximum, maximum);
        school->AddSubject(code, 2, "Mat", 2);
        school->AddSubject(code, 3, "Mor", 3, mor, 50, 50);
    }

    /// In the subjects from 1 on; none means absent.
    void EnterMarks(int student, const std::vector<std::optional<double>>& marks)
    {
        int subject = 0;
        for (const std::optional<double>& mark : marks) {
            ++subject;
            if (mark)
                school->EnterMark(student, subject, *mark);
            else
                school->EnterAbsence(student, subject);
        }
    }

    void GivenStudentWithMarks(int division, const char* name,
                               const std::vector<std::optional<double>>& marks)
    {
        EnterMarks(school->AddStudent(division, QString::fromLatin1(name)), marks);
    }

    void OpenReport(const char* formName, const char* selectDivisions, const char* selectSubjects)
    {
        Base::OpenReport(formName, {Side::Year, Side::Exam, Side::Class, Side::Division});
        exams = Base::List("Cboexamname");
        classes = Base::List("cboClass");
        divisions = Find<CheckList>(Base::form, "Lstdivision");
        allDivisions = Find<QCheckBox>(Base::form, selectDivisions);
        subjects = Find<CheckList>(Base::form, "Lstsubjects");
        allSubjects = Find<QCheckBox>(Base::form, selectSubjects);
    }

    void ChooseClass()
    {
        Base::Choose("Cboexamname", QStringLiteral("Term One"));
        Base::Choose("cboClass", QStringLiteral("X"));
    }

    void ChooseAll()
    {
        ChooseClass();
        Press(allDivisions);
        Press(allSubjects);
    }

    void Display(const char* option)
    {
        Press(Base::Option(option));
        Settle();
    }

    DataCombo* exams = nullptr;
    DataCombo* classes = nullptr;
    CheckList* divisions = nullptr;
    QCheckBox* allDivisions = nullptr;
    CheckList* subjects = nullptr;
    QCheckBox* allSubjects = nullptr;
};

} // namespace tally::test
