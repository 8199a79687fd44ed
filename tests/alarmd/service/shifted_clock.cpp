// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Preloaded into a program, moves its wall clock by $SHIFT_SECONDS: what the program asks for the time and the timers
// that it sets by it. So an alarm can be due within seconds, whatever the time of day.
#include <dlfcn.h>
#include <sys/timerfd.h>
#include <time.h>

#include <cstdlib>

namespace {

long shift() {
    static const long seconds = [] {
        const char* text = std::getenv("SHIFT_SECONDS");
        return text ? std::strtol(text, nullptr, 10) : 0;
    }();
    return seconds;
}

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    static const auto real = next<int (*)(clockid_t, timespec*)>("clock_gettime");
    const int result = real(clock, time);
    if (result == 0 && clock == CLOCK_REALTIME) time->tv_sec += shift();
    return result;
}

extern "C" int timerfd_settime(int timer, int flags, const itimerspec* value, itimerspec* former) noexcept {
    static const auto real = next<int (*)(int, int, const itimerspec*, itimerspec*)>("timerfd_settime");
    itimerspec moved = *value;
    // Of the timers of the program those that can be cancelled by setting the clock follow the wall clock.
    if ((flags & TFD_TIMER_CANCEL_ON_SET) != 0) moved.it_value.tv_sec -= shift();
    return real(timer, flags, &moved, former);
}
