// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/ProgressBar.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace quode::cli {
namespace {

constexpr std::chrono::milliseconds patience{300};  // what is done sooner needs no bar
constexpr std::chrono::milliseconds pause{100};
constexpr std::size_t width = 40;

}  // namespace

ProgressBar::ProgressBar(std::size_t total)
    : total_(std::max<std::size_t>(total, 1)),
      isOnTerminal_(isatty(STDERR_FILENO) == 1),
      next_(std::chrono::steady_clock::now() + patience) {}

ProgressBar::~ProgressBar() {
    if (isShown_) std::fputs("\r\033[K", stderr);
}

void ProgressBar::show(std::size_t done) {
    const auto now = std::chrono::steady_clock::now();
    if (!isOnTerminal_ || now < next_) return;
    next_ = now + pause;
    isShown_ = true;
    const std::size_t part = std::min(done, total_);
    std::string bar(width * part / total_, '#');
    bar.resize(width, '.');
    const std::string line = "\r[" + bar + "] " + std::to_string(100 * part / total_) + " %";
    std::fputs(line.c_str(), stderr);
}

}  // namespace quode::cli
