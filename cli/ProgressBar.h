// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>

namespace quode::cli {

/// A bar on the terminal behind standard error that shows how much of a long work is done; nothing where there is no
/// terminal, or when the work is done at once. Its line is cleared at the end.
class ProgressBar {
  public:
    explicit ProgressBar(std::size_t total);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// Shows that so much of the total is done.
    void show(std::size_t done);

  private:
    std::size_t total_;
    bool isOnTerminal_;
    bool isShown_ = false;
    std::chrono::steady_clock::time_point next_;
};

}  // namespace quode::cli
