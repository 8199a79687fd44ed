// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace quode {

/// Keeps a second alarm service from serving the same data folder, for as long as it lives. The system takes the lock
/// away when the process ends, however it does.
class InstanceLock {
  public:
    /// Uses the file "alarmd.lock" of the folder, or the folder itself where that cannot be made.
    explicit InstanceLock(const std::filesystem::path& dataFolder);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    /// False when another process has it.
    bool isHeld() const { return isHeld_; }

  private:
    int descriptor_;
    bool isHeld_;
};

}  // namespace quode
