#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmStartLock;
}

namespace tally {

/// Lies over everything while the clerk is away, and nothing of what lies behind can be read. F10 asks for
/// the login; Esc offers to end the program.
class frmStartLock : public QDialog
{
    Q_OBJECT

public:
    /// Locks the program until the user of this session unlocks it. A locked program stays as it is.
    static void Lock(QWidget* mainWindow);
    ~frmStartLock() override;

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    explicit frmStartLock(QWidget* mainWindow);
    void CoverWindows();
    void Cover(QWidget* shown);
    void AskForUnlocking();
    void Unload();

    std::unique_ptr<Ui::frmStartLock> ui_;
    bool unlocked_ = false;
};

} // namespace tally
