// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSystemTrayIcon>
#include <functional>

#include "desktop/MomentWatch.h"
#include "host/coming_prayer.h"

namespace quode::host {

class PanelMenu;

/// The icon in the tray of the desktop, with the panel's menu. Its tool tip is kept by the desktop, which does not ask
/// for it again; so it is one that stays true for long, and a watch tells when it does not any more.
class PanelTray : public QObject {
    Q_OBJECT

  public:
    /// @param coming  gives the coming prayer at the present moment
    /// @param watch   kept by the caller for as long as the tray lives, as is the menu
    PanelTray(std::function<ComingPrayer()> coming, MomentWatch& watch, PanelMenu& menu);

    QString toolTip() const { return icon_.toolTip(); }

  Q_SIGNALS:
    /// The icon was clicked.
    void clicked();

  private:
    void refresh();
    void onActivated(QSystemTrayIcon::ActivationReason reason);

    std::function<ComingPrayer()> coming_;
    MomentWatch& watch_;
    PanelMenu& menu_;
    QSystemTrayIcon icon_;
};

}  // namespace quode::host
