#include "core/ui/PlaceChoice.h"

#include "core/school/PlaceRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/Screen.h"

namespace tally {

PlaceChoice::PlaceChoice(Screen* screen, DataCombo* states, DataCombo* cities)
    : QObject(screen), states_(states), cities_(cities)
{
    connect(states, &DataCombo::Chosen, this, [this, screen] { screen->Read([this] { LoadCities(); }); });
}

void PlaceChoice::Load()
{
    states_->SetList(PlaceRepository(MainStore()).States());
    LoadCities();
}

void PlaceChoice::Refill()
{
    const int stateCode = states_->BoundCode();
    const int cityCode = cities_->BoundCode();
    states_->SetList(PlaceRepository(MainStore()).States());
    Choose(stateCode, cityCode);
}

void PlaceChoice::Choose(int stateCode, int cityCode)
{
    states_->SetBoundCode(stateCode);
    LoadCities();
    cities_->SetBoundCode(cityCode);
}

void PlaceChoice::LoadCities()
{
    cities_->SetList(PlaceRepository(MainStore()).Cities(states_->BoundCode()));
}

} // namespace tally
