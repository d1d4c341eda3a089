#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace tally {

/// Gives the program the look, light or dark, that the desktop is set to. Only some desktops hand their
/// colours to every program; their setting can be asked for on all of them.
class DesktopColors : public QObject
{
    Q_OBJECT

public:
    /// Asks over `bus` and listens there from then on. Where nobody answers, all stays as it is.
    explicit DesktopColors(QDBusConnection bus, QObject* parent = nullptr);

private Q_SLOTS:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);
};

} // namespace tally
