#pragma once

#include <QString>

class QMdiArea;

namespace tally {

/// What screens need of the window in which they stand. The program has one such window, from the first login
/// to Close.
class ScreenHost
{
public:
    /// The window; null before the login and when it could not start. Screens open inside it and never
    /// outlive it.
    static ScreenHost* Instance();
    ScreenHost(const ScreenHost&) = delete;
    ScreenHost& operator=(const ScreenHost&) = delete;

    virtual QMdiArea* Area() const = 0;
    /// The picture behind the screens, by resource number. One that can't be read leaves the plain
    /// background.
    virtual void ShowPicture(int resourceId) = 0;
    /// Switches the four work menus off until they are given back, each as it would be by then. Taking or
    /// giving twice does nothing more.
    virtual void TakeWorkMenus() = 0;
    virtual void GiveWorkMenusBack() = 0;

protected:
    ScreenHost();
    virtual ~ScreenHost();
};

} // namespace tally
