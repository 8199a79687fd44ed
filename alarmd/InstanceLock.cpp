// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/InstanceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "companion/alarm_service.h"

namespace quode {
namespace {

int openLock(const std::filesystem::path& dataFolder) {
    std::error_code ignored;
    std::filesystem::create_directories(dataFolder, ignored);
    const int file = ::open(alarmServiceLock(dataFolder).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    return file >= 0 ? file : ::open(dataFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

}  // namespace

// A folder that does not even open cannot be served by anybody; that is told by those who need it.
InstanceLock::InstanceLock(const std::filesystem::path& dataFolder)
    : descriptor_(openLock(dataFolder)),
      isHeld_(descriptor_ < 0 || ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) {}

InstanceLock::~InstanceLock() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace quode
