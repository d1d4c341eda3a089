#include "core/ui/look/Look.h"

#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DateLabel.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/PictureArea.h"
#include "support/ScreenFixture.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QStyle>
#include <QStyleOption>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// The relative luminance of the Web Content Accessibility Guidelines.
double Luminance(const QColor& color)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

/// Their contrast ratio, from 1 to 21.
double Ratio(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

constexpr double OfText = 4.5;
constexpr double OfEdges = 3.0;

/// The colour that most of the picture has: the ground on which the rest stands.
QColor Ground(const QImage& picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    const auto most = std::max_element(counts.keyValueBegin(), counts.keyValueEnd(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    return QColor((*most).first);
}

/// How light the picture is on the whole, from 0 to 1.
double Brightness(const QImage& picture)
{
    double sum = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            sum += Luminance(picture.pixelColor(x, y));
    return sum / picture.width() / picture.height();
}

/// How far what is drawn most clearly in the picture stands out from its ground.
double Strongest(const QImage& picture)
{
    const QColor ground = Ground(picture);
    double most = 1;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            most = std::max(most, Ratio(picture.pixelColor(x, y), ground));
    return most;
}

class Look : public ::testing::TestWithParam<bool>
{
protected:
    void SetUp() override { UseDarkLook(GetParam()); }
    void TearDown() override { UseDarkLook(false); }

    /// A window with the control in its middle, ground all around it.
    template <typename Control>
    Control* Show(Control* control)
    {
        control->setParent(&form);
        rows.addWidget(control);
        form.resize(260, 200);
        form.show();
        control->show();
        QApplication::setActiveWindow(&form);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        rows.activate();
        control->clearFocus();
        return control;
    }
    QImage Picture() { return form.grab().toImage(); }
    QImage Picture(const QWidget* control, const QRect& part)
    {
        return Picture().copy(part.translated(control->mapTo(&form, QPoint())));
    }
    /// How far the weakest of the four edges of `part` of a control stands out from what is outside and from
    /// what it encloses, whichever is less.
    double Edge(const QWidget* control, const QRect& part)
    {
        const QImage picture = Picture();
        const QRect place = part.translated(control->mapTo(&form, QPoint()));
        double least = 21;
        for (const auto& [side, inwards] :
             {std::pair{QPoint(place.left(), place.center().y()), QPoint(1, 0)},
              std::pair{QPoint(place.right(), place.center().y()), QPoint(-1, 0)},
              std::pair{QPoint(place.center().x(), place.top()), QPoint(0, 1)},
              std::pair{QPoint(place.center().x(), place.bottom()), QPoint(0, -1)}}) {
            const QColor outside = picture.pixelColor(side - 3 * inwards);
            const QColor inside = picture.pixelColor(side + 2 * inwards);
            double most = 1;
            for (int step = 0; step < 2; ++step) {
                const QColor edge = picture.pixelColor(side + step * inwards);
                most = std::max(most, std::min(Ratio(edge, outside), Ratio(edge, inside)));
            }
            least = std::min(least, most);
        }
        return least;
    }
    double Edge(const QWidget* control) { return Edge(control, control->rect()); }

    QWidget form;
    QVBoxLayout rows{&form};
};

TEST_P(Look, EveryTextOfThePaletteCanBeReadOnItsGround)
{
    using P = QPalette;
    const std::initializer_list<std::pair<P::ColorRole, P::ColorRole>> pairs{
        {P::WindowText, P::Window},
        {P::Text, P::Base},
        {P::Text, P::AlternateBase},
        {P::Text, P::Window},
        {P::Text, P::Midlight},
        {P::ButtonText, P::Button},
        {P::ButtonText, P::Window},
        {P::HighlightedText, P::Highlight},
        {P::PlaceholderText, P::Base},
        {P::ToolTipText, P::ToolTipBase},
        {P::Link, P::Base},
        {P::Link, P::Window},
        {P::LinkVisited, P::Window},
        {P::PlaceholderText, P::Window},
    };
    const QPalette palette = QApplication::palette();
    for (const auto group : {P::Active, P::Inactive, P::Disabled})
        for (const auto& [text, ground] : pairs)
            EXPECT_GE(Ratio(palette.color(group, text), palette.color(group, ground)), OfText)
                << "group " << group << ", " << text << " on " << ground;
    EXPECT_GE(Ratio(palette.color(P::Highlight), palette.color(P::Window)), OfText) << "titles of groups";
    EXPECT_GE(Ratio(QToolTip::palette().color(P::ToolTipText), QToolTip::palette().color(P::ToolTipBase)),
              OfText);
}

TEST_P(Look, EveryEdgeOfThePaletteIsSeenOnItsGround)
{
    using P = QPalette;
    const QPalette palette = QApplication::palette();
    for (const auto edge : {P::Mid, P::Highlight})
        for (const auto ground : {P::Window, P::Base, P::AlternateBase, P::Button, P::Midlight})
            EXPECT_GE(Ratio(palette.color(edge), palette.color(ground)), OfEdges) << edge << " on " << ground;
}

TEST_P(Look, TheEdgesOfFieldsAreSeen)
{
    auto* editable = new QComboBox;
    editable->setEditable(true);
    for (QWidget* field :
         std::initializer_list<QWidget*>{new QLineEdit, new QComboBox, editable, new DatePicker, new QSpinBox,
                                         new CheckList, new FlexGrid}) {
        Show(field);
        EXPECT_GE(Edge(field), OfEdges) << field->metaObject()->className();
        field->setEnabled(false);
        EXPECT_GE(Edge(field), OfEdges) << field->metaObject()->className() << " switched off";
        field->setEnabled(true);
        field->setFocus();
        ASSERT_TRUE(field->hasFocus());
        EXPECT_GE(Edge(field), OfEdges) << field->metaObject()->className() << " with the focus";
        delete field;
    }
}

TEST_P(Look, AFieldThatIsToHaveNoEdgeHasNone)
{
    auto* number = Show(new QSpinBox);
    number->setFrame(false);
    EXPECT_LT(Edge(number), OfEdges);
    delete number;
}

TEST_P(Look, AnEdgeIsPaintedAroundAndNothingWithin)
{
    const QColor within = Qt::magenta;
    for (const auto frame : {QStyle::PE_FrameLineEdit, QStyle::PE_FrameFocusRect}) {
        QImage picture(40, 30, QImage::Format_ARGB32_Premultiplied);
        picture.fill(within);
        QStyleOption option;
        option.rect = picture.rect();
        QPainter painter(&picture);
        painter.setBrush(Qt::cyan);
        QApplication::style()->drawPrimitive(frame, &option, &painter);
        painter.end();
        EXPECT_EQ(picture.pixelColor(20, 15), within) << frame;
        EXPECT_NE(picture.pixelColor(20, 0), within) << frame;
    }
}

TEST_P(Look, TheFocusFrameStandsWhereAControlShowsTheFocusByNoEdgeOfItsOwn)
{
    for (QWidget* control :
         std::initializer_list<QWidget*>{new QPushButton, new QComboBox, new QCheckBox, new QRadioButton}) {
        QImage picture(40, 30, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::magenta);
        QStyleOption option;
        option.rect = picture.rect();
        QPainter painter(&picture);
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, control);
        painter.end();
        const bool ownEdge = qobject_cast<QPushButton*>(control) || qobject_cast<QComboBox*>(control);
        EXPECT_EQ(picture.pixelColor(20, 0) == QColor(Qt::magenta), ownEdge)
            << control->metaObject()->className();
        delete control;
    }
}

TEST_P(Look, AFieldTakesNoFocusFromTheWheelAndAButtonLightsUpUnderTheMouse)
{
    for (QWidget* field : std::initializer_list<QWidget*>{new QComboBox, new QSpinBox, new DatePicker}) {
        Show(field);
        EXPECT_EQ(field->focusPolicy(), Qt::StrongFocus) << field->metaObject()->className();
        delete field;
    }
    auto* button = Show(new QPushButton);
    EXPECT_TRUE(button->testAttribute(Qt::WA_Hover));
    delete button;
}

TEST_P(Look, TheFocusOfAFieldIsSeenBesideTheFieldWithoutIt)
{
    for (QWidget* field :
         std::initializer_list<QWidget*>{new QLineEdit, new QComboBox, new DatePicker, new DateLabel,
                                         new QCheckBox, new QRadioButton, new QPushButton}) {
        Show(field);
        const QImage before = Picture();
        field->setFocus(Qt::TabFocusReason);
        const QImage after = Picture();
        double most = 1;
        for (int y = 0; y < after.height(); ++y)
            for (int x = 0; x < after.width(); ++x)
                most = std::max(most, Ratio(after.pixelColor(x, y), before.pixelColor(x, y)));
        EXPECT_GE(most, OfEdges) << field->metaObject()->className();
        delete field;
    }
}

TEST_P(Look, TheEdgesOfTicksOptionsButtonsAndGroupsAreSeen)
{
    const int side = QApplication::style()->pixelMetric(QStyle::PM_IndicatorWidth);
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{new QCheckBox, new QRadioButton}) {
        Show(button);
        const QRect sign(0, (button->height() - side) / 2, side, side);
        EXPECT_GE(Edge(button, sign), OfEdges) << button->metaObject()->className();
        button->setEnabled(false);
        EXPECT_GE(Edge(button, sign), OfEdges) << button->metaObject()->className() << " switched off";
        delete button;
    }
    auto* button = Show(new QPushButton);
    EXPECT_GE(Edge(button), OfEdges);
    delete button;
    const auto* group = Show(new QGroupBox);
    QStyleOptionGroupBox option;
    option.initFrom(group);
    option.subControls = QStyle::SC_GroupBoxFrame;
    EXPECT_GE(Edge(group, group->style()->subControlRect(QStyle::CC_GroupBox, &option,
                                                         QStyle::SC_GroupBoxFrame, group)),
              OfEdges);
}

TEST_P(Look, TheArrowsOfListsAndDatesAreSeen)
{
    auto* editable = new QComboBox;
    editable->setEditable(true);
    for (QWidget* field : std::initializer_list<QWidget*>{new QComboBox, editable, new DatePicker}) {
        Show(field);
        const QRect arrow(field->width() - 15, field->height() / 2 - 5, 10, 10);
        EXPECT_GE(Strongest(Picture(field, arrow)), OfEdges) << field->metaObject()->className();
        field->setEnabled(false);
        EXPECT_GE(Strongest(Picture(field, arrow)), OfEdges)
            << field->metaObject()->className() << " switched off";
        delete field;
    }
}

TEST_P(Look, TheCalendarOfADateFieldCanBeReadAndHasAnEdge)
{
    UseDarkLook(!GetParam());
    auto* picker = Show(new DatePicker);
    picker->setDate(QDate(2026, 11, 11));
    UseDarkLook(GetParam());
    QTest::mouseClick(picker, Qt::LeftButton, Qt::NoModifier,
                      QPoint(picker->width() - 10, picker->height() / 2));
    const QCalendarWidget* calendar = picker->calendarWidget();
    ASSERT_TRUE(calendar->isVisible());
    const QImage picture = calendar->window()->grab().toImage();
    const auto part = [&](const QWidget* control, const QRect& area) {
        return picture.copy(area.translated(control->mapTo(calendar->window(), QPoint())));
    };

    const auto* days = Find<QTableView>(calendar, "qt_calendar_calendarview");
    ASSERT_NE(days, nullptr);
    for (int row = 0; row < days->model()->rowCount(); ++row)
        for (int day = 0; day < days->model()->columnCount(); ++day) {
            const QRect cell = days->visualRect(days->model()->index(row, day));
            EXPECT_GE(Strongest(part(days->viewport(), cell)), OfText) << row << ", " << day;
        }
    for (const char* name : {"qt_calendar_monthbutton", "qt_calendar_yearbutton"}) {
        const auto* button = Find<QToolButton>(calendar, name);
        ASSERT_NE(button, nullptr);
        EXPECT_GE(Strongest(part(button, button->rect())), OfText) << name;
    }
    for (const auto& [name, icon] : {std::pair{"qt_calendar_prevmonth", QStringLiteral("previous")},
                                     std::pair{"qt_calendar_nextmonth", QStringLiteral("next")}}) {
        const auto* button = Find<QToolButton>(calendar, name);
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->icon().pixmap(16).toImage(), LookIcon(icon).pixmap(16).toImage()) << name;
        EXPECT_GE(Strongest(part(button, button->rect())), OfEdges) << name;
    }

    const QPoint end = picture.rect().bottomRight();
    const QPoint middle = picture.rect().center();
    for (const auto& [edge, inside] :
         {std::pair{QPoint(0, middle.y()), QPoint(2, middle.y())},
          std::pair{QPoint(end.x(), middle.y()), QPoint(end.x() - 2, middle.y())},
          std::pair{QPoint(middle.x(), 0), QPoint(middle.x(), 2)},
          std::pair{QPoint(middle.x(), end.y()), QPoint(middle.x(), end.y() - 2)}})
        EXPECT_GE(Ratio(picture.pixelColor(edge), picture.pixelColor(inside)), OfEdges) << edge.x();
}

TEST_P(Look, TheDateThatASearchWaitsForCanBeRead)
{
    auto* label = Show(new DateLabel);
    label->SetDate(QDate(2026, 11, 28));
    for (const bool awaiting : {false, true}) {
        label->SetAwaiting(awaiting);
        EXPECT_GE(Strongest(Picture(label, label->rect().adjusted(6, 4, -6, -4))), OfText) << awaiting;
    }
}

TEST_P(Look, TheTickOfAListIsSeen)
{
    auto* list = Show(new CheckList);
    list->AddItem({1, {}, {}});
    const QRect item = list->visualItemRect(list->item(0)).adjusted(0, 0, -100, 0);
    EXPECT_GE(Strongest(Picture(list->viewport(), item)), OfEdges);
}

TEST_P(Look, WhatIsChosenInASwitchedOffListOrFieldCanBeRead)
{
    auto* list = Show(new CheckList);
    list->AddItem({1, QStringLiteral("XII A"), {}});
    list->SetTicked(0, true);
    list->setCurrentRow(0);
    for (const bool on : {true, false}) {
        list->setEnabled(on);
        const QRect text = list->visualItemRect(list->item(0)).adjusted(26, 0, -40, 0);
        EXPECT_GE(Strongest(Picture(list->viewport(), text)), OfText) << on;
    }
    delete list;
    for (QWidget* field : std::initializer_list<QWidget*>{
             new QLineEdit(QStringLiteral("HALF YEARLY")), new QComboBox, new DatePicker,
             new QCheckBox(QStringLiteral("HALF YEARLY")), new QLabel(QStringLiteral("HALF YEARLY"))}) {
        if (auto* combo = qobject_cast<QComboBox*>(field))
            combo->addItem(QStringLiteral("HALF YEARLY"));
        Show(field);
        field->setEnabled(false);
        const QRect text(6, 4, field->width() - 60, field->height() - 8);
        EXPECT_GE(Strongest(Picture(field, text)), OfText) << field->metaObject()->className();
        delete field;
    }
}

TEST_P(Look, TheTitlesOfChildWindowsCanBeRead)
{
    auto* area = Show(new QMdiArea);
    for (int child = 0; child < 2; ++child) {
        QMdiSubWindow* frame =
            area->addSubWindow(new QWidget, Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                                Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
                                                Qt::WindowCloseButtonHint);
        frame->setWindowTitle(QStringLiteral("Rank List"));
        frame->setGeometry(0, child * 80, 200, 70);
        frame->show();
    }
    for (QMdiSubWindow* frame : area->subWindowList()) {
        area->setActiveSubWindow(frame);
        for (const QMdiSubWindow* shown : area->subWindowList()) {
            const QImage title = Picture(shown, QRect(30, 6, 110, 14));
            EXPECT_GE(Strongest(title), OfText) << (shown == frame ? "in front" : "behind");
            // The buttons for the whole window and for closing stand at the right.
            for (const int left : {154, 176}) {
                const QImage button = Picture(shown, QRect(left, 5, 18, 16));
                EXPECT_GE(Strongest(button), OfEdges) << (shown == frame ? "in front" : "behind");
            }
        }
    }
}

TEST_P(Look, TheTitleOfAWindowWithoutButtonsCanBeRead)
{
    QImage picture(200, 26, QImage::Format_ARGB32_Premultiplied);
    QStyleOptionTitleBar bar;
    bar.rect = picture.rect();
    bar.titleBarFlags = Qt::WindowTitleHint;
    bar.text = QStringLiteral("Rank List");
    for (const int state : {0, int(QStyle::State_Active)}) {
        bar.titleBarState = state;
        QPainter painter(&picture);
        QApplication::style()->drawComplexControl(QStyle::CC_TitleBar, &bar, &painter);
        painter.end();
        EXPECT_GE(Strongest(picture), OfText) << state;
    }
}

TEST_P(Look, TheButtonsOfAScreenThatFillsTheWindowAreSeenInTheMenuBar)
{
    QMainWindow window;
    auto* area = new QMdiArea;
    window.setCentralWidget(area);
    window.menuBar()->addMenu(QStringLiteral("Masters"));
    area->addSubWindow(new QWidget)->showMaximized();
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QWidget* buttons = window.menuBar()->cornerWidget();
    ASSERT_NE(buttons, nullptr);
    const QImage bar = window.menuBar()->grab().toImage();
    for (int button = 0; button < 3; ++button) {
        const int third = buttons->width() / 3;
        EXPECT_GE(Strongest(bar.copy(buttons->x() + button * third, buttons->y(), third, buttons->height())),
                  OfEdges)
            << button;
    }
}

TEST_P(Look, TheHandleOfAScrollBarIsSeen)
{
    auto* bar = Show(new QScrollBar(Qt::Horizontal));
    bar->setRange(0, 100);
    bar->setValue(50);
    EXPECT_GE(Strongest(Picture(bar, bar->rect().adjusted(30, 1, -30, -1))), OfEdges);
}

TEST_P(Look, EntriesOfMenusThatAreOffCanBeRead)
{
    QMenu menu;
    menu.addAction(QStringLiteral("HALF YEARLY"))->setEnabled(false);
    menu.popup(QPoint(10, 10));
    EXPECT_GE(Strongest(menu.grab(menu.rect().adjusted(4, 2, -4, -2)).toImage()), OfText);
}

TEST_P(Look, IconsAreSeenOnTheirButtonsAndWindows)
{
    for (const char* name :
         {"add",   "calendar", "cancel",   "clear",       "close",  "critical", "delete", "edit",
          "exit",  "export",   "help",     "information", "lock",   "new",      "next",   "previous",
          "print", "proceed",  "question", "save",        "search", "total",    "view"}) {
        const QIcon icon = LookIcon(QString::fromLatin1(name));
        ASSERT_FALSE(icon.isNull()) << name;
        auto* button = Show(new QPushButton(icon, QString()));
        const QRect middle(button->rect().center() - QPoint(9, 9), QSize(18, 18));
        EXPECT_GE(Strongest(Picture(button, middle)), OfEdges) << name;
        delete button;
        auto* label = Show(new QLabel);
        label->setPixmap(icon.pixmap(48));
        EXPECT_GE(Strongest(Picture(label, label->rect())), OfEdges) << name;
        delete label;
    }
}

TEST_P(Look, NothingBehindTheFormsIsBrighterThanTheyAreInTheDark)
{
    PictureArea area;
    QPixmap morning(40, 30);
    morning.fill(Qt::white);
    area.SetPicture(morning);
    area.resize(200, 150);
    area.show();
    const QColor shown = area.grab().toImage().pixelColor(100, 70);
    if (GetParam())
        EXPECT_LT(shown.lightness(), 110);
    else
        EXPECT_EQ(shown, QColor(Qt::white));
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, Look, ::testing::Bool(),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

/// The system goes from light to dark, or back, while the program runs.
class ChangeOfLook : public testing::Test
{
protected:
    void TearDown() override { UseDarkLook(false); }
};

TEST_F(ChangeOfLook, TheSystemsOwnColoursDecideWhereNobodyElseDoes)
{
    UseDarkLook({});
    QPalette system(QColor(40, 40, 40));
    ASSERT_TRUE(IsDark(system));
    QApplication::style()->polish(system);
    EXPECT_TRUE(IsDark(system));
    const QColor dark = system.color(QPalette::Window);
    system = QPalette(QColor(230, 230, 230));
    QApplication::style()->polish(system);
    EXPECT_FALSE(IsDark(system));
    const QPalette level(Qt::gray, Qt::gray, Qt::gray, Qt::gray, Qt::gray, Qt::gray, Qt::gray);
    EXPECT_FALSE(IsDark(level)) << "its texts are no lighter";
    UseDarkLook(true);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), dark);
    QApplication::style()->polish(system);
    EXPECT_TRUE(IsDark(system)) << "what was chosen goes before";
}

TEST_F(ChangeOfLook, EverythingOnTheScreenFollowsAndNothingIsLost)
{
    QWidget form;
    QVBoxLayout rows(&form);
    auto* field = new QLineEdit;
    auto* button = new QPushButton(LookIcon(QStringLiteral("save")), QString());
    auto* group = new QGroupBox(QStringLiteral("HALF YEARLY"));
    auto* panel = new QFrame;
    panel->setProperty("floating", true);
    auto* boxed = new QFrame;
    boxed->setStyleSheet(QStringLiteral("QFrame { background: palette(base); }"));
    auto* area = new PictureArea;
    QPixmap morning(40, 30);
    morning.fill(Qt::white);
    area->SetPicture(morning);
    for (QWidget* part : std::initializer_list<QWidget*>{field, button, group, panel, boxed, area})
        rows.addWidget(part);
    for (QWidget* tall : std::initializer_list<QWidget*>{group, panel, boxed, area})
        tall->setMinimumSize(160, 40);
    form.show();
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    field->clearFocus();
    const QImage light = form.grab().toImage();
    EXPECT_GT(Brightness(light), 0.7);
    QTest::keyClicks(field, QStringLiteral("Asha"));
    field->setSelection(1, 2);
    field->setFocus();

    UseDarkLook(true);
    EXPECT_EQ(field->text().toStdString(), "Asha");
    EXPECT_EQ(field->selectedText().toStdString(), "sh");
    EXPECT_TRUE(field->hasFocus());
    const QImage dark = form.grab().toImage();
    for (const QWidget* part :
         std::initializer_list<const QWidget*>{field, button, group, panel, boxed, area}) {
        EXPECT_LT(Brightness(dark.copy(part->geometry())), 0.1) << part->metaObject()->className();
    }

    UseDarkLook(false);
    field->setText(QString());
    field->clearFocus();
    EXPECT_EQ(form.grab().toImage(), light) << "back again, all is as it was";
}

/// The columns of a cell in which the text of a list leaves ink, from the first to the last.
std::pair<int, int> InkOf(const QString& text, Qt::Alignment alignment, const QRect& cell,
                          bool isBold = false)
{
    QTableView list;
    QStandardItemModel model(1, 1);
    model.setItem(0, 0, new QStandardItem(text));
    model.item(0, 0)->setTextAlignment(alignment);
    QFont font;
    font.setBold(isBold);
    model.item(0, 0)->setFont(font);
    list.setModel(&model);
    DressGrid(&list);
    QImage picture(300, 30, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    QStyleOptionViewItem option;
    option.rect = cell;
    option.font = list.font();
    option.fontMetrics = QFontMetrics(list.font());
    option.palette = list.palette();
    option.state = QStyle::State_Enabled;
    list.itemDelegate()->paint(&painter, option, model.index(0, 0));
    painter.end();
    std::pair ink(picture.width(), -1);
    for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y)
            if (picture.pixel(x, y) != qRgb(255, 255, 255))
                ink = {std::min(ink.first, x), x};
    return ink;
}

TEST(Look, ATextOfAListStandsAtItsSideOfTheCellAndOneThatIsTooLongEndsWithinIt)
{
    const QRect cell(100, 2, 80, 24);
    const auto [left, leftEnd] = InkOf(QStringLiteral("Asha"), Qt::AlignLeft, cell);
    EXPECT_LT(left, cell.left() + 8);
    EXPECT_LT(leftEnd, cell.center().x() + 10);
    const auto [right, rightEnd] = InkOf(QStringLiteral("95"), Qt::AlignRight, cell);
    EXPECT_GT(right, cell.center().x());
    EXPECT_GT(rightEnd, cell.right() - 8);
    const auto [begin, longEnd] = InkOf(QStringLiteral("Venkatasubramanian Narayanan"), Qt::AlignLeft, cell);
    EXPECT_LT(begin, cell.left() + 8);
    EXPECT_GT(longEnd, cell.center().x());
    EXPECT_LE(longEnd, cell.right());
    const auto [bold, boldEnd] = InkOf(QStringLiteral("WWWW"), Qt::AlignRight, cell, true);
    EXPECT_GT(bold, cell.left());
    EXPECT_LE(boldEnd, cell.right() - 3) << "it is measured in its own letters";
}

TEST(Look, ATextOfAListIsNoMarkup)
{
    const QRect cell(100, 2, 180, 24);
    EXPECT_GT(InkOf(QStringLiteral("<b>Asha</b>"), Qt::AlignLeft, cell).second,
              InkOf(QStringLiteral("Asha and"), Qt::AlignLeft, cell).second);
}

TEST(Look, NothingIsTypedIntoAList)
{
    QStandardItemModel model(2, 2);
    QTableView list;
    list.setModel(&model);
    DressGrid(&list);
    list.show();
    QApplication::setActiveWindow(&list);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    list.setCurrentIndex(model.index(0, 0));
    for (const auto key : {Qt::Key_F2, Qt::Key_A})
        QTest::keyClick(&list, key);
    EXPECT_EQ(list.findChild<QLineEdit*>(), nullptr);
}

TEST(Look, TheHeadOfAListIsTheSameWhateverColumnIsCurrent)
{
    QStandardItemModel model(2, 2);
    model.setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Mark")});
    QTableView list;
    list.setModel(&model);
    DressGrid(&list);
    list.show();
    QApplication::setActiveWindow(&list);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    const QImage before = list.horizontalHeader()->grab().toImage();
    list.setFocus();
    list.setCurrentIndex(model.index(1, 1));
    EXPECT_EQ(list.horizontalHeader()->grab().toImage(), before);
}

} // namespace
} // namespace tally::test
