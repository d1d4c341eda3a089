#include "core/ui/PlaceChoice.h"

#include "core/school/PlaceRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/Screen.h"

namespace tally {

PlaceChoice::PlaceChoice(Screen* screen, DataCombo* states, DataCombo* cities)
    : QObject(screen), states_(states), cities_(cities)
{
    connect(states, &DataCombo::Chosen, this, [this, screen] {
        // Those of the state before are none of this one, also where its own cannot be read.
        cities_->SetList({});
        screen->Read([this] { cities_->SetList(PlaceRepository(MainStore()).Cities(states_->BoundCode())); });
    });
}

void PlaceChoice::Refill()
{
    Choose(states_->BoundCode(), cities_->BoundCode());
}

void PlaceChoice::Choose(int stateCode, int cityCode)
{
    PlaceRepository places(MainStore());
    const CodedTexts states = places.States();
    const CodedTexts cities = places.Cities(stateCode);
    states_->SetList(states);
    states_->SetBoundCode(stateCode);
    cities_->SetList(cities);
    cities_->SetBoundCode(cityCode);
}

} // namespace tally
