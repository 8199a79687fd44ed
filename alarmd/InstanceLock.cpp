// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/InstanceLock.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <chrono>
#include <utility>

#include "companion/alarm_service.h"

namespace quode {
namespace {

LockedFile openLock(const std::filesystem::path& dataFolder) {
    std::error_code ignored;
    std::filesystem::create_directories(dataFolder, ignored);
    LockedFile file(::open(alarmServiceLock(dataFolder).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600));
    return file.isOpen() ? std::move(file) : LockedFile::folder(dataFolder);
}

}  // namespace

InstanceLock::InstanceLock(const std::filesystem::path& dataFolder) : dataFolder_(dataFolder) {
    take();
}

// A folder that does not even open cannot be served by anybody; that is reported by those who need it.
void InstanceLock::take() {
    file_ = openLock(dataFolder_);
    isHeld_ = !file_.isOpen() || file_.lock(std::chrono::milliseconds(0)) != LockedFile::Result::busy;
}

bool InstanceLock::isCurrent() const {
    struct stat held {
    }, found{};
    if (!file_.isOpen()) return true;
    if (::fstat(file_.descriptor(), &held) != 0) return false;
    const std::filesystem::path path = S_ISDIR(held.st_mode) ? dataFolder_ : alarmServiceLock(dataFolder_);
    return ::stat(path.c_str(), &found) == 0 && held.st_dev == found.st_dev && held.st_ino == found.st_ino;
}

void InstanceLock::renew() {
    file_ = {};
    take();
}

}  // namespace quode
