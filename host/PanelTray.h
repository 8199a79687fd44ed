// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <functional>

#include "host/MomentWatch.h"
#include "host/coming_prayer.h"

class QAction;

namespace quode::host {

struct Texts;

/// The icon in the tray of the desktop. Its menu tells the coming prayer and the time left, found when it opens. Its
/// tool tip is kept by the desktop, which does not ask for it again; so it is one that stays true for long, and a
/// watch tells when it does not any more.
class PanelTray : public QObject {
    Q_OBJECT

  public:
    /// @param coming  gives the coming prayer at the present moment
    /// @param watch   kept by the caller for as long as the tray lives
    PanelTray(std::function<ComingPrayer()> coming, MomentWatch& watch, const Texts& texts);
    ~PanelTray() override;

    QString toolTip() const { return icon_.toolTip(); }
    QMenu& menu() { return menu_; }

  Q_SIGNALS:
    /// The icon was clicked.
    void clicked();
    /// The panel was chosen in the menu.
    void openAsked();
    void quitAsked();

  private:
    void refresh();
    void refreshMenu();
    void onActivated(QSystemTrayIcon::ActivationReason reason);

    std::function<ComingPrayer()> coming_;
    MomentWatch& watch_;
    QMenu menu_;
    QAction* next_;
    QSystemTrayIcon icon_;
};

}  // namespace quode::host
