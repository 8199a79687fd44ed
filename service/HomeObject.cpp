// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The interface org.quode.Quode1.Home: properties, and no call.
#include <string_view>

#include "common/labels.h"
#include "companion/AlarmHabits.h"
#include "service/bus.h"
#include "texts/translation.h"

namespace quode::service {
namespace {

constexpr const char* interfaceName = "org.quode.Quode1.Home";

const Home& homeOf(void* context) {
    return static_cast<Context*>(context)->home->home();
}

void appendPlace(sd_bus_message* reply, const Home& home) {
    const CityRecord& city = home.place.city;
    check(sd_bus_message_append(reply, "(issdds)", city.id, city.name.c_str(), home.placeDetails.c_str(), city.latitude,
                                city.longitude, city.zone.c_str()));
}

void appendPrayer(sd_bus_message* reply, const PrayerFact& prayer) {
    check(sd_bus_message_append(reply, "(ssxsu)", prayer.key.c_str(), prayer.name.c_str(), prayer.instant,
                                prayer.text.c_str(), prayer.flags));
}

void appendText(sd_bus_message* reply, const std::string& text) {
    check(sd_bus_message_append(reply, "s", text.c_str()));
}

void appendProperty(sd_bus_message* reply, std::string_view name, const Home& home) {
    if (name == "Place") return appendPlace(reply, home);
    if (name == "Date") return appendText(reply, home.date);
    if (name == "HijriDate") {
        return check(sd_bus_message_append(reply, "(ss)", home.hijriDate.c_str(), home.hijriText.c_str()));
    }
    if (name == "Prayers") {
        return append(reply, 'a', "(ssxsu)", [&] {
            for (const PrayerFact& each : home.prayers) appendPrayer(reply, each);
        });
    }
    if (name == "Current") return appendPrayer(reply, home.current);
    if (name == "Next") return appendPrayer(reply, home.next);
    if (name == "ValidUntil") return check(sd_bus_message_append(reply, "x", home.validUntil));
    if (name == "Method") return appendText(reply, home.method);
    if (name == "ZoneEdition") return appendText(reply, home.zoneEdition);
    if (name == "RingAnswers") {
        const std::string snooze = _("Snooze {}", durationLabel(snoozeTime));
        return check(sd_bus_message_append(reply, "(ss)", _c("alarm", "Stop"), snooze.c_str()));
    }
    append(reply, 'a', "s", [&] {  // Notes
        for (const std::string& note : home.notes) appendText(reply, note);
    });
}

int getProperty(sd_bus*, const char*, const char*, const char* property, sd_bus_message* reply, void* context,
                sd_bus_error* error) {
    return answering(error, [&] {
        static_cast<Context*>(context)->home->requireHome();
        appendProperty(reply, property, homeOf(context));
    });
}

constexpr auto changing = SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE;

const sd_bus_vtable vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("Place", "(issdds)", getProperty, 0, changing),
    SD_BUS_PROPERTY("Date", "s", getProperty, 0, changing),
    SD_BUS_PROPERTY("HijriDate", "(ss)", getProperty, 0, changing),
    SD_BUS_PROPERTY("Prayers", "a(ssxsu)", getProperty, 0, changing),
    SD_BUS_PROPERTY("Current", "(ssxsu)", getProperty, 0, changing),
    SD_BUS_PROPERTY("Next", "(ssxsu)", getProperty, 0, changing),
    SD_BUS_PROPERTY("ValidUntil", "x", getProperty, 0, changing),
    SD_BUS_PROPERTY("Method", "s", getProperty, 0, changing),
    SD_BUS_PROPERTY("ZoneEdition", "s", getProperty, 0, changing),
    SD_BUS_PROPERTY("Notes", "as", getProperty, 0, changing),
    SD_BUS_PROPERTY("RingAnswers", "(ss)", getProperty, 0, changing),
    SD_BUS_VTABLE_END,
};

}  // namespace

void addHome(Context& context) {
    check(sd_bus_add_object_vtable(context.bus, nullptr, objectPath, interfaceName, vtable, &context));
    context.home->onChange = [bus = context.bus] {
        sd_bus_emit_properties_changed(bus, objectPath, interfaceName, "Place", "Date", "HijriDate", "Prayers",
                                       "Current", "Next", "ValidUntil", "Method", "ZoneEdition", "Notes", "RingAnswers",
                                       nullptr);
    };
}

}  // namespace quode::service
