// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/notification_check.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/sd_bus.h"

namespace quode {
namespace {

constexpr std::uint64_t patienceUs = 2'000'000;

Bus openBus() {
    sd_bus* opened = nullptr;
    if (sd_bus_open_user(&opened) < 0) return nullptr;
    Bus bus(opened);
    sd_bus_set_method_call_timeout(opened, patienceUs);
    // The bus itself answers, which shows that it exists behind the address.
    const char* id = nullptr;
    return sd_bus_get_unique_name(opened, &id) < 0 ? nullptr : std::move(bus);
}

bool holdsText(sd_bus_message* names, std::string_view wanted) {
    if (sd_bus_message_enter_container(names, 'a', "s") < 0) return false;
    const char* name = nullptr;
    while (sd_bus_message_read(names, "s", &name) > 0) {
        if (name == wanted) return true;
    }
    return false;
}

// The answer to a call of the bus; null after an error.
Message askBus(sd_bus* bus, const char* method, const char* name) {
    sd_bus_message* reply = nullptr;
    const int result = sd_bus_call_method(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                          method, nullptr, &reply, name ? "s" : "", name);
    Message answer(reply);
    return result < 0 ? nullptr : std::move(answer);
}

// The answer to a call of the service, without starting it; null after an error.
Message askService(sd_bus* bus, const char* method) {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(bus, &made, notificationService, notificationObject, notificationService,
                                       method) < 0)
        return nullptr;
    const Message call(made);
    sd_bus_message_set_auto_start(call.get(), 0);
    sd_bus_message* reply = nullptr;
    const int result = sd_bus_call(bus, call.get(), patienceUs, nullptr, &reply);
    Message answer(reply);
    return result < 0 ? nullptr : std::move(answer);
}

NotificationCheck describeRunning(sd_bus* bus) {
    NotificationCheck check;
    const Message capabilities = askService(bus, "GetCapabilities");
    check.state = capabilities ? NotificationCheck::State::running : NotificationCheck::State::unresponsive;
    check.hasActions = capabilities && holdsText(capabilities.get(), "actions");
    const Message information = askService(bus, "GetServerInformation");
    const char *name = nullptr, *vendor = nullptr, *version = nullptr;
    if (information && sd_bus_message_read(information.get(), "sss", &name, &vendor, &version) >= 0) {
        check.name = std::string(name) + " " + version;
    }
    return check;
}

}  // namespace

NotificationCheck checkNotifications() {
    using State = NotificationCheck::State;
    const Bus bus = openBus();
    if (!bus) return {State::noBus, {}, false};
    if (askBus(bus.get(), "GetNameOwner", notificationService)) return describeRunning(bus.get());
    const Message startable = askBus(bus.get(), "ListActivatableNames", nullptr);
    const bool isStartable = startable && holdsText(startable.get(), notificationService);
    return {isStartable ? State::startable : State::none, {}, false};
}

}  // namespace quode
