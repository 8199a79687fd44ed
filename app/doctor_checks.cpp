// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/doctor_checks.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <set>

#include "app/alarm_sounds.h"
#include "app/dates.h"
#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/desktop.h"
#include "app/method_choice.h"
#include "app/ringer.h"
#include "app/session.h"
#include "app/user_alarms.h"
#include "app/user_data.h"
#include "common/printable.h"
#include "companion/AlarmBook.h"
#include "companion/UserEventStore.h"
#include "companion/autostart.h"
#include "companion/ringer.h"
#include "companion/sounds.h"
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
    std::vector<CalendarEvent> eventsWithoutAlarm;

    bool anyAlarmIsOn() const { return alarms && alarms->anyIsOn(); }
    UserSettings settings() const { return alarms ? alarms->settings : UserSettings{}; }
    bool evolutionRings(Session& session) const {
        return ringerInEffect(settings(), session.environment(), session.dataFolder()) == Ringer::evolution;
    }
};

Finding checkDataFolder(Session& session) {
    Finding found{"data_folder", _("Data folder"), State::ok, printable(session.dataFolder().string()), ""};
    std::error_code error;
    fs::path folder = fs::absolute(session.dataFolder(), error);
    const bool isThere = fs::is_directory(folder, error);
    while (!fs::exists(folder, error) && folder.has_relative_path()) folder = folder.parent_path();
    if (!fs::is_directory(folder, error) || access(folder.c_str(), W_OK | X_OK) != 0) {
        found.state = State::problem;
        found.advice = fs::is_directory(folder, error)
                           ? _("Nothing can be stored: {} cannot be written. Give yourself write permission, or set "
                               "QUODE_DATA_DIR to another folder.",
                               folder.string())
                           : _("Nothing can be stored: {} is not a folder. Set QUODE_DATA_DIR to another folder.",
                               folder.string());
        return found;
    }
    const fs::space_info space = fs::space(folder, error);
    constexpr std::uintmax_t enough = 1 << 20;
    if (!error && space.available < enough) {
        found.state = State::problem;
        found.advice = _("The disk is full. Free some space.");
    } else if (!isThere) {
        found.state = State::note;
        found.text = _("{} is created when there is something to store", session.dataFolder().string());
    }
    return found;
}

Finding checkCityDatabase(Session& session, Known& known) {
    Finding found{"city_database", _("City database"), State::ok, "", ""};
    try {
        session.cities().verify();
        found.text = editionText(session);
        known.hasCityDatabase = true;
    } catch (const CityDatabaseError& error) {
        found.state = State::problem;
        found.text = _("cannot be used");
        found.advice = error.what();
    }
    return found;
}

std::string summaryOf(const Known& known, const std::optional<UserCity>& home) {
    const std::size_t cities = known.cities.size();
    const auto on = static_cast<std::size_t>(std::ranges::count_if(known.alarms->alarms, &UserAlarm::isOn));
    std::string text = _n("{0} city", "{0} cities", cities);
    if (home && home->city) text += _(", home {}", home->city->name);
    return text + "; " + _n("{0} alarm on", "{0} alarms on", on);
}

std::vector<CalendarEvent> eventsWithoutAlarm(Session& session, UserDatabase& database) {
    session.services();
    UserEventStore calendar(session.dataFolder(), loadSettings(database).calendarLayout);
    return AlarmBook(session.dataFolder(), database, calendar).eventsWithoutAlarm();
}

void readUserDatabase(Session& session, Known& known, Finding& found) {
    std::optional<UserDatabase> database = userDatabaseToRead(session);
    if (!database) {
        known.hasUserDatabase = false;
        found.state = State::note;
        found.text = _("none yet; it is created with the first city or alarm");
        return;
    }
    if (const std::optional<std::string> fault = database->connection().fault()) {
        found.state = State::problem;
        found.text = _("damaged");
        found.advice =
            _("{} is damaged: {}. The next change of a city or an alarm keeps the file aside and creates a new one.",
              database->file().string(), *fault);
        return;
    }
    known.cities = database->cities();
    known.alarms = readAlarms(session, *database);
    known.eventsWithoutAlarm = eventsWithoutAlarm(session, *database);
    const std::optional<UserCity> home = database->home();
    found.text = summaryOf(known, home);
    if (home && !home->city) {
        found.state = State::problem;
        found.advice = _("The home city, number {}, is no longer in the city database. Choose another one:", home->id);
        found.command = "quode city home NAME";
    } else if (!home && known.anyAlarmIsOn()) {
        found.state = State::problem;
        found.advice = _("Alarms ring for the home city. Choose one:");
        found.command = "quode city home NAME";
    }
}

Finding checkUserDatabase(Session& session, Known& known) {
    Finding found{"user_database", _("User database"), State::ok, "", ""};
    if (!known.hasCityDatabase) {
        found.state = State::note;
        found.text = _("not checked without the city database");
        return found;
    }
    try {
        readUserDatabase(session, known, found);
    } catch (const UserDatabaseError& error) {
        found.state = State::problem;
        found.text = _("cannot be read");
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

void reportStrayEvents(const Known& known, Finding& found) {
    if (known.eventsWithoutAlarm.empty()) return;
    std::string starts;
    for (const CalendarEvent& event : known.eventsWithoutAlarm) {
        starts += (starts.empty() ? "" : ", ") + isoMoment(event.start);
    }
    found.state = State::problem;
    found.advice = _("Events of alarms that are gone ring in calendar programs: {}. Remove them:", starts);
    found.command = "quode doctor --tidy";
}

Finding checkCalendar(Session& session, const Known& known) {
    UserEventStore store(session.dataFolder(), known.settings().calendarLayout);
    Finding found{"calendar", _("Calendar"), State::ok, "", ""};
    const EventList list = store.ownEvents();
    const std::string file = printable(store.defaultCalendar().location.filename().string());
    found.text = _n("{1}, {0} event", "{1}, {0} events", list.events.size(), file);
    if (evolutionSource(session).isConnected()) found.text += _("; shown by Evolution");
    if (!list.status.ok) {
        found.state = State::problem;
        found.text = _("{} cannot be read", file);
        found.advice = list.status.message;
        return found;
    }
    if (!list.status.message.empty()) found.advice = list.status.message;
    const std::string names = known.alarms ? alarmsWithoutEvent(session, *known.alarms, list.events) : "";
    if (names.empty()) {
        reportStrayEvents(known, found);
        return found;
    }
    found.state = known.evolutionRings(session) ? State::problem : State::note;
    found.advice = _("The events of {} are not up to date. The alarm service renews them when it runs.", names);
    return found;
}

Finding checkSounds(Session& session, const Known& known) {
    Finding found{"sounds", _("Sounds"), State::ok, known.settings().defaultSound, ""};
    std::set<std::string> sounds{known.settings().defaultSound};
    for (int code = firstPrayer; known.alarms && code <= lastMainPrayer; ++code) {
        if (known.alarms->alarm(code).isOn) sounds.insert(soundOf(*known.alarms, known.alarms->alarm(code)));
    }
    found.text.clear();
    for (const std::string& sound : sounds) {
        const std::string shown = printable(sound);
        found.text += (found.text.empty() ? "" : ", ") + shown;
        if (soundExists(session, sound)) continue;
        const bool isDefault = sound == known.settings().defaultSound;
        found.state = State::problem;
        found.advice =
            soundExists(session, fallbackSound)
                ? _("The sound \"{}\" no longer exists: \"{}\" plays in its place. Choose another one:", shown,
                    fallbackSound)
                : _("The sound \"{}\" no longer exists: alarms are silent. Choose another one:", shown);
        found.command = isDefault ? "quode settings sound NAME" : "quode alarm set PRAYER --sound NAME";
    }
    return found;
}

Finding checkNotificationService(Session& session, const Known& known) {
    const NotificationCheck check = desktop().checkNotifications();
    Finding found{"notifications", _("Notifications"), State::ok, check.name, ""};
    const bool matters = known.anyAlarmIsOn() && !known.evolutionRings(session);
    const auto set = [&](State state, const char* text, const char* advice) {
        found.state = state;
        found.text = text;
        found.advice = advice;
    };
    switch (check.state) {
        case NotificationCheck::State::running:
            if (check.name.empty()) found.text = _("a service is running");
            if (!check.hasActions) {
                found.state = State::note;
                found.advice = _("It shows no buttons: an alarm can be dismissed, not snoozed.");
            }
            break;
        case NotificationCheck::State::startable:
            found.text = _("a service starts when it is needed");
            break;
        case NotificationCheck::State::unresponsive:
            set(State::problem, _("the service does not answer"),
                _("Restart the notification service of your desktop."));
            break;
        case NotificationCheck::State::none:
            set(matters ? State::problem : State::note, _("no service"),
                _("Alarms are heard but not shown. Start the notification service of your desktop, or install one such "
                  "as dunst."));
            break;
        case NotificationCheck::State::noBus:
            set(matters ? State::problem : State::note, _("no session bus"),
                _("Alarms are heard but not shown. Run quode in your desktop session."));
            break;
    }
    return found;
}

Finding checkAlarmService(Session& session, const Known& known) {
    const RingerState state = ringerState(session, known.settings());
    Finding found{"alarm_service", _("Alarm service"), State::ok, state.serviceRuns ? _("running") : _("not running"),
                  ""};
    if (state.ringer == Ringer::evolution) found.text += _("; Evolution rings");
    if (known.anyAlarmIsOn()) {
        const bool startsAtLogin = session.variable("QUODE_DATA_DIR") || serviceStartsAtLogin(session.environment());
        if (!state.isReady()) {
            found.state = State::problem;
            found.text = state.problem;
            if (!startsAtLogin) {
                found.text =
                    std::string(_("It does not start with the next login. Switch an alarm on to start it at login.")) +
                    " " + state.problem;
            }
            found.command = state.remedy;
        } else if (!startsAtLogin) {
            found.state = State::problem;
            found.advice = _("It does not start with the next login. Switch an alarm on again:");
            found.command = "quode alarm on PRAYER";
        }
    } else if (!state.serviceRuns) {
        found.state = State::note;
        found.text += known.alarms || !known.hasUserDatabase ? _(", and no alarm is on")
                                                             : _("; it is not known whether an alarm is on");
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

// What the clocks of zones rest on: "zone data 2026f"; empty where that is not known.
std::string originText(const StoredZone& zone) {
    if (!zone.known || zone.known->edition.empty()) return "";
    return zone.known->isOfSystem ? _("zone data {} of this system", zone.known->edition)
                                  : _("zone data {}", zone.known->edition);
}

// "Europe/Istanbul, Europe/Berlin; zone data 2026f", once more for zones of other data.
std::string zonesText(const std::vector<StoredZone>& zones) {
    std::vector<std::pair<std::string, std::string>> groups;  // origin, names
    for (const StoredZone& zone : zones) {
        const std::string origin = originText(zone);
        auto group = std::ranges::find(groups, origin, &std::pair<std::string, std::string>::first);
        if (group == groups.end()) group = groups.insert(groups.end(), {origin, ""});
        group->second += (group->second.empty() ? "" : ", ") + zone.name;
    }
    std::string text;
    for (const auto& [origin, names] : groups) {
        text += (text.empty() ? "" : "; ") + names + (origin.empty() ? "" : "; " + origin);
    }
    return text;
}

Finding checkZoneRules(Session& session, const Known& known) {
    Finding found{"zone_rules", _("Zone rules"), State::ok, "", ""};
    if (!known.hasCityDatabase) {
        found.state = State::note;
        found.text = _("not checked without the city database");
        return found;
    }
    std::vector<StoredZone> zones = zonesOfUser(session, known);
    found.text = zones.empty() ? _("no city to compare the clock of") : zonesText(zones);
    // Older data of the system cannot say that a clock is wrong.
    std::erase_if(zones, [](const StoredZone& zone) { return zone.known && zone.known->systemIsOlder(); });
    const auto today = std::chrono::year_month_day(std::chrono::floor<std::chrono::days>(session.now()));
    std::string problems;
    for (const ZoneDisagreement& each : checkZones(zones, twoYearsFrom(today), session.zoneFolder())) {
        problems += (problems.empty() ? "" : "; ") + describe(each);
        if (!each.unknownToSystem) found.state = State::problem;
    }
    if (problems.empty()) return found;
    if (found.state == State::problem) found.text = _("a stored clock differs from that of this system");
    if (found.state == State::ok) found.state = State::note;
    found.advice = _("{}. Update Quode and the zone data of the system (tzdata).", problems);
    return found;
}

// The rule behind the times of the city that is shown when none is named.
Finding namedRule(Session& session, const Known& known) {
    Finding found{"rule", _("Rule"), State::ok, "", ""};
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
    findings.push_back(checkNotificationService(session, known));
    findings.push_back(checkAlarmService(session, known));
    findings.push_back(checkZoneRules(session, known));
    findings.push_back(namedRule(session, known));
    return findings;
}

}  // namespace quode::app
