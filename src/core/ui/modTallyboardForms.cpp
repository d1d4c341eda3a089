#include "core/ui/modTallyboardForms.h"

#include "core/Numbers.h"
#include "core/SessionContext.h"
#include "core/Twips.h"
#include "core/ui/AccessibleNames.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/controls/FieldHint.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenHost.h"
#include "core/ui/ScreenRegistry.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGraphicsView>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>

#include <algorithm>
#include <functional>

namespace tally {

namespace {

std::vector<Screen*> OpenScreens()
{
    std::vector<Screen*> screens;
    const auto* window = ScreenHost::Instance();
    if (!window)
        return screens;
    for (const QMdiSubWindow* frame : window->Area()->subWindowList()) {
        auto* screen = qobject_cast<Screen*>(frame->widget());
        if (screen && !screen->IsUnloaded())
            screens.push_back(screen);
    }
    return screens;
}

} // namespace

bool IsSmallScreen(QSize pixels)
{
    const QSize twips = pixels * TwipsPerPixel;
    return twips.width() >= 11000 && twips.width() <= 12500 && twips.height() >= 8500 &&
           twips.height() <= 9500;
}

QSize DisplaySize()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->size() : QSize();
}

int MainPicture(QSize display)
{
    return IsSmallScreen(display) ? 1003 : 1001;
}

int PlainPicture(QSize display)
{
    return IsSmallScreen(display) ? 1004 : 1002;
}

void ShowForm(const QString& formName)
{
    auto* window = ScreenHost::Instance();
    Screen* screen = window ? ScreenRegistry::Instance(formName) : nullptr;
    if (!screen)
        return;
    window->ShowPicture(PlainPicture(DisplaySize()));
    QMdiSubWindow* frame = qobject_cast<QMdiSubWindow*>(screen->parentWidget());
    const bool opens = !frame;
    if (opens) {
        NameControls(screen);
        // A list or a chart is worth the whole window; a form of fields is not.
        const bool growing =
            screen->findChild<Grid*>() != nullptr || screen->findChild<QGraphicsView*>() != nullptr;
        frame = window->Area()->addSubWindow(
            screen, Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                        Qt::WindowCloseButtonHint |
                        (growing ? Qt::WindowMaximizeButtonHint : Qt::WindowFlags()));
        frame->setWindowIcon(LookIcon(QStringLiteral("app")));
        frame->resize(frame->sizeHint()
                          .expandedTo(frame->minimumSizeHint())
                          .boundedTo(window->Area()->viewport()->size()));
        CenterForm(frame);
    }
    if (opens)
        frame->hide();
    frame->show();
    if (opens) {
        // Only now, since a box that its activation brings would stand over a form that is drawn by half.
        const auto activate = [screen, frame](const QMdiSubWindow* active) {
            if (active == frame)
                screen->Activate();
        };
        QObject::connect(window->Area(), &QMdiArea::subWindowActivated, screen, activate);
        activate(window->Area()->activeSubWindow());
    }
    // A screen that may not be opened now has told so and is gone.
    if (screen->IsUnloaded())
        return;
    // Where the keys go is shown from the first field on, not only after the first Tab.
    window->Area()->window()->setAttribute(Qt::WA_KeyboardFocusChange);
    window->Area()->setActiveSubWindow(frame);
    FocusActiveScreen();
}

void FocusActiveScreen()
{
    const auto* window = ScreenHost::Instance();
    const QMdiSubWindow* frame = window ? window->Area()->activeSubWindow() : nullptr;
    QWidget* screen = frame ? frame->widget() : nullptr;
    if (!screen || screen->isAncestorOf(QApplication::focusWidget()))
        return;
    QWidget* field = screen->focusWidget();
    if (!field || !field->isEnabled())
        field = screen->nextInFocusChain();
    const auto takesKeys = [screen](const QWidget* widget) {
        return screen->isAncestorOf(widget) && widget->isVisibleTo(screen) && widget->isEnabled() &&
               (widget->focusPolicy() & Qt::TabFocus) != 0;
    };
    while (field != screen && !takesKeys(field))
        field = field->nextInFocusChain();
    field->setFocus(Qt::ActiveWindowFocusReason);
}

void ShowBackground()
{
    if (auto* window = ScreenHost::Instance())
        window->ShowPicture(AnyChildFormOpen() ? PlainPicture(DisplaySize()) : MainPicture(DisplaySize()));
}

bool ConfirmExit(const QString& caption)
{
    return !Session().gblnPromptOnExit ||
           Prompts::Ask(QStringLiteral("Do You Want To Exit ") + caption + QStringLiteral(" ?"), caption);
}

void CenterForm(QWidget* form, QWidget* parent)
{
    QWidget* around = parent;
    if (!around && ScreenHost::Instance())
        around = ScreenHost::Instance()->Area()->viewport();
    if (around)
        form->move(std::max(0, (around->width() - form->width()) / 2),
                   std::max(0, (around->height() - form->height()) / 2));
}

bool AnyChildFormOpen()
{
    return !OpenScreens().empty();
}

bool OtherFormsOpen(const QWidget* form)
{
    const auto screens = OpenScreens();
    return std::any_of(screens.begin(), screens.end(), [form](const Screen* screen) {
        return screen != form && screen->objectName() != QLatin1String("AboutUs");
    });
}

bool AnyScreenHasTakenMenus()
{
    const auto screens = OpenScreens();
    return std::any_of(screens.begin(), screens.end(), std::mem_fn(&Screen::HasTakenMenus));
}

void DisableMainMenus()
{
    if (auto* window = ScreenHost::Instance())
        window->TakeWorkMenus();
}

void EnableMainMenus()
{
    auto* window = ScreenHost::Instance();
    if (window && !Session().gblnMenusLocked)
        window->GiveWorkMenusBack();
}

void ClearControls(QWidget* form)
{
    const auto controls = form->findChildren<QWidget*>();
    for (QWidget* control : controls) {
        if (auto* text = qobject_cast<QLineEdit*>(control)) {
            // The line edits inside spin boxes, date pickers and combos belong to those.
            if (!qobject_cast<QAbstractSpinBox*>(text->parent()) && !qobject_cast<QComboBox*>(text->parent()))
                text->clear();
        } else if (auto* combo = qobject_cast<QComboBox*>(control)) {
            if (combo->isVisibleTo(form))
                combo->setCurrentIndex(combo->findText(QStringLiteral(" ")));
        } else if (auto* grid = qobject_cast<FlexGrid*>(control)) {
            grid->SetRows(1);
            grid->SetRows(2);
        } else if (auto* date = qobject_cast<DatePicker*>(control)) {
            date->setDate(QDate::currentDate());
        } else if (auto* box = qobject_cast<QCheckBox*>(control)) {
            box->setChecked(false);
        } else if (auto* list = qobject_cast<QListWidget*>(control)) {
            list->clear();
        }
    }
}

void ClearMSGrid(FlexGrid* grid)
{
    grid->SetRows(1);
    grid->SetRows(2);
    if (grid->objectName() == QLatin1String("msgSummary"))
        return;
    grid->SetCols(1);
    // An emptied list is a box with a head, and its one column is the box.
    grid->SetColHidden(0, false);
}

void SelectAllText(QLineEdit* control)
{
    control->setSelection(0, static_cast<int>(control->text().size()));
}

bool Refuse(const QString& text, QWidget* field)
{
    Prompts::Information(text);
    field->setFocus();
    return false;
}

bool RequireText(const QString& text, QLineEdit* field)
{
    return !field->text().trimmed().isEmpty() || Refuse(text, field);
}

bool CheckMarkLimit(QLineEdit* control, int decimals, double limit, const QString& label)
{
    QString text = control->text();
    const auto point = text.indexOf(QLatin1Char('.'));
    if (point >= 0 && text.size() - point - 1 > decimals) {
        text.chop(1);
        control->setText(text);
        control->setCursorPosition(static_cast<int>(text.size()));
        ShowFieldHint(control, QStringLiteral("Not More Than %1 Decimals Can Be Entered Here").arg(decimals));
    }
    if (Val(text) <= limit)
        return false;
    Prompts::Information(label + QStringLiteral(" Should Not Exceed ") + PlainNumber(limit));
    SelectAllText(control);
    control->setFocus();
    return true;
}

} // namespace tally
