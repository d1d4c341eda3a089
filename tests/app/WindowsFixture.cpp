#include "WindowsFixture.h"

#include "core/shell/frmStartLock.h"
#include "core/shell/frmStartLogin.h"
#include "core/shell/frmStartUnlock.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/ScreenRegistry.h"

#include <QApplication>

#include <memory>

namespace tally::test {

namespace {

template <typename Window>
Window* TopLevel()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (auto* wanted = qobject_cast<Window*>(window))
            return wanted;
    return nullptr;
}

} // namespace

void WindowsFixture::ForEachWindow(const std::function<void(const QString& name, const QWidget& shown)>& look)
{
    QStringList names = ScreenRegistry::Names();
    names.sort();
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const Screen* screen = OpenScreen(name);
        ASSERT_NE(screen, nullptr);
        look(name, *screen);
        delete screen->parentWidget();
        Settle();
    }
    LookAtLock(look);
    frmStartLogin::Open();
    const std::unique_ptr<frmStartLogin> login(TopLevel<frmStartLogin>());
    ASSERT_NE(login, nullptr);
    look(QStringLiteral("frmStartLogin"), *login);
}

void WindowsFixture::LookAtLock(const std::function<void(const QString& name, const QWidget& shown)>& look)
{
    frmStartLock::Lock(window);
    const std::unique_ptr<frmStartLock> lock(window->findChild<frmStartLock*>());
    ASSERT_NE(lock, nullptr);
    look(QStringLiteral("frmStartLock"), *lock);
    QTest::keyClick(lock.get(), Qt::Key_F10);
    const auto* unlock = lock->findChild<frmStartUnlock*>();
    ASSERT_NE(unlock, nullptr);
    look(QStringLiteral("frmStartUnlock"), *unlock);
}

} // namespace tally::test
