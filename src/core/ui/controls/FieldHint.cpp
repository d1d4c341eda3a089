#include "core/ui/controls/FieldHint.h"

#include "core/ui/look/Look.h"

#include <QEvent>
#include <QLabel>
#include <QPointer>

#include <algorithm>

namespace tally {

namespace {

/// Long enough to be read twice, short enough not to stand in the way.
constexpr int ShownFor = 5000;

/// A part of the field's window and no window of its own: only so does the mouse reach what lies beneath it.
class Note : public QLabel
{
public:
    Note(QWidget* field, const QString& text)
        : QLabel(field->window()), field_(field), description_(field->accessibleDescription())
    {
        setObjectName(QStringLiteral("fieldHint"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setProperty("floating", true);
        setTextFormat(Qt::PlainText);
        setMargin(LookUnit / 2);
        setText(text);
        field->setAccessibleDescription(text);
        // Nothing of the field may be asked once it is gone.
        connect(field, &QObject::destroyed, this, [this] { delete this; });
        for (QWidget* part = field; part != window(); part = part->parentWidget())
            part->installEventFilter(this);
        window()->installEventFilter(this);
        startTimer(ShownFor);
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
    void timerEvent(QTimerEvent*) override { TakeAway(); }
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
            Place();
        else if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide)
            TakeAway();
        return QLabel::eventFilter(receiver, event);
    }

private:
    void Place()
    {
        constexpr int Away = 2;
        constexpr int Margin = LookUnit / 2;
        const QRect room = window()->rect().adjusted(Margin, Margin, -Margin, -Margin);
        const QRect field(field_->mapTo(window(), QPoint()), field_->size());
        setWordWrap(false);
        const int width = std::min(sizeHint().width(), room.width());
        setWordWrap(true);
        QRect place(field.left(), field.bottom() + 1 + Away, width, heightForWidth(width));
        if (place.bottom() > room.bottom())
            place.moveBottom(field.top() - 1 - Away);
        place.moveLeft(std::clamp(place.left(), room.left(), room.right() + 1 - width));
        place.moveTop(std::max(place.top(), room.top()));
        setGeometry(place);
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
