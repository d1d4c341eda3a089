#include "core/controls/FieldHint.h"

#include "core/look/Look.h"

#include <QEvent>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QTimer>

namespace tally {

namespace {

/// Long enough to be read twice, short enough not to stand in the way.
constexpr int ShownFor = 5000;

/// The field is its parent, so that it goes with it at the latest.
class Note : public QLabel
{
public:
    Note(QWidget* field, const QString& text)
        : QLabel(field, Qt::ToolTip), field_(field), description_(field->accessibleDescription())
    {
        setObjectName(QStringLiteral("fieldHint"));
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setProperty("floating", true);
        setTextFormat(Qt::PlainText);
        setMargin(LookUnit / 2);
        setText(text);
        field->setAccessibleDescription(text);
        field->installEventFilter(this);
        QTimer::singleShot(ShownFor, this, &Note::TakeAway);
        Place();
        show();
    }

    void TakeAway()
    {
        if (isHidden())
            return;
        field_->setAccessibleDescription(description_);
        hide();
        deleteLater();
    }
    const QWidget* Field() const { return field_; }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide)
            TakeAway();
        return QLabel::eventFilter(receiver, event);
    }

private:
    void Place()
    {
        adjustSize();
        const QRect display = field_->screen()->availableGeometry();
        QRect place(field_->mapToGlobal(QPoint(0, field_->height() + 2)), size());
        if (place.bottom() > display.bottom())
            place.moveBottom(field_->mapToGlobal(QPoint(0, -2)).y());
        if (place.right() > display.right())
            place.moveRight(display.right());
        move(place.topLeft());
    }

    QWidget* field_;
    QString description_; ///< the field's own
};

QPointer<Note>& Shown()
{
    static QPointer<Note> note;
    return note;
}

} // namespace

void ShowFieldHint(QWidget* field, const QString& text)
{
    if (Shown())
        Shown()->TakeAway();
    Shown() = new Note(field, text);
}

void HideFieldHint(const QWidget* field)
{
    if (Shown() && Shown()->Field() == field)
        Shown()->TakeAway();
}

QString FieldHintAt(const QWidget* field)
{
    const Note* note = Shown();
    return note && note->isVisible() && note->Field() == field ? note->text() : QString();
}

} // namespace tally
