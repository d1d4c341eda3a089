#pragma once

#include "core/ui/controls/LeaveGuard.h"

#include <QComboBox>
#include <QList>

#include <utility>
#include <vector>

namespace tally {

/// A list of texts with a code bound to each. The code 0 belongs to the blank line, which means that nothing
/// has been chosen.
class DataCombo : public QComboBox
{
    Q_OBJECT

public:
    using Entries = std::vector<std::pair<int, QString>>;

    explicit DataCombo(QWidget* parent = nullptr);

    /// Takes the place of all entries and chooses the blank one, or none where there is no blank one. Tells
    /// nobody.
    void SetList(const Entries& entries);
    /// The same behind a blank line, which is chosen.
    void SetListBehindBlank(Entries entries);
    /// The code of the chosen entry; 0 for the blank line and for none.
    int BoundCode() const { return currentData().toInt(); }
    /// Chooses the entry with `code`; the blank line when there is no such entry. Tells nobody.
    void SetBoundCode(int code);
    /// The same by text, small and capital letters alike.
    void SetText(const QString& text);
    /// Takes back a choice that was refused: the blank line is chosen, and tells nobody. The arrows go on
    /// from the refused entry as long as the list keeps the focus, so that it does not bar the way to those
    /// behind.
    void TakeBack();
    /// True while nothing has been chosen.
    bool IsBlank() const { return currentText().trimmed().isEmpty(); }

    /// True from a refused leave until the focus is back.
    bool KeepsFocus() const { return guard_.KeepsFocus(); }

    /// Asked once when the focus is about to leave the list; on false the list keeps it, and the click that
    /// was to take it away has no effect. Empty lets everything pass.
    void SetValidate(std::function<bool()> validate) { guard_.SetValidate(std::move(validate)); }

    /// Who goes on to one of these gives up: going there settles nothing.
    void SetGivingUp(const QList<QWidget*>& ways) { givingUp_ = ways; }
    /// Settles a choice that the user has left without settling it.
    void Settle();

    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    /// The user chose another entry than the one before, with the mouse or the keys. In an editable list the
    /// same entry is a choice as well, since a text typed over it is left for it.
    void Chosen();
    /// The user has done with his choice: he has closed the opened list, or gone to another control of the
    /// form, and nothing was told of the choice here yet. In a list that takes Enter for itself, Enter says
    /// so too, whether another entry was chosen or not. Walking over the entries with the arrows settles
    /// nothing. `goesOn`: by Enter, by Tab or by closing the list, so that the screen may lead him on; else
    /// he is where he wants to be.
    void Settled(bool goesOn);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// Runs what takes the focus away without asking.
    void LeaveUnasked(const std::function<void()>& work) { guard_.Unasked(work); }

private:
    void Choose(int index);
    void Settle(bool goesOn);

    LeaveGuard guard_{this};
    int takenBack_ = -1;     ///< the entry that was refused last; -1 for none
    bool changed_ = false;   ///< the entry is another one since the last choice
    bool unsettled_ = false; ///< something was chosen since the choice settled last
    bool isOpen_ = false;
    QList<QWidget*> givingUp_;
};

} // namespace tally
