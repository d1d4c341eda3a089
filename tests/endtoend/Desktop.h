#pragma once

#include <QProcess>
#include <QString>
#include <QVector>

#include <functional>

namespace tally::test {

/// A display of our own, which nobody sees, with a keyboard. There is no window manager: who drives it says
/// which window gets the keys.
class Desktop
{
public:
    /// Throws std::runtime_error when the display cannot be had.
    Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    ~Desktop();

    const QString& Name() const { return name_; }

    struct Window
    {
        QString id;
        QString title;
        int width = 0;
        int height = 0;
    };
    /// The windows of a process that can be seen.
    QVector<Window> WindowsOf(qint64 processId) const;

    /// Gives the window the keys, presses these ("Return", "alt+o") one after the other.
    void Press(const Window& window, const QStringList& keys) const;
    void Type(const Window& window, const QString& text) const;

private:
    QString Run(const QStringList& arguments, bool mayFail = false) const;

    QProcess server_;
    QString name_;
};

/// Looks again and again until the condition holds; false when it still does not after a generous time.
bool Eventually(const std::function<bool()>& condition);

} // namespace tally::test
