// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusVariant>
#include <QObject>

#include "host/theme.h"

namespace quode::host {

/// Whether the desktop prefers light or dark programs: as its settings portal says, else as its palette is.
class DesktopTheme : public QObject {
    Q_OBJECT

  public:
    DesktopTheme();

    const Theme& theme() const;

  Q_SIGNALS:
    void changed();

  private Q_SLOTS:
    void onPortalSetting(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    void take(const QVariant& preference);

    int preference_ = 0;  // of the portal: 0 none, 1 dark, 2 light
};

}  // namespace quode::host
