#include "core/ui/controls/OptionalDatePicker.h"

#include "core/ui/controls/DatePicker.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QSignalBlocker>

namespace tally {

OptionalDatePicker::OptionalDatePicker(QWidget* parent)
    : QWidget(parent), tick_(new QCheckBox(this)), date_(new DatePicker(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(tick_);
    layout->addWidget(date_, 1);
    // A label's mnemonic leads to the tick, from where Enter goes on to the date.
    setFocusProxy(tick_);
    date_->setEnabled(false);
    // A date counts when it is complete, not at each of its digits.
    date_->setKeyboardTracking(false);
    connect(tick_, &QCheckBox::toggled, date_, &QWidget::setEnabled);
    connect(tick_, &QCheckBox::toggled, this, &OptionalDatePicker::Changed);
    connect(date_, &QDateEdit::dateChanged, this, &OptionalDatePicker::Changed);
}

bool OptionalDatePicker::IsTicked() const
{
    return tick_->isChecked();
}

void OptionalDatePicker::SetTicked(bool ticked)
{
    const QSignalBlocker quiet(this);
    tick_->setChecked(ticked);
}

QDate OptionalDatePicker::ShownDate() const
{
    return date_->date();
}

void OptionalDatePicker::SetDate(const QDate& date)
{
    SetTicked(date.isValid());
    if (date.isValid())
        SetShownDate(date);
}

void OptionalDatePicker::SetShownDate(const QDate& date)
{
    const QSignalBlocker quiet(this);
    date_->setDate(date);
}

} // namespace tally
