// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Files that are replaced as a whole: at every moment, a power cut included, the old content or the new one is there.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file_calls.h"

namespace quode {

/// What became of a file operation. `message` names the file, the cause and what to do about it.
struct FileOutcome {
    bool ok = true;
    std::string message;      ///< after a success: empty, or a warning
    bool isOutdated = false;  ///< nothing was done, for another program has changed the file since it was read
};

/// By what one sees whether a file is still the one that was read.
struct FileStamp {
    bool isThere = false;
    dev_t device = 0;
    ino_t number = 0;
    off_t size = 0;
    timespec modified{};
    timespec changed{};
};

struct FileContent {
    FileOutcome outcome;
    std::optional<std::string> bytes;  ///< no value after a success: there is no such file
    FileStamp stamp = {};
};

/// Reads a whole regular file. Larger ones than `limit` bytes are refused.
FileContent readWholeFile(const std::filesystem::path& path, std::size_t limit);

/// Makes `content` the content of `path`: written to a temporary file in the same folder, synchronised, renamed over
/// the old one, the folder synchronised. Owner and mode of an old file are kept; a symbolic link is followed.
/// The new file's modification time is a whole second or more from the old one's, if need be a little in the future:
/// some programs look at no more than the second to see whether they have to read the file again.
/// With `readAs`, nothing is done when the old file is not that one any more: a program that does not know the lock has
/// saved it meanwhile, and its change must not be lost.
/// With `keepOldAs`, the old file stays under that name, which must be free and in the same folder.
/// The caller holds the folder's `FileLock`: the temporary name is always the same, so that none are left behind.
FileOutcome replaceFile(FileCalls& calls, const std::filesystem::path& path, std::string_view content,
                        const std::optional<std::filesystem::path>& keepOldAs = std::nullopt,
                        const std::optional<FileStamp>& readAs = std::nullopt);

/// Whether `path` is the temporary file of a `replaceFile` that was cut off, as far as its name tells.
bool isTemporaryFile(const std::filesystem::path& path);

/// Removes a file and synchronises its folder. That there is none is a success.
FileOutcome removeFile(FileCalls& calls, const std::filesystem::path& path);

/// `path` with the suffix ".damaged-N", N the first number from 1 whose name is free.
std::filesystem::path freeDamagedName(const std::filesystem::path& path);

/// Makes a folder and those above it, where missing; nobody else may look into the new ones.
FileOutcome makeFolder(const std::filesystem::path& folder);

/// A lock on a file of its own that keeps two writers apart, in this and in other programs; the system lets go of it
/// when the holder ends in any way.
class FileLock {
  public:
    /// Waits at most `patience` for the lock.
    FileLock(const std::filesystem::path& lockFile, std::chrono::milliseconds patience);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    const FileOutcome& outcome() const { return outcome_; }

  private:
    int file_ = -1;
    FileOutcome outcome_;
};

}  // namespace quode
