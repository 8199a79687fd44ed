// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "alarmd/Choices.h"
#include "alarmd/EventRenewal.h"
#include "alarmd/RingDesk.h"
#include "alarmd/RingKeeper.h"
#include "data/CityDatabase.h"
#include "platform/Clock.h"
#include "platform/EventStore.h"
#include "platform/Uptime.h"

namespace quode {

/// What an alarm keeper works with. All must outlive it; the calendar is also that of the shared services.
struct AlarmSurroundings {
    std::filesystem::path dataFolder;
    const CityDatabase* cities = nullptr;
    const Clock* clock = nullptr;
    std::function<Uptime()> uptime;
    EventStore* calendar = nullptr;
    std::function<void(CalendarLayout)> useLayout;  ///< switches the calendar to a layout
    RingDesk* desk = nullptr;
    std::function<void(std::string_view message)> tell;                ///< receives what belongs into the log
    std::chrono::milliseconds lockPatience = std::chrono::seconds(3);  ///< see `UserDatabase`
    /// Who rings, see "companion/ringer.h".
    std::function<Ringer(const UserSettings&)> ringer = [](const UserSettings& settings) { return settings.ringer; };
};

/// Makes every alarm ring once, and keeps the event of its next ring in the calendar.
///
/// It has no clock of its own: its owner wakes it when something may have changed, and at the moment it returned
/// last. It may be woken at any time; what is done already is not done again, also not after a restart. A database that
/// cannot be read silences nothing: it rings what it knew last. One that was damaged gets back what was chosen.
class AlarmKeeper {
  public:
    explicit AlarmKeeper(AlarmSurroundings surroundings);
    AlarmKeeper(const AlarmKeeper&) = delete;
    AlarmKeeper& operator=(const AlarmKeeper&) = delete;

    /// Rings what is due, renews the events, and notes what the user has chosen. Failures are reported, never thrown.
    /// @return when to be woken next: the next ring, or the next midnight; sooner to try again what failed
    std::chrono::sys_seconds wake();

    /// Whether the user has chosen something else than at the last `wake`: cities, alarms, settings.
    bool choicesChanged();

    /// The user has seen the ring that is shown as this notification.
    void stop(const NotificationId& notification);

    /// The user wants to be reminded again in a few minutes. Call `wake` afterwards.
    void snooze(const NotificationId& notification);

    /// The user has seen it, and wants no ring for the rest of the day at the home city.
    void mute(const NotificationId& notification);

    /// A notification was closed, for whatever reason.
    void closed(const NotificationId& notification);

    /// Notes how far all is decided; to be called before the process ends.
    void rest();

    /// Called when the desktop answers that it does not show a ring, perhaps within `wake`. Call `wake` soon.
    std::function<void()> onUnseen;

  private:
    Present present() const;
    UserDatabase openDatabase();
    void takeChoices(UserDatabase& database);
    bool giveBackChoices(UserDatabase& database);
    int damagedCopies() const;
    Choices choicesIn(UserDatabase& database) const;
    std::optional<Choices> choicesWithoutDatabase();
    std::optional<Choices> notedChoices() const;
    void warnOfOutage(bool isRead, const Present& present);
    bool renew(UserDatabase& database, std::chrono::sys_seconds& next, std::chrono::sys_seconds now);
    bool attempt(const std::function<void()>& action);
    void tellOnce(const std::string& message);

    AlarmSurroundings with_;
    EventRenewal events_;
    RingKeeper rings_;
    std::optional<Choices> choices_;  // as they were read last
    int damagedCopies_ = 0;           // how many there were at that time
    std::optional<Uptime> outage_;    // since when the database cannot be read
    bool warnedOfOutage_ = false;
    bool areChoicesNoted_ = false;  ///< without the methods of the cities
    std::string lastFailure_;
};

}  // namespace quode
