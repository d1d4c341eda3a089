#pragma once

#include <QString>

#include <functional>

namespace tally {

/// The title of the program, on its windows and message boxes.
inline const QString ApplicationTitle = QStringLiteral("KITE - Tally Board");

/// The only place that shows message boxes. Each call returns when the user has answered.
namespace Prompts {

enum class Kind
{
    Information,
    Question,
    PlainQuestion,
    Critical,
};

void Information(const QString& text);
void Critical(const QString& text);
/// True on Yes. Esc and the close box mean No.
bool Ask(const QString& text, const QString& caption = ApplicationTitle);
/// The same in a box without an icon.
bool AskPlainly(const QString& text);

/// True while a box waits for its answer. What lies behind it must not start anything meanwhile.
bool AreOpen();
/// Runs `work` as soon as no box waits any more, before the answer to the last one reaches whoever asked; at
/// once where none does.
void WhenAnswered(std::function<void()> work);

/// Lets `answer` take the place of the boxes: it gets each box's kind and text, and what it returns stands
/// for Yes or No. An empty function brings the real boxes back. For tests and the guided tour.
using Answer = std::function<bool(Kind kind, const QString& text)>;
void AnswerWith(Answer answer);

} // namespace Prompts
} // namespace tally
