#include "support/ExpectedPrompts.h"

#include "core/SessionContext.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPointer>
#include <QWidget>

#include <gtest/gtest.h>

namespace tally::test {

namespace {

bool HoldsTransaction(const std::unique_ptr<store::Connection>& connection)
{
    return connection && connection->TransactionDepth() > 0;
}

/// Takes the keyboard from the form for as long as it stands, as a real box does.
class KeyboardTaken
{
public:
    KeyboardTaken() : from_(QApplication::focusWidget()) { Tell(QEvent::FocusOut); }
    KeyboardTaken(const KeyboardTaken&) = delete;
    KeyboardTaken& operator=(const KeyboardTaken&) = delete;
    ~KeyboardTaken() { Tell(QEvent::FocusIn); }

private:
    void Tell(QEvent::Type type) const
    {
        QFocusEvent event(type, Qt::ActiveWindowFocusReason);
        if (from_)
            QApplication::sendEvent(from_, &event);
    }

    QPointer<QWidget> from_;
};

} // namespace

ExpectedPrompts::ExpectedPrompts()
{
    Prompts::AnswerWith([this](Prompts::Kind kind, const QString& text) { return Answer(kind, text); },
                        [this](const Prompts::FileDialog& dialog) { return Choose(dialog); });
}

ExpectedPrompts::~ExpectedPrompts()
{
    Prompts::AnswerWith({});
    Verify();
}

void ExpectedPrompts::Expect(Prompts::Kind kind, const QString& text, bool answer)
{
    expected_.push_back(Box{kind, text, false, answer});
}

void ExpectedPrompts::ExpectSavedButNotReadAnew()
{
    expected_.push_back(Box{Prompts::Kind::Information,
                            QStringLiteral("Your Change Is Saved. You Need Not Make It Again.\n"
                                           "Only The Screen Could Not Be Read Anew : "),
                            true, true});
}

void ExpectedPrompts::ExpectQuestionOrCancel(const QString& text, Prompts::Reply answer)
{
    const auto yes =
        answer == Prompts::Reply::Cancel ? std::nullopt : std::optional(answer == Prompts::Reply::Yes);
    expected_.push_back(Box{Prompts::Kind::QuestionOrCancel, text, false, yes});
}

void ExpectedPrompts::ExpectConfirmation(const QString& text, bool ok)
{
    expected_.push_back(
        Box{Prompts::Kind::Confirmation, text, false, ok ? std::optional(true) : std::nullopt});
}

void ExpectedPrompts::ExpectFileDialog(const Prompts::FileDialog& dialog, const QString& chosen)
{
    expected_.push_back(Dialog{dialog, chosen});
}

void ExpectedPrompts::Verify()
{
    for (const auto& expectation : expected_) {
        if (const auto* box = std::get_if<Box>(&expectation))
            ADD_FAILURE() << "a box did not come: " << qPrintable(box->text);
        else
            ADD_FAILURE() << "a file dialog did not come: "
                          << qPrintable(std::get<Dialog>(expectation).wanted.title);
    }
    expected_.clear();
}

template <typename Kind>
std::optional<Kind> ExpectedPrompts::Next(const QString& came)
{
    if (expected_.empty() || !std::holds_alternative<Kind>(expected_.front())) {
        ADD_FAILURE() << "a box or a file dialog that was not expected: " << qPrintable(came);
        return {};
    }
    EXPECT_FALSE(HoldsTransaction(Session().gcnnMain) || HoldsTransaction(Session().gcnnTemp))
        << "other clients wait as long as this box stands: " << qPrintable(came);
    const Kind next = std::get<Kind>(expected_.front());
    expected_.pop_front();
    return next;
}

std::optional<bool> ExpectedPrompts::Answer(Prompts::Kind kind, const QString& text)
{
    const auto expected = Next<Box>(text);
    if (!expected)
        return false;
    EXPECT_EQ(static_cast<int>(kind), static_cast<int>(expected->kind)) << qPrintable(text);
    const QString compared = expected->beginOnly ? text.left(expected->text.size()) : text;
    EXPECT_EQ(compared.toStdString(), expected->text.toStdString());
    const KeyboardTaken meanwhile;
    return expected->answer;
}

QString ExpectedPrompts::Choose(const Prompts::FileDialog& dialog)
{
    const auto expected = Next<Dialog>(dialog.title);
    if (!expected)
        return {};
    EXPECT_EQ(static_cast<int>(dialog.kind), static_cast<int>(expected->wanted.kind));
    EXPECT_EQ(dialog.title.toStdString(), expected->wanted.title.toStdString());
    EXPECT_EQ(dialog.folder.toStdString(), expected->wanted.folder.toStdString());
    EXPECT_EQ(dialog.filter.toStdString(), expected->wanted.filter.toStdString());
    return expected->chosen;
}

} // namespace tally::test
