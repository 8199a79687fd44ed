// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/alarm_service.h"

#include <fcntl.h>

#include "platform/LockedFile.h"

namespace quode {

std::filesystem::path alarmServiceLock(const std::filesystem::path& dataFolder) {
    return dataFolder / "alarmd.lock";
}

bool alarmServiceRuns(const std::filesystem::path& dataFolder) {
    LockedFile file(::open(alarmServiceLock(dataFolder).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    return file.isOpen() && file.isLockedByOther();
}

}  // namespace quode
