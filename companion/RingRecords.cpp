// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/RingRecords.h"

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "common/numbers.h"
#include "companion/UserDatabase.h"
#include "companion/user_connection.h"

namespace quode {
namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

constexpr const char* columns = "TIMEID, DUE, PRAYER, HOURS, DAY, STATE, RINGAT, NOTIFICATION";
constexpr const char* decidedName = "alarm.decided";
constexpr long long week = 7 * 24 * 3600;

long long secondsOf(sys_seconds moment) {
    return moment.time_since_epoch().count();
}

sys_seconds momentOf(long long count) {
    return sys_seconds(seconds(count));
}

std::string textOf(const VAKDate& date) {
    return fmt::format("{:04d}-{:02d}-{:02d}", date.Years, date.Months, date.Days);
}

VAKDate dateOf(const std::string& text) {
    VAKDate date;
    std::string_view rest = text;
    for (int VAKDate::*part : {&VAKDate::Years, &VAKDate::Months, &VAKDate::Days}) {
        date.*part = takeNumber<int>(rest).value_or(0);
        if (!rest.empty()) rest.remove_prefix(1);  // the dash
    }
    return date;
}

// The record of the present row.
RingRecord recordOf(sqlite3_stmt* row) {
    RingRecord record;
    record.alarm.code = prayerOfAlarm(sqlite3_column_int(row, 0));
    record.alarm.due = momentOf(sqlite3_column_int64(row, 1));
    record.alarm.prayer = momentOf(sqlite3_column_int64(row, 2));
    record.alarm.hours = sqlite3_column_double(row, 3);
    record.alarm.date = dateOf(sqlite::text(row, 4));
    record.state = static_cast<RingState>(sqlite3_column_int(row, 5));
    record.ringAt = momentOf(sqlite3_column_int64(row, 6));
    record.notification = static_cast<std::uint32_t>(sqlite3_column_int64(row, 7));
    return record;
}

}  // namespace

std::optional<RingRecord> RingRecords::find(int code, sys_seconds due) const {
    UserConnection& connection = database_->connection();
    const sqlite::Statement row =
        connection.query(std::string("SELECT ") + columns + " FROM USER_RING WHERE TIMEID = ? AND DUE = ?",
                         {alarmNumber(code), secondsOf(due)});
    if (!connection.next(row)) return std::nullopt;
    return recordOf(row.get());
}

std::vector<RingRecord> RingRecords::unfinished() const {
    UserConnection& connection = database_->connection();
    const sqlite::Statement row =
        connection.query(std::string("SELECT ") + columns + " FROM USER_RING WHERE STATE IN (?, ?, ?) ORDER BY RINGAT",
                         {int(RingState::begun), int(RingState::shown), int(RingState::snoozed)});
    std::vector<RingRecord> records;
    while (connection.next(row)) records.push_back(recordOf(row.get()));
    return records;
}

void RingRecords::keep(const RingRecord& record) {
    UserConnection& connection = database_->connection();
    connection.change([&] {
        connection.run(
            std::string("INSERT OR REPLACE INTO USER_RING (") + columns + ") VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
            {alarmNumber(record.alarm.code), secondsOf(record.alarm.due), secondsOf(record.alarm.prayer),
             record.alarm.hours, textOf(record.alarm.date), int(record.state), secondsOf(record.ringAt),
             static_cast<long long>(record.notification)});
    });
}

std::optional<sys_seconds> RingRecords::decidedUntil() const {
    const std::string text = database_->setting(decidedName).value_or("");
    const std::optional<long long> count = numberOf<long long>(text);
    return count ? std::optional(momentOf(*count)) : std::nullopt;
}

void RingRecords::setDecidedUntil(sys_seconds moment) {
    database_->setSetting(decidedName, std::to_string(secondsOf(moment)));
}

void RingRecords::forgetFarFrom(sys_seconds moment) {
    UserConnection& connection = database_->connection();
    connection.change([&] {
        connection.run("DELETE FROM USER_RING WHERE RINGAT NOT BETWEEN ? AND ?",
                       {secondsOf(moment) - week, secondsOf(moment) + week});
    });
}

}  // namespace quode
