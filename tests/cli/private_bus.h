// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstdio>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace quode::test {

/// A program that runs beside the test, with a pipe to its input and one from its output; killed at the end.
class Child {
  public:
    Child(std::vector<std::string> words, std::vector<std::string> environment);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// The next line of its output, without the line break; throws when none comes within some seconds.
    std::string nextLine();

  private:
    pid_t process_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::string read_;
};

/// A session bus of the test's own.
class PrivateBus {
  public:
    PrivateBus();

    const std::string& address() const { return address_; }

    /// Starts a notification service. "described": it tells its name and capabilities; "plain": it does not.
    void startNotifications(const std::string& kind);

    /// The next call of the notification service.
    nlohmann::json nextCall();

  private:
    std::unique_ptr<Child> daemon_;
    std::string address_;
    std::unique_ptr<Child> notifications_;
};

}  // namespace quode::test
