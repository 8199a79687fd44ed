// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The system calls of a safe save, one operation each, so that a test can make any of them fail.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <ctime>
#include <filesystem>
#include <memory>

namespace quode {

/// Each operation works like the system call of its name and reports errors like it: a negative result and `errno`.
class FileCalls {
  public:
    virtual ~FileCalls() = default;

    /// Creates a file for writing; fails when the name exists.
    virtual int createFile(const std::filesystem::path& path, mode_t mode);
    virtual int openFolder(const std::filesystem::path& path);
    virtual ssize_t write(int file, const void* bytes, std::size_t count);
    /// Sets owner, group and mode of a file. Only setting the mode must succeed: few users may change the owner.
    virtual int setOwnerAndMode(int file, uid_t owner, gid_t group, mode_t mode);
    virtual int setModificationTime(int file, const timespec& time);
    virtual int sync(int file);
    virtual int close(int file);
    virtual int link(const std::filesystem::path& from, const std::filesystem::path& to);
    virtual int rename(const std::filesystem::path& from, const std::filesystem::path& to);
    /// Exchanges the names of two files in one step. Not every file system supports it.
    virtual int exchange(const std::filesystem::path& one, const std::filesystem::path& other);
    virtual int unlink(const std::filesystem::path& path);
};

/// The real system calls.
std::shared_ptr<FileCalls> systemFileCalls();

}  // namespace quode
