#pragma once

#include <QDialog>

#include <memory>

class QLineEdit;

namespace Ui {
class frmStartUnlock;
}

namespace tally {

/// Asks the user of this session for id and password again. Nobody else can unlock.
class frmStartUnlock : public QDialog
{
    Q_OBJECT

public:
    explicit frmStartUnlock(QWidget* lock);
    ~frmStartUnlock() override;

Q_SIGNALS:
    void Unlocked();

private:
    void cmdOK_Click();
    void Unload();

    std::unique_ptr<Ui::frmStartUnlock> ui_;
};

} // namespace tally
