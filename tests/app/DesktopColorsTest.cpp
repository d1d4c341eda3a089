#include "app/DesktopColors.h"

#include "core/ui/look/Look.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusServer>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>

namespace tally::test {
namespace {

/// The part of a desktop that tells its settings.
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(uint set) : scheme(set) {}

    uint scheme;

public Q_SLOTS:
    Q_SCRIPTABLE QDBusVariant Read(const QString& group, const QString& key)
    {
        const bool known =
            group == QLatin1String("org.freedesktop.appearance") && key == QLatin1String("color-scheme");
        return QDBusVariant(QVariant::fromValue(QDBusVariant(known ? QVariant(scheme) : QVariant(99U))));
    }
};

/// How often the program has become light while this lives.
class LightPalettes : public QObject
{
public:
    LightPalettes() { qApp->installEventFilter(this); }
    int Times() const { return times_; }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (receiver == qApp && event->type() == QEvent::ApplicationPaletteChange) {
            const bool dark = IsDark(QApplication::palette());
            times_ += wasDark_ && !dark ? 1 : 0;
            wasDark_ = dark;
        }
        return false;
    }

private:
    bool wasDark_ = IsDark(QApplication::palette());
    int times_ = 0;
};

/// A desktop with which the program is connected directly.
class DesktopColorsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        server.setAnonymousAuthenticationAllowed(true);
        QObject::connect(
            &server, &QDBusServer::newConnection, &server, [this](const QDBusConnection& client) {
                desktop = std::make_unique<QDBusConnection>(client);
                desktop->registerObject(Path, &portal, QDBusConnection::ExportScriptableContents);
            });
        bus = std::make_unique<QDBusConnection>(QDBusConnection::connectToPeer(server.address(), Name));
        ASSERT_TRUE(QTest::qWaitFor([this] { return desktop != nullptr; }));
    }
    void TearDown() override
    {
        QDBusConnection::disconnectFromPeer(Name);
        UseDarkLook(false);
    }
    void Tell(const QString& group, const QString& key, uint value)
    {
        QDBusMessage change = QDBusMessage::createSignal(
            Path, QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
        change << group << key << QVariant::fromValue(QDBusVariant(value));
        EXPECT_TRUE(desktop->send(change));
    }
    void Set(uint scheme)
    {
        Tell(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"), scheme);
    }
    static bool Becomes(bool dark)
    {
        return QTest::qWaitFor([dark] { return IsDark(QApplication::palette()) == dark; });
    }

    const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");
    const QString Name = QStringLiteral("tally-test-desktop");
    Portal portal{1};
    QDBusServer server;
    std::unique_ptr<QDBusConnection> desktop;
    std::unique_ptr<QDBusConnection> bus;
};

TEST_F(DesktopColorsTest, TheProgramStartsInTheLookOfTheDesktopAndFollowsIt)
{
    const DesktopColors colors(*bus);
    EXPECT_TRUE(Becomes(true));
    Set(2);
    EXPECT_TRUE(Becomes(false));
    Set(1);
    EXPECT_TRUE(Becomes(true));
    Set(0);
    EXPECT_TRUE(Becomes(false)) << "no choice: the colours of the platform, which are light here";
}

TEST_F(DesktopColorsTest, OtherSettingsOfTheDesktopChangeNothing)
{
    const DesktopColors colors(*bus);
    ASSERT_TRUE(Becomes(true));
    const LightPalettes seen;
    Tell(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("contrast"), 2);
    Tell(QStringLiteral("org.gnome.desktop"), QStringLiteral("color-scheme"), 2);
    Set(1);
    Set(2);
    // All that was told comes in its order, so the last one ends the wait.
    EXPECT_TRUE(Becomes(false));
    EXPECT_EQ(seen.Times(), 1);
}

TEST_F(DesktopColorsTest, WithoutADesktopNothingHappens)
{
    const DesktopColors colors(QDBusConnection(QStringLiteral("none")));
    QCoreApplication::processEvents();
    EXPECT_FALSE(IsDark(QApplication::palette()));
}

} // namespace
} // namespace tally::test

#include "DesktopColorsTest.moc"
