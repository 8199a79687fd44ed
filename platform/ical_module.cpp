// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The module behind "platform/ical_module.h": libical, which loads ICU.
#include "platform/ical_module.h"

#include <fmt/format.h>
#include <libical/ical.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <limits>
#include <memory>
#include <vector>

#include "common/numbers.h"
#include "platform/event_identifier.h"
#include "texts/translation.h"
#include "texts/utf8.h"

namespace quode {

namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

// A property with the length of a saved event in seconds, where DTEND cannot express it.
constexpr std::string_view kOwnDuration = "X-QUODE-DURATION";

// A property that identifies the installation that saved the event.
constexpr std::string_view kOwnMark = "X-QUODE-INSTALLATION";
constexpr seconds kShortestLength{60};
constexpr long long kLongestNoted = 100'000'000'000;  // beyond the valid years of an event

constexpr int kLastSequence = std::numeric_limits<int>::max();

// Properties that a save replaces or removes: an event that recurs or is cancelled would ring too often or not at all.
constexpr std::array<std::string_view, 18> kOwnProperties{
    "BEGIN",    "END",           "UID",    "DTSTAMP", "DTSTART", "DTEND",  "DURATION", "SUMMARY",    "LOCATION",
    "SEQUENCE", "LAST-MODIFIED", "STATUS", "RRULE",   "RDATE",   "EXDATE", "EXRULE",   kOwnDuration, kOwnMark};

struct FreeComponent {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using OwnedComponent = std::unique_ptr<icalcomponent, FreeComponent>;

struct FreeText {
    void operator()(char* text) const { icalmemory_free_buffer(text); }
};

std::string asText(icalcomponent* component) {
    const std::unique_ptr<char, FreeText> text(icalcomponent_as_ical_string_r(component));
    return text ? std::string(text.get()) : std::string();
}

// ---- writing ----------------------------------------------------------------------------------------------------

icaltimetype asIcalTime(sys_seconds time) {
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    icaltimetype result = icaltime_null_time();
    result.year = static_cast<int>(date.year());
    result.month = static_cast<int>(static_cast<unsigned>(date.month()));
    result.day = static_cast<int>(static_cast<unsigned>(date.day()));
    result.hour = static_cast<int>(clock.hours().count());
    result.minute = static_cast<int>(clock.minutes().count());
    result.second = static_cast<int>(clock.seconds().count());
    result.zone = icaltimezone_get_utc_timezone();
    return result;
}

/// A text that a calendar file can contain: without control characters, with U+FFFD for malformed ones.
std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::string_view before = text;
        const std::optional<char32_t> code = takeCodePoint(text);
        const bool control = code && ((*code < 0x20 && *code != '\n' && *code != '\t') || *code == 0x7F);
        if (!code) {
            result += "\xEF\xBF\xBD";
        } else if (!control) {
            result += before.substr(0, before.size() - text.size());
        }
    }
    return result;
}

/// The data that an older text of the event passes to the new one.
struct Inheritance {
    int sequence = 0;
    std::string alarmUid;
    std::string foreignProperties;
    std::string foreignComponents;
};

Inheritance inheritanceOf(std::string_view oldText) {
    Inheritance result;
    std::vector<std::string> nesting;
    forEachContentLine(oldText, [&](const ContentLine& line) {
        const std::string_view written = oldText.substr(line.begin, line.end - line.begin);
        if (line.name == "BEGIN") nesting.push_back(componentName(line));
        const bool inAlarm = nesting.size() > 1 && nesting[1] == "VALARM";
        if (nesting.size() > 1 && !inAlarm) result.foreignComponents += written;
        if (nesting.size() == 2 && inAlarm && line.name == "UID" && result.alarmUid.empty()) {
            result.alarmUid = unescapedText(line.value);
        }
        if (nesting.size() == 1 && line.name == "SEQUENCE") {
            std::string_view value = line.value;
            result.sequence = takeNumber<int>(value).value_or(result.sequence);
        }
        if (nesting.size() == 1 && std::ranges::find(kOwnProperties, line.name) == kOwnProperties.end()) {
            result.foreignProperties += written;
        }
        if (line.name == "END" && !nesting.empty()) nesting.pop_back();
    });
    return result;
}

std::string alarmText(const CalendarEvent& event, const Inheritance& old) {
    const OwnedComponent alarm(icalcomponent_new_valarm());
    const std::string uid = old.alarmUid.empty() ? randomUuid() : old.alarmUid;
    icaltriggertype trigger{};
    trigger.time = icaltime_null_time();
    trigger.duration = icaldurationtype_from_int(static_cast<int>(event.alarmOffset->count()));
    icalcomponent_add_property(alarm.get(), icalproperty_new_uid(uid.c_str()));
    icalcomponent_add_property(alarm.get(), icalproperty_new_action(ICAL_ACTION_DISPLAY));
    icalcomponent_add_property(alarm.get(), icalproperty_new_description(printable(event.title).c_str()));
    icalcomponent_add_property(alarm.get(), icalproperty_new_trigger(trigger));
    return asText(alarm.get());
}

// ---- reading ----------------------------------------------------------------------------------------------------

/// The time of a date property; times without a zone are in the device's zone. Nothing when it is malformed.
std::optional<sys_seconds> timeOf(icalproperty* property, icalcomponent* component) {
    const icaltimetype time = icalproperty_get_datetime_with_component(property, component);
    const bool wellFormed = !icaltime_is_null_time(time) && time.month >= 1 && time.month <= 12 && time.day >= 1 &&
                            time.day <= 31 && time.hour >= 0 && time.hour <= 24 && time.minute >= 0 &&
                            time.minute <= 60 && time.second >= 0 && time.second <= 61;
    if (!wellFormed) return std::nullopt;
    if (time.zone) {
        auto* const zone = const_cast<icaltimezone*>(time.zone);
        return sys_seconds(seconds(icaltime_as_timet_with_zone(time, zone)));
    }
    std::tm local{};
    local.tm_year = time.year - 1900;
    local.tm_mon = time.month - 1;
    local.tm_mday = time.day;
    local.tm_hour = time.hour;
    local.tm_min = time.minute;
    local.tm_sec = time.second;
    local.tm_isdst = -1;
    return sys_seconds(seconds(std::mktime(&local)));
}

seconds durationOf(const icaldurationtype& duration) {
    return seconds(icaldurationtype_as_int(duration));
}

/// The length that a save stored, unless the end was changed after it.
std::optional<seconds> notedLength(std::string_view text, seconds written) {
    std::optional<seconds> noted;
    forEachContentLine(text, [&noted](const ContentLine& line) {
        if (line.name != kOwnDuration) return;
        std::string_view rest = line.value;
        const auto value = takeNumber<long long>(rest);
        if (value && rest.empty() && *value <= 0 && *value >= -kLongestNoted) noted = seconds(*value);
    });
    return written == kShortestLength ? noted : std::nullopt;
}

std::string markIn(std::string_view text) {
    std::string mark;
    forEachContentLine(text, [&mark](const ContentLine& line) {
        if (line.name == kOwnMark) mark = line.value;
    });
    return mark;
}

std::optional<sys_seconds> endOf(icalcomponent* component, const CalendarEvent& event) {
    if (icalproperty* const end = icalcomponent_get_first_property(component, ICAL_DTEND_PROPERTY)) {
        return timeOf(end, component);
    }
    if (icalproperty* const length = icalcomponent_get_first_property(component, ICAL_DURATION_PROPERTY)) {
        return event.start + durationOf(icalproperty_get_duration(length));
    }
    return event.start + (event.allDay ? std::chrono::days(1) : std::chrono::days(0));
}

std::optional<seconds> alarmOffsetOf(icalcomponent* component, const CalendarEvent& event) {
    icalcomponent* const alarm = icalcomponent_get_first_component(component, ICAL_VALARM_COMPONENT);
    icalproperty* const property = alarm ? icalcomponent_get_first_property(alarm, ICAL_TRIGGER_PROPERTY) : nullptr;
    if (!property) return std::nullopt;
    const icaltriggertype trigger = icalproperty_get_trigger(property);
    if (!icaltime_is_null_time(trigger.time)) {
        return seconds(icaltime_as_timet_with_zone(trigger.time, icaltimezone_get_utc_timezone())) -
               event.start.time_since_epoch();
    }
    icalparameter* const related = icalproperty_get_first_parameter(property, ICAL_RELATED_PARAMETER);
    const bool fromEnd = related && icalparameter_get_related(related) == ICAL_RELATED_END;
    return durationOf(trigger.duration) + (fromEnd ? event.end - event.start : seconds(0));
}

std::string orEmpty(const char* text) {
    return text ? text : "";
}

ReadEvent fromComponent(icalcomponent* component, std::string_view text) {
    CalendarEvent event;
    icalproperty* const start = icalcomponent_get_first_property(component, ICAL_DTSTART_PROPERTY);
    if (!start) return {std::nullopt, N_("it has no start")};
    const auto startTime = timeOf(start, component);
    if (!startTime) return {std::nullopt, N_("its start cannot be read")};
    event.start = *startTime;
    event.allDay = icalproperty_get_dtstart(start).is_date != 0;

    const auto endTime = endOf(component, event);
    if (!endTime) return {std::nullopt, N_("its end cannot be read")};
    event.end = *endTime;
    event.title = orEmpty(icalcomponent_get_summary(component));
    event.location = orEmpty(icalcomponent_get_location(component));
    event.alarmOffset = alarmOffsetOf(component, event);
    event.mark = markIn(text);
    if (const auto length = notedLength(text, event.end - event.start)) event.end = event.start + *length;
    return {std::move(event), {}};
}

std::string writtenEvent(const CalendarEvent& event, std::string_view oldText, sys_seconds now) {
    icalerror_set_errors_are_fatal(0);
    const Inheritance old = inheritanceOf(oldText);
    const bool lengthIsUsual = event.end > event.start;
    const sys_seconds end = lengthIsUsual ? event.end : event.start + kShortestLength;

    const OwnedComponent component(icalcomponent_new_vevent());
    const auto add = [&component](icalproperty* property) { icalcomponent_add_property(component.get(), property); };
    add(icalproperty_new_uid(event.identifier.c_str()));
    add(icalproperty_new_dtstamp(asIcalTime(now)));
    add(icalproperty_new_dtstart(asIcalTime(event.start)));
    add(icalproperty_new_dtend(asIcalTime(end)));
    add(icalproperty_new_summary(printable(event.title).c_str()));
    add(icalproperty_new_location(printable(event.location).c_str()));
    add(icalproperty_new_lastmodified(asIcalTime(now)));
    add(icalproperty_new_sequence(oldText.empty() ? 0 : std::clamp(old.sequence, 0, kLastSequence - 1) + 1));

    std::string text = asText(component.get());
    text.erase(text.rfind("END:VEVENT"));
    if (!lengthIsUsual) text += fmt::format("{}:{}\r\n", kOwnDuration, (event.end - event.start).count());
    if (!event.mark.empty()) text += fmt::format("{}:{}\r\n", kOwnMark, event.mark);
    text += old.foreignProperties + old.foreignComponents;
    if (event.alarmOffset) text += alarmText(event, old);
    return text + "END:VEVENT\r\n";
}

ReadEvent parsedEvent(std::string_view event, std::string_view zones) {
    std::string whole = "BEGIN:VCALENDAR\r\n";
    whole.append(zones).append(event).append("END:VCALENDAR\r\n");
    icalerror_set_errors_are_fatal(0);
    const OwnedComponent root(icalparser_parse_string(whole.c_str()));
    icalcomponent* const vevent = root ? icalcomponent_get_first_component(root.get(), ICAL_VEVENT_COMPONENT) : nullptr;
    return vevent ? fromComponent(vevent, event) : ReadEvent{std::nullopt, N_("its text cannot be read")};
}

bool hasProperty(icalcomponent* component, icalproperty_kind kind) {
    return icalcomponent_get_first_property(component, kind) != nullptr;
}

ListedEvent listed(icalcomponent* component) {
    ListedEvent event;
    event.title = orEmpty(icalcomponent_get_summary(component));
    event.isCancelled = icalcomponent_get_status(component) == ICAL_STATUS_CANCELLED;
    event.repeats = hasProperty(component, ICAL_RRULE_PROPERTY) || hasProperty(component, ICAL_RDATE_PROPERTY);
    icalproperty* const property = icalcomponent_get_first_property(component, ICAL_DTSTART_PROPERTY);
    if (!property) return event;
    const icaltimetype start = icalproperty_get_datetime_with_component(property, component);
    event.hasTime = icaltime_is_null_time(start) == 0 && icaltime_is_date(start) == 0;
    if (event.hasTime && start.zone) event.moment = timeOf(property, component);
    icalparameter* const zone = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    if (zone) event.zone = orEmpty(icalparameter_get_tzid(zone));
    event.year = start.year;
    event.month = start.month;
    event.day = start.day;
    event.hour = start.hour;
    event.minute = start.minute;
    event.second = start.second;
    return event;
}

ListedCalendar listEvents(std::string_view calendar) {
    icalerror_set_errors_are_fatal(0);
    const OwnedComponent root(icalparser_parse_string(std::string(calendar).c_str()));
    if (!root) return {};
    ListedCalendar list{true, icalcomponent_count_errors(root.get()) == 0, {}};
    for (auto* event = icalcomponent_get_first_component(root.get(), ICAL_VEVENT_COMPONENT); event != nullptr;
         event = icalcomponent_get_next_component(root.get(), ICAL_VEVENT_COMPONENT)) {
        list.events.push_back(listed(event));
    }
    return list;
}

}  // namespace
}  // namespace quode

extern "C" const quode::IcalModule quodeIcal;
const quode::IcalModule quodeIcal{&quode::writtenEvent, &quode::parsedEvent, &quode::listEvents};
