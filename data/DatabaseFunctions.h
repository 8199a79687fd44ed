// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "data/AlarmInfo.h"
#include "data/sqlite_reading.h"

namespace quode {

class AlarmJournal;
class EventStore;
class GlobalFuncs;
struct AlarmIntent;

/// What became of a change of an alarm.
struct AlarmChange {
    bool isStored = true;  ///< the user database holds the change; otherwise nothing was changed
    bool isPlaced = true;  ///< the calendar holds the event, or none where the alarm is off
    std::string message;   ///< what failed or what the user should know, and what to do; empty when all is well

    bool ok() const { return isStored && isPlaced; }
};

/// Reads and writes the alarms of the user database, and keeps an event in the device's calendar for each that is on.
///
/// Prayers are named by their codes 200 (Imsak) to 205 (Yatsi). Every operation opens the database and closes it again;
/// a missing file makes it do nothing. Nothing is thrown: failures are written to the debug log. The clock, the files and
/// the calendar are those of the shared services' platform. Everything runs on one thread.
///
/// Row and event change together: see `AlarmJournal`. What an earlier program has left half done is finished first.
class DatabaseFunctions {
  public:
    /// Works on "user.sqlite" in the data folder.
    DatabaseFunctions();
    ~DatabaseFunctions();
    DatabaseFunctions(const DatabaseFunctions&) = delete;
    DatabaseFunctions& operator=(const DatabaseFunctions&) = delete;

    const std::string& userDBPath() const { return userDBPath_; }
    void setUserDBPath(std::string path) { userDBPath_ = std::move(path); }

    /// How long an operation may wait for other programs altogether. A program that draws takes `drawingPatience`.
    void setPatience(std::chrono::milliseconds patience) { patience_ = patience; }
    static constexpr std::chrono::milliseconds drawingPatience{150};

    /// Another calendar than that of the shared services. It must outlive the object.
    void setEventStore(EventStore& store) { store_ = &store; }

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
    /// The event that it had is used again. The alarm is on also when the calendar fails. Nothing happens when the
    /// alarm cannot be read. `lastChange` says what became of it.
    void reCalculateAlarm(int code) noexcept;

    /// Switches the alarm of a prayer off and removes its event. Nothing happens when the alarm cannot be read.
    /// `lastChange` says what became of it.
    void deleteAlarm(int code) noexcept;

    /// How the last of the two operations above went.
    const AlarmChange& lastChange() const { return lastChange_; }

    // The same for a caller that holds the journal.

    AlarmChange switchOn(int code, AlarmJournal& journal);
    AlarmChange switchOff(int code, AlarmJournal& journal);

    /// Writes the event of an alarm that is on; one that is off is left alone, and loses an event that it still has.
    AlarmChange placeEvent(int code, AlarmJournal& journal);

    /// Removes the event of an alarm, which stays on or off.
    AlarmChange retractEvent(int code, AlarmJournal& journal);

    /// Finishes what an earlier program has left half done, but for `AlarmIntent::Kind::renew`, which is for those who
    /// know the times. What cannot be finished now is left for the next.
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
    std::optional<std::chrono::steady_clock::time_point> patienceEnds_;  // of the operation that runs
    EventStore* store_ = nullptr;                                        // null: that of the shared services
    AlarmChange lastChange_;
};

}  // namespace quode
