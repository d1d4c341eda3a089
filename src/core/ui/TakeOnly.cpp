#include "core/ui/TakeOnly.h"

#include "core/ui/controls/FieldHint.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace tally {

namespace {

/// The words for what a field takes, kept at the field.
constexpr const char* TakesProperty = "takes";
/// The text that the program has put into a field last, kept there too.
constexpr const char* FilledProperty = "filledWith";

/// Enter passes the filters as a key, but a pasted line break is no part of a text of one line.
bool IsBreak(char32_t sign)
{
    return sign < U' ' || sign == QChar::LineSeparator || sign == QChar::ParagraphSeparator;
}

bool IsTaken(char32_t sign, KeyFilter filter)
{
    return !IsBreak(sign) && filter(static_cast<int>(sign)) != 0;
}

/// Signs of `filled` may stay besides.
QString Cleaned(QString text, KeyFilter filter, const QString& filled = {})
{
    const auto isDropped = [&](QChar unit) {
        return !IsTaken(unit.unicode(), filter) && !filled.contains(unit);
    };
    text.erase(std::remove_if(text.begin(), text.end(), isDropped), text.end());
    return text;
}

QString FilledWith(const QLineEdit* field)
{
    return field->property(FilledProperty).toString();
}

/// What a note has room for is shown, and that there was more.
const QString AndSoOn = QStringLiteral(" ...");

/// Each sign that is dropped once, in the order of the text; breaks at its ends are no part of what was
/// meant. The first few of another script say enough.
QString DroppedSigns(const QString& text, KeyFilter filter)
{
    constexpr int MostSigns = 12;
    QStringList dropped;
    for (const char32_t letter : text.trimmed().toUcs4()) {
        if (IsTaken(letter, filter))
            continue;
        const QString sign = IsBreak(letter)  ? QStringLiteral("Line Break")
                             : letter == U' ' ? QStringLiteral("Blank")
                                              : QString::fromUcs4(&letter, 1);
        if (dropped.contains(sign))
            continue;
        if (dropped.size() == MostSigns)
            return dropped.join(QLatin1Char(' ')) + AndSoOn;
        dropped.append(sign);
    }
    return dropped.join(QLatin1Char(' '));
}

/// The start of a text, shorter by one where half a sign would stand at its end.
QString StartOf(const QString& text, qsizetype room)
{
    QString start = text.left(room);
    if (!start.isEmpty() && start.back().isHighSurrogate())
        start.chop(1);
    return start;
}

/// A list has the focus in place of its field, and is what the user sees.
QWidget* SeenAs(QLineEdit* field)
{
    return field->focusProxy() ? field->focusProxy() : field;
}

/// A key with Ctrl is a command, such as to select all, and no letter; with Alt as well it is AltGr.
bool IsCommand(const QKeyEvent* key)
{
    return (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier;
}

QString WithoutSignsOf(const QString& signs, QString text)
{
    text.removeIf([&signs](QChar unit) { return signs.contains(unit); });
    return text;
}

/// Drops typed characters that the field does not take, and cleans what is pasted before the field cuts it to
/// its length.
class TypedKeys : public QObject
{
public:
    TypedKeys(QLineEdit* field, KeyFilter filter) : QObject(field), field_(field), filter_(filter)
    {
        const QString takes = TakenSigns(filter);
        field->setProperty(TakesProperty, takes);
        SeenAs(field)->setAccessibleDescription(takes);
        field->installEventFilter(this);
        // A list hands its keys to its field without an event that could be watched there.
        if (field->focusProxy())
            field->focusProxy()->installEventFilter(this);
        connect(field, &QLineEdit::textEdited, this, &TypedKeys::Clean);
        KeepFilled();
        connect(field, &QLineEdit::textChanged, this, [this] {
            if (!std::exchange(edited_, false))
                KeepFilled();
        });
    }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        // A field that is being destroyed still gets events, such as the loss of its focus.
        const bool isKey = event->type() == QEvent::KeyPress;
        return (isKey || (receiver == field_ && IsByMouse(event))) && !field_->isReadOnly() && Take(event);
    }

private:
    static bool IsByMouse(const QEvent* event)
    {
        return event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::ContextMenu ||
               event->type() == QEvent::Drop;
    }

    bool Take(QEvent* event)
    {
        switch (event->type()) {
        case QEvent::KeyPress: return Type(static_cast<QKeyEvent*>(event));
        case QEvent::MouseButtonRelease: return Click(static_cast<QMouseEvent*>(event));
        case QEvent::ContextMenu: return OpenMenu(static_cast<QContextMenuEvent*>(event));
        default: return Drop(static_cast<QDropEvent*>(event));
        }
    }

    bool Type(const QKeyEvent* key)
    {
        if (key->matches(QKeySequence::Paste)) {
            Insert(QApplication::clipboard()->text());
            return true;
        }
        const QString text = key->text();
        if (IsCommand(key) || text.isEmpty())
            return false;
        if (IsDropped(key, filter_)) {
            Tell({Takes()});
            return true;
        }
        const bool full = field_->text().size() >= field_->maxLength() && !field_->hasSelectedText();
        if (text.at(0).isPrint() && full) {
            Tell({Longest()});
            return true;
        }
        HideFieldHint(SeenAs(field_));
        return false;
    }

    /// The middle button pastes what is selected elsewhere, where the platform knows that.
    bool Click(const QMouseEvent* event)
    {
        const QClipboard* clipboard = QApplication::clipboard();
        if (event->button() != Qt::MiddleButton || !clipboard->supportsSelection())
            return false;
        field_->deselect();
        Insert(clipboard->text(QClipboard::Selection));
        return true;
    }

    bool OpenMenu(const QContextMenuEvent* event)
    {
        QMenu* menu = field_->createStandardContextMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        for (QAction* action : menu->actions()) {
            if (!action->text().startsWith(QLineEdit::tr("&Paste")))
                continue;
            disconnect(action, &QAction::triggered, field_, nullptr);
            connect(action, &QAction::triggered, this, [this] { Insert(QApplication::clipboard()->text()); });
        }
        menu->popup(event->globalPos());
        return true;
    }

    bool Drop(QDropEvent* event)
    {
        const QString text = event->mimeData()->text();
        if (event->source() == field_ || text.isEmpty())
            return false;
        // Takes away the mark of where the text would go.
        QDragLeaveEvent leave;
        QApplication::sendEvent(field_, &leave);
        field_->setCursorPosition(field_->cursorPositionAt(event->position().toPoint()));
        if (!Insert(text))
            event->setDropAction(Qt::CopyAction); // what is left out stays where it came from
        event->accept();
        return true;
    }

    /// Puts what the field takes of `text` in the place of the selection; true when that is all of it.
    bool Insert(const QString& text)
    {
        HideFieldHint(SeenAs(field_));
        const QString taken = Cleaned(text, filter_);
        const auto room = field_->maxLength() - (field_->text().size() - field_->selectedText().size());
        const QString kept = StartOf(taken, room);
        if (!kept.isEmpty())
            field_->insert(kept);
        TellLeftOut(DroppedSigns(text, filter_), taken.mid(kept.size()));
        return kept == text;
    }

    void KeepFilled() { field_->setProperty(FilledProperty, field_->text()); }

    /// For what comes by other ways, such as an input method. What the field was filled with keeps its signs:
    /// 40.25 without its point would be another figure.
    void Clean(const QString& text)
    {
        edited_ = true;
        const QString filled = FilledWith(field_);
        const QString kept = Cleaned(text, filter_, filled);
        if (kept == text)
            return;
        const auto dropped = text.size() - kept.size();
        const int caret = field_->cursorPosition() - static_cast<int>(dropped);
        field_->setText(kept);
        field_->setCursorPosition(std::max(0, caret));
        // Whoever passes the text on has been told the uncleaned one.
        Q_EMIT field_->textEdited(kept);
        TellLeftOut(DroppedSigns(WithoutSignsOf(filled, text), filter_), {});
    }

    void TellLeftOut(const QString& signs, const QString& end)
    {
        // What is typed as stars is not to be read in a note either.
        const bool secret = field_->echoMode() != QLineEdit::Normal;
        QStringList lines;
        if (!signs.isEmpty())
            lines << (secret ? QString() : QStringLiteral("Left Out : ") + signs) << Takes();
        if (!end.isEmpty())
            lines << (secret ? QString() : QStringLiteral("Left Out At The End : ") + Shortened(end))
                  << Longest();
        lines.removeAll(QString());
        if (!lines.isEmpty())
            Tell(lines);
    }

    static QString Shortened(const QString& text)
    {
        constexpr int ShownLetters = 30;
        return text.size() <= ShownLetters ? text : StartOf(text, ShownLetters) + AndSoOn;
    }

    QString Takes() const { return field_->property(TakesProperty).toString(); }
    QString Longest() const
    {
        return QStringLiteral("Not More Than %1 Characters Can Be Entered Here").arg(field_->maxLength());
    }

    void Tell(const QStringList& lines) { ShowFieldHint(SeenAs(field_), lines.join(QLatin1Char('\n'))); }

    QLineEdit* field_;
    KeyFilter filter_;
    bool edited_ = false; ///< the text is about to tell a change by the user
};

} // namespace

void TakeOnly(QLineEdit* field, KeyFilter filter, int maxLength)
{
    field->setMaxLength(maxLength);
    new TypedKeys(field, filter);
}

bool KeepsText(const QLineEdit* field, const QString& text, KeyFilter filter)
{
    return Cleaned(text, filter, FilledWith(field)) == text;
}

bool IsDropped(const QKeyEvent* key, KeyFilter filter)
{
    const QString text = key->text();
    return !IsCommand(key) && !text.isEmpty() && text.at(0).isPrint() && filter(text.at(0).unicode()) == 0;
}

void TellDroppedQuote(QWidget* widget)
{
    const auto* list = qobject_cast<QComboBox*>(widget);
    QLineEdit* field = list ? list->lineEdit() : qobject_cast<QLineEdit*>(widget);
    if (!field || field->isReadOnly())
        return;
    const QVariant takes = field->property(TakesProperty);
    ShowFieldHint(SeenAs(field), takes.isValid() ? takes.toString() : TakenSigns(KeyAllButQuote));
}

} // namespace tally
