#include "reports/StudentChoice.h"

#include "core/SessionContext.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "reports/ComparisonRepository.h"

namespace tally {

StudentChoice::StudentChoice(Screen* screen, const Controls& controls, DivisionChoice::Order divisions)
    : QObject(screen), screen_(screen), controls_(controls),
      classDivision_(new DivisionChoice(screen, controls.cboClass, controls.cboDivision, divisions))
{
    connect(controls.cboClass, &DataCombo::Chosen, this, &StudentChoice::LoadStudents);
    connect(controls.cboDivision, &DataCombo::Chosen, this, &StudentChoice::LoadStudents);
    if (controls.cbostudent)
        connect(controls.cbostudent, &DataCombo::Chosen, this, &StudentChoice::Changed);
}

void StudentChoice::Load()
{
    screen_->Read([this] { classDivision_->Load(); });
    LoadStudents();
}

void StudentChoice::OfferDivisions(DivisionChoice::Order order)
{
    const int divisionCode = controls_.cboDivision->BoundCode();
    classDivision_->OfferAgain(order);
    if (controls_.cboDivision->BoundCode() != divisionCode)
        LoadStudents();
}

void StudentChoice::LoadStudents()
{
    if (controls_.cbostudent)
        controls_.cbostudent->SetListBehindBlank({});
    Q_EMIT Changed();
    const SchoolScope scope = Scope();
    if (!controls_.cbostudent || scope.classCode == 0 || scope.divisionCode == 0)
        return;
    const auto students = screen_->Fetch([&] { return ComparisonRepository(MainStore()).Students(scope); });
    if (!students)
        return;
    controls_.cbostudent->SetListBehindBlank(*students);
    if (students->empty())
        Prompts::Information(QStringLiteral("Student Admission Entry Is Not Made In This Class-Division"));
}

bool StudentChoice::IsComplete()
{
    if (controls_.cboClass->IsBlank())
        return Refuse(QStringLiteral("Select Class"), controls_.cboClass);
    if (controls_.cboDivision->IsBlank())
        return Refuse(QStringLiteral("Select Division"), controls_.cboDivision);
    if (controls_.cbostudent && controls_.cbostudent->IsBlank())
        return Refuse(QStringLiteral("Select Student"), controls_.cbostudent);
    return true;
}

bool StudentChoice::IsMade() const
{
    const SchoolScope scope = Scope();
    return scope.classCode != 0 && scope.divisionCode != 0 && (!controls_.cbostudent || StudentCode() != 0);
}

SchoolScope StudentChoice::Scope() const
{
    return {Session().gintAcademicYearCode, 0, controls_.cboClass->BoundCode(),
            controls_.cboDivision->BoundCode()};
}

int StudentChoice::StudentCode() const
{
    return controls_.cbostudent ? controls_.cbostudent->BoundCode() : 0;
}

QString StudentChoice::ClassName() const
{
    return controls_.cboClass->currentText().trimmed();
}

QString StudentChoice::DivisionName() const
{
    return controls_.cboDivision->currentText().trimmed();
}

QString StudentChoice::StudentName() const
{
    return controls_.cbostudent ? controls_.cbostudent->currentText() : QString();
}

} // namespace tally
