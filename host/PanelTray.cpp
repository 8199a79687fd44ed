// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelTray.h"

#include "host/icon.h"
#include "host/texts.h"

namespace quode::host {

PanelTray::PanelTray(std::function<ComingPrayer()> coming, MomentWatch& watch, const Texts& texts)
    : coming_(std::move(coming)), watch_(watch), next_(menu_.addAction(QString())), icon_(quodeIcon()) {
    menu_.addSeparator();
    connect(next_, &QAction::triggered, this, &PanelTray::openAsked);
    connect(menu_.addAction(texts.open), &QAction::triggered, this, &PanelTray::openAsked);
    connect(menu_.addAction(texts.quit), &QAction::triggered, this, &PanelTray::quitAsked);
    connect(&menu_, &QMenu::aboutToShow, this, &PanelTray::refreshMenu);
    connect(&icon_, &QSystemTrayIcon::activated, this, &PanelTray::onActivated);
    connect(&watch_, &MomentWatch::stirred, this, &PanelTray::refresh);
    menu_.setAccessibleName("Quode");
    icon_.setContextMenu(&menu_);
    refresh();
    icon_.show();
}

// A menu that is emptied takes its entries back from the desktop; one that is deleted leaves them there.
PanelTray::~PanelTray() {
    menu_.clear();
}

void PanelTray::refresh() {
    const ComingPrayer coming = coming_();
    next_->setText(QString::fromStdString(coming.exact));
    icon_.setToolTip(QString::fromStdString(coming.lasting));
    watch_.watchFor(coming.changesAt);
}

void PanelTray::refreshMenu() {
    next_->setText(QString::fromStdString(coming_().exact));
}

void PanelTray::onActivated(QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger) Q_EMIT clicked();
}

}  // namespace quode::host
