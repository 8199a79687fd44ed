// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <map>
#include <memory>
#include <optional>

#include "desktop/DesktopTheme.h"
#include "host/HomeWatch.h"
#include "host/Panel.h"
#include "host/PanelDevice.h"
#include "host/PanelMenu.h"
#include "host/PanelTray.h"
#include "host/TrayWatch.h"
#include "host/WidgetBundle.h"
#include "host/user_choices.h"

namespace quode {
class UserEventStore;
}

namespace quode::app {
class Session;
}

namespace quode::host {

/// The panel as a program on the desktop: the panel itself, the icon in the tray where there is one, and what the
/// entries of the menu do.
class PanelProgram : public QObject {
    Q_OBJECT

  public:
    /// @param session         kept by the caller, with the calendar and the device already set
    /// @param languageOption  the language of the command line; without one the panel follows the setting
    PanelProgram(app::Session& session, std::shared_ptr<UserEventStore> calendar, std::shared_ptr<PanelDevice> device,
                 std::optional<std::string> languageOption = {});
    ~PanelProgram() override;

    /// Opens the panel at the pointer.
    void present();

    /// Asks whether the guessed city is right, on a first start.
    void askOnFirstStart();

  Q_SIGNALS:
    /// The panel was drawn for the first time, or will not be soon: now is the time for what its first frame can do
    /// without.
    void started();

  private:
    void finishStart();
    void offerTray();
    void prepare();
    bool fit();
    PanelMenu& menu();
    void connectMenu();
    void connectPanel();
    void showTray();
    void onBuilt();
    void storeRows();
    void onDismissed();
    void lookAgainForWhatCannotBeRead();
    MenuState menuState();
    ComingPrayer comingPrayerNow();
    void showAlarms();
    void takeAlarms(const std::map<int, bool>& alarmsOn);
    void switchAlarm(int code, bool isOn);
    void chooseColors(int scheme);
    void chooseCity();
    void copyTimes();
    void tell(const QString& problem);
    void end();
    QWidget* dialogParent();

    app::Session& session_;
    std::shared_ptr<UserEventStore> calendar_;
    std::shared_ptr<PanelDevice> device_;
    std::optional<std::string> languageOption_;
    TrayWatch trayWatch_;
    PanelWindow window_;
    DesktopTheme theme_;
    std::unique_ptr<PanelMenu> menu_;   // from the first frame on
    std::optional<Preparation> first_;  // until the first presentation, which follows at once
    QString told_;                      // messages for the next presentation
    QString notice_;                    // of the present one
    std::optional<HeldChoices> held_;   // while the widget is built
    bool isPrepared_ = true;            // for the present presentation
    std::map<int, bool> alarmsOn_;      // by the codes of the prayers
    WidgetBundle bundle_;
    std::unique_ptr<WidgetViewController> widget_;
    HomeWatch watch_;
    Panel panel_;
    OpenRows storedRows_;
    std::unique_ptr<MomentWatch> toolTipWatch_;
    std::unique_ptr<PanelTray> tray_;
    bool isStarted_ = false, isTrayOffered_ = false;
};

}  // namespace quode::host
