#include "core/ui/look/Look.h"

#include "core/ui/look/PlainDelegate.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleOption>
#include <QTableView>
#include <QToolTip>

#include <array>

namespace tally {

namespace {

constexpr QRgb Accent = qRgb(0x1f, 0x5f, 0x8b);
constexpr QRgb AccentOnDark = qRgb(0x5f, 0xa8, 0xd3);

/// Texts have 4.5:1 against every ground they stand on, edges and the accent 3:1: the least that tired eyes
/// and old displays can do with.
struct Shades
{
    QRgb window;
    QRgb base;
    QRgb alternate;
    QRgb button;
    QRgb text;
    QRgb faint; ///< the text of what is switched off, which is read all the same
    QRgb line;  ///< the edges of fields, boxes and frames
    QRgb accent;
    QRgb onAccent;
    QRgb quiet; ///< behind what is chosen where the keys are not, and the titles of screens that lie behind
};

constexpr Shades Light{
    qRgb(0xf3, 0xf5, 0xf7), qRgb(0xff, 0xff, 0xff), qRgb(0xf4, 0xf8, 0xfb), qRgb(0xf7, 0xf9, 0xfa),
    qRgb(0x1d, 0x27, 0x30), qRgb(0x56, 0x61, 0x6a), qRgb(0x76, 0x81, 0x8a), Accent,
    qRgb(0xff, 0xff, 0xff), qRgb(0xde, 0xe4, 0xe9)};
constexpr Shades Dark{qRgb(0x26, 0x2b, 0x30), qRgb(0x1d, 0x21, 0x25), qRgb(0x23, 0x28, 0x2d),
                      qRgb(0x2a, 0x30, 0x36), qRgb(0xe8, 0xec, 0xef), qRgb(0xa9, 0xb3, 0xbb),
                      qRgb(0x8c, 0x97, 0xa0), AccentOnDark,           qRgb(0x10, 0x18, 0x1e),
                      qRgb(0x38, 0x40, 0x48)};

QPalette PaletteOf(const Shades& shades)
{
    QPalette palette(QColor(shades.button), QColor(shades.window));
    palette.setColor(QPalette::Base, QColor(shades.base));
    palette.setColor(QPalette::AlternateBase, QColor(shades.alternate));
    palette.setColor(QPalette::Highlight, QColor(shades.accent));
    palette.setColor(QPalette::HighlightedText, QColor(shades.onAccent));
    palette.setColor(QPalette::Link, QColor(shades.accent));
    palette.setColor(QPalette::LinkVisited, QColor(shades.accent));
    palette.setColor(QPalette::ToolTipBase, QColor(shades.base));
    palette.setColor(QPalette::Mid, QColor(shades.line));
    palette.setColor(QPalette::Midlight, QColor(shades.quiet));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(shades.text));
        palette.setColor(QPalette::Disabled, role, QColor(shades.faint));
    }
    // A closed field looks closed, whatever kind of field it is.
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(shades.window));
    palette.setColor(QPalette::PlaceholderText, QColor(shades.faint));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(shades.quiet));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor(shades.text));
    return palette;
}

/// The focus is always visible, group titles and panels that lie over others stand out, the head of a grid is
/// calm, and passwords show as "*".
const QString StyleSheet = QStringLiteral(
    "QGroupBox { font-weight: 600; border: 1px solid palette(mid); border-radius: 6px;"
    " margin-top: 1.1ex; padding-top: 0.8ex; }"
    "QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0 4px; color: palette(highlight); }"
    "QPushButton { padding: 4px 10px; min-height: 1.4em; }"
    "QPushButton:focus { background: palette(button); border: 2px solid palette(highlight);"
    " border-radius: 4px; padding: 3px 9px; }"
    "QPushButton[beside=\"true\"] { padding: 2px 6px; min-height: 1.2em; }"
    "QHeaderView::section { background: palette(window); border: none;"
    " border-bottom: 1px solid palette(mid); border-right: 1px solid palette(midlight);"
    " padding: 4px 6px; font-weight: 600; }"
    "QFrame[floating=\"true\"] { background: palette(window); border: 2px solid palette(highlight);"
    " border-radius: 6px; }"
    "QCalendarWidget { border: 1px solid palette(mid); }"
    "QCalendarWidget #qt_calendar_navigationbar { background: palette(window); }"
    "QCalendarWidget QToolButton { color: palette(button-text); }"
    "QTableView { gridline-color: palette(midlight); }"
    "QLineEdit { lineedit-password-character: 42; }"
    "QStatusBar::item { border: none; }");

/// Light or dark as somebody has said; empty leaves it to the system's colours.
std::optional<bool> chosenDark;

/// The sign of a button in a title bar, around `middle`: a cross closes, a square fills, a square before
/// another one gives the size before, a line puts away.
void DrawTitleSign(QPainter* painter, QStyle::SubControl button, const QPointF& middle)
{
    constexpr double Arm = 4;
    const QRectF square(middle - QPointF(Arm, Arm), QSizeF(2 * Arm, 2 * Arm));
    switch (button) {
    case QStyle::SC_TitleBarCloseButton:
        painter->drawLine(square.topLeft(), square.bottomRight());
        painter->drawLine(square.bottomLeft(), square.topRight());
        break;
    case QStyle::SC_TitleBarMaxButton: painter->drawRect(square); break;
    case QStyle::SC_TitleBarNormalButton:
        painter->drawRect(square.adjusted(0, 2, -2, 0));
        painter->drawPolyline(QPolygonF{square.topLeft() + QPointF(2, 0), square.topRight(),
                                        square.bottomRight() - QPointF(0, 2)});
        break;
    default: painter->drawLine(square.bottomLeft(), square.bottomRight());
    }
}

/// Whether the title bar shows the button: what can be done to the window as it is.
bool ShowsTitleButton(const QStyleOptionTitleBar* bar, QStyle::SubControl button)
{
    const auto can = [bar](Qt::WindowType hint) { return bar->titleBarFlags.testFlag(hint); };
    const bool minimized = (bar->titleBarState & Qt::WindowMinimized) != 0;
    const bool maximized = (bar->titleBarState & Qt::WindowMaximized) != 0;
    switch (button) {
    case QStyle::SC_TitleBarMaxButton: return can(Qt::WindowMaximizeButtonHint) && !maximized;
    case QStyle::SC_TitleBarMinButton: return can(Qt::WindowMinimizeButtonHint) && !minimized;
    case QStyle::SC_TitleBarNormalButton:
        return (can(Qt::WindowMinimizeButtonHint) && minimized) ||
               (can(Qt::WindowMaximizeButtonHint) && maximized);
    default: return true;
    }
}

/// Fusion in our colours, with what a clerk at a list of marks needs changed. Fusion takes its edges from the
/// ground they stand on, where on many displays nobody sees them; here they have a colour of their own.
class LookStyle : public QProxyStyle
{
public:
    LookStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    /// Gets the system's colours at the start and whenever they change, and puts ours in their place.
    void polish(QPalette& palette) override
    {
        palette = PaletteOf(chosenDark.value_or(IsDark(palette)) ? Dark : Light);
    }

    /// The wheel is for looking through lists. It takes the focus nowhere.
    void polish(QWidget* widget) override
    {
        QProxyStyle::polish(widget);
        if (widget->focusPolicy() == Qt::WheelFocus)
            widget->setFocusPolicy(Qt::StrongFocus);
    }
    using QProxyStyle::polish;

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override
    {
        switch (hint) {
        case SH_ComboBox_AllowWheelScrolling:
        case SH_DialogButtonBox_ButtonsHaveIcons: return 0;
        default: return QProxyStyle::styleHint(hint, option, widget, result);
        }
    }

    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override
    {
        switch (icon) {
        case SP_MessageBoxInformation: return LookIcon(QStringLiteral("information"));
        case SP_MessageBoxQuestion: return LookIcon(QStringLiteral("question"));
        case SP_MessageBoxCritical: return LookIcon(QStringLiteral("critical"));
        case SP_ArrowLeft: return LookIcon(QStringLiteral("previous"));
        case SP_ArrowRight: return LookIcon(QStringLiteral("next"));
        default: return QProxyStyle::standardIcon(icon, option, widget);
        }
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        switch (element) {
        case PE_FrameLineEdit: return DrawEdge(option, painter, FieldCorner);
        case PE_Frame:
        case PE_FrameMenu: return DrawEdge(option, painter, 0);
        case PE_FrameWindow: return DrawEdge(option, painter, 0, QPalette::Mid);
        case PE_FrameFocusRect:
            // Buttons and lists show the focus at their own edges.
            if (!qobject_cast<const QPushButton*>(widget) && !qobject_cast<const QComboBox*>(widget))
                DrawEdge(option, painter, FieldCorner, QPalette::Highlight);
            return;
        case PE_PanelMenu:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return DrawEdge(option, painter, 0, QPalette::Mid);
        case PE_PanelButtonCommand:
        case PE_IndicatorCheckBox:
        case PE_IndicatorItemViewItemCheck:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return DrawEdge(option, painter, element == PE_PanelButtonCommand ? FieldCorner : 0,
                            QPalette::Mid);
        case PE_IndicatorRadioButton:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return DrawEdge(option, painter, option->rect.width() / 2.0, QPalette::Mid);
        default: QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override
    {
        if (control == CC_TitleBar) {
            if (const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option))
                DrawTitleBar(bar, painter, widget);
            return;
        }
        if (control == CC_MdiControls)
            return DrawMenuBarButtons(option, painter, widget);
        if (const auto* list = qstyleoption_cast<const QStyleOptionComboBox*>(option))
            return DrawList(*list, painter, widget);
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        if (control == CC_ScrollBar) {
            QStyleOption handle;
            handle.palette = option->palette;
            handle.rect = proxy()->subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget);
            DrawEdge(&handle, painter, FieldCorner, QPalette::Mid);
        }
        const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
        if (spin && spin->frame)
            DrawEdge(option, painter, FieldCorner);
    }

private:
    static constexpr double FieldCorner = 2;

    /// The edge of a control; stronger and in the accent colour while the control has the focus.
    static void DrawEdge(const QStyleOption* option, QPainter* painter, double corner)
    {
        constexpr auto InUse = State_Enabled | State_HasFocus;
        const bool focused = (option->state & InUse) == InUse;
        DrawEdge(option, painter, corner, focused ? QPalette::Highlight : QPalette::Mid, focused ? 2 : 1);
    }
    static void DrawEdge(const QStyleOption* option, QPainter* painter, double corner,
                         QPalette::ColorRole role, double width = 1)
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        // Edges are the same for a control that is switched off: it is a closed field, not an absent one.
        painter->setPen(QPen(option->palette.color(QPalette::Active, role), width));
        painter->setBrush(Qt::NoBrush);
        const double inside = width / 2;
        painter->drawRoundedRect(QRectF(option->rect).adjusted(inside, inside, -inside, -inside), corner,
                                 corner);
        painter->restore();
    }

    /// A list, or a date that opens a calendar. Fusion's own arrow is half transparent, which leaves little
    /// of the faint colour of a list that is switched off.
    void DrawList(QStyleOptionComboBox list, QPainter* painter, const QWidget* widget) const
    {
        const bool arrow = list.subControls.testFlag(SC_ComboBoxArrow);
        const QPointF middle =
            proxy()->subControlRect(CC_ComboBox, &list, SC_ComboBoxArrow, widget).toRectF().center();
        list.subControls.setFlag(SC_ComboBoxArrow, false);
        QProxyStyle::drawComplexControl(CC_ComboBox, &list, painter, widget);
        if (arrow) {
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(QPen(list.palette.color(QPalette::ButtonText), 1.6, Qt::SolidLine, Qt::RoundCap));
            painter->drawPolyline(
                QPolygonF{middle + QPointF(-4, -2), middle + QPointF(0, 2), middle + QPointF(4, -2)});
            painter->restore();
        }
        if (list.frame)
            DrawEdge(&list, painter, FieldCorner);
    }

    /// A button of a child window with its sign, lit under the mouse.
    static void DrawWindowButton(const QStyleOption* option, QPainter* painter, const QRect& box, bool active,
                                 SubControl sign, const QColor& color)
    {
        painter->setRenderHint(QPainter::Antialiasing);
        if (active) {
            QColor lit = color;
            lit.setAlpha(option->state.testFlag(State_Sunken) ? 90 : 45);
            painter->setPen(Qt::NoPen);
            painter->setBrush(lit);
            painter->drawRoundedRect(box, FieldCorner, FieldCorner);
        }
        painter->setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap));
        painter->setBrush(Qt::NoBrush);
        DrawTitleSign(painter, sign, QRectF(box).center());
    }

    /// The buttons of a screen that fills the window, in the menu bar.
    void DrawMenuBarButtons(const QStyleOptionComplex* option, QPainter* painter, const QWidget* widget) const
    {
        painter->save();
        for (const auto& [button, sign] : {std::pair{SC_MdiMinButton, SC_TitleBarMinButton},
                                           std::pair{SC_MdiNormalButton, SC_TitleBarNormalButton},
                                           std::pair{SC_MdiCloseButton, SC_TitleBarCloseButton}})
            if (option->subControls.testFlag(button))
                DrawWindowButton(option, painter,
                                 proxy()->subControlRect(CC_MdiControls, option, button, widget),
                                 option->activeSubControls.testFlag(button), sign,
                                 QApplication::palette().color(QPalette::WindowText));
        painter->restore();
    }

    /// Title, icon and buttons of a screen in the main window; Fusion writes white on whatever the accent
    /// is.
    void DrawTitleBar(const QStyleOptionTitleBar* bar, QPainter* painter, const QWidget* widget) const
    {
        const QPalette palette = QApplication::palette();
        const bool active = (bar->titleBarState & State_Active) != 0;
        const QColor text = palette.color(active ? QPalette::HighlightedText : QPalette::WindowText);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->fillRect(bar->rect, palette.color(active ? QPalette::Highlight : QPalette::Midlight));
        const auto part = [&](SubControl control) {
            return proxy()->subControlRect(CC_TitleBar, bar, control, widget);
        };
        if ((bar->subControls & SC_TitleBarSysMenu) != 0)
            bar->icon.paint(painter, part(SC_TitleBarSysMenu));
        for (const SubControl button :
             {SC_TitleBarMinButton, SC_TitleBarNormalButton, SC_TitleBarMaxButton, SC_TitleBarCloseButton}) {
            if (!ShowsTitleButton(bar, button))
                continue;
            DrawWindowButton(bar, painter, part(button), bar->activeSubControls.testFlag(button), button,
                             text);
        }
        const QRect room = part(SC_TitleBarLabel);
        painter->setPen(text);
        painter->drawText(room, Qt::AlignCenter | Qt::TextSingleLine,
                          painter->fontMetrics().elidedText(bar->text, Qt::ElideRight, room.width()));
        painter->restore();
    }
};

/// Lets what does not follow the palette by itself follow it when the system goes from light to dark.
class PaletteFollower : public QObject
{
public:
    using QObject::QObject;

    static void Follow(QApplication& application)
    {
        QToolTip::setPalette(QApplication::palette());
        application.setStyleSheet(StyleSheet);
    }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (receiver == qApp && event->type() == QEvent::ApplicationPaletteChange)
            Follow(*qApp);
        return QObject::eventFilter(receiver, event);
    }
};

struct ButtonIcon
{
    const char* button;
    const char* icon;
};

constexpr std::array ButtonIcons{
    ButtonIcon{"cmdNew", "new"},          ButtonIcon{"cmdEdit", "edit"},
    ButtonIcon{"cmdDelete", "delete"},    ButtonIcon{"cmdSave", "save"},
    ButtonIcon{"cmdCancel", "cancel"},    ButtonIcon{"cmdSearch", "search"},
    ButtonIcon{"cmdExit", "exit"},        ButtonIcon{"cmdView", "view"},
    ButtonIcon{"cmdExport", "export"},    ButtonIcon{"cmdPrint", "print"},
    ButtonIcon{"cmdUpdate", "proceed"},   ButtonIcon{"cmdTotalDetails", "total"},
    ButtonIcon{"cmdPrintSetup", "print"}, ButtonIcon{"cmdClose", "close"},
    ButtonIcon{"cmdPrintClose", "close"}, ButtonIcon{"cmdChart", "chart"},
};

} // namespace

void ApplyLook(QApplication& application, std::optional<bool> dark)
{
    chosenDark = dark;
    QApplication::setStyle(new LookStyle);
    PaletteFollower::Follow(application);
    application.installEventFilter(new PaletteFollower(&application));
}

void UseDarkLook(std::optional<bool> dark)
{
    chosenDark = dark;
    // The system's palette again, which passes through the style on its way.
    QApplication::setPalette(QPalette());
}

bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

void DressButtons(QWidget* form)
{
    for (const ButtonIcon& entry : ButtonIcons)
        if (auto* button = form->findChild<QPushButton*>(QString::fromLatin1(entry.button)))
            button->setIcon(LookIcon(QString::fromLatin1(entry.icon)));
}

void DressGrid(QTableView* grid)
{
    grid->setItemDelegate(new PlainDelegate(grid));
    grid->setAlternatingRowColors(true);
    grid->setShowGrid(false);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setTabKeyNavigation(false);
    grid->setWordWrap(false);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    grid->verticalHeader()->setDefaultSectionSize(grid->fontMetrics().height() + LookUnit);
    grid->horizontalHeader()->setHighlightSections(false);
}

QString WrappedToolTip(const QString& text)
{
    return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped().replace(u'\n', QLatin1String("<br>")));
}

} // namespace tally
