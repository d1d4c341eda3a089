#pragma once

#include "core/ui/Prompts.h"

#include <QString>

#include <deque>

namespace tally::test {

/// Takes the place of the message boxes while it lives. A box that was not expected, one with another text or
/// of another kind, one that stands within a transaction, and an expectation that is not met at the end fail
/// the test.
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
    void ExpectCritical(const QString& text) { Expect(Prompts::Kind::Critical, text); }
    /// Fails the test if an expected box has not come; forgets it.
    void Verify();

private:
    struct Expectation
    {
        Prompts::Kind kind;
        QString text;
        bool beginOnly; ///< the box may go on behind `text`
        bool answer;
    };

    bool Answer(Prompts::Kind kind, const QString& text);

    std::deque<Expectation> expected_;
};

} // namespace tally::test
