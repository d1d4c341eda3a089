#include "core/ui/Prompts.h"

#include "core/SessionContext.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QLabel>
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
    QSize size;
    bool wholeTextSeen = false;
    QImage sign;
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
            const auto* label = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
            const auto* sign = box->findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
            shown_ = {box->icon(),
                      box->standardButtons(),
                      box->windowTitle().toStdString(),
                      box->text().toStdString(),
                      box->textFormat(),
                      box->size(),
                      label->heightForWidth(label->width()) <= label->height() &&
                          box->rect().contains(label->geometry()),
                      sign ? sign->pixmap(Qt::ReturnByValue).toImage() : QImage()};
            ButtonsHaveNoPictures(*box);
            QTest::keyClick(box, key);
        });
    }
    const ShownBox& Shown() const { return shown_; }

private:
    static void ButtonsHaveNoPictures(const QMessageBox& box)
    {
        const auto buttons = box.buttons();
        for (const QAbstractButton* button : buttons)
            EXPECT_TRUE(button->icon().isNull());
    }

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

TEST(PromptsTest, AQuestionWithAThirdWayTellsTheThreeAnswersApart)
{
    const auto answer = [](Qt::Key key) {
        const NextBox box(key);
        const Prompts::Reply reply = Prompts::AskOrCancel(QStringLiteral("Replace ?"));
        EXPECT_EQ(box.Shown().icon, QMessageBox::Question);
        EXPECT_EQ(box.Shown().buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        EXPECT_EQ(box.Shown().caption, "KITE - Tally Board");
        EXPECT_EQ(box.Shown().text, "Replace ?");
        return reply;
    };
    EXPECT_EQ(answer(Qt::Key_Y), Prompts::Reply::Yes);
    EXPECT_EQ(answer(Qt::Key_Return), Prompts::Reply::Yes);
    EXPECT_EQ(answer(Qt::Key_N), Prompts::Reply::No);
    EXPECT_EQ(answer(Qt::Key_Escape), Prompts::Reply::Cancel);
}

TEST(PromptsTest, AConfirmationGoesOnWithOkAlone)
{
    const auto confirmed = [](Qt::Key key) {
        const NextBox box(key);
        const bool ok = Prompts::Confirm(QStringLiteral("Compact ?"));
        EXPECT_EQ(box.Shown().icon, QMessageBox::Question);
        EXPECT_EQ(box.Shown().buttons, QMessageBox::Ok | QMessageBox::Cancel);
        EXPECT_EQ(box.Shown().text, "Compact ?");
        return ok;
    };
    EXPECT_TRUE(confirmed(Qt::Key_Return));
    EXPECT_FALSE(confirmed(Qt::Key_Escape));
}

TEST(PromptsTest, TheCloseBoxMeansTheAnswerThatDoesNothing)
{
    const auto close = [] {
        QTimer::singleShot(0, [] {
            ASSERT_NE(QApplication::activeModalWidget(), nullptr);
            QApplication::activeModalWidget()->close();
        });
    };
    close();
    EXPECT_EQ(Prompts::AskOrCancel(QStringLiteral("Replace ?")), Prompts::Reply::Cancel);
    close();
    EXPECT_FALSE(Prompts::Confirm(QStringLiteral("Compact ?")));
    close();
    EXPECT_FALSE(Prompts::Ask(QStringLiteral("Exit ?")));
}

TEST(PromptsTest, TheSignsAreOurOwnDrawings)
{
    const auto drawn = [](const char* name, const QImage& sign) {
        EXPECT_FALSE(sign.isNull());
        return LookIcon(QString::fromLatin1(name)).pixmap(sign.size()).toImage() == sign;
    };
    const NextBox message(Qt::Key_Return);
    Prompts::Information(QStringLiteral("Record Saved"));
    EXPECT_TRUE(drawn("information", message.Shown().sign));
    const NextBox question(Qt::Key_N);
    Prompts::Ask(QStringLiteral("Exit ?"));
    EXPECT_TRUE(drawn("question", question.Shown().sign));
    const NextBox failure(Qt::Key_Return);
    Prompts::Critical(QStringLiteral("The disk is full"));
    EXPECT_TRUE(drawn("critical", failure.Shown().sign));
}

TEST(PromptsTest, ABoxIsWideEnoughForItsTitle)
{
    const QString title = QStringLiteral("Classwise Subject - Teacher - Mark Entry - Copy");
    const NextBox question(Qt::Key_N);
    Prompts::Ask(QStringLiteral("Exit ?"), title);
    QFont bold = QApplication::font();
    bold.setBold(true);
    const int beside = question.Shown().size.width() - QFontMetrics(bold).horizontalAdvance(title);
    EXPECT_GE(beside, 150);
    EXPECT_LE(beside, 170) << "and no wider";
    const NextBox message(Qt::Key_Return);
    Prompts::Information(QStringLiteral("Record Saved"));
    EXPECT_LT(message.Shown().size.width(), question.Shown().size.width());
    EXPECT_GE(message.Shown().size.width(), QFontMetrics(bold).horizontalAdvance(ApplicationTitle) + 150);
}

TEST(PromptsTest, ALongTextIsBrokenIntoLinesAndAllOfItIsSeen)
{
    QString text = QStringLiteral("The Pictures Could Not Be Written To The Folder /");
    for (int part = 0; part < 20; ++part)
        text += QStringLiteral("school-office-of-the-year-%1/").arg(2000 + part);
    text += QStringLiteral(". Please Check The Free Disk Space");
    const NextBox box(Qt::Key_Return);
    Prompts::Information(text);
    EXPECT_TRUE(box.Shown().wholeTextSeen);
    EXPECT_LE(box.Shown().size.width(), 600);
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
