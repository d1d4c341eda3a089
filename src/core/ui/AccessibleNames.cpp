#include "core/ui/AccessibleNames.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>

namespace tally {

namespace {

/// "&Exam Name :" is called "Exam Name".
QString Spoken(QString caption)
{
    caption.remove(QLatin1Char('&'));
    while (caption.endsWith(QLatin1Char(' ')) || caption.endsWith(QLatin1Char(':')))
        caption.chop(1);
    return caption.trimmed();
}

/// What `widget` itself is called; empty where nothing says it.
QString CaptionOf(const QWidget* widget, const QList<QLabel*>& labels)
{
    for (const QLabel* label : labels)
        if (label->buddy() == widget)
            return Spoken(label->text());
    const auto* frame = qobject_cast<const QGroupBox*>(widget);
    return frame ? Spoken(frame->title()) : QString();
}

} // namespace

void NameControls(QWidget* form)
{
    const auto labels = form->findChildren<QLabel*>();
    for (auto* control : form->findChildren<QWidget*>()) {
        const auto* button = qobject_cast<QAbstractButton*>(control);
        if (control->focusPolicy() == Qt::NoFocus || !control->accessibleName().isEmpty() ||
            (button && !button->text().isEmpty()))
            continue;
        QString name;
        // A date and its tick are named by the label of the whole.
        for (const QWidget* part = control; part != form && name.isEmpty(); part = part->parentWidget())
            name = CaptionOf(part, labels);
        control->setAccessibleName(name);
    }
}

} // namespace tally
