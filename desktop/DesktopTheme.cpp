// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/DesktopTheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>

namespace quode {
namespace {

constexpr const char* portal = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* settings = "org.freedesktop.portal.Settings";
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
constexpr int patience = 1000;  // ms
constexpr int prefersDark = 1, prefersLight = 2;

}  // namespace

// The portal is not started for this, and nothing waits for its answer: the first picture of the panel is drawn by the
// palette, which most desktops set to the same.
DesktopTheme::DesktopTheme() : hasDarkPalette_(isDarkPalette(QGuiApplication::palette())) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    qRegisterMetaType<QDBusVariant>();  // else the bus does not know the type of the slot, and calls it never
    bus.connect(portal, portalPath, settings, "SettingChanged", this,
                SLOT(onPortalSetting(QString, QString, QDBusVariant)));
    QDBusMessage read = QDBusMessage::createMethodCall(portal, portalPath, settings, "Read");
    read.setArguments({appearance, colorScheme});
    read.setAutoStartService(false);
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(read, patience), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (!reply.isError()) take(reply.value().variant());
    });
}

bool DesktopTheme::isDark() const {
    if (preference_ == prefersDark || preference_ == prefersLight) return preference_ == prefersDark;
    return hasDarkPalette_;
}

void DesktopTheme::onPortalSetting(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == appearance && key == colorScheme) take(value.variant());
}

// The older method wraps its value twice.
void DesktopTheme::take(const QVariant& preference) {
    const QVariant value =
        preference.canConvert<QDBusVariant>() ? preference.value<QDBusVariant>().variant() : preference;
    const int present = value.toInt();
    if (present == preference_) return;
    preference_ = present;
    Q_EMIT changed();
}

}  // namespace quode
