// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/alarm_habits.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>

#include "alarms/alarm_moment.h"
#include "app/alarm_changes.h"
#include "app/day_view.h"
#include "app/session.h"
#include "app/user_alarms.h"
#include "app/user_data.h"
#include "common/civil_date.h"
#include "common/numbers.h"
#include "companion/AlarmHabits.h"
#include "data/name_folding.h"
#include "data/next_midnight.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

using std::chrono::sys_seconds;

constexpr std::chrono::days farAhead{9};
constexpr std::array<int, 7> week{1, 2, 3, 4, 5, 6, 0};  // 0 = Sunday
constexpr std::array<const char*, 7> dayKeys{"sun", "mon", "tue", "wed", "thu", "fri", "sat"};

[[noreturn]] void refuse(const std::string& text) {
    throw Failure(ExitCode::usage, text);
}

void changeHabits(Session& session, const std::vector<int>& codes, const std::function<void(UserAlarm&)>& change) {
    changeAlarms(session, [&](UserDatabase& database) {
        for (const int code : codes) {
            UserAlarm alarm = database.alarm(code);
            change(alarm);
            storeHabits(database.connection(), alarm);
        }
    });
}

CityRecord homeOf(const UserAlarms& all) {
    if (all.city) return *all.city;
    throw Failure(ExitCode::notFound, _("An alarm rings for your home city. Choose one: quode city home NAME"));
}

bool isCalled(Session& session, int day, std::string_view word) {
    const std::string folded = foldedName(word);
    return folded == dayKeys.at(static_cast<std::size_t>(day)) || folded == foldedName(session.weekdayName(day)) ||
           folded == foldedName(session.shortWeekdayName(day));
}

unsigned dayNamed(Session& session, std::string_view word) {
    for (const int day : week) {
        if (isCalled(session, day, word)) return 1U << day;
    }
    refuse(_("\"{}\" is not a day of the week. Write days such as mon,wed,fri, or all.", word));
}

}  // namespace

void chooseDays(Session& session, const std::vector<int>& codes, unsigned days) {
    if ((days & everyDay) == 0) {
        refuse(_("An alarm rings on at least one day of the week. To keep it silent, switch it off."));
    }
    changeHabits(session, codes, [days](UserAlarm& alarm) { alarm.days = days & everyDay; });
}

void chooseReminder(Session& session, const std::vector<int>& codes, std::optional<int> minutes) {
    if (minutes && std::abs(*minutes) > largestAlarmOffset) {
        refuse(_("An alarm rings at most {} minutes before or after its time, not {}.", largestAlarmOffset, *minutes));
    }
    changeHabits(session, codes, [minutes](UserAlarm& alarm) { alarm.reminder = minutes; });
}

std::optional<AlarmOccurrence> nextRing(const CityRecord& city, const UserAlarm& alarm, sys_seconds now,
                                        bool withReminder) {
    const std::vector<AlarmRule> rule{withReminder ? alarm.ruleWithReminder() : alarm.rule()};
    const sys_seconds from = std::max(now, alarm.silentUntil());
    const auto rings = alarmOccurrences(siteOf(city), rule, now, from + farAhead);
    return rings.empty() ? std::nullopt : std::optional(rings.front());
}

std::optional<AlarmOccurrence> skipNext(Session& session, int code) {
    const UserAlarms all = readAlarms(session);
    UserAlarm alarm = all.alarm(code);
    if (!alarm.isOn) {
        throw Failure(ExitCode::notFound,
                      _("The alarm of {} is off: there is no ring to skip.", session.prayerName(code)));
    }
    const std::optional<AlarmOccurrence> next = nextRing(homeOf(all), alarm, session.now(), true);
    if (!next) throw Failure(ExitCode::notFound, _("No ring of {} is near.", session.prayerName(code)));
    const int last = std::max(alarm.offset, alarm.reminder.value_or(alarm.offset));
    changeHabits(session, {code},
                 [&](UserAlarm& each) { each.skippedUntil = next->prayer + std::chrono::minutes(last); });
    return nextRing(homeOf(all), readAlarms(session).alarm(code), session.now(), true);
}

void unskip(Session& session, int code) {
    changeHabits(session, {code}, [](UserAlarm& alarm) { alarm.skippedUntil = {}; });
}

void mute(Session& session, std::optional<sys_seconds> until) {
    if (until && *until <= session.now()) refuse(_("The alarms can be muted until a moment to come only."));
    changeAlarms(session, [&](UserDatabase& database) { muteUntil(database, until.value_or(sys_seconds{})); });
}

sys_seconds startOfTomorrow(Session& session) {
    const std::optional<CityRecord> city = homeCity(session);
    if (city) return nextMidnight(siteOf(*city).clock(), session.now());
    return std::chrono::floor<std::chrono::days>(session.now()) + std::chrono::days(1);
}

unsigned daysNamed(Session& session, std::string_view words) {
    if (foldedName(words) == "all") return everyDay;
    unsigned days = 0;
    while (!words.empty()) {
        const std::size_t end = words.find_first_of(", ");
        if (end != 0) days |= dayNamed(session, words.substr(0, end));
        words.remove_prefix(end == std::string_view::npos ? words.size() : end + 1);
    }
    return days;
}

std::vector<int> daysOfWeek(unsigned days) {
    std::vector<int> chosen;
    std::ranges::copy_if(week, std::back_inserter(chosen), [days](int day) { return (days & (1U << day)) != 0; });
    return chosen;
}

std::string weekdayKey(int day) {
    return dayKeys.at(static_cast<std::size_t>(day));
}

std::string daysText(Session& session, unsigned days) {
    std::string text;
    if (days == everyDay) return text;
    for (const int day : daysOfWeek(days)) text += (text.empty() ? "" : ", ") + session.shortWeekdayName(day);
    return text;
}

std::string ringMoment(Session& session, const CityRecord& city, sys_seconds instant) {
    const VAKDate day = wallClock(siteOf(city).clock(), instant);
    const std::string clock = clockAt(session, city, instant);
    if (sameDay(day, today(session, siteOf(city)))) return clock;
    const unsigned weekday = std::chrono::weekday(civilDate(day)).c_encoding();
    return session.shortWeekdayName(static_cast<int>(weekday)) + " " + clock;
}

std::string leftText(Session& session, sys_seconds instant) {
    return _("in {}", durationText(instant - session.now()));
}

std::string nextRingText(Session& session, const UserAlarms& all) {
    if (!all.anyIsOn()) return _("No alarm is on.");
    std::optional<AlarmOccurrence> next;
    for (const UserAlarm& alarm : all.alarms) {
        if (!alarm.isOn || !all.city) continue;
        const auto ring = nextRing(*all.city, alarm, session.now(), true);
        if (ring && (!next || ring->due < next->due)) next = ring;
    }
    if (!next) return _("No alarm rings soon.");
    return _("{} rings next: {}, {}", session.prayerName(next->code), ringMoment(session, *all.city, next->due),
             leftText(session, next->due));
}

std::string muteText(Session& session, const UserAlarms& all) {
    const sys_seconds until = all.alarms.empty() ? sys_seconds{} : all.alarms.front().mutedUntil;
    if (until <= session.now() || !all.city) return "";
    return _("All alarms are muted until {}.", ringMoment(session, *all.city, until));
}

std::vector<std::string> habitTexts(Session& session, const UserAlarms& all, const UserAlarm& alarm) {
    std::vector<std::string> texts;
    const auto until = [&](sys_seconds moment) {
        return all.city ? ringMoment(session, *all.city, moment) : std::string();
    };
    if (alarm.days != everyDay) texts.push_back(daysText(session, alarm.days));
    if (alarm.reminder) texts.push_back(_("also {}", offsetText(*alarm.reminder)));
    if (alarm.mutedUntil > session.now()) texts.push_back(_("muted until {}", until(alarm.mutedUntil)));
    if (alarm.skippedUntil > std::max(session.now(), alarm.mutedUntil)) {
        texts.push_back(_("skipped until {}", until(alarm.skippedUntil)));
    }
    return texts;
}

}  // namespace quode::app
