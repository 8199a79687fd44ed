// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/AlarmLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace quode {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::seconds patience{2};
constexpr std::chrono::milliseconds pause{10};

}  // namespace

AlarmLock::AlarmLock(const std::filesystem::path& folder)
    : descriptor_(::open((folder / ".alarms.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)) {
    const steady_clock::time_point end = steady_clock::now() + patience;
    while (descriptor_ >= 0 && ::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        const bool goesOn = (errno == EWOULDBLOCK || errno == EINTR) && steady_clock::now() < end;
        if (!goesOn) return;
        std::this_thread::sleep_for(pause);
    }
}

AlarmLock::~AlarmLock() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace quode
