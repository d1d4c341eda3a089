#pragma once

#include <QWidget>

#include <memory>

class QLineEdit;

namespace Ui {
class frmStartLogin;
}

namespace tally {

class SessionRepository;

/// Asks who works here. The right answer opens the main window with the menus of that user; on a new
/// installation any answer does, with the menus that make the first user.
class frmStartLogin : public QWidget
{
    Q_OBJECT

public:
    /// Shows the form. Both connections must be open.
    static void Open();
    ~frmStartLogin() override;

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    frmStartLogin();
    void DrawButtons();
    void DrawBackground();
    void Light(bool ok, bool cancel);
    void ImgOK_Click();
    void Login();
    bool NewInstallation(SessionRepository& repository);
    void LoadApplication(SessionRepository& repository);
    void GiveWayToMainWindow();

    std::unique_ptr<Ui::frmStartLogin> ui_;
    bool done_ = false;
};

} // namespace tally
