// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The desktop's notifications, with what ringing needs.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quode {

/// A button of a notification.
struct NotificationAction {
    std::string key;    ///< returned when the user chooses it
    std::string label;  ///< shown to the user

    friend bool operator==(const NotificationAction&, const NotificationAction&) = default;
};

/// A notification that stays until the user closes it or chooses an action.
struct Notification {
    std::string title;
    std::string body;  ///< plain text
    std::vector<NotificationAction> actions;
    bool isUrgent = true;  ///< shown although the user does not want to be disturbed

    friend bool operator==(const Notification&, const Notification&) = default;
};

/// The identity of a notification. Every run of a notification service numbers from the start again.
struct NotificationId {
    std::string run;  ///< identifies one run of the notification service; empty when unknown
    std::uint32_t number = 0;

    friend bool operator==(const NotificationId&, const NotificationId&) = default;
};

/// The desktop's notification service.
class NotificationService {
  public:
    using Answer = std::function<void(const std::optional<NotificationId>& shown)>;

    virtual ~NotificationService() = default;

    /// The current run of the service; empty without a service.
    virtual std::string run() = 0;

    /// Requests a notification and returns once the request is sent.
    /// @param answered  called once, later or within the call: with nothing when there is no service, when it refuses, and
    ///                  when it ends without an answer. A slow service has 15 minutes.
    virtual void show(const Notification& notification, Answer answered) = 0;

    /// Closes a notification; does nothing when it is closed already, or belongs to another run.
    virtual void close(const NotificationId& notification) = 0;

    /// Called when the user chose an action; also for notifications of an earlier run of this program.
    std::function<void(const NotificationId& notification, const std::string& key)> onAction;

    /// Called when a notification is closed for any reason.
    std::function<void(const NotificationId& notification)> onClosed;

    /// Called when another run of the service begins, and when the service ends.
    std::function<void()> onRun;
};

}  // namespace quode
