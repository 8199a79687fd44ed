// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <functional>
#include <string>
#include <vector>

namespace quode::host {

/// What the menu shows at one moment.
struct MenuState {
    struct Alarm {
        int code = 0;      ///< 200..205
        std::string name;  ///< of the prayer
        bool isOn = false;
    };

    std::string next;           ///< the coming prayer and the time left
    std::vector<Alarm> alarms;  ///< none where they cannot be read
    int colorScheme = 0;        ///< 0..5
    bool isMuted = false;       ///< all alarms are silent for now
    bool hasCity = true;        ///< there are times to be copied
};

/// The menu of the panel and of the icon in the tray. What it shows is found each time that it opens.
class PanelMenu : public QMenu {
    Q_OBJECT

  public:
    explicit PanelMenu(std::function<MenuState()> state);
    ~PanelMenu() override;

    /// Finds again what it shows.
    void refresh();

    /// The text of the first entry, which tells the coming prayer.
    QString next() const;

  Q_SIGNALS:
    void openAsked();
    void copyAsked();
    void cityAsked();
    void alarmSwitched(int code, bool isOn);
    void colorSchemeChosen(int scheme);
    void muteAsked(bool isMuted);
    /// Opens the settings. page  "alarms"; empty: the first
    void settingsAsked(const QString& page);
    void helpAsked();
    void aboutAsked();
    void quitAsked();

  private:
    QAction* addEntry(const char* english);
    void setTexts();
    void addAlarms();
    void addColors();
    void showAlarms(const std::vector<MenuState::Alarm>& alarms);

    std::function<MenuState()> state_;
    std::vector<std::pair<QAction*, const char*>> texts_;  // in English
    QAction* next_;
    QAction* copy_;
    QMenu* alarms_;
    QAction* mute_;
    QMenu* colors_;
};

}  // namespace quode::host
