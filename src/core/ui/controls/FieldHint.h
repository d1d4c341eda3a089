#pragma once

#include <QString>

class QWidget;

namespace tally {

/// Shows `text` in a small note at `field`, below it or, where its window ends there, above it. The note
/// takes neither the focus nor a key, lets the mouse through to what it lies over, and goes by itself after
/// some seconds, or as soon as the field is left. There is one at a time. Screen readers hear the text as the
/// field's description, which gets its own text back with the note.
void ShowFieldHint(QWidget* field, const QString& text);

/// Takes the note away if it stands at `field`.
void HideFieldHint(const QWidget* field);

/// The text of the note that stands at `field`; empty where there is none.
QString FieldHintAt(const QWidget* field);

} // namespace tally
