// What is painted by the program itself rather than by the toolkit. Clerks know a padlock, a window's buttons
// or the row they stand on by their looks, so none of them changes by chance. The pictures hold no letters,
// which are as the machine's fonts are.

#include "core/shell/frmStartLock.h"
#include "core/shell/frmStartLogin.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/ImageButton.h"
#include "core/ui/controls/PictureArea.h"
#include "core/ui/look/Look.h"
#include "support/EventCounter.h"
#include "support/ScreenFixture.h"
#include "support/TableOf.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionTitleBar>

#include <algorithm>
#include <cstdlib>

namespace tally::test {
namespace {

/// How much a colour may differ: less than anybody sees.
constexpr int Unseen = 6;

bool LooksAlike(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) <= Unseen && std::abs(qGreen(one) - qGreen(other)) <= Unseen &&
           std::abs(qBlue(one) - qBlue(other)) <= Unseen && std::abs(qAlpha(one) - qAlpha(other)) <= Unseen;
}

bool LookAlike(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return false;
    // A point that nobody sees has no colour.
    const QImage left = one.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage right = other.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < one.height(); ++y) {
        const auto* leftLine = reinterpret_cast<const QRgb*>(left.constScanLine(y));
        const auto* rightLine = reinterpret_cast<const QRgb*>(right.constScanLine(y));
        if (!std::equal(leftLine, leftLine + one.width(), rightLine, LooksAlike))
            return false;
    }
    return true;
}

/// In the light look and in the dark one.
class Pictures : public ScreenFixture, public testing::WithParamInterface<bool>
{
protected:
    void SetUp() override
    {
        UseDarkLook(GetParam());
        ScreenFixture::SetUp();
        QApplication::setCursorFlashTime(0);
    }
    void TearDown() override
    {
        QApplication::setCursorFlashTime(flashTime_);
        ScreenFixture::TearDown();
        UseDarkLook(false);
    }

    /// A picture that is not as it is known is laid down beside the tests, to be looked at and, where it is
    /// the better one, to take the known one's place.
    static void ExpectKnown(const QString& name, const QImage& painted)
    {
        const QString file = name + (GetParam() ? QStringLiteral(" dark.png") : QStringLiteral(".png"));
        if (LookAlike(QImage(QStringLiteral(TALLY_PICTURES "/") + file), painted))
            return;
        const QDir folder(QStringLiteral(TALLY_PAINTED));
        folder.mkpath(QStringLiteral("."));
        painted.save(folder.filePath(file));
        ADD_FAILURE() << "is not as it is known: " << folder.filePath(file).toStdString();
    }

    template <typename Control, typename... Arguments>
    static Control* Place(QWidget* form, const QRect& place, const Arguments&... arguments)
    {
        auto* control = new Control(arguments..., form);
        control->setGeometry(place);
        return control;
    }

    static void Show(QWidget* form)
    {
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    }

private:
    const int flashTime_ = QApplication::cursorFlashTime();
};

TEST_P(Pictures, OfFieldsButtonsAndOptions)
{
    auto* form = new QWidget;
    form->resize(330, 180);
    auto* field = Place<QLineEdit>(form, {10, 10, 90, 24});
    Place<QLineEdit>(form, {120, 10, 90, 24});
    Place<QLineEdit>(form, {230, 10, 90, 24})->setEnabled(false);
    Place<QComboBox>(form, {10, 44, 90, 24});
    Place<QComboBox>(form, {120, 44, 90, 24})->setEnabled(false);
    auto* number = Place<QSpinBox>(form, {230, 44, 90, 24});
    number->setSpecialValueText(QStringLiteral(" "));
    Place<QPushButton>(form, {10, 78, 60, 26});
    Place<QPushButton>(form, {80, 78, 60, 26})->setEnabled(false);
    Place<QPushButton>(form, {150, 78, 60, 26})->setDown(true);
    Place<QCheckBox>(form, {230, 78, 20, 20});
    Place<QCheckBox>(form, {255, 78, 20, 20})->setChecked(true);
    Place<QRadioButton>(form, {280, 78, 20, 20});
    Place<QRadioButton>(form, {300, 78, 20, 20})->setChecked(true);
    Place<QGroupBox>(form, {10, 114, 90, 56});
    auto* bar = Place<QScrollBar>(form, {120, 114, 200, 16}, Qt::Horizontal);
    bar->setRange(0, 100);
    bar->setValue(30);
    auto* image = Place<ImageButton>(form, {120, 140, 40, 30});
    Show(form);
    field->setFocus();
    ExpectKnown(QStringLiteral("fields"), form->grab().toImage());
    image->setFocus();
    ExpectKnown(QStringLiteral("focus of a picture"), image->grab().toImage());
}

TEST_P(Pictures, OfAButtonAreShownAsSoonAsTheyChange)
{
    ImageButton button;
    QPixmap picture(40, 30);
    picture.fill(Qt::red);
    button.SetPicture(picture);
    Show(&button);
    Settle();
    const EventCounter paints(&button, QEvent::Paint);
    picture.fill(Qt::blue);
    button.SetPicture(picture);
    Settle();
    EXPECT_EQ(paints.Count(), 1);
}

TEST_P(Pictures, OfListsTheirMarksAndTheirTicks)
{
    auto* form = new QWidget;
    form->resize(330, 140);
    auto* grid = Place<FlexGrid>(form, {10, 10, 200, 120});
    grid->horizontalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(20);
    grid->Show(TableOf(std::vector<GridTable::Row>(6, GridTable::Row(4))));
    for (int col = 0; col < 4; ++col)
        grid->SetColWidth(col, 48);
    for (int row = 1; row < 6; ++row) {
        grid->SetMark(row, 1, CellMark::FailedOrAbsent);
        grid->SetMark(row, 2, CellMark::NotTakenForRank);
        grid->SetMark(row, 3, CellMark::Sum);
    }
    auto* ticks = Place<CheckList>(form, {220, 10, 100, 120});
    for (int item = 0; item < 3; ++item)
        ticks->AddItem({item, QStringLiteral(" "), {}});
    ticks->item(1)->setCheckState(Qt::Checked);
    Show(form);
    for (const int col : {0, 1, 3}) {
        grid->SetCurrentCell(3, col);
        for (QWidget* focused : {static_cast<QWidget*>(grid), static_cast<QWidget*>(ticks)}) {
            focused->setFocus();
            Settle();
            ExpectKnown(QStringLiteral("list %1 %2").arg(col).arg(focused == grid ? "entered" : "left"),
                        form->grab().toImage());
        }
    }
    form->setEnabled(false);
    ExpectKnown(QStringLiteral("list off"), form->grab().toImage());
}

TEST_P(Pictures, OfTheButtonsOfChildWindows)
{
    constexpr QSize Bar(180, 26);
    const Qt::WindowFlags all = Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint |
                                Qt::WindowSystemMenuHint | Qt::WindowTitleHint;
    for (const Qt::WindowState state : {Qt::WindowNoState, Qt::WindowMaximized, Qt::WindowMinimized}) {
        QImage picture(Bar.width(), 6 * Bar.height(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::magenta);
        QPainter painter(&picture);
        int row = 0;
        for (const bool active : {true, false}) {
            for (const QStyle::SubControl lit :
                 {QStyle::SC_None, QStyle::SC_TitleBarCloseButton, QStyle::SC_TitleBarMaxButton}) {
                QStyleOptionTitleBar bar;
                bar.rect = QRect(QPoint(), Bar);
                bar.subControls = QStyle::SC_All;
                bar.activeSubControls = lit;
                bar.titleBarFlags = row == 1 ? all & ~Qt::WindowMaximizeButtonHint : all;
                bar.titleBarState = state | (active ? int(QStyle::State_Active) : 0);
                bar.state = lit == QStyle::SC_TitleBarMaxButton ? QStyle::State_Sunken : QStyle::State_None;
                bar.icon = LookIcon(QStringLiteral("app"));
                painter.save();
                painter.translate(0, row++ * Bar.height());
                QApplication::style()->drawComplexControl(QStyle::CC_TitleBar, &bar, &painter);
                painter.restore();
            }
        }
        painter.end();
        ExpectKnown(QStringLiteral("window buttons %1").arg(int(state)), picture);
    }
}

TEST_P(Pictures, OfTheButtonsOfAScreenThatFillsTheWindow)
{
    QStyleOptionComplex buttons;
    buttons.rect = QRect(0, 0, 80, 24);
    buttons.subControls = QStyle::SC_All;
    buttons.activeSubControls = QStyle::SC_MdiCloseButton;
    QImage picture(buttons.rect.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(QApplication::palette().color(QPalette::Window));
    QPainter painter(&picture);
    QApplication::style()->drawComplexControl(QStyle::CC_MdiControls, &buttons, &painter);
    painter.end();
    ExpectKnown(QStringLiteral("menu bar buttons"), picture);
}

TEST_P(Pictures, OfMenusAndMessages)
{
    QMenu menu;
    menu.setFixedSize(120, 60);
    menu.addAction(QStringLiteral(" "));
    menu.addSeparator();
    menu.addAction(QStringLiteral(" "))->setEnabled(false);
    ExpectKnown(QStringLiteral("menu"), menu.grab().toImage());
    QImage signs(5 * 40, 40, QImage::Format_ARGB32_Premultiplied);
    signs.fill(Qt::transparent);
    QPainter painter(&signs);
    int sign = 0;
    for (const auto icon : {QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxQuestion,
                            QStyle::SP_MessageBoxCritical, QStyle::SP_ArrowLeft, QStyle::SP_ArrowRight})
        QApplication::style()->standardIcon(icon).paint(&painter, QRect(sign++ * 40, 0, 40, 40));
    painter.end();
    ExpectKnown(QStringLiteral("signs"), signs);
}

TEST_P(Pictures, OfTheLockAndTheLogin)
{
    frmStartLock::Lock(window);
    auto* lock = window->findChild<frmStartLock*>();
    ASSERT_NE(lock, nullptr);
    ExpectKnown(QStringLiteral("padlock"), Find<QLabel>(lock, "Image1")->pixmap(Qt::ReturnByValue).toImage());
    ExpectKnown(QStringLiteral("corner of the lock"), lock->grab({0, 0, 24, 24}).toImage());
    delete lock;

    frmStartLogin::Open();
    QWidget* login = nullptr;
    for (QWidget* shown : QApplication::topLevelWidgets())
        login = qobject_cast<frmStartLogin*>(shown) ? shown : login;
    ASSERT_NE(login, nullptr);
    const QImage ground = Find<QLabel>(login, "Image1")->pixmap(Qt::ReturnByValue).toImage();
    ExpectKnown(QStringLiteral("band of the login"), ground.copy(0, 0, 20, 20));
    ExpectKnown(QStringLiteral("kite of the login"), ground.copy(ground.width() - 90, 0, 90, 80));
    for (const char* button : {"ImgOK1", "ImgOK2", "ImgCancel1", "ImgCancel2"})
        ExpectKnown(QString::fromLatin1(button),
                    Find<QLabel>(login, button)->pixmap(Qt::ReturnByValue).toImage().copy(0, 0, 10, 20));
}

TEST_P(Pictures, BehindTheScreens)
{
    QPixmap picture(60, 20);
    picture.fill(Qt::white);
    QPainter(&picture).fillRect(20, 5, 20, 10, Qt::red);
    PictureArea area;
    area.resize(120, 90);
    ExpectKnown(QStringLiteral("plain ground"), area.grab().toImage());
    area.SetPicture(picture);
    ExpectKnown(QStringLiteral("ground"), area.grab().toImage());
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, Pictures, testing::Bool(),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

} // namespace
} // namespace tally::test
