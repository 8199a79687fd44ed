// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The interface org.quode.Quode1.Places: the search, and the user's cities.
#include <algorithm>

#include "app/city_changes.h"
#include "app/user_data.h"
#include "service/bus.h"
#include "texts/translation.h"

namespace quode::service {
namespace {

using namespace app;

constexpr const char* interfaceName = "org.quode.Quode1.Places";
constexpr std::uint32_t mostHits = 100;

int search(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const char* text = nullptr;
        std::uint32_t limit = 0;
        check(sd_bus_message_read(call, "su", &text, &limit));
        if (limit < 1 || limit > mostHits) throw BusError(invalidError, _("Ask for 1 to {} places.", mostHits));
        Session& session = contextOf(context).session();
        const Message reply = replyTo(call);
        append(reply.get(), 'a', "(issddsx)", [&] {
            for (const CityHit& hit : session.cities().search(text, static_cast<int>(limit))) {
                const CityRecord& city = hit.city;
                check(sd_bus_message_append(reply.get(), "(issddsx)", city.id, city.name.c_str(),
                                            regionAndCountry(session, city).c_str(), city.latitude, city.longitude,
                                            city.zone.c_str(), std::int64_t(city.population)));
            }
        });
        send(reply);
    });
}

int list(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        Session& session = contextOf(context).session();
        const std::optional<UserDatabase> database = userDatabaseToRead(session);
        const Message reply = replyTo(call);
        append(reply.get(), 'a', "(issb)", [&] {
            for (const UserCity& each : database ? database->cities() : std::vector<UserCity>()) {
                const std::string name = each.city ? each.city->name : "";
                const std::string details = each.city ? regionAndCountry(session, *each.city) : "";
                check(sd_bus_message_append(reply.get(), "(issb)", each.id, name.c_str(), details.c_str(),
                                            int(each.isHome)));
            }
        });
        send(reply);
    });
}

int cityToAdd(Session& session, const char* text) {
    const ChosenPlace place = choosePlace(session, text);
    if (!place.nearest) return place.city.id;
    throw BusError(invalidError, _("A place that is given by coordinates needs a name. Add it with: quode city add "
                                   "LAT,LON --name NAME"));
}

int add(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const char* text = nullptr;
        check(sd_bus_message_read(call, "s", &text));
        Session& session = contextOf(context).session();
        const int id = cityToAdd(session, text);
        changeCities(contextOf(context).home->freshSession(), [&](UserDatabase& database) { database.addCity(id); });
        contextOf(context).home->finishChange();
        check(sd_bus_reply_method_return(call, "i", id));
    });
}

int setHome(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const char* text = nullptr;
        check(sd_bus_message_read(call, "s", &text));
        Session& session = contextOf(context).session();
        const int id = cityToAdd(session, text);
        changeCities(contextOf(context).home->freshSession(), [&](UserDatabase& database) {
            const auto cities = database.cities();
            if (std::ranges::find(cities, id, &UserCity::id) == cities.end()) database.addCity(id);
            database.chooseHome(id);
        });
        contextOf(context).home->finishChange();
        check(sd_bus_reply_method_return(call, ""));
    });
}

int removeCity(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        int id = 0;
        check(sd_bus_message_read(call, "i", &id));
        changeCities(contextOf(context).home->freshSession(), [&](UserDatabase& database) {
            const auto cities = database.cities();
            const bool isThere = std::ranges::find(cities, id, &UserCity::id) != cities.end();
            if (!isThere) throw BusError(notFoundError, _("No city of yours has the id {}.", id));
            database.removeCity(id);
        });
        contextOf(context).home->finishChange();
        check(sd_bus_reply_method_return(call, ""));
    });
}

const sd_bus_vtable vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_NAMES("Search", "su", SD_BUS_PARAM(text) SD_BUS_PARAM(limit), "a(issddsx)", SD_BUS_PARAM(places),
                             search, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("List", "", , "a(issb)", SD_BUS_PARAM(cities), list, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("Add", "s", SD_BUS_PARAM(place), "i", SD_BUS_PARAM(id), add, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("SetHome", "s", SD_BUS_PARAM(place), "", , setHome, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("Remove", "i", SD_BUS_PARAM(id), "", , removeCity, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL("Changed", "", 0),
    SD_BUS_VTABLE_END,
};

}  // namespace

void addPlaces(Context& context) {
    check(sd_bus_add_object_vtable(context.bus, nullptr, objectPath, interfaceName, vtable, &context));
    context.home->onChoices = [bus = context.bus] {
        sd_bus_emit_signal(bus, objectPath, interfaceName, "Changed", "");
    };
}

}  // namespace quode::service
