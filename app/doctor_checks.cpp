// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/doctor_checks.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <set>

#include "app/alarm_sounds.h"
#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/desktop.h"
#include "app/method_choice.h"
#include "app/ringer.h"
#include "app/session.h"
#include "app/user_alarms.h"
#include "app/user_data.h"
#include "companion/UserEventStore.h"
#include "companion/user_connection.h"
#include "data/zone_check.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

namespace fs = std::filesystem;
using State = Finding::State;

/// What several checks go by; each part is missing where it could not be read.
struct Known {
    bool hasCityDatabase = false;
    bool hasUserDatabase = true;  ///< there is one, though perhaps it cannot be read
    std::vector<UserCity> cities;
    std::optional<UserAlarms> alarms;

    bool anyAlarmIsOn() const { return alarms && alarms->anyIsOn(); }
    UserSettings settings() const { return alarms ? alarms->settings : UserSettings{}; }
};

const char* plural(std::size_t count, const char* one, const char* many) {
    return count == 1 ? one : many;
}

Finding checkDataFolder(Session& session) {
    Finding found{"data_folder", "Data folder", State::ok, session.dataFolder().string(), ""};
    std::error_code error;
    fs::path folder = fs::absolute(session.dataFolder(), error);
    const bool isThere = fs::is_directory(folder, error);
    while (!fs::exists(folder, error) && folder.has_relative_path()) folder = folder.parent_path();
    if (!fs::is_directory(folder, error) || access(folder.c_str(), W_OK | X_OK) != 0) {
        found.state = State::problem;
        found.advice = fmt::format(
            "Nothing can be kept: {} {}. Give yourself the right to write there, or name "
            "another folder in QUODE_DATA_DIR.",
            folder.string(), fs::is_directory(folder, error) ? "cannot be written" : "is no folder");
        return found;
    }
    const fs::space_info space = fs::space(folder, error);
    constexpr std::uintmax_t enough = 1 << 20;
    if (!error && space.available < enough) {
        found.state = State::problem;
        found.advice = "The disk is full. Make room.";
    } else if (!isThere) {
        found.state = State::note;
        found.text += " is made when there is something to keep";
    }
    return found;
}

Finding checkCityDatabase(Session& session, Known& known) {
    Finding found{"city_database", "City database", State::ok, "", ""};
    try {
        found.text = session.cities().edition();
        known.hasCityDatabase = true;
    } catch (const CityDatabaseError& error) {
        found.state = State::problem;
        found.text = "cannot be used";
        found.advice = error.what();
    }
    return found;
}

std::string summaryOf(const Known& known, const std::optional<UserCity>& home) {
    const std::size_t cities = known.cities.size();
    const auto on = static_cast<std::size_t>(std::ranges::count_if(known.alarms->alarms, &UserAlarm::isOn));
    const std::string homeText = home && home->city ? ", home " + home->city->name : "";
    return fmt::format("{} {}{}; {} {} on", cities, plural(cities, "city", "cities"), homeText, on,
                       plural(on, "alarm", "alarms"));
}

void readUserDatabase(Session& session, Known& known, Finding& found) {
    std::optional<UserDatabase> database = userDatabaseToRead(session);
    if (!database) {
        known.hasUserDatabase = false;
        found.state = State::note;
        found.text = "none yet; it is made with the first city or alarm";
        return;
    }
    if (const std::optional<std::string> fault = database->connection().fault()) {
        found.state = State::problem;
        found.text = "damaged";
        found.advice = fmt::format(
            "{} ({}). The next change of a city or an alarm keeps the file aside and makes a "
            "fresh one.",
            database->file().string(), *fault);
        return;
    }
    known.cities = database->cities();
    known.alarms = readAlarms(session, *database);
    const std::optional<UserCity> home = database->home();
    found.text = summaryOf(known, home);
    if (home && !home->city) {
        found.state = State::problem;
        found.advice = fmt::format(
            "The home city, number {}, is not in the city database any more. Choose another "
            "one:",
            home->id);
        found.command = "quode city home NAME";
    } else if (!home && known.anyAlarmIsOn()) {
        found.state = State::problem;
        found.advice = "Alarms ring for the home city. Choose one:";
        found.command = "quode city home NAME";
    }
}

Finding checkUserDatabase(Session& session, Known& known) {
    Finding found{"user_database", "User database", State::ok, "", ""};
    if (!known.hasCityDatabase) {
        found.state = State::note;
        found.text = "not looked at without the city database";
        return found;
    }
    try {
        readUserDatabase(session, known, found);
    } catch (const UserDatabaseError& error) {
        found.state = State::problem;
        found.text = "cannot be read";
        found.advice = error.what();
    }
    return found;
}

/// The alarms that are on and whose event is missing, or stands at another moment.
std::string alarmsWithoutEvent(Session& session, const UserAlarms& alarms, const std::vector<CalendarEvent>& events) {
    std::string names;
    for (const AlarmOccurrence& ring : alarms.coming) {
        const UserAlarm& alarm = alarms.alarm(ring.code);
        const bool isRight = std::ranges::any_of(events, [&](const CalendarEvent& event) {
            return event.identifier == alarm.eventIdentifier && event.start == ring.due;
        });
        if (alarm.isOn && !isRight) names += (names.empty() ? "" : ", ") + session.prayerName(ring.code);
    }
    return names;
}

Finding checkCalendar(Session& session, const Known& known) {
    UserEventStore store(session.dataFolder(), known.settings().calendarLayout);
    Finding found{"calendar", "Calendar", State::ok, "", ""};
    const EventList list = store.ownEvents();
    const std::string file = store.defaultCalendar().location.filename().string();
    found.text = fmt::format("{}, {} {}", file, list.events.size(), plural(list.events.size(), "event", "events"));
    if (evolutionSource(session).isConnected()) found.text += "; shown by Evolution";
    if (!list.status.ok) {
        found.state = State::problem;
        found.text = file + " cannot be read";
        found.advice = list.status.message;
        return found;
    }
    if (!list.status.message.empty()) found.advice = list.status.message;
    const std::string names = known.alarms ? alarmsWithoutEvent(session, *known.alarms, list.events) : "";
    if (names.empty()) return found;
    const bool matters = known.settings().ringer == Ringer::evolution;
    found.state = matters ? State::problem : State::note;
    found.advice =
        fmt::format("The events of {} are not up to date. The alarm service renews them when it runs.", names);
    return found;
}

Finding checkSounds(Session& session, const Known& known) {
    Finding found{"sounds", "Sounds", State::ok, known.settings().defaultSound, ""};
    std::set<std::string> sounds{known.settings().defaultSound};
    for (int code = firstPrayer; known.alarms && code <= lastMainPrayer; ++code) {
        if (known.alarms->alarm(code).isOn) sounds.insert(soundOf(*known.alarms, known.alarms->alarm(code)));
    }
    found.text.clear();
    for (const std::string& sound : sounds) {
        found.text += (found.text.empty() ? "" : ", ") + sound;
        if (soundExists(session, sound)) continue;
        const bool isDefault = sound == known.settings().defaultSound;
        found.state = State::problem;
        found.advice =
            fmt::format("There is no sound \"{}\" any more, so that alarms are silent. Choose another one:", sound);
        found.command = isDefault ? "quode settings sound NAME" : "quode alarm set PRAYER --sound NAME";
    }
    return found;
}

Finding checkNotificationService(const Known& known) {
    const NotificationCheck check = desktop().checkNotifications();
    Finding found{"notifications", "Notifications", State::ok, check.name, ""};
    const bool matters = known.anyAlarmIsOn() && known.settings().ringer == Ringer::quode;
    const auto set = [&](State state, const char* text, const char* advice) {
        found.state = state;
        found.text = text;
        found.advice = advice;
    };
    switch (check.state) {
        case NotificationCheck::State::running:
            if (check.name.empty()) found.text = "a service is running";
            if (!check.hasActions) {
                found.state = State::note;
                found.advice = "It shows no buttons: an alarm can be closed, but not put off.";
            }
            break;
        case NotificationCheck::State::startable:
            found.text = "a service starts when it is needed";
            break;
        case NotificationCheck::State::unresponsive:
            set(State::problem, "the service does not answer", "Restart the notification service of your desktop.");
            break;
        case NotificationCheck::State::none:
            set(matters ? State::problem : State::note, "no service",
                "Alarms are heard but not shown. Start the notification service of your desktop, or install one, such "
                "as dunst.");
            break;
        case NotificationCheck::State::noBus:
            set(matters ? State::problem : State::note, "no session bus",
                "Alarms are heard but not shown. Run quode within your desktop's session.");
            break;
    }
    return found;
}

Finding checkAlarmService(Session& session, const Known& known) {
    const RingerState state = ringerState(session, known.settings());
    Finding found{"alarm_service", "Alarm service", State::ok, state.serviceRuns ? "running" : "not running", ""};
    if (state.ringer == Ringer::evolution) found.text += "; Evolution rings";
    if (known.anyAlarmIsOn()) {
        if (state.isReady()) return found;
        found.state = State::problem;
        found.text = state.problem;
        found.command = state.remedy;
    } else if (!state.serviceRuns) {
        found.state = State::note;
        found.text +=
            known.alarms || !known.hasUserDatabase ? ", and no alarm is on" : "; whether an alarm is on is not known";
    }
    return found;
}

std::vector<StoredZone> zonesOfUser(Session& session, const Known& known) {
    std::vector<StoredZone> zones;
    const auto add = [&zones](const CityRecord& city) {
        if (std::ranges::find(zones, city.zone, &StoredZone::name) == zones.end()) {
            zones.push_back({city.zone, city.rule, city.known});
        }
    };
    for (const UserCity& each : known.cities) {
        if (each.city) add(*each.city);
    }
    if (zones.empty()) {
        if (const auto city = session.cities().largestCityOfZone(session.systemZone())) add(*city);
    }
    return zones;
}

// "Europe/Istanbul; zone data 2026f".
std::string zonesText(const std::vector<StoredZone>& zones) {
    std::string names;
    for (const StoredZone& zone : zones) names += (names.empty() ? "" : ", ") + zone.name;
    const auto& known = zones.front().known;
    if (!known || known->edition.empty()) return names;
    if (known->isOfSystem()) return _("{}; zone data {} of this system", names, known->edition);
    return _("{}; zone data {}", names, known->edition);
}

Finding checkZoneRules(Session& session, const Known& known) {
    Finding found{"zone_rules", "Zone rules", State::ok, "", ""};
    if (!known.hasCityDatabase) {
        found.state = State::note;
        found.text = "not looked at without the city database";
        return found;
    }
    std::vector<StoredZone> zones = zonesOfUser(session, known);
    found.text = zones.empty() ? "no city to compare the clock of" : zonesText(zones);
    // Older data of the system cannot say that a clock is wrong.
    std::erase_if(zones, [](const StoredZone& zone) { return zone.known && zone.known->systemIsOlder(); });
    const auto today = std::chrono::year_month_day(std::chrono::floor<std::chrono::days>(session.now()));
    std::string problems;
    for (const ZoneDisagreement& each : checkZones(zones, twoYearsFrom(today), session.zoneFolder())) {
        problems += (problems.empty() ? "" : "; ") + describe(each);
        if (!each.unknownToSystem) found.state = State::problem;
    }
    if (problems.empty()) return found;
    found.text = found.state == State::problem ? "a stored clock differs from this system's" : "not to be compared";
    if (found.state == State::ok) found.state = State::note;
    found.advice = problems + ". Bring Quode and the system's zone data (tzdata) up to date.";
    return found;
}

// The rule behind the times of the city that is shown without a wish.
Finding namedRule(Session& session, const Known& known) {
    Finding found{"rule", "Rule", State::ok, "", ""};
    if (known.hasCityDatabase) {
        const auto home = std::ranges::find(known.cities, true, &UserCity::isHome);
        const bool isKnown = home != known.cities.end() && home->city;
        const auto city = isKnown ? home->city : session.cities().largestCityOfZone(session.systemZone());
        if (city)
            found.text =
                city->name + ": " + (city->choice.isDefault() ? ruleText(siteOf(*city)) : methodLine(siteOf(*city)));
    }
    if (!found.text.empty()) return found;
    found.state = State::note;
    found.text = _("no city to name the rule of");
    return found;
}

}  // namespace

std::vector<Finding> examine(Session& session) {
    Known known;
    std::vector<Finding> findings{checkDataFolder(session), checkCityDatabase(session, known)};
    findings.push_back(checkUserDatabase(session, known));
    findings.push_back(checkCalendar(session, known));
    findings.push_back(checkSounds(session, known));
    findings.push_back(checkNotificationService(known));
    findings.push_back(checkAlarmService(session, known));
    findings.push_back(checkZoneRules(session, known));
    findings.push_back(namedRule(session, known));
    return findings;
}

}  // namespace quode::app
