#pragma once

#include "core/CodedTexts.h"

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

    /// When the divisions of a class are read. Until then none is offered.
    enum class Reads
    {
        AtEachClass, ///< also of those that the arrows only pass
        OnceSettled,
    };

    /// From then on, choosing a class offers its divisions, before the screen hears of it. Belongs to the
    /// screen.
    DivisionChoice(Screen* screen, DataCombo* classes, DataCombo* divisions, Order order,
                   Reads reads = Reads::AtEachClass);

    /// Reads the classes; nothing is chosen then, and no division offered. Throws StoreError as Choose does.
    void Load() { Choose(NotChosen, NotChosen); }
    /// Reads both lists, and keeps what is chosen as far as it still exists. Throws StoreError as Choose
    /// does.
    void Refill();
    /// Reads both lists and chooses in them. 0 chooses nothing. Throws StoreError; then both stay as they
    /// are.
    void Choose(int classCode, int divisionCode);
    /// Chooses a class among those listed and offers its divisions; 0 chooses none. Divisions that cannot be
    /// read are told and left out.
    void ChooseClass(int classCode);
    /// Offers the divisions of the chosen class once more, in this order; the one chosen stays chosen.
    /// Another class brings the usual order back. Divisions that cannot be read are told and left as they
    /// are.
    void OfferAgain(Order order);
    /// Takes back the choice of a class that was refused, as DataCombo::TakeBack says.
    void TakeBackClass();

private:
    static constexpr int NotChosen = 0;

    static CodedTexts DivisionsOf(int classCode, Order order);
    void LoadDivisions();

    Screen* screen_;
    DataCombo* classes_;
    DataCombo* divisions_;
    Order order_;
};

} // namespace tally
