// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Keeps two programs from changing an alarm and its event at the same time, and remembers a change that was cut off.
#pragma once

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quode {

/// What a program is about to do to the alarms, written down before it begins.
struct AlarmIntent {
    enum class Kind {
        on,     ///< the event `event` of an alarm is written
        off,    ///< the alarm is switched off, and its event `event` removed
        drop,   ///< the event `event` is removed, unless the alarm has it
        renew,  ///< something changed that all events follow: the home city, an offset, the layout of the calendar
    };
    Kind kind = Kind::renew;
    int timeId = 0;     ///< 1 to 6; 0 for `renew`
    std::string event;  ///< the event's identifier; empty when the calendar chooses it

    friend bool operator==(const AlarmIntent&, const AlarmIntent&) = default;
};

/// Why an intent could not be written down, and what to do about it. Nothing was changed.
class AlarmJournalError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A row of the database and an event of the calendar cannot be changed in one step. Whoever changes both holds this
/// journal, a file ".alarms.lock" of the data folder: locked, so that there is one at a time, and with a line for what
/// it is about to do. The line is taken back when both are changed. The system lets go of the lock when the holder ends
/// in any way; a line that is left then says what the next holder has to finish.
class AlarmJournal {
  public:
    /// Waits at most `patience` for another program.
    AlarmJournal(const std::filesystem::path& folder, std::chrono::milliseconds patience);
    ~AlarmJournal();
    AlarmJournal(const AlarmJournal&) = delete;
    AlarmJournal& operator=(const AlarmJournal&) = delete;

    bool isHeld() const { return problem_.empty(); }

    /// Why it is not held, and what to do about it.
    const std::string& problem() const { return problem_; }

    /// What earlier holders have left unfinished, in the order of time.
    std::vector<AlarmIntent> unfinished() const;

    /// Writes an intent down; it lasts through a power cut. Throws `AlarmJournalError` when that fails.
    void begin(const AlarmIntent& intent);

    /// Takes an intent back, for it is done. A failure is none: what is done is found done by whoever looks again.
    void end(const AlarmIntent& intent) noexcept;

    /// Whether an earlier program has left something unfinished. Nothing is opened or made, so that this may be asked
    /// at any time.
    static bool isPending(const std::filesystem::path& folder);

  private:
    std::string content() const;
    void lock(std::chrono::milliseconds patience);

    std::filesystem::path file_;
    int descriptor_ = -1;
    std::string problem_;
};

}  // namespace quode
