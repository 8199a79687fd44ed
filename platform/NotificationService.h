// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The desktop's notifications, as far as ringing needs them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quode {

/// A button of a notification.
struct NotificationAction {
    std::string key;    ///< what comes back when it is chosen
    std::string label;  ///< what the user reads

    friend bool operator==(const NotificationAction&, const NotificationAction&) = default;
};

/// Something that the user is to notice at once, and that stays until it is dealt with.
struct Notification {
    std::string title;
    std::string body;  ///< plain text
    std::vector<NotificationAction> actions;

    friend bool operator==(const Notification&, const Notification&) = default;
};

/// Which notification. Every run of a notification service counts from the beginning again.
struct NotificationId {
    std::string run;  ///< names one run of the notification service; empty when it is not known
    std::uint32_t number = 0;

    friend bool operator==(const NotificationId&, const NotificationId&) = default;
};

class NotificationService {
  public:
    using Answer = std::function<void(const std::optional<NotificationId>& shown)>;

    virtual ~NotificationService() = default;

    /// The run of the service that is there now; empty without one.
    virtual std::string run() = 0;

    /// Asks for a notification, and returns when the request is on its way.
    /// answered   called once, later or within the call: with nothing when there is no service, when it refuses, and
    ///            when it ends without an answer. A slow service has a quarter of an hour.
    virtual void show(const Notification& notification, Answer answered) = 0;

    /// Takes a notification away; nothing happens when it is gone already, or belongs to another run.
    virtual void close(const NotificationId& notification) = 0;

    /// Called when the user chose an action; also for notifications of an earlier run of this program.
    std::function<void(const NotificationId& notification, const std::string& key)> onAction;

    /// Called when a notification is gone, whatever the reason.
    std::function<void(const NotificationId& notification)> onClosed;

    /// Called when another run of the service begins, and when there is none any longer.
    std::function<void()> onRun;
};

}  // namespace quode
