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
    void Load() { Choose(0, 0); }
    /// Reads both lists, and keeps what is chosen as far as it still exists.
    void Refill();
    /// Reads both lists and chooses in them. 0 chooses nothing. Where one cannot be read, both stay as they
    /// are.
    void Choose(int stateCode, int cityCode);

private:
    DataCombo* states_;
    DataCombo* cities_;
};

} // namespace tally
