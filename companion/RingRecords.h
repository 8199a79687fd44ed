// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What has rung. Kept in a file of the data folder, so that a restart neither loses a ring nor repeats it.
//
// Fixed values: the name and the lines of the file, which an older or newer version of the service may read.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "companion/alarm_times.h"
#include "platform/NotificationService.h"
#include "platform/Uptime.h"

namespace quode {

/// How far a ring has come. Fixed values: stored in the file.
enum class RingState {
    begun = 0,     ///< about to ring: not sent to the desktop yet
    shown = 1,     ///< the user sees it
    snoozed = 2,   ///< to ring again at `ringAt`
    finished = 3,  ///< stopped by the user, or ended with its notification service
    dropped = 4,   ///< too late, or another program rings
    asked = 5,     ///< the desktop was asked to show it, and has not answered yet
    unseen = 6,    ///< there was no notification service: heard at most
};

/// One ring and what became of it.
struct RingRecord {
    AlarmOccurrence alarm;
    RingState state = RingState::begun;
    std::chrono::sys_seconds ringAt{};  ///< when it rings: `alarm.due`, later when it was snoozed
    NotificationId notification;        ///< under which it is shown; the number 0: not known
    std::string city;                   ///< for which it rings
    Uptime rangAt;                      ///< when it rang
    /// What the clock by which `ringAt` is showed when the device started, in seconds since 1970.
    std::optional<std::chrono::seconds> clockZero = {};
    bool isRepeated = false;  ///< the same notification service may show it once more, under an unknown number

    friend bool operator==(const RingRecord&, const RingRecord&) = default;
};

/// What the clock was before it jumped.
struct LeftClock {
    std::chrono::seconds zero{};     ///< what it showed when the device started, in seconds since 1970
    std::chrono::milliseconds at{};  ///< how long the device had run when it jumped

    friend bool operator==(const LeftClock&, const LeftClock&) = default;
};

/// How many former clocks are kept.
inline constexpr std::size_t mostLeft = 4;

/// How far all alarms have been decided, and by which clock.
struct DecidedNote {
    std::chrono::sys_seconds until{};
    std::chrono::sys_seconds clock{};  ///< what the clock showed
    Uptime uptime;                     ///< at the same moment
    int city = 0;                      ///< the number of the home city
    std::vector<AlarmRule> rules;      ///< the alarms that were on
    std::vector<LeftClock> left;       ///< what the clock was before, each left for the next one; at most `mostLeft`

    friend bool operator==(const DecidedNote&, const DecidedNote&) = default;
};

/// The last rings, the latest note being the last. A ring is known by prayer and instant.
///
/// The file "alarmd.rings" has its full length from the beginning and its lines are written in place: a note needs no
/// room on the disk, waits for no lock, and a process that is killed leaves a whole line or none. What cannot be
/// written stays in memory and is written later. When all lines are taken the oldest ring that is over gives way,
/// whatever the clock shows.
class RingRecords {
  public:
    /// Reads the file of a data folder; one that is missing is made with the first note.
    explicit RingRecords(std::filesystem::path dataFolder);

    /// Makes the file where there is none, so that there is room for the notes.
    /// @return false when that fails
    static bool reserve(const std::filesystem::path& dataFolder);

    std::optional<RingRecord> find(int code, std::chrono::sys_seconds due) const;
    std::vector<RingRecord> all() const;

    /// Those that have not come to an end, in the order in which they were noted.
    std::vector<RingRecord> unfinished() const;

    /// Adds a ring or replaces what was kept of it.
    void keep(const RingRecord& record);
    void forget(int code, std::chrono::sys_seconds due);

    /// Nothing before the first time.
    const std::optional<DecidedNote>& decided() const { return decided_; }
    void setDecided(const DecidedNote& note);

    /// Writes what could not be written so far, and everything when the file was taken away.
    void save();

    /// Why the last note could not be written, and what to do; empty when all are.
    const std::string& problem() const { return problem_; }

  private:
    using Key = std::pair<int, std::chrono::sys_seconds>;
    struct Entry {
        RingRecord record;
        std::uint64_t serial = 0;  // the higher, the later noted
        int line = 0;
        bool isWritten = false;
    };
    std::vector<const Entry*> inOrder() const;
    int freeLine();
    void read();
    bool write(int line, const std::string& text);
    void noteProblem();

    std::filesystem::path file_;
    std::map<Key, Entry> entries_;
    std::map<int, bool> cleared_;  // lines of forgotten rings, and whether that is written
    std::optional<DecidedNote> decided_;
    bool isDecidedWritten_ = true;
    std::uint64_t lastSerial_ = 0;
    std::string problem_;
};

}  // namespace quode
