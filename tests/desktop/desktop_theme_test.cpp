// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Needs a session bus of its own, on which the test is the settings portal.
#include "desktop/DesktopTheme.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QTest>

namespace quode::test {
namespace {

constexpr int patience = 5000;  // ms
constexpr unsigned dark = 1, light = 2;

/// The preference of the desktop, as the portal reports a change.
QDBusMessage preference(unsigned value) {
    QDBusMessage message = QDBusMessage::createSignal("/org/freedesktop/portal/desktop",
                                                      "org.freedesktop.portal.Settings", "SettingChanged");
    message << QString("org.freedesktop.appearance") << QString("color-scheme")
            << QVariant::fromValue(QDBusVariant(QVariant(value)));
    return message;
}

TEST(DesktopTheme, FollowsThePortalWhileTheProgramRuns) {
    if (!QDBusConnection::sessionBus().isConnected()) GTEST_SKIP() << "There is no session bus.";
    QDBusConnection portal = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
    if (!portal.registerService("org.freedesktop.portal.Desktop")) GTEST_SKIP() << "The bus has a portal.";
    const DesktopTheme theme;
    for (const unsigned value : {dark, light, dark}) {
        ASSERT_TRUE(portal.send(preference(value)));
        EXPECT_TRUE(QTest::qWaitFor([&] { return theme.isDark() == (value == dark); }, patience)) << value;
    }
    QDBusConnection::disconnectFromBus("portal");
}

}  // namespace
}  // namespace quode::test
