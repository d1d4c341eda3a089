#include "core/ui/DivisionChoice.h"

#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/Screen.h"

namespace tally {

DivisionChoice::DivisionChoice(Screen* screen, DataCombo* classes, DataCombo* divisions, Order order)
    : QObject(screen), screen_(screen), classes_(classes), divisions_(divisions), order_(order)
{
    connect(classes, &DataCombo::Chosen, this, &DivisionChoice::LoadDivisions);
}

void DivisionChoice::Load()
{
    classes_->SetListBehindBlank({});
    divisions_->SetListBehindBlank({});
    screen_->Read([this] { classes_->SetListBehindBlank(SchoolListRepository(MainStore()).Classes()); });
}

void DivisionChoice::Refill()
{
    const int classCode = classes_->BoundCode();
    const int divisionCode = divisions_->BoundCode();
    Load();
    Choose(classCode, divisionCode);
}

void DivisionChoice::Choose(int classCode, int divisionCode)
{
    classes_->SetBoundCode(classCode);
    LoadDivisions();
    divisions_->SetBoundCode(divisionCode);
}

void DivisionChoice::TakeBackClass()
{
    classes_->TakeBack();
    LoadDivisions();
}

void DivisionChoice::LoadDivisions()
{
    divisions_->SetListBehindBlank({});
    const int classCode = classes_->BoundCode();
    if (classCode == 0)
        return;
    screen_->Read([&] {
        SchoolListRepository lists(MainStore());
        divisions_->SetListBehindBlank(order_ == Order::ByName ? lists.DivisionsByName(classCode)
                                                               : lists.DivisionsByCode(classCode));
    });
}

} // namespace tally
