// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/sdbus_notifications.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/sd_bus.h"
#include "texts/markup.h"

namespace quode {
namespace {

constexpr const char* busName = "org.freedesktop.DBus";
constexpr const char* busObject = "/org/freedesktop/DBus";
constexpr const char* ownerMatch =
    "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',interface='org.freedesktop.DBus',"
    "member='NameOwnerChanged',arg0='org.freedesktop.Notifications'";
constexpr std::uint64_t busPatienceUs = 2'000'000;       // for the bus itself
constexpr std::uint64_t answerPatienceUs = 900'000'000;  // for a notification; the program does not wait for it
constexpr unsigned char normal = 1, critical = 2;        // urgencies, which have to be bytes
constexpr int untilClosed = 0;
constexpr std::size_t mostEarly = 64;

int appendActions(sd_bus_message* call, const std::vector<NotificationAction>& actions) {
    int result = sd_bus_message_open_container(call, 'a', "s");
    for (const NotificationAction& action : actions) {
        if (result >= 0) result = sd_bus_message_append(call, "ss", action.key.c_str(), action.label.c_str());
    }
    return result < 0 ? result : sd_bus_message_close_container(call);
}

class SdBusNotifications : public NotificationService {
  public:
    explicit SdBusNotifications(sd_event* loop) : loop_(sd_event_ref(loop)) { connect(); }

    ~SdBusNotifications() override {
        pending_.clear();
        bus_.reset();
        sd_event_unref(loop_);
    }
    SdBusNotifications(const SdBusNotifications&) = delete;
    SdBusNotifications& operator=(const SdBusNotifications&) = delete;

    std::string run() override { return connect() && !owner_.empty() ? runOf(owner_.c_str()) : ""; }

    void show(const Notification& notification, Answer answered) override {
        Message call = connect() ? newCall("Notify") : nullptr;
        if (!call || append(call.get(), notification) < 0) return answered(std::nullopt);
        auto request = std::make_unique<Request>(Request{this, std::move(answered), nullptr});
        sd_bus_slot* slot = nullptr;
        if (sd_bus_call_async(bus_.get(), &slot, call.get(), &SdBusNotifications::answerArrived, request.get(),
                              answerPatienceUs) < 0) {
            return request->answered(std::nullopt);
        }
        request->slot.reset(slot);
        pending_.push_back(std::move(request));
        sd_bus_flush(bus_.get());
    }

    void close(const NotificationId& notification) override {
        if (notification.number == 0 || notification.run != run()) return;
        const Message call = newCall("CloseNotification");
        if (!call || sd_bus_message_append(call.get(), "u", notification.number) < 0) return;
        sd_bus_message_set_expect_reply(call.get(), 0);
        sd_bus_send(bus_.get(), call.get(), nullptr);
        sd_bus_flush(bus_.get());
    }

  private:
    /// A request for a notification without an answer yet.
    struct Request {
        SdBusNotifications* self;
        Answer answered;
        Slot slot;
    };

    /// What the user has done with a notification.
    struct UserAnswer {
        NotificationId notification;
        std::optional<std::string> action;  ///< nothing: he, or the service, has closed it
    };

    // True when there is a connection; makes a new one if necessary.
    bool connect() {
        if (bus_ && sd_bus_is_open(bus_.get()) > 0) return true;
        loseConnection();
        sd_bus* opened = nullptr;
        if (sd_bus_open_user(&opened) < 0) return false;
        bus_.reset(opened);
        sd_bus_set_exit_on_disconnect(opened, 0);
        sd_bus_match_signal(opened, nullptr, notificationService, notificationObject, notificationService,
                            "ActionInvoked", &SdBusNotifications::actionInvoked, this);
        sd_bus_match_signal(opened, nullptr, notificationService, notificationObject, notificationService,
                            "NotificationClosed", &SdBusNotifications::notificationClosed, this);
        sd_bus_add_match(opened, nullptr, ownerMatch, &SdBusNotifications::ownerChanged, this);
        askForOwner();
        sd_bus_attach_event(opened, loop_, SD_EVENT_PRIORITY_NORMAL);
        return true;
    }

    void loseConnection() {
        bus_.reset();
        owner_.clear();
        early_.clear();
        for (const auto& request : std::exchange(pending_, {})) request->answered(std::nullopt);
    }

    void askForOwner() {
        sd_bus_message* made = nullptr;
        if (sd_bus_message_new_method_call(bus_.get(), &made, busName, busObject, busName, "GetNameOwner") < 0) return;
        const Message call(made);
        sd_bus_message* reply = nullptr;
        const bool succeeded = sd_bus_message_append(made, "s", notificationService) >= 0 &&
                               sd_bus_call(bus_.get(), made, busPatienceUs, nullptr, &reply) >= 0;
        const Message answer(reply);
        const char* owner = nullptr;
        if (succeeded && sd_bus_message_read(reply, "s", &owner) >= 0) owner_ = owner;
    }

    // A bus never reuses a unique name.
    std::string runOf(const char* owner) const {
        sd_id128_t id{};
        if (!owner || sd_bus_get_bus_id(bus_.get(), &id) < 0) return "";
        std::array<char, SD_ID128_STRING_MAX> text{};
        return std::string(owner) + "@" + sd_id128_to_string(id, text.data());
    }

    Message newCall(const char* method) {
        sd_bus_message* call = nullptr;
        if (sd_bus_message_new_method_call(bus_.get(), &call, notificationService, notificationObject,
                                           notificationService, method) < 0)
            return nullptr;
        return Message(call);
    }

    static int append(sd_bus_message* call, const Notification& notification) {
        int result = sd_bus_message_append(call, "susss", "Quode", 0U, "quode", notification.title.c_str(),
                                           escapedMarkup(notification.body).c_str());
        if (result >= 0) result = appendActions(call, notification.actions);
        if (result >= 0) {
            result = sd_bus_message_append(call, "a{sv}", 3, "urgency", "y", notification.isUrgent ? critical : normal,
                                           "category", "s", "x-quode.alarm", "suppress-sound", "b", 1);
        }
        return result < 0 ? result : sd_bus_message_append(call, "i", untilClosed);
    }

    static int answerArrived(sd_bus_message* reply, void* userData, sd_bus_error*) {
        auto* const self = static_cast<Request*>(userData)->self;
        const auto place = std::ranges::find(self->pending_, userData,
                                             [](const auto& each) { return static_cast<void*>(each.get()); });
        if (place == self->pending_.end()) return 0;
        const std::unique_ptr<Request> request = std::move(*place);
        self->pending_.erase(place);
        std::uint32_t number = 0;
        const bool isShown =
            !sd_bus_message_is_method_error(reply, nullptr) && sd_bus_message_read(reply, "u", &number) >= 0;
        request->answered(isShown ? std::optional(self->idOf(reply, number)) : std::nullopt);
        if (isShown) self->repeatEarly(self->idOf(reply, number));
        if (self->pending_.empty()) self->early_.clear();
        return 0;
    }

    void receive(const UserAnswer& answer) {
        if (!pending_.empty() && early_.size() < mostEarly) early_.push_back(answer);
        tell(answer);
    }

    // The number of the notification was not known before.
    void repeatEarly(const NotificationId& shown) {
        const std::vector<UserAnswer> all = early_;
        for (const UserAnswer& answer : all) {
            if (answer.notification == shown) tell(answer);
        }
    }

    void tell(const UserAnswer& answer) const {
        if (answer.action && onAction) onAction(answer.notification, *answer.action);
        if (!answer.action && onClosed) onClosed(answer.notification);
    }

    NotificationId idOf(sd_bus_message* message, std::uint32_t number) const {
        return {runOf(sd_bus_message_get_sender(message)), number};
    }

    static int actionInvoked(sd_bus_message* signal, void* self, sd_bus_error*) {
        std::uint32_t number = 0;
        const char* key = nullptr;
        auto* const notifications = static_cast<SdBusNotifications*>(self);
        if (sd_bus_message_read(signal, "us", &number, &key) >= 0) {
            notifications->receive({notifications->idOf(signal, number), key});
        }
        return 0;
    }

    static int notificationClosed(sd_bus_message* signal, void* self, sd_bus_error*) {
        std::uint32_t number = 0;
        auto* const notifications = static_cast<SdBusNotifications*>(self);
        if (sd_bus_message_read(signal, "u", &number) >= 0) {
            notifications->receive({notifications->idOf(signal, number), std::nullopt});
        }
        return 0;
    }

    static int ownerChanged(sd_bus_message* signal, void* userData, sd_bus_error*) {
        const char *name = nullptr, *before = nullptr, *after = nullptr;
        auto* const self = static_cast<SdBusNotifications*>(userData);
        if (sd_bus_message_read(signal, "sss", &name, &before, &after) < 0) return 0;
        if (std::exchange(self->owner_, after) != after && self->onRun) self->onRun();
        return 0;
    }

    sd_event* loop_;
    Bus bus_;
    std::string owner_;  // the unique name of the service; empty without one
    std::vector<std::unique_ptr<Request>> pending_;
    std::vector<UserAnswer> early_;  // since there are pending requests: a slow service may show first and answer later
};

}  // namespace

std::unique_ptr<NotificationService> sdBusNotifications(sd_event* loop) {
    return std::make_unique<SdBusNotifications>(loop);
}

}  // namespace quode
