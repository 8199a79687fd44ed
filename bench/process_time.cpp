// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// process_time COUNT PROGRAM [ARGUMENT...]: runs a program some times with its output thrown away. Printed: the least
// time of one run in microseconds and the most memory in kilobytes. The memory of this small program is the least that
// shows.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>

extern char** environ;

namespace {

struct Run {
    std::chrono::microseconds time{};
    long kilobytes = 0;
    bool isDone = false;
};

Run run(char** arguments, const posix_spawn_file_actions_t& actions) {
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments, environ) != 0) return {};
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child) return {};
    const auto time = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    return {time, usage.ru_maxrss, WIFEXITED(status) && WEXITSTATUS(status) == 0};
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        std::fputs("process_time COUNT PROGRAM [ARGUMENT...]\n", stderr);
        return 2;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    std::chrono::microseconds least = std::chrono::microseconds::max();
    long most = 0;
    int times = 1;
    std::from_chars(arguments[1], arguments[1] + std::strlen(arguments[1]), times);
    for (int i = 0; i < times; ++i) {
        const Run one = run(arguments + 2, actions);
        if (!one.isDone) {
            std::fprintf(stderr, "process_time: %s failed\n", arguments[2]);
            return 1;
        }
        least = std::min(least, one.time);
        most = std::max(most, one.kilobytes);
    }
    std::printf("%lld %ld\n", static_cast<long long>(least.count()), most);
    posix_spawn_file_actions_destroy(&actions);
    return 0;
}
