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
    void Form_Activate(bool first) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void LoadScreen();
    void tvwDisplay_Click();
    void Show(const HelpPage& page);

    std::unique_ptr<Ui::frmHelp> ui_;
    std::unique_ptr<store::Connection> help_; ///< null where the file could not be opened
    int screenNo_ = 0;                        ///< the screen that asked last
};

} // namespace tally
