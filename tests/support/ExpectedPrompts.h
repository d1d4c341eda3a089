#pragma once

#include "core/ui/Prompts.h"

#include <QString>

#include <deque>
#include <variant>

namespace tally::test {

/// Takes the place of the message boxes and file dialogs while it lives. One that was not expected, one with
/// another text or of another kind, one that stands within a transaction, and an expectation that is not met
/// at the end fail the test.
class ExpectedPrompts
{
public:
    ExpectedPrompts();
    ExpectedPrompts(const ExpectedPrompts&) = delete;
    ExpectedPrompts& operator=(const ExpectedPrompts&) = delete;
    ~ExpectedPrompts();

    /// The next box, and what the user answers to a question.
    void Expect(Prompts::Kind kind, const QString& text, bool answer = true);
    void ExpectInformation(const QString& text) { Expect(Prompts::Kind::Information, text); }
    /// A change that is stored, though reading it back failed: the box ends in the engine's own words.
    void ExpectSavedButNotReadAnew();
    void ExpectQuestion(const QString& text, bool answer) { Expect(Prompts::Kind::Question, text, answer); }
    void ExpectPlainQuestion(const QString& text, bool answer)
    {
        Expect(Prompts::Kind::PlainQuestion, text, answer);
    }
    void ExpectQuestionOrCancel(const QString& text, Prompts::Reply answer);
    /// A box with OK and Cancel.
    void ExpectConfirmation(const QString& text, bool ok);
    void ExpectCritical(const QString& text) { Expect(Prompts::Kind::Critical, text); }
    /// The next file dialog, and the path that the user chooses; empty for none.
    void ExpectFileDialog(const Prompts::FileDialog& dialog, const QString& chosen);
    /// Fails the test if an expected box or dialog has not come; forgets it.
    void Verify();

private:
    struct Box
    {
        Prompts::Kind kind;
        QString text;
        bool beginOnly; ///< the box may go on behind `text`
        std::optional<bool> answer;
    };
    struct Dialog
    {
        Prompts::FileDialog wanted;
        QString chosen;
    };

    /// The next expectation, if it is one of that kind; else the test fails for what came.
    template <typename Kind>
    std::optional<Kind> Next(const QString& came);
    std::optional<bool> Answer(Prompts::Kind kind, const QString& text);
    QString Choose(const Prompts::FileDialog& dialog);

    std::deque<std::variant<Box, Dialog>> expected_;
};

} // namespace tally::test
