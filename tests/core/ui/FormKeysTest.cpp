#include "core/ui/FormKeys.h"

#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FieldHint.h"
#include "core/ui/OpenBox.h"
#include "core/ui/ScreenRegistry.h"
#include "support/ScreenFixture.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

namespace tally::test {
namespace {

class FormKeysTest : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        for (QWidget* widget :
             {static_cast<QWidget*>(first), static_cast<QWidget*>(second), static_cast<QWidget*>(button)})
            rows->addWidget(widget);
        new FormKeys(form, 21);
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        first->setFocus();
    }

    template <typename Control>
    Control* Add()
    {
        auto* control = new Control(form);
        form->layout()->addWidget(control);
        control->show();
        return control;
    }
    static std::unique_ptr<int> ClicksOf(QAbstractButton* clicked)
    {
        auto clicks = std::make_unique<int>(0);
        QObject::connect(clicked, &QAbstractButton::clicked, clicked, [count = clicks.get()] { ++*count; });
        return clicks;
    }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    QLineEdit* first = new QLineEdit(form);
    QLineEdit* second = new QLineEdit(form);
    QPushButton* button = new QPushButton(form);
};

TEST_F(FormKeysTest, EnterGoesToTheNextField)
{
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(second->hasFocus());
    PressKey(form, Qt::Key_Enter);
    EXPECT_TRUE(button->hasFocus());
}

TEST_F(FormKeysTest, EnterPressesTheButtonThatHasTheFocus)
{
    int presses = 0;
    QObject::connect(button, &QPushButton::clicked, button, [&presses] { ++presses; });
    button->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(presses, 1);
}

TEST_F(FormKeysTest, EnterGoesOnFromABoxAndLeavesItsTick)
{
    auto* box = Add<QCheckBox>();
    box->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_FALSE(box->hasFocus());
    EXPECT_FALSE(box->isChecked());
}

TEST_F(FormKeysTest, EnterStaysInAListThatNeedsAChoiceUntilOneIsMade)
{
    auto* list = Add<DataCombo>();
    list->SetListBehindBlank({{1, QStringLiteral("One")}});
    list->setProperty(EnterNeedsText, true);
    list->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(list->hasFocus());
    list->SetBoundCode(1);
    PressKey(form, Qt::Key_Return);
    EXPECT_FALSE(list->hasFocus());
    list->SetBoundCode(0);
    list->setProperty(EnterNeedsText, false);
    list->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_FALSE(list->hasFocus()) << "others may stay empty";
}

TEST_F(FormKeysTest, TheKeysReachAFormInWhichNothingHasTheKeyboard)
{
    first->clearFocus();
    ASSERT_EQ(form->focusWidget(), nullptr);
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(first->hasFocus());
    first->clearFocus();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 21);
}

TEST_F(FormKeysTest, TheQuoteIsSwallowedInEveryField)
{
    Type(first, QStringLiteral("O'Neil"));
    EXPECT_EQ(first->text().toStdString(), "ONeil");
}

TEST_F(FormKeysTest, AnAltLetterThatLeadsNowhereTypesNothing)
{
    button->setText(QStringLiteral("&Save"));
    button->setEnabled(false);
    QTest::keyClick(first, 's', Qt::AltModifier);
    QTest::keyClick(first, 'z', Qt::AltModifier);
    QTest::keyClick(first, 'z', Qt::AltModifier | Qt::ShiftModifier);
    QTest::keyClick(first, '\'', Qt::AltModifier);
    EXPECT_EQ(first->text().toStdString(), "");
    EXPECT_EQ(FieldHintAt(first).toStdString(), "");
    QTest::keyClick(first, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier);
    QTest::keyClick(first, 'z');
    EXPECT_TRUE(first->text().endsWith(QLatin1Char('z')));
}

/// Notes the keys that reach a widget.
class Keys : public QObject
{
public:
    explicit Keys(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }
    QList<int> reached;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress)
            reached.append(static_cast<QKeyEvent*>(event)->key());
        return false;
    }
};

TEST_F(FormKeysTest, AltAndAKeyThatTypesNoSignIsLeftToTheField)
{
    auto* keys = new Keys(first);
    const QList<int> others{Qt::Key_Left, Qt::Key_Backspace};
    for (const int key : others)
        QTest::keyClick(first, Qt::Key(key), Qt::AltModifier);
    QTest::keyClick(first, 'z', Qt::AltModifier);
    keys->reached.removeAll(Qt::Key_Alt);
    EXPECT_EQ(keys->reached, others);
}

TEST_F(FormKeysTest, OfTwoControlsWithOneLetterTheOneThatCanBeUsedAnswers)
{
    auto* other = Add<QPushButton>();
    const auto clicks = ClicksOf(button);
    const auto otherClicks = ClicksOf(other);
    for (QPushButton* each : {button, other})
        each->setText(QStringLiteral("&Save"));
    const auto press = [this] { QTest::keyClick(first, Qt::Key_S, Qt::AltModifier); };
    press();
    EXPECT_EQ(std::pair(*clicks, *otherClicks), std::pair(1, 0)) << "the first of them";
    button->setEnabled(false);
    press();
    EXPECT_EQ(std::pair(*clicks, *otherClicks), std::pair(1, 1));
    button->setEnabled(true);
    button->hide();
    press();
    EXPECT_EQ(std::pair(*clicks, *otherClicks), std::pair(1, 2));
}

TEST_F(FormKeysTest, ALetterPressedInAnOpenedListIsNotThatOfTheScreenAroundIt)
{
    Session().gblnPromptOnExit = true;
    QApplication::setActiveWindow(window);
    const Screen* options = OpenScreen(QStringLiteral("frmUtilOptions"));
    ASSERT_NE(options, nullptr);
    auto* list = Find<QComboBox>(options, "cboGender");
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_X, Qt::AltModifier);
    list->hidePopup();
    prompts.Verify();
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Options ?"), false);
    QTest::keyClick(options->window(), Qt::Key_X, Qt::AltModifier);
}

TEST_F(FormKeysTest, AShortcutPressesItsButtonAtOnceButNotBehindABox)
{
    QWidget elsewhere;
    new FormKeys(&elsewhere);
    const auto clicks = ClicksOf(button);
    button->setShortcut(QKeySequence(QStringLiteral("Alt+Shift+C")));
    const auto press = [this] {
        QTest::keyClick(first, Qt::Key_C, Qt::AltModifier | Qt::ShiftModifier);
        EXPECT_FALSE(button->isDown()) << "nothing comes later";
    };
    {
        const Prompts::OpenBox box;
        press();
        EXPECT_EQ(*clicks, 0);
    }
    press();
    EXPECT_EQ(*clicks, 1);
}

TEST_F(FormKeysTest, F1OpensTheHelpOnceAndAsksOnlyOneThatIsOpenForItsText)
{
    struct Asked : QObject
    {
        int times = 0;
        bool eventFilter(QObject* receiver, QEvent* event) override
        {
            times += event->type() == QEvent::HelpRequest && qobject_cast<Screen*>(receiver) ? 1 : 0;
            return false;
        }
    };
    Asked asked;
    qApp->installEventFilter(&asked);
    {
        const Prompts::OpenBox box;
        QTest::keyClick(first, Qt::Key_F1);
        EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")), nullptr);
    }
    QTest::keyClick(first, Qt::Key_F1);
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")), nullptr);
    EXPECT_EQ(asked.times, 0);
    QTest::keyClick(first, Qt::Key_F1);
    EXPECT_EQ(asked.times, 1);
}

TEST_F(FormKeysTest, F1NotesTheFormsHelpNumber)
{
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 21);
}

TEST_F(FormKeysTest, AnEnterThatAControlKeepsUnusedIsNoTabOfTheFrameAroundIt)
{
    auto* frame = new QWidget(form);
    form->layout()->addWidget(frame);
    first->setParent(frame);
    first->show();
    first->setProperty(TakesEnter, true);
    first->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(first->hasFocus());
}

TEST_F(FormKeysTest, AKeyThatComesByTheWindowSystemReachesItsField)
{
    QTest::keyClick(form->windowHandle(), Qt::Key_A);
    EXPECT_EQ(first->text().toStdString(), "a");
}

TEST_F(FormKeysTest, AFormThatIsNoScreenOfTheMainWindowLeavesItsLettersToTheFieldsBesideIt)
{
    for (QWidget* around : {new QWidget, static_cast<QWidget*>(new QMdiSubWindow)}) {
        auto* office = new QWidget;
        auto* rows = new QVBoxLayout(office);
        auto* beside = new QLineEdit;
        rows->addWidget(beside);
        rows->addWidget(around);
        new FormKeys(new QWidget(around));
        office->show();
        QApplication::setActiveWindow(office);
        ASSERT_TRUE(QTest::qWaitForWindowActive(office));
        beside->setFocus();
        QTest::keyClick(beside, Qt::Key_S);
        EXPECT_EQ(beside->text().toStdString(), "s");
    }
}

TEST_F(FormKeysTest, ALetterPressesNoButtonThatTheFocusDidNotReach)
{
    auto* list = new DataCombo(form);
    form->layout()->addWidget(list);
    list->show();
    list->setFocus();
    bool mayLeave = false;
    list->SetValidate([&mayLeave] { return mayLeave; });
    int clicks = 0;
    button->setText(QStringLiteral("&Cancel"));
    QObject::connect(button, &QPushButton::clicked, button, [&clicks] { ++clicks; });
    PressKey(form, Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(clicks, 0) << "the list kept the focus";
    mayLeave = true;
    PressKey(form, Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(clicks, 1);
    list->SetValidate([this] {
        second->setFocus();
        return true;
    });
    list->setFocus();
    PressKey(form, Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(clicks, 1) << "leaving the list led elsewhere";
    EXPECT_TRUE(second->hasFocus());
}

} // namespace
} // namespace tally::test
