// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarms/DatabaseFunctions.h"

#include <fmt/format.h>

#include <exception>
#include <stdexcept>
#include <string_view>

#include "astro/prayer.h"
#include "common/GlobalFuncs.h"
#include "common/numbers.h"
#include "data/user_places.h"
#include "texts/translation.h"

namespace quode {
namespace {

// The blanks are part of the texts.
constexpr const char* alarmInfoQuery =
    " SELECT MINUTE, MELODYTIME, MELODYNAME, ACTIVE  FROM USER_ALARMS WHERE TIMEID = {} ";
constexpr const char* alarmRowQuery = " SELECT MINUTE, PRAYTIME, EVENTID FROM USER_ALARMS WHERE TIMEID = {} ";

sqlite::Statement firstRow(sqlite3* database, const std::string& sql) {
    sqlite::Statement row = sqlite::prepare(database, sql);
    const int result = row ? sqlite3_step(row.get()) : SQLITE_ERROR;
    if (result == SQLITE_ROW) return row;
    if (result == SQLITE_DONE) return nullptr;
    throw std::runtime_error(sqlite3_errmsg(database));
}

}  // namespace

DatabaseFunctions::DatabaseFunctions()
    : globalFuncs_(&GlobalFuncs::globalFuncs()), userDBPath_(globalFuncs_->dataFolder() + "/" + userDatabaseName) {}

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
        lastError_ = "it cannot be opened";
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

std::set<int> DatabaseFunctions::activeAlarms() noexcept {
    if (!globalFuncs_->fileExists(userDBPath_) || !openUserDB()) return {};
    std::set<int> active;
    try {
        for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
            if (readAlarmInfo(code).active) active.insert(code);
        }
    } catch (const std::exception& error) {
        logFailure("activeAlarms", error.what());
    }
    userDB_.reset();
    return active;
}

bool DatabaseFunctions::openUserDB() {
    sqlite3* opened = nullptr;
    if (!sqlite::isSafeToOpen(userDBPath_)) return false;
    const int result = sqlite3_open_v2(userDBPath_.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    userDB_.reset(opened);
    if (result != SQLITE_OK) userDB_.reset();
    if (userDB_) sqlite3_busy_timeout(userDB_.get(), static_cast<int>(patienceLeft().count()));
    return userDB_ != nullptr;
}

void DatabaseFunctions::requireUserDB() {
    if (openUserDB()) return;
    if (const auto unsafe = sqlite::unsafeFile(userDBPath_)) {
        throw std::runtime_error(_("{} is not a regular file. Move it away.", unsafe->string()));
    }
    throw std::runtime_error(_("the user database cannot be opened"));
}

bool DatabaseFunctions::runOnOpenDB(const std::string& sql) {
    char* message = nullptr;
    sqlite3_exec(userDB_.get(), sql.c_str(), nullptr, nullptr, &message);
    if (!message) return true;
    lastError_ = message;
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

bool DatabaseFunctions::isOn(int timeId) {
    requireUserDB();
    const bool active = readAlarmInfo(prayerOfAlarm(timeId)).active;
    userDB_.reset();
    return active;
}

// Throws when the row cannot be read, so that neither the calendar nor the database is changed.
DatabaseFunctions::AlarmRow DatabaseFunctions::readAlarmRow(int timeId) {
    requireUserDB();
    const auto read = [this, timeId] {
        const sqlite::Statement row = firstRow(userDB_.get(), fmt::format(alarmRowQuery, timeId));
        if (!row) throw std::runtime_error(_("there is no alarm with TIMEID {}", timeId));
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

void DatabaseFunctions::logFailure(const char* operation, const char* description) const noexcept {
    try {
        globalFuncs_->NSLogToFile(fmt::format("Error in DatabaseFunctions -> {}: {}", operation, description));
    } catch (const std::exception&) {
        // Without memory for a line there is no way to report it.
    }
}

}  // namespace quode
