// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelTray.h"

#include "desktop/icon.h"
#include "host/PanelMenu.h"
#include "texts/reading_order.h"

namespace quode::host {

PanelTray::PanelTray(std::function<ComingPrayer()> coming, MomentWatch& watch, PanelMenu& menu)
    : coming_(std::move(coming)), watch_(watch), menu_(menu), icon_(quodeIcon()) {
    connect(&icon_, &QSystemTrayIcon::activated, this, &PanelTray::onActivated);
    connect(&watch_, &MomentWatch::happened, this, &PanelTray::refresh);
    icon_.setContextMenu(&menu_);
    refresh();
    icon_.show();
}

void PanelTray::refresh() {
    const ComingPrayer coming = coming_();
    menu_.refresh();
    icon_.setToolTip(QString::fromStdString(inReadingOrder(coming.lasting)));
    watch_.watchFor(coming.changesAt);
}

void PanelTray::onActivated(QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger) Q_EMIT clicked();
}

}  // namespace quode::host
