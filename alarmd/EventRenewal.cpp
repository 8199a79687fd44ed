// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/EventRenewal.h"

#include <algorithm>

#include "data/DatabaseFunctions.h"

namespace quode {
namespace {

using namespace std::chrono;

constexpr minutes timeToRing{2};

}  // namespace

std::optional<sys_seconds> EventRenewal::renew(UserDatabase& database, Ringer ringer, sys_seconds now) {
    std::optional<sys_seconds> again;
    const std::vector<AlarmOccurrence> next = database.refreshPrayerTimes();
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        // Read as late as possible: the user may switch it off while the events of the others are written.
        const UserAlarm alarm = database.alarm(code);
        if (ringer == Ringer::evolution && mayStillRing(alarm, now)) {
            again = now + timeToRing;
        } else {
            renewEvent(database, alarm, next);
        }
    }
    return again;
}

std::optional<sys_seconds> EventRenewal::startOf(const UserAlarm& alarm) const {
    if (alarm.eventIdentifier.empty()) return std::nullopt;
    const FoundEvent found = calendar_->findEvent(alarm.eventIdentifier);
    if (!found.event) return std::nullopt;
    return found.event->start;
}

// Whether another program is just about to ring for an event, which must not be moved away under its hands.
bool EventRenewal::mayStillRing(const UserAlarm& alarm, sys_seconds now) const {
    if (!alarm.isOn) return false;
    const std::optional<sys_seconds> start = startOf(alarm);
    return start && *start <= now && now - *start < timeToRing;
}

// Brings the event of an alarm to its next ring, unless it is there already. A prayer whose time does not come about
// within a day has no event.
void EventRenewal::renewEvent(UserDatabase& database, const UserAlarm& alarm,
                              const std::vector<AlarmOccurrence>& next) {
    if (!alarm.isOn) {
        if (!alarm.eventIdentifier.empty()) DatabaseFunctions().deleteAlarm(alarm.code);
        return;
    }
    const auto ring = std::ranges::find(next, alarm.code, &AlarmOccurrence::code);
    if (ring == next.end()) {
        if (alarm.eventIdentifier.empty()) return;
        calendar_->removeEvent(alarm.eventIdentifier);
        database.forgetEvent(alarm.code);
        return;
    }
    const FoundEvent found = calendar_->findEvent(alarm.eventIdentifier);
    if (!found.status.ok) report_(found.status.message);
    if (found.event && found.event->start == ring->due) return;
    DatabaseFunctions().reCalculateAlarm(alarm.code);
}

}  // namespace quode
