#include "support/ExpectedPrompts.h"

#include "core/SessionContext.h"

#include <gtest/gtest.h>

namespace tally::test {

namespace {

bool HoldsTransaction(const std::unique_ptr<store::Connection>& connection)
{
    return connection && connection->TransactionDepth() > 0;
}

} // namespace

ExpectedPrompts::ExpectedPrompts()
{
    Prompts::AnswerWith([this](Prompts::Kind kind, const QString& text) { return Answer(kind, text); });
}

ExpectedPrompts::~ExpectedPrompts()
{
    Prompts::AnswerWith({});
    Verify();
}

void ExpectedPrompts::Expect(Prompts::Kind kind, const QString& text, bool answer)
{
    expected_.push_back({kind, text, false, answer});
}

void ExpectedPrompts::ExpectSavedButNotReadAnew()
{
    expected_.push_back({Prompts::Kind::Information,
                         QStringLiteral("Your Change Is Saved. You Need Not Make It Again.\n"
                                        "Only The Screen Could Not Be Read Anew : "),
                         true, true});
}

void ExpectedPrompts::Verify()
{
    for (const Expectation& expectation : expected_)
        ADD_FAILURE() << "a box did not come: " << qPrintable(expectation.text);
    expected_.clear();
}

bool ExpectedPrompts::Answer(Prompts::Kind kind, const QString& text)
{
    if (expected_.empty()) {
        ADD_FAILURE() << "a box that was not expected: " << qPrintable(text);
        return false;
    }
    const Expectation expectation = expected_.front();
    expected_.pop_front();
    EXPECT_EQ(static_cast<int>(kind), static_cast<int>(expectation.kind)) << qPrintable(text);
    const QString compared = expectation.beginOnly ? text.left(expectation.text.size()) : text;
    EXPECT_EQ(compared.toStdString(), expectation.text.toStdString());
    EXPECT_FALSE(text.isEmpty());
    EXPECT_FALSE(HoldsTransaction(Session().gcnnMain) || HoldsTransaction(Session().gcnnTemp))
        << "other clients wait as long as this box stands: " << qPrintable(text);
    return expectation.answer;
}

} // namespace tally::test
