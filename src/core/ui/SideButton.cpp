#include "core/ui/SideButton.h"

#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenRegistry.h"

#include <utility>

namespace tally {

SideButton::SideButton(Screen* screen, QPushButton* button, QWidget* list, QString masterForm,
                       std::function<void()> refill)
    : QObject(button), screen_(screen), button_(button), list_(list), masterForm_(std::move(masterForm)),
      refill_(std::move(refill))
{
    button->setIcon(LookIcon(QStringLiteral("add")));
    // Enter in the list goes on to the next field; the button answers to the mouse and to its keys.
    button->setFocusPolicy(Qt::ClickFocus);
    connect(button, &QPushButton::clicked, this, &SideButton::Open);
    connect(screen, &Screen::CameBack, this, &SideButton::Refill);
}

void SideButton::Open()
{
    leadsToList_ = screen_->focusWidget() == button_;
    ShowForm(masterForm_);
    rowsMayHaveChanged_ = ScreenRegistry::OpenInstance(masterForm_) != nullptr;
}

void SideButton::Refill()
{
    if (!rowsMayHaveChanged_)
        return;
    // The master may still be open behind this screen, and go on changing its rows.
    rowsMayHaveChanged_ = ScreenRegistry::OpenInstance(masterForm_) != nullptr;
    refill_();
    // Only once the form has its keyboard back, or it would take the button for its field at the next return.
    if (std::exchange(leadsToList_, false))
        QMetaObject::invokeMethod(list_, qOverload<>(&QWidget::setFocus), Qt::QueuedConnection);
}

} // namespace tally
