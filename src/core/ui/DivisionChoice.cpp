#include "core/ui/DivisionChoice.h"

#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/Screen.h"

namespace tally {

DivisionChoice::DivisionChoice(Screen* screen, DataCombo* classes, DataCombo* divisions, Order order,
                               Reads reads)
    : QObject(screen), screen_(screen), classes_(classes), divisions_(divisions), order_(order)
{
    classes_->SetListBehindBlank({});
    divisions_->SetListBehindBlank({});
    if (reads == Reads::AtEachClass) {
        connect(classes, &DataCombo::Chosen, this, &DivisionChoice::LoadDivisions);
        return;
    }
    connect(classes, &DataCombo::Chosen, this, [this] { divisions_->SetListBehindBlank({}); });
    connect(classes, &DataCombo::Settled, this, &DivisionChoice::LoadDivisions);
}

void DivisionChoice::Refill()
{
    Choose(classes_->BoundCode(), divisions_->BoundCode());
}

void DivisionChoice::Choose(int classCode, int divisionCode)
{
    const CodedTexts classes = SchoolListRepository(MainStore()).Classes();
    const CodedTexts divisions = DivisionsOf(classCode, order_);
    classes_->SetListBehindBlank(classes);
    classes_->SetBoundCode(classCode);
    divisions_->SetListBehindBlank(divisions);
    divisions_->SetBoundCode(divisionCode);
}

void DivisionChoice::ChooseClass(int classCode)
{
    classes_->SetBoundCode(classCode);
    LoadDivisions();
}

void DivisionChoice::OfferAgain(Order order)
{
    const int divisionCode = divisions_->BoundCode();
    screen_->Read([&] {
        divisions_->SetListBehindBlank(DivisionsOf(classes_->BoundCode(), order));
        divisions_->SetBoundCode(divisionCode);
    });
}

void DivisionChoice::TakeBackClass()
{
    classes_->TakeBack();
    LoadDivisions();
}

CodedTexts DivisionChoice::DivisionsOf(int classCode, Order order)
{
    if (classCode == 0)
        return {};
    SchoolListRepository lists(MainStore());
    return order == Order::ByName ? lists.DivisionsByName(classCode) : lists.DivisionsByCode(classCode);
}

void DivisionChoice::LoadDivisions()
{
    // Those of the class before are none of this one, also where its own cannot be read.
    divisions_->SetListBehindBlank({});
    screen_->Read([this] { divisions_->SetListBehindBlank(DivisionsOf(classes_->BoundCode(), order_)); });
}

} // namespace tally
