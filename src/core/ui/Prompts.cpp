#include "core/ui/Prompts.h"

#include "core/ui/look/Look.h"
#include "core/ui/OpenBox.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTreeView>

#include <utility>
#include <vector>

namespace tally::Prompts {

namespace {

/// What takes the place of the real boxes and dialogs.
struct StandIn
{
    Answer answer;
    FileAnswer fileAnswer;
};

StandIn& Substitute()
{
    static StandIn standIn;
    return standIn;
}

int open = 0;

std::vector<std::function<void()>>& Waiting()
{
    static std::vector<std::function<void()>> waiting;
    return waiting;
}

/// The text with places to break, which nobody sees, in words as long as paths are.
QString Breakable(QString text)
{
    static const QRegularExpression Separator(QStringLiteral("(?<=\\S{20})([/\\\\])"));
    return text.replace(Separator, QStringLiteral("\\1\u200b"));
}

/// Makes the box wide enough for its title beside the window manager's icon and buttons.
void MakeRoomForTitle(QMessageBox& box)
{
    constexpr int IconAndButtons = 20 * LookUnit;
    QFont bold = QApplication::font();
    bold.setBold(true);
    const int wanted = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + IconAndButtons;
    auto* rows = qobject_cast<QGridLayout*>(box.layout());
    const QMargins margins = rows->contentsMargins();
    rows->addItem(new QSpacerItem(wanted - margins.left() - margins.right(), 0), rows->rowCount(), 0, 1,
                  rows->columnCount());
}

struct Look
{
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton escape;
};

Look LookOf(Kind kind)
{
    constexpr auto YesNo = QMessageBox::Yes | QMessageBox::No;
    switch (kind) {
    case Kind::Question: return {QMessageBox::Question, YesNo, QMessageBox::No};
    case Kind::PlainQuestion: return {QMessageBox::NoIcon, YesNo, QMessageBox::No};
    case Kind::QuestionOrCancel:
        return {QMessageBox::Question, YesNo | QMessageBox::Cancel, QMessageBox::Cancel};
    case Kind::Confirmation:
        return {QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel};
    case Kind::Critical: return {QMessageBox::Critical, QMessageBox::Ok, QMessageBox::Ok};
    case Kind::Information: break;
    }
    return {QMessageBox::Information, QMessageBox::Ok, QMessageBox::Ok};
}

Reply Show(Kind kind, const QString& text, const QString& caption = ApplicationTitle)
{
    const OpenBox box;
    if (const Answer& answer = Substitute().answer) {
        const std::optional<bool> yes = answer(kind, text);
        return !yes ? Reply::Cancel : *yes ? Reply::Yes : Reply::No;
    }

    const Look look = LookOf(kind);
    QMessageBox message(look.icon, caption, Breakable(text), look.buttons, QApplication::activeWindow());
    // Names and file paths stand in these texts; none of them is mark-up.
    message.setTextFormat(Qt::PlainText);
    message.setEscapeButton(look.escape);
    MakeRoomForTitle(message);
    switch (message.exec()) {
    case QMessageBox::Yes:
    case QMessageBox::Ok: return Reply::Yes;
    case QMessageBox::No: return Reply::No;
    default: return Reply::Cancel;
    }
}

/// The first suffix of a filter such as "Database Files (*.mdb)", without its dot.
QString SuffixOf(const QString& filter)
{
    static const QRegularExpression Pattern(QStringLiteral("\\*\\.(\\w+)"));
    return Pattern.match(filter).captured(1);
}

/// Shows the list's texts in full, and without the kinds of files, of which the filter tells. A dialog of the
/// desktop's own has no such list.
void TidyList(const QFileDialog& dialog)
{
    constexpr int KindColumn = 2;
    if (auto* list = dialog.findChild<QTreeView*>()) {
        list->hideColumn(KindColumn);
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    }
}

QString Show(const FileDialog& wanted)
{
    const OpenBox box;
    if (Substitute().answer)
        return Substitute().fileAnswer ? Substitute().fileAnswer(wanted) : QString();

    const bool startIsThere = !wanted.folder.isEmpty() && QDir(wanted.folder).exists();
    QFileDialog dialog(QApplication::activeWindow(), wanted.title,
                       startIsThere ? wanted.folder
                                    : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                       wanted.filter);
    switch (wanted.kind) {
    case FileDialog::Kind::Open: dialog.setFileMode(QFileDialog::ExistingFile); break;
    case FileDialog::Kind::SaveAs:
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
        dialog.setDefaultSuffix(SuffixOf(wanted.filter));
        if (!startIsThere && !wanted.folder.contains(u'/'))
            dialog.selectFile(wanted.folder);
        break;
    case FileDialog::Kind::Folder:
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
        break;
    }
    TidyList(dialog);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace

OpenBox::OpenBox()
{
    ++open;
}

OpenBox::~OpenBox()
{
    if (--open > 0)
        return;
    for (const auto& work : std::exchange(Waiting(), {}))
        work();
}

void Information(const QString& text)
{
    Show(Kind::Information, text);
}

void Critical(const QString& text)
{
    Show(Kind::Critical, text);
}

bool Ask(const QString& text, const QString& caption)
{
    return Show(Kind::Question, text, caption) == Reply::Yes;
}

bool AskPlainly(const QString& text)
{
    return Show(Kind::PlainQuestion, text) == Reply::Yes;
}

Reply AskOrCancel(const QString& text)
{
    return Show(Kind::QuestionOrCancel, text);
}

bool Confirm(const QString& text)
{
    return Show(Kind::Confirmation, text) == Reply::Yes;
}

QString ChooseFile(const QString& title, const QString& folder, const QString& filter)
{
    return Show({FileDialog::Kind::Open, title, folder, filter});
}

QString ChooseFileToSave(const QString& title, const QString& start, const QString& filter)
{
    return Show({FileDialog::Kind::SaveAs, title, start, filter});
}

QString ChooseFolder(const QString& title, const QString& folder)
{
    return Show({FileDialog::Kind::Folder, title, folder, {}});
}

bool AreOpen()
{
    return open > 0;
}

void WhenAnswered(std::function<void()> work)
{
    if (AreOpen())
        Waiting().push_back(std::move(work));
    else
        work();
}

void AnswerWith(Answer answer, FileAnswer fileAnswer)
{
    Substitute() = {std::move(answer), std::move(fileAnswer)};
}

} // namespace tally::Prompts
