// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Keeps two programs from writing the event of an alarm at the same time.
#pragma once

#include <filesystem>

namespace quode {

/// Held from reading which event an alarm has until that is stored again; otherwise two programs that switch the same
/// alarm on would make two events, and one of them would never be found again. The system lets go of it when the holder
/// ends in any way. Where it cannot be had (a folder that may not be written, a program that does not go on) the alarm
/// is more important, and the object does nothing.
class AlarmLock {
  public:
    /// Waits a moment for another program. The lock is a file of its own in the folder.
    explicit AlarmLock(const std::filesystem::path& folder);
    ~AlarmLock();
    AlarmLock(const AlarmLock&) = delete;
    AlarmLock& operator=(const AlarmLock&) = delete;

  private:
    int descriptor_;
};

}  // namespace quode
