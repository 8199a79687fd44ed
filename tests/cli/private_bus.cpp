// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "private_bus.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "program.h"

namespace quode::test {
namespace {

constexpr int patienceMs = 10'000;

}  // namespace

Child::Child(std::vector<std::string> words, std::vector<std::string> environment) {
    std::array<int, 2> in{}, out{};
    if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const std::vector<char*> argv = pointersTo(words), envp = pointersTo(environment);
    process_ = fork();
    if (process_ == 0) {
        dup2(in[0], STDIN_FILENO);
        dup2(out[1], STDOUT_FILENO);
        execve(argv[0], argv.data(), envp.data());
        _exit(127);
    }
    close(in[0]);
    close(out[1]);
    input_ = in[1];
    output_ = out[0];
}

Child::~Child() {
    close(input_);
    close(output_);
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

std::string Child::nextLine() {
    while (read_.find('\n') == std::string::npos) {
        pollfd ready{output_, POLLIN, 0};
        std::array<char, 1024> bytes{};
        const ssize_t count = poll(&ready, 1, patienceMs) > 0 ? read(output_, bytes.data(), bytes.size()) : 0;
        if (count <= 0) throw std::runtime_error("a program beside the test says nothing more");
        read_.append(bytes.data(), static_cast<std::size_t>(count));
    }
    const std::size_t end = read_.find('\n');
    std::string line = read_.substr(0, end);
    read_.erase(0, end + 1);
    return line;
}

PrivateBus::PrivateBus() {
    daemon_ = std::make_unique<Child>(
        std::vector<std::string>{DBUS_DAEMON, "--session", "--nofork", "--nopidfile", "--print-address=1"},
        std::vector<std::string>{"PATH=/usr/bin:/bin"});
    address_ = daemon_->nextLine();
}

void PrivateBus::startNotifications(const std::string& kind) {
    notifications_ = std::make_unique<Child>(
        std::vector<std::string>{"/usr/bin/python3", QUODE_SOURCE "/tests/alarmd/service/notification_mock.py", kind},
        std::vector<std::string>{"PATH=/usr/bin:/bin", "DBUS_SESSION_BUS_ADDRESS=" + address_});
    if (nextCall()["call"] != "ready") throw std::runtime_error("the notification service did not start");
}

nlohmann::json PrivateBus::nextCall() {
    return nlohmann::json::parse(notifications_->nextLine());
}

}  // namespace quode::test
