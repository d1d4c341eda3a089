#include "core/ui/FormKeys.h"

#include "core/SessionContext.h"
#include "core/ui/controls/DataCombo.h"
#include "support/ScreenFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVBoxLayout>

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
    EXPECT_EQ(first->text().toStdString(), "");
    QTest::keyClick(first, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier);
    QTest::keyClick(first, 'z');
    EXPECT_TRUE(first->text().endsWith(QLatin1Char('z')));
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
