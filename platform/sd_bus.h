// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Owners of what sd-bus hands out, and the name of the desktop's notification service.
#pragma once

#include <systemd/sd-bus.h>

#include <memory>

namespace quode {

struct CloseBus {
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
struct UnrefMessage {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
struct UnrefSlot {
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
};
using Bus = std::unique_ptr<sd_bus, CloseBus>;
using Message = std::unique_ptr<sd_bus_message, UnrefMessage>;
using Slot = std::unique_ptr<sd_bus_slot, UnrefSlot>;

inline constexpr const char* notificationService = "org.freedesktop.Notifications";
inline constexpr const char* notificationObject = "/org/freedesktop/Notifications";

}  // namespace quode
