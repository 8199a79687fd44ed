// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/sdbus_notifications.h"

#include <systemd/sd-bus.h>

namespace quode {
namespace {

constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* object = "/org/freedesktop/Notifications";
constexpr std::uint64_t patienceUs = 5'000'000;
constexpr unsigned char critical = 2;  // the urgency, which has to be a byte
constexpr int untilClosed = 0;

struct CloseBus {
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
struct UnrefMessage {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Bus = std::unique_ptr<sd_bus, CloseBus>;
using Message = std::unique_ptr<sd_bus_message, UnrefMessage>;

int appendActions(sd_bus_message* call, const std::vector<NotificationAction>& actions) {
    int result = sd_bus_message_open_container(call, 'a', "s");
    for (const NotificationAction& action : actions) {
        if (result >= 0) result = sd_bus_message_append(call, "ss", action.key.c_str(), action.label.c_str());
    }
    return result < 0 ? result : sd_bus_message_close_container(call);
}

// The services show the body as markup.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            default:
                result += c;
        }
    }
    return result;
}

class SdBusNotifications : public NotificationService {
  public:
    explicit SdBusNotifications(sd_event* loop) : loop_(sd_event_ref(loop)) { connect(); }

    ~SdBusNotifications() override {
        bus_.reset();
        sd_event_unref(loop_);
    }
    SdBusNotifications(const SdBusNotifications&) = delete;
    SdBusNotifications& operator=(const SdBusNotifications&) = delete;

    std::optional<std::uint32_t> show(const Notification& notification) override {
        if (!connect()) return std::nullopt;
        const Message call = newCall("Notify");
        if (!call || append(call.get(), notification) < 0) return std::nullopt;
        sd_bus_message* reply = nullptr;
        const int result = sd_bus_call(bus_.get(), call.get(), patienceUs, nullptr, &reply);
        const Message answer(reply);
        std::uint32_t number = 0;
        if (result < 0 || sd_bus_message_read(answer.get(), "u", &number) < 0) return std::nullopt;
        return number;
    }

    void close(std::uint32_t number) override {
        if (!connect()) return;
        const Message call = newCall("CloseNotification");
        if (!call || sd_bus_message_append(call.get(), "u", number) < 0) return;
        sd_bus_message* reply = nullptr;
        sd_bus_call(bus_.get(), call.get(), patienceUs, nullptr, &reply);
        sd_bus_message_unref(reply);
    }

  private:
    // True when there is a connection, a new one if need be.
    bool connect() {
        if (bus_ && sd_bus_is_open(bus_.get()) > 0) return true;
        bus_.reset();
        sd_bus* opened = nullptr;
        if (sd_bus_open_user(&opened) < 0) return false;
        bus_.reset(opened);
        sd_bus_set_exit_on_disconnect(opened, 0);
        sd_bus_match_signal(opened, nullptr, service, object, service, "ActionInvoked",
                            &SdBusNotifications::actionInvoked, this);
        sd_bus_match_signal(opened, nullptr, service, object, service, "NotificationClosed",
                            &SdBusNotifications::notificationClosed, this);
        sd_bus_attach_event(opened, loop_, SD_EVENT_PRIORITY_NORMAL);
        return true;
    }

    Message newCall(const char* method) {
        sd_bus_message* call = nullptr;
        if (sd_bus_message_new_method_call(bus_.get(), &call, service, object, service, method) < 0) return nullptr;
        return Message(call);
    }

    static int append(sd_bus_message* call, const Notification& notification) {
        int result = sd_bus_message_append(call, "susss", "Quode", 0U, "quode", notification.title.c_str(),
                                           escaped(notification.body).c_str());
        if (result >= 0) result = appendActions(call, notification.actions);
        if (result >= 0) {
            result = sd_bus_message_append(call, "a{sv}", 3, "urgency", "y", critical, "category", "s", "x-quode.alarm",
                                           "suppress-sound", "b", 1);
        }
        return result < 0 ? result : sd_bus_message_append(call, "i", untilClosed);
    }

    static int actionInvoked(sd_bus_message* signal, void* self, sd_bus_error*) {
        std::uint32_t number = 0;
        const char* key = nullptr;
        const auto* const notifications = static_cast<SdBusNotifications*>(self);
        if (sd_bus_message_read(signal, "us", &number, &key) >= 0 && notifications->onAction) {
            notifications->onAction(number, key);
        }
        return 0;
    }

    static int notificationClosed(sd_bus_message* signal, void* self, sd_bus_error*) {
        std::uint32_t number = 0;
        const auto* const notifications = static_cast<SdBusNotifications*>(self);
        if (sd_bus_message_read(signal, "u", &number) >= 0 && notifications->onClosed) notifications->onClosed(number);
        return 0;
    }

    sd_event* loop_;
    Bus bus_;
};

}  // namespace

std::unique_ptr<NotificationService> sdBusNotifications(sd_event* loop) {
    return std::make_unique<SdBusNotifications>(loop);
}

}  // namespace quode
