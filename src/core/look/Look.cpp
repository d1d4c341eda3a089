#include "core/look/Look.h"

#include "core/look/PlainDelegate.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleOption>
#include <QTableView>

#include <array>

namespace tally {

namespace {

constexpr QRgb Accent = qRgb(0x1f, 0x5f, 0x8b);
constexpr QRgb AccentOnDark = qRgb(0x5f, 0xa8, 0xd3);

struct Shades
{
    QRgb window;
    QRgb base;
    QRgb alternate;
    QRgb button;
    QRgb text;
    QRgb faint;
    QRgb line;
    QRgb accent;
    QRgb onAccent;
    QRgb closed; ///< behind what is chosen in a control that is switched off
};

constexpr Shades Light{
    qRgb(0xf3, 0xf5, 0xf7), qRgb(0xff, 0xff, 0xff), qRgb(0xf4, 0xf8, 0xfb), qRgb(0xf7, 0xf9, 0xfa),
    qRgb(0x1d, 0x27, 0x30), qRgb(0x8a, 0x95, 0x9e), qRgb(0xb4, 0xbd, 0xc5), Accent,
    qRgb(0xff, 0xff, 0xff), qRgb(0xde, 0xe4, 0xe9)};
constexpr Shades Dark{qRgb(0x26, 0x2b, 0x30), qRgb(0x1d, 0x21, 0x25), qRgb(0x23, 0x28, 0x2d),
                      qRgb(0x33, 0x3a, 0x41), qRgb(0xe8, 0xec, 0xef), qRgb(0x84, 0x8f, 0x98),
                      qRgb(0x55, 0x60, 0x6a), AccentOnDark,           qRgb(0x10, 0x18, 0x1e),
                      qRgb(0x38, 0x40, 0x48)};

QPalette PaletteOf(const Shades& shades)
{
    QPalette palette(QColor(shades.button), QColor(shades.window));
    palette.setColor(QPalette::Base, QColor(shades.base));
    palette.setColor(QPalette::AlternateBase, QColor(shades.alternate));
    palette.setColor(QPalette::Highlight, QColor(shades.accent));
    palette.setColor(QPalette::HighlightedText, QColor(shades.onAccent));
    palette.setColor(QPalette::Link, QColor(shades.accent));
    palette.setColor(QPalette::ToolTipBase, QColor(shades.base));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(shades.text));
        palette.setColor(QPalette::Disabled, role, QColor(shades.faint));
    }
    // A closed field looks closed, whatever kind of field it is.
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(shades.window));
    palette.setColor(QPalette::PlaceholderText, QColor(shades.faint));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(shades.closed));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor(shades.text));
    return palette;
}

/// The focus is always visible, group titles and panels that lie over others stand out, the head of a grid is
/// calm, and passwords show as
/// "*".
QString StyleSheetOf(const Shades& shades)
{
    return QStringLiteral(
               "QGroupBox { font-weight: 600; border: 1px solid %2; border-radius: 6px;"
               " margin-top: 1.1ex; padding-top: 0.8ex; }"
               "QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0 4px; color: %1; }"
               "QPushButton { padding: 4px 10px; min-height: 1.4em; }"
               "QPushButton:focus { background: palette(button); border: 2px solid %1; border-radius: 4px;"
               " padding: 3px 9px; }"
               "QPushButton[beside=\"true\"] { padding: 2px 6px; min-height: 1.2em; }"
               "QHeaderView::section { background: palette(window); border: none;"
               " border-bottom: 1px solid %2; border-right: 1px solid palette(midlight);"
               " padding: 4px 6px; font-weight: 600; }"
               "QFrame[floating=\"true\"] { background: palette(window); border: 2px solid %1;"
               " border-radius: 6px; }"
               "QTableView { gridline-color: palette(midlight); }"
               "QLineEdit { lineedit-password-character: 42; }"
               "QStatusBar::item { border: none; }")
        .arg(QColor(shades.accent).name(), QColor(shades.line).name());
}

/// Fusion, with what a clerk at a list of marks needs changed.
class LookStyle : public QProxyStyle
{
public:
    explicit LookStyle(bool dark) : QProxyStyle(QStringLiteral("Fusion")), dark_(dark) {}

    /// The wheel is for looking through lists. Over a closed one it must not choose unseen, nor take the
    /// focus.
    void polish(QWidget* widget) override
    {
        QProxyStyle::polish(widget);
        if (qobject_cast<QComboBox*>(widget) && widget->focusPolicy() == Qt::WheelFocus)
            widget->setFocusPolicy(Qt::StrongFocus);
    }
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override
    {
        return hint == SH_ComboBox_AllowWheelScrolling ? 0
                                                       : QProxyStyle::styleHint(hint, option, widget, result);
    }

    /// Fusion draws the outline of tick boxes and options darker than the window, where on a dark one nobody
    /// sees it.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool box = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
        if (!dark_ || (!box && element != PE_IndicatorRadioButton))
            return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QColor(Dark.faint));
        painter->setBrush(Qt::NoBrush);
        const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        if (box)
            painter->drawRect(outline);
        else
            painter->drawEllipse(outline);
        painter->restore();
    }

private:
    bool dark_;
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
    ButtonIcon{"cmdPrintClose", "close"},
};

} // namespace

void ApplyLook(QApplication& application)
{
    // The platform's own palette, before ours replaces it, tells whether the user likes it dark.
    const QPalette system = QApplication::palette();
    ApplyLook(application,
              system.color(QPalette::Window).lightness() < system.color(QPalette::WindowText).lightness());
}

void ApplyLook(QApplication& application, bool dark)
{
    const Shades& shades = dark ? Dark : Light;
    QApplication::setStyle(new LookStyle(dark));
    QApplication::setPalette(PaletteOf(shades));
    application.setStyleSheet(StyleSheetOf(shades));
}

QIcon LookIcon(const QString& name)
{
    const QString file = QStringLiteral(":/tallyboard/icons/%1.svg").arg(name);
    return QFile::exists(file) ? QIcon(file) : QIcon();
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

} // namespace tally
