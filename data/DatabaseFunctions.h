// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <string>

#include "data/AlarmInfo.h"
#include "data/sqlite_reading.h"

namespace quode {

class EventStore;
class GlobalFuncs;
struct VAKDate;

/// Reads and writes the alarms of the user database, and keeps an event in the device's calendar for each that is on.
///
/// Prayers are named by their codes 200 (Imsak) to 205 (Yatsi). Every operation opens the database and closes it again;
/// a missing file makes it do nothing. Nothing is thrown: failures are written to the debug log. The clock, the files and
/// the calendar are those of the shared services' platform. Everything runs on one thread.
class DatabaseFunctions {
  public:
    /// Works on "user.sqlite" in the data folder.
    DatabaseFunctions();
    ~DatabaseFunctions();
    DatabaseFunctions(const DatabaseFunctions&) = delete;
    DatabaseFunctions& operator=(const DatabaseFunctions&) = delete;

    const std::string& userDBPath() const { return userDBPath_; }
    void setUserDBPath(std::string path) { userDBPath_ = std::move(path); }

    // Readers of one column of the present row; an absent text reads as 0, false, 0.0 or "". A text counts with the
    // number that it begins with, and as 0 without one.

    int asInteger(sqlite3_stmt* row, int column) const noexcept;
    /// True for a number above 0.
    bool asBoolean(sqlite3_stmt* row, int column) const noexcept;
    double asFloat(sqlite3_stmt* row, int column) const noexcept;
    std::string asString(sqlite3_stmt* row, int column) const noexcept;

    /// Runs one statement. Returned: whether it ran without an error.
    bool executeSQL(const std::string& sql) noexcept;

    /// Runs statements in order, whether those before succeeded or not. Returned: whether at least one ran without an
    /// error.
    bool executeArrayOfSQL(std::span<const std::string> statements) noexcept;

    /// The alarm of a prayer; all zero and empty when there is none.
    AlarmInfo getAlarmInfo(int code) noexcept;

    /// Switches the alarm of a prayer on, and writes its event: at its moment today, or tomorrow when that has passed.
    /// The event that it had is used again. A calendar that fails is not told of; the alarm is on all the same. Nothing
    /// happens when the alarm cannot be read.
    void reCalculateAlarm(int code) noexcept;

    /// Switches the alarm of a prayer off and removes its event. Nothing happens when the alarm cannot be read.
    void deleteAlarm(int code) noexcept;

  private:
    struct AlarmRow {
        int offset = 0;
        double prayTime = 0.0;
        std::string eventIdentifier;
    };

    bool openUserDB();
    bool runOnOpenDB(const std::string& sql);
    AlarmInfo readAlarmInfo(int code);
    AlarmRow readAlarmRow(int timeId);
    std::string saveEvent(const AlarmRow& alarm);
    void storeEventIdentifier(int timeId, const std::string& identifier);
    void logFailure(const char* operation, const char* description) const noexcept;

    GlobalFuncs* globalFuncs_;
    std::string userDBPath_;
    sqlite::Database userDB_;  // open only within an operation
};

}  // namespace quode
