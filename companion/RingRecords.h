// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What has rung. Kept in the user database, so that a restart neither loses a ring nor repeats it.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "companion/alarm_times.h"

namespace quode {

class UserDatabase;

/// How far a ring has come.
enum class RingState {
    begun = 0,     ///< about to ring: whether the user saw it is not known yet
    shown = 1,     ///< the user was told
    snoozed = 2,   ///< to ring again at `ringAt`
    finished = 3,  ///< stopped by the user
    dropped = 4,   ///< too late, or another program rings
};

/// One ring and what became of it.
struct RingRecord {
    AlarmOccurrence alarm;
    RingState state = RingState::begun;
    std::chrono::sys_seconds ringAt{};  ///< when it rings: `alarm.due`, later when it was snoozed
    std::uint32_t notification = 0;     ///< the number under which it is shown; 0 for none

    friend bool operator==(const RingRecord&, const RingRecord&) = default;
};

/// The rings of the last days. A ring is known by prayer and instant. Throws `UserDatabaseError`.
class RingRecords {
  public:
    explicit RingRecords(UserDatabase& database) : database_(&database) {}

    std::optional<RingRecord> find(int code, std::chrono::sys_seconds due) const;

    /// Those that have not come to an end: begun, shown and snoozed.
    std::vector<RingRecord> unfinished() const;

    /// Adds a ring or replaces what was kept of it.
    void keep(const RingRecord& record);

    /// The moment up to which all alarms have been decided; nothing before the first time.
    std::optional<std::chrono::sys_seconds> decidedUntil() const;
    void setDecidedUntil(std::chrono::sys_seconds moment);

    /// Forgets rings that are more than a week from a moment.
    void forgetFarFrom(std::chrono::sys_seconds moment);

  private:
    UserDatabase* database_;
};

}  // namespace quode
