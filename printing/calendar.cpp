// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "printing/calendar.h"

#include <libical/ical.h>

#include <memory>

namespace quode::printing {
namespace {

constexpr const char* product = "-//Quode//Prayer times//EN";
constexpr int eventSeconds = 600;  // an event without length is not shown by every program

struct FreeComponent {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

struct FreeText {
    void operator()(char* text) const { icalmemory_free_buffer(text); }
};

icaltimetype timeOf(std::chrono::sys_seconds instant) {
    return icaltime_from_timet_with_zone(static_cast<time_t>(instant.time_since_epoch().count()), 0,
                                         icaltimezone_get_utc_timezone());
}

/// A property that libical has no function for.
icalproperty* named(const char* name, const std::string& value) {
    icalproperty* const property = icalproperty_new_x(value.c_str());
    icalproperty_set_x_name(property, name);
    return property;
}

void addAlarm(icalcomponent* event, std::chrono::minutes before, const std::string& title) {
    icaltriggertype trigger{};
    trigger.time = icaltime_null_time();
    trigger.duration = icaldurationtype_from_int(static_cast<int>(-std::chrono::seconds(before).count()));
    icalcomponent* const alarm = icalcomponent_new_valarm();
    icalcomponent_add_property(alarm, icalproperty_new_action(ICAL_ACTION_DISPLAY));
    icalcomponent_add_property(alarm, icalproperty_new_description(title.c_str()));
    icalcomponent_add_property(alarm, icalproperty_new_trigger(trigger));
    icalcomponent_add_component(event, alarm);
}

icalcomponent* newEvent(const PrayerCalendar& calendar, const PrayerEvent& prayer) {
    icalcomponent* const event = icalcomponent_new_vevent();
    const auto add = [&](icalproperty* property) { icalcomponent_add_property(event, property); };
    add(icalproperty_new_uid(prayer.uid.c_str()));
    add(icalproperty_new_dtstamp(timeOf(calendar.made)));
    add(icalproperty_new_dtstart(timeOf(prayer.begin)));
    add(icalproperty_new_duration(icaldurationtype_from_int(eventSeconds)));
    add(icalproperty_new_summary(prayer.title.c_str()));
    add(icalproperty_new_location(calendar.place.c_str()));
    add(icalproperty_new_geo({static_cast<float>(calendar.latitude), static_cast<float>(calendar.longitude)}));
    if (!prayer.description.empty()) add(icalproperty_new_description(prayer.description.c_str()));
    add(icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT));  // it makes nobody busy
    if (calendar.alarm) addAlarm(event, *calendar.alarm, prayer.title);
    return event;
}

}  // namespace

std::string calendarText(const PrayerCalendar& calendar) {
    const Component component(icalcomponent_new_vcalendar());
    const auto add = [&](icalproperty* property) { icalcomponent_add_property(component.get(), property); };
    add(icalproperty_new_version("2.0"));
    add(icalproperty_new_prodid(product));
    add(icalproperty_new_calscale("GREGORIAN"));
    add(named("NAME", calendar.name));
    add(named("X-WR-CALNAME", calendar.name));
    if (!calendar.zone.empty()) add(named("X-WR-TIMEZONE", calendar.zone));
    if (calendar.interval) {
        const std::string interval = "PT" + std::to_string(calendar.interval->count()) + "H";
        add(named("REFRESH-INTERVAL;VALUE=DURATION", interval));
        add(named("X-PUBLISHED-TTL", interval));
    }
    for (const PrayerEvent& prayer : calendar.events) {
        icalcomponent_add_component(component.get(), newEvent(calendar, prayer));
    }
    const std::unique_ptr<char, FreeText> text(icalcomponent_as_ical_string_r(component.get()));
    return text ? text.get() : "";
}

bool isPrayerCalendar(std::string_view text) {
    return text.starts_with("BEGIN:VCALENDAR") && text.find(product) != std::string_view::npos;
}

}  // namespace quode::printing
