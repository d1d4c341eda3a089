#pragma once

#include "endtoend/Desktop.h"

#include <QTemporaryDir>

#include <memory>

namespace tally::test {

/// The shared folder of a school's office: the program as it was built, and its databases.
class Office
{
public:
    enum class Databases
    {
        SampleSchool, ///< a small school at work
        Delivered,    ///< empty, as on the first day
    };

    /// Throws std::runtime_error when the folder cannot be furnished.
    explicit Office(Databases databases = Databases::SampleSchool);

    /// Puts the program under this name into the folder, if it is not there yet, and gives its path.
    QString Program(const QString& name) const;
    QString Folder() const { return folder_.filePath(QStringLiteral("school")); }
    /// Where the programs of this office keep what is theirs on the machine.
    QString Home() const { return folder_.filePath(QStringLiteral("home")); }

    /// The presence rows in the main database, read from outside as one more client would.
    int PresenceRows() const;
    /// How often the main window was loaded.
    int Starts() const;
    /// The number that a query on the main database gives; 0 for none.
    int Number(const char* query) const;

private:
    QTemporaryDir folder_;
};

/// A clerk at one client: the program running, and hands for its keyboard. The program is killed at the
/// latest when the client goes out of scope. What does not come about throws std::runtime_error.
class Client
{
public:
    Client(const Desktop& desktop, const Office& office, const QString& programName);
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client();

    /// Waits for a window other than those seen before by Appeared(), and remembers it.
    Desktop::Window Appeared();
    /// Waits until the window has gone, so that the keys that follow are not swallowed with it.
    void WaitUntilGone(const Desktop::Window& window) const;
    /// Enter on the splash, id and password on the login; gives the main window.
    Desktop::Window LogIn(const QString& loginId, const QString& password);
    /// Chooses Close by its letter and answers the question; "y" for Yes.
    void ChooseClose(const Desktop::Window& mainWindow, const QString& answer);
    /// Waits until this is the only window that can be seen.
    bool IsAlone(const Desktop::Window& window) const;

    bool IsRunning() const { return program_.state() == QProcess::Running; }
    /// Waits for the end of the program; its exit code, or -1 when it crashed or does not end.
    int ExitCode();
    /// Ends it at once, as a power cut would.
    void Kill();

    const Desktop& Display() const { return desktop_; }

private:
    const Desktop& desktop_;
    QProcess program_;
    QStringList seen_;
};

} // namespace tally::test
