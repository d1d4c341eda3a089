#pragma once

#include <QDir>
#include <QString>

#include <deque>
#include <exception>
#include <functional>

class QWidget;

namespace tally {

/// A step of the tour did not go as a clerk would expect.
class TourError : public std::exception
{
public:
    explicit TourError(const QString& reason) : reason_(reason.toUtf8()) {}
    const char* what() const noexcept override { return reason_.constData(); }

private:
    QByteArray reason_;
};

/// The hands and the camera of the guided tour: presses keys where the focus is, answers the message boxes
/// that were announced, and keeps a numbered picture and a line of text for each step. What does not come
/// about within a few seconds throws TourError.
class Tour
{
public:
    /// Takes the place of the message boxes until it is destroyed.
    explicit Tour(const QString& folder);
    Tour(const Tour&) = delete;
    Tour& operator=(const Tour&) = delete;
    ~Tour();

    /// Presses a key where the focus is, in an open menu before all else.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Type(const QString& text);
    /// Types and goes on to the next field.
    void Fill(const QString& text);
    /// Goes down that many entries in a list and on to the next field.
    void ChooseNext(int entries = 1);
    /// Presses Tab until the widget of that name has the focus.
    void TabTo(const QString& widgetName);
    /// Opens the menu of that letter and chooses the entry of that name in it or in one of its groups.
    void ChooseFromMenu(Qt::Key letter, const QString& entryName);

    /// Waits until the condition holds; `what` names it in the error.
    void Await(const QString& what, const std::function<bool()>& condition);
    /// Waits until the window of that name is active.
    QWidget* AwaitWindow(const QString& windowName);

    /// The next message box must have this text and gets this answer.
    void Expect(const QString& text, bool answer = true) { expected_.push_back({text, answer}); }

    /// Ends a step with a picture of the window and the menu open over it.
    void Picture(const QString& what, const QString& fileName, QWidget* window);
    /// Ends a step that left one more workbook in the folder.
    void AwaitWorkbook(const QString& what);
    /// Ends a step that left this file in the folder.
    void AwaitFile(const QString& what, const QString& fileName);
    /// Ends a step that shows in a file made meanwhile, or, without one, only in what was answered.
    void Done(const QString& what, const QString& fileName = {});

private:
    struct Box
    {
        QString text;
        bool answer;
    };

    /// Goes down in the menu that is open until it stands on the entry.
    void WalkTo(const QString& entryName);
    bool AnswerBox(const QString& text);
    void CheckBoxes() const;

    QDir folder_;
    QStringList workbooks_; ///< made so far
    int step_ = 1;
    std::deque<Box> expected_;
    QString surprise_; ///< the text of a box, or the title of a dialog, that nobody expected
};

} // namespace tally
