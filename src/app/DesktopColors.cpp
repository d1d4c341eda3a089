#include "app/DesktopColors.h"

#include "core/ui/look/Look.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace tally {

namespace {

const QString Desktop = QStringLiteral("org.freedesktop.portal.Desktop");
const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString Appearance = QStringLiteral("org.freedesktop.appearance");
const QString ColorScheme = QStringLiteral("color-scheme");

} // namespace

DesktopColors::DesktopColors(QDBusConnection bus, QObject* parent) : QObject(parent)
{
    // The connection looks the slot's types up by their names.
    qRegisterMetaType<QDBusVariant>();
    bus.connect(QString(), Path, Settings, QStringLiteral("SettingChanged"), this,
                SLOT(SettingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(Desktop, Path, Settings, QStringLiteral("Read"));
    question << Appearance << ColorScheme;
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            SettingChanged(Appearance, ColorScheme, reply.value());
        answer->deleteLater();
    });
}

void DesktopColors::SettingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group != Appearance || key != ColorScheme)
        return;
    // The answer to a question comes in one wrapping more than a change.
    QVariant scheme = value.variant();
    while (scheme.metaType() == QMetaType::fromType<QDBusVariant>())
        scheme = scheme.value<QDBusVariant>().variant();
    switch (scheme.toUInt()) {
    case 1: return UseDarkLook(true);
    case 2: return UseDarkLook(false);
    default: return UseDarkLook({});
    }
}

} // namespace tally
