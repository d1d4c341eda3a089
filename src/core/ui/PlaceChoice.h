#pragma once

#include <QObject>

namespace tally {

class DataCombo;
class Screen;

/// Two lists that choose a place together: the states, and the cities of the chosen state. Reading them
/// throws StoreError.
class PlaceChoice : public QObject
{
public:
    /// From then on, choosing a state offers its cities. Belongs to the screen.
    PlaceChoice(Screen* screen, DataCombo* states, DataCombo* cities);

    /// Reads the states; nothing is chosen then, and no city offered.
    void Load();
    /// The same, and keeps what is chosen as far as it still exists.
    void Refill();
    /// Chooses among what is listed. 0 chooses nothing.
    void Choose(int stateCode, int cityCode);

private:
    void LoadCities();

    DataCombo* states_;
    DataCombo* cities_;
};

} // namespace tally
