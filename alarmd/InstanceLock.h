// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "platform/LockedFile.h"

namespace quode {

/// Keeps a second alarm service from serving the same data folder, for as long as it lives. The system takes the lock
/// away when the process ends, however it does.
class InstanceLock {
  public:
    /// Uses the file "alarmd.lock" of the folder, or the folder itself where that cannot be made.
    explicit InstanceLock(const std::filesystem::path& dataFolder);

    /// False when another process has it.
    bool isHeld() const { return isHeld_; }

    /// False when the folder or the file was deleted or replaced, so that the lock no longer excludes anyone.
    bool isCurrent() const;

    /// Locks what is there now. Nothing is held when another process was faster.
    void renew();

  private:
    void take();

    std::filesystem::path dataFolder_;
    LockedFile file_;
    bool isHeld_ = false;
};

}  // namespace quode
