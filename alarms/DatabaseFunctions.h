// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>

#include "alarms/AlarmInfo.h"
#include "data/sqlite_reading.h"

namespace quode {

class AlarmJournal;
class EventStore;
class GlobalFuncs;
struct AlarmIntent;

/// The outcome of a change of an alarm.
struct AlarmChange {
    bool isStored = true;  ///< the user database contains the change; else nothing was changed
    bool isPlaced = true;  ///< the calendar contains the event of an alarm that is on, and no event of one that is off
    std::string message;   ///< what failed or needs attention, and what to do; empty when all is well
    bool isBusy =
        false;  ///< another program was changing the alarms: nothing was changed, and the next try may succeed

    /// True when both succeeded.
    bool ok() const { return isStored && isPlaced; }
};

/// Reads and writes the alarms of the user database, and keeps an event in the device's calendar for each alarm that is
/// on.
///
/// Prayers have the codes 200 (Imsak) to 205 (Yatsi). Every operation opens the database and closes it again; with a
/// missing file it does nothing. Nothing throws: failures go to the debug log. The clock, the files and the calendar are
/// those of the shared services' platform. Use an object from one thread.
///
/// @code
///   quode::DatabaseFunctions alarms;                          // after GlobalFuncs::startUp
///   alarms.reCalculateAlarm(200);                             // switches the dawn alarm on
///   const bool isOn = alarms.getAlarmInfo(200).active;
/// @endcode
///
/// Row and event change together, see `AlarmJournal`. Unfinished work of an earlier program is completed first.
///
/// Fixed names: `userDBPath`, the readers `asInteger` to `asString`, `executeSQL`, `executeArrayOfSQL`, `getAlarmInfo`,
/// `reCalculateAlarm`, `deleteAlarm`; in the user database all tables, columns and stored values.
class DatabaseFunctions {
  public:
    /// Works on "user.sqlite" in the data folder.
    DatabaseFunctions();
    ~DatabaseFunctions();
    DatabaseFunctions(const DatabaseFunctions&) = delete;
    DatabaseFunctions& operator=(const DatabaseFunctions&) = delete;

    /// The path of the user database.
    const std::string& userDBPath() const { return userDBPath_; }
    void setUserDBPath(std::string path) { userDBPath_ = std::move(path); }

    /// Sets the longest time that an operation waits for other programs in total. A program with windows uses
    /// `drawingPatience`.
    void setPatience(std::chrono::milliseconds patience) { patience_ = patience; }
    static constexpr std::chrono::milliseconds drawingPatience{150};

    /// Replaces the calendar of the shared services' platform.
    /// @param store  must outlive the object
    void setEventStore(EventStore& store) { store_ = &store; }

    // Readers of one column of the current row. NULL gives 0, false, 0.0 or "". A text gives the number at its front, or 0.

    int asInteger(sqlite3_stmt* row, int column) const noexcept;

    /// True for a number above 0.
    bool asBoolean(sqlite3_stmt* row, int column) const noexcept;
    double asFloat(sqlite3_stmt* row, int column) const noexcept;
    std::string asString(sqlite3_stmt* row, int column) const noexcept;

    /// Runs one statement.
    /// @return true when it ran without an error
    bool executeSQL(const std::string& sql) noexcept;

    /// Runs statements in order; a failure does not stop the rest.
    /// @return true when at least one ran without an error
    bool executeArrayOfSQL(std::span<const std::string> statements) noexcept;

    /// The alarm of a prayer; all zero and empty when it does not exist.
    AlarmInfo getAlarmInfo(int code) noexcept;

    /// The prayers whose alarm is on, read together.
    std::set<int> activeAlarms() noexcept;

    /// Switches the alarm of a prayer on and writes its event: for today, or for tomorrow when today's time has passed. An
    /// event that the alarm already has is reused. The alarm is on even when the calendar fails. Does nothing when the
    /// alarm cannot be read.
    void reCalculateAlarm(int code) noexcept;

    /// Switches the alarm of a prayer off and removes its event. Does nothing when the alarm cannot be read.
    void deleteAlarm(int code) noexcept;

    // The same for a caller that holds the journal. The code is 200 to 205.

    /// Switches an alarm on and writes its event.
    AlarmChange switchOn(int code, AlarmJournal& journal);
    /// Switches an alarm off and removes its event.
    AlarmChange switchOff(int code, AlarmJournal& journal);

    /// Writes the event of an alarm that is on. An alarm that is off stays off; an event that it still has is removed.
    AlarmChange placeEvent(int code, AlarmJournal& journal);

    /// Removes the event of an alarm, which stays on or off.
    AlarmChange retractEvent(int code, AlarmJournal& journal);

    /// Completes unfinished work of an earlier program, except `AlarmIntent::Kind::renew`, which needs the times of the
    /// prayers. What cannot be completed now stays in the journal.
    void finishPending(AlarmJournal& journal) noexcept;

  private:
    struct AlarmRow {
        int offset = 0;
        double prayTime = 0.0;
        std::string eventIdentifier;
    };
    struct Moments {
        std::chrono::sys_seconds start{};
        std::chrono::sys_seconds end{};
    };

    bool openUserDB();
    void requireUserDB();
    bool runOnOpenDB(const std::string& sql);
    AlarmInfo readAlarmInfo(int code);
    AlarmRow readAlarmRow(int timeId);
    bool isOn(int timeId);
    void logFailure(const char* operation, const char* description) const noexcept;

    template <typename Action>
    AlarmChange guarded(const char* operation, const Action& action) noexcept;
    using Operation = AlarmChange (DatabaseFunctions::*)(int code, AlarmJournal& journal);
    AlarmChange alone(const char* name, int code, Operation operation) noexcept;
    std::chrono::milliseconds patienceLeft() const;
    EventStore* store() const;
    std::optional<Moments> momentsOf(const AlarmRow& alarm) const;
    AlarmChange writeEvent(int timeId, const AlarmRow& alarm, AlarmJournal& journal, bool switches);
    AlarmChange removeEvent(int timeId, const AlarmRow& alarm, AlarmJournal& journal, bool switches);
    bool storeEventIdentifier(int timeId, const std::string& identifier);
    bool storeActive(int timeId, bool isOn);
    AlarmChange notStored() const;
    void finish(const AlarmIntent& intent, AlarmJournal& journal);
    bool dropEvent(const std::string& identifier);

    GlobalFuncs* globalFuncs_;
    std::string userDBPath_;
    sqlite::Database userDB_;  // open only within an operation
    std::string lastError_;    // of the last statement that failed
    std::chrono::milliseconds patience_{2000};
    std::optional<std::chrono::steady_clock::time_point> patienceEnds_;  // of the current operation
    EventStore* store_ = nullptr;                                        // null: that of the shared services
};

}  // namespace quode
