#pragma once

#include <QObject>

namespace tally {

class DataCombo;
class Screen;

/// Two lists that choose a class-division together: the classes, and the divisions of the chosen class, each
/// behind a blank line.
class DivisionChoice : public QObject
{
public:
    /// In which order the divisions of a class are offered.
    enum class Order
    {
        ByName,
        ByCode,
    };

    /// From then on, choosing a class offers its divisions, before the screen hears of it. Belongs to the
    /// screen.
    DivisionChoice(Screen* screen, DataCombo* classes, DataCombo* divisions, Order order);

    /// Reads the classes; nothing is chosen then, and no division offered. What cannot be read is told and
    /// left out.
    void Load();
    /// The same, and keeps what is chosen as far as it still exists.
    void Refill();
    /// Chooses among what is listed. 0 chooses nothing.
    void Choose(int classCode, int divisionCode);
    /// Takes back the choice of a class that was refused, as DataCombo::TakeBack says.
    void TakeBackClass();

private:
    void LoadDivisions();

    Screen* screen_;
    DataCombo* classes_;
    DataCombo* divisions_;
    Order order_;
};

} // namespace tally
