#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace tally {

/// The title of the program, on its windows and message boxes.
inline const QString ApplicationTitle = QStringLiteral("KITE - Tally Board");

/// The only place that shows message boxes and file dialogs. Each call returns when the user has answered.
namespace Prompts {

enum class Kind
{
    Information,
    Question,
    PlainQuestion,
    QuestionOrCancel,
    Confirmation,
    Critical,
};

enum class Reply
{
    Yes,
    No,
    Cancel,
};

void Information(const QString& text);
void Critical(const QString& text);
/// True on Yes. Esc and the close box mean No.
bool Ask(const QString& text, const QString& caption = ApplicationTitle);
/// The same in a box without an icon.
bool AskPlainly(const QString& text);
/// A question with a third way, to do nothing at all. Esc and the close box mean Cancel.
Reply AskOrCancel(const QString& text);
/// A question with OK and Cancel: true on OK. Esc and the close box mean Cancel.
bool Confirm(const QString& text);

/// What a file dialog asks for.
struct FileDialog
{
    enum class Kind
    {
        Open,
        SaveAs,
        Folder,
    };

    Kind kind;
    QString title;
    QString folder; ///< where it starts; the user's documents where it is empty or gone. For SaveAs the name
                    ///< alone of a file, which is offered there
    QString filter; ///< such as "Database Files (*.mdb)"; empty for all files
};

/// The file that the user chose, which exists; empty when he chose none.
QString ChooseFile(const QString& title, const QString& folder, const QString& filter);
/// The path under which something is to be saved; empty when the user chose none. A name without a suffix
/// gets the first one of the filter. A file that exists may be chosen: whoever writes it asks first. `start`
/// is a folder, or the name of a file that is offered.
QString ChooseFileToSave(const QString& title, const QString& start, const QString& filter);
/// The folder that the user chose, which exists; empty when he chose none.
QString ChooseFolder(const QString& title, const QString& folder);

/// True while a box or a dialog waits for its answer. What lies behind it must not start anything meanwhile.
bool AreOpen();
/// Runs `work` as soon as no box waits any more, before the answer to the last one reaches whoever asked; at
/// once where none does.
void WhenAnswered(std::function<void()> work);

/// Takes the place of the boxes: it gets each box's kind and text, and what it returns stands for Yes or OK,
/// for No, or, being nothing, for Cancel.
using Answer = std::function<std::optional<bool>(Kind kind, const QString& text)>;
/// Takes the place of the file dialogs: gives the path that the user chooses, empty for none.
using FileAnswer = std::function<QString(const FileDialog& dialog)>;
/// Lets `answer` take the place of the boxes and `fileAnswer` that of the file dialogs; without it those are
/// cancelled. An empty `answer` brings the real ones back. For tests and the guided tour.
void AnswerWith(Answer answer, FileAnswer fileAnswer = {});

} // namespace Prompts
} // namespace tally
