// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/BusProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

#include "common/numbers.h"
#include "texts/translation.h"

extern char** environ;

namespace quode {
namespace {

using std::chrono::steady_clock;

constexpr std::uint64_t firstDelay = 5, longestDelay = 600;  // seconds
constexpr std::uint64_t secondUs = 1'000'000;
constexpr std::chrono::minutes longRun{1};
constexpr std::size_t longestLine = 4096;
constexpr std::int64_t afterRings = SD_EVENT_PRIORITY_NORMAL + 10;

/// Starts a program that writes into the pipe as its descriptor 3, with no signal blocked.
/// @param isQuiet  without its messages: they were printed the time before
pid_t spawn(const std::filesystem::path& program, int pipe, bool isQuiet) {
    constexpr int ownDescriptor = 3;
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    sigset_t none;
    sigemptyset(&none);
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, pipe, ownDescriptor);
    if (isQuiet) posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    std::string name = program.string(), option = "--ringer=3";
    std::array<char*, 3> arguments{name.data(), option.data(), nullptr};
    pid_t process = 0;
    const int failure = posix_spawn(&process, name.c_str(), &files, &attributes, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
    return failure == 0 ? process : 0;
}

}  // namespace

BusProcess::BusProcess(sd_event* loop, std::filesystem::path program, Answered answered,
                       std::function<void(std::string_view)> tell)
    : loop_(loop),
      program_(std::move(program)),
      answered_(std::move(answered)),
      tell_(std::move(tell)),
      delaySeconds_(firstDelay) {
    start();
}

BusProcess::~BusProcess() {
    ending_.reset();
    hearing_.reset();
    if (process_ > 0) ::kill(process_, SIGTERM);
    if (pipe_ >= 0) ::close(pipe_);
}

void BusProcess::start() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) < 0) return;
    process_ = spawn(program_, ends[1], isQuiet_);
    started_ = steady_clock::now();
    ::close(ends[1]);
    if (process_ == 0) {
        ::close(ends[0]);
        return tell_(_("quode-service cannot be started: other programs cannot ask for the times."));
    }
    pipe_ = ends[0];
    ::fcntl(pipe_, F_SETFL, O_NONBLOCK);
    sd_event_source* made = nullptr;
    if (sd_event_add_io(loop_, &made, pipe_, EPOLLIN, &BusProcess::heard, this) >= 0) {
        sd_event_source_set_priority(made, afterRings);
        hearing_.reset(made);
    }
    made = nullptr;
    if (sd_event_add_child(loop_, &made, process_, WEXITED, &BusProcess::ended, this) >= 0) {
        sd_event_source_set_priority(made, afterRings);
        ending_.reset(made);
    }
}

int BusProcess::heard(sd_event_source*, int descriptor, std::uint32_t, void* userData) {
    auto* const self = static_cast<BusProcess*>(userData);
    std::array<char, 1024> bytes{};
    const auto count = ::read(descriptor, bytes.data(), bytes.size());
    if (count <= 0) {
        if (count == 0) self->hearing_.reset();
        return 0;
    }
    self->unread_.append(bytes.data(), static_cast<std::size_t>(count));
    for (std::size_t end = self->unread_.find('\n'); end != std::string::npos; end = self->unread_.find('\n')) {
        self->take(std::string_view(self->unread_).substr(0, end));
        self->unread_.erase(0, end + 1);
    }
    if (self->unread_.size() > longestLine) self->unread_.clear();
    return 0;
}

/// A line "stop NUMBER RUN", or "snooze"; with the number 0 for all that ring.
void BusProcess::take(std::string_view line) {
    const std::size_t first = line.find(' ');
    const std::size_t second = first == std::string_view::npos ? first : line.find(' ', first + 1);
    if (second == std::string_view::npos) return;
    const auto number = numberOf<std::uint32_t>(line.substr(first + 1, second - first - 1));
    const std::string action(line.substr(0, first));
    if (!number || (action != "stop" && action != "snooze")) return;
    answered_({std::string(line.substr(second + 1)), *number}, action);
}

// A regular end means that there is no bus, or that somebody ended the program. Either may pass, and is no news.
int BusProcess::ended(sd_event_source*, const siginfo_t* information, void* userData) {
    auto* const self = static_cast<BusProcess*>(userData);
    self->ending_.reset();
    self->hearing_.reset();
    self->process_ = 0;
    ::close(std::exchange(self->pipe_, -1));
    self->isQuiet_ = information->si_code == CLD_EXITED && information->si_status <= 1;
    if (!self->isQuiet_) self->tell_(_("quode-service ended unexpectedly; it is started again."));
    if (steady_clock::now() - self->started_ > longRun) self->delaySeconds_ = firstDelay;
    sd_event_source* made = nullptr;
    sd_event_add_time_relative(self->loop_, &made, CLOCK_MONOTONIC, self->delaySeconds_ * secondUs, secondUs,
                               &BusProcess::startAgain, self);
    self->restart_.reset(made);
    self->delaySeconds_ = std::min(self->delaySeconds_ * 2, longestDelay);
    return 0;
}

int BusProcess::startAgain(sd_event_source*, std::uint64_t, void* self) {
    static_cast<BusProcess*>(self)->start();
    return 0;
}

}  // namespace quode
