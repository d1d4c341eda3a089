// The help of each screen: F1 leads to it, and its text goes with what stands on the screen.

#include "core/ui/ScreenRegistry.h"
#include "store/HelpTexts.h"
#include "support/ScreenFixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QRegularExpression>
#include <QTextEdit>

#include <map>

namespace tally::test {
namespace {

/// Screens that have no text: who is lost there closes them, or reads on in the text of the screen that
/// opened them.
const QStringList WithoutHelp{
    QStringLiteral("AboutUs"),
    QStringLiteral("frmHelp"),
    QStringLiteral("frmMasOptionalAdmissionNoChange"),
    QStringLiteral("frmMasStudentAdmissionSearch"),
    QStringLiteral("frmMasStudentMasterSearch"),
    QStringLiteral("frmMasStudentRelievingSearch"),
    QStringLiteral("frmStudentExamAvgChart"),
    QStringLiteral("frmTeacherSearch"),
};

const store::HelpText* TextNo(int number)
{
    for (const store::HelpText& text : store::HelpTexts())
        if (text.screenNumber == number)
            return &text;
    return nullptr;
}

class HelpOfEveryScreen : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        StopPresence();
        Given(
            "INSERT INTO AcademicYearSetup VALUES (1, 2007, 2008, '2007-06-01', '2008-05-31', 'Y', 'N', 1)");
        // Some tell of the school's state when they open.
        Prompts::AnswerWith([](Prompts::Kind, const QString&) { return true; });
    }

    /// Opens each screen alone, presses F1 and hands over the number that the help was opened at.
    void ForEachHelp(const std::function<void(const QString& name, const Screen& screen, int number)>& look)
    {
        for (const QString& name : ScreenRegistry::Names()) {
            SCOPED_TRACE(name.toStdString());
            Session().glngScreenNo = 0;
            Screen* screen = OpenScreen(name);
            ASSERT_NE(screen, nullptr);
            QWidget* focused = screen->focusWidget();
            QTest::keyClick(focused ? focused : screen, Qt::Key_F1);
            Settle();
            look(name, *screen, Session().glngScreenNo);
            for (const QString& open : {QStringLiteral("frmHelp"), name})
                if (Screen* left = ScreenRegistry::OpenInstance(open))
                    left->Unload();
            Settle();
        }
    }
    /// Letters with Alt, also with Shift, that mean something on the form.
    static QStringList LettersOf(const Screen& screen)
    {
        QStringList letters;
        const auto add = [&letters](const QKeySequence& keys) { letters.append(keys.toString()); };
        for (const auto* button : screen.findChildren<QAbstractButton*>()) {
            add(QKeySequence::mnemonic(button->text()));
            add(button->shortcut());
        }
        for (const auto* label : screen.findChildren<QLabel*>())
            if (label->buddy())
                add(QKeySequence::mnemonic(label->text()));
        return letters;
    }
};

TEST_F(HelpOfEveryScreen, OpensAtItsTextWithF1)
{
    std::map<int, QString> asked;
    ForEachHelp([&](const QString& name, const Screen&, int number) {
        if (WithoutHelp.contains(name)) {
            EXPECT_EQ(number, 0);
            return;
        }
        const store::HelpText* text = TextNo(number);
        ASSERT_NE(text, nullptr) << number;
        const Screen* help = ScreenRegistry::OpenInstance(QStringLiteral("frmHelp"));
        ASSERT_NE(help, nullptr);
        EXPECT_EQ(Find<QLabel>(help, "lblName")->text().replace(QLatin1String("&&"), QLatin1String("&")),
                  QString::fromUtf8(text->screenName));
        EXPECT_EQ(Find<QTextEdit>(help, "txtDetail")->toPlainText(), QString::fromUtf8(text->details));
        // Two kinds of one list share their text.
        EXPECT_TRUE(asked.emplace(number, name).second || name == QLatin1String("frmStudentList") ||
                    name == QLatin1String("frmrptClassList"));
    });
    EXPECT_GE(asked.size(), 25U);
}

TEST_F(HelpOfEveryScreen, SpeaksOfNoLetterThatTheScreenDoesNotHave)
{
    static const QRegularExpression letter(QStringLiteral("Alt\\+(Shift\\+)?[A-Z]"));
    int letters = 0;
    ForEachHelp([&](const QString&, const Screen& screen, int number) {
        const store::HelpText* text = TextNo(number);
        if (!text)
            return;
        const QStringList known = LettersOf(screen);
        auto found = letter.globalMatch(QString::fromUtf8(text->details));
        while (found.hasNext()) {
            const QString keys = found.next().captured();
            EXPECT_TRUE(known.contains(keys)) << keys.toStdString();
            ++letters;
        }
    });
    EXPECT_GE(letters, 100);
}

TEST(HelpTexts, TellThePurposeTheStepsAndTheRefusalsOfAScreen)
{
    for (const store::HelpText& text : store::HelpTexts()) {
        SCOPED_TRACE(text.screenName);
        const QStringList parts = QString::fromUtf8(text.details).split(QStringLiteral("\n\n"));
        ASSERT_EQ(parts.size(), 3);
        EXPECT_GE(parts[0].size(), 40);
        EXPECT_TRUE(parts[1].startsWith(QLatin1String("By keyboard:\n1. ")));
        EXPECT_GE(parts[1].count(QLatin1Char('\n')), 2);
        EXPECT_TRUE(parts[2].startsWith(QLatin1String("What the program may say:\n- ")));
    }
}

} // namespace
} // namespace tally::test
