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

/// The text that F1 opens on each screen; 0 for none. What belongs to another screen leads to the text of
/// that one.
const std::map<QString, int> Numbers{
    {QStringLiteral("AboutUs"), 0},
    {QStringLiteral("frmClassRankSetup"), 17},
    {QStringLiteral("frmClassRankTransferSetup"), 18},
    {QStringLiteral("frmClassSubjectTeacher"), 15},
    {QStringLiteral("frmClassSubjectTeacherTransfer"), 16},
    {QStringLiteral("frmHelp"), 0},
    {QStringLiteral("frmMasAcademicYearChange"), 14},
    {QStringLiteral("frmMasAcademicYearSetup"), 13},
    {QStringLiteral("frmMasBloodGroupMaster"), 7},
    {QStringLiteral("frmMasCityMaster"), 2},
    {QStringLiteral("frmMasClassSectionEntry"), 4},
    {QStringLiteral("frmMasOptionalAdmissionNoChange"), 10},
    {QStringLiteral("frmMasSchoolSetup"), 3},
    {QStringLiteral("frmMasStateMaster"), 1},
    {QStringLiteral("frmMasStudentAdmissionEntry"), 11},
    {QStringLiteral("frmMasStudentAdmissionSearch"), 11},
    {QStringLiteral("frmMasStudentMaster"), 10},
    {QStringLiteral("frmMasStudentMasterSearch"), 10},
    {QStringLiteral("frmMasStudentRelievingMaster"), 12},
    {QStringLiteral("frmMasStudentRelievingSearch"), 12},
    {QStringLiteral("frmPromotionEntry"), 20},
    {QStringLiteral("frmRankCalculation"), 21},
    {QStringLiteral("frmRankCardPrinting"), 22},
    {QStringLiteral("frmSalutationMaster"), 8},
    {QStringLiteral("frmStudentExamAvgChart"), 25},
    {QStringLiteral("frmStudentList"), 29},
    {QStringLiteral("frmSubjectMaster"), 6},
    {QStringLiteral("frmTeacherMaster"), 9},
    {QStringLiteral("frmTeacherSearch"), 9},
    {QStringLiteral("frmUtilApplicationDateChange"), 32},
    {QStringLiteral("frmUtilApplicationDateSetup"), 31},
    {QStringLiteral("frmUtilBackupRestore"), 35},
    {QStringLiteral("frmUtilOptions"), 37},
    {QStringLiteral("frmUtilUserMaster"), 33},
    {QStringLiteral("frmUtilUserPrivileges"), 34},
    {QStringLiteral("frmclassdivisionsubjectavg"), 23},
    {QStringLiteral("frmdivisionsubjectexamavg"), 24},
    {QStringLiteral("frmexammarkentry"), 19},
    {QStringLiteral("frmexamnamemaster"), 5},
    {QStringLiteral("frmrptClassList"), 29},
    {QStringLiteral("frmrptClasssubjectteacher"), 30},
    {QStringLiteral("frmstudentexamavg"), 25},
    {QStringLiteral("frmstudentslistabove"), 28},
    {QStringLiteral("frmstudentslistbelow"), 27},
    {QStringLiteral("frmstudentyearlyexamavg"), 26},
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
    std::map<QString, int> asked;
    ForEachHelp([&](const QString& name, const Screen&, int number) {
        asked.emplace(name, number);
        const Screen* help = ScreenRegistry::OpenInstance(QStringLiteral("frmHelp"));
        const store::HelpText* text = TextNo(number);
        ASSERT_EQ(text == nullptr, number == 0);
        if (!text)
            return;
        ASSERT_NE(help, nullptr);
        EXPECT_EQ(Find<QLabel>(help, "lblName")->text().replace(QLatin1String("&&"), QLatin1String("&")),
                  QString::fromUtf8(text->screenName));
        EXPECT_EQ(Find<QTextEdit>(help, "txtDetail")->toPlainText(), QString::fromUtf8(text->details));
    });
    EXPECT_EQ(asked, Numbers);
}

TEST_F(HelpOfEveryScreen, SpeaksOfNoLetterThatTheScreenDoesNotHave)
{
    static const QRegularExpression letter(QStringLiteral("Alt\\+(Shift\\+)?[A-Z]"));
    // Two screens of one text need not have the same buttons.
    std::map<int, QStringList> known;
    ForEachHelp(
        [&](const QString&, const Screen& screen, int number) { known[number] += LettersOf(screen); });
    int letters = 0;
    for (const store::HelpText& text : store::HelpTexts()) {
        SCOPED_TRACE(text.screenName);
        auto found = letter.globalMatch(QString::fromUtf8(text.details));
        while (found.hasNext()) {
            const QString keys = found.next().captured();
            EXPECT_TRUE(known[text.screenNumber].contains(keys)) << keys.toStdString();
            ++letters;
        }
    }
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
