// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

namespace quode {

/// Tells assistive technology that widgets of this class are windows: Qt takes a plain widget for a part of one. Call it
/// before the first of them is shown; further calls do nothing.
template <typename Window>
void announceAsWindow() {
    static const bool isInstalled = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* const window = qobject_cast<Window*>(object);
            return window != nullptr ? new QAccessibleWidget(window, QAccessible::Window) : nullptr;
        });
        return true;
    }();
    static_cast<void>(isInstalled);
}

}  // namespace quode
