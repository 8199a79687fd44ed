// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Prevents two programs from changing an alarm and its event at the same time, and records a change that is interrupted.
#pragma once

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/LockedFile.h"

namespace quode {

/// A change of the alarms that a program is about to make, recorded before it begins. Fixed values: the lines of the file,
/// see `AlarmJournal`.
struct AlarmIntent {
    enum class Kind {
        on,     ///< writes the event `event` of an alarm
        off,    ///< switches the alarm off and removes its event `event`
        drop,   ///< removes the event `event`, unless the alarm has it
        renew,  ///< something changed that affects all events: the home city, an offset, the layout of the calendar
    };
    Kind kind = Kind::renew;
    int timeId = 0;     ///< 1 to 6; 0 for `renew`
    std::string event;  ///< the event's identifier; empty when the calendar chooses it

    friend bool operator==(const AlarmIntent&, const AlarmIntent&) = default;
};

/// Why an intent could not be recorded, and what to do. Nothing was changed.
class AlarmJournalError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The lock and journal for changes of an alarm's row together with its calendar event, which cannot be changed in one
/// step. It is the file ".alarms.lock" in the data folder: locked, so that one program at a time holds it, with a line for
/// each change that is under way. The line is removed when both are changed. The system releases the lock when the holder
/// ends in any way; a line that remains is what the next holder has to finish.
class AlarmJournal {
  public:
    /// Opens and locks the journal of a data folder; `isHeld` says whether that succeeded.
    /// @param patience  the longest time to wait for another program
    AlarmJournal(const std::filesystem::path& folder, std::chrono::milliseconds patience);

    /// True when this object holds the lock.
    bool isHeld() const { return problem_.empty(); }

    /// Why the lock is not held, and what to do; empty when it is held.
    const std::string& problem() const { return problem_; }

    /// True when the lock is not held because another program holds it.
    bool isBusy() const { return isBusy_; }

    /// The intents that earlier holders left unfinished, in chronological order.
    std::vector<AlarmIntent> unfinished() const;

    /// Records an intent; the record survives a power cut.
    /// @throw AlarmJournalError  when it cannot be written; nothing is changed then
    void begin(const AlarmIntent& intent);

    /// Removes the record of an intent that is done. A failure is ignored: the next holder finds the work already done.
    void end(const AlarmIntent& intent) noexcept;

    /// True when an earlier program left something unfinished. Opens and creates nothing, so it may be called at any time.
    static bool isPending(const std::filesystem::path& folder);

  private:
    std::string content() const;
    void lock(std::chrono::milliseconds patience);

    std::filesystem::path file_;
    LockedFile locked_;
    std::string problem_;
    bool isBusy_ = false;
};

}  // namespace quode
