#pragma once

#include "core/ui/Screen.h"

#include <memory>

namespace Ui {
class frmHelp;
}

namespace tally {

struct HelpPage;

/// Shows the help text of the screen that asked for it, beside a list of all screens.
class frmHelp : public Screen
{
    Q_OBJECT

public:
    frmHelp();
    ~frmHelp() override;
    QSize sizeHint() const override;

protected:
    void cmdExit_Click() override { Unload(); }
    /// F1 on a screen while the help stands open behind it asks for that screen's text.
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void LoadScreen();
    void tvwDisplay_Click();
    void Show(const HelpPage& page);
    /// The text never has the keyboard, and its page keys turn it all the same. False for any other key.
    bool TurnText(int key);

    std::unique_ptr<Ui::frmHelp> ui_;
    std::unique_ptr<store::Connection> help_; ///< null where the file could not be opened
};

} // namespace tally
