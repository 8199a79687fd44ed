// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

namespace quode {

/// An open file or folder that one holder at a time can lock, in this and in other programs. The system releases the lock
/// when the holder ends in any way.
class LockedFile {
  public:
    enum class Result {
        locked,
        busy,    ///< another holder has it
        failed,  ///< the reason is in errno
    };

    LockedFile() = default;  ///< nothing is open
    explicit LockedFile(int descriptor) : descriptor_(descriptor) {}
    ~LockedFile();
    LockedFile(LockedFile&& other) noexcept;
    LockedFile& operator=(LockedFile&& other) noexcept;

    /// Opens a file and creates it where it is missing, private to the user. Never waits, also where a pipe is in its
    /// place, and follows no symbolic link.
    static LockedFile file(const std::filesystem::path& path);
    static LockedFile folder(const std::filesystem::path& path);

    bool isOpen() const { return descriptor_ >= 0; }  ///< else the reason is in errno after opening
    bool isRegularFile() const;
    int descriptor() const { return descriptor_; }

    /// Locks it for this object alone.
    /// @param patience  the longest time to wait for another holder; nothing: as long as it takes
    Result lock(std::optional<std::chrono::milliseconds> patience);

    /// True when another holder has locked it for itself alone. Two that ask at the same time do not disturb each other.
    bool isLockedByOther();

  private:
    int descriptor_ = -1;
};

}  // namespace quode
