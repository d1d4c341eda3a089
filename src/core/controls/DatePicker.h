#pragma once

#include <QDateEdit>

namespace tally {

/// A date field with a calendar to open, showing "dd/MMM/yyyy". Starts at the machine's date.
class DatePicker : public QDateEdit
{
    Q_OBJECT

public:
    explicit DatePicker(QWidget* parent = nullptr);
};

} // namespace tally
