// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/EventRenewal.h"

#include "companion/AlarmBook.h"

namespace quode {
namespace {

using namespace std::chrono;

constexpr minutes timeToRing{2};
constexpr seconds patience{2};  // for a program that changes an alarm; rings must not wait for long

}  // namespace

std::optional<sys_seconds> EventRenewal::renew(UserDatabase& database, Ringer ringer, sys_seconds now) {
    std::optional<sys_seconds> again;
    const auto leave = [&](const UserAlarm& alarm) {
        const bool leaves = ringer == Ringer::evolution && mayStillRing(alarm, now);
        if (leaves) again = now + timeToRing;
        return leaves;
    };
    const AlarmChange change = AlarmBook(database.file().parent_path(), database, *calendar_, patience).renew(leave);
    if (!change.message.empty()) report_(change.message);
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

}  // namespace quode
