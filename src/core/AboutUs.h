#pragma once

#include "core/Screen.h"

#include <memory>

namespace Ui {
class AboutUs;
}

namespace tally {

/// The about screen: a movie and its one button.
class AboutUs : public Screen
{
    Q_OBJECT

public:
    AboutUs();
    ~AboutUs() override;

protected:
    /// The about screen goes without a question.
    void cmdExit_Click() override;

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
