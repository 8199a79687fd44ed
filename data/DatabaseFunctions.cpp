// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/DatabaseFunctions.h"

#include <fmt/format.h>

#include <exception>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "common/GlobalFuncs.h"
#include "common/calendar.h"
#include "common/numbers.h"
#include "common/prayer.h"
#include "data/AlarmLock.h"
#include "data/alarm_moment.h"
#include "platform/EventStore.h"

namespace quode {
namespace {

using std::chrono::sys_seconds;

constexpr const char* fileName = "user.sqlite";
constexpr int lockPatienceMs = 200;

// The blanks belong to the texts.
constexpr const char* alarmInfoQuery =
    " SELECT MINUTE, MELODYTIME, MELODYNAME, ACTIVE  FROM USER_ALARMS WHERE TIMEID = {} ";
constexpr const char* alarmRowQuery = " SELECT MINUTE, PRAYTIME, EVENTID FROM USER_ALARMS WHERE TIMEID = {} ";
constexpr const char* activeUpdate = " UPDATE USER_ALARMS SET ACTIVE = {}  WHERE TIMEID = {} ";
constexpr const char* eventUpdate = " UPDATE USER_ALARMS SET EVENTID = '{}'  WHERE TIMEID = {} ";

sqlite::Statement firstRow(sqlite3* database, const std::string& sql) {
    sqlite::Statement row = sqlite::prepare(database, sql);
    const int result = row ? sqlite3_step(row.get()) : SQLITE_ERROR;
    if (result == SQLITE_ROW) return row;
    if (result == SQLITE_DONE) return nullptr;
    throw std::runtime_error(sqlite3_errmsg(database));
}

bool hasQuote(const std::string& text) {
    return text.find('\'') != std::string::npos;
}

VAKDate presentOn(const Clock& clock) {
    const CivilTime now = clock.civilTime(clock.now());
    return VAKDateMake(now.day, now.month, now.year, now.hour, now.minute, now.second);
}

VAKDate oneMinuteLater(VAKDate date) {
    ++date.Minutes;
    return calendar::JulianToGregorian(calendar::GregorianDateToJulian(date));
}

}  // namespace

DatabaseFunctions::DatabaseFunctions()
    : globalFuncs_(&GlobalFuncs::globalFuncs()), userDBPath_(globalFuncs_->dataFolder() + "/" + fileName) {}

DatabaseFunctions::~DatabaseFunctions() = default;

int DatabaseFunctions::asInteger(sqlite3_stmt* row, int column) const noexcept {
    try {
        return leadingNumber<int>(sqlite::text(row, column));
    } catch (const std::exception& error) {
        logFailure("asInteger", error.what());
        return 0;
    }
}

bool DatabaseFunctions::asBoolean(sqlite3_stmt* row, int column) const noexcept {
    return asInteger(row, column) > 0;
}

double DatabaseFunctions::asFloat(sqlite3_stmt* row, int column) const noexcept {
    try {
        return leadingNumber<double>(sqlite::text(row, column));
    } catch (const std::exception& error) {
        logFailure("asFloat", error.what());
        return 0.0;
    }
}

std::string DatabaseFunctions::asString(sqlite3_stmt* row, int column) const noexcept {
    try {
        return sqlite::text(row, column);
    } catch (const std::exception& error) {
        logFailure("asString", error.what());
        return {};
    }
}

bool DatabaseFunctions::executeSQL(const std::string& sql) noexcept {
    if (!globalFuncs_->fileExists(userDBPath_)) {
        globalFuncs_->NSLogToFile("Error in executeSQL : DB file not exists");
        return false;
    }
    if (!openUserDB()) {
        globalFuncs_->NSLogToFile("Error in executeSQL : DB not opened");
        return false;
    }
    const bool succeeded = runOnOpenDB(sql);
    userDB_.reset();
    return succeeded;
}

bool DatabaseFunctions::executeArrayOfSQL(std::span<const std::string> statements) noexcept {
    if (!globalFuncs_->fileExists(userDBPath_)) {
        globalFuncs_->NSLogToFile("Error in executeArrayOfSQL : DB file not exists");
        return false;
    }
    if (!openUserDB()) {
        globalFuncs_->NSLogToFile("Error in executeArrayOfSQL : DB not opened");
        return false;
    }
    bool anySucceeded = false;
    for (const std::string& sql : statements) {
        if (runOnOpenDB(sql)) anySucceeded = true;
    }
    userDB_.reset();
    return anySucceeded;
}

AlarmInfo DatabaseFunctions::getAlarmInfo(int code) noexcept {
    if (!globalFuncs_->fileExists(userDBPath_) || !openUserDB()) return {};
    AlarmInfo info;
    try {
        info = readAlarmInfo(code);
    } catch (const std::exception& error) {
        logFailure("getAlarmInfo", error.what());
    }
    userDB_.reset();
    return info;
}

void DatabaseFunctions::reCalculateAlarm(int code) noexcept {
    if (!globalFuncs_->fileExists(userDBPath_)) return;
    try {
        const int timeId = alarmNumber(code);
        const AlarmLock lock(std::filesystem::path(userDBPath_).parent_path());
        const AlarmRow alarm = readAlarmRow(timeId);
        executeSQL(fmt::format(activeUpdate, 1, timeId));
        storeEventIdentifier(timeId, saveEvent(alarm));
    } catch (const std::exception& error) {
        logFailure("reCalculateAlarm", error.what());
    }
}

void DatabaseFunctions::deleteAlarm(int code) noexcept {
    if (!globalFuncs_->fileExists(userDBPath_)) return;
    try {
        const int timeId = alarmNumber(code);
        const AlarmLock lock(std::filesystem::path(userDBPath_).parent_path());
        const AlarmRow alarm = readAlarmRow(timeId);
        EventStore* const store = globalFuncs_->platform().eventStore.get();
        if (store && store->findEvent(alarm.eventIdentifier).event) store->removeEvent(alarm.eventIdentifier);
        storeEventIdentifier(timeId, "");
        executeSQL(fmt::format(activeUpdate, 0, timeId));
    } catch (const std::exception& error) {
        logFailure("deleteAlarm", error.what());
    }
}

bool DatabaseFunctions::openUserDB() {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(userDBPath_.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    userDB_.reset(opened);
    if (result != SQLITE_OK) userDB_.reset();
    if (userDB_) sqlite3_busy_timeout(userDB_.get(), lockPatienceMs);
    return userDB_ != nullptr;
}

bool DatabaseFunctions::runOnOpenDB(const std::string& sql) {
    char* message = nullptr;
    sqlite3_exec(userDB_.get(), sql.c_str(), nullptr, nullptr, &message);
    if (!message) return true;
    globalFuncs_->NSLogToFile(message);
    sqlite3_free(message);
    return false;
}

AlarmInfo DatabaseFunctions::readAlarmInfo(int code) {
    AlarmInfo info;
    const sqlite::Statement row = firstRow(userDB_.get(), fmt::format(alarmInfoQuery, alarmNumber(code)));
    if (!row) return info;
    info.timeOffset = asInteger(row.get(), 0);
    info.melodyTime = asInteger(row.get(), 1);
    info.melodyName = asString(row.get(), 2);
    info.active = asInteger(row.get(), 3) != 0;
    return info;
}

// Throws when there is nothing to go by, so that neither the calendar nor the database is touched then.
DatabaseFunctions::AlarmRow DatabaseFunctions::readAlarmRow(int timeId) {
    if (!openUserDB()) throw std::runtime_error("the user database cannot be opened");
    const auto read = [this, timeId] {
        const sqlite::Statement row = firstRow(userDB_.get(), fmt::format(alarmRowQuery, timeId));
        if (!row) throw std::runtime_error(fmt::format("there is no alarm with TIMEID {}", timeId));
        return AlarmRow{asInteger(row.get(), 0), asFloat(row.get(), 1), asString(row.get(), 2)};
    };
    try {
        AlarmRow alarm = read();
        userDB_.reset();
        return alarm;
    } catch (const std::exception&) {
        userDB_.reset();
        throw;
    }
}

// Writes the event of an alarm and gives the identifier under which it is found from now on.
std::string DatabaseFunctions::saveEvent(const AlarmRow& alarm) {
    const Platform& platform = globalFuncs_->platform();
    const Clock& clock = platform.alarmClock ? *platform.alarmClock : *platform.clock;
    const VAKDate start = nextAlarmMoment(presentOn(clock), alarm.prayTime, alarm.offset);
    VAKDate end = start;  // keeps the day of the start, also over midnight
    const VAKDate later = oneMinuteLater(start);
    end.Hours = later.Hours;
    end.Minutes = later.Minutes;
    const std::optional<sys_seconds> startInstant = instantOfWallClock(clock, start);
    const std::optional<sys_seconds> endInstant = instantOfWallClock(clock, end);
    if (!startInstant || !endInstant) throw std::runtime_error("the alarm's time leads to no date");

    EventStore* const store = globalFuncs_->platform().eventStore.get();
    if (!store) return alarm.eventIdentifier;
    const FoundEvent found = store->findEvent(alarm.eventIdentifier);
    CalendarEvent event = found.event.value_or(CalendarEvent{});
    // A calendar that cannot be read now may hold the event all the same: it is not to be left behind in there.
    if (!found.status.ok && !hasQuote(alarm.eventIdentifier)) event.identifier = alarm.eventIdentifier;
    event.title = "Prayer Alarm";
    event.location = "Quode";
    event.start = *startInstant;
    event.end = *endInstant;
    event.alarmOffset = std::chrono::seconds{0};
    event.allDay = false;
    const SavedEvent saved = store->saveEvent(event);
    return saved.status.ok ? saved.identifier : event.identifier;
}

// An identifier with a quote would end the text of the statement early.
void DatabaseFunctions::storeEventIdentifier(int timeId, const std::string& identifier) {
    if (hasQuote(identifier)) {
        throw std::runtime_error("the calendar gave the event an identifier with a quote, which cannot be kept: " +
                                 identifier);
    }
    executeSQL(fmt::format(eventUpdate, identifier, timeId));
}

void DatabaseFunctions::logFailure(const char* operation, const char* description) const noexcept {
    try {
        globalFuncs_->NSLogToFile(fmt::format("Error in DatabaseFunctions -> {}: {}", operation, description));
    } catch (const std::exception&) {
        // Without the memory for a line, there is nobody left to tell.
    }
}

}  // namespace quode
