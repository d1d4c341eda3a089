#pragma once

#include "core/shell/SingleCopy.h"

#include <QWidget>

#include <memory>

namespace Ui {
class frmSplash;
}

namespace tally {

/// The first window: plays the opening movie and, on its Enter, opens the databases and asks for the login.
/// It stays loaded and hidden for the whole session.
class frmSplash : public QWidget
{
    Q_OBJECT

public:
    /// `executable` is the program of which only one copy may run on this machine.
    explicit frmSplash(const QString& executable);
    ~frmSplash() override;

    /// False when another copy runs: the user has been told and the process ends.
    bool Form_Load();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Activate();
    void swfSplash_FSCommand(const QString& command, const QString& argument);
    void OpenConnections();

    std::unique_ptr<Ui::frmSplash> ui_;
    SingleCopy singleCopy_;
};

} // namespace tally
