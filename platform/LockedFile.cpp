// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/LockedFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>
#include <utility>

namespace quode {

using std::chrono::steady_clock;

LockedFile::~LockedFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

LockedFile::LockedFile(LockedFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

LockedFile& LockedFile::operator=(LockedFile&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

LockedFile LockedFile::file(const std::filesystem::path& path) {
    return LockedFile(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
}

LockedFile LockedFile::folder(const std::filesystem::path& path) {
    return LockedFile(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

bool LockedFile::isRegularFile() const {
    struct stat facts {};
    return ::fstat(descriptor_, &facts) == 0 && S_ISREG(facts.st_mode);
}

LockedFile::Result LockedFile::lock(std::optional<std::chrono::milliseconds> patience) {
    constexpr std::chrono::milliseconds pause{5};
    if (!patience) return ::flock(descriptor_, LOCK_EX) == 0 ? Result::locked : Result::failed;
    const steady_clock::time_point end = steady_clock::now() + *patience;
    while (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return Result::failed;
        if (steady_clock::now() >= end) return Result::busy;
        std::this_thread::sleep_for(pause);
    }
    return Result::locked;
}

bool LockedFile::isLockedByOther() {
    return ::flock(descriptor_, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace quode
