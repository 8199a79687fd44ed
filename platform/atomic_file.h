// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Files that are replaced as a whole: at every moment, also after a power cut, the old or the new content exists.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/LockedFile.h"
#include "platform/file_calls.h"

namespace quode {

/// The outcome of a file operation. `message` contains the file, the cause and what to do.
struct FileOutcome {
    bool ok = true;
    std::string message;      ///< after a success: empty, or a warning
    bool isOutdated = false;  ///< nothing was done, because another program changed the file since it was read
};

/// Facts that identify the state of a file, to detect changes since it was read.
struct FileStamp {
    bool isThere = false;
    dev_t device = 0;
    ino_t number = 0;
    off_t size = 0;
    timespec modified{};
    timespec changed{};
};

/// The result of `readWholeFile`.
struct FileContent {
    FileOutcome outcome;
    std::optional<std::string> bytes;  ///< no value after a success: the file does not exist
    FileStamp stamp = {};
};

/// Reads a whole regular file.
/// @param limit  larger files are rejected, bytes
FileContent readWholeFile(const std::filesystem::path& path, std::size_t limit);

/// Replaces the content of a file: writes a temporary file in the same folder, synchronises it, renames it over the old
/// one and synchronises the folder. Owner and mode of an old file are kept; a symbolic link is followed. The new file's
/// modification time differs from the old one's by at least a second, if necessary in the future, because some programs
/// compare only the seconds to detect a change. The caller holds the folder's `FileLock`: the temporary name is always the
/// same, so that interrupted saves do not accumulate.
/// @param keepOldAs  the old file stays under this name, which must be free and in the same folder
/// @param readAs     nothing is done (`isOutdated`) when the old file no longer has this stamp: a program without the lock
///                   has saved it, and its change must not be lost
FileOutcome replaceFile(FileCalls& calls, const std::filesystem::path& path, std::string_view content,
                        const std::optional<std::filesystem::path>& keepOldAs = std::nullopt,
                        const std::optional<FileStamp>& readAs = std::nullopt);

/// Writes to a path that is no regular file: a device, or a pipe with a reader. It is not replaced.
FileOutcome writeInto(const std::filesystem::path& path, std::string_view content);

/// True when a path has the name of a temporary file of `replaceFile`.
bool isTemporaryFile(const std::filesystem::path& path);

/// Removes a file and synchronises its folder. A missing file is a success.
FileOutcome removeFile(FileCalls& calls, const std::filesystem::path& path);

/// The path with the suffix ".damaged-N", with the first number N from 1 whose name is free.
std::filesystem::path freeDamagedName(const std::filesystem::path& path);

/// Creates a folder and its missing parent folders; the new ones are private to the user.
FileOutcome makeFolder(const std::filesystem::path& folder);

/// A lock on a separate file that excludes other writers; see `LockedFile`.
class FileLock {
  public:
    /// Takes the lock.
    /// @param patience  the longest time to wait
    FileLock(const std::filesystem::path& lockFile, std::chrono::milliseconds patience);

    /// Whether the lock is held, else why not.
    const FileOutcome& outcome() const { return outcome_; }

  private:
    LockedFile file_;
    FileOutcome outcome_;
};

}  // namespace quode
