// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/UserSettings.h"

#include <algorithm>
#include <map>

#include "common/numbers.h"
#include "companion/UserDatabase.h"
#include "companion/user_connection.h"

namespace quode {
namespace {

constexpr const char* soundName = "alarm.sound";
constexpr const char* layoutName = "calendar.layout";
constexpr const char* ringerName = "alarm.ringer";
constexpr const char* languageName = "language";
constexpr const char* panelName = "panel.layout";
constexpr const char* colorsName = "panel.colors";
constexpr const char* textName = "text.size";
constexpr const char* trayName = "panel.tray";
constexpr const char* volumeName = "alarm.volume";
constexpr const char* fadeName = "alarm.fade_in";
constexpr const char* mediaName = "alarm.media";
constexpr const char* urgencyName = "alarm.urgency";
constexpr int colorSchemes = 6;

const char* valueOf(PanelLayout layout) {
    switch (layout) {
        case PanelLayout::phone:
            return "phone";
        case PanelLayout::tablet:
            return "tablet";
        default:
            return "auto";
    }
}

/// What is stored, read at once.
class StoredSettings {
  public:
    explicit StoredSettings(const UserDatabase& database) : values_(database.settings()) {}

    /// A value; empty when it was never set.
    std::string text(const char* name) const {
        const auto found = values_.find(name);
        return found == values_.end() ? std::string() : found->second;
    }

    int number(const char* name, int usual, int least, int most) const {
        return std::clamp(numberOf<int>(text(name)).value_or(usual), least, most);
    }

  private:
    std::map<std::string, std::string> values_;
};

RingManner loadManner(const StoredSettings& stored) {
    RingManner manner;
    manner.volume = stored.number(volumeName, manner.volume, softestSound, loudestSound);
    manner.fadeIn = stored.number(fadeName, manner.fadeIn, 0, longestFadeIn);
    manner.pausesMedia = stored.text(mediaName) == "pause";
    manner.isUrgent = stored.text(urgencyName) != "normal";
    return manner;
}

void saveManner(UserDatabase& database, const RingManner& manner) {
    database.setSetting(volumeName, std::to_string(manner.volume));
    database.setSetting(fadeName, std::to_string(manner.fadeIn));
    database.setSetting(mediaName, manner.pausesMedia ? "pause" : "keep");
    database.setSetting(urgencyName, manner.isUrgent ? "urgent" : "normal");
}

}  // namespace

const char* valueOf(CalendarLayout layout) {
    return layout == CalendarLayout::vdir ? "vdir" : "ics";
}

UserSettings loadSettings(const UserDatabase& database) {
    const StoredSettings stored(database);
    UserSettings settings;
    const std::string sound = stored.text(soundName);
    if (!sound.empty()) settings.defaultSound = sound;
    if (stored.text(layoutName) == valueOf(CalendarLayout::vdir)) settings.calendarLayout = CalendarLayout::vdir;
    if (stored.text(ringerName) == "evolution") settings.ringer = Ringer::evolution;
    const std::string language = stored.text(languageName);
    if (!language.empty()) settings.language = language;
    for (const PanelLayout layout : {PanelLayout::phone, PanelLayout::tablet}) {
        if (stored.text(panelName) == valueOf(layout)) settings.panelLayout = layout;
    }
    for (int scheme = 0; scheme < colorSchemes; ++scheme) {
        if (stored.text(colorsName) == std::to_string(scheme)) settings.colorScheme = scheme;
    }
    settings.textSize = stored.number(textName, settings.textSize, smallestText, largestText);
    settings.hasTrayIcon = stored.text(trayName) != "off";
    settings.manner = loadManner(stored);
    return settings;
}

void saveSettings(UserDatabase& database, const UserSettings& settings) {
    database.connection().change([&] {
        database.setSetting(soundName, settings.defaultSound);
        database.setSetting(layoutName, valueOf(settings.calendarLayout));
        database.setSetting(ringerName, settings.ringer == Ringer::evolution ? "evolution" : "quode");
        database.setSetting(languageName, settings.language);
        database.setSetting(panelName, valueOf(settings.panelLayout));
        database.setSetting(colorsName, std::to_string(settings.colorScheme));
        database.setSetting(textName, std::to_string(settings.textSize));
        database.setSetting(trayName, settings.hasTrayIcon ? "on" : "off");
        saveManner(database, settings.manner);
    });
}

}  // namespace quode
