// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/ical_component.h"

#include <fmt/format.h>

#include "platform/event_identifier.h"
#include "platform/ical_module.h"
#include "platform/module.h"
#include "texts/translation.h"

namespace quode {
namespace {

using std::chrono::sys_seconds;

constexpr std::string_view kProduct = "-//Quode//Prayer alarms//EN";

// Time zones change their clocks once or twice a year. Expanding a rule that changes every second would take forever.
bool isCalm(std::string_view zones) {
    constexpr std::size_t mostLines = 5000;
    std::size_t lines = 0;
    bool calm = true;
    forEachContentLine(zones, [&](const ContentLine& line) {
        ++lines;
        if (line.name != "RRULE") return;
        const std::string_view rule = line.value;
        const bool isYearly = rule.find("FREQ=YEARLY") != std::string_view::npos;
        const bool isFine = rule.find("BYSECOND") == std::string_view::npos &&
                            rule.find("BYMINUTE") == std::string_view::npos &&
                            rule.find("BYHOUR") == std::string_view::npos && rule.size() < 200;
        calm = calm && isYearly && isFine;
    });
    return calm && lines <= mostLines;
}

const ModuleSymbol& loadedModule() {
    static const ModuleSymbol loaded = loadModule("quode-ical.so", icalSymbol);
    return loaded;
}

}  // namespace

const IcalModule* icalModule() {
    return static_cast<const IcalModule*>(loadedModule().address);
}

std::optional<std::string> problemOfCalendars() {
    if (icalModule()) return std::nullopt;
    return _("The calendar part of Quode cannot be loaded: {}. Install Quode again.", loadedModule().problem);
}

std::optional<std::string> problemOfEvent(const CalendarEvent& event) {
    using std::chrono::sys_days, std::chrono::year;
    if (auto problem = problemOfCalendars()) return problem;
    // Calendar programs treat a time after the year 2582 as missing.
    constexpr sys_seconds earliest = sys_days(year(1) / 1 / 1);
    constexpr sys_seconds past = sys_days(year(2501) / 1 / 1);
    if (event.allDay) return _("An alarm cannot last all day. Give it a time.");
    if (event.start < earliest || event.start >= past || event.end < earliest || event.end >= past) {
        return _("The time of the alarm is outside the years 1 to 2500. Check the date of this device.");
    }
    const bool farAlarm = event.alarmOffset && std::chrono::abs(*event.alarmOffset) > std::chrono::days(366);
    if (farAlarm) return _("The alarm is more than a year from its event. Choose a smaller offset.");
    return problemOfIdentifier(event.identifier);
}

std::string emptyCalendar() {
    return fmt::format("BEGIN:VCALENDAR\r\nPRODID:{}\r\nVERSION:2.0\r\nEND:VCALENDAR\r\n", kProduct);
}

std::string eventText(const CalendarEvent& event, std::string_view oldText, sys_seconds now) {
    return icalModule()->eventText(event, oldText, now);
}

ReadEvent readEvent(const CalendarText& calendar, const CalendarComponent& component) {
    const std::string text(textOf(calendar, component));
    const bool namesZone = text.find("TZID") != std::string::npos;
    const std::string zones = namesZone ? zonesOf(calendar, component.calendar) : std::string();
    if (!isCalm(zones)) return {std::nullopt, _("the clock of its time zone changes too often")};
    ReadEvent read = icalModule()->readEvent(text, zones);
    if (read.event) {
        read.event->identifier = component.uid;
    } else {
        read.problem = std::string(_(read.problem.c_str()));
    }
    return read;
}

}  // namespace quode
