// What a control of the program owes to the window around it, whatever it does besides: it is painted anew
// when the focus comes and goes, and lets keys go on that mean nothing to it.

#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/controls/DateLabel.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingCombo.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/controls/ImageButton.h"
#include "support/EventCounter.h"
#include "support/ScreenFixture.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>

namespace tally::test {
namespace {

class ControlEvents : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        for (QWidget* widget :
             std::initializer_list<QWidget*>{combo, list, ticks, dateLabel, date, picture, grid, button})
            rows->addWidget(widget);
        combo->SetListBehindBlank({{1, QStringLiteral("One")}});
        list->Bind({{QStringLiteral("Name")}, {{QStringLiteral("Anu")}}}, {});
        ticks->AddItem({1, QStringLiteral("XII A"), {}});
        picture->SetPicture(Red(40, 30));
        grid->SetCols(2);
        grid->SetRows(4);
        form->resize(400, 700);
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        editor->OpenAt(1, 0);
        floating->OpenAt(2, 0);
        button->setFocus();
        Settle();
    }

    static QPixmap Red(int width, int height)
    {
        QPixmap red(width, height);
        red.fill(Qt::red);
        return red;
    }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    DataCombo* combo = new DataCombo(form);
    DataGrid* list = new DataGrid(form);
    CheckList* ticks = new CheckList(form);
    DateLabel* dateLabel = new DateLabel(form);
    DatePicker* date = new DatePicker(form);
    ImageButton* picture = new ImageButton(form);
    FlexGrid* grid = new FlexGrid(form);
    FloatingEditor* editor = new FloatingEditor(grid);
    FloatingCombo* floating = new FloatingCombo(grid);
    QPushButton* button = new QPushButton(form);
};

TEST_F(ControlEvents, AControlIsPaintedAnewWhenTheFocusComesAndGoes)
{
    for (QWidget* control : std::initializer_list<QWidget*>{combo, list, ticks, dateLabel, date, picture,
                                                            grid, editor, floating}) {
        QList<EventCounter*> paints{new EventCounter(control, QEvent::Paint)};
        if (auto* area = qobject_cast<QAbstractScrollArea*>(control))
            paints.append(new EventCounter(area->viewport(), QEvent::Paint));
        for (QWidget* next : {control, static_cast<QWidget*>(button)}) {
            Settle();
            for (EventCounter* counter : paints)
                counter->Taken();
            next->setFocus();
            Settle();
            for (EventCounter* counter : paints)
                EXPECT_GT(counter->Taken(), 0)
                    << control->metaObject()->className() << (next == control ? " entered" : " left");
        }
    }
}

TEST_F(ControlEvents, AListIsPaintedAnewWhenTheScreenChoosesInIt)
{
    EventCounter paints(combo, QEvent::Paint);
    Settle();
    paints.Taken();
    combo->SetBoundCode(1);
    Settle();
    EXPECT_GT(paints.Taken(), 0);
}

TEST_F(ControlEvents, AKeyThatMeansNothingToAControlReachesItsForm)
{
    EventCounter keys(form, QEvent::KeyPress);
    for (QWidget* control : std::initializer_list<QWidget*>{combo, list, ticks, dateLabel, date, picture,
                                                            grid, editor, floating}) {
        control->setFocus();
        QTest::keyClick(control, Qt::Key_F8);
        EXPECT_EQ(keys.Taken(), 1) << control->metaObject()->className();
    }
}

TEST_F(ControlEvents, WhoComesToAListOfTicksByKeySeesWhichOneTheBlankKeyIsMeantFor)
{
    EXPECT_FALSE(ticks->item(0)->isSelected());
    ticks->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(ticks->item(0)->isSelected());
    button->setFocus();
    ticks->clear();
    ticks->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(ticks->hasFocus());
}

TEST_F(ControlEvents, TheHourGlassStandsAsLongAsTheWorkLasts)
{
    {
        const HourGlass hourGlass;
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ControlEvents, APictureIsShownAndTakesTheRoomThatItNeeds)
{
    picture->SetPicture(Red(80, 60));
    Settle();
    EXPECT_EQ(picture->size(), QSize(80, 60));
    EXPECT_EQ(picture->grab().toImage().pixelColor(40, 30), QColor(Qt::red));
}

TEST_F(ControlEvents, APictureIsPressedByEnterAndByTheBlankKey)
{
    int presses = 0;
    QObject::connect(picture, &ImageButton::clicked, picture, [&presses] { ++presses; });
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
        QTest::keyClick(picture, key);
    EXPECT_EQ(presses, 3);
}

} // namespace
} // namespace tally::test
