// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/settings.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "app/alarm_calendar.h"
#include "app/alarm_sounds.h"
#include "app/ringer.h"
#include "app/session.h"
#include "app/user_data.h"
#include "common/color_schemes.h"
#include "common/numbers.h"
#include "companion/language.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

// --- the values

std::string layoutName(const UserSettings& settings) {
    return valueOf(settings.calendarLayout);
}

std::string ringerName(const UserSettings& settings) {
    return settings.ringer == Ringer::evolution ? "evolution" : "quode";
}

constexpr std::array<std::pair<const char*, PanelLayout>, 3> panelLayouts{
    {{"auto", PanelLayout::automatic}, {"phone", PanelLayout::phone}, {"tablet", PanelLayout::tablet}}};

std::string panelName(const UserSettings& settings) {
    const auto* const layout =
        std::ranges::find(panelLayouts, settings.panelLayout, [](auto& each) { return each.second; });
    return layout->first;
}

bool isOneOf(const std::string& value, const std::string& first, const std::string& second, const char* key) {
    if (value == first || value == second) return value == second;
    throw Failure(ExitCode::usage, _("{} is {} or {}, not \"{}\".", key, first, second, value));
}

// --- changing them

void store(Session& session, const std::function<void(UserSettings&)>& change) {
    UserDatabase database = userDatabaseToChange(session);
    UserSettings settings = loadSettings(database);
    change(settings);
    saveSettings(database, settings);
}

void changeSound(Session& session, const std::string& value) {
    const std::string sound = soundNamedByUser(session, value);
    store(session, [&](UserSettings& settings) { settings.defaultSound = sound; });
}

void changeLayout(Session& session, const std::string& value) {
    const bool wantsFolder = isOneOf(value, valueOf(CalendarLayout::ics), valueOf(CalendarLayout::vdir), "calendar");
    if (wantsFolder && evolutionSource(session).isConnected()) {
        throw Failure(ExitCode::usage, _("Evolution shows the one file of the layout ics. Disconnect it first: quode "
                                         "calendar disconnect"));
    }
    UserDatabase database = userDatabaseToChange(session);
    AlarmCalendar calendar(session, database);
    calendar.changeLayout(wantsFolder ? CalendarLayout::vdir : CalendarLayout::ics);
}

void changeRinger(Session& session, const std::string& value) {
    const bool wantsEvolution = isOneOf(value, "quode", "evolution", "ringer");
    if (wantsEvolution && !evolutionSource(session).isConnected()) {
        throw Failure(ExitCode::usage,
                      _("Evolution is not connected. Connect it and let it ring: quode calendar connect "
                        "evolution --ring"));
    }
    if (wantsEvolution) requireEvolutionProgram(session);
    UserDatabase database = userDatabaseToChange(session);
    setRinger(session, database, wantsEvolution ? Ringer::evolution : Ringer::quode);
}

void changePanel(Session& session, const std::string& value) {
    const auto* const layout = std::ranges::find(panelLayouts, value, [](auto& each) { return each.first; });
    if (layout == panelLayouts.end()) {
        throw Failure(ExitCode::usage, _("panel is auto, phone or tablet, not \"{}\".", value));
    }
    store(session, [&](UserSettings& settings) { settings.panelLayout = layout->second; });
}

void changeColors(Session& session, const std::string& value) {
    const std::optional<int> scheme = numberOf<int>(value);
    if (!scheme || *scheme < 1 || *scheme > colorSchemeCount) {
        throw Failure(ExitCode::usage, _("colors is a number from 1 to {}, not \"{}\".", colorSchemeCount, value));
    }
    store(session, [&](UserSettings& settings) { settings.colorScheme = *scheme - 1; });
}

void changeLanguage(Session& session, const std::string& value) {
    if (value != "auto") checkLanguage("language", value, availableLanguages(session.bundle()));
    store(session, [&](UserSettings& settings) { settings.language = value; });
}

int numberFrom(const std::string& value, const std::string& key, int least, int most) {
    const std::optional<int> number = numberOf<int>(value);
    if (number && *number >= least && *number <= most) return *number;
    throw Failure(ExitCode::usage, _("{} is a number from {} to {}, not \"{}\".", key, least, most, value));
}

void changeTextSize(Session& session, const std::string& value) {
    const int percent = numberFrom(value, "text", smallestText, largestText);
    store(session, [&](UserSettings& settings) { settings.textSize = percent; });
}

void changeVolume(Session& session, const std::string& value) {
    const int percent = numberFrom(value, "volume", softestSound, loudestSound);
    store(session, [&](UserSettings& settings) { settings.manner.volume = percent; });
}

void changeFadeIn(Session& session, const std::string& value) {
    const int seconds = numberFrom(value, "fade", 0, longestFadeIn);
    store(session, [&](UserSettings& settings) { settings.manner.fadeIn = seconds; });
}

void changeMedia(Session& session, const std::string& value) {
    const bool isPaused = isOneOf(value, "keep", "pause", "media");
    store(session, [&](UserSettings& settings) { settings.manner.pausesMedia = isPaused; });
}

void changeUrgency(Session& session, const std::string& value) {
    const bool isUrgent = isOneOf(value, "normal", "urgent", "urgency");
    store(session, [&](UserSettings& settings) { settings.manner.isUrgent = isUrgent; });
}

void changeTray(Session& session, const std::string& value) {
    const bool isWanted = isOneOf(value, "off", "on", "tray");
    store(session, [&](UserSettings& settings) { settings.hasTrayIcon = isWanted; });
}

std::string languagesToChoose(Session& session) {
    std::string text = _("auto (that of the locale)");
    for (const std::string& language : availableLanguages(session.bundle())) text += ", " + language;
    return text;
}

const std::array<Setting, 12> settings{{
    {"sound", N_("of alarms that have none of their own"), [](const UserSettings& all) { return all.defaultSound; },
     soundsToChoose, changeSound},
    {"calendar", N_("how the events of the alarms are stored"), layoutName,
     [](Session&) {
         return std::string(_("ics (one file, Quode.ics) and vdir (a folder with a file for each event)"));
     },
     changeLayout},
    {"ringer", N_("the program that rings"), ringerName,
     [](Session&) {
         return std::string(_("quode (the alarm service) and evolution (the reminders of Evolution, when connected)"));
     },
     changeRinger},
    {"language", N_("the language of all programs"), [](const UserSettings& all) { return all.language; },
     languagesToChoose, changeLanguage},
    {"panel", N_("the layout of the panel"), panelName,
     [](Session&) {
         return std::string(_("auto (by the screen), phone and tablet, from the next start of the panel"));
     },
     changePanel},
    {"colors", N_("the colour scheme of the panel"),
     [](const UserSettings& all) { return std::to_string(all.colorScheme + 1); },
     [](Session&) { return std::string(_("1 to 6; an open panel takes them at once")); }, changeColors},
    {"text", N_("the size of texts in windows, percent"),
     [](const UserSettings& all) { return std::to_string(all.textSize); },
     [](Session&) { return std::string(_("100 to 200, from the next start of a window")); }, changeTextSize},
    {"tray", N_("whether the panel has an icon in the tray"),
     [](const UserSettings& all) { return std::string(all.hasTrayIcon ? "on" : "off"); },
     [](Session&) { return std::string(_("on and off, from the next start of the panel")); }, changeTray},
    {"volume", N_("of the alarms, percent of the desktop's"),
     [](const UserSettings& all) { return std::to_string(all.manner.volume); },
     [](Session&) { return std::string(_("10 to 100")); }, changeVolume},
    {"fade", N_("seconds until an alarm has its volume"),
     [](const UserSettings& all) { return std::to_string(all.manner.fadeIn); },
     [](Session&) { return std::string(_("0 to 60; the sound becomes louder until then")); }, changeFadeIn},
    {"media", N_("what media players do while an alarm sounds"),
     [](const UserSettings& all) { return std::string(all.manner.pausesMedia ? "pause" : "keep"); },
     [](Session&) { return std::string(_("keep (they play on) and pause")); }, changeMedia},
    {"urgency", N_("of the notifications of alarms"),
     [](const UserSettings& all) { return std::string(all.manner.isUrgent ? "urgent" : "normal"); },
     [](Session&) {
         return std::string(_("urgent and normal; a desktop that must not disturb shows urgent ones alone"));
     },
     changeUrgency},
}};

}  // namespace

std::span<const Setting> allSettings() {
    return settings;
}

const Setting& settingNamed(const std::string& key) {
    const auto found = std::ranges::find_if(settings, [&](const Setting& each) { return key == each.key; });
    if (found != settings.end()) return *found;
    std::string keys;
    for (const Setting& each : settings) keys += (keys.empty() ? "" : ", ") + std::string(each.key);
    throw Failure(ExitCode::usage, _("There is no setting \"{}\". Use one of {}.", key, keys));
}

void changeSetting(Session& session, const std::string& key, const std::string& value) {
    settingNamed(key).change(session, value);
}

UserSettings presentSettings(Session& session) {
    const std::optional<UserDatabase> database = userDatabaseToRead(session);
    return database ? loadSettings(*database) : UserSettings{};
}

}  // namespace quode::app
