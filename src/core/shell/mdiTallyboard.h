#pragma once

#include "core/DayCopy.h"
#include "core/ui/ScreenHost.h"

#include <QHash>
#include <QMainWindow>

#include <array>
#include <memory>

class QAction;
class QLabel;
class QTimer;

namespace Ui {
class mdiTallyboard;
}

namespace tally {

/// The one top-level window: menus, status bar, the clock that shows this client as present, and the area in
/// which every screen opens. It lives from the first login to Close.
class mdiTallyboard : public QMainWindow, public ScreenHost
{
    Q_OBJECT

public:
    /// The window; null before the login and when it could not start.
    static mdiTallyboard* Instance();
    /// The window, made and loaded on the first call, not yet shown. Null when the store refused: the user
    /// has been told and the process ends.
    static mdiTallyboard* Load();
    ~mdiTallyboard() override;

    QMdiArea* Area() const override;
    /// The menu entry of that name, for a group the entry that opens it; null for none.
    QAction* MenuItem(const QString& name) const;
    /// Switches a menu entry; one of the work menus while they are taken, when they are given back. An entry
    /// whose screen or command this program does not have stays off; an unknown name does nothing.
    void EnableMenuItem(const QString& name, bool enabled);
    /// What a new installation may reach before its first login exists.
    void EnableFirstRunMenus();
    void TakeWorkMenus() override;
    void GiveWorkMenusBack() override;
    void ShowPicture(int resourceId) override;
    /// Writes the text of status bar panel 1, 2 or 3 until the next activation.
    void SetPanel(int number, const QString& text);
    /// Writes the year and the working date of the session into panels 1 and 3, as each activation does.
    void ShowYearAndDate();

    /// Asks whether to close the program, takes this client out of the office and ends the process.
    void mnuClose_Click();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    mdiTallyboard();
    bool Form_Load();
    void Form_Activate();
    void tmrTimer_Timer();
    /// False when the clerk was told that another client's save is in the way, and may try again.
    bool RemovePresence();
    /// Closes the main database, behind a copy of the day's work where there was any.
    void CloseMain(bool copyIsDue);
    void ShowBoxesOfFront();
    /// Opens what a new system lacks: the school, then its academic year.
    void ForceFirstRun();
    void Force(const QString& formName);
    void SizePanels();

    std::unique_ptr<Ui::mdiTallyboard> ui_;
    QHash<QString, QAction*> menuItems_;
    QHash<QAction*, bool> takenMenus_; ///< what each work menu goes back to; empty while none is taken
    std::array<QLabel*, 3> panels_{};
    QTimer* tmrTimer_;
    int shownPicture_ = 0;
    bool closeMetLock_ = false;
    DayCopy dayCopy_;
};

} // namespace tally
