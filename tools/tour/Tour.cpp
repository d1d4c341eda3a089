#include "Tour.h"

#include "core/ui/Prompts.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QSaveFile>
#include <QTest>

#include <algorithm>
#include <cstdio>

namespace tally {

namespace {

constexpr int PatienceInMs = 10000;
constexpr int MostTabs = 60;

QWidget* KeyTarget()
{
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* focused = QApplication::focusWidget())
        return focused;
    if (QWidget* window = QApplication::activeWindow())
        return window;
    throw TourError(QStringLiteral("no window takes the keys"));
}

/// The menu that is open, the innermost one.
const QMenu* OpenMenu(const QString& entryName)
{
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        throw TourError(QStringLiteral("no menu opened on the way to ") + entryName);
    return menu;
}

/// An entry and its screen may differ in a capital.
bool HasName(const QAction* entry, const QString& name)
{
    return entry && entry->objectName().compare(name, Qt::CaseInsensitive) == 0;
}

bool Holds(const QMenu& menu, const QString& name)
{
    const auto entries = menu.actions();
    return std::any_of(entries.begin(), entries.end(),
                       [&name](const QAction* entry) { return HasName(entry, name); });
}

/// Lets what the last key set off come to its end.
void Settle()
{
    constexpr int RepaintInMs = 40;
    QTest::qWait(RepaintInMs);
}

} // namespace

Tour::Tour(const QString& folder) : folder_(folder), workbooks_(folder_.entryList({QStringLiteral("*.xlsx")}))
{
    Prompts::AnswerWith([this](Prompts::Kind, const QString& text) { return AnswerBox(text); },
                        [this](const Prompts::FileDialog& dialog) {
                            surprise_ = dialog.title;
                            return QString();
                        });
}

Tour::~Tour()
{
    Prompts::AnswerWith({});
}

void Tour::Press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(KeyTarget(), key, modifiers);
    Settle();
}

void Tour::Type(const QString& text)
{
    QTest::keyClicks(KeyTarget(), text);
    Settle();
}

void Tour::Fill(const QString& text)
{
    Type(text);
    Press(Qt::Key_Return);
}

void Tour::ChooseNext(int entries)
{
    for (int entry = 0; entry < entries; ++entry)
        Press(Qt::Key_Down);
    Press(Qt::Key_Return);
}

void Tour::TabTo(const QString& widgetName)
{
    for (int tabs = 0; tabs < MostTabs; ++tabs) {
        const QWidget* focused = QApplication::focusWidget();
        if (focused && focused->objectName() == widgetName)
            return;
        QTest::keyClick(KeyTarget(), Qt::Key_Tab);
    }
    throw TourError(QStringLiteral("Tab does not lead to ") + widgetName);
}

void Tour::ChooseFromMenu(Qt::Key letter, const QString& entryName)
{
    Press(letter, Qt::AltModifier);
    for (const QAction* group : OpenMenu(entryName)->actions())
        if (group->menu() && Holds(*group->menu(), entryName)) {
            WalkTo(group->objectName());
            Press(Qt::Key_Right);
        }
    WalkTo(entryName);
    Press(Qt::Key_Return);
}

void Tour::WalkTo(const QString& entryName)
{
    const QMenu* menu = OpenMenu(entryName);
    for (qsizetype i = 0; i < menu->actions().size(); ++i) {
        if (HasName(menu->activeAction(), entryName))
            return;
        Press(Qt::Key_Down);
    }
    throw TourError(QStringLiteral("the menu does not lead to ") + entryName);
}

void Tour::Await(const QString& what, const std::function<bool()>& condition)
{
    if (!QTest::qWaitFor(condition, PatienceInMs))
        throw TourError(QStringLiteral("waited in vain for ") + what);
    CheckBoxes();
}

QWidget* Tour::AwaitWindow(const QString& windowName)
{
    Await(QStringLiteral("the window ") + windowName, [&] {
        const QWidget* window = QApplication::activeWindow();
        return window && window->objectName() == windowName;
    });
    Settle();
    return QApplication::activeWindow();
}

void Tour::Picture(const QString& what, const QString& fileName, QWidget* window)
{
    Settle();
    QPixmap picture = window->grab();
    if (QWidget* popup = QApplication::activePopupWidget()) {
        QPainter painter(&picture);
        painter.drawPixmap(popup->mapToGlobal(QPoint()) - window->mapToGlobal(QPoint()), popup->grab());
    }
    const QString numbered = QStringLiteral("%1-%2").arg(step_, 2, 10, QLatin1Char('0')).arg(fileName);
    QSaveFile file(folder_.filePath(numbered));
    if (!file.open(QIODevice::WriteOnly) || !picture.save(&file, "PNG") || !file.flush() || !file.commit())
        throw TourError(QStringLiteral("the picture %1 cannot be written").arg(numbered));
    Done(what, numbered);
}

void Tour::AwaitWorkbook(const QString& what)
{
    QStringList made = folder_.entryList({QStringLiteral("*.xlsx")});
    for (const QString& known : std::as_const(workbooks_))
        made.removeAll(known);
    if (made.size() != 1)
        throw TourError(QStringLiteral("the export left no workbook"));
    workbooks_.append(made);
    Done(what, made.constFirst());
}

void Tour::AwaitFile(const QString& what, const QString& fileName)
{
    Await(QStringLiteral("the file ") + fileName, [&] { return folder_.exists(fileName); });
    Done(what, fileName);
}

void Tour::Done(const QString& what, const QString& fileName)
{
    CheckBoxes();
    if (!expected_.empty())
        throw TourError(QStringLiteral("no message box said: ") + expected_.front().text);
    QString line = QStringLiteral("%1 %2").arg(step_, 2, 10, QLatin1Char('0')).arg(what);
    if (!fileName.isEmpty())
        line += QStringLiteral(" -> ") + folder_.filePath(fileName);
    std::puts(line.toUtf8().constData());
    ++step_;
}

bool Tour::AnswerBox(const QString& text)
{
    if (expected_.empty() || expected_.front().text != text) {
        surprise_ = text;
        return false;
    }
    const bool answer = expected_.front().answer;
    expected_.pop_front();
    return answer;
}

void Tour::CheckBoxes() const
{
    if (!surprise_.isEmpty())
        throw TourError(QStringLiteral("an unexpected message box or file dialog said: ") + surprise_);
}

} // namespace tally
