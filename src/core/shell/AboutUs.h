#pragma once

#include "core/ui/Screen.h"

#include <memory>

namespace Ui {
class AboutUs;
}

namespace tally {

/// The about screen: a movie with its one button, and under it what a clerk passes on who asks for help.
class AboutUs : public Screen
{
    Q_OBJECT

public:
    AboutUs();
    ~AboutUs() override;

protected:
    /// The about screen goes without a question.
    void cmdExit_Click() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void swfAboutUs_FSCommand(const QString& command);

    std::unique_ptr<Ui::AboutUs> ui_;
};

/// The empty form that unloads AboutUs: a form can't go away inside an event of its own movie. It is never
/// seen and goes by itself.
class frmtest : public QWidget
{
    Q_OBJECT

public:
    explicit frmtest(AboutUs* aboutUs);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    AboutUs* aboutUs_;
};

} // namespace tally
