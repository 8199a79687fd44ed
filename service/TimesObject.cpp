// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The interface org.quode.Quode1.Times: the times of any place and day.
#include <array>

#include "app/dates.h"
#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/prayer_names.h"
#include "companion/SiteChoices.h"
#include "data/city_days.h"
#include "service/bus.h"
#include "texts/translation.h"

namespace quode::service {
namespace {

using namespace app;

constexpr std::uint32_t mostDays = 400;

/// The place that a text names; the home city for an empty one.
ChosenPlace placeOf(HomeWatch& home, const char* text) {
    if (*text == '\0') return home.homePlace();
    ChosenPlace place = choosePlace(home.session(), text);
    requireReadableChoice(place.city);
    return place;
}

VAKDate dateOf(Session& session, const Site& site, const char* text) {
    if (*text == '\0') return today(session, site);
    const VAKDate date = parseDate(text);
    if (isJulianCalendar(date)) throw BusError(invalidError, _("The first day is 15 October 1582."));
    return date;
}

int day(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const char *place = nullptr, *date = nullptr;
        check(sd_bus_message_read(call, "ss", &place, &date));
        Session& session = contextOf(context).session();
        const ChosenPlace chosen = placeOf(*contextOf(context).home, place);
        const Site site = siteOf(chosen.city);
        const CityDay computed = computeCityDay(site, dateOf(session, site, date));
        const auto hijri = hijriByTable(computed.date);
        const Message reply = replyTo(call);
        append(reply.get(), 'a', "(ssxsu)", [&] {
            for (const PrayerFact& each : prayersOf(session, computed)) {
                check(sd_bus_message_append(reply.get(), "(ssxsu)", each.key.c_str(), each.name.c_str(), each.instant,
                                            each.text.c_str(), each.flags));
            }
        });
        append(reply.get(), 'a', "{sv}", [&] {
            appendEntry(reply.get(), "place", chosen.city.name);
            appendEntry(reply.get(), "zone", chosen.city.zone);
            appendEntry(reply.get(), "date", isoDate(computed.date));
            appendEntry(reply.get(), "hijri", hijri ? isoDate(*hijri) : "");
            appendEntry(reply.get(), "method", methodLine(site));
        });
        send(reply);
    });
}

std::vector<VAKDate> daysFrom(const VAKDate& first, std::uint32_t count) {
    std::vector<VAKDate> days;
    for (std::uint32_t i = 0; i < count; ++i) {
        days.push_back(recordOf(dayOf(first) + std::chrono::days(int(i))));
    }
    return days;
}

void appendInstants(sd_bus_message* reply, const CityDay& day) {
    append(reply, 'a', "x", [&] {
        for (int code = firstPrayer; code <= lastPrayer; ++code) {
            const auto hours = timeOfPrayer(day, code);
            const std::int64_t instant = hours ? instantOf(day, *hours).time_since_epoch().count() : 0;
            check(sd_bus_message_append(reply, "x", instant));
        }
    });
}

int range(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const char *place = nullptr, *first = nullptr;
        std::uint32_t count = 0;
        check(sd_bus_message_read(call, "ssu", &place, &first, &count));
        if (count < 1 || count > mostDays) throw BusError(invalidError, _("Ask for 1 to {} days at once.", mostDays));
        Session& session = contextOf(context).session();
        const Site site = siteOf(placeOf(*contextOf(context).home, place).city);
        const std::vector<VAKDate> dates = daysFrom(dateOf(session, site, first), count);
        std::vector<CityDay> days(dates.size());
        computeDayTimes(site, dates, days);
        const Message reply = replyTo(call);
        append(reply.get(), 'a', "s", [&] {
            for (int code = firstPrayer; code <= lastPrayer; ++code) {
                check(sd_bus_message_append(reply.get(), "s", prayerKey(code).c_str()));
            }
        });
        append(reply.get(), 'a', "(sax)", [&] {
            for (const CityDay& each : days) {
                append(reply.get(), 'r', "sax", [&] {
                    check(sd_bus_message_append(reply.get(), "s", isoDate(each.date).c_str()));
                    appendInstants(reply.get(), each);
                });
            }
        });
        send(reply);
    });
}

int prayerOfKey(const std::string& key) {
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        if (prayerKey(code) == key) return code;
    }
    throw BusError(invalidError, _("No prayer has the key \"{}\".", key));
}

std::vector<std::string> description(Session& session, const ChosenPlace& place, const CityDay& day, int code) {
    const Site site = siteOf(place.city);
    std::vector<std::string> lines{
        _("{0} at {1}, {2}", session.prayerName(code), clockText(session, timeOfPrayer(day, code)), place.city.name)};
    const auto add = [&](std::string line) {
        if (!line.empty()) lines.push_back(std::move(line));
    };
    add(methodLine(site));
    if (isByEngine(day)) add(ruleText(site));
    add(missingPrayerNote(session, day, code));
    if (const auto latitude = computedLatitude(day)) add(latitudeNote(session, *latitude, *latitude));
    if (fallbacksOf(day.times, code).earlierDay) add(earlierDayNote(code));
    if (const auto note = sourceNote(day, code)) add(*note);
    for (const std::string& remark : methodRemarks(day)) add(remark);
    return lines;
}

int describe(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const char *place = nullptr, *date = nullptr, *prayer = nullptr;
        check(sd_bus_message_read(call, "sss", &place, &date, &prayer));
        Session& session = contextOf(context).session();
        const int code = prayerOfKey(prayer);
        const ChosenPlace chosen = placeOf(*contextOf(context).home, place);
        const Site site = siteOf(chosen.city);
        const CityDay computed = computeCityDay(site, dateOf(session, site, date));
        const Message reply = replyTo(call);
        append(reply.get(), 'a', "s", [&] {
            for (const std::string& line : description(session, chosen, computed, code)) {
                check(sd_bus_message_append(reply.get(), "s", line.c_str()));
            }
        });
        send(reply);
    });
}

const sd_bus_vtable vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_NAMES("Day", "ss", SD_BUS_PARAM(place) SD_BUS_PARAM(date), "a(ssxsu)a{sv}",
                             SD_BUS_PARAM(prayers) SD_BUS_PARAM(facts), day, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("Range", "ssu", SD_BUS_PARAM(place) SD_BUS_PARAM(first) SD_BUS_PARAM(days), "asa(sax)",
                             SD_BUS_PARAM(keys) SD_BUS_PARAM(instants), range, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("Describe", "sss", SD_BUS_PARAM(place) SD_BUS_PARAM(date) SD_BUS_PARAM(prayer), "as",
                             SD_BUS_PARAM(sentences), describe, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

}  // namespace

void addTimes(Context& context) {
    check(sd_bus_add_object_vtable(context.bus, nullptr, objectPath, "org.quode.Quode1.Times", vtable, &context));
}

}  // namespace quode::service
