// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Files that are replaced as a whole: at every moment, a power cut included, the old content or the new one is there.
#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file_calls.h"

namespace quode {

/// What became of a file operation. `message` names the file, the cause and what to do about it.
struct FileOutcome {
    bool ok = true;
    std::string message;  ///< after a success: empty, or a warning
};

struct FileContent {
    FileOutcome outcome;
    std::optional<std::string> bytes;  ///< no value after a success: there is no such file
};

/// Reads a whole regular file. Larger ones than `limit` bytes are refused.
FileContent readWholeFile(const std::filesystem::path& path, std::size_t limit);

/// Makes `content` the content of `path`: written to a temporary file in the same folder, synchronised, renamed over
/// the old one, the folder synchronised. Owner and mode of an old file are kept; a symbolic link is followed.
/// The new file's modification time is a whole second or more from the old one's, if need be a little in the future:
/// some programs look at no more than the second to see whether they have to read the file again.
/// With `keepOldAs`, the old file stays under that name, which must be free and in the same folder.
/// The caller holds the folder's `FileLock`: the temporary name is always the same, so that none are left behind.
FileOutcome replaceFile(FileCalls& calls, const std::filesystem::path& path, std::string_view content,
                        const std::optional<std::filesystem::path>& keepOldAs = std::nullopt);

/// Removes a file and synchronises its folder. That there is none is a success.
FileOutcome removeFile(FileCalls& calls, const std::filesystem::path& path);

/// `path` with the suffix ".damaged-N", N the first number from 1 whose name is free.
std::filesystem::path freeDamagedName(const std::filesystem::path& path);

/// Makes a folder and those above it, where missing.
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
