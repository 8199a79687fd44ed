// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusVariant>
#include <QObject>

#include "desktop/theme.h"

namespace quode {

/// Whether the desktop prefers light or dark programs: as its settings portal says, else as its palette is.
class DesktopTheme : public QObject {
    Q_OBJECT

  public:
    DesktopTheme();

    const Theme& theme() const { return themeOf(isDark()); }
    bool isDark() const;

  Q_SIGNALS:
    void changed();

  private Q_SLOTS:
    void onPortalSetting(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    void take(const QVariant& preference);

    const bool hasDarkPalette_;  // before a window sets another palette
    int preference_ = 0;         // of the portal: 0 none, 1 dark, 2 light
};

}  // namespace quode
