// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/alarm_service.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace quode {

std::filesystem::path alarmServiceLock(const std::filesystem::path& dataFolder) {
    return dataFolder / "alarmd.lock";
}

bool alarmServiceRuns(const std::filesystem::path& dataFolder) {
    const int file = ::open(alarmServiceLock(dataFolder).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    // A shared lock, so that two who ask at once do not take each other for the service; closing gives it back.
    const bool isLocked = ::flock(file, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(file);
    return isLocked;
}

}  // namespace quode
