// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "alarmd/RingDesk.h"
#include "alarmd/ShownMark.h"
#include "companion/RingRecords.h"
#include "companion/UserDatabase.h"
#include "companion/UserSettings.h"
#include "data/CityDatabase.h"
#include "platform/Clock.h"
#include "platform/EventStore.h"

namespace quode {

/// What an alarm keeper works with. All must outlive it; the calendar is also that of the shared services.
struct AlarmSurroundings {
    std::filesystem::path dataFolder;
    const CityDatabase* cities = nullptr;
    const Clock* clock = nullptr;
    EventStore* calendar = nullptr;
    std::function<StoreStatus(CalendarLayout)> changeLayout;  ///< brings the calendar into a layout
    RingDesk* desk = nullptr;
    std::function<void(std::string_view message)> tell;  ///< receives what the user or the log should know
    std::chrono::milliseconds lockPatience = std::chrono::seconds(3);  ///< see `UserDatabase`
};

/// Sees to it that every alarm rings once, and that the calendar holds the event of its next ring.
///
/// It has no clock of its own: somebody wakes it when something may have happened, and at the moment that it named
/// last. It may be woken at any time; what is done already is not done again, also not after a restart, for each ring
/// is noted in the user database before and after it. Should the process die in the instant between, the ring is
/// repeated: twice is better than never. A note that cannot be written, on a full disk for example, is kept in memory
/// and written later.
class AlarmKeeper {
  public:
    explicit AlarmKeeper(AlarmSurroundings surroundings) : with_(std::move(surroundings)), mark_(with_.dataFolder) {}

    /// Rings what is due, renews the events, and notes what the user has chosen.
    /// Returned: when to be woken next: the next ring, or the next midnight. Sooner when something failed that is to be
    /// tried again; failures are told, never thrown.
    std::chrono::sys_seconds wake();

    /// Whether the user has chosen something else than at the last `wake`: cities, alarms, settings.
    bool choicesChanged();

    /// The user has seen the ring that is shown under this number.
    void stop(std::uint32_t number);

    /// The user wants to be reminded again in a few minutes. `wake` is to be called afterwards.
    void snooze(std::uint32_t number);

    /// Notes how far all is decided; to be called before the process ends.
    void rest();

  private:
    using RingKey = std::pair<int, std::chrono::sys_seconds>;

    UserDatabase openDatabase();
    void decideDue(UserDatabase& database, std::chrono::sys_seconds now);
    bool wasChosen(const AlarmOccurrence& alarm) const;
    void decide(UserDatabase& database, const UserCity& home, RingRecord record, std::chrono::sys_seconds now);
    void takeOverShown(UserDatabase& database);
    void ring(UserDatabase& database, const UserCity& home, RingRecord record, std::chrono::minutes late);
    void renewEvents(UserDatabase& database, const UserSettings& settings, std::chrono::sys_seconds now);
    void renewEvent(UserDatabase& database, const UserAlarm& alarm, const std::vector<AlarmOccurrence>& next);
    bool mayStillRing(const UserAlarm& alarm, std::chrono::sys_seconds now) const;
    std::chrono::sys_seconds nextWake(UserDatabase& database, std::chrono::sys_seconds now);
    std::chrono::sys_seconds nextMidnight(std::chrono::sys_seconds now) const;

    bool isKnown(UserDatabase& database, const AlarmOccurrence& alarm) const;
    std::vector<RingRecord> unfinished(UserDatabase& database) const;
    void keep(UserDatabase& database, const RingRecord& record);
    void finish(std::uint32_t number, RingState state, std::chrono::sys_seconds ringAt);
    bool attempt(const std::function<void()>& action);
    void tellOnce(const std::string& message);

    AlarmSurroundings with_;
    ShownMark mark_;
    std::optional<std::chrono::sys_seconds> decidedUntil_;
    std::optional<CityRecord> decidedFor_;  // home and alarms at that time
    std::vector<AlarmRule> decidedRules_;
    std::map<RingKey, RingRecord> unsaved_;                 // notes that could not be written yet
    std::optional<std::chrono::sys_seconds> renewAgainAt_;  // an event was left to ring first
    std::string choices_;                                   // what the user had chosen at the last wake
    std::string lastFailure_;
};

}  // namespace quode
