// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/InstanceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "companion/alarm_service.h"

namespace quode {
namespace {

int openLock(const std::filesystem::path& dataFolder) {
    std::error_code ignored;
    std::filesystem::create_directories(dataFolder, ignored);
    const int file = ::open(alarmServiceLock(dataFolder).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600);
    return file >= 0 ? file : ::open(dataFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

}  // namespace

InstanceLock::InstanceLock(const std::filesystem::path& dataFolder) : dataFolder_(dataFolder) {
    take();
}

// A folder that does not even open cannot be served by anybody; that is reported by those who need it.
void InstanceLock::take() {
    descriptor_ = openLock(dataFolder_);
    isHeld_ = descriptor_ < 0 || ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool InstanceLock::isCurrent() const {
    struct stat held {
    }, found{};
    if (descriptor_ < 0) return true;
    if (::fstat(descriptor_, &held) != 0) return false;
    const std::filesystem::path path = S_ISDIR(held.st_mode) ? dataFolder_ : alarmServiceLock(dataFolder_);
    return ::stat(path.c_str(), &found) == 0 && held.st_dev == found.st_dev && held.st_ino == found.st_ino;
}

void InstanceLock::renew() {
    if (descriptor_ >= 0) ::close(descriptor_);
    take();
}

InstanceLock::~InstanceLock() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace quode
