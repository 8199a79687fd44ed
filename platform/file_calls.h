// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The system calls that a safe save is made of, one operation each, so that a test can make any of them fail.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <ctime>
#include <filesystem>
#include <memory>

namespace quode {

/// Each operation does what the system call of its name does, and reports as it does: a negative result and `errno`.
class FileCalls {
  public:
    virtual ~FileCalls() = default;

    /// A new file for writing; fails when the name is taken.
    virtual int createFile(const std::filesystem::path& path, mode_t mode);
    virtual int openFolder(const std::filesystem::path& path);
    virtual ssize_t write(int file, const void* bytes, std::size_t count);
    /// Gives the file an owner, a group and a mode. Only the mode has to succeed: few may give files away.
    virtual int setOwnerAndMode(int file, uid_t owner, gid_t group, mode_t mode);
    virtual int setModificationTime(int file, const timespec& time);
    virtual int sync(int file);
    virtual int close(int file);
    virtual int link(const std::filesystem::path& from, const std::filesystem::path& to);
    virtual int rename(const std::filesystem::path& from, const std::filesystem::path& to);
    /// Gives each of two files the other's name, in one step. Not every file system knows that.
    virtual int exchange(const std::filesystem::path& one, const std::filesystem::path& other);
    virtual int unlink(const std::filesystem::path& path);
};

/// The real system calls.
std::shared_ptr<FileCalls> systemFileCalls();

}  // namespace quode
