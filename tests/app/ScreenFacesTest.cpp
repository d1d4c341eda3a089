// What each window says when it opens: its title, its texts, the heads and choices of its lists, how much its
// fields take, and what is off or out of sight. Clerks find their way by these words, and paper forms and
// notes in the office quote them, so none changes by chance.

#include "core/ProgramFolder.h"
#include "core/ui/look/Look.h"
#include "WindowsFixture.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>

#include <algorithm>

namespace tally::test {
namespace {

constexpr int Unlimited = 32767;

QString TextOf(const QWidget* control)
{
    static const QRegularExpression version(QStringLiteral("version \\d+[.][\\d.]+"));
    if (const auto* label = qobject_cast<const QLabel*>(control))
        return label->text().replace(version, QStringLiteral("version ..."));
    if (const auto* button = qobject_cast<const QAbstractButton*>(control))
        return button->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(control))
        return group->title();
    return {};
}

/// What a control is made of is its own affair, and only texts need no name.
bool IsPartOfAnother(const QWidget* control)
{
    return control->objectName().startsWith(QLatin1String("qt_")) ||
           control->parentWidget()->inherits("QTabBar") ||
           (control->objectName().isEmpty() && TextOf(control).isEmpty());
}

QString Quoted(const QString& text)
{
    return QLatin1Char('"') + QString(text).replace(QLatin1Char('\n'), QLatin1String("\\n")) +
           QLatin1Char('"');
}

QString HeadsOf(const QTableView& list)
{
    QStringList heads;
    for (int column = 0; list.model() && column < list.model()->columnCount(); ++column)
        if (!list.isColumnHidden(column))
            heads.append(Quoted(list.model()->headerData(column, Qt::Horizontal).toString()));
    return heads.join(QLatin1Char(' '));
}

QString ChoicesOf(const QComboBox& box)
{
    QStringList choices;
    for (int choice = 0; choice < box.count(); ++choice)
        choices.append(Quoted(box.itemText(choice)));
    return choices.join(QLatin1Char(' '));
}

/// What a control is that stands in it ready: the text, what can be typed or chosen, what a list shows.
QStringList ContentOf(const QWidget* control)
{
    QStringList content;
    if (const auto* label = qobject_cast<const QLabel*>(control); label && label->buddy())
        content.append(QStringLiteral("for ") + label->buddy()->objectName());
    if (const auto* field = qobject_cast<const QLineEdit*>(control)) {
        if (!field->text().isEmpty())
            content.append(QStringLiteral("holds ") +
                           Quoted(QString(field->text()).replace(ProgramFolder(), QLatin1String("..."))));
        if (field->maxLength() != Unlimited)
            content.append(QStringLiteral("takes %1").arg(field->maxLength()));
        if (field->isReadOnly())
            content.append(QStringLiteral("read only"));
        if (field->echoMode() != QLineEdit::Normal)
            content.append(QStringLiteral("covered"));
    }
    if (const auto* box = qobject_cast<const QComboBox*>(control); box && box->count() > 0)
        content.append(QStringLiteral("offers ") + ChoicesOf(*box));
    if (const auto* list = qobject_cast<const QTableView*>(control))
        if (const QString heads = HeadsOf(*list); !heads.isEmpty())
            content.append(QStringLiteral("lists ") + heads);
    if (const auto* button = qobject_cast<const QPushButton*>(control); button && button->isDefault())
        content.append(QStringLiteral("at Enter"));
    return content;
}

/// The drawing on a button; empty for none.
QString PictureOf(const QAbstractButton* button)
{
    constexpr QSize Size(16, 16);
    const QImage picture = button->icon().pixmap(Size).toImage();
    if (picture.isNull())
        return {};
    const QStringList drawings =
        QDir(QStringLiteral(":/tallyboard/icons")).entryList({QStringLiteral("*.svg")});
    for (const QString& drawing : drawings)
        if (QString name = drawing.chopped(4); picture == LookIcon(name).pixmap(Size).toImage())
            return name;
    return QStringLiteral("of its own");
}

/// A line for a control that says something or is not as controls are: its name, its text, and what is
/// special.
QString FaceOf(const QWidget& window, const QWidget* control)
{
    QStringList face;
    if (const QString text = TextOf(control); !text.isEmpty())
        face.append(Quoted(text));
    face += ContentOf(control);
    if (const auto* button = qobject_cast<const QAbstractButton*>(control))
        if (const QString picture = PictureOf(button); !picture.isEmpty())
            face.append(QStringLiteral("picture ") + picture);
    if (!control->accessibleName().isEmpty())
        face.append(QStringLiteral("called ") + Quoted(control->accessibleName()));
    if (!control->styleSheet().isEmpty())
        face.append(QStringLiteral("painted ") + Quoted(control->styleSheet()));
    if (!control->toolTip().isEmpty())
        face.append(QStringLiteral("tip ") + Quoted(control->toolTip()));
    if (!control->isVisibleTo(&window))
        face.append(QStringLiteral("hidden"));
    else if (!control->isEnabledTo(control->parentWidget()))
        face.append(QStringLiteral("off"));
    const QString name = control->objectName().isEmpty() ? QStringLiteral("-") : control->objectName();
    return face.isEmpty()
               ? QString()
               : QStringLiteral("  ") + name + QStringLiteral(": ") + face.join(QLatin1String(", "));
}

QString FaceOf(const QWidget& window)
{
    QStringList lines{QStringLiteral("  ") + Quoted(window.windowTitle())};
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (control->window() != window.window() || IsPartOfAnother(control))
            continue;
        if (const QString line = FaceOf(window, control); !line.isEmpty())
            lines.append(line);
    }
    if (const QWidget* first = window.focusWidget())
        lines.append(QStringLiteral("  the keyboard goes to ") + first->objectName());
    return lines.join(QLatin1Char('\n'));
}

/// What is another on the later face.
QString Changed(const QString& before, const QString& after)
{
    const QStringList known = before.split(QLatin1Char('\n'));
    QStringList lines = after.split(QLatin1Char('\n'));
    for (const QString& line : known) {
        const QString control = line.section(QLatin1String(": "), 0, 0) + QLatin1String(": ");
        const auto isOfIt = [&](const QString& other) { return other.startsWith(control); };
        if (isOfIt(line) && std::none_of(lines.begin(), lines.end(), isOfIt))
            lines.append(control + QLatin1String("as others"));
    }
    lines.removeIf([&](const QString& line) { return known.contains(line); });
    return lines.join(QLatin1Char('\n'));
}

/// The faces as the table has them: the name of a screen at the beginning of a line, its face further in
/// below.
QMap<QString, QString> Known()
{
    QFile file(QStringLiteral(TALLY_SCREEN_FACES));
    EXPECT_TRUE(file.open(QFile::ReadOnly | QFile::Text));
    QMap<QString, QStringList> lines;
    QString screen;
    for (const QString& line :
         QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (!line.startsWith(QLatin1Char(' ')))
            lines.insert(screen = line, {});
        else
            lines[screen].append(line);
    }
    QMap<QString, QString> known;
    for (auto entry = lines.begin(); entry != lines.end(); ++entry)
        known.insert(entry.key(), entry.value().join(QLatin1Char('\n')));
    return known;
}

class ScreenFacesTest : public WindowsFixture
{
protected:
    void SetUp() override
    {
        WindowsFixture::SetUp();
        // New asks for settings and years on some screens.
        Given("INSERT INTO Options VALUES ('N', 'N', '2018-05-31', 'A', 'N', 'N')");
        Given("INSERT INTO AcademicYearSetup VALUES"
              " (1, 2024, 2025, '2024-06-01', '2025-05-31', 'Y', 'N', 1),"
              " (2, 2025, 2026, '2025-06-01', '2026-05-31', 'N', 'N', 1)");
        Session().gintUserCode = 1;
        Session().gintAcademicYearCode = 1;
        Session().gintYearFrom = 2024;
        Session().gintYearTo = 2025;
    }
};

TEST_F(ScreenFacesTest, EachWindowOpensWithTheWordsAndStatesThatTheOfficeKnows)
{
    QMap<QString, QString> known = Known();
    const auto expect = [&](const QString& name, const QString& face) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(face.toStdString(), known.take(name).toStdString());
    };
    ForEachWindow([&](const QString& name, const QWidget& shown) {
        const QString opened = FaceOf(shown);
        expect(name, opened);
        if (auto* cmdNew = shown.findChild<QAbstractButton*>(QStringLiteral("cmdNew"))) {
            Press(cmdNew);
            expect(name + QStringLiteral(" after New"), Changed(opened, FaceOf(shown)));
        }
    });
    EXPECT_EQ(QStringList(known.keys()), QStringList());
}

} // namespace
} // namespace tally::test
