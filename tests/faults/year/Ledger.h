// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What is to ring, what rang, and whether it could.
#pragma once

#include <chrono>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "Figures.h"
#include "YearTable.h"
#include "alarmd/RingDesk.h"

namespace quode::test {

/// Compares the rings of a simulated service with what is demanded of it. All moments are true time.
class Ledger {
  public:
    using Moment = std::chrono::sys_seconds;

    /// A ring of an alarm by the timetable.
    struct Planned {
        int code = 0;
        Moment due{};
        bool isReminder = false;  ///< before or after that of the prayer
        std::string text;
        std::string city;
    };

    /// A ring is demanded; or its silence, where the user wants that.
    void demand(const Planned& ring);

    /// The rings of an alarm up to a moment, and at it, are to be left out, also those that are snoozed.
    void silence(int code, Moment now, Moment until);

    /// What was demanded for later than a moment is so no longer: alarms, or the home city, were changed.
    void withdraw(Moment after);
    void withdraw(int code, Moment after);

    /// The user sleeps on: the ring is demanded once more.
    /// @param alarm  when it was due at first
    void snooze(int code, Moment alarm, Moment due);

    /// The user has answered a ring. It may be shown twice, then the last answer counts: a snooze that is to come is over.
    void stop(int code, Moment alarm, Moment now);

    /// How the desktop shows a ring.
    struct Showing {
        Moment moment{};
        std::string run = {};                  ///< of the notification service
        bool isAnswerHeard = true;             ///< false when the process that asked was killed meanwhile
        std::chrono::seconds clockError = {};  ///< what the device's clock is ahead
    };

    /// A ring is shown.
    void shown(const Ring& ring, const Showing& showing);

    /// From now on the service can ring by the right clock, or cannot.
    void canRing(Moment now, bool can);

    Figures evaluate(Moment end);

  private:
    using Key = std::pair<int, Moment>;
    struct Demand {
        Planned ring;
        Moment due{};
        bool isSnooze = false;
        std::vector<Showing> shown = {};
    };

    static Key keyOf(const Planned& ring) { return {ring.code, ring.due}; }
    bool isByWrongClock(const Ring& ring, Moment now, std::chrono::seconds clockError);
    bool hadAChance(Moment due) const;
    void count(const Demand& demand);
    void holdSilentSnoozes(int code, Moment now);

    std::vector<Demand> demands_;
    std::map<Moment, bool> chances_;
    std::set<Key> byWrongClock_;
    std::map<int, Moment> silentUntil_;
    std::vector<Demand> held_;  // snoozes that are silent while the silence lasts
    std::set<Key> muted_;
    Figures figures_;
};

}  // namespace quode::test
