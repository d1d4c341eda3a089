#pragma once

#include <QObject>
#include <QPushButton>
#include <QString>

#include <functional>

namespace tally {

class Screen;

/// The button beside a list, which opens the master whose rows the list offers. Whenever the user comes back
/// from there, the list is read anew, as long as the master is open behind the screen.
class SideButton : public QObject
{
public:
    /// `list` gets the keyboard on the first return where it stood on the button. `refill` reads the list
    /// anew; the screen says whether what was chosen stays. Belongs to the button.
    SideButton(Screen* screen, QPushButton* button, QWidget* list, QString masterForm,
               std::function<void()> refill);

private:
    void Open();
    void Refill();

    Screen* screen_;
    QPushButton* button_;
    QWidget* list_;
    QString masterForm_;
    std::function<void()> refill_;
    bool rowsMayHaveChanged_ = false;
    bool leadsToList_ = false;
};

} // namespace tally
