// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Days of the week, second rings, skipping and muting: as the user names them, and in words. Changes throw as those of
// "app/alarm_changes.h" do.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "companion/UserDatabase.h"

namespace quode::app {

class Session;
struct UserAlarms;

/// Restricts alarms to some days of the week. days  see `AlarmRule`; at least one
void chooseDays(Session& session, const std::vector<int>& codes, unsigned days);

/// Adds a second ring, so many minutes after the time (negative: before); takes it away without a number.
void chooseReminder(Session& session, const std::vector<int>& codes, std::optional<int> minutes);

/// Leaves out the next ring of an alarm that is on, with its second ring.
/// @return the ring that comes then; nothing when none does in the next nine days
std::optional<AlarmOccurrence> skipNext(Session& session, int code);

/// Takes back a skip.
void unskip(Session& session, int code);

/// Mutes all alarms up to a moment; without one they ring again.
void mute(Session& session, std::optional<std::chrono::sys_seconds> until);

/// The first moment of tomorrow at the home city.
std::chrono::sys_seconds startOfTomorrow(Session& session);

/// The next ring of an alarm, whether it is on or off, of the next nine days.
/// withReminder  its second ring counts too
std::optional<AlarmOccurrence> nextRing(const CityRecord& city, const UserAlarm& alarm, std::chrono::sys_seconds now,
                                        bool withReminder);

/// The days of "mon,wed" or "all". Throws `Failure` (usage).
unsigned daysNamed(Session& session, std::string_view words);

/// Those of the days that are chosen, 0 = Sunday, in the order of the week from Monday on.
std::vector<int> daysOfWeek(unsigned days);

/// "mon" for 1.
std::string weekdayKey(int day);

/// "Mon, Wed"; empty for every day. The week begins on Monday.
std::string daysText(Session& session, unsigned days);

/// "05:28", with the day of the week where that is not today.
std::string ringMoment(Session& session, const CityRecord& city, std::chrono::sys_seconds instant);

/// "Fajr rings next: Mon 05:17, in 16 h 57 min", of the alarms that are on; that none is, or rings soon.
std::string nextRingText(Session& session, const UserAlarms& all);

/// "All alarms are muted until 20:19."; empty when they are not.
std::string muteText(Session& session, const UserAlarms& all);

/// "in 2 h 13 min".
std::string leftText(Session& session, std::chrono::sys_seconds instant);

/// What is special of an alarm, as short texts: days, second ring, skipped, muted.
std::vector<std::string> habitTexts(Session& session, const UserAlarms& all, const UserAlarm& alarm);

}  // namespace quode::app
