// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/file_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace quode {

int FileCalls::createFile(const std::filesystem::path& path, mode_t mode) {
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
}

int FileCalls::openFolder(const std::filesystem::path& path) {
    return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

ssize_t FileCalls::write(int file, const void* bytes, std::size_t count) {
    return ::write(file, bytes, count);
}

int FileCalls::setOwnerAndMode(int file, uid_t owner, gid_t group, mode_t mode) {
    // On failure the file belongs to the user who saves it, who could write the old one too.
    [[maybe_unused]] const int refused = ::fchown(file, owner, group);
    return ::fchmod(file, mode);
}

int FileCalls::setModificationTime(int file, const timespec& time) {
    const timespec accessAndModification[] = {{0, UTIME_OMIT}, time};
    return ::futimens(file, accessAndModification);
}

int FileCalls::sync(int file) {
    return ::fsync(file);
}

int FileCalls::close(int file) {
    return ::close(file);
}

int FileCalls::link(const std::filesystem::path& from, const std::filesystem::path& to) {
    return ::link(from.c_str(), to.c_str());
}

int FileCalls::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    return ::rename(from.c_str(), to.c_str());
}

int FileCalls::exchange(const std::filesystem::path& one, const std::filesystem::path& other) {
    return ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE);
}

int FileCalls::unlink(const std::filesystem::path& path) {
    return ::unlink(path.c_str());
}

std::shared_ptr<FileCalls> systemFileCalls() {
    return std::make_shared<FileCalls>();
}

}  // namespace quode
