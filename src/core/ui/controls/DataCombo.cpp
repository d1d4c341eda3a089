#include "core/ui/controls/DataCombo.h"

#include <QSignalBlocker>

#include <utility>

namespace tally {

DataCombo::DataCombo(QWidget* parent) : QComboBox(parent)
{
    connect(this, &QComboBox::currentIndexChanged, this, [this] { changed_ = true; });
    connect(this, &QComboBox::activated, this, [this] {
        if (std::exchange(changed_, false) || isEditable())
            Q_EMIT Chosen();
    });
}

void DataCombo::SetList(const Entries& entries)
{
    const QSignalBlocker quiet(this);
    clear();
    for (const auto& [code, text] : entries)
        addItem(text, code);
    Choose(findData(0));
}

void DataCombo::SetListBehindBlank(Entries entries)
{
    entries.insert(entries.begin(), {0, QStringLiteral(" ")});
    SetList(entries);
}

void DataCombo::SetBoundCode(int code)
{
    const int found = findData(code);
    Choose(found >= 0 ? found : findData(0));
}

void DataCombo::SetText(const QString& text)
{
    const int found = findText(text, Qt::MatchFixedString);
    Choose(found >= 0 ? found : findData(0));
}

void DataCombo::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    guard_.Leaves(event);
}

void DataCombo::Choose(int index)
{
    const QSignalBlocker quiet(this);
    setCurrentIndex(index);
    changed_ = false;
    update();
}

} // namespace tally
