#include "core/Prompts.h"

#include "core/modTallyboardForms.h"
#include "core/SessionContext.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// What stands on the screen while a box waits for its answer.
struct ShownBox
{
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
    std::string caption;
    std::string text;
    Qt::TextFormat format = Qt::AutoText;
};

/// Presses `key` on the box that comes up, and gives what it showed.
class NextBox
{
public:
    explicit NextBox(Qt::Key key)
    {
        QTimer::singleShot(0, [this, key] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            shown_ = {box->icon(), box->standardButtons(), box->windowTitle().toStdString(),
                      box->text().toStdString(), box->textFormat()};
            QTest::keyClick(box, key);
        });
    }
    const ShownBox& Shown() const { return shown_; }

private:
    ShownBox shown_;
};

TEST(PromptsTest, AMessageHasItsSignAndOneButton)
{
    const NextBox message(Qt::Key_Return);
    Prompts::Information(QStringLiteral("Record Saved"));
    EXPECT_EQ(message.Shown().icon, QMessageBox::Information);
    EXPECT_EQ(message.Shown().buttons, QMessageBox::Ok);
    EXPECT_EQ(message.Shown().caption, "KITE - Tally Board");
    EXPECT_EQ(message.Shown().text, "Record Saved");

    const NextBox failure(Qt::Key_Escape);
    Prompts::Critical(QStringLiteral("The disk is full"));
    EXPECT_EQ(failure.Shown().icon, QMessageBox::Critical);
    EXPECT_EQ(failure.Shown().buttons, QMessageBox::Ok);
}

TEST(PromptsTest, AQuestionHasAQuestionMarkAndAPlainOneHasNone)
{
    const NextBox question(Qt::Key_Y);
    EXPECT_TRUE(Prompts::Ask(QStringLiteral("Exit ?"), QStringLiteral("State Master")));
    EXPECT_EQ(question.Shown().icon, QMessageBox::Question);
    EXPECT_EQ(question.Shown().buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(question.Shown().caption, "State Master");

    Session().gblnPromptOnExit = true;
    const NextBox leaving(Qt::Key_N);
    EXPECT_FALSE(ConfirmExit(QStringLiteral("City Master")));
    EXPECT_EQ(leaving.Shown().caption, "City Master");
    EXPECT_EQ(leaving.Shown().text, "Do You Want To Exit City Master ?");

    const NextBox plain(Qt::Key_Y);
    EXPECT_TRUE(Prompts::AskPlainly(QStringLiteral("Delete ?")));
    EXPECT_EQ(plain.Shown().icon, QMessageBox::NoIcon);
    EXPECT_EQ(plain.Shown().buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(plain.Shown().caption, "KITE - Tally Board");
    EXPECT_EQ(plain.Shown().text, "Delete ?");
}

TEST(PromptsTest, NoAndEscapeMeanNoInBothKindsOfQuestion)
{
    for (const Qt::Key key : {Qt::Key_N, Qt::Key_Escape}) {
        const NextBox question(key);
        EXPECT_FALSE(Prompts::Ask(QStringLiteral("Exit ?")));
        const NextBox plain(key);
        EXPECT_FALSE(Prompts::AskPlainly(QStringLiteral("Delete ?")));
    }
}

TEST(PromptsTest, ANameIsNeverTakenForMarkUp)
{
    const NextBox box(Qt::Key_Return);
    Prompts::Information(QStringLiteral("<b>Asha</b>"));
    EXPECT_EQ(box.Shown().text, "<b>Asha</b>");
    EXPECT_EQ(box.Shown().format, Qt::PlainText);
}

TEST(PromptsTest, WorkThatMustNotComeUnderABoxWaitsForTheLastAnswer)
{
    std::vector<std::string> order;
    EXPECT_FALSE(Prompts::AreOpen());
    Prompts::WhenAnswered([&order] { order.emplace_back("at once"); });
    Prompts::AnswerWith([&order](Prompts::Kind kind, const QString&) {
        EXPECT_TRUE(Prompts::AreOpen());
        if (kind == Prompts::Kind::Question) {
            Prompts::WhenAnswered([&order] { order.emplace_back("waited"); });
            Prompts::Information(QStringLiteral("Record Saved"));
            order.emplace_back("one of two answered");
            EXPECT_TRUE(Prompts::AreOpen());
        }
        return true;
    });
    EXPECT_TRUE(Prompts::Ask(QStringLiteral("Exit ?")));
    Prompts::AnswerWith({});
    EXPECT_FALSE(Prompts::AreOpen());
    EXPECT_EQ(order, (std::vector<std::string>{"at once", "one of two answered", "waited"}));
}

TEST(PromptsTest, ARealBoxIsOpenUntilItIsAnswered)
{
    bool wasOpen = false;
    QTimer::singleShot(0, [&wasOpen] { wasOpen = Prompts::AreOpen(); });
    const NextBox box(Qt::Key_Return);
    Prompts::Information(QStringLiteral("Record Saved"));
    EXPECT_TRUE(wasOpen);
    EXPECT_FALSE(Prompts::AreOpen());
}

} // namespace
} // namespace tally::test
