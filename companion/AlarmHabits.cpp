// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/AlarmHabits.h"

#include <algorithm>

#include "common/numbers.h"
#include "companion/UserDatabase.h"
#include "companion/user_connection.h"

namespace quode {
namespace {

using std::chrono::sys_seconds;

constexpr const char* table =
    "CREATE TABLE IF NOT EXISTS USER_ALARM_HABIT (TIMEID INTEGER PRIMARY KEY, DAYS INTEGER NOT NULL, REMINDER INTEGER, "
    "SILENTUNTIL INTEGER NOT NULL)";
constexpr const char* mutedName = "alarm.muted_until";

sys_seconds momentOf(long long seconds) {
    return sys_seconds(std::chrono::seconds(seconds));
}

sys_seconds mutedIn(const UserConnection& connection) {
    const sqlite::Statement row =
        connection.query("SELECT CAST(VALUE AS INTEGER) FROM USER_SETTING WHERE NAME = ?", {std::string(mutedName)});
    return connection.next(row) ? momentOf(sqlite3_column_int64(row.get(), 0)) : sys_seconds{};
}

bool tableExists(const UserConnection& connection) {
    return connection.next(connection.query("SELECT 1 FROM sqlite_master WHERE name = 'USER_ALARM_HABIT'"));
}

// A number that another program wrote may be any.
void readHabit(sqlite3_stmt* row, UserAlarm& alarm) {
    const unsigned daysOfWeek = static_cast<unsigned>(sqlite3_column_int(row, 1)) & everyDay;
    if (daysOfWeek != 0) alarm.days = daysOfWeek;
    if (sqlite3_column_type(row, 2) == SQLITE_INTEGER) {
        alarm.reminder = std::clamp(sqlite3_column_int(row, 2), -largestAlarmOffset, largestAlarmOffset);
    }
    alarm.skippedUntil = momentOf(sqlite3_column_int64(row, 3));
}

}  // namespace

void readHabits(const UserConnection& connection, std::vector<UserAlarm>& alarms) {
    const sys_seconds muted = mutedIn(connection);
    for (UserAlarm& alarm : alarms) alarm.mutedUntil = muted;
    if (!tableExists(connection)) return;
    const sqlite::Statement row = connection.query("SELECT TIMEID, DAYS, REMINDER, SILENTUNTIL FROM USER_ALARM_HABIT");
    while (connection.next(row)) {
        const int code = prayerOfAlarm(sqlite3_column_int(row.get(), 0));
        const auto alarm = std::ranges::find(alarms, code, &UserAlarm::code);
        if (alarm != alarms.end()) readHabit(row.get(), *alarm);
    }
}

void storeHabits(UserConnection& connection, const UserAlarm& alarm) {
    connection.change([&] {
        connection.run(table);
        connection.run(
            "INSERT OR REPLACE INTO USER_ALARM_HABIT (TIMEID, DAYS, REMINDER, SILENTUNTIL) VALUES (?, ?, NULL, ?)",
            {alarmNumber(alarm.code), static_cast<int>(alarm.days), alarm.skippedUntil.time_since_epoch().count()});
        if (!alarm.reminder) return;
        connection.run("UPDATE USER_ALARM_HABIT SET REMINDER = ? WHERE TIMEID = ?",
                       {*alarm.reminder, alarmNumber(alarm.code)});
    });
}

std::optional<sys_seconds> mutedUntil(const UserDatabase& database) {
    const auto seconds = numberOf<long long>(database.setting(mutedName).value_or(""));
    return seconds ? std::optional(momentOf(*seconds)) : std::nullopt;
}

void muteUntil(UserDatabase& database, sys_seconds moment) {
    database.setSetting(mutedName, std::to_string(moment.time_since_epoch().count()));
}

}  // namespace quode
