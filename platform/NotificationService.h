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

class NotificationService {
  public:
    virtual ~NotificationService() = default;

    /// Shows a notification. Returned: its number; nothing when there is no service, or it refuses.
    virtual std::optional<std::uint32_t> show(const Notification& notification) = 0;

    /// Takes a notification away; nothing happens when it is gone already.
    virtual void close(std::uint32_t number) = 0;

    /// Called when the user chose an action; also for notifications of an earlier run of this program.
    std::function<void(std::uint32_t number, const std::string& key)> onAction;

    /// Called when a notification is gone, whatever the reason.
    std::function<void(std::uint32_t number)> onClosed;
};

}  // namespace quode
